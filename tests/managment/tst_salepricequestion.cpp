#include "salepricequestion.h"

#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qregistersale.h"
#include "qwhyprice.h"
#include "saleshop.h"

#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableWidget>

/// "Чому така ціна" where goods are sold: which item is meant, and what becomes of scans meanwhile.
class TstSalePriceQuestion : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void whatTheHandWasAt();
    void rightBehindAScan();
    void byTheMenus();
    void asTheTabSells();

private:
    static QWhyPrice *window();
    /// What is asked about, and what it costs. Closes the window.
    QString answer();

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QRegisterSale> m_tab;
    std::unique_ptr<ClockAt> m_clock;
    QLineEdit *m_search = nullptr;
    QNTableView *m_goods = nullptr;
    QNTableView *m_chek = nullptr;
};

void TstSalePriceQuestion::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec(QStringLiteral("UPDATE users SET id_shop=1 WHERE id=1"));
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
}

void TstSalePriceQuestion::init()
{
    resetSaleShop(m_base.get());
    m_clock = std::make_unique<ClockAt>(QDateTime(QDate(2026, 11, 21), QTime(12, 0)));
    QVERIFY(m_user->loadpermis(m_base->connection(), QStringLiteral("admin"), QString()));
    m_tab =
        std::make_unique<QRegisterSale>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_search = child<QLineEdit>(m_tab.get(), "leSearch");
    m_goods = child<QNTableView>(m_tab.get(), "viewGoods");
    m_chek = child<QNTableView>(m_tab.get(), "viewChek");
    m_tab->resize(1200, 800);
    QVERIFY(showActive(m_tab.get()));
    waitOutTasks();
    QTRY_COMPARE(m_goods->model()->rowCount(), 5);
}

void TstSalePriceQuestion::cleanup()
{
    m_tab.reset();
    waitOutTasks();
    m_clock.reset();
}

void TstSalePriceQuestion::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

QWhyPrice *TstSalePriceQuestion::window()
{
    if (!QTest::qWaitFor([] { return qobject_cast<QWhyPrice *>(QApplication::activeModalWidget()); }, 5000))
        qFatal("No window has opened");
    auto *open = qobject_cast<QWhyPrice *>(QApplication::activeModalWidget());
    waitOutTasks();
    return open;
}

QString TstSalePriceQuestion::answer()
{
    QWhyPrice *open = window();
    const QString words =
        child<QLabel>(open, "lbGoods")->text() + QLatin1Char(' ') + child<QLabel>(open, "lbPrice")->text();
    open->reject();
    if (!QTest::qWaitFor([this] { return m_search->hasFocus() && m_tab->isActiveWindow(); }, 5000))
        qFatal("The search field has not got the keyboard back");
    return words;
}

void TstSalePriceQuestion::whatTheHandWasAt()
{
    pressKeys({Qt::Key_F3});
    QCOMPARE(child<QLabel>(m_tab.get(), "lbNotice")->text(),
             QString("Виберіть товар у списку або рядок чека, щоб побачити, чому така ціна."));
    // In the list, and found as the only one.
    pressKeys({Qt::Key_Down, Qt::Key_Down, Qt::Key_F3});
    QCOMPARE(answer(), QString("Сир ваговий (код 11) 80.00 за кілограм"));
    child<QRadioButton>(m_tab.get(), "rbName")->click();
    typeText(QStringLiteral("картопля"));
    QTRY_COMPARE(m_goods->model()->rowCount(), 1);
    pressKeys({Qt::Key_F3});
    QCOMPARE(answer(), QString("Картопля (код 14) 7.00 за кілограм"));
    QCOMPARE(m_search->text(), QString("картопля"));
    // The receipt has been begun: its row, until something is searched for.
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(m_chek->model()->rowCount(), 1);
    typeText(QStringLiteral("хліб"));
    QTRY_COMPARE(m_goods->model()->rowCount(), 1);
    QTRY_COMPARE(m_goods->model()->index(0, 0).data().toString(), QString("10"));
    pressKeys({Qt::Key_F3});
    QCOMPARE(answer(), QString("Хліб житній (код 10) 50.00 за штуку"));
    m_search->clear();
    pressKeys({Qt::Key_F3});
    QCOMPARE(answer(), QString("Картопля (код 14) 7.00 за кілограм"));
}

/// The item that is on its way is meant. What is scanned into the window comes into the receipt, and nothing
/// of it into the window.
void TstSalePriceQuestion::rightBehindAScan()
{
    scan(QStringLiteral("4820000000109"));
    pressKeys({Qt::Key_F3});
    QWhyPrice *open = window();
    QCOMPARE(child<QLabel>(open, "lbGoods")->text(), QString("Хліб житній (код 10)"));
    child<QSpinBox>(open, "sbPriority")->setFocus();
    const QString moment = child<QDateTimeEdit>(open, "dtMoment")->text();
    scan(QStringLiteral("4820000000130"));
    QCOMPARE(child<QSpinBox>(open, "sbPriority")->value(), 1);
    QCOMPARE(child<QDateTimeEdit>(open, "dtMoment")->text(), moment);
    QVERIFY(open->isVisible());
    QCOMPARE(answer(), QString("Хліб житній (код 10) 50.00 за штуку"));
    QTRY_COMPARE(m_chek->model()->rowCount(), 2);
    QCOMPARE(m_chek->model()->index(1, 0).data().toString(), QString("13"));
    QCOMPARE(m_search->text(), QString());
}

void TstSalePriceQuestion::byTheMenus()
{
    scan(QStringLiteral("4820000000109"));
    scan(QStringLiteral("4820000000130"));
    QTRY_COMPARE(m_chek->model()->rowCount(), 2);
    m_base->exec("UPDATE goods SET price=5500 WHERE id=10");
    const struct
    {
        QNTableView *list;
        const char *answer;
    } menus[] = {{m_chek, "Хліб житній (код 10) 55.00 за штуку"},
                 {m_goods, "Хліб житній (код 10) 55.00 за штуку"}};
    for (const auto &each : menus) {
        const QRect row = each.list->visualRect(each.list->model()->index(0, 1));
        QTest::mouseClick(each.list->viewport(), Qt::RightButton, {}, row.center());
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu != nullptr);
        menu->actions().constFirst()->trigger();
        menu->close();
        // The receipt keeps what it was told, until it is paid.
        QCOMPARE(child<QLabel>(window(), "lbNotes")->text().contains("ціна 50.00"), each.list == m_chek);
        child<QSpinBox>(window(), "sbPriority")->setValue(2);
        QVERIFY(!child<QLabel>(window(), "lbNotes")->text().contains("ціна 50.00"));
        QCOMPARE(answer(), QString(each.answer));
    }
    m_base->exec("UPDATE goods SET price=5000 WHERE id=10");
}

/// By the date and the priority that the tab sells by.
void TstSalePriceQuestion::asTheTabSells()
{
    m_base->exec(
        {"INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(10,1,2,1,100),(10,0,2,7,200)",
         "INSERT INTO action(id,name,id_type_action,val,datetime_start,datetime_end,week_day) "
         "VALUES(2,'Сьогодні',2,5000,20261121000000,20261121235959,'Mon,Tue,Wed,Thu,Fri,Sat,Sun,')",
         "UPDATE goods_shop SET id_action=2"});
    child<QSpinBox>(m_tab.get(), "sbPriority")->setValue(7);
    waitOutTasks();
    m_search->setFocus();
    scan(QStringLiteral("4820000000109"));
    QTRY_COMPARE(m_chek->model()->rowCount(), 1);
    pressKeys({Qt::Key_F3});
    QCOMPARE(child<QSpinBox>(window(), "sbPriority")->value(), 7);
    QCOMPARE(answer(), QString("Хліб житній (код 10) 2.00 − 1.00 = 1.00 за штуку"));
    m_tab->findChild<QPushButton *>("pbRemove")->click();
    QTRY_COMPARE(m_chek->model()->rowCount(), 0);
    child<QDateEdit>(m_tab.get(), "dateEdit")->setDate(QDate(2026, 11, 20));
    waitOutTasks();
    QTRY_COMPARE(m_goods->model()->rowCount(), 5);
    m_search->setFocus();
    pressKeys({Qt::Key_Down, Qt::Key_F3});
    QVERIFY(child<QLabel>(window(), "lbAction")->text().contains("ще не почалась"));
    QCOMPARE(answer(), QString("Хліб житній (код 10) 2.00 за штуку"));
}

QTEST_MAIN(TstSalePriceQuestion)
#include "tst_salepricequestion.moc"
