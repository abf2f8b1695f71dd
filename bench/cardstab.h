#pragma once

#include "qtab.h"

/// The loyalty cards as a table tab lists them.
class CardsTab : public QTab
{
public:
    CardsTab(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

    /// Those in whose name the text stands; all for an empty one.
    void seerch(const QString &text);

    static QVector<Column> columns();
};
