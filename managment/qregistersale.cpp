#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "money.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "qmessevent.h"
#include "qupdatebd.h"
#include "receiptmodel.h"
#include "saleclock.h"
#include "salekeys.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QLineEdit>
#include <QShortcut>
#include <utility>

QRegisterSale::QRegisterSale(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                             QWidget *parent)
    : QWidget(parent), ui(std::make_unique<Ui::QRegisterSale>()), m_db(db), m_user(user), m_receiver(receiver)
{
    Q_UNUSED(set)
    ui->setupUi(this);
    m_payment = new SalePayment(db, receiver, ui->place, ui->receipt->model(), this);
    setUpParts(db, receiver);
    connectPlace();
    connectGoods();
    connectReceipt();
    connectPayment();
    connectClosing();
    connectKeys();
    orderTabs();
    salemode();
    ui->place->setUp(db, user, receiver);
    showRights();
    seerch(QString());
}

QRegisterSale::~QRegisterSale()
{
    tellTracker();
    // A part that loses the focus on the way out would still tell of it, and ask a tab that is half gone.
    const auto parts = findChildren<QObject *>();
    for (QObject *part : parts) {
        part->disconnect(this);
        part->blockSignals(true);
    }
    if (focusWidget() != nullptr)
        focusWidget()->clearFocus();
    for (QObject *part : parts)
        part->blockSignals(false);
}

void QRegisterSale::setUpParts(QSqlDatabase *db, QObject *receiver)
{
    ui->shift->setUp(db, m_user, receiver, ui->place);
    ui->goods->setUp(
        db, m_user, receiver, this, [this] { return goodsScope(); },
        [this](const GoodsItem &item) { return addGoods(item); });
    ui->receipt->setUp(
        m_user, [this] { return mayChange(); }, [this] { return settle(); });
}

void QRegisterSale::salemode()
{
    m_mode = GoodsSearch::Sale;
    connect(ui->receipt, &ReceiptPane::sellPressed, this, &QRegisterSale::sale, Qt::UniqueConnection);
}

void QRegisterSale::connectPlace()
{
    ui->place->setGuard([this] { return leaveReceipt(); });
    connect(ui->place, &PlaceBar::kassChanged, this, &QRegisterSale::showRights);
    connect(ui->place, &PlaceBar::goodsChanged, ui->goods, &GoodsPicker::refresh);
    connect(ui->place, &PlaceBar::left, ui->goods, &GoodsPicker::focusSearch);
    connect(m_user, &QLoadedUser::rightsChanged, this, &QRegisterSale::showRights);
    connect(ui->notice, &NoticeBar::slipWanted, this, &QRegisterSale::slipWanted);
    connect(ui->splitter, &QSplitter::splitterMoved, ui->goods, &GoodsPicker::focusSearch);
}

void QRegisterSale::connectGoods()
{
    connect(ui->goods, &GoodsPicker::told, this, &QRegisterSale::notify);
    connect(ui->goods, &GoodsPicker::notAdded, ui->notice, &NoticeBar::keep);
    connect(ui->goods, &GoodsPicker::aboutToTake, ui->receipt, &ReceiptPane::settle);
    ui->goods->searchField()->installEventFilter(this);
    const QWidgetList fields = ui->place->fields() + ui->goods->fields() + ui->receipt->fields();
    for (QWidget *field : fields)
        field->installEventFilter(this);
}

void QRegisterSale::connectReceipt()
{
    connect(ui->receipt, &ReceiptPane::told, this, &QRegisterSale::notify);
    connect(ui->receipt, &ReceiptPane::typed, ui->goods, &GoodsPicker::typeInto);
    connect(ui->receipt, &ReceiptPane::left, ui->goods, &GoodsPicker::focusSearch);
    connect(ui->receipt, &ReceiptPane::clearPressed, this, [this] {
        if (mayChange())
            leaveReceipt();
        focusSearch();
    });
}

void QRegisterSale::connectPayment()
{
    m_payment->setScope([this] { return goodsScope(); });
    connect(m_payment, &SalePayment::told, this, &QRegisterSale::notify);
    connect(m_payment, &SalePayment::sold, this, &QRegisterSale::afterSale);
    connect(m_payment, &SalePayment::shiftRead, ui->shift, &ShiftBar::refresh);
    connect(m_payment, &SalePayment::left, ui->goods, &GoodsPicker::focusSearch);
}

void QRegisterSale::connectClosing()
{
    ui->shift->setGuard([this] {
        if (!settle())
            return false;
        const bool may = mayChange();
        if (!may)
            focusSearch();
        return may;
    });
    ui->shift->setRefusal([this] {
        return ui->receipt->receipt().isEmpty()
                   ? QString()
                   : tr("У чеку є товари. Оплатіть або очистіть його перед закриттям зміни.");
    });
    connect(ui->shift, &ShiftBar::told, this, &QRegisterSale::notify);
    connect(ui->shift, &ShiftBar::written, this, &QRegisterSale::tellLater);
    connect(ui->shift, &ShiftBar::placesChanged, ui->goods, &GoodsPicker::refresh);
    connect(ui->shift, &ShiftBar::left, ui->goods, &GoodsPicker::focusSearch);
}

/// The shortcut of a button would press it a tenth of a second later, after the keys that follow.
void QRegisterSale::connectKeys()
{
    const auto onKey = [this](const QKeySequence &keys, void (QRegisterSale::*act)()) {
        auto *shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    onKey(Qt::Key_Escape, &QRegisterSale::escape);
    onKey(Qt::Key_F9, &QRegisterSale::sale);
    onKey(Qt::Key_F12, &QRegisterSale::CloseZ_zvit);
    onKey(QKeySequence::Find, &QRegisterSale::focusSearch);
}

/// What a sale needs comes first, what is seldom changed last; across the parts.
void QRegisterSale::orderTabs()
{
    QWidget *last = ui->goods->searchField();
    for (const char *name :
         {"viewGoods", "viewChek", "dsbDiscount", "pbSale", "pbRemove", "pbClear", "cbShop", "cbKass",
          "dateEdit", "sbPriority", "pbCloseZ", "pbPeriod", "rbBarcode", "rbName", "sbLimit"}) {
        auto *next = findChild<QWidget *>(QLatin1String(name));
        setTabOrder(last, next);
        last = next;
    }
}

/// Also when they were read again.
void QRegisterSale::showRights()
{
    const bool maySell = m_user->mayEdit(Permission::Sales);
    const QString why = tr("Лише перегляд: продавати може користувач з повним дозволом.");
    ui->receipt->setMayChange(maySell, why);
    ui->receipt->setMaySell(maySell && !ui->place->isClosingOnly());
    ui->shift->setMayClose(maySell, why);
    if (!maySell || ui->notice->text() == why)
        notify(maySell ? QString() : why);
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

ChekWriter QRegisterSale::writer(const char *file, int line) const
{
    return ChekWriter(Db(m_db, m_receiver), ui->place->place(), file, line);
}

GoodsSearch QRegisterSale::goodsScope() const
{
    ui->place->followToday();
    GoodsSearch scope;
    scope.idShop = ui->place->place().shop.toUInt();
    scope.mode = m_mode;
    scope.priority = ui->place->priority();
    scope.time = SaleClock::at(ui->place->chosenDate());
    return scope;
}

void QRegisterSale::seerch(const QString &text)
{
    ui->goods->search(text);
}

bool QRegisterSale::addGoods(const GoodsItem &item)
{
    notify(QString());
    if (!mayChange())
        return false;
    if (!item.hasPrice) {
        notify(tr("Товар «%1» не має ціни.").arg(item.name));
        return false;
    }
    const bool isAdded = ui->receipt->add(ReceiptRow(item));
    ui->goods->clearField();
    return isAdded;
}

bool QRegisterSale::settle()
{
    const bool isReceiptSettled = ui->receipt->settle();
    return ui->goods->settle() && isReceiptSettled;
}

/// A code that was typed and not confirmed: the receipt would be paid without its item.
bool QRegisterSale::isCodeLeft()
{
    const QString code = ui->goods->codeLeft();
    if (code.isEmpty())
        return false;
    notify(tr("Код «%1» ще не в чеку. Натисніть Enter, щоб додати товар, або очистіть поле.").arg(code));
    focusSearch();
    return true;
}

/// First what was told goes, then what is being typed, then the search, then, after a question, the receipt.
void QRegisterSale::escape()
{
    const bool isTold = ui->notice->isKeeping();
    ui->notice->forget();
    notify(QString());
    if (isTold || ui->receipt->isDiscountBegun()) {
        ui->receipt->showDiscount();
    } else if (ui->goods->hasText()) {
        ui->goods->dropSearch();
        ui->goods->clear();
    } else if (mayChange()) {
        leaveReceipt();
    }
    focusSearch();
}

void QRegisterSale::focusSearch()
{
    ui->goods->focusSearch();
}

void QRegisterSale::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    focusSearch();
}

/// Side by side where both grids have room for their columns.
void QRegisterSale::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    const bool isWide = width() > fontMetrics().averageCharWidth() * 250;
    ui->splitter->setOrientation(isWide ? Qt::Horizontal : Qt::Vertical);
}

/// The empty search field has the keys of the receipt's current row.
bool QRegisterSale::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (watched == ui->goods->searchField())
        return !ui->goods->hasText() && ui->receipt->rowKey(key);
    return fieldKey(key, qobject_cast<const QComboBox *>(watched) != nullptr);
}

/// The fields around the grids: Enter leads back; a box of choices takes no digits.
bool QRegisterSale::fieldKey(const QKeyEvent *key, bool isChoice)
{
    if (isEnterKey(key) && !isChoice)
        QTimer::singleShot(0, this, &QRegisterSale::focusSearch);
    const bool isDigit = isTypedKey(key) && key->text().at(0).isDigit();
    if (isChoice && isDigit)
        ui->goods->typeInto(key->text());
    return isChoice && isDigit;
}

/// What no editor has taken.
void QRegisterSale::keyPressEvent(QKeyEvent *event)
{
    if (isTypedKey(event) && !ui->goods->searchField()->hasFocus())
        ui->goods->typeInto(event->text());
    else
        QWidget::keyPressEvent(event);
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
    return m_payment->write(ui->receipt->receipt(), {whole(discount), whole(toPay), whole(cash), whole(card),
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
    ui->goods->clear();
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
    if (ui->receipt->receipt().isEmpty())
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
    ui->notice->forget();
    ui->receipt->clear();
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
