#include "workplace.h"

#include "changesdialog.h"
#include "launch.h"
#include "qaddedtkass.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabkass.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>

/// The registers tab with its filters, colours and launches, and the editor of a register.
class TstQTabKass : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void shopAndGroupNarrowTheList();
    void loadDataTakesFiltersBack();
    void openIntervalIsGreen();
    void dragAndClickStartTheirPrograms();
    void namedCommandsAreOffered();
    void addedRegisterIsStored();
    void emptyFieldsAreNull();
    void refusals();
    void adverIsUniqueWithinAShop();
    void editingKeepsWhatIsNotShown();
    void shopsThatChangedNamesAreTold();
    void wrongGatewayIsTold();
    void wrongAddressIsColouredOnLeaving();
    void noGroupNoEditor();

private:
    void openTab(int right = Permission::Full);
    QStringList shown(int column);
    QComboBox *combo(const QString &name) { return child<QComboBox>(m_tab.get(), name); }
    bool edit(int id, const std::function<void(QAddEdtKass *)> &drive);
    bool add(const std::function<void(QAddEdtKass *)> &drive);
    QStringList stored(const QString &where);

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabKass> m_tab;
    QStringList m_started;
};

void TstQTabKass::init()
{
    m_place->clear();
    m_base = &m_place->base;
    m_base->exec("DELETE FROM comands");
    m_base->exec("INSERT INTO shops(id,address,group_shop,network_shop,count_day_cycle,block) VALUES"
                 "(10,'Львів',2,'10.0.0.10',7,0),(11,'Київ',3,NULL,1,0),(12,'Склад',3,NULL,0,0),"
                 "(13,'Офіс',3,NULL,-1,0),(14,'Чужий',4,NULL,1,0)");
    m_base->exec(
        "INSERT INTO kassa(id,id_shop,advertising_str,cashdrive_code,head_edit,block,info_block,ip_address,"
        "id_type,marka,model,number,id_device) VALUES(20,10,'Каса 1','001',1,0,'інфо','10.0.1.1',2,'М','Мод',"
        "'777',3),(21,10,'Каса 2',NULL,0,1,NULL,NULL,NULL,NULL,NULL,NULL,NULL),"
        "(22,11,'Каса 1','000',0,0,NULL,'10.0.1.3',1,NULL,NULL,NULL,NULL),"
        "(23,14,'Чужа',NULL,0,0,NULL,NULL,NULL,NULL,NULL,NULL,NULL)");
    m_started.clear();
    setProgramStarter([this](const QString &program, const QStringList &arguments) {
        m_started = QStringList(program) + arguments;
        return true;
    });
    m_place->writeSettings("");
    openTab();
}

void TstQTabKass::cleanup()
{
    setProgramStarter({});
    m_tab.reset();
}

void TstQTabKass::openTab(int right)
{
    m_tab.reset();
    m_place->logIn(Permission::Kassa, right);
    m_tab = std::make_unique<QTabKass>(m_place->connection(), m_place->user(), &m_base->heard,
                                       m_place->settings(), nullptr);
    m_tab->setPermission(Permission::Kassa);
    m_tab->resize(1000, 400);
    m_tab->show();
    m_tab->view()->sortByColumn(0, Qt::AscendingOrder);
    QTRY_VERIFY(!m_tab->isLoading());
    m_base->heard.forget();
}

QStringList TstQTabKass::shown(int column)
{
    if (!QTest::qWaitFor([this] { return !m_tab->isLoading(); }))
        qFatal("the search did not end");
    QStringList texts;
    for (int row = 0; row < m_tab->model()->rowCount(); ++row)
        texts.append(m_tab->model()->stored(row, column));
    return texts;
}

bool TstQTabKass::edit(int id, const std::function<void(QAddEdtKass *)> &drive)
{
    const int row = shown(0).indexOf(QString::number(id));
    return inEditor<QAddEdtKass>([&] { m_tab->Edit(m_tab->model()->index(row, 1)); }, drive);
}

bool TstQTabKass::add(const std::function<void(QAddEdtKass *)> &drive)
{
    return inEditor<QAddEdtKass>([&] { m_tab->Add(); }, drive);
}

QStringList TstQTabKass::stored(const QString &where)
{
    return m_base->rows("SELECT id_shop,advertising_str,IFNULL(cashdrive_code,'NULL'),head_edit,block,"
                        "info_block,marka,model,number,IFNULL(ip_address,'NULL'),IFNULL(id_type,'NULL'),"
                        "id_device FROM kassa WHERE " +
                        where);
}

void TstQTabKass::shopAndGroupNarrowTheList()
{
    QCOMPARE(shown(0), QStringList({"20", "21", "22"}));
    combo("cbGroup")->setCurrentIndex(combo("cbGroup")->findText("Схід"));
    QCOMPARE(shown(0), QStringList{"22"});
    QCOMPARE(combo("cbShop")->itemText(0), QString("Магазин"));
    QCOMPARE(combo("cbShop")->count(), 4);
    combo("cbGroup")->setCurrentIndex(0);
    waitOutTasks();
    combo("cbShop")->setCurrentIndex(combo("cbShop")->findText("Львів"));
    QCOMPARE(shown(0), QStringList({"20", "21"}));
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 2"));
    child<QLineEdit>(m_tab.get(), "leSearch")->setText("ки");
    QCOMPARE(shown(0), QStringList());
    combo("cbShop")->setCurrentIndex(0);
    QCOMPARE(shown(0), QStringList{"22"});
    combo("cbGroup")->setCurrentIndex(combo("cbGroup")->findText("Захід"));
    QCOMPARE(shown(0), QStringList());
    combo("cbGroup")->setCurrentIndex(0);
    child<QLineEdit>(m_tab.get(), "leSearch")->setText("'; DELETE FROM onoffline; -- %");
    QCOMPARE(shown(0), QStringList());
    m_base->exec("DELETE FROM lst_group");
    openTab();
    QCOMPARE(shown(0), QStringList());
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabKass::loadDataTakesFiltersBack()
{
    combo("cbGroup")->setCurrentIndex(combo("cbGroup")->findText("Схід"));
    child<QLineEdit>(m_tab.get(), "leSearch")->setText("нічого");
    m_tab->LoadData(10);
    waitOutTasks();
    QCOMPARE(combo("cbGroup")->currentIndex(), 0);
    QCOMPARE(combo("cbShop")->currentText(), QString("Львів"));
    QCOMPARE(shown(0), QStringList({"20", "21"}));
    m_tab->LoadData(0);
    QCOMPARE(shown(0), QStringList({"20", "21", "22"}));
    m_tab->LoadData(14);
    waitOutTasks();
    QCOMPARE(combo("cbShop")->currentIndex(), 0);
    QVERIFY(!shown(0).contains("23"));
}

void TstQTabKass::openIntervalIsGreen()
{
    m_base->exec("INSERT INTO onoffline VALUES(10,20,1,NOW(),NULL),(11,22,1,NOW(),NOW()),"
                 "(10,21,0,NOW(),NULL)");
    m_tab->seerch("");
    QCOMPARE(shown(0).size(), 3);
    const auto colour = [this](int row) {
        return m_tab->model()->index(row, 0).data(Qt::BackgroundRole).value<QBrush>().color().name();
    };
    QCOMPARE(colour(0), QString("#00ff00"));
    QCOMPARE(colour(1), QString("#ff0000"));
    QCOMPARE(colour(2), QString("#ff0000"));
    QCOMPARE(m_tab->model()->index(2, 3).data(Qt::ToolTipRole).toString(), QString("Немає зв'язку"));
}

void TstQTabKass::dragAndClickStartTheirPrograms()
{
    const auto drag = [this](int pixels, int row) {
        m_started.clear();
        const int y = m_tab->view()->rowViewportPosition(row) + 5;
        QTest::mousePress(m_tab->view()->viewport(), Qt::LeftButton, {}, {100, y});
        QTest::mouseRelease(m_tab->view()->viewport(), Qt::LeftButton, {}, {100 + pixels, y});
        return m_started.join(' ');
    };
    const auto click = [this](int row) {
        m_started.clear();
        const QPoint place(100, m_tab->view()->rowViewportPosition(row) + 5);
        QTest::mouseClick(m_tab->view()->viewport(), Qt::RightButton, {}, place);
        return m_started.join(' ');
    };
    QCOMPARE(drag(200, 0) + click(0), QString());
    m_place->writeSettings("[COMAND_RCLICK_KASS]\nPATH_PROGRAM=/opt/click\nPARAM_PRG=[{IP}] [{IP}]\n"
                           "[COMAND_LMOVE_KASS]\nPATH_PROGRAM=/opt/drag\nPARAM_PRG=plain\n");
    QCOMPARE(drag(49, 0) + drag(-200, 0), QString());
    QCOMPARE(drag(50, 0), QString("/opt/drag plain"));
    QCOMPARE(drag(50, 2), QString("/opt/drag plain"));
    QCOMPARE(drag(50, 1) + click(1), QString());
    QVERIFY2(m_base->heard.has("Тип пристрою не вказано"), "nothing is started for what has no type");
    QCOMPARE(click(0), QString("/opt/click 10.0.1.1 10.0.1.1"));
    QString started;
    m_base->exec("UPDATE kassa SET id_type=5 WHERE id=21");
    m_tab->seerch("");
    QCOMPARE(shown(0).size(), 3);
    waitOutTasks();
    QCOMPARE(answerQuestion([&] { started = click(1); }), QString("Помилка в IP адресі"));
    QCOMPARE(started, QString());
}

/// The command named like the type of the device takes the place of the settings' one; the others are offered
/// below it, and the keyboard has them too.
void TstQTabKass::namedCommandsAreOffered()
{
    m_place->writeSettings("[COMAND_RCLICK_KASS]\nPATH_PROGRAM=/opt/click\n"
                           "[COMAND_LMOVE_KASS]\nPATH_PROGRAM=/opt/drag\n");
    m_base->exec("INSERT INTO comands(name,comand,param) VALUES('рро ','/opt/of type','[{IP}]')");
    m_tab->seerch("");
    QCOMPARE(shown(0), QStringList({"20", "21", "22"}));
    waitOutTasks();
    const auto click = [this](int row) {
        m_started.clear();
        const QPoint place(100, m_tab->view()->rowViewportPosition(row) + 5);
        QTest::mouseClick(m_tab->view()->viewport(), Qt::RightButton, {}, place);
    };
    const auto offered = [] {
        QStringList captions;
        if (const auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget())) {
            for (const QAction *action : menu->actions())
                captions.append((action == menu->defaultAction() ? "*" : "") + action->text());
        }
        return captions.join('/');
    };
    const auto answer = [](int key) { QTest::keyClick(QApplication::activePopupWidget(), Qt::Key(key)); };
    click(0);
    QCOMPARE(m_started, QStringList({"/opt/of type", "10.0.1.1"}));
    click(2);
    QCOMPARE(offered(), QString("*Програма з налаштувань: click//рро"));
    answer(Qt::Key_Return);
    QCOMPARE(m_started, QStringList("/opt/click"));

    m_base->exec("INSERT INTO comands(name,comand,param) VALUES('A & B','/opt/a','x [{IP}]'),('','',''),"
                 "(NULL,'C:\\\\bin\\\\v.exe',NULL)");
    m_tab->hide();
    QVERIFY(showActive(m_tab.get()));
    waitOutTasks();
    m_tab->view()->setCurrentIndex(m_tab->model()->index(0, 1));
    m_tab->view()->setFocus();
    m_started.clear();
    pressKeys({Qt::CTRL + Qt::Key_R});
    QCOMPARE(offered(), QString("*рро//v.exe/A && B"));
    answer(Qt::Key_Escape);
    QCOMPARE(offered() + m_started.join(' '), QString());
    QVERIFY(showActive(m_tab.get()));
    pressKeys({Qt::CTRL + Qt::Key_R});
    answer(Qt::Key_Up);
    answer(Qt::Key_Return);
    QCOMPARE(m_started, QStringList({"/opt/a", "x", "10.0.1.1"}));
    QVERIFY(showActive(m_tab.get()));
    pressKeys({Qt::CTRL + Qt::Key_Right});
    QCOMPARE(m_started, QStringList("/opt/drag"));
    click(1);
    QCOMPARE(offered(), QString());
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabKass::addedRegisterIsStored()
{
    m_tab->LoadData(10);
    QCOMPARE(shown(0).size(), 2);
    m_base->exec("UPDATE updat SET updat='2020-01-01'");
    QVERIFY(add([](QAddEdtKass *editor) {
        QCOMPARE(editor->windowTitle(), QString("Додавання нового запису"));
        QCOMPARE(child<QComboBox>(editor, "cbGroup")->currentText(), QString("Захід"));
        QCOMPARE(child<QComboBox>(editor, "cbShop")->currentText(), QString("Львів"));
        QCOMPARE(child<QLineEdit>(editor, "leGateway")->text(), QString("10.0.0.10"));
        enter(editor, "leAdver", "Каса \"О'Г\" \\");
        enter(editor, "leCashDrive", "042");
        enter(editor, "cbHeadEdit", "Так");
        enter(editor, "cbBlock", "Так");
        enter(editor, "leInfoBlock", "ремонт");
        enter(editor, "cbType", "Камера");
        enter(editor, "leMarka", "марка");
        enter(editor, "leModel", "модель");
        enter(editor, "leNumber", "№ 5");
        enter(editor, "leIp", "10.0.1.77");
        QTest::keyClick(editor, Qt::Key_Return);
    }));
    QCOMPARE(stored("id>23"), QStringList{"10|Каса \"О'Г\" \\|042|1|1|ремонт|марка|модель|№ 5|10.0.1.77|3|"});
    QCOMPARE(m_tab->view()->currentIndex().row(), 2);
    QCOMPARE(m_tab->model()->stored(2, 3), QString("10.0.1.77"));
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: 3"));
    QCOMPARE(m_base->value("SELECT name FROM updat WHERE updat>'2020-01-01'"), QString("kassa"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabKass::emptyFieldsAreNull()
{
    for (const char *adver : {"А", "Б"}) {
        QVERIFY(add([adver](QAddEdtKass *editor) {
            enter(editor, "cbGroup", "Захід");
            enter(editor, "cbShop", "Львів");
            enter(editor, "leAdver", adver);
            enter(editor, "cbType", "інше");
            QCOMPARE(saveMeets(editor), QString());
        }));
    }
    QCOMPARE(stored("id>23"), QStringList({"10|А|NULL|0|0|||||NULL|NULL|", "10|Б|NULL|0|0|||||NULL|NULL|"}));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabKass::refusals()
{
    QVERIFY(add([](QAddEdtKass *editor) {
        QCOMPARE(saveMeets(editor), QString("Рекламний рядок ідентифікації каси не може бути порожній!"));
        enter(editor, "leAdver", "Каса 1");
        QCOMPARE(saveMeets(editor), QString("Адреса магазину не може бути порожня!"));
        enter(editor, "cbGroup", "Схід");
        const auto *shops = child<QComboBox>(editor, "cbShop");
        QCOMPARE(shops->count(), 1);
        QCOMPARE(shops->itemText(0), QString("Київ"));
        QCOMPARE(saveMeets(editor), QString("Адреса магазину не може бути порожня!"));
        enter(editor, "cbShop", "Київ");
        for (const char *code : {"1", "12"}) {
            enter(editor, "leCashDrive", code);
            QCOMPARE(saveMeets(editor),
                     QString("Код CashDrive повинен складатися з трьох цифр або бути порожнім!"));
        }
        enter(editor, "leCashDrive", "000");
        QCOMPARE(
            saveMeets(editor),
            QString("Рекламний рядок ідентифікації каси повинен бути унікальним в межах одного магазину!\n"
                    "Поле \"Рекламний рядок\": таке значення має запис №22 \"Київ, Каса 1\"."));
        enter(editor, "leAdver", "Каса 9");
        QVERIFY(saveMeets(editor).startsWith("Код CashDrive повинен бути унікальним!"));
        QVERIFY(editor->isVisible());
        auto *code = child<QLineEdit>(editor, "leCashDrive");
        code->clear();
        QTest::keyClicks(code, "a12x34");
        QCOMPARE(code->text(), QString("123"));
    }));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM kassa"), QString("4"));
}

void TstQTabKass::adverIsUniqueWithinAShop()
{
    QVERIFY(edit(21, [](QAddEdtKass *editor) {
        enter(editor, "leAdver", "Каса 1");
        QVERIFY(saveMeets(editor).startsWith("Рекламний рядок"));
        enter(editor, "cbGroup", "Схід");
        enter(editor, "cbShop", "Київ");
        enter(editor, "leAdver", "Каса 2");
        enter(editor, "leCashDrive", "001");
        QCOMPARE(saveMeets(editor),
                 QString("Код CashDrive повинен бути унікальним!\nПоле \"Код CashDrive\": таке "
                         "значення має запис №20 \"Львів, Каса 1\"."));
        enter(editor, "leCashDrive", "");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored("id=21"), QStringList{"11|Каса 2|NULL|0|1|||||NULL|NULL|"});
    QCOMPARE(shown(1).at(1), QString("Київ"));
}

void TstQTabKass::editingKeepsWhatIsNotShown()
{
    QVERIFY(edit(20, [](QAddEdtKass *editor) {
        QCOMPARE(editor->windowTitle(), QString("Редагування запису №20"));
        QCOMPARE(child<QComboBox>(editor, "cbType")->currentText(), QString("РРО"));
        QCOMPARE(child<QLineEdit>(editor, "leAdver")->maxLength(), 50);
        enter(editor, "leModel", "Мод 2");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(stored("id=20"), QStringList{"10|Каса 1|001|1|0|інфо|М|Мод 2|777|10.0.1.1|2|3"});
    for (const char *cycle : {"0", "-1", "NULL"}) {
        m_base->exec(QString("UPDATE shops SET count_day_cycle=%1 WHERE id=10").arg(cycle));
        QVERIFY(edit(20, [cycle](QAddEdtKass *editor) {
            enter(editor, "leModel", cycle);
            QCOMPARE(saveMeets(editor), QString());
        }));
        QCOMPARE(m_base->value("SELECT CONCAT(id_shop,model) FROM kassa WHERE id=20"), QString("10") + cycle);
    }
    QVERIFY(edit(20, [](QAddEdtKass *editor) {
        enter(editor, "cbGroup", "Схід");
        enter(editor, "cbGroup", "Захід");
        QVERIFY2(child<QComboBox>(editor, "cbShop")->findText("Львів") < 0, "an office is not offered anew");
        QCOMPARE(saveMeets(editor),
                 QString("Адреса магазину не може бути порожня!\nУ цій групі ще немає магазинів з "
                         "касами: спершу додайте магазин у вкладці \"Магазини\"."));
    }));
    QVERIFY(edit(21, [](QAddEdtKass *editor) {
        enter(editor, "leAdver", "Каса 9");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->value("SELECT (cashdrive_code IS NULL)+(info_block IS NULL)+(marka IS NULL)+(model IS "
                           "NULL)+(number IS NULL)+(ip_address IS NULL)+(id_type IS NULL) FROM kassa WHERE "
                           "advertising_str='Каса 9'"),
             QString("7"));
}

void TstQTabKass::shopsThatChangedNamesAreTold()
{
    QVERIFY(edit(20, [this](QAddEdtKass *editor) {
        enter(editor, "leAdver", "Каса 7");
        // Now another shop has the address that the editor shows.
        m_base->exec({"UPDATE shops SET address='Старий' WHERE id=10",
                      "UPDATE shops SET address='Львів' WHERE "
                      "id=11"});
        const QString why = saveMeets(editor);
        QVERIFY2(why.contains("вибране в полі \"Адреса магазину\" перейменувала інша програма"),
                 qPrintable(why));
        QVERIFY(editor->isVisible());
        m_base->exec({"UPDATE shops SET address='Київ' WHERE id=11",
                      "UPDATE shops SET address='Львів' WHERE id=10",
                      "UPDATE kassa SET block=1 WHERE id=20"});
        QVERIFY(withModal<ChangesDialog>([&] { child<QPushButton>(editor, "pbOk")->click(), waitOutTasks(); },
                                         [](ChangesDialog *dialog) { dialog->reject(); }));
    }));
    QCOMPARE(stored("id=20"), QStringList{"10|Каса 1|001|1|1|інфо|М|Мод|777|10.0.1.1|2|3"});
}

void TstQTabKass::wrongGatewayIsTold()
{
    m_base->exec("UPDATE shops SET network_shop='10.0..1' WHERE id=11");
    QVERIFY(edit(20, [](QAddEdtKass *editor) {
        const auto *warning = child<QLabel>(editor, "labelGateway");
        QCOMPARE(warning->text(), QString("Не коректна ip адреса шлюзу;"));
        QVERIFY(warning->isHidden());
        enter(editor, "cbGroup", "Схід");
        enter(editor, "cbShop", "Київ");
        QCOMPARE(child<QLineEdit>(editor, "leGateway")->text(), QString("10.0..1"));
        QVERIFY(!warning->isHidden());
        enter(editor, "leAdver", "Каса 3");
        QCOMPARE(saveMeets(editor), QString());
    }));
    QCOMPARE(m_base->value("SELECT id_shop FROM kassa WHERE id=20"), QString("11"));
}

void TstQTabKass::wrongAddressIsColouredOnLeaving()
{
    QVERIFY(edit(20, [](QAddEdtKass *editor) {
        auto *ip = child<QLineEdit>(editor, "leIp");
        const QColor usual = ip->palette().color(QPalette::Base);
        const auto leave = [ip] {
            QFocusEvent event(QEvent::FocusOut);
            QApplication::sendEvent(ip, &event);
            return ip->palette().color(QPalette::Base);
        };
        QCOMPARE(leave(), usual);
        ip->setText("300.1.1.1");
        QCOMPARE(ip->palette().color(QPalette::Base), usual);
        QVERIFY(leave() != usual);
        QVERIFY(child<QAction>(ip, "refusalSign")->isVisible() && !ip->accessibleDescription().isEmpty());
        ip->setText("30.1.1.1");
        QCOMPARE(ip->palette().color(QPalette::Base), usual);
        QVERIFY(!child<QAction>(ip, "refusalSign")->isVisible() && ip->accessibleDescription().isEmpty());
        ip->setText("300.1.1.1");
        QVERIFY2(saveMeets(editor).isEmpty(), "it is coloured, not refused");
    }));
    QCOMPARE(m_base->value("SELECT ip_address FROM kassa WHERE id=20"), QString("300.1.1.1"));
}

void TstQTabKass::noGroupNoEditor()
{
    m_base->exec("DELETE FROM lst_group");
    openTab();
    QCOMPARE(answerQuestion([this] { m_tab->Add(); }),
             QString("Не має доступних груп!\nСпершу додайте групу магазинів і дозвольте її у правах "
                     "користувача."));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM kassa"), QString("4"));
}

QTEST_MAIN(TstQTabKass)
#include "tst_qtabkass.moc"
