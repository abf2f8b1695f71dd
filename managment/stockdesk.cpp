#include "stockdesk.h"

#include "modebar.h"
#include "placebar.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "stockpane.h"
#include "transferfields.h"

#include <QStackedWidget>

StockDesk::StockDesk(SaleWork *work, PlaceBar *place, ModeBar *bar, QStackedWidget *stack,
                     const QuantityGrid::WhenThere &whenThere)
    : QObject(work->tab())
    , m_work(work)
    , m_bar(bar)
    , m_stack(stack)
    , m_writing(new StockWriting(work, place))
    , m_transfer(new TransferFields(work))
    , m_whenThere(whenThere)
{
    bar->addMode(GoodsSearch::Sale, tr("Продаж F6"));
    for (const StockMode &mode : {receiveMode(), moveMode(), m_transfer->mode()})
        addMode(mode);
    m_transfer->addTo(m_panes.last());
    connect(m_transfer, &TransferFields::fromChanged, this, &StockDesk::ownShopChanged);
    connect(place, &PlaceBar::kassChanged, m_transfer,
            [this, place] { m_transfer->follow(place->place().shop.toUInt()); });
    connect(m_writing, &StockWriting::lacking, this,
            [](StockPane *pane, const StockLacks &lacks) { pane->takeCounts(lacks); });
    connect(m_writing, &StockWriting::written, this,
            [this, place](StockPane *pane, const StockOrder &order, const StockWriter::Result &result) {
                const auto shopOf = [&](const StockPane *each) {
                    return each->mode().mode == GoodsSearch::Transfer ? m_transfer->from()
                                                                      : place->place().shop.toUInt();
                };
                pane->clear();
                for (StockPane *each : m_panes) {
                    if (shopOf(each) == shopOf(pane))
                        each->follow(order);
                }
                emit written(pane, order, result);
            });
}

void StockDesk::addMode(const StockMode &mode)
{
    m_bar->addMode(mode.mode, mode.caption);
    auto *pane = new StockPane(mode, m_work->user(), m_stack);
    m_stack->addWidget(pane);
    m_panes.append(pane);
    pane->setUp([this](const QuantityGrid::Act &again) { return mayChange(again); }, m_whenThere);
    connect(pane, &StockPane::told, m_work, &SaleWork::tell);
    connect(pane, &StockPane::documentChanged, m_bar,
            [this, pane] { m_bar->setCount(pane->mode().mode, pane->document().rows().size()); });
}

StockPane *StockDesk::pane() const
{
    return qobject_cast<StockPane *>(m_stack->currentWidget());
}

DbId StockDesk::ownShop() const
{
    return pane() != nullptr && pane()->mode().mode == GoodsSearch::Transfer ? m_transfer->from() : 0;
}

void StockDesk::show(GoodsSearch::Mode mode)
{
    QWidget *front = m_stack->widget(0);
    for (StockPane *each : m_panes) {
        if (each->mode().mode == mode)
            front = each;
    }
    m_stack->setCurrentWidget(front);
    m_bar->show(mode);
}

bool StockDesk::settle()
{
    return pane() == nullptr || pane()->settle();
}

bool StockDesk::mayChange(const QuantityGrid::Act &again)
{
    if (!m_work->mayEdit() || !m_work->isFree())
        return false;
    if (!isUnclear())
        return true;
    m_writing->askUnclear([again](std::optional<bool> isWritten) {
        if (isWritten == false)
            again();
    });
    return false;
}

bool StockDesk::add(const GoodsItem &item)
{
    if (!mayChange([=] { add(item); }))
        return false;
    pane()->add(item);
    return true;
}

void StockDesk::add(const QVector<StockRow> &rows)
{
    if (mayChange([=] { add(rows); }))
        pane()->add(rows);
}

void StockDesk::write()
{
    StockPane *front = pane();
    if (mayChange([this] { write(); }))
        m_writing->write(front);
}

void StockDesk::askUnclear()
{
    m_writing->askUnclear([](std::optional<bool>) {});
}

bool StockDesk::mayLose()
{
    return pane() == nullptr || mayLose(pane());
}

bool StockDesk::mayLose(StockPane *pane)
{
    if (pane->document().isEmpty())
        return true;
    if (!m_work->confirm(tr("Очистити документ?"),
                         tr("%1: у документі є товари (%2), його ще не записано.\nОчистити його?")
                             .arg(pane->mode().name)
                             .arg(pane->document().rows().size()),
                         tr("Очистити")))
        return false;
    pane->clear();
    return true;
}

bool StockDesk::mayLoseAll()
{
    return mayForgetUnclear() &&
           std::all_of(m_panes.begin(), m_panes.end(), [this](StockPane *each) { return mayLose(each); });
}

/// True when the user does not want to know whether the last document was written.
bool StockDesk::mayForgetUnclear()
{
    if (!isUnclear())
        return true;
    const QString what = m_writing->unclearWords();
    if (!m_work->confirm(tr("Документ"),
                         what + QStringLiteral("\n\n") +
                             tr("Залишити його так? Тоді перевірте документ у звіті «Чеки»."),
                         tr("Залишити")))
        return false;
    postMessage(m_work->receiver(), what, QMessEvent::Warning);
    m_writing->forgetUnclear();
    return true;
}

void StockDesk::setMayChange(bool mayChange, bool mayWrite, const QString &why)
{
    for (StockPane *each : m_panes) {
        each->setMayChange(mayChange, why);
        each->setMayWrite(each->mode().needsRegister ? mayWrite : mayChange);
    }
}
