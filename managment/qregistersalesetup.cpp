// The parts of the tab and how they are joined.

#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "qloadeduser.h"
#include "qrowmodel.h"
#include "quantitydelegate.h"
#include "queryservice.h"
#include "receiptmodel.h"
#include "scancatcher.h"
#include "userstate.h"

#include <QApplication>
#include <QHeaderView>
#include <QShortcut>

QRegisterSale::~QRegisterSale()
{
    tellTracker();
    // An editor that loses the focus on the way out would still tell of it.
    m_quantity->drop();
    const auto parts = findChildren<QObject *>();
    for (const QObject *part : parts)
        part->disconnect(this);
    for (const QNTableView *view : {ui->viewGoods, ui->viewChek})
        rememberState(m_user->idUser(), widthsKey(view), view->horizontalHeader()->saveState());
}

void QRegisterSale::salemode()
{
    m_mode = GoodsSearch::Sale;
    connect(ui->pbSale, &QPushButton::clicked, this, &QRegisterSale::sale, Qt::UniqueConnection);
    for (int column :
         {ReceiptModel::Rules, ReceiptModel::Type, ReceiptModel::IsDisk, ReceiptModel::Tax,
          ReceiptModel::ActType, ReceiptModel::ActVal, ReceiptModel::ActVal1, ReceiptModel::ActVal2})
        ui->viewChek->setColumnHidden(column, true);
}

QVector<Column> QRegisterSale::goodsColumns()
{
    const Column hidden = {QString(), 0, &asNumber, true};
    return {{tr("код"), 7, &asNumber},
            {tr("штрихкод"), 14},
            {tr("назва"), 32},
            {tr("зал"), 8, &asQuantity},
            {tr("склад"), 8, &asQuantity},
            hidden,
            hidden,
            hidden,
            hidden,
            {tr("ціна"), 9, &asMoney},
            hidden,
            hidden,
            hidden,
            hidden,
            hidden,
            {tr("акція"), 16, &asPromotion}};
}

void QRegisterSale::setUpGoods()
{
    m_goods->setColumns(goodsColumns());
    ui->viewGoods->setModel(m_goods);
    ui->viewGoods->setSortingEnabled(true);
    QVector<int> digits;
    for (int i = 0; i < m_goods->columns().size(); ++i) {
        digits.append(m_goods->columns().at(i).digits);
        ui->viewGoods->setColumnHidden(i, m_goods->columns().at(i).hidden);
    }
    setUpGrid(ui->viewGoods, digits);
}

void QRegisterSale::setUpChek()
{
    ui->viewChek->setModel(m_chek);
    ui->viewChek->setItemDelegate(m_quantity);
    ui->viewChek->setEditTriggers(QAbstractItemView::DoubleClicked);
    ui->viewChek->setEmptyText(tr("Чек порожній. Скануйте товар або знайдіть його та натисніть Enter."));
    ui->lbKeys->setText(
        tr("+ − * кількість, Delete прибрати рядок, F9 оплата, F12 закрити зміну, Esc очистити"));
    setUpGrid(ui->viewChek, {6, 14, 20, 7, 7, 0, 0, 0, 0, 8, 0, 0, 0, 0, 10, 8, 9, 7});
}

/// Remembered widths hold for the size of the letters they were chosen with.
QString QRegisterSale::widthsKey(const QNTableView *view)
{
    return QStringLiteral("columns/QRegisterSale_%1_%2")
        .arg(view->objectName())
        .arg(view->fontMetrics().height());
}

/// digits: how many of them each column has room for.
void QRegisterSale::setUpGrid(QNTableView *view, const QVector<int> &digits)
{
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    for (int i = 0; i < digits.size(); ++i)
        view->setColumnWidth(i, qMax(view->horizontalHeader()->sectionSizeHint(i),
                                     digits.at(i) * view->fontMetrics().horizontalAdvance(QLatin1Char('0')) +
                                         view->fontMetrics().height() / 2));
    const QVariant widths = rememberedState(m_user->idUser(), widthsKey(view));
    view->horizontalHeader()->restoreState(widths.toByteArray());
    view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
}

/// The names take the room that the other columns leave.
void QRegisterSale::spreadNames(QNTableView *view)
{
    const int others = view->horizontalHeader()->length() - view->columnWidth(ReceiptModel::Name);
    const int least = 20 * view->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    view->setColumnWidth(ReceiptModel::Name, qMax(least, view->viewport()->width() - others));
}

void QRegisterSale::connectPlace()
{
    ui->place->setGuard([this] { return leaveReceipt(); });
    connect(ui->place, &PlaceBar::kassChanged, this, &QRegisterSale::showRights);
    connect(ui->place, &PlaceBar::goodsChanged, this, [this] { seerch(ui->leSearch->text()); });
    connect(ui->place, &PlaceBar::left, this, &QRegisterSale::focusSearch);
    connect(ui->notice, &NoticeBar::slipWanted, this, &QRegisterSale::slipWanted);
    m_payment->setScope([this] { return goodsSearch(GoodsSearch::Goods, QString()); });
    connect(m_payment, &SalePayment::told, this, &QRegisterSale::notify);
    connect(m_payment, &SalePayment::sold, this, &QRegisterSale::afterSale);
    connect(m_payment, &SalePayment::shiftRead, ui->shift, &ShiftBar::refresh);
    connect(m_payment, &SalePayment::left, this, &QRegisterSale::focusSearch);
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
        return m_chek->receipt().isEmpty()
                   ? QString()
                   : tr("У чеку є товари. Оплатіть або очистіть його перед закриттям зміни.");
    });
    connect(ui->shift, &ShiftBar::told, this, &QRegisterSale::notify);
    connect(ui->shift, &ShiftBar::written, this, &QRegisterSale::tellLater);
    connect(ui->shift, &ShiftBar::placesChanged, this, [this] { seerch(ui->leSearch->text()); });
    connect(ui->shift, &ShiftBar::left, this, &QRegisterSale::focusSearch);
}

void QRegisterSale::connectReceipt()
{
    connect(m_chek, &ReceiptModel::receiptChanged, this, &QRegisterSale::showReceipt);
    connect(m_chek, &ReceiptModel::quantityTyped, this, [this](int row, const QString &text) {
        m_typed = TypedQuantity{row, text};
        // After the cell's editor is gone: the change may ask.
        QTimer::singleShot(0, this, &QRegisterSale::settleQuantity);
    });
    connect(m_quantity, &QuantityDelegate::closeEditor, this, [this] {
        if (QApplication::focusWidget() == ui->viewChek)
            focusSearch();
    });
    connect(ui->dsbDiscount, &QDoubleSpinBox::editingFinished, this, &QRegisterSale::discountTyped);
    connect(m_user, &QLoadedUser::rightsChanged, this, &QRegisterSale::showRights);
    connect(ui->pbRemove, &QPushButton::clicked, this, &QRegisterSale::removeRow);
    connect(ui->pbClear, &QPushButton::clicked, this, [this] {
        if (mayChange())
            leaveReceipt();
        focusSearch();
    });
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

/// Back to the scanner's field after every choice; a scan goes there wherever the focus is.
void QRegisterSale::connectFocus()
{
    auto *catcher = new ScanCatcher(this);
    connect(catcher, &ScanCatcher::scanned, this, [this](const QString &code) {
        m_scans.append(code);
        takeScans();
    });
    connect(ui->splitter, &QSplitter::splitterMoved, this, &QRegisterSale::focusSearch);
    for (const QNTableView *view : {ui->viewGoods, ui->viewChek})
        connect(view->horizontalHeader(), &QHeaderView::sectionClicked, this, &QRegisterSale::focusSearch);
    const QWidgetList fields = ui->place->fields() << ui->sbLimit << ui->dsbDiscount;
    for (QWidget *field : fields)
        field->installEventFilter(this);
}

/// What a hand needs from left to right comes first, what is seldom changed last.
void QRegisterSale::orderTabs()
{
    QWidget *last = ui->leSearch;
    for (const char *name :
         {"viewGoods", "viewChek", "dsbDiscount", "pbSale", "pbRemove", "pbClear", "cbShop", "cbKass",
          "dateEdit", "sbPriority", "pbCloseZ", "pbPeriod", "rbBarcode", "rbName", "sbLimit"}) {
        auto *next = findChild<QWidget *>(QLatin1String(name));
        setTabOrder(last, next);
        last = next;
    }
}

void QRegisterSale::connectSearch()
{
    // A scanner types a barcode faster than that: its digits are not searched one by one.
    m_searchDelay.setSingleShot(true);
    m_searchDelay.setInterval(120);
    connect(&m_searchDelay, &QTimer::timeout, this, [this] {
        if (m_waited)
            m_searchDelay.start();
        else
            loadList(ui->leSearch->text());
    });
    connect(ui->leSearch, &QLineEdit::textChanged, &m_searchDelay, qOverload<>(&QTimer::start));
    connect(ui->leSearch, &QLineEdit::textEdited, this, [this] { m_asked.clear(); });
    connect(ui->rbName, &QRadioButton::toggled, this, [this] {
        seerch(ui->leSearch->text());
        focusSearch();
    });
    connect(ui->sbLimit, qOverload<int>(&QSpinBox::valueChanged), this,
            [this] { seerch(ui->leSearch->text()); });
    connect(ui->viewGoods, &QTableView::doubleClicked, this,
            [this](const QModelIndex &index) { addListed(index.row()); });
    connect(m_queries, &QueryOwner::answered, this, &QRegisterSale::showFound);
    ui->leSearch->installEventFilter(this);
}
