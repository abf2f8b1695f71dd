#include "qcloseperiod.h"

#include "periodmodel.h"
#include "periodreader.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qpayment.h"
#include "qqestion.h"
#include "qregistersale.h"
#include "saleshop.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <utility>

namespace {
const QDateTime evening(QDate(2026, 11, 21), QTime(20, 15, 7));
const char *const cheese = "0000000000116";
const char *const zShift = "SELECT day,data_time=0 FROM z_zvit WHERE id_kass=1 ORDER BY id_zzvit";
/// The document of a count: what stands in its rows.
const char *const document = "SELECT id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,"
                             "id_good_cln_slujb,name,strihcode,count,price,summa,tax,type,id_type_action,"
                             "sumdisc,dis_bon_bez2,bonus_plus,data_time FROM cheks WHERE id_type=7 ORDER BY "
                             "id_kass,id_chek,id_position";
} // namespace

/// The period of shop 1 is closed on its third day: cheese (11, rule 2), potatoes (14, rule 3) are counted.
class TstQClosePeriod : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void sheetTellsThePeriod();
    void countedByScannerAndHand();
    void restByTheProgram();
    void shiftFollows();
    void cancelledCountWritesNothing();
    void nothingLeftUncounted();
    void listIsCountedByEnterAlone();
    void soldMeanwhile();
    void lostAnswer();
    void otherHands();
    void rightGone();
    void failureWritesNothing();
    void closedShift();
    void closedOnce();
    void absentUser();
    void blockedRegister();

private:
    void openTab();
    /// Presses the button of the period and works in the dialog; false when none has opened.
    bool closePeriod(const std::function<void(QClosePeriod *)> &work);
    QString stock()
    {
        return m_base
            ->rows("SELECT id_goods,count_showroom,count_syllable FROM goods_shop WHERE "
                   "id_shop=1 AND id_goods IN (10,11,14) ORDER BY 1")
            .join(' ');
    }
    QString notice() const { return child<QLabel>(m_tab.get(), "lbNotice")->text(); }
    void sell(int goods, int kass = 1);

    /// What was told behind the dialog.
    QStringList m_warned;
    const ClockAt m_clock{evening};
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QRegisterSale> m_tab;
};

namespace {
QString told(const QWidget *dialog)
{
    return child<QLabel>(dialog, "labelTold")->text();
}

/// "Name program counted difference sold store", a row each.
QString shownRows(const QClosePeriod *dialog)
{
    const QAbstractItemModel *model = child<QNTableView>(dialog, "viewLines")->model();
    QStringList rows;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = PeriodModel::Name; column < PeriodModel::PeriodCount; ++column)
            cells.append(model->index(row, column).data().toString());
        rows.append(cells.join(' '));
    }
    return rows.join("; ");
}

/// Cheese by scanner, potatoes by name.
void countAll(QClosePeriod *dialog, const char *ofCheese, const char *ofPotatoes)
{
    scan(dialog, cheese);
    typeText(ofCheese);
    pressKeys({Qt::Key_Return});
    typeText("карт");
    pressKeys({Qt::Key_Return});
    typeText(ofPotatoes);
    pressKeys({Qt::Key_Return});
    QTRY_VERIFY(child<QLabel>(dialog, "labelSums")->text().contains("Пораховано позицій: 2 з 2"));
}

/// A question that was answered leaves the tab in front here, as no window manager does.
void type(QClosePeriod *dialog, const QString &text, int key)
{
    QVERIFY(showActive(dialog));
    typeText(text);
    pressKeys({key});
}

/// Until it is written or refused.
void press(QClosePeriod *dialog, int key)
{
    type(dialog, QString(), key);
    waitOutTasks();
}
} // namespace

void TstQClosePeriod::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
    m_base->exec({"UPDATE users SET id_shop=1 WHERE id=1", "UPDATE goods SET id_rules_goods=2 WHERE id=11",
                  "UPDATE goods SET id_rules_goods=3 WHERE id=14",
                  // Written off, and of another shop only.
                  "UPDATE goods SET id_rules_goods=4 WHERE id=13",
                  "UPDATE goods SET id_rules_goods=3 WHERE id=12",
                  "DELETE FROM goods_shop WHERE id_goods=12 AND id_shop=1"});
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
}

/// Sold on the first day of the period and today; before it, and in the other shop, too.
void TstQClosePeriod::init()
{
    resetSaleShop(m_base.get());
    m_base->exec(
        {"UPDATE goods_shop SET count_syllable=500", "UPDATE lst_permis SET permission=1 WHERE id_prem=101",
         "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,day,data_time) VALUES(1,1,1,1,3,20261118200000),"
         "(2,1,1,1,1,20261119200000),(3,1,1,1,2,20261120200000),(4,1,1,1,3,0),(1,1,2,1,2,0),(1,2,4,1,1,0)",
         "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,id_good_cln_slujb,count,summa,"
         "data_time) VALUES(1,1,1,1,0,1,11,9000,1,20261118120000),(1,1,2,2,0,1,11,1000,1,20261119090000),"
         "(1,1,2,2,1,1,10,7000,1,20261119090000),(1,1,4,3,0,1,14,2500,1,20261121090000),"
         "(1,1,4,4,0,6,14,500,1,20261121100000),(1,2,1,1,0,1,11,250,1,20261120090000),"
         "(1,2,1,2,0,1,11,100,1,20261118090000),(2,4,1,1,0,1,11,4000,1,20261120090000)"});
    m_warned.clear();
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", ""));
    openTab();
}

void TstQClosePeriod::cleanup()
{
    Db::setStatementHook(nullptr);
    Db::setStatementRefusal(nullptr);
    m_tab.reset();
    m_base->heard.forget();
}

void TstQClosePeriod::openTab()
{
    m_tab =
        std::make_unique<QRegisterSale>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_tab->resize(1200, 800);
    QVERIFY(showActive(m_tab.get()));
    waitOutTasks();
}

bool TstQClosePeriod::closePeriod(const std::function<void(QClosePeriod *)> &work)
{
    bool isOpened = false;
    QTimer person;
    connect(&person, &QTimer::timeout, &person, [&] {
        QWidget *modal = QApplication::activeModalWidget();
        auto *dialog = qobject_cast<QClosePeriod *>(modal);
        if (auto *warning = qobject_cast<QQestion *>(modal)) {
            m_warned.append(warning->findChildren<QLabel *>().last()->text());
            warning->accept();
        } else if (dialog != nullptr && !std::exchange(isOpened, true)) {
            person.stop();
            waitOutTasks();
            QVERIFY(showActive(dialog));
            QTRY_COMPARE(QApplication::focusWidget(), child<QWidget>(dialog, "leGoods"));
            const QPointer<QClosePeriod> guard(dialog);
            work(dialog);
            waitOutTasks();
            if (guard && guard->isVisible())
                rejectUnexpected(guard);
            person.start(5);
        }
    });
    person.start(5);
    child<QPushButton>(m_tab.get(), "pbPeriod")->click();
    waitOutTasks();
    return QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }) && isOpened;
}

void TstQClosePeriod::sell(int goods, int kass)
{
    Receipt receipt;
    receipt.add(goodsRow(m_base.get(), goods));
    ChekPayment payment;
    payment.toPay = payment.cash = receipt.toPay();
    const ChekPlace place = {"1", QString::number(kass), "1"};
    QCOMPARE(ChekWriter(m_base->db(), place).write(receipt, payment).outcome, ChekWriter::Written);
}

void TstQClosePeriod::sheetTellsThePeriod()
{
    QVERIFY(closePeriod([](QClosePeriod *dialog) {
        QCOMPARE(shownRows(dialog),
                 QString("Картопля 10.000   2.000 0.500; Сир ваговий 10.000   1.250 0.500"));
        const QString words = child<QLabel>(dialog, "labelWords")->text();
        QVERIFY2(words.contains("День періоду: 3 з 3, почався 19.11.2026 09:00"), qPrintable(words));
        QVERIFY(words.contains("вул. Перша, 1, каса «Каса 1»") && !words.contains("Востаннє"));
        pressKeys({Qt::Key_Escape});
    }));
    QCOMPARE(m_warned, QStringList("Період не закрито!"));
}

void TstQClosePeriod::countedByScannerAndHand()
{
    const QString before = m_base->rows("SELECT * FROM z_zvit ORDER BY id_kass,id_zzvit").join('\n');
    QVERIFY(closePeriod([this](QClosePeriod *dialog) {
        countAll(dialog, "9,75", "10");
        QCOMPARE(
            shownRows(dialog),
            QString("Картопля 10.000 10.000 ✓ 2.000 0.500; Сир ваговий 10.000 9.750 −0.250 1.250 0.500"));
        // Bread is no weighed item of the period, a code that is not confirmed would be left out.
        scan(dialog, "4820000000109");
        QVERIFY2(told(dialog).contains("немає серед товарів"), qPrintable(told(dialog)));
        const QString asked = answerConfirm([=] { press(dialog, Qt::Key_F9); }, false);
        QVERIFY2(asked.contains("«Сир ваговий»: за програмою 10.000, є 9.750"), qPrintable(asked));
        QCOMPARE(stock(), QString("10|10000|500 11|10000|500 14|10000|500"));
        answerConfirm([=] { press(dialog, Qt::Key_F9); }, true);
        QVERIFY(!dialog->isVisible());
    }));
    QCOMPARE(
        m_base->rows(document),
        QStringList({"1|1|4|5|0|1|7|14|Картопля|48200014|0|0|0|5|0|1|0|3|0|2026-11-21 20:15:07",
                     "1|1|4|5|1|1|7|11|Сир ваговий|0000000000116|-250|0|0|2|0|1|0|3|0|2026-11-21 20:15:07"}));
    QCOMPARE(stock(), QString("10|10000|500 11|9750|500 14|10000|500"));
    QCOMPARE(m_base->rows("SELECT * FROM z_zvit ORDER BY id_kass,id_zzvit").join('\n'), before);
    QVERIFY2(notice().contains("Період закрито, пораховане записано: документ № 5"), qPrintable(notice()));
    // Once is enough, also for who opens the tab again.
    openTab();
    QVERIFY(!closePeriod([](QClosePeriod *) {}));
    QVERIFY2(notice().contains("Період уже закрито"), qPrintable(notice()));
    QCOMPARE(m_base->rows(document).size(), 2);
}

void TstQClosePeriod::restByTheProgram()
{
    m_base->exec("UPDATE goods_shop SET count_showroom=-300 WHERE id_shop=1 AND id_goods=14");
    QVERIFY(closePeriod([](QClosePeriod *dialog) {
        scan(dialog, cheese);
        typeText("10,1");
        pressKeys({Qt::Key_Return});
        auto *rest = child<QPushButton>(dialog, "pbRest");
        answerConfirm([=] { QTest::mouseClick(rest, Qt::LeftButton); }, false);
        QVERIFY(child<QLabel>(dialog, "labelSums")->text().contains("1 з 2"));
        const QString asked = answerConfirm([=] { QTest::mouseClick(rest, Qt::LeftButton); }, true);
        QVERIFY2(asked.contains("Не пораховано позицій: 1"), qPrintable(asked));
        // Nobody has less than nothing: what is below zero has to be counted.
        QCOMPARE(shownRows(dialog),
                 QString("Картопля -0.300   2.000 0.500; Сир ваговий 10.000 10.100 +0.100 1.250 0.500"));
        type(dialog, "14", Qt::Key_Return);
        type(dialog, "0", Qt::Key_Return);
        QTRY_VERIFY(shownRows(dialog).startsWith("Картопля -0.300 0.000 +0.300"));
        answerConfirm([=] { press(dialog, Qt::Key_F9); }, true);
    }));
    QCOMPARE(stock(), QString("10|10000|500 11|10100|500 14|0|500"));
}

/// The three buttons: the period first, and then the shift without being asked again.
void TstQClosePeriod::shiftFollows()
{
    QStringList asked;
    int forms = 0;
    QTimer person;
    connect(&person, &QTimer::timeout, this, [&] {
        QWidget *modal = QApplication::activeModalWidget();
        if (auto *question = qobject_cast<QMessDlg *>(modal)) {
            asked.append(child<QLabel>(question, "labelText")->text());
            child<QPushButton>(question, "pb2")->click();
        } else if (auto *dialog = qobject_cast<QClosePeriod *>(modal)) {
            if (dialog->isBusy() || child<QNTableView>(dialog, "viewLines")->model()->rowCount() == 0)
                return;
            person.stop();
            countAll(dialog, "10", "10");
            pressKeys({Qt::Key_F9});
            person.start(5);
        } else if (auto *form = qobject_cast<QPayment *>(modal)) {
            ++forms;
            child<QPushButton>(form, "pbOk")->click();
        }
    });
    person.start(5);
    pressKeys({Qt::Key_F12});
    QTRY_COMPARE(forms, 1);
    waitOutTasks();
    person.stop();
    QCOMPARE(asked.size(), 1);
    QCOMPARE(m_base->rows(document).size(), 2);
    QCOMPARE(m_base->rows(zShift), QStringList({"3|0", "1|0", "2|0", "3|0"}));
    QCOMPARE(m_base->value("SELECT id_chek FROM cheks WHERE id_type=10 AND id_kass=1"), QString("6"));
    // The next shift is the first of the next period.
    sell(10);
    QCOMPARE(m_base->rows(zShift).last(), QString("1|1"));
}

void TstQClosePeriod::cancelledCountWritesNothing()
{
    const auto all = [this] { return m_base->rows("SELECT * FROM cheks").join('\n') + stock(); };
    const QString before = all();
    QVERIFY(closePeriod([&](QClosePeriod *dialog) {
        scan(dialog, cheese);
        typeText("9");
        pressKeys({Qt::Key_Return});
        const QString asked = answerConfirm([=] { press(dialog, Qt::Key_Escape); }, false);
        QVERIFY2(asked.contains("Пораховане ще не записано"), qPrintable(asked));
        QVERIFY(shownRows(dialog).contains("Сир ваговий 10.000 9.000 −1.000"));
        answerConfirm([=] { dialog->close(); }, true);
    }));
    QCOMPARE(all(), before);
}

void TstQClosePeriod::nothingLeftUncounted()
{
    QVERIFY(closePeriod([this](QClosePeriod *dialog) {
        scan(dialog, cheese);
        typeText("9");
        pressKeys({Qt::Key_Return});
        QString warning = answerQuestion([=] { press(dialog, Qt::Key_F9); });
        QVERIFY2(warning.contains("Не пораховано позицій: 1"), qPrintable(warning));
        QVERIFY(showActive(dialog));
        typeText("482");
        warning = answerQuestion([=] { press(dialog, Qt::Key_F9); });
        QVERIFY2(warning.contains("«482» ще не пораховано"), qPrintable(warning));
        QVERIFY(dialog->isVisible());
        QCOMPARE(m_base->rows(document), QStringList());
        answerConfirm([=] { dialog->close(); }, true);
    }));
}

void TstQClosePeriod::listIsCountedByEnterAlone()
{
    QVERIFY(closePeriod([this](QClosePeriod *dialog) {
        for (const char *counted : {"9,5", "8"}) {
            pressKeys({Qt::Key_Return});
            typeText(counted);
            pressKeys({Qt::Key_Return});
        }
        pressKeys({Qt::Key_Return});
        QTRY_COMPARE(
            shownRows(dialog),
            QString("Картопля 10.000 9.500 −0.500 2.000 0.500; Сир ваговий 10.000 8.000 −2.000 1.250 0.500"));
        QVERIFY(dialog->isVisible());
        answerConfirm([=] { press(dialog, Qt::Key_F9); }, true);
    }));
    QCOMPARE(stock(), QString("10|10000|500 11|8000|500 14|9500|500"));
}

/// What another register sells while people count would be counted twice.
void TstQClosePeriod::soldMeanwhile()
{
    QVERIFY(closePeriod([this](QClosePeriod *dialog) {
        countAll(dialog, "9,5", "10");
        sell(11, 2);
        const QString warning =
            answerQuestion([=] { answerConfirm([=] { press(dialog, Qt::Key_F9); }, true); });
        QVERIFY2(warning.contains("«Сир ваговий»: було 10.000, тепер 9.000"), qPrintable(warning));
        QVERIFY(dialog->isVisible());
        QCOMPARE(m_base->rows(document), QStringList());
        QVERIFY(shownRows(dialog).contains("Сир ваговий 9.000 9.500 +0.500"));
        answerConfirm([=] { press(dialog, Qt::Key_F9); }, true);
        QVERIFY(!dialog->isVisible());
    }));
    QCOMPARE(stock(), QString("10|10000|500 11|9500|500 14|10000|500"));
    QCOMPARE(m_base->value("SELECT GROUP_CONCAT(count ORDER BY id_position) FROM cheks WHERE id_type=7"),
             QString("0,500"));
}

/// Written, but the answer was lost and the server silent: tried again it asks first.
void TstQClosePeriod::lostAnswer()
{
    QVERIFY(closePeriod([this](QClosePeriod *dialog) {
        countAll(dialog, "10", "10");
        loseAnswerToCommit(m_base.get());
        QString warning = answerQuestion([=] { press(dialog, Qt::Key_F9); });
        Db::setStatementHook(nullptr);
        QVERIFY2(warning.contains("невідомо, чи період закрито"), qPrintable(warning));
        m_base->exec("RENAME TABLE away TO cheks");
        waitOutLoss(*m_base->connection());
        QVERIFY(!child<QPushButton>(dialog, "pbRest")->isEnabled());
        press(dialog, Qt::Key_F9);
        QVERIFY(!dialog->isVisible());
    }));
    QCOMPARE(m_base->rows(document).size(), 2);
}

/// Another program has closed the period, or the shift, meanwhile.
void TstQClosePeriod::otherHands()
{
    QVERIFY(closePeriod([this](QClosePeriod *dialog) {
        countAll(dialog, "10", "10");
        m_base->exec(
            "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,dis_bon_bez2,data_time) "
            "VALUES(1,1,4,5,0,7,3,20261121200000)");
        QString warning = answerQuestion([=] { press(dialog, Qt::Key_F9); });
        QVERIFY2(warning.contains("Період уже закрито: документ № 5"), qPrintable(warning));
        m_base->exec({"DELETE FROM cheks WHERE id_type=7",
                      "UPDATE z_zvit SET data_time=20261121201000 WHERE id_zzvit=4"});
        warning = answerQuestion([=] { press(dialog, Qt::Key_F9); });
        QVERIFY2(warning.contains("закрили або відкрили зміну"), qPrintable(warning));
        QCOMPARE(m_base->value("SELECT COUNT(*) FROM z_zvit WHERE id_kass=1"), QString("4"));
        answerConfirm([=] { dialog->close(); }, true);
    }));
    QCOMPARE(m_base->rows(document), QStringList());
}

void TstQClosePeriod::rightGone()
{
    QVERIFY(closePeriod([this](QClosePeriod *dialog) {
        countAll(dialog, "9", "10");
        // While the question is open; this program has not heard of it.
        const QString warning = answerQuestion([=] {
            withModal<QMessDlg>([=] { press(dialog, Qt::Key_F9); },
                                [this](QMessDlg *question) {
                                    m_base->exec("UPDATE lst_permis SET permission=2 WHERE id_prem=101");
                                    waitOutGuard();
                                    child<QPushButton>(question, "pb0")->click();
                                });
        });
        QVERIFY2(!warning.isEmpty(), "refused");
        QVERIFY(dialog->isVisible());
        answerConfirm([=] { dialog->close(); }, true);
    }));
    QCOMPARE(m_base->rows(document), QStringList());
    QCOMPARE(stock(), QString("10|10000|500 11|10000|500 14|10000|500"));
}

void TstQClosePeriod::failureWritesNothing()
{
    QVERIFY(closePeriod([this](QClosePeriod *dialog) {
        countAll(dialog, "9", "10");
        Db::setStatementRefusal(
            [](const QString &sql) { return sql.startsWith("INSERT INTO goods_shop") ? 1205 : 0; });
        const QString warning =
            answerQuestion([=] { answerConfirm([=] { press(dialog, Qt::Key_F9); }, true); });
        QVERIFY2(warning.contains("записує інша програма"), qPrintable(warning));
        QCOMPARE(m_base->rows(document), QStringList());
        QVERIFY(shownRows(dialog).contains("Сир ваговий 10.000 9.000 −1.000"));
        Db::setStatementRefusal(nullptr);
        answerConfirm([=] { press(dialog, Qt::Key_F9); }, true);
    }));
    QCOMPARE(stock(), QString("10|10000|500 11|9000|500 14|10000|500"));
}

/// The shift of the last day is closed already: what is counted opens the first one of the next period.
void TstQClosePeriod::closedShift()
{
    m_base->exec("UPDATE z_zvit SET data_time=20261121200000 WHERE id_kass=1 AND id_zzvit=4");
    openTab();
    QVERIFY(closePeriod([](QClosePeriod *dialog) {
        QVERIFY(child<QLabel>(dialog, "labelWords")->text().contains("пораховане відкриє нову"));
        countAll(dialog, "10", "10");
        press(dialog, Qt::Key_F9);
    }));
    QCOMPARE(m_base->rows(zShift).last(), QString("1|1"));
    QCOMPARE(m_base->value("SELECT GROUP_CONCAT(DISTINCT id_zvit) FROM cheks WHERE id_type=7"), QString("5"));
    QVERIFY(!closePeriod([](QClosePeriod *) {}));
    QCOMPARE(m_warned,
             QStringList({"Період не може бути закритий\nне в останній день!", "Період не закрито!"}));
}

/// Its last shift was closed behind it: nothing is counted again, and no shift opened.
void TstQClosePeriod::closedOnce()
{
    openTab();
    QVERIFY(closePeriod([](QClosePeriod *dialog) {
        countAll(dialog, "10", "10");
        press(dialog, Qt::Key_F9);
    }));
    m_base->exec("UPDATE z_zvit SET data_time=20261121230000 WHERE id_kass=1 AND data_time=0");
    const QStringList before = m_base->rows(zShift);
    openTab();
    QVERIFY(!closePeriod([](QClosePeriod *dialog) {
        countAll(dialog, "10", "10");
        press(dialog, Qt::Key_F9);
    }));
    QCOMPARE(m_base->rows(zShift), before);
    QCOMPARE(m_base->value("SELECT COUNT(DISTINCT id_chek) FROM cheks WHERE id_type=7"), QString("1"));
    QCOMPARE(m_warned, QStringList());
}

/// Whoever opened the shift has gone: the period is closed in his place when that is agreed to.
void TstQClosePeriod::absentUser()
{
    m_base->exec("UPDATE z_zvit SET id_user=2 WHERE id_kass=1 AND id_zzvit=4");
    bool isOpened = false;
    const QString asked = answerConfirm(
        [&] {
            isOpened = closePeriod([](QClosePeriod *dialog) {
                countAll(dialog, "10", "10");
                press(dialog, Qt::Key_F9);
            });
        },
        true);
    QVERIFY2(asked.contains("Друга Зміна. Закрити її період замість нього?"), qPrintable(asked));
    QVERIFY(isOpened);
    QCOMPARE(m_base->value("SELECT GROUP_CONCAT(DISTINCT id_user) FROM cheks WHERE id_type=7"), QString("1"));
    QCOMPARE(m_base->value("SELECT id_user FROM z_zvit WHERE id_kass=1 AND id_zzvit=4"), QString("2"));
}

/// Told before anybody counts what could not be written.
void TstQClosePeriod::blockedRegister()
{
    m_base->exec("UPDATE kassa SET block=1 WHERE id=1");
    openTab();
    auto *registers = child<QComboBox>(m_tab.get(), "cbKass");
    for (int i = 0; i < registers->count(); ++i) {
        if (registers->itemText(i).contains("Каса 1"))
            registers->setCurrentIndex(i);
    }
    waitOutTasks();
    QVERIFY(!closePeriod([](QClosePeriod *) {}));
    m_base->exec("UPDATE kassa SET block=0 WHERE id=1");
    QVERIFY2(m_warned.value(0).contains("тут можна лише закрити зміну"), qPrintable(m_warned.join('|')));
}

QTEST_MAIN(TstQClosePeriod)
#include "tst_qcloseperiod.moc"
