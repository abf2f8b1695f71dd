#include "qpastetable.h"
#include "ui_qpastetable.h"

#include "dbtasks.h"
#include "money.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "signs.h"
#include "waitnote.h"

#include <QFileDialog>
#include <QScreen>

namespace {
const int wordsColumn = 4;
const QColor refusedColour(255, 205, 205);

RowStore rowsOf(const QVector<PastedLine> &lines)
{
    RowStore rows;
    for (const PastedLine &line : lines) {
        const std::string texts[] = {std::to_string(line.number), line.barcode.toStdString(),
                                     line.quantity.toStdString(), line.name.toStdString(),
                                     line.words.toStdString()};
        rows.append({std::begin(texts), std::end(texts)});
    }
    return rows;
}
} // namespace

QPasteTable::QPasteTable(SaleWork *work, const StockMode &mode, const QString &shop, QWidget *parent)
    : QDialog(parent)
    , ui(std::make_unique<Ui::QPasteTable>())
    , m_work(work)
    , m_mode(mode.mode)
    , m_shop(shop)
    , m_tasks(work->makeTasks(this))
{
    ui->setupUi(this);
    setWindowTitle(mode.name + QStringLiteral(" – ") + windowTitle());
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_note = new WaitNote(ui->labelResult, this);
    m_fileToWrite = [this](const QString &suggested) {
        return QFileDialog::getSaveFileName(this, tr("Зберегти файл"), suggested, tr("csv (*.csv)"));
    };
    buildLists();
    connect(ui->teTable, &QPlainTextEdit::textChanged, this, [this] {
        m_isCurrent = false;
        ui->pbAdd->setEnabled(false);
        m_pause.begin();
    });
    connect(&m_pause, &TypingPause::ended, this, [this] { check(ui->teTable->toPlainText()); });
    connect(ui->pbAdd, &QPushButton::clicked, this, &QPasteTable::accept);
    connect(ui->pbCancel, &QPushButton::clicked, this, &QPasteTable::reject);
    connect(ui->pbSaveRefused, &QPushButton::clicked, this, &QPasteTable::saveRefused);
    show(PastedTable());
}

QPasteTable::~QPasteTable() = default;

void QPasteTable::buildLists()
{
    ui->listLines->open(m_work->db(), m_work->user(), m_work->receiver());
    ui->listLines->setColumns({{tr("Рядок"), 6, &asNumber},
                               {tr("Штрихкод"), 14},
                               {tr("Кількість"), 10},
                               {tr("Товар"), 26},
                               {tr("Що буде"), 30}},
                              QStringLiteral("QPasteTable"));
    openRefused(ui->listRefused, m_work->db(), m_work->user(), m_work->receiver(), tr("Рядок таблиці"),
                QStringLiteral("QPasteTable.refused"));
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    ui->listLines->view()->setMainColumn(wordsColumn, digit * 20);
    for (const ListPane *list : {ui->listLines, ui->listRefused})
        list->footer()->hide();
    for (const auto &[part, stretch] : {qMakePair(0, 2), qMakePair(1, 4), qMakePair(2, 2)})
        ui->splitter->setStretchFactor(part, stretch);
    // Enter presses what has the focus and nothing else: a scanner sends it behind every code.
    for (QPushButton *button : findChildren<QPushButton *>())
        button->setAutoDefault(false);
    const QSize room = screen()->availableGeometry().size();
    resize(QSize(digit * 110, fontMetrics().height() * 36).boundedTo(room * 9 / 10));
}

void QPasteTable::setText(const QString &text)
{
    // A long text takes the field as long as the server its answer.
    check(text);
    const QSignalBlocker hold(ui->teTable);
    ui->teTable->setPlainText(text);
}

/// The newest text counts.
void QPasteTable::check(const QString &text)
{
    m_tasks->drop();
    m_pause.drop();
    m_isCurrent = true;
    m_note->begin(tr("Перевіряється…"));
    m_tasks->read([text, shop = m_shop, mode = m_mode, caller = m_work->caller()](
                      const Db &db) { return checkPastedTable(db, caller, text, shop, mode); },
                  [this](const PastedTable &table) {
                      m_note->end();
                      show(table);
                  });
}

void QPasteTable::show(const PastedTable &table)
{
    m_table = table;
    ui->listLines->showRows(rowsOf(table.lines));
    QRowModel *model = ui->listLines->model();
    for (int row = 0; row < table.lines.size(); ++row) {
        if (table.lines.at(row).isTaken)
            continue;
        model->setRowColour(row, refusedColour);
        showSign(model, model->index(row, 0), Sign::Bad, table.lines.at(row).words);
    }
    showRefused(ui->listRefused, table.refused);
    ui->labelRefused->setText(tr("Рядки, які не додаються: %1").arg(wholeShown(table.refused.size())));
    ui->refusedPart->setVisible(!table.refused.isEmpty());
    ui->pbAdd->setEnabled(m_isCurrent && table.error.isEmpty() && !table.rows.isEmpty());
    ui->labelResult->setText(table.error.isEmpty() && !table.lines.isEmpty()
                                 ? tr("Рядків: %1, додається: %2.")
                                       .arg(wholeShown(table.lines.size()), wholeShown(table.rows.size()))
                                 : table.error);
}

/// What was shown, and only when it is still the text.
void QPasteTable::accept()
{
    if (m_tasks->isWaiting() || !m_isCurrent || m_table.rows.isEmpty())
        return;
    if (m_table.refused.isEmpty() ||
        QMessDlg::confirm(this, windowTitle(),
                          tr("Рядків, які не додаються: %1 з %2. Їх можна зберегти у файл.\nДодати решту?")
                              .arg(wholeShown(m_table.refused.size()), wholeShown(m_table.lines.size())),
                          tr("Додати решту")))
        QDialog::accept();
}

void QPasteTable::saveRefused()
{
    const QString path = m_fileToWrite(tr("таблиця – відмови.csv"));
    if (!path.isEmpty())
        ui->listRefused->exportCsv(QString(), path);
}
