#include "salepricequestion.h"

#include "goodspicker.h"
#include "heldacts.h"
#include "qntableview.h"
#include "qwhyprice.h"
#include "receiptpane.h"
#include "salework.h"
#include "whypriceoffer.h"

#include <QLineEdit>
#include <QShortcut>

SalePriceQuestion::SalePriceQuestion(SaleWork *work, HeldActs *acts, const GoodsPicker *goods,
                                     const ReceiptPane *receipt, const Scope &scope)
    : QObject(work->tab())
    , m_work(work)
    , m_acts(acts)
    , m_goods(goods)
    , m_receipt(receipt)
    , m_grid(receipt->findChild<QNTableView *>(QStringLiteral("viewChek")))
    , m_scope(scope)
{
    auto *key = new QShortcut(whyPriceKey, work->tab(), nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    key->setWhatsThis(whyPriceWords());
    connect(key, &QShortcut::activated, this, &SalePriceQuestion::askWhenThere);
    addWhyPriceMenu(goods->view(), [this](int) { askListed(); });
    addWhyPriceMenu(m_grid, [this](int) { askReceipt(); });
}

/// The key right behind a scan means the item of the scan.
void SalePriceQuestion::askWhenThere()
{
    if (m_work->isFree())
        m_acts->then([this](bool) { askChosen(); });
}

/// From the search field: while something is searched for, of what was found, else of the receipt.
void SalePriceQuestion::askChosen()
{
    const bool isInList = m_goods->view()->hasFocus() || m_goods->hasText();
    if (m_grid->isVisible() && m_grid->currentIndex().isValid() && (m_grid->hasFocus() || !isInList))
        askReceipt();
    else
        askListed();
}

void SalePriceQuestion::askListed()
{
    if (const auto item = m_goods->current())
        open(*item, false);
    else
        m_work->tell(tr("Виберіть товар у списку або рядок чека, щоб побачити, чому така ціна."));
}

void SalePriceQuestion::askReceipt()
{
    open(m_receipt->receipt().rows().at(m_grid->currentIndex().row()), true);
}

void SalePriceQuestion::open(const GoodsItem &item, bool isTaken)
{
    if (!m_work->isFree())
        return;
    m_work->tell(QString());
    const GoodsSearch scope = m_scope();
    PriceQuestion question{item.idGoods, scope.idShop, scope.time, scope.priority, std::nullopt};
    if (isTaken)
        question.taken = item;
    const auto *window =
        QWhyPrice::show(m_work->db(), m_work->user(), m_work->receiver(), question, m_work->tab());
    connect(window, &QDialog::finished, m_work, &SaleWork::left);
}
