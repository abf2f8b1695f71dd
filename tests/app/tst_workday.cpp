#include "heartbeat.h"
#include "tcpproxy.h"
#include "testing.h"

#include "dbtasks.h"
#include "listpane.h"
#include "page.h"
#include "qaddedtgoods.h"
#include "qchangpass.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qpayment.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qseluser.h"
#include "setting.h"
#include "veltab.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QThread>

/// One day of work in the program, over a line where every answer takes a fifth of a second. The window
/// answers all the time and sends nothing itself; in the end the database holds what was done, kopeck by
/// kopeck.
///
/// Every function is a step of the same day: after one that fails nothing more is done.
class TstWorkday : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void login();
    void threeReceipts();
    void priceOfAnItem();
    void nameInItsList();
    void receiptsAndASlip();
    void shiftIsClosed();
    void shiftsAndTheDay();
    void articles();
    void everyPageAndItsEditors();
    void whatIsDoneNowAndThen();
    void leaving();
    void whatTheDayHasLeft();

private:
    void fillChain();
    void comeBack();
    QWidget *page() const;
    QWidget *open(int key);
    QWidget *openByName(const char *action);
    QString notice() const { return child<QLabel>(page(), "lbNotice")->text(); }
    template<typename T>
    T *in(const char *name) const
    {
        return child<T>(page(), QLatin1String(name));
    }
    void pay(const std::function<void()> &byHand, const std::function<void()> &meanwhile,
             const QString &told);
    const QAbstractItemModel *list() const { return page()->findChild<ListPane *>()->model(); }
    QModelIndex cell(const QString &text) const;
    bool isListed(const QString &text) const { return cell(text).isValid(); }
    void doubleClick(const QString &text);
    void choose(const char *box, const QString &text);

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<TcpProxy> m_line;
    std::unique_ptr<Veltab> m_window;
    Heartbeat m_heart;
    /// Statements that the window's thread has sent since the beginning of the step. Only that thread adds.
    QStringList m_sentByWindow;
    bool m_hasFailed = false;
};

namespace {
const int answerMs = Heartbeat::waitMs;

const char *const bread = "4820000000109";
const char *const cheese = "0000000000116";
const char *const milk = "4820000000130";
const char *const potatoes = "48200014";

bool waitFor(const std::function<bool()> &isDone)
{
    return QTest::qWaitFor(isDone, 20000);
}

/// As a window manager does with a window that comes up.
bool giveKeyboard(QWidget *window)
{
    window->activateWindow();
    return waitFor([window] {
        const QWidget *focus = QApplication::focusWidget();
        return focus != nullptr && focus->window() == window;
    });
}

/// Slower than any scanner.
void typeByHand(const QString &text)
{
    for (const QChar key : text) {
        QTest::qWait(90);
        typeText(key);
    }
    QTest::qWait(90);
}

/// As long as a person needs from one thing to the next.
void lookAround()
{
    QTest::qWait(120);
}
} // namespace

void TstWorkday::initTestCase()
{
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_CONFIG_HOME", m_folder->path().toLocal8Bit());
    m_base = std::make_unique<FreshDatabase>();
    fillChain();
    m_line = std::make_unique<TcpProxy>(m_base->address());
    m_line->setDelay(answerMs);
    writeSettings(m_folder->path(), m_line->address());
    Db::setStatementHook([this](const QString &sql) {
        if (QThread::currentThread() == thread())
            m_sentByWindow.append(sql);
    });
}

void TstWorkday::cleanupTestCase()
{
    m_window.reset();
    Db::setStatementHook({});
    m_line.reset();
    m_base.reset();
}

void TstWorkday::init()
{
    if (m_hasFailed)
        QSKIP("The day ended earlier");
    m_sentByWindow.clear();
    m_heart.restart();
}

void TstWorkday::cleanup()
{
    const qint64 gap = m_heart.longestGap();
    m_hasFailed = m_hasFailed || QTest::currentTestFailed();
    if (m_hasFailed)
        return;
    m_hasFailed = true;
    QCOMPARE(m_sentByWindow, QStringList());
    QVERIFY2(gap < Heartbeat::waitMs, qPrintable(QString("%1 ms").arg(gap)));
    m_hasFailed = false;
}

/// Two shops with registers of one name, goods of all tax groups, and a yesterday with a return.
void TstWorkday::fillChain()
{
    m_base->exec(QStringList{
        "UPDATE users SET pass='x1'", "INSERT INTO group_shop(id,name) VALUES(2,'Центр'),(3,'Захід')",
        "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2),(1,3)",
        "INSERT INTO group_goods(id,name) VALUES(6,'Хлібне'),(7,'Молочне')",
        "INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'Без знижки',0,0,1,0)",
        "INSERT INTO clients(id,group_shop) VALUES(2200000001,1)",
        "INSERT INTO shops(id,address,name,group_shop,count_day_cycle,block) VALUES"
        "(1,'вул. Базарна, 3','Базарна',2,3,0),(2,'просп. Миру, 8',NULL,3,NULL,NULL)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(1,1,'Каса 1',0),(2,2,'Каса 1',NULL)",
        "INSERT INTO users(id,login,pass,key_prem,name,surname,id_g_prem,id_group,id_shop) VALUES"
        "(7,'olena',MD5('Зима 2026'),'0000000042','Олена','Коваль',1,2,1)",
        "INSERT INTO goods(id,name,name_short,price,type,group_g,tax,bonus_disk,block) VALUES"
        "(10,'Хліб житній','Хліб',5000,1,6,1,1,0),(11,'Сир ваговий','Сир',8000,0,7,2,1,0),"
        "(12,'Пакет O''Neil 5%',NULL,1230,1,NULL,NULL,0,NULL),(13,'Молоко','Молоко',3000,1,7,3,1,0),"
        "(14,'Картопля','Картопля',700,0,1,5,0,0),(15,'Сіль','Сіль',1055,1,1,4,1,0)",
        "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(10,'4820000000109'),(11,'0000000000116'),"
        "(13,'4820000000130'),(14,'48200014')",
        "INSERT INTO goods_shop(id_shop,id_goods,count_showroom) SELECT shops.id,goods.id,10000 FROM "
        "shops,goods",
        "INSERT INTO onoffline(id_shop,id_kass,onoff,dt_start,dt_end) VALUES(1,1,1,CURDATE(),NULL),"
        "(1,NULL,1,CURDATE(),NULL),(2,2,0,CURDATE(),NULL)",
        // Yesterday: a sale, a return of two rows, the Z receipt; and a shift of the other register.
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,day,cash,cash_ret,Oborot_A,Oborot_A_ret,"
        "count_cheks,count_cheks_ret,data_time) VALUES"
        "(41,1,1,7,1,10000,5000,10000,5000,1,1,DATE_SUB(CURDATE(),INTERVAL 2 HOUR)),"
        "(9,2,2,1,1,700,0,0,0,1,0,DATE_SUB(CURDATE(),INTERVAL 3 HOUR))",
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,id_good_cln_slujb,name,"
        "count,price,summa,tax,data_time) VALUES"
        "(1,1,41,500,0,7,1,10,'Хліб житній',2000,5000,10000,1,DATE_SUB(CURDATE(),INTERVAL 5 HOUR)),"
        "(1,1,41,500,1,7,3,NULL,NULL,NULL,10000,10000,0,DATE_SUB(CURDATE(),INTERVAL 5 HOUR)),"
        "(1,1,41,501,0,7,5,10,'Хліб житній',500,5000,2500,1,DATE_SUB(CURDATE(),INTERVAL 4 HOUR)),"
        "(1,1,41,501,1,7,5,10,'Хліб житній',500,5000,2500,1,DATE_SUB(CURDATE(),INTERVAL 4 HOUR)),"
        "(1,1,41,502,0,7,10,NULL,NULL,NULL,1,5000,5,DATE_SUB(CURDATE(),INTERVAL 2 HOUR)),"
        "(2,2,9,77,0,1,1,14,'Картопля',1000,700,700,5,DATE_SUB(CURDATE(),INTERVAL 3 HOUR)),"
        "(2,2,9,77,1,1,3,NULL,NULL,NULL,700,700,0,DATE_SUB(CURDATE(),INTERVAL 3 HOUR))"});
}

/// To the main window, as a window manager does when a dialog has gone.
void TstWorkday::comeBack()
{
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

QWidget *TstWorkday::page() const
{
    return child<QTabWidget>(m_window.get(), "tabWidget")->currentWidget();
}

QWidget *TstWorkday::open(int key)
{
    comeBack();
    pressKeys({key});
    lookAround();
    return page();
}

QWidget *TstWorkday::openByName(const char *action)
{
    comeBack();
    child<QAction>(m_window.get(), QLatin1String(action))->trigger();
    lookAround();
    return page();
}

/// The first cell of the list in front that shows this text.
QModelIndex TstWorkday::cell(const QString &text) const
{
    for (int row = 0; row < list()->rowCount(); ++row) {
        for (int column = 0; column < list()->columnCount(); ++column) {
            const QModelIndex index = list()->index(row, column);
            if (index.data().toString() == text)
                return index;
        }
    }
    return {};
}

void TstWorkday::doubleClick(const QString &text)
{
    const QModelIndex index = cell(text);
    QNTableView *view = page()->findChild<ListPane *>()->view();
    view->scrollTo(index);
    const QPoint centre = view->visualRect(index).center();
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, centre);
    lookAround();
}

/// By the keyboard: the letters of what is wanted.
void TstWorkday::choose(const char *box, const QString &text)
{
    auto *choice = in<QComboBox>(box);
    QVERIFY(waitFor([&] { return choice->findText(text) >= 0; }));
    choice->setFocus();
    typeText(text);
    QCOMPARE(choice->currentText(), text);
    lookAround();
}

/// The first password is wrong; the hand does not wait until it is told so.
void TstWorkday::login()
{
    m_window = std::make_unique<Veltab>(m_folder->path());
    const auto start = [this] {
        m_window->show();
        QVERIFY(waitFor([this] { return m_window->isReady(); }));
    };
    QVERIFY(withModal<QSelUser>(
        start,
        [](QSelUser *dialog) {
            const QPointer<QSelUser> open(dialog);
            QVERIFY(giveKeyboard(dialog));
            typeText("olena");
            pressKeys({Qt::Key_Tab});
            typeText("Зима 2025");
            pressKeys({Qt::Key_Return});
            QVERIFY(waitFor([dialog] { return !child<QLabel>(dialog, "labelWait")->text().isEmpty(); }));
            typeText("Зима 2026");
            pressKeys({Qt::Key_Return, Qt::Key_Return});
            QVERIFY(waitFor([&open] { return open.isNull() || !open->isVisible(); }));
        },
        20000));
    QCOMPARE(child<QLabel>(m_window.get(), "labelUser")->text(), QString("Користувач: Олена Коваль"));
    comeBack();
    waitOutTasks();
}

/// F9, what the hand does in the payment, what it does while the receipt is being written, and what is told
/// then.
void TstWorkday::pay(const std::function<void()> &byHand, const std::function<void()> &meanwhile,
                     const QString &told)
{
    const auto act = [&] {
        pressKeys({Qt::Key_F9});
        QVERIFY2(waitFor([&] { return notice().startsWith(told); }), qPrintable(notice()));
    };
    QVERIFY(withModal<QPayment>(
        act,
        [&](QPayment *form) {
            QVERIFY(giveKeyboard(form));
            waitOutGuard();
            byHand();
            QVERIFY(!form->isVisible());
            QTimer::singleShot(30, this, [this, meanwhile] {
                comeBack();
                meanwhile();
            });
        },
        20000));
}

void TstWorkday::threeReceipts()
{
    open(Qt::CTRL + Qt::Key_1);
    QVERIFY(waitFor([this] { return in<QLabel>("lbShift")->text().startsWith("Зміна буде відкрита"); }));
    const auto *rows = in<QNTableView>("viewChek")->model();
    for (const char *code : {bread, bread, milk})
        scan(code);
    QVERIFY2(waitFor([this] { return in<QLabel>("lbToPay")->text() == "130.00"; }),
             qPrintable(in<QLabel>("lbToPay")->text() + notice()));
    pay(
        [] {
            typeByHand("200");
            pressKeys({Qt::Key_Return});
        },
        [] { scan(bread); }, "Чек № 503, 130.00, решта 70.00");
    QVERIFY(waitFor([rows] { return rows->rowCount() == 1; }));
    scan(cheese);
    QVERIFY(waitFor([rows] { return rows->rowCount() == 2; }));
    pay(
        [] {
            pressKeys({Qt::Key_F6, Qt::Key_Return});
        },
        [] {
            scan(potatoes);
            scan(milk);
        },
        "Чек № 504, 130.00");
    QVERIFY(waitFor([rows] { return rows->rowCount() == 2; }));
    // By name, since salt has no barcode; three of it.
    QTest::mouseClick(in<QWidget>("rbName"), Qt::LeftButton);
    typeText("Сіл");
    lookAround();
    pressKeys({Qt::Key_Return});
    QVERIFY(waitFor([rows] { return rows->rowCount() == 3; }));
    pressKeys({Qt::Key_F2});
    typeByHand("3");
    pressKeys({Qt::Key_Return});
    // 7.00 and 30.00 and three times 10.55.
    pay(
        [] {
            typeByHand("100");
            pressKeys({Qt::Key_Return});
        },
        [] {}, "Чек № 505, 68.65, решта 31.35");
    waitOutTasks();
}

void TstWorkday::priceOfAnItem()
{
    open(Qt::CTRL + Qt::Key_4);
    typeText("моло");
    QVERIFY(waitFor([this] { return list()->rowCount() == 1 && isListed("Молоко"); }));
    QVERIFY(withModal<QAddEdtGoods>(
        [this] {
            doubleClick("Молоко");
            QVERIFY(waitFor([this] { return isListed("31.50"); }));
        },
        [](QAddEdtGoods *editor) {
            QVERIFY(giveKeyboard(editor));
            auto *price = child<QLineEdit>(editor, "lePrice");
            QVERIFY(waitFor([price] { return price->text() == "30.00"; }));
            QTest::mouseClick(price, Qt::LeftButton);
            price->selectAll();
            typeByHand("31,5");
            const QPointer<QDialog> open(editor);
            QTest::mouseClick(child<QPushButton>(editor, "pbOk"), Qt::LeftButton);
            QVERIFY(waitFor([&open] { return open.isNull() || !open->isVisible(); }));
        },
        20000));
    waitOutTasks();
}

void TstWorkday::nameInItsList()
{
    openByName("mt_group_shops");
    QVERIFY(waitFor([this] { return isListed("Захід"); }));
    doubleClick("Захід");
    QVERIFY(waitFor([] { return qobject_cast<QLineEdit *>(QApplication::focusWidget()) != nullptr; }));
    pressKeys({Qt::CTRL + Qt::Key_A});
    typeText("Захід, Тернопіль");
    pressKeys({Qt::Key_Return});
    QVERIFY(waitFor([this] { return isListed("Захід, Тернопіль"); }));
    waitOutTasks();
}

void TstWorkday::receiptsAndASlip()
{
    openByName("mz_cheks");
    QVERIFY(waitFor([this] { return in<QComboBox>("cbGroup")->count() > 0; }));
    QTest::mouseClick(in<QPushButton>("pbLoad"), Qt::LeftButton);
    QVERIFY(waitFor([this] { return isListed("505"); }));
    doubleClick("503");
    QVERIFY(waitFor([this] {
        const QString slip = in<QTextBrowser>("tbSlip")->toPlainText();
        return slip.contains("503") && slip.contains("Молоко") && slip.contains("130.00");
    }));
    doubleClick("504");
    doubleClick("505");
    QVERIFY(waitFor([this] { return in<QTextBrowser>("tbSlip")->toPlainText().contains("Сіль"); }));
    waitOutTasks();
}

void TstWorkday::shiftIsClosed()
{
    open(Qt::CTRL + Qt::Key_1);
    QVERIFY(withModal<QPayment>(
        [this] {
            pressKeys({Qt::Key_F12});
            QVERIFY2(waitFor([this] { return notice() == "Зміну № 42 закрито."; }), qPrintable(notice()));
        },
        [](QPayment *form) {
            QVERIFY(giveKeyboard(form));
            waitOutGuard();
            QTest::mouseClick(child<QPushButton>(form, "pbOk"), Qt::LeftButton);
        },
        20000));
    QVERIFY(waitFor([this] { return in<QLabel>("lbShift")->text().startsWith("Зміна буде відкрита"); }));
    waitOutTasks();
}

void TstWorkday::shiftsAndTheDay()
{
    openByName("mz_zzvit");
    QTest::mouseClick(in<QPushButton>("pbLoad"), Qt::LeftButton);
    QVERIFY(waitFor([this] { return isListed("42"); }));
    openByName("mz_StatisticOnLine");
    choose("cbGroup", "Центр");
    choose("cbShop", "вул. Базарна, 3 Базарна");
    QTest::mouseClick(in<QPushButton>("pbLoad"), Qt::LeftButton);
    QVERIFY(waitFor([this] { return list()->rowCount() > 0; }));
    waitOutTasks();
}

void TstWorkday::articles()
{
    openByName("mz_art_zvit");
    QVERIFY(waitFor([this] { return in<QComboBox>("cbGroup")->count() > 0; }));
    QTest::mouseClick(in<QPushButton>("pbLoad"), Qt::LeftButton);
    QVERIFY(waitFor([this] { return isListed("Картопля"); }));
    waitOutTasks();
}

/// What the day has not touched; at a quick line, since each statement of the window's thread is told anyway.
void TstWorkday::everyPageAndItsEditors()
{
    m_line->setDelay(10);
    comeBack();
    const auto actions = m_window->openingActions();
    for (QAction *action : actions) {
        action->trigger();
        auto *opened = dynamic_cast<Page *>(page());
        QVERIFY(waitFor([opened] { return !opened->isLoading() && DbTasks::isIdle(); }));
        if (!opened->isOffered(Command::Edit) || opened->commands().value(Command::Edit) != QString())
            continue;
        page()->findChild<QTableView *>()->selectRow(0);
        for (const Command command : {Command::Edit, Command::Add}) {
            withModal<QDialog>(
                [&] {
                    opened->run(command);
                    waitOutTasks();
                },
                [](QDialog *editor) {
                    waitOutTasks();
                    editor->reject();
                });
        }
    }
    waitOutTasks();
    m_line->setDelay(answerMs);
}

/// Password, settings, tables, indexes, another user: all of it beside open pages.
void TstWorkday::whatIsDoneNowAndThen()
{
    m_line->setDelay(10);
    comeBack();
    const auto press = [this](const char *action) {
        child<QAction>(m_window.get(), QLatin1String(action))->trigger();
    };
    QVERIFY(withModal<QChangPass>([&] { press("changpass"); },
                                  [](QChangPass *dialog) {
                                      const QPointer<QChangPass> open(dialog);
                                      QVERIFY(giveKeyboard(dialog));
                                      typeText("Зима 2026");
                                      pressKeys({Qt::Key_Tab});
                                      typeText("Весна");
                                      pressKeys({Qt::Key_Tab});
                                      typeText("Весна");
                                      pressKeys({Qt::Key_Return, Qt::Key_Return, Qt::Key_Escape});
                                      waitOutTasks();
                                      QVERIFY(open.isNull() || !open->isVisible());
                                  }));
    QVERIFY(withModal<setting>([&] { press("settings"); }, [](setting *dialog) { dialog->reject(); }));
    const auto waitOutAll = [] {
        waitOutTasks();
        waitOutJobs();
    };
    answerConfirm(
        [&] {
            press("mt_tune");
            waitOutAll();
        },
        false);
    const auto isTold = [](const std::function<void()> &act) {
        bool is = false;
        withModal<QQestion>(
            [&] {
                act();
                waitFor([&is] { return is; });
            },
            [&is](QQestion *question) {
                is = true;
                question->accept();
            },
            20000);
        return is;
    };
    QVERIFY(isTold([&] { press("mt_create_tables"); }));
    waitOutAll();
    m_window->readRights();
    waitOutAll();
    auto *opened = dynamic_cast<Page *>(page());
    QVERIFY(waitFor([opened] { return !opened->isLoading(); }));
    waitOutAll();
    QVERIFY2(isTold([&] { press("login"); }), "pages are open");
    QVERIFY(isTold([this] { postMessage(m_window.get(), "Помилка запиту:"); }));
    {
        const Heartbeat::Pause pause(&m_heart);
        QCOMPARE(m_base->value("SELECT pass=MD5('Весна') FROM users WHERE id=7"), QString("1"));
    }
    m_line->setDelay(answerMs);
}

void TstWorkday::leaving()
{
    comeBack();
    pressKeys({Qt::CTRL + Qt::SHIFT + Qt::Key_W});
    QVERIFY(waitFor([this] { return page() == nullptr; }));
    comeBack();
    pressKeys({Qt::CTRL + Qt::Key_Q});
    QVERIFY(!m_window->isVisible());
    m_window.reset();
}

void TstWorkday::whatTheDayHasLeft()
{
    const Heartbeat::Pause pause(&m_heart);
    // Bread three times, cheese, milk twice, potatoes, salt three times; the other shop sold nothing.
    QCOMPARE(
        m_base->rows("SELECT id_shop,id_goods,count_showroom FROM goods_shop WHERE count_showroom<>10000 "
                     "ORDER BY 1,2"),
        (QStringList{"1|10|7000", "1|11|9000", "1|13|8000", "1|14|9000", "1|15|7000"}));
    QCOMPARE(
        m_base->rows(
            "SELECT id_chek,id_good_cln_slujb,SUM(count),SUM(summa),MAX(tax) FROM cheks WHERE id_chek>502 "
            "AND id_type=1 AND id_kass=1 GROUP BY 1,2 ORDER BY 1,2"),
        (QStringList{"503|10|2000|10000|1", "503|13|1000|3000|3", "504|10|1000|5000|1", "504|11|1000|8000|2",
                     "505|13|1000|3000|3", "505|14|1000|700|5", "505|15|3000|3165|4"}));
    // In cash, by card; the Z receipt.
    QCOMPARE(m_base->rows(
                 "SELECT id_chek,id_type,price,tax,summa,id_zvit,id_user FROM cheks WHERE id_chek>502 AND "
                 "id_type<>1 ORDER BY 1"),
             (QStringList{"503|3|13000|0|13000|42|7", "504|3|0|13000|13000|42|7", "505|3|6865|0|6865|42|7",
                          "506|10|1|5|32865|42|7"}));
    QCOMPARE(m_base->rows(
                 "SELECT id_shop,id_user,cash,beznal_1,Oborot_A,Oborot_B,Oborot_V,Oborot_G,Oborot_D,"
                 "count_cheks,summ_diskount,viluchenia,data_time>CURDATE() FROM z_zvit WHERE id_kass=1 AND "
                 "id_zzvit=42"),
             QStringList("1|7|19865|13000|15000|8000|6000|3165|700|3|0|19865|1"));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM cheks"), QString("19"));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM z_zvit"), QString("3"));
    QCOMPARE(m_base->value("SELECT price FROM goods WHERE id=13"), QString("3150"));
    QCOMPARE(m_base->value("SELECT name FROM group_shop WHERE id=3"), QString("Захід, Тернопіль"));
}

QTEST_MAIN(TstWorkday)
#include "tst_workday.moc"
