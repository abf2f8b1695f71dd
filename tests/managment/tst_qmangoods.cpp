#include "qmangoods.h"

#include "barcodedialog.h"
#include "heartbeat.h"
#include "listpane.h"
#include "permissions.h"
#include "qchekedcombobox.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qwhyprice.h"
#include "saleshop.h"
#include "scanpace.h"
#include "servererror.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>

/// Many goods changed at once, with other programs and a failing server in between.
class TstQManGoods : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { m_base.reset(); }

    void previewTellsOldAndNewAndWhatIsRefused();
    void filterFinds_data();
    void filterFinds();
    void writtenAsShownSoldAndTakenBack();
    void groupPricesKeepWhatElseTheyHold();
    void missingGroupPricesAreMadeOfTheOneInForce();
    void limitsOfPrices_data();
    void limitsOfPrices();
    void fieldsAreWrittenAndTakenBack_data();
    void fieldsAreWrittenAndTakenBack();
    void ruleOfWhichAGroupHasOne();
    void blockingTellsWhatIsStillThere();
    void changedByOthersIsLeftOut();
    void takingBackRefusesWhatOthersChanged();
    void spoiltOnceIsTriedAgain();
    void failedOneWritesNothing();
    void lostAnswerIsAskedFor();
    void lostAnswerOfOpenTransaction();
    void stoppedWritesNothing();
    void hurriedHandsWriteNothing();
    void scannedGoodsComeToTheList();
    void rightsThatGo_data();
    void rightsThatGo();
    void viewersOnlyLook();
    void closingAsksWhileItCanBeTakenBack();
    void tenThousandGoods();
    void everyChangeFitsASmallScreen();

private:
    void choose(const char *box, const QString &text)
    {
        auto *combo = child<QComboBox>(m_page.get(), box);
        QVERIFY2(combo->findText(text) >= 0, qPrintable(text));
        combo->setCurrentText(text);
    }
    void type(const char *field, const QString &text)
    {
        auto *line = child<QLineEdit>(m_page.get(), field);
        line->setFocus();
        line->selectAll();
        typeText(text);
    }
    void chooseGroups(const QStringList &names);
    static QStringList texts(const QWidget *window)
    {
        QStringList all;
        for (const auto *label : window->findChildren<QLabel *>())
            all.append(label->text());
        return all;
    }
    QPushButton *button(const char *name) { return child<QPushButton>(m_page.get(), name); }
    void preview();
    /// Presses the button, answers its question and waits for the end; the text of the question.
    QString answered(const char *name, const QString &answer, const std::function<void()> &meanwhile = {});
    QString write(const std::function<void()> &meanwhile = {})
    {
        return answered("pbWrite", "Записати", meanwhile);
    }
    QString undo(const std::function<void()> &meanwhile = {})
    {
        return answered("pbUndo", "Повернути", meanwhile);
    }
    QString counts() const
    {
        return child<QLabel>(m_page.get(), "labelCounts")->text().replace(QChar(0xA0), ' ');
    }
    /// Cells of the shown list, from one column on.
    QStringList lines(int first = 0) const;
    QStringList goodsPrices() { return m_base->rows("SELECT id,price FROM goods ORDER BY id"); }
    QStringList listed()
    {
        return m_base->rows("SELECT id_goods,id_shop,id_group,priority,price FROM prices ORDER BY 1,2,3,4");
    }

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QManGoods> m_page;
};

void TstQManGoods::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
}

/// Group 2 "Місто" sells bread at 49.95; bread in shop 1 costs 48.00.
void TstQManGoods::init()
{
    resetSaleShop(m_base.get());
    m_base->exec(
        {"UPDATE lst_permis SET permission=1 WHERE id_prem=100", "DELETE FROM lst_group WHERE id_group=2",
         "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2)",
         "UPDATE goods SET price=ELT(id-9,5000,8000,1230,3000,700,NULL,100,100),id_rules_goods=1",
         "UPDATE goods SET block=(id=16),group_g=IF(id=17,3,1)",
         "INSERT INTO prices(id_goods,id_shop,id_group,priority,price,week_day,info) VALUES"
         "(10,0,2,0,4995,5,'акт 7'),(10,1,2,0,4800,0,NULL),(13,0,1,0,2900,0,NULL),(14,0,2,3,650,0,NULL)"});
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", QString()));
    m_page =
        std::make_unique<QManGoods>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_page->setPermission(Permission::GoodsManagement);
    m_page->resize(1000, 600);
    QVERIFY(showActive(m_page.get()));
    QTRY_VERIFY(!m_page->isLoading());
    m_base->heard.forget();
}

void TstQManGoods::cleanup()
{
    Db::setStatementHook(nullptr);
    Db::setStatementRefusal(nullptr);
    m_page.reset();
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQManGoods::chooseGroups(const QStringList &names)
{
    choose("cbPlace", "Ціни груп магазинів");
    auto *groups = child<QChekedComboBox>(m_page.get(), "cbGroups");
    for (int row = 1; row < groups->count(); ++row)
        groups->setChekedItem(row, names.contains(groups->itemText(row)) ? Qt::Checked : Qt::Unchecked);
}

void TstQManGoods::preview()
{
    button("pbPreview")->click();
    waitOutJobs();
    waitOutTasks();
}

QString TstQManGoods::answered(const char *name, const QString &answer,
                               const std::function<void()> &meanwhile)
{
    QString asked;
    withModal<QMessDlg>([&] { button(name)->click(); },
                        [&](QMessDlg *question) {
                            asked = texts(question).join(QString());
                            if (meanwhile)
                                meanwhile();
                            waitOutGuard();
                            for (auto *each : question->findChildren<QPushButton *>()) {
                                if (each->text().remove('&') == answer)
                                    return each->click();
                            }
                        });
    waitOutJobs();
    waitOutTasks();
    return asked.replace(QChar(0xA0), ' ');
}

QStringList TstQManGoods::lines(int first) const
{
    const auto *model = m_page->list()->model();
    QStringList all;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = first; column < model->columnCount(); ++column)
            cells.append(model->index(row, column).data().toString().replace(QChar(0xA0), ' '));
        all.append(cells.join('|'));
    }
    return all;
}

/// 5 % of 12.30 are 61.5 kopecks.
void TstQManGoods::previewTellsOldAndNewAndWhatIsRefused()
{
    type("lePercent", "5");
    preview();
    QCOMPARE(lines(), QStringList({"10|Хліб житній|default|50.00|базова|50.00|52.50|2.50|2|буде змінено",
                                   "11|Сир ваговий|default|80.00|базова|80.00|84.00|4.00|0|буде змінено",
                                   "12|Пакет O'Neil 5%|default|12.30|базова|12.30|12.92|0.62|0|буде змінено",
                                   "13|Молоко|default|30.00|базова|30.00|31.50|1.50|1|буде змінено",
                                   "14|Картопля|default|7.00|базова|7.00|7.35|0.35|1|буде змінено",
                                   "15|Новинка|default||базова||||0|пропущено: немає ціни",
                                   "16|Знятий|default|1.00|базова|1.00|||0|пропущено: товар заблоковано",
                                   "17|Пляшка|Тара|1.00|базова|1.00|1.05|0.05|0|буде змінено"}));
    QCOMPARE(counts(), QString("Зміниться цін: 6 (різних товарів: 6). Сума цін: 180.30 → 189.32 (різниця "
                               "9.02). Немає ціни: 1. Заблоковані: 1."));
    // Bread has two other prices: which one counts where is a key away.
    m_page->list()->view()->selectRow(0);
    m_page->list()->view()->setFocus();
    pressKeys({Qt::Key_F3});
    auto *why = child<QWhyPrice>(m_page.get(), QString());
    QTRY_VERIFY(!texts(why).filter("Хліб житній").isEmpty());
    why->close();
}

void TstQManGoods::filterFinds_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("group");
    QTest::addColumn<QString>("tax");
    QTest::addColumn<QString>("blocked");
    QTest::addColumn<QString>("ids");
    const QString group = "Усі групи товарів";
    const QString tax = "Усі податкові групи";
    QTest::newRow("words in any order") << "жит хл" << group << tax << "Усі"
                                        << "10";
    QTest::newRow("part of a barcode") << "0000154" << group << tax << "Усі"
                                       << "15";
    QTest::newRow("a quote and a per cent sign") << "o'neil 5%" << group << tax << "Усі"
                                                 << "12";
    QTest::newRow("group") << ""
                           << "Тара" << tax << "Усі"
                           << "17";
    QTest::newRow("tax") << "" << group << "ПДВ Б"
                         << "Усі"
                         << "11";
    QTest::newRow("blocked") << "" << group << tax << "Так"
                             << "16";
    QTest::newRow("not blocked, and words") << "зн" << group << tax << "Ні"
                                            << "";
}

void TstQManGoods::filterFinds()
{
    QFETCH(QString, words);
    QFETCH(QString, group);
    QFETCH(QString, tax);
    QFETCH(QString, blocked);
    QFETCH(QString, ids);
    choose("cbGroup", group);
    choose("cbTax", tax);
    choose("cbBlocked", blocked);
    type("leSearch", words);
    pressKeys({Qt::Key_Return});
    waitOutJobs();
    QStringList found;
    for (const QString &line : lines())
        found.append(line.section('|', 0, 0));
    QCOMPARE(found.join(','), ids);
    button("pbReset")->click();
    preview();
    QCOMPARE(lines().size(), 8);
}

/// 50.00 + 7.3 % are 53.65, to .90; 30.00: 32.19; 7.00: 7.511; 1.00: 1.073.
void TstQManGoods::writtenAsShownSoldAndTakenBack()
{
    m_base->exec({"UPDATE goods SET data_update=20200101000000", "UPDATE updat SET updat=20200101000000"});
    const QStringList before = goodsPrices();
    type("lePercent", "7,3");
    choose("cbEnding", "до .90");
    type("leSearch", "л");
    preview();
    QCOMPARE(lines(5), QStringList({"50.00|53.90|3.90|2|буде змінено", "30.00|31.90|1.90|1|буде змінено",
                                    "7.00|7.90|0.90|1|буде змінено",
                                    "1.00|0.90|-0.10|0|буде змінено; заокруглення веде в інший бік"}));
    QVERIFY(!button("pbUndo")->isEnabled());
    const QString asked = write();
    QVERIFY2(asked.contains("+7.30 %, до .90; базова") && asked.contains("88.00 → 94.60 (різниця 6.60)") &&
                 asked.contains("в інший бік: 1"),
             qPrintable(asked));
    QCOMPARE(counts(), QString("Записано: 4."));
    QCOMPARE(goodsPrices(),
             QStringList({"10|5390", "11|8000", "12|1230", "13|3190", "14|790", "15|", "16|100", "17|90"}));
    QCOMPARE(m_base->rows("SELECT id FROM goods WHERE data_update>20250101000000 ORDER BY id"),
             QStringList({"10", "13", "14", "17"}));
    QCOMPARE(m_base->rows("SELECT name FROM updat WHERE updat>20250101000000"), QStringList("goods"));
    QCOMPARE(goodsRow(m_base.get(), 14).price, qint64(790));
    QVERIFY(lines().at(0).endsWith("|записано"));
    // The next write is of another preview, and a step that would be taken twice is told.
    QVERIFY(!button("pbWrite")->isEnabled());
    child<QLineEdit>(m_page.get(), "leSearch")->clear();
    preview();
    const QString again = answerConfirm([this] { button("pbWrite")->click(); }, false);
    QVERIFY2(again.contains("Увага: 3 з них уже змінено"), "0.90 stays, two others are new");
    m_base->exec("UPDATE goods SET data_update=20200101000000");
    QVERIFY(undo().contains("Змінено було: 4."));
    QCOMPARE(goodsPrices(), before);
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM goods WHERE data_update>20250101000000"), QString("4"));
    QCOMPARE(counts(), QString("Останню зміну скасовано: повернуто 4."));
    QVERIFY(lines().at(0).endsWith("|повернуто, як було") && !button("pbUndo")->isEnabled());
}

/// Shop 1 sells at its own 48.00 before and after; shop 2 at that of the group.
void TstQManGoods::groupPricesKeepWhatElseTheyHold()
{
    m_base->exec({"UPDATE prices SET data_update=20200101000000", "UPDATE updat SET updat=20200101000000"});
    choose("cbWhat", "Ціна на суму");
    choose("cbDirection", "знизити на");
    type("leAmount", "9.95");
    QVERIFY(answerQuestion([this] {
                choose("cbPlace", "Ціни груп магазинів");
                button("pbPreview")->click();
            }).contains("хоча б одну групу"));
    chooseGroups({"default", "Місто"});
    preview();
    QCOMPARE(lines(4).filter("буде"), QStringList({"default|29.00|19.05|-9.95|0|буде змінено",
                                                   "Місто|49.95|40.00|-9.95|1|буде змінено"}));
    QCOMPARE(lines(4).filter("немає ціни групи").size(), 12);
    child<QCheckBox>(m_page.get(), "checkChanges")->click();
    QCOMPARE(lines().size(), 2);
    // Coming back by the menu reads the boxes again: the choice of two groups stays what it is.
    m_page->openedByMenu();
    QTRY_VERIFY(!m_page->isLoading());
    QVERIFY(button("pbWrite")->isEnabled());
    QVERIFY(write().contains("−9.95 грн, до копійки; default, Місто"));
    QCOMPARE(listed(), QStringList({"10|0|2|0|4000", "10|1|2|0|4800", "13|0|1|0|1905", "14|0|2|3|650"}));
    QVERIFY(lines().size() == 2 && lines().at(1).endsWith("|записано"));
    QCOMPARE(m_base->rows("SELECT week_day,info FROM prices WHERE id_goods=10 AND id_shop=0"),
             QStringList("5|акт 7"));
    QCOMPARE(m_base->rows("SELECT id_goods FROM prices WHERE data_update>20250101000000 ORDER BY 1"),
             QStringList({"10", "13"}));
    QCOMPARE(m_base->rows("SELECT name FROM updat WHERE updat>20250101000000"), QStringList("prices"));
    undo();
    QCOMPARE(listed(), QStringList({"10|0|2|0|4995", "10|1|2|0|4800", "13|0|1|0|2900", "14|0|2|3|650"}));
}

/// Milk costs 29.00 in all groups, potatoes 6.50 with priority 3 in the city: that one is in force only
/// there.
void TstQManGoods::missingGroupPricesAreMadeOfTheOneInForce()
{
    choose("cbDirection", "знизити на");
    type("lePercent", "10");
    chooseGroups({"Місто"});
    choose("cbMissing", "створити з чинної");
    preview();
    const QStringList made = lines().filter("буде створено");
    QCOMPARE(made.size(), 5);
    QVERIFY2(made.at(2).startsWith("13|Молоко|default|30.00|Місто|29.00|26.10|-2.90|1|"),
             qPrintable(made.at(2)));
    QVERIFY2(made.at(3).startsWith("14|Картопля|default|7.00|Місто|7.00|6.30|"), qPrintable(made.at(3)));
    // What it is reckoned from changes before it is written.
    write([this] { m_base->exec("UPDATE prices SET price=2800 WHERE id_goods=13"); });
    QCOMPARE(counts(), QString("Записано: 5. Пропущено, бо тим часом їх змінив хтось інший: 1."));
    QCOMPARE(listed(), QStringList({"10|0|2|0|4496", "10|1|2|0|4800", "11|0|2|0|7200", "12|0|2|0|1107",
                                    "13|0|1|0|2800", "14|0|2|0|630", "14|0|2|3|650", "17|0|2|0|90"}));
    QCOMPARE(m_base->rows("SELECT id_goods FROM prices WHERE period_start_date<>0 OR week_day<>0"),
             QStringList("10"));
    undo();
    QCOMPARE(listed(), QStringList({"10|0|2|0|4995", "10|1|2|0|4800", "13|0|1|0|2800", "14|0|2|3|650"}));
    child<QSpinBox>(m_page.get(), "sbPriority")->setValue(3);
    preview();
    QVERIFY2(lines().at(4).startsWith("14|Картопля|default|7.00|Місто|6.50|5.85|-0.65|0|буде змінено"),
             qPrintable(lines().at(4)));
}

void TstQManGoods::limitsOfPrices_data()
{
    QTest::addColumn<QString>("price");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QString>("by");
    QTest::addColumn<QString>("line");
    QTest::newRow("nothing left") << "500"
                                  << "знизити на"
                                  << "5"
                                  << "5.00|||2|пропущено: від ціни нічого не лишиться";
    QTest::newRow("a kopeck left") << "501"
                                   << "знизити на"
                                   << "5"
                                   << "5.01|0.01|-5.00|2|буде змінено";
    QTest::newRow("the greatest") << "99999998"
                                  << "підняти на"
                                  << "0.01"
                                  << "999 999.98|999 999.99|0.01|2|буде змінено";
    QTest::newRow("too much") << "99999999"
                              << "підняти на"
                              << "0.01"
                              << "999 999.99|||2|пропущено: ціна була б понад 999 999.99";
    QTest::newRow("too much by now, but less") << "4294967295"
                                               << "знизити на"
                                               << "0.01"
                                               << "42 949 672.95|||2|пропущено: ціна була б понад 999 999.99";
    QTest::newRow("price zero") << "0"
                                << "підняти на"
                                << "5"
                                << "0.00|||2|пропущено: немає ціни";
    QTest::newRow("the same") << "500"
                              << "підняти на"
                              << "0"
                              << "5.00|5.00|0.00|2|нічого не зміниться";
}

void TstQManGoods::limitsOfPrices()
{
    QFETCH(QString, price);
    QFETCH(QString, direction);
    QFETCH(QString, by);
    QFETCH(QString, line);
    m_base->exec("UPDATE goods SET price=" + price + " WHERE id=10");
    choose("cbWhat", "Ціна на суму");
    choose("cbDirection", direction);
    type("leAmount", by);
    type("leSearch", "хліб");
    preview();
    QCOMPARE(lines(5), QStringList(line));
    QCOMPARE(button("pbWrite")->isEnabled(), line.contains("буде змінено"));
}

void TstQManGoods::fieldsAreWrittenAndTakenBack_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("written");
    QTest::newRow("group") << "Група товарів"
                           << "Тара"
                           << "group_g"
                           << "default|Тара|буде змінено"
                           << "3,3,3,3,3,3,3,3";
    QTest::newRow("tax") << "Податкова група"
                         << "ПДВ Г"
                         << "tax"
                         << "|ПДВ Г|буде змінено"
                         << "4,4,4,4,4,4,4,4";
    QTest::newRow("block") << "Блокування"
                           << "дозволити продаж"
                           << "block"
                           << "Так|Ні|буде змінено"
                           << "0,0,0,0,0,0,0,0";
    QTest::newRow("rule") << "Правило"
                          << "Без правил"
                          << "id_rules_goods"
                          << "|Без правил|буде змінено"
                          << "1,1,1,1,1,1,1,1";
}

/// Item 12 has no tax group, 15 no rule: they have none again afterwards.
void TstQManGoods::fieldsAreWrittenAndTakenBack()
{
    QFETCH(QString, what);
    QFETCH(QString, value);
    QFETCH(QString, column);
    QFETCH(QString, line);
    QFETCH(QString, written);
    m_base->exec("UPDATE goods SET id_rules_goods=NULL WHERE id=15");
    const QString all = "SELECT GROUP_CONCAT(IFNULL(" + column + ",'-') ORDER BY id) FROM goods";
    const QString before = m_base->value(all);
    choose("cbWhat", what);
    preview();
    QVERIFY(!button("pbWrite")->isEnabled() && button("pbWrite")->toolTip() == "Виберіть нове значення.");
    choose("cbValue", value);
    preview();
    QVERIFY2(!lines(4).filter(QRegularExpression('^' + QRegularExpression::escape(line))).isEmpty(),
             qPrintable(lines(4).join('\n')));
    QVERIFY(write().contains(what + ": " + value));
    QCOMPARE(m_base->value(all), written);
    undo();
    QCOMPARE(m_base->value(all), before);
}

void TstQManGoods::ruleOfWhichAGroupHasOne()
{
    m_base->exec("UPDATE goods SET id_rules_goods=2 WHERE id IN (11,17)");
    const auto verdictOf = [this](const QString &id) {
        return lines().filter(QRegularExpression('^' + id + "\\|")).join(' ').section('|', -1);
    };
    // The container 17 may not come to the cheese 11; nor may the rule of either come to another item.
    choose("cbWhat", "Група товарів");
    choose("cbValue", "default");
    preview();
    QCOMPARE(verdictOf("17"), QString("пропущено: у групі вже є товар з таким правилом"));
    choose("cbWhat", "Правило");
    choose("cbValue", "С.Ваговий");
    preview();
    QCOMPARE(verdictOf("14"), QString("пропущено: у групі вже є товар з таким правилом"));
    QCOMPARE(verdictOf("11"), QString("нічого не зміниться"));
    choose("cbValue", "Списання");
    preview();
    QCOMPARE(verdictOf("14"), QString("пропущено: у групі таке правило отримали б кілька товарів"));
    QCOMPARE(verdictOf("17"), QString("буде змінено"));
    // One of them alone may, unless somebody is quicker.
    type("leSearch", "картопля");
    preview();
    QCOMPARE(lines().size(), 1);
    write([this] { m_base->exec("UPDATE goods SET id_rules_goods=4 WHERE id=13"); });
    QCOMPARE(counts(), QString("Записано: 0. Пропущено, бо тим часом їх змінив хтось інший: 1."));
    QCOMPARE(m_base->value("SELECT id_rules_goods FROM goods WHERE id=14"), QString("1"));
    m_base->exec("UPDATE goods SET id_rules_goods=1 WHERE id=13");
    preview();
    write();
    QCOMPARE(m_base->value("SELECT id_rules_goods FROM goods WHERE id=14"), QString("4"));
    // Taken back it may be: but not once the rule of before has gone to another item.
    m_base->exec("UPDATE goods SET id_rules_goods=1 WHERE id=14");
    undo();
    QVERIFY2(counts().contains("№14 «Картопля»"), qPrintable(counts()));
    m_base->exec("UPDATE goods SET id_rules_goods=4 WHERE id=14");
    undo();
    QCOMPARE(counts(), QString("Останню зміну скасовано: повернуто 1."));
}

void TstQManGoods::blockingTellsWhatIsStillThere()
{
    m_base->exec(
        {"UPDATE goods_shop SET count_showroom=0 WHERE id_goods=12",
         "INSERT INTO invoice(id,id_shop_with,id_shop_to,is_cash_goods,data_time_open,data_time_close) "
         "VALUES(1,1,2,0,20261101100000,0),(2,1,2,0,20261101100000,20261102100000)",
         "INSERT INTO transactions_goods(id_invoice,id_good,count_send) VALUES(1,12,1000),(2,10,1000)"});
    choose("cbWhat", "Блокування");
    choose("cbValue", "заблокувати");
    preview();
    QVERIFY(lines().at(0).endsWith("Ні|Так|буде змінено; є в залишках"));
    QVERIFY(lines().at(2).endsWith("Ні|Так|буде змінено; є в передачах у дорозі"));
    const QString asked = write();
    m_base->exec({"DELETE FROM transactions_goods", "DELETE FROM invoice"});
    QVERIFY2(asked.contains("в залишках магазинів: 6") && asked.contains("у дорозі між магазинами: 1"),
             qPrintable(asked));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM goods WHERE block=1"), QString("8"));
}

/// While the question is open: another price, the same price, a block, and one that has no price any more.
void TstQManGoods::changedByOthersIsLeftOut()
{
    type("lePercent", "10");
    preview();
    write([this] {
        m_base->exec(
            "UPDATE goods SET price=CASE id WHEN 10 THEN 5111 WHEN 11 THEN 8800 WHEN 13 THEN NULL ELSE "
            "price END,block=block OR id=14");
    });
    QCOMPARE(counts(), QString("Записано: 2. Пропущено, бо тим часом їх змінив хтось інший: 4."));
    QCOMPARE(goodsPrices(),
             QStringList({"10|5111", "11|8800", "12|1353", "13|", "14|700", "15|", "16|100", "17|110"}));
    QVERIFY(lines().at(0).endsWith("пропущено: тим часом змінив хтось інший"));
    undo();
    QCOMPARE(goodsPrices(),
             QStringList({"10|5111", "11|8800", "12|1230", "13|", "14|700", "15|", "16|100", "17|100"}));
}

void TstQManGoods::takingBackRefusesWhatOthersChanged()
{
    type("lePercent", "10");
    chooseGroups({"default", "Місто"});
    preview();
    write();
    QCOMPARE(m_base->value(
                 "SELECT GROUP_CONCAT(price ORDER BY id_goods) FROM prices WHERE id_shop=0 AND priority=0"),
             QString("5495,3190"));
    const auto takeBack = [this](const QString &by) {
        m_base->exec(by);
        undo();
        return counts();
    };
    const QString one = takeBack("UPDATE prices SET price=3200 WHERE id_goods=13");
    QVERIFY2(one.contains("(1): №13 «Молоко», default (тепер 32.00)."), qPrintable(one));
    const QString two = takeBack("DELETE FROM prices WHERE id_goods=10 AND id_shop=0");
    QVERIFY2(two.contains("(2): ") && two.contains("№10 «Хліб житній», Місто (тепер без ціни)"),
             qPrintable(two));
    QCOMPARE(listed(), QStringList({"10|1|2|0|4800", "13|0|1|0|3200", "14|0|2|3|650"}));
    QVERIFY(lines().filter("не повернуто: змінив хтось інший").size() == 2);
    // Once it is as it was written it can be taken back.
    QVERIFY(button("pbUndo")->isEnabled());
    takeBack("INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(10,0,2,0,5495) ");
    QVERIFY(counts().contains("(1): "));
    QCOMPARE(takeBack("UPDATE prices SET price=3190 WHERE id_goods=13"),
             QString("Останню зміну скасовано: повернуто 2."));
    QCOMPARE(listed(), QStringList({"10|0|2|0|4995", "10|1|2|0|4800", "13|0|1|0|2900", "14|0|2|3|650"}));
}

void TstQManGoods::spoiltOnceIsTriedAgain()
{
    type("lePercent", "10");
    preview();
    std::atomic<int> refusals{0};
    Db::setStatementRefusal([&](const QString &sql) {
        return sql.startsWith("UPDATE goods SET price=") && refusals++ == 0 ? int(ServerError::Deadlock) : 0;
    });
    write();
    QCOMPARE(refusals.load(), 2);
    QCOMPARE(counts(), QString("Записано: 6."));
    QCOMPARE(goodsPrices().value(0), QString("10|5500"));
}

void TstQManGoods::failedOneWritesNothing()
{
    const QStringList before = goodsPrices();
    type("lePercent", "10");
    preview();
    Db::setStatementRefusal([](const QString &sql) { return sql.startsWith("UPDATE updat") ? 1114 : 0; });
    write();
    QCOMPARE(counts(), QString("Не вдалося, у базу нічого не записано."));
    QVERIFY(!m_base->heard.texts().isEmpty());
    m_base->heard.forget();
    QCOMPARE(goodsPrices(), before);
    QVERIFY(!button("pbUndo")->isEnabled());
}

void TstQManGoods::lostAnswerIsAskedFor()
{
    type("lePercent", "10");
    preview();
    std::atomic<int> commits{0};
    Db::setStatementHook([&](const QString &sql) {
        if (sql == "COMMIT" && commits++ == 0) {
            commitHere();
            m_base->killConnection();
        }
    });
    write();
    Db::setStatementHook(nullptr);
    QCOMPARE(counts(), QString("Записано: 6."));
    QCOMPARE(goodsPrices().value(0), QString("10|5500"));
    waitOutLoss(*m_base->connection());
    m_base->heard.forget();
    undo();
    QCOMPARE(goodsPrices().value(0), QString("10|5000"));
}

/// The server has not ended what the lost connection has written: neither yes nor no.
void TstQManGoods::lostAnswerOfOpenTransaction()
{
    type("lePercent", "10");
    preview();
    std::unique_ptr<WorkerConnection> open;
    const auto holdTheSame = [&] {
        open = std::make_unique<WorkerConnection>(m_base->connection()->connectionName(), &m_base->heard);
        QSqlQuery query(*open->database());
        QVERIFY(query.exec("START TRANSACTION") && query.exec("UPDATE goods SET price=5500 WHERE id=10"));
    };
    std::atomic<bool> isLost{false};
    Db::setStatementHook([&](const QString &sql) {
        if (sql != "COMMIT" || isLost.exchange(true))
            return;
        m_base->killConnection();
        QMetaObject::invokeMethod(m_page.get(), holdTheSame, Qt::BlockingQueuedConnection);
    });
    write();
    Db::setStatementHook(nullptr);
    open.reset();
    QVERIFY2(counts().contains("Невідомо, чи записано"), qPrintable(counts()));
    QVERIFY(!button("pbWrite")->isEnabled());
    waitOutLoss(*m_base->connection());
    m_base->heard.forget();
}

void TstQManGoods::stoppedWritesNothing()
{
    const QStringList before = goodsPrices();
    type("lePercent", "10");
    preview();
    Db::setStatementHook([this](const QString &sql) {
        if (sql.startsWith("UPDATE goods SET price="))
            QMetaObject::invokeMethod(
                m_page.get(),
                [this] {
                    // It does not close meanwhile, and takes nothing.
                    QVERIFY(
                        answerQuestion([this] { QVERIFY(!m_page->mayClose()); }).contains("ще записуються"));
                    QVERIFY(!child<QLineEdit>(m_page.get(), "lePercent")->isEnabled());
                    button("pbStop")->click();
                },
                Qt::BlockingQueuedConnection);
    });
    write();
    QCOMPARE(counts(), QString("Зупинено, у базу нічого не записано."));
    QCOMPARE(goodsPrices(), before);
    QVERIFY2(button("pbWrite")->isEnabled(), "what is shown may be written once more");
    QVERIFY(!button("pbUndo")->isEnabled());
}

/// Another number, Enter wherever it is pressed, no number, a barcode in the wrong field.
void TstQManGoods::hurriedHandsWriteNothing()
{
    const QStringList before = goodsPrices();
    type("lePercent", "1");
    pressKeys({Qt::Key_Return, Qt::Key_Return, Qt::Key_Return});
    waitOutJobs();
    QVERIFY(button("pbWrite")->isEnabled());
    typeText("0");
    QVERIFY(!button("pbWrite")->isEnabled());
    QCOMPARE(counts(), QString("Умови змінено: натисніть «Переглянути» ще раз."));
    pressKeys({Qt::Key_Return});
    waitOutJobs();
    QVERIFY2(lines(5).at(0).startsWith("50.00|55.00|"), "10 per cent");
    type("lePercent", "1,2,3");
    const QString why = answerQuestion([] { pressKeys({Qt::Key_Return}); });
    QVERIFY2(why.contains("1,2,3"), qPrintable(why));
    type("lePercent", "10");
    for (const char *box : {"cbDirection", "cbEnding", "cbPlace", "cbGroup"}) {
        preview();
        QVERIFY(button("pbWrite")->isEnabled());
        child<QComboBox>(m_page.get(), box)->setFocus();
        pressKeys({Qt::Key_Down, Qt::Key_Return});
        QVERIFY2(!button("pbWrite")->isEnabled(), box);
        pressKeys({Qt::Key_Up, Qt::Key_Return});
    }
    QVERIFY(!button("pbWrite")->isDefault() && !button("pbWrite")->autoDefault());
    QCOMPARE(goodsPrices(), before);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

/// From wherever the focus is; what was typed there stays.
void TstQManGoods::scannedGoodsComeToTheList()
{
    type("lePercent", "20");
    // A hand rests before it takes the scanner.
    QTest::qWait(ScanPace::gapMs + 20);
    scan("4820000000109");
    scan("48200014");
    scan("4820000009999");
    waitOutJobs();
    QCOMPARE(child<QLineEdit>(m_page.get(), "lePercent")->text(), QString("20"));
    QCOMPARE(child<QLabel>(m_page.get(), "labelBarcodes")->text(), QString("Лише зі списку: 3"));
    QCOMPARE(lines().size(), 2);
    QVERIFY2(counts().endsWith("Невідомі штрихкоди: 1 (4820000009999)."), qPrintable(counts()));
    // A code that comes while the question is open is another choice.
    const QStringList before = goodsPrices();
    const QString why = answerQuestion([this] { write([] { scan("4820000000130"); }); });
    QVERIFY2(why.contains("Умови змінилися"), qPrintable(why));
    QCOMPARE(goodsPrices(), before);
    QVERIFY(withModal<BarcodeDialog>([this] { button("pbBarcodes")->click(); },
                                     [](BarcodeDialog *dialog) {
                                         auto *text = child<QPlainTextEdit>(dialog, "pteBarcodes");
                                         QCOMPARE(text->toPlainText().count('\n'), 3);
                                         text->setPlainText("Ціни.xlsx");
                                         child<QPushButton>(dialog, "pbOk")->click();
                                     }));
    QVERIFY(answerQuestion([this] { button("pbPreview")->click(); }).contains("жодного штрихкоду"));
}

void TstQManGoods::rightsThatGo_data()
{
    QTest::addColumn<QString>("statement");
    QTest::newRow("the right") << "UPDATE lst_permis SET permission=2 WHERE id_prem=100";
    QTest::newRow("the shop group") << "DELETE FROM lst_group WHERE id_group=2";
}

/// Behind the open question, and nobody has told this program.
void TstQManGoods::rightsThatGo()
{
    QFETCH(QString, statement);
    const QStringList before = listed();
    type("lePercent", "20");
    chooseGroups({"Місто"});
    preview();
    write([&] { m_base->exec(statement); });
    QCOMPARE(counts(), QString("Поки ви працювали, у вас забрали право це змінювати. Нічого не збережено."));
    QCOMPARE(listed(), before);
}

void TstQManGoods::viewersOnlyLook()
{
    m_base->exec(
        {"UPDATE lst_permis SET permission=2 WHERE id_prem=100", "DELETE FROM lst_group WHERE id_group=2"});
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", QString()));
    type("lePercent", "20");
    // Asked for while the boxes are being filled again.
    preview();
    waitOutJobs();
    QCOMPARE(lines().size(), 8);
    QVERIFY(!button("pbWrite")->isEnabled() && button("pbWrite")->toolTip().contains("лише переглядати"));
    QCOMPARE(child<QComboBox>(m_page.get(), "cbGroups")->findText("Місто"), -1);
}

void TstQManGoods::closingAsksWhileItCanBeTakenBack()
{
    QVERIFY(m_page->mayClose());
    type("lePercent", "20");
    preview();
    QVERIFY(m_page->mayClose());
    write();
    const QString asked = answerConfirm([this] { QVERIFY(!m_page->mayClose()); }, false);
    QVERIFY2(asked.contains("+20.00 %, до копійки; базова; записано: 6"), qPrintable(asked));
    answerConfirm([this] { QVERIFY(m_page->mayClose()); }, true);
    undo();
    QVERIFY(m_page->mayClose());
}

/// Each item its own price, in three groups of shops.
void TstQManGoods::tenThousandGoods()
{
    m_base->exec(
        {"INSERT INTO goods(id,name,price,type,group_g,tax,block) SELECT 1000+seq,CONCAT('Товар ',seq),"
         "1000+seq,1,1,1,0 FROM seq_0_to_9999",
         "INSERT INTO prices(id_goods,id_shop,id_group,priority,price) SELECT id,0,2,0,price+1 FROM goods "
         "WHERE id>=1000"});
    type("leSearch", "Товар");
    type("lePercent", "50");
    chooseGroups({"Місто"});
    Heartbeat heart;
    preview();
    write();
    const qint64 gap = heart.longestGap();
    const QString written = counts();
    const QString wrong =
        m_base->value("SELECT COUNT(*) FROM goods JOIN prices ON id_goods=id WHERE id>=1000 AND "
                      "prices.price<>((goods.price+1)*15+5) DIV 10");
    undo();
    const QString left =
        m_base->value("SELECT COUNT(*) FROM goods JOIN prices ON id_goods=id WHERE id>=1000 AND "
                      "prices.price<>goods.price+1");
    m_base->exec({"DELETE FROM prices WHERE id_goods>=1000", "DELETE FROM goods WHERE id>=1000"});
    QCOMPARE(written, QString("Записано: 10 000."));
    QCOMPARE(wrong, QString("0"));
    QCOMPARE(left, QString("0"));
    QVERIFY2(gap <= 200, qPrintable(QString::number(gap)));
}

/// With letters of 12 points, and what a main window has around it.
void TstQManGoods::everyChangeFitsASmallScreen()
{
    QFont large = m_page->font();
    large.setPointSize(12);
    m_page->setFont(large);
    choose("cbPlace", "Ціни груп магазинів");
    auto *what = child<QComboBox>(m_page.get(), "cbWhat");
    for (int row = 0; row < what->count(); ++row) {
        what->setCurrentIndex(row);
        QTest::qWait(20);
        const QSize least = m_page->minimumSizeHint();
        QVERIFY2(least.width() <= 1000 && least.height() <= 500,
                 qPrintable(QString("%1: %2x%3").arg(row).arg(least.width()).arg(least.height())));
    }
}

QTEST_MAIN(TstQManGoods)
#include "tst_qmangoods.moc"
