#include "workplace.h"

#include "listpane.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtab.h"
#include "qtablebase.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTabWidget>

/// The host of the table tabs: what it opens and for whom, and the keys of its tabs.
class TstQTableBase : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void nothingOpensWhatTheMenuHides();
    void openedTabsTakeKeys();
    void stockIsNotEditedHere();
    void smallLists();
    void longAddressesWidenNothing();
    void rightsAreFollowed();
    void emptyListsNameConditionsOnlyWhereThereAreSome();

private:
    void allow(int permission, int value);
    QTab *front() const { return qobject_cast<QTab *>(m_tabs->currentWidget()); }
    QStringList shown() const;

    std::unique_ptr<Workplace> m_place;
    std::unique_ptr<QTabWidget> m_tabs;
    std::unique_ptr<QTableBase> m_host;
};

void TstQTableBase::initTestCase()
{
    m_place = std::make_unique<Workplace>();
    m_place->base.exec(
        {"INSERT INTO shops(id,address,group_shop,count_day_cycle,block) VALUES(10,'Львів',2,1,0),"
         "(11,'Київ',1,1,0)",
         "INSERT INTO kassa(id,id_shop,advertising_str) VALUES(20,10,'Каса 1'),(21,11,'Каса 1')",
         "INSERT INTO goods(id,name,group_g,type,tax,block) VALUES(7,'Молоко',1,1,1,0),"
         "(8,'Хліб',1,1,1,0)"});
}

void TstQTableBase::init()
{
    m_place->base.exec(
        {"DELETE FROM lst_group", "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,1),(1,2)"});
    m_tabs = std::make_unique<QTabWidget>();
    m_tabs->resize(1000, 500);
    for (const int id : {Permission::Shops, Permission::Kassa, Permission::Goods, Permission::GoodsShops})
        allow(id, Permission::Full);
    QVERIFY(showActive(m_tabs.get()));
}

void TstQTableBase::cleanup()
{
    m_tabs.reset();
    m_host.reset();
}

void TstQTableBase::allow(int permission, int value)
{
    while (m_tabs->count() > 0)
        delete m_tabs->widget(0);
    m_host.reset();
    m_place->logIn(permission, value);
    m_host = std::make_unique<QTableBase>(m_tabs.get(), m_place->connection(), m_place->settings(),
                                          m_place->user(), &m_place->base.heard);
}

QStringList TstQTableBase::shown() const
{
    QTab *tab = front();
    if (tab == nullptr || !QTest::qWaitFor([tab] { return !tab->isLoading(); }))
        qFatal("the search did not end");
    QStringList ids;
    for (int row = 0; row < tab->model()->rowCount(); ++row)
        ids.append(tab->model()->stored(row, 0));
    ids.sort();
    return ids;
}

void TstQTableBase::nothingOpensWhatTheMenuHides()
{
    allow(Permission::Kassa, Permission::Denied);
    m_host->shops();
    QCOMPARE(shown(), QStringList("10"));
    QNTableView *view = front()->view();
    const auto drag = [&view] {
        const QPoint from = view->visualRect(view->model()->index(0, 1)).center();
        QTest::mousePress(view->viewport(), Qt::LeftButton, {}, from);
        QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, from + QPoint(60, 0));
    };
    const QString refused = "У вас немає доступу до вкладки \"Обладнання\".";
    QCOMPARE(answerQuestion(drag), refused);
    QCOMPARE(answerQuestion([this] { m_host->kass(10); }), refused);
    QCOMPARE(m_tabs->count(), 1);
    allow(Permission::Kassa, 2);
    m_host->shops();
    QCOMPARE(shown(), QStringList("10"));
    view = front()->view();
    drag();
    QCOMPARE(m_tabs->count(), 2);
    QCOMPARE(shown(), QStringList("20"));
    m_host->kass();
    QCOMPARE(shown(), QStringList({"20", "21"}));
}

void TstQTableBase::openedTabsTakeKeys()
{
    m_host->Goods();
    QCOMPARE(shown(), QStringList({"7", "8"}));
    auto *search = child<QLineEdit>(front(), "leSearch");
    QCOMPARE(QApplication::focusWidget(), search);
    typeText("хл");
    QCOMPARE(shown(), QStringList("8"));
    pressKeys({Qt::Key_Escape});
    QVERIFY(search->text().isEmpty() && search->hasFocus());
    // Into the list before its rows have come.
    typeText("мол");
    pressKeys({Qt::Key_Return});
    QCOMPARE(QApplication::focusWidget(), front()->view());
    QCOMPARE(shown(), QStringList("7"));
    QCOMPARE(front()->view()->currentIndex().row(), 0);
    QString title;
    QVERIFY(withModal<QDialog>([] { pressKeys({Qt::Key_Return}); },
                               [&](QDialog *editor) { title = editor->windowTitle(); }));
    QCOMPARE(title, QString("Редагування запису №7"));
    m_tabs->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tabs.get()));
    pressKeys({Qt::CTRL + Qt::Key_F});
    QVERIFY(search->hasFocus());
    QCOMPARE(search->selectedText(), QString("мол"));
    m_host->shops();
    m_host->Goods();
    QVERIFY2(search->hasFocus(), "a tab that is open already gets the focus too");
}

/// Conditions are what somebody has set: not the rights, nor the boxes as they are at first.
void TstQTableBase::emptyListsNameConditionsOnlyWhereThereAreSome()
{
    const QString none = "Немає записів";
    const QString noneFound = "За цими умовами нічого не знайдено.";
    m_place->base.exec({"SET FOREIGN_KEY_CHECKS=0", "DELETE FROM goods", "DELETE FROM dk_shc",
                        "DELETE FROM goods_shop", "DELETE FROM shops", "DELETE FROM kassa",
                        "DELETE FROM clients", "SET FOREIGN_KEY_CHECKS=1"});
    for (const char *tab : {"mt_goods", "mt_goods_shops", "mt_shops", "mt_kass", "mt_clients"}) {
        openPage(m_tabs.get(), *m_place->user(), pageEntry(m_host->pages(), tab));
        QCOMPARE(shown(), QStringList());
        QVERIFY2(front()->view()->emptyText() == none, tab);
        auto *search = child<QLineEdit>(front(), "leSearch");
        search->setFocus();
        pressKeys({Qt::Key_7});
        QCOMPARE(shown(), QStringList());
        QVERIFY2(front()->view()->emptyText() == noneFound, tab);
        QVERIFY2(front()->list()->heading().constLast().endsWith(": 7"), tab);
        pressKeys({Qt::Key_Escape});
        QCOMPARE(shown(), QStringList());
        QVERIFY2(front()->view()->emptyText() == none, tab);
    }
    m_host->Goods();
    QCOMPARE(front()->list()->heading(), QStringList("Товари"));
    child<QCheckBox>(front(), "chByCode")->click();
    QCOMPARE(shown(), QStringList());
    QCOMPARE(front()->view()->emptyText(), none);
}

void TstQTableBase::stockIsNotEditedHere()
{
    QSignalSpy visible(m_host.get(), qOverload<bool, bool>(&QTableBase::visible));
    m_host->GoodsShops();
    QVERIFY(m_host->ChangeTab(m_tabs->currentIndex()));
    QCOMPARE(visible.last(), QVariantList({true, false}));
    const Commands offered = front()->commands();
    QVERIFY(offered.value(Command::Edit).contains("\"Продається в магазинах\""));
    QVERIFY(offered.contains(Command::Export) && offered.value(Command::Export).isEmpty());
    m_host->Goods();
    QCOMPARE(front()->commands().value(Command::Edit, "немає"), QString());
    bool isDeleted = true;
    QCOMPARE(answerQuestion([&] { isDeleted = m_host->DelRecord(); }), QString("Видалення заборонене!!!"));
    QVERIFY(!isDeleted);
    // Promotions are the exception: it asks there which one.
    m_host->Action();
    QVERIFY(answerQuestion([&] { isDeleted = m_host->DelRecord(); }).startsWith("Виберіть у списку акцію"));
    QVERIFY(isDeleted);
}

void TstQTableBase::smallLists()
{
    const struct
    {
        void (QTableBase::*open)();
        int permission;
        const char *title;
        int rows;
        bool isEdited;
    } lists[] = {{&QTableBase::GroupGoods, Permission::GroupGoods, "Групи товарів", 1, true},
                 {&QTableBase::TypeTransaction, Permission::TypeTransactions, "Типи транзакцій", 10, false},
                 {&QTableBase::SlujbOp, Permission::SlujbOp, "Службові операції", 2, true},
                 {&QTableBase::Day_Update, Permission::DayUpdate, "Дні оновлення", 7, true},
                 {&QTableBase::Tax, Permission::Tax, "Податкові групи", 5, true}};
    for (const auto &list : lists)
        allow(list.permission, Permission::Full);
    for (const auto &list : lists) {
        (m_host.get()->*list.open)();
        (m_host.get()->*list.open)();
        QCOMPARE(m_tabs->tabText(m_tabs->currentIndex()), QString(list.title));
        QCOMPARE(shown().size(), list.rows);
        QCOMPARE(front()->isOffered(Command::Edit), list.isEdited);
        QCOMPARE(answerQuestion([this] { QVERIFY(!m_host->DelRecord()); }),
                 QString("Видалення заборонене!!!"));
        QCOMPARE(shown().size(), list.rows);
    }
    QCOMPARE(m_tabs->count(), 5);
}

void TstQTableBase::longAddressesWidenNothing()
{
    m_host->shops();
    m_host->kass();
    m_host->GoodsShops();
    const int before = m_tabs->minimumSizeHint().width();
    m_place->base.exec("UPDATE shops SET address=CONCAT(id,REPEAT('Дуже довга адреса ',8))");
    m_host->closetab(0);
    m_host->closetab(0);
    m_host->closetab(0);
    m_host->shops();
    m_host->kass();
    m_host->GoodsShops();
    QCOMPARE(m_tabs->minimumSizeHint().width(), before);
    auto *box = child<QComboBox>(front(), "cbShop");
    waitOutTasks();
    QVERIFY(box->width() < 400);
    QTest::keyClick(box, Qt::Key_F4);
    QVERIFY2(box->view()->width() > box->width(), "the list opens wide");
    box->hidePopup();
    m_place->base.exec("UPDATE shops SET address=ELT(id-9,'Львів','Київ')");
}

void TstQTableBase::rightsAreFollowed()
{
    m_host->kass();
    QCOMPARE(shown(), QStringList({"20", "21"}));
    auto *group = child<QComboBox>(front(), "cbGroup");
    auto *shop = child<QComboBox>(front(), "cbShop");
    QTRY_COMPARE(shop->count(), 3);
    shop->setCurrentIndex(shop->findText("Київ"));
    QCOMPARE(shown(), QStringList("21"));
    m_place->base.exec("DELETE FROM lst_group WHERE id_g_prem=1 AND id_group=2");
    QVERIFY(m_place->user()->reload(m_place->connection()));
    QTRY_COMPARE(group->count(), 2);
    QTRY_COMPARE(shop->count(), 2);
    QCOMPARE(shop->currentText(), QString("Київ"));
    QCOMPARE(shown(), QStringList("21"));
    m_place->base.exec("DELETE FROM lst_group WHERE id_g_prem=1");
    QVERIFY(m_place->user()->reload(m_place->connection()));
    QCOMPARE(shown(), QStringList());
}

QTEST_MAIN(TstQTableBase)
#include "tst_qtablebase.moc"
