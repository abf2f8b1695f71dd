#pragma once

#include "exchangestatements.h"
#include "job.h"
#include "registerserver.h"
#include "transactioncount.h"

#include <QElapsedTimer>

/// What a run is to do: values, taken from the page when it begins.
struct ExchangeOrder
{
    enum Articles { KeepArticles, UpdateArticles, ReplaceArticles };

    ExchangePlace place;
    bool writesCards = false;
    bool writesChangedCards = false;
    Articles articles = KeepArticles;
    bool writesLevels = false;
    bool fetchesTransactions = false;
    bool readsTransactions = false;
    bool isWithoutSums = false;

    /// The window's connection, whose address is used.
    QString connection;
    QString host;
    int port = 0;
    /// Where transactions wait until they are counted: a folder of this database's own.
    QString folder;
    RegisterServerFactory server = platformRegisterServer;

    bool isEmpty() const;
};

/// What a run has done.
struct ExchangeOutcome
{
    qint64 cardsWritten = 0;
    qint64 articlesWritten = 0;
    qint64 levelsWritten = 0;
    qint64 fetched = 0;
    CountOutcome count;
};
Q_DECLARE_METATYPE(ExchangeOutcome)

/// One run of the exchange, for a Job. The result's value is an ExchangeOutcome, whatever its end.
JobResult AutoCall(JobContext &context, const ExchangeOrder &order);

/// The folder in the user's data where the transactions of a database wait.
QString exchangeFolder(const QString &connection);

/// "0 хв. 5 сек.": the minutes are not reduced to hours.
QString stageTime(qint64 ms);
/// "0 год. 0 хв. 5 сек."
QString totalTime(qint64 ms);
