#include "servererror.h"

#include <QCoreApplication>
#include <algorithm>
#include <iterator>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ServerError)
};

/// The client's: not connected, gone, lost, handshake, encryption, garbled answer. The server's: it
/// takes no more connections, is going down, has ended this one, could not read or write it.
const int lossErrors[] = {ServerError::TooManyConnections,
                          1053,
                          1152,
                          1158,
                          1159,
                          1160,
                          1161,
                          ServerError::ConnectionKilled,
                          2002,
                          2003,
                          2005,
                          2006,
                          2012,
                          2013,
                          2026,
                          2027,
                          2055};
} // namespace

bool isConnectionLost(int error)
{
    return std::find(std::begin(lossErrors), std::end(lossErrors), error) != std::end(lossErrors);
}

bool isOthersLock(int error)
{
    return error == ServerError::LockWait || error == ServerError::Deadlock;
}

bool isCommitRefused(int error)
{
    return isOthersLock(error) || error == ServerError::NodeNotReady;
}

QString serverWords(int error)
{
    if (isConnectionLost(error))
        return Texts::tr("Немає зв'язку із сервером бази даних. Програма підключається знову сама; "
                         "перевірте мережу, якщо це триває.");
    switch (error) {
    case ServerError::NodeNotReady:
        return Texts::tr("Сервер бази даних зараз нічого не приймає: він утратив зв'язок з іншими серверами "
                         "кластера. Нічого не записано. Повторіть за хвилину або зверніться до "
                         "адміністратора бази.");
    case ServerError::LockWait:
        return Texts::tr("Ці дані зараз тримає інша програма (продаж, звіт або резервне копіювання). "
                         "Повторіть за хвилину.");
    case ServerError::Deadlock:
        return Texts::tr("Інша програма щойно записала ті самі дані. Нічого не записано. Повторіть.");
    default:
        return QString();
    }
}
