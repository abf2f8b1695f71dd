#pragma once

#include <QMetaType>
#include <QString>

class JobContext;
struct JobResult;

/// New blank cards, one for each code from the first on; what they have in common is named as the lists name
/// it.
struct CardRange
{
    qint64 first = 0;
    qint64 count = 0;
    QString procent;
    QString discbonus;
    QString fiksed;
    QString group;
    QString block;
    QString send;

    qint64 last() const { return first + count - 1; }
};

/// The highest code that the database holds.
constexpr qint64 highestCard = 4294967295;

/// How far the creation of a range has come.
struct CardsCreated
{
    /// Cards that stand in the database, the first ones of the range.
    qint64 count = 0;
    /// The range was refused as a whole: nothing was tried.
    bool isRefused = false;
};
Q_DECLARE_METATYPE(CardsCreated)

/// A job's work: looks whether the range is free and creates the cards, 500 in a statement. There is no
/// transaction around the statements: what they have created stays when a later one fails or the job is
/// cancelled. The result's value is a CardsCreated.
JobResult createCards(JobContext &context, const CardRange &range);
