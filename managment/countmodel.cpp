#include "countmodel.h"

#include "invoicelist.h"
#include "money.h"

#include <QBrush>
#include <algorithm>

namespace {
constexpr qint64 one = 1000;
/// A question names so many items.
constexpr int mostNamed = 20;

bool isUncounted(const InvoiceLine &line)
{
    return !line.counted;
}
} // namespace

CountModel::CountModel(QObject *parent)
    : CountModel({tr("«%1»: надіслано %2, є %3"), tr("не надсилали")}, parent)
{
}

CountModel::CountModel(const Words &words, QObject *parent) : QAbstractTableModel(parent), m_words(words) {}

QVector<Column> CountModel::columns() const
{
    return {{tr("Код"), 6},        {tr("Штрихкод"), 13},   {tr("Назва"), 26},
            {tr("Надіслано"), 10}, {tr("Пораховано"), 10}, {tr("Різниця"), 10}};
}

void CountModel::setLines(const QVector<InvoiceLine> &lines)
{
    beginResetModel();
    m_lines = lines;
    endResetModel();
    emit countsChanged();
}

int CountModel::add(const InvoiceLine &line)
{
    beginInsertRows(QModelIndex(), m_lines.size(), m_lines.size());
    m_lines.append(line);
    endInsertRows();
    emit countsChanged();
    return m_lines.size() - 1;
}

int CountModel::rowOf(DbId goods) const
{
    const auto found = std::find_if(m_lines.begin(), m_lines.end(),
                                    [goods](const InvoiceLine &line) { return line.goods == goods; });
    return found == m_lines.end() ? -1 : static_cast<int>(found - m_lines.begin());
}

QString CountModel::setCounted(int row, const std::optional<qint64> &thousandths)
{
    const InvoiceLine &line = m_lines.at(row);
    if (m_isFrozen)
        return tr("Пораховане вже записується: змінити його не можна.");
    if (thousandths && (*thousandths < 0 || *thousandths > maximumThousandths))
        return tr("«%1»: кількість — від 0 до %2.").arg(line.name, quantityShown(maximumThousandths));
    if (thousandths && line.isPiece && *thousandths % one != 0)
        return tr("«%1»: кількість штучного товару — ціле число.").arg(line.name);
    m_lines[row].counted = thousandths;
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    emit countsChanged();
    return QString();
}

void CountModel::setExpected(int row, qint64 thousandths)
{
    m_lines[row].sent = thousandths;
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
    emit countsChanged();
}

void CountModel::takeRestAsSent()
{
    for (InvoiceLine &line : m_lines) {
        // Nobody finds less than nothing.
        if (isUncounted(line) && line.sent >= 0)
            line.counted = line.sent;
    }
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
    emit countsChanged();
}

int CountModel::uncounted() const
{
    return static_cast<int>(std::count_if(m_lines.begin(), m_lines.end(), isUncounted));
}

int CountModel::firstUncounted() const
{
    const auto found = std::find_if(m_lines.begin(), m_lines.end(), isUncounted);
    return found == m_lines.end() ? -1 : static_cast<int>(found - m_lines.begin());
}

QString CountModel::sums() const
{
    int missing = 0;
    int surplus = 0;
    qint64 less = 0;
    qint64 more = 0;
    for (const InvoiceLine &line : m_lines) {
        const qint64 difference = line.differs() ? *line.counted - line.sent : 0;
        missing += difference < 0 ? 1 : 0;
        surplus += difference > 0 ? 1 : 0;
        (difference < 0 ? less : more) += qAbs(difference);
    }
    return tr("Пораховано позицій: %1 з %2. Нестача: %3 (%4). Надлишок: %5 (%6).")
        .arg(m_lines.size() - uncounted())
        .arg(m_lines.size())
        .arg(missing)
        .arg(quantityShown(less))
        .arg(surplus)
        .arg(quantityShown(more));
}

QStringList CountModel::differences() const
{
    QStringList words;
    int differing = 0;
    for (const InvoiceLine &line : m_lines) {
        if (line.differs() && ++differing <= mostNamed)
            words.append(m_words.difference.arg(line.name, quantityOf(line, line.sent),
                                                quantityOf(line, *line.counted)));
    }
    if (differing > mostNamed)
        words.append(tr("… і ще %1").arg(differing - mostNamed));
    return words;
}

int CountModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_lines.size();
}

int CountModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : Count + m_words.furtherColumns;
}

QString CountModel::quantityOf(const InvoiceLine &line, qint64 quantity)
{
    return line.isPiece && quantity % one == 0 ? wholeShown(quantity / one) : quantityShown(quantity);
}

QString CountModel::withSign(const InvoiceLine &line) const
{
    const qint64 difference = *line.counted - line.sent;
    if (difference == 0)
        return QStringLiteral("✓");
    return (difference < 0 ? QStringLiteral("−") : QStringLiteral("+")) + quantityOf(line, qAbs(difference));
}

QString CountModel::furtherText(int row, int column) const
{
    Q_UNUSED(row)
    Q_UNUSED(column)
    return QString();
}

QString CountModel::text(int row, int column) const
{
    const InvoiceLine &line = m_lines.at(row);
    switch (column) {
    case Goods:
        return QString::number(line.goods);
    case Barcode:
        return line.barcode;
    case Name:
        return line.name;
    case Sent:
        return line.sent == 0 && !m_words.unexpected.isEmpty() ? m_words.unexpected
                                                               : quantityOf(line, line.sent);
    case Counted:
        return line.counted ? quantityOf(line, *line.counted) : QString();
    case Difference:
        return line.counted ? withSign(line) : QString();
    default:
        return furtherText(row, column);
    }
}

QVariant CountModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const InvoiceLine &line = m_lines.at(index.row());
    const bool isMarked = line.differs() && index.column() >= Sent && index.column() < Count;
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
        return text(index.row(), index.column());
    case Qt::ToolTipRole:
        return index.column() == Name ? QVariant(line.name) : QVariant();
    case Qt::BackgroundRole:
        return isMarked ? QVariant(QBrush(invoiceStateColour(InvoiceState::Different))) : QVariant();
    case Qt::ForegroundRole:
        // Black is readable on it, whatever the palette.
        return isMarked ? QVariant(QBrush(Qt::black)) : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == Goods || index.column() >= Sent ? QVariant(Qt::AlignRight | Qt::AlignVCenter)
                                                                 : QVariant();
    default:
        return QVariant();
    }
}

bool CountModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || index.column() != Counted)
        return false;
    if (value.toString() != text(index.row(), Counted))
        emit countTyped(index.row(), value.toString());
    return true;
}

Qt::ItemFlags CountModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    return index.column() == Counted && !m_isFrozen ? flags | Qt::ItemIsEditable : flags;
}

QVariant CountModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    return columns().at(section).caption;
}
