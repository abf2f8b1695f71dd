#include "tcpproxy.h"
#include "testing.h"

#include "dbtasks.h"
#include "permissions.h"
#include "qqestion.h"
#include "qseluser.h"
#include "veltab.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>

/// Who works in the main window, and on which server, while answers are late or do not come.
class TstSession : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void loginMayBeCalledOff();
    void whoLogsInLastCounts();
    void lostServerIsToldOnce();

private:
    QAction *action(const char *name) { return child<QAction>(m_window.get(), QLatin1String(name)); }
    QString shown(const char *label) { return child<QLabel>(m_window.get(), QLatin1String(label))->text(); }
    bool logInBy(const std::function<void(QSelUser *)> &hand);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<TcpProxy> m_line;
    std::unique_ptr<Veltab> m_window;
};

namespace {
void enter(QSelUser *dialog, const QString &login, const QString &pass)
{
    child<QLineEdit>(dialog, "leLogin")->setText(login);
    child<QLineEdit>(dialog, "lePass")->setText(pass);
    QTest::keyClick(child<QLineEdit>(dialog, "lePass"), Qt::Key_Return);
}
} // namespace

/// The user at work may see the shops only; another one may do all.
void TstSession::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", m_folder->path().toLocal8Bit());
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec(QStringList{
        "INSERT INTO group_premission(id,name) VALUES(2,'зал')",
        "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,0,1),(2,10,2)",
        "UPDATE users SET login='olena',pass='зала',name='Олена',surname='Коваль',id_g_prem=2",
        "INSERT INTO users(login,pass,key_prem,name,surname,id_g_prem) VALUES('boss','усе','1','Іван','Бондар',1)"});
    m_line = std::make_unique<TcpProxy>(m_base->address());
    writeSettings(m_folder->path(), m_line->address());
    QFile settings(m_folder->filePath("Velta.ini"));
    QVERIFY(settings.open(QIODevice::Append));
    settings.write("\n[DEFLOGIN]\nDEFLOGIN=olena\nPASS=зала\n");
    settings.close();
    m_window = std::make_unique<Veltab>(m_folder->path());
    m_window->setLoginUnattended(true);
    m_window->show();
    QTRY_VERIFY_WITH_TIMEOUT(m_window->isReady(), 20000);
    m_window->setLoginUnattended(false);
    waitOutTasks();
    QVERIFY(shown("labelUser").endsWith("Олена Коваль"));
}

void TstSession::cleanup()
{
    m_window.reset();
    m_line.reset();
    m_base.reset();
}

bool TstSession::logInBy(const std::function<void(QSelUser *)> &hand)
{
    return withModal<QSelUser>([this] { m_window->login(); }, hand, 20000);
}

void TstSession::loginMayBeCalledOff()
{
    m_base->exec("LOCK TABLES users WRITE");
    QVERIFY(logInBy([](QSelUser *dialog) {
        enter(dialog, "boss", "усе");
        QTRY_COMPARE(child<QLabel>(dialog, "labelWait")->text(), QString("Читається…"));
        QTest::keyClick(dialog, Qt::Key_Escape);
        QVERIFY(!dialog->isVisible());
    }));
    m_base->exec("UNLOCK TABLES");
    waitOutTasks();
    QVERIFY(shown("labelUser").endsWith("Олена Коваль") && !action("mt_goods")->isVisible());
}

void TstSession::whoLogsInLastCounts()
{
    m_base->exec("LOCK TABLES lst_permis WRITE, users READ, updat READ");
    m_window->readRights();
    QVERIFY(logInBy([this](QSelUser *dialog) {
        enter(dialog, "olena", "зала");
        enter(dialog, "boss", "усе");
        m_window->readRights();
        QTest::qWait(50);
        m_base->exec("UNLOCK TABLES");
        waitOutTasks();
        QVERIFY(!dialog->isVisible());
    }));
    waitOutTasks();
    QVERIFY(shown("labelUser").endsWith("Іван Бондар") && action("mt_goods")->isVisible());
}

void TstSession::lostServerIsToldOnce()
{
    m_line->setDown(true);
    QStringList told;
    QTimer answer;
    connect(&answer, &QTimer::timeout, this, [&] {
        if (auto *question = qobject_cast<QQestion *>(QApplication::activeModalWidget())) {
            told.append(child<QLabel>(question, "labelText")->text());
            question->accept();
        }
    });
    answer.start(10);
    m_window->readRights();
    waitOutTasks();
    QTRY_COMPARE(shown("labelServer"), QString("Зв'язок втрачено"));
    m_window->readRights();
    waitOutTasks();
    QTest::qWait(50);
    // The bar says it all the time, no dialog beside; in the log one error, then warnings.
    QVERIFY2(told.isEmpty(), qPrintable(told.join('\n')));
    QVERIFY(!shown("labelConnection").isEmpty() && action("mt_shops")->isVisible());
    QFile log(m_folder->filePath("veltab.log"));
    QVERIFY(log.open(QIODevice::ReadOnly));
    QCOMPARE(log.readAll().count("CRITICAL"), 1);
    // Who wants in is told why not, and loses nothing of what is typed.
    QVERIFY(logInBy([&](QSelUser *dialog) {
        enter(dialog, "boss", "усе");
        QTRY_COMPARE(told, QStringList(shown("labelConnection")));
        QCOMPARE(child<QLineEdit>(dialog, "lePass")->text(), QString("усе"));
        m_line->setDown(false);
        QTRY_COMPARE_WITH_TIMEOUT(shown("labelServer"), QString("З'єднано"), 10000);
        QTest::keyClick(child<QLineEdit>(dialog, "lePass"), Qt::Key_Return);
        QTRY_VERIFY(!dialog->isVisible());
    }));
    waitOutTasks();
    QVERIFY(shown("labelUser").endsWith("Іван Бондар") && told.size() == 1);
}

QTEST_MAIN(TstSession)
#include "tst_session.moc"
