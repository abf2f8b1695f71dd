#include "cheklist.h"

#include "cheks.h"
#include "money.h"

#include <QCoreApplication>
#include <charconv>
#include <vector>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ChekList)
};

/// Of the statement, where it is not as in the list.
enum Found { Quantity = 6, LeastType, GreatestType, Sum, PaymentSum, LeastShop, GreatestShop };

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

CellValue amountValue(std::string_view stored)
{
    const size_t point = stored.find('.');
    if (point == std::string_view::npos)
        return wholeValue(stored, CellValue::Money);
    std::string thousandths(stored);
    thousandths.erase(point, 1);
    return wholeValue(thousandths, CellValue::Quantity);
}

const CellFormat asTypeName = {typeName, typeName, false};
const CellFormat asAmount = {amount<moneyText, quantityText>, amount<moneyShown, quantityShown>, true,
                             nullptr, amountValue};

int typeOf(int least, int greatest)
{
    // Payments have the least type of all. A document of goods and a return may have some too.
    const bool isSale = least == ChekType::Payment && greatest < ChekType::Return;
    return isSale ? ChekType::Payment : greatest;
}

/// Of all its listed rows: what was paid where there are payments, else what the rows sum up to.
qint64 ownSum(const RowStore &found, int row, int type)
{
    const qint64 payments = whole(found.cell(row, PaymentSum));
    const bool isPaid = whole(found.cell(row, LeastType)) == ChekType::Payment;
    if (isPaid && (type == ChekType::Payment || type == ChekType::Return))
        return payments;
    return whole(found.cell(row, Sum)) - payments;
}

void noteShop(QHash<uint, uint> *shops, const RowStore &found, int row)
{
    const auto number = [&](int column) { return static_cast<uint>(whole(found.cell(row, column))); };
    const uint kass = number(ChekList::Register);
    const uint shop = number(LeastShop);
    const uint known = shops->value(kass, shop);
    (*shops)[kass] = known == shop && shop == number(GreatestShop) ? shop : 0;
}
} // namespace

ChekList ChekList::from(const RowStore &found)
{
    ChekList list;
    std::vector<std::string_view> cells(ColumnCount);
    for (int row = 0; row < found.rowCount(); ++row) {
        for (const int same : {ZNumber, Number, Time, Register})
            cells[static_cast<size_t>(same)] = found.cell(row, same);
        const int type = typeOf(static_cast<int>(whole(found.cell(row, LeastType))),
                                static_cast<int>(whole(found.cell(row, GreatestType))));
        const qint64 sum = ownSum(found, row, type);
        const std::string typeText = std::to_string(type);
        const bool isOfGoods = ChekType::isGoodsDocument(type);
        const std::string amountText = isOfGoods ? tenths(found.cell(row, Quantity)) : std::to_string(sum);
        cells[TypeName] = cells[Type] = typeText;
        cells[Amount] = !isOfGoods && found.cell(row, Sum).empty() ? std::string_view() : amountText;
        if (type == ChekType::Payment)
            list.sum += sum;
        else if (type == ChekType::Return)
            list.sum -= sum;
        noteShop(&list.shops, found, row);
        list.rows.append(cells);
    }
    return list;
}

QVector<Column> ChekList::columns()
{
    return {{Texts::tr("Z-звіт"), 5, &asNumber},      {Texts::tr("номер"), 8, &asNumber},
            {Texts::tr("тип"), 13, &asTypeName},      {Texts::tr("сума / кількість"), 12, &asAmount},
            {Texts::tr("дата час"), 17, &asDateTime}, {Texts::tr("каса"), 5, &asNumber},
            {QString(), 0, &asNumber, true}};
}
