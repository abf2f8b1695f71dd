#pragma once

#include "db.h"
#include "registerserver.h"

#include <QMap>
#include <QStringList>
#include <memory>

/// What a server of the tests plays back and hears. It outlives the run.
struct Played
{
    QMap<QString, QVector<ServerLines>> readings;
    /// "001 7 2 0": register, card, level, blocked.
    QStringList cards;
    QStringList articles;
    QStringList levels;
    QStringList calls;
    /// What a register answers to everything.
    QMap<QString, QString> problems;
    QString openProblem;
    int opened = 0;
    /// Holds up the reading of registers.
    std::function<void()> meanwhile;
};

/// The register server of the tests, in the job's thread, whose statements it lets the hooks hear.
class PlayedServer : public RegisterServer
{
public:
    explicit PlayedServer(Played *played) : m_played(played) { Db::letHooksHearThisThread(); }

    bool isThere() const override { return true; }
    QString open(const QString &host, int port) override
    {
        ++m_played->opened;
        return host == "127.0.0.1" && port == 12981 ? m_played->openProblem : "address";
    }
    QString writeCard(const QString &kass, const ServerCard &card) override
    {
        if (m_played->problems.contains(kass))
            return m_played->problems.value(kass);
        m_played->cards.append(
            QString("%1 %2 %3 %4").arg(kass).arg(card.code).arg(card.level).arg(card.isBlocked));
        return QString();
    }
    QString writeArticles(const QVector<ServerArticle> &articles, bool isWhole) override
    {
        for (const ServerArticle &article : articles)
            m_played->articles.append(QString("%1 %2 %3 %4 %5 %6 %7")
                                          .arg(isWhole ? "all" : "new")
                                          .arg(article.code)
                                          .arg(article.name)
                                          .arg(article.kopecks)
                                          .arg(article.tax)
                                          .arg(article.isByWeight)
                                          .arg(article.isBlocked));
        return QString();
    }
    QString writeLevels(const QVector<ServerLevel> &levels) override
    {
        for (const ServerLevel &level : levels)
            m_played->levels.append(
                QString("%1 %2 %3 %4").arg(level.id).arg(level.name).arg(level.rate).arg(level.isBlocked));
        return QString();
    }
    QString readTransactions(const QString &kass, const Keep &keep) override
    {
        if (m_played->meanwhile)
            m_played->meanwhile();
        if (m_played->problems.contains(kass))
            return m_played->problems.value(kass);
        QVector<ServerLines> &waiting = m_played->readings[kass];
        if (!waiting.isEmpty() && keep(waiting.constFirst()))
            waiting.removeFirst();
        return QString();
    }
    QString call(const QString &operation) override
    {
        m_played->calls.append(operation);
        return m_played->problems.value(operation);
    }

private:
    Played *m_played;
};

inline RegisterServerFactory playing(Played *played)
{
    return [played] { return std::make_unique<PlayedServer>(played); };
}
