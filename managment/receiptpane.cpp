#include "receiptpane.h"
#include "ui_receiptpane.h"

#include "money.h"
#include "qloadeduser.h"
#include "qmessdlg.h"
#include "receiptmodel.h"

namespace {
constexpr qint64 one = 1000;
} // namespace

ReceiptPane::ReceiptPane(QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::ReceiptPane>())
    , m_model(new ReceiptModel(this))
    , m_columns((ui->setupUi(this), ui->viewChek))
{
    ui->viewChek->setModel(m_model);
    m_grid = new QuantityGrid(ui->viewChek, ReceiptModel::Quantity,
                              {[this](int row) { return receipt().rows().at(row).quantity; },
                               [this](int row, qint64 quantity) { return setQuantity(row, quantity); },
                               [this](int row) { m_model->remove(row); }, [this] { return settle(); }});
    ui->viewChek->setEmptyText(tr("Чек порожній. Скануйте товар або знайдіть його та натисніть Enter."));
    ui->lbKeys->setText(tr(
        "+ − * кількість, Delete прибрати рядок, F3 чому така ціна, F9 оплата, F12 закрити зміну, Esc очистити"));
    connectGrid();
    connectFields();
    showSums();
}

ReceiptPane::~ReceiptPane()
{
    // An editor or a field that loses the focus on the way out would still tell of it.
    m_grid->drop();
    const auto parts = findChildren<QObject *>();
    for (const QObject *part : parts)
        part->disconnect(this);
}

void ReceiptPane::setUp(const QLoadedUser *user, const QuantityGrid::MayChange &mayChange,
                        const QuantityGrid::WhenThere &whenThere)
{
    m_mayChange = mayChange;
    m_grid->setUp(mayChange, whenThere);
    m_columns.set(ReceiptModel::columns(), user->idUser(), QStringLiteral("QRegisterSale_viewChek"));
}

void ReceiptPane::connectGrid()
{
    connect(m_model, &ReceiptModel::receiptChanged, this, &ReceiptPane::showSums);
    connect(m_model, &ReceiptModel::quantityTyped, m_grid, &QuantityGrid::typed);
    connect(m_grid, &QuantityGrid::told, this, &ReceiptPane::told);
    connect(m_grid, &QuantityGrid::lettersTyped, this, &ReceiptPane::typed);
    connect(m_grid, &QuantityGrid::left, this, &ReceiptPane::left);
}

void ReceiptPane::connectFields()
{
    connect(ui->dsbDiscount, &QDoubleSpinBox::editingFinished, this, &ReceiptPane::discountTyped);
    // The mouse means the row that is seen, a key that of the item on its way.
    connect(ui->pbRemove, &QPushButton::clicked, this, [this] {
        const QPersistentModelIndex seen(ui->viewChek->currentIndex());
        m_grid->remove([=] { return seen.row(); });
    });
    connect(ui->pbClear, &QPushButton::clicked, this, &ReceiptPane::clearPressed);
    connect(ui->pbServiceCash, &QPushButton::clicked, this, &ReceiptPane::cashPressed);
    connect(ui->pbSale, &QPushButton::clicked, this, &ReceiptPane::sellPressed);
}

void ReceiptPane::setMayChange(bool mayChange, const QString &why)
{
    for (QWidget *widget :
         QVector<QWidget *>{ui->pbRemove, ui->pbClear, ui->pbServiceCash, ui->dsbDiscount}) {
        widget->setEnabled(mayChange);
        widget->setToolTip(mayChange ? QString() : why);
    }
    if (mayChange)
        ui->pbServiceCash->setToolTip(tr("Службове внесення та вилучення, Shift+F9"));
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

bool ReceiptPane::add(const ReceiptRow &row)
{
    m_model->add(row);
    const int last = m_model->rowCount() - 1;
    m_grid->goToRow(last);
    if (!receipt().exceedsStock(last) || confirmStock())
        return true;
    m_model->remove(last);
    return false;
}

void ReceiptPane::clear()
{
    m_grid->forget();
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
    const bool isCounted = m_grid->settle();
    return settleDiscount() && isCounted;
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
    m_grid->settle();
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

bool ReceiptPane::setQuantity(int row, qint64 thousandths)
{
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
