#include "large.h"
#include "windows.h"

#include "goodsrules.h"
#include "job.h"
#include "listpane.h"
#include "qntableview.h"
#include "qregistersale.h"
#include "qrowmodel.h"
#include "qtabgoods.h"
#include "qtabgoodsshops.h"
#include "qzreport.h"
#include "rangeselector.h"
#include "testing.h"

#include <QComboBox>
#include <QFileInfo>
#include <QTemporaryDir>

using Large::number;
using Large::threadFigures;

namespace {
const QString times = QStringLiteral("x");

/// What the rows of the stock list need: their texts, and a few bytes to find them in the list's order.
double neededMegabytes(const Bench &bench)
{
    const int columns = 4;
    const int head = 2;
    const int place = sizeof(void *) + sizeof(quint32);
    return static_cast<double>(
               number(bench, QStringLiteral("SELECT SUM(%1+IFNULL(LENGTH(shops.address),0)+"
                                            "IFNULL(LENGTH(goods.name),0)+LENGTH(count_showroom)+"
                                            "LENGTH(count_syllable)) FROM goods_shop LEFT JOIN shops ON "
                                            "goods_shop.id_shop=shops.id LEFT JOIN goods ON "
                                            "goods_shop.id_goods=goods.id")
                                 .arg(columns + head + place))) /
           1024 / 1024;
}

/// All that the server has been asked so far by SELECT.
qint64 selects(const Bench &bench)
{
    return number(bench, QStringLiteral("SELECT VARIABLE_VALUE FROM INFORMATION_SCHEMA.GLOBAL_STATUS WHERE "
                                        "VARIABLE_NAME='COM_SELECT'"));
}

void removeShops(const Bench &bench)
{
    exec(bench, QStringLiteral("DELETE FROM kassa WHERE id>10000"));
    exec(bench, QStringLiteral("DELETE FROM shops WHERE id>1000"));
}

void addShops(const Bench &bench)
{
    removeShops(bench);
    exec(bench,
         QStringLiteral("INSERT INTO shops(id,address,group_shop,count_day_cycle,block) SELECT 1000+seq,"
                        "CONCAT('вул. Нова, ',seq),1,1,0 FROM seq_1_to_3000"));
    exec(bench,
         QStringLiteral("INSERT INTO kassa(id,id_shop,advertising_str,block) SELECT 10000+seq,1000+seq,"
                        "'Каса 1',0 FROM seq_1_to_3000"));
}
} // namespace

QVector<Figure> measureLargeSearch(const Bench &bench)
{
    TabWindow<QTabGoods> window(bench);
    const QString text = QStringLiteral("молоко");
    waitOutTasks();
    const qint64 before = selects(bench);
    window.search(text);
    waitOutTasks();
    // One of them asks for the number. Before its list statement a tab asks when its tables were changed.
    const qint64 sent = selects(bench) - before - 1;
    BareClient bare(bench.address);
    const double share = ratio(
        bench.rounds,
        [&] { return milliseconds([&] { bare.run(goodsStatement() + goodsCondition(0, text)); }); },
        [&] { return milliseconds([&] { window.search(text); }); });
    return {{QStringLiteral("goods search, statements sent"), double(sent), 2, QString()},
            {QStringLiteral("goods search, to its list statement"), share, 1.2, times}};
}

QVector<Figure> measureLargeStock(const Bench &bench)
{
    const double before = processMegabytes("VmRSS");
    // Fonts, pictures and such come with the first window.
    TabWindow<QTabGoodsShops>(bench).close();
    const double empty = processMegabytes("VmRSS");
    ActClock clock;
    TabWindow<QTabGoodsShops> window(bench);
    const Cost loading = clock.end();
    const double grown = processMegabytes("VmRSS") - empty;
    const auto isSorted = [&] { return !window.tab()->model()->isSorting(); };
    const Cost sorting = costOf([&] { window.tab()->view()->sortByColumn(1, Qt::AscendingOrder); }, isSorted);
    window.close();
    const double left = processMegabytes("VmRSS") - before;
    return QVector<Figure>{{QStringLiteral("stock of 2 million rows, memory to need"),
                            grown / neededMegabytes(bench), 1.2, times},
                           {QStringLiteral("  left when the tab is closed"), left, 30, QStringLiteral("MB")},
                           {QStringLiteral("  the window stands still while it loads"), loading.gapMs,
                            Large::mostGapMs, QStringLiteral("ms")}} +
           threadFigures(QStringLiteral("sort by text, 2 million rows"), sorting, 2500);
}

QVector<Figure> measureLargePdf(const Bench &bench)
{
    Admin admin(bench);
    QZReport report(bench.connection, admin.user(), nullptr, nullptr);
    showWindow(&report);
    report.findChild<RangeSelector *>()->setDays(QDate(2000, 1, 1), QDate(2099, 1, 1));
    loadReport(&report);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("list.pdf"));
    report.list()->setFileChooser([&](const QString &) { return path; });
    const Cost cost = costOf([&] { report.list()->savePdf(); }, [&] { return QFileInfo::exists(path); });
    return threadFigures(QStringLiteral("PDF of %1 rows").arg(report.model()->rowCount()), cost, 15000);
}

QVector<Figure> measureLargeCombo(const Bench &bench)
{
    addShops(bench);
    Admin admin(bench);
    std::unique_ptr<QRegisterSale> tab;
    const Cost cost = costOf(
        [&] {
            tab = std::make_unique<QRegisterSale>(bench.connection, admin.user(), nullptr, nullptr, nullptr);
            tab->show();
        },
        [&] { return child<QComboBox>(tab.get(), QStringLiteral("cbShop"))->count() > 3000; });
    removeShops(bench);
    return {{QStringLiteral("3,200 shops in a box: the window stands still"), cost.gapMs, 50,
             QStringLiteral("ms")}};
}
