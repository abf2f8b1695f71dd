// Filling the receipt: the search field, the two grids and their keys.

#include "qregistersale.h"
#include "ui_qregistersale.h"

#include "money.h"
#include "qmessevent.h"
#include "qrowmodel.h"
#include "quantitydelegate.h"
#include "queryservice.h"
#include "receiptmodel.h"
#include "saleclock.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QSqlRecord>

namespace {
constexpr qint64 one = 1000;

bool isEnter(const QKeyEvent *key)
{
    return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

bool isTyped(const QKeyEvent *key)
{
    return !key->text().isEmpty() && key->text().at(0).isPrint() &&
           (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
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
    search.idShop = ui->place->place().shop.toUInt();
    search.mode = m_mode;
    search.by = by;
    search.text = text;
    search.priority = ui->place->priority();
    search.time = SaleClock::at(ui->place->chosenDate());
    search.limit = ui->sbLimit->value();
    return search;
}

void QRegisterSale::seerch(const QString &text)
{
    settleSearch();
    loadList(text);
}

void QRegisterSale::loadList(const QString &text)
{
    m_searchDelay.stop();
    ui->place->followToday();
    const auto by = ui->rbName->isChecked() ? GoodsSearch::Name : GoodsSearch::Barcode;
    ui->viewGoods->setEmptyText(tr("Пошук…"));
    m_queries->ask({goodsListSql(goodsSearch(by, text.trimmed()))});
}

void QRegisterSale::showFound(const std::shared_ptr<QueryAnswer> &found)
{
    if (!found->error.isEmpty()) {
        postMessage(m_receiver, tr("Помилка запиту:") + QLatin1Char('\n') + found->error, found->kind);
        m_goods->removeRows(0, m_goods->rowCount());
        ui->viewGoods->setEmptyText(tr("Список не прочитано: сервер відповів помилкою."));
        if (m_waited)
            notAdded(tr("Товар «%1» не додано: сервер не відповів.").arg(*m_waited));
        m_waited.reset();
        emit answered();
        return;
    }
    const int count = found->results.front().rowCount();
    m_goods->replaceRows(std::move(found->results.front()));
    const QHeaderView *header = ui->viewGoods->horizontalHeader();
    if (header->sortIndicatorSection() >= 0)
        m_goods->sort(header->sortIndicatorSection(), header->sortIndicatorOrder());
    ui->viewGoods->setEmptyText(ui->leSearch->text().isEmpty() ? tr("У магазині немає товарів для продажу.")
                                                               : tr("За цими умовами нічого не знайдено."));
    if (m_waited)
        answerEnter(count);
    emit answered();
}

/// A whole barcode is looked up at once; anything else waits for the list.
void QRegisterSale::enter()
{
    notify(QString());
    ui->place->followToday();
    const QString text = ui->leSearch->text().trimmed();
    if (text.isEmpty() || m_waited == text)
        return;
    m_asked = text;
    settleSearch();
    if (isScanned(text) && addScanned(text))
        return;
    if (m_isTakingScans)
        notAdded(tr("Товар «%1» не знайдено.").arg(text));
    else
        m_waited = text;
    loadList(text);
}

/// What was typed after Enter stays.
void QRegisterSale::answerEnter(int count)
{
    const QString waited = *m_waited;
    m_waited.reset();
    const QString text = ui->leSearch->text();
    const bool isSame = text.trimmed() == waited;
    if (count == 1) {
        addListed(0);
        if (!isSame)
            ui->leSearch->setText(text);
        return;
    }
    const QString why =
        count == 0 ? tr("Товар «%1» не знайдено.").arg(waited)
                   : tr("За «%1» знайдено кілька товарів: виберіть потрібний і натисніть Enter.").arg(waited);
    isScanned(waited) || !isSame ? notAdded(why) : notify(why);
    if (!isSame)
        return;
    if (count == 0)
        return ui->leSearch->selectAll();
    ui->viewGoods->setCurrentIndex(m_goods->index(0, GoodsColumn::Name));
    ui->viewGoods->setFocus();
}

/// True when the barcode is known, or the server did not tell.
bool QRegisterSale::addScanned(const QString &barcode)
{
    auto query = db().run(goodsListSql(goodsSearch(GoodsSearch::ExactBarcode, barcode)));
    if (!query) {
        notAdded(tr("Товар «%1» не додано: сервер не відповів.").arg(barcode));
        return true;
    }
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
    return confirm(tr("Попередження!"), tr("Не достатньо товару для продажу!"), tr("Продати"));
}

/// False, with the reason shown, when it stays as it was.
bool QRegisterSale::changeQuantity(int row, const QString &text)
{
    qint64 quantity = 0;
    if (row >= m_chek->rowCount() || text.isEmpty())
        return true;
    if (thousandthsFromText(text, &quantity))
        return setQuantity(row, quantity);
    notify(tr("«%1» не є кількістю.").arg(text));
    return false;
}

bool QRegisterSale::setQuantity(int row, qint64 thousandths)
{
    notify(QString());
    if (!mayChange())
        return false;
    const ReceiptRow &before = m_chek->receipt().rows().at(row);
    const qint64 old = before.quantity;
    if (thousandths <= 0 || (before.isPiece() && thousandths % one != 0)) {
        notify(before.isPiece() ? tr("Кількість штучного товару — ціле число від 1.")
                                : tr("Кількість повинна бути більша за нуль."));
        return false;
    }
    m_chek->setQuantity(row, thousandths);
    if (thousandths > old && m_chek->receipt().exceedsStock(row) && !confirmStock()) {
        m_chek->setQuantity(row, old);
        return false;
    }
    return true;
}

void QRegisterSale::stepQuantity(qint64 thousandths)
{
    const int row = ui->viewChek->currentIndex().row();
    if (row >= 0 && settle())
        setQuantity(row, m_chek->receipt().rows().at(row).quantity + thousandths);
}

void QRegisterSale::editQuantity(const QString &text)
{
    settle();
    const int row = ui->viewChek->currentIndex().row();
    if (row < 0 || !mayChange())
        return;
    ui->viewChek->setFocus();
    ui->viewChek->setCurrentIndex(m_chek->index(row, ReceiptModel::Quantity));
    ui->viewChek->edit(ui->viewChek->currentIndex());
    m_quantity->type(text);
}

/// What was typed into the row goes with it.
void QRegisterSale::removeRow()
{
    notify(QString());
    m_quantity->drop();
    m_typed.reset();
    const int row = ui->viewChek->currentIndex().row();
    if (row >= 0 && settle() && mayChange()) {
        m_chek->remove(row);
        ui->viewChek->setCurrentIndex(
            m_chek->index(qMin(row, m_chek->rowCount() - 1), ReceiptModel::Quantity));
    }
    focusSearch();
}

/// What somebody types there is not covered by a receipt that changes meanwhile.
bool QRegisterSale::isDiscountBegun() const
{
    return ui->dsbDiscount->text() != moneyText(m_shownDiscount);
}

void QRegisterSale::showDiscount()
{
    const QSignalBlocker hold(ui->dsbDiscount);
    m_shownDiscount = m_chek->receipt().discount();
    ui->dsbDiscount->setKopecks(m_shownDiscount);
}

/// What was typed before it counts first; what cannot be read stays where it is.
void QRegisterSale::discountTyped()
{
    settleQuantity();
    if (!isDiscountBegun() || !ui->dsbDiscount->isReadable())
        return;
    notify(QString());
    const qint64 typed = ui->dsbDiscount->kopecks();
    if (typed != m_chek->receipt().discount() && mayChange() && !m_chek->receipt().isEmpty())
        m_chek->setDiscount(typed);
    showDiscount();
}

/// First what was told goes, then what is being typed, then the search, then, after a question, the receipt.
void QRegisterSale::escape()
{
    const bool isTold = ui->notice->isKeeping();
    ui->notice->forget();
    notify(QString());
    if (isTold || isDiscountBegun()) {
        showDiscount();
    } else if (!ui->leSearch->text().isEmpty()) {
        dropSearch();
        ui->leSearch->clear();
        seerch(QString());
    } else if (mayChange()) {
        leaveReceipt();
    }
    focusSearch();
}

/// What was scanned while a question was open is taken now.
void QRegisterSale::focusSearch()
{
    ui->leSearch->setFocus();
    ui->leSearch->selectAll();
    if (!m_scans.isEmpty())
        QTimer::singleShot(0, this, &QRegisterSale::takeScans);
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
    for (QNTableView *view : {ui->viewGoods, ui->viewChek}) {
        if (event->type() == QEvent::Resize && watched == view->viewport())
            spreadNames(view);
    }
    if (event->type() != QEvent::KeyPress || watched == ui->viewGoods->viewport() ||
        watched == ui->viewChek->viewport())
        return QWidget::eventFilter(watched, event);
    auto *key = static_cast<QKeyEvent *>(event);
    if (watched == ui->leSearch)
        return searchKey(key);
    if (watched == ui->viewGoods)
        return goodsKey(key);
    const bool isChoice = qobject_cast<const QComboBox *>(watched) != nullptr;
    return watched == ui->viewChek ? chekKey(key) : fieldKey(key, isChoice);
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

/// Whatever is typed there belongs into the search field.
bool QRegisterSale::goodsKey(const QKeyEvent *key)
{
    if (isEnter(key)) {
        addListed(ui->viewGoods->currentIndex().row());
        return true;
    }
    const bool isAbove = key->key() == Qt::Key_Up && ui->viewGoods->currentIndex().row() <= 0;
    if (isAbove)
        focusSearch();
    else if (isTyped(key))
        typeIntoSearch(key);
    return isAbove || isTyped(key);
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
    if (!isTyped(key))
        return false;
    // What is typed next begins a new quantity.
    if (current.isValid() && key->text().at(0).isDigit())
        editQuantity(key->text());
    else
        typeIntoSearch(key);
    return true;
}

/// The fields above and below the grids: Enter leads back; a box of choices takes no digits.
bool QRegisterSale::fieldKey(const QKeyEvent *key, bool isChoice)
{
    if (isEnter(key) && !isChoice)
        QTimer::singleShot(0, this, &QRegisterSale::focusSearch);
    if (!isChoice || !isTyped(key) || !key->text().at(0).isDigit())
        return false;
    typeIntoSearch(key);
    return true;
}

void QRegisterSale::typeIntoSearch(const QKeyEvent *key)
{
    focusSearch();
    ui->leSearch->insert(key->text());
}

/// What no editor has taken.
void QRegisterSale::keyPressEvent(QKeyEvent *event)
{
    if (isTyped(event) && !ui->leSearch->hasFocus())
        typeIntoSearch(event);
    else
        QWidget::keyPressEvent(event);
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
