// Closing: the shift of a register and the trading period of a shop.

#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qpayment.h"
#include "qupdatebd.h"
#include "receiptmodel.h"

namespace {
enum LastDayAnswer { CloseShift = 1, ClosePeriodAndShift = 2 };
} // namespace

void QRegisterSale::CloseZ_zvit()
{
    notify(QString());
    if (!settle())
        return;
    const QString zNumber = shiftToClose();
    if (zNumber.isEmpty() || !offerPeriod(zNumber))
        return focusSearch();
    if (const auto figures = closer().figures(zNumber))
        countAndClose(*figures);
    focusSearch();
}

/// The number of the open shift; empty, with the reason shown, when there is none to close.
QString QRegisterSale::shiftToClose()
{
    if (!mayChange())
        return QString();
    if (!ui->place->isChosen())
        notify(tr("Виберіть магазин і касу."));
    else if (!m_chek->receipt().isEmpty())
        notify(tr("У чеку є товари. Оплатіть або очистіть його перед закриттям зміни."));
    else if (const auto z = writer().openZ()) {
        showShift();
        if (z->number.isEmpty())
            notify(tr("На цій касі немає відкритої зміни: закривати нічого."));
        else if (writer().isOwn(*z) || takeOver(*z))
            return z->number;
    }
    return QString();
}

/// Whoever opened the shift may have left without closing it.
bool QRegisterSale::takeOver(const OpenZ &z)
{
    const QString warning = ChekWriter::explanation({ChekWriter::Busy, {}});
    const QString question = tr("Зміну № %1 відкрив інший користувач: %2. Закрити її замість нього?")
                                 .arg(z.number, m_user->getNameSename(m_db, z.user.toInt()));
    return confirm(tr("Магазин зайнятий!"), warning + QStringLiteral("\n\n") + question, tr("Закрити її"));
}

/// On the last day of the period. False when the shift is not to be closed.
bool QRegisterSale::offerPeriod(const QString &zNumber)
{
    const auto day = closer().periodDay();
    if (!day)
        return false;
    if (!day->isLast() || m_closedPeriod == shiftKey(zNumber))
        return true;
    const int answer = QMessDlg::quest(this, tr("закрити?"),
                                       tr("Ви збираєтесь закрити зміну\nв останні день періоду.\nЗакрити "
                                          "період перед закриттям зміни?"),
                                       tr("Відмінити закриття"), tr("Закрити тільки зміну"),
                                       tr("Закрити період та зміну"), QString());
    return answer == CloseShift || (answer == ClosePeriodAndShift && ClosePeriod());
}

void QRegisterSale::countAndClose(const ShiftFigures &figures)
{
    const QString early = ShiftCloser::dateRefusal(figures, ui->place->chosenDate());
    if (!early.isEmpty())
        return notify(early);
    QPayment form(figures, this);
    if (form.exec() != QDialog::Accepted)
        return;
    const ShiftCloser::Outcome outcome = closer().close(figures, form.count(), ui->place->chosenDate());
    if (outcome == ShiftCloser::Closed)
        return afterClosing(figures.zNumber);
    const QString why = ShiftCloser::explanation(outcome, figures.zNumber);
    postMessage(m_receiver, why, QMessEvent::Warning);
    showShift();
    notify(why);
    warn(tr("Попередження."), why);
}

void QRegisterSale::afterClosing(const QString &zNumber)
{
    if (ui->place->isClosingOnly()) {
        ui->place->fillShops();
        seerch(ui->leSearch->text());
    } else {
        showShift();
    }
    notify(tr("Зміну № %1 закрито.").arg(zNumber));
    for (const char *table : {"cheks", "z_zvit"})
        QUpdateBD().update(QLatin1String(table), *m_db, m_receiver);
}

void QRegisterSale::pbClosePeriod()
{
    notify(QString());
    if (!settle() || !mayChange())
        return;
    if (ClosePeriod())
        notify(tr("Період закрито. Наступна зміна почне новий."));
    else
        warn(tr("Попередження?"), tr("Період не закрито!"));
    focusSearch();
}

/// The day after the last one is the first of the next period, so the days need no writing.
bool QRegisterSale::ClosePeriod()
{
    if (!ui->place->isChosen()) {
        notify(tr("Виберіть магазин і касу."));
        return false;
    }
    const auto day = closer().periodDay();
    const auto z = writer().openZ();
    if (!day || !z)
        return false;
    const QString why = ShiftCloser::periodRefusal(*day);
    if (!why.isEmpty()) {
        warn(tr("Попередження."), why);
        return false;
    }
    m_closedPeriod = shiftKey(z->number);
    return true;
}

QString QRegisterSale::shiftKey(const QString &zNumber) const
{
    return place().kass + QLatin1Char('/') + zNumber;
}
