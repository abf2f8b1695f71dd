#pragma once

#include <QString>

/// Where a receipt is written and who writes it: ids as text.
struct ChekPlace
{
    QString shop;
    QString kass;
    QString user;
};

/// How a receipt is paid, in kopecks: from the box in which it is paid to the writer.
struct ChekPayment
{
    qint64 discount = 0;
    qint64 toPay = 0;
    qint64 cash = 0;
    qint64 card = 0;
    qint64 certificate = 0;
    /// Nothing pays in the fourth way yet.
    qint64 fourth = 0;

    qint64 paid() const { return cash + card + certificate + fourth; }
};

/// The open shift of a register; an empty number when there is none.
struct OpenZ
{
    QString number;
    QString user;
    QString day;
};

/// What tells one written receipt from every other: with it the server can be asked for the receipt at any
/// later time, whatever is chosen in the tab by then.
struct WrittenChek
{
    ChekPlace place;
    int number = 0;
    QString zNumber;
    /// yyyyMMddhhmmss
    QString time;
    int paymentPosition = 0;
    qint64 toPay = 0;
};
