#pragma once

#include "cheksql.h"
#include "registerwriter.h"

#include <QCoreApplication>

struct ShiftSums;

/// What the writers of a register's documents have in common: a number, the shift that the document belongs
/// to, and the shop and register that may have changed meanwhile. Failures of statements are reported by Db
/// under the place that is given to the constructor.
class DocumentWriter : protected RegisterWriter
{
    Q_DECLARE_TR_FUNCTIONS(DocumentWriter)

public:
    enum Outcome {
        Written,
        /// Nothing was written; the reason is reported.
        Failed,
        /// Nothing was written: the document does not agree with itself or with the stock, or a number or sum
        /// would leave what the database holds. Doing it again does not help; the explanation says what does.
        Refused,
        /// Nothing was written: the register's shift belongs to another user.
        Busy,
        /// Nothing was written: another program has closed the shift meanwhile. The next try opens a new one.
        ShiftClosed,
        /// Nothing was written: shop or register are blocked by now, or no longer belong together.
        Blocked,
        /// Nothing was written: another program has taken the receipt's or the shift's number, each time.
        Collided,
        /// Nothing was written: another program is writing to the stock, and went on doing so.
        Locked,
        /// The connection broke while the receipt was confirmed, and the server cannot be asked: it may
        /// stand in the database or not.
        Unclear
    };

    struct Result
    {
        Outcome outcome = Failed;
        /// Complete for Written and Unclear.
        WrittenChek chek = {};
        /// The reason in the user's words where the outcome alone does not tell it.
        QString why = {};
    };

    DocumentWriter(const Db &db, const ChekPlace &place, const char *file = __builtin_FILE(),
                   int line = __builtin_LINE());

    /// Nothing after a failure.
    std::optional<OpenZ> openZ() const;
    /// The number of the register's next receipt; empty after a failure.
    QString newChekNumber() const;
    /// Opens a shift after the last closed one and returns its number; empty after a failure, and when there
    /// are no more numbers.
    QString createZ() const;
    bool isOwn(const OpenZ &z) const
    {
        return z.number.isEmpty() || z.user == m_place.user || z.user == m_takenOver;
    }
    /// Why nothing can be written at the register now: blocked, moved to another shop, its shift open
    /// elsewhere. Empty when it can, nothing after a failure.
    std::optional<QString> placeRefusal() const;

protected:
    /// The shift of that user counts as one's own: somebody has agreed to act in his place.
    void takeOver(const QString &user) { m_takenOver = user; }

    // The steps of a writing transaction. False: *result tells why nothing is to be written.

    bool takeNumber(Result *result) const;
    /// Opens a shift when there is none. An open one stays locked to the end: it can neither be closed nor
    /// grow meanwhile; sums gets what it holds.
    bool joinShift(Result *result, std::optional<ShiftSums> *sums) const;
    bool checkPlace(Result *result) const;
    static bool refuse(Result *result, Outcome outcome, const QString &why = QString());

private:
    std::optional<qint64> newZNumber() const;
    QString createZ(const QString &zNumber) const;
    bool openShift(Result *result) const;
    std::optional<QString> placeRefusal(const char *lock) const;
    static QString noMoreNumbers();

    QString m_takenOver;
};
