#include "testing.h"

#include "qmessevent.h"
#include "qqestion.h"
#include "schema.h"

#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>

DatabaseAddress testServer()
{
    DatabaseAddress address;
    QFile port(qEnvironmentVariable("VELTAB_TEST_SERVER") + QLatin1String("/port"));
    if (!port.open(QIODevice::ReadOnly))
        qFatal("No test server: run through ctest, or start one with tests/testing/server.sh");
    address.host = QStringLiteral("127.0.0.1");
    address.port = port.readAll().trimmed().toInt();
    address.user = QStringLiteral("test");
    address.password = QStringLiteral("test");
    return address;
}

bool Heard::event(QEvent *event)
{
    if (event->type() != QMessEvent::eventType)
        return QObject::event(event);
    const auto *message = static_cast<QMessEvent *>(event);
    m_messages.append({message->text(), message->location(), message->kind()});
    return true;
}

const QVector<Heard::Message> &Heard::all()
{
    QCoreApplication::sendPostedEvents(this);
    return m_messages;
}

QStringList Heard::texts(int mostVerboseKind)
{
    QStringList list;
    for (const Message &message : all()) {
        if (message.kind <= mostVerboseKind)
            list.append(message.text);
    }
    return list;
}

bool Heard::has(const QString &part, int mostVerboseKind)
{
    const QStringList list = texts(mostVerboseKind);
    for (const QString &text : list) {
        if (text.contains(part))
            return true;
    }
    return false;
}

void Heard::forget()
{
    all();
    m_messages.clear();
}

FreshDatabase::FreshDatabase(Content content)
{
    static int number = 0;
    m_name = QStringLiteral("veltab_test_%1_%2").arg(QCoreApplication::applicationPid()).arg(++number);
    m_adminName = m_name + QStringLiteral("_admin");
    m_admin = addConnection(m_adminName, testServer());
    if (!openConnection(m_admin, &heard))
        qFatal("%s", qPrintable(m_admin.lastError().text()));
    QString error;
    if (!createDatabase(address(), &heard, &error))
        qFatal("%s", qPrintable(error));
    m_db = addConnection(m_name, address());
    if (!openConnection(m_db, &heard))
        qFatal("%s", qPrintable(m_db.lastError().text()));
    if (content == WithSchema && !createSchema(db()))
        qFatal("%s", qPrintable(heard.texts().join(QLatin1Char('\n'))));
    heard.forget();
}

FreshDatabase::~FreshDatabase()
{
    QSqlQuery(m_admin).exec(QStringLiteral("DROP DATABASE IF EXISTS ") + m_name);
    m_db = QSqlDatabase();
    m_admin = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_name);
    QSqlDatabase::removeDatabase(m_adminName);
}

DatabaseAddress FreshDatabase::address() const
{
    DatabaseAddress own = testServer();
    own.name = m_name;
    return own;
}

void FreshDatabase::exec(const QString &sql)
{
    QSqlQuery query(m_db);
    if (!query.exec(sql))
        qFatal("%s\n%s", qPrintable(query.lastError().text()), qPrintable(sql));
}

void FreshDatabase::exec(const QStringList &statements)
{
    for (const QString &sql : statements)
        exec(sql);
}

QStringList FreshDatabase::rows(const QString &sql)
{
    QSqlQuery query(m_db);
    if (!query.exec(sql))
        qFatal("%s\n%s", qPrintable(query.lastError().text()), qPrintable(sql));
    QStringList list;
    while (query.next()) {
        QStringList cells;
        for (int i = 0; i < query.record().count(); ++i)
            cells.append(toText(query.value(i)));
        list.append(cells.join(QLatin1Char('|')));
    }
    return list;
}

QString FreshDatabase::value(const QString &sql)
{
    return rows(sql).value(0);
}

void FreshDatabase::killConnection()
{
    const QString id = value(QStringLiteral("SELECT CONNECTION_ID()"));
    QSqlQuery(m_admin).exec(QStringLiteral("KILL CONNECTION ") + id);
}

void failMissingChild(const QObject *parent, const QString &name, const char *type)
{
    QStringList names;
    const auto children = parent->findChildren<QObject *>();
    for (const QObject *object : children) {
        if (!object->objectName().isEmpty() && !object->objectName().startsWith(QLatin1String("qt_")))
            names.append(QLatin1String(object->metaObject()->className()) + QLatin1Char(' ') +
                         object->objectName());
    }
    qFatal("No %s named %s; there are:\n%s", type, qPrintable(name),
           qPrintable(names.join(QLatin1Char('\n'))));
}

QString answerQuestion(const std::function<void()> &act, bool confirm)
{
    QString text;
    withModal<QQestion>(act, [&](QQestion *question) {
        text = child<QLabel>(question, QStringLiteral("labelText"))->text();
        if (confirm)
            question->accept();
        else
            question->reject();
    });
    return text;
}
