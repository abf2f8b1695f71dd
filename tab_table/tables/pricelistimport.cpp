#include "pricelistimport.h"

#include "jobstatements.h"
#include "money.h"
#include "qupdatebd.h"

#include <QCoreApplication>
#include <algorithm>
#include <optional>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PriceList)
};

const int comparedAtOnce = 1000;
/// Half a megabyte of statement: every server takes that.
const int pricesAtOnce = 10000;
const int toldBetween = 100;

/// What is to be written as the goods are now, locked.
struct Draft
{
    QMap<quint32, qint64> prices;
    QVector<const NewGoods *> added;
    PriceListOutcome outcome;

    bool isEmpty() const { return prices.isEmpty() && added.isEmpty(); }
};

QString priceStatement(QMap<quint32, qint64>::const_iterator first,
                       QMap<quint32, qint64>::const_iterator last)
{
    QString sql = QStringLiteral("UPDATE goods SET price=CASE");
    QString ids;
    for (auto price = first; price != last; ++price) {
        const QString id = QString::number(price.key());
        sql += QLatin1String(" WHEN id=") + id + QLatin1String(" THEN ") + QString::number(price.value());
        ids += id + QLatin1Char(',');
    }
    ids.chop(1);
    return sql + QLatin1String(" ELSE price END WHERE id IN (") + ids + QLatin1Char(')');
}

QString insertGoods(const NewGoods &goods)
{
    return QLatin1String("INSERT INTO goods(type,group_g,tax,block,price,name) VALUES(1,1,5,0,") +
           QString::number(goods.price) + QLatin1Char(',') + lit(goods.name) + QLatin1Char(')');
}

QString insertBarcode(const NewGoods &goods)
{
    return QLatin1String("INSERT INTO dk_shc(id_goods,shtrihcod) VALUES(LAST_INSERT_ID(),") +
           lit(goods.barcode) + QLatin1Char(')');
}

/// Writes a plan until it is written or certainly not.
class Importer
{
public:
    Importer(JobContext *context, const PriceListPlan &plan, PriceListOutcome *outcome)
        : m_context(context), m_plan(plan), m_outcome(outcome), m_statements(context)
    {
        outcome->refused = plan.refused;
    }

    JobResult run()
    {
        if (!m_statements.isOpen())
            return {};
        const auto end =
            m_statements.writeWhole({[this] { return writeOnce(); }, [this] { return isWritten(); }});
        switch (end) {
        case JobStatements::End::Written:
            *m_outcome = m_draft.outcome;
            m_outcome->isWritten = true;
            return {JobResult::Done, priceListSummary(m_plan, *m_outcome), {}};
        case JobStatements::End::Unclear:
            return {JobResult::Failed,
                    Texts::tr("Невідомо, чи записано імпорт: сервер не відповів. Коли зв'язок відновиться, "
                              "імпортуйте файл ще раз: записане вдруге не зміниться."),
                    {}};
        case JobStatements::End::Stopped:
            return {JobResult::Cancelled, Texts::tr("Імпорт зупинено, у базу нічого не записано."), {}};
        default:
            return {JobResult::Failed, Texts::tr("Імпорт не вдався, у базу нічого не записано."), {}};
        }
    }

private:
    bool writeOnce()
    {
        m_draft = Draft();
        m_draft.outcome.refused = m_plan.refused;
        return compare() && write() && !m_context->isCancelled();
    }

    /// Holds the plan against the goods as they are now. They are locked, and so are the places of new
    /// barcodes: none of them changes and none comes until COMMIT.
    bool compare()
    {
        QHash<QString, KnownGoods> now;
        QStringList codes;
        for (const PriceChange &change : m_plan.changes)
            codes.append(lit(change.barcode));
        for (const NewGoods &goods : m_plan.added)
            codes.append(lit(goods.barcode));
        m_context->stage(Texts::tr("Звірка з базою"));
        for (int begin = 0; begin < codes.size(); begin += comparedAtOnce) {
            m_context->progress(begin, codes.size());
            if (!readNow(codes.mid(begin, comparedAtOnce), &now))
                return false;
        }
        for (const PriceChange &change : m_plan.changes)
            take(change, now);
        for (const NewGoods &goods : m_plan.added)
            take(goods, now);
        std::sort(m_draft.outcome.refused.begin(), m_draft.outcome.refused.end(),
                  [](const RefusedLine &a, const RefusedLine &b) { return a.number < b.number; });
        return true;
    }

    bool readNow(const QStringList &codes, QHash<QString, KnownGoods> *now)
    {
        auto goods = m_statements.send(
            QStringLiteral("SELECT dk_shc.shtrihcod,id,price FROM dk_shc JOIN goods ON id=id_goods "
                           "WHERE dk_shc.shtrihcod IN (") +
            codes.join(QLatin1Char(',')) + QStringLiteral(") FOR UPDATE"));
        while (goods && goods->next())
            now->insert(goods->value(0).toString(), {goods->value(1).toUInt(), goods->value(2).toLongLong()});
        return goods.has_value();
    }

    void take(const PriceChange &change, const QHash<QString, KnownGoods> &now)
    {
        const auto goods = now.constFind(change.barcode);
        if (goods == now.constEnd()) {
            ++m_draft.outcome.removedByOthers;
            m_draft.outcome.refused.append(
                {change.record, change.barcode, Texts::tr("цей штрихкод щойно вилучено з бази")});
            return;
        }
        m_draft.outcome.changedByOthers += goods->price != change.from && goods->price != change.to ? 1 : 0;
        if (goods->price != change.to)
            m_draft.prices.insert(goods->id, change.to);
    }

    void take(const NewGoods &added, const QHash<QString, KnownGoods> &now)
    {
        const auto goods = now.constFind(added.barcode);
        if (goods == now.constEnd()) {
            m_draft.added.append(&added);
            return;
        }
        ++m_draft.outcome.createdByOthers;
        if (goods->price != added.price)
            m_draft.prices.insert(goods->id, added.price);
    }

    bool write()
    {
        if (m_draft.isEmpty())
            return true;
        m_context->stage(Texts::tr("Записується…"));
        m_context->progress(0, m_draft.added.size());
        for (const QString &sql : priceStatements(m_draft.prices)) {
            if (m_context->isCancelled() || !m_statements.send(sql))
                return false;
        }
        int done = 0;
        for (const NewGoods *goods : qAsConst(m_draft.added)) {
            if (++done % toldBetween == 0)
                m_context->progress(done, m_draft.added.size());
            if (m_context->isCancelled() || !m_statements.send(insertGoods(*goods)) ||
                !m_statements.send(insertBarcode(*goods)))
                return false;
        }
        return QUpdateBD().update({QStringLiteral("goods"), QStringLiteral("dk_shc")},
                                  *m_statements.db().connection(), m_context->receiver());
    }

    /// All of it is there or nothing: one item tells. Nothing when the server does not say.
    std::optional<bool> isWritten()
    {
        if (m_draft.isEmpty())
            return true;
        const bool isAdded = !m_draft.added.isEmpty();
        auto query = isAdded
                         ? m_statements.send(QStringLiteral("SELECT id_goods FROM dk_shc WHERE shtrihcod=") +
                                             lit(m_draft.added.first()->barcode))
                         : m_statements.send(QStringLiteral("SELECT price FROM goods WHERE id=") +
                                             QString::number(m_draft.prices.firstKey()));
        if (!query)
            return std::nullopt;
        return query->next() && (isAdded || query->value(0).toLongLong() == m_draft.prices.first());
    }

    JobContext *m_context;
    const PriceListPlan &m_plan;
    PriceListOutcome *m_outcome;
    JobStatements m_statements;
    Draft m_draft;
};

QString countLine(const QString &caption, int count)
{
    return caption + QLatin1Char(' ') + wholeShown(count);
}
} // namespace

QStringList priceStatements(const QMap<quint32, qint64> &prices)
{
    QStringList statements;
    for (auto first = prices.cbegin(); first != prices.cend();) {
        auto last = first;
        for (int count = 0; count < pricesAtOnce && last != prices.cend(); ++count)
            ++last;
        statements.append(priceStatement(first, last));
        first = last;
    }
    return statements;
}

JobResult importPriceList(JobContext &context, const PriceListPlan &plan, PriceListOutcome *outcome)
{
    Db::letHooksHearThisThread();
    return Importer(&context, plan, outcome).run();
}

QString priceListSummary(const PriceListPlan &plan, const PriceListOutcome &outcome)
{
    const auto count = [&plan](PriceVerdict verdict) { return plan.counts.value(verdict); };
    const int same = count(PriceVerdict::Same);
    const int updated =
        count(PriceVerdict::Changed) + same + outcome.createdByOthers - outcome.removedByOthers;
    QString updatedLine = countLine(Texts::tr("Товарів оновлено:"), updated);
    if (same > 0)
        updatedLine += Texts::tr(", з них ціна та сама: %1").arg(wholeShown(same));
    QStringList lines{
        updatedLine,
        countLine(Texts::tr("Товарів нових:"), count(PriceVerdict::New) - outcome.createdByOthers),
        countLine(Texts::tr("Помилкових штрихкодів:"), count(PriceVerdict::BadBarcode)),
        countLine(Texts::tr("Записів з невірною кількістю колонок:"), count(PriceVerdict::BadColumns)),
        countLine(Texts::tr("Записів з нульовою ціною:"), count(PriceVerdict::ZeroPrice))};
    const struct
    {
        QString caption;
        int count;
    } further[] = {
        {Texts::tr("Записів з помилковою ціною:"), count(PriceVerdict::BadPrice)},
        {Texts::tr("Записів з помилковою назвою:"), count(PriceVerdict::BadName)},
        {Texts::tr("Цін, які тим часом змінили інші (записано ціну з файла):"), outcome.changedByOthers},
        {Texts::tr("Нових штрихкодів, які тим часом додали інші (їх товару записано ціну з файла):"),
         outcome.createdByOthers},
        {Texts::tr("Штрихкодів, які тим часом вилучили інші (пропущено):"), outcome.removedByOthers}};
    for (const auto &line : further) {
        if (line.count > 0)
            lines.append(countLine(line.caption, line.count));
    }
    return lines.join(QLatin1Char('\n'));
}
