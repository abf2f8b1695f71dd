#include "cheklist.h"

#include "chektypes.h"
#include "money.h"

#include <QCoreApplication>
#include <charconv>
#include <vector>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ChekList)
};

constexpr int foundQuantity = 6;

/// 0 for what is no whole number.
qint64 whole(std::string_view text)
{
    qint64 value = 0;
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stop == end ? value : 0;
}

QString typeName(std::string_view stored)
{
    return ChekType::name(static_cast<int>(whole(stored)));
}

/// Thousandths as hundredths with one decimal.
std::string tenths(std::string_view thousandths)
{
    const qint64 value = whole(thousandths);
    const qint64 size = value < 0 ? -value : value;
    return (value < 0 ? "-" : "") + std::to_string(size / 10) + '.' + std::to_string(size % 10);
}

template<QString (*money)(qint64), QString (*quantity)(qint64)>
QString amount(std::string_view stored)
{
    const size_t point = stored.find('.');
    if (stored.empty())
        return {};
    if (point == std::string_view::npos)
        return money(whole(stored));
    std::string thousandths(stored);
    thousandths.erase(point, 1);
    return quantity(whole(thousandths));
}

const CellFormat asTypeName = {typeName, typeName, false};
const CellFormat asAmount = {amount<moneyText, quantityText>, amount<moneyShown, quantityShown>, true};
} // namespace

ChekList ChekList::from(const RowStore &found)
{
    ChekList list;
    std::vector<std::string_view> cells(ColumnCount);
    for (int row = 0; row < found.rowCount(); ++row) {
        for (const int same : {ZNumber, Number, TypeName, Amount, Time, Register})
            cells[static_cast<size_t>(same)] = found.cell(row, same);
        cells[Type] = cells[TypeName];
        const qint64 type = whole(cells[Type]);
        std::string quantity;
        if (ChekType::isGoodsDocument(static_cast<int>(type)))
            cells[Amount] = quantity = tenths(found.cell(row, foundQuantity));
        else if (type == ChekType::Payment)
            list.sum += whole(cells[Amount]);
        else if (type == ChekType::Return)
            list.sum -= whole(cells[Amount]);
        list.rows.append(cells);
    }
    return list;
}

QVector<Column> ChekList::columns()
{
    return {{Texts::tr("Z-звіт"), 0, &asNumber},     {Texts::tr("номер"), 0, &asNumber},
            {Texts::tr("тип"), 0, &asTypeName},      {Texts::tr("сума / кількість"), 0, &asAmount},
            {Texts::tr("дата час"), 0, &asDateTime}, {Texts::tr("каса"), 0, &asNumber},
            {QString(), 0, &asNumber, true}};
}
