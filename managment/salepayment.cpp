#include "salepayment.h"

#include "dbtasks.h"
#include "money.h"
#include "placebar.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qpayment.h"
#include "receiptmodel.h"

SalePayment::SalePayment(SaleWork *work, PlaceBar *place, ReceiptModel *receipt)
    : QObject(work->tab()), m_work(work), m_place(place), m_receipt(receipt), m_tasks(work->makeTasks(this))
{
    connect(place, &PlaceBar::dateChanged, this, &SalePayment::beginReceipt);
}

/// Why this receipt cannot be sold here, as far as nobody has to be asked; empty when it can.
QString SalePayment::refusal() const
{
    if (m_place->isReading())
        return tr("Магазини й каси ще читаються. Повторіть оплату.");
    if (!m_place->isChosen())
        return tr("Виберіть магазин і касу.");
    if (m_place->isClosingOnly())
        return tr("Магазин або касу заблоковано: тут можна лише закрити зміну.");
    return m_receipt->receipt().refusal();
}

void SalePayment::sell()
{
    const QString why = refusal();
    m_work->tell(why);
    if (!why.isEmpty() || m_receipt->receipt().total() == 0 || !m_work->mayEdit())
        return;
    // Answered before the check: whoever may not sell any more is told then.
    m_work->user()->beginAct();
    m_place->followToday();
    const SaleOrder order = {m_place->place(), m_receipt->receipt(), m_place->chosenDate(), m_scope()};
    m_work->begin(SaleWork::Checking, tr("Перевіряється…"));
    m_tasks->read([order, caller = m_work->caller()](const Db &db) { return checkSale(db, caller, order); },
                  [this, order](const SaleCheck &check) { checked(order, check); });
}

/// What there is to ask is asked here, before anybody pays; conditions that were agreed to are checked again.
void SalePayment::checked(const SaleOrder &order, const SaleCheck &check)
{
    const SaleWork::Questions questions(m_work);
    emit shiftRead();
    m_work->tell(check.isBusy ? QString() : check.refusal);
    if (check.isBusy)
        m_work->warn(tr("Магазин зайнятий!"), check.refusal);
    if (!check.refusal.isEmpty() || !m_work->mayEdit() || !agreeDate(order.date) ||
        !agreeChanges(check.changes))
        return;
    if (check.changes.told.isEmpty())
        return pay(order);
    m_receipt->takeOver(check.changes.rows);
    sell();
}

/// Asked once a receipt.
bool SalePayment::agreeDate(const QDate &chosen)
{
    if (chosen.isValid() && !m_isDateAgreed)
        m_isDateAgreed = m_work->agreeDate(tr("Дата чека"), chosen);
    return !chosen.isValid() || m_isDateAgreed;
}

bool SalePayment::agreeChanges(const SaleChanges &changes)
{
    return changes.told.isEmpty() ||
           m_work->confirm(tr("Товари змінились"),
                           changes.told.join(QLatin1Char('\n')) + QStringLiteral("\n\n") +
                               tr("Продати за новими умовами?"),
                           tr("Продати"));
}

/// What is shown, what is paid and what is written is the one receipt that was checked.
void SalePayment::pay(const SaleOrder &order)
{
    ChekPayment due;
    due.discount = order.receipt.discount();
    due.toPay = order.receipt.toPay();
    QPayment form(due, m_work->tab());
    const bool isPaid = form.exec() == QDialog::Accepted;
    emit m_work->left();
    if (isPaid && m_work->mayEdit())
        write(order, form.payment(), form.change());
}

void SalePayment::write(const SaleOrder &order, const ChekPayment &payment, qint64 change)
{
    m_work->begin(SaleWork::Writing, tr("Записується…"));
    m_tasks->write(
        [order, payment, caller = m_work->caller()](const Db &db) {
            return caller.writer(db, order.place).write(order.receipt, payment, order.date);
        },
        [this, change](const ChekWriter::Result &result) {
            m_work->end();
            const int number = ended(result);
            if (number != -1)
                emit sold({result.chek.place.kass, number, result.chek.toPay, change});
        });
}

int SalePayment::ended(const ChekWriter::Result &result)
{
    if (result.outcome == ChekWriter::Written)
        return result.chek.number;
    if (result.outcome == ChekWriter::Unclear)
        m_unclear = result.chek;
    const QString why = ChekWriter::explanation(result);
    postMessage(m_work->receiver(), why, QMessEvent::Warning);
    emit notWritten();
    m_work->tell(why);
    if (result.outcome == ChekWriter::Busy)
        m_work->warn(tr("Магазин зайнятий!"), why);
    return -1;
}

QString SalePayment::unclearWords() const
{
    return ChekWriter::explanation({ChekWriter::Unclear, *m_unclear});
}

void SalePayment::askUnclear(const std::function<void(std::optional<bool> isWritten)> &then)
{
    m_work->begin(SaleWork::Checking, tr("Чек № %1: запитується сервер…").arg(m_unclear->number));
    m_tasks->read([chek = *m_unclear, caller = m_work->caller()](
                      const Db &db) { return caller.writer(db, chek.place).isWritten(chek); },
                  [this, then](std::optional<bool> isWritten) {
                      m_work->end();
                      answered(isWritten);
                      then(isWritten);
                  });
}

void SalePayment::answered(std::optional<bool> isWritten)
{
    if (!isWritten)
        return m_work->tell(unclearWords());
    const WrittenChek chek = *m_unclear;
    m_unclear.reset();
    if (*isWritten)
        emit sold({chek.place.kass, chek.number, chek.toPay, 0});
}
