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
    const char *action;
    int permission;
};
const Way shiftTable = {"mt_z_zvits", Permission::ZZvit};
const Way zReports = {"mz_zzvit", Permission::ZReports};
const Way registerTable = {"mt_kass", Permission::Kassa};
const Way stockTable = {"mt_goods_shops", Permission::GoodsShops};
const Way actionTable = {"mt_action", Permission::Actions};
const Way goodsTable = {"mt_goods", Permission::Goods};
const Way cardTable = {"mt_clients", Permission::Clients};

void append(QVector<AttentionEntry> *entries, const QLoadedUser &user, const Way &way, const QString &words,
            qint64 count, const QString &condition)
{
    if (user.maySee(way.permission))
        entries->append({words, count, {QLatin1String(way.action), condition, words, {}, 0}});
}

/// Who has no right to the table of shifts is led to the Z-reports of the days.
void appendDisagreeing(QVector<AttentionEntry> *entries, const QLoadedUser &user, const ChainState &chain)
{
    const QString words = Texts::tr("Закриті зміни, суми яких не сходяться (за %1 днів)").arg(drawnDays);
    const bool isTable = user.maySee(shiftTable.permission);
    append(entries, user, isTable ? shiftTable : zReports, words, chain.disagreeing.size(),
           shiftsCondition(chain.disagreeing));
    if (!isTable && !entries->isEmpty() && entries->constLast().words == words) {
        entries->last().destination.origin.firstDay = chain.days.constFirst().day;
        entries->last().destination.origin.lastDay = chain.today;
    }
}
} // namespace

QVector<AttentionEntry> attentionOf(const QLoadedUser &user, const ChainState &chain, const Counted &counted,
                                    const QDateTime &now)
{
    const QVector<ShiftKey> old = oldShifts(chain, now);
    const QVector<DbId> silent = silentRegisters(chain, now);
    QVector<AttentionEntry> entries;
    append(&entries, user, shiftTable, Texts::tr("Зміни, відкриті понад добу"), old.size(),
           shiftsCondition(old));
    append(&entries, user, registerTable, Texts::tr("Каси без зв'язку понад годину"), silent.size(),
           idsCondition(QStringLiteral("kassa.id"), silent));
    appendDisagreeing(&entries, user, chain);
    const auto appendCount = [&](const Way &way, Concern count, const QString &words) {
        append(&entries, user, way, words, counted.counts.at(static_cast<int>(count)),
               countCondition(count, chain.today));
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
