#include "bench.h"

#include "money.h"
#include "qrowmodel.h"

#include <QApplication>
#include <QFile>
#include <QHeaderView>
#include <QScrollBar>
#include <QSqlRecord>
#include <QTableView>

namespace {
/// A list as the program shows it, in a window of the usual size.
struct ListWindow
{
    explicit ListWindow(QAbstractItemModel *model)
    {
        view.setModel(model);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setSortingEnabled(true);
        view.resize(1400, 900);
        view.show();
        QApplication::processEvents();
    }

    void paint() { view.grab(); }

    QTableView view;
};

QVector<Column> goodsColumns()
{
    QVector<Column> columns(9);
    columns[0].format = &asNumber;
    columns[3].format = &asMoney;
    return columns;
}

QVector<Column> cardsColumns()
{
    QVector<Column> columns(14);
    columns[0].format = &asNumber;
    columns[2].format = &asMoney;
    columns[3].format = &asMoney;
    columns[10].format = &asDate;
    return columns;
}

void load(const Bench &bench, QRowModel *model, const QString &sql)
{
    if (auto query = bench.db().run(sql))
        model->replaceRows(RowStore::read(*query));
    if (model->rowCount() == 0)
        qFatal("No rows");
    QApplication::processEvents();
}

/// From the statement to the painted list, against the statement alone.
double fillRatio(const Bench &bench, const QVector<Column> &columns, const QString &sql)
{
    BareClient bare(bench.address);
    QRowModel model;
    model.setColumns(columns);
    ListWindow window(&model);
    const auto ours = [&] {
        model.removeRows(0, model.rowCount());
        return milliseconds([&] {
            load(bench, &model, sql);
            window.paint();
        });
    };
    return ratio(
        bench.rounds, [&] { return milliseconds([&] { bare.run(sql); }); }, ours);
}

double emptyingTime(const Bench &bench)
{
    QRowModel model;
    model.setColumns(cardsColumns());
    ListWindow window(&model);
    QVector<double> times;
    for (int i = 0; i < bench.rounds; ++i) {
        load(bench, &model, cardsStatement());
        window.view.sortByColumn(7, Qt::AscendingOrder);
        window.paint();
        times.append(milliseconds([&] { model.removeRows(0, model.rowCount()); }));
    }
    return median(times);
}

double closingTime(const Bench &bench)
{
    QVector<double> times;
    for (int i = 0; i < bench.rounds; ++i) {
        auto model = std::make_unique<QRowModel>();
        model->setColumns(cardsColumns());
        auto window = std::make_unique<ListWindow>(model.get());
        load(bench, model.get(), cardsStatement());
        window->view.sortByColumn(7, Qt::AscendingOrder);
        window->paint();
        times.append(milliseconds([&] {
            window.reset();
            model.reset();
        }));
    }
    return median(times);
}

/// A figure of this process in MB: VmRSS, VmHWM.
double processMegabytes(const QByteArray &name)
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = status.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(name))
            return line.mid(name.size() + 1).simplified().split(' ').at(0).toDouble() / 1024;
    }
    return 0;
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

double paintingTime(ListWindow *window, int place)
{
    QScrollBar *bar = window->view.verticalScrollBar();
    bar->setValue(static_cast<int>(qint64(bar->maximum()) * place / 20));
    return milliseconds([&] { window->paint(); });
}

double repaintRatio(ListWindow *items, ListWindow *rows)
{
    QVector<double> ratios;
    for (int place = 0; place <= 20; ++place) {
        const double bare = paintingTime(items, place);
        ratios.append(paintingTime(rows, place) / bare);
    }
    return median(ratios);
}

/// The worst of the columns: how much of the time that items take.
double sortRatio(QStandardItemModel *items, QRowModel *rows)
{
    double worst = 0;
    for (const int column : {3, 1, 7, 9, 10, 0}) {
        const double bare = milliseconds([&] { items->sort(column, Qt::AscendingOrder); });
        const double ours = milliseconds([&] { rows->sort(column, Qt::AscendingOrder); });
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
             fillRatio(bench, goodsColumns(), goodsStatement()), 1.3, times},
            {QStringLiteral("cards list, statement to painted grid"),
             fillRatio(bench, cardsColumns(), cardsStatement()), 1.3, times},
            {QStringLiteral("emptying the sorted cards list"), emptyingTime(bench), 20, ms},
            {QStringLiteral("closing the sorted cards list"), closingTime(bench), 20, ms}};
}

QVector<Figure> measureMemory(const Bench &bench)
{
    QRowModel model;
    model.setColumns(cardsColumns());
    ListWindow window(&model);
    window.paint();
    const double before = processMegabytes("VmRSS");
    load(bench, &model, cardsStatement());
    window.paint();
    const double millions = bench.cards / 1e6;
    const QString unit = QStringLiteral("MB");
    return {{QStringLiteral("cards list, growth of the process"), processMegabytes("VmRSS") - before,
             150 * millions, unit},
            {QStringLiteral("cards list, growth at the peak"), processMegabytes("VmHWM") - before,
             400 * millions, unit}};
}

QVector<Figure> measureAgainstItems(const Bench &bench)
{
    // Neither is taken down: that alone would take minutes with items.
    auto *items = new QStandardItemModel(0, cardsColumns().size());
    auto *rows = new QRowModel;
    loadItems(bench, items, cardsColumns(), cardsStatement());
    rows->setColumns(cardsColumns());
    load(bench, rows, cardsStatement());
    auto *itemsWindow = new ListWindow(items);
    auto *rowsWindow = new ListWindow(rows);
    const double repaint = repaintRatio(itemsWindow, rowsWindow);
    return {{QStringLiteral("repainting the cards list anywhere"), repaint, 1.1, QStringLiteral("x items")},
            {QStringLiteral("sorting the cards list, worst column"), sortRatio(items, rows), 1.0 / 15,
             QStringLiteral("x items")}};
}
