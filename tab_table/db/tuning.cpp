#include "tuning.h"

#include "qmessevent.h"
#include "servererror.h"

#include <QCoreApplication>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Tuning)
};

const char *const timeIndex = "tune_data_time";

const struct
{
    const char *name;
    const char *columns;
} tuningIndexes[] = {
    {"tune_kass_chek", "id_kass,id_chek"},
    {timeIndex, "data_time,id_type,id_kass,id_chek,id_zvit,summa,count"},
};

const int watchMs = 300;
/// So long the work waits for others' transactions; whoever sells next waits behind it meanwhile.
const int tableLockSeconds = 1;
const int pauseMs = 2000;
const int mostTries = 60;
/// A try that lasted longer has built the indexes and failed at the very end: that is not done often.
const int builtMs = 5000;
const int builtTries = mostTries / 3;

std::optional<QStringList> standingIndexes(const Db &db)
{
    return db.firstColumn(
        QStringLiteral("SELECT DISTINCT INDEX_NAME FROM INFORMATION_SCHEMA.STATISTICS WHERE "
                       "TABLE_SCHEMA=DATABASE() AND TABLE_NAME='cheks'"));
}

/// One statement for both: the table is read once, and all or nothing is done. Empty when it is done already.
QString alterStatement(const QStringList &standing, Tuning tuning)
{
    QStringList parts;
    for (const auto &index : tuningIndexes) {
        const QString name = QLatin1String(index.name);
        if (tuning == Tuning::Remove && standing.contains(name))
            parts.append(QStringLiteral("DROP INDEX ") + name);
        if (tuning == Tuning::Add && !standing.contains(name))
            parts.append(QStringLiteral("ADD INDEX %1(%2)").arg(name, QLatin1String(index.columns)));
    }
    return parts.isEmpty() ? QString()
                           : QStringLiteral("ALTER TABLE cheks ") + parts.join(QStringLiteral(", ")) +
                                 QStringLiteral(", ALGORITHM=INPLACE, LOCK=NONE");
}

QString endText(Tuning tuning)
{
    return tuning == Tuning::Add ? Texts::tr("Індекси додано: звіти прискорено.")
                                 : Texts::tr("Індекси прибрано.");
}

JobResult stopped(bool isAnswered)
{
    return {JobResult::Cancelled,
            isAnswered
                ? Texts::tr("Зупинено; у базі нічого не змінено.")
                : Texts::tr("Зупинено, не дочекавшись сервера. Чи є індекси у базі, покаже «Прискорити "
                            "звіти…»."),
            {}};
}

/// In hundredths of a per cent on the server; it falls back to zero right before the end.
int percent(const Db &db)
{
    QString error;
    auto status =
        db.attempt(QStringLiteral("SHOW GLOBAL STATUS LIKE 'Innodb_onlineddl_pct_progress'"), &error);
    return status && status->next() ? qMin(status->value(1).toInt() / 100, 100) : 0;
}

/// Asks the server beside the work how far it is; what it tells only grows.
class ProgressWatch
{
public:
    explicit ProgressWatch(JobContext *context) : m_context(context), m_thread([this] { watch(); }) {}
    ~ProgressWatch()
    {
        {
            const std::lock_guard<std::mutex> lock(m_guard);
            m_isOver = true;
        }
        m_changed.notify_all();
        m_thread.join();
    }
    Q_DISABLE_COPY(ProgressWatch)

private:
    void watch()
    {
        JobConnection connection(*m_context);
        int told = 0;
        while (connection.isOpen() && !m_context->isCancelled() && pause()) {
            const int now = percent(connection.db());
            if (now > told)
                m_context->progress(told = now, 100);
        }
    }

    /// False when the work is over.
    bool pause()
    {
        std::unique_lock<std::mutex> lock(m_guard);
        return !m_changed.wait_for(lock, std::chrono::milliseconds(watchMs), [this] { return m_isOver; });
    }

    JobContext *m_context;
    std::mutex m_guard;
    std::condition_variable m_changed;
    bool m_isOver = false;
    /// The last one: it uses the others.
    std::thread m_thread;
};

/// The refusal of a statement that was tried often enough, or cannot succeed.
JobResult refused(const Db &db, const QString &error, const QString &sql)
{
    const QString words =
        db.lastErrorNumber() == ServerError::LockWait
            ? Texts::tr("Таблицю чеків увесь час тримає інша програма (довгий звіт або резервне "
                        "копіювання). Нічого не змінено; повторіть, коли звітів немає.") +
                  QStringLiteral("\n\n")
            : QString();
    postMessage(db.receiver(),
                words + Texts::tr("Помилка запиту:") + QLatin1Char('\n') + error + QLatin1Char('\n') + sql);
    return {};
}

/// Tries until nobody holds the table any more. True when it is done.
bool alterOrWait(const Db &db, const QString &sql, const JobContext &context, QString *error)
{
    for (int tries = 0; tries < mostTries && !context.isCancelled(); ++tries) {
        QElapsedTimer clock;
        clock.start();
        if (db.attempt(sql, error))
            return true;
        if (db.lastErrorNumber() != ServerError::LockWait)
            return false;
        if (clock.elapsed() > builtMs)
            tries += builtTries;
        context.pause(pauseMs);
    }
    return false;
}
} // namespace

std::optional<TunedState> tunedState(const Db &db)
{
    const auto standing = standingIndexes(db);
    if (!standing)
        return std::nullopt;
    if (alterStatement(*standing, Tuning::Add).isEmpty())
        return TunedState::Whole;
    return alterStatement(*standing, Tuning::Remove).isEmpty() ? TunedState::None : TunedState::Partial;
}

QString cheksByTime()
{
    return QStringLiteral("cheks FORCE INDEX(%1)").arg(QLatin1String(timeIndex));
}

QString tuningQuestion(Tuning tuning)
{
    return tuning == Tuning::Remove
               ? Texts::tr("Індекси для швидких звітів уже є у базі.\nПрибрати їх? Звіти і нові "
                           "чеки стануть повільнішими, база – меншою.")
               : Texts::tr("Додати до чеків у базі два індекси?\nЗвіти за день, перегляд чека і "
                           "продаж стануть швидшими, база – більшою.\nНа великій базі це триває "
                           "кілька хвилин; продавати можна й тоді.\nПрибрати індекси можна так "
                           "само.");
}

QString tuningTitle(Tuning tuning)
{
    return tuning == Tuning::Add ? Texts::tr("Індекси додаються") : Texts::tr("Індекси прибираються");
}

JobResult tuneDatabase(JobContext &context, Tuning tuning)
{
    const Db db = context.db();
    const auto standing = standingIndexes(db);
    if (!standing ||
        !db.run(QStringLiteral("SET SESSION lock_wait_timeout=") + QString::number(tableLockSeconds)))
        return {};
    const QString sql = alterStatement(*standing, tuning);
    const ProgressWatch watch(&context);
    QString error;
    if (sql.isEmpty() || alterOrWait(db, sql, context, &error))
        return {JobResult::Done, endText(tuning), {}};
    return context.isCancelled() ? stopped(!isConnectionLost(db.lastErrorNumber())) : refused(db, error, sql);
}
