#pragma once

#include "qtab.h"

/// The launch commands: programs of the people's own that the lists of shops and registers offer.
class QComands : public QTab
{
    Q_OBJECT

public:
    QComands(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);
    using QTab::Edit;
    void run(Command command) override;

public slots:
    void AddRecord();
    void EditRecord(const QModelIndex &index);
    /// Only tells that commands stay.
    void DelRecord();
    void Edit(const QModelIndex &index) override { EditRecord(index); }

protected:
    std::unique_ptr<RecordDialog> makeEditor(QString *id) override;
};
