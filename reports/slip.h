#pragma once

#include <QString>
#include <QVector>
#include <optional>

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
    /// Of a payment what the card paid.
    qint64 card = 0;
    /// Its place in the document.
    qint64 position = 0;
    /// Of goods received or moved where they came to: 1 the shop floor, 2 the store room, 0 is not known.
    int stockPlace = 0;
};

/// The sums of a receipt over all its rows, in kopecks.
struct SlipSums
{
    qint64 goods = 0;
    qint64 discount = 0;
    qint64 toPay = 0;
    qint64 paid = 0;
    int payments = 0;

    /// Goods less discount make what is to pay, and that is what was paid. Without a payment row there is
    /// nothing to compare with.
    bool agree() const { return payments == 0 || (goods - discount == toPay && paid == toPay); }
};

/// What a tax group turned over in a shift, before discounts; rates in hundredths of a per cent.
struct SlipTax
{
    QString letter;
    qint64 turnover = 0;
    qint64 returned = 0;
    qint64 rate = 0;
    qint64 surcharge = 0;

    /// The tax contained in the turnover, to the kopeck.
    qint64 tax() const;
};

/// The figures of a shift as they stand in its Z-report.
struct SlipShift
{
    QVector<SlipTax> taxes;
    qint64 cash = 0;
    qint64 card = 0;
    qint64 certificate = 0;
    qint64 otherPayment = 0;
    qint64 discount = 0;
    qint64 cheks = 0;
    qint64 discountedCheks = 0;
    qint64 cancelledCheks = 0;
    qint64 cancelledPositions = 0;
    qint64 cashIn = 0;
    qint64 cashOut = 0;
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
    /// As the database has it, "yyyy-MM-dd hh:mm:ss": no zone, so that no hour is lost.
    QString time;
    QVector<SlipRow> rows;
    SlipSums sums;
    /// Of a Z-report.
    std::optional<SlipShift> shift;

    QString html() const;
    /// What a file of it may be called, without an ending: "Чек 17 Каса 1 2026-03-01".
    QString fileName() const;
};
