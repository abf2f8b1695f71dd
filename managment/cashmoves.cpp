#include "cashmoves.h"

#include "cheks.h"
#include "db.h"

#include <QCollator>
#include <QCoreApplication>
#include <QDate>
#include <QHash>
#include <algorithm>
#include <array>
#include <charconv>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CashMoves)
};

const QString isOpen = QStringLiteral("IFNULL(invoice.data_time_close=0,1)");
const QString personName = QStringLiteral("TRIM(CONCAT(users.surname,' ',users.name))");
const QString kassName = QStringLiteral(
    "IF(kassa.id IS NULL,NULL,IFNULL(NULLIF(kassa.advertising_str,''),CONCAT('№ ',kassa.id)))");

QString within(const char *time, const CashMovesAsked &asked)
{
    return QStringLiteral("%1>=%2 AND %1<=%3 AND%4")
        .arg(QLatin1String(time), asked.from, asked.to, asked.shops);
}

/// What the row says beside the operation's name.
QString serviceSql(const CashMovesAsked &asked)
{
    QStringList types;
    if (asked.kind != CashMovesAsked::Out)
        types.append(QString::number(ChekType::CashIn));
    if (asked.kind != CashMovesAsked::In)
        types.append(QString::number(ChekType::CashOut));
    return QStringLiteral(
               "SELECT cheks.data_time AS moment,IF(cheks.id_type=4,%1,%2),IFNULL(slujb_op.name,cheks.name),"
               "shops.address,%3,%4,IF(cheks.id_type=4,cheks.summa,NULL),IF(cheks.id_type=5,cheks.summa,NULL),"
               "NULL,NULL,NULL,NULL,IF(cheks.name<=>slujb_op.name,NULL,cheks.name),cheks.id_chek AS number,"
               "cheks.id_zvit,cheks.id_shop,cheks.id_kass,cheks.id_user,"
               "CONCAT(cheks.id_type,'/',IFNULL(cheks.id_good_cln_slujb,0)) FROM cheks JOIN shops ON "
               "shops.id=cheks.id_shop LEFT JOIN kassa ON kassa.id=cheks.id_kass LEFT JOIN users ON "
               "users.id=cheks.id_user LEFT JOIN slujb_op ON slujb_op.id=cheks.id_good_cln_slujb WHERE "
               "cheks.id_type IN (%5) AND %6")
        .arg(lit(Texts::tr("внесення")), lit(Texts::tr("вилучення")), kassName, personName,
             types.join(QLatin1Char(',')), within("cheks.data_time", asked));
}

/// What was entered at the closing of a shift beside what its receipts say: of both what the Z-report has.
/// The receipts are found by their type and added up once: by plain columns the server would read all those
/// of a register for each of its shifts. Whoever has closed the shift, by its Z receipt, has taken the cash
/// out, whoever had opened it.
QString closingSql(const CashMovesAsked &asked)
{
    const QString in = QStringLiteral("(IFNULL(z.vnesenia,0)-IFNULL(moved.brought,0))");
    const QString out = QStringLiteral("(IFNULL(z.viluchenia,0)-IFNULL(moved.taken,0))");
    const bool wantsIn = asked.kind != CashMovesAsked::Out;
    const bool wantsOut = asked.kind != CashMovesAsked::In;
    const QString nothing = QStringLiteral("0");
    return QStringLiteral(
               "SELECT z.data_time AS moment,%1,CONCAT(%2,z.id_zzvit),shops.address,%3,%4,NULLIF(%5,0),"
               "NULLIF(%6,0),NULL,NULL,NULL,NULL,NULL,NULL AS number,z.id_zzvit,z.id_shop,z.id_kass,"
               "IFNULL(moved.closer,z.id_user),'closing' FROM z_zvit AS z JOIN shops ON shops.id=z.id_shop "
               "LEFT JOIN kassa ON kassa.id=z.id_kass LEFT JOIN (SELECT id_shop+0 AS shop,id_kass+0 AS kass,"
               "id_zvit+0 AS shift,SUM(IF(id_type=4,summa,0)) AS brought,"
               "SUM(IF(id_type=5,summa,0)) AS taken,MAX(IF(id_type=%7,id_user,NULL)) AS closer FROM cheks "
               "WHERE id_type IN (4,5,%7) AND (id_type<>%7 OR data_time BETWEEN %8 AND %9) GROUP BY shop,kass,"
               "shift) AS moved ON moved.shop=z.id_shop AND moved.kass=z.id_kass AND "
               "moved.shift=z.id_zzvit LEFT JOIN users ON users.id=IFNULL(moved.closer,z.id_user) WHERE "
               "(%5<>0 OR %6<>0) AND ")
               .arg(lit(Texts::tr("закриття зміни")), lit(Texts::tr("зміна № ")), kassName, personName,
                    wantsIn ? in : nothing, wantsOut ? out : nothing, QString::number(ChekType::ZReport),
                    asked.from, asked.to) +
           within("z.data_time", asked);
}

/// shop, user, kass, other: the ends of `invoice` that the move is about; amounts: its six sums.
QString invoiceSql(const char *end, const char *otherEnd, const char *time, const QString &kind,
                   const QString &arrow, const QString &amounts, const QString &condition,
                   const CashMovesAsked &asked)
{
    const QString side = QLatin1String(end);
    return QStringLiteral(
               "SELECT invoice.%1 AS moment,%2,CONCAT('%3 ',other.address),shops.address,%4,%5,%6,"
               "invoice.msg_%7,invoice.id AS number,0,shops.id,IFNULL(invoice.id_kass_%7,0),"
               "invoice.id_user_%7,'%7' FROM invoice JOIN shops ON shops.id=invoice.id_shop_%7 LEFT "
               "JOIN shops AS other ON other.id=invoice.id_shop_%8 LEFT JOIN kassa ON "
               "kassa.id=invoice.id_kass_%7 LEFT JOIN users ON users.id=invoice.id_user_%7 WHERE "
               "invoice.is_cash_goods=1 AND %9 AND ")
               .arg(QLatin1String(time), lit(kind), arrow, kassName, personName, amounts, side,
                    QLatin1String(otherEnd), condition) +
           within((QByteArray("invoice.") + time).constData(), asked);
}

QString sentSql(const CashMovesAsked &asked)
{
    QString condition = QStringLiteral("(%1 OR invoice.cash_accept IS NOT NULL)").arg(isOpen);
    if (asked.kind == CashMovesAsked::OnTheWay)
        condition = isOpen;
    else if (asked.kind == CashMovesAsked::Missing)
        condition =
            QStringLiteral(
                "NOT %1 AND invoice.cash_accept IS NOT NULL AND NOT invoice.cash_accept<=>invoice.cash_send")
                .arg(isOpen);
    const QString missing =
        QStringLiteral("CAST(IFNULL(invoice.cash_send,0) AS SIGNED)-CAST(invoice.cash_accept AS SIGNED)");
    const QString amounts =
        QStringLiteral("NULL,NULL,IFNULL(invoice.cash_send,0),IF(%1,invoice.cash_send,NULL),"
                       "IF(%1,NULL,NULLIF(%2,0)),NULL")
            .arg(isOpen, missing);
    return invoiceSql("with", "to", "data_time_open", Texts::tr("надіслано"), QStringLiteral("→"), amounts,
                      condition, asked);
}

QString acceptedSql(const CashMovesAsked &asked)
{
    return invoiceSql("to", "with", "data_time_close", Texts::tr("прийнято"), QStringLiteral("←"),
                      QStringLiteral("NULL,NULL,NULL,NULL,NULL,invoice.cash_accept"),
                      QStringLiteral("NOT %1 AND invoice.cash_accept IS NOT NULL").arg(isOpen), asked);
}

qint64 whole(std::string_view text)
{
    qint64 value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

/// A group's name, and what it is told by.
struct GroupOf
{
    QString key;
    QString name;
};

GroupOf groupOf(const RowStore &moves, int row, CashGrouping grouping)
{
    const auto text = [&](CashMove column) {
        const std::string_view cell = moves.cell(row, static_cast<int>(column));
        return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
    };
    const auto named = [](const QString &name) { return name.isEmpty() ? Texts::tr("невідомо") : name; };
    switch (grouping) {
    case CashGrouping::Shop:
        return {text(CashMove::ShopId), text(CashMove::Shop)};
    case CashGrouping::Register: {
        const QString kass = text(CashMove::Kass);
        return {text(CashMove::ShopId) + QLatin1Char('/') + text(CashMove::KassId),
                text(CashMove::Shop) + QStringLiteral(", ") + (kass.isEmpty() ? Texts::tr("сейф") : kass)};
    }
    case CashGrouping::Operation: {
        const QString key = text(CashMove::Operation);
        const bool isService = key.contains(QLatin1Char('/'));
        const QString kind = text(CashMove::Kind);
        return {key, isService ? kind + QStringLiteral(": ") + named(text(CashMove::What)) : kind};
    }
    case CashGrouping::Person:
        return {text(CashMove::UserId), named(text(CashMove::Person))};
    case CashGrouping::Day: {
        const QString day = text(CashMove::Time).left(10);
        return {day, QDate::fromString(day, Qt::ISODate).toString(QStringLiteral("dd.MM.yyyy"))};
    }
    case CashGrouping::Together:
        break;
    }
    return {QStringLiteral("0"), Texts::tr("Разом")};
}

constexpr int sumCount = static_cast<int>(CashSum::Count) - static_cast<int>(CashSum::In);
static_assert(sumCount == static_cast<int>(CashMove::Note) - static_cast<int>(CashMove::In),
              "both lists have the same amounts in the same order");

struct Group
{
    GroupOf of;
    int moves = 0;
    std::array<qint64, sumCount> sums{};
};

void addUp(const RowStore &moves, int row, Group *group)
{
    ++group->moves;
    for (int i = 0; i < sumCount; ++i)
        group->sums[static_cast<size_t>(i)] += whole(moves.cell(row, static_cast<int>(CashMove::In) + i));
}

/// An amount of 0 is shown empty: what there is stands out.
void appendGroup(const Group &group, RowStore *rows)
{
    std::vector<std::string> texts = {group.of.key.toStdString(), group.of.name.toStdString(),
                                      std::to_string(group.moves)};
    for (const qint64 sum : group.sums)
        texts.push_back(sum == 0 ? std::string() : std::to_string(sum));
    rows->append({texts.begin(), texts.end()});
}
} // namespace

QString cashMovesSql(const CashMovesAsked &asked)
{
    QStringList parts;
    const auto wants = [&asked](std::initializer_list<CashMovesAsked::Kind> kinds) {
        return asked.kind == CashMovesAsked::All ||
               std::find(kinds.begin(), kinds.end(), asked.kind) != kinds.end();
    };
    if (wants({CashMovesAsked::In, CashMovesAsked::Out}))
        parts += {serviceSql(asked), closingSql(asked)};
    if (wants({CashMovesAsked::Sent, CashMovesAsked::OnTheWay, CashMovesAsked::Missing}))
        parts.append(sentSql(asked));
    if (wants({CashMovesAsked::Accepted}))
        parts.append(acceptedSql(asked));
    return parts.join(QStringLiteral(" UNION ALL ")) + QStringLiteral(" ORDER BY moment,number");
}

namespace {
/// Both lists have the same amounts.
QVector<Column> amountColumns()
{
    const int money = 11;
    return {{Texts::tr("Внесено в касу"), money, &asSum},  {Texts::tr("Вилучено з каси"), money, &asSum},
            {Texts::tr("Надіслано"), money, &asSum},       {Texts::tr("З них у дорозі"), money, &asSum},
            {Texts::tr("З них не дійшло"), money, &asSum}, {Texts::tr("Прийнято"), money, &asSum}};
}
} // namespace

QVector<Column> cashMoveColumns()
{
    QVector<Column> columns = {
        {Texts::tr("Час"), 15, &asDateTime}, {Texts::tr("Рух"), 9},   {Texts::tr("Операція / магазин"), 20},
        {Texts::tr("Магазин"), 20},          {Texts::tr("Каса"), 12}, {Texts::tr("Працівник"), 14}};
    columns += amountColumns();
    columns += {{Texts::tr("Примітка"), 18}, {Texts::tr("Чек / накладна №"), 7, &asNumber}};
    for (int i = static_cast<int>(CashMove::ZNumber); i < static_cast<int>(CashMove::Count); ++i)
        columns.append({QString(), 0, &asText, true});
    return columns;
}

QVector<Column> cashSumColumns()
{
    const QVector<Column> first = {
        {QString(), 0, &asText, true}, {Texts::tr("Група"), 30}, {Texts::tr("Операцій"), 8, &asNumber}};
    return first + amountColumns();
}

RowStore cashSums(const RowStore &moves, CashGrouping grouping)
{
    std::vector<Group> groups;
    QHash<QString, size_t> places;
    for (int row = 0; row < moves.rowCount(); ++row) {
        const GroupOf of = groupOf(moves, row, grouping);
        if (!places.contains(of.key)) {
            places.insert(of.key, groups.size());
            groups.push_back({of});
        }
        addUp(moves, row, &groups.at(places.value(of.key)));
    }
    const QCollator order;
    if (grouping != CashGrouping::Day)
        std::stable_sort(groups.begin(), groups.end(), [&order](const Group &one, const Group &other) {
            return order.compare(one.of.name, other.of.name) < 0;
        });
    RowStore rows;
    for (const Group &group : groups)
        appendGroup(group, &rows);
    return rows;
}

RowStore cashMovesOf(const RowStore &moves, CashGrouping grouping, const QString &key)
{
    RowStore rows;
    for (int row = 0; row < moves.rowCount(); ++row) {
        if (groupOf(moves, row, grouping).key != key)
            continue;
        std::vector<std::string_view> cells(static_cast<size_t>(CashMove::Count));
        for (size_t column = 0; column < cells.size(); ++column)
            cells[column] = moves.cell(row, static_cast<int>(column));
        rows.append(cells);
    }
    return rows;
}
