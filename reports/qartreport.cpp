#include "qartreport.h"
#include "ui_qartreport.h"

#include "dbtasks.h"
#include "money.h"
#include "qloadeduser.h"
#include "qrowmodel.h"
#include "reportformats.h"
#include "shopgroups.h"
#include "typedinput.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace {
enum ArtColumn { Code, Barcode, Name, Price, Count, Sum, Discount, Day, IsNoWeight };

constexpr int topCount = 10;

qint64 units(const QRowModel *model, int row, int column)
{
    qint64 value = 0;
    roundedUnits(model->storedBytes(row, column), &value);
    return value;
}

/// Thousandths as whole pieces, halves away from zero.
QString piecesShown(qint64 thousandths)
{
    const qint64 pieces = (qAbs(thousandths) + 500) / 1000 * (thousandths < 0 ? -1 : 1);
    QString text = quantityShown(pieces * 1000);
    text.chop(4);
    return text;
}

/// An article in the list: its first row, and the sum of all of them (its prices and days).
struct ArticleSum
{
    int row;
    qint64 sum;
};

/// The articles with the largest sums.
QVector<BarList::Bar> topArticles(const QRowModel *model)
{
    std::vector<ArticleSum> articles;
    std::unordered_map<std::string_view, size_t> places;
    places.reserve(static_cast<size_t>(model->rowCount()));
    for (int row = 0; row < model->rowCount(); ++row) {
        const auto [place, isNew] = places.try_emplace(model->storedBytes(row, Code), articles.size());
        if (isNew)
            articles.push_back({row, 0});
        articles[place->second].sum += units(model, row, Sum);
    }
    const size_t count = std::min<size_t>(topCount, articles.size());
    std::partial_sort(articles.begin(), articles.begin() + static_cast<int>(count), articles.end(),
                      [](const auto &one, const auto &other) { return one.sum > other.sum; });
    articles.resize(count);
    QVector<BarList::Bar> bars;
    for (const ArticleSum &article : articles)
        bars.append({model->stored(article.row, Name), article.sum, moneyShown(article.sum)});
    return bars;
}
} // namespace

QArtReport::QArtReport(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent)
    : ReportWindow(db, user, mainWindow, parent)
    , ui(std::make_unique<Ui::QArtReport>())
    , m_registers(newTasks())
{
    ui->setupUi(this);
    setUpList();
    setUpChoice();
    setUpPlace();
    setUpNumbers(&m_start, ui->cbZStart, false);
    setUpNumbers(&m_end, ui->cbZEnd, true);
    fillGoodsGroups();
    offerPlaces([this] {
        GroupChanged(QString());
        refillNumbers();
    });
}

QArtReport::~QArtReport() = default;

void QArtReport::setUpList()
{
    takeList(ui->listArticles, ui->pbLoad, ui->pbStop);
    list()->breakCaptions();
    setColumns({{tr("Початковий код"), 5, &asNumber},
                {tr("штрихкод"), 14},
                {tr("назва"), 41},
                {tr("середня ціна"), 10, &asRoundedMoney},
                {tr("сума / кількість"), 11, &asQuantity},
                {tr("сума"), 10, &asRoundedMoney},
                {tr("знижка"), 10, &asRoundedMoney},
                {tr("дата"), 10, &asDay},
                {QStringLiteral("isNoWeight"), 0, &asText, true}});
    list()->sumUsually(Sum);
    list()->connectOpening([this](const QModelIndex &line) { showReceipts(line); });
}

void QArtReport::setUpChoice()
{
    ui->range->hideNumbers();
    limitTo(ui->leLimit, "^[0-9]{0,9}$");
    connect(ui->range, &RangeSelector::firstDayChanged, this, &QArtReport::changDateStart);
    connect(ui->range, &RangeSelector::lastDayChanged, this, &QArtReport::changDateEnd);
    connect(ui->pbNumbers, &QPushButton::clicked, this, &QArtReport::refillNumbers);
    connect(ui->pbLoad, &QPushButton::clicked, this, &QArtReport::load);
    connect(ui->leLimit, &QLineEdit::returnPressed, this, &QArtReport::load);
    connect(ui->chChart, &QCheckBox::toggled, ui->chart, &QWidget::setVisible);
}

void QArtReport::setUpPlace()
{
    connect(ui->place, &PlaceSelector::groupChanged, this, &QArtReport::GroupChanged);
    connect(ui->place, &PlaceSelector::shopChanged, this, &QArtReport::ShopChanged);
    connect(ui->place, &PlaceSelector::registerChanged, this, &QArtReport::showNumbersPlace);
    // What the hand has ticked stays so.
    connect(ui->chDatesOnly, &QCheckBox::clicked, this, [this] {
        m_registers->drop();
        goOnLoading();
    });
}

void QArtReport::setUpNumbers(Numbers *numbers, QComboBox *box, bool isGreatestChosen)
{
    numbers->box = box;
    numbers->isGreatestChosen = isGreatestChosen;
    numbers->reader = new BoxReader(box, this);
    numbers->reader->open(connection()->connectionName(), mainWindow());
    connect(numbers->reader, &BoxReader::filled, this, [this, numbers] {
        chooseNumber(numbers);
        goOnLoading();
    });
    connect(box, qOverload<int>(&QComboBox::activated), this,
            [numbers, box] { numbers->picked = box->currentText(); });
}

void QArtReport::fillGoodsGroups()
{
    m_goodsGroups = new BoxReader(ui->cbGoodsGroups, this);
    m_goodsGroups->open(connection()->connectionName(), mainWindow());
    m_goodsGroups->setFirstItem(tr("Усі групи товарів"));
    connect(m_goodsGroups, &BoxReader::filled, this, [this] {
        ui->cbGoodsGroups->setChekedItem(0, Qt::Checked);
        goOnLoading();
    });
    m_goodsGroups->read(QStringLiteral("SELECT name,id FROM group_goods"));
    ui->cbGoodsGroups->setChekedItem(0, Qt::Checked);
}

void QArtReport::GroupChanged(const QString &group)
{
    Q_UNUSED(group)
    const uint id = ui->place->place().group;
    const QString condition =
        id == 0 ? inShopGroups(QStringLiteral("group_shop"), shopGroupsSeen(*user()))
                : QStringLiteral(" (group_shop=") + QString::number(id) + QStringLiteral(" OR group_shop=1)");
    ui->place->refillShops(QStringLiteral("SELECT address,id FROM shops WHERE") + condition +
                           QStringLiteral(" AND block=0"));
    showNumbersPlace();
}

void QArtReport::ShopChanged(const QString &shop)
{
    Q_UNUSED(shop)
    ui->place->refillRegisters(QStringLiteral("SELECT advertising_str,id FROM kassa WHERE id_shop=") +
                               QString::number(ui->place->place().shop) + QStringLiteral(" AND block=0"));
    showNumbersPlace();
}

void QArtReport::placeChosen()
{
    showNumbersPlace();
    if (std::exchange(m_refillsNumbers, false))
        refillNumbers();
    offerDatesOnly();
}

bool QArtReport::isChoosing() const
{
    return ReportWindow::isChoosing() || m_start.reader->isReading() || m_end.reader->isReading() ||
           m_goodsGroups->isReading() || m_registers->isWaiting();
}

namespace {
/// The place of the least or the greatest number.
int placeOfNumber(const QComboBox *box, bool greatest)
{
    int place = 0;
    for (int i = 1; i < box->count(); ++i) {
        const uint number = box->itemText(i).toUInt();
        const uint best = box->itemText(place).toUInt();
        if (greatest ? number > best : number < best)
            place = i;
    }
    return place;
}
} // namespace

/// The day's first or last shift, so that the whole day is in the range; but a number that was picked by hand
/// stays as long as it is one of the same day.
void QArtReport::chooseNumber(Numbers *numbers)
{
    const int picked = numbers->picked.isEmpty() ? -1 : numbers->box->findText(numbers->picked);
    if (picked < 0)
        numbers->picked.clear();
    if (numbers->box->count() > 0)
        numbers->box->setCurrentIndex(picked >= 0 ? picked
                                                  : placeOfNumber(numbers->box, numbers->isGreatestChosen));
}

void QArtReport::changDateStart(const QDate &day)
{
    if (takesPlace({&m_start}))
        readNumbers(&m_start, day, numbersOf(day), BoxReader::AfterTyping);
}

void QArtReport::changDateEnd(const QDate &day)
{
    if (takesPlace({&m_end}))
        readNumbers(&m_end, day, numbersOf(day), BoxReader::AfterTyping);
}

void QArtReport::refillNumbers()
{
    if (!takesPlace({&m_start, &m_end}))
        return;
    const QDate first = ui->range->firstDay();
    const QDate last = ui->range->lastDay();
    const BoxReader::Read ofFirst = numbersOf(first);
    readNumbers(&m_start, first, ofFirst, BoxReader::AtOnce);
    readNumbers(&m_end, last, first == last ? ofFirst : numbersOf(last), BoxReader::AtOnce);
}

/// False while the place is on its way: the numbers are read when it is there.
bool QArtReport::takesPlace(const QVector<Numbers *> &ends)
{
    m_refillsNumbers = ui->place->isReading();
    for (Numbers *numbers : ends) {
        if (m_refillsNumbers)
            numbers->reader->clear();
    }
    return !m_refillsNumbers;
}

/// Both ends of the range may ask for the same day: it is read once.
BoxReader::Read QArtReport::numbersOf(const QDate &day) const
{
    const auto found = std::make_shared<std::optional<ListEntries>>();
    return [found, sql = zNumbersStatement(place(), day)](const Db &db) {
        if (!*found)
            *found = readEntries(db, sql);
        return *found;
    };
}

void QArtReport::readNumbers(Numbers *numbers, const QDate &day, const BoxReader::Read &work,
                             BoxReader::When when)
{
    m_numbersPlace = ui->place->description();
    if (numbers->day != day || numbers->place != m_numbersPlace)
        numbers->picked.clear();
    numbers->day = day;
    numbers->place = m_numbersPlace;
    numbers->reader->read(work, when);
    showNumbersPlace();
}

namespace {
QString registersSql(const ArtPlace &place)
{
    const QString where = place.shop != 0 ? QStringLiteral(" kassa.id_shop=%1").arg(place.shop)
                          : place.group != 0
                              ? QStringLiteral(" shops.group_shop=%1").arg(place.group)
                              : inShopGroups(QStringLiteral("shops.group_shop"), place.permittedGroups);
    return QStringLiteral("SELECT COUNT(*) FROM kassa LEFT JOIN shops ON kassa.id_shop=shops.id WHERE") +
           where;
}
} // namespace

void QArtReport::offerDatesOnly()
{
    const auto offer = [this](bool several) {
        if (several != m_hasSeveralRegisters)
            ui->chDatesOnly->setChecked(several);
        m_hasSeveralRegisters = several;
    };
    m_registers->drop();
    if (place().kass != 0)
        offer(false);
    else
        m_registers->read([sql = registersSql(place())](
                              const Db &db) { return db.firstText(sql).value_or(QString()).toInt() > 1; },
                          [this, offer](bool several) {
                              offer(several);
                              goOnLoading();
                          });
}

void QArtReport::showNumbersPlace()
{
    const bool isSame = m_numbersPlace.isEmpty() || m_numbersPlace == ui->place->description();
    ui->labelNumbersPlace->setText(
        isSame ? QString() : tr("Номери змін узято для іншого місця: %1.").arg(m_numbersPlace));
}

ArtPlace QArtReport::place() const
{
    return {ui->place->place(), shopGroupsSeen(*user())};
}

ArtChoice QArtReport::choice() const
{
    ArtChoice choice;
    choice.place = place();
    choice.zFrom = QString::number(ui->cbZStart->currentText().toUInt());
    choice.zTo = QString::number(ui->cbZEnd->currentText().toUInt());
    choice.averagePrice = ui->chAverage->isChecked();
    choice.byDay = !ui->chNoDate->isChecked();
    choice.allGoods = ui->cbGoodsGroups->isAllSelect();
    const QVariantList checked = ui->cbGoodsGroups->listData(Qt::UserRole);
    for (const QVariant &id : checked)
        choice.goodsGroups.append(QString::number(id.toUInt()));
    choice.limit = ui->leLimit->text();
    if (ui->chDatesOnly->isChecked()) {
        choice.firstDay = ui->range->firstDay();
        choice.lastDay = ui->range->lastDay();
    }
    return choice;
}

QString QArtReport::missingNumbers(const QDate &day) const
{
    return tr("За %1 немає Z-звітів (%2). Виберіть день, за який вони є, або оновіть номери змін.")
        .arg(day.toString(QStringLiteral("dd.MM.yyyy")), m_numbersPlace);
}

QString QArtReport::refusal() const
{
    if (ui->cbZStart->count() == 0)
        return missingNumbers(ui->range->firstDay());
    if (ui->cbZEnd->count() == 0)
        return missingNumbers(ui->range->lastDay());
    if (ui->cbZStart->currentText().toUInt() > ui->cbZEnd->currentText().toUInt())
        return tr("Початковий номер зміни більший за кінцевий.");
    return ui->leLimit->hasAcceptableInput() ? QString() : tr("Ліміт має бути цілим числом.");
}

void QArtReport::load()
{
    if (loadsLater() || refuse(refusal()))
        return;
    m_asked = choice();
    loadList(articlesStatement(m_asked), asked(), bonusStatement(m_asked));
}

QStringList QArtReport::asked() const
{
    QString range = tr("зміни %1 – %2").arg(m_asked.zFrom, m_asked.zTo);
    if (m_asked.firstDay.isValid())
        range += tr(", продано %1").arg(daysShown(m_asked.firstDay, m_asked.lastDay));
    QStringList lines = {tr("Звіт по товарах"), ui->place->description(), range};
    if (!m_asked.allGoods)
        lines.append(tr("Групи товарів: %1").arg(ui->cbGoodsGroups->listTexts().join(QStringLiteral(", "))));
    if (!m_asked.limit.isEmpty())
        lines.append(tr("не більше %1").arg(m_asked.limit));
    return lines;
}

void QArtReport::rowsShown()
{
    m_shown = m_asked;
    model()->setHeaderData(Price, Qt::Horizontal, m_shown.averagePrice ? tr("середня ціна") : tr("ціна"));
    ui->leBonus->setText(moneyShown(list()->number()));
    calcsum();
    drawTop();
}

void QArtReport::calcsum()
{
    qint64 weight = 0;
    qint64 pieces = 0;
    qint64 value = 0;
    for (int row = model()->rowCount() - 1; row >= 0; --row) {
        const bool isPiece = model()->storedBytes(row, IsNoWeight) == "1";
        (isPiece ? pieces : weight) += units(model(), row, Count);
        value += units(model(), row, Sum);
    }
    ui->leWeight->setText(quantityShown(weight));
    ui->lePieces->setText(piecesShown(pieces));
    ui->leValue->setText(moneyShown(value - list()->number()));
}

void QArtReport::drawTop()
{
    ui->topArticles->setBars(topArticles(model()));
}

void QArtReport::showReceipts(const QModelIndex &line)
{
    if (line.isValid())
        emit cheksWanted(originOf(line.row()));
}

ChekOrigin QArtReport::originOf(int row) const
{
    ChekOrigin origin;
    static_cast<Place &>(origin) = m_shown.place;
    origin.groups = m_shown.place.permittedGroups;
    origin.zFrom = m_shown.zFrom;
    origin.zTo = m_shown.zTo;
    origin.firstDay = m_shown.firstDay;
    origin.lastDay = m_shown.lastDay;
    if (m_shown.byDay)
        origin.firstDay = origin.lastDay = QDate::fromString(model()->stored(row, Day).left(10), Qt::ISODate);
    origin.article = model()->stored(row, Code);
    origin.articleName = model()->stored(row, Name);
    if (!m_shown.averagePrice)
        origin.price = model()->stored(row, Price);
    return origin;
}

QStringList QArtReport::totals() const
{
    QStringList lines;
    for (const QLabel *label : {ui->labelBonus, ui->labelWeight, ui->labelPieces, ui->labelValue})
        lines.append(label->text() + QLatin1Char(' ') +
                     qobject_cast<const QLineEdit *>(label->buddy())->text());
    return lines;
}
