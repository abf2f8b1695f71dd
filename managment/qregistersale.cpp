#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "dbtasks.h"
#include "heldacts.h"
#include "money.h"
#include "qloadeduser.h"
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
    : QWidget(parent)
    , ui(std::make_unique<Ui::QRegisterSale>())
    , m_work(new SaleWork(db, user, receiver, this))
    , m_acts(new HeldActs(this))
    , m_tracking(m_work->makeTasks(this))
{
    Q_UNUSED(set)
    ui->setupUi(this);
    m_payment = new SalePayment(m_work, ui->place, ui->receipt->model());
    m_guard = new SaleGuard(m_work, m_acts, m_payment, ui->receipt);
    setUpParts();
    connectPlace();
    connectGoods();
    connectReceipt();
    connectPayment();
    connectClosing();
    connectKeys();
    orderTabs();
    salemode();
    ui->place->setUp(m_work);
    ui->shift->refresh();
    showRights();
}

QRegisterSale::~QRegisterSale()
{
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

void QRegisterSale::setUpParts()
{
    ui->shift->setUp(m_work, ui->place);
    ui->goods->setUp(
        m_work, m_acts, [this] { return goodsScope(); },
        [this](const GoodsItem &item) { return addGoods(item); });
    ui->receipt->setUp(
        m_work->user(), [this](const SaleGuard::Act &again) { return m_guard->mayChange(again); },
        [this](const SaleGuard::Act &act) {
            m_acts->decide([=](bool isThere) {
                if (isThere)
                    act();
            });
        });
}

void QRegisterSale::salemode()
{
    m_mode = GoodsSearch::Sale;
    connect(ui->receipt, &ReceiptPane::sellPressed, this, &QRegisterSale::sale, Qt::UniqueConnection);
}

void QRegisterSale::connectPlace()
{
    ui->place->setGuard([this](const SaleGuard::Act &leave) { m_guard->leaveReceipt(leave); });
    connect(ui->place, &PlaceBar::kassChanged, this, &QRegisterSale::showRights);
    connect(ui->place, &PlaceBar::goodsChanged, ui->goods, &GoodsPicker::refresh);
    connect(ui->place, &PlaceBar::kassChanged, ui->goods, &GoodsPicker::takeScans);
    connect(ui->place, &PlaceBar::left, ui->goods, &GoodsPicker::focusSearch);
    connect(m_work->user(), &QLoadedUser::rightsChanged, this, &QRegisterSale::showRights);
    connect(ui->notice, &NoticeBar::slipWanted, this, &QRegisterSale::slipWanted);
    connect(ui->splitter, &QSplitter::splitterMoved, ui->goods, &GoodsPicker::focusSearch);
}

void QRegisterSale::connectGoods()
{
    ui->goods->setGuard([this] { return mayTakeScans(); });
    connect(m_work, &SaleWork::told, this, &QRegisterSale::notify);
    connect(m_work, &SaleWork::left, ui->goods, &GoodsPicker::focusSearch);
    // When what has ended is shown.
    connect(m_work, &SaleWork::idle, ui->goods, &GoodsPicker::takeScans, Qt::QueuedConnection);
    connect(ui->goods, &GoodsPicker::scanned, this, [this] {
        if (m_work->isIdle() && m_payment->unclear())
            m_payment->askUnclear([](std::optional<bool>) {});
    });
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
        if (m_work->mayEdit())
            m_guard->leaveReceipt({});
        focusSearch();
    });
}

void QRegisterSale::connectPayment()
{
    m_payment->setScope([this] { return goodsScope(); });
    connect(m_guard, &SaleGuard::receiptLeft, this, &QRegisterSale::clearReceipt);
    connect(m_guard, &SaleGuard::closeWanted, this, &QRegisterSale::closeAgain, Qt::QueuedConnection);
    connect(m_payment, &SalePayment::sold, this, &QRegisterSale::afterSale);
    connect(m_payment, &SalePayment::notWritten, this, &QRegisterSale::keepScans);
    connect(m_payment, &SalePayment::shiftRead, ui->shift, &ShiftBar::refresh);
}

void QRegisterSale::connectClosing()
{
    ui->shift->setGuard([this](const SaleGuard::Act &close) {
        m_guard->whenSettled([=](bool isSettled) {
            if (isSettled && m_guard->mayChange(close))
                close();
            else
                focusSearch();
        });
    });
    ui->shift->setRefusal([this] {
        return ui->receipt->receipt().isEmpty()
                   ? QString()
                   : tr("У чеку є товари. Оплатіть або очистіть його перед закриттям зміни.");
    });
    connect(ui->shift, &ShiftBar::written, this, &QRegisterSale::tellTracker);
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
    onKey(QKeySequence::Find, &QRegisterSale::findGoods);
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
    const bool maySell = m_work->user()->mayEdit(Permission::Sales);
    const QString why = SaleWork::viewOnlyWords();
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
    if (!m_guard->mayChange([=] { addGoods(item); }))
        return false;
    if (!item.hasPrice) {
        notify(tr("Товар «%1» не має ціни.").arg(item.name));
        return false;
    }
    const bool isAdded = ui->receipt->add(ReceiptRow(item));
    ui->goods->clearField();
    return isAdded;
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
    } else if (m_work->mayEdit()) {
        m_guard->leaveReceipt({});
    }
    focusSearch();
}

void QRegisterSale::findGoods()
{
    focusSearch();
    ui->goods->searchField()->selectAll();
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

void QRegisterSale::sale()
{
    m_guard->whenSettled([this](bool isSettled) {
        if (!isSettled || isCodeLeft() || !m_guard->mayChange([this] { sale(); }))
            return;
        m_searchBefore = ui->goods->searchField()->text();
        m_payment->sell();
    });
}

void QRegisterSale::CloseZ_zvit()
{
    ui->shift->closeShift();
}

void QRegisterSale::pbClosePeriod()
{
    ui->shift->closePeriodAlone();
}

/// First the next receipt can be begun, then the other programs are told of this one. What was typed
/// meanwhile is searched for the next one.
void QRegisterSale::afterSale(const SalePayment::Sold &sold)
{
    clearReceipt();
    if (ui->goods->searchField()->text() == m_searchBefore)
        ui->goods->clear();
    else
        ui->goods->refresh();
    ui->shift->refresh();
    QString told = tr("Чек № %1, %2").arg(sold.number).arg(moneyShown(sold.toPay));
    if (sold.change != 0)
        told += tr(", решта %1").arg(moneyShown(sold.change));
    if (m_work->user()->maySee(Permission::Cheks))
        ui->notice->tell(told, NoticeBar::Slip{sold.kass, sold.number});
    else
        notify(told);
    tellTracker({QStringLiteral("cheks"), QStringLiteral("goods_shop"), QStringLiteral("z_zvit")});
}

/// What was scanned while a receipt was written that still stands here belongs to the next buyer.
void QRegisterSale::keepScans()
{
    m_keepsScans = ui->goods->hasScans();
    if (m_keepsScans)
        ui->notice->keep(tr("Скановане під час запису чекає на наступний чек."));
}

void QRegisterSale::tellTracker(const QStringList &tables)
{
    m_tracking->write(
        [tables](const Db &db) { return QUpdateBD().update(tables, *db.connection(), db.receiver()); },
        [](bool) {});
}

/// Into this receipt; what is kept waits for an answer or for the next one.
bool QRegisterSale::mayTakeScans() const
{
    return m_work->isIdle() && !m_keepsScans && !ui->place->isReading() && !m_payment->unclear();
}

/// The next receipt begins with nothing of this one.
void QRegisterSale::clearReceipt()
{
    ui->notice->forget();
    ui->receipt->clear();
    m_payment->beginReceipt();
    ui->place->backToToday();
    m_keepsScans = false;
    ui->goods->takeScans();
}

void QRegisterSale::closeEvent(QCloseEvent *event)
{
    event->setAccepted(mayClose());
}

void QRegisterSale::closeAgain()
{
    if (isWindow())
        close();
    else
        emit closeWanted();
}

bool QRegisterSale::mayClose()
{
    return m_guard->mayClose();
}
