#pragma once

#include "onlineintervals.h"

#include <QAbstractTableModel>
#include <QColor>

/// The colours and words of the two states.
QColor onLineColour(bool isOn);
QString onLineText(bool isOn);

/// The grid of the on-line statistics: times down, registers across.
class OnLineGrid : public QAbstractTableModel
{
    Q_OBJECT

public:
    using QAbstractTableModel::QAbstractTableModel;

    /// The registers' names and what is known of them, in the order of the starts.
    void setIntervals(const QStringList &registers, const QVector<OnLineInterval> &intervals);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

private:
    QString description(const OnLineInterval &interval) const;

    QStringList m_registers;
    QVector<OnLineInterval> m_intervals;
    QVector<OnLineChange> m_changes;
};
