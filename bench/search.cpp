#include "bench.h"
#include "windows.h"

#include "goodsrules.h"
#include "qtabgoods.h"

#include <QTimer>

namespace {
using GoodsWindow = TabWindow<QTabGoods>;

/// How long a key press holds up the window while an older search is at work.
double typingTime(GoodsWindow *window, const QString &older, const QString &text)
{
    window->tab()->seerch(older);
    QEventLoop loop;
    QTimer::singleShot(20, &loop, &QEventLoop::quit);
    loop.exec();
    const double held = milliseconds([&] { window->tab()->seerch(text); });
    window->awaitRows();
    return held;
}

/// To the painted rows, against the list's statement alone.
double searchRatio(const Bench &bench, GoodsWindow *window, const QString &text)
{
    BareClient bare(bench.address);
    const QString sql = goodsStatement() + goodsCondition(0, text);
    return ratio(
        bench.rounds, [&] { return milliseconds([&] { bare.run(sql); }); },
        [&] { return milliseconds([&] { window->search(text); }); });
}
} // namespace

QVector<Figure> measureSearch(const Bench &bench)
{
    GoodsWindow window(bench);
    const QString times = QStringLiteral("x bare");
    const QString broad = QStringLiteral("о");
    QVector<double> held;
    for (int i = 0; i < bench.rounds; ++i)
        held.append(typingTime(&window, broad, QStringLiteral("ор")));
    return {{QStringLiteral("goods search that finds most of them"), searchRatio(bench, &window, broad), 1.2,
             times},
            {QStringLiteral("goods search by a word"), searchRatio(bench, &window, QStringLiteral("молоко")),
             1.2, times},
            {QStringLiteral("goods search by three words"),
             searchRatio(bench, &window, QStringLiteral("200 молоко %")), 1.3, times},
            {QStringLiteral("goods search by a barcode"),
             searchRatio(bench, &window, QStringLiteral("4820000000013")), 1.2, times},
            {QStringLiteral("key press while an older search runs"), median(held), 10, QStringLiteral("ms")}};
}
