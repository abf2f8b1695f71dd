#include "scratchdatabase.h"

#include "db.h"

#include <QSqlError>
#include <QSqlQuery>

ScratchDatabase::ScratchDatabase(const DatabaseAddress &address, End end) : m_name(address.name), m_end(end)
{
    DatabaseAddress server = address;
    server.name.clear();
    m_server = addConnection(QStringLiteral("server"), server);
    if (!openConnection(m_server, nullptr))
        qFatal("%s", qPrintable(m_server.lastError().text()));
    m_isFilled = exists();
    if (m_isFilled && end == Drop)
        qFatal("There is a database %s already", qPrintable(m_name));
    QString error;
    if (!createDatabase(address, nullptr, &error))
        qFatal("%s", qPrintable(error));
}

ScratchDatabase::~ScratchDatabase()
{
    if (m_end == Drop || !m_isFilled) {
        endConnections();
        answer(QStringLiteral("DROP DATABASE `%1`").arg(m_name));
    }
    m_server = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("server"));
}

QString ScratchDatabase::answer(const QString &sql)
{
    QSqlQuery query(m_server);
    if (!query.exec(sql))
        qWarning("%s", qPrintable(query.lastError().text()));
    return query.next() ? query.value(0).toString() : QString();
}

bool ScratchDatabase::exists()
{
    return !answer(QStringLiteral("SELECT SCHEMA_NAME FROM INFORMATION_SCHEMA.SCHEMATA WHERE SCHEMA_NAME=") +
                   lit(m_name))
                .isEmpty();
}

/// A statement whose program was killed goes on in the server and would hold the database.
void ScratchDatabase::endConnections()
{
    QSqlQuery query(m_server);
    query.exec(QStringLiteral("SELECT ID FROM INFORMATION_SCHEMA.PROCESSLIST WHERE DB=") + lit(m_name));
    QSqlQuery kill(m_server);
    // Most have gone by themselves meanwhile.
    while (query.next())
        kill.exec(QStringLiteral("KILL SOFT CONNECTION %1").arg(query.value(0).toString()));
}
