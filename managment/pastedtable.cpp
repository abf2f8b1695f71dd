#include "pastedtable.h"

#include "csvtext.h"
#include "db.h"
#include "ean13.h"
#include "money.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QSet>
#include <algorithm>

namespace {
constexpr int longestBarcode = 13;
constexpr qint64 one = 1000;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PastedTable)
};

/// A goods item as the statement finds it, and why it is not taken.
struct Known
{
    GoodsItem item;
    QString refusal;
};
/// By barcode.
using Goods = QHash<QString, Known>;

/// One record before anybody has asked the server.
struct Read
{
    PastedLine line;
    QString barcode;
    qint64 quantity = 0;
    QString refusal;
};

/// Where the columns stand.
struct Columns
{
    int barcode = 0;
    int quantity = 1;
};

bool begins(const QString &cell, std::initializer_list<const char *> words)
{
    return std::any_of(words.begin(), words.end(), [&](const char *word) {
        return cell.startsWith(QString::fromUtf8(word), Qt::CaseInsensitive);
    });
}

/// Captions have no digits; the first record is one of captions when its barcode is.
bool isHeading(const QStringList &cells, Columns *columns)
{
    const auto hasDigits = [](const QString &cell) {
        return std::any_of(cell.begin(), cell.end(), [](QChar c) { return c.isDigit(); });
    };
    if (std::any_of(cells.begin(), cells.end(), hasDigits))
        return false;
    for (int i = 0; i < cells.size(); ++i) {
        if (begins(cells.at(i), {"штрих", "barcode", "ean"}))
            columns->barcode = i;
        else if (begins(cells.at(i), {"кільк", "к-сть", "quantity", "qty", "count"}))
            columns->quantity = i;
    }
    return true;
}

QString quantityRefusal(const QString &cell, qint64 *quantity)
{
    if (cell.isEmpty())
        return Texts::tr("немає кількості");
    if (!thousandthsFromText(cell, quantity))
        return Texts::tr("«%1» не є кількістю").arg(cell);
    if (*quantity == 0)
        return Texts::tr("кількість нуль");
    if (*quantity < 0)
        return Texts::tr("кількість менша за нуль");
    return *quantity > StockDocument::maximum ? Texts::tr("кількість завелика") : QString();
}

Read readLine(int number, const QStringList &cells, const Columns &columns)
{
    Read read;
    read.line.number = number;
    read.line.barcode = cells.value(columns.barcode);
    read.line.quantity = cells.value(columns.quantity);
    if (cells.size() > qMax(columns.barcode, columns.quantity) + 1 && columns.quantity == 1 &&
        columns.barcode == 0)
        read.refusal = Texts::tr("колонок більше ніж дві: потрібні штрихкод і кількість");
    if (read.refusal.isEmpty())
        read.barcode = Pasted::barcodeOf(read.line.barcode, &read.refusal);
    if (read.refusal.isEmpty())
        read.refusal = quantityRefusal(read.line.quantity, &read.quantity);
    return read;
}

/// The cells of a record without their blanks and without empty ones at the end.
QStringList cellsOf(const CsvReader &reader)
{
    QStringList cells;
    for (const QString &field : reader.fields())
        cells.append(field.trimmed());
    while (!cells.isEmpty() && cells.last().isEmpty())
        cells.removeLast();
    return cells;
}

QVector<Read> readLines(const QString &text)
{
    CsvForm form;
    form.separator = text.contains(QLatin1Char('\t')) ? QLatin1Char('\t') : QLatin1Char(';');
    CsvReader reader(text, form);
    QVector<Read> lines;
    Columns columns;
    bool isFirst = true;
    while (reader.next() && lines.size() <= Pasted::mostLines) {
        const QStringList cells = cellsOf(reader);
        if (cells.isEmpty())
            continue;
        if (!isFirst || !isHeading(cells, &columns))
            lines.append(readLine(reader.number(), cells, columns));
        isFirst = false;
    }
    return lines;
}

QString goodsSql(const QVector<Read> &lines, const QString &shop)
{
    QStringList wanted;
    QSet<QString> known;
    for (const Read &read : lines) {
        if (!read.refusal.isEmpty() || known.contains(read.barcode))
            continue;
        known.insert(read.barcode);
        for (const QString &barcode : Pasted::candidates(read.barcode))
            wanted.append(lit(barcode));
    }
    return wanted.isEmpty()
               ? QString()
               : QStringLiteral(
                     "SELECT dk_shc.shtrihcod,goods.id,goods.name,goods.type,goods.tax,goods.block,"
                     "goods.group_g,goods.id_rules_goods,goods_shop.count_showroom,"
                     "goods_shop.count_syllable FROM dk_shc JOIN goods ON goods.id=dk_shc.id_goods "
                     "LEFT JOIN goods_shop ON goods_shop.id_goods=goods.id AND goods_shop.id_shop=%1 "
                     "WHERE dk_shc.shtrihcod IN (%2)")
                     .arg(shop, wanted.join(QLatin1Char(',')));
}

/// The same goods that the list of the mode offers.
QString goodsRefusal(const QSqlQuery &row, GoodsSearch::Mode mode)
{
    if (row.value(5).isNull() || row.value(5).toInt() != 0)
        return Texts::tr("товар заблоковано");
    const qint64 group = row.value(6).toLongLong();
    if (row.value(6).isNull() || (group >= 2 && group <= 5))
        return Texts::tr("товар службової групи");
    const int rules = row.value(7).toInt();
    if (rules < 1 || rules > (mode == GoodsSearch::Receive ? 2 : 3))
        return mode == GoodsSearch::Receive ? Texts::tr("за правилами товару його не приймають")
                                            : Texts::tr("за правилами товару його не переміщують");
    if (mode != GoodsSearch::Receive && row.value(8).isNull())
        return Texts::tr("у магазині немає цього товару");
    return QString();
}

Known knownOf(const QSqlQuery &row, GoodsSearch::Mode mode)
{
    Known known;
    GoodsItem &item = known.item;
    item.barcode = toText(row.value(0));
    item.idGoods = row.value(1).toUInt();
    item.name = toText(row.value(2));
    item.type = row.value(3).toInt();
    item.tax = row.value(4).toInt();
    item.showroom = row.value(8).toLongLong();
    item.syllable = row.value(9).toLongLong();
    item.rules = row.value(7).toInt();
    known.refusal = goodsRefusal(row, mode);
    return known;
}

/// The server holds letters of either case for the same.
QString keyOf(const QString &barcode)
{
    return isAllDigits(barcode) ? barcode : barcode.trimmed().toUpper();
}

/// As it stands there, else with the zeros that were lost, as long as that is one item.
const Known *find(const Goods &goods, const QString &barcode, QString *refusal)
{
    const Known *found = nullptr;
    for (const QString &candidate : Pasted::candidates(barcode)) {
        const auto known = goods.find(keyOf(candidate));
        if (known == goods.end())
            continue;
        if (candidate == barcode)
            return &*known;
        if (found != nullptr && found->item.idGoods != known->item.idGoods)
            *refusal =
                Texts::tr("неоднозначний: без нулів на початку так само виглядає «%1»").arg(known->item.name);
        found = &*known;
    }
    if (found == nullptr)
        *refusal = Texts::tr("невідомий штрихкод");
    return found;
}

/// Judges the lines one after the other: what came before counts.
class Judge
{
public:
    Judge(const Goods &goods, PastedTable *table) : m_goods(goods), m_table(table) {}

    void judge(Read read)
    {
        const Known *known = read.refusal.isEmpty() ? find(m_goods, read.barcode, &read.refusal) : nullptr;
        if (known != nullptr) {
            read.line.name = known->item.name;
            if (read.refusal.isEmpty())
                read.refusal = refusal(*known, read.quantity);
        }
        read.line.isTaken = known != nullptr && read.refusal.isEmpty();
        read.line.words = read.line.isTaken ? take(*known, read) : read.refusal;
        if (!read.line.isTaken)
            m_table->refused.append(
                {read.line.number, QStringList{read.line.barcode, read.line.quantity}.join(QLatin1Char(' ')),
                 read.refusal});
        m_table->lines.append(read.line);
    }

private:
    QString refusal(const Known &known, qint64 quantity) const
    {
        if (!known.refusal.isEmpty())
            return known.refusal;
        if (known.item.isPiece() && quantity % one != 0)
            return Texts::tr("штучний товар: кількість має бути цілою");
        return m_sums.value(known.item.idGoods) + quantity > StockDocument::maximum
                   ? Texts::tr("разом із попередніми рядками кількість завелика")
                   : QString();
    }

    QString take(const Known &known, const Read &read)
    {
        m_table->rows.append(StockRow(known.item, read.quantity));
        qint64 &sum = m_sums[known.item.idGoods];
        QStringList words;
        if (sum != 0)
            words.append(Texts::tr("ще раз, разом %1").arg(quantityShown(sum + read.quantity)));
        else
            words.append(Texts::tr("додається %1").arg(quantityShown(read.quantity)));
        if (keyOf(known.item.barcode) != keyOf(read.barcode))
            words.append(Texts::tr("штрихкод %1").arg(known.item.barcode));
        sum += read.quantity;
        return words.join(QStringLiteral(", "));
    }

    const Goods &m_goods;
    PastedTable *m_table;
    QHash<quint32, qint64> m_sums;
};
} // namespace

bool Pasted::isTable(const QString &text)
{
    const QString trimmed = text.trimmed();
    return trimmed.contains(QLatin1Char('\n')) || trimmed.contains(QLatin1Char('\t')) ||
           trimmed.contains(QLatin1Char(';'));
}

QString Pasted::barcodeOf(const QString &cell, QString *refusal)
{
    // Thousands of them come at once, and most need no look.
    if (isAllDigits(cell) && cell.size() <= longestBarcode)
        return cell;
    static const QRegularExpression blanks(QStringLiteral("\\s"),
                                           QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression asText(QStringLiteral("^(?:=\"(.*)\"|'(.*))$"));
    static const QRegularExpression fraction(QStringLiteral("^(\\d+)[.,]0+$"));
    static const QRegularExpression exponent(QStringLiteral("^\\d+(?:[.,]\\d+)?[eEеЕ]\\+?\\d+$"));
    QString code = cell;
    code.remove(blanks);
    if (const auto match = asText.match(code); match.hasMatch())
        code = match.captured(1) + match.captured(2);
    if (const auto match = fraction.match(code); match.hasMatch())
        code = match.captured(1);
    if (code.isEmpty())
        *refusal = Texts::tr("немає штрихкоду");
    else if (exponent.match(code).hasMatch())
        *refusal = Texts::tr("таблиця зіпсувала штрихкод: задайте стовпцю формат «Текст» і скопіюйте ще раз");
    else if (code.size() > longestBarcode)
        *refusal = Texts::tr("у штрихкоді більше ніж %1 цифр").arg(longestBarcode);
    return code;
}

QStringList Pasted::candidates(const QString &barcode)
{
    QStringList all = {barcode};
    if (!isAllDigits(barcode))
        return all;
    for (const int length : {longestBarcode, longestBarcode - 1, 8}) {
        if (barcode.size() < length)
            all.append(barcode.rightJustified(length, QLatin1Char('0')));
    }
    return all;
}

PastedTable checkPastedTable(const Db &db, const SaleWork::Caller &caller, const QString &text,
                             const QString &shop, GoodsSearch::Mode mode)
{
    PastedTable table;
    const QVector<Read> lines = readLines(text);
    if (lines.size() > Pasted::mostLines) {
        table.error = Texts::tr("У таблиці більше ніж %1 рядків. Вставте її частинами.")
                          .arg(wholeShown(Pasted::mostLines));
        return table;
    }
    Goods goods;
    const QString sql = goodsSql(lines, shop);
    if (!sql.isEmpty()) {
        auto rows = db.run(sql, {}, {}, caller.file, caller.line);
        if (!rows)
            table.error = Texts::tr("Сервер не відповів. Перевірте таблицю ще раз.");
        while (rows && rows->next())
            goods.insert(keyOf(toText(rows->value(0))), knownOf(*rows, mode));
    }
    Judge judge(goods, &table);
    for (const Read &read : lines)
        judge.judge(read);
    return table;
}
