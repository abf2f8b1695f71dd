#include "slip.h"

#include "chektypes.h"
#include "money.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Slip)
};

/// The background of what does not agree, with a text colour that is readable on it.
const QString alarm = QStringLiteral("background-color: #FF3333; color: #000000");

QString safe(const QString &text)
{
    return text.toHtmlEscaped();
}

QString centred(const QString &text)
{
    return QStringLiteral("<center>") + safe(text) + QStringLiteral("</center>");
}

QString cells(const QString &left, const QString &middle, const QString &right)
{
    return QStringLiteral("<table width=100%><tr><td width=33% align=left>") + safe(left) +
           QStringLiteral("</td><td width=33% align=center>") + safe(middle) +
           QStringLiteral("</td><td width=33% align=right>") + safe(right) +
           QStringLiteral("</td></tr></table>");
}

QString sumLine(const QString &caption, qint64 kopecks)
{
    return cells(caption, QString(), moneyShown(kopecks));
}

QString paymentLine(const QString &caption, qint64 kopecks)
{
    return kopecks == 0 ? QString() : sumLine(caption, kopecks);
}

/// A piece is a whole number as long as it is one.
QString quantity(const SlipRow &row)
{
    return row.isPiece && row.count % 1000 == 0 ? QString::number(row.count / 1000)
                                                : quantityShown(row.count);
}

QString nameOf(const SlipRow &row)
{
    return row.name.isEmpty() ? Texts::tr("код %1").arg(row.code) : row.name;
}

QString goodsLine(const SlipRow &row)
{
    return cells(nameOf(row), quantity(row) + QStringLiteral(" ×\u00a0") + moneyShown(row.price),
                 moneyShown(row.summa));
}

QString discountLine(const SlipRow &row, const SlipSums &sums)
{
    const QString rate = row.price == 0 ? QString() : rateText(row.price) + QStringLiteral(" %");
    return sumLine(Texts::tr("Сума"), sums.goods) + cells(Texts::tr("Знижка"), rate, moneyShown(-row.summa));
}

QString paymentLines(const SlipRow &row, const SlipSums &sums)
{
    return QStringLiteral("<b>") + sumLine(Texts::tr("До сплати"), row.summa) + QStringLiteral("</b>") +
           paymentLine(Texts::tr("Готівка"), row.price) + paymentLine(Texts::tr("Картка"), sums.card) +
           paymentLine(Texts::tr("Сертифікат"), row.certificate) +
           paymentLine(Texts::tr("Інша оплата"), row.count);
}

QString operationLine(const SlipRow &row, const QString &name)
{
    return sumLine(row.name.isEmpty() ? name : row.name, row.summa);
}

QString line(const SlipRow &row, const SlipSums &sums)
{
    switch (row.type) {
    case ChekType::SoldGoods:
    case ChekType::Return:
        return goodsLine(row);
    case ChekType::Discount:
        return discountLine(row, sums);
    case ChekType::Payment:
        return paymentLines(row, sums);
    case ChekType::CashIn:
        return operationLine(row, Texts::tr("Службове внесення"));
    case ChekType::CashOut:
        return operationLine(row, Texts::tr("Службова видача"));
    case ChekType::ZReport:
        return operationLine(row, Texts::tr("Оборот зміни"));
    default:
        return QStringLiteral("<font size=+1>") + safe(Texts::tr("невідомий тип")) +
               QStringLiteral("</font><br>");
    }
}

QString goodsDocumentLines(const QVector<SlipRow> &rows)
{
    QString html;
    qint64 count = 0;
    for (const SlipRow &row : rows) {
        html += cells(row.code + QLatin1Char(' ') + row.name, row.barcode, quantity(row));
        count += row.count;
    }
    return html + QStringLiteral("<hr>") +
           cells(Texts::tr("Позицій: %1").arg(rows.size()), QString(), quantityShown(count));
}

QString receiptLines(const Slip &slip)
{
    QString html;
    for (const SlipRow &row : slip.rows)
        html += line(row, slip.sums);
    if (slip.type == ChekType::Return && slip.sums.payments == 0)
        html += QStringLiteral("<b>") + sumLine(Texts::tr("До повернення"), slip.sums.goods) +
                QStringLiteral("</b>");
    return html;
}

/// Why a receipt is red; empty when its sums agree.
QString disagreement(const SlipSums &sums)
{
    if (sums.agree())
        return {};
    const QString text =
        Texts::tr("Суми чека не збігаються: товари зі знижкою %1, до сплати %2, оплачено %3")
            .arg(moneyShown(sums.goods - sums.discount), moneyShown(sums.toPay), moneyShown(sums.paid));
    return QStringLiteral("<p align=center style=\"%1\">%2</p>").arg(alarm, safe(text));
}

QString title(const Slip &slip)
{
    switch (slip.type) {
    case ChekType::ZReport:
        return centred(Texts::tr("Звіт №") + slip.number);
    case ChekType::GoodsReceipt:
        return centred(Texts::tr("ПРИЙОМ"));
    case ChekType::GoodsMovement:
        return centred(Texts::tr("ПЕРЕМІЩЕННЯ"));
    case ChekType::Return:
        return centred(Texts::tr("ПОВЕРНЕННЯ")) + centred(Texts::tr("Чек №") + slip.number);
    default:
        return centred(Texts::tr("Чек №") + slip.number);
    }
}
} // namespace

QString Slip::html() const
{
    return QStringLiteral("<html><head></head><body>") + centred(shop) + centred(kass) + title(*this) +
           QStringLiteral("<hr>") +
           (ChekType::isGoodsDocument(type) ? goodsDocumentLines(rows) : receiptLines(*this)) +
           disagreement(sums) + QStringLiteral("<hr><table width=100%><tr><td width=50%>") +
           time.toString(QStringLiteral("dd-MM-yyyy")) + QStringLiteral("</td><td width=50% align=right>") +
           time.toString(QStringLiteral("hh:mm:ss")) + QStringLiteral("</td></tr></table></body></html>");
}
