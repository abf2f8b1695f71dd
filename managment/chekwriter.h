#pragma once

#include "db.h"
#include "receipt.h"

#include <QDateTime>

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
    /// A number as SQL has it; nothing pays in the fourth way yet.
    QString fourth = QStringLiteral("0.00");
};

/// The open shift of a register; an empty number when there is none.
struct OpenZ
{
    QString number;
    QString user;
    QString day;
};

/// What tells one written receipt from every other.
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

/// Writes receipts into the shared database. Failures of statements are reported by Db under the place that
/// is given to the constructor.
class ChekWriter
{
    Q_DECLARE_TR_FUNCTIONS(ChekWriter)

public:
    enum Outcome {
        Written,
        /// Nothing was written; the reason is reported.
        Failed,
        /// Nothing was written: the register's shift belongs to another user.
        Busy,
        /// Nothing was written: another program has taken the receipt's or the shift's number.
        Collided,
        /// Nothing was written: another program is writing to the stock.
        Locked,
        /// The connection broke while the receipt was confirmed, and the server cannot be asked: it may
        /// stand in the database or not.
        Unclear
    };

    struct Result
    {
        Outcome outcome = Failed;
        WrittenChek chek;
    };

    ChekWriter(const Db &db, const ChekPlace &place, const char *file = __builtin_FILE(),
               int line = __builtin_LINE());

    /// Nothing after a failure.
    std::optional<OpenZ> openZ() const;
    /// The number of the register's next receipt; empty after a failure.
    QString newChekNumber() const;
    /// Opens a shift after the last closed one and returns its number; empty after a failure.
    QString createZ() const;
    bool isOwn(const OpenZ &z) const { return z.number.isEmpty() || z.user == m_place.user; }

    /// Writes one receipt in a transaction of its own: either all of it or nothing.
    Result write(const Receipt &receipt, const ChekPayment &payment, const QDateTime &time) const;
    /// Whether the receipt stands in the database; nothing when the server did not tell.
    std::optional<bool> isWritten(const WrittenChek &chek) const;

    /// What an outcome means for the user, and what to do; empty for Written and Failed.
    static QString explanation(const Result &result);

private:
    std::optional<QStringList> row(const QString &sql) const;
    bool run(const QString &sql) const;
    Outcome writeInTransaction(const Receipt &receipt, const ChekPayment &payment, WrittenChek *chek) const;
    Outcome failure() const;

    const Db m_db;
    const ChekPlace m_place;
    const char *m_file;
    int m_line;
};

/// The first row as texts; empty when there is none, nothing after a failure.
std::optional<QStringList> firstRow(const Db &db, const QString &sql, const char *file, int line);

/// The texts of the statements.
namespace ChekSql {
/// "(shop,register,Z,receipt,user,time": what all rows of a receipt begin with.
QString prefix(const WrittenChek &chek);
QString insertRows(const Receipt &receipt, const ChekPayment &payment, const WrittenChek &chek);
QString lowerStock(const Receipt &receipt, const QString &shop);
QString addToZ(const Receipt &receipt, const ChekPayment &payment, const WrittenChek &chek);
QString createZ(const ChekPlace &place, const QString &number, int day);
/// A barcode as a value: bare digits, a quoted text when digits would be lost, NULL when there is none.
QString barcode(const QString &code);
} // namespace ChekSql

/// The day in the trading period of a shift, by that of the last closed one (0: none was closed) and the
/// length of the period.
int nextDay(int lastDay, int countDayCycle);
