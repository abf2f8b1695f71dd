#include "testing.h"
#include "connectionstate.h"
#include "dbtasks.h"

#include "job.h"

#include "qmessdlg.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "scanguard.h"
#include "schema.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QSettings>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QStandardPaths>
#include <QTimerEvent>
#include <QWheelEvent>
#include <QWindow>
#include <qtestspontaneevent.h>

namespace {
/// Looks for modal windows that stay unanswered.
class Watchdog : public QObject
{
public:
    static constexpr int limitMs = 10000;

    explicit Watchdog(QObject *parent) : QObject(parent) { startTimer(100); }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    QPointer<QWidget> m_modal;
    QElapsedTimer m_since;
};

void Watchdog::timerEvent(QTimerEvent *event)
{
    Q_UNUSED(event)
    QWidget *modal = QApplication::activeModalWidget();
    if (modal != m_modal) {
        m_modal = modal;
        m_since.start();
    }
    if (modal != nullptr && m_since.hasExpired(limitMs)) {
        rejectUnexpected(modal);
        m_since.start();
    }
}

void startWatchdog()
{
    if (qobject_cast<QApplication *>(QCoreApplication::instance()) != nullptr)
        new Watchdog(QCoreApplication::instance());
}
Q_COREAPP_STARTUP_FUNCTION(startWatchdog)

QWidget *keyboardOwner()
{
    QWidget *focus = QApplication::focusWidget();
    return focus != nullptr ? focus : QApplication::activeWindow();
}

/// Without a display the window behind a closed box is sometimes not active again.
void activateVisibleWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        if (window->isVisible() && showActive(window))
            return;
    }
}

QWidget *focusWidget()
{
    if (!QTest::qWaitFor([] { return keyboardOwner() != nullptr; }, 500))
        activateVisibleWindow();
    QWidget *focus = keyboardOwner();
    if (focus == nullptr)
        qFatal("No window has the keyboard");
    return focus;
}
} // namespace

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

void writeSettings(const QString &folder, const DatabaseAddress &address)
{
    QSettings file(folder + "/Velta.ini", QSettings::IniFormat);
    file.setIniCodec("UTF-8");
    file.setValue("QMYSQL/IP", address.host);
    file.setValue("QMYSQL/PORT", address.port);
    file.setValue("QMYSQL/DEFLOGIN", address.user);
    file.setValue("QMYSQL/PASSWORD", address.password);
    file.setValue("QMYSQL/NAMEBASE", address.name);
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
    QSqlQuery ids(m_admin);
    ids.exec(
        QStringLiteral("SELECT id FROM information_schema.processlist WHERE db='%1' AND id<>CONNECTION_ID()")
            .arg(m_name));
    while (ids.next())
        QSqlQuery(m_admin).exec(QStringLiteral("KILL CONNECTION ") + ids.value(0).toString());
}

void FreshDatabase::execElsewhere(const QString &sql)
{
    QSqlQuery query(m_admin);
    if (!query.exec(QStringLiteral("USE ") + m_name) || !query.exec(sql))
        qFatal("%s\n%s", qPrintable(query.lastError().text()), qPrintable(sql));
}

Sent::Sent(const std::function<void(const QString &sql)> &also)
{
    Db::setStatementHook([this, also](const QString &sql) {
        {
            const QMutexLocker lock(&m_guard);
            m_all.append(sql);
        }
        if (also)
            also(sql);
    });
}

Sent::~Sent()
{
    Db::setStatementHook({});
}

QStringList Sent::containing(const QString &part)
{
    const QMutexLocker lock(&m_guard);
    return m_all.filter(part);
}

void commitHere()
{
    const QStringList names = QSqlDatabase::connectionNames();
    for (const QString &name : names) {
        if (!name.contains(QLatin1String("_worker_")))
            continue;
        // Of another thread it is none.
        QSqlDatabase db = QSqlDatabase::database(name, false);
        if (db.isValid() && !QSqlQuery(db).exec(QStringLiteral("COMMIT AND CHAIN")))
            qFatal("%s", qPrintable(db.lastError().text()));
    }
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

QString answerChoice(const std::function<void()> &act, int button)
{
    QString text;
    withModal<QMessDlg>(act, [&](QMessDlg *question) {
        text = question->windowTitle() + QLatin1Char('\n') +
               child<QLabel>(question, QStringLiteral("labelText"))->text();
        QTest::mouseClick(child<QPushButton>(question, QStringLiteral("pb%1").arg(button)), Qt::LeftButton);
    });
    return text;
}

QString answerConfirm(const std::function<void()> &act, bool accept)
{
    return answerChoice(act, accept ? 0 : 1);
}

void waitOutJobs()
{
    if (!QTest::qWaitFor([] { return RunningJobs::all().jobs().isEmpty(); }, 20000))
        qFatal("A job has not ended");
}

void waitOutTasks()
{
    QCoreApplication::sendPostedEvents();
    if (!QTest::qWaitFor([] { return DbTasks::isIdle(); }, 20000))
        qFatal("A task has not ended");
    QCoreApplication::sendPostedEvents();
}

void waitOutLoss(const QSqlDatabase &window)
{
    const auto isBack = [&] {
        const ConnectionState *state = ConnectionState::of(window);
        bool tasksAre = false;
        DbTasks tasks(window.connectionName(), nullptr, nullptr);
        tasks.read([](const Db &db) { return waitForServer(db, 0); }, [&](bool is) { tasksAre = is; });
        waitOutTasks();
        return tasksAre && (state == nullptr || !state->isLost());
    };
    if (!QTest::qWaitFor(isBack, 20000))
        qFatal("The server is not back");
}

void waitOutGuard()
{
    QTest::qWait(ScanGuard::appearedMs + 20);
}

bool showActive(QWidget *window)
{
    window->show();
    window->activateWindow();
    return QTest::qWaitForWindowActive(window);
}

void rejectUnexpected(QWidget *modal)
{
    QStringList texts{QLatin1String(modal->metaObject()->className()), modal->windowTitle()};
    const auto labels = modal->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        texts.append(label->text());
    QTest::qFail(qPrintable(QStringLiteral("Unexpected window: ") + texts.join(QLatin1Char('\n'))), __FILE__,
                 __LINE__);
    if (auto *dialog = qobject_cast<QDialog *>(modal))
        dialog->done(QDialog::Rejected); // reject() may ask.
    else
        modal->close();
}

void pressKeys(std::initializer_list<int> keys)
{
    for (const int key : keys) {
        const auto modifiers = Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask));
        QTest::keyClick(focusWidget(), Qt::Key(key & ~int(Qt::KeyboardModifierMask)), modifiers);
    }
}

void typeText(const QString &text)
{
    for (const QChar c : text) {
        const Qt::Key key =
            c.unicode() < 128 ? QTest::asciiToKey(c.toLatin1()) : Qt::Key(c.toUpper().unicode());
        QTest::sendKeyEvent(QTest::Click, focusWidget(), key, QString(c), Qt::NoModifier);
    }
}

void scan(const QString &code)
{
    typeText(code);
    pressKeys({Qt::Key_Return});
}

void scan(QWidget *window, const QString &code)
{
    window->window()->activateWindow();
    if (!QTest::qWaitForWindowActive(window->window()))
        qFatal("The window does not become active");
    scan(code);
}

void turnWheel(QWidget *widget, int steps)
{
    QWindow *window = widget->window()->windowHandle();
    if (window == nullptr)
        qFatal("The wheel needs a shown window");
    const QPoint global = widget->mapToGlobal(widget->rect().center());
    for (int i = 0; i < qAbs(steps); ++i) {
        QWheelEvent event(window->mapFromGlobal(global), global, QPoint(), QPoint(0, steps > 0 ? 120 : -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&event);
        qApp->notify(window, &event); // sendEvent() would make it one of the program's own.
    }
}

namespace {
bool setGlobal(const QSqlDatabase &admin, const QString &name, const QString &value)
{
    bool isNumber = false;
    value.toLongLong(&isNumber);
    return QSqlQuery(admin).exec(QStringLiteral("SET GLOBAL %1=%2").arg(name, isNumber ? value : lit(value)));
}
} // namespace

GlobalVariable::GlobalVariable(const QString &name, const QString &value) : m_name(name)
{
    m_admin = addConnection(QStringLiteral("global_") + name, testServer());
    QSqlQuery query(m_admin.open() ? m_admin : QSqlDatabase());
    if (!query.exec(QStringLiteral("SELECT @@GLOBAL.") + name) || !query.next())
        qFatal("%s", qPrintable(query.lastError().text()));
    m_before = query.value(0).toString();
    if (!setGlobal(m_admin, name, value))
        qFatal("Could not set %s to %s", qPrintable(name), qPrintable(value));
}

GlobalVariable::~GlobalVariable()
{
    if (!setGlobal(m_admin, m_name, m_before))
        qWarning("%s stays changed", qPrintable(m_name));
    m_admin = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("global_") + m_name);
}

bool canReadPdf()
{
    return !QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty();
}

QString textOfPdf(const QString &path)
{
    QProcess reader;
    reader.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), path, QStringLiteral("-")});
    if (!reader.waitForFinished() || reader.exitCode() != 0)
        qFatal("pdftotext cannot read %s", qPrintable(path));
    return QString::fromUtf8(reader.readAllStandardOutput())
        .remove(QRegularExpression(QStringLiteral("\\s")));
}

bool canReadBarcodes()
{
    return !QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty() &&
           !QStandardPaths::findExecutable(QStringLiteral("zbarimg")).isEmpty();
}

QString barcodeOfPdf(const QString &path, int page)
{
    const QString number = QString::number(page);
    const QString picture = path + number;
    QProcess painter;
    painter.start(QStringLiteral("pdftoppm"),
                  {QStringLiteral("-r"), QStringLiteral("200"), QStringLiteral("-png"),
                   QStringLiteral("-singlefile"), QStringLiteral("-f"), number, path, picture});
    if (!painter.waitForFinished() || painter.exitCode() != 0)
        qFatal("pdftoppm cannot paint %s", qPrintable(path));
    QProcess reader;
    reader.start(QStringLiteral("zbarimg"), {QStringLiteral("--quiet"), QStringLiteral("--raw"),
                                             QStringLiteral("--nodbus"), picture + QStringLiteral(".png")});
    return reader.waitForFinished() ? QString::fromUtf8(reader.readAllStandardOutput()).trimmed() : QString();
}
