#include "large.h"
#include "windows.h"

#include "qrowmodel.h"
#include "qtabtransaction.h"
#include "qtabzzvit.h"

using Large::usual;
using Large::workFigures;

namespace {
constexpr int pageRows = 100;

JournalAsked askedOfAll(const Bench &bench)
{
    Admin admin(bench);
    JournalAsked asked;
    asked.shops = QTab::GetStrLstGroupFromPermis(admin.user(), QStringLiteral("shops.group_shop"), true);
    return asked;
}

RowStore read(const Bench &bench, const QString &sql)
{
    auto query = bench.db().run(sql);
    if (!query)
        qFatal("No rows");
    return RowStore::read(*query);
}

/// The statements of the first page and of the second one.
struct PageStatements
{
    QStringList first;
    QStringList second;
};

PageStatements linesStatements(const Bench &bench)
{
    const JournalAsked asked = askedOfAll(bench);
    const QString find = chekStreamsSql(asked);
    const ChekStreams streams = chekStreamsFrom(read(bench, find));
    const QString first = QTabTransaction::pageSql(streams, asked, pageRows);
    const ChekStreams begun = QTabTransaction::behind(read(bench, first), streams);
    const QString goOn = nextLinesSql(begun);
    const ChekStreams next = followedBy(read(bench, goOn), begun);
    return {{find, first}, {goOn, QTabTransaction::pageSql(next, asked, pageRows)}};
}

PageStatements shiftsStatements(const Bench &bench)
{
    const JournalAsked asked = askedOfAll(bench);
    const QString first = QTabZZvit::pageSql(asked, {}, pageRows);
    const QStringList key = QTabZZvit::keyOfLast(read(bench, first));
    return {{first}, {QTabZZvit::pageSql(asked, key, pageRows)}};
}

template<typename Tab>
Cost firstPage(TabWindow<Tab> *window)
{
    return costOf([&] { window->tab()->searchAgain(); }, [&] { return !window->tab()->isLoading(); });
}

/// Always the second one: further ones need other statements.
template<typename Tab>
Cost nextPage(TabWindow<Tab> *window)
{
    firstPage(window);
    return costOf([&] { window->tab()->nextPage(); }, [&] { return !window->tab()->isLoading(); });
}

/// What a page costs, and how many times its statements alone.
QVector<Figure> pageFigures(const Bench &bench, const QString &name, const QStringList &statements,
                            const std::function<Cost()> &turn)
{
    BareClient bare(bench.address);
    QVector<Cost> costs;
    const double times = ratio(
        bench.rounds,
        [&] {
            return milliseconds([&] {
                for (const QString &sql : statements)
                    bare.run(sql);
            });
        },
        [&] {
            costs.append(turn());
            return costs.constLast().ms;
        });
    const double atOnceMs = 300;
    return workFigures(name, usual(costs), atOnceMs) +
           QVector<Figure>{{QStringLiteral("  to its statements"), times, 1.5, QStringLiteral("x")}};
}

template<typename Tab>
QVector<Figure> journalFigures(const Bench &bench, const QString &name, const PageStatements &statements)
{
    TabWindow<Tab> window(bench);
    if (window.tab()->model()->rowCount() != pageRows)
        qFatal("No page");
    return pageFigures(bench, name, statements.first, [&] { return firstPage(&window); }) +
           pageFigures(bench, name + QStringLiteral(", next"), statements.second,
                       [&] { return nextPage(&window); });
}
} // namespace

QVector<Figure> measureLargeJournals(const Bench &bench)
{
    return journalFigures<QTabTransaction>(bench, QStringLiteral("transactions page"),
                                           linesStatements(bench)) +
           journalFigures<QTabZZvit>(bench, QStringLiteral("shifts page"), shiftsStatements(bench));
}
