#pragma once

#include <QSqlQuery>
#include <QStringList>
#include <optional>

class Db;

/// Runs a statement that holds passwords as literals, as Db::run does; but a failure is reported with every
/// secret left out, of the statement and of the server's words alike.
/// failure: the text that opens the report. expectedError: a failure by this error of the server is expected
/// and not reported; 0 for none.
std::optional<QSqlQuery> runSecret(const Db &db, const QString &sql, const QStringList &secrets,
                                   const QString &failure, int expectedError = 0,
                                   const char *file = __builtin_FILE(), int line = __builtin_LINE());
