#pragma once

#include <QString>
#include <optional>

/// Where a receipt is written and who writes it: ids as text.
struct ChekPlace
{
    QString shop;
    QString kass;
    QString user;
};

/// How a receipt was paid, in kopecks.
struct ChekPayment
{
    qint64 discount = 0;
    qint64 toPay = 0;
    qint64 cash = 0;
    qint64 card = 0;
    qint64 certificate = 0;
    /// Kopecks as SQL has them, with or without decimals; nothing pays in the fourth way yet.
    QString fourth = QStringLiteral("0.00");

    /// Nothing when it is no whole number of kopecks.
    std::optional<qint64> fourthKopecks() const;
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
