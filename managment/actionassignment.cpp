#include "actionassignment.h"

#include "jobstatements.h"
#include "money.h"
#include "qupdatebd.h"

#include <QCoreApplication>
#include <QHash>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ActionAssignment)
};

const int rowsAtOnce = 1000;
const DbId noAction = 1;

/// Writes a plan until it is written or certainly not.
class Assigner
{
public:
    Assigner(JobContext *context, const ActionPlan &plan, ActionAssigned *assigned)
        : m_context(context), m_plan(plan), m_assigned(assigned), m_statements(context)
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
                    Texts::tr(
                        "Невідомо, чи записано: сервер не відповів. Коли зв'язок відновиться, перегляньте ще "
                        "раз: буде видно, які товари вже мають цю акцію."),
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
    bool write()
    {
        m_others.clear();
        m_written.clear();
        return compareAction() && m_why.isEmpty() && writeShops() && stamp() && !m_context->isCancelled();
    }

    /// A shared lock: what others write with this promotion goes on, what changes or deletes it waits.
    bool compareAction()
    {
        auto now = m_statements.send(actionIdentitySql(m_plan.choice.action) +
                                     QStringLiteral(" LOCK IN SHARE MODE"));
        if (!now)
            return false;
        if (!now->next())
            m_why =
                Texts::tr("Акцію «%1» тим часом видалив хтось інший. Нічого не записано.").arg(m_plan.name);
        else if (toText(now->value(0)) != m_plan.identity)
            m_why =
                Texts::tr("Акцію «%1» тим часом змінив хтось інший. Нічого не записано: перегляньте ще раз.")
                    .arg(m_plan.name);
        return true;
    }

    /// In the order of the table's key, as the sale locks it.
    bool writeShops()
    {
        const QVector<PlannedChange> &changes = m_plan.changes;
        m_context->stage(Texts::tr("Записується…"));
        for (int begin = 0; begin < changes.size();) {
            int end = begin;
            while (end < changes.size() && end - begin < rowsAtOnce &&
                   changes.at(end).shop == changes.at(begin).shop)
                ++end;
            m_context->progress(begin, changes.size());
            if (m_context->isCancelled() || !writePart(begin, end))
                return false;
            begin = end;
        }
        return true;
    }

    bool writePart(int begin, int end)
    {
        const DbId shop = m_plan.changes.at(begin).shop;
        QStringList asked;
        for (int i = begin; i < end; ++i)
            asked.append(QString::number(m_plan.changes.at(i).goods));
        auto rows = m_statements.send(
            QStringLiteral("SELECT id_goods,id_action FROM goods_shop WHERE id_shop=%1 AND id_goods IN "
                           "(%2) ORDER BY id_goods FOR UPDATE")
                .arg(shop)
                .arg(asked.join(QLatin1Char(','))));
        QHash<DbId, DbId> now;
        while (rows && rows->next())
            now.insert(rows->value(0).toUInt(), rows->value(1).toUInt());
        if (!rows)
            return false;
        QStringList ids;
        for (int i = begin; i < end; ++i) {
            const PlannedChange &change = m_plan.changes.at(i);
            if (now.value(change.goods) == change.was)
                ids.append(QString::number(change.goods));
            else
                m_others.append(change.row);
            if (now.value(change.goods) == change.was)
                m_written.append(i);
        }
        return ids.isEmpty() ||
               m_statements.send(
                   QStringLiteral("UPDATE goods_shop SET id_action=%1 WHERE id_shop=%2 AND id_goods IN (%3)")
                       .arg(m_plan.choice.action)
                       .arg(shop)
                       .arg(ids.join(QLatin1Char(','))));
    }

    /// The list of promotions tells how many goods have each.
    bool stamp()
    {
        return m_written.isEmpty() ||
               QUpdateBD().update({QStringLiteral("goods_shop"), QStringLiteral("action")},
                                  *m_statements.db().connection(), m_context->receiver());
    }

    /// All of it is there or nothing: one item tells. The lock waits for a transaction that the server has
    /// not ended yet. Nothing when the server does not say.
    std::optional<bool> isWritten()
    {
        if (m_written.isEmpty())
            return true;
        const PlannedChange &first = m_plan.changes.at(m_written.first());
        auto row = m_statements.send(
            QStringLiteral("SELECT id_action FROM goods_shop WHERE id_shop=%1 AND id_goods=%2 LOCK IN "
                           "SHARE MODE")
                .arg(first.shop)
                .arg(first.goods));
        return row && row->next() ? std::optional(row->value(0).toUInt() == m_plan.choice.action)
                                  : std::nullopt;
    }

    void tell()
    {
        m_assigned->isWritten = true;
        m_assigned->changed = m_written.size();
        m_assigned->changedByOthers = m_others.size();
        m_assigned->rows = RowStore(m_plan.rows);
        const auto column = static_cast<int>(PlanColumn::Verdict);
        const std::string done =
            (m_plan.choice.action == noAction ? Texts::tr("акцію знято") : Texts::tr("призначено"))
                .toStdString();
        const std::string left = Texts::tr("пропущено: тим часом змінив хтось інший").toStdString();
        for (const int change : qAsConst(m_written))
            m_assigned->rows.write(m_plan.changes.at(change).row, column, {done});
        for (const int row : qAsConst(m_others))
            m_assigned->rows.write(row, column, {left});
    }

    QString summary() const
    {
        const QString count = wholeShown(m_assigned->changed);
        QString words = m_plan.choice.action == noAction
                            ? Texts::tr("Акцію знято: %1.").arg(count)
                            : Texts::tr("Акцію «%1» призначено: %2.").arg(m_plan.name, count);
        if (m_assigned->changedByOthers > 0)
            words += QLatin1Char(' ') + Texts::tr("Пропущено, бо тим часом їх змінив хтось інший: %1.")
                                            .arg(wholeShown(m_assigned->changedByOthers));
        return words;
    }

    JobContext *m_context;
    const ActionPlan &m_plan;
    ActionAssigned *m_assigned;
    JobStatements m_statements;
    /// The changes that were written, and the rows of those that others had changed.
    QVector<int> m_written;
    QVector<int> m_others;
    QString m_why;
};
} // namespace

JobResult assignAction(JobContext &context, const ActionPlan &plan, ActionAssigned *assigned)
{
    Db::letHooksHearThisThread();
    return Assigner(&context, plan, assigned).run();
}
