#include "pricelist.h"

#include "ean13.h"
#include "money.h"
#include "qtab.h"

#include <QCoreApplication>
#include <algorithm>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PriceList)
};

const int checkedBetween = 4096;
/// What is shown of a record that is no price record.
const int shownFields = 10;
const int shownCharacters = 60;
const int leap = 10;
/// What every new item gets; see the statement of pricelistimport.cpp.
const char *const newGoodsGround =
    "SELECT (SELECT COUNT(*) FROM type_goods WHERE id=1)+(SELECT COUNT(*) FROM "
    "group_goods WHERE id=1)+(SELECT COUNT(*) FROM tax WHERE id=5)";

/// A record of the file in one line, without what separates the columns of a file: each field, so that a long
/// name does not hide the barcode.
QString oneLine(const QStringList &fields)
{
    QStringList shown;
    for (const QString &field : fields.mid(0, shownFields))
        shown.append(field.simplified().left(shownCharacters));
    return shown.join(QStringLiteral(" | ")).simplified().replace(QLatin1Char(';'), QLatin1Char(','));
}

bool isBlank(const QStringList &fields)
{
    return std::all_of(fields.begin(), fields.end(),
                       [](const QString &field) { return field.trimmed().isEmpty(); });
}

bool isBroken(const QString &text)
{
    return text.contains(QChar::ReplacementCharacter);
}

QString columnsRefusal(const QStringList &fields)
{
    const QString why = fields.first().trimmed().isEmpty()
                            ? Texts::tr("Товар (невідомий) не знайдено. Невірна кількість колонок")
                            : Texts::tr("Невірна кількість колонок");
    return why + QStringLiteral(": %1").arg(fields.size());
}

/// Why that is no barcode of goods; empty when it is one.
QString barcodeRefusal(const QString &code)
{
    if (code.size() != 13 && code.size() != 8)
        return Texts::tr("Штрихкод <> 13 та <> 8") + QStringLiteral(": ") +
               (code.isEmpty() ? Texts::tr("його немає") : Texts::tr("знаків у ньому %1").arg(code.size()));
    if (isSoundEan(code))
        return QString();
    const QString wrong = Texts::tr("Помилка контрольної суми в штрихкоді");
    return isAllDigits(code) ? wrong : wrong + QStringLiteral(": ") + Texts::tr("у ньому не лише цифри");
}

/// Why that is no price; empty when it is one, or zero.
QString priceRefusal(const QString &text, qint64 *kopecks)
{
    if (text.isEmpty())
        return Texts::tr("ціни немає");
    qint64 thousandths = 0;
    if (!kopecksFromText(text, kopecks))
        return thousandthsFromText(text, &thousandths)
                   ? Texts::tr("у ціні більше двох знаків після коми: %1").arg(oneLine({text}))
                   : Texts::tr("ціна – не число: %1").arg(oneLine({text}));
    if (*kopecks < 0)
        return Texts::tr("ціна від'ємна");
    return *kopecks > maximumKopecks ? Texts::tr("ціна більша за %1").arg(moneyShown(maximumKopecks))
                                     : QString();
}

/// Goes through the records of a file one after the other. A record finds what those before it have made of
/// its barcode.
class Planner
{
public:
    Planner(const PriceListGround &ground, PriceListPlan *plan) : m_ground(ground), m_plan(plan) {}

    void take(int number, const QStringList &fields)
    {
        PriceLine line;
        line.number = number;
        if (fields.size() == PriceList::columns) {
            line.name = fields.at(0).simplified();
            line.barcode = fields.at(1).trimmed();
            line.price = fields.at(2).trimmed();
            judge(&line);
        } else {
            line.name = oneLine(fields);
            line.words = columnsRefusal(fields);
        }
        note(line, fields);
    }

    void finish()
    {
        for (const quint32 id : qAsConst(m_order)) {
            const PriceChange &change = m_changes.value(id);
            m_plan->changes.push_back(change);
            if (change.to >= change.from * leap || change.to * leap <= change.from)
                m_plan->leaps += change.from > 0 ? 1 : 0;
        }
    }

private:
    void judge(PriceLine *line)
    {
        qint64 price = 0;
        line->words = barcodeRefusal(line->barcode);
        line->verdict = PriceVerdict::BadBarcode;
        if (!line->words.isEmpty())
            return;
        line->words = priceRefusal(line->price, &price);
        line->verdict = PriceVerdict::BadPrice;
        if (!line->words.isEmpty())
            return;
        if (price == 0) {
            line->verdict = PriceVerdict::ZeroPrice;
            line->words = Texts::tr("нульова ціна не записується");
        } else if (const auto known = m_ground.byBarcode.constFind(line->barcode);
                   known != m_ground.byBarcode.constEnd()) {
            change(*known, price, line);
        } else {
            add(price, line);
        }
    }

    void change(const KnownGoods &known, qint64 price, PriceLine *line)
    {
        if (!m_changes.contains(known.id)) {
            m_order.append(known.id);
            m_changes.insert(known.id, {line->number, line->barcode, known.id, known.price, known.price});
        }
        PriceChange &change = m_changes[known.id];
        tellPrice(change.to, price, line);
        change.record = line->number;
        change.barcode = line->barcode;
        change.to = price;
    }

    void add(qint64 price, PriceLine *line)
    {
        const auto before = m_added.constFind(line->barcode);
        if (before != m_added.constEnd()) {
            NewGoods &goods = m_plan->added[*before];
            tellPrice(goods.price, price, line);
            goods.price = price;
            return;
        }
        line->words = newRefusal(line->name);
        line->verdict = PriceVerdict::BadName;
        if (!line->words.isEmpty())
            return;
        m_added.insert(line->barcode, m_plan->added.size());
        m_plan->added.push_back({line->number, line->barcode, line->name, price});
        line->verdict = PriceVerdict::New;
        line->words = Texts::tr("новий товар, ціна %1").arg(moneyShown(price));
    }

    static void tellPrice(qint64 from, qint64 to, PriceLine *line)
    {
        line->verdict = from == to ? PriceVerdict::Same : PriceVerdict::Changed;
        line->words = from == to ? Texts::tr("ціна та сама")
                                 : Texts::tr("ціна %1 → %2").arg(moneyShown(from), moneyShown(to));
    }

    QString newRefusal(const QString &name) const
    {
        if (name.isEmpty())
            return Texts::tr("новий товар без назви");
        if (isBroken(name))
            return Texts::tr("у назві літери, яких немає у вибраному кодуванні");
        if (m_ground.longestName > 0 && name.toUcs4().size() > m_ground.longestName)
            return Texts::tr("назва довша за %1 знаків").arg(m_ground.longestName);
        return m_ground.newRefusal;
    }

    void note(const PriceLine &line, const QStringList &fields)
    {
        ++m_plan->recordCount;
        ++m_plan->counts[line.verdict];
        if (m_plan->first.size() < PriceList::firstRecords)
            m_plan->first.append(line);
        if (line.verdict >= PriceVerdict::ZeroPrice)
            m_plan->refused.append({line.number, oneLine(fields), line.words});
    }

    const PriceListGround &m_ground;
    PriceListPlan *m_plan;
    QHash<quint32, PriceChange> m_changes;
    QVector<quint32> m_order;
    QHash<QString, size_t> m_added;
};

QString emptyError(const PriceListPlan &plan)
{
    return plan.recordCount == 0 ? Texts::tr("У файлі немає записів.") : QString();
}

/// False after a reported failure.
bool readGround(const Db &db, PriceListGround *ground)
{
    auto goods = db.run(QStringLiteral(
        "SELECT id, dk_shc.shtrihcod,price FROM goods LEFT JOIN dk_shc ON dk_shc.id_goods=id"));
    if (!goods)
        return false;
    while (goods->next()) {
        if (!goods->isNull(1))
            ground->byBarcode.insert(goods->value(1).toString(),
                                     {goods->value(0).toUInt(), goods->value(2).toLongLong()});
    }
    ground->longestName =
        QTab::GetMaxChar(db.connection(), db.receiver(), QStringLiteral("goods"), QStringLiteral("name"));
    const auto parts = db.firstText(QLatin1String(newGoodsGround));
    if (parts && *parts != QLatin1String("3"))
        ground->newRefusal = Texts::tr(
            "новий товар має дістати тип 1, групу товарів 1 і податкову групу 5, а їх у базі немає");
    ground->isRead = parts.has_value();
    return ground->isRead;
}

} // namespace

bool PriceListPlan::isEmpty() const
{
    return added.empty() && std::all_of(changes.begin(), changes.end(),
                                        [](const PriceChange &change) { return change.to == change.from; });
}

JobResult lookAtPriceList(JobContext &context, PriceListLook *look)
{
    Db::letHooksHearThisThread();
    const int kilo = 1024;
    const auto mayGoOn = [&context](qint64 done, qint64 of) {
        context.progress(done / kilo, of / kilo);
        return !context.isCancelled();
    };
    if (look->bytes.isEmpty()) {
        context.stage(Texts::tr("Читання, КБ"));
        const CsvBytes read = readCsvFile(look->path, PriceList::mostBytes, mayGoOn);
        if (!read.error.isEmpty())
            return {JobResult::Failed, read.error, {}};
        look->bytes = read.bytes;
    }
    if (!look->ground.isRead && !readGround(context.db(), &look->ground))
        return {};
    context.stage(Texts::tr("Перевірка, тис. знаків"));
    const CsvForm form =
        look->isFormChosen ? look->wanted : guessCsvForm(look->bytes, look->wanted, PriceList::columns);
    look->plan = planPriceList(look->bytes, form, look->ground, mayGoOn);
    return {look->plan.error.isEmpty() ? JobResult::Done : JobResult::Failed, look->plan.error, {}};
}

PriceListPlan planPriceList(const QByteArray &bytes, const CsvForm &form, const PriceListGround &ground,
                            const std::function<bool(qint64 done, qint64 of)> &mayGoOn)
{
    PriceListPlan plan;
    plan.form = form;
    const QString text = csvText(bytes, form.encoding);
    CsvReader reader(text, form);
    Planner planner(ground, &plan);
    while (reader.next()) {
        if (reader.number() % checkedBetween == 0 && !mayGoOn(reader.position(), text.size()))
            return plan;
        // A spreadsheet leaves empty lines, at the end above all.
        if (isBlank(reader.fields()))
            continue;
        if (plan.recordCount == PriceList::mostRecords) {
            plan.error =
                Texts::tr(
                    "У файлі більше записів, ніж можна імпортувати за раз: %1. Розділіть його на менші.")
                    .arg(wholeShown(PriceList::mostRecords));
            return plan;
        }
        planner.take(reader.number(), reader.fields());
    }
    planner.finish();
    plan.error = emptyError(plan);
    return plan;
}
