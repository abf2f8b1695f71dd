#include "cardsums.h"

#include <QCoreApplication>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(CardSums)
};

/// Further ones are counted silently, until a card is found again.
const int mostMissingTold = 20;

/// Missing cards of a run: only the first of a row are told.
CardOutcome missCard(const QString &card, CardSums *sums, QStringList *messages)
{
    if (sums->missing++ < mostMissingTold)
        messages->append(Texts::tr("Карточка клієнта не знайдена") + QLatin1Char(' ') + card);
    ++sums->unknown;
    return CardOutcome::Unknown;
}

bool markChanged(const Db &db, const QString &card)
{
    return db.run(QStringLiteral("UPDATE clients SET data_update=NULL WHERE id=") + card).has_value();
}

bool addSum(const Db &db, const QString &card, qint64 kopecks)
{
    return db
        .run(QStringLiteral("UPDATE clients tm1 JOIN clients tm2 ON tm2.id=%1 SET tm1.summ=tm2.summ+%2 WHERE "
                            "tm1.id=%1")
                 .arg(card)
                 .arg(kopecks))
        .has_value();
}

/// Discount and id of the level that the card's sum has reached; empty for none.
std::optional<QStringList> reachedLevel(const Db &db, const QString &card)
{
    return db.firstRow(QStringLiteral("SELECT discount,id FROM procent WHERE sum<(SELECT summ FROM clients "
                                      "WHERE id=%1) AND auto=1 AND block=0 ORDER BY discount DESC LIMIT 1")
                           .arg(card));
}

/// Of the level that the card has; empty, to be told, when there is none.
std::optional<QStringList> presentLevel(const Db &db, const QString &card, QStringList *messages)
{
    const QString sql =
        QStringLiteral("SELECT discount FROM procent WHERE id=(SELECT id_procent FROM clients WHERE id=%1)")
            .arg(card);
    const auto level = db.firstRow(sql);
    if (level && level->isEmpty())
        messages->append(Texts::tr("Відсутні дані після запиту") + QLatin1Char('\n') + sql);
    return level;
}

/// False after a failed statement.
bool moveUp(const Db &db, const QString &card, CardSums *sums, QStringList *messages)
{
    const auto reached = reachedLevel(db, card);
    if (!reached || reached->isEmpty())
        return reached.has_value();
    const auto present = presentLevel(db, card, messages);
    if (!present || present->isEmpty() || present->first().toLongLong() >= reached->first().toLongLong())
        return present.has_value();
    if (!db.run(
            QStringLiteral("UPDATE clients SET id_procent=%1, send=1 WHERE id=%2").arg(reached->at(1), card)))
        return false;
    ++sums->raised;
    return true;
}
} // namespace

CardOutcome updatecln(const Db &db, quint64 card, qint64 kopecks, CardSums *sums, QStringList *messages)
{
    const QString id = QString::number(card);
    const auto fixed =
        db.firstRow(QStringLiteral("SELECT fiksed FROM clients WHERE id=%1 AND block=0").arg(id));
    if (!fixed)
        return CardOutcome::Failed;
    if (fixed->isEmpty())
        return missCard(id, sums, messages);
    sums->missing = 0;
    const bool isOnlyMarked = sums->isWithoutSums || fixed->first() != QLatin1String("0");
    if (isOnlyMarked ? !markChanged(db, id) : !addSum(db, id, kopecks) || !moveUp(db, id, sums, messages))
        return CardOutcome::Failed;
    ++sums->counted;
    return CardOutcome::Counted;
}
