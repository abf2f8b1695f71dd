#pragma once

#include "qtab.h"

/// The loyalty cards as a table tab lists them.
class CardsTab : public QTab
{
public:
    CardsTab(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

    /// Those in whose name the text stands; all for an empty one.
    void seerch(const QString &text);
    /// So many of them, as a filter.
    static QString first(int rows);
    void showFirst(int rows) { search(first(rows)); }

    static QVector<Column> columns();
};
