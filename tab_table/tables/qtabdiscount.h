#pragma once

#include "qtab.h"

/// The discount levels: a percentage and the purchases that lead to it. The automatic ones are a ladder that
/// cards climb.
class QTabDiscount : public QTab
{
    Q_OBJECT

public:
    QTabDiscount(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    using QTab::Edit;

public slots:
    void ShowData();
    void Edit(const QModelIndex &index) override;

protected:
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;
};
