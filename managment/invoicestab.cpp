#include "invoicestab.h"
#include "ui_invoicestabfilter.h"

#include "combos.h"
#include "invoicedialog.h"
#include "listpane.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "transferplaces.h"
#include "typedinput.h"
#include "typingpause.h"

#include <QBrush>
#include <QPointer>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

namespace {
struct Words
{
    QString viewOnly;
    QString nothingYet;
    QString notReceiver;
    QString notSender;
};

Words wordsOf(InvoiceKind kind)
{
    const QString notSender =
        InvoicesTab::tr("Передачу скасовує магазин-відправник, а його серед ваших немає.");
    if (kind == InvoiceKind::Goods)
        return {InvoicesTab::tr("Лише перегляд: продавати може користувач з повним дозволом."),
                InvoicesTab::tr("Передач між магазинами ще не було."),
                InvoicesTab::tr("Товар приймає магазин-одержувач, а його серед ваших немає."), notSender};
    return {InvoicesTab::tr("Лише перегляд: готівку передає користувач з повним дозволом."),
            InvoicesTab::tr("Готівку між магазинами ще не передавали."),
            InvoicesTab::tr("Готівку приймає магазин-одержувач, а його серед ваших немає."), notSender};
}
} // namespace

InvoicesTab::InvoicesTab(InvoiceKind kind, QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                         setting *set, QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , m_kind(kind)
    , ui(std::make_unique<Ui::InvoicesTabFilter>())
    , m_splitter(new QSplitter(Qt::Vertical, this))
    , m_daysPause(new TypingPause(this))
    , m_rowPause(new TypingPause(this))
{
    table = QStringLiteral("invoice");
    isExportedToViewers = true;
    list()->breakCaptions();
    list()->sumUsually(columnAt(kind, InvoiceColumn::Sent));
    list()->setArranging([this](RowStore &&found) { return takePage(std::move(found)); });
    buildFilter();
    connectFilter();
    buildPane();
}

/// The columns are remembered under the name of the concrete list.
void InvoicesTab::begin()
{
    setColumns(invoiceColumns(m_kind));
    followRights();
    searchAgain();
}

InvoicesTab::~InvoicesTab()
{
    // The fields are left on the way out.
    delete m_daysPause;
    delete m_rowPause;
}

void InvoicesTab::buildFilter()
{
    ui->setupUi(addFilterBar());
    ui->place->hideRegisters();
    ui->place->open(db().connection()->connectionName(), receiver());
    ui->range->hideNumbers();
    ui->range->setEnabled(false);
    showEntries(ui->cbDirection, {{tr("Усі напрямки"), InvoicesAsked::Both},
                                  {tr("Відправлені звідси"), InvoicesAsked::Sent},
                                  {tr("Надіслані сюди"), InvoicesAsked::Received}});
    ListEntries states = {{tr("Усі стани"), -1}};
    for (const InvoiceState state :
         {InvoiceState::OnTheWay, InvoiceState::Accepted, InvoiceState::Different, InvoiceState::Cancelled})
        states.append({invoiceStateShown(state), static_cast<int>(state)});
    showEntries(ui->cbState, states);
    keepNarrow(ui->cbDirection, 10);
    keepNarrow(ui->cbState, 18);
    list()->setButtons(nullptr, ui->pbStop);
    limitTo(ui->leSearch, "[0-9]{0,10}");
    setSearchField(ui->leSearch, [this](const QString &text) { seerch(text); });
}

void InvoicesTab::connectFilter()
{
    connect(ui->place, &PlaceSelector::groupChanged, this, &InvoicesTab::refillShops);
    connect(ui->place, &PlaceSelector::chosen, this, &InvoicesTab::followPlace);
    for (QComboBox *box : {ui->cbDirection, ui->cbState})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &InvoicesTab::searchAgain);
    connect(ui->chDays, &QCheckBox::toggled, ui->range, &QWidget::setEnabled);
    connect(ui->chDays, &QCheckBox::toggled, this, &InvoicesTab::searchAgain);
    connect(ui->range, &RangeSelector::changed, m_daysPause, &TypingPause::begin);
    connect(m_daysPause, &TypingPause::ended, this, &InvoicesTab::searchAgain);
    connect(ui->pages, &PageBar::loadWanted, this, &InvoicesTab::searchAgain);
    connect(ui->pages, &PageBar::sizeEntered, this, &InvoicesTab::searchAgain);
    connect(ui->pages, &PageBar::previousWanted, this, &InvoicesTab::previousPage);
    connect(ui->pages, &PageBar::nextWanted, this, &InvoicesTab::nextPage);
    connect(ui->pbStop, &QPushButton::clicked, this, [this] { ui->pages->stayOnPage(m_hasNext); });
}

void InvoicesTab::buildPane()
{
    m_pane = new InvoicePane(m_kind, db().connection(), user(), receiver(), m_splitter);
    static_cast<QVBoxLayout *>(layout())->addWidget(m_splitter, 1);
    m_splitter->addWidget(list());
    m_splitter->addWidget(m_pane);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, m_kind == InvoiceKind::Cash ? 0 : 2);
    connect(view()->selectionModel(), &QItemSelectionModel::currentRowChanged, m_rowPause,
            &TypingPause::begin);
    connect(m_rowPause, &TypingPause::ended, this, &InvoicesTab::followRow);
    connect(m_pane, &InvoicePane::sendPressed, this, &InvoicesTab::Add);
    connect(m_pane, &InvoicePane::acceptPressed, this, &InvoicesTab::acceptCurrent);
    connect(m_pane, &InvoicePane::cancelPressed, this, &InvoicesTab::cancelCurrent);
    connect(
        m_pane->lines(), &ListPane::loaded, this,
        [this] {
            if (m_printed != 0 && m_pane->invoice().id == std::exchange(m_printed, 0))
                m_pane->print();
        },
        Qt::QueuedConnection);
}

void InvoicesTab::followRights()
{
    if (!user()->isLoaded())
        return;
    ui->place->keepChoice();
    ui->place->refillGroups(permittedGroupsSql(*user(), true));
    refillShops();
    m_rowPause->begin();
}

QString InvoicesTab::shopsCondition() const
{
    QString shops = TransferPlaces::seenCondition(*user());
    const Place place = ui->place->place();
    if (place.group != 0)
        shops += QStringLiteral(" AND shops.group_shop=%1").arg(place.group);
    return shops;
}

void InvoicesTab::refillShops()
{
    ui->place->refillShops(QStringLiteral("SELECT address,id FROM shops WHERE") + shopsCondition() +
                           QStringLiteral(" ORDER BY address,id"));
}

/// Also when the boxes have been filled for the first time, which changes nothing.
void InvoicesTab::followPlace()
{
    if (asked().shops != m_asked.shops)
        searchAgain();
}

InvoicesAsked InvoicesTab::asked() const
{
    InvoicesAsked asked;
    asked.kind = m_kind;
    asked.shops = shopsCondition();
    if (const DbId shop = ui->place->place().shop)
        asked.shops += QStringLiteral(" AND shops.id=%1").arg(shop);
    asked.direction = static_cast<InvoicesAsked::Direction>(ui->cbDirection->currentData().toInt());
    const int state = ui->cbState->currentData().toInt();
    if (state >= 0)
        asked.state = static_cast<InvoiceState>(state);
    if (ui->chDays->isChecked()) {
        asked.from = ui->range->from();
        asked.to = ui->range->to();
    }
    return asked;
}

/// Above the printed list; the title of the page stands before them.
QStringList InvoicesTab::askedWords() const
{
    QStringList words(ui->place->description());
    for (const QComboBox *box : {ui->cbDirection, ui->cbState}) {
        if (box->currentIndex() > 0)
            words.append(box->currentText());
    }
    if (m_asked.hasDays())
        words.append(ui->range->description());
    if (!m_asked.number.isEmpty())
        words.append(QStringLiteral("№ ") + m_asked.number);
    return words;
}

bool InvoicesTab::isLoading() const
{
    return QTab::isLoading() || ui->place->isReading() || m_daysPause->isRunning() ||
           m_rowPause->isRunning() || m_pane->isLoading();
}

void InvoicesTab::searchAgain()
{
    seerch(ui->leSearch->text());
}

void InvoicesTab::seerch(const QString &text)
{
    postTrace(receiver(), QStringLiteral("InvoicesTab::seerch(QString)=") + text);
    m_daysPause->drop();
    m_asked = asked();
    m_asked.number = text;
    m_askedHeading = askedWords();
    ui->pages->restart();
    // The rows of another search do not go on with those of this one, should it be stopped.
    m_hasNext = false;
    showPage();
}

/// In the list, where the rows would stand, days that cannot be asked for are refused.
void InvoicesTab::showPage()
{
    const QString why = m_asked.hasDays() ? ui->range->refusal() : QString();
    if (!why.isEmpty()) {
        list()->clear();
        view()->setEmptyText(why);
        emit loaded();
        return;
    }
    const int size = ui->pages->pageSize();
    m_pageRows = size == 0 ? mostRows : qMin(size, mostRows);
    list()->expectLongLoads(size == 0 || m_asked.hasDays() || m_asked.state.has_value());
    const QVariantList start = ui->pages->start().toList();
    const InvoiceKey behind = {start.value(0).toBool(), start.value(1).toLongLong()};
    query = invoicesSql(m_asked, behind, m_pageRows + 1);
    const bool isNarrowed = m_askedHeading.size() > 1 || ui->place->narrowest() != PlaceSelector::Everywhere;
    if (user()->groups().isEmpty() && user()->idShop().isEmpty())
        list()->setEmptyText(noGroupsHint());
    else
        list()->setEmptyText(isNarrowed ? QTab::tr("За цими умовами нічого не знайдено.")
                                        : wordsOf(m_kind).nothingYet);
    list()->load(query);
}

RowStore InvoicesTab::takePage(RowStore &&found)
{
    m_hasNext = found.rowCount() > m_pageRows;
    if (m_hasNext)
        found.removeLast();
    m_last = {};
    if (found.rowCount() > 0) {
        const auto last = [&](InvoiceColumn column) {
            const std::string_view cell = found.cell(found.rowCount() - 1, static_cast<int>(column));
            return QByteArray(cell.data(), static_cast<int>(cell.size())).toLongLong();
        };
        m_last = {last(InvoiceColumn::State) == static_cast<int>(InvoiceState::OnTheWay),
                  last(InvoiceColumn::Number)};
    }
    return std::move(found);
}

void InvoicesTab::rowsShown()
{
    list()->setHeading(list()->heading().mid(0, 1) + m_askedHeading);
    ui->pages->showPage(m_hasNext);
    for (int row = 0; row < model()->rowCount(); ++row) {
        const auto which = static_cast<InvoiceState>(cell(row, InvoiceColumn::State).toInt());
        colour(row, InvoiceColumn::State, which);
        if (which == InvoiceState::Different)
            colour(row, InvoiceColumn::Difference, which);
    }
    if (m_wanted != 0) {
        const QModelIndex wanted = list()->indexOf(QString::number(m_wanted));
        if (wanted.isValid())
            view()->setCurrentIndex(wanted);
        m_wanted = 0;
    }
    m_rowPause->begin();
}

void InvoicesTab::colour(int row, InvoiceColumn column, InvoiceState state)
{
    const QModelIndex cell = model()->index(row, columnAt(m_kind, column));
    model()->setData(cell, QBrush(invoiceStateColour(state)), Qt::BackgroundRole);
    // Black is readable on all of them, whatever the palette.
    model()->setData(cell, QBrush(Qt::black), Qt::ForegroundRole);
}

void InvoicesTab::loadAgain()
{
    showPage();
}

void InvoicesTab::previousPage()
{
    if (!list()->isLoading() && ui->pages->goBack())
        showPage();
}

void InvoicesTab::nextPage()
{
    if (list()->isLoading() || !m_hasNext)
        return;
    ui->pages->goOn(QVariantList{m_last.isOnTheWay, m_last.id}, model()->rowCount());
    showPage();
}

void InvoicesTab::showInvoice(DbId invoice, bool print)
{
    m_wanted = invoice;
    m_printed = print ? invoice : 0;
    const QSignalBlocker holdField(ui->leSearch);
    const QSignalBlocker holdState(ui->cbState);
    const QSignalBlocker holdDirection(ui->cbDirection);
    const QSignalBlocker holdDays(ui->chDays);
    ui->leSearch->clear();
    ui->cbState->setCurrentIndex(0);
    ui->cbDirection->setCurrentIndex(0);
    ui->chDays->setChecked(false);
    ui->range->setEnabled(false);
    searchAgain();
}

QString InvoicesTab::cell(int row, InvoiceColumn column) const
{
    return model()->stored(row, columnAt(m_kind, column));
}

ShownInvoice InvoicesTab::invoiceOf(int row) const
{
    if (row < 0)
        return {};
    const auto shown = [&](InvoiceColumn column) {
        return model()->index(row, columnAt(m_kind, column)).data().toString();
    };
    const auto both = [&](InvoiceColumn time, InvoiceColumn who) {
        return QStringList{shown(time), shown(who)}.join(QStringLiteral(", "));
    };
    ShownInvoice invoice;
    invoice.id = cell(row, InvoiceColumn::Number).toUInt();
    invoice.state = static_cast<InvoiceState>(cell(row, InvoiceColumn::State).toInt());
    invoice.cash = cell(row, InvoiceColumn::Sent).toLongLong();
    invoice.shopFrom = cell(row, InvoiceColumn::ShopFrom).toUInt();
    invoice.shopTo = cell(row, InvoiceColumn::ShopTo).toUInt();
    invoice.from = shown(InvoiceColumn::From);
    invoice.to = shown(InvoiceColumn::To);
    invoice.sent = both(InvoiceColumn::SentAt, InvoiceColumn::SentBy);
    invoice.closed = both(InvoiceColumn::ClosedAt, InvoiceColumn::ClosedBy);
    invoice.messageFrom = shown(InvoiceColumn::MessageFrom);
    invoice.messageTo = shown(InvoiceColumn::MessageTo);
    return invoice;
}

/// The shops that one may send to are not one's own.
QString InvoicesTab::closingRefusal(int row, InvoiceColumn shop, InvoiceColumn group,
                                    const QString &notOwn) const
{
    if (!mayEdit())
        return wordsOf(m_kind).viewOnly;
    if (static_cast<InvoiceState>(cell(row, InvoiceColumn::State).toInt()) != InvoiceState::OnTheWay)
        return tr("Цю накладну вже закрито.");
    const bool isOwn = user()->groups().contains(cell(row, group)) ||
                       (!user()->idShop().isEmpty() && user()->idShop() == cell(row, shop));
    return isOwn ? QString() : notOwn;
}

InvoiceRefusals InvoicesTab::refusalsOf(int row) const
{
    InvoiceRefusals refusals;
    refusals.send = mayEdit() ? QString() : wordsOf(m_kind).viewOnly;
    if (row < 0)
        return refusals;
    refusals.accept =
        closingRefusal(row, InvoiceColumn::ShopTo, InvoiceColumn::GroupTo, wordsOf(m_kind).notReceiver);
    refusals.cancel =
        closingRefusal(row, InvoiceColumn::ShopFrom, InvoiceColumn::GroupFrom, wordsOf(m_kind).notSender);
    return refusals;
}

void InvoicesTab::followRow()
{
    const int row = view()->currentIndex().row();
    m_pane->showInvoice(invoiceOf(row), refusalsOf(row));
}

Commands InvoicesTab::commands() const
{
    Commands offered = QTab::commands();
    offered.remove(Command::Delete);
    return offered;
}

void InvoicesTab::Add()
{
    if (mayEdit())
        send();
}

void InvoicesTab::Edit(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    if (refusalsOf(index.row()).accept.isEmpty())
        return acceptCurrent();
    m_rowPause->end();
    m_pane->lines()->enter();
}

/// The buttons follow the row a moment later.
bool InvoicesTab::isRefused(const QString &why)
{
    if (!why.isEmpty())
        QQestion::question(window(), tr("Попередження."), why, true);
    return !why.isEmpty();
}

void InvoicesTab::acceptCurrent()
{
    const int row = view()->currentIndex().row();
    if (row >= 0 && !isRefused(refusalsOf(row).accept))
        runDialog(makeAccepting(invoiceOf(row)));
}

void InvoicesTab::cancelCurrent()
{
    const int row = view()->currentIndex().row();
    if (row >= 0 && !isRefused(refusalsOf(row).cancel))
        runDialog(makeCancelling(invoiceOf(row)));
}

/// The tab may go while the window is open, and the window with it.
bool InvoicesTab::runDialog(InvoiceDialog *dialog)
{
    const QPointer<InvoicesTab> open = this;
    connect(user(), &QLoadedUser::rightsChanged, dialog, [this, dialog] { dialog->setMayWrite(mayEdit()); });
    dialog->exec();
    if (!open)
        return false;
    const bool wasWritten = dialog->wasWritten();
    const bool isListOld = dialog->isListOld();
    if (dialog->isUnclear())
        postMessage(receiver(),
                    tr("Вікно закрито, а чи записано накладну, невідомо: зв'язок обірвався під час запису. "
                       "Перевірте накладну у списку."),
                    QMessEvent::Warning);
    delete dialog;
    // A question that closes together with the window leaves some window managers without an active one.
    window()->activateWindow();
    view()->setFocus();
    if (isListOld)
        reload();
    return wasWritten;
}
