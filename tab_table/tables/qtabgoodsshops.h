#pragma once
#include "qtab.h"
#include <QVBoxLayout>
class QTabGoodsShops : public QTab
{
    Q_OBJECT
public:
    QTabGoodsShops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
        : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    {
    }
};
