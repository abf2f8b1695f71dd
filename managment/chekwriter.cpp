#include "chekwriter.h"

#include "qmessevent.h"
#include "servererror.h"
#include "sqldate.h"

#include <QSqlRecord>

namespace {
enum RowType { SaleRow = 1, DiscountRow = 2, PaymentRow = 3 };

const QLatin1String anonymousClient("INSERT IGNORE INTO clients(id,fiksed,group_shop) VALUES(1,1,1)");

QString number(qint64 value)
{
    return QString::number(value);
}

QString ofRegister(const char *sql, const ChekPlace &place)
{
    return QLatin1String(sql) + place.kass;
}
} // namespace

int nextDay(int lastDay, int countDayCycle)
{
    return lastDay >= qMax(countDayCycle, 1) ? 1 : lastDay + 1;
}

QString ChekSql::prefix(const WrittenChek &chek)
{
    return QLatin1Char('(') + QStringList{chek.place.shop,     chek.place.kass, chek.zNumber,
                                          number(chek.number), chek.place.user, chek.time}
                                  .join(QLatin1Char(','));
}

QString ChekSql::barcode(const QString &code)
{
    if (code.isEmpty())
        return QStringLiteral("NULL");
    bool isBare = code.at(0) != QLatin1Char('0');
    for (const QChar c : code)
        isBare = isBare && c >= QLatin1Char('0') && c <= QLatin1Char('9');
    return isBare ? code : lit(code);
}

namespace {
QString goodsRow(const QString &prefix, const ReceiptRow &row, int position)
{
    const QString goods = number(row.idGoods);
    return QStringList{prefix,
                       number(SaleRow),
                       number(position),
                       goods,
                       QStringLiteral("(SELECT name FROM goods WHERE id=") + goods + QLatin1Char(')'),
                       number(row.quantity),
                       number(row.price),
                       number(row.sum()),
                       number(row.tax),
                       QStringLiteral("0"),
                       number(row.isDisk),
                       ChekSql::barcode(row.barcode),
                       number(row.type),
                       number(row.actType),
                       number(row.discount)}
               .join(QLatin1Char(',')) +
           QLatin1Char(')');
}

QString discountRow(const QString &prefix, const ChekPayment &payment, int position)
{
    return QStringLiteral("%1,%2,%3,1,'',0,(SELECT procent.discount FROM procent LEFT JOIN clients ON "
                          "clients.id_procent=procent.id WHERE clients.id=1),%4,0,0,0,NULL,0,0,0)")
        .arg(prefix, number(DiscountRow), number(position), number(payment.discount));
}

/// The columns of an ordinary row carry how it was paid.
QString paymentRow(const QString &prefix, const ChekPayment &payment, int position)
{
    return QStringLiteral("%1,%2,%3,%4,'',%5,%6,%7,%8,%9,0,NULL,0,0,0)")
        .arg(prefix, number(PaymentRow), number(position), QLatin1String(payment.discount != 0 ? "1" : "0"),
             payment.fourth, number(payment.cash), number(payment.toPay), number(payment.card),
             number(payment.certificate));
}
} // namespace

QString ChekSql::insertRows(const Receipt &receipt, const ChekPayment &payment, const WrittenChek &chek)
{
    const QString common = prefix(chek);
    QStringList rows;
    for (int i = 0; i < receipt.rows().size(); ++i)
        rows.append(goodsRow(common, receipt.rows().at(i), i));
    if (payment.discount != 0)
        rows.append(discountRow(common, payment, receipt.rows().size() + 1));
    rows.append(paymentRow(common, payment, chek.paymentPosition));
    return QStringLiteral(
               "INSERT INTO cheks(id_shop,id_kass,id_zvit,id_chek,id_user,data_time,id_type,id_position,"
               "id_good_cln_slujb,name,count,price,summa,tax,dis_bon_bez2,bonus_plus,strihcode,type,"
               "id_type_action,sumdisc) VALUES") +
           rows.join(QLatin1Char(','));
}

QString ChekSql::lowerStock(const Receipt &receipt, const QString &shop)
{
    QString sql = QStringLiteral("UPDATE goods_shop SET count_showroom=count_showroom-CASE");
    // Only the first WHEN that fits counts, so each goods item stands there once.
    for (const Receipt::GoodsQuantity &goods : receipt.quantities()) {
        sql += QStringLiteral(" WHEN id_shop=") + shop + QStringLiteral(" AND id_goods=") +
               number(goods.idGoods) + QStringLiteral(" THEN ") + number(goods.quantity);
    }
    return sql + QStringLiteral(" ELSE 0 END");
}

QString ChekSql::addToZ(const Receipt &receipt, const ChekPayment &payment, const WrittenChek &chek)
{
    const Receipt::Turnover turnover = receipt.turnover();
    static const char groups[] = "ABVGD";
    QStringList turnovers;
    for (size_t i = 0; i < turnover.size(); ++i)
        turnovers.append(QStringLiteral("Oborot_%1=Oborot_%1+").arg(QLatin1Char(groups[i])) +
                         number(turnover.at(i)));
    return QStringLiteral("UPDATE z_zvit  SET ") + turnovers.join(QLatin1Char(',')) +
           QStringLiteral(",cash=cash+") + number(payment.cash) + QStringLiteral(",beznal_1=beznal_1+") +
           number(payment.card) + QStringLiteral(",beznal_2=beznal_2+") + number(payment.certificate) +
           QStringLiteral(",beznal_3=beznal_3+") + payment.fourth +
           QStringLiteral(",count_cheks=count_cheks+1,count_chek_diskount=count_chek_diskount+") +
           number(payment.discount != 0 ? 1 : 0) + QStringLiteral(",summ_diskount=summ_diskount+") +
           number(payment.discount) + QStringLiteral(" WHERE id_zzvit=") + chek.zNumber +
           QStringLiteral(" AND id_kass=") + chek.place.kass;
}

QString ChekSql::createZ(const ChekPlace &place, const QString &zNumber, int day)
{
    QStringList rates;
    for (int tax = 1; tax <= 5; ++tax) {
        for (const char *rate : {"pdv_proc", "dod_proc"})
            rates.append(
                QStringLiteral("(SELECT %1 FROM tax WHERE id=%2)").arg(QLatin1String(rate)).arg(tax));
    }
    return QStringLiteral("INSERT INTO z_zvit(PDV_A,DOD_A,PDV_B,DOD_B,PDV_V,DOD_V,PDV_G,DOD_G,PDV_D,DOD_D,"
                          "id_zzvit,id_shop,id_kass,id_user,id_period,day,data_time)  VALUES(") +
           rates.join(QLatin1Char(',')) + QLatin1Char(',') + zNumber + QLatin1Char(',') + place.shop +
           QLatin1Char(',') + place.kass + QLatin1Char(',') + place.user + QStringLiteral(",0,") +
           number(day) + QStringLiteral(",0)");
}

ChekWriter::ChekWriter(const Db &db, const ChekPlace &place, const char *file, int line)
    : m_db(db), m_place(place), m_file(file), m_line(line)
{
}

bool ChekWriter::run(const QString &sql) const
{
    return m_db.run(sql, {}, {}, m_file, m_line).has_value();
}

std::optional<QStringList> firstRow(const Db &db, const QString &sql, const char *file, int line)
{
    auto query = db.run(sql, {}, {}, file, line);
    if (!query)
        return std::nullopt;
    QStringList cells;
    if (query->next()) {
        // Built from the answer at each call.
        const int columns = query->record().count();
        for (int i = 0; i < columns; ++i)
            cells.append(toText(query->value(i)));
    }
    return cells;
}

std::optional<QStringList> ChekWriter::row(const QString &sql) const
{
    return firstRow(m_db, sql, m_file, m_line);
}

std::optional<OpenZ> ChekWriter::openZ() const
{
    const auto cells =
        row(ofRegister("SELECT id_zzvit,id_user,day FROM z_zvit WHERE data_time=0 AND id_kass=", m_place));
    if (!cells)
        return std::nullopt;
    return OpenZ{cells->value(0), cells->value(1), cells->value(2)};
}

QString ChekWriter::newChekNumber() const
{
    const QString sql = ofRegister("SELECT MAX(id_chek) FROM cheks WHERE id_kass=", m_place);
    const auto cells = row(sql);
    if (cells && cells->isEmpty())
        postMessage(m_db.receiver(), tr("Нема даних після запиту:") + QLatin1Char('\n') + sql,
                    QMessEvent::Critical, m_file, m_line);
    return cells && !cells->isEmpty() ? number(cells->first().toLongLong() + 1) : QString();
}

QString ChekWriter::createZ() const
{
    const auto last =
        row(ofRegister("SELECT MAX(id_zzvit) FROM z_zvit WHERE data_time<>0 AND id_kass=", m_place));
    if (!last)
        return QString();
    const auto day =
        row(QStringLiteral("SELECT count_day_cycle,(SELECT day FROM z_zvit WHERE data_time<>0 AND id_kass=%1 "
                           "ORDER BY id_zzvit DESC LIMIT 1) FROM shops WHERE id=%2")
                .arg(m_place.kass, m_place.shop));
    if (!day)
        return QString();
    const QString zNumber = number(last->value(0).toLongLong() + 1);
    const int dayNumber = nextDay(day->value(1).toInt(), day->value(0).toInt());
    return run(ChekSql::createZ(m_place, zNumber, dayNumber)) ? zNumber : QString();
}

ChekWriter::Outcome ChekWriter::failure() const
{
    switch (m_db.lastErrorNumber()) {
    case ServerError::DuplicateKey:
        return Collided;
    case ServerError::LockWait:
    case ServerError::Deadlock:
        return Locked;
    default:
        return Failed;
    }
}

/// The slow reads come first: the stock statement locks the stock of all shops until COMMIT.
ChekWriter::Outcome ChekWriter::writeInTransaction(const Receipt &receipt, const ChekPayment &payment,
                                                   WrittenChek *chek) const
{
    const QString chekNumber = newChekNumber();
    if (chekNumber.isEmpty())
        return failure();
    chek->number = chekNumber.toInt();
    const auto z = openZ();
    if (!z)
        return failure();
    if (!isOwn(*z))
        return Busy;
    chek->zNumber = z->number.isEmpty() ? createZ() : z->number;
    if (chek->zNumber.isEmpty())
        return failure();
    const bool isWhole = (payment.discount == 0 || run(anonymousClient)) &&
                         run(ChekSql::insertRows(receipt, payment, *chek)) &&
                         run(ChekSql::lowerStock(receipt, m_place.shop)) &&
                         run(ChekSql::addToZ(receipt, payment, *chek));
    return isWhole ? Written : failure();
}

ChekWriter::Result ChekWriter::write(const Receipt &receipt, const ChekPayment &payment,
                                     const QDateTime &time) const
{
    Result result;
    result.chek.place = m_place;
    result.chek.time = sqlDateTime(time);
    result.chek.paymentPosition = receipt.rows().size() + (payment.discount != 0 ? 2 : 1);
    result.chek.toPay = payment.toPay;
    {
        Transaction transaction(m_db, m_file, m_line);
        if (!transaction)
            return result;
        result.outcome = writeInTransaction(receipt, payment, &result.chek);
        if (result.outcome == Written && !transaction.commit(m_file, m_line))
            result.outcome = Unclear;
    }
    if (result.outcome == Unclear) {
        const auto written = isWritten(result.chek);
        if (written)
            result.outcome = *written ? Written : Failed;
    }
    return result;
}

std::optional<bool> ChekWriter::isWritten(const WrittenChek &chek) const
{
    // The lock waits for a transaction that the server has not ended yet.
    const auto cells =
        row(QStringLiteral("SELECT COUNT(*) FROM cheks WHERE id_shop=%1 AND id_kass=%2 AND id_chek=%3 AND "
                           "id_position=%4 AND id_user=%5 AND data_time=%6 AND id_type=%7 AND summa=%8 "
                           "LOCK IN SHARE MODE")
                .arg(chek.place.shop, chek.place.kass, number(chek.number), number(chek.paymentPosition),
                     chek.place.user, chek.time, number(PaymentRow), number(chek.toPay)));
    if (!cells || cells->isEmpty())
        return std::nullopt;
    return cells->first() != QLatin1String("0");
}

QString ChekWriter::explanation(const Result &result)
{
    switch (result.outcome) {
    case Busy:
        return tr("З даним магазином працює інший користувач.\nЗачекайте або зв'яжіться з пітримкою.");
    case Collided:
        return tr("Чек з таким номером щойно записала інша програма на цій касі. Чек не записано. "
                  "Повторіть оплату.");
    case Locked:
        return tr("Залишки зараз записує інша програма. Чек не записано. Повторіть оплату.");
    case Unclear:
        return tr("Зв'язок обірвався під час запису чека № %1 і невідомо, чи його записано. Перед новою "
                  "оплатою програма запитає сервер ще раз.")
            .arg(result.chek.number);
    case Failed:
        return tr("Чек не записано. Повторіть оплату.");
    case Written:
        break;
    }
    return QString();
}
