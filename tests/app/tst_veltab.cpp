#include "testing.h"

#include "connectionstate.h"
#include "dbtasks.h"
#include "gotobox.h"
#include "listpane.h"
#include "pages.h"
#include "permissions.h"
#include "qimportprices.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qseluser.h"
#include "qtab.h"
#include "qtablebase.h"
#include "setting.h"
#include "veltab.h"
#include "zipcheck.h"

#include <QAbstractButton>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTabWidget>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QToolBar>
#include <QTranslator>
#include <QTreeWidget>

/// The main window from the start to the rights of the user, against real and against missing servers.
class TstVeltab : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void firstStartCreatesEverything();
    void refusedCreationLeavesAWayOn();
    void closedPortLeavesAWayOn();
    void silentServerDoesNotFreeze();
    void wrongLoginMayTryAgain();
    void rightsShowTheMenus();
    void toolBarFollowsRightsAndPages();
    void toolBarIsRememberedForItsUser();
    void everyActionHasItsIcon();
    void userWithoutAccessIsRefused();
    void changedRightsAreFollowed();
    void cancelledLoginKeepsTheUser();
    void openTabsKeepTheWindow();
    void overviewOpensBehindTheLogin();
    void overviewHoldsNobody();
    void goingAsksForTheRightAgain();
    void closingAllSparesWhatWouldBeLost();
    void everyPageHasItsAction();
    void nothingOpensWithoutTheRight();
    void readOnlyListsOfferNoEditing();
    void loginTellsTheFirstUser();
    void lostConnectionIsToldInWords();
    void openedTabHasTheFocus();
    void accessKeysAreTold_data();
    void accessKeysAreTold();
    void placeComesBackOntoAScreen();
    void everyTabFitsASmallScreen();
    void settingsReconnectOnlyToANewAddress();
    void missingTablesAreAddedInTheSession();
    void unreadableSettingsConnectNowhere();
    void recordCommandsFollowTheTab();
    void listsAreReadAgain();
    void exportFollowsTheRight();
    void listIsWrittenInEveryForm();
    void exportIsToldAtTheCommand();
    void importFollowsTheRight();
    void importReadsAsItsActionSays();
    void pagesHaveKeysOfTheirOwn();
    void serviceMenuIsRevealed();
    void launchCommandsAnswerTheMenu();
    void indexesAreOfferedAndTakenBack();
    void tuningAndSettingsDoNotCross();
    void burstOfErrorsIsOneDialog();

private:
    void writeSettings(const DatabaseAddress &address) { ::writeSettings(m_folder->path(), address); }
    void start(const std::function<void(QDialog *)> &answer);
    void startLoggedIn(const QString &login);
    QAction *action(const char *name) { return child<QAction>(m_window.get(), QLatin1String(name)); }
    QString connectionText()
    {
        return child<QLabel>(m_window.get(), QStringLiteral("labelConnection"))->text();
    }
    void addUser(const QString &login, const QString &permissions);
    /// What a first sale needs: the window then names no next step.
    void addShopAndGoods();
    void openShopsToExport(const QString &login, const QString &path);
    void pressExport(Qt::Key letter);
    /// A price list of that text.
    QString writtenFile(const QByteArray &text) const;

    /// Of the window that is started next.
    QString m_startPage;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<Veltab> m_window;
    QStringList m_shown;
};

namespace {
void logIn(QDialog *dialog, const QString &login)
{
    const auto edits = dialog->findChildren<QLineEdit *>();
    edits.at(0)->setText(login);
    edits.at(1)->setText(QString());
    static_cast<QSelUser *>(dialog)->ok();
}

/// As a person does who waits for the answer.
void logInAndWait(QSelUser *dialog)
{
    logIn(dialog, "admin");
    waitOutTasks();
}

/// The login dialog still waits for the database.
bool isReading(QDialog *dialog)
{
    return qobject_cast<QSelUser *>(dialog) != nullptr && !DbTasks::isIdle();
}

/// Letters of another size for a while.
class Letters
{
public:
    explicit Letters(int points) : m_before(QApplication::font())
    {
        QFont font = m_before;
        font.setPointSize(points);
        QApplication::setFont(font);
    }
    ~Letters() { QApplication::setFont(m_before); }
    Q_DISABLE_COPY(Letters)

private:
    QFont m_before;
};
} // namespace

void TstVeltab::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", m_folder->path().toLocal8Bit());
    m_base = std::make_unique<FreshDatabase>();
    m_shown.clear();
    m_startPage.clear();
}

void TstVeltab::cleanup()
{
    m_window.reset();
    m_base.reset();
}

/// Starts the window and answers every dialog of the start; warnings are remembered and confirmed.
void TstVeltab::start(const std::function<void(QDialog *)> &answer)
{
    QTimer watch;
    watch.setInterval(10);
    connect(&watch, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr)
            return;
        if (isReading(dialog))
            return;
        if (auto *text = dialog->findChild<QLabel *>("labelText"))
            m_shown.append(text->text());
        answer(dialog);
    });
    watch.start();
    // The connection has one name: the window before must be gone first.
    m_window.reset();
    m_window = std::make_unique<Veltab>(m_folder->path());
    m_window->setStartPage(m_startPage);
    m_window->show();
    const auto isOver = [&] {
        const QString text = connectionText();
        return m_window->isReady() || !(text.startsWith("Підключення") || text.startsWith("Зачекайте"));
    };
    QTRY_VERIFY_WITH_TIMEOUT(isOver(), 30000);
    QTRY_VERIFY_WITH_TIMEOUT(QApplication::activeModalWidget() == nullptr, 15000);
    QTest::qWait(50);
    waitOutTasks();
}

void TstVeltab::startLoggedIn(const QString &login)
{
    writeSettings(m_base->address());
    start([login](QDialog *dialog) {
        if (qobject_cast<QSelUser *>(dialog) != nullptr)
            logIn(dialog, login);
        else
            dialog->accept();
    });
}

void TstVeltab::addUser(const QString &login, const QString &permissions)
{
    static int number = 10;
    const QString id = QString::number(++number);
    m_base->exec(QStringList{"INSERT INTO group_premission(id,name) VALUES(" + id + ",'g" + id + "')",
                             "INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(" + id + ",399,1)",
                             "INSERT INTO users(login,pass,key_prem,name,surname,id_g_prem) VALUES('" +
                                 login + "','p" + id + "','" + id + "','Імя','Прізвище'," + id + ")"});
    for (const QString &pair : permissions.split(' ', Qt::SkipEmptyParts))
        m_base->exec("INSERT INTO lst_permis(id_g_prem,id_prem,permission) VALUES(" + id + "," +
                     QString(pair).replace('=', ',') + ")");
    m_base->exec("UPDATE users SET pass=CONCAT('x',login) WHERE pass=''");
    m_base->exec("UPDATE users SET pass='' WHERE login='" + login + "'");
}

void TstVeltab::addShopAndGoods()
{
    m_base->exec(QStringList{"INSERT INTO shops(id,address,name,group_shop,block) VALUES(1,'А','М',1,0)",
                             "INSERT INTO kassa(id,advertising_str,id_shop,block) VALUES(1,'К',1,0)",
                             "INSERT INTO goods(id,name) VALUES(1,'Т')",
                             "INSERT INTO goods_shop(id_shop,id_goods) VALUES(1,1)"});
}

void TstVeltab::firstStartCreatesEverything()
{
    m_base.reset();
    FreshDatabase place(FreshDatabase::Empty);
    const DatabaseAddress address = place.address();
    place.exec("DROP DATABASE " + address.name);
    writeSettings(address);
    int logins = 0;
    start([&](QDialog *dialog) {
        if (qobject_cast<QSelUser *>(dialog) != nullptr) {
            ++logins;
            logIn(dialog, "admin");
        } else {
            dialog->accept();
        }
    });
    QVERIFY(m_window->isReady());
    QVERIFY2(m_shown.join('\n').contains("немає бази даних «" + address.name + "»"),
             qPrintable(m_shown.join('\n')));
    QCOMPARE(logins, 1);
    QCOMPARE(place.value("SELECT CONCAT(DEFAULT_CHARACTER_SET_NAME,' ',DEFAULT_COLLATION_NAME) FROM "
                         "INFORMATION_SCHEMA.SCHEMATA WHERE SCHEMA_NAME='" +
                         address.name + "'"),
             QString("utf8mb4 utf8mb4_unicode_520_ci"));
    QFile log(m_folder->filePath("veltab.log"));
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(log.readAll());
    QVERIFY(text.contains("Перезавантажте програму!") && text.contains(" ver:3. 0. 0. 17"));
}

void TstVeltab::refusedCreationLeavesAWayOn()
{
    m_base.reset();
    m_base = std::make_unique<FreshDatabase>(FreshDatabase::Empty);
    writeSettings(m_base->address());
    start([](QDialog *dialog) {
        auto *text = dialog->findChild<QLabel *>("labelText");
        if (text != nullptr && text->text().contains("немає таблиць програми"))
            dialog->reject();
        else
            dialog->accept();
    });
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA=DATABASE()"),
             QString("0"));
    QVERIFY2(connectionText().contains("таблиць програми немає"), qPrintable(connectionText()));
    QVERIFY(action("settings")->isVisible() && action("reconnect")->isVisible());
}

void TstVeltab::closedPortLeavesAWayOn()
{
    DatabaseAddress nowhere = m_base->address();
    nowhere.port = 1;
    writeSettings(nowhere);
    start([](QDialog *dialog) { dialog->accept(); });
    QVERIFY2(m_shown.join('\n').contains("Помилка з'єднання з БД."), qPrintable(m_shown.join('\n')));
    QVERIFY(child<QPushButton>(m_window.get(), "pbReconnect")->isVisible());
    QVERIFY(child<QPushButton>(m_window.get(), "pbSettings")->isVisible());
    QVERIFY(!m_window->isReady() && m_window->openingActions().isEmpty());
}

void TstVeltab::silentServerDoesNotFreeze()
{
    QTcpServer silent;
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    DatabaseAddress nowhere = m_base->address();
    nowhere.port = silent.serverPort();
    writeSettings(nowhere);
    QElapsedTimer clock;
    clock.start();
    m_window = std::make_unique<Veltab>(m_folder->path());
    m_window->show();
    int ticks = 0;
    QTimer ticker;
    connect(&ticker, &QTimer::timeout, this, [&] { ++ticks; });
    ticker.start(10);
    withModal<QQestion>([] { QTest::qWait(300); }, [](QQestion *question) { question->accept(); });
    QVERIFY2(ticks > 10, qPrintable(QString::number(ticks)));
    QVERIFY(!m_window->isReady() && action("settings")->isVisible());
    silent.close();
    while (QTcpSocket *waiting = silent.nextPendingConnection())
        delete waiting;
}

void TstVeltab::wrongLoginMayTryAgain()
{
    writeSettings(m_base->address());
    int tries = 0;
    start([&](QDialog *dialog) {
        if (qobject_cast<QSelUser *>(dialog) != nullptr)
            logIn(dialog, ++tries == 1 ? "' OR 1=1 -- " : "admin");
        else
            dialog->accept();
    });
    QVERIFY(m_window->isReady());
    QCOMPARE(tries, 2);
    QVERIFY2(m_shown.join('\n').contains("Користувача не знайдено!\nПерезавантажте програму!"),
             qPrintable(m_shown.join('\n')));
}

void TstVeltab::rightsShowTheMenus()
{
    addUser("viewer", "0=1 13=2");
    startLoggedIn("viewer");
    QVERIFY(m_window->isReady());
    const QList<QAction *> actions = m_window->openingActions();
    QCOMPARE(actions.size(), 1);
    QCOMPARE(actions.first()->objectName(), QString("mt_goods"));
    QVERIFY(child<QMenu>(m_window.get(), "menu_tables")->menuAction()->isVisible());
    QVERIFY(!child<QMenu>(m_window.get(), "menu_managament")->menuAction()->isVisible());
    QVERIFY(!child<QMenu>(m_window.get(), "menu_service")->menuAction()->isVisible());
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    // A hidden action does not answer to its shortcut either; the allowed one does.
    QTest::keyClick(m_window.get(), Qt::Key_1, Qt::ControlModifier);
    QTest::keyClick(m_window.get(), Qt::Key_2, Qt::ControlModifier);
    QCOMPARE(child<QTabWidget>(m_window.get(), "tabWidget")->count(), 0);
    QTest::keyClick(m_window.get(), Qt::Key_4, Qt::ControlModifier);
    QCOMPARE(child<QTabWidget>(m_window.get(), "tabWidget")->count(), 1);
}

void TstVeltab::toolBarFollowsRightsAndPages()
{
    const Letters usual(9);
    addUser("viewer", "0=1 10=2 13=1 220=1");
    startLoggedIn("viewer");
    const auto *bar = child<QToolBar>(m_window.get(), "toolbar");
    const auto seen = [bar] {
        QStringList names;
        for (QAction *one : bar->actions()) {
            if (!one->isSeparator() && bar->widgetForAction(one)->isVisible())
                names.append(one->objectName());
        }
        return names.join(' ');
    };
    QTRY_COMPARE(seen(), QString("mt_shops mt_goods"));
    QVERIFY(showActive(m_window.get()));
    QTest::mouseClick(bar->widgetForAction(action("mt_goods")), Qt::LeftButton);
    waitOutTasks();
    const auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    QCOMPARE(tabs->tabText(tabs->currentIndex()), QString("Товари"));
    QVERIFY(!tabs->tabIcon(0).isNull());
    // What is scanned next still goes into the page.
    QVERIFY(tabs->currentWidget()->isAncestorOf(QApplication::focusWidget()));
    QTRY_COMPARE(seen(), QString("mt_shops mt_goods add edit dell reload export_to_xlsx export_to_csv"));
    action("mt_shops")->trigger();
    QTRY_COMPARE(seen(), QString("mt_shops mt_goods reload export_to_xlsx export_to_csv"));
    m_base->exec("DELETE FROM lst_permis WHERE id_prem IN(13,220) AND id_g_prem<>1");
    m_window->readRights();
    waitOutTasks();
    QTRY_COMPARE(seen(), QString("mt_shops reload"));
    m_window->closeAllTabs();
    QTRY_COMPARE(seen(), QString("mt_shops"));
}

void TstVeltab::toolBarIsRememberedForItsUser()
{
    const Letters usual(9);
    const auto isShown = [this] { return child<QToolBar>(m_window.get(), "toolbar")->isVisible(); };
    addUser("worker", "0=1 13=1");
    startLoggedIn("worker");
    QTRY_VERIFY(isShown());
    // The menu and the context menu of the bars have the same action.
    QCOMPARE(m_window->createPopupMenu()->actions(), QList<QAction *>({action("show_toolbar")}));
    action("show_toolbar")->trigger();
    QVERIFY(!isShown());
    addUser("other", "0=1 13=1");
    startLoggedIn("other");
    QTRY_VERIFY(isShown() && action("show_toolbar")->isChecked());
    m_base->exec(QStringList{"UPDATE users SET pass=CONCAT('x',login)",
                             "UPDATE users SET pass='' WHERE login='worker'"});
    startLoggedIn("worker");
    QTest::qWait(50);
    QVERIFY(!isShown() && !action("show_toolbar")->isChecked());
    action("show_toolbar")->trigger();
    QVERIFY(isShown());
}

/// On a machine without any theme, too.
void TstVeltab::everyActionHasItsIcon()
{
    const QStringList paths = QIcon::themeSearchPaths();
    QIcon::setThemeSearchPaths({m_folder->path()});
    startLoggedIn("admin");
    QStringList without;
    for (const QMenu *menu : child<QMenuBar>(m_window.get(), "menubar")->findChildren<QMenu *>()) {
        for (const QAction *one : menu->actions()) {
            if (!one->isSeparator() && !one->objectName().isEmpty() && one->icon().pixmap(16).isNull())
                without.append(one->objectName() + ' ' + one->text());
        }
    }
    QIcon::setThemeSearchPaths(paths);
    QVERIFY2(without.isEmpty(), qPrintable("A line in icons.cpp for: " + without.join(", ")));
}

void TstVeltab::userWithoutAccessIsRefused()
{
    addUser("nobody", "13=1");
    startLoggedIn("nobody");
    QVERIFY(m_shown.contains("У вас немає доступу до бекофісу."));
    QVERIFY(m_window->openingActions().isEmpty() && !action("changpass")->isVisible());
    QVERIFY(action("login")->isVisible());
}

void TstVeltab::changedRightsAreFollowed()
{
    addUser("mixed", "0=1 10=1 13=1 220=1");
    startLoggedIn("mixed");
    action("mt_goods")->trigger();
    QVERIFY(action("add")->isVisible() && action("mt_shops")->isVisible());
    m_base->exec("UPDATE lst_permis SET permission=2 WHERE id_prem=13 AND id_g_prem<>1");
    m_base->exec("DELETE FROM lst_permis WHERE id_prem=10 AND id_g_prem<>1");
    m_window->readRights();
    waitOutTasks();
    QVERIFY(!action("add")->isVisible() && !action("mt_shops")->isVisible());
    QVERIFY(action("mt_goods")->isVisible());
}

void TstVeltab::cancelledLoginKeepsTheUser()
{
    addUser("worker", "0=1 13=1");
    startLoggedIn("worker");
    const auto *label = child<QLabel>(m_window.get(), "labelUser");
    const QString before = label->text();
    QVERIFY(before.contains("Прізвище"));
    int wrong = 0;
    QTimer answer;
    connect(&answer, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (dialog == nullptr || isReading(dialog))
            return;
        if (qobject_cast<QSelUser *>(dialog) == nullptr)
            dialog->accept();
        else if (wrong++ == 0)
            logIn(dialog, "немає такого");
        else
            dialog->reject();
    });
    answer.start(10);
    action("login")->trigger();
    QCOMPARE(wrong, 2);
    QCOMPARE(label->text(), before);
    QVERIFY(m_window->isReady() && action("mt_goods")->isVisible() && !action("mt_shops")->isVisible());
    action("mt_goods")->trigger();
    answer.stop();
    QCOMPARE(answerQuestion([this] { m_window->login(); }), QString("Перед входом закрийте всі вкладки!"));
}

void TstVeltab::openTabsKeepTheWindow()
{
    startLoggedIn("admin");
    auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    action("mt_goods")->trigger();
    action("mt_shops")->trigger();
    action("mt_goods")->trigger();
    QCOMPARE(tabs->count(), 2);
    QCOMPARE(tabs->tabText(tabs->currentIndex()), QString("Товари"));
    const QString why = answerConfirm([&] { m_window->close(); }, false);
    QVERIFY2(why.contains("Перед виходом, закрийте всі вкладки!"), qPrintable(why));
    QVERIFY(m_window->isVisible() && tabs->count() == 2);
    answerConfirm([&] { m_window->close(); }, true);
    QVERIFY(!m_window->isVisible() && tabs->count() == 0);
}

/// A tab that would lose something refuses to be closed.
class HoldingTab : public QWidget, public Page
{
public:
    bool mayClose() override { return false; }
};

/// For who may see it, and only when nothing else was opened before.
void TstVeltab::overviewOpensBehindTheLogin()
{
    m_startPage = "mz_overview";
    addShopAndGoods();
    startLoggedIn("admin");
    auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(tabs->tabText(0), QString("Огляд"));
    QVERIFY(tabs->currentWidget()->isAncestorOf(m_window->focusWidget()));
    m_window->closetab(0);
    QCOMPARE(tabs->count(), 0);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window.get(), Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(tabs->count(), 1);
    // Its right is withdrawn while it is open; the other one would do.
    addUser("lines", "0=1 73=2 13=1");
    startLoggedIn("lines");
    tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    QCOMPARE(tabs->count(), 1);
    m_base->exec("DELETE FROM lst_permis WHERE id_prem=73 AND id_g_prem<>1");
    action("mt_goods")->trigger();
    waitOutTasks();
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(tabs->tabText(0), QString("Товари"));
    addUser("seller", "0=1 101=1");
    startLoggedIn("seller");
    QCOMPARE(child<QTabWidget>(m_window.get(), "tabWidget")->count(), 0);
}

/// Its right is withdrawn while the user looks at what was found: a page opens no more than by the menu, and
/// who asks again finds nothing.
void TstVeltab::goingAsksForTheRightAgain()
{
    addShopAndGoods();
    addUser("seeker", "0=1 13=2 10=1");
    startLoggedIn("seeker");
    const auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    const auto find = [this] {
        action("go_to")->trigger();
        auto *box = m_window->findChild<GotoBox *>();
        child<QLineEdit>(box, "leGoto")->setText("товар 1");
        return QPointer<GotoBox>(box);
    };
    const auto hits = [](const GotoBox *box) {
        return child<QTreeWidget>(box, "gotoList")->topLevelItemCount();
    };
    QPointer<GotoBox> box = find();
    QTRY_COMPARE(hits(box), 2);
    m_base->exec("DELETE FROM lst_permis WHERE id_prem=13 AND id_g_prem<>1");
    QVERIFY(withModal<QQestion>(
        [&box] {
            QTest::keyClick(child<QLineEdit>(box, "leGoto"), Qt::Key_Return);
            waitOutTasks();
        },
        [](QQestion *question) { question->accept(); }));
    QCOMPARE(tabs->count(), 0);
    m_base->exec(
        "INSERT INTO lst_permis(id_g_prem,id_prem,permission) SELECT id_g_prem,13,2 FROM users WHERE "
        "login='seeker'");
    box = find();
    QTRY_COMPARE(hits(box), 2);
    box->reject();
    QTRY_VERIFY(box.isNull());
    m_base->exec("DELETE FROM lst_permis WHERE id_prem=13 AND id_g_prem<>1");
    box = find();
    QTRY_COMPARE(child<QLabel>(box, "labelGoto")->text(), QString("Нічого не знайдено."));
}

/// It asks nobody who leaves, or lets another one in; beside another tab it waits like that.
void TstVeltab::overviewHoldsNobody()
{
    m_startPage = "mz_overview";
    addShopAndGoods();
    startLoggedIn("admin");
    addUser("other", "0=1 71=1");
    auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    QVERIFY(withModal<QSelUser>([this] { action("login")->trigger(); },
                                [](QSelUser *dialog) { dialog->reject(); }));
    QCOMPARE(tabs->count(), 1);
    QVERIFY(withModal<QSelUser>([this] { action("login")->trigger(); },
                                [](QSelUser *dialog) {
                                    logIn(dialog, "other");
                                    waitOutTasks();
                                }));
    QTRY_COMPARE(tabs->count(), 1);
    QVERIFY(!action("mt_goods")->isVisible());
    auto *holding = new HoldingTab;
    tabs->addTab(holding, "чек");
    const QString why = answerConfirm([&] { m_window->close(); }, false);
    QVERIFY2(why.contains("Перед виходом, закрийте всі вкладки!"), qPrintable(why));
    QCOMPARE(tabs->count(), 2);
    delete holding;
    m_window->close();
    QVERIFY(!m_window->isVisible() && tabs->count() == 0);
}

void TstVeltab::closingAllSparesWhatWouldBeLost()
{
    startLoggedIn("admin");
    auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    QVERIFY(!action("close_all")->isVisible());
    action("mt_goods")->trigger();
    auto *holding = new HoldingTab;
    tabs->addTab(holding, "чек");
    action("man_saleadmiss")->trigger();
    action("mz_cheks")->trigger();
    QCOMPARE(tabs->count(), 4);
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    QTest::keyClick(m_window.get(), Qt::Key_W, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(tabs->count(), 1);
    QCOMPARE(tabs->widget(0), static_cast<QWidget *>(holding));
    answerConfirm([&] { m_window->close(); }, true);
    QVERIFY2(m_window->isVisible() && tabs->count() == 1, "the held tab holds the program too");
}

/// And a permission of its own, but for what is one right: to sell goods and to hand them over. What has no
/// factory yet stays hidden whoever looks.
void TstVeltab::everyPageHasItsAction()
{
    startLoggedIn("admin");
    QTabWidget tabs;
    QLoadedUser user(nullptr, &m_base->heard);
    const Pages pages(&tabs, m_base->connection(), nullptr, &user, m_window.get());
    QSet<int> permissions;
    QStringList made;
    for (const PageEntry &entry : pages.table()) {
        QVERIFY2(m_window->findChild<QAction *>(entry.action) != nullptr, entry.action);
        const bool isShared = QLatin1String(entry.action) == QLatin1String("man_invoices") ||
                              QLatin1String(entry.action) == QLatin1String("mz_overview");
        QVERIFY2(isShared || !permissions.contains(entry.permission), entry.action);
        if (!isShared)
            permissions.insert(entry.permission);
        if (entry.make)
            made.append(entry.action);
    }
    QStringList offered;
    for (const QAction *one : m_window->openingActions())
        offered.append(one->objectName());
    QCOMPARE(offered, made);
}

void TstVeltab::nothingOpensWithoutTheRight()
{
    addUser("viewer", "0=1 13=2");
    startLoggedIn("viewer");
    QCOMPARE(answerQuestion([this] { m_window->SaleAdmission(); }),
             QString("У вас немає доступу до вкладки \"Продаж\"."));
    QCOMPARE(child<QTabWidget>(m_window.get(), "tabWidget")->count(), 0);
}

void TstVeltab::readOnlyListsOfferNoEditing()
{
    startLoggedIn("admin");
    action("mt_goods")->trigger();
    QVERIFY(action("add")->isVisible());
    action("mt_goods_shops")->trigger();
    for (const char *command : {"add", "edit", "dell"})
        QVERIFY2(!action(command)->isEnabled() && !action(command)->toolTip().isEmpty(), command);
    QVERIFY(action("export_to_csv")->isEnabled());
    m_window->closetab(1);
    QVERIFY(action("add")->isVisible() && action("add")->isEnabled());
}

void TstVeltab::loginTellsTheFirstUser()
{
    QStringList names;
    QStringList hints;
    writeSettings(m_base->address());
    const auto answer = [&](QDialog *dialog) {
        if (qobject_cast<QSelUser *>(dialog) == nullptr)
            return dialog->accept();
        names.append(child<QLineEdit>(dialog, "leLogin")->text());
        hints.append(child<QLabel>(dialog, "labelHint")->text());
        QVERIFY(!child<QCheckBox>(dialog, "chbRemember")->isHidden());
        static_cast<QSelUser *>(dialog)->ok();
    };
    start(answer);
    QVERIFY(m_window->isReady());
    QVERIFY2(connectionText().contains("додайте магазин"), qPrintable(connectionText()));
    m_base->exec("INSERT INTO shops(address,name,group_shop,block) VALUES('А','М',1,0)");
    action("mt_kass")->trigger();
    waitOutTasks();
    QVERIFY2(connectionText().contains("додайте касу"), qPrintable(connectionText()));
    m_base->exec("INSERT INTO kassa(id,advertising_str,id_shop,block) SELECT 1,'К',id,0 FROM shops");
    m_base->exec("INSERT INTO goods(id,name) VALUES(1,'Т')");
    action("mt_goods")->trigger();
    waitOutTasks();
    QVERIFY2(connectionText().contains("«Продається в магазинах»"), qPrintable(connectionText()));
    m_window.reset();
    addUser("viewer", "0=1 10=2");
    start([&](QDialog *dialog) {
        if (qobject_cast<QSelUser *>(dialog) != nullptr)
            child<QLineEdit>(dialog, "leLogin")->setText("viewer");
        answer(dialog);
    });
    QVERIFY(connectionText().isEmpty());
    m_window.reset();
    start(answer);
    QCOMPARE(names, QStringList({"admin", "viewer", "viewer"}));
    QVERIFY2(hints.at(0).contains("admin, пароль порожній"), qPrintable(hints.at(0)));
    QCOMPARE(hints.mid(1), QStringList({"", ""}));
}

void TstVeltab::lostConnectionIsToldInWords()
{
    startLoggedIn("admin");
    addShopAndGoods();
    const auto *label = child<QLabel>(m_window.get(), "labelServer");
    QCOMPARE(label->text(), QString("З'єднано"));
    QVERIFY2(label->toolTip().contains(m_base->address().name) && label->toolTip().contains("не захищене"),
             qPrintable(label->toolTip()));
    ConnectionState *state = ConnectionState::of(QSqlDatabase::database("veltab", false));
    emit state->lost("Сервер мовчить.");
    QCOMPARE(label->text(), QString("Зв'язок втрачено"));
    QCOMPARE(connectionText(), QString("Сервер мовчить."));
    QVERIFY(m_window->isReady());
    // It is known by now: every further statement says the same.
    postMessage(m_window.get(), "Помилка запиту:\nCan't connect to server on '127.0.0.1' (115)\nSELECT 1");
    QVERIFY(answerQuestion([] { QTest::qWait(100); }).isEmpty());
    postMessage(m_window.get(), "Файл не збережено");
    QCOMPARE(answerQuestion([] { QTest::qWait(100); }), QString("Файл не збережено"));
    // Rights that were taken away meanwhile are not kept by an old window.
    m_base->exec("DELETE FROM lst_permis WHERE id_prem=13");
    emit state->back();
    QCOMPARE(label->text(), QString("З'єднано"));
    waitOutTasks();
    QVERIFY2(connectionText().isEmpty(), qPrintable(connectionText()));
    QVERIFY(!action("mt_goods")->isVisible() && action("mt_shops")->isVisible());
}

void TstVeltab::openedTabHasTheFocus()
{
    startLoggedIn("admin");
    auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    for (const Qt::Key key : {Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4, Qt::Key_2}) {
        QTest::keyClick(m_window.get(), key, Qt::ControlModifier);
        QVERIFY(tabs->currentWidget() != nullptr && QApplication::focusWidget() != nullptr);
        QVERIFY2(tabs->currentWidget()->isAncestorOf(QApplication::focusWidget()),
                 qPrintable(tabs->tabText(tabs->currentIndex())));
    }
    QCOMPARE(tabs->count(), 4);
    // What is typed at once is searched for.
    QTest::keyClicks(QApplication::focusWidget(), "x");
    const auto *search = qobject_cast<QLineEdit *>(QApplication::focusWidget());
    QVERIFY2(search != nullptr, QApplication::focusWidget()->metaObject()->className());
    QCOMPARE(search->text(), QString("x"));
}

/// The keys that act in a page together with Alt, once for each that has it.
static QStringList accessKeys(const QWidget *page)
{
    QStringList keys;
    const auto add = [&keys, page](const QWidget *widget, const QString &text) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (!key.isEmpty() && widget->isVisibleTo(page))
            keys.append(key.toString());
    };
    for (const auto *button : page->findChildren<QAbstractButton *>())
        add(button, button->text());
    for (const auto *label : page->findChildren<QLabel *>()) {
        if (label->buddy() != nullptr)
            add(label, label->text());
    }
    return keys;
}

void TstVeltab::accessKeysAreTold_data()
{
    QTest::addColumn<QString>("language");
    QTest::newRow("Ukrainian") << "veltab_uk.qm";
    QTest::newRow("English") << "veltab_en.qm";
}

/// Each letter leads to one place: in the menu bar together with the buttons beside it, and in each menu; a
/// page takes none from the menu bar.
void TstVeltab::accessKeysAreTold()
{
    QFETCH(QString, language);
    QTranslator translator;
    QVERIFY(translator.load(QCoreApplication::applicationDirPath() + '/' + language));
    QCoreApplication::installTranslator(&translator);
    addUser("reports",
            "0=1 70=1 71=1 72=1 73=1 100=1 101=1 102=1 103=1 40=1 10=1 11=1 13=1 15=1 27=1 201=1 220=1");
    startLoggedIn("reports");
    const auto letter = [](const QString &caption) {
        const QString key = QKeySequence::mnemonic(caption).toString();
        return key.right(1);
    };
    QStringList bar;
    for (const QMenu *menu : child<QMenuBar>(m_window.get(), "menubar")->findChildren<QMenu *>()) {
        if (menu->title().isEmpty())
            continue;
        bar.append(letter(menu->title()));
        QStringList letters;
        const auto actions = menu->actions();
        for (const QAction *one : actions) {
            if (!one->isSeparator())
                letters.append(letter(one->text()));
        }
        const QString all = menu->title() + ": " + letters.join(' ');
        QVERIFY2(!letters.contains(QString()) && letters.removeDuplicates() == 0, qPrintable(all));
    }
    const QStringList menus = bar;
    for (const char *button : {"pbLogin", "pbReconnect", "pbSettings"})
        bar.append(letter(child<QPushButton>(m_window.get(), button)->text()));
    QVERIFY2(!bar.contains(QString()) && bar.removeDuplicates() == 0, qPrintable(bar.join(' ')));
    QStringList taken;
    const auto actions = m_window->openingActions();
    for (QAction *one : actions) {
        one->trigger();
        QStringList keys = accessKeys(child<QTabWidget>(m_window.get(), "tabWidget")->currentWidget());
        for (const QString &key : keys) {
            if (menus.contains(key.right(1)) || keys.count(key) > 1)
                taken.append(one->objectName() + ' ' + key);
        }
    }
    QVERIFY2(taken.isEmpty(), qPrintable(taken.join('\n')));
}

void TstVeltab::placeComesBackOntoAScreen()
{
    startLoggedIn("admin");
    // Nothing is remembered yet, and the window is designed for a larger screen than this one.
    QVERIFY(m_window->height() < QGuiApplication::primaryScreen()->availableGeometry().height());
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    m_window->setGeometry(screen.right() - 10, screen.bottom() - 5, screen.width() + 300, 500);
    m_window->close();
    startLoggedIn("admin");
    QString place;
    QDebug(&place) << m_window->geometry() << screen;
    // But for the frame, which not every window system tells.
    QVERIFY2(screen.adjusted(-4, -4, 4, 4).contains(m_window->geometry()), qPrintable(place));
}

/// 1024 x 600 with letters of 12 points; a title bar takes its share of the height.
void TstVeltab::everyTabFitsASmallScreen()
{
    const Letters large(12);
    addShopAndGoods();
    startLoggedIn("admin");
    // With such letters the tool bar leaves its room to the pages, until it is asked for.
    QCOMPARE(QGuiApplication::primaryScreen()->size().height(), 600);
    QVERIFY(!action("show_toolbar")->isChecked());
    QStringList tooLarge;
    const auto actions = m_window->openingActions();
    for (QAction *one : actions) {
        one->trigger();
        QTest::qWait(20);
        const QSize least = m_window->minimumSizeHint();
        if (least.width() > 1024 || least.height() > 575)
            tooLarge.append(
                QString("%1: %2 x %3").arg(one->objectName()).arg(least.width()).arg(least.height()));
        m_window->closeAllTabs();
    }
    QVERIFY2(tooLarge.isEmpty(), qPrintable(tooLarge.join('\n')));
}

void TstVeltab::settingsReconnectOnlyToANewAddress()
{
    startLoggedIn("admin");
    auto *settings = child<setting>(m_window.get(), "setting");
    const QString before =
        m_base->value("SELECT GROUP_CONCAT(ID) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE DB=DATABASE()");
    child<QSpinBox>(settings, "sbCountMsg")->setValue(50);
    settings->save();
    QTest::qWait(100);
    QVERIFY2(m_window->isReady(), "another number of messages needs no new login");
    QCOMPARE(m_base->value("SELECT GROUP_CONCAT(ID) FROM INFORMATION_SCHEMA.PROCESSLIST WHERE DB=DATABASE()"),
             before);

    action("mt_goods")->trigger();
    FreshDatabase other;
    child<QLineEdit>(settings, "leBase")->setText(other.address().name);
    QCOMPARE(answerQuestion([&] { settings->save(); }),
             QString("Нові налаштування бази почнуть діяти, коли ви закриєте всі вкладки і увійдете знову."));
    QCOMPARE(child<QTabWidget>(m_window.get(), "tabWidget")->count(), 1);
    QVERIFY(m_window->isReady() && m_window->windowTitle().endsWith(m_base->address().name));
    m_window->closetab(0);
    QVERIFY(withModal<QSelUser>(
        [&] {
            action("login")->trigger();
            QTRY_VERIFY_WITH_TIMEOUT(m_window->isReady(), 10000);
        },
        logInAndWait));
    QVERIFY(m_window->windowTitle().endsWith(other.address().name));
    m_window.reset();
}

/// On the connection in use, whatever the settings say by now, and without a word to those who work on it.
void TstVeltab::missingTablesAreAddedInTheSession()
{
    startLoggedIn("admin");
    action("mt_goods")->trigger();
    FreshDatabase other(FreshDatabase::Empty);
    auto *settings = child<setting>(m_window.get(), "setting");
    child<QLineEdit>(settings, "leBase")->setText(other.address().name);
    answerQuestion([&] { settings->save(); });
    m_base->exec("DROP TABLE onoffline");
    const auto tables = [](FreshDatabase *base) {
        return base->value("SELECT COUNT(*) FROM INFORMATION_SCHEMA.TABLES WHERE TABLE_SCHEMA=DATABASE()");
    };
    const int left = tables(m_base.get()).toInt();
    const QString told = answerQuestion([&] {
        action("mt_create_tables")->trigger();
        QTRY_COMPARE_WITH_TIMEOUT(tables(m_base.get()).toInt(), left + 1, 10000);
        QTRY_VERIFY_WITH_TIMEOUT(!connectionText().startsWith("Зачекайте"), 10000);
    });
    QCOMPARE(told, "Усі таблиці програми в базі «" + m_base->address().name + "» є.");
    QCOMPARE(tables(&other), QString("0"));
    QVERIFY(m_window->isReady() && connectionText().isEmpty());
    QCOMPARE(child<QTabWidget>(m_window.get(), "tabWidget")->count(), 1);
}

void TstVeltab::unreadableSettingsConnectNowhere()
{
    const QString path = m_folder->filePath("Velta.ini");
    QVERIFY(QDir().mkdir(path));
    start([](QDialog *dialog) { dialog->accept(); });
    QVERIFY2(connectionText().startsWith("Файл налаштувань не прочитано: " + path + "\nце каталог."),
             qPrintable(connectionText()));
    QVERIFY(m_shown.isEmpty() && !m_window->isReady());
    QVERIFY(QDir().rmdir(path));
    writeSettings(m_base->address());
    QVERIFY(withModal<QSelUser>(
        [&] {
            child<QPushButton>(m_window.get(), "pbReconnect")->click();
            QTRY_VERIFY_WITH_TIMEOUT(m_window->isReady(), 10000);
        },
        logInAndWait));
}

void TstVeltab::recordCommandsFollowTheTab()
{
    addUser("mixed", "0=1 10=2 13=1 101=1");
    startLoggedIn("mixed");
    QVERIFY(!action("add")->isVisible());
    action("mt_goods")->trigger();
    QVERIFY(action("add")->isVisible() && action("edit")->isVisible());
    QCOMPARE(answerQuestion([&] { QTest::keyClick(m_window.get(), Qt::Key_Delete); }),
             QString("Видалення заборонене!!!"));
    action("mt_shops")->trigger();
    QVERIFY(!action("add")->isVisible() && !action("edit")->isVisible());
    m_window->closetab(1);
    QVERIFY(action("add")->isVisible());
    m_window->closetab(0);
    QVERIFY(!action("add")->isVisible());
}

/// By F5, for those who may only look, too.
void TstVeltab::listsAreReadAgain()
{
    addShopAndGoods();
    addUser("viewer", "0=1 13=2 71=2 101=2");
    startLoggedIn("viewer");
    QVERIFY(!action("reload")->isVisible());
    action("mt_goods")->trigger();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    auto *goods = qobject_cast<QTab *>(tabs->currentWidget());
    QTRY_VERIFY(!goods->isLoading());
    QVERIFY(child<QMenu>(m_window.get(), "menu_edit")->menuAction()->isVisible());
    QCOMPARE(action("reload")->shortcut().toString(), QString("F5"));
    m_base->exec("UPDATE goods SET name='Інша назва'");
    pressKeys({Qt::Key_F5});
    QTRY_COMPARE(goods->model()->index(0, 2).data().toString(), QString("Інша назва"));
    action("mz_zzvit")->trigger();
    QTRY_VERIFY(!pageAt(tabs, 1)->isLoading());
    QSignalSpy loaded(pageAt(tabs, 1)->list(), &ListPane::loaded);
    pressKeys({Qt::Key_F5});
    QTRY_COMPARE(loaded.count(), 1);
    m_window->closeAllTabs();
    QVERIFY(!action("reload")->isVisible());
}

/// Ctrl+Shift and a letter, to whatever has the keyboard: a line of text takes some of them for itself.
void TstVeltab::pressExport(Qt::Key letter)
{
    QWidget *focus = QApplication::focusWidget();
    QTest::keyClick(focus == nullptr ? m_window.get() : focus, letter,
                    Qt::ControlModifier | Qt::ShiftModifier);
}

/// Whoever exports writes into that file.
void TstVeltab::openShopsToExport(const QString &login, const QString &path)
{
    startLoggedIn(login);
    m_window->setFileChooser([path](const QString &) { return path; });
    QVERIFY(!action("export_to_csv")->isVisible());
    action("mt_shops")->trigger();
    // Only the active window hears its shortcuts.
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void TstVeltab::exportFollowsTheRight()
{
    const QString path = m_folder->filePath("список.csv");
    addUser("reader", "0=1 10=2");
    openShopsToExport("reader", path);
    pressExport(Qt::Key_E);
    m_window->export_to_csv();
    QVERIFY(!action("export_to_csv")->isVisible() && !QFile::exists(path));
    m_window.reset();

    addUser("exporter", "0=1 10=2 220=2");
    openShopsToExport("exporter", path);
    QVERIFY(action("export_to_csv_cp1251")->isVisible() && !action("import_csv_UTF8")->isVisible());
}

/// UTF-8, the encoding of other programs, a workbook; what cannot be written is told.
void TstVeltab::listIsWrittenInEveryForm()
{
    const QString path = m_folder->filePath("список.csv");
    addUser("exporter", "0=1 10=2 220=2");
    m_base->exec(QStringList{"INSERT INTO group_shop(id,name) VALUES(2,'Г')",
                             "INSERT INTO lst_group SELECT id,2 FROM group_premission",
                             "INSERT INTO shops(address,name,group_shop,block) VALUES('А','Їжак ₴',2,0)"});
    openShopsToExport("exporter", path);
    QTRY_VERIFY(!m_window->tableBase()->tab("mt_shops")->isLoading());
    pressExport(Qt::Key_E);
    waitOutJobs();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    QVERIFY2(text.contains("Їжак ₴"), qPrintable(text));
    file.close();
    action("export_to_csv_cp1251")->trigger();
    waitOutJobs();
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("\xaf\xe6\xe0\xea ?"));
    QString suggested;
    const QString book = m_folder->filePath("список.xlsx");
    m_window->setFileChooser([&](const QString &name) {
        suggested = name;
        return book;
    });
    QCOMPARE(child<QMenu>(m_window.get(), "menu_export")->actions().constFirst(), action("export_to_xlsx"));
    pressExport(Qt::Key_X);
    waitOutJobs();
    QCOMPARE(suggested, QString("Магазини.xlsx"));
    QVERIFY(isWholeXmlArchive(book));
    m_window->setFileChooser([](const QString &) { return QString("/немає/такого"); });
    const QString why = answerQuestion([&] {
        pressExport(Qt::Key_E);
        waitOutJobs();
        QTest::qWait(50);
    });
    QVERIFY2(why.contains("/немає/такого") && why.contains("No such file"), qPrintable(why));
}

/// What a page cannot do, before any file is asked for; and what becomes of barcodes in a CSV file.
void TstVeltab::exportIsToldAtTheCommand()
{
    addUser("reports", "0=1 70=1 71=1 220=1");
    startLoggedIn("reports");
    action("mz_cheks")->trigger();
    QVERIFY(action("export_to_csv")->isVisible() && !action("export_to_csv")->isEnabled());
    QVERIFY(action("export_to_csv")->toolTip().contains("Список у PDF"));
    action("mz_zzvit")->trigger();
    QVERIFY(action("export_to_csv_cp1251")->isEnabled());
    const auto hintOf = [this](const char *command, const QString &ending) {
        QString hint = "no dialog";
        withModal<QFileDialog>([&] { action(command)->trigger(); },
                               [&](QFileDialog *dialog) {
                                   const auto *label = dialog->findChild<QLabel *>("labelHint");
                                   hint = label == nullptr ? QString() : label->text();
                                   if (dialog->defaultSuffix() != ending)
                                       hint = "wrong ending";
                                   dialog->reject();
                               });
        return hint;
    };
    QVERIFY(hintOf("export_to_csv_cp1251", "csv").contains("зі штрихкоду число без нулів спереду"));
    QCOMPARE(hintOf("export_to_xlsx", "xlsx"), QString());
}

QString TstVeltab::writtenFile(const QByteArray &text) const
{
    QFile file(m_folder->filePath("prices.csv"));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(text) != text.size())
        qFatal("%s", qPrintable(file.errorString()));
    return file.fileName();
}

/// Only where prices are edited, and as long as it lasts.
void TstVeltab::importFollowsTheRight()
{
    int asked = 0;
    const auto choose = [&] {
        ++asked;
        return writtenFile("Cheese\n");
    };
    for (const char *rights : {"0=1 13=2 221=1", "0=1 13=1"}) {
        addUser(rights, rights);
        startLoggedIn(rights);
        m_window->setImportChooser(choose);
        action("mt_goods")->trigger();
        QVERIFY(!action("import_csv_UTF8")->isVisible());
        m_window->import_csv();
        m_window->import_csv_cp1251();
        m_window.reset();
    }
    QCOMPARE(asked, 0);
    addUser("importer", "0=1 10=1 13=1 221=2");
    startLoggedIn("importer");
    m_window->setImportChooser(choose);
    QVERIFY(!child<QMenu>(m_window.get(), "menu_import")->menuAction()->isVisible());
    action("mt_goods")->trigger();
    QVERIFY(child<QMenu>(m_window.get(), "menu_import")->menuAction()->isVisible());
    // The right goes while the dialog is open: so does the dialog.
    QVERIFY(withModal<QImportPrices>([&] { action("import_csv_UTF8")->trigger(); },
                                     [&](QImportPrices *dialog) {
                                         const QPointer<QImportPrices> open = dialog;
                                         waitOutJobs();
                                         m_base->exec("UPDATE lst_permis SET permission=0 WHERE id_prem=221");
                                         m_window->readRights();
                                         waitOutTasks();
                                         QVERIFY(!open || !open->isVisible());
                                     }));
    QCOMPARE(asked, 1);
    QVERIFY(!action("import_csv_UTF8")->isVisible());
    m_base->exec("UPDATE lst_permis SET permission=1 WHERE id_prem=221");
    action("mt_shops")->trigger();
    QVERIFY(!action("import_csv_UTF8")->isVisible());
}

/// Of files that leave open how they are written.
void TstVeltab::importReadsAsItsActionSays()
{
    addUser("importer", "0=1 10=1 13=1 221=2");
    startLoggedIn("importer");
    action("mt_goods")->trigger();
    const struct
    {
        const char *action;
        QByteArray record;
        QString encoding;
        QChar separator;
    } imports[] = {{"import_csv_UTF8", "Cheese 96385074 1", "UTF-8", ';'},
                   {"import_csv_cp1251", "\xd1\xe8\xf0\t96385074\t1", "Windows-1251", '\t'},
                   {"import_csv_utf8_tab", "Cheese 96385074 1", "UTF-8", '\t'}};
    for (const auto &import : imports) {
        m_window->setImportChooser([&] { return writtenFile(import.record); });
        QVERIFY(withModal<QImportPrices>(
            [&] { action(import.action)->trigger(); },
            [&](QImportPrices *dialog) {
                waitOutJobs();
                QCOMPARE(child<QComboBox>(dialog, "cbEncoding")->currentText(), import.encoding);
                QCOMPARE(child<QComboBox>(dialog, "cbSeparator")->currentData(), QVariant(import.separator));
            }));
    }
}

void TstVeltab::pagesHaveKeysOfTheirOwn()
{
    addUser("reports", "0=1 70=1 71=1 72=1 73=1 101=1 40=1 10=1 11=1 13=1 15=1 220=1");
    m_base->exec(
        "INSERT IGNORE INTO lst_group(id_g_prem,id_group) SELECT DISTINCT id_g_prem,1 FROM lst_permis");
    QFont large = QApplication::font();
    large.setPointSize(12);
    const QFont before = QApplication::font();
    QApplication::setFont(large);
    startLoggedIn("reports");
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    auto *tabs = child<QTabWidget>(m_window.get(), "tabWidget");
    for (const char *name : {"mz_cheks", "mz_zzvit", "mz_art_zvit", "mz_StatisticOnLine", "mt_shops",
                             "mt_kass", "mt_goods", "mt_goods_shops"}) {
        action(name)->trigger();
        const bool isTable = QByteArray(name).startsWith("mt_");
        const QStringList keys = accessKeys(tabs->currentWidget());
        QVERIFY2(keys.size() > (isTable ? 1 : 3), name);
        QCOMPARE(QApplication::focusWidget(),
                 child<QWidget>(tabs->currentWidget(), isTable ? "leSearch" : "cbGroup"));
        const QSize least = tabs->currentWidget()->minimumSizeHint();
        QVERIFY2(least.width() <= 1000 && least.height() <= 500,
                 qPrintable(QString("%1 %2x%3").arg(name).arg(least.width()).arg(least.height())));
    }
    QApplication::setFont(before);
    for (const char *name : {"mt_shops", "mt_kass", "mt_goods"}) {
        action(name)->trigger();
        QStringList keys;
        QVERIFY(withModal<QDialog>([&] { action("add")->trigger(); },
                                   [&](QDialog *editor) { keys = accessKeys(editor); }));
        QVERIFY2(keys.size() > 10, name);
        QCOMPARE(QSet<QString>(keys.begin(), keys.end()).size(), keys.size());
    }
}

void TstVeltab::serviceMenuIsRevealed()
{
    writeSettings(m_base->address());
    start([](QDialog *dialog) { dialog->reject(); });
    QVERIFY(!m_window->isReady() && !action("mt_create_tables")->isVisible());
    const auto press = [&] {
        QTest::keyClick(m_window.get(), Qt::Key_F, Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    };
    const QString asked = answerConfirm(press, false);
    QVERIFY2(asked.contains("Невірні налаштування\nможуть пошкодити дані в базі!"), qPrintable(asked));
    QVERIFY(!action("mt_create_tables")->isVisible());
    answerConfirm(press, true);
    QVERIFY(action("mt_create_tables")->isVisible() && action("settings")->isVisible());
}

/// It is none of the host's tabs: the window offers it the commands first.
void TstVeltab::launchCommandsAnswerTheMenu()
{
    addUser("clerk", "0=1 202=1");
    startLoggedIn("clerk");
    QVERIFY(!action("mt_importBD")->isVisible());
    QVERIFY(action("comands")->isVisible());
    action("comands")->trigger();
    QVERIFY(action("dell")->isVisible() && !m_window->tableBase()->EditRecord());
    QCOMPARE(answerQuestion([this] { action("dell")->trigger(); }), QString("Видалення не реалізоване!"));
    QString title;
    QVERIFY(withModal<QDialog>([this] { action("add")->trigger(); },
                               [&title](QDialog *editor) { title = editor->windowTitle(); }));
    QCOMPARE(title, QString("Додавання нового запису"));
    m_base->exec("REPLACE INTO lst_permis SELECT id,203,1 FROM group_premission WHERE id>1");
    m_window->readRights();
    waitOutTasks();
    QVERIFY(action("mt_importBD")->isVisible());
}

void TstVeltab::indexesAreOfferedAndTakenBack()
{
    startLoggedIn("admin");
    QVERIFY(action("mt_tune")->isVisible());
    const auto indexes = [this] {
        return m_base->value("SELECT COUNT(DISTINCT INDEX_NAME) FROM INFORMATION_SCHEMA.STATISTICS WHERE "
                             "TABLE_SCHEMA=DATABASE() AND TABLE_NAME='cheks' AND INDEX_NAME LIKE 'tune%'");
    };
    const auto isWorking = [] { return !RunningJobs::all().jobs().isEmpty(); };
    const auto tune = [this] {
        action("mt_tune")->trigger();
        waitOutTasks();
    };
    QVERIFY(answerConfirm(tune, false).contains("\nДодати до чеків у базі два індекси?"));
    QVERIFY(!isWorking());
    m_base->exec("LOCK TABLES cheks READ");
    answerConfirm(tune, true);
    QVERIFY(isWorking());
    QVERIFY(answerConfirm([this] { m_window->close(); }, false).contains("Ще триває: «Індекси додаються»"));
    QVERIFY(m_window->isVisible());
    m_base->exec("UNLOCK TABLES");
    QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), 10000);
    QCOMPARE(indexes(), QString("2"));
    QVERIFY(answerConfirm(tune, true).contains("\nІндекси для швидких звітів уже є у базі."));
    QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), 10000);
    QCOMPARE(indexes(), QString("0"));
}

void TstVeltab::tuningAndSettingsDoNotCross()
{
    startLoggedIn("admin");
    auto *settings = child<setting>(m_window.get(), "setting");
    const auto isWorking = [] { return !RunningJobs::all().jobs().isEmpty(); };
    m_base->exec("LOCK TABLES cheks READ");
    answerConfirm(
        [this] {
            action("mt_tune")->trigger();
            waitOutTasks();
        },
        true);
    QVERIFY(isWorking());
    child<QLineEdit>(settings, "leBase")->setText("інша");
    QVERIFY(
        answerQuestion([&] { settings->save(); }).contains("коли закінчиться завдання «Індекси додаються»"));
    QVERIFY(answerQuestion([this] { action("login")->trigger(); }).startsWith("Дочекайтесь кінця"));
    QVERIFY(answerQuestion([this] { action("mt_create_tables")->trigger(); }).startsWith("Зачекайте"));
    QVERIFY(m_window->isReady() && m_window->windowTitle().endsWith(m_base->address().name));
    m_base->exec("UNLOCK TABLES");
    QTRY_VERIFY_WITH_TIMEOUT(!isWorking(), 20000);
}

void TstVeltab::burstOfErrorsIsOneDialog()
{
    startLoggedIn("admin");
    for (int i = 0; i < 3; ++i)
        postMessage(m_window.get(), QString("Помилка %1\nSELECT %1").arg(i));
    postMessage(m_window.get(), "Зв'язок втрачено.\n\nLost connection\nSELECT 4");
    postMessage(m_window.get(), "Слід", QMessEvent::Debug);
    QString text;
    QString details;
    withModal<QQestion>([] { QTest::qWait(200); },
                        [&](QQestion *told) {
                            text = child<QLabel>(told, "labelText")->text();
                            details = told->findChild<QPlainTextEdit *>()->toPlainText();
                            told->accept();
                        });
    QCOMPARE(text, QString("Помилка 0\n\nПомилка 1\n\nПомилка 2\n\nЗв'язок втрачено."));
    QCOMPARE(details, QString("SELECT 0\n\nSELECT 1\n\nSELECT 2\n\nLost connection\nSELECT 4"));
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

QTEST_MAIN(TstVeltab)
#include "tst_veltab.moc"
