#include "qimportprices.h"
#include "ui_qimportprices.h"

#include "listpane.h"
#include "money.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "signs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QScreen>
#include <QSqlDatabase>

namespace {
const char *const encodings[] = {"UTF-8", "Windows-1251"};
const int verdictColumn = 4;
const QColor refusedColour(255, 205, 205);
const char separators[] = {';', '\t', ',', '|'};

QString separatorName(QChar separator)
{
    if (separator == QLatin1Char('\t'))
        return QImportPrices::tr("табуляція");
    if (separator == QLatin1Char(';'))
        return QImportPrices::tr("крапка з комою  ;");
    if (separator == QLatin1Char(','))
        return QImportPrices::tr("кома  ,");
    return QImportPrices::tr("риска  |");
}

/// For the question.
QString separatorShown(QChar separator)
{
    return separator == QLatin1Char('\t') ? separatorName(separator) : QString(separator);
}

QString countsText(const PriceListPlan &plan)
{
    const auto shown = [&plan](PriceVerdict verdict) { return wholeShown(plan.counts.value(verdict)); };
    QStringList parts{
        QImportPrices::tr("Записів: %1.").arg(wholeShown(plan.recordCount)),
        QImportPrices::tr("Нових товарів: %1, нова ціна: %2, ціна та сама: %3.")
            .arg(shown(PriceVerdict::New), shown(PriceVerdict::Changed), shown(PriceVerdict::Same))};
    if (!plan.refused.isEmpty())
        parts.append(QImportPrices::tr("Не імпортуються: %1.").arg(wholeShown(plan.refused.size())));
    if (plan.recordCount > plan.first.size())
        parts.append(QImportPrices::tr("Показано перші %1.").arg(plan.first.size()));
    return parts.join(QLatin1Char(' '));
}

/// Whatever order the list is sorted in.
void markRefused(QRowModel *model, const PriceListPlan &plan)
{
    for (int row = 0; row < model->rowCount(); ++row) {
        for (const PriceLine &line : plan.first) {
            if (line.number == model->number(row, 0) && line.verdict >= PriceVerdict::ZeroPrice) {
                model->setRowColour(row, refusedColour);
                showSign(model, model->index(row, 0), Sign::Bad, line.words);
            }
        }
    }
}

RowStore rowsOf(const QVector<PriceLine> &lines)
{
    RowStore rows;
    for (const PriceLine &line : lines) {
        std::vector<std::string> texts;
        for (const QString &text :
             {QString::number(line.number), line.name, line.barcode, line.price, line.words})
            texts.push_back(text.toStdString());
        rows.append({texts.begin(), texts.end()});
    }
    return rows;
}
} // namespace

QImportPrices::QImportPrices(QSqlDatabase *db, const QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::QImportPrices>()), m_db(db), m_mainWindow(mainWindow)
{
    ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui->listFirst->open(db, user, mainWindow);
    openRefused(ui->listRefused, db, user, mainWindow, tr("Запис"), QStringLiteral("QImportPrices.refused"));
    m_fileToWrite = [this](const QString &suggested) {
        return QFileDialog::getSaveFileName(this, tr("Зберегти файл"), suggested, tr("csv (*.csv)"));
    };
    buildLists();
    connectInputs();
    followWork();
}

QImportPrices::~QImportPrices()
{
    leaveLooking();
    delete m_job;
}

void QImportPrices::buildLists()
{
    for (const char *encoding : encodings)
        ui->cbEncoding->addItem(QLatin1String(encoding));
    for (const char separator : separators)
        ui->cbSeparator->addItem(separatorName(QLatin1Char(separator)), QChar::fromLatin1(separator));
    ui->listFirst->setColumns({{tr("Запис"), 6, &asNumber},
                               {tr("Назва товару"), 24},
                               {tr("Штрихкод"), 13},
                               {tr("Ціна у файлі"), 9},
                               {tr("Що буде"), 26}},
                              QLatin1String(staticMetaObject.className()));
    ui->listFirst->setHeading({tr("Перші записи файла")});
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    ui->listFirst->view()->setMainColumn(verdictColumn, digit * 20);
    ui->refusedPart->hide();
    ui->splitter->setStretchFactor(0, 3);
    ui->splitter->setStretchFactor(1, 2);
    // The lists are looked at here; what is refused is saved by a button of its own.
    for (const ListPane *list : {ui->listFirst, ui->listRefused})
        list->footer()->hide();
    // Enter presses what has the focus and nothing else.
    for (QPushButton *button : findChildren<QPushButton *>())
        button->setAutoDefault(false);
    const QSize room = screen()->availableGeometry().size();
    resize(QSize(digit * 110, fontMetrics().height() * 36).boundedTo(room * 9 / 10));
}

void QImportPrices::connectInputs()
{
    for (QComboBox *box : {ui->cbEncoding, ui->cbSeparator})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &QImportPrices::lookAgain);
    connect(ui->pbImport, &QPushButton::clicked, this, &QImportPrices::start);
    connect(ui->pbStop, &QPushButton::clicked, this, &QImportPrices::stop);
    connect(ui->pbClose, &QPushButton::clicked, this, &QImportPrices::reject);
    connect(ui->pbSaveRefused, &QPushButton::clicked, this, &QImportPrices::saveRefused);
}

void QImportPrices::open(const QString &path, const CsvForm &wanted)
{
    const auto first = std::make_shared<PriceListLook>();
    first->path = path;
    first->wanted = wanted;
    setWindowTitle(tr("Імпорт прайс-листа") + QStringLiteral(" – ") + QFileInfo(path).fileName());
    showForm(wanted);
    look(first);
}

/// The newest look counts.
void QImportPrices::look(const std::shared_ptr<PriceListLook> &look)
{
    leaveLooking();
    m_look = look;
    showNothing(tr("Читається…"));
    const auto work = [look](JobContext &context) { return lookAtPriceList(context, look.get()); };
    begin(Work::Looking, tr("Перевірка файла %1").arg(QFileInfo(look->path).fileName()), work,
          [this, look](const JobResult &result) { showLook(*look, result); });
}

/// One that knows nothing of the file yet.
std::shared_ptr<PriceListLook> QImportPrices::anew() const
{
    auto look = std::make_shared<PriceListLook>();
    look->path = m_look->path;
    look->wanted = m_look->wanted;
    return look;
}

void QImportPrices::lookAgain()
{
    if (m_look == nullptr)
        return;
    const auto again = anew();
    again->wanted = chosenForm();
    again->isFormChosen = true;
    // A look under way is still writing what it has found.
    if (m_work == Work::None) {
        again->bytes = m_look->bytes;
        again->ground = m_look->ground;
    }
    look(again);
}

CsvForm QImportPrices::chosenForm() const
{
    CsvForm form = m_look->wanted;
    form.encoding = ui->cbEncoding->currentIndex() == 0 ? CsvEncoding::Utf8 : CsvEncoding::Windows1251;
    form.separator = ui->cbSeparator->currentData().toChar();
    return form;
}

void QImportPrices::showForm(const CsvForm &form)
{
    const QSignalBlocker encodingBlocker(ui->cbEncoding);
    const QSignalBlocker separatorBlocker(ui->cbSeparator);
    ui->cbEncoding->setCurrentIndex(form.encoding == CsvEncoding::Utf8 ? 0 : 1);
    if (ui->cbSeparator->findData(form.separator) < 0)
        ui->cbSeparator->addItem(QString(form.separator), form.separator);
    ui->cbSeparator->setCurrentIndex(ui->cbSeparator->findData(form.separator));
}

void QImportPrices::showLook(const PriceListLook &look, const JobResult &result)
{
    if (result.outcome != JobResult::Done)
        return showNothing(result.words);
    showForm(look.plan.form);
    showPlan(look.plan);
}

void QImportPrices::showPlan(const PriceListPlan &plan)
{
    m_plan = std::shared_ptr<const PriceListPlan>(m_look, &plan);
    ui->labelCounts->setText(countsText(plan));
    ui->labelResult->setText(plan.isEmpty() ? tr("У файлі немає нічого, що змінило б товари.") : QString());
    ui->listFirst->showRows(rowsOf(plan.first));
    markRefused(ui->listFirst->model(), plan);
    showRefused(plan.refused);
    followWork();
}

void QImportPrices::showNothing(const QString &why)
{
    m_plan = nullptr;
    ui->labelCounts->setText(why);
    ui->labelResult->clear();
    ui->listFirst->clear();
    showRefused({});
    followWork();
}

void QImportPrices::begin(Work kind, const QString &title, const std::function<JobResult(JobContext &)> &work,
                          const Then &then)
{
    m_work = kind;
    m_job = new Job(title, m_db->connectionName(), work, m_mainWindow);
    m_job->start();
    ui->panel->follow(m_job);
    // Behind those who show the job: they are to know its end before a question is asked.
    connect(m_job, &Job::finished, this, [this, then, job = m_job.data()](const JobResult &result) {
        m_job = nullptr;
        job->deleteLater();
        m_work = Work::None;
        followWork();
        then(result);
    });
    followWork();
}

/// A file on a network that does not answer keeps its job: nobody waits for that.
void QImportPrices::leaveLooking()
{
    if (m_work != Work::Looking || m_job == nullptr)
        return;
    disconnect(m_job, nullptr, this, nullptr);
    connect(m_job, &Job::finished, m_job, &Job::deleteLater);
    m_job->cancel();
    m_job = nullptr;
    m_work = Work::None;
}

/// What would change what is being written takes nothing.
void QImportPrices::followWork()
{
    const bool isImporting = m_work == Work::Importing;
    for (QWidget *input : std::initializer_list<QWidget *>{ui->cbEncoding, ui->cbSeparator})
        input->setEnabled(!isImporting && !m_isImported);
    ui->pbImport->setEnabled(m_work == Work::None && !m_isImported && m_plan != nullptr &&
                             !m_plan->isEmpty());
    ui->pbStop->setEnabled(m_work != Work::None);
    ui->pbStop->setText(tr("&Стоп"));
    ui->pbClose->setEnabled(!isImporting);
    ui->panel->setVisible(m_work != Work::None);
}

void QImportPrices::stop()
{
    if (m_work == Work::Looking) {
        leaveLooking();
        // The job that was left may still be writing into its own.
        m_look = anew();
        showNothing(tr("Читання файла скасовано."));
    } else if (m_job != nullptr) {
        ui->pbStop->setText(tr("Зупиняється…"));
        ui->pbStop->setEnabled(false);
        m_job->cancel();
    }
}

void QImportPrices::reject()
{
    if (m_work == Work::Importing)
        ui->labelResult->setText(tr("Імпорт ще триває. Дочекайтесь кінця або натисніть «Стоп»."));
    else
        QDialog::reject();
}

void QImportPrices::start()
{
    // The right may go while the questions are open, and the dialog with it.
    if (m_work == Work::None && m_plan != nullptr && mayImport() && isVisible())
        import();
}

/// What may be a mistake about the whole file; empty when nothing is.
QString QImportPrices::doubts() const
{
    QStringList lines;
    if (m_plan->leaps > 0)
        lines.append(tr("Цін, які зміняться в 10 і більше разів: %1. Ціна у файлі має бути в гривнях.")
                         .arg(wholeShown(m_plan->leaps)));
    if (!m_plan->refused.isEmpty())
        lines.append(tr("Записів, які не імпортуються: %1 з %2.")
                         .arg(wholeShown(m_plan->refused.size()), wholeShown(m_plan->recordCount)));
    return lines.join(QLatin1Char('\n'));
}

bool QImportPrices::mayImport()
{
    const QStringList demands{
        tr("Перевірте чи відповідає файл наступним вимогам."),
        tr("Файл повинен бути формату") + tr(" *.csv") + QLatin1Char(' ') +
            tr("з символом розділення колонок") + QLatin1Char(' ') + separatorShown(m_plan->form.separator),
        tr("Повинен складатися з 3-ох колонок:"),
        tr("1-ша Назва товару, 2-га штрихкод EAN13 товару, 3-тя ціна товару в грн в цифровому форматі"),
        tr("Дані повинні починатись з першого рядка, без заголовка таблиці."),
        tr("Продовжити імпорт?")};
    if (!QMessDlg::confirm(this, windowTitle(), demands.join(QLatin1Char('\n')), tr("Так")))
        return false;
    const QString why = doubts();
    return why.isEmpty() || QMessDlg::confirm(this, windowTitle(),
                                              why + QStringLiteral("\n\n") + tr("Продовжити?"), tr("Так"));
}

void QImportPrices::import()
{
    const auto outcome = std::make_shared<PriceListOutcome>();
    const auto work = [plan = m_plan, outcome](JobContext &context) {
        return importPriceList(context, *plan, outcome.get());
    };
    ui->labelResult->clear();
    begin(Work::Importing, tr("Імпорт прайс-листа %1").arg(QFileInfo(m_look->path).fileName()), work,
          [this, outcome](const JobResult &result) { showOutcome(result, *outcome); });
}

void QImportPrices::showOutcome(const JobResult &result, const PriceListOutcome &outcome)
{
    m_isImported = outcome.isWritten;
    ui->labelResult->setText(result.words);
    showRefused(outcome.refused);
    followWork();
    if (!m_isImported)
        return;
    postMessage(m_mainWindow, result.words, QMessEvent::Information);
    ui->pbClose->setFocus();
    emit imported();
}

void QImportPrices::showRefused(const RefusedLines &lines)
{
    ::showRefused(ui->listRefused, lines);
    ui->labelRefused->setText(tr("Записи, які не імпортуються: %1").arg(wholeShown(lines.size())));
    ui->refusedPart->setVisible(!lines.isEmpty());
}

void QImportPrices::saveRefused()
{
    const QString suggested = QFileInfo(m_look->path).completeBaseName() + tr(" – відмови.csv");
    const QString path = m_fileToWrite(suggested);
    if (!path.isEmpty())
        ui->listRefused->exportCsv(QString(), path);
}
