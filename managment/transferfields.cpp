#include "transferfields.h"

#include "cheks.h"
#include "dbtasks.h"
#include "invoicewriter.h"
#include "qloadeduser.h"
#include "stockpane.h"
#include "transferplaces.h"

#include <QComboBox>
#include <QLineEdit>
#include <utility>

namespace {
constexpr int longestMessage = 250;

QComboBox *newBox(const char *name, const QString &accessibleName)
{
    auto *box = new QComboBox;
    box->setObjectName(QLatin1String(name));
    box->setAccessibleName(accessibleName);
    keepNarrow(box, 10);
    QSizePolicy wide(QSizePolicy::Expanding, QSizePolicy::Fixed);
    wide.setHorizontalStretch(2);
    box->setSizePolicy(wide);
    return box;
}

StockWriter::Outcome outcomeOf(InvoiceResult::Outcome outcome)
{
    switch (outcome) {
    case InvoiceResult::Written:
        return StockWriter::Written;
    case InvoiceResult::Locked:
        return StockWriter::Locked;
    case InvoiceResult::Unclear:
        return StockWriter::Unclear;
    case InvoiceResult::Failed:
        return StockWriter::Failed;
    case InvoiceResult::Refused:
    case InvoiceResult::Closed:
    case InvoiceResult::Short:
        break;
    }
    return StockWriter::Refused;
}

/// The same in the words of a document of goods, whose number is that of the invoice.
StockWriter::Result resultOf(const InvoiceResult &sent, StockPlace place)
{
    StockWriter::Result result;
    result.outcome = outcomeOf(sent.outcome);
    result.chek.number = static_cast<int>(sent.mark.invoice);
    result.chek.time = sent.mark.time;
    result.chek.place.user = QString::number(sent.mark.user);
    result.why = sent.why;
    for (const Shortage &item : sent.shortages)
        result.lacks.append({item.goods, item.name, place, item.stock, item.quantity});
    if (!result.lacks.isEmpty())
        result.why = TransferFields::tr("Товару не вистачає:") + QLatin1Char('\n') + lackWords(result.lacks);
    return result;
}

InvoiceDraft draftOf(const StockOrder &order)
{
    InvoiceDraft draft;
    draft.user = order.place.user.toUInt();
    draft.place = order.move.place;
    draft.agreed = order.agreed;
    for (const StockRow &row : order.document.rows())
        draft.lines.append({row.idGoods, row.name, row.isPiece(), row.quantity});
    return draft;
}
} // namespace

TransferFields::TransferFields(SaleWork *work)
    : QObject(work->tab())
    , m_work(work)
    , m_tasks(work->makeTasks(this))
    , m_from(newBox("cbTransferFrom", tr("З магазину")))
    , m_to(newBox("cbTransferTo", tr("До магазину")))
    , m_message(new QLineEdit)
{
    m_message->setObjectName(QStringLiteral("leTransferMessage"));
    QSizePolicy wide(QSizePolicy::Expanding, QSizePolicy::Fixed);
    wide.setHorizontalStretch(1);
    m_message->setSizePolicy(wide);
    m_message->setMaxLength(longestMessage);
    m_message->setPlaceholderText(tr("Повідомлення"));
    m_message->setAccessibleName(tr("Повідомлення"));
    connect(m_from, qOverload<int>(&QComboBox::currentIndexChanged), this, [this] {
        showTargets();
        emit fromChanged();
    });
    connect(work->user(), &QLoadedUser::rightsChanged, this, &TransferFields::read);
    read();
}

void TransferFields::addTo(StockPane *pane)
{
    // Each stands right behind the places: the last one that is added comes first.
    pane->addField(QString(), m_message);
    pane->addField(tr("До:"), m_to);
    pane->addField(tr("З:"), m_from);
    connect(pane, &StockPane::documentChanged, this, [this, pane] {
        const bool isEmpty = pane->document().isEmpty();
        m_from->setEnabled(isEmpty);
        m_from->setToolTip(isEmpty ? m_from->currentText()
                                   : tr("Щоб передати з іншого магазину, спершу очистіть документ."));
    });
}

void TransferFields::follow(DbId shop)
{
    const int item = m_from->findData(shop);
    if (m_from->isEnabled() && item >= 0)
        m_from->setCurrentIndex(item);
}

DbId TransferFields::from() const
{
    return m_from->currentData().toUInt();
}

DbId TransferFields::to() const
{
    return m_to->currentData().toUInt();
}

void TransferFields::read()
{
    if (!m_work->user()->isLoaded())
        return;
    m_tasks->drop();
    m_tasks->read(
        [own = TransferPlaces::ownSql(*m_work->user()),
         targets = TransferPlaces::targetsSql(*m_work->user())](const Db &db) {
            return Offer{readEntries(db, own), readEntries(db, targets)};
        },
        [this](const Offer &offer) { show(offer); });
}

/// At first the user's own shop.
void TransferFields::show(const Offer &offer)
{
    if (!offer.from || !offer.to)
        return;
    m_targets = *offer.to;
    const bool isFirst = m_from->count() == 0;
    {
        const QSignalBlocker hold(m_from);
        showEntriesAgain(m_from, *offer.from);
        if (isFirst && m_from->findData(m_work->user()->idShop().toUInt()) >= 0)
            m_from->setCurrentIndex(m_from->findData(m_work->user()->idShop().toUInt()));
    }
    showTargets();
    if (std::exchange(m_shownFrom, from()) != from())
        emit fromChanged();
}

/// Nobody sends to himself.
void TransferFields::showTargets()
{
    m_shownFrom = from();
    ListEntries others = {{tr("— виберіть —"), 0}};
    for (const auto &target : m_targets) {
        if (target.second.toUInt() != from())
            others.append(target);
    }
    showEntriesAgain(m_to, others);
}

QString TransferFields::refusal() const
{
    if (m_tasks->isWaiting())
        return tr("Магазини ще читаються. Запишіть передачу ще раз.");
    if (m_targets.isEmpty())
        return tr("Немає магазинів, до яких ви можете передавати товар. Їх призначають у групах прав.");
    if (from() == 0)
        return tr("Виберіть магазин, з якого передається товар.");
    return to() == 0 ? tr("Виберіть магазин, до якого передається товар.") : QString();
}

StockMode::Writing TransferFields::writing() const
{
    const auto write = [from = from(), to = to(), message = m_message->text()](
                           const Db &db, const SaleWork::Caller &, const StockOrder &order) {
        InvoiceDraft draft = draftOf(order);
        draft.from = from;
        draft.to = to;
        draft.message = message;
        return resultOf(sendInvoice(db, draft), order.move.place);
    };
    const auto isWritten = [](const Db &db, const SaleWork::Caller &, const StockOrder &order,
                              const WrittenChek &chek) {
        return isInvoiceSent(db, {static_cast<DbId>(chek.number), order.place.user.toUInt(), chek.time});
    };
    return {write, isWritten};
}

StockMode TransferFields::mode() const
{
    StockMode mode;
    mode.mode = GoodsSearch::Transfer;
    mode.type = ChekType::GoodsTransfer;
    mode.key = Qt::Key_F11;
    mode.caption = tr("Передача F11");
    mode.name = tr("Передача");
    mode.placeCaption = tr("Взяти:");
    mode.places = {{StockPlace::Syllable, tr("зі складу")}, {StockPlace::Showroom, tr("із залу")}};
    mode.writeCaption = tr("Передати F9");
    mode.emptyText =
        tr("Документ порожній. Виберіть магазини, скануйте товар, знайдіть його та натисніть Enter або "
           "вставте таблицю.");
    mode.mayGoBelow = true;
    mode.hasSlip = false;
    mode.needsRegister = false;
    mode.refusal = [this](const StockDocument &) { return refusal(); };
    mode.writing = [this] { return writing(); };
    return mode;
}
