#include "exchangewrites.h"

#include "exchangerun.h"
#include "qmessevent.h"
#include "qupdatebd.h"
#include "servererror.h"

#include <QCoreApplication>
#include <QDir>
#include <QSet>
#include <QSettings>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ExchangeWrites)
};

constexpr uint groupOfAll = 1;
constexpr int cardsAtOnce = 500;
constexpr int cardsBetween = 100;

/// A card with what it takes to know later whether it is still the same.
struct ChangedCard
{
    ServerCard card;
    uint group;
    /// When it was changed, by the server's clock.
    QString time;
};

struct Register
{
    QString code;
    uint group;
};

/// True when all were written.
bool writeCards(ServerSession &session, RegisterServer *server, const QString &kass,
                const QVector<ServerCard> &cards, qint64 done, qint64 of)
{
    for (int i = 0; i < cards.size(); ++i) {
        if (i % cardsBetween == 0 && !session.mayGoOn(done + i, of))
            return false;
        const QString problem = server->writeCard(kass, cards.at(i));
        if (problem.isEmpty())
            continue;
        session.tell(Texts::tr("Каса %1, картка %2: %3").arg(kass).arg(cards.at(i).code).arg(problem));
        return false;
    }
    return true;
}

std::optional<QVector<ServerCard>> readCards(ServerSession &session, const QString &group)
{
    const ExchangeStatement statement = cardsOf(group);
    auto query = session.query(statement.sql, statement.values);
    if (!query)
        return std::nullopt;
    QVector<ServerCard> cards;
    while (query->next())
        cards.append({query->value(0).toULongLong(), query->value(1).toUInt(), false});
    return cards;
}

std::optional<QVector<ChangedCard>> readCardsOfGroups(ServerSession &session, const QString &sql)
{
    auto query = session.query(sql);
    if (!query)
        return std::nullopt;
    QVector<ChangedCard> cards;
    while (query->next())
        cards.append({{query->value(0).toULongLong(), query->value(1).toUInt(), query->value(2).toInt() != 0},
                      query->value(3).toUInt(),
                      toText(query->value(4))});
    return cards;
}

std::optional<QVector<Register>> readRegisters(ServerSession &session)
{
    auto query = session.query(allRegistersSql());
    if (!query)
        return std::nullopt;
    QVector<Register> registers;
    while (query->next())
        registers.append({query->value(0).toString(), query->value(1).toUInt()});
    return registers;
}

/// What a register of that group knows.
QVector<ServerCard> cardsFor(uint group, const QVector<ChangedCard> &changed)
{
    QVector<ServerCard> cards;
    for (const ChangedCard &card : changed) {
        if (card.group == groupOfAll || card.group == group)
            cards.append(card.card);
    }
    return cards;
}

/// The cards that have gone to each register that knows them, one at least.
QVector<ChangedCard> wholeOnes(const QVector<ChangedCard> &changed, const QSet<uint> &written,
                               const QSet<uint> &failed)
{
    QVector<ChangedCard> whole;
    for (const ChangedCard &card : changed) {
        const bool isForAll = card.group == groupOfAll;
        if (isForAll ? !written.isEmpty() && failed.isEmpty()
                     : written.contains(card.group) && !failed.contains(card.group))
            whole.append(card);
    }
    return whole;
}

/// Not sent again, unless it is another card by now than the one that was written. Its time of change stays.
QString sentSql(const ChangedCard &changed)
{
    return QStringLiteral("UPDATE clients SET send=0,data_update=data_update WHERE id=%1 AND send=1 AND "
                          "id_procent=%2 AND block=%3 AND UNIX_TIMESTAMP(data_update)=%4")
        .arg(changed.card.code)
        .arg(changed.card.level)
        .arg(changed.card.isBlocked ? 1 : 0)
        .arg(changed.time);
}

bool markSent(ServerSession &session, const QVector<ChangedCard> &cards, int from, int to)
{
    const Db db = session.db();
    Transaction transaction(db);
    bool isDone = static_cast<bool>(transaction);
    for (int i = from; i < to && isDone; ++i)
        isDone = session.query(sentSql(cards.at(i))).has_value();
    return isDone && transaction.commit();
}

void markSent(ServerSession &session, const QVector<ChangedCard> &cards)
{
    bool isDone = !cards.isEmpty();
    for (int from = 0; from < cards.size() && isDone; from += cardsAtOnce)
        isDone = markSent(session, cards, from, qMin(from + cardsAtOnce, cards.size()));
    if (isDone)
        QUpdateBD().update(QStringList(QStringLiteral("clients")), *session.db().connection(),
                           session.db().receiver());
}

QString writtenKey()
{
    return QStringLiteral("articlesWritten");
}
} // namespace

ServerSession::ServerSession(JobContext *context, const ExchangeOrder &order)
    : m_context(context)
    , m_host(order.host)
    , m_port(order.port)
    , m_folder(order.folder)
    , m_server(order.server())
{
}

RegisterServer *ServerSession::open()
{
    if (m_isOpen)
        return m_server.get();
    const QString problem = m_server->open(m_host, m_port);
    m_isOpen = problem.isEmpty();
    if (!m_isOpen)
        tell(problem);
    return m_isOpen ? m_server.get() : nullptr;
}

std::optional<QStringList> ServerSession::registers(const ExchangePlace &place)
{
    const ExchangeStatement statement = registersOf(place);
    auto found = query(statement.sql, statement.values);
    if (!found)
        return std::nullopt;
    QStringList codes;
    while (found->next())
        codes.append(found->value(0).toString());
    codes.removeDuplicates();
    if (codes.isEmpty())
        tell(Texts::tr("У вибраному місці немає кас з кодом CashDrive."));
    return codes;
}

void ServerSession::tell(const QString &problem) const
{
    postMessage(m_context->receiver(), problem);
}

bool ServerSession::mayGoOn(qint64 done, qint64 of)
{
    m_context->progress(done, of);
    return !m_context->isCancelled();
}

std::optional<QSqlQuery> ServerSession::query(const QString &sql, const Db::Values &values)
{
    const Db connection = db();
    auto result = connection.run(sql, values);
    m_isDatabaseLost = !result && isConnectionLost(connection.lastErrorNumber());
    return result;
}

qint64 WriteCln(ServerSession &session, const ExchangePlace &place)
{
    RegisterServer *server = session.open();
    const auto registers = server == nullptr ? std::nullopt : session.registers(place);
    const auto cards = registers ? readCards(session, place.group) : std::nullopt;
    if (!cards)
        return 0;
    bool isWritten = false;
    for (int i = 0; i < registers->size(); ++i) {
        const qint64 of = qint64(cards->size()) * registers->size();
        isWritten |= writeCards(session, server, registers->at(i), *cards, qint64(i) * cards->size(), of);
    }
    return isWritten ? cards->size() : 0;
}

namespace {
/// The cards of a statement, each to all registers of its group; returns those that have gone to all of them.
QVector<ChangedCard> writeWhereKnown(ServerSession &session, const QString &sql)
{
    RegisterServer *server = session.open();
    const auto registers = server == nullptr ? std::nullopt : readRegisters(session);
    const auto changed = registers ? readCardsOfGroups(session, sql) : std::nullopt;
    if (!changed)
        return {};
    QSet<uint> written;
    QSet<uint> failed;
    for (int i = 0; i < registers->size(); ++i) {
        const Register &kass = registers->at(i);
        const QVector<ServerCard> cards = cardsFor(kass.group, *changed);
        const bool isDone = writeCards(session, server, kass.code, cards, i * qint64(changed->size()),
                                       registers->size() * qint64(changed->size()));
        (isDone ? written : failed).insert(kass.group);
    }
    return wholeOnes(*changed, written, failed);
}
} // namespace

qint64 WriteClnUpdate(ServerSession &session)
{
    const QVector<ChangedCard> whole = writeWhereKnown(session, changedCardsSql());
    markSent(session, whole);
    return whole.size();
}

qint64 WriteClnAll(ServerSession &session)
{
    return writeWhereKnown(session, allCardsSql()).size();
}

qint64 WriteArt(ServerSession &session, bool isWhole)
{
    RegisterServer *server = session.open();
    if (server == nullptr)
        return 0;
    QSettings remembered(QDir(session.folder()).filePath(QStringLiteral("exchange.ini")),
                         QSettings::IniFormat);
    auto now = session.query(QStringLiteral("SELECT UNIX_TIMESTAMP()"));
    auto query = now && now->next()
                     ? session.query(articlesSql(isWhole ? 0 : remembered.value(writtenKey()).toLongLong()))
                     : std::nullopt;
    if (!query)
        return 0;
    QVector<ServerArticle> articles;
    while (query->next())
        articles.append({query->value(0).toULongLong(), query->value(1).toString(),
                         query->value(2).toLongLong(), query->value(3).toUInt(), query->value(4).toInt() != 0,
                         query->value(5).toInt() != 0});
    const QString problem = session.mayGoOn(0, 0) ? server->writeArticles(articles, isWhole) : QString();
    if (!problem.isEmpty())
        session.tell(problem);
    if (!problem.isEmpty() || !session.mayGoOn(0, 0))
        return 0;
    remembered.setValue(writtenKey(), now->value(0).toLongLong());
    return articles.size();
}

qint64 WriteDisc(ServerSession &session)
{
    RegisterServer *server = session.open();
    auto query = server == nullptr ? std::nullopt : session.query(levelsSql());
    if (!query)
        return 0;
    QVector<ServerLevel> levels;
    while (query->next())
        levels.append({query->value(0).toUInt(), query->value(1).toString(), query->value(2).toLongLong(),
                       query->value(3).toInt() != 0});
    const QString problem = server->writeLevels(levels);
    if (!problem.isEmpty())
        session.tell(problem);
    return problem.isEmpty() ? levels.size() : 0;
}

bool DynamicCall(ServerSession &session, const QString &operation)
{
    RegisterServer *server = session.open();
    const QString problem = server == nullptr ? QString() : server->call(operation);
    if (!problem.isEmpty())
        session.tell(problem);
    return server != nullptr && problem.isEmpty();
}
