#include "workplace.h"

#include "changesdialog.h"
#include "goodspricetable.h"
#include "qaddedtgoods.h"
#include "qaddedtkass.h"
#include "qaddedtshop.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabkass.h"
#include "qtabshops.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTableWidget>

Q_DECLARE_METATYPE(std::function<void(QAddEdtGoods *)>)

namespace {
const char *const milk = "4820000000017";
const char *const bread = "4820000000024";

RecordFields only(const QString &stored)
{
    return stored == "-" ? RecordFields() : RecordFields{{"a", "А", stored, stored, QVariant()}};
}

/// The rows of the table of changes, their cells joined by "|"; conflicts end with "!".
QStringList told(ChangesDialog *dialog)
{
    const auto *table = child<QTableWidget>(dialog, "twChanges");
    QStringList rows;
    for (int row = 0; row < table->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < table->columnCount(); ++column)
            cells.append(table->item(row, column)->text());
        rows.append(cells.join('|') + (table->item(row, 0)->font().bold() ? "!" : ""));
    }
    return rows;
}

using Drive = std::function<void(ChangesDialog *)>;

Drive pressing(const QString &button)
{
    return [button](ChangesDialog *dialog) {
        QTest::mouseClick(child<QPushButton>(dialog, button), Qt::LeftButton);
    };
}
} // namespace

/// What the editors have in common: the record as it was read, and what others do to it meanwhile.
class TstRecordDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void onlyDifferentChangesConflict_data();
    void onlyDifferentChangesConflict();
    void otherFieldsAreSavedTogether();
    void conflictIsDecided_data();
    void conflictIsDecided();
    void captionsOfChangesFit();
    void nothingStrayDecides();
    void changedOnceMoreIsAskedOnceMore();
    void entryThatTheListLacks();
    void takenValuesObeyTheRules();
    void goodsRowsAreMerged_data();
    void goodsRowsAreMerged();
    void deletedMeanwhileIsTold();
    void serverLostWhileAsked();
    void endBlanksAreNoChange();
    void sameNewValueAtOnce();
    void trackerGoesWithTheRecord();
    void writtenAndThenCancelledIsShown();

private:
    void editShop(const std::function<void(QAddEdtShop *)> &drive);
    void editKass(const std::function<void(QAddEdtKass *)> &drive);
    std::unique_ptr<QAddEdtGoods> goodsEditor();
    static bool saveAsking(QDialog *editor, const Drive &drive);
    QString shop()
    {
        return base().value("SELECT CONCAT_WS('|',address,name,group_shop) FROM shops WHERE id=10");
    }
    FreshDatabase &base() { return m_place->base; }

    std::unique_ptr<Workplace> m_place;
    QString m_id;
};

void TstRecordDialog::init()
{
    m_place->clear();
    base().exec("INSERT INTO shops(id,address,name,group_shop,day_update,network_shop,count_day_cycle,block) "
                "VALUES(10,'Львів','Їжак',2,3,'10.0.0.10',7,0),(11,'Київ','Їжак',3,1,NULL,1,0)");
    base().exec("INSERT INTO kassa(id,id_shop,advertising_str,head_edit,block) VALUES(20,10,'Каса 1',0,0),"
                "(21,11,'Каса 1',0,0),(22,11,'Каса 2',0,0)");
    base().exec(
        {"INSERT INTO goods(id,name,name_short,price,type,group_g,tax,id_rules_goods,paym_bonus,bonus_disk,"
         "block) VALUES(7,'Молоко','Молоко',4250,1,1,1,1,1,0,0)",
         "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(7,'4820000000017'),(7,'12345670')",
         "INSERT INTO prices(id_goods,id_shop,id_group,priority,price,info) VALUES(7,0,1,0,4300,'акція'),"
         "(7,10,1,2,4400,NULL)"});
    m_place->logIn(Permission::Shops);
}

void TstRecordDialog::cleanup()
{
    Db::setStatementHook(nullptr);
}

void TstRecordDialog::editShop(const std::function<void(QAddEdtShop *)> &drive)
{
    QTabShops tab(m_place->connection(), m_place->user(), &base().heard, m_place->settings(), nullptr);
    tab.setPermission(Permission::Shops);
    tab.show();
    QTRY_VERIFY(!tab.isLoading());
    tab.view()->sortByColumn(0, Qt::AscendingOrder);
    QVERIFY(inEditor<QAddEdtShop>([&] { tab.Edit(tab.model()->index(0, 1)); }, drive));
}

void TstRecordDialog::editKass(const std::function<void(QAddEdtKass *)> &drive)
{
    QTabKass tab(m_place->connection(), m_place->user(), &base().heard, m_place->settings(), nullptr);
    tab.setPermission(Permission::Kassa);
    tab.show();
    QTRY_VERIFY(!tab.isLoading());
    tab.view()->sortByColumn(0, Qt::AscendingOrder);
    QVERIFY(inEditor<QAddEdtKass>([&] { tab.Edit(tab.model()->index(0, 1)); }, drive));
}

std::unique_ptr<QAddEdtGoods> TstRecordDialog::goodsEditor()
{
    m_id = "7";
    auto editor = std::make_unique<QAddEdtGoods>(nullptr, m_place->connection(), &m_id,
                                                 "SELECT address,id FROM shops", &base().heard, nullptr);
    editor->show();
    waitOutTasks();
    return editor;
}

bool TstRecordDialog::saveAsking(QDialog *editor, const Drive &drive)
{
    return withModal<ChangesDialog>(
        [&] {
            child<QPushButton>(editor, "pbOk")->click();
            waitOutTasks();
        },
        drive);
}

void TstRecordDialog::onlyDifferentChangesConflict_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("mine");
    QTest::addColumn<QString>("theirs");
    QTest::addColumn<QString>("found");
    const QVector<QStringList> rows = {
        {"1", "1", "1", ""},      {"1", "2", "1", ""},      {"1", "1", "2", "merge"}, {"1", "2", "2", ""},
        {"1", "2", "3", "!"},     {"-", "-", "2", "merge"}, {"-", "3", "2", "!"},     {"-", "2", "2", ""},
        {"1", "1", "-", "merge"}, {"1", "2", "-", "!"},     {"1", "-", "2", "!"},     {"1", "-", "-", ""},
        {"1", "-", "1", ""},      {"", "", " ", ""},        {"а", "а  ", "а", ""},    {"а", "А", "а", ""}};
    for (const QStringList &row : rows)
        QTest::newRow(qPrintable(row.join('/'))) << row.at(0) << row.at(1) << row.at(2) << row.at(3);
}

void TstRecordDialog::onlyDifferentChangesConflict()
{
    QFETCH(QString, before);
    QFETCH(QString, mine);
    QFETCH(QString, theirs);
    const auto changes = changesByOthers(only(before), only(mine), only(theirs));
    QTEST(changes.isEmpty()            ? QString()
          : changes.first().isConflict ? QString("!")
                                       : QString("merge"),
          "found");
}

void TstRecordDialog::otherFieldsAreSavedTogether()
{
    editShop([this](QAddEdtShop *editor) {
        enter(editor, "leName", "Їжачок");
        base().exec("UPDATE shops SET group_shop=3,one_str_title='верх',count_day_cycle=NULL WHERE id=10");
        QVERIFY(saveAsking(editor, [](ChangesDialog *dialog) {
            QCOMPARE(told(dialog), QStringList({"Група|Захід|Захід|Схід",
                                                "1 рядок заголовка чека|(порожньо)|(порожньо)|верх",
                                                "Цикл днів|7|7|(порожньо)"}));
            QVERIFY(dialog->findChild<QPushButton *>("pbTheirs") == nullptr);
            pressing("pbBack")(dialog);
        }));
        QVERIFY(editor->isVisible());
        QCOMPARE(shop(), QString("Львів|Їжак|3"));
        QVERIFY(saveAsking(editor, pressing("pbMine")));
        QVERIFY(!editor->isVisible());
    });
    QCOMPARE(
        base().value("SELECT CONCAT_WS('|',address,name,group_shop,one_str_title,day_update,network_shop,"
                     "count_day_cycle IS NULL) FROM shops WHERE id=10"),
        QString("Львів|Їжачок|3|верх|3|10.0.0.10|1"));
}

void TstRecordDialog::conflictIsDecided_data()
{
    QTest::addColumn<QString>("way");
    QTest::addColumn<QString>("stored");
    QTest::newRow("theirs") << "pbTheirs"
                            << "Луцьк|Їжачок|3";
    QTest::newRow("mine") << "pbMine"
                          << "Самбір|Їжачок|3";
    QTest::newRow("back") << "pbBack"
                          << "Луцьк|Їжак|3";
    QTest::newRow("Esc") << "Esc"
                         << "Луцьк|Їжак|3";
    QTest::newRow("Enter") << "Enter"
                           << "Луцьк|Їжак|3";
    QTest::newRow("window closed") << "close"
                                   << "Луцьк|Їжак|3";
}

void TstRecordDialog::conflictIsDecided()
{
    QFETCH(QString, way);
    QFETCH(QString, stored);
    const bool isSaved = way == "pbTheirs" || way == "pbMine";
    editShop([&](QAddEdtShop *editor) {
        enter(editor, "leAddress", "Самбір");
        enter(editor, "leName", "Їжачок");
        base().exec("UPDATE shops SET address='Луцьк',group_shop=3 WHERE id=10");
        QVERIFY(saveAsking(editor, [&](ChangesDialog *dialog) {
            QCOMPARE(told(dialog),
                     QStringList({"Адреса магазину|Львів|Самбір|Луцьк!", "Група|Захід|Захід|Схід"}));
            waitOutGuard();
            if (way == "Esc")
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape);
            else if (way == "Enter")
                QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
            else if (way == "close")
                dialog->close();
            else
                pressing(way)(dialog);
        }));
        QCOMPARE(editor->isVisible(), !isSaved);
        QCOMPARE(child<QLineEdit>(editor, "leName")->text(), QString("Їжачок"));
    });
    QTEST(shop(), "stored");
}

/// With letters of twice the size on a small screen.
void TstRecordDialog::captionsOfChangesFit()
{
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSize(before.pointSize() * 2);
    QApplication::setFont(large);
    const RecordField field = {"address", "Адреса магазину", "1", "1", QVariant()};
    ChangesDialog dialog(nullptr, {{field, field, field, true}});
    dialog.show();
    const auto *table = child<QTableWidget>(&dialog, "twChanges");
    for (int column = 0; column < table->columnCount(); ++column) {
        const QString caption = table->horizontalHeaderItem(column)->text();
        QVERIFY2(table->horizontalHeader()->fontMetrics().horizontalAdvance(caption) <
                     table->columnWidth(column),
                 qPrintable(caption));
    }
    QApplication::setFont(before);
    QVERIFY(QFontMetrics(table->item(0, 0)->font()).horizontalAdvance("магазину") < table->columnWidth(0));
}

void TstRecordDialog::nothingStrayDecides()
{
    editShop([&](QAddEdtShop *editor) {
        QTRY_COMPARE(QApplication::activeWindow(), editor);
        enter(editor, "leAddress", "Самбір");
        base().exec("UPDATE shops SET address='Луцьк' WHERE id=10");
        QVERIFY(saveAsking(editor, [&](ChangesDialog *dialog) {
            QTRY_COMPARE(QApplication::activeWindow(), dialog);
            scan(milk);
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Return);
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Space);
            turnWheel(child<QTableWidget>(dialog, "twChanges"), -3);
            QVERIFY(dialog->isVisible());
            waitOutGuard();
            QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
            scan(bread);
            QVERIFY(dialog->isVisible());
            pressing("pbMine")(dialog);
        }));
    });
    QCOMPARE(shop(), QString("Самбір|Їжак|2"));
}

void TstRecordDialog::changedOnceMoreIsAskedOnceMore()
{
    editShop([&](QAddEdtShop *editor) {
        enter(editor, "leAddress", "Самбір");
        base().exec("UPDATE shops SET address='Луцьк' WHERE id=10");
        QStringList second;
        const auto answerSecond = [&] {
            QVERIFY(withModal<ChangesDialog>([&] { QTest::qWait(50); },
                                             [&](ChangesDialog *dialog) {
                                                 second = told(dialog);
                                                 pressing("pbMine")(dialog);
                                             }));
        };
        QVERIFY(saveAsking(editor, [&](ChangesDialog *dialog) {
            base().exec("UPDATE shops SET address='Стрий',name='Вовк' WHERE id=10");
            QTimer::singleShot(0, editor, answerSecond);
            pressing("pbMine")(dialog);
        }));
        QCOMPARE(second,
                 QStringList({"Адреса магазину|Луцьк|Самбір|Стрий!", "Назва магазину|Їжак|Їжак|Вовк"}));
        QVERIFY(!editor->isVisible());
    });
    QCOMPARE(shop(), QString("Самбір|Вовк|2"));
}

void TstRecordDialog::entryThatTheListLacks()
{
    editShop([&](QAddEdtShop *editor) {
        enter(editor, "leName", "Їжачок");
        base().exec("UPDATE shops SET group_shop=4 WHERE id=10");
        QVERIFY(saveAsking(editor, [](ChangesDialog *dialog) {
            QCOMPARE(told(dialog), QStringList("Група|Захід|Захід|Чужа"));
            pressing("pbMine")(dialog);
        }));
        QVERIFY(!editor->isVisible());
    });
    QCOMPARE(shop(), QString("Львів|Їжачок|4"));
    QCOMPARE(base().heard.texts(), QStringList());
}

/// The register was moved to a shop where the name that was given to it here is taken.
void TstRecordDialog::takenValuesObeyTheRules()
{
    editKass([&](QAddEdtKass *editor) {
        enter(editor, "leAdver", "Каса 2");
        base().exec("UPDATE kassa SET id_shop=11,advertising_str='Каса 3' WHERE id=20");
        QString why;
        why = answerQuestion([&] { QVERIFY(saveAsking(editor, pressing("pbMine"))); });
        QVERIFY2(why.contains("запис №22 \"Київ, Каса 2\""), qPrintable(why));
        QVERIFY(editor->isVisible());
        QCOMPARE(child<QComboBox>(editor, "cbGroup")->currentText(), QString("Схід"));
        QCOMPARE(child<QComboBox>(editor, "cbShop")->currentText(), QString("Київ"));
        enter(editor, "leAdver", "Каса 4");
        QCOMPARE(saveMeets(editor), QString());
    });
    QCOMPARE(base().value("SELECT CONCAT(id_shop,advertising_str) FROM kassa WHERE id=20"),
             QString("11Каса 4"));
}

void TstRecordDialog::goodsRowsAreMerged_data()
{
    using Act = std::function<void(QAddEdtGoods *)>;
    QTest::addColumn<std::function<void(QAddEdtGoods *)>>("mine");
    QTest::addColumn<QString>("theirs");
    QTest::addColumn<QString>("button");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("stored");
    const Act rename = [](QAddEdtGoods *editor) { enter(editor, "leName", "Кефір"); };
    const auto setPrice = [](const QString &text) -> Act {
        return [text](QAddEdtGoods *editor) {
            auto *table = child<GoodsPriceTable>(editor, "twPrices");
            for (int row = 0; row < table->rowCount(); ++row) {
                if (table->item(row, 1)->text() == "2")
                    table->item(row, 0)->setText(text);
            }
        };
    };
    const auto addPrice = [](int price) -> Act {
        return [price](QAddEdtGoods *editor) { editor->insertprice(price, 5, "default", "Київ"); };
    };
    const Act dropPrice = [](QAddEdtGoods *editor) {
        auto *table = child<GoodsPriceTable>(editor, "twPrices");
        table->setCurrentItem(table->findItems("44.00", Qt::MatchExactly).value(0));
        editor->delprice();
    };
    const Act dropCode = [](QAddEdtGoods *editor) {
        auto *list = child<QListWidget>(editor, "lwShtrih");
        list->setCurrentItem(list->findItems(milk, Qt::MatchExactly).value(0));
        editor->delshc();
    };
    const Act addCode = [](QAddEdtGoods *editor) {
        child<QLineEdit>(editor, "leShtrih")->setText(bread);
        editor->addshc();
    };
    const char *const change = "UPDATE prices SET price=4500 WHERE id_goods=7 AND priority=2";
    const char *const remove = "DELETE FROM prices WHERE id_goods=7 AND priority=2";
    const char *const add =
        "INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(7,11,1,5,4600)";
    const char *const dropTheirs = "DELETE FROM dk_shc WHERE shtrihcod='4820000000017'";
    const char *const addTheirs = "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(7,'4820000000031')";
    const QString two = "Ціна магазинів: default, Львів, пріоритет 2|";
    const QString five = "Ціна магазинів: default, Київ, пріоритет 5|";
    const QString codes = "12345670,4820000000017";

    QTest::newRow("their price, my name")
        << rename << change << "pbMine" << QStringList(two + "44.00|44.00|45.00")
        << "Кефір 4300/0/акція,4500/2 " + codes;
    QTest::newRow("both priced, mine")
        << setPrice("47") << change << "pbMine" << QStringList(two + "44.00|47.00|45.00!")
        << "Молоко 4300/0/акція,4700/2 " + codes;
    QTest::newRow("both priced, theirs")
        << setPrice("47") << change << "pbTheirs" << QStringList(two + "44.00|47.00|45.00!")
        << "Молоко 4300/0/акція,4500/2 " + codes;
    QTest::newRow("dropped there, priced here, mine")
        << setPrice("47") << remove << "pbMine" << QStringList(two + "44.00|47.00|(немає)!")
        << "Молоко 4300/0/акція,4700/2 " + codes;
    QTest::newRow("dropped there, priced here, theirs")
        << setPrice("47") << remove << "pbTheirs" << QStringList(two + "44.00|47.00|(немає)!")
        << "Молоко 4300/0/акція " + codes;
    QTest::newRow("dropped here, priced there, mine")
        << dropPrice << change << "pbMine" << QStringList(two + "44.00|(немає)|45.00!")
        << "Молоко 4300/0/акція " + codes;
    QTest::newRow("dropped here, priced there, theirs")
        << dropPrice << change << "pbTheirs" << QStringList(two + "44.00|(немає)|45.00!")
        << "Молоко 4300/0/акція,4500/2 " + codes;
    QTest::newRow("added there") << setPrice("47") << add << "pbMine"
                                 << QStringList(five + "(немає)|(немає)|46.00")
                                 << "Молоко 4300/0/акція,4600/5,4700/2 " + codes;
    QTest::newRow("added by both, mine")
        << addPrice(4800) << add << "pbMine" << QStringList(five + "(немає)|48.00|46.00!")
        << "Молоко 4300/0/акція,4400/2,4800/5 " + codes;
    QTest::newRow("added by both, theirs")
        << addPrice(4800) << add << "pbTheirs" << QStringList(five + "(немає)|48.00|46.00!")
        << "Молоко 4300/0/акція,4400/2,4600/5 " + codes;
    QTest::newRow("barcode dropped there")
        << rename << dropTheirs << "pbMine" << QStringList("Штрихкод|4820000000017|4820000000017|(немає)")
        << "Кефір 4300/0/акція,4400/2 12345670";
    QTest::newRow("barcode added there, another here")
        << addCode << addTheirs << "pbMine" << QStringList("Штрихкод|(немає)|(немає)|4820000000031")
        << "Молоко 4300/0/акція,4400/2 12345670,4820000000017,4820000000024,4820000000031";
    QTest::newRow("barcode dropped here, price there")
        << dropCode << change << "pbMine" << QStringList(two + "44.00|44.00|45.00")
        << "Молоко 4300/0/акція,4500/2 12345670";
}

void TstRecordDialog::goodsRowsAreMerged()
{
    QFETCH(std::function<void(QAddEdtGoods *)>, mine);
    QFETCH(QString, theirs);
    QFETCH(QString, button);
    QFETCH(QStringList, rows);
    const auto editor = goodsEditor();
    mine(editor.get());
    base().exec(theirs);
    QStringList shown;
    QVERIFY(saveAsking(editor.get(), [&](ChangesDialog *dialog) {
        shown = told(dialog);
        pressing(button)(dialog);
    }));
    QCOMPARE(shown, rows);
    QVERIFY(!editor->isVisible());
    QTEST(
        base().value(
            "SELECT CONCAT(name,' ',(SELECT GROUP_CONCAT(CONCAT_WS('/',price,priority,info) ORDER BY price) "
            "FROM prices WHERE id_goods=7),' ',(SELECT GROUP_CONCAT(shtrihcod ORDER BY shtrihcod) FROM "
            "dk_shc WHERE id_goods=7)) FROM goods WHERE id=7"),
        "stored");
    QCOMPARE(base().heard.texts(), QStringList());
}

void TstRecordDialog::deletedMeanwhileIsTold()
{
    editShop([&](QAddEdtShop *editor) {
        enter(editor, "leName", "Їжачок");
        base().exec(
            {"DELETE FROM kassa WHERE id_shop=10", "DELETE FROM prices", "DELETE FROM shops WHERE id=10"});
        QCOMPARE(saveMeets(editor), QString("Поки редактор був відкритий, цей запис вилучила інша програма. "
                                            "Нічого не збережено."));
        QVERIFY(editor->isVisible());
        QCOMPARE(child<QLineEdit>(editor, "leName")->text(), QString("Їжачок"));
    });
    QCOMPARE(base().value("SELECT COUNT(*) FROM shops"), QString("1"));
}

void TstRecordDialog::serverLostWhileAsked()
{
    editShop([&](QAddEdtShop *editor) {
        enter(editor, "leName", "Їжачок");
        base().exec("UPDATE shops SET address='Луцьк' WHERE id=10");
        QVERIFY(saveAsking(editor, [&](ChangesDialog *dialog) {
            base().killConnection();
            pressing("pbMine")(dialog);
        }));
        if (editor->isVisible()) {
            QVERIFY(!base().heard.texts().isEmpty());
            waitOutLoss(*base().connection());
            QCOMPARE(child<QLineEdit>(editor, "leAddress")->text(), QString("Луцьк"));
            QCOMPARE(saveMeets(editor), QString());
        }
        QVERIFY(!editor->isVisible());
    });
    QCOMPARE(shop(), QString("Луцьк|Їжачок|2"));
}

/// The server cuts blanks off the end of what it stores.
void TstRecordDialog::endBlanksAreNoChange()
{
    const QStringList lines = {"leAddress", "leName",   "leTitle1", "leTitle2",
                               "leTitle3",  "leTitle4", "leEnd1",   "leEnd2"};
    editShop([&](QAddEdtShop *editor) {
        for (const QString &name : lines) {
            auto *line = child<QLineEdit>(editor, name);
            line->setFocus();
            line->selectAll();
            QTest::keyClicks(line, " a  ");
        }
        QCOMPARE(saveMeets(editor), QString());
        QVERIFY(!editor->isVisible());
    });
    QCOMPARE(base().value("SELECT CONCAT_WS('|',address,name,one_str_title,two_str_bottom) FROM shops WHERE "
                          "id=10"),
             QString("a| a| a| a"));
}

/// Both were told that the address is free.
void TstRecordDialog::sameNewValueAtOnce()
{
    editShop([&](QAddEdtShop *editor) {
        enter(editor, "leAddress", "Одеса");
        bool isTaken = false;
        Db::setStatementHook([&](const QString &sql) {
            if (isTaken || !sql.startsWith("UPDATE shops"))
                return;
            isTaken = true;
            base().execElsewhere("INSERT INTO shops(id,address,group_shop) VALUES(12,'Одеса',3)");
        });
        const QString why = saveMeets(editor);
        QCOMPARE(why,
                 QString("Адреса магазину вже існує в базі!\nПоле \"Адреса магазину\": таке значення має "
                         "запис №12 \"Одеса\"."));
        QVERIFY(editor->isVisible());
    });
    QCOMPARE(shop(), QString("Львів|Їжак|2"));
}

void TstRecordDialog::trackerGoesWithTheRecord()
{
    base().exec("UPDATE updat SET updat='2020-01-01'");
    for (const bool breaks : {true, false}) {
        editShop([&](QAddEdtShop *editor) {
            enter(editor, "leName", "Їжачок");
            if (breaks)
                Db::setStatementRefusal(
                    [](const QString &sql) { return sql.startsWith("UPDATE updat ") ? 1205 : 0; });
            QCOMPARE(saveMeets(editor), QString());
            Db::setStatementRefusal(nullptr);
            QCOMPARE(editor->isVisible(), breaks);
        });
        QCOMPARE(shop(), QString(breaks ? "Львів|Їжак|2" : "Львів|Їжачок|2"));
        QCOMPARE(base().rows("SELECT name FROM updat WHERE updat>'2020-01-01'"),
                 breaks ? QStringList() : QStringList("shops"));
    }
}

/// The answer to the first save was lost; it had arrived, and the second one was refused.
void TstRecordDialog::writtenAndThenCancelledIsShown()
{
    QTabShops tab(m_place->connection(), m_place->user(), &base().heard, m_place->settings(), nullptr);
    tab.setPermission(Permission::Shops);
    QTRY_VERIFY(!tab.isLoading());
    QVERIFY(inEditor<QAddEdtShop>([&] { tab.Add(); },
                                  [&](QAddEdtShop *editor) {
                                      enter(editor, "leAddress", "Одеса");
                                      enter(editor, "cbGroup", "Захід");
                                      bool isLost = false;
                                      Db::setStatementHook([&](const QString &sql) {
                                          if (sql == "COMMIT" && !isLost) {
                                              isLost = true;
                                              commitHere();
                                              base().killConnection();
                                          } else if (isLost && sql.endsWith("FOR UPDATE")) {
                                              base().exec("RENAME TABLE shops TO away");
                                          }
                                      });
                                      QVERIFY(saveMeets(editor).contains("невідомо, чи запис збережено"));
                                      Db::setStatementHook(nullptr);
                                      base().exec("RENAME TABLE away TO shops");
                                      waitOutLoss(*base().connection());
                                      enter(editor, "leAddress", "Київ");
                                      QVERIFY(
                                          saveMeets(editor).startsWith("Адреса магазину вже існує в базі!"));
                                      answerConfirm([&] { editor->reject(); }, true);
                                  }));
    QCOMPARE(tab.model()->rowCount(), 3);
    QCOMPARE(tab.model()->stored(2, 1), QString("Одеса"));
}

QTEST_MAIN(TstRecordDialog)
#include "tst_recorddialog.moc"
