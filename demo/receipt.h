#pragma once

#include "chainmodel.h"

namespace demo {
class BulkInsert;
class Dice;
class SqlRow;

/// The receipts of a shift and what they add up to. Money in kopecks, quantities in thousandths.

struct ReceiptLine
{
    const Item *item;
    qint64 quantity;
    qint64 price;
    qint64 sum;
    qint64 discount;
};

struct Receipt
{
    QVector<ReceiptLine> lines;
    qint64 sum = 0;
    qint64 discount = 0;
    /// Whose card was shown; 1 is nobody's.
    Card card{1, 0};
    qint64 cash = 0;
    qint64 cashless = 0;
    qint64 certificate = 0;

    qint64 toPay() const { return sum - discount; }
};

/// What a row of z_zvit is made of.
struct ShiftTotals
{
    /// By tax group; 0 is not used.
    qint64 turnover[6] = {};
    qint64 returned[6] = {};
    qint64 cash = 0;
    qint64 cashless = 0;
    qint64 certificate = 0;
    qint64 cashReturned = 0;
    qint64 discount = 0;
    qint64 broughtIn = 0;
    qint64 takenOut = 0;
    int receipts = 0;
    int discountedReceipts = 0;
    int returns = 0;

    qint64 grossTurnover() const;
    qint64 cashInDrawer() const { return broughtIn + cash - cashReturned - takenOut; }
};

/// What somebody buys at that moment, paid in one way or another.
Receipt makeReceipt(const Chain &chain, const Shop &shop, const QDateTime &time, Dice *dice);

/// Writes the documents of one register's shift one after the other and adds them up.
class ShiftJournal
{
public:
    static const QString columns;

    /// receipt: the number of the last document before this shift.
    ShiftJournal(BulkInsert *rows, const Register &reg, int shift, int user, int receipt);

    void sell(const Receipt &receipt, const QDateTime &time);
    /// One position is given back for cash.
    void takeBack(const ReceiptLine &line, const QDateTime &time);
    void bringCash(qint64 sum, const QDateTime &time);
    void takeCash(qint64 sum, const QDateTime &time);
    /// For what the shop needs: less is left in the drawer for the evening.
    void spendCash(qint64 sum, const QDateTime &time);
    /// type: 7 goods received, 8 goods moved from the store room to the shop floor.
    void moveGoods(int type, const QVector<ReceiptLine> &lines, const QDateTime &time);
    /// The document that closes the shift.
    void close(const QDateTime &time);

    const ShiftTotals &totals() const { return m_totals; }
    int lastReceipt() const { return m_receipt; }

private:
    void begin(const QDateTime &time);
    SqlRow row(int type, int position) const;
    void addGoods(int type, int position, const ReceiptLine &line);
    void addDiscount(int position, const Receipt &receipt);
    void addPayment(int position, const Receipt &receipt);
    void addCash(int type, int operation, const QString &name, qint64 sum, const QDateTime &time);

    BulkInsert *m_rows;
    const Register &m_register;
    int m_shift;
    int m_user;
    int m_receipt;
    QString m_time;
    ShiftTotals m_totals;
};
} // namespace demo
