#include "session.h"

#include "connectionstate.h"
#include "databasestart.h"
#include "db.h"
#include "login.h"
#include "nextstep.h"
#include "page.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qprocevent.h"
#include "qqestion.h"
#include "setting.h"
#include "tuning.h"

#include <QCoreApplication>
#include <QTabWidget>
#include <algorithm>

namespace {
const QString connectionName = QStringLiteral("veltab");
} // namespace

bool isDatabaseAtWork()
{
    const QVector<Job *> &jobs = RunningJobs::all().jobs();
    return std::any_of(jobs.begin(), jobs.end(), [](const Job *job) { return job->usesDatabase(); });
}

QString runningJobTitles()
{
    QStringList titles;
    for (const Job *job : RunningJobs::all().jobs())
        titles.append(job->title());
    return titles.join(QStringLiteral("», «"));
}

Session::Session(const QString &directory, setting *settings, QLogger *logger, const Window &window)
    : QObject(window.widget)
    , m_directory(directory)
    , m_setting(settings)
    , m_window(window)
    , m_user(logger, window.widget)
    , m_rightsTasks(connectionName, window.widget, nullptr)
    , m_stepTasks(connectionName, window.widget, nullptr)
    , m_tuneTasks(connectionName, window.widget, nullptr)
{
    connect(settings, &setting::saved, this, &Session::applySettings);
    connect(&m_user, &QLoadedUser::actBegun, this, [this] { checkRights(); });
}

Session::~Session()
{
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName);
}

bool Session::event(QEvent *event)
{
    if (event->type() != QProcEvent::eventType)
        return QObject::event(event);
    finish(*static_cast<QProcEvent *>(event));
    return true;
}

void Session::say(const QString &words)
{
    m_words = words;
    emit changed();
}

void Session::refuse(const QString &text)
{
    QQestion::question(m_window.widget, tr("Попередження."), text, true);
}

bool Session::hasPages() const
{
    return hasPagesToKeep(m_window.pages);
}

/// True, with the reason shown, while something runs that needs the connection as it is.
bool Session::isHeld()
{
    if (hasPages())
        refuse(tr("Перед підключенням закрийте всі вкладки!"));
    else if (isDatabaseAtWork())
        refuse(tr("Дочекайтесь кінця завдання «%1» або скасуйте його!").arg(runningJobTitles()));
    return hasPages() || isDatabaseAtWork();
}

bool Session::isStarting() const
{
    return m_start != nullptr && m_start->isRunning();
}

/// A job of the start; what came of it comes as an event, so that no dialog opens from within its last
/// signal.
void Session::startOn(const QString &title, const Job::Work &work)
{
    m_start = new Job(title, m_db.connectionName(), work, m_window.widget);
    connect(m_start, &Job::finished, this, [this, job = m_start.data()](const JobResult &result) {
        const bool isKnown = result.value.isValid();
        const auto outcome = static_cast<QProcEvent::Outcome>(result.value.toInt());
        QCoreApplication::postEvent(this, new QProcEvent(isKnown ? outcome : QProcEvent::ConnectionFailed));
        job->deleteLater();
    });
    m_start->start();
}

void Session::connectDatabase()
{
    // The start cannot be broken off at once: it ends soon, and finish() connects then.
    m_isReconnectWanted = isStarting();
    if (m_isReconnectWanted)
        m_start->cancel();
    if (m_isReconnectWanted || isHeld())
        return;
    closeShowingPages(m_window.pages);
    // Rights of one database mean nothing in another.
    logout();
    m_isConnected = false;
    if (!m_setting->problem().isEmpty())
        m_setting->ReadSetting(m_directory);
    if (!m_setting->problem().isEmpty()) {
        // The defaults would lead to some other database, or to none.
        say(m_setting->problem() + QLatin1Char('\n') +
            tr("Виправте файл і підключіться знову, або введіть налаштування."));
        return;
    }
    m_address = m_setting->databaseAddress();
    say(tr("Підключення до бази даних на %1:%2").arg(m_address.host).arg(m_address.port));
    // A connection is removed only when no copy of it is left.
    m_db = QSqlDatabase();
    QSqlDatabase::removeDatabase(connectionName);
    m_db = addConnection(connectionName, m_address);
    followConnection();
    startOn(tr("Підключення до бази даних"), [db = m_db, address = m_address](JobContext &context) {
        return connectToDatabase(context, db, address);
    });
    emit changed();
}

/// Tells in the window's bar that the server is gone as long as it is.
void Session::followConnection()
{
    m_isLost = false;
    const ConnectionState *state = ConnectionState::of(m_db);
    if (state == nullptr)
        return;
    connect(state, &ConnectionState::lost, this, [this](const QString &words) {
        m_isLost = true;
        say(words);
    });
    connect(state, &ConnectionState::back, this, [this] {
        m_isLost = false;
        emit connectionIsBack();
        say(m_user.isLoaded() ? QString() : tr("Користувач не увійшов."));
        readRights();
    });
}

QString Session::details() const
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

void Session::finish(const QProcEvent &outcome)
{
    const bool isAgain = m_isReconnectWanted && !hasPages() && !isDatabaseAtWork();
    m_isReconnectWanted = false;
    if (isAgain)
        connectDatabase();
    else if (outcome.outcome() == QProcEvent::SchemaReady || outcome.outcome() == QProcEvent::SchemaFailed)
        finishSchema(outcome.outcome() == QProcEvent::SchemaReady);
    else
        finishConnecting(outcome);
}

void Session::finishConnecting(const QProcEvent &outcome)
{
    m_isConnected = outcome.outcome() == QProcEvent::Connected;
    emit changed();
    if (m_isConnected) {
        say(QString());
        login();
    } else if (outcome.outcome() == QProcEvent::ConnectionFailed)
        say(tr("Немає зв'язку з базою даних. Перевірте налаштування або мережу і підключіться "
               "знову."));
    else
        offerSchema(outcome.outcome() == QProcEvent::NoDatabase);
}

/// Who works on the connection already goes on as before; on a new database the login follows.
void Session::finishSchema(bool isCreated)
{
    if (m_isConnected) {
        say(m_user.isLoaded() ? QString() : tr("Користувач не увійшов."));
        if (isCreated)
            refuse(tr("Усі таблиці програми в базі «%1» є.").arg(m_address.name));
    } else if (isCreated) {
        connectDatabase();
    } else {
        say(tr("Таблиці не створено. Перевірте права користувача бази і підключіться знову."));
    }
    emit changed();
}

void Session::offerSchema(bool databaseIsMissing)
{
    const QString text =
        databaseIsMissing
            ? tr("На сервері немає бази даних «%1».\nСтворити її та таблиці програми?").arg(m_address.name)
            : tr("У базі даних «%1» немає таблиць програми.\nСтворити таблиці?").arg(m_address.name);
    if (QQestion::question(m_window.widget, tr("Створити?"), text) == QDialog::Accepted)
        createTables();
    else
        say(tr("База даних не готова: таблиць програми немає."));
}

void Session::createTables()
{
    if (isDatabaseAtWork()) {
        refuse(tr("Зачекайте, доки закінчиться робота з базою, яка триває."));
        return;
    }
    say(tr("Зачекайте. Створюються таблиці."));
    startOn(tr("Створення таблиць"),
            [address = m_address](JobContext &context) { return createDatabaseAndSchema(context, address); });
}

void Session::tuneDatabase()
{
    if (isDatabaseAtWork()) {
        refuse(tr("Зачекайте, доки закінчиться робота з базою, яка триває."));
        return;
    }
    if (m_tuneTasks.isWaiting())
        return;
    m_tuneTasks.read([](const Db &db) { return tunedState(db); },
                     [this](const std::optional<TunedState> &state) {
                         if (state && !isDatabaseAtWork())
                             offerTuning(*state);
                     });
}

void Session::offerTuning(TunedState state)
{
    const Tuning tuning = state == TunedState::Whole ? Tuning::Remove : Tuning::Add;
    if (QMessDlg::confirm(m_window.widget, tr("Прискорити звіти?"), tuningQuestion(tuning),
                          tuning == Tuning::Remove ? tr("&Прибрати індекси") : tr("&Додати індекси")))
        tune(tuning);
}

void Session::tune(Tuning tuning)
{
    auto *job = new Job(
        tuningTitle(tuning), m_db.connectionName(),
        [tuning](JobContext &context) { return ::tuneDatabase(context, tuning); }, m_window.widget);
    connect(job, &Job::finished, this, [this, job](const JobResult &result) {
        // A failure has reported itself.
        if (result.outcome != JobResult::Failed)
            postMessage(m_window.widget, result.words, QMessEvent::Information);
        job->deleteLater();
    });
    job->start();
}

void Session::login()
{
    if (!m_isConnected)
        return;
    if (hasPages()) {
        refuse(tr("Перед входом закрийте всі вкладки!"));
        return;
    }
    if (hasNewAddress()) {
        connectDatabase();
        return;
    }
    Login login(m_directory, m_setting->prefIdentify(), connectionName,
                {m_window.widget, m_window.errors, [this] { return m_isLost ? m_words : QString(); }});
    if (const auto entrant = login.ask(m_isUnattended)) {
        closeShowingPages(m_window.pages);
        welcome(*entrant);
    } else if (!m_user.isLoaded()) {
        // Whoever worked before goes on when nobody else came in.
        say(tr("Користувач не увійшов."));
    }
    emit changed();
}

void Session::readRights()
{
    checkRights([this] { askNextStep(); });
}

void Session::checkRights(const std::function<void()> &then)
{
    if (!m_user.isLoaded())
        return;
    m_rightsTasks.read([user = m_user.rights()](const Db &db) { return newsOfRights(db, user); },
                       [this, then](const std::optional<RightsNews> &news) {
                           const bool mayGoOn = !news || follow(*news);
                           if (mayGoOn && then)
                               then();
                       });
}

/// Rights that are different are taken over and told. False when the user may do nothing any more.
bool Session::follow(const RightsNews &news)
{
    // Of two questions on their way the second one has the same answer.
    const bool isKnown = news.kind == RightsNews::Same || news.rights.digest == m_user.rights().digest;
    if (!isKnown)
        m_user.take(news.rights);
    if (news.kind == RightsNews::LockedOut) {
        const QString words = tr("У вас більше немає доступу до бекофісу: його забрали, поки ви працювали.");
        say(words);
        refuse(words);
    } else if (!isKnown && news.kind == RightsNews::Moved) {
        refuse(tr("Вас перевели до групи прав \"%1\". Меню і вкладки тепер за її правами.").arg(news.group));
    } else if (!isKnown) {
        postMessage(m_window.widget, tr("Ваші права змінено: меню і вкладки тепер за новими."),
                    QMessEvent::Information);
    }
    return news.kind != RightsNews::LockedOut;
}

bool Session::hasNewAddress() const
{
    return m_setting->databaseAddress() != m_address;
}

void Session::applySettings()
{
    if (m_isConnected && !hasNewAddress())
        return;
    if (hasPages()) {
        refuse(tr("Нові налаштування бази почнуть діяти, коли ви закриєте всі вкладки і увійдете знову."));
    } else if (isDatabaseAtWork() && !isStarting()) {
        refuse(tr("Нові налаштування бази почнуть діяти, коли закінчиться завдання «%1» і ви увійдете знову.")
                   .arg(runningJobTitles()));
    } else {
        connectDatabase();
    }
    emit changed();
}

void Session::logout()
{
    m_rightsTasks.drop();
    m_stepTasks.drop();
    m_tuneTasks.drop();
    m_userName.clear();
    m_user.clear();
    emit changed();
}

void Session::welcome(const Entrant &entrant)
{
    m_rightsTasks.drop();
    m_user.take(entrant.rights);
    m_userName = entrant.name;
    say(QString());
    askNextStep();
    emit loggedIn();
}

/// The words change only when nothing else was said meanwhile.
void Session::askNextStep()
{
    m_stepTasks.drop();
    if (!m_user.isLoaded() || !mayFollowNextStep(m_user) || m_isLost)
        return;
    m_stepTasks.read([](const Db &db) { return nextStep(db); },
                     [this, before = m_words](const QString &words) {
                         if (m_words == before && words != before)
                             say(words);
                     });
}

void Session::refreshNextStep()
{
    if (m_isConnected && !isStarting() && !m_words.isEmpty())
        askNextStep();
}
