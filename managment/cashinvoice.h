#pragma once

#include "cashwriter.h"
#include "invoice.h"

/// Cash from one shop to another: rows of `invoice` with is_cash_goods 1. What is on the way lies nowhere.
///
/// It leaves the sender's safe, or a register of the sender (id_kass_with), where it is taken out by a
/// service operation: its receipt stands or falls with the invoice. It comes in the same way (id_kass_to).

/// Where cash leaves a shop, or comes to it.
struct CashEnd
{
    /// 0 for the safe.
    DbId kass = 0;
    /// Of a register: how it is brought in or taken out.
    CashOperation operation = {};
    /// So far below zero the register's cash may fall: the user has agreed.
    qint64 agreed = 0;
};

/// What all writings of an invoice of cash have.
struct CashAct
{
    DbId user = 0;
    CashEnd end;
    QString message;
    /// The writing before, if nobody knows what became of it.
    std::optional<InvoiceMark> unclear = {};
};

struct CashSending : CashAct
{
    DbId from = 0;
    DbId to = 0;
    /// Kopecks.
    qint64 sum = 0;
};

struct CashAcceptance : CashAct
{
    DbId invoice = 0;
    /// What the receiver was shown, and has counted.
    qint64 sent = 0;
    qint64 counted = 0;
};

struct CashCancelling : CashAct
{
    DbId invoice = 0;
    /// What the sender was shown.
    qint64 sent = 0;
};

// Each in one transaction. Tasks call them: they know no window.

/// The cash leaves the sender and is on the way.
InvoiceResult sendCash(const Db &db, const CashSending &sending);
/// What was counted comes to the receiver, and the invoice is closed.
InvoiceResult acceptCash(const Db &db, const CashAcceptance &acceptance);
/// What is on the way comes back to the sender, and the invoice is closed.
InvoiceResult cancelCash(const Db &db, const CashCancelling &cancelling);
