#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "dbtasks.h"
#include "heldacts.h"
#include "money.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qpastetable.h"
#include "qupdatebd.h"
#include "receiptmodel.h"
#include "saleclock.h"
#include "salekeys.h"
#include "salepricequestion.h"
#include "stockdesk.h"
#include "stockpane.h"

#include <QApplication>
#include <QClipboard>
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
    const auto whenThere = [this](const SaleGuard::Act &act) {
        m_acts->decide([=](bool isThere) {
            if (isThere)
                act();
        });
    };
    m_stock = new StockDesk(m_work, ui->place, ui->modes, ui->documents, whenThere);
    m_guard = new SaleGuard(m_work, m_acts, m_payment, ui->receipt, m_stock);
    setUpParts(whenThere);
    connectPlace();
    connectGoods();
    connectReceipt();
    connectPayment();
    connectStock();
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

void QRegisterSale::setUpParts(const QuantityGrid::WhenThere &whenThere)
{
    ui->shift->setUp(m_work, ui->place);
    ui->goods->setUp(
        m_work, m_acts, [this] { return goodsScope(); },
        [this](const GoodsItem &item) { return addGoods(item); });
    ui->receipt->setUp(
        m_work->user(), [this](const SaleGuard::Act &again) { return m_guard->mayChange(again); }, whenThere);
}

void QRegisterSale::admissionmode()
{
    chooseMode(GoodsSearch::Receive);
}

void QRegisterSale::salemode()
{
    connect(ui->receipt, &ReceiptPane::sellPressed, this, &QRegisterSale::sale, Qt::UniqueConnection);
    chooseMode(GoodsSearch::Sale);
}

void QRegisterSale::movingmode()
{
    chooseMode(GoodsSearch::Move);
}

void QRegisterSale::transfermode()
{
    chooseMode(GoodsSearch::Transfer);
}

/// What does not come into its document stays begun there.
void QRegisterSale::chooseMode(GoodsSearch::Mode mode)
{
    m_guard->whenSettled([this, mode](bool) {
        const bool isOther = std::exchange(m_mode, mode) != mode;
        m_stock->show(mode);
        if (isOther)
            ui->goods->refresh();
        focusSearch();
        ui->goods->takeScans();
    });
}

void QRegisterSale::connectPlace()
{
    ui->place->setGuard([this](PlaceBar::Choice choice, const SaleGuard::Act &leave) {
        // A document of goods is one of its shop; which register writes it does not matter.
        if (choice == PlaceBar::Shop)
            m_guard->leaveAll(leave);
        else
            m_guard->leaveReceipt(leave);
    });
    connect(ui->place, &PlaceBar::kassChanged, this, &QRegisterSale::showRights);
    connect(ui->place, &PlaceBar::goodsChanged, ui->goods, &GoodsPicker::refresh);
    connect(ui->place, &PlaceBar::kassChanged, ui->goods, &GoodsPicker::takeScans);
    connect(ui->place, &PlaceBar::left, ui->goods, &GoodsPicker::focusSearch);
    connect(m_work->user(), &QLoadedUser::rightsChanged, this, &QRegisterSale::showRights);
    connect(ui->notice, &NoticeBar::slipWanted, this, [this](const QString &kass, int number, bool print) {
        if (kass.isEmpty())
            emit invoiceWanted(static_cast<uint>(number), print);
        else
            emit slipWanted(kass, number, print);
    });
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
        if (!m_work->isIdle())
            return;
        if (m_stock->pane() != nullptr && m_stock->isUnclear())
            m_stock->askUnclear();
        else if (m_stock->pane() == nullptr && m_payment->unclear())
            m_payment->askUnclear([](std::optional<bool>) {});
    });
    connect(ui->goods, &GoodsPicker::notAdded, ui->notice, &NoticeBar::keep);
    connect(ui->goods, &GoodsPicker::aboutToTake, this, [this] {
        if (m_stock->pane() != nullptr)
            m_stock->settle();
        else
            ui->receipt->settle();
    });
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
    connect(ui->receipt, &ReceiptPane::clearPressed, this, &QRegisterSale::clearInFront);
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

void QRegisterSale::connectStock()
{
    connect(ui->modes, &ModeBar::chosen, this, &QRegisterSale::chooseMode);
    connect(m_stock, &StockDesk::ownShopChanged, this, [this] {
        if (m_mode == GoodsSearch::Transfer)
            ui->goods->refresh();
    });
    connect(m_stock, &StockDesk::written, this,
            [this](const StockPane *pane, const StockOrder &order, const StockWriter::Result &result) {
                afterStock(*pane, order, result);
            });
    for (StockPane *pane : m_stock->panes()) {
        connect(pane, &StockPane::typed, ui->goods, &GoodsPicker::typeInto);
        connect(pane, &StockPane::left, ui->goods, &GoodsPicker::focusSearch);
        connect(pane, &StockPane::writePressed, this, &QRegisterSale::write);
        connect(pane, &StockPane::pastePressed, this, &QRegisterSale::pasteTable);
        connect(pane, &StockPane::clearPressed, this, &QRegisterSale::clearInFront);
        for (QWidget *field : pane->fields())
            field->installEventFilter(this);
    }
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
    connect(ui->shift, &ShiftBar::written, this, [this](const QStringList &tables) {
        if (tables.contains(QLatin1String("goods_shop")))
            ui->goods->refresh();
        tellTracker(tables);
    });
    connect(ui->receipt, &ReceiptPane::cashPressed, this, &QRegisterSale::moveCash);
    connect(ui->shift, &ShiftBar::cashMoved, this, &QRegisterSale::tellWritten);
}

/// The shortcut of a button would press it a tenth of a second later, after the keys that follow.
void QRegisterSale::connectKeys()
{
    const auto onKey = [this](const QKeySequence &keys, void (QRegisterSale::*act)(), const QString &words) {
        auto *shortcut = new QShortcut(keys, this);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        shortcut->setWhatsThis(words);
        connect(shortcut, &QShortcut::activated, this, act);
    };
    onKey(Qt::Key_Escape, &QRegisterSale::escape,
          tr("Крок назад: прибрати повідомлення, пошук, потім усе набране"));
    onKey(Qt::Key_F6, &QRegisterSale::salemode, tr("Продаж"));
    onKey(Qt::Key_F7, &QRegisterSale::admissionmode, tr("Прийом товару"));
    onKey(Qt::Key_F8, &QRegisterSale::movingmode, tr("Переміщення між залом і складом"));
    onKey(Qt::Key_F11, &QRegisterSale::transfermode, tr("Передача іншому магазину"));
    onKey(Qt::Key_F9, &QRegisterSale::write, tr("Оплатити чек або записати документ"));
    onKey(Qt::Key_F12, &QRegisterSale::CloseZ_zvit, tr("Закрити зміну"));
    onKey(Qt::SHIFT + Qt::Key_F9, &QRegisterSale::moveCash, tr("Рух готівки"));
    onKey(QKeySequence::Find, &QRegisterSale::findGoods, tr("Шукати товар"));
    new SalePriceQuestion(m_work, m_acts, ui->goods, ui->receipt, [this] { return goodsScope(); });
}

/// What a sale needs comes first, what is seldom changed last; across the parts.
void QRegisterSale::orderTabs()
{
    const auto named = [this](std::initializer_list<const char *> names) {
        QWidgetList widgets;
        for (const char *name : names)
            widgets.append(findChild<QWidget *>(QLatin1String(name)));
        return widgets;
    };
    QWidgetList all =
        named({"viewGoods", "viewChek", "dsbDiscount", "pbSale", "pbRemove", "pbClear", "pbServiceCash"});
    for (const StockPane *pane : m_stock->panes())
        all += pane->tabOrder();
    all += named({"cbShop", "cbKass", "dateEdit", "sbPriority"}) + ui->modes->buttons() +
           named({"pbCloseZ", "pbPeriod", "rbBarcode", "rbName", "sbLimit"});
    QWidget *last = ui->goods->searchField();
    for (QWidget *next : qAsConst(all)) {
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
    m_stock->setMayChange(maySell, maySell && !ui->place->isClosingOnly(), why);
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
    const DbId ownShop = m_stock->ownShop();
    scope.idShop = ownShop != 0 ? ownShop : ui->place->place().shop.toUInt();
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
    if (m_stock->pane() != nullptr) {
        const bool isTaken = m_stock->add(item);
        ui->goods->clearField();
        return isTaken;
    }
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

/// A code that was typed and not confirmed: the document would be written without its item.
bool QRegisterSale::isCodeLeft()
{
    const QString code = ui->goods->codeLeft();
    if (code.isEmpty())
        return false;
    notify((m_stock->pane() == nullptr
                ? tr("Код «%1» ще не в чеку. Натисніть Enter, щоб додати товар, або очистіть поле.")
                : tr("Код «%1» ще не в документі. Натисніть Enter, щоб додати товар, або очистіть поле."))
               .arg(code));
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
    } else {
        clearInFront();
    }
    focusSearch();
}

void QRegisterSale::clearInFront()
{
    if (m_work->mayEdit() && m_stock->pane() != nullptr)
        m_guard->leaveDocument();
    else if (m_work->mayEdit())
        m_guard->leaveReceipt({});
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

/// The empty search field has the keys of the document's current row.
bool QRegisterSale::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto *key = static_cast<QKeyEvent *>(event);
    if (pastes(key)) {
        pasteTable();
        return true;
    }
    if (watched == ui->goods->searchField())
        return !ui->goods->hasText() && documentKey(key);
    return fieldKey(key, qobject_cast<const QComboBox *>(watched) != nullptr);
}

/// A word is pasted where the focus is, a table into the document.
bool QRegisterSale::pastes(const QKeyEvent *key) const
{
    return m_stock->pane() != nullptr && key->matches(QKeySequence::Paste) &&
           Pasted::isTable(QApplication::clipboard()->text());
}

QVector<ToldKey> QRegisterSale::toldKeys() const
{
    return {{{QKeySequence::Paste}, tr("Вставити таблицю товарів у документ")}};
}

void QRegisterSale::pasteTable()
{
    m_guard->whenSettled([this](bool) {
        StockPane *pane = m_stock->pane();
        if (pane == nullptr || !m_stock->mayChange([this] { pasteTable(); }))
            return;
        if (m_stock->ownShop() == 0 && (!ui->place->hasShop() || ui->place->isReading()))
            return notify(tr("Магазин ще не вибрано."));
        QPasteTable form(m_work, pane->mode(), QString::number(goodsScope().idShop), this);
        const QString copied = QApplication::clipboard()->text();
        form.setText(Pasted::isTable(copied) ? copied : QString());
        if (form.exec() == QDialog::Accepted)
            m_stock->add(form.rows());
        focusSearch();
    });
}

bool QRegisterSale::documentKey(const QKeyEvent *key)
{
    StockPane *pane = m_stock->pane();
    return pane != nullptr ? pane->rowKey(key) : ui->receipt->rowKey(key);
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
    if (pastes(event))
        pasteTable();
    else if (isTypedKey(event) && !ui->goods->searchField()->hasFocus())
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

void QRegisterSale::write()
{
    if (m_stock->pane() == nullptr)
        return sale();
    m_guard->whenSettled([this](bool isSettled) {
        if (!isSettled || isCodeLeft())
            return;
        m_searchBefore = ui->goods->searchField()->text();
        m_stock->write();
    });
}

void QRegisterSale::CloseZ_zvit()
{
    ui->shift->closeShift();
}

void QRegisterSale::moveCash()
{
    m_guard->whenSettled([this](bool) { ui->shift->moveCash(); });
}

void QRegisterSale::pbClosePeriod()
{
    ui->shift->closePeriodAlone();
}

/// First the next receipt can be begun, then the other programs are told of this one.
void QRegisterSale::afterSale(const SalePayment::Sold &sold)
{
    clearReceipt();
    refreshGoods();
    ui->shift->refresh();
    QString told = tr("Чек № %1, %2").arg(sold.number).arg(moneyShown(sold.toPay));
    if (sold.change != 0)
        told += tr(", решта %1").arg(moneyShown(sold.change));
    tellWritten(told, sold.kass, sold.number);
    tellTracker({QStringLiteral("cheks"), QStringLiteral("goods_shop"), QStringLiteral("z_zvit")});
}

/// The same of a document of goods; the shift is another one only when it was opened by it.
void QRegisterSale::afterStock(const StockPane &pane, const StockOrder &order,
                               const StockWriter::Result &result)
{
    ui->notice->forget();
    ui->place->backToToday();
    refreshGoods();
    ui->shift->refresh();
    const QString told = tr("%1 № %2: позицій %3, кількість %4")
                             .arg(pane.mode().name)
                             .arg(result.chek.number)
                             .arg(order.document.rows().size())
                             .arg(quantityShown(order.document.total()));
    if (pane.mode().hasSlip) {
        tellWritten(told, result.chek.place.kass, result.chek.number);
        QStringList tables = {QStringLiteral("cheks"), QStringLiteral("goods_shop")};
        if (result.opensShift)
            tables.append(QStringLiteral("z_zvit"));
        tellTracker(tables + pane.mode().alsoTables);
    } else {
        ui->notice->tell(told, NoticeBar::Slip{QString(), result.chek.number});
    }
    ui->goods->takeScans();
}

/// What was typed meanwhile is searched for the next document.
void QRegisterSale::refreshGoods()
{
    if (ui->goods->searchField()->text() == m_searchBefore)
        ui->goods->clear();
    else
        ui->goods->refresh();
}

/// With the way to its slip for those who may see it.
void QRegisterSale::tellWritten(const QString &words, const QString &kass, int number)
{
    if (m_work->user()->maySee(Permission::Cheks))
        ui->notice->tell(words, NoticeBar::Slip{kass, number});
    else
        notify(words);
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

/// Into this document; what is kept waits for an answer or for the next one.
bool QRegisterSale::mayTakeScans() const
{
    const bool mayChange =
        m_stock->pane() != nullptr ? !m_stock->isUnclear() : !m_keepsScans && !m_payment->unclear();
    return m_work->isIdle() && !ui->place->isReading() && mayChange;
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
