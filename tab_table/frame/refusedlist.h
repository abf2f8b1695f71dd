#pragma once

#include <QString>
#include <QVector>

class ListPane;
class QLoadedUser;
class QObject;
class QSqlDatabase;

/// A record of a long work that was left out.
struct RefusedLine
{
    /// Its place in what was read, from 1.
    qint64 number = 0;
    QString code;
    QString reason;
};
using RefusedLines = QVector<RefusedLine>;

/// Makes a list that of the records left out: number, code, reason. codeCaption: what the codes are; key: the
/// list's name among all lists.
void openRefused(ListPane *list, QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
                 const QString &codeCaption, const QString &key);
void showRefused(ListPane *list, const RefusedLines &lines);
