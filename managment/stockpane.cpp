#include "stockpane.h"
#include "ui_stockpane.h"

#include "money.h"
#include "qloadeduser.h"
#include "stockmodel.h"

#include <QLabel>
#include <QLineEdit>

StockPane::StockPane(const StockMode &mode, const QLoadedUser *user, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::StockPane>())
    , m_mode(mode)
    , m_model(new StockModel(this))
    , m_columns((ui->setupUi(this), ui->viewStock))
{
    setObjectName(QStringLiteral("stock%1").arg(mode.mode));
    setUpGrid(user);
    setUpFields();
    m_model->setMove(move());
    showTotal();
}

StockPane::~StockPane()
{
    // An editor or a field that loses the focus on the way out would still tell of it.
    m_grid->drop();
    const auto parts = findChildren<QObject *>();
    for (const QObject *part : parts)
        part->disconnect(this);
}

void StockPane::setUpGrid(const QLoadedUser *user)
{
    ui->viewStock->setModel(m_model);
    ui->viewStock->setAccessibleName(m_mode.name);
    ui->viewStock->setEmptyText(m_mode.emptyText);
    m_columns.set(StockModel::columns(), user->idUser(), QStringLiteral("QRegisterSale_viewStock"));
    m_grid = new QuantityGrid(ui->viewStock, StockModel::Quantity,
                              {[this](int row) { return document().rows().at(row).quantity; },
                               [this](int row, qint64 quantity) { return setQuantity(row, quantity); },
                               [this](int row) { m_model->remove(row); }, [this] { return settle(); }});
    if (m_mode.mayBeNegative)
        m_grid->allowNegative();
    connect(m_model, &StockModel::documentChanged, this, &StockPane::showTotal);
    connect(m_model, &StockModel::documentChanged, this, &StockPane::documentChanged);
    connect(m_model, &StockModel::quantityTyped, m_grid, &QuantityGrid::typed);
    connect(m_grid, &QuantityGrid::told, this, &StockPane::told);
    connect(m_grid, &QuantityGrid::lettersTyped, this, &StockPane::typed);
    connect(m_grid, &QuantityGrid::left, this, &StockPane::left);
}

void StockPane::setUpFields()
{
    ui->label_cbStockPlace->setText(m_mode.placeCaption);
    ui->cbStockPlace->setAccessibleName(m_mode.placeCaption);
    for (const StockMode::Place &place : m_mode.places)
        ui->cbStockPlace->addItem(place.caption, static_cast<int>(place.place));
    ui->pbWrite->setText(m_mode.writeCaption);
    ui->lbStockKeys->setText(
        m_mode.mayBeNegative ? tr("+ − * кількість (менша за нуль: повернення або списання), Delete прибрати "
                                  "рядок, Ctrl+V таблиця, F9 записати, Esc очистити")
                             : tr("+ − * кількість, Delete прибрати рядок, Ctrl+V таблиця, F9 записати, Esc "
                                  "очистити"));
    connect(ui->cbStockPlace, qOverload<int>(&QComboBox::currentIndexChanged), this,
            [this] { m_model->setMove(move()); });
    connect(ui->cbStockPlace, qOverload<int>(&QComboBox::activated), this, &StockPane::left);
    // The mouse means the row that is seen, a key that of the item on its way.
    connect(ui->pbRemoveStock, &QPushButton::clicked, this, [this] {
        const QPersistentModelIndex seen(ui->viewStock->currentIndex());
        m_grid->remove([=] { return seen.row(); });
    });
    connect(ui->pbClearStock, &QPushButton::clicked, this, &StockPane::clearPressed);
    connect(ui->pbPaste, &QPushButton::clicked, this, &StockPane::pastePressed);
    connect(ui->pbWrite, &QPushButton::clicked, this, &StockPane::writePressed);
}

void StockPane::setUp(const QuantityGrid::MayChange &mayChange, const QuantityGrid::WhenThere &whenThere)
{
    m_grid->setUp(mayChange, whenThere);
}

void StockPane::setMayChange(bool mayChange, const QString &why)
{
    for (QWidget *widget : QVector<QWidget *>{ui->pbRemoveStock, ui->pbClearStock, ui->pbPaste}) {
        widget->setEnabled(mayChange);
        widget->setToolTip(mayChange ? QString() : why);
    }
    if (mayChange)
        ui->pbPaste->setToolTip(QStringLiteral("Ctrl+V"));
}

void StockPane::setMayWrite(bool mayWrite)
{
    ui->pbWrite->setEnabled(mayWrite);
}

const StockDocument &StockPane::document() const
{
    return m_model->document();
}

StockMove StockPane::move() const
{
    return {m_mode.type, static_cast<StockPlace>(ui->cbStockPlace->currentData().toInt())};
}

/// The editor opens at once: keys that wait behind the item are meant for it.
void StockPane::add(const GoodsItem &item)
{
    const int row = m_model->add(item);
    if (item.isPiece())
        m_grid->goToRow(row);
    else
        m_grid->edit(row);
}

void StockPane::add(const QVector<StockRow> &rows)
{
    m_model->add(rows);
    m_grid->goToRow(m_model->rowCount() - 1);
}

void StockPane::clear()
{
    m_grid->forget();
    m_model->clear();
    for (QWidget *field : qAsConst(m_ownFields)) {
        if (auto *typed = qobject_cast<QLineEdit *>(field))
            typed->clear();
    }
}

void StockPane::takeCounts(const StockLacks &lacks)
{
    m_model->takeCounts(lacks);
    const QVector<StockRow> &rows = document().rows();
    const auto lacking = std::find_if(
        rows.begin(), rows.end(), [&](const StockRow &row) { return row.idGoods == lacks.first().idGoods; });
    if (lacking != rows.end())
        m_grid->goToRow(static_cast<int>(lacking - rows.begin()));
}

void StockPane::follow(const StockOrder &written)
{
    m_model->follow(written);
}

bool StockPane::askUntold()
{
    const QVector<StockRow> &rows = document().rows();
    const auto untold =
        std::find_if(rows.begin(), rows.end(), [](const StockRow &row) { return row.quantity == 0; });
    if (untold != rows.end())
        m_grid->edit(static_cast<int>(untold - rows.begin()));
    return untold != rows.end();
}

bool StockPane::settle()
{
    return m_grid->settle();
}

bool StockPane::setQuantity(int row, qint64 thousandths)
{
    const QString why =
        StockDocument::quantityRefusal(document().rows().at(row), thousandths, m_mode.mayBeNegative);
    if (!why.isEmpty()) {
        emit told(why);
        return false;
    }
    m_model->setQuantity(row, thousandths);
    return true;
}

void StockPane::showTotal()
{
    ui->lbStockTotal->setText(
        tr("Позицій: %1, кількість: %2")
            .arg(wholeShown(document().rows().size()), quantityShown(document().total())));
}

QWidgetList StockPane::fields() const
{
    return QWidgetList{ui->cbStockPlace} + m_ownFields;
}

QWidgetList StockPane::tabOrder() const
{
    return QWidgetList{ui->viewStock, ui->pbWrite} + fields() +
           QWidgetList{ui->pbPaste, ui->pbRemoveStock, ui->pbClearStock};
}

void StockPane::addField(const QString &label, QWidget *field)
{
    auto *caption = new QLabel(label, this);
    caption->setBuddy(field);
    m_ownFields.append(field);
    const int behind = ui->placeRow->indexOf(ui->cbStockPlace) + 1;
    ui->placeRow->insertWidget(behind, caption);
    ui->placeRow->insertWidget(behind + 1, field);
}
