#include "qmanaction.h"

#include "barcodedialog.h"
#include "heartbeat.h"
#include "listpane.h"
#include "pastedbarcodes.h"
#include "permissions.h"
#include "qchekedcombobox.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "saleshop.h"
#include "servererror.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {
const int changedMeanwhile = 3;
}

/// Promotions on their way to goods of shops, with other programs and a failing server in between.
class TstQManAction : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase() { m_base.reset(); }

    void barcodesOfAPastedText_data();
    void barcodesOfAPastedText();
    void previewShowsPricesAndWhatIsLeftOut();
    void whatIsShownIsWrittenAndSold();
    void takenOffWhereverItIs();
    void listOfBarcodes();
    void garbageIsNoList();
    void otherConditionsAreAnotherPreview();
    void changedByOthersIsKeptOut();
    void anotherPromotionByNow_data();
    void anotherPromotionByNow();
    void spoiltOnceIsTriedAgain_data();
    void spoiltOnceIsTriedAgain();
    void failedOneWritesNothing();
    void lostAnswerIsAskedFor();
    void lostAnswerOfOpenTransaction();
    void stoppedWritesNothing();
    void comingBackKeepsTheChoice();
    void tenThousandGoodsInTenShops();
    void viewersOnlyLook();
    void rightThatGoesDuringTheQuestion();
    void onlyTheUsersShops();

private:
    void choose(const char *box, const QString &text)
    {
        child<QComboBox>(m_page.get(), box)->setCurrentText(text);
    }
    void chooseShop(const QString &address);
    void press(const char *button) { child<QPushButton>(m_page.get(), button)->click(); }
    void preview();
    /// Presses the button, answers its question and waits for the end; the text of the question.
    QString assign(const std::function<void()> &meanwhile = {});
    QString counts() const
    {
        return child<QLabel>(m_page.get(), "labelCounts")->text().replace(QChar(0xA0), ' ');
    }
    QStringList lines() const;
    QStringList stock()
    {
        return m_base->rows(
            "SELECT id_shop,id_goods,id_action FROM goods_shop WHERE id_action<>1 ORDER BY 1,2");
    }

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QManAction> m_page;
};

void TstQManAction::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    fillSaleShop(m_base.get());
}

/// "Осіння" is in force always, "Торішня" is over.
void TstQManAction::init()
{
    resetSaleShop(m_base.get());
    m_base->exec({"UPDATE lst_permis SET permission=1 WHERE id_prem=103",
                  "DELETE FROM lst_group WHERE id_group=2",
                  "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2)",
                  "INSERT INTO action(id,name,id_type_action,val,datetime_start,datetime_end,week_day) VALUES"
                  "(2,'Осіння',2,1550,0,0,'Mon,Tue,Wed,Thu,Fri,Sat,Sun,'),"
                  "(3,'Торішня',2,2000,20250101000000,20250131235959,'Mon,Tue,Wed,Thu,Fri,Sat,Sun,')",
                  "UPDATE goods_shop SET id_action=3 WHERE id_shop=1 AND id_goods IN (11,16)",
                  "UPDATE goods_shop SET id_action=2 WHERE id_shop=2 AND id_goods=10",
                  "INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES(10,1,1,0,9995)"});
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", QString()));
    m_page =
        std::make_unique<QManAction>(m_base->connection(), m_user.get(), &m_base->heard, nullptr, nullptr);
    m_page->setPermission(Permission::ActionsManagement);
    m_page->resize(1000, 600);
    QVERIFY(showActive(m_page.get()));
    QTRY_VERIFY(!m_page->isLoading());
    m_base->heard.forget();
}

void TstQManAction::cleanup()
{
    Db::setStatementHook(nullptr);
    Db::setStatementRefusal(nullptr);
    m_page.reset();
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQManAction::chooseShop(const QString &address)
{
    auto *shops = child<QChekedComboBox>(m_page.get(), "cbShops");
    for (int row = 0; row < shops->count(); ++row)
        shops->setChekedItem(row, Qt::Unchecked);
    shops->setChekedItem(shops->findText(address), Qt::Checked);
}

void TstQManAction::preview()
{
    press("pbPreview");
    waitOutJobs();
    waitOutTasks();
}

QString TstQManAction::assign(const std::function<void()> &meanwhile)
{
    QString asked;
    withModal<QMessDlg>([this] { press("pbAssign"); },
                        [&](QMessDlg *question) {
                            for (const auto *label : question->findChildren<QLabel *>())
                                asked += label->text();
                            if (meanwhile)
                                meanwhile();
                            waitOutGuard();
                            for (auto *button : question->findChildren<QPushButton *>()) {
                                const QString caption = button->text().remove('&');
                                if (caption == "Призначити" || caption == "Зняти")
                                    return button->click();
                            }
                        });
    waitOutJobs();
    waitOutTasks();
    return asked;
}

QStringList TstQManAction::lines() const
{
    const auto *model = m_page->list()->model();
    QStringList all;
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column)
            cells.append(model->index(row, column).data().toString().replace(QChar(0xA0), ' '));
        all.append(cells.join('|'));
    }
    return all;
}

void TstQManAction::barcodesOfAPastedText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("codes");
    QTest::addColumn<int>("ignored");
    QTest::newRow("lines") << "4820000000109\n\n 48200014 \r\n4820000000109\n"
                           << "4820000000109,48200014" << 0;
    QTest::newRow("table") << "Штрихкод\tКількість\n4820000000109\t12\n\"48200014\";5\n"
                           << "4820000000109,48200014" << 1;
    QTest::newRow("name first") << "Хліб житній\t4820000000109\n"
                                << "4820000000109" << 0;
    QTest::newRow("too long, letters, a number of a spreadsheet") << "14820000000109555\nabc\n12x\n4,82E+12\n"
                                                                  << "" << 4;
}

void TstQManAction::barcodesOfAPastedText()
{
    QFETCH(QString, text);
    QFETCH(QString, codes);
    QFETCH(int, ignored);
    int left = -1;
    QCOMPARE(barcodesIn(text, &left).join(','), codes);
    QCOMPARE(left, ignored);
}

/// 12.30 less 15.5 % are 10.3935; 99.95 less 15.4923 are 84.46.
void TstQManAction::previewShowsPricesAndWhatIsLeftOut()
{
    choose("cbAction", "Осіння");
    chooseShop("вул. Перша, 1");
    preview();
    QCOMPARE(
        lines(),
        QStringList({"вул. Перша, 1|10|Хліб житній|99.95|Без акції|99.95|84.46|буде призначено",
                     "вул. Перша, 1|11|Сир ваговий|80.00|Торішня|80.00|67.60|буде призначено",
                     "вул. Перша, 1|12|Пакет O'Neil 5%|12.30|Без акції|12.30|10.39|буде призначено",
                     "вул. Перша, 1|13|Молоко|30.00|Без акції|30.00|25.35|буде призначено",
                     "вул. Перша, 1|14|Картопля|7.00|Без акції|7.00|5.91|буде призначено",
                     "вул. Перша, 1|15|Новинка||Без акції|||буде призначено",
                     "вул. Перша, 1|16|Знятий|1.00|Торішня|1.00|0.84|пропущено: товар заблоковано",
                     "вул. Перша, 1|17|Пляшка|1.00|Без акції|1.00|0.84|пропущено: службова група товарів"}));
    QCOMPARE(counts(),
             QString("Зміниться: 6 (різних товарів: 6, магазинів: 1). Заблоковані: 1. Службові групи: 1."));
    chooseShop("вул. Друга, 2");
    child<QLineEdit>(m_page.get(), "leSearch")->setText("жит хліб");
    preview();
    QCOMPARE(lines(), QStringList("вул. Друга, 2|10|Хліб житній|50.00|Осіння|42.25|42.25|уже має цю акцію"));
    QVERIFY(!child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
    QCOMPARE(stock(), QStringList({"1|11|3", "1|16|3", "2|10|2"}));
}

/// The sale charges what the preview told.
void TstQManAction::whatIsShownIsWrittenAndSold()
{
    m_base->exec("UPDATE updat SET updat=20200101000000");
    choose("cbAction", "Осіння");
    chooseShop("вул. Перша, 1");
    preview();
    const QStringList told = lines();
    const QString asked = assign();
    QVERIFY2(asked.contains("«Осіння»") && asked.contains("разом цін: 6") && asked.contains("діє зараз"),
             qPrintable(asked));
    QCOMPARE(stock(),
             QStringList({"1|10|2", "1|11|2", "1|12|2", "1|13|2", "1|14|2", "1|15|2", "1|16|3", "2|10|2"}));
    QCOMPARE(counts(), QString("Акцію «Осіння» призначено: 6."));
    QVERIFY(lines().at(0).endsWith("|призначено") && lines().at(6).endsWith("заблоковано"));
    QVERIFY(!child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
    QCOMPARE(m_base->rows("SELECT name FROM updat WHERE updat>20250101000000 ORDER BY name"),
             QStringList({"action", "goods_shop"}));
    for (int row = 0; row < 5; ++row) {
        const ReceiptRow sold = goodsRow(m_base.get(), 10 + row);
        QCOMPARE(told.at(row).section('|', 6, 6),
                 QString::number(double(sold.sum() - sold.actDiscount()) / 100, 'f', 2));
    }
}

void TstQManAction::takenOffWhereverItIs()
{
    choose("cbAction", "Без акції");
    choose("cbHas", "Торішня");
    preview();
    QCOMPARE(lines().size(), 2);
    QVERIFY(lines().at(1).startsWith("вул. Перша, 1|16|") && lines().at(1).endsWith("|акцію буде знято"));
    QVERIFY(assign().contains("Зняти акції з показаних товарів?"));
    QCOMPARE(stock(), QStringList("2|10|2"));
    QCOMPARE(counts(), QString("Акцію знято: 2."));
}

void TstQManAction::listOfBarcodes()
{
    choose("cbAction", "Осіння");
    QVERIFY(withModal<BarcodeDialog>(
        [this] { press("pbBarcodes"); },
        [](BarcodeDialog *dialog) {
            child<QPlainTextEdit>(dialog, "pteBarcodes")
                ->setPlainText("Код\tНазва\n4820000000130\tМолоко\n48200014\n4820000009999\n");
            child<QPushButton>(dialog, "pbOk")->click();
        }));
    QCOMPARE(child<QLabel>(m_page.get(), "labelBarcodes")->text(),
             QString("Лише зі списку: 3 (рядків без штрихкоду: 1)"));
    chooseShop("вул. Перша, 1");
    preview();
    QCOMPARE(lines().size(), 2);
    QCOMPARE(
        counts(),
        QString("Зміниться: 2 (різних товарів: 2, магазинів: 1). Невідомі штрихкоди: 1 (4820000009999)."));
    chooseShop("Офіс");
    preview();
    QCOMPARE(lines(),
             QStringList({"Офіс|13|Молоко|30.00||30.00|25.35|пропущено: магазин не має цього товару",
                          "Офіс|14|Картопля|7.00||7.00|5.91|пропущено: магазин не має цього товару"}));
}

/// Nor does it mean all goods.
void TstQManAction::garbageIsNoList()
{
    choose("cbAction", "Осіння");
    chooseShop("вул. Перша, 1");
    preview();
    QVERIFY(child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
    const auto paste = [this](const QString &text) {
        return withModal<BarcodeDialog>([this] { press("pbBarcodes"); },
                                        [&](BarcodeDialog *dialog) {
                                            child<QPlainTextEdit>(dialog, "pteBarcodes")->setPlainText(text);
                                            child<QPushButton>(dialog, "pbOk")->click();
                                        });
    };
    QVERIFY(paste("Прайс.xlsx\n4.82E+12\n"));
    QVERIFY(!child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
    QVERIFY(answerQuestion([this] { press("pbPreview"); }).contains("жодного штрихкоду"));
    QVERIFY(paste(QString()));
    preview();
    QVERIFY(child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
}

void TstQManAction::otherConditionsAreAnotherPreview()
{
    QVERIFY(answerQuestion([this] { press("pbPreview"); }).startsWith("Виберіть акцію."));
    choose("cbAction", "Осіння");
    preview();
    QVERIFY(child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
    child<QLineEdit>(m_page.get(), "leSearch")->setFocus();
    typeText("хл");
    QVERIFY(!child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
    QCOMPARE(counts(), QString("Умови змінено: натисніть «Переглянути» ще раз."));
    pressKeys({Qt::Key_Return});
    waitOutJobs();
    QCOMPARE(lines().size(), 2);
    QVERIFY(answerConfirm([this] { press("pbAssign"); }, false).contains("«Осіння»"));
    QCOMPARE(stock().size(), 3);
}

/// While the question is open.
void TstQManAction::changedByOthersIsKeptOut()
{
    choose("cbAction", "Осіння");
    chooseShop("вул. Перша, 1");
    preview();
    assign([this] {
        m_base->exec({"UPDATE goods_shop SET id_action=3 WHERE id_shop=1 AND id_goods=13",
                      "DELETE FROM goods_shop WHERE id_shop=1 AND id_goods=14"});
    });
    QCOMPARE(stock(), QStringList({"1|10|2", "1|11|2", "1|12|2", "1|13|3", "1|15|2", "1|16|3", "2|10|2"}));
    QCOMPARE(counts(),
             QString("Акцію «Осіння» призначено: 4. Пропущено, бо тим часом їх змінив хтось інший: 2."));
    QVERIFY(lines().at(changedMeanwhile).endsWith("пропущено: тим часом змінив хтось інший"));
    m_base->exec("INSERT INTO goods_shop(id_shop,id_goods,count_showroom) VALUES(1,14,10000)");
}

void TstQManAction::anotherPromotionByNow_data()
{
    QTest::addColumn<QStringList>("other");
    QTest::addColumn<QString>("told");
    QTest::newRow("changed") << QStringList("UPDATE action SET val=9900 WHERE id=2")
                             << "Акцію «Осіння» тим часом змінив";
    QTest::newRow("removed") << QStringList({"UPDATE goods_shop SET id_action=1 WHERE id_action=2",
                                             "DELETE FROM action WHERE id=2"})
                             << "Акцію «Осіння» тим часом видалив";
}

void TstQManAction::anotherPromotionByNow()
{
    QFETCH(QStringList, other);
    QFETCH(QString, told);
    choose("cbAction", "Осіння");
    chooseShop("вул. Перша, 1");
    preview();
    assign([&] { m_base->exec(other); });
    QVERIFY2(counts().startsWith(told), qPrintable(counts()));
    QVERIFY(!stock().contains("1|10|2"));
    QVERIFY(!child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
}

void TstQManAction::spoiltOnceIsTriedAgain_data()
{
    QTest::addColumn<int>("error");
    QTest::newRow("deadlock") << int(ServerError::Deadlock);
    QTest::newRow("lock wait") << int(ServerError::LockWait);
}

void TstQManAction::spoiltOnceIsTriedAgain()
{
    QFETCH(int, error);
    choose("cbAction", "Осіння");
    chooseShop("вул. Перша, 1");
    preview();
    std::atomic<int> refusals{0};
    Db::setStatementRefusal([&](const QString &sql) {
        return sql.startsWith("UPDATE goods_shop SET id_action") && refusals++ == 0 ? error : 0;
    });
    assign();
    QCOMPARE(refusals.load(), 2);
    QCOMPARE(counts(), QString("Акцію «Осіння» призначено: 6."));
    QCOMPARE(stock().size(), 8);
}

void TstQManAction::failedOneWritesNothing()
{
    choose("cbAction", "Осіння");
    preview();
    Db::setStatementRefusal([](const QString &sql) {
        return sql.contains("WHERE id_shop=2 AND id_goods IN") && sql.startsWith("UPDATE") ? 1114 : 0;
    });
    assign();
    QCOMPARE(counts(), QString("Не вдалося, у базу нічого не записано."));
    QVERIFY(m_base->heard.has("UPDATE goods_shop SET id_action=2"));
    m_base->heard.forget();
    QCOMPARE(stock(), QStringList({"1|11|3", "1|16|3", "2|10|2"}));
}

void TstQManAction::lostAnswerIsAskedFor()
{
    choose("cbAction", "Осіння");
    chooseShop("вул. Перша, 1");
    preview();
    std::atomic<int> commits{0};
    Db::setStatementHook([&](const QString &sql) {
        if (sql == "COMMIT" && commits++ == 0) {
            commitHere();
            m_base->killConnection();
        }
    });
    assign();
    Db::setStatementHook(nullptr);
    QCOMPARE(counts(), QString("Акцію «Осіння» призначено: 6."));
    QCOMPARE(commits.load(), 1);
    QCOMPARE(stock().size(), 8);
    waitOutLoss(*m_base->connection());
    m_base->heard.forget();
}

/// The server has not ended what the lost connection has written: neither yes nor no.
void TstQManAction::lostAnswerOfOpenTransaction()
{
    choose("cbAction", "Осіння");
    chooseShop("вул. Перша, 1");
    preview();
    std::unique_ptr<WorkerConnection> open;
    const auto holdTheSame = [&] {
        open = std::make_unique<WorkerConnection>(m_base->connection()->connectionName(), &m_base->heard);
        QSqlQuery query(*open->database());
        QVERIFY(query.exec("START TRANSACTION") &&
                query.exec("UPDATE goods_shop SET id_action=2 WHERE id_shop=1"));
    };
    std::atomic<bool> isLost{false};
    Db::setStatementHook([&](const QString &sql) {
        if (sql != "COMMIT" || isLost.exchange(true))
            return;
        m_base->killConnection();
        QMetaObject::invokeMethod(m_page.get(), holdTheSame, Qt::BlockingQueuedConnection);
    });
    assign();
    Db::setStatementHook(nullptr);
    open.reset();
    QVERIFY2(counts().contains("Невідомо, чи записано"), qPrintable(counts()));
    waitOutLoss(*m_base->connection());
    m_base->heard.forget();
}

void TstQManAction::stoppedWritesNothing()
{
    choose("cbAction", "Осіння");
    preview();
    Db::setStatementHook([this](const QString &sql) {
        if (sql.startsWith("UPDATE goods_shop SET id_action=2 WHERE id_shop=2"))
            QMetaObject::invokeMethod(
                m_page.get(),
                [this] {
                    // It does not close meanwhile.
                    QVERIFY(answerQuestion([this] {
                                QVERIFY(!m_page->mayClose());
                            }).contains("ще призначається"));
                    press("pbStop");
                },
                Qt::BlockingQueuedConnection);
    });
    assign();
    QCOMPARE(counts(), QString("Зупинено, у базу нічого не записано."));
    QCOMPARE(stock(), QStringList({"1|11|3", "1|16|3", "2|10|2"}));
    QVERIFY2(child<QPushButton>(m_page.get(), "pbAssign")->isEnabled(),
             "what is shown may be written once more");
}

/// Somebody comes back by the menu.
void TstQManAction::comingBackKeepsTheChoice()
{
    choose("cbAction", "Осіння");
    choose("cbHas", "Торішня");
    chooseShop("вул. Перша, 1");
    preview();
    QCOMPARE(lines().size(), 2);
    m_base->exec("INSERT INTO action(id,name,id_type_action,val,week_day) VALUES(4,'Нова',2,100,'Mon,')");
    m_page->openedByMenu();
    QTRY_VERIFY(!m_page->isLoading());
    QVERIFY(child<QComboBox>(m_page.get(), "cbAction")->findText("Нова") > 0);
    QVERIFY(child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
    QVERIFY(assign().contains("магазинів: 1, разом цін: 1"));
    QCOMPARE(stock(), QStringList({"1|11|2", "1|16|3", "2|10|2"}));
}

void TstQManAction::tenThousandGoodsInTenShops()
{
    const QString places = "WHERE id BETWEEN 100 AND 109";
    m_base->exec(
        {"INSERT INTO shops(id,address,group_shop,count_day_cycle,block) SELECT 100+seq,CONCAT('Велика ',seq),"
         "2,1,0 FROM seq_0_to_9",
         "INSERT INTO goods(id,name,price,type,group_g,tax,block) SELECT 1000+seq,CONCAT('Товар ',seq),seq+1,1,"
         "1,1,0 FROM seq_0_to_9999",
         "INSERT INTO goods_shop(id_shop,id_goods) SELECT shops.id,goods.id FROM shops,goods WHERE shops.id>=100 "
         "AND goods.id>=1000"});
    m_page->openedByMenu();
    QTRY_VERIFY(!m_page->isLoading());
    choose("cbAction", "Осіння");
    child<QLineEdit>(m_page.get(), "leSearch")->setText("Товар");
    Heartbeat heart;
    preview();
    const QString shown = counts();
    const qint64 shownIn = m_page->list()->model()->rowCount();
    assign();
    const qint64 gap = heart.longestGap();
    const QString written = counts();
    const QString stored =
        m_base->value("SELECT COUNT(*) FROM goods_shop WHERE id_action=2 AND id_goods>=1000");
    m_base->exec({"DELETE FROM goods_shop WHERE id_goods>=1000", "DELETE FROM goods WHERE id>=1000",
                  "DELETE FROM shops " + places});
    QVERIFY2(shown.startsWith("Зміниться: 100 000 (різних товарів: 10 000, магазинів: 10)."),
             qPrintable(shown));
    QCOMPARE(shownIn, qint64(100000));
    QCOMPARE(written, QString("Акцію «Осіння» призначено: 100 000."));
    QCOMPARE(stored, QString("100000"));
    QVERIFY2(gap <= 200, qPrintable(QString::number(gap)));
}

void TstQManAction::viewersOnlyLook()
{
    m_base->exec("UPDATE lst_permis SET permission=2 WHERE id_prem=103");
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", QString()));
    choose("cbAction", "Осіння");
    // Asked for while the boxes are being filled again.
    preview();
    waitOutJobs();
    QVERIFY(!lines().isEmpty());
    QVERIFY(!child<QPushButton>(m_page.get(), "pbAssign")->isEnabled());
    QVERIFY(child<QPushButton>(m_page.get(), "pbAssign")->toolTip().contains("лише переглядати"));
}

void TstQManAction::rightThatGoesDuringTheQuestion()
{
    choose("cbAction", "Осіння");
    preview();
    m_base->exec("UPDATE lst_permis SET permission=2 WHERE id_prem=103");
    const QString why = answerQuestion(
        [this] { assign([this] { m_user->loadpermis(m_base->connection(), "admin", QString()); }); });
    QVERIFY2(why.contains("лише переглядати"), qPrintable(why));
    QCOMPARE(stock(), QStringList({"1|11|3", "1|16|3", "2|10|2"}));
}

void TstQManAction::onlyTheUsersShops()
{
    const auto *shops = child<QComboBox>(m_page.get(), "cbShops");
    QCOMPARE(shops->count(), 6);
    m_base->exec("DELETE FROM lst_group WHERE id_group=2");
    QVERIFY(m_user->loadpermis(m_base->connection(), "admin", QString()));
    QTRY_VERIFY(!m_page->isLoading());
    QCOMPARE(shops->count(), 1);
    choose("cbAction", "Осіння");
    QVERIFY(!answerQuestion([this] { press("pbPreview"); }).isEmpty());
}

QTEST_MAIN(TstQManAction)
#include "tst_qmanaction.moc"
