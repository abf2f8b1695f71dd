#include "testing.h"

#include "combos.h"
#include "qchekedcombobox.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtab.h"
#include "qtabdelegate.h"
#include "typingpause.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSettings>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QVBoxLayout>

namespace {
/// A list of names that is edited in place, like the groups and the days.
class NamesTab : public QTab
{
    Q_OBJECT

public:
    NamesTab(FreshDatabase *base, QLoadedUser *user)
        : QTab(base->connection(), user, &base->heard, nullptr, nullptr,
               new QTabDelegate("day_update", base->connection(), &base->heard), new QVBoxLayout)
    {
        table = "day_update";
        query = "SELECT id,name FROM day_update";
        setColumns({{"Код", 6, &asNumber}, {"Назва", 38}});
        setPermission(Permission::DayUpdate);
        resize(500, 400);
        show();
    }

    using QTab::search;
    using QTab::setColumns;
    using QTab::setSearchField;
    void readFrom(const QString &statement) { query = statement; }
};
} // namespace

/// The tab base with its grid, inline editor and searches, and the shared widgets.
class TstFrame : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void groupCondition_data();
    void groupCondition();
    void groupList();
    void shopList();
    void columnLength();
    void captionsWithoutWidth();

    void limitsBelowOneMeanNone();
    void failedLoadEmptiesTheGrid();
    void newestSearchWins();
    void searchWaitsForTheEndOfTyping();
    void failedSearchIsReported();
    void oneRowIsRefreshed();
    void addedRowIsAppended();
    void vanishedRecordIsTold();
    void orderOutlivesAReload();

    void widthsOutliveTheTab();
    void mainColumnTakesTheFreeWidth();

    void rightClickAndDrag();
    void allItemFollowsAndLeads();
    void comboIsCheckedByMouseAndKeys();

private:
    void open(int right = Permission::Full);
    void loadUser();
    QStringList shown(int column = 1);

    QTemporaryDir m_home;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<NamesTab> m_tab;
};

void TstFrame::initTestCase()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_home.path());
    m_base = std::make_unique<FreshDatabase>();
}

void TstFrame::init()
{
    m_base->exec({"DELETE FROM kassa", "DELETE FROM shops", "DELETE FROM lst_group",
                  "DELETE FROM group_shop WHERE id>1", "DELETE FROM day_update",
                  "INSERT INTO day_update(id,name) VALUES(1,'Понеділок'),(2,'Вівторок'),(10,'Середа')",
                  "INSERT INTO lst_group VALUES(1,1)"});
    loadUser();
    m_base->heard.forget();
}

void TstFrame::cleanup()
{
    m_tab.reset();
    m_user.reset();
}

void TstFrame::loadUser()
{
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
}

void TstFrame::open(int right)
{
    m_base->exec(QString("UPDATE lst_permis SET permission=%1 WHERE id_g_prem=1 AND id_prem=22").arg(right));
    loadUser();
    m_tab = std::make_unique<NamesTab>(m_base.get(), m_user.get());
    m_tab->ShowData();
    shown();
    m_base->heard.forget();
}

QStringList TstFrame::shown(int column)
{
    if (!QTest::qWaitFor([this] { return !m_tab->isLoading(); }))
        qFatal("the search did not end");
    QStringList texts;
    for (int row = 0; row < m_tab->model()->rowCount(); ++row)
        texts.append(m_tab->model()->index(row, column).data().toString());
    return texts;
}

void TstFrame::groupCondition_data()
{
    QTest::addColumn<QStringList>("groups");
    QTest::addColumn<bool>("withDefault");
    QTest::addColumn<QString>("condition");
    QTest::newRow("none") << QStringList() << true << " group_shop=''";
    QTest::newRow("none, no default") << QStringList() << false << " group_shop=''";
    QTest::newRow("one") << QStringList{"1"} << true << " ( group_shop=1 )";
    QTest::newRow("two") << QStringList{"1", "3"} << true << " ( group_shop=3 OR group_shop=1 )";
    QTest::newRow("two, no default") << QStringList{"1", "3"} << false
                                     << " ( group_shop=3 OR group_shop=1 ) AND group_shop<>1";
}

void TstFrame::groupCondition()
{
    QFETCH(QStringList, groups);
    QFETCH(bool, withDefault);
    m_base->exec("DELETE FROM lst_group");
    for (const QString &group : groups)
        m_base->exec({"INSERT IGNORE INTO group_shop(id,name) VALUES(" + group + ",'Група " + group + "')",
                      "INSERT INTO lst_group VALUES(1," + group + ")"});
    loadUser();
    QTEST(QTab::GetStrLstGroupFromPermis(m_user.get(), "group_shop", withDefault), "condition");
}

void TstFrame::groupList()
{
    m_base->exec({"INSERT INTO group_shop(id,name) VALUES(2,'Захід'),(3,'Чужа')",
                  "INSERT INTO lst_group VALUES(1,2)"});
    loadUser();
    const auto list = [this](bool withDefault, QComboBox *box) {
        QStringList found = QTab::GetLstGroupShopFromPermis(m_base->connection(), m_user.get(),
                                                            &m_base->heard, withDefault, box);
        found.sort();
        return found;
    };
    QCOMPARE(list(true, nullptr), QStringList({"default", "Захід"}));
    QCOMPARE(list(false, nullptr), QStringList({"Захід"}));
    QComboBox box;
    list(false, &box);
    QCOMPARE(box.count(), 1);
    QCOMPARE(box.itemData(0).toUInt(), 2U);
    m_base->killConnection();
    m_base->exec("RENAME TABLE group_shop TO away");
    QCOMPARE(list(true, nullptr), QStringList());
    m_base->exec("RENAME TABLE away TO group_shop");
    QVERIFY(m_base->heard.has("Помилка запиту:", QMessEvent::Critical));
}

void TstFrame::shopList()
{
    m_base->exec({"INSERT INTO group_shop(id,name) VALUES(2,'Захід'),(3,'Чужа')",
                  "INSERT INTO lst_group VALUES(1,2)",
                  "INSERT INTO shops(id,address,group_shop,block) VALUES(5,'Б',2,0),(6,'А',2,1),(7,'В',3,0)",
                  "INSERT INTO kassa(id_shop,advertising_str) VALUES(5,'1'),(5,'2'),(6,'1'),(5,'3')"});
    const auto list = [this](const QString &idShop, const QString &extra, QComboBox *box) {
        if (!m_user->load(m_base->connection(), "1", "1", idShop))
            qFatal("rights");
        return QTab::GetLstShopFromPermis(m_base->connection(), m_user.get(), &m_base->heard, extra, box);
    };
    QCOMPARE(list("", " ORDER BY shops.address", nullptr), QStringList({"А", "Б"}));
    QCOMPARE(list("7", " ORDER BY shops.address", nullptr), QStringList({"А", "Б", "В"}));
    QCOMPARE(list("7", " AND shops.block=1", nullptr), QStringList({"А"}));
    QComboBox box;
    list("7", " ORDER BY shops.id", &box);
    QCOMPARE(box.count(), 3);
    QCOMPARE(box.itemData(2).toUInt(), 7U);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstFrame::columnLength()
{
    const FreshDatabase other(FreshDatabase::Empty);
    QSqlQuery(QSqlDatabase(*m_base->connection()))
        .exec("CREATE TABLE " + other.address().name + ".shops (address CHAR(7))");
    const auto length = [this](const QString &table, const QString &column) {
        return QTab::GetMaxChar(m_base->connection(), &m_base->heard, table, column);
    };
    QCOMPARE(length("shops", "address"), 150);
    QCOMPARE(length("kassa", "cashdrive_code"), 3);
    QCOMPARE(length("shops", "it's"), 0);
    QVERIFY(m_base->heard.has("QTab::GetMaxChar not found data", QMessEvent::Debug));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstFrame::captionsWithoutWidth()
{
    open();
    QStandardItemModel model;
    QTableView view;
    view.setModel(&model);
    QTab::InsertColumns(nullptr, {10}, &model, &view);
    QCOMPARE(model.columnCount(), 0);
    const QStringList captions = {"Код", "Назва"};
    QTab::InsertColumns(&captions, {70}, &model, &view);
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QString("Назва"));
    QCOMPARE(view.columnWidth(0), 70);
    QCOMPARE(view.columnWidth(1), view.fontMetrics().horizontalAdvance("Назва") + 40);
}

void TstFrame::limitsBelowOneMeanNone()
{
    open();
    m_tab->ShowData(2);
    QCOMPARE(shown().size(), 2);
    m_tab->ShowData(0);
    QCOMPARE(shown().size(), 3);
    m_tab->ShowData(-1);
    QCOMPARE(shown().size(), 3);
    QVERIFY(
        m_base->heard.has("In QTab::ShowData.\nName table: day_update\nquery: SELECT", QMessEvent::Debug));
}

void TstFrame::failedLoadEmptiesTheGrid()
{
    open();
    m_tab->readFrom("SELECT nothing FROM day_update");
    m_tab->ShowData();
    QCOMPARE(shown().size(), 0);
    QVERIFY(m_base->heard.has("Помилка запиту.\n", QMessEvent::Critical));
    QVERIFY(m_base->heard.has("SELECT nothing FROM day_update", QMessEvent::Critical));
    QVERIFY(!m_tab->view()->emptyText().isEmpty());
    m_tab->readFrom("SELECT id,name FROM day_update");
    m_base->exec("DELETE FROM day_update");
    m_tab->ShowData();
    QCOMPARE(shown().size(), 0);
    QCOMPARE(m_tab->view()->emptyText(), QString("Немає записів"));
}

void TstFrame::newestSearchWins()
{
    open();
    QSignalSpy loaded(m_tab.get(), &QTab::loaded);
    QElapsedTimer clock;
    clock.start();
    m_tab->search(" WHERE id=1 AND SLEEP(30)=0");
    QTest::qWait(100);
    QVERIFY(m_tab->isLoading());
    m_tab->search(" WHERE id=2");
    m_tab->search(" WHERE id=10");
    QCOMPARE(shown(), QStringList{"Середа"});
    QVERIFY2(clock.elapsed() < 10000, "the search before was waited for");
    QCOMPARE(loaded.count(), 1);
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 1"));
    m_tab->search(" WHERE id=2");
    m_tab->ShowData();
    QCOMPARE(shown(), QStringList{"Вівторок"});
    m_tab->search(" WHERE id=3");
    QCOMPARE(shown(), QStringList());
    m_tab->search(" WHERE id=1 AND SLEEP(30)=0");
    QTest::qWait(50);
    m_tab.reset();
    QVERIFY2(clock.elapsed() < 10000, "closing the tab waited for a search");
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstFrame::searchWaitsForTheEndOfTyping()
{
    open();
    QLineEdit field(m_tab.get());
    field.show();
    QStringList searched;
    m_tab->setSearchField(&field, [&](const QString &text) {
        searched.append(text);
        m_tab->search(text.isEmpty() ? "" : " WHERE id=10");
    });
    QVERIFY(QTest::qWaitForWindowActive(m_tab.get()));
    field.setFocus();
    scan("4820000000017");
    QCOMPARE(searched, QStringList("4820000000017"));
    QCOMPARE(shown(), QStringList("Середа"));
    QVERIFY(m_tab->view()->hasFocus() && m_tab->view()->currentIndex().row() == 0);
    field.setFocus();
    pressKeys({Qt::Key_Escape});
    typeText("се");
    QVERIFY2(m_tab->isLoading() && searched.size() == 1, "the second letter comes within the pause");
    QCOMPARE(shown(), QStringList("Середа"));
    QCOMPARE(searched.mid(1), QStringList("се"));
    typeText("р");
    pressKeys({Qt::Key_Tab});
    QCOMPARE(searched.last(), QString("сер"));
    // What another filter asks for has the text already.
    field.setFocus();
    typeText("!");
    m_tab->search("");
    QCOMPARE(shown().size(), 3);
    QTest::qWait(2 * TypingPause::length.count());
    QCOMPARE(searched.last(), QString("сер"));
    pressKeys({Qt::Key_Tab});
    QCOMPARE(searched.size(), 3);
}

void TstFrame::failedSearchIsReported()
{
    open();
    m_tab->search(" WHERE nothing=1");
    QCOMPARE(shown(), QStringList());
    QVERIFY(m_base->heard.has("Помилка запиту:\n", QMessEvent::Critical));
    QVERIFY(m_base->heard.has("WHERE nothing=1", QMessEvent::Critical));
    m_tab->search(" WHERE id<3");
    QCOMPARE(shown().size(), 2);
}

void TstFrame::oneRowIsRefreshed()
{
    open();
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    m_base->exec("UPDATE day_update SET name=CONCAT(name,'!')");
    m_tab->editadd("WHERE id=2", m_tab->model()->index(1, 0), false);
    QCOMPARE(shown(), QStringList({"Понеділок", "Вівторок!", "Середа"}));
    QVERIFY(m_base->heard.has("Оновлення одного запису id=WHERE id=2", QMessEvent::Debug));
    m_base->exec("UPDATE day_update SET id=77 WHERE id=10");
    m_tab->editadd("WHERE id=77", m_tab->model()->index(2, 0), false);
    // While it is read, another order puts its row elsewhere.
    m_tab->view()->sortByColumn(0, Qt::DescendingOrder);
    QCOMPARE(shown(), QStringList({"Середа!", "Вівторок!", "Понеділок"}));
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QCOMPARE(shown(0), QStringList({"1", "2", "10"}));
    m_tab->editadd("", QModelIndex(), true, 1);
    QCOMPARE(shown().size(), 1);
    QVERIFY(m_base->heard.has("Повне оновлення таблиці", QMessEvent::Debug));
}

void TstFrame::addedRowIsAppended()
{
    open();
    m_base->exec("INSERT INTO day_update(id,name) VALUES(5,'А')");
    m_tab->editadd("WHERE id=5", QModelIndex(), false);
    QCOMPARE(shown().last(), QString("А"));
    QCOMPARE(shown(0).last(), QString("5"));
    QCOMPARE(m_tab->view()->currentIndex().row(), 3);
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 4"));
}

void TstFrame::vanishedRecordIsTold()
{
    open();
    m_tab->editadd("WHERE id=5", QModelIndex(), false);
    QCOMPARE(shown().size(), 3);
    QVERIFY(m_base->heard.has("Запис не знайдено в базі!"));
    m_tab->editadd("WHERE nothing=5", m_tab->model()->index(0, 0), false);
    shown();
    QVERIFY(m_base->heard.has("Помилка при зчитуванні запису.", QMessEvent::Critical));
}

void TstFrame::orderOutlivesAReload()
{
    open();
    m_tab->view()->sortByColumn(0, Qt::DescendingOrder);
    QCOMPARE(shown(0), QStringList({"10", "2", "1"}));
    m_tab->ShowData();
    QCOMPARE(shown(0), QStringList({"10", "2", "1"}));
    m_tab->search(" WHERE id<>2");
    QCOMPARE(shown(0), QStringList({"10", "1"}));
}

void TstFrame::widthsOutliveTheTab()
{
    open();
    m_tab->view()->setColumnWidth(0, 417);
    m_tab.reset();
    {
        // Another list must not take over these widths.
        QTab plain(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr, nullptr,
                   new QVBoxLayout);
        plain.model()->setColumns({{"Код"}, {"Назва"}});
    }
    open();
    QCOMPARE(m_tab->view()->columnWidth(0), 417);
}

void TstFrame::mainColumnTakesTheFreeWidth()
{
    open();
    QNTableView *view = m_tab->view();
    m_tab->resize(1300, 300);
    m_tab->show();
    const auto total = [view] { return view->horizontalHeader()->length(); };
    QTRY_COMPARE(total(), view->viewport()->width());
    const int wide = view->columnWidth(1);
    m_tab->resize(1100, 300);
    QTRY_COMPARE(total(), view->viewport()->width());
    QCOMPARE(view->columnWidth(1), wide - 200);
    m_tab->resize(120, 300);
    QTRY_VERIFY(total() > view->viewport()->width());
    const int other = view->columnWidth(0);
    view->setColumnWidth(0, other + 30);
    QVERIFY2(view->columnWidth(0) == other + 30, "a border that was dragged stays");
}

void TstFrame::rightClickAndDrag()
{
    open();
    QNTableView *view = m_tab->view();
    QSignalSpy clicked(view, &QNTableView::RClicked);
    QSignalSpy moved(view, &QNTableView::LMoveMouseInRow);
    const int second = view->rowViewportPosition(1) + 5;
    QTest::mouseClick(view->viewport(), Qt::RightButton, {}, {100, second});
    QTest::mouseClick(view->viewport(), Qt::RightButton, {}, {100, 300});
    QCOMPARE(clicked.count(), 2);
    QCOMPARE(clicked.at(0).at(0).toModelIndex().row(), 1);
    QVERIFY(!clicked.at(1).at(0).toModelIndex().isValid());
    const auto drag = [view](const QPoint &from, const QPoint &to) {
        QTest::mousePress(view->viewport(), Qt::LeftButton, {}, from);
        QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, to);
    };
    drag({100, second}, {100, second});
    drag({100, second}, {200, 5});
    drag({100, 300}, {200, 300});
    QCOMPARE(moved.count(), 0);
    drag({30, second}, {100, second});
    drag({100, second}, {30, second});
    QCOMPARE(moved.count(), 2);
    QCOMPARE(moved.at(0).at(0).toInt(), 70);
    QCOMPARE(moved.at(1).at(0).toInt(), -70);
    QCOMPARE(moved.at(0).at(1).toModelIndex().row(), 1);
    // The right button in the middle takes a drag back and starts nothing.
    QTest::mousePress(view->viewport(), Qt::LeftButton, {}, {30, second});
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(60, second), Qt::RightButton,
                      Qt::LeftButton | Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(view->viewport(), &press);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, {200, second});
    QCOMPARE(clicked.count(), 2);
    QCOMPARE(moved.count(), 2);
}

void TstFrame::allItemFollowsAndLeads()
{
    QChekedComboBox box;
    box.addItem("Усі", 0);
    box.addItem("Перший", 1);
    box.addItem("Другий", 2);
    box.resize(600, 30);
    QSignalSpy changed(&box, &QChekedComboBox::checkedChanged);
    QVERIFY(!box.isAllSelect());
    box.setChekedItem(1, Qt::Checked);
    QVERIFY(!box.isAllSelect());
    QCOMPARE(box.listTexts(), QStringList{"Перший"});
    box.setChekedItem(2, Qt::Checked);
    QVERIFY(box.isAllSelect());
    QCOMPARE(box.listData(Qt::UserRole), QVariantList({0, 1, 2}));
    box.setChekedItem(1, Qt::Unchecked);
    QVERIFY(!box.isAllSelect());
    QCOMPARE(box.listTexts(), QStringList{"Другий"});
    box.setChekedItem(0, Qt::Checked);
    QCOMPARE(box.listTexts(), QStringList({"Усі", "Перший", "Другий"}));
    QCOMPARE(box.displayText(), QString("Усі, Перший, Другий"));
    box.setChekedItem(0, Qt::Unchecked);
    QCOMPARE(box.listTexts(), QStringList());
    QCOMPARE(changed.count(), 5);
    box.setChekedItem(0, Qt::Checked);
    box.resize(60, 30);
    box.show();
    QTRY_VERIFY(box.displayText().size() < 10);
}

/// The list of a check box combo, by mouse and keys as people use it.
void TstFrame::comboIsCheckedByMouseAndKeys()
{
    QWidget window;
    QChekedComboBox box(&window);
    box.addItem("Усі", 0);
    for (const char *name : {"Хліб", "Молоко", "Риба"})
        box.addItem(name, box.count());
    box.resize(300, 30);
    window.resize(400, 300);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QTest::mouseClick(&box, Qt::LeftButton);
    QTRY_VERIFY(box.view()->isVisible());
    const auto click = [&box](int row) {
        const QRect place = box.view()->visualRect(box.model()->index(row, 0));
        QTest::mouseClick(box.view()->viewport(), Qt::LeftButton, {}, place.center());
    };
    click(1);
    QCOMPARE(box.listTexts(), QStringList{"Хліб"});
    QVERIFY2(box.view()->isVisible(), "the list stays open");
    click(3);
    click(1);
    QCOMPARE(box.listTexts(), QStringList{"Риба"});
    click(0);
    QCOMPARE(box.listTexts(), QStringList({"Усі", "Хліб", "Молоко", "Риба"}));
    // Pressed on one item, released on another: neither.
    const auto centre = [&box](int row) {
        return box.view()->visualRect(box.model()->index(row, 0)).center();
    };
    QTest::mousePress(box.view()->viewport(), Qt::LeftButton, {}, centre(1));
    QTest::mouseRelease(box.view()->viewport(), Qt::LeftButton, {}, centre(2));
    QCOMPARE(box.listTexts().size(), 4);
    box.view()->setCurrentIndex(box.model()->index(0, 0));
    pressKeys({Qt::Key_Space, Qt::Key_Down, Qt::Key_Down, Qt::Key_Space});
    QCOMPARE(box.listTexts(), QStringList{"Молоко"});
    QVERIFY(box.view()->isVisible());
    pressKeys({Qt::Key_Escape});
    QTRY_VERIFY(!box.view()->isVisible());
    QCOMPARE(box.listTexts(), QStringList{"Молоко"});
    QCOMPARE(box.displayText(), QString("Молоко"));
    // Kept narrow it still paints what is checked, not its first item.
    keepNarrow(&box, 20);
    const QImage milk = box.grab().toImage();
    box.setChekedItem(2, Qt::Unchecked);
    QVERIFY(box.grab().toImage() != milk);
}

QTEST_MAIN(TstFrame)
#include "tst_frame.moc"
