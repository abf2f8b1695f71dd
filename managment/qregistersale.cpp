#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "money.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qrowmodel.h"
#include "quantitydelegate.h"
#include "queryservice.h"
#include "qupdatebd.h"
#include "receiptmodel.h"

#include <QCloseEvent>
#include <utility>

QRegisterSale::QRegisterSale(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                             QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::QRegisterSale>())
    , m_db(db)
    , m_user(user)
    , m_receiver(receiver)
    , m_chek(new ReceiptModel(this))
    , m_quantity(new QuantityDelegate(this))
    , m_goods(new QRowModel(this))
    , m_queries(new QueryOwner(db->connectionName(), this))
{
    Q_UNUSED(set)
    ui->setupUi(this);
    setUpGoods();
    setUpChek();
    m_payment = new SalePayment(db, receiver, ui->place, m_chek, this);
    ui->shift->setUp(db, user, receiver, ui->place);
    connectPlace();
    connectClosing();
    ui->place->setUp(db, user, receiver);
    connectReceipt();
    connectKeys();
    connectSearch();
    connectFocus();
    orderTabs();
    salemode();
    showRights();
    showReceipt();
    seerch(QString());
}

/// Also when they were read again.
void QRegisterSale::showRights()
{
    const bool maySell = m_user->mayEdit(Permission::Sales);
    const QString why = tr("Лише перегляд: продавати може користувач з повним дозволом.");
    for (QWidget *widget : QVector<QWidget *>{ui->pbRemove, ui->pbClear, ui->dsbDiscount}) {
        widget->setEnabled(maySell);
        widget->setToolTip(maySell ? QString() : why);
    }
    ui->pbSale->setEnabled(maySell && !ui->place->isClosingOnly());
    ui->shift->setMayClose(maySell, why);
    if (!maySell || ui->notice->text() == why)
        notify(maySell ? QString() : why);
}

void QRegisterSale::showReceipt()
{
    const Receipt &receipt = m_chek->receipt();
    ui->dsbSum->setKopecks(receipt.total());
    if (!isDiscountBegun())
        showDiscount();
    ui->lbToPay->setText(moneyShown(receipt.toPay()));
}

void QRegisterSale::notify(const QString &text)
{
    ui->notice->tell(text);
}

/// The scanner's field has the focus again after every box.
bool QRegisterSale::confirm(const QString &title, const QString &text, const QString &actCaption)
{
    const bool isAgreed = QMessDlg::confirm(this, title, text, actCaption);
    focusSearch();
    return isAgreed;
}

Db QRegisterSale::db() const
{
    return Db(m_db, m_receiver);
}

ChekWriter QRegisterSale::writer(const char *file, int line) const
{
    return ChekWriter(db(), ui->place->place(), file, line);
}

QString QRegisterSale::getIdNewCheck() const
{
    return writer().newChekNumber();
}

QString QRegisterSale::isOpenZ(bool *ok)
{
    return m_payment->openShift(ok);
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
    return m_payment->write(m_chek->receipt(), {whole(discount), whole(toPay), whole(cash), whole(card),
                                                whole(certificate), whole(fourth)});
}

void QRegisterSale::sale()
{
    notify(QString());
    if (!settle() || isCodeLeft() || !mayChange())
        return;
    m_payment->sell();
    focusSearch();
}

void QRegisterSale::CloseZ_zvit()
{
    ui->shift->closeShift();
}

void QRegisterSale::pbClosePeriod()
{
    ui->shift->closePeriodAlone();
}

bool QRegisterSale::ClosePeriod()
{
    return ui->shift->closePeriod();
}

/// First the next receipt can be begun, then the other programs are told of this one.
void QRegisterSale::afterSale(const SalePayment::Sold &sold)
{
    clearReceipt();
    ui->leSearch->clear();
    seerch(QString());
    ui->shift->refresh();
    QString told = tr("Чек № %1, %2").arg(sold.number).arg(moneyShown(sold.toPay));
    if (sold.change != 0)
        told += tr(", решта %1").arg(moneyShown(sold.change));
    if (m_user->maySee(Permission::Cheks))
        ui->notice->tell(told, NoticeBar::Slip{sold.kass, sold.number});
    else
        notify(told);
    tellLater({QStringLiteral("cheks"), QStringLiteral("goods_shop"), QStringLiteral("z_zvit")});
}

void QRegisterSale::tellLater(const QStringList &tables)
{
    m_changedTables += tables;
    QTimer::singleShot(0, this, &QRegisterSale::tellTracker);
}

void QRegisterSale::tellTracker()
{
    m_changedTables.removeDuplicates();
    if (!m_changedTables.isEmpty())
        QUpdateBD().update(std::exchange(m_changedTables, {}), *m_db, m_receiver);
}

bool QRegisterSale::mayChange()
{
    if (!m_user->mayEdit(Permission::Sales)) {
        showRights();
        return false;
    }
    return !m_payment->unclear() || m_payment->askUnclear() == false;
}

bool QRegisterSale::leaveReceipt()
{
    settle();
    if (m_payment->unclear() && !m_payment->askUnclear()) {
        focusSearch();
        return false;
    }
    if (m_chek->receipt().isEmpty())
        return true;
    if (!confirm(tr("Очистити чек?"), tr("У чеку є товари, чек ще не оплачено.\nОчистити його?"),
                 tr("Очистити")))
        return false;
    clearReceipt();
    return true;
}

/// The next receipt begins with nothing of this one.
void QRegisterSale::clearReceipt()
{
    m_typed.reset();
    ui->notice->forget();
    m_chek->clear();
    showDiscount();
    m_payment->beginReceipt();
    ui->place->backToToday();
}

void QRegisterSale::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayClose());
}

bool QRegisterSale::mayClose()
{
    if (m_payment->isPaying())
        return false;
    settle();
    if (!m_payment->unclear() || m_payment->askUnclear())
        return leaveReceipt();
    const QString what = m_payment->unclearWords();
    if (!confirm(tr("Закрити вкладку?"),
                 what + QStringLiteral("\n\n") +
                     tr("Закрита вкладка його забуде: тоді перевірте чек на %1 у звіті «Чеки».")
                         .arg(moneyShown(m_payment->unclear()->toPay)),
                 tr("Закрити")))
        return false;
    postMessage(m_receiver, what, QMessEvent::Warning);
    return true;
}
