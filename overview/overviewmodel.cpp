#include "overviewmodel.h"

#include "money.h"

#include <QBrush>
#include <QFont>

namespace {
/// The number of a shop's row among the shops, for the rows below it; 0 for the shops themselves.
quintptr parentId(int shop)
{
    return static_cast<quintptr>(shop) + 1;
}

struct Caption
{
    const char *text;
    const char *tip;
};

const Caption captions[OverviewModel::ColumnCount] = {
    {QT_TRANSLATE_NOOP("OverviewModel", "Магазин, каса"), ""},
    {QT_TRANSLATE_NOOP("OverviewModel", "Зв'язок"),
     QT_TRANSLATE_NOOP("OverviewModel", "Чи каса на зв'язку і відколи")},
    {QT_TRANSLATE_NOOP("OverviewModel", "Оборот зміни"),
     QT_TRANSLATE_NOOP("OverviewModel", "Продано у відкритих змінах, за відрахуванням знижок")},
    {QT_TRANSLATE_NOOP("OverviewModel", "Тиждень тому"),
     QT_TRANSLATE_NOOP("OverviewModel",
                       "Оборот усіх змін, закритих того ж дня тижня тиждень тому, за весь день")},
    {QT_TRANSLATE_NOOP("OverviewModel", "Чеків"),
     QT_TRANSLATE_NOOP("OverviewModel", "Чеків продажу у відкритих змінах")},
    {QT_TRANSLATE_NOOP("OverviewModel", "Середній чек"),
     QT_TRANSLATE_NOOP("OverviewModel", "Оборот відкритих змін на один чек")},
    {QT_TRANSLATE_NOOP("OverviewModel", "Останній чек"),
     QT_TRANSLATE_NOOP("OverviewModel", "Коли востаннє продано або повернуто")},
    {QT_TRANSLATE_NOOP("OverviewModel", "Відкрита зміна"),
     QT_TRANSLATE_NOOP("OverviewModel", "Відколи відкрита зміна і хто в ній продає")},
    {QT_TRANSLATE_NOOP("OverviewModel", "Закрито сьогодні"),
     QT_TRANSLATE_NOOP("OverviewModel", "Оборот змін, які сьогодні вже закрито")},
};

bool isNumber(int column)
{
    return column != OverviewModel::Name && column != OverviewModel::Line && column != OverviewModel::Shift;
}

qint64 secondsOf(const QDateTime &time)
{
    return time.isValid() ? time.toSecsSinceEpoch() : 0;
}
} // namespace

QString momentShown(const QDateTime &time, const QDate &today)
{
    if (!time.isValid())
        return QString();
    if (time.date() == today)
        return time.toString(QStringLiteral("hh:mm"));
    return time.toString(time.date().year() == today.year() ? QStringLiteral("dd.MM hh:mm")
                                                            : QStringLiteral("dd.MM.yy hh:mm"));
}

bool OverviewModel::hasSameRows(const ChainState &chain) const
{
    const auto sameRegister = [](const OverviewRegister &a, const OverviewRegister &b) {
        return a.id == b.id;
    };
    return std::equal(m_chain.shops.begin(), m_chain.shops.end(), chain.shops.begin(), chain.shops.end(),
                      [&](const OverviewShop &a, const OverviewShop &b) {
                          return a.id == b.id &&
                                 std::equal(a.registers.begin(), a.registers.end(), b.registers.begin(),
                                            b.registers.end(), sameRegister);
                      });
}

void OverviewModel::setChain(const ChainState &chain, const QDateTime &now)
{
    const bool isSame = hasSameRows(chain);
    if (!isSame)
        beginResetModel();
    m_chain = chain;
    m_now = now;
    if (!isSame)
        return endResetModel();
    for (int shop = 0; shop < m_chain.shops.size(); ++shop) {
        const QModelIndex first = index(shop, 0);
        emit dataChanged(first, index(shop, ColumnCount - 1));
        if (rowCount(first) > 0)
            emit dataChanged(index(0, 0, first), index(rowCount(first) - 1, ColumnCount - 1, first));
    }
}

const OverviewShop *OverviewModel::shopAt(const QModelIndex &index) const
{
    if (!index.isValid())
        return nullptr;
    return &m_chain.shops.at(index.internalId() == 0 ? index.row()
                                                     : static_cast<int>(index.internalId()) - 1);
}

const OverviewRegister *OverviewModel::registerAt(const QModelIndex &index) const
{
    return index.isValid() && index.internalId() != 0 ? &shopAt(index)->registers.at(index.row()) : nullptr;
}

QModelIndex OverviewModel::indexOf(DbId shop, DbId kass) const
{
    for (int i = 0; i < m_chain.shops.size(); ++i) {
        const OverviewShop &state = m_chain.shops.at(i);
        if (state.id != shop)
            continue;
        if (kass == 0)
            return index(i, 0);
        for (int reg = 0; reg < state.registers.size(); ++reg) {
            if (state.registers.at(reg).id == kass)
                return index(reg, 0, index(i, 0));
        }
    }
    return QModelIndex();
}

QModelIndex OverviewModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column < 0 || row >= rowCount(parent) || column >= ColumnCount)
        return QModelIndex();
    return createIndex(row, column, parent.isValid() ? parentId(parent.row()) : 0);
}

QModelIndex OverviewModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.internalId() == 0)
        return QModelIndex();
    return createIndex(static_cast<int>(index.internalId()) - 1, 0, quintptr(0));
}

int OverviewModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return m_chain.shops.size();
    const bool isShop = parent.internalId() == 0 && parent.column() == 0;
    return isShop ? m_chain.shops.at(parent.row()).registers.size() : 0;
}

int OverviewModel::columnCount(const QModelIndex &parent) const
{
    Q_UNUSED(parent)
    return ColumnCount;
}

StateSums OverviewModel::sumsAt(const QModelIndex &index) const
{
    const OverviewRegister *reg = registerAt(index);
    return reg == nullptr ? sumsOf(*shopAt(index)) : sumsOf(*reg);
}

QString OverviewModel::lineShown(const QModelIndex &index) const
{
    const OverviewRegister *reg = registerAt(index);
    if (reg == nullptr) {
        const StateSums sums = sumsAt(index);
        if (sums.registers == 0)
            return tr("кас немає");
        return (sums.onLine == sums.registers ? QStringLiteral("✓ ") : QStringLiteral("✗ ")) +
               tr("%1 з %2 на зв'язку").arg(sums.onLine).arg(sums.registers);
    }
    if (reg->line == OverviewRegister::Line::Elsewhere)
        return tr("каса іншого магазину");
    if (reg->isBlocked)
        return tr("заблокована");
    if (reg->line == OverviewRegister::Line::Unknown)
        return tr("невідомо");
    const QString since = momentShown(reg->lineSince, m_chain.today);
    return reg->line == OverviewRegister::Line::On ? QStringLiteral("✓ ") + tr("на зв'язку з %1").arg(since)
                                                   : QStringLiteral("✗ ") + tr("без зв'язку з %1").arg(since);
}

QString OverviewModel::shiftShown(const QModelIndex &index) const
{
    const OverviewRegister *reg = registerAt(index);
    if (reg == nullptr) {
        const int open = sumsAt(index).shifts;
        return open == 0 ? QString() : tr("відкритих: %1").arg(open);
    }
    QStringList shifts;
    for (const OverviewShift &shift : reg->open) {
        QString since = tr("відкрита");
        if (shift.begun.isValid())
            since = tr("з %1").arg(momentShown(shift.begun, m_chain.today));
        else if (shift.closedBefore.isValid())
            since = tr("після %1").arg(momentShown(shift.closedBefore, m_chain.today));
        shifts.append(shift.user.isEmpty() ? since : since + QStringLiteral(", ") + shift.user);
    }
    return shifts.join(QStringLiteral("; "));
}

QString OverviewModel::shown(const QModelIndex &index) const
{
    const StateSums sums = sumsAt(index);
    const bool isOpen = sums.shifts > 0;
    const OverviewRegister *reg = registerAt(index);
    switch (index.column()) {
    case Name:
        return reg != nullptr ? reg->name : shopAt(index)->address;
    case Line:
        return lineShown(index);
    case Shift:
        return shiftShown(index);
    case Turnover:
        return isOpen ? moneyShown(sums.turnover) : QString();
    case ClosedToday:
        return sums.closedToday == 0 ? QString() : moneyShown(sums.closedToday);
    case WeekAgo:
        return sums.weekAgo == 0 ? QString() : moneyShown(sums.weekAgo);
    case Receipts:
        return isOpen ? wholeShown(sums.receipts) : QString();
    case Average:
        return sums.receipts > 0 ? moneyShown(sums.averageReceipt()) : QString();
    default:
        return momentShown(sums.lastReceipt, m_chain.today);
    }
}

QVariant OverviewModel::sorted(const QModelIndex &index) const
{
    const StateSums sums = sumsAt(index);
    const OverviewRegister *reg = registerAt(index);
    switch (index.column()) {
    case Line:
        // What is off line comes first, the longest silence before the others.
        return reg == nullptr
                   ? qint64(sums.onLine - sums.registers)
                   : (reg->line == OverviewRegister::Line::On ? 1 : -1) * secondsOf(reg->lineSince);
    case Turnover:
        return sums.turnover;
    case ClosedToday:
        return sums.closedToday;
    case WeekAgo:
        return sums.weekAgo;
    case Receipts:
        return sums.receipts;
    case Average:
        return sums.averageReceipt();
    case LastReceipt:
        return secondsOf(sums.lastReceipt);
    default:
        return shown(index);
    }
}

bool OverviewModel::isAlarming(const QModelIndex &index) const
{
    const OverviewRegister *reg = registerAt(index);
    return index.column() == Line && reg != nullptr && !reg->isBlocked &&
           reg->line == OverviewRegister::Line::Off;
}

QString OverviewModel::tip(const QModelIndex &index) const
{
    const QString text = shown(index);
    if (text.isEmpty())
        return QString();
    return headerData(index.column(), Qt::Horizontal).toString() + QStringLiteral(": ") + text +
           QLatin1Char('\n') + tr("Enter або подвійне клацання показує, з чого це складається");
}

QVariant OverviewModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    switch (role) {
    case Qt::DisplayRole:
        return shown(index);
    case sortRole:
        return sorted(index);
    case Qt::TextAlignmentRole:
        return isNumber(index.column()) ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    case Qt::ToolTipRole:
        return tip(index);
    case Qt::BackgroundRole:
        return isAlarming(index) ? QVariant(QBrush(QColor(255, 0, 0))) : QVariant();
    case Qt::ForegroundRole:
        // Readable on red, whatever the palette.
        return isAlarming(index) ? QVariant(QBrush(Qt::black)) : QVariant();
    default:
        return QVariant();
    }
}

QVariant OverviewModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return QVariant();
    if (role == Qt::DisplayRole)
        return tr(captions[section].text);
    if (role == Qt::ToolTipRole)
        return tr(captions[section].tip);
    if (role == Qt::TextAlignmentRole && isNumber(section))
        return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return QVariant();
}
