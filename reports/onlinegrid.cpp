#include "onlinegrid.h"

#include "signs.h"

namespace {
QString shown(const QDateTime &time)
{
    return time.toString(QStringLiteral("dd-MM-yyyy HH:mm:ss"));
}
} // namespace

QColor onLineColour(bool isOn)
{
    return isOn ? QColor(0, 255, 0) : QColor(255, 0, 0);
}

QString onLineText(bool isOn)
{
    return isOn ? OnLineGrid::tr("на зв'язку") : OnLineGrid::tr("без зв'язку");
}

void OnLineGrid::setIntervals(const QStringList &registers, const QVector<OnLineInterval> &intervals)
{
    beginResetModel();
    m_registers = registers;
    m_intervals = intervals;
    m_changes = onLineChanges(intervals, registers.size());
    endResetModel();
}

int OnLineGrid::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_changes.size();
}

int OnLineGrid::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1 + m_registers.size();
}

QVariant OnLineGrid::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const OnLineChange &change = m_changes.at(index.row());
    if (index.column() == 0)
        return role == Qt::DisplayRole ? shown(change.time) : QVariant();
    const int number = change.intervals.at(index.column() - 1);
    if (number < 0)
        return {};
    const OnLineInterval &interval = m_intervals.at(number);
    switch (role) {
    case Qt::DisplayRole:
        return onLineText(interval.isOn);
    case Qt::DecorationRole:
        return signIcon(interval.isOn ? Sign::Good : Sign::Bad);
    case signRole:
        return signLetter(interval.isOn ? Sign::Good : Sign::Bad);
    case Qt::BackgroundRole:
        return onLineColour(interval.isOn);
    case Qt::ForegroundRole:
        return QColor(Qt::black); // readable on both colours, whatever the palette
    case Qt::ToolTipRole:
        return description(interval);
    case Qt::TextAlignmentRole:
        return QVariant(Qt::AlignCenter);
    default:
        return {};
    }
}

QString OnLineGrid::description(const OnLineInterval &interval) const
{
    return tr("%1: %2\n%3 – %4")
        .arg(m_registers.at(interval.column), onLineText(interval.isOn), shown(interval.start),
             interval.end.isValid() ? shown(interval.end) : tr("триває"));
}

QVariant OnLineGrid::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return section == 0 ? tr("__ Дата та час __") : m_registers.value(section - 1);
}
