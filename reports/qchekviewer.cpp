#include "qchekviewer.h"
#include "ui_qchekviewer.h"

#include "cheklist.h"
#include "cheks.h"
#include "dbtasks.h"
#include "destination.h"
#include "money.h"
#include "placenames.h"
#include "qloadeduser.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"
#include "queryservice.h"
#include "shopgroups.h"
#include "signs.h"

#include <QItemSelectionModel>

namespace {
const QRgb mismatchColour = 0xffff3333;

quint64 keyOf(const QString &kass, const QString &chek)
{
    return quint64(kass.toUInt()) << 32U | chek.toUInt();
}

} // namespace

QChekViewer::QChekViewer(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : ReportWindow(db, user, mainWindow, parent)
    , ui(std::make_unique<Ui::QChekViewer>())
    , m_slips(newTasks())
    , m_origins(newTasks())
{
    ui->setupUi(this);
    takeList(ui->listCheks, ui->pbLoad, ui->pbStop);
    InsertColumnsListCheks();
    ui->splitter->setStretchFactor(0, 7);
    ui->splitter->setStretchFactor(1, 3);
    ui->slip->setReceiver(mainWindow);
    offerPlaces([this] { GroupChanged(ui->place->groupName()); });
    connectWidgets();
    connectSlip();
    setOrigin({});
}

QChekViewer::~QChekViewer() = default;

void QChekViewer::InsertColumnsListCheks()
{
    setColumns(ChekList::columns());
    view()->setMainColumn(-1);
}

void QChekViewer::connectWidgets()
{
    connect(ui->place, &PlaceSelector::groupChanged, this, &QChekViewer::GroupChanged);
    connect(ui->place, &PlaceSelector::shopChanged, this, &QChekViewer::ShopChanged);
    connect(ui->pbLoad, &QPushButton::clicked, this, &QChekViewer::load);
    connect(ui->chCheckSums, &QCheckBox::toggled, this, &QChekViewer::checkSums);
    for (const auto changed :
         {&PlaceSelector::groupChanged, &PlaceSelector::shopChanged, &PlaceSelector::registerChanged})
        connect(ui->place, changed, this, &QChekViewer::forgetOrigin);
    connect(ui->range, &RangeSelector::changed, this, &QChekViewer::forgetOrigin);
    connect(ui->place, &PlaceSelector::chosen, this, [this] { m_isShowingOrigin = false; });
    connect(ui->place, &PlaceSelector::touched, this, &QChekViewer::leaveOrigin);
    connect(ui->pbWholePlace, &QPushButton::clicked, this, [this] {
        forgetOrigin();
        load();
    });
}

void QChekViewer::connectSlip()
{
    const auto showCurrent = [this] { dclicktable(view()->currentIndex()); };
    connect(&m_selection, &TypingPause::ended, this, showCurrent);
    connect(view()->selectionModel(), &QItemSelectionModel::currentRowChanged, &m_selection,
            &TypingPause::begin);
    list()->connectOpening([this](const QModelIndex &line) { dclicktable(line); });
}

void QChekViewer::GroupChanged(const QString &group)
{
    if (group.isEmpty())
        ui->place->refillShops(QStringLiteral("SELECT address FROM shops WHERE") +
                               inShopGroups(QStringLiteral("group_shop"), shopGroupsSeen(*user())) +
                               QStringLiteral(" AND block=0"));
    else
        ui->place->refillShops(
            QStringLiteral("SELECT address FROM shops WHERE (group_shop IN (SELECT id FROM "
                           "group_shop WHERE name=:name) or group_shop=1) AND block=0"),
            {{QStringLiteral(":name"), group}});
}

void QChekViewer::ShopChanged(const QString &shop)
{
    // Under the name that the log has for it everywhere.
    postTrace(mainWindow(), QStringLiteral("QCashDrive::ShopChanged(QString str)"));
    ui->place->refillRegisters(QStringLiteral("SELECT advertising_str FROM kassa WHERE id_shop=(SELECT id "
                                              "FROM shops WHERE address=:name) AND block=0"),
                               {{QStringLiteral(":name"), shop}});
}

void QChekViewer::showid(bool byNumber)
{
    ui->range->setByNumber(byNumber);
}

void QChekViewer::showOrigin(const ChekOrigin &origin)
{
    m_origins->drop();
    m_origins->read([place = Place(origin)](const Db &db) { return readPlaceNames(db, place); },
                    [this, origin](const PlaceNames &names) { showPlace(origin, names); });
    load();
    view()->setFocus();
}

void QChekViewer::showPlace(const ChekOrigin &origin, const PlaceNames &names)
{
    m_isShowingOrigin = true;
    setOrigin(origin);
    const bool isByShift = !origin.zFrom.isEmpty() || !origin.firstDay.isValid();
    showid(isByShift);
    if (isByShift)
        ui->range->setNumbers(QString::number(origin.zFrom.toUInt()), QString::number(origin.zTo.toUInt()));
    else
        ui->range->setDays(origin.firstDay, origin.lastDay);
    ui->place->showPlace(names.group, names.shop, names.kass);
}

bool QChekViewer::isChoosing() const
{
    return ReportWindow::isChoosing() || m_origins->isWaiting();
}

namespace {
/// What a line limits beside place and shifts, in words; empty for nothing.
QString limitsOf(const ChekOrigin &origin)
{
    QStringList limits;
    if (!origin.article.isEmpty())
        limits.append(QChekViewer::tr("лише чеки з товаром %1 %2").arg(origin.article, origin.articleName));
    if (!origin.price.isEmpty())
        limits.append(QChekViewer::tr("ціна %1").arg(moneyShown(origin.price.toLongLong())));
    if (origin.firstDay.isValid())
        limits.append(QChekViewer::tr("продано %1").arg(daysShown(origin.firstDay, origin.lastDay)));
    return limits.join(QStringLiteral(", "));
}
} // namespace

void QChekViewer::setOrigin(const std::optional<ChekOrigin> &origin)
{
    m_origin = origin;
    const QString limits = origin ? limitsOf(*origin) : QString();
    ui->labelOrigin->setText(limits);
    ui->labelOrigin->setHidden(limits.isEmpty());
    ui->pbWholePlace->setHidden(limits.isEmpty());
}

/// The user's hand was faster than the line's place.
void QChekViewer::leaveOrigin()
{
    if (m_origins->isWaiting() || m_isShowingOrigin)
        forgetLoad();
    m_origins->drop();
    m_isShowingOrigin = false;
}

void QChekViewer::forgetOrigin()
{
    if (!m_isShowingOrigin)
        setOrigin({});
}

ChekFilter QChekViewer::filter() const
{
    const PlaceSelector &place = *ui->place;
    const RangeSelector &range = *ui->range;
    ChekFilter filter = {place.narrowest(),
                         place.groupName(),
                         place.shopName(),
                         place.registerName(),
                         range.isByNumber(),
                         range.from(),
                         range.to(),
                         {},
                         m_origin};
    return filter;
}

QStringList QChekViewer::asked() const
{
    QStringList lines = {windowTitle(), ui->place->description(), ui->range->description()};
    if (!ui->labelOrigin->text().isEmpty())
        lines.append(ui->labelOrigin->text());
    return lines;
}

void QChekViewer::load()
{
    if (loadsLater() || refuse(ui->range->refusal()))
        return;
    m_asked = filter();
    m_keepsSlip = false;
    const auto loadFor = [this, lines = asked()](const QStringList &groups) {
        m_asked.groups = groups;
        loadList(chekListSql(m_asked), lines);
    };
    if (m_asked.narrowest == PlaceSelector::Everywhere && !m_asked.origin)
        askSeenGroups(loadFor);
    else
        loadFor({});
}

RowStore QChekViewer::arranged(RowStore &&found)
{
    ChekList list = ChekList::from(found);
    m_sum = list.sum;
    m_shops = list.shops;
    return std::move(list.rows);
}

void QChekViewer::rowsShown()
{
    m_listed = m_asked;
    m_selection.drop();
    if (!m_keepsSlip) {
        m_slips->drop();
        ui->slip->clear();
    }
    m_keepsSlip = false;
    if (m_origin && model()->rowCount() > 0)
        view()->setCurrentIndex(model()->index(rowOf(m_origin->chek), ChekList::Number));
    ui->labelSum->setText(totals().constFirst());
    m_mismatches.clear();
    checkSums(ui->chCheckSums->isChecked());
}

/// The first row for a receipt that is not there.
int QChekViewer::rowOf(uint chek) const
{
    for (int row = 0; chek != 0 && row < model()->rowCount(); ++row) {
        if (model()->number(row, ChekList::Number) == chek)
            return row;
    }
    return 0;
}

QStringList QChekViewer::totals() const
{
    return {tr("Сума по чеках") + QStringLiteral(": ") + moneyShown(m_sum)};
}

void QChekViewer::checkSums(bool check)
{
    if (m_checker != nullptr)
        m_checker->cancel();
    colourMismatches(QColor());
    m_mismatches.clear();
    ui->labelCheck->clear();
    if (!check || model()->rowCount() == 0)
        return;
    if (m_checker == nullptr) {
        m_checker = new QueryOwner(connection()->connectionName(), this);
        m_checker->setLong(true);
        connect(m_checker, &QueryOwner::answered, this, &QChekViewer::showChecked);
    }
    ui->labelCheck->setText(tr("Перевірка сум…"));
    m_checker->ask({chekMismatchSql(m_listed)});
}

void QChekViewer::showChecked(const std::shared_ptr<QueryAnswer> &found)
{
    if (found->error.isEmpty()) {
        const RowStore &rows = found->results.front();
        for (int row = 0; row < rows.rowCount(); ++row)
            m_mismatches.insert(keyOf(asNumber.plain(rows.cell(row, 0)), asNumber.plain(rows.cell(row, 1))));
        colourMismatches(QColor(mismatchColour));
        ui->labelCheck->setText(m_mismatches.isEmpty()
                                    ? tr("Суми збігаються.")
                                    : tr("Суми не збігаються, чеків: %1").arg(m_mismatches.size()));
    } else {
        postMessage(mainWindow(), tr("Помилка запиту:") + QLatin1Char('\n') + found->error, found->kind);
        ui->labelCheck->setText(tr("Суми не перевірено."));
    }
    emit checked();
}

void QChekViewer::colourMismatches(const QColor &colour)
{
    for (int row = 0; row < model()->rowCount() && !m_mismatches.isEmpty(); ++row) {
        const QString kass = model()->stored(row, ChekList::Register);
        if (m_mismatches.contains(keyOf(kass, model()->stored(row, ChekList::Number))))
            markMismatch(row, colour);
    }
}

void QChekViewer::markMismatch(int row, const QColor &colour)
{
    model()->setRowColour(row, colour);
    const QModelIndex number = model()->index(row, ChekList::Number);
    if (colour.isValid())
        showSign(model(), number, Sign::Different, tr("Суми чека не збігаються."));
    else
        endSign(model(), number);
}

void QChekViewer::dclicktable(const QModelIndex &index)
{
    if (index.isValid())
        showChekOrZvit(model()->stored(index.row(), ChekList::Type),
                       model()->stored(index.row(), ChekList::Number),
                       model()->stored(index.row(), ChekList::Register));
}

void QChekViewer::showChekOrZvit(const QString &type, const QString &chek, const QString &kass)
{
    const uint id = kass.toUInt();
    const SlipKey key = {{0, m_shops.value(id), id}, chek.toUInt()};
    showDocument([key, kind = type.toInt()](const Db &db) { return readSlip(db, kind, key); });
}

void QChekViewer::showReceipt(uint kass, uint chek)
{
    m_keepsSlip = isLoading();
    const SlipKey key = {{0, 0, kass}, chek};
    showDocument([key](const Db &db) { return readNewSlip(db, key); });
}

void QChekViewer::showDocument(const std::function<std::optional<Slip>(const Db &)> &read)
{
    m_selection.drop();
    m_slips->drop();
    ui->slip->expect();
    m_slips->read(read, [this](const std::optional<Slip> &document) {
        if (document)
            ui->slip->showSlip(*document);
        else
            ui->slip->keep();
    });
}

QString QChekViewer::slip() const
{
    return ui->slip->html();
}
