#pragma once

#include "articlecounts.h"
#include "cardsums.h"
#include "refusedlist.h"
#include "transactionspool.h"

#include <functional>

/// What came of counting.
struct CountOutcome
{
    enum End {
        Whole,
        Stopped,
        Lost,  ///< the connection
        Busy,  ///< others hold the rows
        Taken, ///< another program counts the same reading
        Failed ///< reported
    };
    End end = Whole;
    /// Lines that were done with, and those whose article was counted.
    qint64 lines = 0;
    qint64 articles = 0;
    CardSums cards;
    /// By the number of the line in this counting.
    RefusedLines refused;
};

/// Counts kept readings into cd_cheks and clients, each line once, whatever happens between.
///
/// Some hundred lines are one transaction, and in it stands how far it goes: a row of `updat`, whose name is
/// "cashdrive", the reading and the number of lines counted. So the database itself knows what it has taken,
/// also when nobody has heard the answer to COMMIT. Behind the last line the file gets that number into its
/// name, and the row goes.
class TransactionCounter
{
public:
    /// Told before every line; false: stop.
    using MayGoOn = std::function<bool(qint64 done, qint64 of)>;

    TransactionCounter(const Db &db, bool isWithoutSums, const MayGoOn &mayGoOn);

    /// Statements that fail report themselves; a line that no statement takes is refused, the others are
    /// counted.
    CountOutcome count(QVector<KeptReading> readings);

private:
    enum Consumers { Nothing = 0, Articles = 1, Cards = 2, Both = 3 };
    /// Lines of a reading, and what of them is counted.
    struct Batch
    {
        const KeptReading *reading;
        int from;
        int to;
        int consumers = Both;
    };
    /// What a transaction does to the outcome once it is committed.
    struct Gain
    {
        qint64 articles = 0;
        CardSums cards;
        RefusedLines refused;
        QStringList messages;
    };
    enum class Answer {
        Counted,
        Refused, ///< the server does not take what a line holds
        Over     ///< the counting ends here, by m_outcome.end
    };
    enum class Sent { Committed, CommitUnheard, Failed };

    void countReading(KeptReading *reading);
    bool findPlace(const KeptReading &reading);
    void leave(KeptReading *reading);
    bool countApart(const Batch &batch);
    Answer countSingle(const Batch &line);
    Answer attempt(const Batch &batch, const RefusedLines &refused, QString *words);
    Answer answerTo(Sent sent, const Batch &batch, bool mayRepeat);
    Sent send(const Db &db, const Batch &batch, Gain *gain);
    bool countArticle(const Db &db, const Batch &batch, int index, Gain *gain);
    bool countCard(const Db &db, const Batch &batch, int index, Gain *gain);
    qint64 numberOf(const Batch &batch, int index) const;
    bool isCountedThere(const Batch &batch);
    void take(const Batch &batch, const Gain &gain);
    void tell(const Gain &gain);

    Db m_db;
    MayGoOn m_mayGoOn;
    CountedGoods m_goods;
    CountOutcome m_outcome;
    bool m_isOver = false;
    /// Of the reading that is being counted: how many of its lines the database has; unknown after a COMMIT
    /// that was not answered.
    int m_counted = 0;
    bool m_isUnsure = false;
    qint64 m_of = 0;
};

/// How many lines of readings are still to be counted.
qint64 linesToCount(const QVector<KeptReading> &readings);
