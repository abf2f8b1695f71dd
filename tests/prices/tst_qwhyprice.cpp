#include "workplace.h"

#include "qloadeduser.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtabgoods.h"
#include "qtabgoodsshops.h"
#include "qwhyprice.h"

#include <QClipboard>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTableWidget>

/// The window that tells why an item costs what it costs, opened from the tabs of goods.
class TstQWhyPrice : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void init();
    void cleanup();
    void cleanupTestCase() { m_place.reset(); }

    void askedOfTheGoodsTab();
    void askedOfTheStockOfAShop();
    void newestQuestionCounts();
    void lostServerIsAskedAgain();
    void goneGoodsAndNoShops();

private:
    template<typename Tab>
    std::unique_ptr<Tab> openTab(int permission);
    static QWhyPrice *window();
    static QString text(const char *label) { return child<QLabel>(window(), QLatin1String(label))->text(); }
    static QString firstPrice();
    static void leave(QWidget *page);

    std::unique_ptr<Workplace> m_place;
};

void TstQWhyPrice::init()
{
    m_place->clear();
    m_place->base.exec(
        {"INSERT INTO shops(id,address,group_shop,block) VALUES(1,'вул. Ліська, 1',2,0),"
         "(2,'вул. Нова, 2',3,0),(3,'вул. Чужа, 3',4,0)",
         "INSERT INTO goods(id,name,price,type,group_g,id_rules_goods,block) VALUES(7,'Молоко',4250,1,1,1,0),"
         "(8,'Молоко',2800,1,1,1,0)",
         "INSERT INTO goods_shop(id_shop,id_goods) VALUES(1,7),(1,8),(2,7),(2,8)",
         "INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(7,0,3,0,4100),(7,1,2,5,3900)"});
    m_place->logIn(Permission::Goods);
}

void TstQWhyPrice::cleanup()
{
    Db::setStatementRefusal({});
    m_place->base.heard.forget();
}

template<typename Tab>
std::unique_ptr<Tab> TstQWhyPrice::openTab(int permission)
{
    m_place->logIn(permission);
    auto tab =
        std::make_unique<Tab>(m_place->connection(), m_place->user(), &m_place->base.heard, nullptr, nullptr);
    tab->setPermission(permission);
    if (!QTest::qWaitFor([&] { return !tab->isLoading(); }, 20000) || !showActive(tab.get()))
        qFatal("The list has not come");
    return tab;
}

/// The window that is open, with its answer.
QWhyPrice *TstQWhyPrice::window()
{
    if (!QTest::qWaitFor([] { return qobject_cast<QWhyPrice *>(QApplication::activeModalWidget()); }, 5000))
        qFatal("No window has opened");
    auto *open = qobject_cast<QWhyPrice *>(QApplication::activeModalWidget());
    waitOutTasks();
    // The page before may get the keyboard once more when a window over it has closed.
    open->activateWindow();
    if (!QTest::qWaitForWindowActive(open))
        qFatal("The window has no keyboard");
    return open;
}

QString TstQWhyPrice::firstPrice()
{
    const auto *table = child<QTableWidget>(window(), QStringLiteral("twPrices"));
    if (!QTest::qWaitFor([table] { return table->rowCount() > 0; }, 5000))
        qFatal("No price is shown");
    return table->item(0, 0)->text() + QLatin1Char(' ') + table->item(0, 2)->text();
}

/// By Esc, back to the page.
void TstQWhyPrice::leave(QWidget *page)
{
    QTest::keyClick(window(), Qt::Key_Escape);
    if (!QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }, 5000) ||
        !QTest::qWaitForWindowActive(page))
        qFatal("The window stays");
}

/// The shop is that of the list's first one, until another is chosen, which is remembered. Nothing is
/// chosen at first: that is said.
void TstQWhyPrice::askedOfTheGoodsTab()
{
    auto tab = openTab<QTabGoods>(Permission::Goods);
    child<QLineEdit>(tab.get(), "leSearch")->setFocus();
    QCOMPARE(answerQuestion([] { pressKeys({Qt::Key_F3}); }), QString("Спершу виберіть товар у списку."));
    pressKeys({Qt::Key_Down, Qt::Key_F3});
    QCOMPARE(text("lbGoods"), QString("Молоко (код 7)"));
    QCOMPARE(firstPrice(), QString("Ціна самого товару 42.50"));
    auto *shop = child<QComboBox>(window(), "cbShop");
    QCOMPARE(shop->count(), 2);
    shop->setFocus();
    pressKeys({Qt::Key_Down});
    QCOMPARE(firstPrice(), QString("Група «Схід» 41.00"));
    leave(tab.get());

    QTest::mouseClick(child<QPushButton>(tab.get(), "pbWhyPrice"), Qt::LeftButton);
    QCOMPARE(firstPrice(), QString("Група «Схід» 41.00"));
    QCOMPARE(child<QComboBox>(window(), "cbShop")->currentText(), QString("вул. Нова, 2"));
    child<QTableWidget>(window(), "twPrices")->setFocus();
    QTest::keySequence(window(), QKeySequence::Copy);
    QVERIFY2(QApplication::clipboard()->text().contains("Група «Схід»\t0\t41.00\tдіє"),
             qPrintable(QApplication::clipboard()->text()));
    window()->reject();
}

/// Of two items of one name that of the row, in the shop of the row, which is not remembered.
void TstQWhyPrice::askedOfTheStockOfAShop()
{
    auto tab = openTab<QTabGoodsShops>(Permission::GoodsShops);
    const QStringList captions = {"Назва магазину", "Назва товару", "Кількість в торговому залі",
                                  "Кількість на складі"};
    QStringList shown;
    for (int column = 0; column < tab->model()->columnCount(); ++column) {
        if (!tab->view()->isColumnHidden(column))
            shown.append(tab->model()->headerData(column, Qt::Horizontal).toString());
    }
    QCOMPARE(shown, captions);
    for (int row = 0; row < 4; ++row) {
        const QModelIndex index = tab->model()->index(row, 0);
        QTest::mouseClick(tab->view()->viewport(), Qt::RightButton, {},
                          tab->view()->visualRect(index).center());
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu != nullptr && menu->actions().size() == 1);
        menu->actions().constFirst()->trigger();
        menu->close();
        const QString shop = tab->model()->index(row, 0).data().toString();
        const QString goods = tab->model()->stored(row, 5);
        QCOMPARE(child<QComboBox>(window(), "cbShop")->currentText(), shop);
        QCOMPARE(text("lbGoods"), QString("Молоко (код %1)").arg(goods));
        QCOMPARE(text("lbPrice"), goods == "8"             ? QString("28.00 за штуку")
                                  : shop == "вул. Нова, 2" ? QString("41.00 за штуку")
                                                           : QString("42.50 за штуку"));
        leave(tab.get());
    }
}

/// A priority and a moment that are typed one behind the other, while the first answer is on its way.
void TstQWhyPrice::newestQuestionCounts()
{
    PriceQuestion question;
    question.idGoods = 7;
    question.idShop = 1;
    question.time = QDateTime(QDate(2026, 3, 29), QTime(3, 30), Qt::UTC);
    // An hour that the clocks skip on that day.
    m_place->base.exec({"INSERT INTO action(id,name,id_type_action,val,datetime_start,datetime_end,week_day) "
                        "VALUES(2,'Нічна',2,1000,20260329050000,20260329053000,'Sun,')",
                        "UPDATE goods_shop SET id_action=2"});
    QWidget page;
    QWhyPrice::show(m_place->connection(), m_place->user(), &m_place->base.heard, question, &page);
    QCOMPARE(text("lbPrice"), QString("42.50 за штуку"));
    QCOMPARE(child<QDateTimeEdit>(window(), "dtMoment")->text(), QString("29.03.2026 03:30:00"));
    auto *priority = child<QSpinBox>(window(), "sbPriority");
    priority->setFocus();
    priority->selectAll();
    typeText("5");
    pressKeys({Qt::Key_Tab});
    auto *moment = child<QDateTimeEdit>(window(), "dtMoment");
    moment->setFocus();
    moment->setSelectedSection(QDateTimeEdit::HourSection);
    typeText("05");
    pressKeys({Qt::Key_Return});
    QCOMPARE(text("lbPrice"), QString("39.00 − 3.90 = 35.10 за штуку"));
    QVERIFY2(text("lbAction").startsWith("−10\u00a0% Нічна: діє."), qPrintable(text("lbAction")));
    QVERIFY(window()->isVisible());
    window()->reject();
    m_place->base.exec({"UPDATE goods_shop SET id_action=1", "DELETE FROM action WHERE id=2"});
}

void TstQWhyPrice::lostServerIsAskedAgain()
{
    auto tab = openTab<QTabGoods>(Permission::Goods);
    const auto refuse = [](const char *part) {
        Db::setStatementRefusal([part](const QString &sql) { return sql.contains(part) ? 1205 : 0; });
    };
    refuse("rules_goods");
    child<QLineEdit>(tab.get(), "leSearch")->setFocus();
    pressKeys({Qt::Key_Down, Qt::Key_F3});
    QVERIFY2(text("lbState").contains("Натисніть «Оновити» (F5)"), qPrintable(text("lbState")));
    QVERIFY(!child<QPushButton>(window(), "pbCopy")->isEnabled());
    Db::setStatementRefusal({});
    pressKeys({Qt::Key_F5});
    QVERIFY(!firstPrice().isEmpty());
    QCOMPARE(text("lbState"), QString());
    leave(tab.get());

    refuse("FROM shops LEFT JOIN group_shop");
    pressKeys({Qt::Key_F3});
    QVERIFY2(text("lbState").contains("Магазини не прочитано"), qPrintable(text("lbState")));
    Db::setStatementRefusal({});
    QTest::mouseClick(child<QPushButton>(window(), "pbRead"), Qt::LeftButton);
    QVERIFY(!firstPrice().isEmpty());
    QCOMPARE(text("lbState"), QString());
    window()->reject();
}

void TstQWhyPrice::goneGoodsAndNoShops()
{
    PriceQuestion question;
    question.idGoods = 99;
    question.idShop = 3;
    question.time = QDateTime::currentDateTime();
    QWidget page;
    QWhyPrice::show(m_place->connection(), m_place->user(), &m_place->base.heard, question, &page);
    QCOMPARE(text("lbState"), QString("Товару № 99 вже немає."));
    // Whoever sells there asks about it, whatever shops he may see.
    QCOMPARE(child<QComboBox>(window(), "cbShop")->currentData().toUInt(), 3U);
    window()->reject();
    m_place->base.exec({"DELETE FROM goods_shop", "DELETE FROM shops"});
    question = {7, 0, question.time, 1, std::nullopt};
    QWhyPrice::show(m_place->connection(), m_place->user(), &m_place->base.heard, question, &page);
    QCOMPARE(text("lbState"), QString("Спершу додайте групу магазинів і дозвольте її у правах користувача."));
    window()->reject();
}

QTEST_MAIN(TstQWhyPrice)
#include "tst_qwhyprice.moc"
