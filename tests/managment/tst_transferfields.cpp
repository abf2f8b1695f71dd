#include "goodspicker.h"
#include "listpane.h"
#include "noticebar.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qpastetable.h"
#include "qregistersale.h"
#include "qrowmodel.h"
#include "saleshop.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSqlQuery>
#include <QStackedWidget>
#include <utility>

/// Goods are put together in the sale tab and sent to another shop. The user may transmit to shops 2, 4 (the
/// store house) and 5, which is blocked.
class TstTransferFields : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void shopsThatAreOffered();
    void scannedGoodsAreSent();
    void storeHouseSendsWithoutARegister();
    void targetIsChosenFirst();
    void belowZeroIsAsked();
    void lostAnswerIsNotSentTwice();
    void senderStaysWithItsGoods();
    void countsOfAnotherShopStay();
    void pastedTableIsOfTheSender();
    void nobodyToSendTo();

private:
    void open();
    void chooseTo(const QString &shop);
    QComboBox *box(const char *name) { return child<QComboBox>(m_tab.get(), name); }
    QStringList items(const char *name);
    QString notice() { return m_tab->findChild<NoticeBar *>()->text(); }
    void scanAndWait(const QString &code);
    QString stock(int shop, int goods);
    QStringList sent();

    FreshDatabase m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QRegisterSale> m_tab;
};

namespace {
const char *const bread = "4820000000109";
const char *const cheese = "0000000000116";
} // namespace

void TstTransferFields::initTestCase()
{
    fillSaleShop(&m_base);
    m_base.exec("INSERT INTO lst_shops_transmit(id_g_prem,id_shop) VALUES(1,2),(1,4),(1,5)");
}

void TstTransferFields::init()
{
    m_base.exec({"DELETE FROM transactions_goods", "DELETE FROM invoice",
                 "DELETE FROM goods_shop WHERE id_shop=4",
                 "UPDATE goods_shop SET count_showroom=10000,count_syllable=4000"});
    open();
}

void TstTransferFields::cleanup()
{
    Db::setStatementHook(nullptr);
    m_tab.reset();
    m_base.heard.forget();
}

void TstTransferFields::open()
{
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base.heard);
    QVERIFY(m_user->loadpermis(m_base.connection(), "admin", ""));
    m_tab =
        std::make_unique<QRegisterSale>(m_base.connection(), m_user.get(), &m_base.heard, nullptr, nullptr);
    QVERIFY(showActive(m_tab.get()));
    waitOutTasks();
    pressKeys({Qt::Key_F11});
    waitOutTasks();
}

QStringList TstTransferFields::items(const char *name)
{
    QStringList texts;
    for (int i = 0; i < box(name)->count(); ++i)
        texts.append(box(name)->itemText(i));
    return texts;
}

void TstTransferFields::chooseTo(const QString &shop)
{
    const int item = box("cbTransferTo")->findText(shop);
    QVERIFY2(item >= 0, qPrintable(shop));
    box("cbTransferTo")->setCurrentIndex(item);
}

void TstTransferFields::scanAndWait(const QString &code)
{
    scan(m_tab.get(), code);
    waitOutTasks();
}

/// "floor|store room"
QString TstTransferFields::stock(int shop, int goods)
{
    return m_base.value(QString("SELECT CONCAT(count_showroom,'|',count_syllable) FROM goods_shop WHERE "
                                "id_shop=%1 AND id_goods=%2")
                            .arg(shop)
                            .arg(goods));
}

QStringList TstTransferFields::sent()
{
    return m_base.rows("SELECT id_shop_with,id_shop_to,msg_with,id_good,count_send FROM invoice JOIN "
                       "transactions_goods ON id_invoice=id ORDER BY id_good");
}

void TstTransferFields::shopsThatAreOffered()
{
    QCOMPARE(items("cbTransferFrom"), QStringList({"вул. Друга, 2", "вул. Перша, 1", "Офіс", "Склад"}));
    box("cbTransferFrom")->setCurrentText("вул. Перша, 1");
    QCOMPARE(items("cbTransferTo"), QStringList({"— виберіть —", "вул. Друга, 2", "Склад"}));
    // Nobody sends to himself; who was chosen before stays chosen.
    chooseTo("Склад");
    box("cbTransferFrom")->setCurrentText("вул. Друга, 2");
    QCOMPARE(items("cbTransferTo"), QStringList({"— виберіть —", "Склад"}));
    QCOMPARE(box("cbTransferTo")->currentText(), QString("Склад"));
}

void TstTransferFields::scannedGoodsAreSent()
{
    const QSignalSpy wanted(m_tab.get(), &QRegisterSale::invoiceWanted);
    box("cbTransferFrom")->setCurrentText("вул. Перша, 1");
    chooseTo("вул. Друга, 2");
    child<QLineEdit>(m_tab.get(), "leTransferMessage")->setText("Скло");
    for (int i = 0; i < 3; ++i)
        scanAndWait(bread);
    scanAndWait(cheese);
    typeText("0,25");
    pressKeys({Qt::Key_Return, Qt::Key_F9});
    waitOutTasks();
    QCOMPARE(sent(), QStringList({"1|2|Скло|10|3000", "1|2|Скло|11|250"}));
    QCOMPARE(stock(1, 10), QString("10000|1000"));
    QCOMPARE(stock(1, 11), QString("10000|3750"));
    QCOMPARE(stock(2, 10), QString("10000|4000"));
    // No register has written anything.
    QCOMPARE(m_base.value("SELECT COUNT(*) FROM cheks"), QString("0"));
    const QString number = m_base.value("SELECT id FROM invoice");
    QVERIFY2(notice().contains("Передача № " + number), qPrintable(notice()));
    QTest::mouseClick(child<QPushButton>(m_tab.get(), "pbPrintSlip"), Qt::LeftButton);
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted.first(), QVariantList({number.toUInt(), true}));
    // The next one begins with nothing of it but its shops.
    QCOMPARE(child<QLineEdit>(m_tab.get(), "leTransferMessage")->text(), QString());
    pressKeys({Qt::Key_F9});
    QVERIFY2(notice().contains("немає товарів"), qPrintable(notice()));
}

void TstTransferFields::storeHouseSendsWithoutARegister()
{
    m_base.exec("INSERT INTO goods_shop(id_shop,id_goods,count_syllable) VALUES(4,10,9000)");
    box("cbTransferFrom")->setCurrentText("Склад");
    chooseTo("вул. Друга, 2");
    scanAndWait(cheese);
    QVERIFY2(notice().contains("не знайдено"), qPrintable(notice()));
    scanAndWait(bread);
    pressKeys({Qt::Key_F9});
    waitOutTasks();
    QCOMPARE(sent(), QStringList("4|2||10|1000"));
    QCOMPARE(stock(4, 10), QString("0|8000"));
}

void TstTransferFields::targetIsChosenFirst()
{
    box("cbTransferFrom")->setCurrentText("вул. Перша, 1");
    scanAndWait(bread);
    pressKeys({Qt::Key_F9});
    waitOutTasks();
    QVERIFY2(notice().contains("до якого передається"), qPrintable(notice()));
    QVERIFY(sent().isEmpty());
}

/// Sold elsewhere between the question and its answer: it is asked again.
void TstTransferFields::belowZeroIsAsked()
{
    m_base.exec("UPDATE goods_shop SET count_syllable=500");
    box("cbTransferFrom")->setCurrentText("вул. Перша, 1");
    chooseTo("вул. Друга, 2");
    scanAndWait(bread);
    const auto write = [] {
        pressKeys({Qt::Key_F9});
        waitOutTasks();
    };
    QString asked = answerConfirm(write, false);
    QVERIFY2(asked.contains("«Хліб житній»: на складі 0.500, треба 1.000"), qPrintable(asked));
    QVERIFY(sent().isEmpty());
    QCOMPARE(stock(1, 10), QString("10000|500"));
    m_tab->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tab.get()));
    asked = answerConfirm(write, true);
    waitOutTasks();
    QVERIFY(!asked.isEmpty());
    QCOMPARE(sent(), QStringList("1|2||10|1000"));
    QCOMPARE(stock(1, 10), QString("10000|-500"));
}

void TstTransferFields::lostAnswerIsNotSentTwice()
{
    box("cbTransferFrom")->setCurrentText("вул. Перша, 1");
    chooseTo("вул. Друга, 2");
    scanAndWait(bread);
    bool isCommitted = false;
    Db::setStatementHook([&](const QString &sql) {
        if (sql == "COMMIT" && !std::exchange(isCommitted, true)) {
            commitHere();
            m_base.killConnection();
        } else if (isCommitted && sql.startsWith("SELECT COUNT(*) FROM invoice")) {
            m_base.execElsewhere("RENAME TABLE invoice TO away");
            Db::setStatementHook(nullptr);
        }
    });
    pressKeys({Qt::Key_F9});
    waitOutTasks();
    Db::setStatementHook(nullptr);
    waitOutLoss(*m_base.connection());
    QVERIFY2(notice().contains("невідомо"), qPrintable(notice()));
    m_base.exec("RENAME TABLE away TO invoice");
    pressKeys({Qt::Key_F9});
    waitOutTasks();
    QCOMPARE(sent(), QStringList("1|2||10|1000"));
    QCOMPARE(stock(1, 10), QString("10000|3000"));
    QVERIFY2(notice().contains("Передача №"), qPrintable(notice()));
}

void TstTransferFields::senderStaysWithItsGoods()
{
    box("cbTransferFrom")->setCurrentText("вул. Перша, 1");
    scanAndWait(bread);
    QVERIFY(!box("cbTransferFrom")->isEnabled());
    answerConfirm([] { pressKeys({Qt::Key_Escape}); }, true);
    QVERIFY(box("cbTransferFrom")->isEnabled());
}

/// What is received in one shop does not see what another one has sent.
void TstTransferFields::countsOfAnotherShopStay()
{
    m_base.exec("INSERT INTO goods_shop(id_shop,id_goods,count_syllable) VALUES(4,10,9000)");
    box("cbShop")->setCurrentText("вул. Перша, 1");
    waitOutTasks();
    pressKeys({Qt::Key_F7});
    scanAndWait(bread);
    const auto *received =
        child<QNTableView>(child<QStackedWidget>(m_tab.get(), "documents")->currentWidget(), "viewStock");
    const auto inStoreRoom = [received] { return received->model()->index(0, 4).data().toString(); };
    QCOMPARE(inStoreRoom(), QString("4.000"));
    for (const auto &[from, left] : {std::pair("Склад", "4.000"), {"вул. Перша, 1", "3.000"}}) {
        pressKeys({Qt::Key_F11});
        box("cbTransferFrom")->setCurrentText(from);
        chooseTo("вул. Друга, 2");
        scanAndWait(bread);
        pressKeys({Qt::Key_F9});
        waitOutTasks();
        QCOMPARE(inStoreRoom(), QString(left));
    }
    QCOMPARE(sent().size(), 2);
}

/// Not of the shop in which is sold.
void TstTransferFields::pastedTableIsOfTheSender()
{
    m_base.exec("INSERT INTO goods_shop(id_shop,id_goods,count_syllable) VALUES(4,10,9000)");
    box("cbShop")->setCurrentText("вул. Перша, 1");
    waitOutTasks();
    box("cbTransferFrom")->setCurrentText("Склад");
    QApplication::clipboard()->setText(QString("%1\t2\n%2\t1").arg(bread, cheese));
    QStringList words;
    QVERIFY(withModal<QPasteTable>([] { pressKeys({Qt::CTRL + Qt::Key_V}); },
                                   [&](QPasteTable *form) {
                                       waitOutTasks();
                                       const auto *lines = child<ListPane>(form, "listLines")->model();
                                       for (int row = 0; row < lines->rowCount(); ++row)
                                           words.append(lines->index(row, 4).data().toString());
                                       answerConfirm([form] { form->accept(); }, true);
                                   }));
    QCOMPARE(words, QStringList({"додається 2.000", "у магазині немає цього товару"}));
    const auto *grid =
        child<QNTableView>(child<QStackedWidget>(m_tab.get(), "documents")->currentWidget(), "viewStock");
    QCOMPARE(grid->model()->index(0, 4).data().toString(), QString("9.000"));
    QApplication::clipboard()->clear();
}

void TstTransferFields::nobodyToSendTo()
{
    m_base.exec("DELETE FROM lst_shops_transmit");
    open();
    m_base.exec("INSERT INTO lst_shops_transmit(id_g_prem,id_shop) VALUES(1,2),(1,4),(1,5)");
    box("cbTransferFrom")->setCurrentText("вул. Перша, 1");
    scanAndWait(bread);
    pressKeys({Qt::Key_F9});
    waitOutTasks();
    QVERIFY2(notice().contains("у групах прав"), qPrintable(notice()));
    QVERIFY(sent().isEmpty());
}

QTEST_MAIN(TstTransferFields)
#include "tst_transferfields.moc"
