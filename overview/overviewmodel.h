#pragma once

#include "chainstate.h"

#include <QAbstractItemModel>

/// The shops, each with its registers below it, as the overview shows them.
class OverviewModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Column {
        Name,
        Line,
        Turnover,
        WeekAgo,
        Receipts,
        Average,
        LastReceipt,
        Shift,
        ClosedToday,
        ColumnCount
    };
    /// What a column is sorted by.
    static constexpr int sortRole = Qt::UserRole;

    using QAbstractItemModel::QAbstractItemModel;

    /// Rows that stay where they are only change their texts.
    void setChain(const ChainState &chain, const QDateTime &now);
    const ChainState &chain() const { return m_chain; }

    /// The shop of a row, or of the register in it; null for no row.
    const OverviewShop *shopAt(const QModelIndex &index) const;
    /// Null for a shop's row.
    const OverviewRegister *registerAt(const QModelIndex &index) const;
    /// The row of a shop or, with a register, of that; invalid when there is none.
    QModelIndex indexOf(DbId shop, DbId kass) const;

    QModelIndex index(int row, int column, const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    bool hasSameRows(const ChainState &chain) const;
    StateSums sumsAt(const QModelIndex &index) const;
    QString shown(const QModelIndex &index) const;
    QString lineShown(const QModelIndex &index) const;
    QString shiftShown(const QModelIndex &index) const;
    QVariant sorted(const QModelIndex &index) const;
    QString tip(const QModelIndex &index) const;
    bool isAlarming(const QModelIndex &index) const;

    ChainState m_chain;
    QDateTime m_now;
};

/// "08:05" of today, else with the day, of another year with that, too; empty for no time.
QString momentShown(const QDateTime &time, const QDate &today);
