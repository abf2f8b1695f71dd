#include "cheksql.h"

#include "cheks.h"
#include "db.h"

namespace {
QString number(qint64 value)
{
    return QString::number(value);
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

QString ChekSql::ensureAnonymousClient()
{
    return QStringLiteral("INSERT IGNORE INTO clients(id,fiksed,group_shop) VALUES(1,1,1)");
}

namespace {
QString goodsRow(const QString &prefix, const ReceiptRow &row, int position)
{
    const QString goods = number(row.idGoods);
    return QStringList{prefix,
                       number(ChekType::SoldGoods),
                       number(position),
                       goods,
                       QStringLiteral("(SELECT name FROM goods WHERE id=") + goods + QLatin1Char(')'),
                       number(row.quantity),
                       number(row.price),
                       number(row.sum()),
                       number(row.tax),
                       QStringLiteral("0"),
                       number(row.isDisk),
                       row.barcode.isEmpty() ? QStringLiteral("NULL") : barcodeInSql(row.barcode),
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
        .arg(prefix, number(ChekType::Discount), number(position), number(payment.discount));
}

/// The columns of an ordinary row carry how it was paid.
QString paymentRow(const QString &prefix, const ChekPayment &payment, int position)
{
    return QStringLiteral("%1,%2,%3,%4,'',%5,%6,%7,%8,%9,0,NULL,0,0,0)")
        .arg(prefix, number(ChekType::Payment), number(position),
             QLatin1String(payment.discount != 0 ? "1" : "0"), number(payment.fourth), number(payment.cash),
             number(payment.toPay), number(payment.card), number(payment.certificate));
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
    // Every row of the chain is visited: those of other shops are done after one comparison.
    QString sql = QStringLiteral("UPDATE goods_shop SET count_showroom=count_showroom-CASE WHEN id_shop<>%1 "
                                 "THEN 0")
                      .arg(shop);
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
           QStringLiteral(",beznal_3=beznal_3+") + number(payment.fourth) +
           QStringLiteral(",count_cheks=count_cheks+1,count_chek_diskount=count_chek_diskount+") +
           number(payment.discount != 0 ? 1 : 0) + QStringLiteral(",summ_diskount=summ_diskount+") +
           number(payment.discount) + QStringLiteral(" WHERE id_zzvit=") + chek.zNumber +
           QStringLiteral(" AND id_kass=") + chek.place.kass + QStringLiteral(" AND data_time=0");
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
