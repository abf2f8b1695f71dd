#pragma once

#include "documentwriter.h"
#include "place.h"

#include <QDate>
#include <QVector>

/// A kind of service cash: a row of `slujb_op`.
struct CashOperation
{
    DbId id = 0;
    QString name;
    /// Into the register; else out of it.
    bool isIn = false;
};

/// Cash that comes into a register, or leaves it, without anything being sold.
struct CashOrder
{
    ChekPlace place;
    CashOperation operation;
    /// Kopecks.
    qint64 sum = 0;
    /// What the receipt says behind the name of the operation: why, for whom; may be empty.
    QString remark = {};
    /// None for today's.
    QDate date = {};
    /// So far below zero the register's cash may fall, in kopecks: the user has agreed.
    qint64 agreed = 0;
};

/// What lies in a register as far as its open shift tells: sold for and brought in, without what was paid
/// back and taken out. What an earlier shift has left there is not known. Kopecks; no number without an open
/// shift.
struct Drawer
{
    QString zNumber;
    /// Who has opened that shift.
    QString user;
    qint64 cash = 0;
};

/// Writes service cash into the shared database: a receipt of one row (position 0, id_type 4 brought in or 5
/// taken out, the operation in id_good_cln_slujb with its name, the sum in summa). It belongs to the
/// register's open shift as every receipt does, and adds nothing to its sums: vnesenia and viluchenia are
/// entered when the shift is closed, where these rows are what is proposed.
class CashWriter : public DocumentWriter
{
    Q_DECLARE_TR_FUNCTIONS(CashWriter)

public:
    struct Result : DocumentWriter::Result
    {
        /// Of Refused where the register has less than is to be taken out: what it has, in kopecks. It may be
        /// written again when that is agreed to.
        std::optional<qint64> drawer;
    };

    using DocumentWriter::DocumentWriter;

    /// Nothing after a reported failure.
    std::optional<Drawer> drawer() const;
    /// In one transaction; another program in the way is tried twice more before it is told.
    Result write(const CashOrder &order) const;
    /// Within a transaction of the caller. True when the row stands there; else the outcome tells why not.
    bool writeInto(const CashOrder &order, Result *result) const;
    /// Whether the receipt stands in the database; nothing when the server did not tell.
    std::optional<bool> isWritten(const CashOrder &order, const WrittenChek &chek) const;

    /// What an outcome means for the user, and what to do; empty for Written.
    static QString explanation(const Result &result);

private:
    Result writeOnce(const CashOrder &order) const;
    bool takeSteps(const CashOrder &order, Result *result) const;
    bool checkOperation(const CashOrder &order, Result *result) const;
    bool checkDrawer(const CashOrder &order, Result *result) const;
    bool insertRow(const CashOrder &order, const Result &result) const;
};

/// The service operations, those that bring cash in first; nothing after a reported failure.
std::optional<QVector<CashOperation>> readCashOperations(const Db &db);
/// "+ Розмін", "− Інкасація": which way the cash goes stands before the name.
QString operationShown(const CashOperation &operation);
/// That a register has less than is to be taken out, for a question.
QString shortDrawerWords(qint64 drawer, qint64 sum);
