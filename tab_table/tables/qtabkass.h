#pragma once
#include "qtab.h"
#include <QVBoxLayout>
class QTabKass : public QTab
{
    Q_OBJECT
public:
    QTabKass(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent)
        : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    {
    }
    void LoadData(unsigned int) {}
};
