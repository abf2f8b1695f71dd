#include "salepayment.h"

#include "money.h"
#include "placebar.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qpayment.h"
#include "qqestion.h"
#include "receiptmodel.h"
#include "salechanges.h"
#include "saleclock.h"
#include "saleplaces.h"

#include <QScopedValueRollback>

SalePayment::SalePayment(QSqlDatabase *db, QObject *receiver, PlaceBar *place, ReceiptModel *receipt,
                         QWidget *tab, const char *file, int line)
    : QObject(tab)
    , m_db(db)
    , m_receiver(receiver)
    , m_place(place)
    , m_receipt(receipt)
    , m_tab(tab)
    , m_file(file)
    , m_line(line)
{
    connect(place, &PlaceBar::dateChanged, this, &SalePayment::beginReceipt);
}

Db SalePayment::db() const
{
    return Db(m_db, m_receiver);
}

ChekWriter SalePayment::writer() const
{
    return ChekWriter(db(), m_place->place(), m_file, m_line);
}

bool SalePayment::confirm(const QString &title, const QString &text, const QString &actCaption)
{
    const bool isAgreed = QMessDlg::confirm(m_tab, title, text, actCaption);
    emit left();
    return isAgreed;
}

void SalePayment::warn(const QString &title, const QString &text)
{
    QQestion::question(m_tab, title, text, true);
    emit left();
}

/// True when there is nothing to tell.
bool SalePayment::tell(const QString &why)
{
    emit told(why);
    return why.isEmpty();
}

void SalePayment::sell()
{
    if (verify() && m_receipt->receipt().total() != 0 && agreeDate() && agreeChanges())
        pay();
}

QString SalePayment::openShift(bool *ok)
{
    const auto z = writer().openZ();
    *ok = z && writer().isOwn(*z);
    if (z && !*ok)
        warn(tr("Магазин зайнятий!"), ChekWriter::explanation({ChekWriter::Busy, {}}));
    return z ? z->number : QString();
}

/// Why this receipt cannot be sold here; empty when it can.
QString SalePayment::refusal() const
{
    if (!m_place->isChosen())
        return tr("Виберіть магазин і касу.");
    if (m_place->isClosingOnly())
        return tr("Магазин або касу заблоковано: тут можна лише закрити зміну.");
    // A shift is listed in one shop; what is sold in another one does not belong into it.
    const ChekPlace place = m_place->place();
    const QString other = SalePlaces::otherShopOfShift(m_db, m_receiver, place.kass, place.shop);
    if (!other.isEmpty())
        return tr("Зміну цієї каси відкрито в магазині «%1». Закрийте її перед продажем.").arg(other);
    const QString unknown = tr("Сервер не відповів, чи можна тут продавати. Повторіть оплату.");
    const QString why = writer().placeRefusal().value_or(unknown);
    return why.isEmpty() ? m_receipt->receipt().refusal() : why;
}

bool SalePayment::verify()
{
    QString why = refusal();
    bool ok = why.isEmpty();
    if (ok)
        openShift(&ok);
    if (ok)
        why = writer()
                  .shiftRefusal(m_receipt->receipt())
                  .value_or(tr("Стан зміни невідомий. Повторіть оплату."));
    emit shiftRead();
    return tell(why) && ok;
}

/// Asked once a receipt.
bool SalePayment::agreeDate()
{
    m_place->followToday();
    const QDate chosen = m_place->chosenDate();
    if (!chosen.isValid() || m_isDateAgreed)
        return true;
    const QString day = chosen.toString(QStringLiteral("dd.MM.yyyy"));
    m_isDateAgreed = confirm(tr("Дата чека"),
                             tr("Сьогодні %1, а вибрано дату %2.\nЗаписати цією датою?")
                                 .arg(SaleClock::now().date().toString(QStringLiteral("dd.MM.yyyy")), day),
                             tr("Записати %1").arg(day));
    return m_isDateAgreed;
}

/// What became of the goods since they were put in is told before anybody pays.
bool SalePayment::agreeChanges()
{
    const auto changes = saleChanges(db(), m_place->place(), m_receipt->receipt(), m_scope());
    if (!changes)
        return tell(tr("Сервер не відповів, чи змінились ціни. Повторіть оплату."));
    if (!changes->blocking.isEmpty())
        return tell(changes->blocking.join(QLatin1Char('\n')));
    if (changes->told.isEmpty())
        return true;
    if (!confirm(tr("Товари змінились"),
                 changes->told.join(QLatin1Char('\n')) + QStringLiteral("\n\n") +
                     tr("Продати за новими умовами?"),
                 tr("Продати")))
        return false;
    m_receipt->takeOver(changes->rows);
    return verify();
}

/// What is shown, what is paid and what is written is one receipt, taken once.
void SalePayment::pay()
{
    const QScopedValueRollback<bool> paying(m_isPaying, true);
    const Receipt receipt = m_receipt->receipt();
    ChekPayment due;
    due.discount = receipt.discount();
    due.toPay = receipt.toPay();
    QPayment form(due, m_tab);
    if (form.exec() != QDialog::Accepted)
        return;
    const int number = write(receipt, form.payment());
    if (number != -1)
        emit sold({m_place->place().kass, number, due.toPay, form.change()});
}

int SalePayment::write(const Receipt &receipt, const ChekPayment &payment)
{
    const ChekWriter::Result result = writer().write(receipt, payment, m_place->chosenDate());
    if (result.outcome == ChekWriter::Written)
        return result.chek.number;
    if (result.outcome == ChekWriter::Unclear)
        m_unclear = result.chek;
    const QString why = ChekWriter::explanation(result);
    postMessage(m_receiver, why, QMessEvent::Warning);
    emit told(why);
    if (result.outcome == ChekWriter::Busy)
        warn(tr("Магазин зайнятий!"), why);
    return -1;
}

QString SalePayment::unclearWords() const
{
    return ChekWriter::explanation({ChekWriter::Unclear, *m_unclear});
}

std::optional<bool> SalePayment::askUnclear()
{
    const auto isWritten = writer().isWritten(*m_unclear);
    if (!isWritten) {
        emit told(unclearWords());
        return isWritten;
    }
    const WrittenChek chek = *m_unclear;
    m_unclear.reset();
    if (*isWritten)
        emit sold({chek.place.kass, chek.number, chek.toPay, 0});
    return isWritten;
}
