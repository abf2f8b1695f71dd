#include "cardsums.h"

#include <QCoreApplication>
#include <QStringBuilder>

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
        .run(QStringLiteral("UPDATE clients tm1 JOIN clients tm2 ON tm2.id=") % card %
             QStringLiteral(" SET tm1.summ=tm2.summ+") % QString::number(kopecks) %
             QStringLiteral(" WHERE tm1.id=") % card)
        .has_value();
}

/// What the card's sum has reached.
QString reachedSql(const QString &card)
{
    return QStringLiteral("SELECT discount,id FROM procent WHERE sum<(SELECT summ FROM clients WHERE id=") %
           card % QStringLiteral(") AND auto=1 AND block=0 ORDER BY discount DESC LIMIT 1");
}

QString presentSql(const QString &card)
{
    return QStringLiteral("SELECT discount FROM procent WHERE id=(SELECT id_procent FROM clients WHERE id=") %
           card % QLatin1Char(')');
}

bool raise(const Db &db, const QString &card, const QString &level, CardSums *sums)
{
    ++sums->raised;
    return db
        .run(QStringLiteral("UPDATE clients SET id_procent=") + level + QStringLiteral(", send=1 WHERE id=") +
             card)
        .has_value();
}

/// False after a failed statement.
bool moveUp(const Db &db, const QString &card, CardSums *sums, QStringList *messages)
{
    auto reached = db.run(reachedSql(card));
    if (!reached || !reached->next())
        return reached.has_value();
    auto present = db.run(presentSql(card));
    if (!present)
        return false;
    if (!present->next()) {
        messages->append(Texts::tr("Відсутні дані після запиту") + QLatin1Char('\n') + presentSql(card));
        return true;
    }
    return present->value(0).toLongLong() >= reached->value(0).toLongLong() ||
           raise(db, card, reached->value(1).toString(), sums);
}
} // namespace

CardOutcome updatecln(const Db &db, quint64 card, qint64 kopecks, CardSums *sums, QStringList *messages)
{
    const QString id = QString::number(card);
    auto fixed =
        db.run(QStringLiteral("SELECT fiksed FROM clients WHERE id=") + id + QStringLiteral(" AND block=0"));
    if (!fixed)
        return CardOutcome::Failed;
    if (!fixed->next())
        return missCard(id, sums, messages);
    sums->missing = 0;
    const bool isOnlyMarked = sums->isWithoutSums || fixed->value(0).toInt() != 0;
    if (isOnlyMarked ? !markChanged(db, id) : !addSum(db, id, kopecks) || !moveUp(db, id, sums, messages))
        return CardOutcome::Failed;
    ++sums->counted;
    return CardOutcome::Counted;
}
