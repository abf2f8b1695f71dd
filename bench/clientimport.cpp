#include "bench.h"

#include "clientimport.h"
#include "dbffile.h"
#include "qdbf.h"

#include <QEventLoop>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>

namespace {
constexpr int records = 100000;
/// So often in one measurement: one alone is over too soon.
constexpr int openings = 20;
constexpr double goalAgain = 0.15;

constexpr uint firstCode = 3000000000U;

/// Codes in no order, as another system keeps them. Each block has others: what was deleted right before
/// would still be tidied up while something is measured.
QByteArray cardsFile(int block)
{
    CardsDbf file;
    const uint first = firstCode + static_cast<uint>(block * records);
    for (int i = 0; i < records; ++i)
        file.card(QByteArray::number(first + static_cast<uint>(i * qint64(7919) % records)), "2");
    return file.bytes();
}

std::shared_ptr<const DbfTable> cardsTable(const QTemporaryDir &folder, int block)
{
    return readDbf(writeFile(folder.filePath(QString::number(block)), cardsFile(block))).table;
}

/// The statements for the first block, as they are for another one.
QStringList ofBlock(QStringList statements, int block)
{
    static const QRegularExpression code(QStringLiteral("\\b%1(\\d{5})\\b").arg(firstCode / records));
    return statements.replaceInStrings(code, QString::number(firstCode / records + static_cast<uint>(block)) +
                                                 QStringLiteral("\\1"));
}

void readAll(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.readAll().size() != file.size())
        qFatal("The file was not read");
}

/// As the import tab does, which has one for all its files.
void openDbf(QDbf *dbf, const QString &path)
{
    dbf->Close();
    if (dbf->Open(path) != 0 || dbf->table()->recordCount() != records)
        qFatal("The file was not opened");
}

double openingRatio(const Bench &bench, const QString &path)
{
    QDbf dbf;
    const auto times = [](const std::function<void()> &work) {
        return milliseconds([&] {
            for (int i = 0; i < openings; ++i)
                work();
        });
    };
    return ratio(
        bench.rounds, [&] { return times([&] { readAll(path); }); },
        [&] { return times([&] { openDbf(&dbf, path); }); });
}

double memoryRatio(const QString &path)
{
    const double before = processMegabytes("VmRSS");
    forgetPeak();
    QDbf dbf;
    dbf.Open(path);
    return (processMegabytes("VmHWM") - before) * 1024 * 1024 / static_cast<double>(QFile(path).size());
}

/// What people wait for when they press "Старт": the check and the writing, each a job.
ImportOutcome importFile(const Bench &bench, const std::shared_ptr<const DbfTable> &table)
{
    ImportPlan plan;
    plan.group = 1;
    ImportOutcome outcome;
    const QString source = bench.connection->connectionName();
    const auto finish = [&](const Job::Work &work) {
        Job job(QString(), source, work, nullptr);
        QEventLoop loop;
        QObject::connect(&job, &Job::finished, &loop, [&loop](const JobResult &result) {
            if (result.outcome != JobResult::Done)
                qFatal("%s", qPrintable(result.words));
            loop.quit();
        });
        job.start();
        loop.exec();
    };
    finish([&](JobContext &context) { return planImport(context, *table, "Windows-1251", &plan); });
    finish([&](JobContext &context) { return importClients(context, plan, &outcome); });
    return outcome;
}

QStringList sentStatements(const Bench &bench, const std::shared_ptr<const DbfTable> &table)
{
    QStringList sent;
    Db::setStatementHook([&sent](const QString &sql) { sent.append(sql); });
    if (importFile(bench, table).added != records)
        qFatal("Not all cards were added");
    Db::setStatementHook({});
    return sent;
}

/// The statements of an import of cards that are not there, bare and by the import.
double importRatio(const Bench &bench, const QTemporaryDir &folder, const QStringList &sent)
{
    BareClient bare(bench.address);
    int block = 0;
    const auto theirs = [&] {
        const QStringList statements = ofBlock(sent, ++block);
        return milliseconds([&] {
            for (const QString &sql : statements)
                bare.run(sql);
        });
    };
    const auto ours = [&] {
        const auto table = cardsTable(folder, ++block);
        return milliseconds([&] {
            if (importFile(bench, table).added != records)
                qFatal("Not all cards were added");
        });
    };
    return ratio(bench.rounds, theirs, ours);
}

/// The same file once more, against one bare SELECT for each record.
double againRatio(const Bench &bench, const std::shared_ptr<const DbfTable> &table)
{
    BareClient bare(bench.address);
    const auto theirs = [&] {
        return milliseconds([&] {
            for (int record = 0; record < records; ++record)
                bare.run(QStringLiteral("SELECT id_procent FROM clients WHERE id=") +
                         QString::fromLatin1(table->data(record, 2)));
        });
    };
    const auto ours = [&] {
        return milliseconds([&] {
            if (importFile(bench, table).left != records)
                qFatal("Not all cards were there");
        });
    };
    return ratio(1, theirs, ours);
}
void removeImported(const Bench &bench)
{
    exec(bench, QStringLiteral("DELETE FROM clients WHERE id>=3000000000"));
}
} // namespace

QVector<Figure> measureClientImport(const Bench &bench)
{
    const QTemporaryDir folder;
    const QString path = writeFile(folder.filePath(QStringLiteral("cards.dbf")), cardsFile(0));
    // Before anything has made the heap larger.
    const double memory = memoryRatio(path);
    const double opening = openingRatio(bench, path);
    exec(bench, QStringLiteral("INSERT INTO procent(id,name,discount,sum,auto,block) VALUES(1,'a',0,0,1,0),"
                               "(2,'b',500,100,1,0)"));
    const auto table = readDbf(path).table;
    const QStringList sent = sentStatements(bench, table);
    const double first = importRatio(bench, folder, sent);
    const double again = againRatio(bench, table);
    removeImported(bench);
    exec(bench, QStringLiteral("SET SESSION foreign_key_checks=0"));
    exec(bench, QStringLiteral("DELETE FROM procent"));
    exec(bench, QStringLiteral("SET SESSION foreign_key_checks=1"));
    return {{QStringLiteral("Opening a DBF of 100,000 records"), opening, 2.0, QStringLiteral("x bytes")},
            {QStringLiteral("Memory of an open DBF"), memory, 1.2, QStringLiteral("x file")},
            {QStringLiteral("Import of 100,000 cards"), first, 1.1, QStringLiteral("x bare")},
            {QStringLiteral("The same again, against a SELECT a record"), again, goalAgain,
             QStringLiteral("x bare")}};
}
