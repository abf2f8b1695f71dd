#include "ui_veltab.h"
#include "veltab.h"

#include "connectionstate.h"
#include "databasestart.h"
#include "db.h"
#include "joblist.h"
#include "pages.h"
#include "permissions.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qprocevent.h"
#include "qqestion.h"
#include "qseluser.h"
#include "qupdatebd.h"
#include "setting.h"
#include "settingfile.h"
#include "tuning.h"
#include "userstate.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QTimer>

namespace {
const QLatin1String loginKey("login");
const int errorsTogether = 5;
const int messageMs = 8000;

/// Where the part of an error begins that only those understand who look for its reason: behind its first
/// empty line, else with the statement that failed. -1 when there is none.
int detailsOf(const QString &error)
{
    static const QRegularExpression begin(QStringLiteral(
        "\n\n|\n(?=(SELECT|INSERT|UPDATE|DELETE|REPLACE|CREATE|ALTER|SHOW|START|COMMIT|KILL) )"));
    return error.indexOf(begin);
}

/// By the words of the client library, which are the same in every language: each connection of the program
/// tells of the same lost server.
bool isLoss(const QString &error)
{
    return error.contains(QLatin1String("Can't connect to")) ||
           error.contains(QLatin1String("Lost connection to")) ||
           error.contains(QLatin1String("server has gone away"));
}

void tellErrors(QWidget *parent, const QStringList &errors)
{
    const QString gap = QStringLiteral("\n\n");
    QStringList words;
    QStringList details;
    for (const QString &error : errors) {
        const int cut = detailsOf(error);
        words.append(error.left(cut));
        if (cut >= 0)
            details.append(error.mid(cut).trimmed());
    }
    words.removeDuplicates();
    QQestion::tell(parent, Veltab::tr("Попередження."), words.join(gap), details.join(gap));
}
} // namespace

/// The part of the main window that connects, logs in, hears the messages and shows what the rights allow.

/// True, with the reason shown, while something runs that needs the connection as it is.
bool Veltab::isBusy()
{
    if (ui->tabWidget->count() > 0)
        refuse(tr("Перед підключенням закрийте всі вкладки!"));
    else if (isDatabaseAtWork())
        refuse(tr("Дочекайтесь кінця завдання «%1» або скасуйте його!").arg(workTitles()));
    return ui->tabWidget->count() > 0 || isDatabaseAtWork();
}

bool Veltab::isStarting() const
{
    return m_start != nullptr && m_start->isRunning();
}

/// A job needs the database where it is.
bool Veltab::isDatabaseAtWork()
{
    const QVector<Job *> &jobs = RunningJobs::all().jobs();
    return std::any_of(jobs.begin(), jobs.end(), [](const Job *job) { return job->usesDatabase(); });
}

QString Veltab::workTitles()
{
    QStringList titles;
    for (const Job *job : RunningJobs::all().jobs())
        titles.append(job->title());
    return titles.join(QStringLiteral("», «"));
}

/// A job of the start; what came of it comes as an event, so that no dialog opens from within its last
/// signal.
void Veltab::startOn(const QString &title, const Job::Work &work)
{
    m_start = new Job(title, m_db.connectionName(), work, this);
    connect(m_start, &Job::finished, this, [this, job = m_start.data()](const JobResult &result) {
        const bool isKnown = result.value.isValid();
        const auto outcome = static_cast<QProcEvent::Outcome>(result.value.toInt());
        QCoreApplication::postEvent(this, new QProcEvent(isKnown ? outcome : QProcEvent::ConnectionFailed));
        job->deleteLater();
    });
    m_start->start();
}

void Veltab::connectDatabase()
{
    m_isReconnectWanted = isStarting();
    if (m_isReconnectWanted)
        m_start->cancel();
    if (m_isReconnectWanted || isBusy())
        return;
    logout();
    m_isConnected = false;
    if (!m_setting->problem().isEmpty())
        m_setting->ReadSetting(m_directory);
    if (!m_setting->problem().isEmpty()) {
        // The defaults would lead to some other database, or to none.
        showConnectionState(m_setting->problem() + QLatin1Char('\n') +
                            tr("Виправте файл і підключіться знову, або введіть налаштування."));
        return;
    }
    m_address = m_setting->databaseAddress();
    setWindowTitle(tr("Veltab  База:") + m_address.name);
    showConnectionState(tr("Підключення до бази даних на %1:%2").arg(m_address.host).arg(m_address.port));
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("veltab"));
    m_db = addConnection(QStringLiteral("veltab"), m_address);
    followConnection();
    startOn(tr("Підключення до бази даних"), [db = m_db, address = m_address](JobContext &context) {
        return connectToDatabase(context, db, address);
    });
    updateMenus();
}

/// Tells in the window's bar that the server is gone as long as it is.
void Veltab::followConnection()
{
    m_isLost = false;
    const ConnectionState *state = ConnectionState::of(m_db);
    if (state == nullptr)
        return;
    connect(state, &ConnectionState::lost, this, [this](const QString &words) {
        m_isLost = true;
        showConnectionState(words);
    });
    connect(state, &ConnectionState::back, this, [this] {
        m_isLost = false;
        ui->statusbar->showMessage(tr("Зв'язок із сервером відновлено."), messageMs);
        readRights();
        showConnectionState(m_user.isLoaded() ? nextStep() : tr("Користувач не увійшов."));
    });
}

/// Whether the connection stands, in words; where to and how, in the tool tip.
void Veltab::showServer()
{
    QString text = tr("Немає з'єднання");
    if (m_isLost)
        text = tr("Зв'язок втрачено");
    else if (m_isConnected)
        text = tr("З'єднано");
    else if (isStarting())
        text = tr("Підключення…");
    m_serverLabel->setText(text);
    m_serverLabel->setToolTip(serverDetails());
    QFont font = m_userLabel->font();
    font.setBold(m_isLost);
    m_serverLabel->setFont(font);
}

QString Veltab::serverDetails() const
{
    if (m_address.host.isEmpty())
        return QString();
    QString place = tr("%1:%2, база %3").arg(m_address.host).arg(m_address.port).arg(m_address.name);
    if (!m_isConnected || m_isLost)
        return place;
    const QString cipher = tlsCipher(m_db);
    return place + QLatin1Char('\n') +
           (cipher.isEmpty() ? tr("З'єднання не захищене.") : tr("З'єднання захищене (TLS): %1").arg(cipher));
}

bool Veltab::event(QEvent *event)
{
    if (event->type() == QMessEvent::eventType) {
        handleMessage(*static_cast<QMessEvent *>(event));
        return true;
    }
    if (event->type() == QProcEvent::eventType) {
        handleOutcome(*static_cast<QProcEvent *>(event));
        return true;
    }
    return QMainWindow::event(event);
}

void Veltab::handleMessage(const QMessEvent &message)
{
    m_logger.wlog(message.kind(), tr("File:") + message.file(), message.line(), message.text());
    const bool isKnown = m_isLost && isLoss(message.text());
    const bool isTold = message.kind() == QMessEvent::Information && m_jobs->isTelling(message.text());
    if (message.kind() == QMessEvent::Warning || (message.kind() == QMessEvent::Information && !isTold) ||
        isKnown)
        ui->statusbar->showMessage(message.text().simplified(), messageMs);
    if (message.kind() != QMessEvent::Critical || isKnown)
        return;
    m_errors.append(message.text());
    while (m_errors.size() > qMax(1, m_setting->countMsg()))
        m_errors.removeFirst();
    // One dialog for a burst of errors, and none from inside the statement that failed.
    QTimer::singleShot(0, this, &Veltab::showErrors);
}

void Veltab::showErrors()
{
    if (m_isShowingErrors || m_errors.isEmpty())
        return;
    m_isShowingErrors = true;
    QWidget *parent = QApplication::activeModalWidget();
    while (!m_errors.isEmpty()) {
        m_errors.removeDuplicates();
        const QStringList burst = m_errors.mid(0, errorsTogether);
        m_errors = m_errors.mid(errorsTogether);
        tellErrors(parent == nullptr ? this : parent, burst);
    }
    m_isShowingErrors = false;
}

void Veltab::handleOutcome(const QProcEvent &outcome)
{
    const bool isAgain = m_isReconnectWanted && ui->tabWidget->count() == 0 && !isDatabaseAtWork();
    m_isReconnectWanted = false;
    if (isAgain)
        connectDatabase();
    else if (outcome.outcome() == QProcEvent::SchemaReady || outcome.outcome() == QProcEvent::SchemaFailed)
        finishSchema(outcome.outcome() == QProcEvent::SchemaReady);
    else
        finishConnecting(outcome);
}

void Veltab::finishConnecting(const QProcEvent &outcome)
{
    m_isConnected = outcome.outcome() == QProcEvent::Connected;
    updateMenus();
    if (m_isConnected) {
        showConnectionState(QString());
        login();
    } else if (outcome.outcome() == QProcEvent::ConnectionFailed)
        showConnectionState(
            tr("Немає зв'язку з базою даних. Перевірте налаштування або мережу і підключіться "
               "знову."));
    else
        offerSchema(outcome.outcome() == QProcEvent::NoDatabase);
}

/// Who works on the connection already goes on as before; on a new database the login follows.
void Veltab::finishSchema(bool isCreated)
{
    if (m_isConnected) {
        showConnectionState(m_user.isLoaded() ? QString() : tr("Користувач не увійшов."));
        if (isCreated)
            refuse(tr("Усі таблиці програми в базі «%1» є.").arg(m_address.name));
    } else if (isCreated) {
        connectDatabase();
    } else {
        showConnectionState(
            tr("Таблиці не створено. Перевірте права користувача бази і підключіться знову."));
    }
    updateMenus();
}

void Veltab::offerSchema(bool databaseIsMissing)
{
    const QString text =
        databaseIsMissing
            ? tr("На сервері немає бази даних «%1».\nСтворити її та таблиці програми?").arg(m_address.name)
            : tr("У базі даних «%1» немає таблиць програми.\nСтворити таблиці?").arg(m_address.name);
    if (QQestion::question(this, tr("Створити?"), text) == QDialog::Accepted)
        CreateTables();
    else
        showConnectionState(tr("База даних не готова: таблиць програми немає."));
}

void Veltab::CreateTables()
{
    if (isDatabaseAtWork()) {
        refuse(tr("Зачекайте, доки закінчиться робота з базою, яка триває."));
        return;
    }
    showConnectionState(tr("Зачекайте. Створюються таблиці."));
    startOn(tr("Створення таблиць"),
            [address = m_address](JobContext &context) { return createDatabaseAndSchema(context, address); });
}

void Veltab::TuneDatabase()
{
    if (isDatabaseAtWork()) {
        refuse(tr("Зачекайте, доки закінчиться робота з базою, яка триває."));
        return;
    }
    const auto state = tunedState(Db(&m_db, this));
    if (!state)
        return;
    const Tuning tuning = *state == TunedState::Whole ? Tuning::Remove : Tuning::Add;
    if (QMessDlg::confirm(this, tr("Прискорити звіти?"), tuningQuestion(tuning),
                          tuning == Tuning::Remove ? tr("&Прибрати індекси") : tr("&Додати індекси")))
        tune(tuning);
}

void Veltab::tune(Tuning tuning)
{
    auto *job = new Job(
        tuningTitle(tuning), m_db.connectionName(),
        [tuning](JobContext &context) { return tuneDatabase(context, tuning); }, this);
    connect(job, &Job::finished, this, [this, job](const JobResult &result) {
        // A failure has reported itself.
        if (result.outcome != JobResult::Failed)
            postMessage(this, result.words, QMessEvent::Information);
        job->deleteLater();
    });
    job->start();
}

void Veltab::login()
{
    if (!m_isConnected)
        return;
    if (ui->tabWidget->count() > 0) {
        refuse(tr("Перед входом закрийте всі вкладки!"));
        return;
    }
    if (hasNewAddress()) {
        connectDatabase();
        return;
    }
    if (askForUser())
        welcome();
    // Whoever worked before goes on when nobody else came in.
    else if (!m_user.isLoaded())
        showConnectionState(tr("Користувач не увійшов."));
    updateMenus();
}

/// True when the name of the last user of this machine may stand in the settings file too.
bool Veltab::mayRememberLogin() const
{
    const QFileInfo file(SettingFile::path(m_directory));
    return SettingFile::problem(m_directory).isEmpty() &&
           (file.exists() ? file.isWritable() : QFileInfo(m_directory).isWritable());
}

/// Nobody has changed the user that a new database comes with.
bool Veltab::isFirstUserUntouched()
{
    return Db(&m_db, this)
               .firstText(QStringLiteral("SELECT COUNT(*)=1 AND MAX(login='admin' AND pass='') FROM users"))
               .value_or(QString()) == QLatin1String("1");
}

bool Veltab::askForUser()
{
    QSelUser dialog(m_directory, m_setting->prefIdentify(), this, false, mayRememberLogin());
    if (isFirstUserUntouched()) {
        dialog.suggestLogin(QStringLiteral("admin"));
        dialog.showHint(tr("Перший користувач цієї бази: admin, пароль порожній. Увійшовши, змініть пароль: "
                           "Користувачі → Змінити пароль."));
    }
    dialog.suggestLogin(rememberedState(QString(), loginKey).toString());
    bool isFound = false;
    while (!isFound) {
        if (m_isUnattended)
            dialog.ok();
        else if (dialog.exec() != QDialog::Accepted)
            break;
        isFound = findUser(dialog.login(), dialog.identifier(), dialog.isCard());
        if (m_isUnattended)
            break;
    }
    if (isFound)
        rememberState(QString(), loginKey, dialog.login());
    return isFound;
}

bool Veltab::findUser(const QString &name, const QString &identifier, bool isCard)
{
    const bool found =
        isCard ? m_user.loadpermis(&m_db, identifier) : m_user.loadpermis(&m_db, name, identifier);
    // What was reported is shown before the dialog comes back.
    QCoreApplication::sendPostedEvents(this, QMessEvent::eventType);
    showErrors();
    return found;
}

void Veltab::readRights()
{
    if (m_user.isLoaded())
        m_user.reload(&m_db);
}

void Veltab::logout()
{
    m_user.clear();
    m_userLabel->clear();
    EnableButton(false);
}

void Veltab::welcome()
{
    QUpdateBD().create_tmp(m_db, this);
    m_userLabel->setText(tr("Користувач") + QStringLiteral(": ") +
                         m_user.getNameSename(&m_db, m_user.idUser().toInt()));
    restorePlace(m_user.idUser());
    showConnectionState(nextStep());
    EnableButton(true);
    if (m_user.maySee(Permission::BackOffice))
        emit ready();
}

/// What a chain that is only being set up still lacks for its first sale; empty when nothing.
QString Veltab::nextStep()
{
    struct Step
    {
        const char *table;
        const char *text;
    };
    static const Step steps[] = {
        {"shops",
         QT_TR_NOOP("Щоб почати продаж, додайте магазин (Таблиці → Магазини, Ctrl+N), його касу (Таблиці → "
                    "Обладнання) і товари з цінами (Таблиці → Товари).")},
        {"kassa",
         QT_TR_NOOP("Щоб почати продаж, додайте касу магазину (Таблиці → Обладнання, Ctrl+N) і товари "
                    "з цінами (Таблиці → Товари).")},
        {"goods", QT_TR_NOOP("Щоб почати продаж, додайте товари з цінами (Таблиці → Товари, Ctrl+N).")},
        {"goods_shop",
         QT_TR_NOOP("Щоб товар можна було продати, позначте в ньому магазини: Таблиці → Товари, F4, "
                    "«Продається в магазинах».")}};
    if (!m_user.mayEdit(Permission::Shops) || !m_user.mayEdit(Permission::Goods))
        return QString();
    for (const Step &step : steps) {
        const auto isFilled =
            Db(&m_db, this)
                .firstText(QStringLiteral("SELECT EXISTS(SELECT 1 FROM %1)").arg(QLatin1String(step.table)));
        if (isFilled != QStringLiteral("1"))
            return isFilled ? tr(step.text) : QString();
    }
    return QString();
}

void Veltab::EnableButton(bool enable)
{
    showRights();
    if (enable && !m_user.maySee(Permission::BackOffice)) {
        refuse(tr("У вас немає доступу до бекофісу."));
        showConnectionState(tr("У вас немає доступу до бекофісу."));
    }
}

void Veltab::showRights()
{
    const bool allowed = m_user.maySee(Permission::BackOffice);
    for (const PageEntry &entry : m_pages->table())
        actionOf(entry.action)->setVisible(allowed && entry.make && m_user.maySee(entry.permission));
    for (QAction *action : {ui->changpass, ui->about})
        action->setVisible(allowed);
    changetab(ui->tabWidget->currentIndex());
    updateMenus();
}

/// The hint follows what was added in the tabs meanwhile.
void Veltab::refreshNextStep()
{
    if (m_isConnected && m_user.isLoaded() && !isStarting() && !ui->labelConnection->text().isEmpty())
        showConnectionState(nextStep());
}

void Veltab::visible(bool vis, bool exp)
{
    const bool exporting = (vis || exp) && m_user.maySee(Permission::ExportCsv);
    for (QAction *action : {ui->add, ui->edit, ui->dell})
        action->setVisible(vis);
    for (QAction *action : {ui->export_to_csv, ui->export_to_csv_UTF8, ui->export_to_csv_cp1251})
        action->setVisible(exporting);
    // Nothing stands behind these commands yet.
    for (QAction *action : {ui->import_csv_UTF8, ui->import_csv_cp1251, ui->import_csv_utf8_tab})
        action->setVisible(false);
    updateMenus();
}

void Veltab::visible(bool vis)
{
    visible(vis, vis);
}

void Veltab::updateMenus()
{
    const bool nobody = !m_user.isLoaded();
    const bool service = m_user.maySee(Permission::Service) || (nobody && m_isServiceShown);
    ui->settings->setVisible(service || nobody || !m_isConnected);
    ui->mt_create_tables->setVisible(service && !m_address.host.isEmpty());
    ui->mt_tune->setVisible(service && m_isConnected);
    ui->reconnect->setVisible(!m_isConnected && !isStarting());
    ui->login->setVisible(m_isConnected);
    ui->pbLogin->setVisible(m_isConnected && nobody);
    ui->pbReconnect->setVisible(!m_isConnected && !isStarting());
    ui->pbSettings->setVisible(!m_isConnected || nobody);
    ui->connectionBar->setVisible(!ui->labelConnection->text().isEmpty());
    showServer();
    for (QMenu *menu : ui->menubar->findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly)) {
        const QList<QAction *> actions = menu->actions();
        const bool any = std::any_of(actions.begin(), actions.end(), [](const QAction *action) {
            return action->isVisible() && !action->isSeparator();
        });
        menu->menuAction()->setVisible(any);
    }
}

void Veltab::showConnectionState(const QString &text)
{
    ui->labelConnection->setText(text);
    updateMenus();
}

bool Veltab::hasNewAddress() const
{
    return m_setting->databaseAddress() != m_address;
}

void Veltab::applySettings()
{
    if (m_isConnected && !hasNewAddress())
        return;
    if (ui->tabWidget->count() > 0)
        refuse(tr("Нові налаштування бази почнуть діяти, коли ви закриєте всі вкладки і увійдете знову."));
    else if (isDatabaseAtWork() && !isStarting())
        refuse(tr("Нові налаштування бази почнуть діяти, коли закінчиться завдання «%1» і ви увійдете знову.")
                   .arg(workTitles()));
    else
        connectDatabase();
    updateMenus();
}

void Veltab::s_setting()
{
    m_setting->exec();
}

void Veltab::askServiceMenu()
{
    if (!QMessDlg::confirm(this, tr("Ви впевнені?"),
                           tr("Невірні налаштування\nможуть пошкодити дані в базі!"), tr("&Так")))
        return;
    m_isServiceShown = true;
    updateMenus();
}
