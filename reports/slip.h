#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

/// One row of a document. Money in kopecks, quantities in thousandths.
struct SlipRow
{
    /// As in ChekType.
    int type = 0;
    /// Goods, client or service operation.
    QString code;
    QString name;
    QString barcode;
    qint64 count = 0;
    /// Of a discount the rate, in hundredths of a per cent; of a payment the cash.
    qint64 price = 0;
    qint64 summa = 0;
    /// Of a payment what the certificate paid.
    qint64 certificate = 0;
    /// Sold by the piece, not by weight.
    bool isPiece = false;
};

/// The sums of a receipt over all its rows, in kopecks.
struct SlipSums
{
    qint64 goods = 0;
    qint64 discount = 0;
    qint64 toPay = 0;
    qint64 paid = 0;
    qint64 card = 0;
    int payments = 0;

    /// Goods less discount make what is to pay, and that is what was paid. Without a payment row there is
    /// nothing to compare with.
    bool agree() const { return payments == 0 || (goods - discount == toPay && paid == toPay); }
};

/// A receipt, a Z-report or a document of goods, as it is shown and printed.
struct Slip
{
    /// The type of the document.
    int type = 0;
    /// Of the receipt; of a Z-report the number of the shift.
    QString number;
    QString shop;
    QString kass;
    QDateTime time;
    QVector<SlipRow> rows;
    SlipSums sums;

    QString html() const;
};
