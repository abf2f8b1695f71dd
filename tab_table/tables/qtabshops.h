#pragma once
#include "qtab.h"
#include <QVBoxLayout>
class QTabShops : public QTab
{
    Q_OBJECT
public:
    QTabShops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
        : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    {
    }

signals:
    void MoveMouseSignal(uint id);
};
