#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "listloader.h"
#include "money.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qpayment.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "qupdatebd.h"
#include "receiptmodel.h"
#include "saleplaces.h"

#include <QCloseEvent>

QRegisterSale::QRegisterSale(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                             QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QRegisterSale>())
    , m_db(db)
    , m_user(user)
    , m_receiver(receiver)
    , m_chek(new ReceiptModel(this))
    , m_goods(new QRowModel(this))
    , m_loader(new ListLoader(db->connectionName(), receiver, this))
{
    Q_UNUSED(set)
    ui->setupUi(this);
    m_date = QDate::currentDate();
    ui->dateEdit->setDate(m_date);
    ui->notice->hide();
    ui->notice->setBackgroundRole(QPalette::ToolTipBase);
    ui->lbNotice->setForegroundRole(QPalette::ToolTipText);
    setUpGoods();
    setUpChek();
    fillShops();
    connectPlace();
    connectReceipt();
    connectSearch();
    salemode();
    showRights();
    showReceipt();
    seerch(QString());
}

void QRegisterSale::fillShops()
{
    SalePlaces::fillShops(ui->cbShop, m_db, m_user, m_receiver);
    const int home = ui->cbShop->findData(m_user->idShop().toUInt());
    if (home >= 0)
        ui->cbShop->setCurrentIndex(home);
    m_shop = ui->cbShop->currentIndex();
    fillKass();
}

void QRegisterSale::fillKass()
{
    SalePlaces::fillRegisters(ui->cbKass, ui->cbShop, m_db, m_receiver);
    m_kass = ui->cbKass->currentIndex();
    showShift();
}

void QRegisterSale::showShift()
{
    ui->lbShift->setText(shiftText());
    ui->pbSale->setEnabled(m_user->mayEdit(Permission::Sales) && !SalePlaces::isClosingOnly(ui->cbKass));
}

QString QRegisterSale::shiftText() const
{
    if (m_shop < 0)
        return tr("Немає магазину, в якому ви можете продавати.");
    if (m_kass < 0)
        return tr("У магазині немає незаблокованої каси.");
    const auto z = writer().openZ();
    if (!z)
        return tr("Стан зміни невідомий.");
    if (z->number.isEmpty())
        return tr("Зміна буде відкрита першим чеком.");
    if (writer().isOwn(*z))
        return tr("Зміна № %1 відкрита, день періоду: %2.").arg(z->number, z->day);
    return tr("Зміну № %1 відкрив інший користувач: %2")
        .arg(z->number, m_user->getNameSename(m_db, z->user.toInt()));
}

void QRegisterSale::showRights()
{
    if (m_user->mayEdit(Permission::Sales))
        return;
    const QString why = tr("Лише перегляд: продавати може користувач з повним дозволом.");
    for (QWidget *widget : QVector<QWidget *>{ui->pbSale, ui->pbRemove, ui->pbClear, ui->dsbDiscount,
                                              ui->pbCloseZ, ui->pbPeriod}) {
        widget->setEnabled(false);
        widget->setToolTip(why);
    }
    notify(why);
}

void QRegisterSale::showReceipt()
{
    const Receipt &receipt = m_chek->receipt();
    ui->dsbSum->setKopecks(receipt.total());
    const QSignalBlocker hold(ui->dsbDiscount);
    ui->dsbDiscount->setKopecks(receipt.discount());
    ui->lbToPay->setText(moneyShown(receipt.toPay()));
}

void QRegisterSale::notify(const QString &text)
{
    ui->lbNotice->setText(text);
    ui->notice->setVisible(!text.isEmpty());
}

quint32 QRegisterSale::idShop() const
{
    return ui->cbShop->currentData().toUInt();
}

Db QRegisterSale::db() const
{
    return Db(m_db, m_receiver);
}

ChekPlace QRegisterSale::place() const
{
    return {QString::number(idShop()), QString::number(ui->cbKass->currentData().toUInt()), m_user->idUser()};
}

ChekWriter QRegisterSale::writer(const char *file, int line) const
{
    return ChekWriter(db(), place(), file, line);
}

ShiftCloser QRegisterSale::closer() const
{
    return ShiftCloser(db(), place());
}

/// None while the date follows today.
QDate QRegisterSale::chosenDate() const
{
    return m_isToday ? QDate() : ui->dateEdit->date();
}

/// A tab that is left open overnight goes on with the new day.
void QRegisterSale::followToday()
{
    if (m_isToday && m_chek->receipt().isEmpty() && m_date != QDate::currentDate())
        ui->dateEdit->setDate(QDate::currentDate());
}

void QRegisterSale::dateChanged(const QDate &date)
{
    if (!leaveReceipt()) {
        const QSignalBlocker hold(ui->dateEdit);
        ui->dateEdit->setDate(m_date);
        return;
    }
    m_date = date;
    m_isToday = date == QDate::currentDate();
    seerch(ui->leSearch->text());
}

bool QRegisterSale::changePlace(QComboBox *box, int *chosen, int index)
{
    if (index != *chosen && !leaveReceipt()) {
        const QSignalBlocker hold(box);
        box->setCurrentIndex(*chosen);
        return false;
    }
    *chosen = index;
    return true;
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
        QQestion::question(this, tr("Магазин зайнятий!"), ChekWriter::explanation({ChekWriter::Busy, {}}),
                           true);
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
    const ChekPayment payment = {discount.toLongLong(), toPay.toLongLong(),       cash.toLongLong(),
                                 card.toLongLong(),     certificate.toLongLong(), fourth};
    const ChekWriter::Result result = writer().write(m_chek->receipt(), payment, chosenDate());
    if (result.outcome == ChekWriter::Written)
        return result.chek.number;
    if (result.outcome == ChekWriter::Unclear)
        m_unclear = result.chek;
    const QString why = ChekWriter::explanation(result);
    postMessage(m_receiver, why, QMessEvent::Warning);
    notify(why);
    if (result.outcome == ChekWriter::Busy)
        QQestion::question(this, tr("Магазин зайнятий!"), why, true);
    return -1;
}

/// Why nothing can be sold here; empty when it can.
QString QRegisterSale::placeRefusal() const
{
    if (m_shop < 0 || m_kass < 0)
        return tr("Виберіть магазин і касу.");
    if (SalePlaces::isClosingOnly(ui->cbKass))
        return tr("Магазин або касу заблоковано: тут можна лише закрити зміну.");
    // A shift is listed in one shop; what is sold in another one does not belong into it.
    const QString other = SalePlaces::otherShopOfShift(m_db, m_receiver, ui->cbKass->currentData().toString(),
                                                       QString::number(idShop()));
    return other.isEmpty()
               ? QString()
               : tr("Зміну цієї каси відкрито в магазині «%1». Закрийте її перед продажем.").arg(other);
}

bool QRegisterSale::VerifyChek()
{
    QString why = m_chek->receipt().refusal();
    const QString place = placeRefusal();
    if (!place.isEmpty())
        why = place;
    notify(why);
    if (!why.isEmpty())
        return false;
    bool ok = false;
    isOpenZ(&ok);
    showShift();
    return ok;
}

void QRegisterSale::sale()
{
    notify(QString());
    if (!mayChange() || !VerifyChek() || m_chek->receipt().total() == 0)
        return focusSearch();
    const qint64 discount = m_chek->receipt().discount();
    QPayment payment(moneyText(m_chek->receipt().total()), moneyText(discount), false, this);
    if (payment.exec() != QDialog::Accepted)
        return focusSearch();
    const int number = writeChek(QString::number(discount), payment.toPay(), payment.cash(), payment.card(),
                                 payment.certificate(), QStringLiteral("0.00"));
    if (number != -1)
        afterSale(number);
    focusSearch();
}

void QRegisterSale::afterSale(int number)
{
    m_unclear.reset();
    m_chek->clear();
    ui->leSearch->clear();
    seerch(QString());
    showShift();
    notify(tr("Чек № %1 записано.").arg(number));
    for (const char *table : {"cheks", "goods_shop", "z_zvit"})
        QUpdateBD().update(QLatin1String(table), *m_db, m_receiver);
}

bool QRegisterSale::settleUnclear()
{
    if (!m_unclear)
        return true;
    const auto isWritten = writer().isWritten(*m_unclear);
    if (!isWritten)
        notify(ChekWriter::explanation({ChekWriter::Unclear, *m_unclear}));
    else if (*isWritten)
        afterSale(m_unclear->number);
    else
        m_unclear.reset();
    return isWritten && !*isWritten;
}

bool QRegisterSale::mayChange()
{
    if (!m_user->mayEdit(Permission::Sales)) {
        showRights();
        return false;
    }
    return settleUnclear();
}

bool QRegisterSale::leaveReceipt()
{
    if (m_chek->receipt().isEmpty())
        return true;
    if (QQestion::question(this, tr("Очистити чек?"),
                           tr("У чеку є товари, чек ще не оплачено.\nОчистити його?")) != QDialog::Accepted)
        return false;
    m_chek->clear();
    m_unclear.reset();
    return true;
}

void QRegisterSale::closeEvent(QCloseEvent *event)
{
    event->setAccepted(leaveReceipt());
}
