#include "workplace.h"

#include "dbtasks.h"
#include "launch.h"
#include "qaddedtshop.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtabshops.h"
#include "qupdatebd.h"
#include "signs.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>

/// The shops tab with its filters, colours and drags, and the editor of a shop.
class TstQTabShops : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void filtersNarrowTheList();
    void loadedListCountsAsRead();
    void typedTextIsData();
    void userWithoutGroupsSeesNothing();
    void stateIsColouredAndTold();
    void onlyLongDragsToTheRightCount();
    void rightClickStartsTheProgram();
    void addedShopIsStored();
    void onlyShopsWithoutGatewayMayRepeatIt();
    void refusalsKeepTheDialog();
    void editingKeepsWhatIsNotShown();
    void typeAndCycleKeepStep();
    void whatTheEditorCannotSayStays();
    void renamedGroupIsTold();
    void firstShopOfAChain();
    void shopOfAnUnseenGroupStaysInIt();
    void viewerMayOnlyLook();
    void cancelIsTold();
    void failureWritesNothing();
    void recordFoundAgainAfterASearch();

private:
    void openTab(int right = Permission::Full);
    QStringList shown(int column = 1);
    QString background(int row, int column = 0);
    QComboBox *combo(const QString &name) { return child<QComboBox>(m_tab.get(), name); }
    void type(const QString &text);
    bool edit(int row, const std::function<void(QAddEdtShop *)> &drive);
    bool add(const std::function<void(QAddEdtShop *)> &drive);

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabShops> m_tab;
};

void TstQTabShops::init()
{
    m_place->clear();
    m_base = &m_place->base;
    m_base->exec(
        "INSERT INTO shops(id,address,name,group_shop,day_update,network_shop,sum_cash,count_day_cycle,block,"
        "info_block) VALUES(10,'Львів, Ринок 1','Їжак',2,3,'10.0.0.10',700,7,0,'не чіпати'),"
        "(11,'Київ, 100%_ступінь','Їжак',3,1,NULL,0,1,1,NULL),(12,'Суми, Склад','Склад',3,1,'10.0.0.12',0,0,0,"
        "NULL),(13,'Одеса','Чужий',4,1,NULL,0,1,0,NULL),(14,'Усі групи','Спільний',1,1,NULL,0,1,0,NULL)");
    m_base->exec(
        "INSERT INTO kassa(id,id_shop,advertising_str,ip_address,block) VALUES(20,10,'К1','10.0.1.1',0),"
        "(21,10,'К2','10.0.1.2',1),(22,10,'К3',NULL,0),(23,11,'К1','10.0.1.3',0)");
    openTab();
}

void TstQTabShops::cleanup()
{
    setProgramStarter({});
    m_tab.reset();
}

void TstQTabShops::openTab(int right)
{
    m_tab.reset();
    m_place->logIn(Permission::Shops, right);
    m_tab = std::make_unique<QTabShops>(m_place->connection(), m_place->user(), &m_base->heard,
                                        m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Shops);
    m_tab->resize(1000, 400);
    m_tab->show();
    QTRY_VERIFY(!m_tab->isLoading());
    m_base->heard.forget();
}

QStringList TstQTabShops::shown(int column)
{
    if (!QTest::qWaitFor([this] { return !m_tab->isLoading(); }))
        qFatal("the search did not end");
    QStringList texts;
    for (int row = 0; row < m_tab->model()->rowCount(); ++row)
        texts.append(m_tab->model()->index(row, column).data().toString());
    texts.sort();
    return texts;
}

QString TstQTabShops::background(int row, int column)
{
    return m_tab->model()->index(row, column).data(Qt::BackgroundRole).value<QBrush>().color().name();
}

void TstQTabShops::type(const QString &text)
{
    child<QLineEdit>(m_tab.get(), "leSearch")->setText(text);
}

bool TstQTabShops::edit(int row, const std::function<void(QAddEdtShop *)> &drive)
{
    return inEditor<QAddEdtShop>([&] { m_tab->Edit(m_tab->model()->index(row, 1)); }, drive);
}

bool TstQTabShops::add(const std::function<void(QAddEdtShop *)> &drive)
{
    return inEditor<QAddEdtShop>([&] { m_tab->Add(); }, drive);
}

void TstQTabShops::filtersNarrowTheList()
{
    const QStringList all = {"Київ, 100%_ступінь", "Львів, Ринок 1", "Суми, Склад"};
    QCOMPARE(shown(), all);
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 3"));
    combo("cbGroup")->setCurrentIndex(combo("cbGroup")->findText("Схід"));
    QCOMPARE(shown(), QStringList({"Київ, 100%_ступінь", "Суми, Склад"}));
    combo("cbState")->setCurrentIndex(combo("cbState")->findText("Показати діючі"));
    QCOMPARE(shown(), QStringList{"Суми, Склад"});
    combo("cbState")->setCurrentIndex(combo("cbState")->findText("Показати заблоковані"));
    QCOMPARE(shown(), QStringList{"Київ, 100%_ступінь"});
    type("їжак");
    QCOMPARE(shown(), QStringList{"Київ, 100%_ступінь"});
    type("ринок");
    QCOMPARE(shown(), QStringList());
    type("їжак");
    combo("cbState")->setCurrentIndex(0);
    combo("cbGroup")->setCurrentIndex(0);
    QCOMPARE(shown(), QStringList({"Київ, 100%_ступінь", "Львів, Ринок 1"}));
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 2"));
    type("");
    combo("cbGroup")->setCurrentIndex(combo("cbGroup")->findText("default"));
    QCOMPARE(shown(), QStringList{"Усі групи"});
}

void TstQTabShops::loadedListCountsAsRead()
{
    openTab();
    const QStringList tables = {"shops", "group_shop", "onoffline"};
    const auto isStale = [&](const QStringList &read) {
        shown();
        waitOutTasks();
        bool answer = false;
        DbTasks tasks(m_base->connection()->connectionName(), &m_base->heard, nullptr);
        tasks.read([=](const Db &db) { return QUpdateBD().isUpdate(read, *db.connection(), db.receiver()); },
                   [&](bool told) { answer = told; });
        waitOutTasks();
        return answer;
    };
    QVERIFY(!isStale(tables) && isStale({"goods"}));
    m_base->exec("UPDATE updat SET updat=NOW()-INTERVAL 1 HOUR");
    m_base->exec("UPDATE updat SET updat=NOW()+INTERVAL 1 SECOND WHERE name='onoffline'");
    QVERIFY(isStale(tables));
    type("а");
    QVERIFY(!isStale(tables));
    m_base->exec("UPDATE updat SET updat=NOW()+INTERVAL 2 SECOND WHERE name='group_shop'");
    QVERIFY(isStale(tables));
    type("и");
    QVERIFY(!isStale(tables));
    // A database without the tracker has lists too.
    m_base->exec("RENAME TABLE updat TO updat_away");
    type(QString());
    const QStringList shops = shown();
    m_base->exec("RENAME TABLE updat_away TO updat");
    QVERIFY(!shops.isEmpty());
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabShops::typedTextIsData()
{
    type("%_с");
    QCOMPARE(shown(), QStringList{"Київ, 100%_ступінь"});
    for (const char *text : {"'", "\\", "x'; DELETE FROM kassa; -- ", "\\' OR 1=1 -- ", "?", ":a", "_ %%"}) {
        type(text);
        QCOMPARE(shown(), QStringList());
    }
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM kassa"), QString("4"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabShops::userWithoutGroupsSeesNothing()
{
    m_base->exec("DELETE FROM lst_group");
    openTab();
    QCOMPARE(shown(), QStringList());
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabShops::stateIsColouredAndTold()
{
    m_base->exec("INSERT INTO onoffline VALUES(10,NULL,1,NOW(),NULL),(11,NULL,1,NOW(),NULL),"
                 "(12,NULL,0,NOW(),NULL),(10,20,1,NOW(),NULL),(12,NULL,1,NOW(),NOW())");
    m_tab->seerch("");
    QCOMPARE(shown().size(), 3);
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QCOMPARE(background(0), QString("#00ff00"));
    QCOMPARE(background(1), QString("#ffff00"));
    QCOMPARE(background(2), QString("#ff0000"));
    const auto sign = [this](int row) { return m_tab->model()->index(row, 0).data(signRole).toString(); };
    QCOMPARE(sign(0) + sign(1) + sign(2), QString("✓!✗"));
    const QModelIndex partly = m_tab->model()->index(1, 0);
    QCOMPARE(partly.data().toString(), QString("11"));
    for (const int role : {Qt::ToolTipRole, Qt::AccessibleDescriptionRole})
        QCOMPARE(partly.data(role).toString(), QString("Не всі каси на зв'язку"));
    m_base->exec("UPDATE onoffline SET onoff=0 WHERE id_kass=20");
    m_tab->editadd("WHERE shops.id=10", m_tab->model()->index(0, 0), false);
    waitOutTasks();
    QCOMPARE(background(0) + sign(0), QString("#ffff00!"));
}

void TstQTabShops::onlyLongDragsToTheRightCount()
{
    QSignalSpy wanted(m_tab.get(), &QTabShops::MoveMouseSignal);
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    const auto drag = [this](int from, int to, int fromRow, int toRow) {
        QNTableView *view = m_tab->view();
        const int top = view->rowViewportPosition(fromRow) + 5;
        const int end = view->rowViewportPosition(toRow) + 5;
        QTest::mousePress(view->viewport(), Qt::LeftButton, {}, {from, top});
        QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, {to, end});
    };
    drag(100, 150, 1, 1);
    drag(200, 100, 1, 1);
    drag(100, 200, 1, 2);
    QCOMPARE(wanted.count(), 0);
    drag(100, 151, 1, 1);
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(wanted.takeFirst().at(0).toUInt(), 11U);
    m_tab->view()->setCurrentIndex(m_tab->model()->index(2, 1));
    QTest::keyClick(m_tab->view(), Qt::Key_Right, Qt::ControlModifier);
    QTRY_COMPARE(wanted.count(), 1);
    QCOMPARE(wanted.at(0).at(0).toUInt(), 12U);
}

void TstQTabShops::rightClickStartsTheProgram()
{
    QStringList started;
    setProgramStarter([&started](const QString &program, const QStringList &arguments) {
        started = QStringList(program) + arguments;
        return true;
    });
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    const auto click = [this](int row) {
        const QRect cell = m_tab->view()->visualRect(m_tab->model()->index(row, 1));
        QTest::mouseClick(m_tab->view()->viewport(), Qt::RightButton, {}, cell.center());
    };
    click(0);
    QCOMPARE(started, QStringList());
    m_place->writeSettings("[COMAND_RCLICK_SHOP]\nPATH_PROGRAM=/opt/viewer\nPARAM_PRG=-host [{IP}]\n");
    click(0);
    QCOMPARE(started, QStringList({"/opt/viewer", "-host", "10.0.0.10"}));
    started.clear();
    QCOMPARE(answerQuestion([&] { click(1); }), QString("Помилка в IP адресі"));
    QTest::mouseClick(m_tab->view()->viewport(), Qt::RightButton, {}, {10, 380});
    QCOMPARE(started, QStringList());

    m_base->exec("INSERT INTO comands(name,comand,param) VALUES('Екран','/opt/screen','[{IP}]')");
    m_tab->seerch("");
    QTRY_VERIFY(!m_tab->isLoading());
    waitOutTasks();
    click(0);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->actions().first()->text(), QString("Програма з налаштувань: viewer"));
    QCOMPARE(menu->defaultAction(), menu->actions().first());
    QCOMPARE(menu->actions().last()->toolTip(), QString("\"/opt/screen\" [{IP}]"));
    // The list may show other rows by the time of the answer.
    m_base->exec("UPDATE shops SET network_shop='10.9.9.9' WHERE network_shop='10.0.0.10'");
    m_tab->seerch("");
    QTRY_VERIFY(!m_tab->isLoading());
    QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(menu->actions().last()).center());
    QCOMPARE(started, QStringList({"/opt/screen", "10.0.0.10"}));
    m_place->writeSettings("");
    started.clear();
    click(0);
    menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->actions().size(), 1);
    QCOMPARE(menu->actions().first()->text(), QString("Екран"));
    QCOMPARE(started, QStringList());
    menu->close();
    m_base->exec("DELETE FROM comands");
}

void TstQTabShops::addedShopIsStored()
{
    m_base->exec("UPDATE updat SET updat='2020-01-01'");
    QVERIFY(add([](QAddEdtShop *editor) {
        QCOMPARE(editor->windowTitle(), QString("Додавання нового запису"));
        enter(editor, "leAddress", "Дніпро, \"О'Генрі\" \\ 50%");
        enter(editor, "leName", "Новий");
        enter(editor, "cbGroup", "Захід");
        enter(editor, "cbDay", "П'ятниця");
        for (int i = 1; i <= 4; ++i)
            enter(editor, QString("leTitle%1").arg(i), QString("верх %1").arg(i));
        enter(editor, "leEnd1", "низ 1");
        enter(editor, "leEnd2", "низ 2");
        enter(editor, "leNetwork", "192.168.1.7");
        child<QSpinBox>(editor, "sbDayCycle")->setValue(30);
        enter(editor, "cbBlock", "Так");
        QTest::keyClick(editor, Qt::Key_Return);
    }));
    QCOMPARE(m_base->rows("SELECT address,name,group_shop,day_update,one_str_title,two_str_title,"
                          "three_str_title,four_str_title,one_str_bottom,two_str_bottom,network_shop,"
                          "count_day_cycle,block FROM shops WHERE id>14"),
             QStringList{"Дніпро, \"О'Генрі\" \\ 50%|Новий|2|5|верх 1|верх 2|верх 3|верх 4|низ 1|низ 2|"
                         "192.168.1.7|30|1"});
    waitOutTasks();
    const int row = m_tab->model()->rowCount() - 1;
    QCOMPARE(m_tab->view()->currentIndex().row(), row);
    QCOMPARE(m_tab->model()->stored(row, 1), QString("Дніпро, \"О'Генрі\" \\ 50%"));
    QCOMPARE(m_tab->model()->stored(row, 0), m_base->value("SELECT MAX(id) FROM shops"));
    QCOMPARE(background(row), QString("#ff0000"));
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 4"));
    QCOMPARE(m_base->value("SELECT name FROM updat WHERE updat>'2020-01-01'"), QString("shops"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabShops::onlyShopsWithoutGatewayMayRepeatIt()
{
    for (const QString network : {"", "...", "10.0.0.10"}) {
        QString told;
        QVERIFY(add([&](QAddEdtShop *editor) {
            enter(editor, "leAddress", "Новий" + network);
            enter(editor, "cbGroup", "Захід");
            enter(editor, "leNetwork", network);
            told = saveMeets(editor);
            if (!told.isEmpty())
                QCOMPARE(child<QLineEdit>(editor, "leAddress")->text(), "Новий" + network);
        }));
        QCOMPARE(told,
                 network == "10.0.0.10"
                     ? QString("Шлюз 10.0.0.10 вже має інший магазин!\nПоле \"Шлюз\": таке значення має "
                               "запис №10 \"Львів, Ринок 1\".")
                     : QString());
    }
    QCOMPARE(m_base->rows("SELECT address,network_shop IS NULL FROM shops WHERE id>14"),
             QStringList({"Новий|1", "Новий...|1"}));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabShops::refusalsKeepTheDialog()
{
    QVERIFY(add([](QAddEdtShop *editor) {
        QCOMPARE(saveMeets(editor), QString("Адреса магазину не може бути пустою"));
        enter(editor, "leAddress", "львів, ринок 1");
        QCOMPARE(saveMeets(editor), QString("Група магазину не може бути пустою"));
        enter(editor, "cbGroup", "Схід");
        QCOMPARE(saveMeets(editor),
                 QString("Адреса магазину вже існує в базі!\nПоле \"Адреса магазину\": таке "
                         "значення має запис №10 \"Львів, Ринок 1\"."));
        QVERIFY(editor->isVisible());
        QCOMPARE(child<QLineEdit>(editor, "leAddress")->text(), QString("львів, ринок 1"));
    }));
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QVERIFY(edit(0, [](QAddEdtShop *editor) {
        QCOMPARE(saveMeets(editor), QString());
        QVERIFY(!editor->isVisible());
    }));
    QVERIFY(edit(0, [](QAddEdtShop *editor) {
        enter(editor, "leAddress", "Суми, Склад");
        QVERIFY(saveMeets(editor).startsWith("Адреса магазину вже існує в базі!"));
    }));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM shops"), QString("5"));
    QCOMPARE(m_base->value("SELECT address FROM shops WHERE id=10"), QString("Львів, Ринок 1"));
}

void TstQTabShops::editingKeepsWhatIsNotShown()
{
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QVERIFY(edit(0, [](QAddEdtShop *editor) {
        QCOMPARE(editor->windowTitle(), QString("Редагування запису №10"));
        QCOMPARE(child<QComboBox>(editor, "cbDay")->currentText(), QString("Середа"));
        QCOMPARE(child<QLineEdit>(editor, "leNetwork")->text(), QString("10.0.0.10"));
        QCOMPARE(child<QLineEdit>(editor, "leAddress")->maxLength(), 150);
        QCOMPARE(child<QLineEdit>(editor, "leEnd2")->maxLength(), 50);
        enter(editor, "leName", "Їжачок");
        enter(editor, "leNetwork", "");
        child<QPushButton>(editor, "pbOk")->click();
    }));
    QCOMPARE(m_base->rows("SELECT address,name,group_shop,day_update,network_shop,sum_cash,count_day_cycle,"
                          "block,info_block FROM shops WHERE id=10"),
             QStringList{"Львів, Ринок 1|Їжачок|2|3||700|7|0|не чіпати"});
    QCOMPARE(m_tab->model()->stored(0, 2), QString("Їжачок"));
    QCOMPARE(m_tab->model()->stored(0, 0), QString("10"));
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 3"));
}

void TstQTabShops::typeAndCycleKeepStep()
{
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QVERIFY(edit(0, [](QAddEdtShop *editor) {
        auto *type = child<QComboBox>(editor, "cbType");
        auto *cycle = child<QSpinBox>(editor, "sbDayCycle");
        QCOMPARE(type->currentText(), QString("Магазин"));
        enter(editor, "cbType", "Офіс");
        QCOMPARE(cycle->value(), -1);
        cycle->setValue(0);
        QCOMPARE(type->currentText(), QString("Склад"));
        enter(editor, "cbType", "Магазин");
        QCOMPARE(cycle->value(), 7);
        cycle->setValue(366);
        QCOMPARE(type->currentText(), QString("Магазин"));
        QCOMPARE(cycle->value(), 366);
        enter(editor, "cbType", "Офіс");
        child<QPushButton>(editor, "pbOk")->click();
    }));
    QCOMPARE(m_base->value("SELECT count_day_cycle FROM shops WHERE id=10"), QString("-1"));
    QVERIFY(edit(2, [](QAddEdtShop *editor) {
        QCOMPARE(child<QComboBox>(editor, "cbType")->currentText(), QString("Склад"));
        QVERIFY(child<QLabel>(editor, "labelGateway")->isHidden());
        enter(editor, "leNetwork", "10.0.0");
        QVERIFY(!child<QLabel>(editor, "labelGateway")->isHidden());
    }));
}

void TstQTabShops::whatTheEditorCannotSayStays()
{
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    for (const char *cycle : {"NULL", "100000", "-7"}) {
        m_base->exec(QString("UPDATE shops SET name=NULL,day_update=NULL,block=NULL,one_str_title=NULL,"
                             "group_shop=NULL,two_str_bottom='x',count_day_cycle=%1 WHERE id=10")
                         .arg(cycle));
        QVERIFY(edit(0, [&](QAddEdtShop *editor) {
            enter(editor, "leAddress", QString("Львів ") + cycle);
            QCOMPARE(child<QComboBox>(editor, "cbType")->currentIndex() < 0, QString(cycle) == "NULL");
            QCOMPARE(saveMeets(editor), QString());
        }));
        QCOMPARE(m_base->value("SELECT CONCAT_WS('|',address,name,day_update,block,one_str_title,group_shop,"
                               "two_str_bottom,IFNULL(count_day_cycle,'NULL')) FROM shops WHERE id=10"),
                 QString("Львів %1|x|%1").arg(cycle));
    }
    m_base->exec("UPDATE shops SET count_day_cycle=NULL WHERE id=10");
    QVERIFY(edit(0, [&](QAddEdtShop *editor) {
        enter(editor, "cbType", "Склад");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->value("SELECT count_day_cycle FROM shops WHERE id=10"), QString("0"));
}

void TstQTabShops::renamedGroupIsTold()
{
    QVERIFY(add([this](QAddEdtShop *editor) {
        enter(editor, "leAddress", "Новий");
        enter(editor, "cbGroup", "Захід");
        m_base->exec("UPDATE group_shop SET name='Інша' WHERE id=2");
        const QString why = saveMeets(editor);
        QVERIFY2(why.contains("вибране в полі \"Група\" перейменувала інша програма"), qPrintable(why));
    }));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM shops"), QString("5"));
}

void TstQTabShops::firstShopOfAChain()
{
    m_base->exec("DELETE FROM lst_group WHERE id_group>1");
    openTab();
    QCOMPARE(combo("cbGroup")->currentText(), QString("default"));
    QCOMPARE(shown(), QStringList("Усі групи"));
    QVERIFY(add([](QAddEdtShop *editor) {
        QCOMPARE(child<QComboBox>(editor, "cbGroup")->currentText(), QString("default"));
    }));
}

void TstQTabShops::shopOfAnUnseenGroupStaysInIt()
{
    m_base->exec("UPDATE shops SET group_shop=4 WHERE id=10");
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QVERIFY(edit(0, [](QAddEdtShop *editor) {
        QCOMPARE(child<QComboBox>(editor, "cbGroup")->currentText(), QString("Чужа"));
        child<QPushButton>(editor, "pbOk")->click();
    }));
    QCOMPARE(m_base->value("SELECT group_shop FROM shops WHERE id=10"), QString("4"));
}

void TstQTabShops::viewerMayOnlyLook()
{
    openTab(2);
    m_tab->Add();
    QVERIFY(edit(0, [](QAddEdtShop *editor) {
        QVERIFY(child<QLineEdit>(editor, "leAddress")->isReadOnly());
        QVERIFY(!child<QComboBox>(editor, "cbType")->isEnabled());
        QVERIFY(!child<QPushButton>(editor, "pbOk")->isEnabled());
        editor->btok();
        QVERIFY(editor->isVisible());
        QTest::keyClick(editor, Qt::Key_Escape);
        QVERIFY(!editor->isVisible());
    }));
    QVERIFY(!m_base->heard.has("відмінено користувачем", QMessEvent::Information));
}

void TstQTabShops::cancelIsTold()
{
    QVERIFY(edit(0, [](QAddEdtShop *editor) { child<QPushButton>(editor, "pbCancel")->click(); }));
    QVERIFY(m_base->heard.has("Зміни не внесені, відмінено користувачем!"));
    QVERIFY(add([](QAddEdtShop *editor) { editor->reject(); }));
    QVERIFY(m_base->heard.has("Запис не додано, відмінено користувачем!"));
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 3"));
}

void TstQTabShops::failureWritesNothing()
{
    m_base->exec("RENAME TABLE shops TO shops_away");
    QVERIFY(answerQuestion([&] { m_tab->Edit(m_tab->model()->index(0, 0)); }).isEmpty());
    QVERIFY(m_base->heard.has("Помилка запиту:", QMessEvent::Critical));
    QCOMPARE(m_tab->model()->rowCount(), 3);
    QVERIFY(add([](QAddEdtShop *editor) {
        enter(editor, "leAddress", "Новий");
        enter(editor, "cbGroup", "Захід");
        QCOMPARE(saveMeets(editor), QString());
        QVERIFY2(editor->isVisible(), "a failure leaves the dialog open");
    }));
    m_base->exec("RENAME TABLE shops_away TO shops");
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM shops"), QString("5"));
    QCOMPARE(m_tab->model()->rowCount(), 3);
}

void TstQTabShops::recordFoundAgainAfterASearch()
{
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QVERIFY(edit(1, [this](QAddEdtShop *editor) {
        type("їжак");
        shown();
        m_tab->view()->sortByColumn(0, Qt::DescendingOrder);
        enter(editor, "leName", "Інший");
        child<QPushButton>(editor, "pbOk")->click();
    }));
    QCOMPARE(shown(2), QStringList({"Інший", "Їжак"}));
    QCOMPARE(m_tab->model()->stored(0, 0) + m_tab->model()->stored(0, 2), QString("11Інший"));
}

QTEST_MAIN(TstQTabShops)
#include "tst_qtabshops.moc"
