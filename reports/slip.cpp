#include "slip.h"

#include "cheks.h"
#include "listprinter.h"
#include "money.h"

#include <QCoreApplication>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Slip)
};

constexpr int dayLength = 10; // "2026-03-01"

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

QString bold(const QString &html)
{
    return QStringLiteral("<b>") + html + QStringLiteral("</b>");
}

/// What was paid, over all payment rows of the receipt.
QString paymentLines(const Slip &slip)
{
    SlipRow all;
    for (const SlipRow &row : slip.rows) {
        if (row.type != ChekType::Payment)
            continue;
        all.price += row.price;
        all.card += row.card;
        all.certificate += row.certificate;
        all.count += row.count;
    }
    return paymentLine(Texts::tr("Готівка"), all.price) + paymentLine(Texts::tr("Картка"), all.card) +
           paymentLine(Texts::tr("Сертифікат"), all.certificate) +
           paymentLine(Texts::tr("Інша оплата"), all.count);
}

/// The receipt's own sum and how it was paid.
QString totalLines(const Slip &slip)
{
    if (slip.type == ChekType::Return) {
        const bool isPaid = slip.sums.payments > 0;
        const qint64 sum = isPaid ? slip.sums.toPay : slip.sums.goods - slip.sums.discount;
        return bold(sumLine(Texts::tr("До повернення"), sum)) + paymentLines(slip);
    }
    return slip.sums.payments == 0
               ? QString()
               : bold(sumLine(Texts::tr("До сплати"), slip.sums.toPay)) + paymentLines(slip);
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
        return {};
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

/// The place of a document of goods: that of its first row.
int stockPlace(const Slip &slip)
{
    return slip.rows.isEmpty() ? 0 : slip.rows.first().stockPlace;
}

/// Where the goods came to, and from where moved ones; empty when it is not known.
QString stockPlaces(const Slip &slip)
{
    const int place = stockPlace(slip);
    if (place != 1 && place != 2)
        return QString();
    const QString names[] = {Texts::tr("зал"), Texts::tr("склад")};
    const QString from =
        slip.type == ChekType::GoodsMovement ? names[2 - place] + QStringLiteral(" → ") : QString();
    return centred(from + names[place - 1]);
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

QString rateOf(const SlipTax &tax)
{
    const QString surcharge =
        tax.surcharge == 0 ? QString() : QStringLiteral(" + ") + rateText(tax.surcharge);
    return Texts::tr("ПДВ %1 %2 %").arg(tax.letter, rateText(tax.rate) + surcharge);
}

QString taxLines(const QVector<SlipTax> &taxes)
{
    QString html = cells(Texts::tr("Група"), Texts::tr("Оборот"), Texts::tr("Податок"));
    qint64 returned = 0;
    for (const SlipTax &tax : taxes) {
        html += cells(rateOf(tax), moneyShown(tax.turnover), moneyShown(tax.tax()));
        returned += tax.returned;
    }
    return html + paymentLine(Texts::tr("Повернення"), returned);
}

QString countLine(const QString &caption, qint64 count)
{
    return cells(caption, QString(), QString::number(count));
}

QString shiftLines(const SlipShift &shift)
{
    const QString line = QStringLiteral("<hr>");
    return line + taxLines(shift.taxes) + sumLine(Texts::tr("Знижки"), shift.discount) + line +
           sumLine(Texts::tr("Готівка"), shift.cash) + sumLine(Texts::tr("Картка"), shift.card) +
           sumLine(Texts::tr("Сертифікат"), shift.certificate) +
           paymentLine(Texts::tr("Інша оплата"), shift.otherPayment) + line +
           sumLine(Texts::tr("Службове внесення"), shift.cashIn) +
           sumLine(Texts::tr("Службова видача"), shift.cashOut) + line +
           countLine(Texts::tr("Чеків продажу"), shift.cheks) +
           countLine(Texts::tr("Чеків зі знижкою"), shift.discountedCheks) +
           countLine(Texts::tr("Анульованих чеків"), shift.cancelledCheks) +
           countLine(Texts::tr("Анульованих позицій"), shift.cancelledPositions);
}

QString receiptLines(const Slip &slip)
{
    QString html;
    for (const SlipRow &row : slip.rows)
        html += line(row, slip.sums);
    return html + totalLines(slip) + (slip.shift ? shiftLines(*slip.shift) : QString());
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

/// "01-03-2026" of "2026-03-01 09:05:07".
QString dayOf(const QString &time)
{
    QStringList parts = time.left(dayLength).split(QLatin1Char('-'));
    std::reverse(parts.begin(), parts.end());
    return parts.join(QLatin1Char('-'));
}

QString title(const Slip &slip)
{
    switch (slip.type) {
    case ChekType::ZReport:
        return centred(Texts::tr("Звіт №") + slip.number);
    case ChekType::GoodsReceipt:
        return stockPlace(slip) == countedPlace
                   ? centred(Texts::tr("ПЕРЕРАХУНОК")) + centred(Texts::tr("зал, різниця з програмою"))
                   : centred(Texts::tr("ПРИЙОМ")) + stockPlaces(slip);
    case ChekType::GoodsMovement:
        return centred(Texts::tr("ПЕРЕМІЩЕННЯ")) + stockPlaces(slip);
    case ChekType::Return:
        return centred(Texts::tr("ПОВЕРНЕННЯ")) + centred(Texts::tr("Чек №") + slip.number);
    default:
        return centred(Texts::tr("Чек №") + slip.number);
    }
}
} // namespace

qint64 SlipTax::tax() const
{
    const qint64 whole = 10000 + rate + surcharge;
    return (2 * turnover * (rate + surcharge) + whole) / (2 * whole);
}

QString Slip::fileName() const
{
    const QString kind = type == ChekType::ZReport ? Texts::tr("Z-звіт") : Texts::tr("Чек");
    return fileNameOf(QStringList{kind, number, kass, time.left(dayLength)}.join(QLatin1Char(' ')));
}

QString Slip::html() const
{
    return QStringLiteral("<html><head></head><body>") + centred(shop) + centred(kass) + title(*this) +
           QStringLiteral("<hr>") +
           (ChekType::isGoodsDocument(type) ? goodsDocumentLines(rows) : receiptLines(*this)) +
           disagreement(sums) + QStringLiteral("<hr><table width=100%><tr><td width=50%>") + dayOf(time) +
           QStringLiteral("</td><td width=50% align=right>") + time.mid(dayLength + 1, 8) +
           QStringLiteral("</td></tr></table></body></html>");
}
