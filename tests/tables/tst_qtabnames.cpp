#include "testing.h"

#include "changewatch.h"
#include "heartbeat.h"
#include "listpane.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabdelegate.h"
#include "qtabgroupshops.h"
#include "qtabnames.h"
#include "qupdatebd.h"
#include "tcpproxy.h"

#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>
#include <QVBoxLayout>

namespace {
/// A list of names beside a field, as it stands beside others in the window of the program.
class NamesPage : public QWidget
{
public:
    NamesPage(QSqlDatabase *db, QLoadedUser *user, QObject *heard)
        : names(new QTabNamesOf<goodsGroupNames>(db, user, heard, nullptr, this))
        , field(new QLineEdit(this))
        , button(new QPushButton("&Поруч", this))
    {
        auto *column = new QVBoxLayout(this);
        column->addWidget(names);
        column->addWidget(field);
        column->addWidget(button);
        names->setPermission(Permission::GroupGoods);
        resize(700, 600);
    }

    QTabNames *names;
    QLineEdit *field;
    QPushButton *button;
};
} // namespace

Q_DECLARE_METATYPE(const NameList *)

/// Names that are edited where they stand in their list, by a person in a hurry.
class TstQTabNames : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void lists_data();
    void lists();
    void typesAreOnlyLookedAt();
    void newGroupsAreNoServiceGroups();
    void otherProgramTakesTheId();
    void anyCellOpensTheName_data();
    void anyCellOpensTheName();
    void viewerEditsNothing();
    void addingGoesOnWithEnter();
    void idIsTypedBeforeOrAfterTheName();
    void takenIdIsTold();
    void escTakesBack();

    void untouchedRowGoesSilently_data();
    void untouchedRowGoesSilently();
    void typedNameIsStored_data();
    void typedNameIsStored();
    void refusedNameStaysInItsEditor_data();
    void refusedNameStaysInItsEditor();
    void nothingIsWrittenThatNobodyTouched();
    void renamedMeanwhile();
    void failureKeepsTheName();

    void reloadWhileAdding();
    void destroyedWhileAdding();
    void closingAsksAboutATypedName();
    void otherWindowLeavesTheEditorOpen();
    void addingAgainWhileAdding();
    void listMovesWhileAdding();
    void doubleClickOnTheNextName();

    void hurriedHandsOnASlowLine();
    void typedWhileTheListLoads_data();
    void typedWhileTheListLoads();
    void searchStoresTheTypedNameFirst();
    void reloadSparesTheTypedName();
    void ownNamesAreNoNews();
    void refusedAmongOthers();
    void otherWindowIsQuicker();
    void refusedWhileSomethingElseIsWanted();
    void listClosesTheEditorOfARefusedName();
    void reloadWhileWriting();
    void closedWhileWriting();
    void silentWhileWriting();
    void lostAnswerIsNoRival();
    void newShopGroupsAreOfferedToTheOwnGroup();

private:
    void open(int right = Permission::Full);
    void openSlowly(int delayMs);
    QString note() { return child<QLabel>(m_page->names, "labelWriting")->text(); }
    QLineEdit *editor();
    QAbstractItemModel *model() { return m_page->names->model(); }
    QNTableView *view() { return m_page->names->view(); }
    void add();
    void edit(int row);
    void clickCell(int row, int column);
    void doubleClickCell(int row, int column);
    void leaveBy(int way);
    bool isClosed();
    QStringList shown(int column = 1);
    QStringList names();

    QTemporaryDir m_home;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<NamesPage> m_page;
    std::unique_ptr<TcpProxy> m_proxy;
    /// Through the proxy, where there is one.
    QSqlDatabase m_window;
};

void TstQTabNames::initTestCase()
{
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, m_home.path());
    m_base = std::make_unique<FreshDatabase>();
}

void TstQTabNames::init()
{
    m_base->exec({"DELETE FROM group_goods",
                  "INSERT INTO group_goods(id,name) VALUES(31,'Молоко'),(30,'Хліб'),(42,'Бакалія')"});
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    open();
}

void TstQTabNames::cleanup()
{
    Db::setStatementHook(nullptr);
    if (m_proxy != nullptr) {
        m_proxy->setSilent(false);
        m_proxy->setDelay(0);
    }
    waitOutTasks();
    m_page.reset();
    m_window = QSqlDatabase();
    if (m_proxy != nullptr)
        QSqlDatabase::removeDatabase("slow");
    m_proxy.reset();
    m_user.reset();
    QSettings(QSettings::IniFormat, QSettings::UserScope, "Veltab", "windows").clear();
}

void TstQTabNames::open(int right)
{
    m_page.reset();
    m_base->exec(QString("UPDATE lst_permis SET permission=%1 WHERE id_g_prem=1 AND id_prem=%2")
                     .arg(right)
                     .arg(int(Permission::GroupGoods)));
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
    m_page = std::make_unique<NamesPage>(m_proxy != nullptr ? &m_window : m_base->connection(), m_user.get(),
                                         &m_base->heard);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    QTRY_VERIFY(!m_page->names->isLoading());
    waitOutTasks();
    view()->sortByColumn(0, Qt::AscendingOrder);
    view()->setFocus();
    m_base->heard.forget();
}

/// The tab stands; from now on every answer of the server takes so long.
void TstQTabNames::openSlowly(int delayMs)
{
    m_proxy = std::make_unique<TcpProxy>(testServer());
    DatabaseAddress address = m_proxy->address();
    address.name = m_base->address().name;
    address.readSeconds = 1;
    m_window = addConnection("slow", address);
    QVERIFY(m_window.open());
    open();
    m_proxy->setDelay(delayMs);
}

/// The inline editor that is open, or null.
QLineEdit *TstQTabNames::editor()
{
    const auto editors = view()->viewport()->findChildren<QLineEdit *>();
    for (QLineEdit *edit : editors) {
        if (edit->isVisible())
            return edit;
    }
    return nullptr;
}

void TstQTabNames::add()
{
    m_page->names->Add();
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
}

void TstQTabNames::edit(int row)
{
    view()->setCurrentIndex(model()->index(row, 0));
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
}

void TstQTabNames::clickCell(int row, int column)
{
    QTest::mouseClick(view()->viewport(), Qt::LeftButton, {},
                      view()->visualRect(model()->index(row, column)).center());
}

void TstQTabNames::doubleClickCell(int row, int column)
{
    clickCell(row, column);
    const QPoint centre = view()->visualRect(model()->index(row, column)).center();
    QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseRelease(view()->viewport(), Qt::LeftButton, {}, centre);
}

void TstQTabNames::leaveBy(int way)
{
    if (way == 0)
        clickCell(0, 1);
    else if (way == 1)
        QTest::mouseClick(m_page->field, Qt::LeftButton);
    else if (way == 2)
        pressKeys({Qt::Key_Tab});
    else if (way == 3)
        m_page->button->setFocus(Qt::ShortcutFocusReason);
    else
        pressKeys({Qt::Key_Return});
}

/// What is stored when everything has been written.
QStringList TstQTabNames::names()
{
    waitOutTasks();
    return m_base->rows("SELECT name FROM group_goods WHERE id>=30 ORDER BY name");
}

/// No editor is left, and what its end had to do has been done.
bool TstQTabNames::isClosed()
{
    waitOutTasks();
    const bool isClosed = QTest::qWaitFor([this] { return editor() == nullptr; });
    QTest::qWait(20);
    return isClosed && editor() == nullptr;
}

QStringList TstQTabNames::shown(int column)
{
    QStringList texts;
    for (int row = 0; row < model()->rowCount(); ++row)
        texts.append(model()->index(row, column).data().toString());
    return texts;
}

void TstQTabNames::lists_data()
{
    QTest::addColumn<const NameList *>("list");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("rows");
    QTest::newRow("goods groups") << &goodsGroupNames << "Назва групи"
                                  << "30 Хліб,31 Молоко,42 Бакалія";
    QTest::newRow("shop groups") << &shopGroupNames << "Назва групи"
                                 << "1 default";
    QTest::newRow("days") << &updateDayNames << "День оновлення"
                          << "1 Понеділок,2 Вівторок,3 Середа,4 Четвер,5 П'ятниця,6 Субота,7 Неділя";
    QTest::newRow("types") << &transactionTypeNames << "Тип транзакції"
                           << "1 Продаж товару,2 Знижка,3 Оплата,4 Службове внесення,5 Службова видача,"
                              "6 Повернення товару,7 Прийом товару,8 Переміщення,9 Передача,10 Z-Звіт";
}

void TstQTabNames::lists()
{
    QFETCH(const NameList *, list);
    QFETCH(QString, caption);
    QTabNames tab(*list, m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    QTRY_VERIFY(!tab.isLoading());
    if (!list->isByCode)
        tab.view()->sortByColumn(0, Qt::AscendingOrder);
    QStringList captions;
    for (int column = 0; column < tab.model()->columnCount(); ++column)
        captions.append(tab.model()->headerData(column, Qt::Horizontal).toString());
    QCOMPARE(captions, QStringList({"", caption}));
    QStringList rows;
    for (int row = 0; row < tab.model()->rowCount(); ++row)
        rows.append(tab.model()->stored(row, 0) + ' ' + tab.model()->stored(row, 1));
    QTEST(rows.join(','), "rows");
}

void TstQTabNames::typesAreOnlyLookedAt()
{
    QTabTypeTrans tab(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    tab.setPermission(Permission::GroupGoods);
    QVERIFY(showActive(&tab));
    QTRY_COMPARE(tab.model()->rowCount(), 10);
    const Commands offered = tab.commands();
    for (const Command command : {Command::Add, Command::Edit, Command::Delete})
        QVERIFY(offered.value(command).startsWith("Типи транзакцій однакові"));
    tab.run(Command::Add);
    tab.view()->setFocus();
    tab.view()->setCurrentIndex(tab.model()->index(0, 1));
    pressKeys({Qt::Key_Return});
    tab.run(Command::Edit);
    QTest::qWait(20);
    QVERIFY(tab.view()->viewport()->findChild<QLineEdit *>() == nullptr);
    QCOMPARE(tab.model()->rowCount(), 10);
    QCOMPARE(answerQuestion([&] { tab.run(Command::Delete); }), QString("Видалення заборонене!!!"));
}

/// Goods of the groups 2 to 5 are not sold: only who types such a code gets one.
void TstQTabNames::newGroupsAreNoServiceGroups()
{
    m_base->exec({"DELETE FROM group_goods", "INSERT INTO group_goods(id,name) VALUES(1,'default')"});
    open();
    const auto *hint = child<QLabel>(m_page->names, "labelHint");
    QVERIFY(hint->isVisible() && hint->text().contains("2–5 службові"));
    const auto addNamed = [this](const QString &id, const QString &name) {
        add();
        pressKeys({Qt::SHIFT + Qt::Key_Backtab});
        QTRY_VERIFY(editor() != nullptr && editor()->inputMask() == "000000000");
        typeText(id);
        pressKeys({Qt::Key_Tab});
        QTRY_VERIFY(editor() != nullptr && editor()->inputMask().isEmpty());
        typeText(name);
        pressKeys({Qt::Key_Tab});
        QVERIFY(isClosed());
    };
    addNamed("", "Риба");
    addNamed("3", "Тара");
    addNamed("0", "М'ясо");
    addNamed("20", "Сир");
    addNamed("", "Яйця");
    const QStringList stored = m_base->rows("SELECT id,name FROM group_goods ORDER BY id");
    QCOMPARE(stored, QStringList({"1|default", "3|Тара", "6|Риба", "7|М'ясо", "20|Сир", "21|Яйця"}));
    QStringList shownIds = shown(0);
    QCOMPARE(shownIds.mid(1), QStringList({"6", "3", "7", "20", "21"}));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::otherProgramTakesTheId()
{
    int rivals = 1;
    Db::setStatementHook([&](const QString &sql) {
        if (sql.startsWith("INSERT INTO group_goods") && rivals-- > 0)
            m_base->execElsewhere(
                "INSERT INTO group_goods(id,name) SELECT MAX(id)+1,UUID() FROM group_goods");
    });
    add();
    typeText("Риба");
    pressKeys({Qt::Key_Tab});
    QVERIFY(isClosed());
    QCOMPARE(m_base->rows("SELECT id FROM group_goods WHERE name='Риба'"), QStringList("44"));
    rivals = 100;
    add();
    typeText("Сир");
    QVERIFY(answerQuestion([] {
                pressKeys({Qt::Key_Return});
                waitOutTasks();
            }).startsWith("Інші програми саме додають"));
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus() && editor()->text() == "Сир");
    rivals = 0;
    pressKeys({Qt::Key_Tab});
    QVERIFY(isClosed());
    // A typed one is not replaced by another.
    rivals = 1;
    add();
    pressKeys({Qt::SHIFT + Qt::Key_Backtab});
    QTRY_VERIFY(editor() != nullptr && editor()->inputMask() == "000000000");
    typeText(m_base->value("SELECT MAX(id)+1 FROM group_goods"));
    pressKeys({Qt::Key_Tab});
    QTRY_VERIFY(editor() != nullptr && editor()->inputMask().isEmpty());
    typeText("Яйця");
    QVERIFY(answerQuestion([] {
                pressKeys({Qt::Key_Return});
                waitOutTasks();
            }).contains("вже зайнятий"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::anyCellOpensTheName_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("how");
    for (const int column : {0, 1}) {
        for (const char *how : {"Enter", "command", "double click"})
            QTest::newRow(qPrintable(QString("%1, column %2").arg(how).arg(column))) << column << how;
    }
}

void TstQTabNames::anyCellOpensTheName()
{
    QFETCH(int, column);
    QFETCH(QString, how);
    view()->setCurrentIndex(model()->index(1, column));
    if (how == "Enter")
        pressKeys({Qt::Key_Enter});
    else if (how == "command")
        m_page->names->run(Command::Edit);
    else
        doubleClickCell(1, column);
    QVERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->text(), QString("Молоко"));
    QCOMPARE(editor()->maxLength(), 50);
    editor()->selectAll();
    typeText("Молочне");
    // The command once more changes nothing of what is typed.
    m_page->names->run(Command::Edit);
    QCOMPARE(editor()->text(), QString("Молочне"));
    pressKeys({Qt::Key_Return});
    QVERIFY(isClosed());
    QCOMPARE(names(), QStringList({"Бакалія", "Молочне", "Хліб"}));
    QCOMPARE(model()->rowCount(), 3);
    QVERIFY2(view()->hasFocus(), "the keyboard goes on in the list");
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::viewerEditsNothing()
{
    open(2);
    m_page->names->Add();
    view()->setCurrentIndex(model()->index(0, 1));
    pressKeys({Qt::Key_Return});
    doubleClickCell(0, 1);
    QVERIFY(editor() == nullptr);
    QCOMPARE(model()->rowCount(), 3);
}

void TstQTabNames::addingGoesOnWithEnter()
{
    add();
    typeText("Риба '\\%");
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(model()->rowCount(), 5);
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    typeText("М'ясо");
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(model()->rowCount(), 6);
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    pressKeys({Qt::Key_Return});
    QVERIFY(isClosed());
    QCOMPARE(names(), QStringList({"Бакалія", "М'ясо", "Молоко", "Риба '\\%", "Хліб"}));
    QCOMPARE(shown(0).mid(3), m_base->rows("SELECT id FROM group_goods WHERE id>42 ORDER BY id"));
    QCOMPARE(child<QLabel>(m_page->names, "labelState")->text(), QString("Записів: 5"));
    QVERIFY(!QUpdateBD().isUpdate("no such table", *m_base->connection(), &m_base->heard));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::idIsTypedBeforeOrAfterTheName()
{
    add();
    typeText("Риба");
    pressKeys({Qt::SHIFT + Qt::Key_Backtab});
    QTRY_VERIFY(editor() != nullptr && editor()->inputMask() == "000000000");
    typeText("55");
    pressKeys({Qt::Key_Tab});
    QTRY_VERIFY(editor() != nullptr && editor()->inputMask().isEmpty());
    QCOMPARE(editor()->text(), QString("Риба"));
    pressKeys({Qt::SHIFT + Qt::Key_Backtab});
    QTRY_VERIFY(editor() != nullptr && editor()->inputMask() == "000000000");
    // Left from the id: the name is not lost.
    m_page->field->setFocus();
    QVERIFY(isClosed());
    QCOMPARE(m_base->rows("SELECT id,name FROM group_goods WHERE id>42"), QStringList{"55|Риба"});
    QCOMPARE(shown(0).last(), QString("55"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::takenIdIsTold()
{
    add();
    pressKeys({Qt::SHIFT + Qt::Key_Backtab});
    QTRY_VERIFY(editor() != nullptr && editor()->inputMask() == "000000000");
    typeText("42");
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(editor() != nullptr && editor()->inputMask().isEmpty());
    typeText("Риба");
    QVERIFY(answerQuestion([] {
                pressKeys({Qt::Key_Return});
                waitOutTasks();
            }).startsWith("Код 42 вже зайнятий"));
    QCOMPARE(editor()->text(), QString("Риба"));
    QCOMPARE(names().size(), 3);
}

void TstQTabNames::escTakesBack()
{
    add();
    typeText("Риба");
    pressKeys({Qt::Key_Escape});
    QVERIFY(isClosed());
    edit(0);
    typeText("Риба");
    pressKeys({Qt::Key_Escape});
    QVERIFY(isClosed());
    QCOMPARE(shown(), QStringList({"Хліб", "Молоко", "Бакалія"}));
    QCOMPARE(names().size(), 3);
}

void TstQTabNames::untouchedRowGoesSilently_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("mouse in the list") << 0;
    QTest::newRow("another field") << 1;
    QTest::newRow("Tab") << 2;
    QTest::newRow("access key") << 3;
    QTest::newRow("Enter") << 4;
}

void TstQTabNames::untouchedRowGoesSilently()
{
    QFETCH(int, way);
    add();
    leaveBy(way);
    QVERIFY(isClosed());
    QCOMPARE(shown(), QStringList({"Хліб", "Молоко", "Бакалія"}));
    QCOMPARE(names().size(), 3);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::typedNameIsStored_data()
{
    untouchedRowGoesSilently_data();
}

void TstQTabNames::typedNameIsStored()
{
    QFETCH(int, way);
    add();
    typeText("Риба");
    leaveBy(way);
    QTRY_COMPARE(names(), QStringList({"Бакалія", "Молоко", "Риба", "Хліб"}));
    if (way == 4) {
        QTRY_VERIFY(editor() != nullptr);
        pressKeys({Qt::Key_Escape});
    }
    QVERIFY(isClosed());
    QCOMPARE(shown(), QStringList({"Хліб", "Молоко", "Бакалія", "Риба"}));
    QCOMPARE(child<QLabel>(m_page->names, "labelState")->text(), QString("Записів: 4"));
}

void TstQTabNames::refusedNameStaysInItsEditor_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("why");
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<bool>("byMouse");
    const QString taken = "Такий запис вже існує в базі!";
    const QString empty = "Поле не може бути пустим.";
    QTest::newRow("new, Enter") << "хліб" << taken << true << false;
    QTest::newRow("new, mouse") << "Хліб" << taken << true << true;
    QTest::newRow("new, blanks") << "  " << empty << true << true;
    QTest::newRow("old, Enter") << "Хліб" << taken << false << false;
    QTest::newRow("old, mouse") << "Хліб" << taken << false << true;
    QTest::newRow("old, blanks") << " " << empty << false << false;
}

void TstQTabNames::refusedNameStaysInItsEditor()
{
    QFETCH(QString, typed);
    QFETCH(bool, isNew);
    QFETCH(bool, byMouse);
    isNew ? add() : edit(1);
    editor()->selectAll();
    typeText(typed);
    const int rows = model()->rowCount();
    const auto leave = [&] {
        if (byMouse)
            QTest::mouseClick(m_page->field, Qt::LeftButton);
        else
            pressKeys({Qt::Key_Return});
        QTest::qWait(50);
        waitOutTasks();
    };
    QTEST(answerQuestion(leave), "why");
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->text(), typed);
    QCOMPARE(model()->rowCount(), rows);
    // Again, and it is told again; then another name.
    QTEST(answerQuestion(leave), "why");
    editor()->selectAll();
    typeText("Овочі");
    QTest::mouseClick(m_page->field, Qt::LeftButton);
    QVERIFY(isClosed());
    QCOMPARE(names(), isNew ? QStringList({"Бакалія", "Молоко", "Овочі", "Хліб"})
                            : QStringList({"Бакалія", "Овочі", "Хліб"}));
}

void TstQTabNames::nothingIsWrittenThatNobodyTouched()
{
    edit(1);
    m_base->exec("UPDATE group_goods SET name='Молочне' WHERE id=31");
    pressKeys({Qt::Key_Return});
    QVERIFY(isClosed());
    QVERIFY(names().contains("Молочне"));
}

void TstQTabNames::renamedMeanwhile()
{
    edit(1);
    editor()->selectAll();
    typeText("Молоко й сир");
    m_base->exec("UPDATE group_goods SET name='Молочне' WHERE id=31");
    const QString told = answerQuestion([] {
        pressKeys({Qt::Key_Return});
        waitOutTasks();
    });
    QVERIFY2(told.contains("«Молочне»"), qPrintable(told));
    QCOMPARE(editor()->text(), QString("Молоко й сир"));
    QVERIFY(names().contains("Молочне"));
    QTRY_VERIFY(editor()->hasFocus());
    pressKeys({Qt::Key_Return});
    QVERIFY(isClosed());
    QCOMPARE(names(), QStringList({"Бакалія", "Молоко й сир", "Хліб"}));
    // Nothing is written into a row that is gone.
    edit(1);
    typeText("!");
    m_base->exec("DELETE FROM group_goods WHERE id=31");
    const QString gone = answerQuestion([] {
        pressKeys({Qt::Key_Return});
        waitOutTasks();
    });
    QCOMPARE(gone, QString("Запис не знайдено в базі!"));
    QTRY_VERIFY(editor()->hasFocus());
    pressKeys({Qt::Key_Escape});
    QVERIFY(isClosed());
}

void TstQTabNames::failureKeepsTheName()
{
    add();
    typeText("Риба");
    m_base->exec("RENAME TABLE group_goods TO away");
    pressKeys({Qt::Key_Return});
    waitOutTasks();
    m_base->exec("RENAME TABLE away TO group_goods");
    QVERIFY(m_base->heard.has("Помилка запиту:", QMessEvent::Critical));
    QVERIFY(editor() != nullptr);
    QCOMPARE(editor()->text(), QString("Риба"));
    QVERIFY(editor()->hasFocus() && !editor()->isReadOnly());
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(names().contains("Риба"));
    QTRY_VERIFY2(editor() != nullptr && editor()->text().isEmpty(), "the next new row");
    pressKeys({Qt::Key_Escape});
}

void TstQTabNames::reloadWhileAdding()
{
    add();
    typeText("Риба");
    m_page->names->ShowData();
    QVERIFY(isClosed());
    QTRY_VERIFY(!m_page->names->isLoading());
    QCOMPARE(shown(), QStringList({"Хліб", "Молоко", "Бакалія"}));
    QCOMPARE(names().size(), 3);
    add();
    typeText("М'ясо");
    pressKeys({Qt::Key_Tab});
    QVERIFY(isClosed());
    QCOMPARE(model()->rowCount(), 4);
}

void TstQTabNames::destroyedWhileAdding()
{
    add();
    typeText("Риба");
    m_page.reset();
    QTest::qWait(20);
    QCOMPARE(names().size(), 3);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::closingAsksAboutATypedName()
{
    add();
    QVERIFY2(m_page->names->mayClose(), "nothing is typed");
    QVERIFY(isClosed());
    QCOMPARE(model()->rowCount(), 3);
    add();
    typeText("Риба");
    bool closes = true;
    const QString asked = answerConfirm([&] { closes = m_page->names->mayClose(); }, false);
    QVERIFY2(asked.contains("Набране в списку ще не записано."), qPrintable(asked));
    QVERIFY(!closes);
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->text(), QString("Риба"));
    answerConfirm([&] { closes = m_page->names->mayClose(); }, true);
    QVERIFY(closes && isClosed());
    QCOMPARE(model()->rowCount(), 3);
    QCOMPARE(names().size(), 3);
}

void TstQTabNames::otherWindowLeavesTheEditorOpen()
{
    add();
    typeText("Риб");
    QWidget other;
    QVERIFY(showActive(&other));
    QTest::qWait(50);
    m_page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    typeText("а");
    pressKeys({Qt::Key_Tab});
    QVERIFY(isClosed());
    QCOMPARE(names(), QStringList({"Бакалія", "Молоко", "Риба", "Хліб"}));
}

void TstQTabNames::addingAgainWhileAdding()
{
    add();
    m_page->names->Add();
    QTest::qWait(50);
    QCOMPARE(model()->rowCount(), 4);
    QVERIFY(editor() != nullptr);
    typeText("Риба");
    m_page->names->Add();
    QVERIFY(names().contains("Риба"));
    QCOMPARE(model()->rowCount(), 5);
    // Another row is edited: the new one goes.
    edit(0);
    QTest::qWait(50);
    QCOMPARE(model()->rowCount(), 4);
    QCOMPARE(editor()->text(), QString("Хліб"));
}

/// Another row becomes the current one by the program.
void TstQTabNames::listMovesWhileAdding()
{
    add();
    view()->setCurrentIndex(model()->index(0, 0));
    QVERIFY(isClosed());
    QCOMPARE(model()->rowCount(), 3);
    add();
    typeText("Риба");
    view()->setCurrentIndex(model()->index(0, 0));
    view()->setFocus();
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(editor() != nullptr && editor()->text() == "Хліб");
    QTest::qWait(20);
    editor()->selectAll();
    typeText("Хлібне");
    pressKeys({Qt::Key_Return});
    QVERIFY(isClosed());
    QCOMPARE(names(), QStringList({"Бакалія", "Молоко", "Риба", "Хлібне"}));
    QCOMPARE(model()->rowCount(), 4);
}

void TstQTabNames::doubleClickOnTheNextName()
{
    edit(1);
    editor()->selectAll();
    typeText("Молочне");
    doubleClickCell(2, 0);
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus() && editor()->text() == "Бакалія");
    editor()->selectAll();
    typeText("Хліб");
    const QString told = answerQuestion([this] {
        clickCell(1, 1);
        waitOutTasks();
    });
    QCOMPARE(told, QString("Такий запис вже існує в базі!"));
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    QCOMPARE(editor()->text(), QString("Хліб"));
    QCOMPARE(names(), QStringList({"Бакалія", "Молочне", "Хліб"}));
}

/// Names are added and one is changed without ever waiting: each is written once, away from the window.
void TstQTabNames::hurriedHandsOnASlowLine()
{
    openSlowly(200);
    QStringList written;
    bool isSentFromWindow = false;
    Db::setStatementHook([&](const QString &sql) {
        isSentFromWindow = isSentFromWindow || QThread::currentThread() == qApp->thread();
        if (sql.startsWith("INSERT INTO group_goods") || sql.startsWith("UPDATE group_goods"))
            written.append(sql.section(' ', 0, 0));
    });
    Heartbeat heart;
    heart.restart();
    add();
    typeText("Риба");
    pressKeys({Qt::Key_Return, Qt::Key_Return});
    typeText("М'ясоx");
    pressKeys({Qt::Key_Backspace, Qt::Key_Return, Qt::Key_Return});
    typeText("зайве");
    pressKeys({Qt::Key_Escape});
    QTRY_COMPARE(note(), QString("Записується…"));
    QCOMPARE(editor()->text(), QString("Риба"));
    typeText("Кру");
    QTRY_VERIFY(editor() != nullptr && editor()->text() == "М'ясо");
    typeText("пи");
    QTRY_VERIFY(editor() != nullptr && editor()->text() == "Крупи");
    QVERIFY(note().isEmpty());
    // The next one is doubly clicked while this is written, and the one before has its place.
    pressKeys({Qt::Key_Return});
    doubleClickCell(1, 0);
    QTRY_VERIFY(editor() != nullptr && editor()->text() == "Молоко");
    QVERIFY(editor()->hasFocus());
    editor()->selectAll();
    typeText("Молочне");
    m_page->names->Add();
    typeText("Сир");
    QTRY_VERIFY(editor() != nullptr && editor()->text() == "Сир");
    QCOMPARE(view()->currentIndex().row(), 6);
    pressKeys({Qt::Key_Tab});
    QVERIFY(isClosed());
    const qint64 gap = heart.longestGap();
    Db::setStatementHook(nullptr);
    QCOMPARE(written, QStringList({"INSERT", "INSERT", "INSERT", "UPDATE", "INSERT"}));
    QCOMPARE(names(), QStringList({"Бакалія", "Крупи", "М'ясо", "Молочне", "Риба", "Сир", "Хліб"}));
    QCOMPARE(shown(), QStringList({"Хліб", "Молочне", "Бакалія", "Риба", "М'ясо", "Крупи", "Сир"}));
    QCOMPARE(m_base->heard.texts(), QStringList());
    QVERIFY(!isSentFromWindow);
    QVERIFY2(gap < Heartbeat::waitMs, qPrintable(QString("the window did not answer for %1 ms").arg(gap)));
}

void TstQTabNames::typedWhileTheListLoads_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("stored");
    QTest::newRow("a name") << "Риба"
                            << "Риба" << QStringList();
    QTest::newRow("names") << "Риба\nМ'ясо\n\nСир"
                           << "Сир" << QStringList({"М'ясо", "Риба"});
    QTest::newRow("taken back") << "Риба\x1b"
                                << "" << QStringList();
    QTest::newRow("nothing to add") << "Риба\x1b\x1bсир"
                                    << "-" << QStringList();
}

/// Nothing of it goes to the list, which would look for a row that begins like that.
void TstQTabNames::typedWhileTheListLoads()
{
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(QStringList, stored);
    openSlowly(100);
    m_page->names->ShowData();
    m_page->field->setFocus();
    m_page->names->Add();
    for (const QChar key : typed) {
        if (key == '\n')
            pressKeys({Qt::Key_Return});
        else if (key == '\x1b')
            pressKeys({Qt::Key_Escape});
        else
            typeText(key);
    }
    QVERIFY(m_page->names->isLoading() && editor() == nullptr);
    QTRY_VERIFY(!m_page->names->isLoading());
    if (shown == "-")
        QVERIFY(isClosed());
    else
        QTRY_VERIFY(editor() != nullptr && editor()->text() == shown);
    pressKeys({Qt::Key_Escape});
    QVERIFY(isClosed());
    stored += {"Бакалія", "Молоко", "Хліб"};
    stored.sort();
    QCOMPARE(names(), stored);
    QCOMPARE(m_page->field->text(), QString());
    QCOMPARE(m_base->heard.texts(), QStringList());
    if (shown != "Риба")
        return;
    // The list does not come: what was typed for it is told.
    m_base->exec("RENAME TABLE group_goods TO away");
    m_page->names->ShowData();
    m_page->names->Add();
    typeText(typed);
    answerConfirm([&] { QVERIFY(!m_page->names->mayClose()); }, false);
    QCOMPARE(answerQuestion([&] { QTRY_VERIFY(!m_page->names->isLoading()); }),
             QString("Не збережено набране далі: «Риба»."));
    m_base->exec("RENAME TABLE away TO group_goods");
}

/// Whoever types into the search field has left the name: it is stored, and found.
void TstQTabNames::searchStoresTheTypedNameFirst()
{
    openSlowly(100);
    edit(2);
    editor()->selectAll();
    typeText("Молоко дитяче 200");
    pressKeys({Qt::CTRL + Qt::Key_F});
    QCOMPARE(QApplication::focusWidget(), child<QLineEdit>(m_page->names, "leSearch"));
    typeText("200 мол");
    QTRY_COMPARE(shown(), QStringList("Молоко дитяче 200"));
    QCOMPARE(names(), QStringList({"Молоко", "Молоко дитяче 200", "Хліб"}));
    pressKeys({Qt::Key_Escape});
    QTRY_COMPARE(shown().size(), 3);
    // A refused name stays in its editor.
    view()->setFocus();
    edit(0);
    editor()->selectAll();
    typeText("Молоко");
    QVERIFY(!answerQuestion([] {
                 pressKeys({Qt::CTRL + Qt::Key_F});
                 waitOutTasks();
             }).isEmpty());
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus());
    pressKeys({Qt::Key_Escape});
    QVERIFY(isClosed());
    QCOMPARE(shown(), QStringList({"Хліб", "Молоко", "Молоко дитяче 200"}));
}

void TstQTabNames::reloadSparesTheTypedName()
{
    edit(1);
    typeText("!");
    m_page->names->run(Command::Reload);
    QVERIFY(!m_page->names->isLoading() && editor() != nullptr && editor()->text().endsWith('!'));
    QCOMPARE(note(), QString("Спершу закінчіть набране: Enter записує, Esc скасовує."));
    pressKeys({Qt::Key_Escape});
    QVERIFY(isClosed() && note().isEmpty());
    m_base->exec("INSERT INTO group_goods(id,name) VALUES(29,'Нове')");
    m_page->names->run(Command::Reload);
    QTRY_COMPARE(shown(), QStringList({"Нове", "Хліб", "Молоко", "Бакалія"}));
    QCOMPARE(view()->currentIndex().row(), 2);
    // What is typed into the search field at that moment is not lost.
    pressKeys({Qt::CTRL + Qt::Key_F});
    typeText("мол");
    m_page->names->run(Command::Reload);
    QTRY_COMPARE(shown(), QStringList("Молоко"));
}

void TstQTabNames::ownNamesAreNoNews()
{
    m_base->exec("UPDATE updat SET updat='2020-01-01'");
    ChangeWatch::setPause(std::chrono::milliseconds(20));
    open();
    auto *bar = child<QFrame>(m_page->names, "changeBar");
    edit(1);
    typeText(" 2");
    pressKeys({Qt::Key_Return});
    add();
    typeText("Сир");
    pressKeys({Qt::Key_Tab});
    QVERIFY(names().contains("Сир"));
    QTest::qWait(300);
    QVERIFY(!bar->isVisible());
    view()->setCurrentIndex(model()->index(1, 1));
    m_base->exec({"UPDATE group_goods SET name='Інша' WHERE id=30",
                  "UPDATE updat SET updat=NOW()+INTERVAL 2 SECOND WHERE name='group_goods'"});
    QTRY_VERIFY(bar->isVisible());
    QCOMPARE(shown().first(), QString("Хліб"));
    QTest::mouseClick(child<QPushButton>(bar, "pbReload"), Qt::LeftButton);
    QTRY_COMPARE(shown().first(), QString("Інша"));
    QVERIFY(bar->isHidden() && view()->hasFocus());
    QCOMPARE(view()->currentIndex().row(), 1);
    ChangeWatch::setPause(std::chrono::seconds(5));
}

/// What was typed behind it is not begun, and told.
void TstQTabNames::refusedAmongOthers()
{
    openSlowly(50);
    add();
    typeText("Риба");
    const QString told = answerQuestion([&] {
        pressKeys({Qt::Key_Return});
        typeText("Хліб");
        pressKeys({Qt::Key_Return});
        typeText("Сир");
        pressKeys({Qt::Key_Return});
        typeText("Яйця");
        QTRY_VERIFY(names().contains("Риба") && model()->rowCount() == 5);
        waitOutTasks();
    });
    QCOMPARE(told, QString("Такий запис вже існує в базі!\nНе збережено набране далі: «Сир, Яйця»."));
    QTRY_VERIFY(editor() != nullptr && editor()->hasFocus() && editor()->text() == "Хліб");
    QCOMPARE(names(), QStringList({"Бакалія", "Молоко", "Риба", "Хліб"}));
    // Whoever goes elsewhere hears it, too.
    editor()->selectAll();
    typeText("Крупи");
    QCOMPARE(answerQuestion([&] {
                 pressKeys({Qt::Key_Return});
                 typeText("Олія");
                 QTest::mouseClick(m_page->field, Qt::LeftButton);
                 QTRY_VERIFY(names().contains("Крупи"));
                 waitOutTasks();
             }),
             QString("Не збережено набране далі: «Олія»."));
    QVERIFY(isClosed());
    QCOMPARE(shown().mid(3), QStringList({"Риба", "Крупи"}));
}

/// Both were told that the name is free.
void TstQTabNames::otherWindowIsQuicker()
{
    for (const bool isNew : {true, false}) {
        isNew ? add() : edit(1);
        editor()->selectAll();
        typeText(isNew ? "Риба" : "Молочне");
        const QString name = editor()->text();
        Db::setStatementHook([&](const QString &sql) {
            if (sql.startsWith("INSERT INTO group_goods") || sql.startsWith("UPDATE group_goods"))
                m_base->execElsewhere("INSERT INTO group_goods(name) VALUES('" + name + "')");
        });
        QCOMPARE(answerQuestion([] {
                     pressKeys({Qt::Key_Return});
                     waitOutTasks();
                 }),
                 QString("Такий запис вже існує в базі!"));
        Db::setStatementHook(nullptr);
        QTRY_VERIFY(editor()->hasFocus());
        QCOMPARE(editor()->text(), name);
        pressKeys({Qt::Key_Escape});
        QVERIFY(isClosed());
    }
    QCOMPARE(names(), QStringList({"Бакалія", "Молоко", "Молочне", "Риба", "Хліб"}));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::refusedWhileSomethingElseIsWanted()
{
    openSlowly(50);
    for (const int way : {0, 1, 2}) {
        add();
        typeText("Хліб");
        const QString told = answerQuestion([&] {
            pressKeys({Qt::Key_Return});
            if (way == 0)
                doubleClickCell(1, 0);
            else if (way == 1)
                m_page->names->Add();
            else
                QTest::mouseClick(m_page->field, Qt::LeftButton);
            waitOutTasks();
        });
        QCOMPARE(told, QString("Такий запис вже існує в базі!"));
        QTest::qWait(50);
        QVERIFY(editor() != nullptr && editor()->hasFocus());
        QCOMPARE(editor()->text(), QString("Хліб"));
        QCOMPARE(model()->rowCount(), 4);
        pressKeys({Qt::Key_Escape});
        QVERIFY(isClosed());
        QCOMPARE(model()->rowCount(), 3);
    }
}

/// The arrow keys leave the row while its name is written.
void TstQTabNames::listClosesTheEditorOfARefusedName()
{
    openSlowly(50);
    for (const bool isNew : {true, false}) {
        isNew ? add() : edit(1);
        editor()->selectAll();
        typeText("Хліб");
        const QString told = answerQuestion([&] {
            clickCell(0, 1);
            QTRY_VERIFY(view()->hasFocus());
            pressKeys({Qt::Key_Up});
            waitOutTasks();
        });
        QCOMPARE(told, QString("Такий запис вже існує в базі!"));
        QTest::qWait(50);
        QVERIFY(editor() != nullptr && editor()->hasFocus());
        QCOMPARE(editor()->text(), QString("Хліб"));
        editor()->selectAll();
        typeText(isNew ? "Риба" : "Молочне");
        pressKeys({Qt::Key_Tab});
        QVERIFY(isClosed());
    }
    QCOMPARE(shown(), QStringList({"Хліб", "Молочне", "Бакалія", "Риба"}));
    QCOMPARE(names(), QStringList({"Бакалія", "Молочне", "Риба", "Хліб"}));
}

void TstQTabNames::reloadWhileWriting()
{
    openSlowly(50);
    add();
    typeText("Риба");
    pressKeys({Qt::Key_Return});
    m_page->names->ShowData();
    QVERIFY(isClosed());
    QTRY_VERIFY(!m_page->names->isLoading());
    QCOMPARE(shown(), QStringList({"Хліб", "Молоко", "Бакалія", "Риба"}));
    QCOMPARE(child<QLabel>(m_page->names, "labelState")->text(), QString("Записів: 4"));
}

void TstQTabNames::closedWhileWriting()
{
    openSlowly(50);
    add();
    typeText("Риба");
    pressKeys({Qt::Key_Return});
    QVERIFY(!m_page->names->mayClose());
    QVERIFY2(note().contains("Закрийте вкладку, коли це закінчиться"), qPrintable(note()));
    // As when the rights to see the tab are taken away.
    m_page.reset();
    QCOMPARE(names(), QStringList({"Бакалія", "Молоко", "Риба", "Хліб"}));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQTabNames::silentWhileWriting()
{
    openSlowly(0);
    edit(1);
    editor()->selectAll();
    typeText("Молочне");
    m_proxy->setSilent(true);
    Heartbeat heart;
    heart.restart();
    pressKeys({Qt::Key_Return});
    QTRY_COMPARE(note(), QString("Записується…"));
    m_page->names->Add();
    waitOutTasks();
    const qint64 gap = heart.longestGap();
    QVERIFY(!m_base->heard.texts().isEmpty());
    QVERIFY(note().isEmpty());
    QVERIFY2(editor() != nullptr && editor()->text() == "Молочне", "nothing else was begun");
    QVERIFY(!editor()->isReadOnly());
    QCOMPARE(model()->rowCount(), 3);
    m_proxy->setSilent(false);
    waitOutLoss(m_window);
    pressKeys({Qt::Key_Return});
    QVERIFY(isClosed());
    QCOMPARE(names(), QStringList({"Бакалія", "Молочне", "Хліб"}));
    QVERIFY2(gap < Heartbeat::waitMs, qPrintable(QString("the window did not answer for %1 ms").arg(gap)));
}

/// The server got it, its answer was lost: the next Enter finds that out.
void TstQTabNames::lostAnswerIsNoRival()
{
    openSlowly(0);
    for (const bool isNew : {true, false}) {
        isNew ? add() : edit(1);
        editor()->selectAll();
        typeText(isNew ? "Риба" : "Молочне");
        Db::setStatementHook([this](const QString &sql) {
            if (sql.startsWith("INSERT INTO group_goods") || sql.startsWith("UPDATE group_goods"))
                m_proxy->setSilent(true);
        });
        pressKeys({Qt::Key_Return});
        waitOutTasks();
        Db::setStatementHook(nullptr);
        QVERIFY(editor() != nullptr);
        QCOMPARE(m_base->heard.texts().size(), 1);
        m_proxy->setSilent(false);
        waitOutLoss(m_window);
        QTRY_VERIFY(names().contains(isNew ? "Риба" : "Молочне"));
        m_base->heard.forget();
        pressKeys({Qt::Key_Return});
        waitOutTasks();
        if (isNew) {
            QTRY_VERIFY(editor() != nullptr && editor()->text().isEmpty());
            pressKeys({Qt::Key_Escape});
        }
        QVERIFY(isClosed());
    }
    QCOMPARE(names(), QStringList({"Бакалія", "Молочне", "Риба", "Хліб"}));
    QCOMPARE(shown(), QStringList({"Хліб", "Молочне", "Бакалія", "Риба"}));
    QCOMPARE(shown(0).last(), m_base->value("SELECT id FROM group_goods WHERE name='Риба'"));
}

/// They are added one after the other, and then shown to the permission group of who has added them.
void TstQTabNames::newShopGroupsAreOfferedToTheOwnGroup()
{
    QLoadedUser user(nullptr, &m_base->heard);
    QVERIFY(user.loadpermis(m_base->connection(), "admin", ""));
    connect(&user, &QLoadedUser::actBegun, &user, [&] { user.reload(m_base->connection()); });
    QTabGroup_Shops tab(m_base->connection(), &user, &m_base->heard, nullptr, nullptr);
    tab.setPermission(Permission::GroupShops);
    QVERIFY(showActive(&tab));
    QTRY_VERIFY(!tab.isLoading());
    const auto *bar = child<QFrame>(&tab, "offerBar");
    QVERIFY(!bar->isVisible());
    tab.Add();
    for (const char *name : {"Південь", "Північ"}) {
        typeText(name);
        pressKeys({Qt::Key_Return});
        waitOutTasks();
    }
    QVERIFY(bar->isVisible());
    const QString told = child<QLabel>(&tab, "labelUnseen")->text();
    QVERIFY2(told.contains("(Південь, Північ)"), qPrintable(told));
    QCOMPARE(
        m_base->value("SELECT COUNT(*) FROM lst_group JOIN group_shop ON group_shop.id=id_group WHERE name "
                      "LIKE 'Пів%'"),
        QString("0"));
    m_base->exec("UPDATE updat SET updat=0");
    // Another operator has shown one of them meanwhile.
    m_base->execElsewhere("INSERT INTO lst_group SELECT 1,id FROM group_shop WHERE name='Північ'");
    pressKeys({Qt::Key_Escape});
    QTest::mouseClick(child<QPushButton>(&tab, "pbShow"), Qt::LeftButton);
    waitOutTasks();
    QCOMPARE(
        m_base->rows("SELECT id_g_prem,name FROM lst_group JOIN group_shop ON group_shop.id=id_group WHERE "
                     "name LIKE 'Пів%' ORDER BY 2"),
        (QStringList{"1|Південь", "1|Північ"}));
    QCOMPARE(m_base->value("SELECT updat<>0 FROM updat WHERE name='lst_group'"), QString("1"));
    QVERIFY2(!bar->isVisible(), "they are seen by now");
}

QTEST_MAIN(TstQTabNames)
#include "tst_qtabnames.moc"
