#include "bench.h"

#include "listpane.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QEventLoop>
#include <QFile>
#include <QScrollBar>
#include <QStandardItemModel>

namespace {
/// A list as the program shows it, loaded as people load it, in a window of the usual size.
class ListWindow
{
public:
    ListWindow(const Bench &bench, const QVector<Column> &columns) : m_user(nullptr, nullptr)
    {
        m_pane.open(bench.connection, &m_user, nullptr);
        m_pane.setColumns(columns, QStringLiteral("bench"));
        m_pane.resize(1400, 900);
        m_pane.show();
        paint();
    }

    void load(const QString &sql)
    {
        QEventLoop loop;
        QObject::connect(&m_pane, &ListPane::loaded, &loop, &QEventLoop::quit);
        QObject::connect(&m_pane, &ListPane::failed, [] { qFatal("No rows"); });
        m_pane.load(sql);
        loop.exec();
    }
    void paint() { m_pane.grab(); }
    ListPane &pane() { return m_pane; }

private:
    QLoadedUser m_user;
    ListPane m_pane;
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

/// From the statement to the painted list, against the statement alone.
double loadRatio(const Bench &bench, const QVector<Column> &columns, const QString &sql)
{
    BareClient bare(bench.address);
    ListWindow window(bench, columns);
    const auto ours = [&] {
        window.pane().clear();
        return milliseconds([&] {
            window.load(sql);
            window.paint();
        });
    };
    return ratio(
        bench.rounds, [&] { return milliseconds([&] { bare.run(sql); }); }, ours);
}

std::unique_ptr<ListWindow> sortedCards(const Bench &bench)
{
    auto window = std::make_unique<ListWindow>(bench, cardsColumns());
    window->load(cardsStatement());
    window->pane().view()->sortByColumn(7, Qt::AscendingOrder);
    window->paint();
    return window;
}

double emptyingTime(const Bench &bench)
{
    QVector<double> times;
    for (int i = 0; i < bench.rounds; ++i) {
        const auto window = sortedCards(bench);
        times.append(milliseconds([&] { window->pane().clear(); }));
    }
    return median(times);
}

double closingTime(const Bench &bench)
{
    QVector<double> times;
    for (int i = 0; i < bench.rounds; ++i) {
        auto window = sortedCards(bench);
        times.append(milliseconds([&] { window.reset(); }));
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
double sortRatio(QAbstractItemModel *items, QAbstractItemModel *rows)
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
             loadRatio(bench, goodsColumns(), goodsStatement()), 1.3, times},
            {QStringLiteral("cards list, statement to painted grid"),
             loadRatio(bench, cardsColumns(), cardsStatement()), 1.3, times},
            {QStringLiteral("emptying the sorted cards list"), emptyingTime(bench), 20, ms},
            {QStringLiteral("closing the sorted cards list"), closingTime(bench), 20, ms}};
}

QVector<Figure> measureMemory(const Bench &bench)
{
    ListWindow window(bench, cardsColumns());
    const double before = processMegabytes("VmRSS");
    window.load(cardsStatement());
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
    loadItems(bench, items, cardsColumns(), cardsStatement());
    auto *itemsView = new QTableView;
    itemsView->setModel(items);
    itemsView->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto *rows = new ListWindow(bench, cardsColumns());
    rows->load(cardsStatement());
    QNTableView *rowsView = rows->pane().view();
    itemsView->resize(rowsView->size());
    itemsView->show();
    const double repaint = repaintRatio(itemsView, rowsView);
    return {{QStringLiteral("repainting the cards list anywhere"), repaint, 1.1, QStringLiteral("x items")},
            {QStringLiteral("sorting the cards list, worst column"), sortRatio(items, rows->pane().model()),
             1.0 / 15, QStringLiteral("x items")}};
}
