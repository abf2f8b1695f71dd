#pragma once

#include "destination.h"
#include "overviewsql.h"
#include "page.h"

#include <QElapsedTimer>
#include <QSet>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <memory>

namespace Ui {
class QOverview;
}
class FirstStepsView;
class OverviewModel;
class QLoadedUser;
class QModelIndex;
class QSortFilterProxyModel;
class QSqlDatabase;
class QueryOwner;
struct QueryAnswer;

/// How the chain stands: the shops with their open shifts, what needs a hand, the turnover of the last days;
/// for a new chain the steps to its first sale instead. Read anew each minute as long as it is seen. Every
/// number leads to the list that holds it.
class QOverview : public QWidget, public Page
{
    Q_OBJECT

public:
    /// receiver: hears the messages.
    QOverview(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *parent);
    ~QOverview() override;

    Commands commands() const override;
    void run(Command command) override;
    bool isLoading() const override;
    bool isShowingOnly() const override { return true; }

    /// How old what is seen becomes before it is read anew. For tests.
    static void setRefreshTime(std::chrono::milliseconds time);

public slots:
    /// Reads everything anew.
    void refresh();

signals:
    /// The shops, the shifts and the days are shown; what is counted beside comes later.
    void shown();
    void wanted(const Destination &destination);
    /// A step to the first sale is to be made on that page.
    void stepWanted(const QString &action, bool isAdding);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void buildTree();
    void buildChart();
    void followRights();
    void showColumns();
    void refreshWhenDue();
    void takeChain(const std::shared_ptr<QueryAnswer> &answer);
    void takeCounts(const std::shared_ptr<QueryAnswer> &answer);
    void tellFailure(const QueryAnswer &answer);
    void showChain(const ChainState &chain);
    void showTree(const ChainState &chain);
    void showAttention();
    void showChart();
    void showDay(int bar);
    void showSums();
    void openCell(const QModelIndex &cell);
    void openDay(int bar);
    Destination destinationOf(const QModelIndex &cell) const;

    std::unique_ptr<Ui::QOverview> ui;
    QLoadedUser *m_user;
    /// The one for whom the columns are remembered, who may have gone at the end.
    QString m_idUser;
    QObject *m_receiver;
    OverviewModel *m_model;
    QSortFilterProxyModel *m_sorted;
    FirstStepsView *m_steps;
    QueryOwner *m_chainQuery;
    QueryOwner *m_countQuery;
    /// The day for which the answers on their way were asked.
    QDate m_askedDay;
    Counted m_counted;
    /// Of the numbers above the tree.
    QVector<Destination> m_sumWays;
    QTimer m_tick;
    QElapsedTimer m_age;
    bool m_isFailureTold = false;
};
