#include "tcpproxy.h"
#include "testing.h"

#include "dbtasks.h"
#include "permissions.h"
#include "qqestion.h"
#include "qseluser.h"
#include "recorddialog.h"
#include "veltab.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTableView>
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
    void takenRightIsToldAtTheNextAct();
    void editorFollowsTheRight();
    void whoWasMovedFollows();
    void whoIsLockedOutDoesNothingMore_data();
    void whoIsLockedOutDoesNothingMore();

private:
    /// Chooses an action, and tells what the program says to it.
    QString toldAt(const char *name)
    {
        return answerQuestion([this, name] {
            action(name)->trigger();
            waitOutTasks();
        });
    }
    int pages() { return child<QTabWidget>(m_window.get(), "tabWidget")->count(); }
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

/// Another operator changes rights while Olena is at work; nobody tells the change tracker.
void TstSession::takenRightIsToldAtTheNextAct()
{
    m_base->execElsewhere("INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(2,13,1)");
    QCOMPARE(toldAt("mt_shops"), QString());
    QVERIFY2(action("mt_goods")->isVisible(), "what was given is there, too");
    m_base->execElsewhere("UPDATE lst_permis SET permission=0 WHERE id_g_prem=2 AND id_prem=13");
    QCOMPARE(toldAt("mt_goods"), QString("У вас немає доступу до вкладки \"Товари\"."));
    QVERIFY(pages() == 1 && !action("mt_goods")->isVisible());
    // Two values that change places are a change, too.
    m_base->execElsewhere(
        "UPDATE lst_permis SET permission=IF(id_prem=0,2,1) WHERE id_g_prem=2 AND id_prem<11");
    QCOMPARE(toldAt("reload"), QString());
    QVERIFY(action("add")->isVisible());
}

void TstSession::editorFollowsTheRight()
{
    m_base->exec(QStringList{"UPDATE lst_permis SET permission=1 WHERE id_g_prem=2 AND id_prem=10",
                             "INSERT INTO lst_group VALUES(2,1)",
                             "INSERT INTO shops(id,address,name,group_shop) VALUES(1,'Київ','М',1)"});
    QCOMPARE(toldAt("mt_shops"), QString());
    auto *list = child<QTabWidget>(m_window.get(), "tabWidget")->currentWidget()->findChild<QTableView *>();
    QTRY_COMPARE(list->model()->rowCount(), 1);
    m_base->execElsewhere("UPDATE lst_permis SET permission=2 WHERE id_g_prem=2 AND id_prem=10");
    QVERIFY(withModal<RecordDialog>([list] { emit list->doubleClicked(list->model()->index(0, 1)); },
                                    [](RecordDialog *editor) {
                                        waitOutTasks();
                                        QVERIFY(editor->isReadOnly());
                                    }));
    QVERIFY(!action("add")->isVisible());
}

void TstSession::whoWasMovedFollows()
{
    QCOMPARE(toldAt("mt_shops"), QString());
    m_base->execElsewhere("UPDATE users SET id_g_prem=1 WHERE login='olena'");
    QCOMPARE(toldAt("reload"),
             QString("Вас перевели до групи прав \"developer\". Меню і вкладки тепер за її правами."));
    QVERIFY(action("mt_goods")->isVisible() && action("add")->isVisible());
    QCOMPARE(toldAt("reload"), QString());
}

void TstSession::whoIsLockedOutDoesNothingMore_data()
{
    QTest::addColumn<QString>("act");
    QTest::newRow("right") << "DELETE FROM lst_permis WHERE id_g_prem=2 AND id_prem=0";
    QTest::newRow("group") << "UPDATE users SET id_g_prem=3 WHERE login='olena'";
    QTest::newRow("user") << "DELETE FROM users WHERE login='olena'";
}

void TstSession::whoIsLockedOutDoesNothingMore()
{
    QFETCH(QString, act);
    m_base->exec(QStringList{"UPDATE lst_permis SET permission=1 WHERE id_g_prem=2 AND id_prem=10",
                             "INSERT INTO group_premission(id,name) VALUES(3,'Звільнені')",
                             "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(3,10,1),(3,40,1)"});
    QCOMPARE(toldAt("mt_shops"), QString());
    QVERIFY(action("add")->isVisible());
    m_base->execElsewhere(act);
    QVERIFY(toldAt("reload").startsWith("У вас більше немає доступу до бекофісу"));
    for (const char *name : {"add", "edit", "mt_shops", "changpass", "settings", "mt_tune"})
        QVERIFY2(!action(name)->isVisible(), name);
    QVERIFY(shown("labelConnection").startsWith("У вас більше немає доступу"));
    // The tab stays, without its commands.
    QCOMPARE(pages(), 1);
}

QTEST_MAIN(TstSession)
#include "tst_session.moc"
