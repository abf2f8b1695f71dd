#include "attention.h"

#include "money.h"
#include "permissions.h"
#include "qloadeduser.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(AttentionList)
};

/// The list that shows an entry, and who may open it.
struct Way
{
    const char *action = nullptr;
    int permission = -1;
};
const Way shiftTable = {"mt_z_zvits", Permission::ZZvit};
const Way zReports = {"mz_zzvit", Permission::ZReports};
const Way statistics = {"mz_StatisticOnLine", Permission::Online};
const Way registerTable = {"mt_kass", Permission::Kassa};
const Way stockTable = {"mt_goods_shops", Permission::GoodsShops};
const Way actionTable = {"mt_action", Permission::Actions};
const Way goodsTable = {"mt_goods", Permission::Goods};
const Way cardTable = {"mt_clients", Permission::Clients};

/// Those of them that the user may open: the list first, else the report that tells about the same.
void append(QVector<AttentionEntry> *entries, const QLoadedUser &user, const Way &list,
            const AttentionEntry &entry, const Way &report = {}, const ChekOrigin &reported = {})
{
    const bool isList = user.maySee(list.permission);
    if (!isList && (report.action == nullptr || !user.maySee(report.permission)))
        return;
    entries->append(entry);
    Destination &there = entries->last().destination;
    there.action = QLatin1String(isList ? list.action : report.action);
    there.words = entry.words;
    if (!isList)
        there.origin = reported;
}

AttentionEntry entryOf(const QString &words, qint64 count, const QString &condition)
{
    AttentionEntry entry = {words, count, {}};
    entry.destination.condition = condition;
    return entry;
}

void appendShifts(QVector<AttentionEntry> *entries, const QLoadedUser &user, const QString &words,
                  const QVector<ShiftKey> &shifts, const QDate &first, const QDate &last)
{
    ChekOrigin days;
    days.firstDay = first;
    days.lastDay = last;
    append(entries, user, shiftTable, entryOf(words, shifts.size(), shiftsCondition(shifts)), zReports, days);
}

void appendSilent(QVector<AttentionEntry> *entries, const QLoadedUser &user, const ChainState &chain,
                  const QVector<DbId> &registers)
{
    // The statistics are of one shop.
    ChekOrigin shop;
    for (const OverviewShop &one : chain.shops) {
        for (const OverviewRegister &reg : one.registers) {
            if (shop.shop == 0 && registers.contains(reg.id))
                shop.shop = one.id;
        }
    }
    append(entries, user, registerTable,
           entryOf(Texts::tr("Каси без зв'язку понад годину"), registers.size(),
                   idsCondition(QStringLiteral("kassa.id"), registers)),
           statistics, shop);
}
} // namespace

QVector<AttentionEntry> attentionOf(const QLoadedUser &user, const ChainState &chain, const Counted &counted,
                                    const QDateTime &now)
{
    QVector<AttentionEntry> entries;
    appendShifts(&entries, user, Texts::tr("Зміни, відкриті понад добу"), oldShifts(chain, now), {}, {});
    appendSilent(&entries, user, chain, silentRegisters(chain, now));
    appendShifts(&entries, user,
                 Texts::tr("Закриті зміни, суми яких не сходяться (за %1 днів)").arg(drawnDays),
                 chain.disagreeing, chain.today.addDays(1 - drawnDays), chain.today);
    const auto appendCount = [&](const Way &way, Concern concern, const QString &words) {
        append(&entries, user, way,
               entryOf(words, counted.counts.at(static_cast<int>(concern)),
                       countCondition(concern, chain.today)));
    };
    appendCount(stockTable, Concern::NegativeStock, Texts::tr("Від'ємні залишки"));
    appendCount(actionTable, Concern::EndingActions, Texts::tr("Акції, що закінчуються сьогодні"));
    appendCount(goodsTable, Concern::UnpricedGoods, Texts::tr("Товари без ціни"));
    appendCount(cardTable, Concern::BlockedLevels, Texts::tr("Картки на заблокованому рівні"));
    return entries;
}

AttentionList::AttentionList(QWidget *parent) : QListWidget(parent)
{
    setWordWrap(true);
    setResizeMode(Adjust);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem *item) { open(row(item)); });
}

void AttentionList::setEntries(const QVector<AttentionEntry> &entries)
{
    const int current = currentRow();
    m_entries = entries;
    while (count() > entries.size())
        delete takeItem(count() - 1);
    while (count() < entries.size())
        addItem(QString());
    for (int i = 0; i < entries.size(); ++i) {
        const AttentionEntry &entry = entries.at(i);
        QString count = QStringLiteral("…");
        if (entry.count >= 0)
            count =
                (entry.count == 0 ? QStringLiteral("✓ ") : QStringLiteral("! ")) + wholeShown(entry.count);
        item(i)->setText(count + QStringLiteral(" – ") + entry.words);
        QFont font = this->font();
        font.setBold(entry.count > 0);
        item(i)->setFont(font);
    }
    setCurrentRow(qMin(current, count() - 1));
}

void AttentionList::open(int row)
{
    if (row >= 0 && row < m_entries.size() && m_entries.at(row).count > 0)
        emit wanted(m_entries.at(row).destination);
}

void AttentionList::keyPressEvent(QKeyEvent *event)
{
    if (isEnterOfHand(&m_pace, *event))
        open(currentRow());
    else
        QListWidget::keyPressEvent(event);
}
