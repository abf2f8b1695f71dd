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
    setUpGoods();
    setUpChek();
    connectPlace();
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

void QRegisterSale::showShift()
{
    if (!m_user->isLoaded())
        return;
    ui->lbShift->setText(shiftText());
    ui->pbSale->setEnabled(m_user->mayEdit(Permission::Sales) && !ui->place->isClosingOnly());
}

QString QRegisterSale::shiftText() const
{
    if (!ui->place->hasShop())
        return tr("Немає магазину, в якому ви можете продавати.");
    if (!ui->place->isChosen())
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
    ui->pbSale->setEnabled(maySell && !ui->place->isClosingOnly());
    ui->pbCloseZ->setToolTip(maySell ? QStringLiteral("F12") : why);
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

void QRegisterSale::warn(const QString &title, const QString &text)
{
    QQestion::question(this, title, text, true);
    focusSearch();
}

Db QRegisterSale::db() const
{
    return Db(m_db, m_receiver);
}

ChekPlace QRegisterSale::place() const
{
    return ui->place->place();
}

ChekWriter QRegisterSale::writer(const char *file, int line) const
{
    return ChekWriter(db(), place(), file, line);
}

ShiftCloser QRegisterSale::closer() const
{
    return ShiftCloser(db(), place());
}

/// Asked once a receipt.
bool QRegisterSale::agreeDate()
{
    ui->place->followToday();
    const QDate chosen = ui->place->chosenDate();
    if (!chosen.isValid() || m_isDateAgreed)
        return true;
    const QString day = chosen.toString(QStringLiteral("dd.MM.yyyy"));
    m_isDateAgreed = confirm(tr("Дата чека"),
                             tr("Сьогодні %1, а вибрано дату %2.\nЗаписати цією датою?")
                                 .arg(SaleClock::now().date().toString(QStringLiteral("dd.MM.yyyy")), day),
                             tr("Записати %1").arg(day));
    return m_isDateAgreed;
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
    // What is no whole number of kopecks agrees with no receipt.
    const auto whole = [](QString text) {
        bool ok = false;
        if (text.endsWith(QLatin1String(".00")))
            text.chop(3);
        const qint64 kopecks = text.toLongLong(&ok);
        return ok ? kopecks : -1;
    };
    return write(m_chek->receipt(), {whole(discount), whole(toPay), whole(cash), whole(card),
                                     whole(certificate), whole(fourth)});
}

/// The number of the written receipt, else -1 with the reason shown.
int QRegisterSale::write(const Receipt &receipt, const ChekPayment &payment)
{
    const ChekWriter::Result result = writer().write(receipt, payment, ui->place->chosenDate());
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
    if (!ui->place->isChosen())
        return tr("Виберіть магазин і касу.");
    if (ui->place->isClosingOnly())
        return tr("Магазин або касу заблоковано: тут можна лише закрити зміну.");
    // A shift is listed in one shop; what is sold in another one does not belong into it.
    const QString other = SalePlaces::otherShopOfShift(m_db, m_receiver, place().kass, place().shop);
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
    ChekPayment due;
    due.discount = receipt.discount();
    due.toPay = receipt.toPay();
    QPayment payment(due, this);
    if (payment.exec() != QDialog::Accepted)
        return;
    const int number = write(receipt, payment.payment());
    if (number != -1)
        afterSale({place().kass, number}, receipt.toPay(), payment.change());
}

void QRegisterSale::afterSale(const NoticeBar::Slip &slip, qint64 toPay, qint64 change)
{
    m_unclear.reset();
    clearReceipt();
    ui->leSearch->clear();
    seerch(QString());
    showShift();
    QString told = tr("Чек № %1, %2").arg(slip.chek).arg(moneyShown(toPay));
    if (change != 0)
        told += tr(", решта %1").arg(moneyShown(change));
    ui->notice->tell(told, m_user->maySee(Permission::Cheks) ? std::optional(slip) : std::nullopt);
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
    ui->notice->forget();
    m_chek->clear();
    showDiscount();
    m_isDateAgreed = false;
    ui->place->backToToday();
}

void QRegisterSale::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayClose());
}

bool QRegisterSale::mayClose()
{
    if (m_isPaying)
        return false;
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
