#pragma once

#include "recorddialog.h"

#include <memory>

namespace Ui {
class QAddEdtSlujbOp;
}

/// The editor of a service operation.
class QAddEdtSlujbOp : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the operation to edit; empty or null for a new one, whose id it holds after the save.
    QAddEdtSlujbOp(QSqlDatabase *db, QString *id, QObject *receiver, QWidget *parent);
    ~QAddEdtSlujbOp() override;

protected:
    QString refusal() const override;
    QVector<UniqueValue> uniqueValues() const override;
    void loaded() override;

private:
    QVector<RecordInput> inputs() const;

    std::unique_ptr<Ui::QAddEdtSlujbOp> ui;
};
