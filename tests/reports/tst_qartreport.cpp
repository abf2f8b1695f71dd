#include "testing.h"

#include "barlist.h"
#include "money.h"
#include "placeselector.h"
#include "qartreport.h"
#include "qchekedcombobox.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qreports.h"
#include "qrowmodel.h"
#include "rangeselector.h"
#include "waitchosen.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>

namespace {
const QDate firstDay(2026, 3, 1);
const QDate lastDay(2026, 3, 2);

/// One receipt a line, in every register, shift and of every type; two prices an article.
const char *const fillReceipts =
    "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_user,id_type,id_good_cln_slujb,name,"
    "strihcode,count,price,summa,type,sumdisc,bonus_plus,data_time) "
    "SELECT z.id_shop,z.id_kass,z.id_zzvit,z.id_zzvit*1000+seq,0,1,ELT(1+seq%5,1,1,2,1,6),1+seq*7%15,"
    "CONCAT('Товар ',1+seq*7%15),LPAD(1+seq*7%15,13,'0'),IF((1+seq*7%15)%2,1000*(1+seq%3),125+seq*37%900),"
    "1000+seq*7%15+IF(seq%4,0,50),300+seq*7919%9001,(1+seq*7%15)%2,seq%3*seq,seq%11,"
    "20260300000000+(z.id_zzvit-4)*1000000+100000 "
    "FROM z_zvit z JOIN seq_1_to_90 WHERE seq%4<>z.id_kass%4";

QStringList items(const QComboBox *box)
{
    QStringList texts;
    for (int i = 0; i < box->count(); ++i)
        texts.append(box->itemText(i));
    return texts;
}
} // namespace

/// The article report against sums straight from the receipt lines.
class TstQArtReport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_base.reset(); }
    void init();
    void cleanup();

    void figuresAreThoseOfTheReceiptLines_data();
    void figuresAreThoseOfTheReceiptLines();
    void daysAreSeparateLines();
    void twoPricesAreTwoLinesOrTheirAverage();
    void goodsWithoutGroupAreAlwaysIn();
    void limitCutsLinesAndTotals();
    void dayWithoutReportsIsExplained();
    void boxesOfferWhatBelongsToThem();
    void numbersChangeWithTheDayOnly();
    void failedLoadKeepsTheList();
    void doubleClickAsksForTheReceipts();
    void chartShowsTheTenLargest();
    void listIsExported();
    void listIsSavedAsPdf();

private:
    /// Loads and gives the lines, sorted: code, price, thousandths, sum, discount.
    QStringList load();
    QString text(const char *edit) { return child<QLineEdit>(m_report.get(), edit)->text(); }
    void choosePlace(uint group, uint shop, uint kass);

    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QArtReport> m_report;
    PlaceSelector *m_place = nullptr;
};

void TstQArtReport::initTestCase()
{
    m_base = std::make_unique<FreshDatabase>();
    m_base->exec(QStringList{
        "INSERT INTO group_goods(id,name) VALUES(2,'Молочні'),(3,'Хліб')",
        "INSERT INTO group_shop(id,name) VALUES(2,'Північ'),(3,'Південь')",
        "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2) ON DUPLICATE KEY UPDATE id_group=2",
        "INSERT INTO shops(id,address,name,group_shop,block) VALUES(1,'Спільний','',1,0)",
        "INSERT INTO shops(id,address,name,group_shop,block) VALUES(2,'Північний','',2,0)",
        "INSERT INTO shops(id,address,name,group_shop,block) VALUES(3,'Закритий','',2,1)",
        "INSERT INTO shops(id,address,name,group_shop,block) VALUES(4,'Південний','',3,0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(11,1,'Спільна',0),(21,2,'Перша',0)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(22,2,'Друга',0),(23,2,'Стара',1)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(41,4,'Чужа',0)",
        "SET foreign_key_checks=0",
        // Group 0, 2 or 3; articles with an odd code are sold by the piece.
        "INSERT INTO goods(id,name,type,group_g) SELECT seq,seq,seq%2,ELT(1+seq%3,0,2,3) FROM seq_1_to_15",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(5,2,21,20260301210000)",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(6,2,21,20260302210000),(7,2,21,0)",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(5,2,22,20260301220000)",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(8,1,11,20260302200000)",
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(9,4,41,20260301200000)", fillReceipts,
        // The same number was another day's at another register.
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(6,2,22,20260220210000)",
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,id_good_cln_slujb,name,count,price,"
        "summa,type,sumdisc,bonus_plus,data_time) VALUES(2,22,6,900,0,1,3,'Товар 3',1000,1003,99900,1,7,0,"
        "20260220100000),(2,22,6,900,1,2,1,'',0,0,500,0,0,300,20260220100000)",
        "SET foreign_key_checks=1"});
}

void TstQArtReport::init()
{
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->load(m_base->connection(), "1", "1", QString()));
    QCOMPARE(QSet<QString>(m_user->groups().begin(), m_user->groups().end()), (QSet<QString>{"1", "2"}));
    m_report = std::make_unique<QArtReport>(m_base->connection(), m_user.get(), &m_base->heard, nullptr);
    m_place = child<PlaceSelector>(m_report.get(), "place");
    child<RangeSelector>(m_report.get(), "range")->setDays(firstDay, lastDay);
    waitChosen(m_report.get());
    m_base->heard.forget();
}

void TstQArtReport::cleanup()
{
    m_report.reset();
    m_user.reset();
}

void TstQArtReport::choosePlace(uint group, uint shop, uint kass)
{
    if (group != 0)
        QVERIFY(m_place->chooseGroup(group));
    if (shop != 0)
        QVERIFY(m_place->chooseShop(shop));
    if (kass != 0)
        QVERIFY(m_place->chooseRegister(kass));
    child<QPushButton>(m_report.get(), "pbNumbers")->click();
    waitChosen(m_report.get());
}

QStringList TstQArtReport::load()
{
    QSignalSpy spy(m_report.get(), &ReportWindow::loaded);
    m_report->load();
    if (!spy.wait(5000))
        qFatal("The report has not come");
    QStringList lines;
    for (int row = 0; row < m_report->model()->rowCount(); ++row) {
        QStringList cells;
        for (const int column : {0, 3, 4, 5, 6})
            cells.append(m_report->model()->stored(row, column));
        lines.append(cells.join('|'));
    }
    lines.sort();
    return lines;
}

void TstQArtReport::figuresAreThoseOfTheReceiptLines_data()
{
    QTest::addColumn<uint>("group");
    QTest::addColumn<uint>("shop");
    QTest::addColumn<uint>("kass");
    QTest::addColumn<QString>("shifts");
    QTest::addColumn<bool>("datesOnly");
    const QString shop = "id_kass IN (21,22) AND id_zvit IN (5,6)";
    const QString dates = " AND DATE(data_time) BETWEEN '2026-03-01' AND '2026-03-02'";
    const QString all = "id_kass IN (11,21,22) AND id_zvit BETWEEN 5 AND 8";
    QTest::newRow("register") << 2U << 2U << 21U << "id_kass=21 AND id_zvit IN (5,6)" << false;
    QTest::newRow("register of another shift number")
        << 2U << 2U << 22U << "id_kass=22 AND id_zvit=5" << false;
    QTest::newRow("shop") << 2U << 2U << 0U << shop + dates << true;
    QTest::newRow("shop, all days") << 2U << 2U << 0U << shop << false;
    QTest::newRow("group") << 2U << 0U << 0U << shop + dates << true;
    QTest::newRow("group, all days") << 2U << 0U << 0U << shop << false;
    QTest::newRow("permitted groups") << 0U << 0U << 0U << all + dates << true;
    QTest::newRow("permitted groups, all days") << 0U << 0U << 0U << all << false;
}

void TstQArtReport::figuresAreThoseOfTheReceiptLines()
{
    QFETCH(uint, group);
    QFETCH(uint, shop);
    QFETCH(uint, kass);
    QFETCH(QString, shifts);
    QFETCH(bool, datesOnly);
    choosePlace(group, shop, kass);
    // By itself as soon as there is more than one register.
    auto *box = child<QCheckBox>(m_report.get(), "chDatesOnly");
    QCOMPARE(box->isChecked(), kass == 0);
    box->setChecked(datesOnly);
    if (kass == 22) // closed on the first day only
        child<RangeSelector>(m_report.get(), "range")->setDays(firstDay, firstDay);
    QStringList expected = m_base->rows(
        "SELECT id_good_cln_slujb,price,SUM(count),SUM(summa-sumdisc),SUM(sumdisc) FROM cheks WHERE "
        "id_type=1 AND " +
        shifts + " GROUP BY 1,2");
    expected.sort();
    QVERIFY(expected.size() > 15);
    QCOMPARE(load(), expected);

    const auto total = [&](const QString &sql) {
        return m_base->value("SELECT " + sql + " FROM cheks WHERE " + shifts).toLongLong();
    };
    const qint64 bonus = total("SUM(IF(id_type=2,bonus_plus,0))");
    QVERIFY(bonus > 0);
    QCOMPARE(text("leBonus"), moneyShown(bonus));
    QCOMPARE(text("leWeight"), quantityShown(total("SUM(IF(id_type=1 AND type=0,count,0))")));
    QCOMPARE(text("lePieces"), QString::number(total("SUM(IF(id_type=1 AND type=1,count,0))") / 1000));
    QCOMPARE(text("leValue"), moneyShown(total("SUM(IF(id_type=1,summa-sumdisc,0))") - bonus));
    QCOMPARE(m_report->heading().at(2).contains("продано"), datesOnly);
    QVERIFY(m_base->heard.texts().isEmpty());
}

void TstQArtReport::daysAreSeparateLines()
{
    choosePlace(2, 2, 21);
    child<QCheckBox>(m_report.get(), "chNoDate")->setChecked(false);
    QStringList expected =
        m_base->rows("SELECT id_good_cln_slujb,price,SUM(count),SUM(summa-sumdisc),SUM(sumdisc) "
                     "FROM cheks WHERE id_type=1 AND id_kass=21 AND id_zvit IN (5,6) "
                     "GROUP BY id_good_cln_slujb,price,id_zvit");
    expected.sort();
    QCOMPARE(load(), expected);
    QSet<QString> days;
    for (int row = 0; row < m_report->model()->rowCount(); ++row)
        days.insert(m_report->model()->index(row, 7).data().toString());
    QCOMPARE(days, (QSet<QString>{"01-03-2026", "02-03-2026"}));
}

void TstQArtReport::twoPricesAreTwoLinesOrTheirAverage()
{
    m_base->exec(
        "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_position,id_type,id_good_cln_slujb,name,count,"
        "price,summa,type) VALUES(1,11,8,1,0,1,77,'Дві ціни',1000,1000,1000,1),"
        "(1,11,8,2,0,1,77,'Дві ціни',2000,1250,2500,1)");
    choosePlace(1, 1, 11);
    child<RangeSelector>(m_report.get(), "range")->setDays(lastDay, lastDay);
    QStringList lines = load().filter(QRegularExpression("^77\\|"));
    QCOMPARE(lines, (QStringList{"77|1000|1000|1000|0", "77|1250|2000|2500|0"}));
    child<QCheckBox>(m_report.get(), "chAverage")->setChecked(true);
    lines = load().filter(QRegularExpression("^77\\|"));
    QCOMPARE(lines.size(), 1);
    const QModelIndexList found =
        m_report->model()->match(m_report->model()->index(0, 0), Qt::DisplayRole, "77", 1, Qt::MatchExactly);
    QCOMPARE(found.size(), 1);
    QCOMPARE(found.first().siblingAtColumn(3).data().toString(), QString("11.67"));
    QCOMPARE(m_report->model()->headerData(3, Qt::Horizontal).toString(), QString("середня ціна"));
    QCOMPARE(found.first().siblingAtColumn(4).data().toString(), QString("3.000"));
    m_base->exec("DELETE FROM cheks WHERE id_good_cln_slujb=77");
}

void TstQArtReport::goodsWithoutGroupAreAlwaysIn()
{
    choosePlace(2, 2, 21);
    auto *groups = child<QChekedComboBox>(m_report.get(), "cbGoodsGroups");
    const auto codes = [&] {
        QSet<int> groupsSold;
        const QStringList lines = load();
        for (const QString &line : lines)
            groupsSold.insert(
                m_base->value("SELECT group_g FROM goods WHERE id=" + line.section('|', 0, 0)).toInt());
        return groupsSold;
    };
    QCOMPARE(codes(), (QSet<int>{0, 2, 3}));
    m_report->show();
    QVERIFY(QTest::qWaitForWindowActive(m_report.get()));
    QTest::mouseClick(groups, Qt::LeftButton);
    const auto click = [groups](int row) {
        const QRect place = groups->view()->visualRect(groups->model()->index(row, 0));
        QTest::mouseClick(groups->view()->viewport(), Qt::LeftButton, {}, place.center());
    };
    click(groups->findData(3));
    QCOMPARE(codes(), (QSet<int>{0, 2}));
    const QString sold =
        "FROM cheks JOIN goods ON goods.id=id_good_cln_slujb WHERE id_type=1 AND id_kass=21 AND "
        "id_zvit IN (5,6) AND group_g IN (0,2)";
    QStringList expected =
        m_base->rows("SELECT id_good_cln_slujb,cheks.price,SUM(count),SUM(summa-sumdisc),SUM(sumdisc) " +
                     sold + " GROUP BY 1,2");
    expected.sort();
    QCOMPARE(load(), expected);
    const qint64 bonus =
        m_base->value("SELECT SUM(bonus_plus) FROM cheks WHERE id_type=2 AND id_kass=21 AND id_zvit IN (5,6)")
            .toLongLong();
    QCOMPARE(text("leValue"),
             moneyShown(m_base->value("SELECT SUM(summa-sumdisc) " + sold).toLongLong() - bonus));
    QCOMPARE(m_report->heading().last(), QString("Групи товарів: default, Молочні"));
    click(0);
    click(0);
    QCOMPARE(codes(), (QSet<int>{0}));
}

void TstQArtReport::limitCutsLinesAndTotals()
{
    auto *limit = child<QLineEdit>(m_report.get(), "leLimit");
    limit->setText("2");
    const QStringList lines = load();
    QCOMPARE(lines.size(), 2);
    qint64 sum = 0;
    for (const QString &line : lines)
        sum += line.section('|', 3, 3).toLongLong();
    qint64 bonus = 0;
    QVERIFY(kopecksFromText(text("leBonus"), &bonus));
    QCOMPARE(text("leValue"), moneyShown(sum - bonus));
    limit->setText("2; DROP");
    QVERIFY(answerQuestion([&] { m_report->load(); }).contains("цілим числом"));
}

void TstQArtReport::dayWithoutReportsIsExplained()
{
    auto *range = child<RangeSelector>(m_report.get(), "range");
    range->setDays(firstDay, lastDay.addDays(5));
    waitChosen(m_report.get());
    QCOMPARE(child<QComboBox>(m_report.get(), "cbZEnd")->count(), 0);
    QVERIFY(answerQuestion([&] { m_report->load(); }).contains("За 07.03.2026 немає Z-звітів"));
    range->setDays(lastDay, firstDay);
    waitChosen(m_report.get());
    child<QComboBox>(m_report.get(), "cbZStart")->setCurrentText("8");
    child<QComboBox>(m_report.get(), "cbZEnd")->setCurrentText("5");
    QVERIFY(answerQuestion([&] { m_report->load(); }).contains("більший за кінцевий"));
    QVERIFY(m_base->heard.texts().isEmpty());
    QVERIFY(!m_report->isLoading());
}

void TstQArtReport::boxesOfferWhatBelongsToThem()
{
    const auto *shops = child<QComboBox>(m_report.get(), "cbShop");
    QCOMPARE(items(shops), (QStringList{"Усі магазини", "Спільний", "Північний"}));
    QVERIFY(m_place->chooseGroup(2));
    waitChosen(m_report.get());
    QCOMPARE(items(shops), (QStringList{"Усі магазини", "Спільний", "Північний"}));
    QVERIFY(m_place->chooseGroup(1));
    waitChosen(m_report.get());
    QCOMPARE(items(shops), (QStringList{"Усі магазини", "Спільний"}));
    QVERIFY(m_place->chooseGroup(2));
    QVERIFY(m_place->chooseShop(2));
    waitChosen(m_report.get());
    QCOMPARE(items(child<QComboBox>(m_report.get(), "cbRegister")),
             (QStringList{"Усі каси", "Перша", "Друга"}));
}

void TstQArtReport::numbersChangeWithTheDayOnly()
{
    const auto *start = child<QComboBox>(m_report.get(), "cbZStart");
    const auto *end = child<QComboBox>(m_report.get(), "cbZEnd");
    const auto *hint = child<QLabel>(m_report.get(), "labelNumbersPlace");
    // Number 9 belongs to a shop of a group that the user does not see.
    QCOMPARE(items(start), QStringList{"5"});
    QCOMPARE(items(end), (QStringList{"6", "8"}));
    QCOMPARE(end->currentText(), QString("8"));
    QVERIFY(m_place->chooseGroup(2));
    waitChosen(m_report.get());
    QCOMPARE(items(end), (QStringList{"6", "8"}));
    QVERIFY(hint->text().contains("для іншого місця"));
    m_report->changDateEnd(lastDay);
    waitChosen(m_report.get());
    QCOMPARE(items(end), QStringList{"6"});
    QVERIFY(hint->text().isEmpty());
}

void TstQArtReport::failedLoadKeepsTheList()
{
    const QStringList before = load();
    m_base->exec("RENAME TABLE goods TO goods_away");
    QCOMPARE(load(), before);
    m_base->exec("RENAME TABLE goods_away TO goods");
    QVERIFY(m_base->heard.has("Помилка запиту:"));
    QVERIFY(m_base->heard.has("goods"));
}

void TstQArtReport::doubleClickAsksForTheReceipts()
{
    choosePlace(2, 2, 21);
    load();
    // What is chosen by now does not matter: the list is that of the register.
    QVERIFY(m_place->chooseGroup(0));
    waitChosen(m_report.get());
    QVector<ChekOrigin> asked;
    connect(m_report.get(), &ReportWindow::cheksWanted, this,
            [&](const ChekOrigin &line) { asked.append(line); });
    emit m_report->view()->doubleClicked(m_report->model()->index(0, 0));
    m_report->view()->setCurrentIndex(m_report->model()->index(1, 0));
    QVERIFY(showActive(m_report.get()));
    m_report->view()->setFocus();
    QTest::keyClick(m_report->view(), Qt::Key_Enter);
    QCOMPARE(asked.size(), 2);
    for (int row = 0; row < 2; ++row) {
        const ChekOrigin &line = asked.at(row);
        QCOMPARE(QVector<uint>({line.group, line.shop, line.kass}), QVector<uint>({2, 2, 21}));
        QCOMPARE(line.zFrom + '-' + line.zTo, QString("5-6"));
        QCOMPARE(line.article + '|' + line.price,
                 m_report->model()->stored(row, 0) + '|' + m_report->model()->stored(row, 3));
        QVERIFY(!line.firstDay.isValid());
    }
    QVERIFY(m_report->heading().join(' ').contains("Північ, Північний, Перша зміни 5 – 6"));
    // One line a day: that day; the average price: any price.
    child<QCheckBox>(m_report.get(), "chNoDate")->setChecked(false);
    child<QCheckBox>(m_report.get(), "chAverage")->setChecked(true);
    load();
    emit m_report->view()->doubleClicked(m_report->model()->index(0, 0));
    QCOMPARE(asked.last().firstDay.toString(Qt::ISODate), m_report->model()->stored(0, 7).left(10));
    QCOMPARE(asked.last().lastDay, asked.last().firstDay);
    QVERIFY(asked.last().price.isEmpty() && asked.last().kass == 0);
}

void TstQArtReport::chartShowsTheTenLargest()
{
    choosePlace(2, 0, 0);
    load();
    const QStringList expected = m_base->rows(
        "SELECT name,SUM(summa)-SUM(sumdisc) AS s FROM cheks WHERE id_type=1 AND id_kass IN (21,22) "
        "AND id_zvit IN (5,6) AND data_time>20260301 GROUP BY id_good_cln_slujb ORDER BY s DESC LIMIT 10");
    const auto *chart = child<BarList>(m_report.get(), "topArticles");
    QStringList drawn;
    for (const BarList::Bar &bar : chart->bars())
        drawn.append(bar.label + '|' + QString::number(bar.value));
    QCOMPARE(drawn, expected);
    QVERIFY(chart->accessibleDescription().startsWith(chart->bars().first().label));
    child<QCheckBox>(m_report.get(), "chChart")->setChecked(false);
    QVERIFY(child<QWidget>(m_report.get(), "chart")->isHidden());
}

void TstQArtReport::listIsExported()
{
    QTemporaryDir folder;
    QTabWidget tabs;
    QReports reports(&tabs, m_base->connection(), nullptr, m_user.get(), &m_base->heard);
    reports.ArtReports();
    QVERIFY(reports.current() != nullptr);
    child<RangeSelector>(reports.current(), "range")->setDays(firstDay, lastDay);
    child<QLineEdit>(reports.current(), "leLimit")->setText("1");
    QSignalSpy spy(reports.current(), &ReportWindow::loaded);
    reports.current()->load();
    QVERIFY(spy.wait(5000));
    QVERIFY(reports.export_to_csv(QString(), folder.filePath("a.csv")));
    waitOutJobs();
    QFile file(folder.filePath("a.csv"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 2);
    QCOMPARE(lines.first(), QString("Початковий код;штрихкод;назва;ціна;сума / кількість;сума;знижка;дата"));
    QCOMPARE(lines.last().section(';', 5, 5),
             reports.current()->model()->index(0, 5).data(Qt::EditRole).toString());
    reports.StatOnLine();
    QVERIFY(!reports.export_to_csv(QString(), folder.filePath("b.csv")));
    QVERIFY(!QFile::exists(folder.filePath("b.csv")));
}

void TstQArtReport::listIsSavedAsPdf()
{
    QTemporaryDir folder;
    QString path = folder.filePath("list.pdf");
    auto *button = child<QPushButton>(m_report.get(), "pbPdfList");
    QVERIFY(!button->isEnabled());
    load();
    QString suggested;
    m_report->list()->setFileChooser([&](const QString &name) -> QString {
        suggested = name;
        return path;
    });
    button->click();
    QCOMPARE(suggested, QString("Звіт по товарах усі магазини зміни 5 – 8, продано 01.03.2026 – 02.03.2026"));
    waitOutJobs();
    QVERIFY(m_base->heard.has("Файл збережено: " + path, 3));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.read(5) == "%PDF-");
    QVERIFY(m_report->totals().contains("Вартість: " + text("leValue")));
    m_report->list()->setFileChooser([&](const QString &) { return folder.filePath("none/list.pdf"); });
    button->click();
    waitOutJobs();
    QVERIFY(m_base->heard.has("Файл не збережено"));
}

QTEST_MAIN(TstQArtReport)
#include "tst_qartreport.moc"
