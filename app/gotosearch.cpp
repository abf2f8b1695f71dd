#include "gotosearch.h"

#include "cheks.h"
#include "columns.h"
#include "db.h"
#include "ean13.h"
#include "permissions.h"
#include "qloadeduser.h"
#include "qtab.h"
#include "rowstore.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>
#include <limits>

namespace {
/// Letters; one would find most of everything.
constexpr int shortestWord = 2;
constexpr int cardDigits = 10;
/// Of digits that are no barcode, code or number any more.
constexpr int longestNumber = 10;
constexpr quint64 greatestId = std::numeric_limits<DbId>::max();

struct Goto
{
    Q_DECLARE_TR_FUNCTIONS(Goto)
};

/// What is asked of one kind: the text without the kind's name.
struct Asked
{
    QString text;
    /// The shops that the user may see, as a condition on `shops` with a blank before it.
    QString shops;
    /// The kind was named: a single letter or digit is enough then.
    bool isNamed = false;

    bool isNumber() const { return isAllDigits(text); }
};

/// Digits as an id of the database; nothing for those that none can be.
std::optional<quint64> idOf(const QString &digits)
{
    bool isRead = false;
    const quint64 id = digits.toULongLong(&isRead);
    return isAllDigits(digits) && isRead && id <= greatestId ? std::optional(id) : std::nullopt;
}

bool isNameSearch(const Asked &asked)
{
    return asked.text.size() >= (asked.isNamed ? 1 : shortestWord) &&
           !(asked.isNumber() && asked.text.size() > longestNumber);
}

QString limited(const QString &sql)
{
    return sql + QStringLiteral(" LIMIT %1").arg(mostGotoHits + 1);
}

/// Every word in the address, the name or the register.
QString also(const QString &condition, const QString &words)
{
    const QString found = likeWords(condition, words);
    return found.isEmpty() ? found : QStringLiteral(" AND ") + found;
}

QString shopsSql(const Asked &asked)
{
    if (!isNameSearch(asked))
        return {};
    return limited(
        QStringLiteral("SELECT shops.id,shops.address,shops.name,shops.block,(shops.address=%1 OR "
                       "shops.name=%1) AS exact FROM shops WHERE%2%3 ORDER BY exact DESC,shops.address")
            .arg(lit(asked.text), asked.shops,
                 also(QStringLiteral("(shops.address LIKE %1 OR shops.name LIKE %1)"), asked.text)));
}

QString registersSql(const Asked &asked)
{
    if (!isNameSearch(asked))
        return {};
    const QString words =
        also(QStringLiteral("(kassa.advertising_str LIKE %1 OR shops.address LIKE %1)"), asked.text);
    return limited(QStringLiteral("SELECT kassa.id,IFNULL(NULLIF(kassa.advertising_str,''),CONCAT('№ ',"
                                  "kassa.id)) AS name,shops.address,kassa.block,"
                                  "IFNULL(kassa.advertising_str=%1,0) AS exact FROM kassa JOIN shops ON "
                                  "shops.id=kassa.id_shop WHERE%2%3 ORDER BY exact DESC,shops.address,name")
                       .arg(lit(asked.text), asked.shops, words));
}

QString goodsCondition(const Asked &asked)
{
    const QString withCode = QStringLiteral("goods.id IN (SELECT id_goods FROM dk_shc WHERE shtrihcod%1)");
    if (!asked.isNumber())
        return likeWords(QStringLiteral("goods.name LIKE %1"), asked.text);
    if (asked.text.size() > longestNumber)
        return withCode.arg(QLatin1Char('=') + lit(asked.text));
    QString condition = QStringLiteral("goods.name LIKE ") + likeContains(asked.text);
    if (const auto id = idOf(asked.text))
        condition += QStringLiteral(" OR goods.id=%1").arg(*id);
    if (asked.text.size() >= shortestWord)
        condition +=
            QStringLiteral(" OR ") + withCode.arg(QStringLiteral(" LIKE ") + likeContains(asked.text));
    return condition;
}

QString goodsSql(const Asked &asked)
{
    if (!asked.isNumber() && !isNameSearch(asked))
        return {};
    return limited(
        QStringLiteral("SELECT goods.id,goods.name,(SELECT MIN(shtrihcod) FROM dk_shc WHERE "
                       "id_goods=goods.id),goods.block,(goods.name=%1 OR goods.id=%2 OR EXISTS(SELECT 1 FROM "
                       "dk_shc WHERE id_goods=goods.id AND shtrihcod=%1)) AS exact FROM goods WHERE %3 ORDER "
                       "BY exact DESC,LOCATE(%1,goods.name)<>1,goods.name")
            .arg(lit(asked.text), QString::number(idOf(asked.text).value_or(0)), goodsCondition(asked)));
}

/// The cards whose printed code begins so, along the key: without zeros before it a code may be of any
/// length.
QString cardsCondition(const QString &digits)
{
    QStringList ranges;
    quint64 from = digits.toULongLong();
    quint64 count = 1;
    for (int length = digits.size(); length <= cardDigits && from <= greatestId; ++length) {
        if (!digits.startsWith(QLatin1Char('0')) || length == cardDigits)
            ranges.append(QStringLiteral("clients.id BETWEEN %1 AND %2")
                              .arg(from)
                              .arg(qMin(from + count - 1, greatestId)));
        from *= 10;
        count *= 10;
    }
    return ranges.join(QStringLiteral(" OR "));
}

QString cardsSql(const Asked &asked)
{
    const auto id = idOf(asked.text);
    if (!id)
        return {};
    const QString condition = asked.text.size() > cardDigits ? QStringLiteral("clients.id=%1").arg(*id)
                                                             : cardsCondition(asked.text);
    // The one whose code is the whole number comes first by itself.
    return limited(QStringLiteral("SELECT clients.id,clients.name,clients.telephone,clients.block,"
                                  "clients.id=%1 AS exact FROM clients WHERE %2 ORDER BY clients.id")
                       .arg(*id)
                       .arg(condition));
}

/// The first number, and the words around it, which are of the place.
struct Numbered
{
    std::optional<quint64> number;
    QString words;
};
Numbered numberedOf(const QString &text)
{
    QStringList words = wordsOf(text);
    const auto number = std::find_if(words.begin(), words.end(), isAllDigits);
    if (number == words.end())
        return {};
    const auto id = idOf(*number);
    words.erase(number);
    return {id, words.join(QLatin1Char(' '))};
}

/// Along the key of the receipts, a receipt a register; registers that were moved to another shop have theirs
/// in both.
QString cheksSql(const Asked &asked)
{
    const Numbered wanted = numberedOf(asked.text);
    if (!wanted.number)
        return {};
    return limited(
        QStringLiteral(
            "SELECT STRAIGHT_JOIN cheks.id_chek,MAX(IF(cheks.id_type>2,cheks.id_type,0)),shops.address,"
            "IFNULL(NULLIF(kassa.advertising_str,''),CONCAT('№ ',cheks.id_kass)),MAX(cheks.data_time) AS "
            "time,cheks.id_shop,cheks.id_kass,MAX(cheks.id_zvit) FROM (SELECT id_shop,id_kass FROM cheks "
            "GROUP BY id_shop,id_kass) streams JOIN shops ON shops.id=streams.id_shop LEFT JOIN kassa ON "
            "kassa.id=streams.id_kass JOIN cheks ON cheks.id_shop=streams.id_shop AND "
            "cheks.id_kass=streams.id_kass AND cheks.id_chek=%1 WHERE%2%3 GROUP BY "
            "cheks.id_shop,cheks.id_kass ORDER BY time DESC")
            .arg(*wanted.number)
            .arg(asked.shops, also(QStringLiteral("(kassa.advertising_str LIKE %1 OR shops.address LIKE %1)"),
                                   wanted.words)));
}

QString shiftsSql(const Asked &asked)
{
    const Numbered wanted = numberedOf(asked.text);
    if (!wanted.number)
        return {};
    return limited(
        QStringLiteral("SELECT z_zvit.id_zzvit,z_zvit.data_time=0,shops.address,"
                       "IFNULL(NULLIF(kassa.advertising_str,''),CONCAT('№ ',z_zvit.id_kass)),"
                       "z_zvit.data_time,z_zvit.id_shop,z_zvit.id_kass FROM z_zvit JOIN shops ON "
                       "shops.id=z_zvit.id_shop LEFT JOIN kassa ON kassa.id=z_zvit.id_kass WHERE "
                       "z_zvit.id_zzvit=%1 AND%2%3 ORDER BY z_zvit.data_time=0 DESC,z_zvit.data_time DESC")
            .arg(*wanted.number)
            .arg(asked.shops, also(QStringLiteral("(kassa.advertising_str LIKE %1 OR shops.address LIKE %1)"),
                                   wanted.words)));
}

QString text(const RowStore &rows, int row, int column)
{
    const std::string_view cell = rows.cell(row, column);
    return QString::fromUtf8(cell.data(), static_cast<int>(cell.size()));
}

QString joined(QStringList parts)
{
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

/// Shops, registers, goods and cards: id, name, what else tells it, whether it is blocked, whether the text
/// is all of it.
GotoHit recordHit(GotoKind kind, const RowStore &rows, int row)
{
    enum { Id, Name, Beside, Block, Exact };
    GotoHit hit;
    hit.kind = kind;
    hit.name = text(rows, row, Name);
    QStringList place = {text(rows, row, Beside)};
    if (kind == GotoKind::Goods)
        place.prepend(Goto::tr("код %1").arg(text(rows, row, Id)));
    if (kind == GotoKind::Card) {
        place.prepend(hit.name);
        hit.name = text(rows, row, Id).rightJustified(cardDigits, QLatin1Char('0'));
    }
    if (text(rows, row, Block) == QLatin1String("1"))
        place.append(Goto::tr("заблоковано"));
    hit.place = joined(place);
    hit.isExact = text(rows, row, Exact) == QLatin1String("1");
    return hit;
}

/// Receipts and shifts: number, kind or state, shop, register, time, their ids, the shift of a receipt.
enum NumberColumn { Number, State, Address, Kass, Time, IdShop, IdKass, Shift };

GotoHit numberHit(GotoKind kind, const RowStore &rows, int row)
{
    const QString number = text(rows, row, Number);
    const QString state = text(rows, row, State);
    const bool isOpen = kind == GotoKind::Shift && state == QLatin1String("1");
    GotoHit hit;
    hit.kind = kind;
    hit.isExact = true;
    hit.name = kind == GotoKind::Chek ? Goto::tr("Чек № %1, %2").arg(number, ChekType::name(state.toInt()))
                                      : Goto::tr("Зміна № %1").arg(number);
    hit.place = joined({text(rows, row, Address), text(rows, row, Kass),
                        isOpen ? Goto::tr("відкрита") : asDateTime.shown(rows.cell(row, Time))});
    return hit;
}

/// The condition that picks the record out of the list of its tab.
Destination toRecord(const char *table, const RowStore &rows, int row)
{
    Destination destination;
    destination.condition = QStringLiteral("%1.id=%2").arg(QLatin1String(table), text(rows, row, 0));
    return destination;
}

Destination toShift(const char *table, const RowStore &rows, int row)
{
    Destination destination;
    destination.condition = QStringLiteral("%1.id_zzvit=%2 AND %1.id_kass=%3")
                                .arg(QLatin1String(table), text(rows, row, Number), text(rows, row, IdKass));
    return destination;
}

Destination toOrigin(const RowStore &rows, int row, int shiftColumn)
{
    Destination destination;
    destination.origin.shop = text(rows, row, IdShop).toUInt();
    destination.origin.kass = text(rows, row, IdKass).toUInt();
    destination.origin.zFrom = destination.origin.zTo = text(rows, row, shiftColumn);
    return destination;
}

Destination toChek(const char *, const RowStore &rows, int row)
{
    Destination destination = toOrigin(rows, row, Shift);
    destination.origin.chek = text(rows, row, Number).toUInt();
    return destination;
}

Destination toReport(const char *, const RowStore &rows, int row)
{
    return toOrigin(rows, row, Number);
}

/// A page that shows a kind.
struct KindPage
{
    int permission;
    const char *action;
    Destination (*lead)(const char *table, const RowStore &rows, int row);
};

/// One line a kind that the database is asked for.
struct Kind
{
    GotoKind kind;
    const char *table;
    const char *heading;
    /// The words that a text may begin with to ask for this kind alone.
    const char *words;
    QString (*sql)(const Asked &asked);
    GotoHit (*hit)(GotoKind kind, const RowStore &rows, int row);
    /// The better one first; the second one may be none.
    KindPage pages[2];
};

constexpr KindPage none = {0, nullptr, nullptr};

const Kind kinds[] = {
    {GotoKind::Shop,
     "shops",
     QT_TRANSLATE_NOOP("Goto", "Магазини"),
     QT_TRANSLATE_NOOP("Goto", "магазин,магазини"),
     shopsSql,
     recordHit,
     {{Permission::Shops, "mt_shops", toRecord}, none}},
    {GotoKind::Register,
     "kassa",
     QT_TRANSLATE_NOOP("Goto", "Каси"),
     QT_TRANSLATE_NOOP("Goto", "каса,каси,обладнання"),
     registersSql,
     recordHit,
     {{Permission::Kassa, "mt_kass", toRecord}, none}},
    {GotoKind::Goods,
     "goods",
     QT_TRANSLATE_NOOP("Goto", "Товари"),
     QT_TRANSLATE_NOOP("Goto", "товар,товари"),
     goodsSql,
     recordHit,
     {{Permission::Goods, "mt_goods", toRecord}, none}},
    {GotoKind::Card,
     "clients",
     QT_TRANSLATE_NOOP("Goto", "Картки"),
     QT_TRANSLATE_NOOP("Goto", "картка,карточка,клієнт"),
     cardsSql,
     recordHit,
     {{Permission::Clients, "mt_clients", toRecord}, none}},
    {GotoKind::Chek,
     "cheks",
     QT_TRANSLATE_NOOP("Goto", "Чеки"),
     QT_TRANSLATE_NOOP("Goto", "чек,чеки"),
     cheksSql,
     numberHit,
     {{Permission::Cheks, "mz_cheks", toChek}, none}},
    {GotoKind::Shift,
     "z_zvit",
     QT_TRANSLATE_NOOP("Goto", "Зміни"),
     QT_TRANSLATE_NOOP("Goto", "зміна,зміни,звіт"),
     shiftsSql,
     numberHit,
     {{Permission::ZZvit, "mt_z_zvits", toShift}, {Permission::ZReports, "mz_zzvit", toReport}}},
};

/// The page that shows a kind to the user; null when he may see none.
const KindPage *pageOf(const Kind &kind, const QLoadedUser &user)
{
    const auto seen = std::find_if(std::begin(kind.pages), std::end(kind.pages), [&user](const auto &page) {
        return page.action != nullptr && user.maySee(page.permission);
    });
    return seen == std::end(kind.pages) ? nullptr : &*seen;
}

/// The kind that a text asks for by its first word, which it loses; null for all kinds.
const Kind *namedKind(QString *text)
{
    const QString first = text->section(QLatin1Char(' '), 0, 0);
    const QString rest = text->section(QLatin1Char(' '), 1).trimmed();
    const auto isNamed = [&first](const Kind &kind) {
        return Goto::tr(kind.words).split(QLatin1Char(',')).contains(first, Qt::CaseInsensitive);
    };
    const auto named = std::find_if(std::begin(kinds), std::end(kinds), isNamed);
    if (rest.isEmpty() || named == std::end(kinds))
        return nullptr;
    *text = rest;
    return &*named;
}

const Kind &lineOf(GotoKind wanted)
{
    return *std::find_if(std::begin(kinds), std::end(kinds),
                         [wanted](const Kind &kind) { return kind.kind == wanted; });
}
} // namespace

GotoQuestion gotoQuestion(const QString &text, const QLoadedUser &user)
{
    Asked asked;
    asked.text = text.simplified();
    asked.shops = QTab::GetStrLstGroupFromPermis(&user, QStringLiteral("shops.group_shop"), true);
    const Kind *named = namedKind(&asked.text);
    asked.isNamed = named != nullptr;
    GotoQuestion question;
    for (const Kind &kind : kinds) {
        const bool isWanted = named == nullptr || named == &kind;
        const QString sql = isWanted && pageOf(kind, user) != nullptr ? kind.sql(asked) : QString();
        if (sql.isEmpty())
            continue;
        question.kinds.append(kind.kind);
        question.statements.append(sql);
    }
    return question;
}

QVector<GotoHit> gotoHits(GotoKind kind, const RowStore &rows, const QLoadedUser &user)
{
    const Kind &line = lineOf(kind);
    const KindPage *page = pageOf(line, user);
    QVector<GotoHit> hits;
    for (int row = 0; row < rows.rowCount() && page != nullptr; ++row) {
        GotoHit hit = line.hit(kind, rows, row);
        hit.destination = page->lead(line.table, rows, row);
        hit.destination.action = QLatin1String(page->action);
        hit.destination.words = joined({hit.name, hit.place});
        hits.append(hit);
    }
    return hits;
}

QString gotoKindName(GotoKind kind)
{
    return kind == GotoKind::Action ? Goto::tr("Меню") : Goto::tr(lineOf(kind).heading);
}
