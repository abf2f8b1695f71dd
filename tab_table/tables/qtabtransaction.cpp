#include "qtabtransaction.h"

#include "cheks.h"
#include "db.h"
#include "listpane.h"
#include "qmessevent.h"
#include "qrowmodel.h"
#include "queryservice.h"

#include <QHash>

namespace {
enum ColumnOf { Shop, Register, Shift, Chek, Position, IdType = 12, Time, IdShop, IdKass, Written };

QString words(const char *text)
{
    return lit(QTabTransaction::tr(text));
}

/// "готівкою 12.50" where the column of a payment holds something.
QString paidBy(const char *way, const char *column)
{
    return QStringLiteral(",IF(%1<>0,CONCAT(%2,' ',CAST(%1/100 AS DECIMAL(12,2))),NULL)")
        .arg(QLatin1String(column), words(way));
}

/// A payment's line carries the cash in price, the card in tax, the certificate in dis_bon_bez2 and the
/// fourth way in count.
QString paymentSql()
{
    return QStringLiteral("CONCAT_WS(', '") +
           paidBy(QT_TRANSLATE_NOOP("QTabTransaction", "готівкою"), "cheks.price") +
           paidBy(QT_TRANSLATE_NOOP("QTabTransaction", "карткою"), "cheks.tax") +
           paidBy(QT_TRANSLATE_NOOP("QTabTransaction", "сертифікатом"), "cheks.dis_bon_bez2") +
           paidBy(QT_TRANSLATE_NOOP("QTabTransaction", "інакше"), "cheks.count") + QLatin1Char(')');
}

/// What a line is of. The goods go by the name under which they were sold; what has no name any more by its
/// code. A discount's line carries the card, and its rate in price.
QString subjectSql()
{
    return QStringLiteral(
               "CASE WHEN cheks.id_type IN (1,6,7,8,9) THEN IF(goods.id IS NULL,CONCAT_WS(' ',"
               "cheks.id_good_cln_slujb,NULLIF(cheks.name,'')),COALESCE(NULLIF(cheks.name,''),goods.name,"
               "goods.id)) WHEN cheks.id_type=2 THEN CONCAT_WS(', ',CONCAT_WS(' ',cheks.id_good_cln_slujb,"
               "clients.name),IF(cheks.price<>0,CONCAT(CAST(cheks.price/100 AS DECIMAL(12,2)),' %'),NULL)) "
               "WHEN cheks.id_type=3 THEN ") +
           paymentSql() +
           QStringLiteral(" WHEN cheks.id_type IN (4,5) THEN "
                          "IFNULL(slujb_op.name,NULLIF(cheks.id_good_cln_slujb,0)) END");
}

/// By the rates of the shift, as the Z report reckons; where it has none, by those of today.
QString taxSql()
{
    const QString rate = QStringLiteral(
        "COALESCE(ELT(cheks.tax,z_zvit.PDV_A+z_zvit.DOD_A,z_zvit.PDV_B+z_zvit.DOD_B,z_zvit.PDV_V+z_zvit.DOD_V,"
        "z_zvit.PDV_G+z_zvit.DOD_G,z_zvit.PDV_D+z_zvit.DOD_D),tax.pdv_proc+IFNULL(tax.dod_proc,0))");
    return QStringLiteral(
               "CAST(ROUND(CASE cheks.id_type WHEN 1 THEN cheks.summa WHEN 6 THEN -cheks.summa END*"
               "%1/(10000+%1)) AS SIGNED)")
        .arg(rate);
}

/// Discounts and what is brought back lower the sum of a receipt.
QString columnsSql()
{
    return QStringLiteral("shops.address,IFNULL(NULLIF(kassa.advertising_str,''),CONCAT('№ ',cheks.id_kass)),"
                          "cheks.id_zvit,cheks.id_chek,cheks.id_position,IFNULL(type_check.name,"
                          "cheks.id_type),") +
           subjectSql() +
           QStringLiteral(",CASE WHEN cheks.id_type IN (1,7,8,9) THEN cheks.count WHEN cheks.id_type=6 THEN "
                          "-cheks.count END,"
                          "CASE WHEN cheks.id_type IN (1,6) OR (cheks.id_type IN (7,8,9) AND cheks.summa<>0) "
                          "THEN cheks.price END,"
                          "CASE WHEN cheks.id_type IN (2,6) THEN -cheks.summa WHEN cheks.id_type IN (7,8,9) "
                          "THEN NULLIF(cheks.summa,0) ELSE cheks.summa END,"
                          "CASE WHEN cheks.id_type IN (1,6) THEN IFNULL(tax.name,NULLIF(cheks.tax,0)) END,") +
           taxSql() +
           QStringLiteral(",cheks.id_type,cheks.data_time,cheks.id_shop,cheks.id_kass,newest.written");
}

QString tablesSql()
{
    return QStringLiteral(
        " JOIN cheks ON cheks.id_shop=newest.id_shop AND cheks.id_kass=newest.id_kass AND "
        "cheks.id_chek=newest.id_chek AND cheks.id_position=newest.id_position LEFT JOIN shops ON "
        "shops.id=cheks.id_shop LEFT JOIN kassa ON kassa.id=cheks.id_kass LEFT JOIN type_check ON "
        "type_check.id=cheks.id_type LEFT JOIN goods ON goods.id=cheks.id_good_cln_slujb LEFT JOIN clients ON "
        "clients.id=cheks.id_good_cln_slujb LEFT JOIN slujb_op ON slujb_op.id=cheks.id_good_cln_slujb LEFT JOIN "
        "tax ON tax.id=cheks.tax LEFT JOIN z_zvit ON z_zvit.id_zzvit=cheks.id_zvit AND "
        "z_zvit.id_kass=cheks.id_kass");
}

uint whole(const RowStore &rows, int row, int column)
{
    const std::string_view cell = rows.cell(row, column);
    return QByteArray::fromRawData(cell.data(), static_cast<int>(cell.size())).toUInt();
}

bool isSameChek(const RowStore &rows, int one, int other)
{
    return rows.cell(one, Chek) == rows.cell(other, Chek) &&
           rows.cell(one, IdKass) == rows.cell(other, IdKass) &&
           rows.cell(one, IdShop) == rows.cell(other, IdShop) &&
           rows.cell(one, Written) == rows.cell(other, Written);
}
} // namespace

QTabTransaction::QTabTransaction(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                                 QWidget *parent)
    : QTabJournal(db, user, receiver, set, parent), m_finder(new QueryOwner(db->connectionName(), this))
{
    table = QStringLiteral("cheks");
    const int money = 9;
    const int count = 5;
    setColumns({{tr("Магазин"), 20},
                {tr("Каса"), 12},
                {tr("Зміна №"), count, &asNumber},
                {tr("Чек №"), 7, &asNumber},
                {tr("Позиція в чеку"), count, &asNumber},
                {tr("Тип транзакції"), 16},
                {tr("Товар/Клієнт/Операція"), 30},
                {tr("Кількість"), money, &asQuantity},
                {tr("Ціна"), money, &asMoney},
                {tr("Сума"), money, &asMoney},
                {tr("Податкова група"), 8},
                {tr("Податок"), money, &asSum},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asDateTime, true},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asNumber, true},
                {QString(), 0, &asDateTime, true}});
    connect(m_finder, &QueryOwner::answered, this, &QTabTransaction::takeStreams);
    open(tr("&Чек №:"));
}

QTabTransaction::~QTabTransaction() = default;

/// The joins begin with the lines of the page, whatever the server thinks of their number.
QString QTabTransaction::pageSql(const ChekStreams &streams, const JournalAsked &asked, int lines)
{
    return QStringLiteral("SELECT STRAIGHT_JOIN ") + columnsSql() + QStringLiteral(" FROM ") +
           newestLinesSql(streams, asked, lines) + tablesSql() + newestLinesOrder();
}

bool QTabTransaction::isLoading() const
{
    return QTabJournal::isLoading() || m_finder->isWaiting();
}

QString QTabTransaction::refusesAll(const JournalAsked &asked) const
{
    const bool isFew = asked.place.shop != 0 || asked.hasDays() || !asked.number.isEmpty();
    return isFew ? QString()
                 : tr("Записів усієї мережі забагато для одного списку: виберіть магазин або дні.");
}

void QTabTransaction::loadPage(const JournalAsked &asked, const QVariant &start, int rows)
{
    m_askedLines = asked;
    m_lines = rows;
    m_streams = start.value<ChekStreams>();
    list()->expectLoad();
    m_finder->ask({start.isValid() ? nextLinesSql(m_streams) : chekStreamsSql(asked)});
}

void QTabTransaction::takeStreams(const std::shared_ptr<QueryAnswer> &answer)
{
    if (!answer->error.isEmpty()) {
        postMessage(receiver(), tr("Помилка запиту:") + QLatin1Char('\n') + answer->error, answer->kind);
        list()->clearAfterFailure();
        emit loaded();
        return;
    }
    const RowStore &found = answer->results.front();
    m_streams = m_streams.isEmpty() ? chekStreamsFrom(found) : followedBy(found, m_streams);
    loadLines();
}

void QTabTransaction::loadLines()
{
    if (m_streams.isEmpty())
        showNoRows();
    else
        showRows(pageSql(m_streams, m_askedLines, m_lines + 1));
}

void QTabTransaction::expectLongLoads(bool isLong)
{
    QTabJournal::expectLongLoads(isLong);
    m_finder->setLong(isLong);
}

void QTabTransaction::stopLoading()
{
    m_finder->cancel();
}

QVariant QTabTransaction::keyBehind(const RowStore &rows) const
{
    return QVariant::fromValue(behind(rows, m_streams));
}

/// Each stream goes on below its lowest line.
ChekStreams QTabTransaction::behind(const RowStore &rows, ChekStreams streams)
{
    QHash<QPair<DbId, DbId>, int> places;
    for (int i = 0; i < streams.size(); ++i)
        places.insert({streams.at(i).shop, streams.at(i).kass}, i);
    for (int row = 0; row < rows.rowCount(); ++row) {
        const int place = places.value({whole(rows, row, IdShop), whole(rows, row, IdKass)}, -1);
        if (place < 0)
            continue;
        std::optional<ChekStream::Line> &below = streams[place].below;
        const ChekStream::Line line = {whole(rows, row, Chek), whole(rows, row, Position)};
        if (!below || std::tie(line.chek, line.position) < std::tie(below->chek, below->position))
            below = line;
    }
    return streams;
}

/// The last line of all is the first one of the last receipt, which reads from its first line on.
int QTabTransaction::surplusRow(const RowStore &found) const
{
    int row = found.rowCount() - 1;
    while (row > 0 && isSameChek(found, row, row - 1))
        --row;
    return row;
}

/// No column tells the time.
void QTabTransaction::rowsShown()
{
    QTabJournal::rowsShown();
    QString first;
    QString last;
    for (int row = 0; row < model()->rowCount(); ++row) {
        const QString time = model()->stored(row, Time);
        if (first.isEmpty() || time < first)
            first = time;
        last = qMax(last, time);
    }
    const auto shown = [](const QString &time) { return asDateTime.shown(time.toStdString()); };
    list()->setDetails(last.isEmpty() ? QString() : shown(first) + QStringLiteral(" – ") + shown(last));
}

void QTabTransaction::Edit(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const auto number = [&](int column) { return static_cast<uint>(model()->number(index.row(), column)); };
    ChekOrigin origin;
    origin.shop = number(IdShop);
    origin.kass = number(IdKass);
    origin.zFrom = origin.zTo = QString::number(number(Shift));
    origin.chek = number(Chek);
    emit cheksWanted(origin);
}
