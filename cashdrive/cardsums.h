#pragma once

#include "db.h"

#include <QStringList>

/// What the lines of a run have done to the cards so far, and how purchases count.
struct CardSums
{
    /// "Не враховувати суму покупок": cards are only marked as changed.
    bool isWithoutSums = false;
    /// Lines without their card, one behind the other: only the first are told one by one.
    int missing = 0;

    qint64 counted = 0;
    qint64 raised = 0;
    qint64 unknown = 0;
};

enum class CardOutcome { Counted, Unknown, Failed };

/// Adds a purchase (kopecks; negative for what was returned) to a card and moves the card up the ladder of
/// the automatic discount levels: never down, never to a blocked level, only to a higher percentage, and only
/// when the card's sum is greater than the level's. A card with a fixed discount keeps sum and level and is
/// only marked as changed. An unknown or blocked card is left alone; messages gets what is to be told of it.
/// Failed statements report themselves.
CardOutcome updatecln(const Db &db, quint64 card, qint64 kopecks, CardSums *sums, QStringList *messages);
