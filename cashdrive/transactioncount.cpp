#include "transactioncount.h"

#include "qmessevent.h"
#include "servererror.h"

#include <QCoreApplication>
#include <algorithm>
#include <numeric>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(TransactionCount)
};

/// Some tenths of a second: so long its cards are locked for others.
constexpr int batchLines = 500;
constexpr int mostTries = 3;

/// What a line may hold that the server does not take, whatever the state of the database. After any other
/// error no line is given up.
bool isRefusedValue(int error)
{
    constexpr int outOfRange[] = {1264, 1690};
    constexpr int wrongValue[] = {1292, 1366};
    return error == ServerError::MissingRow ||
           std::count(std::begin(outOfRange), std::end(outOfRange), error) != 0 ||
           std::count(std::begin(wrongValue), std::end(wrongValue), error) != 0;
}

QString marksOf(const KeptReading &reading)
{
    return QStringLiteral("cashdrive ") + reading.id + QLatin1Char(' ');
}

QString mark(const KeptReading &reading, int counted)
{
    return lit(marksOf(reading) + QString::number(counted));
}

QString ofMarks(const char *sql, const KeptReading &reading)
{
    return QLatin1String(sql) + QStringLiteral(" FROM updat WHERE name LIKE ") +
           lit(marksOf(reading) + QLatin1Char('%'));
}

/// Remembers what statements report, for those who decide later whether it is told.
class HeldReports : public QObject
{
public:
    bool event(QEvent *event) override
    {
        if (event->type() != QMessEvent::eventType)
            return QObject::event(event);
        m_reports.append(*static_cast<QMessEvent *>(event));
        return true;
    }
    QString words()
    {
        QCoreApplication::sendPostedEvents(this, QMessEvent::eventType);
        return m_reports.isEmpty() ? QString() : m_reports.constFirst().text();
    }
    void tell(QObject *receiver)
    {
        words();
        for (const QMessEvent &report : qAsConst(m_reports))
            QCoreApplication::postEvent(receiver, new QMessEvent(report));
    }

private:
    QVector<QMessEvent> m_reports;
};

QString articleCode(const QString &kass, const ServerLine &line)
{
    return Texts::tr("каса %1, товар %2").arg(kass).arg(line.article);
}

QString cardCode(const QString &kass, const ServerLine &line)
{
    return Texts::tr("каса %1, картка %2").arg(kass).arg(line.card);
}
} // namespace

qint64 linesToCount(const QVector<KeptReading> &readings)
{
    return std::accumulate(
        readings.begin(), readings.end(), qint64(0),
        [](qint64 sum, const KeptReading &reading) { return sum + reading.lines.size() - reading.counted; });
}

TransactionCounter::TransactionCounter(const Db &db, bool isWithoutSums, const MayGoOn &mayGoOn)
    : m_db(db), m_mayGoOn(mayGoOn)
{
    m_outcome.cards.isWithoutSums = isWithoutSums;
}

CountOutcome TransactionCounter::count(QVector<KeptReading> readings)
{
    if (readings.isEmpty())
        return m_outcome;
    const auto goods = readCountedGoods(m_db);
    if (!goods) {
        m_outcome.end = isConnectionLost(m_db.lastErrorNumber()) ? CountOutcome::Lost : CountOutcome::Failed;
        return m_outcome;
    }
    m_goods = *goods;
    m_of = linesToCount(readings);
    for (KeptReading &reading : readings) {
        countReading(&reading);
        if (m_isOver)
            break;
    }
    return m_outcome;
}

void TransactionCounter::countReading(KeptReading *reading)
{
    if (!findPlace(*reading)) {
        m_isOver = true;
        m_outcome.end = isConnectionLost(m_db.lastErrorNumber()) ? CountOutcome::Lost : CountOutcome::Failed;
        return;
    }
    while (!m_isOver && m_counted < reading->lines.size()) {
        const Batch batch{reading, m_counted, qMin(m_counted + batchLines, reading->lines.size())};
        if (attempt(batch, {}, nullptr) == Answer::Refused)
            countApart(batch);
    }
    leave(reading);
}

/// Where the counting of the reading goes on: the mark of the database, if there is one, is the truth.
bool TransactionCounter::findPlace(const KeptReading &reading)
{
    m_isUnsure = false;
    const auto name = m_db.firstText(ofMarks("SELECT name", reading));
    if (!name)
        return false;
    const int there = name->isEmpty() ? -1 : name->mid(marksOf(reading).size()).toInt();
    m_counted = qMax(there, static_cast<int>(reading.counted));
    m_of -= m_counted - reading.counted;
    if (there == m_counted || m_counted >= reading.lines.size())
        return true;
    return m_db.run(ofMarks("DELETE", reading)) &&
           m_db.run(QStringLiteral("INSERT INTO updat(name,updat) VALUES(%1,NOW())")
                        .arg(mark(reading, m_counted)));
}

/// The file gets what is counted into its name; then the database need not remember it.
void TransactionCounter::leave(KeptReading *reading)
{
    if (m_isUnsure || m_outcome.end == CountOutcome::Lost || m_outcome.end == CountOutcome::Taken)
        return;
    if (!TransactionSpool::setCounted(reading, m_counted)) {
        postMessage(m_db.receiver(), Texts::tr("Файл не перейменовано: %1").arg(reading->path),
                    QMessEvent::Warning);
        return;
    }
    if (m_db.run(ofMarks("DELETE", *reading)) && m_counted == reading->lines.size())
        TransactionSpool::remove(*reading);
}

/// The halves of a batch that holds what the server does not take.
bool TransactionCounter::countApart(const Batch &batch)
{
    if (batch.to - batch.from == 1)
        return countSingle(batch) == Answer::Counted;
    const int middle = (batch.from + batch.to) / 2;
    for (const Batch &half :
         {Batch{batch.reading, batch.from, middle}, Batch{batch.reading, middle, batch.to}}) {
        const Answer answer = attempt(half, {}, nullptr);
        if (answer == Answer::Over || (answer == Answer::Refused && !countApart(half)))
            return false;
    }
    return true;
}

/// Article and card are two things: what the server does not take of the one is not lost for the other.
TransactionCounter::Answer TransactionCounter::countSingle(const Batch &line)
{
    const ServerLine &values = line.reading->lines.at(line.from);
    const QString article = articleCode(line.reading->kass, values);
    const QString card = cardCode(line.reading->kass, values);
    const qint64 number = m_outcome.lines + 1;
    const auto only = [&line](int consumers) { return Batch{line.reading, line.from, line.to, consumers}; };
    QString ofCard;
    QString ofArticle;
    Answer answer = attempt(only(Both), {}, &ofCard);
    if (answer == Answer::Refused)
        answer = attempt(only(Articles), {{number, card, ofCard}}, &ofArticle);
    if (answer == Answer::Refused)
        answer = attempt(only(Cards), {{number, article, ofArticle}}, &ofCard);
    if (answer == Answer::Refused)
        answer = attempt(only(Nothing), {{number, article, ofArticle}, {number, card, ofCard}}, nullptr);
    return answer;
}

/// refused: what is left out by this attempt. words: what the server says when it refuses.
TransactionCounter::Answer TransactionCounter::attempt(const Batch &batch, const RefusedLines &refused,
                                                       QString *words)
{
    for (int tries = 1;; ++tries) {
        Gain gain;
        gain.cards = m_outcome.cards;
        gain.refused = refused;
        for (const RefusedLine &line : refused)
            gain.messages.append(line.reason);
        HeldReports reports;
        const Sent sent = send(Db(m_db.connection(), &reports), batch, &gain);
        const Answer answer = answerTo(sent, batch, tries < mostTries);
        if (answer == Answer::Counted) {
            take(batch, gain);
            return answer;
        }
        if (answer == Answer::Over && sent == Sent::CommitUnheard)
            tell(gain);
        if (answer == Answer::Over && m_outcome.end != CountOutcome::Stopped)
            reports.tell(m_db.receiver());
        if (answer == Answer::Refused && words != nullptr)
            *words = reports.words().simplified();
        const bool isRepeated = answer == Answer::Refused && isOthersLock(m_db.lastErrorNumber());
        if (!isRepeated)
            return answer;
    }
}

/// What a transaction that has not been answered as it should means.
TransactionCounter::Answer TransactionCounter::answerTo(Sent sent, const Batch &batch, bool mayRepeat)
{
    if (sent == Sent::Committed)
        return Answer::Counted;
    const int error = m_db.lastErrorNumber();
    const auto end = [this](CountOutcome::End why) {
        m_isOver = true;
        m_outcome.end = why;
        return Answer::Over;
    };
    m_isUnsure = sent == Sent::CommitUnheard && !isCommitRefused(error);
    if (isConnectionLost(error))
        return end(CountOutcome::Lost);
    if (m_isUnsure && isCountedThere(batch)) {
        m_isUnsure = false;
        return Answer::Counted;
    }
    if (m_isOver)
        return Answer::Over;
    if (!m_mayGoOn(m_outcome.lines, m_of))
        return end(CountOutcome::Stopped);
    if (isOthersLock(error) && !mayRepeat)
        return end(CountOutcome::Busy);
    return isOthersLock(error) || isRefusedValue(error) ? Answer::Refused : end(CountOutcome::Failed);
}

TransactionCounter::Sent TransactionCounter::send(const Db &db, const Batch &batch, Gain *gain)
{
    Transaction transaction(db);
    if (!transaction)
        return Sent::Failed;
    // The mark first: whoever counts the same reading waits here, and finds it counted.
    const auto moved = db.run(QStringLiteral("UPDATE updat SET name=%1,updat=NOW() WHERE name=%2")
                                  .arg(mark(*batch.reading, batch.to), mark(*batch.reading, batch.from)));
    if (moved && moved->numRowsAffected() != 1) {
        m_isOver = true;
        m_outcome.end = CountOutcome::Taken;
    }
    if (!moved || m_isOver)
        return Sent::Failed;
    for (int i = batch.from; i < batch.to; ++i) {
        if (!m_mayGoOn(m_outcome.lines + i - batch.from, m_of) ||
            ((batch.consumers & Articles) != 0 && !countArticle(db, batch, i, gain)) ||
            ((batch.consumers & Cards) != 0 && !countCard(db, batch, i, gain)))
            return Sent::Failed;
    }
    return transaction.commit() ? Sent::Committed : Sent::CommitUnheard;
}

bool TransactionCounter::countArticle(const Db &db, const Batch &batch, int index, Gain *gain)
{
    const ServerLine &line = batch.reading->lines.at(index);
    const QString &kass = batch.reading->kass;
    if (m_goods.neverCounted.contains(line.article))
        return true;
    const QString why = articleRefusal(m_goods, kass, line);
    if (!why.isEmpty()) {
        gain->refused.append({numberOf(batch, index), articleCode(kass, line), why});
        return true;
    }
    ++gain->articles;
    return transToCdcheks(db, kass, line.article, line.thousandths, line.year, line.month, line.day);
}

bool TransactionCounter::countCard(const Db &db, const Batch &batch, int index, Gain *gain)
{
    const ServerLine &line = batch.reading->lines.at(index);
    if (line.card == 0 || line.kopecks == 0)
        return true;
    const CardOutcome outcome = updatecln(db, line.card, line.kopecks, &gain->cards, &gain->messages);
    if (outcome == CardOutcome::Unknown)
        gain->refused.append({numberOf(batch, index), cardCode(batch.reading->kass, line),
                              Texts::tr("Картки немає або її заблоковано.")});
    return outcome != CardOutcome::Failed;
}

/// In the whole counting.
qint64 TransactionCounter::numberOf(const Batch &batch, int index) const
{
    return m_outcome.lines + index - batch.from + 1;
}

bool TransactionCounter::isCountedThere(const Batch &batch)
{
    const auto name = m_db.firstText(ofMarks("SELECT name", *batch.reading));
    m_isUnsure = !name;
    return name && lit(*name) == mark(*batch.reading, batch.to);
}

void TransactionCounter::take(const Batch &batch, const Gain &gain)
{
    m_counted = batch.to;
    m_outcome.lines += batch.to - batch.from;
    m_outcome.articles += gain.articles;
    m_outcome.cards = gain.cards;
    tell(gain);
}

void TransactionCounter::tell(const Gain &gain)
{
    m_outcome.refused += gain.refused;
    for (const QString &message : gain.messages)
        postMessage(m_db.receiver(), message, QMessEvent::Warning);
}
