#include "workplace.h"

#include "gotobox.h"
#include "qloadeduser.h"
#include "qmessevent.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSignalSpy>
#include <QTreeWidget>

/// "Перейти до…": what is found where, and that a hurried Enter never opens the wrong thing.
class TstGotoBox : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void everyKindIsFound_data();
    void everyKindIsFound();
    void longListsAreCut();
    void commandsFollowTheMenus();
    void rightsLimitWhatIsAsked();
    void scannerOpensWhatItScanned_data();
    void scannerOpensWhatItScanned();
    void enterWaitsForItsOwnAnswer();
    void aChoiceStaysAChoice();
    void keysLeadToAndFro();
    void aLineIsClickedOpen();
    void failedSearchLeavesTheCommands();
    void failedSearchIsAskedAgainByEnter();
    void escapeGivesTheFocusBack();

private:
    void open();
    /// What is found for a text: "kind" for each heading, "name | place" for each line.
    QStringList found(const QString &text);
    QStringList lines() const;
    QLineEdit *field() { return child<QLineEdit>(m_box, "leGoto"); }
    QTreeWidget *list() const { return child<QTreeWidget>(m_box, "gotoList"); }
    QString words() { return child<QLabel>(m_box, "labelGoto")->text(); }
    bool hasAnswered() const
    {
        return QTest::qWaitFor([this] { return m_box == nullptr || !m_box->isSearching(); });
    }

    Workplace m_place;
    std::unique_ptr<QMainWindow> m_window;
    QLineEdit *m_before = nullptr;
    Heard m_heard;
    QPointer<GotoBox> m_box;
    QVector<GotoHit> m_chosen;
};

void TstGotoBox::initTestCase()
{
    m_place.base.exec(QStringList{
        "INSERT INTO shops(id,address,name,group_shop,block) VALUES(1,'Хрещатик, 1','Центр',1,0),"
        "(2,'Сумська, 12','Хрещатик плюс',2,1),(3,'Хрещатик, 3','Чужий',4,0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(1,1,'Каса 1',0),(2,2,'Каса 1',0),"
        "(3,3,'Каса 1',0),(4,2,NULL,NULL)",
        "INSERT INTO goods(id,name,price,type,group_g,tax,id_rules_goods,block) VALUES"
        "(1205,'Молоко 2,5 %',100,1,1,1,1,0),(1206,'Молоко \"Їжак\"',900,1,1,1,1,1),(7,'100% сік',5,1,1,1,1,0),"
        "(8,'Сік 1000',5,1,1,1,1,0)",
        "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(1205,'4820000000130'),(1205,'48200014'),"
        "(1206,'0000000000116'),(7,'2200000405119')",
        "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Старт',0,0,0,0)",
        "INSERT INTO clients(id,id_procent,group_shop,name,telephone,block) VALUES"
        "(2200000405,1,1,'Олена','0671112233',0),(12345678,1,1,NULL,NULL,1),(4294967295,1,1,'Край',NULL,0)",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,data_time) VALUES"
        "(12,1,1,1,'2026-03-01 20:00:00'),(12,2,2,1,0),(12,3,3,1,0)",
        // The register was moved to another shop, and its old receipts stayed there.
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,summa,data_time) VALUES"
        "(1,1,12,1205,1,1,500,'2026-03-01 10:15:00'),(1,1,12,1205,2,3,500,'2026-03-01 10:15:01'),"
        "(2,2,12,1205,1,6,300,'2026-03-02 09:00:00'),(2,2,12,1205,2,6,300,'2026-03-02 09:00:00'),"
        "(1,2,3,77,1,3,300,'2026-01-02 09:00:00'),(3,3,12,1205,1,3,300,'2026-03-03 09:00:00')"});
}

void TstGotoBox::init()
{
    for (const int id : {Permission::Shops, Permission::Kassa, Permission::Goods, Permission::Clients,
                         Permission::Cheks, Permission::ZZvit})
        m_place.logIn(id);
    m_chosen.clear();
    m_window = std::make_unique<QMainWindow>();
    m_window->resize(900, 600);
    m_before = new QLineEdit(m_window.get());
    m_window->setCentralWidget(m_before);
    QMenu *tables = m_window->menuBar()->addMenu("&Таблиці");
    for (const char *name : {"&Товари", "Товари магазин&ів", "&Знижки…"})
        tables->addAction(name)->setObjectName(name);
    m_window->menuBar()->addMenu("Тов&арообіг")->addAction("&Звіт")->setObjectName("report");
    QVERIFY(showActive(m_window.get()));
    m_before->setFocus();
    open();
}

void TstGotoBox::cleanup()
{
    delete m_box;
    m_window.reset();
    QVERIFY2(m_heard.texts().isEmpty(), qPrintable(m_heard.texts().join('\n')));
}

void TstGotoBox::open()
{
    m_box = new GotoBox(m_place.connection(), m_place.user(), &m_heard, m_window->menuBar(), m_window.get());
    connect(m_box, &GotoBox::chosen, this, [this](const GotoHit &hit) { m_chosen.append(hit); });
    m_box->open();
    m_box->activateWindow();
    QTRY_VERIFY(field()->hasFocus());
}

QStringList TstGotoBox::lines() const
{
    QStringList texts;
    for (int row = 0; row < list()->topLevelItemCount(); ++row) {
        const QTreeWidgetItem *item = list()->topLevelItem(row);
        const bool isHeading = item->text(1).isEmpty() && (item->flags() & Qt::ItemIsEnabled) == 0;
        // Without the sign before it.
        texts.append(isHeading ? item->text(0) : item->text(0).section("  ", 1) + " | " + item->text(1));
    }
    return texts;
}

QStringList TstGotoBox::found(const QString &text)
{
    field()->selectAll();
    typeText(text);
    return hasAnswered() ? lines() : QStringList("no answer");
}

void TstGotoBox::everyKindIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("expected");

    const QString center = "Хрещатик, 1 | Центр";
    const QString milk = "Молоко 2,5 % | код 1205, 4820000000130";
    const QStringList receipts = {"Чеки", "Чек № 1205, повернення | Сумська, 12, Каса 1, 02-03-26 09:00:00",
                                  "Чек № 1205, продаж | Хрещатик, 1, Каса 1, 01-03-26 10:15:01"};
    QTest::newRow("a shop by address or name, and its registers")
        << "хрещатик"
        << QStringList{"Магазини", "Сумська, 12 | Хрещатик плюс, заблоковано", center, "Каси",
                       "Каса 1 | Хрещатик, 1"};
    QTest::newRow("a register of that name in each shop")
        << "каса 1"
        << QStringList{"Каси", "№ 4 | Сумська, 12", "Каса 1 | Сумська, 12", "Каса 1 | Хрещатик, 1"};
    QTest::newRow("goods by words, whatever stands in them")
        << "100%" << QStringList{"Товари", "100% сік | код 7, 2200000405119"};
    QTest::newRow("two words in any order")
        << "їжак молоко" << QStringList{"Товари", "Молоко \"Їжак\" | код 1206, 0000000000116, заблоковано"};
    QTest::newRow("a code, and what else has that number")
        << "1205" << QStringList{"Товари", milk} + receipts;
    QTest::newRow("receipts alone") << "чек 1205" << receipts;
    QTest::newRow("receipts of a place") << "ЧЕК 1205 хрещ" << QStringList{receipts[0], receipts[2]};
    QTest::newRow("a receipt where its register stood then")
        << "77" << QStringList{"Чеки", "Чек № 77, продаж | Хрещатик, 1, Каса 1, 02-01-26 09:00:00"};
    QTest::newRow("shifts, the open one first")
        << "зміна 12"
        << QStringList{"Зміни", "Зміна № 12 | Сумська, 12, Каса 1, відкрита",
                       "Зміна № 12 | Хрещатик, 1, Каса 1, 01-03-26 20:00:00"};
    QTest::newRow("the end of a barcode") << "0130" << QStringList{"Товари", milk};
    QTest::newRow("an item's second barcode") << "48200014" << QStringList{"Товари", milk};
    QTest::newRow("a card before the item whose barcode begins so")
        << "2200000405"
        << QStringList{"Товари", "100% сік | код 7, 2200000405119", "Картки",
                       "2200000405 | Олена, 0671112233"};
    QTest::newRow("a card as it is printed")
        << "0012345678" << QStringList{"Картки", "0012345678 | заблоковано"};
    QTest::newRow("cards that begin so") << "картка 42" << QStringList{"Картки", "4294967295 | Край"};
    QTest::newRow("no number is so great") << "99999999999" << QStringList{};
    QTest::newRow("nothing that SQL would take for its own") << "%2 \\' \"; %1" << QStringList{};
    QTest::newRow("not in a group that the user does not see") << "чужий" << QStringList{};
}

void TstGotoBox::everyKindIsFound()
{
    QFETCH(QString, text);
    QFETCH(QStringList, expected);

    QCOMPARE(found(text).join('\n'), expected.join('\n'));
    QCOMPARE(words() == "Нічого не знайдено.", expected.isEmpty());
}

void TstGotoBox::longListsAreCut()
{
    for (int i = 1; i <= 9; ++i)
        m_place.base.exec(QString("INSERT INTO goods(id,name) VALUES(%1,'Багато %1')").arg(100 + i));

    const QStringList nine = found("багато");
    m_place.base.exec("DELETE FROM goods WHERE id=109");
    const QStringList eight = found("багато ");

    QCOMPARE(nine.first(), QString("Товари (перші 8, уточніть пошук)"));
    QCOMPARE(nine.size(), 9);
    QCOMPARE(eight.first(), QString("Товари"));
    QCOMPARE(eight.size(), 9);
    m_place.base.exec("DELETE FROM goods WHERE id BETWEEN 101 AND 109");
}

/// At once, and only what the menus show and can do now.
void TstGotoBox::commandsFollowTheMenus()
{
    QTreeWidget *tree = list();
    auto *goods = m_window->findChild<QAction *>("&Товари");
    goods->setShortcut(QKeySequence("Ctrl+4"));
    typeText("тов");
    QStringList texts = lines();
    QCOMPARE(texts, (QStringList{"Меню", "Товари | Таблиці, Ctrl+4", "Товари магазинів | Таблиці",
                                 "Звіт | Товарообіг"}));
    QVERIFY(m_box->isSearching());

    m_window->findChild<QAction *>("Товари магазин&ів")->setVisible(false);
    m_window->findChild<QAction *>("report")->setEnabled(false);
    QCOMPARE(found("товари"), (QStringList{"Меню", "Товари | Таблиці, Ctrl+4"}));
    QVERIFY(tree->currentItem() != nullptr);
    pressKeys({Qt::Key_Return});
    QCOMPARE(m_chosen.size(), 1);
    QCOMPARE(m_chosen.first().destination.action, QString("&Товари"));
    QTRY_VERIFY(m_box == nullptr);
}

void TstGotoBox::rightsLimitWhatIsAsked()
{
    const auto kinds = [this] {
        QVector<int> asked;
        for (const GotoKind kind : gotoQuestion("12", *m_place.user()).kinds)
            asked.append(static_cast<int>(kind));
        return asked;
    };
    QCOMPARE(kinds(), (QVector<int>{1, 2, 3, 4, 5, 6}));

    // The receipts are looked at last: who may not see them is not told by the time either.
    for (const int id : {Permission::Cheks, Permission::Clients, Permission::ZZvit, Permission::ZReports})
        m_place.logIn(id, Permission::Denied);
    QCOMPARE(kinds(), (QVector<int>{1, 2, 3}));
    m_place.logIn(Permission::ZReports);
    delete m_box;
    open();
    QCOMPARE(found("12").last(), QString("Зміна № 12 | Хрещатик, 1, Каса 1, 01-03-26 20:00:00"));
    pressKeys({Qt::Key_Down, Qt::Key_End, Qt::Key_Return});
    QCOMPARE(m_chosen.size(), 1);
    QCOMPARE(m_chosen.first().destination.action, QString("mz_zzvit"));
    QCOMPARE(m_chosen.first().destination.origin.kass, 1u);
    QCOMPARE(m_chosen.first().destination.origin.zFrom, QString("12"));
}

void TstGotoBox::scannerOpensWhatItScanned_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("condition");

    QTest::newRow("an item") << "4820000000130"
                             << "goods.id=1205";
    QTest::newRow("an item with zeros before") << "0000000000116"
                                               << "goods.id=1206";
    QTest::newRow("eight digits") << "48200014"
                                  << "goods.id=1205";
    QTest::newRow("a card") << "2200000405"
                            << "clients.id=2200000405";
    QTest::newRow("a card with zeros before") << "0002200000405"
                                              << "clients.id=2200000405";
}

/// Enter comes some milliseconds behind the digits, long before the answer.
void TstGotoBox::scannerOpensWhatItScanned()
{
    QFETCH(QString, code);
    QFETCH(QString, condition);

    scan(code);
    QVERIFY(m_chosen.isEmpty());
    QTRY_COMPARE(m_chosen.size(), 1);
    QCOMPARE(m_chosen.first().destination.condition, condition);
    QTRY_VERIFY(m_box == nullptr);
}

/// The answer to the older text is on its way when the code and its Enter come, and it finds one thing, too.
void TstGotoBox::enterWaitsForItsOwnAnswer()
{
    m_place.base.execElsewhere("LOCK TABLES goods WRITE");
    typeText("їжак");
    QTRY_COMPARE(words(), QString("Шукається…"));
    field()->selectAll();
    scan("4820000000130");
    QTest::qWait(200);
    QVERIFY(m_chosen.isEmpty());
    m_place.base.execElsewhere("UNLOCK TABLES");

    QTRY_COMPARE(m_chosen.size(), 1);
    QCOMPARE(m_chosen.first().destination.condition, QString("goods.id=1205"));

    // Whoever types on after Enter has asked something else.
    open();
    m_place.base.execElsewhere("LOCK TABLES goods WRITE");
    typeText("їжак");
    pressKeys({Qt::Key_Return});
    typeText("и");
    m_place.base.execElsewhere("UNLOCK TABLES");
    QVERIFY(hasAnswered());
    QCOMPARE(words(), QString("Нічого не знайдено."));
    QCOMPARE(m_chosen.size(), 1);
}

void TstGotoBox::aChoiceStaysAChoice()
{
    typeText("1205");
    pressKeys({Qt::Key_Return});
    QVERIFY(hasAnswered());
    QVERIFY(m_chosen.isEmpty());
    // The first line that can be chosen is ready for the next Enter.
    QTRY_VERIFY(list()->hasFocus());
    QVERIFY(list()->currentItem()->text(0).contains("Молоко"));
    pressKeys({Qt::Key_Down, Qt::Key_Return});
    QCOMPARE(m_chosen.size(), 1);
    const Destination chosen = m_chosen.first().destination;
    QCOMPARE(chosen.action, QString("mz_cheks"));
    QCOMPARE(chosen.origin.kass, 2u);
    QCOMPARE(chosen.origin.shop, 2u);
    QCOMPARE(chosen.origin.zFrom, QString("12"));
    QCOMPARE(chosen.origin.chek, 1205u);
}

/// Into the list and back; what is typed there is typed into the field, and the next code takes the place of
/// the one before.
void TstGotoBox::keysLeadToAndFro()
{
    QVERIFY(found("молоко").size() == 3);
    pressKeys({Qt::Key_Down});
    QVERIFY(list()->hasFocus());
    pressKeys({Qt::Key_Up});
    QVERIFY(field()->hasFocus());
    pressKeys({Qt::Key_Down});
    typeText(" 2");
    QCOMPARE(field()->text(), QString("молоко 2"));
    QVERIFY(hasAnswered());
    pressKeys({Qt::Key_Down, Qt::Key_Backspace});
    QCOMPARE(field()->text(), QString("молоко "));

    field()->clear();
    scan("4820000000000");
    QVERIFY(hasAnswered());
    QTRY_COMPARE(words(), QString("Нічого не знайдено."));
    scan("0000000000116");
    QTRY_COMPARE(m_chosen.size(), 1);
    QCOMPARE(m_chosen.first().destination.condition, QString("goods.id=1206"));
}

void TstGotoBox::aLineIsClickedOpen()
{
    QVERIFY(found("молоко").size() == 3);
    const auto click = [this](int row) {
        const QRect place = list()->visualItemRect(list()->topLevelItem(row));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, place.center());
    };
    click(0);
    QVERIFY2(m_chosen.isEmpty(), "a heading leads nowhere");
    click(2);
    QCOMPARE(m_chosen.size(), 1);
    QVERIFY(m_chosen.first().name.startsWith("Молоко"));
}

void TstGotoBox::failedSearchLeavesTheCommands()
{
    m_place.base.exec("RENAME TABLE dk_shc TO gone");
    const QStringList texts = found("товари");
    m_place.base.exec("RENAME TABLE gone TO dk_shc");

    QCOMPARE(texts, (QStringList{"Меню", "Товари | Таблиці", "Товари магазинів | Таблиці"}));
    QVERIFY2(words().startsWith("База даних не відповіла"), qPrintable(words()));
    QVERIFY(m_heard.has("Помилка запиту:", QMessEvent::Critical));
    m_heard.forget();
}

void TstGotoBox::failedSearchIsAskedAgainByEnter()
{
    m_place.base.exec("RENAME TABLE dk_shc TO gone");
    const QStringList texts = found("4820000000130");
    m_place.base.exec("RENAME TABLE gone TO dk_shc");
    m_heard.forget();
    QCOMPARE(texts, QStringList());
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(m_chosen.size(), 1);
    QVERIFY(m_chosen.first().name.startsWith("Молоко"));
}

void TstGotoBox::escapeGivesTheFocusBack()
{
    typeText("мол");
    pressKeys({Qt::Key_Escape});
    QTRY_VERIFY(m_box == nullptr);
    m_window->activateWindow();
    QTRY_VERIFY(m_before->hasFocus());
    QVERIFY(m_before->text().isEmpty());
    QVERIFY(m_chosen.isEmpty());
}

QTEST_MAIN(TstGotoBox)
#include "tst_gotobox.moc"
