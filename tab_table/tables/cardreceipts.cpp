#include "cardreceipts.h"
#include "ui_cardreceipts.h"

#include "cheks.h"
#include "combos.h"
#include "listpane.h"
#include "money.h"
#include "permittedlists.h"
#include "qrowmodel.h"
#include "shopgroups.h"
#include "sqldate.h"
#include "tuning.h"

#include <QDate>
#include <QSqlDatabase>

namespace {
enum ColumnOf { Time, Shop, Register, Number, Rate, Discount, Paid };

/// So many receipt rows are read through in a moment, whatever keys there are.
const qint64 fewRows = 100000;
} // namespace

/// What can be known without reading the receipts.
struct CardReceipts::Ways
{
    ListEntries shops;
    AllShops all = AllShops::No;
};

std::optional<CardReceipts::Ways> CardReceipts::findWays(const Db &db, const QString &shopsSql)
{
    const auto shops = readPermittedShops(db, shopsSql);
    const auto tuned = shops ? tunedState(db) : std::nullopt;
    const auto rows =
        tuned ? db.firstText(QStringLiteral("SELECT TABLE_ROWS FROM INFORMATION_SCHEMA.TABLES WHERE "
                                            "TABLE_SCHEMA=DATABASE() AND TABLE_NAME='cheks'"))
              : std::nullopt;
    if (!rows)
        return std::nullopt;
    const auto withoutKey = rows->toLongLong() <= fewRows ? AllShops::Few : AllShops::No;
    return Ways{*shops, *tuned == TunedState::Whole ? AllShops::ByTime : withoutKey};
}

CardReceipts::CardReceipts(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver, QWidget *parent)
    : QWidget(parent)
    , ui(std::make_unique<Ui::CardReceipts>())
    , m_db(db)
    , m_user(user)
    , m_receiver(receiver)
    , m_tasks(db->connectionName(), receiver, nullptr)
{
    ui->setupUi(this);
    buildList();
    buildChoices();
    readWays();
}

CardReceipts::~CardReceipts() = default;

void CardReceipts::buildList()
{
    ui->list->open(m_db, m_user, m_receiver);
    ui->list->expectLongLoads();
    ui->list->setButtons(nullptr, ui->pbStop);
    ui->list->breakCaptions();
    ui->list->setColumns({{tr("Час"), 15, &asDateTime},
                          {tr("Магазин"), 16},
                          {tr("Каса"), 7},
                          {tr("Чек"), 7, &asNumber},
                          {tr("Знижка, %"), 6, &asRate},
                          {tr("Знижка"), 8, &asSum},
                          {tr("Сплачено"), 9, &asSum}},
                         QStringLiteral("CardReceipts"));
    ui->list->setEmptyText(tr("Чеків зі знижкою за цією карткою немає."));
    connect(ui->list, &ListPane::rowsShown, this, &CardReceipts::tellSums);
}

void CardReceipts::buildChoices()
{
    showEntries(ui->cbDays, {{tr("31 день"), 31}, {tr("92 дні"), 92}, {tr("366 днів"), 366}});
    showEntries(ui->cbShop, {{tr("Всі магазини"), 0}});
    keepNarrow(ui->cbShop);
    for (QComboBox *box : {ui->cbDays, ui->cbShop})
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &CardReceipts::search);
}

/// Again for every opening of the panel: the keys may have been added meanwhile.
void CardReceipts::readWays()
{
    const QString shopsSql = permittedShopsSql(*m_user);
    m_tasks.read([shopsSql](const Db &db) { return findWays(db, shopsSql); },
                 [this](const std::optional<Ways> &ways) {
                     if (!ways)
                         return;
                     m_allShops = ways->all;
                     showEntriesAgain(ui->cbShop, ListEntries{{tr("Всі магазини"), 0}} + ways->shops);
                     search();
                 });
}

ListPane *CardReceipts::list() const
{
    return ui->list;
}

bool CardReceipts::isLoading() const
{
    return m_tasks.isWaiting() || ui->list->isLoading();
}

void CardReceipts::showCard(const ShownCard &card)
{
    m_card = card;
    ui->labelCard->setText(card.code.isEmpty() ? tr("Виберіть картку у списку.")
                                               : tr("Картка %1 %2").arg(card.code, card.name));
    ui->labelSums->setText(
        card.code.isEmpty()
            ? QString()
            : tr("Сума покупок %1, сума бонусів %2").arg(moneyShown(card.purchases), moneyShown(card.bonus)));
    search();
}

/// A key over time leads to the days; without it a shop's receipts are the least that can be read.
void CardReceipts::search()
{
    ui->list->clear();
    ui->labelRange->clear();
    if (m_card.code.isEmpty() || !m_allShops)
        return;
    if (isEveryShop() && m_allShops == AllShops::No)
        return ui->labelRange->setText(
            tr("Виберіть магазин: у базі немає індексів для швидких звітів, і без магазину довелося б "
               "прочитати всі чеки мережі."));
    const QDate since = QDate::currentDate().addDays(1 - ui->cbDays->currentData().toInt());
    ui->labelRange->setText(
        tr("Чеки зі знижкою за карткою від %1.").arg(since.toString(QStringLiteral("dd.MM.yyyy"))));
    ui->list->setHeading({ui->labelCard->text(), ui->cbShop->currentText(), ui->labelRange->text()});
    ui->list->load(statement(since));
}

bool CardReceipts::isEveryShop() const
{
    return ui->cbShop->currentData().toUInt() == 0;
}

/// The order of the tables is given: the server would begin with the shops and read all that they sold.
/// The card stands in the discount's row of a receipt, what was paid in the payment's.
QString CardReceipts::statement(const QDate &since) const
{
    const QString cheks =
        isEveryShop() && m_allShops == AllShops::ByTime ? cheksByTime() : QStringLiteral("cheks");
    const QString place = isEveryShop()
                              ? inShopGroups(QStringLiteral("shops.group_shop"), shopGroupsSeen(*m_user))
                              : QStringLiteral(" cheks.id_shop=") + ui->cbShop->currentData().toString();
    return QStringLiteral("SELECT STRAIGHT_JOIN cheks.data_time,shops.address,kassa.advertising_str,"
                          "cheks.id_chek,cheks.price,cheks.summa,paid.summa FROM %1 JOIN shops ON "
                          "cheks.id_shop=shops.id LEFT JOIN kassa ON cheks.id_kass=kassa.id LEFT JOIN cheks "
                          "AS paid ON paid.id_shop=cheks.id_shop AND paid.id_kass=cheks.id_kass AND "
                          "paid.id_chek=cheks.id_chek AND paid.id_type=%2 WHERE cheks.data_time>=%3 AND "
                          "cheks.id_type=%4 AND cheks.id_good_cln_slujb=%5 AND")
               .arg(cheks)
               .arg(ChekType::Payment)
               .arg(sqlDayStart(since))
               .arg(ChekType::Discount)
               .arg(m_card.code) +
           place + QStringLiteral(" ORDER BY cheks.data_time DESC");
}

void CardReceipts::tellSums()
{
    qint64 paid = 0;
    qint64 discount = 0;
    const QRowModel *rows = ui->list->model();
    for (int row = 0; row < rows->rowCount(); ++row) {
        paid += rows->stored(row, Paid).toLongLong();
        discount += rows->stored(row, Discount).toLongLong();
    }
    ui->list->setDetails(tr("сплачено %1, знижка %2").arg(moneyShown(paid), moneyShown(discount)));
}
