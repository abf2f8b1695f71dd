// Filling the receipt: the search field, the two grids and their keys.

#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "listloader.h"
#include "money.h"
#include "qmessevent.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "receiptmodel.h"
#include "saleclock.h"

#include <QKeyEvent>
#include <QSqlRecord>

namespace {
constexpr qint64 one = 1000;

bool isEnter(const QKeyEvent *key)
{
    return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

bool isScanned(const QString &text)
{
    return text.size() >= 8 && std::all_of(text.begin(), text.end(), [](QChar c) {
               return c >= QLatin1Char('0') && c <= QLatin1Char('9');
           });
}
} // namespace

GoodsSearch QRegisterSale::goodsSearch(GoodsSearch::By by, const QString &text) const
{
    GoodsSearch search;
    search.idShop = idShop();
    search.mode = m_mode;
    search.by = by;
    search.text = text;
    search.priority = ui->sbPriority->value();
    search.time = SaleClock::at(chosenDate());
    search.limit = ui->sbLimit->value();
    return search;
}

void QRegisterSale::seerch(const QString &text)
{
    m_searchDelay.stop();
    followToday();
    const auto by = ui->rbName->isChecked() ? GoodsSearch::Name : GoodsSearch::Barcode;
    ui->viewGoods->setEmptyText(tr("Пошук…"));
    m_loader->load(goodsListSql(goodsSearch(by, text.trimmed())), QString());
}

void QRegisterSale::showFound(const std::shared_ptr<FoundRows> &found)
{
    const int count = found->rows.rowCount();
    if (!found->error.isEmpty()) {
        postMessage(m_receiver, tr("Помилка запиту:") + QLatin1Char('\n') + found->error);
        m_goods->removeRows(0, m_goods->rowCount());
        ui->viewGoods->setEmptyText(tr("Список не прочитано: сервер відповів помилкою."));
        m_isEnterWaiting = false;
        return;
    }
    m_goods->replaceRows(std::move(found->rows));
    const QHeaderView *header = ui->viewGoods->horizontalHeader();
    if (header->sortIndicatorSection() >= 0)
        m_goods->sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
    ui->viewGoods->setEmptyText(ui->leSearch->text().isEmpty() ? tr("У магазині немає товарів для продажу.")
                                                               : tr("За цими умовами нічого не знайдено."));
    if (m_isEnterWaiting)
        answerEnter(count);
}

/// A whole barcode is looked up at once; anything else waits for the list.
void QRegisterSale::enter()
{
    notify(QString());
    followToday();
    const QString text = ui->leSearch->text().trimmed();
    if (text.isEmpty() || (isScanned(text) && addScanned(text)))
        return;
    m_isEnterWaiting = true;
    seerch(text);
}

void QRegisterSale::answerEnter(int count)
{
    m_isEnterWaiting = false;
    if (count == 1)
        return addListed(0);
    if (count == 0) {
        notify(tr("Товар «%1» не знайдено.").arg(ui->leSearch->text()));
        return ui->leSearch->selectAll();
    }
    ui->viewGoods->setCurrentIndex(m_goods->index(0, GoodsColumn::Name));
    ui->viewGoods->setFocus();
}

/// True when the barcode is known, or the server did not tell.
bool QRegisterSale::addScanned(const QString &barcode)
{
    auto query = db().run(goodsListSql(goodsSearch(GoodsSearch::ExactBarcode, barcode)));
    if (!query)
        return true;
    if (!query->next())
        return false;
    QStringList cells;
    for (int i = 0; i < GoodsColumn::Count; ++i)
        cells.append(toText(query->value(i)));
    addGoods(receiptRow(cells));
    return true;
}

void QRegisterSale::addListed(int row)
{
    if (row < 0 || row >= m_goods->rowCount())
        return;
    QStringList cells;
    for (int i = 0; i < GoodsColumn::Count; ++i)
        cells.append(m_goods->stored(row, i));
    addGoods(receiptRow(cells));
}

void QRegisterSale::addGoods(const ReceiptRow &row)
{
    notify(QString());
    if (!mayChange())
        return focusSearch();
    if (!row.hasPrice) {
        notify(tr("Товар «%1» не має ціни.").arg(row.name));
        return focusSearch();
    }
    m_chek->add(row);
    const int last = m_chek->rowCount() - 1;
    ui->viewChek->setCurrentIndex(m_chek->index(last, ReceiptModel::Quantity));
    if (m_chek->receipt().exceedsStock(last) && !confirmStock())
        m_chek->remove(last);
    ui->leSearch->clear();
    focusSearch();
}

bool QRegisterSale::confirmStock()
{
    return QQestion::question(this, tr("Попередження!"), tr("Не достатньо товару для продажу!")) ==
           QDialog::Accepted;
}

void QRegisterSale::changeQuantity(int row, const QString &text)
{
    qint64 quantity = 0;
    if (row >= m_chek->rowCount())
        return;
    if (thousandthsFromText(text, &quantity))
        setQuantity(row, quantity);
    else
        notify(tr("«%1» не є кількістю.").arg(text));
}

void QRegisterSale::setQuantity(int row, qint64 thousandths)
{
    notify(QString());
    if (!mayChange())
        return;
    const ReceiptRow &before = m_chek->receipt().rows().at(row);
    const qint64 old = before.quantity;
    if (thousandths <= 0 || (before.isPiece() && thousandths % one != 0))
        return notify(before.isPiece() ? tr("Кількість штучного товару — ціле число від 1.")
                                       : tr("Кількість повинна бути більша за нуль."));
    m_chek->setQuantity(row, thousandths);
    if (thousandths > old && m_chek->receipt().exceedsStock(row) && !confirmStock())
        m_chek->setQuantity(row, old);
}

void QRegisterSale::stepQuantity(qint64 thousandths)
{
    const int row = ui->viewChek->currentIndex().row();
    if (row >= 0)
        setQuantity(row, m_chek->receipt().rows().at(row).quantity + thousandths);
}

void QRegisterSale::editQuantity()
{
    const int row = ui->viewChek->currentIndex().row();
    if (row < 0 || !mayChange())
        return;
    ui->viewChek->setFocus();
    ui->viewChek->setCurrentIndex(m_chek->index(row, ReceiptModel::Quantity));
    ui->viewChek->edit(ui->viewChek->currentIndex());
}

void QRegisterSale::removeRow()
{
    notify(QString());
    const int row = ui->viewChek->currentIndex().row();
    if (row >= 0 && mayChange()) {
        m_chek->remove(row);
        ui->viewChek->setCurrentIndex(
            m_chek->index(qMin(row, m_chek->rowCount() - 1), ReceiptModel::Quantity));
    }
    focusSearch();
}

void QRegisterSale::discountTyped()
{
    if (ui->dsbDiscount->kopecks() == m_chek->receipt().discount())
        return;
    notify(QString());
    if (mayChange() && !m_chek->receipt().isEmpty())
        m_chek->setDiscount(ui->dsbDiscount->kopecks());
    showReceipt();
}

/// First the search goes, then, after a question, the receipt.
void QRegisterSale::escape()
{
    notify(QString());
    if (!ui->leSearch->text().isEmpty()) {
        ui->leSearch->clear();
        seerch(QString());
    } else if (mayChange()) {
        leaveReceipt();
    }
    focusSearch();
}

void QRegisterSale::focusSearch()
{
    ui->leSearch->setFocus();
    ui->leSearch->selectAll();
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

bool QRegisterSale::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (watched == ui->leSearch)
        return searchKey(key);
    return watched == ui->viewGoods ? goodsKey(key) : chekKey(key);
}

bool QRegisterSale::searchKey(const QKeyEvent *key)
{
    if (isEnter(key)) {
        enter();
        return true;
    }
    if (key->key() == Qt::Key_Down && m_goods->rowCount() > 0) {
        ui->viewGoods->setCurrentIndex(m_goods->index(0, GoodsColumn::Name));
        ui->viewGoods->setFocus();
        return true;
    }
    return ui->leSearch->text().isEmpty() && quantityKey(key);
}

/// Whatever is typed or scanned there belongs into the search field.
bool QRegisterSale::goodsKey(QKeyEvent *key)
{
    if (isEnter(key)) {
        addListed(ui->viewGoods->currentIndex().row());
        return true;
    }
    const bool isAbove = key->key() == Qt::Key_Up && ui->viewGoods->currentIndex().row() <= 0;
    const bool isTyped = !key->text().isEmpty() && key->text().at(0).isPrint() &&
                         (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
    if (isAbove || isTyped)
        focusSearch();
    if (isTyped)
        QCoreApplication::sendEvent(ui->leSearch, key);
    return isAbove || isTyped;
}

bool QRegisterSale::chekKey(const QKeyEvent *key)
{
    if (quantityKey(key))
        return true;
    const QModelIndex current = ui->viewChek->currentIndex();
    if (isEnter(key)) {
        focusSearch();
        return true;
    }
    // What is typed next begins a new quantity.
    if (current.isValid() && !key->text().isEmpty() && key->text().at(0).isDigit())
        ui->viewChek->setCurrentIndex(m_chek->index(current.row(), ReceiptModel::Quantity));
    return false;
}

bool QRegisterSale::quantityKey(const QKeyEvent *key)
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
        removeRow();
        return true;
    default:
        return false;
    }
}
