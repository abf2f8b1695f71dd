#include "qregistersale.h"

#include "heartbeat.h"
#include "moneyspinbox.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qpayment.h"
#include "saleshop.h"
#include "tcpproxy.h"

#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

namespace {
const char *const bread = "4820000000109";
const char *const milk = "4820000000130";
const char *const potatoes = "48200014";
const char *const unknown = "4820000009999";
} // namespace

/// The sale tab at a server whose answers take their time, or do not come, in hands that do not wait.
class TstSlowSale : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void longReceipt();
    void whatWaitsForAnItem();
    void unknownItemStopsWhatFollows();
    void handsWhileItIsWritten();
    void scannedBehindAFailure();
    void scansOfAnOpeningTab();
    void leftBehindAScan();
    void silentWhileItIsWritten();
    void closingMeanwhile();
    void rightsGoMeanwhile();
    void tabGoesMeanwhile_data();
    void tabGoesMeanwhile();

private:
    void openTab();
    void scanAll(std::initializer_list<const char *> codes);
    void pay(const std::function<void()> &meanwhile = {});
    bool isNoticed(const char *words) { return notice().contains(QString::fromUtf8(words)); }
    QString notice() const { return in<QLabel>("lbNotice")->text(); }
    int rowCount() const { return in<QNTableView>("viewChek")->model()->rowCount(); }
    QString shownRows() const;
    QStringList written();
    template<typename T>
    T *in(const char *name) const
    {
        return child<T>(m_tab.get(), QString::fromLatin1(name));
    }

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<TcpProxy> m_proxy;
    QSqlDatabase m_window;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QRegisterSale> m_tab;
};

void TstSlowSale::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec({QStringLiteral("UPDATE users SET id_shop=1 WHERE id=1"),
                  QStringLiteral("UPDATE shops SET count_day_cycle=30 WHERE id=1")});
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
}

void TstSlowSale::init()
{
    resetSaleShop(m_base.get());
    m_base->exec({QStringLiteral("UPDATE goods_shop SET count_showroom=1000000"),
                  QStringLiteral("UPDATE lst_permis SET permission=1 WHERE id_prem=101")});
    QVERIFY(m_user->loadpermis(m_base->connection(), QStringLiteral("admin"), QString()));
    m_proxy = std::make_unique<TcpProxy>(testServer());
    DatabaseAddress address = m_proxy->address();
    address.name = m_base->address().name;
    address.readSeconds = 1;
    m_window = addConnection(QStringLiteral("slow"), address);
    openTab();
    waitOutTasks();
    m_base->heard.forget();
}

void TstSlowSale::openTab()
{
    m_tab = std::make_unique<QRegisterSale>(&m_window, m_user.get(), &m_base->heard, nullptr, nullptr);
    m_tab->resize(1200, 800);
    QVERIFY(showActive(m_tab.get()));
}

void TstSlowSale::cleanup()
{
    Db::setStatementHook({});
    Db::setStatementRefusal({});
    m_proxy->setSilent(false);
    m_proxy->setDelay(0);
    waitOutTasks();
    m_tab.reset();
    waitOutTasks();
    m_window = QSqlDatabase();
    QSqlDatabase::removeDatabase(QStringLiteral("slow"));
    m_proxy.reset();
}

void TstSlowSale::cleanupTestCase()
{
    m_user.reset();
    m_base.reset();
}

/// Without a pause.
void TstSlowSale::scanAll(std::initializer_list<const char *> codes)
{
    for (const char *code : codes)
        scan(QString::fromLatin1(code));
}

/// F9, all in cash; meanwhile: right behind OK. Waits for the end.
void TstSlowSale::pay(const std::function<void()> &meanwhile)
{
    bool isPaid = false;
    QVERIFY(withModal<QPayment>(
        [&] {
            pressKeys({Qt::Key_F9});
            QVERIFY(QTest::qWaitFor([&] { return isPaid; }, 10000));
            m_tab->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(m_tab.get()));
            if (meanwhile)
                meanwhile();
            waitOutTasks();
        },
        [&](QPayment *form) {
            child<QPushButton>(form, QStringLiteral("pbRestCash"))->click();
            form->ok();
            isPaid = true;
        },
        10000));
}

/// "10*1 13*2": goods and quantities.
QString TstSlowSale::shownRows() const
{
    QStringList rows;
    const auto *model = in<QNTableView>("viewChek")->model();
    for (int row = 0; row < model->rowCount(); ++row)
        rows.append(model->index(row, 0).data().toString() + QLatin1Char('*') +
                    model->index(row, 9).data().toString());
    return rows.join(QLatin1Char(' '));
}

/// A line a receipt: its goods and their thousandths, then what was paid.
QStringList TstSlowSale::written()
{
    return m_base->rows(QStringLiteral(
        "SELECT GROUP_CONCAT(IF(id_type=1,CONCAT(id_good_cln_slujb,'*',count),CONCAT('=',summa)) ORDER BY "
        "id_position SEPARATOR ' ') FROM cheks WHERE id_type<>10 GROUP BY id_kass,id_chek"));
}

/// Fifty scans without a pause and F9 right behind the last: nothing is lost, doubled or changes its place,
/// and the window is alive all the time.
void TstSlowSale::longReceipt()
{
    constexpr int ofEach = 25;
    m_proxy->setDelay(15);
    Heartbeat heart;
    heart.restart();
    for (int i = 0; i < ofEach; ++i)
        scanAll({bread, milk});
    pay([this] { pressKeys({Qt::Key_F9}); });
    const qint64 gap = heart.longestGap();
    const QString pair = QStringLiteral("10*1000 13*1000 ");
    QCOMPARE(written(), QStringList{pair.repeated(ofEach) + QStringLiteral("=%1").arg(ofEach * 8000)});
    QCOMPARE(rowCount(), 0);
    QVERIFY(isNoticed("Чек № 1, 2"));
    QVERIFY2(gap < Heartbeat::waitMs, qPrintable(QString::number(gap)));
}

/// Plus, asterisk with its digits, Delete and F9 mean the item that was scanned before them.
void TstSlowSale::whatWaitsForAnItem()
{
    m_proxy->setDelay(25);
    scanAll({bread});
    pressKeys({Qt::Key_Asterisk});
    typeText(QStringLiteral("3"));
    pressKeys({Qt::Key_Return});
    scanAll({milk});
    pressKeys({Qt::Key_Plus});
    scanAll({potatoes, milk});
    pressKeys({Qt::Key_Delete});
    QCOMPARE(rowCount(), 0);
    pay();
    QCOMPARE(written(), QStringList{QStringLiteral("10*3000 13*2000 14*1000 =21700")});
    QCOMPARE(in<QLineEdit>("leSearch")->text(), QString());
    // A receipt that somebody leaves right behind a scan is asked about.
    scanAll({bread});
    QVERIFY(!answerConfirm(
                 [this] {
                     in<QComboBox>("cbKass")->setCurrentIndex(1);
                     QCOMPARE(in<QComboBox>("cbKass")->currentIndex(), 0);
                     waitOutTasks();
                 },
                 false)
                 .isEmpty());
    QCOMPARE(shownRows(), QStringLiteral("10*1"));
    QCOMPARE(in<QComboBox>("cbKass")->currentIndex(), 0);
}

/// What was decided for an item that does not come is not done to another one.
void TstSlowSale::unknownItemStopsWhatFollows()
{
    scanAll({bread});
    waitOutTasks();
    m_proxy->setDelay(25);
    scanAll({unknown});
    pressKeys({Qt::Key_Asterisk});
    typeText(QStringLiteral("5"));
    pressKeys({Qt::Key_Return, Qt::Key_F9});
    scanAll({milk});
    waitOutTasks();
    QCOMPARE(shownRows(), QStringLiteral("10*1 13*1"));
    QVERIFY(isNoticed("«4820000009999» не знайдено"));
    QCOMPARE(written(), QStringList());
}

/// The receipt is what was paid, whatever is pressed; scans are the next one, letters stay where they are.
void TstSlowSale::handsWhileItIsWritten()
{
    scanAll({bread});
    waitOutTasks();
    m_proxy->setDelay(25);
    pay([this] {
        scanAll({milk, potatoes});
        const QVector<std::function<void()>> acts = {
            [] { pressKeys({Qt::Key_F9}); },
            [] { pressKeys({Qt::Key_F12}); },
            [] { pressKeys({Qt::Key_Plus}); },
            [] { pressKeys({Qt::Key_Delete}); },
            [] { pressKeys({Qt::Key_Escape}); },
            [this] { in<QPushButton>("pbClear")->click(); },
            [this] { in<QPushButton>("pbPeriod")->click(); },
            [this] { in<QComboBox>("cbKass")->setCurrentIndex(1); },
            [this] { in<QDateEdit>("dateEdit")->setDate(QDate(2026, 1, 2)); },
            [this] { m_tab->close(); },
        };
        for (const auto &act : acts) {
            act();
            QVERIFY2(isNoticed("Записується…"), qPrintable(notice()));
            QVERIFY(m_tab->isVisible());
            QCOMPARE(shownRows(), QStringLiteral("10*1"));
            QCOMPARE(in<QComboBox>("cbKass")->currentIndex(), 0);
        }
        // The focus is wherever it is.
        in<QNTableView>("viewGoods")->setFocus();
        scanAll({milk});
        in<QLineEdit>("leSearch")->setFocus();
        typeText(QStringLiteral("Хл"));
    });
    QTRY_COMPARE(shownRows(), QStringLiteral("13*1 14*1.000 13*1"));
    QVERIFY2(isNoticed("Чек № 1, 50.00"), qPrintable(notice()));
    QCOMPARE(in<QLineEdit>("leSearch")->text(), QStringLiteral("Хл"));
    typeText(QStringLiteral("іб"));
    QCOMPARE(in<QLineEdit>("leSearch")->text(), QStringLiteral("Хліб"));
    QCOMPARE(in<QDateEdit>("dateEdit")->date(), QDate::currentDate());
    pay();
    QCOMPARE(written(),
             (QStringList{QStringLiteral("10*1000 =5000"), QStringLiteral("13*1000 14*1000 13*1000 =6700")}));
}

/// The receipt stays as it was paid; what was scanned behind it is the next buyer's.
void TstSlowSale::scannedBehindAFailure()
{
    scanAll({bread});
    waitOutTasks();
    m_proxy->setDelay(20);
    Db::setStatementRefusal(
        [](const QString &sql) { return sql.startsWith(QLatin1String("UPDATE goods_shop")) ? 1205 : 0; });
    pay([this] { scanAll({milk}); });
    Db::setStatementRefusal({});
    QVERIFY2(isNoticed("Залишки зараз записує інша програма"), qPrintable(notice()));
    QVERIFY(isNoticed("чекає на наступний чек"));
    scanAll({potatoes});
    waitOutTasks();
    QCOMPARE(shownRows(), QStringLiteral("10*1"));
    pay();
    QTRY_COMPARE(shownRows(), QStringLiteral("13*1 14*1.000"));
    QCOMPARE(written(), QStringList{QStringLiteral("10*1000 =5000")});
    // Thrown away, it makes room for them, too.
    Db::setStatementRefusal(
        [](const QString &sql) { return sql.startsWith(QLatin1String("UPDATE goods_shop")) ? 1205 : 0; });
    pay([this] { scanAll({bread}); });
    Db::setStatementRefusal({});
    pressKeys({Qt::Key_Escape});
    QVERIFY(!answerConfirm(
                 [] {
                     pressKeys({Qt::Key_Escape});
                     waitOutTasks();
                 },
                 true)
                 .isEmpty());
    QTRY_COMPARE(shownRows(), QStringLiteral("10*1"));
}

/// Shops are still read when somebody scans: the goods come when it is known where.
void TstSlowSale::scansOfAnOpeningTab()
{
    m_tab.reset();
    waitOutTasks();
    m_proxy->setDelay(25);
    Heartbeat heart;
    heart.restart();
    openTab();
    scanAll({bread, milk});
    pressKeys({Qt::Key_F9});
    QTRY_COMPARE(shownRows(), QStringLiteral("10*1 13*1"));
    const qint64 gap = heart.longestGap();
    QCOMPARE(written(), QStringList());
    QVERIFY2(gap < Heartbeat::waitMs, qPrintable(QString::number(gap)));
}

/// The receipt is not lost because its item was on its way: the tab is closed again when that has come.
void TstSlowSale::leftBehindAScan()
{
    QTabWidget tabs;
    tabs.addTab(m_tab.get(), QString());
    const auto close = [&] {
        if (m_tab->mayClose())
            m_tab.reset();
    };
    connect(m_tab.get(), &QRegisterSale::closeWanted, this, close, Qt::QueuedConnection);
    QVERIFY(showActive(&tabs));
    in<QLineEdit>("leSearch")->setFocus();
    m_proxy->setDelay(25);
    const auto scanAndClose = [&] {
        scanAll({bread});
        close();
        QVERIFY(m_tab != nullptr);
        waitOutTasks();
        QTest::qWait(10);
    };
    QVERIFY(answerConfirm(scanAndClose, false).contains(QStringLiteral("чек ще не оплачено")));
    QCOMPARE(shownRows(), QStringLiteral("10*1"));
    QVERIFY(!answerConfirm(close, true).isEmpty());
    QVERIFY(m_tab == nullptr);
}

/// The window is alive, the end is unclear, and the server is asked before anything else: in the end there is
/// one receipt.
void TstSlowSale::silentWhileItIsWritten()
{
    scanAll({bread});
    waitOutTasks();
    Db::setStatementHook([this](const QString &sql) {
        if (sql == QLatin1String("COMMIT"))
            m_proxy->setSilent(true);
    });
    Heartbeat heart;
    heart.restart();
    pay();
    const qint64 gap = heart.longestGap();
    Db::setStatementHook({});
    QVERIFY2(gap < Heartbeat::waitMs, qPrintable(QString::number(gap)));
    QVERIFY2(isNoticed("невідомо, чи його записано"), qPrintable(notice()));
    QCOMPARE(shownRows(), QStringLiteral("10*1"));
    m_proxy->setSilent(false);
    const auto isKnown = [this] {
        // Until the server has ended what it still holds, and the connection is there again.
        pressKeys({Qt::Key_Plus});
        waitOutTasks();
        return !isNoticed("невідомо");
    };
    QVERIFY(QTest::qWaitFor(isKnown, 20000));
    if (rowCount() != 0) {
        QCOMPARE(shownRows(), QStringLiteral("10*2"));
        pay();
    }
    QVERIFY2(isNoticed("Чек № 1"), qPrintable(notice()));
    QCOMPARE(written().size(), 1);
}

/// F12 twice, and whatever else: the shift is closed once.
void TstSlowSale::closingMeanwhile()
{
    scanAll({bread});
    waitOutTasks();
    pay();
    m_proxy->setDelay(25);
    Heartbeat heart;
    heart.restart();
    int forms = 0;
    bool isCounted = false;
    QVERIFY(withModal<QPayment>(
        [&] {
            pressKeys({Qt::Key_F12, Qt::Key_F12, Qt::Key_F9});
            QVERIFY(QTest::qWaitFor([&] { return isCounted; }, 5000));
            m_tab->activateWindow();
            QVERIFY(QTest::qWaitForWindowActive(m_tab.get()));
            scanAll({milk});
            pressKeys({Qt::Key_F12, Qt::Key_F9});
            QVERIFY2(isNoticed("Записується…"), qPrintable(notice()));
            waitOutTasks();
        },
        [&](QPayment *form) {
            ++forms;
            child<QPushButton>(form, QStringLiteral("pbOk"))->click();
            isCounted = true;
        }));
    const qint64 gap = heart.longestGap();
    QCOMPARE(forms, 1);
    QCOMPARE(m_base->rows(QStringLiteral("SELECT summa FROM cheks WHERE id_type=10")),
             QStringList{QStringLiteral("5000")});
    QTRY_COMPARE(shownRows(), QStringLiteral("13*1"));
    QVERIFY2(isNoticed("Зміну № 1 закрито."), qPrintable(notice()));
    QCOMPARE(in<QLabel>("lbShift")->text(), QStringLiteral("Зміна буде відкрита першим чеком."));
    QVERIFY2(gap < Heartbeat::waitMs, qPrintable(QString::number(gap)));
}

/// Before it is paid it is not sold; what was paid is written.
void TstSlowSale::rightsGoMeanwhile()
{
    const auto withdraw = [this] {
        m_base->exec(QStringLiteral("UPDATE lst_permis SET permission=2 WHERE id_prem=101"));
        QVERIFY(m_user->reload(m_base->connection()));
    };
    scanAll({bread});
    waitOutTasks();
    m_proxy->setDelay(25);
    pay(withdraw);
    QCOMPARE(written(), QStringList{QStringLiteral("10*1000 =5000")});
    QCOMPARE(rowCount(), 0);
    scanAll({milk});
    waitOutTasks();
    QCOMPARE(rowCount(), 0);
    m_base->exec(QStringLiteral("UPDATE lst_permis SET permission=1 WHERE id_prem=101"));
    QVERIFY(m_user->reload(m_base->connection()));
    scanAll({milk});
    waitOutTasks();
    pressKeys({Qt::Key_F9});
    withdraw();
    waitOutTasks();
    QVERIFY2(isNoticed("Лише перегляд"), qPrintable(notice()));
    QCOMPARE(written().size(), 1);
}

void TstSlowSale::tabGoesMeanwhile_data()
{
    QTest::addColumn<int>("receipts");
    QTest::newRow("an item") << 0;
    QTest::newRow("the check") << 0;
    QTest::newRow("the writing") << 1;
}

/// The window ends it without asking: what was paid is written, and nothing speaks to what is gone.
void TstSlowSale::tabGoesMeanwhile()
{
    QFETCH(int, receipts);
    const QByteArray what = QTest::currentDataTag();
    scanAll({bread});
    waitOutTasks();
    m_proxy->setDelay(25);
    const auto end = [this] { m_tab.reset(); };
    if (what == "the writing") {
        pay(end);
    } else {
        if (what == "an item")
            scanAll({milk});
        pressKeys({Qt::Key_F9});
        end();
    }
    waitOutTasks();
    QCOMPARE(written().size(), receipts);
    QCOMPARE(m_base->value(QStringLiteral("SELECT COUNT(*) FROM z_zvit WHERE cash=5000")),
             QString::number(receipts));
}

QTEST_MAIN(TstSlowSale)
#include "tst_slowsale.moc"
