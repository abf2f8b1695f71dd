#include "receiptpane.h"
#include "ui_receiptpane.h"

#include "money.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "quantitydelegate.h"
#include "receiptmodel.h"
#include "salekeys.h"

#include <QApplication>
#include <QHeaderView>
#include <QTimer>

namespace {
constexpr qint64 one = 1000;
} // namespace

ReceiptPane::ReceiptPane(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::ReceiptPane>())
    , m_model(new ReceiptModel(this))
    , m_quantity(new QuantityDelegate(this))
    , m_columns((ui->setupUi(this), ui->viewChek))
{
    ui->viewChek->setModel(m_model);
    ui->viewChek->setItemDelegate(m_quantity);
    ui->viewChek->setSelectionMode(QAbstractItemView::SingleSelection);
    ui->viewChek->setEditTriggers(QAbstractItemView::DoubleClicked);
    ui->viewChek->setEmptyText(tr("Чек порожній. Скануйте товар або знайдіть його та натисніть Enter."));
    ui->lbKeys->setText(
        tr("+ − * кількість, Delete прибрати рядок, F9 оплата, F12 закрити зміну, Esc очистити"));
    connectGrid();
    connectFields();
    showSums();
}

ReceiptPane::~ReceiptPane()
{
    // An editor or a field that loses the focus on the way out would still tell of it.
    m_quantity->drop();
    const auto parts = findChildren<QObject *>();
    for (const QObject *part : parts)
        part->disconnect(this);
}

void ReceiptPane::setUp(const QLoadedUser *user, const MayChange &mayChange, const WhenThere &whenThere)
{
    m_mayChange = mayChange;
    m_whenThere = whenThere;
    m_columns.set(ReceiptModel::columns(), user->idUser(), QStringLiteral("QRegisterSale_viewChek"));
}

void ReceiptPane::connectGrid()
{
    ui->viewChek->installEventFilter(this);
    connect(m_model, &ReceiptModel::receiptChanged, this, &ReceiptPane::showSums);
    connect(m_model, &ReceiptModel::quantityTyped, this, [this](int row, const QString &text) {
        m_typed = TypedQuantity{row, text};
        // After the cell's editor is gone: the change may ask.
        QTimer::singleShot(0, this, &ReceiptPane::settleQuantity);
    });
    connect(m_quantity, &QuantityDelegate::closeEditor, this, [this] {
        if (QApplication::focusWidget() == ui->viewChek)
            emit left();
    });
    connect(ui->viewChek->horizontalHeader(), &QHeaderView::sectionClicked, this, &ReceiptPane::left);
}

void ReceiptPane::connectFields()
{
    connect(ui->dsbDiscount, &QDoubleSpinBox::editingFinished, this, &ReceiptPane::discountTyped);
    // The mouse means the row that is seen, a key that of the item on its way.
    connect(ui->pbRemove, &QPushButton::clicked, this, [this] {
        const QPersistentModelIndex seen(ui->viewChek->currentIndex());
        removeRow([=] { return seen.row(); });
    });
    connect(ui->pbClear, &QPushButton::clicked, this, &ReceiptPane::clearPressed);
    connect(ui->pbSale, &QPushButton::clicked, this, &ReceiptPane::sellPressed);
}

void ReceiptPane::setMayChange(bool mayChange, const QString &why)
{
    for (QWidget *widget : QVector<QWidget *>{ui->pbRemove, ui->pbClear, ui->dsbDiscount}) {
        widget->setEnabled(mayChange);
        widget->setToolTip(mayChange ? QString() : why);
    }
}

void ReceiptPane::setMaySell(bool maySell)
{
    ui->pbSale->setEnabled(maySell);
}

const Receipt &ReceiptPane::receipt() const
{
    return m_model->receipt();
}

QWidgetList ReceiptPane::fields() const
{
    return {ui->dsbDiscount};
}

void ReceiptPane::showSums()
{
    ui->dsbSum->setKopecks(receipt().total());
    if (!isDiscountBegun())
        showDiscount();
    ui->lbToPay->setText(moneyShown(receipt().toPay()));
}

int ReceiptPane::currentRow() const
{
    return ui->viewChek->currentIndex().row();
}

void ReceiptPane::goToRow(int row)
{
    ui->viewChek->setCurrentIndex(m_model->index(row, ReceiptModel::Quantity));
}

bool ReceiptPane::add(const ReceiptRow &row)
{
    m_model->add(row);
    const int last = m_model->rowCount() - 1;
    goToRow(last);
    if (!receipt().exceedsStock(last) || confirmStock())
        return true;
    m_model->remove(last);
    return false;
}

void ReceiptPane::clear()
{
    m_typed.reset();
    m_model->clear();
    showDiscount();
}

bool ReceiptPane::confirmStock()
{
    const bool isAgreed =
        QMessDlg::confirm(this, tr("Попередження!"), tr("Не достатньо товару для продажу!"), tr("Продати"));
    emit left();
    return isAgreed;
}

bool ReceiptPane::settle()
{
    const bool isCounted = settleQuantity();
    return settleDiscount() && isCounted;
}

bool ReceiptPane::settleQuantity()
{
    m_quantity->commit();
    if (!m_typed)
        return true;
    const TypedQuantity typed = *m_typed;
    m_typed.reset();
    return changeQuantity(typed.row, typed.text);
}

bool ReceiptPane::settleDiscount()
{
    ui->dsbDiscount->interpretText();
    if (!ui->dsbDiscount->isReadable()) {
        emit told(ui->dsbDiscount->refusal());
        ui->dsbDiscount->setFocus();
        return false;
    }
    discountTyped();
    return true;
}

/// What somebody types there is not covered by a receipt that changes meanwhile.
bool ReceiptPane::isDiscountBegun() const
{
    return ui->dsbDiscount->text() != moneyText(m_shownDiscount);
}

void ReceiptPane::showDiscount()
{
    const QSignalBlocker hold(ui->dsbDiscount);
    m_shownDiscount = receipt().discount();
    ui->dsbDiscount->setKopecks(m_shownDiscount);
}

/// What was typed before it counts first; what cannot be read stays where it is.
void ReceiptPane::discountTyped()
{
    settleQuantity();
    if (!isDiscountBegun() || !ui->dsbDiscount->isReadable())
        return;
    emit told(QString());
    setDiscount(ui->dsbDiscount->kopecks());
    showDiscount();
}

void ReceiptPane::setDiscount(qint64 kopecks)
{
    if (kopecks != receipt().discount() && m_mayChange([=] { setDiscount(kopecks); }) && !receipt().isEmpty())
        m_model->setDiscount(kopecks);
}

/// False, with the reason told, when it stays as it was.
bool ReceiptPane::changeQuantity(int row, const QString &text)
{
    qint64 quantity = 0;
    if (row >= m_model->rowCount() || text.isEmpty())
        return true;
    if (thousandthsFromText(text, &quantity))
        return setQuantity(row, quantity);
    emit told(tr("«%1» не є кількістю.").arg(text));
    return false;
}

bool ReceiptPane::setQuantity(int row, qint64 thousandths)
{
    emit told(QString());
    if (!m_mayChange([=] { setQuantity(row, thousandths); }))
        return false;
    const ReceiptRow &before = receipt().rows().at(row);
    const qint64 old = before.quantity;
    if (thousandths <= 0 || (before.isPiece() && thousandths % one != 0)) {
        emit told(before.isPiece() ? tr("Кількість штучного товару — ціле число від 1.")
                                   : tr("Кількість повинна бути більша за нуль."));
        return false;
    }
    m_model->setQuantity(row, thousandths);
    if (thousandths > old && receipt().exceedsStock(row) && !confirmStock()) {
        m_model->setQuantity(row, old);
        return false;
    }
    return true;
}

void ReceiptPane::stepQuantity(qint64 thousandths)
{
    if (!settle())
        return;
    m_whenThere([=] {
        const int row = currentRow();
        if (row >= 0)
            setQuantity(row, receipt().rows().at(row).quantity + thousandths);
    });
}

void ReceiptPane::editQuantity(const QString &text)
{
    settle();
    m_whenThere([=] {
        const int row = currentRow();
        if (row < 0 || !m_mayChange([=] { editQuantity(text); }))
            return;
        ui->viewChek->setFocus();
        goToRow(row);
        ui->viewChek->edit(ui->viewChek->currentIndex());
        m_quantity->type(text);
    });
}

/// What was typed into the row goes with it.
void ReceiptPane::removeRow(const std::function<int()> &which)
{
    emit told(QString());
    m_quantity->drop();
    m_typed.reset();
    if (settle())
        m_whenThere([=] { removeRow(which()); });
    emit left();
}

void ReceiptPane::removeRow(int row)
{
    if (row < 0 || !m_mayChange([=] { removeRow(row); }))
        return;
    m_model->remove(row);
    goToRow(qMin(row, m_model->rowCount() - 1));
}

bool ReceiptPane::rowKey(const QKeyEvent *key)
{
    switch (key->key()) {
    case Qt::Key_Plus:
        stepQuantity(one);
        return true;
    case Qt::Key_Minus:
        stepQuantity(-one);
        return true;
    case Qt::Key_Asterisk:
    case Qt::Key_F2:
        editQuantity();
        return true;
    case Qt::Key_Delete:
        removeRow([this] { return currentRow(); });
        return true;
    default:
        return false;
    }
}

bool ReceiptPane::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == QEvent::KeyPress ? gridKey(static_cast<QKeyEvent *>(event))
                                             : QWidget::eventFilter(watched, event);
}

bool ReceiptPane::gridKey(const QKeyEvent *key)
{
    if (rowKey(key))
        return true;
    if (isEnterKey(key)) {
        emit left();
        return true;
    }
    if (!isTypedKey(key))
        return false;
    // What is typed next begins a new quantity.
    if (currentRow() >= 0 && key->text().at(0).isDigit())
        editQuantity(key->text());
    else
        emit typed(key->text());
    return true;
}
