#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "money.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qpayment.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "quantitydelegate.h"
#include "queryservice.h"
#include "qupdatebd.h"
#include "receiptmodel.h"
#include "salechanges.h"
#include "saleclock.h"
#include "saleplaces.h"

#include <QCloseEvent>
#include <QScopedValueRollback>

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
    backToToday();
    ui->notice->hide();
    ui->notice->setBackgroundRole(QPalette::ToolTipBase);
    ui->lbNotice->setForegroundRole(QPalette::ToolTipText);
    setUpGoods();
    setUpChek();
    fillShops();
    connectPlace();
    connectReceipt();
    connectKeys();
    connectSearch();
    connectFocus();
    salemode();
    showRights();
    showReceipt();
    seerch(QString());
}

void QRegisterSale::fillShops()
{
    const QSignalBlocker hold(ui->cbShop);
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

/// What a lost connection left empty or unknown.
void QRegisterSale::refillPlaces()
{
    if (!m_user->isLoaded())
        return;
    if (ui->cbShop->count() == 0)
        fillShops();
    else if (ui->cbKass->count() == 0)
        fillKass();
    else
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

/// Also when they were read again.
void QRegisterSale::showRights()
{
    const bool maySell = m_user->mayEdit(Permission::Sales);
    const QString why = tr("Лише перегляд: продавати може користувач з повним дозволом.");
    for (QWidget *widget :
         QVector<QWidget *>{ui->pbRemove, ui->pbClear, ui->dsbDiscount, ui->pbCloseZ, ui->pbPeriod}) {
        widget->setEnabled(maySell);
        widget->setToolTip(maySell ? QString() : why);
    }
    ui->pbSale->setEnabled(maySell && !SalePlaces::isClosingOnly(ui->cbKass));
    ui->pbCloseZ->setToolTip(maySell ? QStringLiteral("F12") : why);
    if (!maySell || ui->lbNotice->text() == why)
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
    QStringList words = m_notAdded;
    if (!text.isEmpty())
        words.append(text);
    ui->lbNotice->setText(words.join(QLatin1Char('\n')));
    ui->notice->setVisible(!words.isEmpty());
    m_slip.reset();
    showSlipButtons();
}

/// The slip of the receipt that the notice tells of.
void QRegisterSale::showSlipButtons()
{
    for (QPushButton *button : {ui->pbShowSlip, ui->pbPrintSlip})
        button->setVisible(m_slip && m_user->maySee(Permission::Cheks));
}

void QRegisterSale::wantSlip(bool print)
{
    if (m_slip)
        emit slipWanted(m_slip->kass, m_slip->chek, print);
}

/// The scanner's field has the focus again after every box.
bool QRegisterSale::confirm(const QString &title, const QString &text, const QString &actCaption)
{
    const bool isAgreed = QMessDlg::confirm(this, title, text, actCaption);
    focusSearch();
    return isAgreed;
}

void QRegisterSale::warn(const QString &title, const QString &text)
{
    QQestion::question(this, title, text, true);
    focusSearch();
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
    return m_isToday ? QDate() : m_date;
}

/// A tab that is left open overnight goes on with the new day.
void QRegisterSale::followToday()
{
    if (m_isToday)
        backToToday();
}

/// Another date holds for one receipt.
void QRegisterSale::backToToday()
{
    m_isToday = true;
    m_isDateAgreed = false;
    if (m_date != SaleClock::now().date()) {
        m_date = SaleClock::now().date();
        const QSignalBlocker hold(ui->dateEdit);
        ui->dateEdit->setDate(m_date);
    }
    showDate();
}

void QRegisterSale::showDate()
{
    QPalette colours;
    if (!m_isToday) {
        // Dark on light in every theme.
        colours.setColor(QPalette::Base, QColor(255, 183, 77));
        colours.setColor(QPalette::Text, Qt::black);
    }
    ui->dateEdit->setPalette(m_isToday ? QPalette() : colours);
    ui->dateEdit->setToolTip(m_isToday ? QString() : tr("Дата чека не сьогоднішня."));
}

/// Asked once a receipt.
bool QRegisterSale::agreeDate()
{
    followToday();
    if (!m_isToday && !m_isDateAgreed) {
        const QString day = m_date.toString(QStringLiteral("dd.MM.yyyy"));
        m_isDateAgreed =
            confirm(tr("Дата чека"),
                    tr("Сьогодні %1, а вибрано дату %2.\nЗаписати цією датою?")
                        .arg(SaleClock::now().date().toString(QStringLiteral("dd.MM.yyyy")), day),
                    tr("Записати %1").arg(day));
    }
    return m_isToday || m_isDateAgreed;
}

/// The box shows the old choice while the user is asked.
void QRegisterSale::dateChanged(const QDate &date)
{
    const auto show = [this](const QDate &shown) {
        const QSignalBlocker hold(ui->dateEdit);
        ui->dateEdit->setDate(shown);
    };
    show(m_date);
    if (!leaveReceipt())
        return;
    show(date);
    m_date = date;
    m_isToday = date == SaleClock::now().date();
    m_isDateAgreed = false;
    showDate();
    seerch(ui->leSearch->text());
}

bool QRegisterSale::changePlace(QComboBox *box, int *chosen, int index)
{
    const auto show = [box](int shown) {
        const QSignalBlocker hold(box);
        box->setCurrentIndex(shown);
    };
    show(*chosen);
    if (index != *chosen && !leaveReceipt())
        return false;
    show(index);
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
        warn(tr("Магазин зайнятий!"), ChekWriter::explanation({ChekWriter::Busy, {}}));
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
    return write(m_chek->receipt(), {discount.toLongLong(), toPay.toLongLong(), cash.toLongLong(),
                                     card.toLongLong(), certificate.toLongLong(), fourth});
}

/// The number of the written receipt, else -1 with the reason shown.
int QRegisterSale::write(const Receipt &receipt, const ChekPayment &payment)
{
    const ChekWriter::Result result = writer().write(receipt, payment, chosenDate());
    if (result.outcome == ChekWriter::Written)
        return result.chek.number;
    if (result.outcome == ChekWriter::Unclear)
        m_unclear = result.chek;
    const QString why = ChekWriter::explanation(result);
    postMessage(m_receiver, why, QMessEvent::Warning);
    notify(why);
    if (result.outcome == ChekWriter::Busy)
        warn(tr("Магазин зайнятий!"), why);
    return -1;
}

/// Why this receipt cannot be sold here; empty when it can.
QString QRegisterSale::saleRefusal() const
{
    if (m_shop < 0 || m_kass < 0)
        return tr("Виберіть магазин і касу.");
    if (SalePlaces::isClosingOnly(ui->cbKass))
        return tr("Магазин або касу заблоковано: тут можна лише закрити зміну.");
    // A shift is listed in one shop; what is sold in another one does not belong into it.
    const QString other =
        SalePlaces::otherShopOfShift(m_db, m_receiver, place().kass, QString::number(idShop()));
    if (!other.isEmpty())
        return tr("Зміну цієї каси відкрито в магазині «%1». Закрийте її перед продажем.").arg(other);
    const QString unknown = tr("Сервер не відповів, чи можна тут продавати. Повторіть оплату.");
    const QString why = writer().placeRefusal().value_or(unknown);
    return why.isEmpty() ? m_chek->receipt().refusal() : why;
}

bool QRegisterSale::VerifyChek()
{
    QString why = saleRefusal();
    bool ok = why.isEmpty();
    if (ok)
        isOpenZ(&ok);
    if (ok)
        why =
            writer().shiftRefusal(m_chek->receipt()).value_or(tr("Стан зміни невідомий. Повторіть оплату."));
    showShift();
    notify(why);
    return ok && why.isEmpty();
}

void QRegisterSale::sale()
{
    notify(QString());
    if (!settle() || isCodeLeft() || !mayChange())
        return;
    if (VerifyChek() && m_chek->receipt().total() != 0 && agreeDate() && agreeChanges())
        pay();
    focusSearch();
}

/// What became of the goods since they were put in is told before anybody pays.
bool QRegisterSale::agreeChanges()
{
    const auto changes =
        saleChanges(db(), place(), m_chek->receipt(), goodsSearch(GoodsSearch::Goods, QString()));
    if (!changes) {
        notify(tr("Сервер не відповів, чи змінились ціни. Повторіть оплату."));
        return false;
    }
    if (!changes->blocking.isEmpty()) {
        notify(changes->blocking.join(QLatin1Char('\n')));
        return false;
    }
    if (changes->told.isEmpty())
        return true;
    if (!confirm(tr("Товари змінились"),
                 changes->told.join(QLatin1Char('\n')) + QStringLiteral("\n\n") +
                     tr("Продати за новими умовами?"),
                 tr("Продати")))
        return false;
    m_chek->takeOver(changes->rows);
    return VerifyChek();
}

/// What is shown, what is paid and what is written is one receipt, taken once.
void QRegisterSale::pay()
{
    const QScopedValueRollback<bool> paying(m_isPaying, true);
    const Receipt receipt = m_chek->receipt();
    QPayment payment(moneyText(receipt.total()), moneyText(receipt.discount()), false, this);
    if (payment.exec() != QDialog::Accepted)
        return;
    const int number = write(receipt, payment.payment());
    if (number != -1)
        afterSale({place().kass, number}, receipt.toPay(), payment.change());
}

void QRegisterSale::afterSale(const Slip &slip, qint64 toPay, qint64 change)
{
    m_unclear.reset();
    clearReceipt();
    ui->leSearch->clear();
    seerch(QString());
    showShift();
    QString told = tr("Чек № %1, %2").arg(slip.chek).arg(moneyShown(toPay));
    if (change != 0)
        told += tr(", решта %1").arg(moneyShown(change));
    notify(told);
    m_slip = slip;
    showSlipButtons();
    for (const char *table : {"cheks", "goods_shop", "z_zvit"})
        QUpdateBD().update(QLatin1String(table), *m_db, m_receiver);
}

/// Whether the last receipt is written; nothing while the server does not tell.
std::optional<bool> QRegisterSale::askUnclear()
{
    const auto isWritten = writer().isWritten(*m_unclear);
    if (!isWritten)
        notify(ChekWriter::explanation({ChekWriter::Unclear, *m_unclear}));
    else if (*isWritten)
        afterSale({m_unclear->place.kass, m_unclear->number}, m_unclear->toPay, 0);
    else
        m_unclear.reset();
    return isWritten;
}

bool QRegisterSale::mayChange()
{
    if (!m_user->mayEdit(Permission::Sales)) {
        showRights();
        return false;
    }
    return !m_unclear || askUnclear() == false;
}

bool QRegisterSale::leaveReceipt()
{
    settle();
    if (m_unclear && !askUnclear()) {
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
    m_notAdded.clear();
    m_chek->clear();
    showDiscount();
    backToToday();
}

void QRegisterSale::closeEvent(QCloseEvent *event)
{
    event->setAccepted(!m_isPaying && mayClose());
}

/// An unclear receipt is told once more before it is out of sight.
bool QRegisterSale::mayClose()
{
    settle();
    if (!m_unclear || askUnclear())
        return leaveReceipt();
    const QString what = ChekWriter::explanation({ChekWriter::Unclear, *m_unclear});
    if (!confirm(tr("Закрити вкладку?"),
                 what + QStringLiteral("\n\n") +
                     tr("Закрита вкладка його забуде: тоді перевірте чек на %1 у звіті «Чеки».")
                         .arg(moneyShown(m_unclear->toPay)),
                 tr("Закрити")))
        return false;
    postMessage(m_receiver, what, QMessEvent::Warning);
    return true;
}
