#include "qmaninvoices.h"

#include "invoicewriter.h"
#include "listpane.h"
#include "qacceptinvoice.h"
#include "qcancelinvoice.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "rangeselector.h"
#include "saleclock.h"
#include "workplace.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {
QString column(const QRowModel *model, int row, InvoiceColumn column)
{
    return model->index(row, static_cast<int>(column)).data().toString();
}
} // namespace

/// The page of the transfers: what it lists, for whom, and what may be done with it. Shops: 10 "Львів" (group
/// 2), 11 "Київ" (group 3), 12 "Луцьк" (group 2, blocked), 14 "Чужий" and 15 "Далекий" (group 4, not seen).
class TstQManInvoices : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_place = std::make_unique<Workplace>(); }
    void cleanupTestCase() { m_place.reset(); }
    void init();
    void cleanup() { m_page.reset(); }

    void rowsTellWhatBecameOfThem();
    void goodsOfTheChosenOne();
    void placesAndDirections_data();
    void placesAndDirections();
    void statesDaysAndNumbers();
    void homeShopIsSeen();
    void pagesLoseNoInvoice();
    void rightsDecideWhatMayBeDone();
    void acceptedFromTheList();
    void closedByOthersMeanwhile();
    void cancelledFromTheList();
    void rightThatGoesWhileItIsClosed();
    void nothingYet();
    void failedLoadIsTold();

private:
    void add(int id, int from, int to, const QString &sent, const QString &closed, const QStringList &lines);
    void open(int right = Permission::Full);
    void await();
    void choose(const char *box, const QString &text);
    QString numbers();
    bool isOffered(const char *button) { return child<QPushButton>(m_page.get(), button)->isEnabled(); }
    const QRowModel *model() { return m_page->model(); }

    std::unique_ptr<Workplace> m_place;
    FreshDatabase *m_base = nullptr;
    std::unique_ptr<QManInvoices> m_page;
};

/// lines: "goods,sent,accepted,result"
void TstQManInvoices::add(int id, int from, int to, const QString &sent, const QString &closed,
                          const QStringList &lines)
{
    m_base->exec(QString("INSERT INTO invoice(id,id_user_with,id_user_to,id_shop_with,id_shop_to,"
                         "is_cash_goods,msg_with,msg_to,data_time_open,data_time_close) VALUES(%1,1,%2,%3,%4,"
                         "0,'туди %1',NULL,%5,%6)")
                     .arg(id)
                     .arg(closed == "0" || closed == "NULL" ? "NULL" : "1")
                     .arg(from)
                     .arg(to)
                     .arg(sent, closed));
    for (const QString &line : lines)
        m_base->exec(
            QString("INSERT INTO transactions_goods(id_invoice,id_good,count_send,count_accept,result) "
                    "VALUES(%1,%2)")
                .arg(QString::number(id), line));
}

void TstQManInvoices::init()
{
    m_base = &m_place->base;
    m_base->exec({"DELETE FROM transactions_goods", "DELETE FROM invoice"});
    m_place->clear();
    m_base->exec({"INSERT INTO shops(id,address,group_shop,count_day_cycle,block) VALUES(10,'Львів',2,1,0),"
                  "(11,'Київ',3,1,NULL),(12,'Луцьк',2,1,1),(14,'Чужий',4,1,0),(15,'Далекий',4,1,0)",
                  "INSERT INTO goods(id,name,tax,type,group_g) VALUES(7,'Молоко',1,1,1),(8,'Сир',2,0,1),"
                  "(9,NULL,1,1,1)",
                  "INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(7,'4820000000079'),(7,'0000000000079')"});
    add(1, 10, 11, "20261101080000", "20261101120000", {"7,3000,3000,1", "8,250,250,1"});
    add(2, 10, 11, "20261102080000", "20261102120000", {"7,3000,1000,0", "8,250,250,1", "9,0,500,0"});
    add(3, 11, 14, "20261103080000", "0", {"7,1000,NULL,NULL"});
    add(4, 14, 12, "20261104080000", "NULL", {"8,100,NULL,NULL"});
    add(5, 10, 11, "20261105080000", "20261105090000", {"7,1000,NULL,NULL"});
    add(6, 14, 15, "20261106080000", "0", {"7,1000,NULL,NULL"});
    add(7, 10, 11, "NULL", "NULL", {});
    m_base->exec({"INSERT INTO invoice(id,id_shop_with,id_shop_to,is_cash_goods,cash_send,data_time_open) "
                  "VALUES(8,10,11,1,5000,20261107080000)",
                  "UPDATE invoice SET is_cash_goods=NULL,id_user_with=99 WHERE id=7"});
}

void TstQManInvoices::open(int right)
{
    m_place->logIn(Permission::Sales, right);
    m_page = std::make_unique<QManInvoices>(m_place->connection(), m_place->user(), &m_base->heard,
                                            m_place->settings(), nullptr);
    m_page->setPermission(Permission::Sales);
    m_page->resize(1000, 600);
    QVERIFY(showActive(m_page.get()));
    await();
}

void TstQManInvoices::await()
{
    QTRY_VERIFY_WITH_TIMEOUT(!m_page->isLoading() && DbTasks::isIdle(), 20000);
}

void TstQManInvoices::choose(const char *box, const QString &text)
{
    auto *combo = child<QComboBox>(m_page.get(), box);
    const int item = combo->findText(text, Qt::MatchEndsWith);
    QVERIFY2(item >= 0, qPrintable(text));
    combo->setCurrentIndex(item);
    await();
}

QString TstQManInvoices::numbers()
{
    QStringList numbers;
    for (int row = 0; row < model()->rowCount(); ++row)
        numbers.append(column(model(), row, InvoiceColumn::Number));
    return numbers.join(' ');
}

void TstQManInvoices::rowsTellWhatBecameOfThem()
{
    open();
    QCOMPARE(numbers(), QString("7 4 3 5 2 1"));
    QStringList rows;
    for (int row = 0; row < model()->rowCount(); ++row) {
        QStringList cells;
        for (const auto which :
             {InvoiceColumn::State, InvoiceColumn::From, InvoiceColumn::To, InvoiceColumn::SentAt,
              InvoiceColumn::SentBy, InvoiceColumn::ClosedAt, InvoiceColumn::Lines, InvoiceColumn::Sent,
              InvoiceColumn::Accepted, InvoiceColumn::Difference, InvoiceColumn::DifferentLines})
            cells.append(column(model(), row, which));
        rows.append(cells.join('|'));
    }
    const QString admin = "Системний Адмін";
    QCOMPARE(rows, QStringList(
                       {"→ у дорозі|Львів|Київ||||0||||",
                        "→ у дорозі|Чужий|Луцьк|04-11-26 08:00:00|" + admin + "||1|0.100|||",
                        "→ у дорозі|Київ|Чужий|03-11-26 08:00:00|" + admin + "||1|1.000|||",
                        "✗ скасовано|Львів|Київ|05-11-26 08:00:00|" + admin + "|05-11-26 09:00:00|1|1.000|||",
                        "≠ прийнято з різницею|Львів|Київ|02-11-26 08:00:00|" + admin +
                            "|02-11-26 12:00:00|3|3.250|1.750|-1.500|2",
                        "✓ прийнято|Львів|Київ|01-11-26 08:00:00|" + admin +
                            "|01-11-26 12:00:00|2|3.250|3.250|0.000|0"}));
    // The text is readable on the colour of the state.
    const QModelIndex state = model()->index(4, static_cast<int>(InvoiceColumn::State));
    QVERIFY(state.data(Qt::BackgroundRole).isValid());
    QCOMPARE(state.data(Qt::ForegroundRole).value<QBrush>().color(), QColor(Qt::black));
    QVERIFY(m_base->heard.texts().isEmpty());
}

void TstQManInvoices::goodsOfTheChosenOne()
{
    open();
    child<QLineEdit>(m_page.get(), "leSearch")->setFocus();
    typeText("2");
    pressKeys({Qt::Key_Return});
    await();
    QCOMPARE(numbers(), QString("2"));
    const auto *pane = m_page->findChild<InvoicePane *>();
    const QRowModel *lines = pane->lines()->model();
    QStringList rows;
    for (int row = 0; row < lines->rowCount(); ++row) {
        QStringList cells;
        for (int cell = 0; cell < static_cast<int>(InvoiceLineColumn::Result); ++cell)
            cells.append(lines->index(row, cell).data().toString());
        rows.append(cells.join('|'));
    }
    // What differs stands first.
    QCOMPARE(rows, QStringList({"9|||0.000|0.500|0.500", "7|0000000000079|Молоко|3.000|1.000|-2.000",
                                "8||Сир|0.250|0.250|0.000"}));
    QCOMPARE(
        pane->lines()->heading(),
        QStringList({"Акт приймання товару № 2", "З магазину: Львів", "До магазину: Київ",
                     "Відправлено: 02-11-26 08:00:00, Системний Адмін", "Повідомлення відправника: туди 2",
                     "Прийнято: 02-11-26 12:00:00, Системний Адмін"}));
    QVERIFY(child<QLabel>(pane, "labelState")
                ->text()
                .contains(
                    "Позицій: 3, надіслано: 3.250. Прийнято: 1.750, різниця: -1.500, позицій з різницею: 2"));
}

void TstQManInvoices::placesAndDirections_data()
{
    QTest::addColumn<QString>("shop");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QString>("found");
    QTest::newRow("all from here") << ""
                                   << "Відправлені звідси"
                                   << "7 3 5 2 1";
    QTest::newRow("all to here") << ""
                                 << "Надіслані сюди"
                                 << "7 4 5 2 1";
    QTest::newRow("Kyiv") << "Київ"
                          << "Усі напрямки"
                          << "7 3 5 2 1";
    QTest::newRow("from Kyiv") << "Київ"
                               << "Відправлені звідси"
                               << "3";
    QTest::newRow("to Kyiv") << "Київ"
                             << "Надіслані сюди"
                             << "7 5 2 1";
    QTest::newRow("to a blocked shop") << "Луцьк"
                                       << "Надіслані сюди"
                                       << "4";
}

void TstQManInvoices::placesAndDirections()
{
    QFETCH(QString, shop);
    QFETCH(QString, direction);
    open();
    const auto *shops = child<QComboBox>(m_page.get(), "cbShop");
    QCOMPARE(shops->findText("Чужий"), -1);
    if (!shop.isEmpty())
        choose("cbShop", shop);
    choose("cbDirection", direction);
    QTEST(numbers(), "found");
}

void TstQManInvoices::statesDaysAndNumbers()
{
    open();
    const QVector<QPair<QString, QString>> states = {
        {"у дорозі", "7 4 3"}, {"з різницею", "2"}, {"прийнято", "1"}, {"скасовано", "5"}};
    for (const auto &[state, found] : states) {
        choose("cbState", state);
        QCOMPARE(numbers(), found);
    }
    choose("cbState", "Усі стани");
    child<QCheckBox>(m_page.get(), "chDays")->setChecked(true);
    m_page->findChild<RangeSelector *>()->setDays(QDate(2026, 11, 2), QDate(2026, 11, 3));
    await();
    QCOMPARE(numbers(), QString("3 2"));
    m_page->findChild<RangeSelector *>()->setDays(QDate(2026, 11, 3), QDate(2026, 11, 2));
    await();
    QCOMPARE(model()->rowCount(), 0);
    m_page->showInvoice(3);
    await();
    QCOMPARE(numbers(), QString("7 4 3 5 2 1"));
    QCOMPARE(column(model(), m_page->view()->currentIndex().row(), InvoiceColumn::Number), QString("3"));
}

/// Whose home shop stands in a group that he does not see.
void TstQManInvoices::homeShopIsSeen()
{
    m_base->exec("UPDATE users SET id_shop=15 WHERE id=1");
    open();
    m_base->exec("UPDATE users SET id_shop=0 WHERE id=1");
    QCOMPARE(numbers(), QString("7 6 4 3 5 2 1"));
    m_page->view()->setCurrentIndex(model()->index(1, 0));
    await();
    QVERIFY(isOffered("pbAccept"));
    QVERIFY(!isOffered("pbCancelInvoice"));
}

void TstQManInvoices::pagesLoseNoInvoice()
{
    m_base->exec("INSERT INTO invoice(id,id_shop_with,id_shop_to,is_cash_goods,data_time_open) SELECT "
                 "100+seq,10,11,0,20261101000000 FROM seq_1_to_50");
    open();
    auto *size = child<QLineEdit>(m_page.get(), "lePage");
    size->setFocus();
    size->selectAll();
    typeText("20");
    pressKeys({Qt::Key_Return});
    await();
    QStringList found = numbers().split(' ');
    QCOMPARE(found.size(), 20);
    // However the page is sorted.
    m_page->view()->sortByColumn(0, Qt::AscendingOrder);
    for (int page = 0; page < 2; ++page) {
        QTest::mouseClick(child<QPushButton>(m_page.get(), "pbNext"), Qt::LeftButton);
        await();
        found += numbers().split(' ');
    }
    QVERIFY(!child<QPushButton>(m_page.get(), "pbNext")->isEnabled());
    QCOMPARE(found.size(), 56);
    QCOMPARE(found.removeDuplicates(), 0);
    // It would be remembered.
    m_page->view()->sortByColumn(-1, Qt::AscendingOrder);
}

void TstQManInvoices::rightsDecideWhatMayBeDone()
{
    open();
    QVERIFY(isOffered("pbSend"));
    // 4: to a shop of this user, from a foreign one; 3: the other way round; 5: cancelled.
    for (const auto &[row, accept, cancel] :
         {std::tuple(1, true, false), {2, false, true}, {3, false, false}}) {
        m_page->view()->setCurrentIndex(model()->index(row, 0));
        await();
        QCOMPARE(isOffered("pbAccept"), accept);
        QCOMPARE(isOffered("pbCancelInvoice"), cancel);
        QCOMPARE(child<QPushButton>(m_page.get(), "pbAccept")->toolTip().isEmpty(), accept);
        QVERIFY(isOffered("pbPrintInvoice"));
    }
    open(2);
    m_page->view()->setCurrentIndex(model()->index(1, 0));
    await();
    QVERIFY(!isOffered("pbAccept") && !isOffered("pbSend") && isOffered("pbPrintInvoice"));
    QVERIFY(!m_page->commands().contains(Command::Add));
    QVERIFY(m_page->isOffered(Command::Export));
    m_place->logIn(Permission::Sales);
}

void TstQManInvoices::acceptedFromTheList()
{
    m_base->exec("UPDATE shops SET block=0 WHERE id=12");
    open();
    m_page->view()->setCurrentIndex(model()->index(1, 0));
    m_page->view()->setFocus();
    const bool isOpened =
        withModal<QAcceptInvoice>([] { pressKeys({Qt::Key_Return}); },
                                  [](QAcceptInvoice *dialog) {
                                      waitOutTasks();
                                      auto *rest = child<QPushButton>(dialog, "pbRest");
                                      answerConfirm([=] { QTest::mouseClick(rest, Qt::LeftButton); }, true);
                                      QTest::mouseClick(child<QPushButton>(dialog, "pbOk"), Qt::LeftButton);
                                      waitOutTasks();
                                  });
    await();
    QVERIFY(isOpened);
    // It goes down to those that are closed, and stays the one that is shown.
    QCOMPARE(numbers(), QString("7 3 5 4 2 1"));
    const int row = m_page->view()->currentIndex().row();
    QCOMPARE(column(model(), row, InvoiceColumn::Number), QString("4"));
    QCOMPARE(column(model(), row, InvoiceColumn::State), QString("✓ прийнято"));
    QCOMPARE(m_base->rows("SELECT id_shop,id_goods,count_showroom,count_syllable FROM goods_shop"),
             QStringList("12|8|0|100"));
}

/// Nobody counts in vain what the list shows as on the way still.
void TstQManInvoices::closedByOthersMeanwhile()
{
    open();
    m_base->exec("UPDATE invoice SET data_time_close=20261104090000,id_user_to=1 WHERE id=4");
    m_page->view()->setCurrentIndex(model()->index(1, 0));
    m_page->view()->setFocus();
    withModal<QAcceptInvoice>([] { pressKeys({Qt::Key_Return}); }, [](QAcceptInvoice *) { waitOutTasks(); });
    await();
    QVERIFY(m_base->heard.has("Накладну № 4 тим часом уже закрито"));
    QCOMPARE(numbers(), QString("7 3 5 4 2 1"));
}

void TstQManInvoices::cancelledFromTheList()
{
    open();
    m_page->view()->setCurrentIndex(model()->index(2, 0));
    await();
    auto *button = child<QPushButton>(m_page.get(), "pbCancelInvoice");
    withModal<QCancelInvoice>([=] { QTest::mouseClick(button, Qt::LeftButton); },
                              [](QCancelInvoice *dialog) {
                                  child<QLineEdit>(dialog, "leMessage")->setText("Помилка");
                                  QTest::mouseClick(child<QPushButton>(dialog, "pbOk"), Qt::LeftButton);
                                  waitOutTasks();
                              });
    await();
    QCOMPARE(numbers(), QString("7 4 5 3 2 1"));
    QCOMPARE(column(model(), 3, InvoiceColumn::State), QString("✗ скасовано"));
    QCOMPARE(m_base->rows("SELECT id_shop,id_goods,count_showroom,count_syllable FROM goods_shop"),
             QStringList("11|7|0|1000"));
    QVERIFY(!isOffered("pbCancelInvoice"));
}

/// Counting takes hours.
void TstQManInvoices::rightThatGoesWhileItIsClosed()
{
    open();
    m_page->view()->setCurrentIndex(model()->index(2, 0));
    await();
    QString told;
    QVERIFY(withModal<QCancelInvoice>(
        [this] { child<QPushButton>(m_page.get(), "pbCancelInvoice")->click(); },
        [&](QCancelInvoice *dialog) {
            m_base->exec(
                QString("UPDATE lst_permis SET permission=2 WHERE id_prem=%1").arg(Permission::Sales));
            m_place->user()->loadpermis(m_place->connection(), "admin", QString());
            child<QLineEdit>(dialog, "leMessage")->setText("Помилка");
            told = answerQuestion([dialog] { child<QPushButton>(dialog, "pbOk")->click(); });
            waitOutTasks();
            if (dialog->isVisible())
                answerConfirm([dialog] { dialog->reject(); }, true);
        }));
    QVERIFY2(told.contains("лише переглядати"), qPrintable(told));
    QCOMPARE(m_base->value("SELECT COUNT(*) FROM invoice WHERE id=3 AND data_time_close=0"), QString("1"));
    await();
    m_place->logIn(Permission::Sales);
}

void TstQManInvoices::nothingYet()
{
    m_base->exec({"DELETE FROM transactions_goods", "DELETE FROM invoice"});
    open();
    QCOMPARE(m_page->view()->emptyText(), QString("Передач між магазинами ще не було."));
    QVERIFY(!isOffered("pbAccept") && !isOffered("pbPrintInvoice"));
    choose("cbState", "у дорозі");
    QCOMPARE(m_page->view()->emptyText(), QString("За цими умовами нічого не знайдено."));
}

void TstQManInvoices::failedLoadIsTold()
{
    open();
    m_base->exec("RENAME TABLE invoice TO away");
    m_page->searchAgain();
    await();
    m_base->exec("RENAME TABLE away TO invoice");
    QVERIFY(m_base->heard.has("Помилка запиту:", 1));
    QCOMPARE(model()->rowCount(), 0);
    m_page->run(Command::Reload);
    await();
    QCOMPARE(numbers(), QString("7 4 3 5 2 1"));
}

QTEST_MAIN(TstQManInvoices)
#include "tst_qmaninvoices.moc"
