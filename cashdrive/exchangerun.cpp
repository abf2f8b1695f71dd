#include "exchangerun.h"

#include "connection.h"
#include "exchangewrites.h"
#include "money.h"
#include "qmessevent.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>
#include <QUrl>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ExchangeRun)
};

/// A run with its stages, in the job's thread.
class ExchangeRun
{
public:
    ExchangeRun(JobContext *context, const ExchangeOrder &order)
        : m_context(context), m_order(order), m_spool(order.folder), m_session(context, order)
    {
    }

    JobResult run();

private:
    bool ConnectToDatabase();
    void goThroughStages();
    void stage(const QString &begins, const QString &isOver, const std::function<void()> &work);
    bool mayGoOn();
    void TransmitTransaction();
    void ReadTransaction();
    void tell(const QString &text, int kind = QMessEvent::Information) const;
    QString keep(const QString &kass, const ServerLines &lines);
    JobResult result() const;
    QStringList doneWords() const;
    QString problem() const;

    JobContext *m_context;
    const ExchangeOrder &m_order;
    TransactionSpool m_spool;
    ServerSession m_session;
    ExchangeOutcome m_outcome;
    bool m_isLost = false;
};

void ExchangeRun::tell(const QString &text, int kind) const
{
    postMessage(m_context->receiver(), text, kind);
}

JobResult ExchangeRun::run()
{
    QElapsedTimer clock;
    clock.start();
    if (!QDir().mkpath(m_order.folder))
        return {JobResult::Failed, Texts::tr("Теку не створено: %1").arg(m_order.folder), {}};
    QLockFile lock(QDir(m_order.folder).filePath(QStringLiteral("lock")));
    lock.setStaleLockTime(0);
    if (!lock.tryLock())
        return {JobResult::Failed, Texts::tr("Дозвін цієї бази вже веде інша копія програми."), {}};
    if (!ConnectToDatabase())
        return {};
    goThroughStages();
    tell(Texts::tr("Загальний час дозвону:") + QLatin1Char(' ') + totalTime(clock.elapsed()));
    return result();
}

bool ExchangeRun::ConnectToDatabase()
{
    const DatabaseAddress address = addressInUse(m_order.connection).value_or(DatabaseAddress());
    tell(Texts::tr("Підключення до бази даних на") +
         QStringLiteral(" %1:%2").arg(address.host).arg(address.port));
    // A failure has reported itself: "Помилка з'єднання з БД."
    if (!m_context->db().connection()->isOpen())
        return false;
    const QString words = Texts::tr("Зєднання з БД всановлено.");
    m_context->stage(words);
    tell(words);
    return true;
}

void ExchangeRun::goThroughStages()
{
    if (m_order.writesCards)
        stage(Texts::tr("Запис клієнтів."), Texts::tr("Запис клієнтів завершено. За:"), [this] {
            m_outcome.cardsWritten =
                m_order.writesChangedCards ? WriteClnUpdate(m_session) : WriteCln(m_session, m_order.place);
        });
    if (m_order.articles != ExchangeOrder::KeepArticles)
        stage(Texts::tr("Запис артикуів."), Texts::tr("Запис артикуів завершено. За:"), [this] {
            m_outcome.articlesWritten =
                WriteArt(m_session, m_order.articles == ExchangeOrder::ReplaceArticles);
        });
    if (m_order.writesLevels)
        stage(Texts::tr("Запис знижок."), Texts::tr("Запис знижок завершено. За:"),
              [this] { m_outcome.levelsWritten = WriteDisc(m_session); });
    if (m_order.fetchesTransactions || m_order.writesCards || m_order.writesLevels ||
        m_order.articles != ExchangeOrder::KeepArticles)
        stage(Texts::tr("Зєднання з CashDrive."), Texts::tr("Зєднання з CashDrive завершено. За:"),
              [this] { TransmitTransaction(); });
    if (m_order.readsTransactions)
        stage(Texts::tr("Розбір транзакцій."), Texts::tr("Розбір транзакцій завершено. За:"),
              [this] { ReadTransaction(); });
}

void ExchangeRun::stage(const QString &begins, const QString &isOver, const std::function<void()> &work)
{
    if (!mayGoOn())
        return;
    QElapsedTimer clock;
    clock.start();
    m_context->progress(0, 0);
    m_context->stage(begins);
    tell(begins);
    work();
    if (mayGoOn())
        tell(isOver + QLatin1Char(' ') + stageTime(clock.elapsed()));
}

/// False when it was cancelled, or the connection is lost.
bool ExchangeRun::mayGoOn()
{
    return !m_context->isCancelled() && !m_isLost && !m_session.isDatabaseLost();
}

QString ExchangeRun::keep(const QString &kass, const ServerLines &lines)
{
    QString problem = m_spool.keep(kass, lines);
    if (problem.isEmpty())
        m_outcome.fetched += lines.size();
    return problem;
}

void ExchangeRun::TransmitTransaction()
{
    RegisterServer *server = m_session.open();
    const auto codes = server == nullptr ? std::nullopt : m_session.registers(m_order.place);
    if (!codes)
        return;
    for (int i = 0; i < codes->size() && mayGoOn(); ++i) {
        m_context->progress(i, codes->size());
        const QString &kass = codes->at(i);
        QString notKept;
        const QString problem = server->readTransactions(kass, [&](const ServerLines &lines) {
            notKept = keep(kass, lines);
            return notKept.isEmpty();
        });
        if (!notKept.isEmpty())
            tell(notKept, QMessEvent::Critical);
        else if (!problem.isEmpty())
            tell(Texts::tr("Каса %1: %2").arg(kass, problem), QMessEvent::Critical);
    }
}

void ExchangeRun::ReadTransaction()
{
    if (!m_session.isThere())
        return tell(noRegisterServer(), QMessEvent::Critical);
    QStringList problems;
    const QVector<KeptReading> readings = m_spool.waiting(&problems);
    for (const QString &problem : qAsConst(problems))
        tell(problem, QMessEvent::Critical);
    const Db db = m_context->db();
    TransactionCounter counter(db, m_order.isWithoutSums, [this](qint64 done, qint64 of) {
        m_context->progress(done, of);
        return !m_context->isCancelled();
    });
    m_outcome.count = counter.count(readings);
    m_isLost = m_outcome.count.end == CountOutcome::Lost;
    if (m_outcome.count.lines > 0 && !m_isLost)
        QUpdateBD().update(QStringList{QStringLiteral("clients"), QStringLiteral("cd_cheks")},
                           *db.connection(), db.receiver());
}

QStringList ExchangeRun::doneWords() const
{
    const CountOutcome &count = m_outcome.count;
    const struct
    {
        QString text;
        qint64 number;
    } parts[] = {
        {Texts::tr("карток записано: %1"), m_outcome.cardsWritten},
        {Texts::tr("товарів записано: %1"), m_outcome.articlesWritten},
        {Texts::tr("знижок записано: %1"), m_outcome.levelsWritten},
        {Texts::tr("транзакцій отримано: %1"), m_outcome.fetched},
        {Texts::tr("транзакцій розібрано: %1"), count.lines},
        {Texts::tr("з них враховано товарів: %1"), count.articles},
        {Texts::tr("враховано на картках: %1"), count.cards.counted},
        {Texts::tr("підвищено знижок: %1"), count.cards.raised},
        {Texts::tr("невідомих карток: %1"), count.cards.unknown},
        {Texts::tr("не враховано: %1"), count.refused.size()},
    };
    QStringList words;
    for (const auto &part : parts) {
        if (part.number != 0)
            words.append(part.text.arg(wholeShown(part.number)));
    }
    return words;
}

/// Why the run did not come to its end; empty when it did, and when it was stopped.
QString ExchangeRun::problem() const
{
    if (m_isLost || m_session.isDatabaseLost())
        return Texts::tr("Зв'язок з базою втрачено.");
    switch (m_outcome.count.end) {
    case CountOutcome::Busy:
        return Texts::tr("Картки тримає інша програма.");
    case CountOutcome::Taken:
        return Texts::tr("Ці транзакції вже розбирає інша програма.");
    case CountOutcome::Failed:
        return Texts::tr("База не приймає записів.");
    case CountOutcome::Lost:
    case CountOutcome::Stopped:
    case CountOutcome::Whole:
        break;
    }
    return QString();
}

JobResult ExchangeRun::result() const
{
    JobResult result{JobResult::Done, Texts::tr("Дозвін завершено."), QVariant::fromValue(m_outcome)};
    if (m_context->isCancelled()) {
        result.outcome = JobResult::Cancelled;
        result.words = Texts::tr("Дозвін зупинено.");
    } else if (!problem().isEmpty()) {
        result.outcome = JobResult::Failed;
        result.words = Texts::tr("Дозвін не завершено.") + QLatin1Char(' ') + problem();
    }
    const QString done = doneWords().join(QStringLiteral("; "));
    if (!done.isEmpty())
        result.words += QLatin1Char(' ') + done.at(0).toUpper() + done.mid(1) + QLatin1Char('.');
    if (m_order.readsTransactions && result.outcome != JobResult::Done)
        result.words +=
            QLatin1Char(' ') + Texts::tr("Решту розбере наступний дозвін; ніщо не врахується двічі.");
    return result;
}
} // namespace

bool ExchangeOrder::isEmpty() const
{
    return !writesCards && articles == KeepArticles && !writesLevels && !fetchesTransactions &&
           !readsTransactions;
}

JobResult AutoCall(JobContext &context, const ExchangeOrder &order)
{
    return ExchangeRun(&context, order).run();
}

QString exchangeFolder(const QString &connection)
{
    const DatabaseAddress address = addressInUse(connection).value_or(DatabaseAddress());
    const QString name = QStringLiteral("%1_%2_%3").arg(address.host).arg(address.port).arg(address.name);
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/Veltab/cashdrive/") + QLatin1String(QUrl::toPercentEncoding(name));
}

QString stageTime(qint64 ms)
{
    const qint64 seconds = ms / 1000;
    return QStringLiteral("%1 ").arg(seconds / 60) + Texts::tr("хв.") +
           QStringLiteral(" %1 ").arg(seconds % 60) + Texts::tr("сек.");
}

QString totalTime(qint64 ms)
{
    const qint64 seconds = ms / 1000;
    return QStringLiteral("%1 ").arg(seconds / 3600) + Texts::tr("год.") + QLatin1Char(' ') +
           stageTime(ms % 3600000);
}
