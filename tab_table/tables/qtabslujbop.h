#pragma once

#include "qtab.h"

/// The service operations: cash that is put into a register or taken out of it without a sale.
class QTabSlujbOp : public QTab
{
    Q_OBJECT

public:
    QTabSlujbOp(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

protected:
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;
};
