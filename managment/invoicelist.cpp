#include "invoicelist.h"

#include "db.h"
#include "signs.h"

#include <QColor>
#include <QCoreApplication>
#include <algorithm>
#include <iterator>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(InvoiceList)
};

const QString isOpen = QStringLiteral("IFNULL(invoice.data_time_close=0,1)");

/// Whether the invoice has such a line.
QString hasLine(const char *condition)
{
    return QStringLiteral("EXISTS(SELECT 1 FROM transactions_goods AS line WHERE "
                          "line.id_invoice=invoice.id%1)")
        .arg(QLatin1String(condition));
}

/// Of what is closed.
QString cashStateCondition(InvoiceState state)
{
    if (state == InvoiceState::Cancelled)
        return QStringLiteral("invoice.cash_accept IS NULL");
    return QStringLiteral("invoice.cash_accept IS NOT NULL AND %1invoice.cash_accept<=>invoice.cash_send")
        .arg(QLatin1String(state == InvoiceState::Different ? "NOT " : ""));
}

QString stateCondition(InvoiceState state, InvoiceKind kind)
{
    if (kind == InvoiceKind::Cash && state != InvoiceState::OnTheWay)
        return QStringLiteral("NOT %1 AND %2").arg(isOpen, cashStateCondition(state));
    const QString accepted = hasLine(" AND (line.result IS NOT NULL OR line.count_accept IS NOT NULL)");
    const QString different = hasLine(" AND line.result=0");
    switch (state) {
    case InvoiceState::OnTheWay:
        return isOpen;
    case InvoiceState::Accepted:
        return QStringLiteral("NOT %1 AND NOT %2 AND (%3 OR NOT %4)")
            .arg(isOpen, different, accepted, hasLine(""));
    case InvoiceState::Different:
        return QStringLiteral("NOT %1 AND %2").arg(isOpen, different);
    case InvoiceState::Cancelled:
        break;
    }
    return QStringLiteral("NOT %1 AND %2 AND NOT %3").arg(isOpen, hasLine(""), accepted);
}

QString placeCondition(const InvoicesAsked &asked)
{
    const QString shops = QStringLiteral(" IN (SELECT shops.id FROM shops WHERE%1)").arg(asked.shops);
    QString sent = QStringLiteral("invoice.id_shop_with") + shops;
    QString received = QStringLiteral("invoice.id_shop_to") + shops;
    switch (asked.direction) {
    case InvoicesAsked::Sent:
        return sent;
    case InvoicesAsked::Received:
        return received;
    case InvoicesAsked::Both:
        break;
    }
    return QStringLiteral("(%1 OR %2)").arg(sent, received);
}

/// In the order of the list.
QString behindCondition(const InvoiceKey &key)
{
    const QString below = QStringLiteral("invoice.id<%1").arg(key.id);
    return key.isOnTheWay ? QStringLiteral("(NOT %1 OR %2)").arg(isOpen, below)
                          : QStringLiteral("NOT %1 AND %2").arg(isOpen, below);
}

QString conditions(const InvoicesAsked &asked, const InvoiceKey &behind)
{
    QStringList all = {
        QStringLiteral("IFNULL(invoice.is_cash_goods,0)=%1").arg(asked.kind == InvoiceKind::Cash ? 1 : 0),
        placeCondition(asked)};
    if (asked.state)
        all.append(stateCondition(*asked.state, asked.kind));
    if (asked.hasDays())
        all.append(QStringLiteral("invoice.data_time_open>=%1 AND invoice.data_time_open<=%2")
                       .arg(asked.from, asked.to));
    if (!asked.number.isEmpty())
        all.append(QStringLiteral("invoice.id=%1").arg(asked.number.toULongLong()));
    if (behind.id != 0)
        all.append(behindCondition(behind));
    return all.join(QStringLiteral(" AND "));
}

QString nameOf(const char *user)
{
    return QStringLiteral("TRIM(CONCAT(%1.surname,' ',%1.name))").arg(QLatin1String(user));
}

/// newest: a table of the ids that are wanted.
QString rowsSql(const QString &newest)
{
    return QStringLiteral(
               "SELECT STRAIGHT_JOIN invoice.id,IF(%1,0,IF(COUNT(line.id_good)>0 AND COUNT(line.result)=0 AND "
               "COUNT(line.count_accept)=0,3,IF(SUM(IFNULL(line.result=0,0))>0,2,1))) AS state,"
               "sender.address,receiver.address,invoice.data_time_open,%2,invoice.data_time_close,%3,"
               "COUNT(line.id_good),SUM(line.count_send),SUM(line.count_accept),"
               "IF(COUNT(line.count_accept)=0,NULL,SUM(CAST(IFNULL(line.count_accept,0) AS SIGNED)-"
               "CAST(IFNULL(line.count_send,0) AS SIGNED))),IF(COUNT(line.result)=0,NULL,"
               "SUM(IFNULL(line.result=0,0))),invoice.msg_with,invoice.msg_to,invoice.id_shop_with,"
               "sender.group_shop,invoice.id_shop_to,receiver.group_shop FROM (%4) newest JOIN invoice ON "
               "invoice.id=newest.id LEFT JOIN shops AS sender ON sender.id=invoice.id_shop_with LEFT JOIN "
               "shops AS receiver ON receiver.id=invoice.id_shop_to LEFT JOIN users AS sent ON "
               "sent.id=invoice.id_user_with LEFT JOIN users AS closed ON closed.id=invoice.id_user_to LEFT "
               "JOIN transactions_goods AS line ON line.id_invoice=invoice.id GROUP BY invoice.id ORDER BY "
               "%1 DESC,invoice.id DESC")
        .arg(isOpen, nameOf("sent"), nameOf("closed"), newest);
}

/// "вул. Перша, 1 (Каса 2)" for cash out of a register.
QString endOf(const char *shop, const char *kass)
{
    return QStringLiteral("CONCAT(%1.address,IF(%2.id IS NULL,'',CONCAT(' (',IFNULL(NULLIF("
                          "%2.advertising_str,''),CONCAT('№ ',%2.id)),')')))")
        .arg(QLatin1String(shop), QLatin1String(kass));
}

constexpr InvoiceColumn cashOrder[] = {
    InvoiceColumn::Number,     InvoiceColumn::State,     InvoiceColumn::From,
    InvoiceColumn::To,         InvoiceColumn::Sent,      InvoiceColumn::Accepted,
    InvoiceColumn::Difference, InvoiceColumn::SentAt,    InvoiceColumn::SentBy,
    InvoiceColumn::ClosedAt,   InvoiceColumn::ClosedBy,  InvoiceColumn::MessageFrom,
    InvoiceColumn::MessageTo,  InvoiceColumn::Lines,     InvoiceColumn::DifferentLines,
    InvoiceColumn::ShopFrom,   InvoiceColumn::GroupFrom, InvoiceColumn::ShopTo,
    InvoiceColumn::GroupTo};
static_assert(std::size(cashOrder) == static_cast<size_t>(InvoiceColumn::Count), "each column once");

/// In the order of cashOrder.
QString cashRowsSql(const QString &newest)
{
    return QStringLiteral(
               "SELECT STRAIGHT_JOIN invoice.id,IF(%1,0,IF(invoice.cash_accept IS NULL,3,"
               "IF(invoice.cash_accept<=>invoice.cash_send,1,2))) AS state,%5,%6,invoice.cash_send,"
               "invoice.cash_accept,CAST(invoice.cash_accept AS SIGNED)-CAST(IFNULL(invoice.cash_send,0) AS "
               "SIGNED),invoice.data_time_open,%2,invoice.data_time_close,%3,invoice.msg_with,invoice.msg_to,"
               "NULL,NULL,invoice.id_shop_with,sender.group_shop,invoice.id_shop_to,"
               "receiver.group_shop FROM (%4) newest JOIN invoice ON invoice.id=newest.id LEFT JOIN shops AS "
               "sender ON sender.id=invoice.id_shop_with LEFT JOIN shops AS receiver ON "
               "receiver.id=invoice.id_shop_to LEFT JOIN kassa AS taken ON taken.id=invoice.id_kass_with LEFT "
               "JOIN kassa AS put ON put.id=invoice.id_kass_to LEFT JOIN users AS sent ON "
               "sent.id=invoice.id_user_with LEFT JOIN users AS closed ON closed.id=invoice.id_user_to ORDER "
               "BY %1 DESC,invoice.id DESC")
        .arg(isOpen, nameOf("sent"), nameOf("closed"), newest, endOf("sender", "taken"),
             endOf("receiver", "put"));
}

struct StateLook
{
    InvoiceState state;
    Sign sign;
    const char *words;
    QColor colour;
};

const StateLook &lookOf(InvoiceState state)
{
    static const StateLook looks[] = {
        {InvoiceState::OnTheWay,
         Sign::OnTheWay,
         QT_TRANSLATE_NOOP("InvoiceList", "у дорозі"),
         {255, 224, 130}},
        {InvoiceState::Accepted, Sign::Good, QT_TRANSLATE_NOOP("InvoiceList", "прийнято"), {165, 214, 167}},
        {InvoiceState::Different,
         Sign::Different,
         QT_TRANSLATE_NOOP("InvoiceList", "прийнято з різницею"),
         {255, 171, 145}},
        {InvoiceState::Cancelled, Sign::Bad, QT_TRANSLATE_NOOP("InvoiceList", "скасовано"), {207, 216, 220}},
    };
    return looks[static_cast<int>(state)];
}

InvoiceState stateOf(std::string_view stored)
{
    const bool isKnown = stored.size() == 1 && stored[0] >= '0' && stored[0] <= '3';
    return isKnown ? static_cast<InvoiceState>(stored[0] - '0') : InvoiceState::OnTheWay;
}

QString statePlain(std::string_view stored)
{
    return Texts::tr(lookOf(stateOf(stored)).words);
}

QString stateShown(std::string_view stored)
{
    return invoiceStateShown(stateOf(stored));
}

const CellFormat asState = {statePlain, stateShown, false};

QString signedShown(std::string_view stored)
{
    const bool isMore = !stored.empty() && stored[0] != '-' && stored != "0";
    return (isMore ? QStringLiteral("+") : QString()) + asSum.shown(stored);
}

const CellFormat asSignedSum = {asSum.plain, signedShown, true, asSum.plainBytes, asSum.value, true};
} // namespace

QString invoiceStateShown(InvoiceState state)
{
    return withSign(lookOf(state).sign, Texts::tr(lookOf(state).words));
}

QColor invoiceStateColour(InvoiceState state)
{
    return lookOf(state).colour;
}

/// The page is found by the numbers alone, and only its rows are joined and added up.
QString invoicesSql(const InvoicesAsked &asked, const InvoiceKey &behind, int rows)
{
    const QString newest =
        QStringLiteral("SELECT invoice.id FROM invoice WHERE %1 ORDER BY %2 DESC,invoice.id DESC LIMIT %3")
            .arg(conditions(asked, behind), isOpen)
            .arg(rows);
    return asked.kind == InvoiceKind::Cash ? cashRowsSql(newest) : rowsSql(newest);
}

int columnAt(InvoiceKind kind, InvoiceColumn column)
{
    if (kind == InvoiceKind::Goods)
        return static_cast<int>(column);
    return static_cast<int>(std::find(std::begin(cashOrder), std::end(cashOrder), column) -
                            std::begin(cashOrder));
}

QVector<Column> invoiceColumns(InvoiceKind kind)
{
    const bool isCash = kind == InvoiceKind::Cash;
    const CellFormat *amount = isCash ? &asSum : &asQuantity;
    const int quantity = isCash ? 11 : 9;
    const QVector<Column> goods = {{Texts::tr("№"), 6, &asNumber},
                                   {Texts::tr("Стан"), 22, &asState},
                                   {Texts::tr("З магазину"), 20},
                                   {Texts::tr("До магазину"), 20},
                                   {Texts::tr("Відправлено"), 15, &asDateTime},
                                   {Texts::tr("Хто відправив"), 12},
                                   {Texts::tr("Прийнято / скасовано"), 15, &asDateTime},
                                   {Texts::tr("Хто прийняв / скасував"), 12},
                                   {Texts::tr("Позицій"), 6, &asNumber, isCash},
                                   {Texts::tr("Надіслано"), quantity, amount},
                                   {Texts::tr("Прийнято"), quantity, amount},
                                   {Texts::tr("Різниця"), quantity, isCash ? &asSignedSum : &asQuantity},
                                   {Texts::tr("Позицій з різницею"), 7, &asNumber, isCash},
                                   {Texts::tr("Повідомлення відправника"), 16},
                                   {Texts::tr("Повідомлення одержувача"), 16},
                                   {QString(), 0, &asNumber, true},
                                   {QString(), 0, &asNumber, true},
                                   {QString(), 0, &asNumber, true},
                                   {QString(), 0, &asNumber, true}};
    if (!isCash)
        return goods;
    QVector<Column> cash;
    for (const InvoiceColumn column : cashOrder)
        cash.append(goods.at(static_cast<int>(column)));
    return cash;
}

QString invoiceLinesSql(DbId invoice)
{
    return QStringLiteral(
               "SELECT line.id_good,(SELECT MIN(dk_shc.shtrihcod) FROM dk_shc WHERE "
               "dk_shc.id_goods=line.id_good),goods.name,line.count_send,line.count_accept,"
               "IF(line.count_accept IS NULL,NULL,CAST(line.count_accept AS "
               "SIGNED)-CAST(IFNULL(line.count_send,0) AS SIGNED)),line.result FROM transactions_goods AS "
               "line LEFT JOIN goods ON goods.id=line.id_good WHERE line.id_invoice=%1 ORDER BY "
               "IFNULL(line.result=0,0) DESC,goods.name,line.id_good")
        .arg(invoice);
}

QVector<Column> invoiceLineColumns()
{
    const int quantity = 10;
    return {{Texts::tr("Код"), 7, &asNumber},
            {Texts::tr("Штрихкод"), 14},
            {Texts::tr("Назва"), 30},
            {Texts::tr("Надіслано"), quantity, &asQuantity},
            {Texts::tr("Прийнято"), quantity, &asQuantity},
            {Texts::tr("Різниця"), quantity, &asQuantity},
            {QString(), 0, &asNumber, true}};
}

/// While nobody has counted it only what was sent is told.
QString cashLinesSql(DbId invoice)
{
    return QStringLiteral("SELECT %1,IFNULL(cash_send,0) FROM invoice WHERE id=%2 UNION ALL SELECT %3,"
                          "cash_accept FROM invoice WHERE id=%2 AND cash_accept IS NOT NULL UNION ALL SELECT "
                          "%4,CAST(cash_accept AS SIGNED)-CAST(IFNULL(cash_send,0) AS SIGNED) FROM invoice "
                          "WHERE id=%2 AND cash_accept IS NOT NULL")
        .arg(lit(Texts::tr("Надіслано")), QString::number(invoice), lit(Texts::tr("Прийнято")),
             lit(Texts::tr("Різниця")));
}

QVector<Column> cashLineColumns()
{
    return {{Texts::tr("Готівка"), 30}, {Texts::tr("Сума"), 14, &asMoney}};
}
