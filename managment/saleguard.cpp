#include "saleguard.h"

#include "heldacts.h"
#include "money.h"
#include "qmessevent.h"
#include "receiptpane.h"
#include "salepayment.h"
#include "stockdesk.h"

#include <utility>

SaleGuard::SaleGuard(SaleWork *work, HeldActs *acts, SalePayment *payment, ReceiptPane *receipt,
                     StockDesk *stock)
    : QObject(work->tab()), m_work(work), m_acts(acts), m_payment(payment), m_receipt(receipt), m_stock(stock)
{
}

void SaleGuard::whenSettled(const std::function<void(bool isSettled)> &act)
{
    if (!m_work->isFree())
        return;
    const bool isSettled = m_stock->pane() != nullptr ? m_stock->settle() : m_receipt->settle();
    m_acts->decide([=](bool isThere) { act(isSettled && isThere); });
}

bool SaleGuard::mayChange(const Act &again)
{
    if (!m_work->mayEdit() || !m_work->isFree())
        return false;
    if (!m_payment->unclear())
        return true;
    m_payment->askUnclear([again](std::optional<bool> isWritten) {
        if (isWritten == false)
            again();
    });
    return false;
}

void SaleGuard::leaveReceipt(const Act &leave)
{
    whenSettled([=](bool) {
        if (!m_work->isFree())
            return;
        if (m_payment->unclear()) {
            m_payment->askUnclear([=](std::optional<bool> isWritten) {
                if (isWritten)
                    leaveReceipt(leave);
            });
        } else if (mayLoseReceipt() && leave) {
            leave();
        }
    });
}

void SaleGuard::leaveDocument()
{
    whenSettled([this](bool) {
        if (m_work->isFree() && m_stock->mayChange([this] { leaveDocument(); }))
            m_stock->mayLose();
    });
}

void SaleGuard::leaveAll(const Act &leave)
{
    leaveReceipt([=] {
        if (m_stock->mayLoseAll())
            leave();
    });
}

/// True when the receipt is empty, or the user agreed to lose it.
bool SaleGuard::mayLoseReceipt()
{
    if (m_receipt->receipt().isEmpty())
        return true;
    if (!m_work->confirm(tr("Очистити чек?"), tr("У чеку є товари, чек ще не оплачено.\nОчистити його?"),
                         tr("Очистити")))
        return false;
    emit receiptLeft();
    return true;
}

/// An item that is on its way, and the server about a receipt that may be written, have to answer before.
bool SaleGuard::mayClose()
{
    if (!m_work->isIdle()) {
        m_work->tell(tr("%1 Закрийте вкладку, коли це закінчиться.").arg(m_work->words()).trimmed());
        return false;
    }
    const bool isAsked = std::exchange(m_isAskedToClose, false);
    if (m_acts->isAwaiting()) {
        m_acts->decide([this](bool) { emit closeWanted(); });
        return false;
    }
    m_receipt->settle();
    m_stock->settle();
    if (!m_payment->unclear())
        return mayLoseReceipt() && m_stock->mayLoseAll();
    if (isAsked)
        return mayForgetUnclear() && m_stock->mayLoseAll();
    m_payment->askUnclear([this](std::optional<bool>) {
        m_isAskedToClose = true;
        emit closeWanted();
    });
    return false;
}

/// True when the user does not want to know whether the last receipt was written.
bool SaleGuard::mayForgetUnclear()
{
    const QString what = m_payment->unclearWords();
    if (!m_work->confirm(tr("Закрити вкладку?"),
                         what + QStringLiteral("\n\n") +
                             tr("Закрита вкладка його забуде: тоді перевірте чек на %1 у звіті «Чеки».")
                                 .arg(moneyShown(m_payment->unclear()->toPay)),
                         tr("Закрити")))
        return false;
    postMessage(m_work->receiver(), what, QMessEvent::Warning);
    return true;
}
