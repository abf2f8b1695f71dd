#include "tuning.h"

#include "connection.h"
#include "db.h"
#include "qmessevent.h"
#include "servererror.h"

#include <QElapsedTimer>
#include <QThread>
#include <chrono>

namespace {
const struct
{
    const char *name;
    const char *columns;
} tuningIndexes[] = {
    {"tune_kass_chek", "id_kass,id_chek"},
    {"tune_data_time", "data_time,id_type,id_kass,id_chek,id_zvit,summa,count"},
};

const int watchMs = 300;
/// So long the work waits for others' transactions; whoever sells next waits behind it meanwhile.
const int tableLockSeconds = 1;
const int pauseMs = 2000;
const int mostTries = 60;
/// A try that lasted longer has built the indexes and failed at the very end: that is not done often.
const int builtMs = 5000;
const int builtTries = mostTries / 3;
/// The destructor gives the server so long to end the work in order.
const int leavingMs = 2000;

std::optional<QStringList> standingIndexes(const Db &db)
{
    auto query = db.run(QStringLiteral("SELECT DISTINCT INDEX_NAME FROM INFORMATION_SCHEMA.STATISTICS WHERE "
                                       "TABLE_SCHEMA=DATABASE() AND TABLE_NAME='cheks'"));
    if (!query)
        return std::nullopt;
    QStringList names;
    while (query->next())
        names.append(toText(query->value(0)));
    return names;
}

/// One statement for both: the table is read once, and all or nothing is done. Empty when it is done already.
QString alterStatement(const QStringList &standing, DatabaseTuning::Work work)
{
    QStringList parts;
    for (const auto &index : tuningIndexes) {
        const QString name = QLatin1String(index.name);
        if (work == DatabaseTuning::Remove && standing.contains(name))
            parts.append(QStringLiteral("DROP INDEX ") + name);
        if (work == DatabaseTuning::Add && !standing.contains(name))
            parts.append(QStringLiteral("ADD INDEX %1(%2)").arg(name, QLatin1String(index.columns)));
    }
    return parts.isEmpty() ? QString()
                           : QStringLiteral("ALTER TABLE cheks ") + parts.join(QStringLiteral(", ")) +
                                 QStringLiteral(", ALGORITHM=INPLACE, LOCK=NONE");
}
} // namespace

std::optional<TunedState> tunedState(const Db &db)
{
    const auto standing = standingIndexes(db);
    if (!standing)
        return std::nullopt;
    if (alterStatement(*standing, DatabaseTuning::Add).isEmpty())
        return TunedState::Whole;
    return alterStatement(*standing, DatabaseTuning::Remove).isEmpty() ? TunedState::None
                                                                       : TunedState::Partial;
}

QString tuningQuestion(bool isTuned)
{
    return isTuned ? DatabaseTuning::tr("Індекси для швидких звітів уже є у базі.\nПрибрати їх? Звіти і нові "
                                        "чеки стануть повільнішими, база – меншою.")
                   : DatabaseTuning::tr("Додати до чеків у базі два індекси?\nЗвіти за день, перегляд чека і "
                                        "продаж стануть швидшими, база – більшою.\nНа великій базі це триває "
                                        "кілька хвилин; продавати можна й тоді.\nПрибрати індекси можна так "
                                        "само.");
}

/// A connection of the work's that the window's thread can cut.
class DatabaseTuning::Line
{
public:
    explicit Line(DatabaseTuning *tuning)
        : connection(tuning->m_source, tuning->m_receiver, &tuning->m_isLeaving), m_tuning(tuning)
    {
        const std::lock_guard<std::mutex> lock(m_tuning->m_guard);
        m_tuning->m_lines.append(this);
    }
    ~Line()
    {
        const std::lock_guard<std::mutex> lock(m_tuning->m_guard);
        m_tuning->m_lines.removeOne(this);
    }
    Q_DISABLE_COPY(Line)

    Db db() { return Db(connection.database(), m_tuning->m_receiver); }

    WorkerConnection connection;

private:
    DatabaseTuning *m_tuning;
};

DatabaseTuning::DatabaseTuning(const QString &sourceConnection, QObject *receiver, QObject *parent)
    : QObject(parent), m_source(sourceConnection), m_receiver(receiver)
{
}

DatabaseTuning::~DatabaseTuning()
{
    if (!m_thread)
        return;
    QThread::disconnect(m_thread.get(), nullptr, this, nullptr);
    stop();
    if (!m_thread->wait(leavingMs))
        cutLines();
    m_thread->wait();
    cutLines();
    m_watcher->wait();
}

void DatabaseTuning::cutLines()
{
    m_isLeaving = true;
    const std::lock_guard<std::mutex> lock(m_guard);
    for (const Line *line : qAsConst(m_lines))
        line->connection.cut();
}

void DatabaseTuning::start(Work work)
{
    m_thread.reset(QThread::create([this, work] { run(work); }));
    m_watcher.reset(QThread::create([this] { watch(); }));
    connect(m_thread.get(), &QThread::finished, this, [this] { emit finished(m_outcome); });
    m_thread->start();
    m_watcher->start();
}

void DatabaseTuning::stop()
{
    m_isStopping = true;
    m_changed.notify_all();
}

void DatabaseTuning::run(Work work)
{
    {
        Line line(this);
        if (line.connection.isOpen()) {
            m_runningId = line.connection.serverId();
            m_outcome = alter(line.db(), work);
            m_runningId = 0;
        }
    }
    m_isOver = true;
    m_changed.notify_all();
}

void DatabaseTuning::pause(int ms, bool endsWithStop)
{
    std::unique_lock<std::mutex> lock(m_guard);
    m_changed.wait_for(lock, std::chrono::milliseconds(ms),
                       [&] { return m_isOver || (endsWithStop && m_isStopping); });
}

DatabaseTuning::Outcome DatabaseTuning::alter(const Db &db, Work work)
{
    const auto standing = standingIndexes(db);
    if (!standing ||
        !db.run(QStringLiteral("SET SESSION lock_wait_timeout=") + QString::number(tableLockSeconds)))
        return Failed;
    const QString sql = alterStatement(*standing, work);
    return sql.isEmpty() ? Done : alterOrWait(db, sql);
}

DatabaseTuning::Outcome DatabaseTuning::alterOrWait(const Db &db, const QString &sql)
{
    QString error;
    for (int tries = 0; tries < mostTries && !m_isStopping; ++tries) {
        QElapsedTimer clock;
        clock.start();
        if (db.attempt(sql, &error))
            return Done;
        if (db.lastErrorNumber() != ServerError::LockWait)
            break;
        if (clock.elapsed() > builtMs)
            tries += builtTries;
        pause(pauseMs, true);
    }
    if (m_isStopping)
        return Stopped;
    const QString words = db.lastErrorNumber() == ServerError::LockWait
                              ? tr("Таблицю чеків увесь час тримає інша програма (довгий звіт або резервне "
                                   "копіювання). Нічого не змінено; повторіть, коли звітів немає.") +
                                    QStringLiteral("\n\n")
                              : QString();
    postMessage(m_receiver,
                words + tr("Помилка запиту:") + QLatin1Char('\n') + error + QLatin1Char('\n') + sql);
    return Failed;
}

/// In hundredths of a per cent on the server; it falls back to zero right before the end.
int DatabaseTuning::percent(const Db &db) const
{
    QString error;
    auto status =
        db.attempt(QStringLiteral("SHOW GLOBAL STATUS LIKE 'Innodb_onlineddl_pct_progress'"), &error);
    return status && status->next() ? qMin(status->value(1).toInt() / 100, 100) : 0;
}

/// Beside the work: tells how far it is, and ends its statement when it is to stop. Repeated, because a KILL
/// may come right before the statement.
void DatabaseTuning::watch()
{
    Line line(this);
    int told = 0;
    while (!m_isOver) {
        const bool isStopping = m_isStopping;
        if (isStopping && m_runningId != 0)
            endStatement(m_source, m_runningId);
        const int now = isStopping || !line.connection.isOpen() ? 0 : percent(line.db());
        if (now > told)
            emit progressed(told = now);
        pause(watchMs, !isStopping);
    }
}
