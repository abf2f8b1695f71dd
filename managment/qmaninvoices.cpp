#include "qmaninvoices.h"
#include "ui_qmaninvoicesfilter.h"

#include "combos.h"
#include "listpane.h"
#include "permittedlists.h"
#include "qacceptinvoice.h"
#include "qcancelinvoice.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qqestion.h"
#include "qrowmodel.h"
#include "salework.h"
#include "typedinput.h"
#include "typingpause.h"

#include <QBrush>
#include <QPointer>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

QManInvoices::QManInvoices(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                           QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , ui(std::make_unique<Ui::QManInvoicesFilter>())
    , m_splitter(new QSplitter(Qt::Vertical, this))
    , m_daysPause(new TypingPause(this))
    , m_rowPause(new TypingPause(this))
{
    table = QStringLiteral("invoice");
    isExportedToViewers = true;
    list()->breakCaptions();
    setColumns(invoiceColumns());
    list()->sumUsually(static_cast<int>(InvoiceColumn::Sent));
    list()->setArranging([this](RowStore &&found) { return takePage(std::move(found)); });
    buildFilter();
    connectFilter();
    buildPane();
    QManInvoices::followRights();
    searchAgain();
}

QManInvoices::~QManInvoices()
{
    // The fields are left on the way out.
    delete m_daysPause;
    delete m_rowPause;
}

void QManInvoices::buildFilter()
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

void QManInvoices::connectFilter()
{
    connect(ui->place, &PlaceSelector::groupChanged, this, &QManInvoices::refillShops);
    connect(ui->place, &PlaceSelector::chosen, this, &QManInvoices::followPlace);
    for (QComboBox *box : {ui->cbDirection, ui->cbState})
        connect(box, qOverload<int>(&QComboBox::currentIndexChanged), this, &QManInvoices::searchAgain);
    connect(ui->chDays, &QCheckBox::toggled, ui->range, &QWidget::setEnabled);
    connect(ui->chDays, &QCheckBox::toggled, this, &QManInvoices::searchAgain);
    connect(ui->range, &RangeSelector::changed, m_daysPause, &TypingPause::begin);
    connect(m_daysPause, &TypingPause::ended, this, &QManInvoices::searchAgain);
    connect(ui->pages, &PageBar::loadWanted, this, &QManInvoices::searchAgain);
    connect(ui->pages, &PageBar::sizeEntered, this, &QManInvoices::searchAgain);
    connect(ui->pages, &PageBar::previousWanted, this, &QManInvoices::previousPage);
    connect(ui->pages, &PageBar::nextWanted, this, &QManInvoices::nextPage);
    connect(ui->pbStop, &QPushButton::clicked, this, [this] { ui->pages->stayOnPage(m_hasNext); });
}

void QManInvoices::buildPane()
{
    m_pane = new InvoicePane(db().connection(), user(), receiver(), m_splitter);
    static_cast<QVBoxLayout *>(layout())->addWidget(m_splitter, 1);
    m_splitter->addWidget(list());
    m_splitter->addWidget(m_pane);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 3);
    m_splitter->setStretchFactor(1, 2);
    connect(view()->selectionModel(), &QItemSelectionModel::currentRowChanged, m_rowPause,
            &TypingPause::begin);
    connect(m_rowPause, &TypingPause::ended, this, &QManInvoices::followRow);
    connect(m_pane, &InvoicePane::sendPressed, this, &QManInvoices::Add);
    connect(m_pane, &InvoicePane::acceptPressed, this, &QManInvoices::acceptCurrent);
    connect(m_pane, &InvoicePane::cancelPressed, this, &QManInvoices::cancelCurrent);
    connect(
        m_pane->lines(), &ListPane::loaded, this,
        [this] {
            if (m_printed != 0 && m_pane->invoice().id == std::exchange(m_printed, 0))
                m_pane->print();
        },
        Qt::QueuedConnection);
}

void QManInvoices::followRights()
{
    if (!user()->isLoaded())
        return;
    ui->place->keepChoice();
    ui->place->refillGroups(permittedGroupsSql(*user(), true));
    refillShops();
    m_rowPause->begin();
}

/// The shops that the user works with; blocked ones, too: what they have sent stays.
QString QManInvoices::shopsCondition() const
{
    const QString groups = GetStrLstGroupFromPermis(user(), QStringLiteral("shops.group_shop"), true);
    QString shops = user()->idShop().isEmpty()
                        ? groups
                        : QStringLiteral(" (%1 OR shops.id=%2)").arg(groups, user()->idShop());
    const Place place = ui->place->place();
    if (place.group != 0)
        shops += QStringLiteral(" AND shops.group_shop=%1").arg(place.group);
    return shops;
}

void QManInvoices::refillShops()
{
    ui->place->refillShops(QStringLiteral("SELECT address,id FROM shops WHERE") + shopsCondition() +
                           QStringLiteral(" ORDER BY address,id"));
}

/// Also when the boxes have been filled for the first time, which changes nothing.
void QManInvoices::followPlace()
{
    if (asked().shops != m_asked.shops)
        searchAgain();
}

InvoicesAsked QManInvoices::asked() const
{
    InvoicesAsked asked;
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
QStringList QManInvoices::askedWords() const
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

bool QManInvoices::isLoading() const
{
    return QTab::isLoading() || ui->place->isReading() || m_daysPause->isRunning() ||
           m_rowPause->isRunning() || m_pane->isLoading();
}

void QManInvoices::searchAgain()
{
    seerch(ui->leSearch->text());
}

void QManInvoices::seerch(const QString &text)
{
    postTrace(receiver(), QStringLiteral("QManInvoices::seerch(QString)=") + text);
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
void QManInvoices::showPage()
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
                                        : tr("Передач між магазинами ще не було."));
    list()->load(query);
}

RowStore QManInvoices::takePage(RowStore &&found)
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

void QManInvoices::rowsShown()
{
    list()->setHeading(list()->heading().mid(0, 1) + m_askedHeading);
    ui->pages->showPage(m_hasNext);
    for (int row = 0; row < model()->rowCount(); ++row) {
        const QModelIndex state = model()->index(row, static_cast<int>(InvoiceColumn::State));
        const auto which = static_cast<InvoiceState>(cell(row, InvoiceColumn::State).toInt());
        model()->setData(state, QBrush(invoiceStateColour(which)), Qt::BackgroundRole);
        // Black is readable on all of them, whatever the palette.
        model()->setData(state, QBrush(Qt::black), Qt::ForegroundRole);
    }
    if (m_wanted != 0) {
        const QModelIndex wanted = list()->indexOf(QString::number(m_wanted));
        if (wanted.isValid())
            view()->setCurrentIndex(wanted);
        m_wanted = 0;
    }
    m_rowPause->begin();
}

void QManInvoices::loadAgain()
{
    showPage();
}

void QManInvoices::previousPage()
{
    if (!list()->isLoading() && ui->pages->goBack())
        showPage();
}

void QManInvoices::nextPage()
{
    if (list()->isLoading() || !m_hasNext)
        return;
    ui->pages->goOn(QVariantList{m_last.isOnTheWay, m_last.id}, model()->rowCount());
    showPage();
}

void QManInvoices::showInvoice(DbId invoice, bool print)
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

QString QManInvoices::cell(int row, InvoiceColumn column) const
{
    return model()->stored(row, static_cast<int>(column));
}

ShownInvoice QManInvoices::invoiceOf(int row) const
{
    if (row < 0)
        return {};
    const auto shown = [&](InvoiceColumn column) {
        return model()->index(row, static_cast<int>(column)).data().toString();
    };
    const auto both = [&](InvoiceColumn time, InvoiceColumn who) {
        return QStringList{shown(time), shown(who)}.join(QStringLiteral(", "));
    };
    ShownInvoice invoice;
    invoice.id = cell(row, InvoiceColumn::Number).toUInt();
    invoice.state = static_cast<InvoiceState>(cell(row, InvoiceColumn::State).toInt());
    invoice.from = shown(InvoiceColumn::From);
    invoice.to = shown(InvoiceColumn::To);
    invoice.sent = both(InvoiceColumn::SentAt, InvoiceColumn::SentBy);
    invoice.closed = both(InvoiceColumn::ClosedAt, InvoiceColumn::ClosedBy);
    invoice.messageFrom = shown(InvoiceColumn::MessageFrom);
    invoice.messageTo = shown(InvoiceColumn::MessageTo);
    return invoice;
}

/// The shops that one may send to are not one's own.
QString QManInvoices::closingRefusal(int row, InvoiceColumn shop, InvoiceColumn group,
                                     const QString &notOwn) const
{
    if (!mayEdit())
        return SaleWork::viewOnlyWords();
    if (static_cast<InvoiceState>(cell(row, InvoiceColumn::State).toInt()) != InvoiceState::OnTheWay)
        return tr("Цю накладну вже закрито.");
    const bool isOwn = user()->groups().contains(cell(row, group)) ||
                       (!user()->idShop().isEmpty() && user()->idShop() == cell(row, shop));
    return isOwn ? QString() : notOwn;
}

InvoiceRefusals QManInvoices::refusalsOf(int row) const
{
    InvoiceRefusals refusals;
    refusals.send = mayEdit() ? QString() : SaleWork::viewOnlyWords();
    if (row < 0)
        return refusals;
    refusals.accept = closingRefusal(row, InvoiceColumn::ShopTo, InvoiceColumn::GroupTo,
                                     tr("Товар приймає магазин-одержувач, а його серед ваших немає."));
    refusals.cancel = closingRefusal(row, InvoiceColumn::ShopFrom, InvoiceColumn::GroupFrom,
                                     tr("Передачу скасовує магазин-відправник, а його серед ваших немає."));
    return refusals;
}

void QManInvoices::followRow()
{
    const int row = view()->currentIndex().row();
    m_pane->showInvoice(invoiceOf(row), refusalsOf(row));
}

Commands QManInvoices::commands() const
{
    Commands offered = QTab::commands();
    offered.remove(Command::Delete);
    return offered;
}

void QManInvoices::Add()
{
    if (mayEdit())
        emit sendWanted();
}

void QManInvoices::Edit(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    if (refusalsOf(index.row()).accept.isEmpty())
        return acceptCurrent();
    m_rowPause->end();
    m_pane->lines()->enter();
}

/// The buttons follow the row a moment later.
bool QManInvoices::isRefused(const QString &why)
{
    if (!why.isEmpty())
        QQestion::question(window(), tr("Попередження."), why, true);
    return !why.isEmpty();
}

void QManInvoices::acceptCurrent()
{
    const int row = view()->currentIndex().row();
    if (row >= 0 && !isRefused(refusalsOf(row).accept))
        runDialog(new QAcceptInvoice(db().connection(), user(), receiver(), invoiceOf(row).id, this));
}

void QManInvoices::cancelCurrent()
{
    const int row = view()->currentIndex().row();
    if (row < 0 || isRefused(refusalsOf(row).cancel))
        return;
    const ShownInvoice invoice = invoiceOf(row);
    const QString words = QStringList{invoice.from, invoice.to}.join(QStringLiteral(" → "));
    runDialog(new QCancelInvoice(db().connection()->connectionName(), receiver(), invoice.id, words,
                                 user()->idUser().toUInt(), this));
}

/// The tab may go while the window is open, and the window with it.
void QManInvoices::runDialog(InvoiceDialog *dialog)
{
    const QPointer<QManInvoices> open = this;
    connect(user(), &QLoadedUser::rightsChanged, dialog, [this, dialog] { dialog->setMayWrite(mayEdit()); });
    dialog->exec();
    if (!open)
        return;
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
}
