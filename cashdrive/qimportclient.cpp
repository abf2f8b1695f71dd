#include "qimportclient.h"
#include "ui_qimportclient.h"

#include "clientimport.h"
#include "clientsums.h"
#include "dbtasks.h"
#include "listpane.h"
#include "money.h"
#include "permissions.h"
#include "qdbfmodel.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "typedinput.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>

namespace {
const char *const codePages[] = {"Windows-1251", "IBM866", "UTF-8"};
/// So many unknown levels are named in a question.
const int namedLevels = 10;

QString timeText(qint64 ms)
{
    return QImportClient::tr("Час виконання:") + QLatin1Char(' ') +
           QImportClient::tr("%1 с").arg(QLocale().toString(static_cast<double>(ms) / 1000.0, 'f', 2));
}
} // namespace

QImportClient::QImportClient(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QImportClient>())
    , m_db(db)
    , m_user(user)
    , m_mainWindow(mainWindow)
    , m_tasks(new DbTasks(db->connectionName(), mainWindow, this))
{
    ui->setupUi(this);
    buildLists();
    setFileChoosers(
        [this](const QString &suggested) {
            return QFileDialog::getOpenFileName(this, tr("Open DBF file"), suggested, tr("DBF (*.dbf)"));
        },
        [this](const QString &suggested) {
            return QFileDialog::getSaveFileName(this, tr("Зберегти файл"), suggested, tr("csv (*.csv)"));
        });
    connectInputs();
    followWork();
}

QImportClient::~QImportClient()
{
    if (m_work == Work::Reading)
        leaveReading();
    delete m_job;
}

void QImportClient::setFileChoosers(const FileChooser &toRead, const FileChooser &toWrite)
{
    m_fileToRead = toRead;
    m_fileToWrite = toWrite;
}

void QImportClient::buildLists()
{
    for (const char *codePage : codePages)
        ui->cbCodePage->addItem(QLatin1String(codePage));
    limitTo(ui->leGroup, "[0-9]{0,5}");
    ui->view->setModel(m_dbf.GetModel());
    ui->view->setEmptyText(tr("Файл не вибрано"));
    ui->view->verticalHeader()->show();
    openRefused(ui->listRefused, m_db, m_user, m_mainWindow, tr("Код"),
                QLatin1String(staticMetaObject.className()));
    ui->refusedPart->hide();
    setFocusProxy(ui->leFile);
}

void QImportClient::connectInputs()
{
    connect(ui->pbChoose, &QPushButton::clicked, this, &QImportClient::OpenFile);
    connect(ui->leFile, &QLineEdit::returnPressed, this, [this] { readFile(ui->leFile->text().trimmed()); });
    connect(ui->leFile, &QLineEdit::editingFinished, this, &QImportClient::readTyped);
    connect(ui->cbCodePage, &QComboBox::currentTextChanged, this, [this](const QString &name) {
        m_dbf.GetModel()->setCodePage(name.toLatin1());
        ui->view->resizeColumnsToContents();
    });
    connect(ui->leGroup, &QLineEdit::textChanged, this, [this] { ui->labelGroup->clear(); });
    m_groupPause.follow(ui->leGroup);
    connect(&m_groupPause, &TypingPause::ended, this, &QImportClient::readGroup);
    connect(ui->pbStart, &QPushButton::clicked, this, &QImportClient::start);
    connect(ui->pbStop, &QPushButton::clicked, this, &QImportClient::stop);
    connect(ui->pbSetSums, &QPushButton::clicked, this, &QImportClient::setsumm);
    connect(ui->pbSaveRefused, &QPushButton::clicked, this, &QImportClient::saveRefused);
}

ListPane *QImportClient::list() const
{
    return ui->listRefused;
}

Commands QImportClient::commands() const
{
    return {{Command::Export, QString()}};
}

void QImportClient::saveRefused()
{
    const QString suggested = QFileInfo(ui->leFile->text()).completeBaseName() + tr(" – відмови.csv");
    const QString path = m_fileToWrite(suggested);
    if (!path.isEmpty())
        export_to_csv(QString(), path);
}

bool QImportClient::refuse(const QString &why)
{
    if (!why.isEmpty())
        QQestion::question(this, tr("Попередження."), why, true);
    return !why.isEmpty();
}

/// Reading a file loses nothing.
bool QImportClient::mayClose()
{
    return m_work == Work::None || m_work == Work::Reading ||
           !refuse(m_work == Work::Summing
                       ? tr("Суми клієнтів ще встановлюються. Дочекайтесь кінця або натисніть «Стоп».")
                       : tr("Імпорт ще триває. Дочекайтесь кінця або натисніть «Стоп»."));
}

void QImportClient::begin(Work kind, const QString &title, const std::function<JobResult(JobContext &)> &work,
                          const Then &then)
{
    m_work = kind;
    m_job = new Job(title, kind == Work::Reading ? QString() : m_db->connectionName(), work, m_mainWindow);
    m_job->start();
    ui->panel->follow(m_job);
    // Behind those who show the job: they are to know its end before a question is asked.
    connect(m_job, &Job::finished, this, [this, then, job = m_job.data()](const JobResult &result) {
        const qint64 elapsed = job->elapsed();
        m_job = nullptr;
        job->deleteLater();
        endWork(elapsed);
        then(result);
    });
    ui->labelResult->clear();
    ui->labelTime->clear();
    followWork();
}

void QImportClient::endWork(qint64 elapsedMs)
{
    m_work = Work::None;
    followWork();
    ui->labelTime->setText(timeText(elapsedMs));
}

/// What would change what is being written takes nothing; "Старт" stays and says why it does not start.
void QImportClient::followWork()
{
    const bool isFree = m_work == Work::None || m_work == Work::Reading;
    for (QWidget *input :
         std::initializer_list<QWidget *>{ui->leFile, ui->pbChoose, ui->leGroup, ui->chTrial, ui->pbSetSums})
        input->setEnabled(isFree);
    ui->pbStop->setEnabled(m_work != Work::None);
    ui->pbStop->setText(tr("Стоп"));
    ui->panel->setVisible(m_work != Work::None);
}

void QImportClient::stop()
{
    if (m_job == nullptr)
        return;
    if (m_work == Work::Reading) {
        ui->labelFile->setText(tr("Читання файла скасовано."));
        leaveReading();
        return;
    }
    ui->pbStop->setText(tr("Зупиняється…"));
    ui->pbStop->setEnabled(false);
    m_job->cancel();
}

void QImportClient::OpenFile()
{
    const QString path = m_fileToRead(ui->leFile->text());
    if (path.isEmpty() || (m_work != Work::None && m_work != Work::Reading))
        return;
    ui->leFile->setText(path);
    readFile(path);
}

/// A file on a network that does not answer keeps its job: nobody waits for that.
void QImportClient::leaveReading()
{
    if (m_job == nullptr)
        return;
    disconnect(m_job, nullptr, this, nullptr);
    connect(m_job, &Job::finished, m_job, &Job::deleteLater);
    m_job->cancel();
    m_job = nullptr;
    m_work = Work::None;
    followWork();
}

/// What the field names is what is shown, and what is imported.
void QImportClient::readTyped()
{
    const QString path = ui->leFile->text().trimmed();
    if (path != m_path && (m_work == Work::None || m_work == Work::Reading))
        readFile(path);
}

/// In a job: the file may lie on a slow network.
void QImportClient::readFile(const QString &path)
{
    m_path = path;
    leaveReading();
    if (path.isEmpty())
        return leaveFile();
    leaveFile();
    ui->labelFile->setText(tr("Читається…"));
    const auto reading = std::make_shared<DbfReading>();
    const auto read = [path, reading](JobContext &context) -> JobResult {
        *reading = readDbf(path, [&context](qint64 done, qint64 of) {
            context.progress(done, of);
            return !context.isCancelled();
        });
        return {reading->error == DbfError::None ? JobResult::Done : JobResult::Failed, reading->text, {}};
    };
    begin(Work::Reading, tr("Читання файла %1").arg(QFileInfo(path).fileName()), read,
          [this, path, reading](const JobResult &) { showFile(path, *reading); });
}

void QImportClient::showFile(const QString &path, const DbfReading &reading)
{
    if (m_dbf.Open(reading) == DbfError::None) {
        ui->labelFile->setText(fileText());
        ui->view->resizeColumnsToContents();
        postMessage(m_mainWindow, path + QStringLiteral(". ") + ui->labelTime->text(),
                    QMessEvent::Information);
        return;
    }
    ui->labelFile->setText(m_dbf.GetStrError());
    if (reading.error != DbfError::CalledOff)
        postMessage(m_mainWindow, path + QLatin1Char('\n') + m_dbf.GetStrError());
}

/// What the file holds, and what is wrong with it.
QString QImportClient::fileText() const
{
    const DbfTable &table = *m_dbf.table();
    const int records = table.recordCount();
    QStringList parts{tr("Записів: %1, полів: %2.").arg(wholeShown(records)).arg(table.fieldCount())};
    if (static_cast<quint32>(records) < table.promisedCount())
        parts.append(tr("Файл обірвано: за його заголовком записів має бути %1.")
                         .arg(wholeShown(table.promisedCount())));
    if (records > 0 && !table.isWhole(records - 1))
        parts.append(tr("Останній запис неповний."));
    if (table.unpromisedCount() > 0)
        parts.append(
            tr("За заголовком файла це всі записи, але за ними є місце ще для %1: вони не прочитані.")
                .arg(wholeShown(table.unpromisedCount())));
    if (records > QDbfModel::mostRows)
        parts.append(tr("Показано перші %1.").arg(wholeShown(QDbfModel::mostRows)));
    if (!hasCardFields(table))
        parts.append(tr("Вибраний файл має неправильну структуру!"));
    return parts.join(QLatin1Char(' '));
}

void QImportClient::readGroup()
{
    m_tasks->drop();
    const QString id = ui->leGroup->text();
    if (id.isEmpty())
        return;
    m_tasks->read(
        [id](const Db &db) {
            return db.firstColumn(QStringLiteral("SELECT name FROM group_shop WHERE id=") + id);
        },
        [this](const std::optional<QStringList> &names) {
            if (names)
                ui->labelGroup->setText(names->isEmpty() ? tr("такої групи магазинів немає")
                                                         : names->first());
        });
}

QString QImportClient::startRefusal() const
{
    if (m_work == Work::Reading)
        return tr("Файл ще читається.");
    if (m_work != Work::None)
        return tr("Процес імпорту вже запущений.");
    if (!m_dbf.isOpen())
        return tr("Файл не вибрано. Виберіть файл для імпорту.");
    if (!hasCardFields(*m_dbf.table()))
        return tr("Вибраний файл має неправильну структуру!");
    if (m_dbf.table()->recordCount() == 0)
        return tr("У файлі немає записів.");
    if (m_dbf.table()->recordCount() > QDbfModel::mostRows)
        return tr("У файлі більше записів, ніж можна імпортувати за раз: %1.")
            .arg(wholeShown(QDbfModel::mostRows));
    if (ui->leGroup->text().isEmpty())
        return tr("Вкажіть код групи магазинів, до якої потраплять нові картки.");
    return rightRefusal(ui->chTrial->isChecked());
}

QString QImportClient::rightRefusal(bool isTrial) const
{
    return isTrial || m_user->mayEdit(Permission::ClientImport) ? QString()
                                                                : tr("У вас є право лише на пробний запуск.");
}

QString QImportClient::sumsRefusal() const
{
    return m_user->mayEdit(Permission::ClientImport) ? QString()
                                                     : tr("У вас немає права встановлювати суми.");
}

void QImportClient::leaveFile()
{
    m_dbf.Close();
    showRefused({});
    ui->labelFile->clear();
}

/// The button may have been reached without leaving the field.
void QImportClient::start()
{
    readTyped();
    if (!refuse(startRefusal()))
        check(ui->chTrial->isChecked());
}

/// First step: what is in the file, held against the database.
void QImportClient::check(bool isTrial)
{
    showRefused({});
    const auto plan = std::make_shared<ImportPlan>();
    plan->group = ui->leGroup->text().toUInt();
    const auto table = m_dbf.table();
    const QByteArray codePage = ui->cbCodePage->currentText().toLatin1();
    const auto work = [plan, table, codePage](JobContext &context) {
        return planImport(context, *table, codePage, plan.get());
    };
    begin(Work::Checking, tr("Перевірка файла для імпорту"), work, [=](const JobResult &result) {
        if (result.outcome == JobResult::Done)
            decide(plan, isTrial);
        else
            tell(result);
    });
}

/// Second step: what must not be is refused, what is doubtful is asked.
void QImportClient::decide(const std::shared_ptr<ImportPlan> &plan, bool isTrial)
{
    if (!plan->isGroupKnown) {
        refuse(tr("Групи магазинів %1 немає: імпорт не розпочато.").arg(plan->group));
        return;
    }
    showRefused(plan->refused);
    const QString doubts = isTrial ? QString() : question(*plan);
    const bool isWanted =
        doubts.isEmpty() || QMessDlg::confirm(this, tr("Імпорт клієнтів"), doubts, tr("Імпортувати"));
    // The right may be gone by now.
    if (isWanted && !refuse(rightRefusal(isTrial)))
        import(plan, isTrial);
    else
        ui->labelResult->setText(tr("Імпорт не розпочато, у базу нічого не записано."));
}

QString QImportClient::question(const ImportPlan &plan) const
{
    QStringList doubts;
    if (!plan.unknownLevels.isEmpty()) {
        QStringList levels;
        for (auto level = plan.unknownLevels.cbegin();
             level != plan.unknownLevels.cend() && levels.size() < namedLevels; ++level)
            levels.append(tr("%1 (записів: %2)").arg(level.key()).arg(wholeShown(level.value())));
        if (plan.unknownLevels.size() > namedLevels)
            levels.append(tr("та інших"));
        doubts.append(tr("У базі немає рівнів знижки: %1. Цим записам буде відмовлено. Щоб імпортувати і їх, "
                         "спершу додайте ці рівні у таблиці «Знижки».")
                          .arg(levels.join(QStringLiteral(", "))));
    }
    if (plan.hasAnonymous)
        doubts.append(
            tr("У файлі є картка з кодом 1. Під цим кодом купують усі, хто без картки: вони дістануть "
               "її знижку."));
    if (doubts.isEmpty())
        return QString();
    doubts.append(
        tr("Імпортувати решту записів (%1)?").arg(wholeShown(static_cast<qint64>(plan.cards.size()))));
    return doubts.join(QStringLiteral("\n\n"));
}

/// Third step.
void QImportClient::import(const std::shared_ptr<ImportPlan> &plan, bool isTrial)
{
    const auto outcome = std::make_shared<ImportOutcome>();
    outcome->isTrial = isTrial;
    const auto work = [plan, outcome](JobContext &context) {
        return importClients(context, *plan, outcome.get());
    };
    begin(Work::Importing, isTrial ? tr("Пробний імпорт клієнтів") : tr("Імпорт клієнтів"), work,
          [=](const JobResult &result) {
              showRefused(outcome->refused);
              tell(result);
          });
}

/// The time it took stands beside.
void QImportClient::tell(const JobResult &result)
{
    ui->labelResult->setText(result.words);
    if (result.outcome == JobResult::Done)
        postMessage(m_mainWindow, result.words + QLatin1Char('\n') + ui->labelTime->text(),
                    QMessEvent::Information);
}

void QImportClient::showRefused(const RefusedLines &refused)
{
    ui->refusedPart->setVisible(!refused.isEmpty());
    ::showRefused(ui->listRefused, refused);
}

void QImportClient::setsumm()
{
    if (m_work != Work::None) {
        refuse(tr("Процес імпорту вже запущений."));
        return;
    }
    if (refuse(sumsRefusal()))
        return;
    const bool isWanted = QMessDlg::confirm(
        this, tr("Встановити суми клієнтів?"),
        tr("Кожна картка дістане суму свого рівня знижки, а картки з рівнями, що не ростуть самі, – "
           "фіксовану знижку. Змінюються всі картки мережі; доки це триває, каси на них чекають."),
        tr("Встановити"));
    // The right may be gone by now.
    if (isWanted && !refuse(sumsRefusal()))
        begin(Work::Summing, tr("Суми клієнтів встановлюються"), &SetSumClnt,
              [this](const JobResult &result) { tell(result); });
}
