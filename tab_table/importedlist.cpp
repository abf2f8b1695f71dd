#include "importedlist.h"

#include "listpane.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

namespace {
const int wordsColumn = 5;

/// In the order of the columns.
QStringList cellsOf(const ImportedTable &table)
{
    const QString name = QStringLiteral("%1 (%2)").arg(
        QCoreApplication::translate("Page", table.table.caption), QLatin1String(table.table.name));
    QString words = table.words;
    QStringList counts{QString(), QString(), QString(), QString()};
    if (table.outcome != ImportedTable::NotTried)
        counts[0] = QString::number(table.found);
    if (table.outcome == ImportedTable::Copied)
        counts = QStringList{counts[0], QString::number(table.added), QString::number(table.known),
                             QString::number(table.refused)};
    if (table.outcome == ImportedTable::Failed)
        words = ImportedList::tr("Не скопійовано: %1").arg(words);
    if (table.outcome == ImportedTable::NotTried)
        words = ImportedList::tr("Не скопійовано: імпорт до цієї таблиці не дійшов.");
    return QStringList(name) + counts + QStringList(words.simplified());
}
} // namespace

ImportedList::ImportedList(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver, const QString &title,
                           const QString &words, const ImportedTables &tables, QWidget *parent)
    : QDialog(parent)
    , m_words(new QLabel(words, this))
    , m_list(new ListPane(this))
    , m_details(new QLabel(this))
{
    setObjectName(QStringLiteral("ImportedList"));
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    m_list->open(db, user, receiver);
    m_list->setColumns({{tr("Таблиця"), 28},
                        {tr("Знайдено"), 9, &asNumber},
                        {tr("Додано"), 8, &asNumber},
                        {tr("Вже були"), 9, &asNumber},
                        {tr("Не прийнято"), 12, &asNumber},
                        {tr("Пояснення"), 40}},
                       QLatin1String(staticMetaObject.className()));
    m_list->view()->setMainColumn(wordsColumn, fontMetrics().averageCharWidth() * 20);
    m_list->setHeading({title, words});
    build();
    showTables(tables);
}

void ImportedList::build()
{
    m_words->setObjectName(QStringLiteral("labelWords"));
    m_details->setObjectName(QStringLiteral("labelDetails"));
    for (QLabel *label : {m_words, m_details}) {
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setWordWrap(true);
    }
    // What it says comes while the window is open.
    m_details->setMinimumHeight(fontMetrics().lineSpacing() * 2);
    m_details->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto *buttons = new QDialogButtonBox(this);
    auto *copyAll = buttons->addButton(tr("&Копіювати все"), QDialogButtonBox::ActionRole);
    copyAll->setObjectName(QStringLiteral("pbCopy"));
    auto *close = buttons->addButton(tr("&Закрити"), QDialogButtonBox::RejectRole);
    close->setObjectName(QStringLiteral("pbClose"));
    close->setDefault(true);
    connect(copyAll, &QPushButton::clicked, this, &ImportedList::copy);
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    auto *column = new QVBoxLayout(this);
    column->addWidget(m_words);
    column->addWidget(m_list, 1);
    column->addWidget(m_details);
    column->addWidget(buttons);
    const QSize wanted(fontMetrics().averageCharWidth() * 150, fontMetrics().height() * 27);
    resize(wanted.boundedTo(screen()->availableSize() * 9 / 10));
}

void ImportedList::showTables(const ImportedTables &tables)
{
    RowStore rows;
    for (const ImportedTable &table : tables) {
        const QStringList texts = cellsOf(table);
        std::vector<QByteArray> cells;
        cells.reserve(static_cast<size_t>(texts.size()));
        for (const QString &cell : texts)
            cells.push_back(cell.toUtf8());
        std::vector<std::string_view> views;
        views.reserve(cells.size());
        for (const QByteArray &cell : cells)
            views.emplace_back(cell.constData(), static_cast<size_t>(cell.size()));
        rows.append(views);
    }
    m_list->showRows(std::move(rows));
    connect(m_list->view()->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &index) { showDetails(index.row()); });
    const auto *problem = std::find_if(tables.begin(), tables.end(), [](const ImportedTable &table) {
        return table.outcome != ImportedTable::Copied;
    });
    m_list->view()->selectRow(problem == tables.end() ? 0 : static_cast<int>(problem - tables.begin()));
}

/// The explanation in full: the list cuts it off.
void ImportedList::showDetails(int row)
{
    const QRowModel *model = m_list->model();
    const QString words = row < 0 ? QString() : model->stored(row, wordsColumn);
    m_details->setText(words.isEmpty() ? words : model->stored(row, 0) + QStringLiteral(": ") + words);
}

void ImportedList::copy() const
{
    QStringList lines{m_words->text()};
    const QRowModel *model = m_list->model();
    for (int row = -1; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells.append(row < 0 ? model->headerData(column, Qt::Horizontal).toString()
                                 : model->stored(row, column));
        lines.append(cells.join(QLatin1Char('\t')));
    }
    QGuiApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}
