#include "workplace.h"

#include "goodspricedelegate.h"
#include "goodspricetable.h"
#include "qaddedtgoods.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtabgoods.h"
#include "qtabgoodsshops.h"
#include "typedinput.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

namespace {
const char *const milk = "4820000000017";
const char *const bread = "4820000000024";
const char *const zeros = "0000000000024";

/// Everything that an item consists of, stamps left out.
const char *const wholeItem =
    "SELECT id,name,name_short,price,type,group_g,tax,paym_bonus,bonus_disk,id_rules_goods,block,"
    "(SELECT GROUP_CONCAT(shtrihcod ORDER BY shtrihcod) FROM dk_shc WHERE id_goods=goods.id),"
    "(SELECT GROUP_CONCAT(CONCAT_WS('/',price,priority,id_group,id_shop) ORDER BY price) FROM prices WHERE "
    "id_goods=goods.id) FROM goods ORDER BY id";

/// Presses Alt and a letter of the Ukrainian keyboard.
void pressAlt(QWidget *widget, wchar_t letter)
{
    QTest::sendKeyEvent(QTest::Click, widget, static_cast<Qt::Key>(letter),
                        QString(QChar(static_cast<ushort>(letter))), Qt::AltModifier);
    // A button pressed by its letter works after a moment, for the eye.
    QTest::qWait(150);
    waitOutTasks();
}
} // namespace

/// The goods list, the editor of an item and the stock of the shops.
class TstQTabGoods : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void addedItemComesBackWhole();
    void editingReplacesBarcodesAndPrices();
    void untouchedPricesStay();
    void whatIsBeingTypedIsSaved_data();
    void whatIsBeingTypedIsSaved();
    void scannedPriorityIsNone();
    void changesAreNotLostUnasked();
    void brokenFieldsAreRefused_data();
    void brokenFieldsAreRefused();
    void oneItemOfARuleInAGroup();
    void scannedBarcodesAreAdded();
    void shortNameIsCut();
    void pricesAreTypedWithACommaToo();
    void pastedAndDearPrices_data();
    void pastedAndDearPrices();
    void barcodeOfAnotherItemIsNamed();
    void priceOfAnUnknownGroupIsExplained();
    void lostConnectionLeavesAllOrNothing();
    void lostAnswerIsLookedUp_data();
    void lostAnswerIsLookedUp();
    void hiddenColumnsOfPricesStay();
    void renamedMeanwhileIsRefused_data();
    void renamedMeanwhileIsRefused();
    void whatIsMissingMayStayMissing();
    void goodsAreOfferedToShops();
    void searchFinds_data();
    void searchFinds();
    void editorRefreshesItsRows();
    void viewerOnlyLooks();
    void stockOfPermittedShopsOnly();

private:
    std::unique_ptr<QTabGoods> openTab();
    std::unique_ptr<QAddEdtGoods> openEditor(const QString &id);
    std::unique_ptr<QAddEdtGoods> showEditor(const QString &id);
    bool fillAndSave(QAddEdtGoods *editor, const QString &name, const QStringList &codes);
    /// The ids and barcodes of the rows, in their order.
    static QStringList shown(const QTabGoods &tab);
    static bool loaded(QTab *tab, const std::function<void()> &act);

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QTabGoods> m_tab;
    QString m_id;
};

void TstQTabGoods::init()
{
    m_place->clear();
    m_base = &m_place->base;
    m_base->exec(
        {"DELETE FROM lst_group WHERE id_group=3", "DELETE FROM group_goods WHERE id>1",
         "INSERT INTO group_goods(id,name) VALUES(2,'Молочні'),(3,'Хліб')",
         "UPDATE group_shop SET name=ELT(id,'default','Північ','Південь','Чужа')",
         "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'вул. Ліська, 1',1,0),(2,'вул. Нова, 2',2,0),"
         "(3,'вул. Далека, 3',3,0)",
         "INSERT INTO goods(id,name,name_short,price,price_in,type,group_g,tax,id_rules_goods,block,info) "
         "VALUES(7,'Молоко 2,5%','Молоко',4250,3900,1,2,1,1,0,'від місцевих'),"
         "(8,'Хліб \"Бородинський\"','Хліб',2800,0,1,3,2,2,0,NULL)",
         "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(7,'4820000000017'),(7,'12345670'),(8,'4820000000024')"});
    m_place->logIn(Permission::Goods);
    m_tab = openTab();
    m_base->heard.forget();
}

void TstQTabGoods::cleanup()
{
    Db::setStatementHook(nullptr);
    m_tab.reset();
}

/// What act asked for, and whatever else was on its way, has arrived.
bool TstQTabGoods::loaded(QTab *tab, const std::function<void()> &act)
{
    act();
    return QTest::qWaitFor([tab] { return !tab->isLoading(); }, 20000);
}

std::unique_ptr<QTabGoods> TstQTabGoods::openTab()
{
    auto tab =
        std::make_unique<QTabGoods>(m_base->connection(), m_place->user(), &m_base->heard, nullptr, nullptr);
    tab->setPermission(Permission::Goods);
    if (!loaded(tab.get(), [] {}))
        qFatal("The goods list has not come");
    return tab;
}

std::unique_ptr<QAddEdtGoods> TstQTabGoods::openEditor(const QString &id)
{
    m_id = id;
    auto editor =
        std::make_unique<QAddEdtGoods>(m_tab.get(), m_base->connection(), &m_id,
                                       "SELECT address,id FROM shops WHERE id<3", &m_base->heard, nullptr);
    waitOutTasks();
    return editor;
}

/// The same, shown and active: keys go where they go for a person.
std::unique_ptr<QAddEdtGoods> TstQTabGoods::showEditor(const QString &id)
{
    auto editor = openEditor(id);
    if (!showActive(editor.get()))
        qFatal("The editor has not become active");
    return editor;
}

bool TstQTabGoods::fillAndSave(QAddEdtGoods *editor, const QString &name, const QStringList &codes)
{
    child<QLineEdit>(editor, "leName")->setText(name);
    child<QLineEdit>(editor, "lePrice")->setText("12,50");
    for (const QString &code : codes) {
        child<QLineEdit>(editor, "leShtrih")->setText(code);
        editor->addshc();
    }
    editor->btok();
    waitOutTasks();
    return editor->result() == QDialog::Accepted;
}

QStringList TstQTabGoods::shown(const QTabGoods &tab)
{
    QStringList rows;
    for (int row = 0; row < tab.model()->rowCount(); ++row)
        rows.append(tab.model()->stored(row, 0) + "|" + tab.model()->stored(row, 1));
    return rows;
}

void TstQTabGoods::addedItemComesBackWhole()
{
    m_base->exec("UPDATE updat SET updat='2020-01-01'");
    // An id that the server made up on this connection before: it belongs to another item.
    m_base->exec("INSERT INTO goods(name,group_g,type,tax,block) VALUES('Інший',1,1,1,0)");
    m_base->exec("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(LAST_INSERT_ID(),'4820000000093')");
    const auto editor = openEditor(QString());
    QCOMPARE(editor->windowTitle(), QString("Додавання нового запису"));
    child<QLineEdit>(editor.get(), "leId")->setText("4000000000");
    child<QComboBox>(editor.get(), "cbGroup")->setCurrentText("Хліб");
    child<QComboBox>(editor.get(), "cbTax")->setCurrentText("ПДВ В");
    child<QComboBox>(editor.get(), "cbRules")->setCurrentText("Списання");
    child<QComboBox>(editor.get(), "cbBonusDisk")->setCurrentText("Так");
    editor->insertprice(1300, 0, "default", QString());
    editor->insertprice(1400, 3, "default", "вул. Нова, 2");
    QVERIFY(fillAndSave(editor.get(), "Здоба 'О\\'Н :dt ?%", {zeros, "4820000000031"}));
    QCOMPARE(m_id, QString("4000000000"));
    QCOMPARE(m_base->rows(wholeItem).last(),
             QString("4000000000|Здоба 'О\\'Н :dt ?%|Здоба 'О\\'Н :dt ?%|1250|1|3|3|1|1|4|0|"
                     "0000000000024,4820000000031|1300/0/1/0,1400/3/1/2"));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM dk_shc WHERE shtrihcod='4820000000093'"), QString("1"));
    QVERIFY2(m_base->heard.texts().isEmpty(), qPrintable(m_base->heard.texts().join('\n')));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM updat WHERE name IN ('goods','dk_shc','prices') "
                           "AND updat>'2020-01-01'"),
             QString("3"));
}

void TstQTabGoods::editingReplacesBarcodesAndPrices()
{
    m_base->exec("INSERT INTO prices(id_goods,id_shop,id_group,price) VALUES(7,0,1,4300)");
    const auto editor = openEditor("7");
    QCOMPARE(editor->windowTitle(), QString("Редагування запису №7"));
    QCOMPARE(child<QLineEdit>(editor.get(), "lePrice")->text(), QString("42.50"));
    child<QListWidget>(editor.get(), "lwShtrih")
        ->setCurrentItem(child<QListWidget>(editor.get(), "lwShtrih")->findItems(milk, {}).value(0));
    editor->delshc();
    child<GoodsPriceTable>(editor.get(), "twPrices")->setCurrentCell(0, 0);
    editor->delprice();
    QVERIFY(fillAndSave(editor.get(), "Молоко", {"4820000000031"}));
    QCOMPARE(m_base->rows(wholeItem).first(), QString("7|Молоко|Молоко|1250|1|2|1|1|0|1|0|"
                                                      "12345670,4820000000031|"));
    QCOMPARE(m_base->value("SELECT CONCAT(price_in,info) FROM goods WHERE id=7"),
             QString("3900від місцевих"));
}

void TstQTabGoods::untouchedPricesStay()
{
    m_base->exec(
        "INSERT INTO prices(id_goods,id_shop,id_group,price,price_in,info) VALUES(7,0,2,4300,9,'x')");
    const auto editor = openEditor("7");
    QVERIFY(fillAndSave(editor.get(), "Молоко", {}));
    QCOMPARE(m_base->rows("SELECT id_group,price,price_in,info FROM prices"), QStringList("2|4300|9|x"));
}

void TstQTabGoods::whatIsBeingTypedIsSaved_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("stored");
    QTest::newRow("price") << int(GoodsPriceDelegate::Price) << "13,5"
                           << "1350|2";
    QTest::newRow("priority") << int(GoodsPriceDelegate::Priority) << "7"
                              << "4300|7";
}

void TstQTabGoods::whatIsBeingTypedIsSaved()
{
    QFETCH(int, column);
    QFETCH(QString, typed);
    const QVector<std::function<void(QAddEdtGoods *)>> ways = {
        [](QAddEdtGoods *editor) { pressAlt(editor->focusWidget(), L'Е'); },
        [](QAddEdtGoods *editor) { QTest::mouseClick(child<QPushButton>(editor, "pbOk"), Qt::LeftButton); },
        [](QAddEdtGoods *editor) {
            QTest::keyClick(editor->focusWidget(), Qt::Key_Return);
            QTest::keyClick(editor->focusWidget(), Qt::Key_Tab);
            child<QLineEdit>(editor, "leName")->setFocus();
            QTest::keyClick(editor->focusWidget(), Qt::Key_Return);
        }};
    for (const auto &save : ways) {
        m_base->exec({"DELETE FROM prices",
                      "INSERT INTO prices(id_goods,id_shop,id_group,price,priority) VALUES(7,0,1,4300,2)"});
        const auto editor = showEditor("7");
        auto *table = child<GoodsPriceTable>(editor.get(), "twPrices");
        table->setFocus();
        table->setCurrentCell(0, column);
        table->editItem(table->item(0, column));
        QTest::keyClicks(QApplication::focusWidget(), typed);
        save(editor.get());
        QTRY_VERIFY(!editor->isVisible());
        QTEST(m_base->value("SELECT CONCAT(price,'|',priority) FROM prices"), "stored");
    }
}

void TstQTabGoods::scannedPriorityIsNone()
{
    m_base->exec("INSERT INTO prices(id_goods,id_shop,id_group,price,priority) VALUES(7,0,1,4300,2)");
    const auto editor = showEditor("7");
    auto *table = child<GoodsPriceTable>(editor.get(), "twPrices");
    table->setFocus();
    table->setCurrentCell(0, GoodsPriceDelegate::Priority);
    scan(bread);
    pressAlt(editor->focusWidget(), L'Е');
    QTRY_VERIFY(!editor->isVisible());
    QCOMPARE(m_base->value("SELECT priority FROM prices"), QString("2"));
}

void TstQTabGoods::changesAreNotLostUnasked()
{
    auto editor = showEditor("7");
    QTest::keyClick(editor->focusWidget(), Qt::Key_Escape);
    QVERIFY2(!editor->isVisible(), "nothing was changed");
    const QVector<std::function<void(QAddEdtGoods *)>> changes = {
        [](QAddEdtGoods *dialog) { child<QComboBox>(dialog, "cbBlock")->setCurrentText("Так"); },
        [](QAddEdtGoods *dialog) { child<QListWidget>(dialog, "lwShtrih")->takeItem(0); },
        [](QAddEdtGoods *dialog) {
            dialog->addprice();
            child<QLineEdit>(dialog, "lePrice")->setFocus();
        },
        [](QAddEdtGoods *dialog) {
            child<QLineEdit>(dialog, "leShtrih")->setFocus();
            QTest::keyClicks(QApplication::focusWidget(), "48");
        }};
    const QVector<std::function<void(QAddEdtGoods *)>> ways = {
        [](QAddEdtGoods *dialog) { QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape); },
        [](QAddEdtGoods *dialog) { dialog->close(); },
        [](QAddEdtGoods *dialog) {
            QTest::mouseClick(child<QPushButton>(dialog, "pbCancel"), Qt::LeftButton);
        }};
    for (const auto &change : changes) {
        for (const auto &close : ways) {
            editor = showEditor("7");
            change(editor.get());
            const QStringList before = enteredTexts(editor.get());
            QVERIFY(!answerConfirm([&] { close(editor.get()); }, false).isEmpty());
            QVERIFY(editor->isVisible());
            QCOMPARE(enteredTexts(editor.get()), before);
            QVERIFY(!answerConfirm([&] { close(editor.get()); }, true).isEmpty());
            QVERIFY(!editor->isVisible());
        }
    }
    QCOMPARE(m_base->value("SELECT CONCAT(block,(SELECT COUNT(*) FROM dk_shc WHERE id_goods=7)) FROM goods "
                           "WHERE id=7"),
             QString("02"));
}

void TstQTabGoods::brokenFieldsAreRefused_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("why");
    QTest::newRow("name") << "leName"
                          << "  "
                          << "Назва товару не може бути пустою";
    for (const char *price : {"", "12,,5", "42949672.96"})
        QTest::newRow(price) << "lePrice" << price
                             << QString("Ціна \"%1\" не є ціною від 0 до 42949672.95.").arg(price);
    for (const char *id : {"0", "4294967296", "999999999999999"})
        QTest::newRow(id) << "leId" << id << "Код товару повинен бути від 1 до 4294967295.";
    for (const char *name : {"Сир\nтвердий", "Сир\tтвердий", "Сир\u2028твердий"})
        QTest::newRow(name) << "leName" << name
                            << "Поле \"Назва товару\": у тексті є перенесення рядка, табуляція або інший "
                               "невидимий знак. Зітріть його: текст має бути в один рядок.";
    QTest::newRow("taken id") << "leId"
                              << "008"
                              << "Товар №8 вже є: \"Хліб \"Бородинський\"\".";
    QTest::newRow("barcode not added") << "leShtrih"
                                       << "482"
                                       << "Штрихкод 482 ще не додано до списку: додайте або зітріть його.";
    QTest::newRow("no barcode") << ""
                                << ""
                                << "Товар повинен мати хоча б один штрихкод!";
}

void TstQTabGoods::brokenFieldsAreRefused()
{
    QFETCH(QString, field);
    QFETCH(QString, text);
    const QStringList before = m_base->rows(wholeItem);
    const auto editor = openEditor(QString());
    child<QLineEdit>(editor.get(), "leName")->setText("Сир");
    child<QLineEdit>(editor.get(), "lePrice")->setText("1.00");
    if (!field.isEmpty()) {
        child<QLineEdit>(editor.get(), "leShtrih")->setText(zeros);
        editor->addshc();
        auto *edit = child<QLineEdit>(editor.get(), field);
        edit->clear();
        QGuiApplication::clipboard()->setText(text);
        edit->paste();
    }
    QTEST(saveMeets(editor.get()), "why");
    QCOMPARE(editor->result(), int(QDialog::Rejected));
    QCOMPARE(m_base->rows(wholeItem), before);
}

void TstQTabGoods::oneItemOfARuleInAGroup()
{
    const QString why = "В групі \"Хліб\" з правилом \"С.Ваговий\" вже є товар №8.\nЗгідно даного правила, в "
                        "одній групі може бути тільки один товар з таким правилом";
    for (const QString &id : {QString(), QString("7")}) {
        const auto editor = openEditor(id);
        child<QComboBox>(editor.get(), "cbGroup")->setCurrentText("Хліб");
        child<QComboBox>(editor.get(), "cbRules")->setCurrentText("С.Ваговий");
        QVERIFY(!child<QLabel>(editor.get(), "labelRule")->isHidden());
        QCOMPARE(answerQuestion([&] { fillAndSave(editor.get(), "Батон", {zeros}); }), why);
        QCOMPARE(m_base->value("SELECT COUNT(*) FROM goods WHERE name='Батон'"), QString("0"));
        child<QComboBox>(editor.get(), "cbRules")->setCurrentText("Без правил");
        QVERIFY(child<QLabel>(editor.get(), "labelRule")->isHidden());
    }
    QVERIFY2(fillAndSave(openEditor("8").get(), "Батон", {}), "the item itself is not another one");
}

void TstQTabGoods::scannedBarcodesAreAdded()
{
    const auto editor = openEditor(QString());
    QVERIFY(showActive(editor.get()));
    auto *field = child<QLineEdit>(editor.get(), "leShtrih");
    auto *list = child<QListWidget>(editor.get(), "lwShtrih");
    const auto scan = [&](const QString &code) {
        QTest::keyClicks(field, code);
        QTest::keyClick(field, Qt::Key_Return);
    };
    scan(bread);
    QCOMPARE(list->count(), 1);
    QVERIFY(editor->isVisible() && field->text().isEmpty());
    scan(QString());
    QCOMPARE(answerQuestion([&] { scan(bread); }), QString("Такий штрихкод вже є у списку."));
    field->clear();
    QCOMPARE(answerQuestion([&] { scan("482000000002"); }), QString("Новий штрихкод повинен мати 13 цифр."));
    QCOMPARE(field->styleSheet(), QString("background-color: #FF3333"));
    // Not by its colour alone.
    QCOMPARE(field->accessibleDescription(), QString("Новий штрихкод повинен мати 13 цифр."));
    QVERIFY(child<QAction>(field, "refusalSign")->isVisible());
    field->clear();
    QVERIFY(!child<QAction>(field, "refusalSign")->isVisible());
    const QString question = "Увага.\nКонтрольна цифра штрихкоду 4820000000018 невірна. Додати його?";
    QCOMPARE(answerConfirm([&] { scan("4820000000018"); }, false), question);
    QCOMPARE(list->count(), 1);
    QCOMPARE(answerConfirm([&] { editor->addshc(); }, true), question);
    QCOMPARE(list->count(), 2);
    editor->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(editor.get()));
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(list->count(), 1);
    QVERIFY(editor->isVisible());
}

void TstQTabGoods::shortNameIsCut()
{
    const auto editor = openEditor(QString());
    auto *field = child<QLineEdit>(editor.get(), "leShortName");
    field->setText(QString(33, 'x'));
    QCOMPARE(field->text(), QString(32, 'x'));
    QCOMPARE(field->styleSheet(), QString("background-color: #FF3333"));
    field->setText("x");
    QCOMPARE(field->styleSheet(), QString());
    field->clear();
    QVERIFY(fillAndSave(editor.get(), QString(40, 'y'), {zeros}));
    QCOMPARE(m_base->value("SELECT name_short FROM goods WHERE id=" + m_id), QString(32, 'y'));
}

void TstQTabGoods::pricesAreTypedWithACommaToo()
{
    const auto editor = openEditor("7");
    QVERIFY(showActive(editor.get()));
    auto *table = child<GoodsPriceTable>(editor.get(), "twPrices");
    editor->addprice();
    auto *field = table->findChild<QLineEdit *>();
    QVERIFY(field != nullptr);
    QCOMPARE(field->text(), QString("42.50"));
    QTest::keyClicks(field, "13,5");
    QTest::keyClick(field, Qt::Key_Return);
    QTRY_COMPARE(table->item(0, 0)->text(), QString("13.50"));
    QCOMPARE(table->prices(),
             QVector<GoodsPrice>({{1350, 0, {"default", "1"}, {QString(), "0"}, std::nullopt}}));
    table->item(0, 0)->setText("13,555");
    QCOMPARE(table->refusal(),
             QString("Ціни магазинів, рядок 1: \"13,555\" не є ціною від 0 до 42949672.95."));
    table->item(0, 0)->setText("1");
    table->append(200, 0, "default", QString());
    QCOMPARE(table->refusal(), QString("Ціни магазинів, рядки 1 і 2: однакові пріоритет, група і магазин."));
    auto *price = child<QLineEdit>(editor.get(), "lePrice");
    price->setFocus();
    price->clear();
    QTest::keyClicks(price, "12");
    QTest::keyClick(price, Qt::Key_Tab);
    QCOMPARE(price->text(), QString("12.00"));
}

void TstQTabGoods::pastedAndDearPrices_data()
{
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("stored");
    QTest::newRow("comma") << "49,90"
                           << "4990";
    QTest::newRow("groups") << "1 234 567,8"
                            << "123456780";
    QTest::newRow("no-break groups") << QString::fromUtf8("12\u00a0345.67") << "1234567";
    for (const char *text : {"12 50", "1 2 3", "49.90 грн", "4,9,0", "1e3", "4820000000017", "-5", "٣"})
        QTest::newRow(text) << text << "";
}

void TstQTabGoods::pastedAndDearPrices()
{
    QFETCH(QString, pasted);
    QFETCH(QString, stored);
    m_base->exec("INSERT INTO prices(id_goods,id_shop,id_group,price) VALUES(7,0,1,4300)");
    const auto editor = showEditor("7");
    auto *table = child<GoodsPriceTable>(editor.get(), "twPrices");
    const auto paste = [&](QWidget *field) {
        QGuiApplication::clipboard()->setText(pasted);
        QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(field, Qt::Key_V, Qt::ControlModifier);
        return field->palette().color(QPalette::Base) != QApplication::palette().color(QPalette::Base);
    };
    const auto pasteIntoCell = [&] {
        table->setFocus();
        table->setCurrentCell(0, 0);
        table->editItem(table->item(0, 0));
        return paste(QApplication::focusWidget());
    };
    const bool isPrice = !stored.isEmpty();
    QCOMPARE(paste(child<QLineEdit>(editor.get(), "lePrice")), !isPrice);
    QCOMPARE(pasteIntoCell(), !isPrice);
    const QString why = answerQuestion([&] { pressAlt(editor->focusWidget(), L'Е'); });
    QVERIFY2(isPrice ? why.isEmpty() : why.contains(pasted), qPrintable(why));
    const QString now = m_base->value("SELECT CONCAT(goods.price,'|',prices.price) FROM goods JOIN prices ON "
                                      "id_goods=id");
    QCOMPARE(now, isPrice ? stored + "|" + stored : QString("4250|4300"));
    if (!isPrice)
        return;
    m_base->exec({"UPDATE goods SET price=123456789 WHERE id=7", "UPDATE prices SET price=123456789"});
    const auto second = showEditor("7");
    auto *price = child<QLineEdit>(second.get(), "lePrice");
    table = child<GoodsPriceTable>(second.get(), "twPrices");
    table->setCurrentCell(0, 0);
    const auto mend = [](QWidget *field) {
        QTest::keyClick(field, Qt::Key_End);
        for (int i = 0; i < 4; ++i)
            QTest::keyClick(field, Qt::Key_Backspace);
        QTest::keyClicks(field, "0,5");
    };
    mend(price);
    table->setFocus();
    table->editItem(table->item(0, 0));
    mend(QApplication::focusWidget());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(table->item(0, 0)->text(), QString("1234560.50"));
    pressAlt(second->focusWidget(), L'Е');
    QCOMPARE(
        m_base->value("SELECT CONCAT(goods.price,'|',prices.price) FROM goods JOIN prices ON id_goods=id"),
        QString("123456050|123456050"));
}

void TstQTabGoods::barcodeOfAnotherItemIsNamed()
{
    for (const QString &id : {QString(), QString("7")}) {
        const QStringList before = m_base->rows(wholeItem);
        const auto editor = openEditor(id);
        m_base->heard.forget();
        QVERIFY(!fillAndSave(editor.get(), "Сир", {"4820000000031", bread}));
        QVERIFY(m_base->heard.has("Duplicate entry '4820000000024'"));
        QVERIFY(m_base->heard.has("Товар не збережено: штрихкод 4820000000024 вже має товар №8 "
                                  "\"Хліб \"Бородинський\"\"."));
        QCOMPARE(m_base->rows(wholeItem), before);
        QCOMPARE(m_id, id);
        QCOMPARE(child<QLineEdit>(editor.get(), "leName")->text(), QString("Сир"));
        editor->delshc();
        QVERIFY2(fillAndSave(editor.get(), "Сир", {}), "without that barcode it is saved");
        m_base->exec("DELETE FROM dk_shc WHERE shtrihcod='4820000000031'");
    }
}

void TstQTabGoods::priceOfAnUnknownGroupIsExplained()
{
    const QStringList before = m_base->rows(wholeItem);
    const auto editor = openEditor("7");
    editor->insertprice(4300, 0, "Північ", QString());
    const QString why = answerQuestion([&] { fillAndSave(editor.get(), "Сир", {}); });
    QVERIFY2(why.contains("для групи магазинів \"Північ\" ціну зберегти не можна"), qPrintable(why));
    QVERIFY(m_base->heard.has("Column 'id_group' cannot be null"));
    QCOMPARE(m_base->rows(wholeItem), before);
}

void TstQTabGoods::lostConnectionLeavesAllOrNothing()
{
    for (const QString &id : {QString(), QString("7")}) {
        bool wasReached = true;
        for (int broken = 0; wasReached; ++broken) {
            m_base->exec("DELETE FROM prices");
            m_base->exec("DELETE FROM goods WHERE id NOT IN (7,8)");
            m_base->exec("UPDATE goods SET name='old',price=1 WHERE id=7");
            const QStringList before = m_base->rows(wholeItem);
            const auto editor = openEditor(id);
            editor->insertprice(4300 + broken, 0, "default", QString());
            int sent = 0;
            Db::setStatementHook([&](const QString &) {
                if (sent++ == broken)
                    m_base->killConnection();
            });
            const QString name = QString("Спроба %1").arg(broken);
            const bool saved = fillAndSave(editor.get(), name, {zeros});
            Db::setStatementHook(nullptr);
            waitOutLoss(*m_base->connection());
            wasReached = sent > broken;
            const auto count = [&](const char *table) {
                return m_base->value(QString("SELECT COUNT(*) FROM goods JOIN %1 ON id_goods=id WHERE "
                                             "name='%2' AND goods.price=1250")
                                         .arg(table, name));
            };
            if (!saved) {
                QCOMPARE(m_base->rows(wholeItem), before);
                QVERIFY(!m_base->heard.texts().isEmpty());
                QCOMPARE(m_id, id);
                QVERIFY2(fillAndSave(editor.get(), name, {}), "the next try succeeds");
            }
            QCOMPARE(count("prices"), QString("1"));
            QCOMPARE(count("dk_shc"), QString(id.isEmpty() ? "1" : "3"));
            m_base->exec("DELETE FROM dk_shc WHERE shtrihcod='0000000000024'");
            m_base->heard.forget();
        }
    }
}

void TstQTabGoods::lostAnswerIsLookedUp_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<bool>("serverGotIt");
    QTest::addColumn<bool>("answersLater");
    for (const char *id : {"", "7"}) {
        for (const bool gotIt : {true, false}) {
            QTest::addRow("got it %d, %s", gotIt, id) << id << gotIt << false;
            QTest::addRow("got it %d, %s, answers later", gotIt, id) << id << gotIt << true;
        }
    }
}

void TstQTabGoods::lostAnswerIsLookedUp()
{
    QFETCH(QString, id);
    QFETCH(bool, serverGotIt);
    QFETCH(bool, answersLater);
    m_base->exec("UPDATE updat SET updat='2020-01-01'");
    const auto editor = openEditor(id);
    editor->insertprice(1300, 0, "default", QString());
    bool isLost = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == "COMMIT" && !isLost) {
            isLost = true;
            // The new transaction keeps the client from reconnecting silently.
            if (serverGotIt)
                commitHere();
            m_base->killConnection();
        } else if (isLost && answersLater && sql.endsWith("FOR UPDATE")) {
            m_base->exec("RENAME TABLE goods TO away");
        }
    });
    const QString told = answerQuestion([&] { fillAndSave(editor.get(), "Сир", {zeros}); });
    Db::setStatementHook(nullptr);
    QCOMPARE(told.startsWith("Зв'язок обірвався під час запису, і невідомо"), answersLater);
    QCOMPARE(editor->isUnclear(), answersLater);
    if (answersLater)
        m_base->exec("RENAME TABLE away TO goods");
    const QString count = "SELECT COUNT(*) FROM goods WHERE name='Сир'";
    QCOMPARE(m_base->value(count), QString(serverGotIt ? "1" : "0"));
    QCOMPARE(editor->result() == QDialog::Accepted, serverGotIt && !answersLater);
    if (editor->result() != QDialog::Accepted) {
        // The record that has arrived is no rival of itself.
        waitOutLoss(*m_base->connection());
        editor->btok();
        waitOutTasks();
        QCOMPARE(editor->result(), int(QDialog::Accepted));
    }
    QCOMPARE(m_base->value(count), QString("1"));
    QCOMPARE(
        m_base->value("SELECT CONCAT(price,'|',(SELECT COUNT(*) FROM prices WHERE id_goods=id)) FROM goods "
                      "WHERE name='Сир' AND id=" +
                      m_id),
        QString("1250|1"));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM updat WHERE name IN ('goods','dk_shc','prices') AND "
                           "updat>'2020-01-01'"),
             QString("3"));
}

void TstQTabGoods::hiddenColumnsOfPricesStay()
{
    m_base->exec("INSERT INTO prices(id_goods,id_shop,id_group,priority,price,price_in,period_start_date,"
                 "period_end_date,period_start_time,period_end_time,week_day,info) VALUES"
                 "(7,0,1,0,4300,3900,'2026-01-02',0,'08:30:00',0,5,'акція ''А'''),"
                 "(7,2,1,0,4400,1,0,'2026-12-31',0,'23:59:59',0,NULL),"
                 // A group and a shop that cannot be chosen here.
                 "(7,99,3,0,4500,2,0,0,0,0,0,'чужа')");
    const auto editor = showEditor("7");
    auto *table = child<GoodsPriceTable>(editor.get(), "twPrices");
    for (int row = 0; row < table->rowCount(); ++row) {
        if (table->item(row, 0)->text() == "44.00")
            table->item(row, GoodsPriceDelegate::Priority)->setText("3");
        else if (table->item(row, 0)->text() == "45.00")
            table->item(row, GoodsPriceDelegate::Price)->setText("45.50");
    }
    editor->insertprice(100, 9, "default", QString());
    QVERIFY(fillAndSave(editor.get(), "Молоко", {}));
    QCOMPARE(
        m_base->rows("SELECT id_shop,priority,price,price_in,period_start_date,period_end_date,"
                     "period_start_time,period_end_time,week_day,IFNULL(info,'NULL') FROM prices ORDER BY "
                     "price DESC"),
        QStringList({"99|0|4550|2|||00:00:00|00:00:00|0|чужа",
                     "2|3|4400|1||2026-12-31|00:00:00|23:59:59|0|NULL",
                     "0|0|4300|3900|2026-01-02||08:30:00|00:00:00|5|акція 'А'",
                     "0|9|100|0|||00:00:00|00:00:00|0|NULL"}));
}

void TstQTabGoods::renamedMeanwhileIsRefused_data()
{
    QTest::addColumn<QString>("meanwhile");
    QTest::addColumn<QString>("why");
    QTest::newRow("shop") << "UPDATE shops SET address='вул. Стара, 2' WHERE id=2"
                          << "магазин \"вул. Нова, 2\" перейменовано або вилучено";
    QTest::newRow("shops changed names")
        << "UPDATE shops SET address=ELT(FIELD(id,2,3,1),NULL,'вул. Нова, 2','вул. Ліська, 1') ORDER BY id=3"
        << "магазин \"вул. Нова, 2\" перейменовано або вилучено";
    QTest::newRow("goods group of a shop group's name")
        << "UPDATE group_goods SET name=IF(id=1,'Старі','default') WHERE id IN (1,2) ORDER BY id"
        << "для групи магазинів \"default\" ціну зберегти не можна";
    QTest::newRow("goods group") << "UPDATE group_goods SET name='Хлібці' WHERE id=3"
                                 << "вибране в полі \"Група\" перейменувала інша програма";
    QTest::newRow("rule") << "UPDATE rules_goods SET name='Інше' WHERE id=1"
                          << "вибране в полі \"Правило\" перейменувала інша програма";
}

void TstQTabGoods::renamedMeanwhileIsRefused()
{
    QFETCH(QString, meanwhile);
    QFETCH(QString, why);
    const QStringList before = m_base->rows(wholeItem);
    const QStringList lists =
        m_base->rows("SELECT CONCAT('UPDATE shops SET address=',QUOTE(address),' WHERE "
                     "id=',id) FROM shops UNION ALL SELECT CONCAT('UPDATE group_goods SET "
                     "name=',QUOTE(name),' WHERE id=',id) FROM group_goods ORDER BY 1 "
                     "DESC") +
        QStringList("UPDATE rules_goods SET name='Без правил' WHERE id=1");
    const auto editor = openEditor("7");
    child<QComboBox>(editor.get(), "cbGroup")->setCurrentText("Хліб");
    editor->insertprice(4300, 0, "default", "вул. Нова, 2");
    m_base->exec(meanwhile);
    const QString told = answerQuestion([&] { fillAndSave(editor.get(), "Сир", {}); });
    QVERIFY2(told.contains(why), qPrintable(told));
    QCOMPARE(m_base->rows(wholeItem), before);
    QCOMPARE(child<QLineEdit>(editor.get(), "leName")->text(), QString("Сир"));
    m_base->exec("UPDATE shops SET address=CONCAT('t',id)");
    m_base->exec("UPDATE group_goods SET name=CONCAT('t',id)");
    m_base->exec(lists);
    QVERIFY2(fillAndSave(editor.get(), "Сир", {}), "with the names as they were it is saved");
}

void TstQTabGoods::whatIsMissingMayStayMissing()
{
    m_base->exec({"DELETE FROM dk_shc WHERE id_goods=7",
                  "UPDATE goods SET price=NULL,name_short=NULL,group_g=NULL,tax=NULL,paym_bonus=NULL,"
                  "id_rules_goods=NULL,type=NULL,block=NULL WHERE id=7"});
    const auto editor = showEditor("7");
    auto *name = child<QLineEdit>(editor.get(), "leName");
    name->setFocus();
    name->clear();
    QTest::keyClicks(name, "Kefir");
    QTest::keyClick(name, Qt::Key_Tab);
    pressAlt(editor->focusWidget(), L'Е');
    QVERIFY(!editor->isVisible());
    QCOMPARE(
        m_base->value("SELECT CONCAT(name,(name_short IS NULL)+(price IS NULL)+(group_g IS NULL)+(tax IS "
                      "NULL)+(paym_bonus IS NULL)+(id_rules_goods IS NULL)+(type IS NULL)+(block IS "
                      "NULL)) FROM goods WHERE id=7"),
        QString("Kefir8"));
    const auto second = openEditor("8");
    child<QListWidget>(second.get(), "lwShtrih")->clear();
    QCOMPARE(saveMeets(second.get()), QString("Товар повинен мати хоча б один штрихкод!"));
    child<QLineEdit>(second.get(), "leShtrih")->setText(zeros);
    second->addshc();
    child<QLineEdit>(second.get(), "lePrice")->clear();
    QCOMPARE(saveMeets(second.get()), QString("Ціна \"\" не є ціною від 0 до 42949672.95."));
}

void TstQTabGoods::goodsAreOfferedToShops()
{
    m_base->exec(
        {"INSERT INTO goods_shop(id_shop,id_goods,count_showroom,count_syllable) VALUES(2,7,1500,-3)",
         "UPDATE updat SET updat='2020-01-01'"});
    const auto editor = showEditor("7");
    auto *shops = child<QListWidget>(editor.get(), "lwShops");
    QCOMPARE(shops->count(), 2);
    QCOMPARE(shops->item(1)->checkState(), Qt::Checked);
    shops->setFocus();
    shops->setCurrentRow(1);
    QTest::keyClick(shops, Qt::Key_Space);
    QVERIFY2(shops->item(1)->checkState() == Qt::Checked, "stock lies there: it is not taken away here");
    shops->setCurrentRow(0);
    QTest::keyClick(shops, Qt::Key_Space);
    // Meanwhile another program has offered it there, and counted.
    m_base->exec("INSERT INTO goods_shop(id_shop,id_goods,count_showroom) VALUES(1,7,250)");
    QVERIFY(fillAndSave(editor.get(), "Молоко", {}));
    const QString stocks = "SELECT id_shop,id_goods,count_showroom,count_syllable,id_action FROM goods_shop "
                           "ORDER BY id_goods,id_shop";
    QCOMPARE(m_base->rows(stocks), QStringList({"1|7|250|0|1", "2|7|1500|-3|1"}));
    const auto added = openEditor(QString());
    for (int i = 0; i < 2; ++i)
        child<QListWidget>(added.get(), "lwShops")->item(i)->setCheckState(Qt::Checked);
    QVERIFY(fillAndSave(added.get(), "Сир", {zeros}));
    QCOMPARE(m_base->rows(stocks).mid(2), QStringList({"1|" + m_id + "|0|0|1", "2|" + m_id + "|0|0|1"}));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM updat WHERE name='goods_shop' AND updat>'2020-01-01'"),
             QString("1"));
}

void TstQTabGoods::searchFinds_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("group");
    QTest::addColumn<bool>("byCode");
    QTest::addColumn<QStringList>("ids");
    QTest::addColumn<int>("count");
    const QStringList none;
    QTest::newRow("all") << "" << 0 << false << QStringList{"7", "7", "8"} << 2;
    QTest::newRow("all, grouped") << "" << 0 << true << QStringList{"7", "8"} << 2;
    QTest::newRow("group") << "" << 2 << true << QStringList{"7"} << 1;
    QTest::newRow("barcode") << "20000000024" << 0 << false << QStringList{"8"} << 1;
    QTest::newRow("barcode of another group") << "20000000024" << 2 << false << none << 0;
    QTest::newRow("id") << " 8 " << 3 << true << QStringList{"8"} << 1;
    QTest::newRow("name") << "молоко" << 0 << false << QStringList{"7", "7"} << 1;
    QTest::newRow("name of another group") << "молоко" << 3 << true << none << 0;
    QTest::newRow("percent is a percent") << "5%" << 0 << true << QStringList{"7"} << 1;
    QTest::newRow("quotes") << "\"Бород" << 0 << true << QStringList{"8"} << 1;
    QTest::newRow("words in any order") << "  5% мол " << 0 << false << QStringList{"7", "7"} << 1;
    QTest::newRow("a word that is missing") << "молоко житнє" << 0 << false << none << 0;
    QTest::newRow("short numbers are not looked for in barcodes") << "молоко 482" << 0 << true << none << 0;
    QTest::newRow("long ones are") << "4820000 молоко" << 0 << true << QStringList{"7"} << 1;
    QTest::newRow("words of another group") << "молоко 5" << 3 << true << none << 0;
    for (const char *text :
         {"_", "'", "\\", "молоко \\", "молоко _", "x'; DELETE FROM goods; -- ", "' OR 1=1 -- ", "?:a"})
        QTest::newRow(text) << text << 0 << true << none << 0;
}

void TstQTabGoods::searchFinds()
{
    QFETCH(QString, text);
    QFETCH(int, group);
    QFETCH(bool, byCode);
    QFETCH(QStringList, ids);
    QFETCH(int, count);
    auto *box = child<QComboBox>(m_tab.get(), "cbGroup");
    box->setCurrentIndex(box->findData(group));
    child<QCheckBox>(m_tab.get(), "chByCode")->setChecked(byCode);
    QVERIFY(loaded(m_tab.get(), [&] { child<QLineEdit>(m_tab.get(), "leSearch")->setText(text + "!"); }));
    QVERIFY(loaded(m_tab.get(), [&] { child<QLineEdit>(m_tab.get(), "leSearch")->setText(text); }));
    QStringList found;
    for (const QString &row : shown(*m_tab))
        found.append(row.section('|', 0, 0));
    found.sort();
    QCOMPARE(found, ids);
    QCOMPARE(child<QLabel>(m_tab.get(), "labelState")->text(), QString("Записів: %1").arg(count));
    QVERIFY2(m_base->heard.texts().isEmpty(), qPrintable(m_base->heard.texts().join('\n')));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM goods"), QString("2"));
}

void TstQTabGoods::editorRefreshesItsRows()
{
    m_tab->view()->sortByColumn(1, Qt::AscendingOrder);
    const auto edit = [&] { m_tab->Edit(m_tab->model()->index(0, 0)); };
    QVERIFY(inEditor<QAddEdtGoods>(
        edit, [&](QAddEdtGoods *editor) { fillAndSave(editor, "Молоко", {"4820000000031"}); }));
    QCOMPARE(shown(*m_tab).filter("7|").size(), 3);
    QVERIFY(inEditor<QAddEdtGoods>(edit, [&](QAddEdtGoods *editor) {
        for (const int count : {3, 2}) {
            child<QListWidget>(editor, "lwShtrih")->setCurrentRow(count - 1);
            editor->delshc();
        }
        fillAndSave(editor, "Молоко 1", {});
    }));
    QCOMPARE(shown(*m_tab).filter("7|").size(), 1);
    QVERIFY(inEditor<QAddEdtGoods>([&] { m_tab->Add(); },
                                   [&](QAddEdtGoods *editor) {
                                       fillAndSave(editor, "Сир", {zeros, "4820000000048"});
                                   }));
    QCOMPARE(shown(*m_tab).size(), 4);
    QCOMPARE(m_tab->view()->currentIndex().row(), 2);
    QVERIFY(m_base->heard.texts().isEmpty());
    m_base->exec({"DELETE FROM dk_shc", "DELETE FROM goods WHERE id=7"});
    edit();
    QVERIFY(m_base->heard.has("Запис не знайдено id=7"));
}

void TstQTabGoods::viewerOnlyLooks()
{
    m_base->exec("UPDATE lst_permis SET permission=2 WHERE id_prem=13");
    QVERIFY(m_place->user()->reload(m_base->connection()));
    m_tab->Add();
    const QStringList before = m_base->rows(wholeItem);
    const bool opened =
        inEditor<QAddEdtGoods>([&] { emit m_tab->view()->doubleClicked(m_tab->model()->index(0, 0)); },
                               [&](QAddEdtGoods *editor) {
                                   QVERIFY(child<QLineEdit>(editor, "lePrice")->isReadOnly());
                                   QVERIFY(!child<QPushButton>(editor, "pbOk")->isEnabled());
                                   QTest::keyClick(child<QListWidget>(editor, "lwShtrih"), Qt::Key_Delete);
                                   editor->addprice();
                                   editor->btok();
                                   QVERIFY(editor->isVisible());
                               });
    QVERIFY(opened);
    QCOMPARE(m_base->rows(wholeItem), before);
    QVERIFY(m_base->heard.texts(QMessEvent::Information).isEmpty());
}

void TstQTabGoods::stockOfPermittedShopsOnly()
{
    m_base->exec("INSERT INTO goods_shop(id_shop,id_goods,count_showroom,count_syllable) VALUES(1,7,2500,0),"
                 "(2,7,1000,-250),(2,8,1,1),(3,7,9,9)");
    QTabGoodsShops tab(m_base->connection(), m_place->user(), &m_base->heard, nullptr, nullptr);
    const auto rows = [&] {
        QStringList list;
        for (int row = 0; row < tab.model()->rowCount(); ++row)
            list.append(tab.model()->stored(row, 0) + "|" + tab.model()->stored(row, 1) + "|" +
                        tab.model()->index(row, 2).data(Qt::EditRole).toString() + "|" +
                        tab.model()->index(row, 3).data(Qt::EditRole).toString());
        list.sort();
        return list;
    };
    auto *shops = child<QComboBox>(&tab, "cbShop");
    QVERIFY(loaded(&tab, [] {}));
    QTRY_COMPARE(shops->count(), 3);
    QCOMPARE(rows(),
             QStringList({"вул. Ліська, 1|Молоко 2,5%|2.500|0.000", "вул. Нова, 2|Молоко 2,5%|1.000|-0.250",
                          "вул. Нова, 2|Хліб \"Бородинський\"|0.001|0.001"}));
    QVERIFY(loaded(&tab, [&] { shops->setCurrentText("вул. Нова, 2"); }));
    QCOMPARE(rows().size(), 2);
    QVERIFY(loaded(&tab, [&] { child<QLineEdit>(&tab, "leSearch")->setText("2,5%"); }));
    QCOMPARE(rows(), QStringList("вул. Нова, 2|Молоко 2,5%|1.000|-0.250"));
    // The text also stands in the name of another shop.
    m_base->exec("INSERT INTO goods_shop(id_shop,id_goods) VALUES(1,8)");
    QVERIFY(loaded(&tab, [&] { child<QLineEdit>(&tab, "leSearch")->setText("Ліська"); }));
    QVERIFY(rows().isEmpty());
    m_base->exec("DELETE FROM lst_group");
    QVERIFY(m_place->user()->reload(m_base->connection()));
    QVERIFY(loaded(&tab, [&] { child<QLineEdit>(&tab, "leSearch")->clear(); }));
    QVERIFY(rows().isEmpty());
    // Nothing but the shop that the user works in.
    QVERIFY(m_place->user()->load(m_base->connection(), "1", "1", "3"));
    QTabGoodsShops own(m_base->connection(), m_place->user(), &m_base->heard, nullptr, nullptr);
    QVERIFY(loaded(&own, [] {}));
    QTRY_COMPARE(child<QComboBox>(&own, "cbShop")->count(), 2);
    QCOMPARE(own.model()->rowCount(), 1);
    QCOMPARE(own.model()->stored(0, 0), QString("вул. Далека, 3"));
}

QTEST_MAIN(TstQTabGoods)
#include "tst_qtabgoods.moc"
