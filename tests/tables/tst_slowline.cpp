#include "workplace.h"

#include "dbtasks.h"
#include "heartbeat.h"
#include "qaddedtgoods.h"
#include "qaddedtshop.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qtabdiscount.h"
#include "qtabgoods.h"
#include "qtabkass.h"
#include "qtabshops.h"
#include "tcpproxy.h"
#include "typedinput.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
/// An editor: which tab opens it, what it shows, and what a new record needs.
struct Kind
{
    const char *table;
    int permission;
    std::function<QTab *(Workplace *, QSqlDatabase *)> makeTab;
    /// What is typed first goes there, behind so many Tabs.
    const char *field;
    int tabs;
    std::function<void(RecordDialog *)> fillRest;
    const char *stored;
    const char *wheeled;
};

template<typename Tab>
QTab *makeTab(Workplace *place, QSqlDatabase *window)
{
    return new Tab(window, place->user(), &place->base.heard, place->settings(), nullptr);
}

void fillShop(RecordDialog *editor)
{
    enter(editor, "cbGroup", "Схід");
}

void fillKass(RecordDialog *editor)
{
    enter(editor, "cbGroup", "Захід");
    enter(editor, "cbShop", "Львів");
}

void fillGoods(RecordDialog *editor)
{
    enter(editor, "lePrice", "12,50");
    child<QLineEdit>(editor, "leShtrih")->setFocus();
    scan("4820000000024");
}

const QVector<Kind> kinds = {
    {"shops", Permission::Shops, &makeTab<QTabShops>, "leAddress", 0, &fillShop,
     "SELECT CONCAT_WS('|',id,address,group_shop) FROM shops ORDER BY id", "cbGroup"},
    {"kassa", Permission::Kassa, &makeTab<QTabKass>, "leAdver", 3, &fillKass,
     "SELECT CONCAT_WS('|',id,advertising_str,id_shop) FROM kassa ORDER BY id", "cbShop"},
    {"goods", Permission::Goods, &makeTab<QTabGoods>, "leName", 0, &fillGoods,
     "SELECT CONCAT_WS('|',id,name,price) FROM goods ORDER BY id", "cbTax"},
    {"procent", Permission::Discount, &makeTab<QTabDiscount>, "leName", 0, [](RecordDialog *) {},
     "SELECT CONCAT_WS('|',id,name,discount) FROM procent ORDER BY id", "cbAuto"}};
} // namespace

Q_DECLARE_METATYPE(Kind)

/// Editors on a line to the server that is slow or silent, by a person in a hurry.
class TstSlowLine : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup();

    void keysTypedWhileReadingAreKept();
    void escapeWhileReading();
    void silentWhileReading();
    void hurriedHands_data();
    void hurriedHands();
    void silentWhileWriting_data();
    void silentWhileWriting();
    void editorGoneWhileWriting();
    void tabGoneWithItsEditor_data();
    void tabGoneWithItsEditor();

private:
    std::unique_ptr<QAddEdtGoods> openEditor(const QString &id);
    std::unique_ptr<QTab> openTab(const Kind &kind);
    FreshDatabase &base() { return m_place->base; }
    QString item() { return base().value("SELECT CONCAT_WS('|',name,price) FROM goods WHERE id=7"); }

    std::unique_ptr<Workplace> m_place;
    std::unique_ptr<TcpProxy> m_proxy;
    QSqlDatabase m_window;
    QString m_id;
};

void TstSlowLine::init()
{
    m_place->clear();
    base().exec({"INSERT INTO goods(id,name,name_short,price,type,group_g,tax,id_rules_goods,paym_bonus,"
                 "bonus_disk,block) VALUES(7,'Молоко','Молоко',4250,1,1,1,1,1,0,0)",
                 "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(7,'4820000000017')"});
    base().heard.forget();
    m_proxy = std::make_unique<TcpProxy>(testServer());
    DatabaseAddress address = m_proxy->address();
    address.name = base().address().name;
    address.readSeconds = 1;
    m_window = addConnection("slow", address);
}

void TstSlowLine::cleanup()
{
    Db::setStatementHook(nullptr);
    m_proxy->setSilent(false);
    m_proxy->setDelay(0);
    waitOutTasks();
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase("slow");
    m_proxy.reset();
}

/// Shown and active; what it reads is on its way.
std::unique_ptr<QAddEdtGoods> TstSlowLine::openEditor(const QString &id)
{
    m_id = id;
    auto editor = std::make_unique<QAddEdtGoods>(nullptr, &m_window, &m_id, "SELECT address,id FROM shops",
                                                 &base().heard, nullptr);
    if (!showActive(editor.get()))
        qFatal("The editor has not become active");
    return editor;
}

void TstSlowLine::keysTypedWhileReadingAreKept()
{
    m_proxy->setDelay(40);
    const auto editor = openEditor(QString());
    typeText("Сирx");
    pressKeys({Qt::Key_Backspace, Qt::Key_Tab});
    typeText("Сирок ");
    // Neither Enter nor a letter of a button decides anything, also when the wait is shown.
    pressKeys({Qt::Key_Return});
    QTest::sendKeyEvent(QTest::Click, editor->focusWidget(), static_cast<Qt::Key>(L'Е'), "Е",
                        Qt::AltModifier);
    QTRY_COMPARE(child<QLabel>(editor.get(), "labelBusy")->text(), QString("Читається…"));
    QVERIFY(!child<QLineEdit>(editor.get(), "leName")->isEnabled());
    QVERIFY(child<QPushButton>(editor.get(), "pbCancel")->isEnabled());
    pressKeys({Qt::Key_Space, Qt::Key_Return});
    QTest::mouseClick(child<QPushButton>(editor.get(), "pbOk"), Qt::LeftButton);
    typeText("15%");
    QVERIFY(child<QLineEdit>(editor.get(), "leName")->text().isEmpty());
    waitOutTasks();
    QVERIFY(editor->isVisible() && !editor->isBusy());
    QCOMPARE(child<QLineEdit>(editor.get(), "leName")->text(), QString("Сир"));
    QCOMPARE(child<QLineEdit>(editor.get(), "leShortName")->text(), QString("Сирок  15%"));
    QVERIFY2(child<QLineEdit>(editor.get(), "leShortName")->hasFocus(), "the keyboard goes on there");
    QVERIFY(child<QLabel>(editor.get(), "labelBusy")->text().isEmpty());
    QVERIFY2(!answerConfirm([&] { pressKeys({Qt::Key_Escape}); }, true).isEmpty(),
             "what was typed is a change");
    QCOMPARE(base().value("SELECT COUNT(*) FROM goods"), QString("1"));
}

void TstSlowLine::escapeWhileReading()
{
    m_proxy->setDelay(40);
    for (const int waitMs : {0, 250}) {
        for (const bool byMouse : {true, false}) {
            const auto editor = openEditor("7");
            QTest::qWait(waitMs);
            if (byMouse)
                QTest::mouseClick(child<QPushButton>(editor.get(), "pbCancel"), Qt::LeftButton);
            else
                pressKeys({Qt::Key_Escape});
            QVERIFY(!editor->isVisible() && !editor->hasFailed());
            waitOutTasks();
            QCOMPARE(editor->result(), int(QDialog::Rejected));
        }
    }
    QCOMPARE(base().heard.texts(), QStringList());
}

void TstSlowLine::silentWhileReading()
{
    openEditor("7");
    waitOutTasks();
    m_proxy->setSilent(true);
    Heartbeat heart;
    heart.restart();
    const auto editor = openEditor("7");
    QTRY_COMPARE(child<QLabel>(editor.get(), "labelBusy")->text(), QString("Читається…"));
    waitOutTasks();
    QVERIFY2(heart.longestGap() < Heartbeat::waitMs, qPrintable(QString::number(heart.longestGap())));
    QVERIFY2(!editor->isVisible() && editor->hasFailed(), "there is nothing to edit");
    QVERIFY2(!base().heard.texts().isEmpty(), "it is told");
}

/// A tab with rows, on the slow line.
std::unique_ptr<QTab> TstSlowLine::openTab(const Kind &kind)
{
    base().exec({"INSERT INTO shops(id,address,name,group_shop,day_update,count_day_cycle,block) "
                 "VALUES(10,'Львів','Їжак',2,3,7,0)",
                 "INSERT INTO kassa(id,id_shop,advertising_str,head_edit,block) VALUES(20,10,'Каса 1',0,0)"});
    base().exec({"DELETE FROM procent",
                 "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Срібна',350,500000,1,0)"});
    m_place->logIn(kind.permission);
    std::unique_ptr<QTab> tab(kind.makeTab(m_place.get(), &m_window));
    tab->setPermission(kind.permission);
    tab->resize(900, 500);
    if (!showActive(tab.get()) ||
        !QTest::qWaitFor([&] { return !tab->isLoading() && tab->model()->rowCount() == 1; }, 20000))
        qFatal("The tab has not come");
    return tab;
}

void TstSlowLine::hurriedHands_data()
{
    QTest::addColumn<Kind>("kind");
    for (const Kind &kind : kinds)
        QTest::newRow(kind.table) << kind;
}

/// Add, type at once, Enter, Enter, and whatever a hand does that finds nothing happening.
void TstSlowLine::hurriedHands()
{
    QFETCH(const Kind, kind);
    const auto tab = openTab(kind);
    const QStringList before = base().rows(kind.stored);
    m_proxy->setDelay(200);
    Heartbeat heart;
    const auto drive = [&](RecordDialog *editor) {
        QTRY_COMPARE(QApplication::activeWindow(), editor);
        QVERIFY(editor->isBusy());
        for (int i = 0; i < kind.tabs; ++i)
            pressKeys({Qt::Key_Tab});
        typeText("Новий");
        pressKeys({Qt::Key_Return});
        waitOutTasks();
        QCOMPARE(child<QLineEdit>(editor, kind.field)->text(), QString("Новий"));
        kind.fillRest(editor);
        child<QLineEdit>(editor, kind.field)->setFocus();
        const QStringList entered = enteredTexts(editor);
        pressKeys({Qt::Key_Return, Qt::Key_Return});
        typeText("x");
        turnWheel(child<QComboBox>(editor, kind.wheeled), -2);
        QTRY_COMPARE(child<QLabel>(editor, "labelBusy")->text(), QString("Записується…"));
        typeText("y");
        pressKeys({Qt::Key_Space, Qt::Key_Tab, Qt::Key_Down, Qt::Key_Return, Qt::Key_Escape});
        turnWheel(child<QComboBox>(editor, kind.wheeled), 1);
        turnWheel(editor, -1);
        editor->close();
        QTest::mouseClick(child<QPushButton>(editor, "pbCancel"), Qt::LeftButton);
        QTest::mouseClick(child<QPushButton>(editor, "pbOk"), Qt::LeftButton);
        QTest::mouseDClick(child<QPushButton>(editor, "pbOk"), Qt::LeftButton);
        QVERIFY(editor->isVisible() && editor->isBusy());
        QCOMPARE(child<QLabel>(editor, "labelBusy")->text(), QString("Записується… Скасувати вже не можна."));
        QCOMPARE(enteredTexts(editor), entered);
        waitOutTasks();
    };
    QVERIFY(withModal<RecordDialog>([&] { tab->run(Command::Add); }, drive));
    waitOutTasks();
    QVERIFY2(heart.longestGap() < Heartbeat::waitMs, qPrintable(QString::number(heart.longestGap())));
    QCOMPARE(base().rows(kind.stored).size(), before.size() + 1);
    QVERIFY2(base().rows(kind.stored).last().contains("|Новий|"),
             qPrintable(base().rows(kind.stored).last()));
    QCOMPARE(tab->model()->rowCount(), 2);
    QCOMPARE(tab->view()->currentIndex().row(), 1);
    QCOMPARE(base().heard.texts(), QStringList());
}

void TstSlowLine::silentWhileWriting_data()
{
    QTest::addColumn<Kind>("kind");
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("statement");
    const auto row = [](const Kind &kind, bool isNew, const QString &statement) {
        QTest::addRow("%s %s, %s", isNew ? "new" : "old", kind.table, qPrintable(statement))
            << kind << isNew << statement;
    };
    row(kinds.at(0), true, "COMMIT");
    row(kinds.at(0), false, "UPDATE shops");
    row(kinds.at(1), true, "INSERT INTO kassa");
    row(kinds.at(1), false, "COMMIT");
    row(kinds.at(2), true, "COMMIT");
    row(kinds.at(2), false, "SELECT");
}

/// What was entered stays, is told once, and is saved once when the server answers again.
void TstSlowLine::silentWhileWriting()
{
    QFETCH(const Kind, kind);
    QFETCH(const bool, isNew);
    QFETCH(const QString, statement);
    const auto tab = openTab(kind);
    const QStringList before = base().rows(kind.stored);
    const bool isUnclear = statement == "COMMIT";
    const auto save = [isUnclear] {
        QString told;
        const auto press = [] {
            pressKeys({Qt::Key_Return});
            waitOutTasks();
        };
        const auto read = [&told](QQestion *question) {
            told = child<QLabel>(question, "labelText")->text();
        };
        return isUnclear ? withModal<QQestion>(press, read, 15000) ? told : "nothing" : (press(), told);
    };
    const auto drive = [&](RecordDialog *editor) {
        QTRY_COMPARE(QApplication::activeWindow(), editor);
        waitOutTasks();
        enter(editor, kind.field, "Новий");
        if (isNew)
            kind.fillRest(editor);
        auto *field = child<QLineEdit>(editor, kind.field);
        field->setFocus();
        Db::setStatementHook([&](const QString &sql) {
            if (sql.startsWith(statement))
                m_proxy->setSilent(true);
        });
        Heartbeat heart;
        const QString told = save();
        Db::setStatementHook({});
        QVERIFY2(heart.longestGap() < Heartbeat::waitMs, qPrintable(QString::number(heart.longestGap())));
        QVERIFY2(told.contains("невідомо, чи запис збережено") == isUnclear,
                 qPrintable(told + base().heard.texts().join("\n")));
        QVERIFY(editor->isVisible() && !editor->isBusy());
        QCOMPARE(base().heard.texts().size(), 1);
        QCOMPARE(editor->focusWidget(), field);
        QCOMPARE(base().rows(kind.stored), before);
        if (!isUnclear)
            save(); // It is silent still.
        QVERIFY(editor->isVisible() && field->text() == "Новий");
        QCOMPARE(base().heard.texts().size(), 1);
        m_proxy->setSilent(false);
        waitOutLoss(m_window);
        base().heard.forget();
        QCOMPARE(saveMeets(editor), QString());
        QCOMPARE(editor->result(), int(QDialog::Accepted));
    };
    QVERIFY(
        withModal<RecordDialog>([&] { isNew ? tab->Add() : tab->Edit(tab->model()->index(0, 1)); }, drive));
    waitOutTasks();
    const QStringList after = base().rows(kind.stored);
    QCOMPARE(after.size(), before.size() + (isNew ? 1 : 0));
    QVERIFY2(after.last().contains("|Новий|"), qPrintable(after.last()));
    QCOMPARE(tab->model()->rowCount(), after.size());
    QCOMPARE(base().heard.texts(), QStringList());
}

void TstSlowLine::editorGoneWhileWriting()
{
    m_proxy->setDelay(20);
    auto editor = openEditor("7");
    waitOutTasks();
    typeText("52");
    pressKeys({Qt::Key_Return});
    editor.reset();
    waitOutTasks();
    QCOMPARE(item(), QString("Молоко|5200"));
    // And one that reads.
    editor = openEditor("7");
    editor.reset();
    waitOutTasks();
    QCOMPARE(base().heard.texts(), QStringList());
}

void TstSlowLine::tabGoneWithItsEditor_data()
{
    QTest::addColumn<bool>("isSaving");
    QTest::newRow("while it reads") << false;
    QTest::newRow("while it writes") << true;
}

/// Whoever asked for the editor is on the stack still.
void TstSlowLine::tabGoneWithItsEditor()
{
    QFETCH(bool, isSaving);
    base().exec("INSERT INTO shops(id,address,name,group_shop,day_update,count_day_cycle,block) "
                "VALUES(10,'Львів','Їжак',2,3,7,0)");
    auto tab = std::make_unique<QTabShops>(m_place->connection(), m_place->user(), &base().heard,
                                           m_place->settings(), nullptr);
    tab->setPermission(Permission::Shops);
    tab->show();
    QTRY_COMPARE(tab->model()->rowCount(), 1);
    QVERIFY(withModal<QAddEdtShop>([&] { tab->Edit(tab->model()->index(0, 1)); },
                                   [&](QAddEdtShop *editor) {
                                       if (isSaving) {
                                           waitOutTasks();
                                           enter(editor, "leName", "Їжачок");
                                           editor->btok();
                                           QVERIFY(editor->isBusy());
                                       }
                                       tab.reset();
                                   }));
    waitOutTasks();
    QCOMPARE(base().value("SELECT name FROM shops"), QString(isSaving ? "Їжачок" : "Їжак"));
    QCOMPARE(base().heard.texts(), QStringList());
}

QTEST_MAIN(TstSlowLine)
#include "tst_slowline.moc"
