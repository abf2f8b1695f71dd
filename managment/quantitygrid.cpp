#include "quantitygrid.h"

#include "money.h"
#include "qntableview.h"
#include "quantitydelegate.h"
#include "salekeys.h"

#include <QApplication>
#include <QHeaderView>
#include <QTimer>

namespace {
constexpr qint64 one = 1000;
} // namespace

QuantityGrid::QuantityGrid(QNTableView *view, int quantityColumn, const Rows &rows)
    : QObject(view)
    , m_view(view)
    , m_column(quantityColumn)
    , m_rows(rows)
    , m_delegate(new QuantityDelegate(this))
{
    view->setItemDelegate(m_delegate);
    view->setSelectionMode(QAbstractItemView::SingleSelection);
    view->setEditTriggers(QAbstractItemView::DoubleClicked);
    view->installEventFilter(this);
    connect(m_delegate, &QuantityDelegate::closeEditor, this, [this] {
        if (QApplication::focusWidget() == m_view)
            emit left();
    });
    connect(view->horizontalHeader(), &QHeaderView::sectionClicked, this, &QuantityGrid::left);
}

void QuantityGrid::setUp(const MayChange &mayChange, const WhenThere &whenThere)
{
    m_mayChange = mayChange;
    m_whenThere = whenThere;
}

void QuantityGrid::allowNegative()
{
    m_delegate->allowNegative();
}

void QuantityGrid::typed(int row, const QString &text)
{
    m_typed = Typed{row, text};
    // After the cell's editor is gone: the change may ask.
    QTimer::singleShot(0, this, &QuantityGrid::settle);
}

bool QuantityGrid::settle()
{
    m_delegate->commit();
    if (!m_typed)
        return true;
    const Typed typed = *m_typed;
    m_typed.reset();
    return change(typed.row, typed.text);
}

void QuantityGrid::drop()
{
    m_delegate->drop();
    m_typed.reset();
}

int QuantityGrid::currentRow() const
{
    return m_view->currentIndex().row();
}

void QuantityGrid::goToRow(int row)
{
    m_view->setCurrentIndex(m_view->model()->index(row, m_column));
}

/// False, with the reason told, when it stays as it was.
bool QuantityGrid::change(int row, const QString &text)
{
    qint64 quantity = 0;
    if (row >= m_view->model()->rowCount() || text.isEmpty())
        return true;
    if (thousandthsFromText(text, &quantity))
        return setQuantity(row, quantity);
    emit told(tr("«%1» не є кількістю.").arg(text));
    return false;
}

bool QuantityGrid::setQuantity(int row, qint64 thousandths)
{
    emit told(QString());
    return m_mayChange([=] { setQuantity(row, thousandths); }) && m_rows.setQuantity(row, thousandths);
}

void QuantityGrid::step(qint64 thousandths)
{
    if (!m_rows.settleAll())
        return;
    m_whenThere([=] {
        const int row = currentRow();
        if (row < 0)
            return;
        // No step turns what comes into what goes.
        const qint64 before = m_rows.quantity(row);
        setQuantity(row, before > 0 ? qMax<qint64>(before + thousandths, 0) : before + thousandths);
    });
}

void QuantityGrid::editCurrent(const QString &text)
{
    m_rows.settleAll();
    m_whenThere([=] {
        const int row = currentRow();
        if (row >= 0 && m_mayChange([=] { editCurrent(text); }))
            edit(row, text);
    });
}

void QuantityGrid::edit(int row, const QString &text)
{
    m_view->setFocus();
    goToRow(row);
    m_view->edit(m_view->currentIndex());
    m_delegate->type(text);
}

/// What was typed into the row goes with it.
void QuantityGrid::remove(const std::function<int()> &which)
{
    emit told(QString());
    drop();
    if (m_rows.settleAll())
        m_whenThere([=] { removeRow(which()); });
    emit left();
}

void QuantityGrid::removeRow(int row)
{
    if (row < 0 || !m_mayChange([=] { removeRow(row); }))
        return;
    m_rows.remove(row);
    goToRow(qMin(row, m_view->model()->rowCount() - 1));
}

const QVector<QuantityGrid::RowKey> &QuantityGrid::rowKeys()
{
    static const QVector<RowKey> keys = {
        {Qt::Key_Plus, QT_TR_NOOP("Одиницею товару більше"), [](QuantityGrid *grid) { grid->step(one); }},
        {Qt::Key_Minus, QT_TR_NOOP("Одиницею товару менше"), [](QuantityGrid *grid) { grid->step(-one); }},
        {Qt::Key_Asterisk, QT_TR_NOOP("Змінити кількість"), [](QuantityGrid *grid) { grid->editCurrent(); }},
        {Qt::Key_F2, QT_TR_NOOP("Змінити кількість"), [](QuantityGrid *grid) { grid->editCurrent(); }},
        {Qt::Key_Delete, QT_TR_NOOP("Прибрати рядок товару"),
         [](QuantityGrid *grid) { grid->remove([grid] { return grid->currentRow(); }); }},
    };
    return keys;
}

bool QuantityGrid::rowKey(const QKeyEvent *key)
{
    for (const RowKey &each : rowKeys()) {
        if (each.key == key->key()) {
            each.act(this);
            return true;
        }
    }
    return false;
}

QVector<ToldKey> QuantityGrid::toldKeys() const
{
    QVector<ToldKey> told;
    for (const RowKey &each : rowKeys())
        told.append({{each.key}, tr(each.words)});
    return told;
}

bool QuantityGrid::eventFilter(QObject *watched, QEvent *event)
{
    return event->type() == QEvent::KeyPress ? gridKey(static_cast<QKeyEvent *>(event))
                                             : QObject::eventFilter(watched, event);
}

bool QuantityGrid::gridKey(const QKeyEvent *key)
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
        editCurrent(key->text());
    else
        emit lettersTyped(key->text());
    return true;
}
