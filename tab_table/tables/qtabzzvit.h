#pragma once

#include "qtabjournal.h"

/// The shifts of the registers; the open ones, which have no end yet, stand first.
class QTabZZvit : public QTabJournal
{
    Q_OBJECT

public:
    QTabZZvit(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

    using QTab::Edit;

    /// The statement of so many shifts behind a key, empty for the newest ones.
    static QString pageSql(const JournalAsked &asked, const QStringList &key, int rows);
    /// The key of the last shift that it has found; empty for none.
    static QStringList keyOfLast(const RowStore &rows);

public slots:
    /// Leads to the receipts of the shift.
    void Edit(const QModelIndex &index) override;

protected:
    void loadPage(const JournalAsked &asked, const QVariant &start, int rows) override;
    QVariant keyBehind(const RowStore &rows) const override;
};
