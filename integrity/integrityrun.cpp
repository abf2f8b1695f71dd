#include "integrityrun.h"

#include "checks.h"
#include "money.h"
#include "schemashape.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QSqlRecord>
#include <algorithm>
#include <numeric>

namespace {
using namespace integrity;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Integrity)
};

FoundRow rowOf(const QSqlQuery &query)
{
    FoundRow row;
    const QSqlRecord record = query.record();
    for (int column = 0; column < record.count(); ++column)
        row.insert(record.fieldName(column), toText(record.value(column)));
    return row;
}

QStringList cellsOf(const QSqlQuery &query)
{
    QStringList cells;
    for (int column = 0; column < query.record().count(); ++column)
        cells.append(toText(query.value(column)));
    return cells;
}

/// Tests one database, step after step; stops when the job is cancelled or the server is lost.
class IntegrityRun
{
public:
    IntegrityRun(JobContext *context, const IntegrityAsked &asked, FindingsSoFar *found)
        : m_context(context), m_db(context->db()), m_asked(asked), m_found(found)
    {
    }

    bool run() { return readPlaces() && testSchema() && testTables() && readRegisters() && testRegisters(); }

private:
    bool readPlaces();
    bool testSchema();
    bool testTables();
    bool readRegisters();
    bool testRegisters();
    bool testRegister(const CheckedRegister &reg);
    void testStatements(const CheckedRegister &reg, CheckScope scope);

    /// The rows of a statement; nothing when it failed, which is told of those checks.
    std::optional<QVector<QStringList>> cells(const QString &sql, const QVector<int> &checks);
    std::optional<QSqlQuery> send(const QString &sql, const QVector<int> &checks);
    bool goesOn() const { return !m_isLost && !m_context->isCancelled(); }
    bool test(int check);
    void count(int check, const QString &sql);
    void tell(int check, const FoundRow &row);
    void tell(int check, const QSqlQuery &query);
    void tellFaults(const QString &sql, CheckScope scope);
    QVector<int> running(CheckScope scope) const;
    void forAll(CheckScope scope, void (FindingsSoFar::*step)(int)) const;

    JobContext *m_context;
    Db m_db;
    IntegrityAsked m_asked;
    FindingsSoFar *m_found;
    KnownPlaces m_places;
    Shapes m_shapes;
    QVector<CheckedRegister> m_registers;
    bool m_isLost = false;
};

QVector<int> checksOf(CheckScope scope)
{
    QVector<int> numbers;
    for (int i = 0; i < integrityChecks().size(); ++i) {
        if (integrityChecks().at(i).scope == scope)
            numbers.append(i);
    }
    return numbers;
}

/// Of what each register has written.
const CheckScope registerScopes[] = {CheckScope::Shift, CheckScope::Receipt, CheckScope::Register,
                                     CheckScope::Moved};

std::optional<QSqlQuery> IntegrityRun::send(const QString &sql, const QVector<int> &checks)
{
    QString error;
    auto query = m_db.attempt(sql, &error);
    if (query || m_context->isCancelled())
        return query;
    m_isLost = isConnectionLost(m_db.lastErrorNumber());
    for (const int check : checks)
        m_found->fail(check, error);
    return std::nullopt;
}

std::optional<QVector<QStringList>> IntegrityRun::cells(const QString &sql, const QVector<int> &checks)
{
    auto query = send(sql, checks);
    if (!query)
        return std::nullopt;
    QVector<QStringList> found;
    while (query->next())
        found.append(cellsOf(*query));
    return found;
}

void IntegrityRun::tell(int check, const FoundRow &row)
{
    m_found->add(findingOf(check, row, m_places));
}

/// Of a kind that has been found often enough only the number counts.
void IntegrityRun::tell(int check, const QSqlQuery &query)
{
    if (m_found->found(check) < m_asked.mostListed)
        tell(check, rowOf(query));
    else
        m_found->addUnlisted(check, 1);
}

/// The names only: without them the places are told by their numbers.
bool IntegrityRun::readPlaces()
{
    const auto shops = cells(QStringLiteral("SELECT id,IFNULL(NULLIF(address,''),name) FROM shops"), {});
    const auto registers = cells(QStringLiteral("SELECT id,advertising_str FROM kassa"), {});
    for (const QStringList &shop : shops.value_or(QVector<QStringList>()))
        m_places.shops.insert(shop.at(0), shop.at(1));
    for (const QStringList &reg : registers.value_or(QVector<QStringList>()))
        m_places.registers.insert(reg.at(0), reg.at(1));
    return goesOn();
}

bool IntegrityRun::testSchema()
{
    m_context->stage(Texts::tr("Будова бази"));
    const QVector<int> checks = checksOf(CheckScope::Schema);
    forAll(CheckScope::Schema, &FindingsSoFar::begin);
    SchemaRows schema;
    for (const QString &sql : schemaStatements()) {
        const auto found = cells(sql, checks);
        if (!found)
            return goesOn();
        schema.append(*found);
    }
    m_shapes = shapesFrom(schema);
    for (const SchemaDifference &difference : schemaDifferences(wantedShapes(), m_shapes))
        tell(checkNumber(QLatin1String(difference.check)),
             {{QStringLiteral("words"), difference.words}, {QStringLiteral("table"), difference.table}});
    forAll(CheckScope::Schema, &FindingsSoFar::end);
    return goesOn();
}

bool IntegrityRun::testTables()
{
    const QVector<int> checks = checksOf(CheckScope::Database) + checksOf(CheckScope::References);
    for (int i = 0; i < checks.size() && goesOn(); ++i) {
        m_context->stage(Texts::tr(integrityChecks().at(checks.at(i)).name));
        test(checks.at(i));
    }
    return goesOn();
}

/// One more row than is listed shows that there are more: then they are counted.
bool IntegrityRun::test(int check)
{
    QString sql = QLatin1String(integrityChecks().at(check).sql);
    if (integrityChecks().at(check).scope == CheckScope::References)
        sql = danglingSql(wantedShapes(), m_shapes, sql.split(u' '));
    m_found->begin(check);
    auto query = send(sql + QStringLiteral(" LIMIT %1").arg(m_asked.mostListed + 1), {check});
    if (!query)
        return false;
    while (query->next())
        tell(check, *query);
    if (m_found->found(check) > m_asked.mostListed)
        count(check, sql);
    m_found->end(check);
    return true;
}

void IntegrityRun::count(int check, const QString &sql)
{
    const auto all = cells(QStringLiteral("SELECT COUNT(*) FROM (%1) found").arg(sql), {check});
    if (all && !all->isEmpty())
        m_found->addUnlisted(check, all->first().first().toLongLong() - m_found->found(check));
}

bool IntegrityRun::readRegisters()
{
    m_context->stage(Texts::tr("Каси, що мають зміни і чеки"));
    QVector<int> checks;
    for (const CheckScope scope : registerScopes) {
        checks += checksOf(scope);
        forAll(scope, &FindingsSoFar::begin);
    }
    const auto streams = cells(registersSql(), checks);
    QMap<uint, CheckedRegister> registers;
    for (const QStringList &stream : streams.value_or(QVector<QStringList>())) {
        CheckedRegister &reg = registers[stream.at(1).toUInt()];
        reg.kass = stream.at(1);
        if (stream.at(0).isEmpty())
            continue;
        reg.shops.append(stream.at(0));
        reg.size += stream.at(3).toLongLong() - stream.at(2).toLongLong() + 1;
    }
    m_registers = registers.values().toVector();
    return goesOn();
}

bool IntegrityRun::testRegisters()
{
    m_context->stage(Texts::tr("Зміни і чеки кас"));
    const qint64 all = std::accumulate(
        m_registers.begin(), m_registers.end(), qint64(0),
        [](qint64 sum, const CheckedRegister &reg) { return sum + qMax(reg.size, qint64(1)); });
    qint64 done = 0;
    for (const CheckedRegister &reg : qAsConst(m_registers)) {
        m_context->progress(done, all);
        if (!testRegister(reg))
            return false;
        done += qMax(reg.size, qint64(1));
    }
    m_context->progress(all, all);
    for (const CheckScope scope : registerScopes)
        forAll(scope, &FindingsSoFar::end);
    return true;
}

/// A statement that failed is not sent for the next register.
bool IntegrityRun::testRegister(const CheckedRegister &reg)
{
    const QString dayAgo = m_asked.now.addDays(-1).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    tellFaults(shiftFaultsSql(reg, dayAgo), CheckScope::Shift);
    for (const QString &shop : reg.shops)
        tellFaults(receiptFaultsSql(reg.kass, shop), CheckScope::Receipt);
    if (!reg.shops.isEmpty())
        testStatements(reg, CheckScope::Register);
    if (reg.shops.size() > 1)
        testStatements(reg, CheckScope::Moved);
    return goesOn();
}

void IntegrityRun::testStatements(const CheckedRegister &reg, CheckScope scope)
{
    for (const int check : running(scope)) {
        if (!goesOn())
            return;
        const QString sql = QString::fromLatin1(integrityChecks().at(check).sql)
                                .replace(QLatin1String("{kass}"), reg.kass)
                                .replace(QLatin1String("{shops}"), reg.shops.join(u','));
        auto query = send(sql, {check});
        while (query && query->next())
            tell(check, *query);
    }
}

void IntegrityRun::tellFaults(const QString &sql, CheckScope scope)
{
    const QVector<int> checks = running(scope);
    if (checks.isEmpty() || !goesOn())
        return;
    auto query = send(sql, checks);
    const int faults = query ? query->record().indexOf(QStringLiteral("faults")) : -1;
    while (query && query->next()) {
        for (const QString &key : query->value(faults).toString().split(u','))
            tell(checkNumber(key), *query);
    }
}

QVector<int> IntegrityRun::running(CheckScope scope) const
{
    QVector<int> checks = checksOf(scope);
    checks.erase(std::remove_if(checks.begin(), checks.end(),
                                [this](int check) { return !m_found->isRunning(check); }),
                 checks.end());
    return checks;
}

void IntegrityRun::forAll(CheckScope scope, void (FindingsSoFar::*step)(int)) const
{
    for (const int check : checksOf(scope))
        (m_found->*step)(check);
}

QString summary(const QVector<CheckState> &states)
{
    qint64 found = 0;
    int unread = 0;
    for (const CheckState &state : states) {
        found += state.found;
        unread += state.kind == CheckState::Unread ? 1 : 0;
    }
    QString words = found == 0 ? Texts::tr("Помилок не знайдено.")
                               : Texts::tr("Знайдено помилок: %1.").arg(wholeShown(found));
    if (unread > 0)
        words += u' ' + Texts::tr("Перевірок, що не вдалися: %1.").arg(unread);
    return words;
}
} // namespace

JobResult checkIntegrity(JobContext &context, const IntegrityAsked &asked, FindingsSoFar *found)
{
    IntegrityRun run(&context, asked, found);
    if (run.run())
        return {JobResult::Done, summary(found->states()), {}};
    if (context.isCancelled())
        return {JobResult::Cancelled, Texts::tr("Перевірку зупинено: показано те, що знайдено доти."), {}};
    return {JobResult::Failed,
            Texts::tr("Перевірку перервано: зв'язок із сервером утрачено. Повторіть її, коли він буде."),
            {}};
}
