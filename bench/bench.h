#pragma once

#include "connection.h"
#include "db.h"

#include <QVector>
#include <functional>

struct st_mysql;

/// What a benchmark gets: an own database with goods and cards, and how much of it.
struct Bench
{
    DatabaseAddress address;
    QSqlDatabase *connection = nullptr;
    int cards = 1000000;
    int goods = 55000;
    int rounds = 5;

    Db db() const { return Db(connection, nullptr); }
};

/// One line of the table: a value that should be at most its goal.
struct Figure
{
    QString name;
    double value;
    double goal;
    QString unit;
};

using Measure = QVector<Figure> (*)(const Bench &bench);

QVector<Figure> measureArticles(const Bench &bench);
QVector<Figure> measureLists(const Bench &bench);
QVector<Figure> measureSearch(const Bench &bench);
QVector<Figure> measureMemory(const Bench &bench);
QVector<Figure> measureAgainstItems(const Bench &bench);
QVector<Figure> measureCsv(const Bench &bench);
QVector<Figure> measureXlsx(const Bench &bench);
QVector<Figure> measureStart(const Bench &bench);
QVector<Figure> measureConnections(const Bench &bench);
QVector<Figure> measureSale(const Bench &bench);
QVector<Figure> measureReports(const Bench &bench);
QVector<Figure> measureTuning(const Bench &bench);
QVector<Figure> measureClosing(const Bench &bench);
QVector<Figure> measureClientImport(const Bench &bench);
QVector<Figure> measureCards(const Bench &bench);
QVector<Figure> measureExchange(const Bench &bench);
QVector<Figure> measurePriceList(const Bench &bench);
QVector<Figure> measureStockIn(const Bench &bench);
QVector<Figure> measureRights(const Bench &bench);
QVector<Figure> measureOverview(const Bench &bench);
QVector<Figure> measureIntegrity(const Bench &bench);
QVector<Figure> measureBulk(const Bench &bench);
QVector<Figure> measureGoto(const Bench &bench);

QVector<Figure> measureLargeSale(const Bench &bench);
QVector<Figure> measureLargeClosing(const Bench &bench);
QVector<Figure> measureLargeSlip(const Bench &bench);
QVector<Figure> measureLargeArticles(const Bench &bench);
QVector<Figure> measureLargeOnLine(const Bench &bench);
QVector<Figure> measureLargeSearch(const Bench &bench);
QVector<Figure> measureLargeStock(const Bench &bench);
QVector<Figure> measureLargePdf(const Bench &bench);
QVector<Figure> measureLargeCombo(const Bench &bench);
QVector<Figure> measureLargeJournals(const Bench &bench);
QVector<Figure> measureSlowServer(const Bench &bench);
QVector<Figure> measureLargeIntegrity(const Bench &bench);

/// The list statements of goods (9 columns) and cards (14 columns).
QString goodsStatement();
QString cardsStatement();
/// Creates the program's schema and fills goods and cards.
bool fillDatabase(const Bench &bench);

/// Shop 1 with registers 1 and 2, and the stock of a chain: every sale writes through all of it.
bool fillSaleShops(const Bench &bench);

/// Runs a statement of a benchmark's own, which must not fail.
void exec(const Bench &bench, const QString &sql);

/// The client library with nothing around it.
class BareClient
{
public:
    explicit BareClient(const DatabaseAddress &address);
    ~BareClient();
    Q_DISABLE_COPY(BareClient)

    /// Sends a statement, stores its result and walks through all rows.
    void run(const QString &sql);

private:
    st_mysql *m_mysql;
};

/// A figure of this process in MB: VmRSS, VmHWM.
double processMegabytes(const QByteArray &name);
/// The peak VmHWM begins anew at what the process holds now.
void forgetPeak();
/// Milliseconds that work takes.
double milliseconds(const std::function<void()> &work);
double median(QVector<double> values);
/// How many times longer ours takes than theirs; both tell their milliseconds, by turns, and the median of
/// the rounds counts.
double ratio(int rounds, const std::function<double()> &theirs, const std::function<double()> &ours);
