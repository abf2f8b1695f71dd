#pragma once

#include <QDate>
#include <QString>
#include <QVector>
#include <functional>
#include <memory>

/// A loyalty card as the registers know it.
struct ServerCard
{
    quint64 code = 0;
    /// The discount level.
    uint level = 0;
    bool isBlocked = false;
};

struct ServerArticle
{
    quint64 code = 0;
    QString name;
    qint64 kopecks = 0;
    uint tax = 0;
    bool isByWeight = false;
    bool isBlocked = false;
};

/// A discount level as the registers know it.
struct ServerLevel
{
    uint id = 0;
    QString name;
    /// Hundredths of a per cent.
    qint64 rate = 0;
    bool isBlocked = false;
};

/// One line of what a register has sold.
struct ServerLine
{
    quint64 article = 0;
    qint64 thousandths = 0;
    qint64 kopecks = 0;
    /// 0: without a card.
    quint64 card = 0;
    int year = 0;
    int month = 0;
    int day = 0;
};
using ServerLines = QVector<ServerLine>;

/// The server that dials the registers. All functions but the first block as long as it needs and answer with
/// nothing, or with why it did not work, for the user. One thread.
class RegisterServer
{
public:
    virtual ~RegisterServer() = default;

    /// False when there is no such server on this platform.
    virtual bool isThere() const = 0;
    virtual QString open(const QString &host, int port) = 0;
    /// kass: the register's code at the server.
    virtual QString writeCard(const QString &kass, const ServerCard &card) = 0;
    /// isWhole: these are all there are, instead of those the registers have.
    virtual QString writeArticles(const QVector<ServerArticle> &articles, bool isWhole) = 0;
    virtual QString writeLevels(const QVector<ServerLevel> &levels) = 0;
    /// Hands over what a register has sold since the last reading. It is not handed over again once keep has
    /// returned true.
    using Keep = std::function<bool(const ServerLines &lines)>;
    virtual QString readTransactions(const QString &kass, const Keep &keep) = 0;
    /// An operation of the server's own, which only it and whoever asks for it know by this name.
    virtual QString call(const QString &operation) = 0;
};

using RegisterServerFactory = std::function<std::unique_ptr<RegisterServer>()>;

/// The server of this platform. There is none: whatever it is asked for, it tells that.
std::unique_ptr<RegisterServer> platformRegisterServer();
QString noRegisterServer();
