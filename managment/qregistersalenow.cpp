// What answers at once, and therefore waits for the server: the tab itself uses none of it.

#include "qregistersale.h"
#include "ui_qregistersale.h"

ChekWriter QRegisterSale::writer() const
{
    return m_work->caller().writer(Db(m_work->db(), m_work->receiver()), ui->place->place());
}

QString QRegisterSale::getIdNewCheck() const
{
    return writer().newChekNumber();
}

QString QRegisterSale::isOpenZ(bool *ok)
{
    const auto z = writer().openZ();
    *ok = z && writer().isOwn(*z);
    if (z && !*ok)
        m_work->warn(tr("Магазин зайнятий!"), ChekWriter::explanation({ChekWriter::Busy, {}}));
    return z ? z->number : QString();
}

QString QRegisterSale::getIdZ()
{
    bool ok = false;
    const QString zNumber = isOpenZ(&ok);
    if (!ok)
        return QString();
    return zNumber.isEmpty() ? writer().createZ() : zNumber;
}

int QRegisterSale::writeChek(const QString &discount, const QString &toPay, const QString &cash,
                             const QString &card, const QString &certificate, const QString &fourth)
{
    // What is no whole number of kopecks agrees with no receipt.
    const auto whole = [](QString text) {
        bool ok = false;
        if (text.endsWith(QLatin1String(".00")))
            text.chop(3);
        const qint64 kopecks = text.toLongLong(&ok);
        return ok ? kopecks : -1;
    };
    return m_payment->ended(writer().write(
        ui->receipt->receipt(),
        {whole(discount), whole(toPay), whole(cash), whole(card), whole(certificate), whole(fourth)},
        ui->place->chosenDate()));
}

bool QRegisterSale::ClosePeriod()
{
    const ChekPlace place = ui->place->place();
    return ui->shift->closePeriod(
        place, checkClosing(Db(m_work->db(), m_work->receiver()), m_work->caller(), place));
}
