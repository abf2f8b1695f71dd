#include "bulkwriter.h"

#include "bulkitems.h"
#include "jobstatements.h"
#include "money.h"
#include "permissions.h"
#include "pricesql.h"
#include "qupdatebd.h"
#include "rightsguard.h"

#include <QCoreApplication>
#include <QHash>
#include <QSet>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(BulkWriter)
};

const int comparedAtOnce = 1000;
/// Each row looks for its value among those of the statement.
const int writtenAtOnce = 500;
const int toldItems = 5;

/// An item as it is now, locked.
struct Now
{
    std::optional<qint64> value;
    bool isBlocked = false;
    DbId group = 0;
    DbId rule = 0;
    /// Of a price to be created: what is in force there.
    std::optional<qint64> basis;
};

QString literal(const std::optional<qint64> &value)
{
    return value ? QString::number(*value) : QStringLiteral("NULL");
}

QString idsOf(const QVector<BulkChange> &changes)
{
    QStringList ids;
    for (const BulkChange &change : changes)
        ids.append(QString::number(change.goods));
    return ids.join(QLatin1Char(','));
}

/// What the SET clause gives a column: one value, or each item its own.
QString valueSql(const QVector<BulkChange> &changes, const QString &idColumn)
{
    const bool isOne = std::all_of(changes.begin(), changes.end(), [&changes](const BulkChange &change) {
        return change.to == changes.first().to;
    });
    if (isOne)
        return literal(changes.first().to);
    QString sql = QStringLiteral("CASE ") + idColumn;
    for (const BulkChange &change : changes)
        sql += QStringLiteral(" WHEN %1 THEN ").arg(change.goods) + literal(change.to);
    return sql + QStringLiteral(" END");
}

/// Writes changes until they are written or certainly not.
class Writer
{
public:
    enum Kind { Forward, Back };

    Writer(JobContext *context, const BulkDone &wanted, Kind kind, const QString &idUser,
           BulkOutcome *outcome)
        : m_context(context)
        , m_wanted(wanted)
        , m_choice(wanted.plan->choice)
        , m_changes(wanted.changes)
        , m_isBack(kind == Back)
        , m_idUser(idUser)
        , m_outcome(outcome)
        , m_statements(context)
    {
    }

    JobResult run()
    {
        if (!m_statements.isOpen())
            return {};
        switch (m_statements.writeWhole({[this] { return write(); }, [this] { return isWritten(); },
                                         [this] { return !m_why.isEmpty(); }})) {
        case JobStatements::End::Written:
            tell();
            return {JobResult::Done, summary(), {}};
        case JobStatements::End::Unclear:
            return {JobResult::Failed,
                    Texts::tr("Невідомо, чи записано: сервер не відповів. Коли зв'язок відновиться, "
                              "перегляньте ще раз: буде видно, що змінилося."),
                    {}};
        case JobStatements::End::Stopped:
            return {JobResult::Cancelled, Texts::tr("Зупинено, у базу нічого не записано."), {}};
        case JobStatements::End::Refused:
            return {JobResult::Failed, m_why, {}};
        default:
            return {JobResult::Failed, Texts::tr("Не вдалося, у базу нічого не записано."), {}};
        }
    }

private:
    /// The slow reads and all locks come first.
    bool write()
    {
        m_written.clear();
        m_others.clear();
        m_now.clear();
        return isAllowed() && compare() && compareRules() && isUndisturbed() && writeAll() && stamp() &&
               !m_context->isCancelled();
    }

    bool refuse(const QString &why)
    {
        m_why = why;
        return false;
    }

    /// The rights as they are by now.
    bool isAllowed()
    {
        const auto mayEdit = userMayEdit(m_statements.db(), m_idUser, Permission::GoodsManagement);
        if (!mayEdit)
            return false;
        QSet<DbId> places;
        for (const BulkChange &change : m_changes)
            places.insert(change.place);
        places.remove(0);
        bool seesAll = true;
        for (const DbId place : qAsConst(places)) {
            auto seen = m_statements.send(
                QStringLiteral("SELECT 1 FROM users JOIN lst_group ON lst_group.id_g_prem=users.id_g_prem "
                               "WHERE users.id=%1 AND lst_group.id_group=%2 LOCK IN SHARE MODE")
                    .arg(lit(m_idUser))
                    .arg(place));
            if (!seen)
                return false;
            seesAll = seesAll && seen->next();
        }
        return (*mayEdit && seesAll) || refuse(rightGoneWords());
    }

    /// In the order of the tables' keys, a part of one place at a time.
    bool inParts(int atOnce, const QVector<BulkChange> &changes,
                 const std::function<bool(const QVector<BulkChange> &part)> &work)
    {
        for (int begin = 0; begin < changes.size();) {
            int end = begin;
            while (end < changes.size() && end - begin < atOnce &&
                   changes.at(end).place == changes.at(begin).place)
                ++end;
            m_context->progress(begin, changes.size());
            if (m_context->isCancelled() || !work(changes.mid(begin, end - begin)))
                return false;
            begin = end;
        }
        return true;
    }

    bool compare()
    {
        m_context->stage(Texts::tr("Звірка з базою"));
        return inParts(comparedAtOnce, m_changes, [this](const QVector<BulkChange> &part) {
            const auto now = readNow(part, QStringLiteral(" FOR UPDATE"));
            for (const BulkChange &change : part) {
                if (now && isAsShown(change, *now))
                    m_written.append(change);
                else
                    m_others.append(change);
            }
            return now.has_value();
        });
    }

    bool isAsShown(const BulkChange &change, const QHash<DbId, Now> &all)
    {
        const auto now = all.constFind(change.goods);
        if (now == all.constEnd())
            return false;
        m_now.insert({change.place, change.goods}, *now);
        const bool isSold = m_isBack || !m_choice.isPrice() || !now->isBlocked;
        return isSold && now->value == change.from && now->basis == change.basis;
    }

    std::optional<QHash<DbId, Now>> readNow(const QVector<BulkChange> &part, const QString &lock)
    {
        const DbId place = part.first().place;
        QHash<DbId, Now> now;
        // Of a group's prices the goods only have to stay what they are.
        auto rows = m_statements.send(
            QStringLiteral(
                "SELECT id,%1,block,group_g,id_rules_goods FROM goods WHERE id IN (%2) ORDER BY id")
                .arg(bulkColumn(m_choice.field), idsOf(part)) +
            (place == 0 ? lock : QStringLiteral(" LOCK IN SHARE MODE")));
        while (rows && rows->next())
            now.insert(rows->value(0).toUInt(),
                       {place == 0 ? wholeOf(rows->value(1)) : std::nullopt,
                        toText(rows->value(2)) != QLatin1String("0"), rows->value(3).toUInt(),
                        rows->value(4).toUInt(), std::nullopt});
        if (!rows || (place != 0 && !(readListed(part, lock, &now) && readBasis(part, &now))))
            return std::nullopt;
        return now;
    }

    bool readListed(const QVector<BulkChange> &part, const QString &lock, QHash<DbId, Now> *now)
    {
        auto rows = m_statements.send(QStringLiteral("SELECT id_goods,price FROM prices WHERE ") +
                                      listedCondition(part) + lock);
        while (rows && rows->next())
            (*now)[rows->value(0).toUInt()].value = wholeOf(rows->value(1));
        return rows.has_value();
    }

    bool readBasis(const QVector<BulkChange> &part, QHash<DbId, Now> *now)
    {
        QVector<BulkChange> created;
        for (const BulkChange &change : part) {
            if (change.basis)
                created.append(change);
        }
        if (created.isEmpty())
            return true;
        auto rows = m_statements.send(
            QStringLiteral("SELECT goods.id,%1 FROM goods WHERE goods.id IN (%2)")
                .arg(resolvedGroupPriceSql(created.first().place, m_choice.priority), idsOf(created)));
        while (rows && rows->next())
            (*now)[rows->value(0).toUInt()].basis = wholeOf(rows->value(1));
        return rows.has_value();
    }

    QString listedCondition(const QVector<BulkChange> &part) const
    {
        return QStringLiteral("id_goods IN (%1) AND id_shop=0 AND id_group=%2 AND priority=%3")
            .arg(idsOf(part))
            .arg(part.first().place)
            .arg(m_choice.priority);
    }

    RulePlace placeOf(const BulkChange &change) const
    {
        const Now now = m_now.value({change.place, change.goods});
        return rulePlace(m_choice.field, static_cast<DbId>(change.to.value_or(0)), now.group, now.rule);
    }

    /// Others may have given such a rule to an item, or one of these another group, meanwhile.
    bool compareRules()
    {
        if (m_choice.field != BulkField::Group && m_choice.field != BulkField::Rule)
            return true;
        auto rows = m_statements.send(ruleHoldersSql() + QStringLiteral(" LOCK IN SHARE MODE"));
        if (!rows)
            return false;
        const RuleHolders holders = ruleHoldersOf(&*rows);
        QMap<RulePlace, int> wanted;
        for (const BulkChange &change : qAsConst(m_written))
            ++wanted[placeOf(change)];
        QVector<BulkChange> free;
        for (const BulkChange &change : qAsConst(m_written)) {
            const RulePlace rule = placeOf(change);
            const bool isFree =
                rule.first == 0 || (!holders.contains(rule) && (m_isBack || wanted.value(rule) == 1));
            (isFree ? free : m_others).append(change);
        }
        m_written = free;
        return true;
    }

    /// Taken back is all or nothing.
    bool isUndisturbed()
    {
        if (!m_isBack || m_others.isEmpty())
            return true;
        showRows({}, Texts::tr("не повернуто: змінив хтось інший"));
        QStringList told;
        for (const BulkChange &change : m_others.mid(0, toldItems))
            told.append(otherWords(change));
        const QString more = m_others.size() > toldItems ? QStringLiteral("; …") : QString();
        return refuse(Texts::tr("Скасувати не можна, нічого не записано: після вас дещо змінив хтось інший "
                                "(%1): %2%3.")
                          .arg(wholeShown(m_others.size()), told.join(QStringLiteral("; ")), more));
    }

    QString otherWords(const BulkChange &change) const
    {
        const auto name = [&](BulkPriceColumn column) {
            const std::string_view text = m_wanted.rows->cell(change.row, static_cast<int>(column));
            return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
        };
        QString words = QStringLiteral("№%1 «%2»").arg(change.goods).arg(name(BulkPriceColumn::Goods));
        if (change.place != 0)
            words += QStringLiteral(", ") + name(BulkPriceColumn::Place);
        if (!m_choice.isPrice())
            return words;
        const auto now = m_now.value({change.place, change.goods}).value;
        return words + QLatin1Char(' ') +
               (now ? Texts::tr("(тепер %1)").arg(moneyShown(*now)) : Texts::tr("(тепер без ціни)"));
    }

    bool writeAll()
    {
        m_context->stage(Texts::tr("Записується…"));
        return inParts(writtenAtOnce, m_written, [this](const QVector<BulkChange> &part) {
            return part.first().place == 0 ? writeGoods(part) : writeListed(part);
        });
    }

    bool writeGoods(const QVector<BulkChange> &part)
    {
        return m_statements
            .send(QStringLiteral("UPDATE goods SET %1=%2,data_update=NULL WHERE id IN (%3)")
                      .arg(bulkColumn(m_choice.field), valueSql(part, QStringLiteral("id")), idsOf(part)))
            .has_value();
    }

    /// A group's prices: those that are there, new ones, and new ones that are taken back.
    bool writeListed(const QVector<BulkChange> &part)
    {
        QVector<BulkChange> changed;
        QVector<BulkChange> removed;
        QStringList created;
        for (const BulkChange &change : part) {
            if (!change.to)
                removed.append(change);
            else if (change.from)
                changed.append(change);
            else
                created.append(QStringLiteral("(%1,0,%2,%3,%4)")
                                   .arg(QString::number(change.goods), QString::number(change.place),
                                        QString::number(m_choice.priority), QString::number(*change.to)));
        }
        return (changed.isEmpty() ||
                m_statements.send(QStringLiteral("UPDATE prices SET price=%1,data_update=NULL WHERE ")
                                      .arg(valueSql(changed, QStringLiteral("id_goods"))) +
                                  listedCondition(changed))) &&
               (created.isEmpty() ||
                m_statements.send(
                    QStringLiteral("INSERT INTO prices(id_goods,id_shop,id_group,priority,price) VALUES") +
                    created.join(QLatin1Char(',')))) &&
               (removed.isEmpty() ||
                m_statements.send(QStringLiteral("DELETE FROM prices WHERE ") + listedCondition(removed)));
    }

    bool stamp()
    {
        QSet<QString> tables;
        for (const BulkChange &change : qAsConst(m_written))
            tables.insert(change.place == 0 ? QStringLiteral("goods") : QStringLiteral("prices"));
        return tables.isEmpty() ||
               QUpdateBD().update(tables.values(), *m_statements.db().connection(), m_context->receiver());
    }

    /// All of it is there or nothing: most of the first ones tell, whatever others have changed since. The
    /// lock waits for a transaction that the server has not ended yet.
    std::optional<bool> isWritten()
    {
        if (m_written.isEmpty())
            return true;
        QVector<BulkChange> first;
        for (const BulkChange &change : m_written.mid(0, comparedAtOnce)) {
            if (change.place == m_written.first().place)
                first.append(change);
        }
        const auto now = readNow(first, QStringLiteral(" LOCK IN SHARE MODE"));
        if (!now)
            return std::nullopt;
        const auto written = std::count_if(first.begin(), first.end(), [&now](const BulkChange &change) {
            return now->value(change.goods).value == change.to;
        });
        return 2 * written > first.size();
    }

    void tell()
    {
        m_outcome->isWritten = true;
        m_outcome->changedByOthers = m_others.size();
        showRows(m_written, Texts::tr("пропущено: тим часом змінив хтось інший"));
    }

    /// The list with what became of those that are written, and of those that others have changed.
    void showRows(const QVector<BulkChange> &written, const QString &others)
    {
        const auto rows = std::make_shared<RowStore>(*m_wanted.rows);
        mark(rows.get(), written, m_isBack ? Texts::tr("повернуто, як було") : Texts::tr("записано"));
        mark(rows.get(), m_others, others);
        m_outcome->done = {m_wanted.plan, written, rows};
    }

    void mark(RowStore *rows, const QVector<BulkChange> &changes, const QString &words) const
    {
        for (const BulkChange &change : changes)
            rows->write(change.row, m_wanted.plan->verdictColumn(), {words.toStdString()});
    }

    QString summary() const
    {
        const QString count = wholeShown(m_written.size());
        QString words = m_isBack ? Texts::tr("Останню зміну скасовано: повернуто %1.").arg(count)
                                 : Texts::tr("Записано: %1.").arg(count);
        if (!m_others.isEmpty())
            words += QLatin1Char(' ') + Texts::tr("Пропущено, бо тим часом їх змінив хтось інший: %1.")
                                            .arg(wholeShown(m_others.size()));
        return words;
    }

    JobContext *m_context;
    const BulkDone m_wanted;
    const BulkChoice &m_choice;
    const QVector<BulkChange> &m_changes;
    const bool m_isBack;
    const QString m_idUser;
    BulkOutcome *m_outcome;
    JobStatements m_statements;
    QVector<BulkChange> m_written;
    QVector<BulkChange> m_others;
    /// As they were when they were compared.
    QHash<QPair<DbId, DbId>, Now> m_now;
    QString m_why;
};
} // namespace

JobResult writeBulk(JobContext &context, const std::shared_ptr<const BulkPlan> &plan, const QString &idUser,
                    BulkOutcome *outcome)
{
    Db::letHooksHearThisThread();
    // The rows are the plan's own: both live as long.
    const BulkDone wanted = {plan, plan->changes, std::shared_ptr<const RowStore>(plan, &plan->rows)};
    return Writer(&context, wanted, Writer::Forward, idUser, outcome).run();
}

JobResult undoBulk(JobContext &context, const BulkDone &done, const QString &idUser, BulkOutcome *outcome)
{
    Db::letHooksHearThisThread();
    BulkDone wanted = done;
    for (BulkChange &change : wanted.changes) {
        std::swap(change.from, change.to);
        change.basis.reset();
    }
    return Writer(&context, wanted, Writer::Back, idUser, outcome).run();
}
