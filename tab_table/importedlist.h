#pragma once

#include "previousdata.h"

#include <QDialog>

class ListPane;
class QLabel;
class QLoadedUser;

/// What came of an import from the previous version: a line for each table, to be read, copied and printed.
/// It stands beside the main window and takes the keyboard from nobody.
class ImportedList : public QDialog
{
    Q_OBJECT

public:
    /// words: what was done in all.
    ImportedList(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver, const QString &title,
                 const QString &words, const ImportedTables &tables, QWidget *parent);

    /// The whole result as a table for the clipboard.
    void copy() const;

private:
    void build();
    void showTables(const ImportedTables &tables);
    void showDetails(int row);

    QLabel *m_words;
    ListPane *m_list;
    QLabel *m_details;
};
