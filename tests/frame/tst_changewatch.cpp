#include "tcpproxy.h"
#include "testing.h"

#include "changewatch.h"
#include "listpane.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QVBoxLayout>
#include <atomic>

namespace {
const char *const goods = "SELECT goods.id,goods.name,tax.name FROM goods LEFT JOIN tax ON goods.tax=tax.id";
const std::chrono::milliseconds pause{30};

/// A list among other pages.
class Page : public QWidget
{
public:
    Page(QSqlDatabase *db, const QLoadedUser *user, QObject *heard) : list(new ListPane(this))
    {
        (new QVBoxLayout(this))->addWidget(list);
        list->open(db, user, heard);
        list->setColumns({{"Код", 6, &asNumber}, {"Назва", 20}, {"Податок", 9}}, "watched");
        watch = new ChangeWatch(list, db->connectionName(), heard, this);
    }

    ListPane *list;
    ChangeWatch *watch;
};
} // namespace

/// What others write while somebody looks at a list.
class TstChangeWatch : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void othersAreTold_data();
    void othersAreTold();
    void theBarCoversNoCurrentRow();
    void ownSavesAreNoNews();
    void theSecondOfALoad();
    void nobodyLooks();
    void silentServer();
    void refusalIsToldOnce();

private:
    void open(QSqlDatabase *db);
    void load();
    void stampElsewhere(const QString &table, int secondsLater = 0);
    bool stampShown(const QString &table);
    bool isTold() { return child<QFrame>(m_page, "changeBar")->isVisible(); }
    /// The tracker was asked so often since then.
    bool waitForQuestions(int count);

    QTemporaryDir m_home;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QTabWidget> m_tabs;
    Page *m_page = nullptr;
    std::atomic<int> m_asked{0};
};

void TstChangeWatch::initTestCase()
{
    ChangeWatch::setPause(pause);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_home.path());
    m_base = std::make_unique<FreshDatabase>();
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
}

void TstChangeWatch::init()
{
    m_base->exec({"DELETE FROM goods", "INSERT INTO goods(id,name,tax) VALUES(1,'Хліб',1),(2,'Сіль',1)",
                  "UPDATE updat SET updat='2020-01-01'"});
    m_base->heard.forget();
    Db::setStatementHook(
        [this](const QString &sql) { m_asked += sql.startsWith("SELECT name,updat") ? 1 : 0; });
    open(m_base->connection());
}

void TstChangeWatch::cleanup()
{
    m_tabs.reset();
    waitOutTasks();
    Db::setStatementHook(nullptr);
}

void TstChangeWatch::open(QSqlDatabase *db)
{
    m_tabs = std::make_unique<QTabWidget>();
    m_page = new Page(db, m_user.get(), &m_base->heard);
    m_tabs->addTab(m_page, "Товари");
    m_tabs->addTab(new QWidget, "Інше");
    m_tabs->resize(600, 300);
    QVERIFY(showActive(m_tabs.get()));
    load();
}

void TstChangeWatch::load()
{
    QSignalSpy loaded(m_page->list, &ListPane::loaded);
    m_page->list->load(goods);
    QTRY_COMPARE(loaded.count(), 1);
    waitOutTasks();
}

/// As another program does it.
void TstChangeWatch::stampElsewhere(const QString &table, int secondsLater)
{
    m_base->exec(QString("UPDATE updat SET updat=NOW()+INTERVAL %1 SECOND WHERE name='%2'")
                     .arg(secondsLater)
                     .arg(table));
}

bool TstChangeWatch::stampShown(const QString &table)
{
    return QUpdateBD().updateShown({table}, *m_base->connection(), &m_base->heard);
}

bool TstChangeWatch::waitForQuestions(int count)
{
    m_asked = 0;
    const bool isAsked = QTest::qWaitFor([this, count] { return m_asked >= count; });
    waitOutTasks();
    return isAsked;
}

void TstChangeWatch::othersAreTold_data()
{
    QTest::addColumn<QString>("table");
    QTest::addColumn<bool>("told");
    QTest::newRow("its table") << "goods" << true;
    QTest::newRow("a table that it joins") << "tax" << true;
    QTest::newRow("another table") << "shops" << false;
}

void TstChangeWatch::othersAreTold()
{
    QFETCH(QString, table);
    QFETCH(bool, told);
    QVERIFY(waitForQuestions(2) && !isTold());
    m_page->list->view()->setCurrentIndex(m_page->list->model()->index(1, 1));
    m_base->exec("INSERT INTO goods(id,name,tax) VALUES(3,'Нове',1)");
    stampElsewhere(table, -1);
    if (!told) {
        QVERIFY(waitForQuestions(2) && !isTold());
        return;
    }
    QTRY_VERIFY(isTold());
    QCOMPARE(m_page->list->model()->rowCount(), 2);
    QCOMPARE(m_page->list->view()->currentIndex().row(), 1);
    const int asked = m_asked;
    QTest::qWait(5 * static_cast<int>(pause.count()));
    QVERIFY2(m_asked == asked, "there is nothing more to ask");
    QSignalSpy wanted(m_page->watch, &ChangeWatch::reloadWanted);
    auto *button = child<QPushButton>(m_page, "pbReload");
    QVERIFY(button->isVisible() && button->text().remove('&') == "Оновити");
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(wanted.count(), 1);
    load();
    QVERIFY(!isTold() && m_page->list->model()->rowCount() == 3);
}

void TstChangeWatch::theBarCoversNoCurrentRow()
{
    m_base->exec("INSERT INTO goods(id,name,tax) SELECT seq,'Ще',1 FROM seq_3_to_99");
    load();
    QNTableView *view = m_page->list->view();
    view->setCurrentIndex(m_page->list->model()->index(view->rowAt(view->viewport()->height() - 1), 1));
    view->scrollTo(view->currentIndex());
    QVERIFY(waitForQuestions(1));
    stampElsewhere("goods", -1);
    QTRY_VERIFY(isTold());
    QVERIFY(view->viewport()->rect().contains(view->visualRect(view->currentIndex())));
}

void TstChangeWatch::ownSavesAreNoNews()
{
    QVERIFY(stampShown("goods") && stampShown("tax"));
    QVERIFY(waitForQuestions(2) && !isTold());
    QVERIFY(stampShown("goods"));
    QVERIFY(waitForQuestions(2) && !isTold());
    // Somebody else between two of them: the last stamp is ours.
    stampElsewhere("goods", 5);
    QVERIFY(stampShown("goods"));
    QTRY_VERIFY(isTold());
    load();
    QVERIFY(stampShown("goods"));
    QVERIFY(waitForQuestions(2) && !isTold());
    // What this program writes and no list of it shows is news to them.
    m_base->exec("UPDATE updat SET updat='2020-01-01'");
    load();
    QVERIFY(QUpdateBD().update("goods", *m_base->connection(), &m_base->heard));
    QTRY_VERIFY(isTold());
}

/// Who writes once more in the second of a load leaves the same stamp. Whoever reloads what was written here
/// is not told.
void TstChangeWatch::theSecondOfALoad()
{
    const auto loadAtOnce = [this](const std::function<void()> &stamp) {
        for (int i = 0; i < 20; ++i) {
            stamp();
            load();
            for (const TableTime &time : m_page->list->readTimes()) {
                if (time.table == "goods" && time.isOfThisSecond)
                    return true;
            }
        }
        return false;
    };
    QVERIFY(
        loadAtOnce([this] { QVERIFY(QUpdateBD().update("goods", *m_base->connection(), &m_base->heard)); }));
    QVERIFY(waitForQuestions(2) && !isTold());
    QTest::qWait(1000);
    QVERIFY(loadAtOnce([this] { stampElsewhere("goods"); }));
    QTRY_VERIFY(isTold());
    // By then the second is over.
    QTest::qWait(1000);
    load();
    QVERIFY(waitForQuestions(2) && !isTold());
}

void TstChangeWatch::nobodyLooks()
{
    QVERIFY(waitForQuestions(1));
    m_tabs->setCurrentIndex(1);
    waitOutTasks();
    m_asked = 0;
    stampElsewhere("goods");
    QTest::qWait(10 * static_cast<int>(pause.count()));
    QCOMPARE(m_asked.load(), 0);
    m_tabs->showMinimized();
    m_tabs->setCurrentIndex(0);
    QTest::qWait(10 * static_cast<int>(pause.count()));
    QCOMPARE(m_asked.load(), 0);
    QVERIFY(!isTold());
    m_tabs->showNormal();
    QTRY_VERIFY(isTold());
    // Nor while the list is on its way.
    m_page->list->load(QString(goods) + " WHERE SLEEP(0.3)=0");
    m_asked = 0;
    QTest::qWait(5 * static_cast<int>(pause.count()));
    QCOMPARE(m_asked.load(), 0);
    m_page->list->stop();
}

void TstChangeWatch::silentServer()
{
    TcpProxy proxy(testServer());
    DatabaseAddress address = proxy.address();
    address.name = m_base->address().name;
    address.readSeconds = 1;
    {
        QSqlDatabase window = addConnection("watched", address);
        QVERIFY(window.open());
        open(&window);
        QVERIFY(waitForQuestions(1));
        m_base->heard.forget();
        proxy.setSilent(true);
        m_asked = 0;
        QTest::qWait(700);
        QVERIFY2(m_asked <= 1, "questions pile up");
        QTest::qWait(2000);
        QVERIFY2(m_base->heard.texts(QMessEvent::Warning).size() <= 1,
                 qPrintable(m_base->heard.texts(QMessEvent::Warning).join('\n')));
        QVERIFY(m_asked <= 1);
        QVERIFY(!isTold());
        stampElsewhere("goods");
        proxy.setSilent(false);
        QTRY_VERIFY_WITH_TIMEOUT(isTold(), 20000);
        waitOutLoss(window);
        m_tabs.reset();
        waitOutTasks();
    }
    QSqlDatabase::removeDatabase("watched");
}

void TstChangeWatch::refusalIsToldOnce()
{
    QVERIFY(waitForQuestions(1));
    Db::setStatementRefusal(
        [](const QString &sql) { return sql.startsWith("SELECT name,updat") ? 1142 : 0; });
    QTest::qWait(10 * static_cast<int>(pause.count()));
    waitOutTasks();
    Db::setStatementRefusal({});
    QCOMPARE(m_base->heard.texts().size(), 1);
    QVERIFY(m_base->heard.has("Помилка запиту на здійснене оновленя таблиці."));
    load();
    QVERIFY(waitForQuestions(1));
}

QTEST_MAIN(TstChangeWatch)
#include "tst_changewatch.moc"
