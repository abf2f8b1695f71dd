#pragma once
#include <QWidget>
class QSqlDatabase;
class QLoadedUser;
class setting;
class QRegisterSale : public QWidget
{
    Q_OBJECT
public:
    QRegisterSale(QSqlDatabase *, QLoadedUser *, QObject *, setting *, QWidget *parent) : QWidget(parent) {}
};
