#include "tuning.h"

#include "connection.h"
#include "db.h"
#include "qmessevent.h"

#include <QThread>

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
/// So long the work may wait for others' transactions; whoever sells next waits behind it meanwhile.
const int tableLockSeconds = 10;

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

std::optional<bool> isDatabaseTuned(const Db &db)
{
    const auto standing = standingIndexes(db);
    if (!standing)
        return std::nullopt;
    return alterStatement(*standing, DatabaseTuning::Add).isEmpty();
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

DatabaseTuning::DatabaseTuning(const QString &sourceConnection, QObject *receiver, QObject *parent)
    : QObject(parent), m_source(sourceConnection), m_receiver(receiver)
{
    m_watch.setInterval(watchMs);
    connect(&m_watch, &QTimer::timeout, this, &DatabaseTuning::watch);
}

DatabaseTuning::~DatabaseTuning()
{
    if (!m_thread)
        return;
    disconnect(m_thread.get(), nullptr, this, nullptr);
    do
        stop();
    while (!m_thread->wait(watchMs));
}

void DatabaseTuning::start(Work work)
{
    m_thread.reset(QThread::create([this, work] { run(work); }));
    connect(m_thread.get(), &QThread::finished, this, [this] {
        m_watch.stop();
        emit finished(m_outcome);
    });
    m_thread->start();
    m_watch.start();
}

void DatabaseTuning::stop()
{
    m_isStopping = true;
    const qint64 id = m_runningId;
    if (id == 0)
        return;
    QSqlDatabase connection = QSqlDatabase::database(m_source, false);
    QString error;
    Db(&connection, m_receiver).attempt(QStringLiteral("KILL QUERY ") + QString::number(id), &error);
}

void DatabaseTuning::run(Work work)
{
    WorkerConnection connection(m_source, m_receiver);
    if (!connection.isOpen())
        return;
    m_runningId = connection.serverId();
    m_outcome = alter(Db(connection.database(), m_receiver), work);
    m_runningId = 0;
}

DatabaseTuning::Outcome DatabaseTuning::alter(Db db, Work work)
{
    const auto standing = standingIndexes(db);
    if (!standing ||
        !db.run(QStringLiteral("SET SESSION lock_wait_timeout=") + QString::number(tableLockSeconds)))
        return Failed;
    const QString sql = alterStatement(*standing, work);
    if (sql.isEmpty())
        return Done;
    if (m_isStopping)
        return Stopped;
    QString error;
    if (db.attempt(sql, &error))
        return Done;
    if (m_isStopping)
        return Stopped;
    postMessage(m_receiver, tr("Помилка запиту:") + QLatin1Char('\n') + error + QLatin1Char('\n') + sql);
    return Failed;
}

void DatabaseTuning::watch()
{
    if (m_isStopping) {
        // The first KILL may have come right before the statement.
        stop();
        return;
    }
    QSqlDatabase connection = QSqlDatabase::database(m_source, false);
    QString error;
    // In hundredths of a per cent; it falls back to zero right before the end.
    auto status =
        Db(&connection, m_receiver)
            .attempt(QStringLiteral("SHOW GLOBAL STATUS LIKE 'Innodb_onlineddl_pct_progress'"), &error);
    const int percent = status && status->next() ? qMin(status->value(1).toInt() / 100, 100) : 0;
    if (percent <= m_percent)
        return;
    m_percent = percent;
    emit progressed(percent);
}
