#include "qcashreport.h"
#include "ui_qcashreport.h"

#include "combos.h"
#include "invoicelist.h"
#include "listpane.h"
#include "money.h"
#include "permittedlists.h"
#include "qloadeduser.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "qservicecash.h"
#include "transferplaces.h"
#include "typingpause.h"

#include <QKeyEvent>
#include <QPointer>
#include <QSplitter>
#include <QVBoxLayout>
#include <utility>

namespace {
int column(CashMove of)
{
    return static_cast<int>(of);
}

int column(CashSum of)
{
    return static_cast<int>(of);
}
} // namespace

QCashReport::QCashReport(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set,
                         QWidget *parent)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , ui(std::make_unique<Ui::QCashReport>())
    , m_splitter(new QSplitter(Qt::Vertical, this))
    , m_moves(new ListPane(m_splitter))
    , m_pause(new TypingPause(this))
{
    table = QStringLiteral("cheks");
    isExportedToViewers = true;
    list()->breakCaptions();
    list()->expectLongLoads();
    setColumns(cashSumColumns());
    list()->setArranging([this](RowStore &&found) { return takeMoves(std::move(found)); });
    list()->sumUsually(column(CashSum::Sent));
    list()->setTotals([this] { return totals(); });
    buildFilter();
    connectFilter();
    buildMoves();
    QCashReport::followRights();
}

QCashReport::~QCashReport()
{
    // The fields are left on the way out.
    delete m_pause;
}

void QCashReport::buildFilter()
{
    ui->setupUi(addFilterBar());
    ui->place->hideRegisters();
    ui->place->open(db().connection()->connectionName(), receiver());
    ui->range->hideNumbers();
    const QDate today = QDate::currentDate();
    ui->range->setDays(QDate(today.year(), today.month(), 1), today);
    showEntries(ui->cbKind, {{tr("Весь рух готівки"), CashMovesAsked::All},
                             {tr("Внесено в каси"), CashMovesAsked::In},
                             {tr("Вилучено з кас"), CashMovesAsked::Out},
                             {tr("Надіслано до магазинів"), CashMovesAsked::Sent},
                             {tr("Прийнято від магазинів"), CashMovesAsked::Accepted},
                             {tr("Ще в дорозі"), CashMovesAsked::OnTheWay},
                             {tr("Не дійшло"), CashMovesAsked::Missing}});
    showEntries(ui->cbGrouping, {{tr("за магазинами"), static_cast<int>(CashGrouping::Shop)},
                                 {tr("за касами"), static_cast<int>(CashGrouping::Register)},
                                 {tr("за операціями"), static_cast<int>(CashGrouping::Operation)},
                                 {tr("за працівниками"), static_cast<int>(CashGrouping::Person)},
                                 {tr("за днями"), static_cast<int>(CashGrouping::Day)},
                                 {tr("одним рядком"), static_cast<int>(CashGrouping::Together)}});
    keepNarrow(ui->cbKind, 16);
    list()->setButtons(nullptr, ui->pbStop);
}

void QCashReport::connectFilter()
{
    connect(ui->place, &PlaceSelector::groupChanged, this, &QCashReport::refillShops);
    connect(ui->place, &PlaceSelector::chosen, this, [this] {
        if (m_isAsked && asked().shops != m_askedShops)
            searchAgain();
    });
    connect(ui->cbKind, qOverload<int>(&QComboBox::currentIndexChanged), this, &QCashReport::searchAgain);
    connect(ui->cbGrouping, qOverload<int>(&QComboBox::currentIndexChanged), this, &QCashReport::regroup);
    connect(ui->range, &RangeSelector::changed, m_pause, &TypingPause::begin);
    connect(m_pause, &TypingPause::ended, this, &QCashReport::searchAgain);
    connect(ui->pbService, &QPushButton::clicked, this, &QCashReport::Add);
    connect(ui->notice, &NoticeBar::slipWanted, this, &QCashReport::slipWanted);
}

void QCashReport::buildMoves()
{
    static_cast<QVBoxLayout *>(layout())->addWidget(m_splitter, 1);
    m_splitter->addWidget(list());
    m_splitter->addWidget(m_moves);
    m_splitter->setChildrenCollapsible(false);
    m_splitter->setStretchFactor(0, 2);
    m_splitter->setStretchFactor(1, 3);
    m_moves->setObjectName(QStringLiteral("moves"));
    m_moves->setAccessibleName(tr("Операції вибраного рядка"));
    m_moves->open(db().connection(), user(), receiver());
    m_moves->breakCaptions();
    m_moves->setColumns(cashMoveColumns(), QStringLiteral("QCashReport_moves"));
    m_moves->sumUsually(column(CashMove::Sent));
    m_moves->setEmptyText(tr("Виберіть рядок у списку вище."));
    // The keys are those of the list above.
    for (QPushButton *button : m_moves->footer()->findChildren<QPushButton *>())
        button->setShortcut({});
    m_moves->view()->installEventFilter(this);
    connect(m_moves, &ListPane::rowsShown, this, &QCashReport::movesShown);
    connect(m_moves->view(), &QNTableView::doubleClicked, this, &QCashReport::openMove);
    connect(view()->selectionModel(), &QItemSelectionModel::currentRowChanged, this, &QCashReport::followRow);
}

void QCashReport::followRights()
{
    if (!user()->isLoaded())
        return;
    showRights();
    ui->place->keepChoice();
    ui->place->refillGroups(permittedGroupsSql(*user(), true));
    refillShops();
}

void QCashReport::showRights()
{
    const bool may = user()->mayEdit(Permission::Finance);
    ui->pbService->setEnabled(may);
    ui->pbService->setToolTip(
        may ? QString() : tr("Лише перегляд: готівку вносить і вилучає користувач з повним дозволом."));
}

void QCashReport::refillShops()
{
    QString condition = TransferPlaces::seenCondition(*user());
    if (const DbId group = ui->place->place().group)
        condition += QStringLiteral(" AND shops.group_shop=%1").arg(group);
    ui->place->refillShops(
        QStringLiteral("SELECT address,id FROM shops WHERE%1 ORDER BY address,id").arg(condition));
}

CashMovesAsked QCashReport::asked() const
{
    CashMovesAsked asked;
    asked.shops = TransferPlaces::seenCondition(*user());
    const Place place = ui->place->place();
    if (place.group != 0)
        asked.shops += QStringLiteral(" AND shops.group_shop=%1").arg(place.group);
    if (place.shop != 0)
        asked.shops += QStringLiteral(" AND shops.id=%1").arg(place.shop);
    asked.kind = static_cast<CashMovesAsked::Kind>(ui->cbKind->currentData().toInt());
    asked.from = ui->range->from();
    asked.to = ui->range->to();
    return asked;
}

CashGrouping QCashReport::grouping() const
{
    return static_cast<CashGrouping>(ui->cbGrouping->currentData().toInt());
}

/// Above the printed list, behind its title.
QStringList QCashReport::askedWords() const
{
    QStringList words = {ui->place->description(), ui->range->description()};
    if (ui->cbKind->currentIndex() > 0)
        words.append(ui->cbKind->currentText());
    return words;
}

bool QCashReport::isLoading() const
{
    return QTab::isLoading() || ui->place->isReading() || m_pause->isRunning() || m_moves->isLoading();
}

void QCashReport::searchAgain()
{
    m_pause->drop();
    m_isAsked = true;
    const CashMovesAsked wanted = asked();
    m_askedShops = wanted.shops;
    m_askedHeading = askedWords();
    const QString why = ui->range->refusal();
    if (!why.isEmpty()) {
        m_found = RowStore();
        list()->clear();
        view()->setEmptyText(why);
        emit loaded();
        return;
    }
    query = cashMovesSql(wanted);
    list()->setEmptyText(user()->groups().isEmpty() && user()->idShop().isEmpty()
                             ? noGroupsHint()
                             : tr("За ці дні готівку не вносили, не вилучали й не передавали."));
    list()->load(query);
}

void QCashReport::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_isAsked)
        searchAgain();
}

void QCashReport::loadAgain()
{
    searchAgain();
}

RowStore QCashReport::takeMoves(RowStore &&found)
{
    m_found = std::move(found);
    m_grouping = grouping();
    return cashSums(m_found, m_grouping);
}

/// The same moves, added up otherwise.
void QCashReport::regroup()
{
    if (!list()->isLoading())
        list()->showRows(RowStore(m_found));
}

void QCashReport::rowsShown()
{
    list()->setHeading(list()->heading().mid(0, 1) + m_askedHeading +
                       QStringList(ui->cbGrouping->currentText()));
    ui->labelTotals->setText(totals().join(QStringLiteral(" · ")));
    if (model()->rowCount() > 0 && !view()->currentIndex().isValid())
        view()->setCurrentIndex(model()->index(0, column(CashSum::Name)));
    followRow();
}

/// What has no amount is left out.
QStringList QCashReport::totals() const
{
    QStringList lines;
    for (int at = column(CashSum::In); at < column(CashSum::Count); ++at) {
        qint64 sum = 0;
        for (int row = 0; row < model()->rowCount(); ++row)
            sum += model()->number(row, at);
        if (sum != 0)
            lines.append(model()->columns().at(at).caption + QStringLiteral(": ") + moneyShown(sum));
    }
    return lines;
}

void QCashReport::followRow()
{
    const int row = view()->currentIndex().row();
    if (row < 0)
        return m_moves->clear();
    const QString key = model()->stored(row, column(CashSum::Key));
    m_moves->setHeading({tr("Рух готівки"), model()->index(row, column(CashSum::Name)).data().toString()});
    m_moves->showRows(cashMovesOf(m_found, m_grouping, key));
}

void QCashReport::movesShown()
{
    QRowModel *rows = m_moves->model();
    m_moves->setHeading(m_moves->heading().mid(0, 2) + m_askedHeading);
    for (int row = 0; row < rows->rowCount(); ++row) {
        if (!rows->stored(row, column(CashMove::Missing)).isEmpty())
            rows->setRowColour(row, invoiceStateColour(InvoiceState::Different));
        else if (!rows->stored(row, column(CashMove::OnTheWay)).isEmpty())
            rows->setRowColour(row, invoiceStateColour(InvoiceState::OnTheWay));
    }
}

Commands QCashReport::commands() const
{
    Commands offered = QTab::commands();
    offered.remove(Command::Delete);
    return offered;
}

void QCashReport::Edit(const QModelIndex &index)
{
    if (index.isValid())
        m_moves->enter();
}

bool QCashReport::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_moves->view() || event->type() != QEvent::KeyPress)
        return QTab::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter)
        return QTab::eventFilter(watched, event);
    openMove(m_moves->view()->currentIndex());
    return true;
}

void QCashReport::openMove(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    const auto number = [&](CashMove of) { return m_moves->model()->stored(index.row(), column(of)); };
    if (number(CashMove::ZNumber) == QLatin1String("0"))
        return emit invoiceWanted(number(CashMove::Number).toUInt());
    ChekOrigin origin;
    origin.shop = number(CashMove::ShopId).toUInt();
    origin.kass = number(CashMove::KassId).toUInt();
    origin.zFrom = origin.zTo = number(CashMove::ZNumber);
    origin.chek = number(CashMove::Number).toUInt();
    emit cheksWanted(origin);
}

/// The tab may go while the window is open, and the window with it.
void QCashReport::Add()
{
    if (!user()->mayEdit(Permission::Finance))
        return;
    user()->beginAct();
    const QPointer<QCashReport> open = this;
    QServiceCash::Where where;
    where.right = Permission::Finance;
    auto *dialog = new QServiceCash(db().connection()->connectionName(), user(), receiver(), where, this);
    dialog->exec();
    if (!open)
        return;
    if (dialog->wasWritten()) {
        const WrittenChek &chek = dialog->result().chek;
        std::optional<NoticeBar::Slip> slip;
        if (user()->maySee(Permission::Cheks))
            slip = NoticeBar::Slip{chek.place.kass, chek.number};
        ui->notice->tell(dialog->writtenWords(), slip);
    }
    const bool isListOld = dialog->wasWritten() || dialog->isUnclear();
    delete dialog;
    window()->activateWindow();
    view()->setFocus();
    if (isListOld)
        reload();
}
