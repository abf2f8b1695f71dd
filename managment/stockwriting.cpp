#include "stockwriting.h"

#include "dbtasks.h"
#include "placebar.h"
#include "qmessevent.h"
#include "stockpane.h"

namespace {
StockMode::Writing usualWriting()
{
    const auto writer = [](const Db &db, const SaleWork::Caller &caller, const StockOrder &order) {
        return StockWriter(db, order.place, caller.file, caller.line);
    };
    return {[=](const Db &db, const SaleWork::Caller &caller, const StockOrder &order) {
                return writer(db, caller, order).write(order);
            },
            [=](const Db &db, const SaleWork::Caller &caller, const StockOrder &order,
                const WrittenChek &chek) { return writer(db, caller, order).isWritten(order, chek); }};
}
} // namespace

StockWriting::StockWriting(SaleWork *work, PlaceBar *place)
    : QObject(work->tab()), m_work(work), m_place(place), m_tasks(work->makeTasks(this))
{
}

/// Why this document cannot be written here, as far as nobody has to be asked; empty when it can.
QString StockWriting::refusal(StockPane *pane) const
{
    const bool needsRegister = pane->mode().needsRegister;
    if (needsRegister && m_place->isReading())
        return tr("Магазини й каси ще читаються. Запишіть документ ще раз.");
    if (needsRegister && !m_place->isChosen())
        return tr("Виберіть магазин і касу.");
    if (needsRegister && m_place->isClosingOnly())
        return tr("Магазин або касу заблоковано: тут можна лише закрити зміну.");
    if (pane->document().isEmpty())
        return tr("У документі немає товарів.");
    if (pane->askUntold())
        return tr("Не всі кількості введено. Введіть кількість цього товару або видаліть рядок.");
    for (const StockRow &row : pane->document().rows()) {
        const QString why = StockDocument::quantityRefusal(row, row.quantity, pane->mode().mayBeNegative);
        if (!why.isEmpty())
            return QStringLiteral("«%1»: %2").arg(row.name, why);
    }
    return pane->mode().refusal ? pane->mode().refusal(pane->document()) : QString();
}

void StockWriting::write(StockPane *pane)
{
    const QString why = refusal(pane);
    m_work->tell(why);
    if (!why.isEmpty() || !m_work->mayEdit())
        return;
    m_place->followToday();
    StockOrder order;
    order.place = m_place->place();
    order.move = pane->move();
    order.document = pane->document();
    if (pane->mode().needsRegister)
        order.date = m_place->chosenDate();
    // The right may go while the question is open.
    if (m_work->agreeDate(tr("Дата документа"), order.date) && m_work->mayEdit())
        send(pane, order, pane->mode().writing ? pane->mode().writing() : usualWriting());
}

void StockWriting::send(StockPane *pane, const StockOrder &order, const StockMode::Writing &writing)
{
    m_work->begin(SaleWork::Writing, tr("Записується…"));
    m_tasks->write([order, write = writing.write,
                    caller = m_work->caller()](const Db &db) { return write(db, caller, order); },
                   [this, pane, order, writing](const StockWriter::Result &result) {
                       m_work->end();
                       ended(pane, order, writing, result);
                   });
}

/// What the server has less of is shown; a receipt may go below zero when the user agrees.
void StockWriting::ended(StockPane *pane, const StockOrder &order, const StockMode::Writing &writing,
                         const StockWriter::Result &result)
{
    if (result.outcome == StockWriter::Written)
        return emit written(pane, order, result);
    if (result.outcome == StockWriter::Unclear)
        m_unclear = Unclear{pane, order, writing, result};
    if (!result.lacks.isEmpty()) {
        emit lacking(pane, result.lacks);
        if (agreeLacks(*pane, result.lacks)) {
            if (!m_work->mayEdit())
                return;
            StockOrder again = order;
            for (const StockLack &lack : result.lacks)
                again.agreed.insert(lack.idGoods, lack.count - lack.wanted);
            return send(pane, again, writing);
        }
    }
    tell(result);
}

bool StockWriting::agreeLacks(const StockPane &pane, const StockLacks &lacks)
{
    return pane.mode().mayGoBelow && m_work->mayEdit() &&
           m_work->confirm(tr("Залишок стане меншим за нуль"),
                           lackWords(lacks) + QStringLiteral("\n\n") + tr("Записати документ усе одно?"),
                           tr("Записати"));
}

void StockWriting::tell(const StockWriter::Result &result)
{
    const QString why = StockWriter::explanation(result);
    postMessage(m_work->receiver(), why, QMessEvent::Warning);
    m_work->tell(why);
    if (result.outcome == StockWriter::Busy)
        m_work->warn(tr("Магазин зайнятий!"), why);
}

QString StockWriting::unclearWords() const
{
    return StockWriter::explanation(m_unclear->result);
}

void StockWriting::askUnclear(const std::function<void(std::optional<bool> isWritten)> &then)
{
    m_work->begin(SaleWork::Checking,
                  tr("Документ № %1: запитується сервер…").arg(m_unclear->result.chek.number));
    m_tasks->read(
        [unclear = *m_unclear, caller = m_work->caller()](const Db &db) {
            return unclear.writing.isWritten(db, caller, unclear.order, unclear.result.chek);
        },
        [this, then](std::optional<bool> isWritten) {
            m_work->end();
            if (!isWritten) {
                m_work->tell(unclearWords());
            } else {
                const Unclear known = *m_unclear;
                m_unclear.reset();
                if (*isWritten && known.pane != nullptr)
                    emit written(known.pane, known.order, known.result);
            }
            then(isWritten);
        });
}
