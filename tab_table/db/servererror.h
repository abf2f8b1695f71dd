#pragma once

#include <QString>

/// Error numbers of the server and of its client library that a program answers in its own way.
namespace ServerError {
enum {
    TooManyConnections = 1040,
    NodeNotReady = 1047, ///< a cluster's node without its majority: it refuses every statement
    NullValue = 1048,
    UnknownDatabase = 1049,
    UnknownColumn = 1054,
    DuplicateKey = 1062,
    NoSuchTable = 1146,
    LockWait = 1205,
    Deadlock = 1213, ///< in a cluster also the answer to a COMMIT that another node's was quicker than
    Interrupted = 1317,
    RowInUse = 1451,   ///< that foreign keys of other rows point to
    MissingRow = 1452, ///< that a foreign key points to
    ConnectionKilled = 1927,
    CannotConnect = 2003,
    ServerGone = 2006,
    ConnectionLost = 2013,
    TlsFailed = 2026
};
} // namespace ServerError

/// True when this connection is of no use any more, whatever it was doing: nobody answers, or the server is
/// ending it. A transaction of it is rolled back by the server.
bool isConnectionLost(int error);

/// True when another program's transaction was in the way: the same may succeed when it is tried again.
bool isOthersLock(int error);

/// True when a COMMIT that failed so has certainly written nothing. After any other failure of a COMMIT the
/// server has to be asked.
bool isCommitRefused(int error);

/// What such an error means and what to do, for the user; empty for errors that need no words of their own.
QString serverWords(int error);
