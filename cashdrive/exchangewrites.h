#pragma once

#include "exchangestatements.h"
#include "job.h"
#include "registerserver.h"

struct ExchangeOrder;

/// The register server and the database of one run.
class ServerSession
{
public:
    ServerSession(JobContext *context, const ExchangeOrder &order);

    /// False when there is no such server on this platform.
    bool isThere() const { return m_server->isThere(); }
    /// The server with its session, opened by the first call; null, reported, when that does not work.
    RegisterServer *open();
    /// The server codes of the place's registers; nothing after a reported failure.
    std::optional<QStringList> registers(const ExchangePlace &place);
    /// A connection that was lost is of no use any more.
    bool isDatabaseLost() const { return m_isDatabaseLost; }
    void tell(const QString &problem) const;
    /// False: the run was cancelled. Says how far the stage is.
    bool mayGoOn(qint64 done, qint64 of);

    std::optional<QSqlQuery> query(const QString &sql, const Db::Values &values = {});
    Db db() { return m_context->db(); }
    /// Where it is remembered when articles were written.
    const QString &folder() const { return m_folder; }

private:
    JobContext *m_context;
    QString m_host;
    int m_port;
    QString m_folder;
    std::unique_ptr<RegisterServer> m_server;
    bool m_isOpen = false;
    bool m_isDatabaseLost = false;
};

/// Writes the cards of the place's group to the registers of the place. All return how many were written;
/// failures are reported, and the next register's turn comes.
qint64 WriteCln(ServerSession &session, const ExchangePlace &place);
/// Writes the cards that were changed since they were written last (send=1) to all registers that know them;
/// those that no register has refused, and nobody has changed meanwhile, are not sent again.
qint64 WriteClnUpdate(ServerSession &session);
/// Writes every card, blocked ones too, to all registers that know it; changed cards stay marked as changed.
qint64 WriteClnAll(ServerSession &session);
/// isWhole: all articles, else those that were changed since articles were written from here.
qint64 WriteArt(ServerSession &session, bool isWhole);
qint64 WriteDisc(ServerSession &session);
/// Has the server do an operation of its own; false when it does not, which is reported.
bool DynamicCall(ServerSession &session, const QString &operation);
