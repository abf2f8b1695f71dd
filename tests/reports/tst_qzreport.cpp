#include "testing.h"

#include "barlist.h"
#include "placeselector.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qreports.h"
#include "qrowmodel.h"
#include "qzreport.h"
#include "rangeselector.h"
#include "turnoverchart.h"
#include "waitchosen.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTemporaryDir>

namespace {
const QDate march1(2026, 3, 1);
const QDate march2(2026, 3, 2);

/// The figures of a Z-report, from the table's own columns.
const char *const figures =
    "SELECT id_zzvit,Oborot_A+Oborot_B-summ_diskount,cash,beznal_1+beznal_2+beznal_3,count_cheks,summ_diskount,"
    "Oborot_A_ret+Oborot_B_ret FROM z_zvit ";
} // namespace

/// The list of the closed shifts, its sums, its picture and the way to the receipts.
class TstQZReport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { m_base.reset(); }
    void init();
    void cleanup();

    void figuresAreThoseOfTheShifts();
    void placeNarrowsTheList_data();
    void placeNarrowsTheList();
    void boxesOfferTheShops();
    void whoMayNotSeeAllSeesHisGroups();
    void choiceOutlivesOtherRights();
    void headingIsThatOfTheRows();
    void printedListTellsItsFigures();
    void numbersWorkForOneRegister();
    void numbersOfOthersFail_data();
    void numbersOfOthersFail();
    void limitCutsOrNot();
    void sumsAreOneLine();
    void emptyRangeAndBrokenRange();
    void chartDrawsWhatIsListed();
    void chartIsPutTogether();
    void barsAreAsHighAsTheirSums();
    void doubleClickAsksForTheReceipts();
    void reportInFrontIsExported();

private:
    void load();
    QStringList column(int column) const;
    /// Cells as they are stored, joined by "|".
    QStringList listed(const QVector<int> &columns) const;
    PlaceSelector *place() { return child<PlaceSelector>(m_report, "place"); }
    RangeSelector *range() { return child<RangeSelector>(m_report, "range"); }
    template<typename Widget>
    Widget *part(const char *name)
    {
        return child<Widget>(m_report, QLatin1String(name));
    }

    QTemporaryDir m_config;
    std::unique_ptr<FreshDatabase> m_base;
    std::unique_ptr<QLoadedUser> m_user;
    std::unique_ptr<QTabWidget> m_tabs;
    std::unique_ptr<QReports> m_reports;
    QZReport *m_report = nullptr;
};

void TstQZReport::initTestCase()
{
    qputenv("XDG_CONFIG_HOME", m_config.path().toUtf8());
    m_base = std::make_unique<FreshDatabase>();
    const QString rates = "2000,0,700,500,0,0,0,0,0,0";
    const QString row =
        "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,id_user,Oborot_A,Oborot_B,summ_diskount,cash,"
        "beznal_1,beznal_2,beznal_3,count_cheks,count_chek_diskount,count_position_canc,"
        "Oborot_A_ret,Oborot_B_ret,data_time,PDV_A,DOD_A,PDV_B,DOD_B,PDV_V,DOD_V,PDV_G,DOD_G,PDV_D,"
        "DOD_D) VALUES(%1,%2," +
        rates + ")";
    const auto shift = [&row](const char *place, const char *rest) { return row.arg(place, rest); };
    m_base->exec(QStringList{
        "INSERT INTO group_shop(id,name) VALUES(2,'Північ О''Ніл'),(3,'Південь')",
        "INSERT INTO shops(id,address,group_shop,block) VALUES(1,'вул. Спільна, 1',1,0),(2,'вул. Нова, \\'2\\'',2,0),"
        "(3,'вул. Закрита, 3',2,1),(4,'вул. Чужа, 4',3,0),(5,'вул. Стара, 5',1,1)",
        "INSERT INTO kassa(id,id_shop,advertising_str,block) VALUES(21,2,'Каса \\\\1',0),(22,2,'Каса 2',0),"
        "(23,2,'Знята',1),(31,3,'Каса 1',0),(41,4,'Каса 1',0)",
        // One shift of 120.00 at 20 %, one with two taxes, one with a discount above its turnover.
        shift("5,2,21,1,12000,0,0", "12000,0,0,0,3,0,1,0,0,20260301000000"),
        shift("6,2,21,1,30000,11200,1250", "10000,20000,9000,950,7,2,0,500,120,20260301235959"),
        shift("5,2,22,1,1000,0,1500", "0,0,0,0,1,1,0,0,0,20260302120000"),
        shift("9,3,31,1,7000,0,0", "7000,0,0,0,2,0,0,0,0,20260301100000"),
        shift("9,4,41,1,8000,0,0", "8000,0,0,0,2,0,0,0,0,20260302100000"),
        shift("7,2,21,1,990,0,0", "990,0,0,0,1,0,0,0,0,0"),
        "INSERT IGNORE INTO lst_group(id_g_prem,id_group) "
        "VALUES(1,1),(1,2),(1,3)"});
}

void TstQZReport::init()
{
    m_user = std::make_unique<QLoadedUser>(nullptr, &m_base->heard);
    QVERIFY(m_user->load(m_base->connection(), "1", "1", QString()));
    m_tabs = std::make_unique<QTabWidget>();
    m_reports =
        std::make_unique<QReports>(m_tabs.get(), m_base->connection(), nullptr, m_user.get(), &m_base->heard);
    m_reports->ZReports();
    m_report = qobject_cast<QZReport *>(m_reports->window("mz_zzvit"));
    QVERIFY(m_report != nullptr);
    m_tabs->resize(1200, 700);
    m_tabs->show();
    range()->setDays(march1, march2);
    m_base->heard.forget();
}

void TstQZReport::cleanup()
{
    m_tabs.reset();
    m_reports.reset();
    m_user.reset();
}

void TstQZReport::load()
{
    QSignalSpy loaded(m_report, &ReportWindow::loaded);
    part<QPushButton>("pbLoad")->click();
    if (!loaded.wait(5000))
        qFatal("The list has not come");
}

QStringList TstQZReport::listed(const QVector<int> &columns) const
{
    QStringList rows;
    for (int row = 0; row < m_report->model()->rowCount(); ++row) {
        QStringList cells;
        for (const int column : columns)
            cells.append(m_report->model()->stored(row, column));
        rows.append(cells.join('|'));
    }
    rows.sort();
    return rows;
}

QStringList TstQZReport::column(int column) const
{
    QStringList texts;
    for (int row = 0; row < m_report->model()->rowCount(); ++row)
        texts.append(m_report->model()->index(row, column).data(Qt::EditRole).toString());
    texts.sort();
    return texts;
}

void TstQZReport::figuresAreThoseOfTheShifts()
{
    load();
    QStringList expected = m_base->rows(QLatin1String(figures) + "WHERE data_time>0");
    expected.sort();
    QCOMPARE(listed({0, 3, 4, 5, 6, 7, 10}), expected);
    // 20.00 of 120.00; 50.00 and 12.00 of 300.00 and 112.00; the discount does not lower the tax.
    QCOMPARE(column(11), QStringList({"1.67", "11.67", "13.33", "20.00", "62.00"}));
    QVERIFY(column(3).contains("-5.00"));
    QVERIFY(column(12).contains("01-03-26 23:59:59"));
    QCOMPARE(m_report->heading(), QStringList({"Z - Звіти", "усі магазини", "01.03.2026 – 02.03.2026"}));
    QVERIFY(m_report->totals().contains("продаж: " + QString("664.50")));
    // Not the sum of the rounded ones, 108.67.
    QVERIFY2(m_report->totals().contains("податок: 108.67"), qPrintable(m_report->totals().join('|')));
    QVERIFY(part<QLabel>("labelState")->text().startsWith("Записів: 5"));
    const auto *line = part<QLabel>("labelTotals");
    QVERIFY(line->isVisibleTo(m_report));
    QVERIFY2(line->text().startsWith("Звітів: 5  ·  продаж: 664.50  ·  Оплата готівкою: "),
             qPrintable(line->text()));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQZReport::placeNarrowsTheList_data()
{
    QTest::addColumn<uint>("group");
    QTest::addColumn<uint>("shop");
    QTest::addColumn<uint>("kassa");
    QTest::addColumn<QString>("where");
    QTest::newRow("group") << 2U << 0U << 0U << "WHERE id_shop IN(2,3) AND data_time>0";
    QTest::newRow("shop") << 2U << 2U << 0U << "WHERE id_shop=2 AND data_time>0";
    QTest::newRow("blocked shop") << 2U << 3U << 0U << "WHERE id_shop=3 AND data_time>0";
    QTest::newRow("register") << 2U << 2U << 21U << "WHERE id_kass=21 AND data_time>0";
}

void TstQZReport::placeNarrowsTheList()
{
    QFETCH(uint, group);
    QFETCH(uint, shop);
    QFETCH(uint, kassa);
    QFETCH(QString, where);
    QVERIFY(place()->chooseGroup(group));
    QVERIFY(shop == 0 || place()->chooseShop(shop));
    QVERIFY(kassa == 0 || place()->chooseRegister(kassa));
    load();
    QStringList expected = m_base->rows(QLatin1String(figures) + where);
    expected.sort();
    QVERIFY(!expected.isEmpty());
    QCOMPARE(listed({0, 3, 4, 5, 6, 7, 10}), expected);
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQZReport::boxesOfferTheShops()
{
    const auto offered = [this](const char *name) {
        waitChosen(m_report);
        auto *box = child<QComboBox>(place(), QLatin1String(name));
        QStringList texts;
        for (int i = 1; i < box->count(); ++i)
            texts.append(box->itemText(i));
        texts.sort();
        return texts;
    };
    QVERIFY(offered("cbGroup").contains("Північ О'Ніл"));
    // A shop can be chosen without a group.
    QCOMPARE(offered("cbShop").size(), 5);
    QVERIFY(place()->chooseShop(4));
    QCOMPARE(offered("cbRegister"), QStringList("Каса 1"));
    load();
    QCOMPARE(listed({1, 2}), QStringList("вул. Чужа, 4|Каса 1"));
    QVERIFY(place()->chooseGroup(2));
    QCOMPARE(offered("cbShop"), QStringList({"вул. Закрита, 3", "вул. Нова, '2'", "вул. Спільна, 1"}));
    QVERIFY(place()->chooseShop(2));
    QCOMPARE(offered("cbRegister"), QStringList({"Каса 2", "Каса \\1"}));
}

void TstQZReport::whoMayNotSeeAllSeesHisGroups()
{
    // Group 1 stands for all, also where it is not among the permitted ones.
    m_base->exec({"DELETE FROM lst_group WHERE id_group<>2",
                  "INSERT INTO kassa(id,id_shop,advertising_str) VALUES(11,1,'Каса 1')",
                  "INSERT INTO z_zvit(id_zzvit,id_shop,id_kass,data_time) VALUES(3,1,11,20260301120000)"});
    QVERIFY(m_user->reload(m_base->connection()));
    QZReport report(m_base->connection(), m_user.get(), &m_base->heard, nullptr);
    child<RangeSelector>(&report, "range")->setDays(march1, march2);
    QSignalSpy loaded(&report, &ReportWindow::loaded);
    report.load();
    QVERIFY(loaded.wait());
    QSet<QString> shops;
    for (int row = 0; row < report.model()->rowCount(); ++row)
        shops.insert(report.model()->stored(row, 1));
    m_base->exec({"DELETE FROM z_zvit WHERE id_kass=11", "DELETE FROM kassa WHERE id=11",
                  "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,1),(1,3)"});
    QCOMPARE(shops, (QSet<QString>{"вул. Спільна, 1", "вул. Нова, '2'", "вул. Закрита, 3"}));
    const auto *box = child<QComboBox>(&report, "cbShop");
    QCOMPARE(box->findText("вул. Чужа, 4"), -1);
    QVERIFY(box->findText("вул. Спільна, 1") > 0);
    // Whoever sees no group sees nothing; what was shown goes with the right to see it.
    m_base->exec("DELETE FROM lst_group");
    QVERIFY(m_user->reload(m_base->connection()));
    QCOMPARE(report.model()->rowCount(), 0);
    QCOMPARE(report.heading(), QStringList());
    report.load();
    QVERIFY(loaded.wait());
    QCOMPARE(report.model()->rowCount(), 0);
    QCOMPARE(child<QComboBox>(&report, "cbShop")->count(), 1);
    m_base->exec("INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,1),(1,2),(1,3)");
}

void TstQZReport::choiceOutlivesOtherRights()
{
    place()->chooseGroup(2);
    place()->chooseShop(2);
    place()->chooseRegister(21);
    waitChosen(m_report);
    m_base->exec("DELETE FROM lst_group WHERE id_group=3");
    QVERIFY(m_user->reload(m_base->connection()));
    load();
    QCOMPARE(m_report->heading().at(1), QString("Північ О'Ніл, вул. Нова, '2', Каса \\1"));
    QCOMPARE(listed({0}), QStringList({"5", "6"}));
    // A group that may no longer be seen is not kept, and nothing of it is listed.
    m_base->exec(
        {"DELETE FROM lst_group WHERE id_group=2", "INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,3)"});
    QVERIFY(m_user->reload(m_base->connection()));
    load();
    QCOMPARE(m_report->heading().at(1), QString("усі магазини"));
    QCOMPARE(listed({1}), QStringList("вул. Чужа, 4"));
    m_base->exec("INSERT INTO lst_group(id_g_prem,id_group) VALUES(1,2)");
}

void TstQZReport::headingIsThatOfTheRows()
{
    load();
    const QStringList shown = m_report->heading();
    QCOMPARE(shown.at(2), QString("01.03.2026 – 02.03.2026"));
    // A load that fails, and one that is stopped.
    m_report->showid(true);
    load();
    QCOMPARE(m_report->heading(), shown);
    m_report->showid(false);
    range()->setDays(march1, march1);
    m_report->load();
    part<QPushButton>("pbStop")->click();
    QVERIFY(!m_report->isLoading());
    QCOMPARE(m_report->heading(), shown);
    load();
    QCOMPARE(m_report->heading().at(2), QString("01.03.2026"));
    QVERIFY(part<QLabel>("labelState")->text().endsWith("с · усі магазини, 01.03.2026"));
}

void TstQZReport::printedListTellsItsFigures()
{
    load();
    QString path = m_config.filePath("z.pdf");
    m_report->list()->setFileChooser([&](const QString &) { return path; });
    // Chosen, not loaded.
    range()->setDays(march1, march1);
    part<QPushButton>("pbPdfList")->click();
    waitOutJobs();
    QVERIFY(m_base->heard.has("Файл збережено: " + path, 3));
    if (!canReadPdf())
        QSKIP("pdftotext (poppler-utils) is missing");
    const QString text = textOfPdf(path);
    for (const char *part :
         {"Z-Звіти", "усімагазини", "01.03.2026–02.03.2026", "вул.Закрита,3", "01-03-2623:59:59",
          "продаж:664.50", "податок:108.67", "Звітів:5", "повернення:6.20"})
        QVERIFY2(text.contains(part), qPrintable(part + QString(" in ") + text));
}

void TstQZReport::numbersWorkForOneRegister()
{
    QVERIFY(place()->chooseGroup(2) && place()->chooseShop(2) && place()->chooseRegister(21));
    range()->setNumbers("6", "7");
    m_report->showid(true);
    load();
    // The open shift has a number too, and no time.
    QCOMPARE(listed({0, 12}),
             QStringList({"6|2026-03-01 23:59:59", "7|" + m_report->model()->stored(1, 12)}));
    QVERIFY(column(12).contains(QString()));
}

void TstQZReport::numbersOfOthersFail_data()
{
    QTest::addColumn<uint>("group");
    QTest::addColumn<uint>("shop");
    QTest::addColumn<QString>("error");
    QTest::newRow("shop") << 2U << 2U << "Unknown column 'z_zvit.id'";
    QTest::newRow("group") << 2U << 0U << "Unknown column 'z_zvit.id'";
    QTest::newRow("none") << 0U << 0U << "Unknown column 'z_zvit.id_zvit'";
}

void TstQZReport::numbersOfOthersFail()
{
    QFETCH(uint, group);
    QFETCH(uint, shop);
    QFETCH(QString, error);
    load();
    QVERIFY(group == 0 || place()->chooseGroup(group));
    QVERIFY(shop == 0 || place()->chooseShop(shop));
    m_report->showid(true);
    load();
    QCOMPARE(m_base->heard.texts().size(), 1);
    QVERIFY(m_base->heard.texts().constFirst().startsWith("Помилка запиту:"));
    QVERIFY2(m_base->heard.has(error), qPrintable(m_base->heard.texts().join('\n')));
    QVERIFY(m_base->heard.all().constLast().location.startsWith("In file: tab_table/frame/listpane"));
    QCOMPARE(m_report->model()->rowCount(), 5);
}

void TstQZReport::limitCutsOrNot()
{
    // Typed and confirmed with Enter; the keyboard stays in the field.
    m_tabs->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_tabs.get()));
    part<QLineEdit>("leLimit")->setFocus();
    QSignalSpy loaded(m_report, &ReportWindow::loaded);
    QTest::keyClicks(part<QLineEdit>("leLimit"), "x2");
    QTest::keyClick(part<QLineEdit>("leLimit"), Qt::Key_Enter);
    QVERIFY(loaded.wait());
    QVERIFY(part<QLineEdit>("leLimit")->hasFocus());
    QCOMPARE(m_report->model()->rowCount(), 2);
    QCOMPARE(m_report->heading().constLast(), QString("не більше 2"));
    part<QLineEdit>("leLimit")->clear();
    part<QPushButton>("pbLoad")->setFocus();
    QTest::keyClick(part<QPushButton>("pbLoad"), Qt::Key_Space);
    QVERIFY(loaded.wait());
    QCOMPARE(m_report->model()->rowCount(), 5);
    QVERIFY(m_report->view()->hasFocus());
}

void TstQZReport::sumsAreOneLine()
{
    part<QCheckBox>("chSum")->setChecked(true);
    load();
    const QString sums =
        m_base->value("SELECT CONCAT_WS('|','summ','summ','summ',SUM(Oborot_A+Oborot_B-summ_diskount),"
                      "SUM(cash),SUM(beznal_1+beznal_2+beznal_3),SUM(count_cheks),SUM(summ_diskount),"
                      "SUM(count_chek_diskount),SUM(count_position_canc),"
                      "SUM(Oborot_A_ret+Oborot_B_ret)) FROM z_zvit WHERE data_time>0");
    QCOMPARE(listed({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}), QStringList(sums));
    QCOMPARE(column(11) + column(12), QStringList({"108.67", "_"}));
    QVERIFY(part<TurnoverChart>("chart")->isHidden());
    QSignalSpy wanted(m_report, &ReportWindow::cheksWanted);
    m_report->dclicktable(m_report->model()->index(0, 0));
    QVERIFY(wanted.isEmpty());

    range()->setDays(QDate(2020, 1, 1), QDate(2020, 1, 1));
    load();
    QCOMPARE(listed({0, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}), QStringList("summ||||||||||_"));
    QCOMPARE(m_base->heard.texts(), QStringList());
}

void TstQZReport::emptyRangeAndBrokenRange()
{
    range()->setDays(QDate(2020, 1, 1), QDate(2020, 1, 1));
    load();
    QCOMPARE(m_report->model()->rowCount(), 0);
    QCOMPARE(m_report->view()->emptyText(), QString("За цими умовами нічого не знайдено."));
    QVERIFY(part<TurnoverChart>("chart")->isHidden());
    range()->setDays(march2, march1);
    QCOMPARE(answerQuestion([this] { m_report->load(); }), QString("Початкова дата пізніша за кінцеву."));
    QVERIFY(!m_report->isLoading());
}

void TstQZReport::chartDrawsWhatIsListed()
{
    auto *chart = part<TurnoverChart>("chart");
    load();
    QCOMPARE(part<QComboBox>("cbChart")->currentText(), QString("по магазинах"));
    QCOMPARE(chart->accessibleDescription(),
             QString("вул. Нова, '2': 514.50; вул. Чужа, 4: 80.00; вул. Закрита, 3: 70.00"));
    QVERIFY(place()->chooseGroup(2) && place()->chooseShop(2));
    load();
    QCOMPARE(part<QComboBox>("cbChart")->currentText(), QString("по днях"));
    QCOMPARE(chart->accessibleDescription(), QString("01.03.2026: 519.50; 02.03.2026: -5.00"));
    QVERIFY(!chart->isHidden());
    part<QCheckBox>("chChart")->setChecked(false);
    QVERIFY(chart->isHidden());
    QZReport again(m_base->connection(), m_user.get(), &m_base->heard, nullptr);
    QVERIFY(!child<QCheckBox>(&again, "chChart")->isChecked());
    part<QCheckBox>("chChart")->setChecked(true);
}

void TstQZReport::chartIsPutTogether()
{
    QRowModel model;
    model.setColumns({{"сума"}, {"день"}, {"магазин"}});
    model.insertRows(0, 100);
    for (int row = 0; row < 100; ++row) {
        model.setData(model.index(row, 0), QString::number(row + 1));
        model.setData(model.index(row, 1), QDate(2026, 1, 1).addDays(row).toString("yyyy-MM-dd 10:00:00"));
        model.setData(model.index(row, 2), "Магазин " + QString::number(row % 25));
    }
    QCOMPARE(barsByDay(model, 0, 1).size(), 4);
    QCOMPARE(barsByDay(model, 0, 1).at(1).name, QString("02.2026"));
    const QVector<TurnoverBar> shops = barsByName(model, 0, 2);
    QCOMPARE(shops.size(), 21);
    QCOMPARE(shops.constLast().name, QString("інші (5)"));
    qint64 sum = 0;
    for (const TurnoverBar &bar : shops)
        sum += bar.kopecks;
    QCOMPARE(sum, qint64(5050));
}

/// The pixels of the bars' colour in the columns from left to right.
static int barPixels(QWidget *chart, double from, double to)
{
    const QImage image = chart->grab().toImage();
    const QRgb colour = chart->palette().color(QPalette::Highlight).rgb();
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = static_cast<int>(from * image.width()); x < static_cast<int>(to * image.width()); ++x)
            count += image.pixel(x, y) == colour ? 1 : 0;
    }
    return count;
}

void TstQZReport::barsAreAsHighAsTheirSums()
{
    TurnoverChart chart;
    chart.resize(640, 400);
    chart.setBars({{"А", "А", 100000}, {"Б", "Б", 50000}, {"В", "В", -50000}});
    // Thirds of the room right of the scale; each bar stands within its own.
    const double high = barPixels(&chart, 0.1, 0.37);
    QVERIFY2(high > 1000, qPrintable(QString::number(high)));
    QVERIFY(qAbs(barPixels(&chart, 0.42, 0.66) / high - 0.5) < 0.05);
    QVERIFY(qAbs(barPixels(&chart, 0.72, 1.0) / high - 0.5) < 0.05);
    BarList list;
    list.resize(640, 200);
    list.setBars({{"Хліб", 300, "3.00"}, {"Сир", 0, "0.00"}});
    const int all = barPixels(&list, 0, 1);
    list.setBars({{"Хліб", 300, "3.00"}, {"Сир", 150, "1.50"}});
    QVERIFY2(all > 1000 && qAbs(barPixels(&list, 0, 1) / double(all) - 1.5) < 0.03,
             qPrintable(QString::number(all)));
}

void TstQZReport::doubleClickAsksForTheReceipts()
{
    load();
    QStringList asked;
    connect(m_report, &ReportWindow::cheksWanted, this, [&](const ChekOrigin &line) {
        asked.append(QString("%1|%2|%3").arg(line.shop).arg(line.kass).arg(line.zFrom));
        QCOMPARE(line.zTo, line.zFrom);
    });
    for (int row = 0; row < m_report->model()->rowCount(); ++row) {
        m_report->dclicktable(m_report->model()->index(row, 3));
        waitOutTasks();
    }
    asked.sort();
    QStringList expected = m_base->rows("SELECT id_shop,id_kass,id_zzvit FROM z_zvit WHERE data_time>0");
    expected.sort();
    QCOMPARE(asked, expected);
}

void TstQZReport::reportInFrontIsExported()
{
    QVERIFY(place()->chooseGroup(2) && place()->chooseShop(3));
    load();
    const QString path = m_config.filePath("z.csv");
    QVERIFY(m_reports->export_to_csv(QString(), path));
    waitOutJobs();
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    QVERIFY(
        lines.at(0).startsWith("Z-звіт;магазин;каса;продаж;Оплата готівкою;безготівкою;Звіт чеків;знижка"));
    QCOMPARE(lines.at(1),
             QString("9;вул. Закрита, 3;Каса 1;70.00;70.00;0.00;2;0.00;0;0;0.00;11.67;01-03-26 10:00:00"));
    m_tabs->addTab(new QWidget(m_tabs.get()), "інше");
    m_tabs->setCurrentIndex(1);
    QVERIFY(!m_reports->export_to_csv(QString(), path));
}

QTEST_MAIN(TstQZReport)
#include "tst_qzreport.moc"
