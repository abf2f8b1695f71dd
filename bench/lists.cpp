#include "act.h"
#include "bench.h"
#include "cardstab.h"
#include "windows.h"

#include "listpane.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qtabgoods.h"

#include <QScrollBar>
#include <QStandardItemModel>

namespace {
/// More items than a million cards have would not fit into many a machine.
constexpr int mostItems = 1000000;

/// From the statement to the painted list, against the statement alone. The list is emptied first: what
/// stands there is none of the statement's business.
template<typename Window>
double loadRatio(const Bench &bench, const QString &sql)
{
    BareClient bare(bench.address);
    Window window(bench);
    const auto ours = [&] {
        window.tab()->list()->clear();
        return milliseconds([&] { window.search(QString()); });
    };
    return ratio(
        bench.rounds, [&] { return milliseconds([&] { bare.run(sql); }); }, ours);
}

void sortByName(QTab *tab)
{
    tab->view()->sortByColumn(7, Qt::AscendingOrder);
    waitFor([&] { return !tab->model()->isSorting(); });
    tab->grab();
}

std::unique_ptr<CardsWindow> sortedCards(const Bench &bench)
{
    auto window = std::make_unique<CardsWindow>(bench);
    sortByName(window->tab());
    return window;
}

double emptyingTime(const Bench &bench)
{
    QVector<double> times;
    for (int i = 0; i < bench.rounds; ++i) {
        const auto window = sortedCards(bench);
        times.append(milliseconds([&] { window->tab()->list()->clear(); }));
    }
    return median(times);
}

double closingTime(const Bench &bench)
{
    QVector<double> times;
    for (int i = 0; i < bench.rounds; ++i) {
        const auto window = sortedCards(bench);
        times.append(milliseconds([&] { window->close(); }));
    }
    return median(times);
}

/// The ordinary way, which the row model is compared with: one item per cell.
void loadItems(const Bench &bench, QStandardItemModel *model, const QVector<Column> &columns,
               const QString &sql)
{
    auto query = bench.db().run(sql);
    while (query && query->next()) {
        QList<QStandardItem *> items;
        for (int i = 0; i < columns.size(); ++i) {
            auto *item =
                new QStandardItem(columns.at(i).format->shown(toText(query->value(i)).toStdString()));
            if (columns.at(i).format->isNumber)
                item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            items.append(item);
        }
        model->appendRow(items);
    }
}

double paintingTime(QTableView *view, int place)
{
    QScrollBar *bar = view->verticalScrollBar();
    bar->setValue(static_cast<int>(qint64(bar->maximum()) * place / 20));
    return milliseconds([&] { view->grab(); });
}

double repaintRatio(QTableView *items, QTableView *rows)
{
    QVector<double> ratios;
    for (int place = 0; place <= 20; ++place) {
        const double bare = paintingTime(items, place);
        ratios.append(paintingTime(rows, place) / bare);
    }
    return median(ratios);
}

/// The worst of the columns: how much of the time that items take.
double sortRatio(QAbstractItemModel *items, QRowModel *rows)
{
    double worst = 0;
    for (const int column : {3, 1, 7, 9, 10, 0}) {
        const double bare = milliseconds([&] { items->sort(column, Qt::AscendingOrder); });
        const double ours = milliseconds([&] {
            rows->sort(column, Qt::AscendingOrder);
            waitFor([&] { return !rows->isSorting(); });
        });
        if (qEnvironmentVariableIsSet("VELTAB_BENCH_VERBOSE"))
            qInfo("sort by column %d: items %.0f ms, rows %.0f ms", column, bare, ours);
        worst = qMax(worst, ours / bare);
    }
    return worst;
}
} // namespace

QVector<Figure> measureLists(const Bench &bench)
{
    const QString times = QStringLiteral("x bare");
    const QString ms = QStringLiteral("ms");
    return {{QStringLiteral("goods list, statement to painted grid"),
             loadRatio<TabWindow<QTabGoods>>(bench, goodsStatement()), 1.3, times},
            {QStringLiteral("cards list, statement to painted grid"),
             loadRatio<CardsWindow>(bench, cardsStatement()), 1.3, times},
            {QStringLiteral("emptying the sorted cards list"), emptyingTime(bench), 20, ms},
            {QStringLiteral("closing the sorted cards list"), closingTime(bench), 20, ms}};
}

/// What a list of cards adds to the process, on the ways that people go: it is loaded, loaded again, searched
/// and closed.
QVector<Figure> measureMemory(const Bench &bench)
{
    const double before = processMegabytes("VmRSS");
    forgetPeak();
    CardsWindow window(bench);
    const double millions = bench.cards / 1e6;
    const auto grown = [&](const char *what, const QByteArray &kind, double goal) {
        // A program that has painted a window has grown by some of it, however short its list.
        return Figure{QString::fromUtf8(what), processMegabytes(kind) - before, qMax(30.0, goal * millions),
                      QStringLiteral("MB")};
    };
    QVector<Figure> figures = {grown("cards tab, loaded", "VmRSS", 150)};
    window.search(QString());
    figures.append(grown("  loaded again", "VmRSS", 150));
    figures.append(grown("  at the peak", "VmHWM", 400));
    window.searchPerson(QStringLiteral("Ґудзь"));
    figures.append(grown("  searched, a seventh found", "VmRSS", 60));
    window.close();
    figures.append(grown("  closed", "VmRSS", 30));
    return figures;
}

QVector<Figure> measureAgainstItems(const Bench &bench)
{
    // Neither is taken down: that alone would take minutes with items.
    auto *items = new QStandardItemModel(0, QTabClients::columns().size());
    loadItems(bench, items, QTabClients::columns(),
              cardsStatement() + QStringLiteral(" LIMIT %1").arg(mostItems));
    auto *itemsView = new QTableView;
    itemsView->setModel(items);
    itemsView->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto *rows = new CardsWindow(bench);
    rows->tab()->ShowData(mostItems);
    rows->awaitRows();
    itemsView->resize(rows->tab()->view()->size());
    itemsView->show();
    const double repaint = repaintRatio(itemsView, rows->tab()->view());
    return {{QStringLiteral("repainting the cards list anywhere"), repaint, 1.1, QStringLiteral("x items")},
            {QStringLiteral("sorting the cards list, worst column"), sortRatio(items, rows->tab()->model()),
             1.0 / 15, QStringLiteral("x items")}};
}
