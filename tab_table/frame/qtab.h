#pragma once

#include "columns.h"
#include "dbtasks.h"
#include "destination.h"
#include "keyteller.h"
#include "page.h"
#include "rowstore.h"

#include <QHash>
#include <QModelIndex>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QSqlDatabase>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>

class Db;
class ListFilter;
class ListPane;
class QAbstractItemModel;
class QComboBox;
class QLineEdit;
class QLoadedUser;
class QNTableView;
class QRowModel;
class QSqlQuery;
class QStandardItemModel;
class QTabDelegate;
class QTableView;
class RecordDialog;
class WaitNote;
class setting;
struct CsvForm;

/// The base of every tab that lists one table of the database: it says what its list loads, refreshes a row
/// after an edit and knows which shops and groups the user may see.
///
/// A concrete tab sets table, query and columns in its constructor, then calls ShowData().
class QTab : public QWidget, public Page, public KeyTeller
{
    Q_OBJECT

public:
    /// delegate: the inline editor, or null for tabs that edit in dialogs. The tab takes it and the
    /// layout, and adds the list to the layout.
    QTab(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent,
         QTabDelegate *delegate, QLayout *layout);
    ~QTab() override;

    /// Fills the model with all rows of an executed query.
    virtual void showInModel(QSqlQuery &q);
    /// Writes the query's current record into a row, from the column firstColumn on; -1: into a new one.
    virtual void showInModel(QSqlQuery &q, int firstColumn, int row);

    /// Refreshes after an edit, away from the window: everything, or the one record that `where` selects. An
    /// invalid index means that the record was added; its new row becomes the current one.
    void editadd(const QString &where, const QModelIndex &index, bool full, unsigned int limit = 0);

    ListPane *list() const override { return m_list; }
    QNTableView *view() const;
    QRowModel *model() const;
    const QString &tableName() const { return table; }
    /// True when the user has full rights here: records may be added and changed.
    bool mayEdit() const;
    /// Editing and export for those with full rights here; for others what isExportedToViewers tells.
    Commands commands() const override;
    void run(Command command) override;
    QVector<ToldKey> toldKeys() const override;
    /// Reads the list again: the same filter, the same current row and place. Refused in words while
    /// something is typed in the list.
    void reload();
    /// What is being typed in the list is asked about, what is being written is waited for.
    bool mayClose() override;
    /// Narrows the list to the condition, with nothing else in its filter; the first row becomes the current
    /// one.
    void goTo(const Destination &destination) override;
    void openedByMenu() override { showAll(); }
    /// True while a search, or what the filter offers, is on its way.
    bool isLoading() const override;

    /// The declared length of a CHAR column; 0 when it is not known: set no limit then.
    int GetMaxChar(const QString &tableName, const QString &column) const;
    static int GetMaxChar(QSqlDatabase *db, QObject *receiver, const QString &tableName,
                          const QString &column);

    /// The character code of the check digit of a barcode with len data digits (12 or 7).
    static int CSEAN13(const QString &code, int len);

    /// A condition on `field` that admits the user's shop groups; group 1 only withDefault.
    static QString GetStrLstGroupFromPermis(const QLoadedUser *user, const QString &field, bool withDefault);
    /// The shop groups that the user may see: names as a list or, with a box, items that carry the id.
    static QStringList GetLstGroupShopFromPermis(QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                                                 bool withDefault, QComboBox *box);
    /// The shops that the user may see, each once; extra: a further condition (" AND ...").
    static QStringList GetLstShopFromPermis(QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                                            const QString &extra, QComboBox *box);

    /// Inserts one column per caption; column i is widths[i] pixels wide, or as its caption plus 40.
    static void InsertColumns(const QStringList *headers, const QList<int> &widths, QStandardItemModel *model,
                              QTableView *view);
    void InsertColumns(const QStringList *headers, const QList<int> &widths);

    /// Of this tab's list.
    using Page::export_to_csv;

public slots:
    /// Reloads the grid; a limit below 1 means none.
    void ShowData(int limit);
    void ShowData();
    /// Edits the current row, in a list of names its name, in the list of taxes the current cell.
    void Edit();
    /// Edits a row: inline in tabs with a delegate, in the editor in those that have one.
    virtual void Edit(const QModelIndex &index);
    /// Adds a record: in a row that is appended and edited inline, or in the editor.
    virtual void Add();
    void delnewrecord();
    void NextEdit();
    /// Not narrowed any more; the filter stays.
    void showAll();
    /// Reloads with what the filter says now.
    virtual void searchAgain();
    /// Writes what a list holds, hidden columns left out, into a CSV file: UTF-8, or Windows-1251 with any
    /// code. False after a reported failure; what the file held before is still there then.
    static bool export_to_csv(QObject *receiver, QAbstractItemModel *model, QTableView *view,
                              const QString &code, const QString &path_file_name);
    /// Reads a CSV file into the tab's table, in tabs that import one: in UTF-8, or Windows-1251 with any
    /// code, its columns separated by sep and its records by ent. What the file says itself about that counts
    /// more. widget: the parent of what it asks.
    void import_csv(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &code,
                    const QString &path_file_name, QChar sep, QChar ent);
    void import_csv(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &code,
                    const QString &path_file_name, QChar sep);
    void import_csv(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &code,
                    const QString &path_file_name);
    /// The same for this tab.
    void import_csv(const QString &code, const QString &path_file_name);

signals:
    /// The rows of a search, or of ShowData, stand in the grid.
    void loaded();

protected:
    Db db() const;
    QLoadedUser *user() const { return m_user; }
    QObject *receiver() const { return m_receiver; }
    setting *settings() const { return m_setting; }
    QTabDelegate *inlineEditor() const { return m_delegate; }

    /// The columns in the order of the SELECT; what the user has made of them before comes back.
    void setColumns(const QVector<Column> &columns);
    /// A row of filter widgets above the grid.
    QWidget *addFilterBar();
    /// The field that searches the list, and what searches for its text: ListFilter::setSearchField().
    void setSearchField(QLineEdit *field, const std::function<void(const QString &text)> &find);
    /// For tabs whose query has no WHERE: a field above the list that narrows it to the rows in which every
    /// word that is typed is found, wherever the condition looks for it ("tax.name LIKE %1", as for
    /// likeWords()). what: which columns those are, in the field while it is empty.
    void addSearch(const QString &condition, const QString &what);
    /// Enter in the list edits its row.
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Reloads query + filter without blocking the window; what an older search finds is dropped.
    void search(const QString &filter);
    /// Of another page's wish: a condition, or empty.
    const QString &narrowing() const;
    const QString &narrowingWords() const;
    /// A filter (" WHERE …", " GROUP BY …" or empty) that admits only what the list is narrowed to.
    QString narrowed(const QString &filter) const;
    /// Empties what stands in the filter, without a search.
    virtual void clearFilter();
    /// Asks for the rows that were asked for last once more; what else the tab has read, too.
    virtual void loadAgain();
    /// The user's rights were read again: what the filter offers may be different.
    virtual void followRights() {}
    /// The editor of the record of that id, which it changes to the id that a new record gets; null in tabs
    /// without one.
    virtual std::unique_ptr<RecordDialog> makeEditor(QString *id);
    /// Imports a file, in tabs that offer Command::Import.
    virtual void importFile(QSqlDatabase *db, QObject *receiver, QWidget *widget, const QString &path,
                            const CsvForm &wanted);
    /// Reads the row of a record again, wherever it stands by now: a search may have arrived while its editor
    /// was open. A new record gets a row.
    virtual void refreshRecord(const QString &id, bool isNew);
    /// Reads the rows that the list has of a record; a failure, or none at all, was told.
    void readRows(const QString &where, const std::function<void(const RowStore &)> &then);
    /// Reads what a box of the filter offers behind its first item, which stands for all and has the id 0.
    /// What was chosen stays; filled(false): it is not offered any more, and all is chosen.
    void fillFilter(QComboBox *box, const QString &sql, const QString &all,
                    const std::function<void(bool isKept)> &filled);
    /// Called when the rows stand in the model, after every load: for colours.
    virtual void rowsShown() {}
    /// Called after one row was written again.
    virtual void rowShown(int row) { Q_UNUSED(row) }

    /// The database table, and the SELECT that shows it (empty: the plain table).
    QString table;
    QString query;
    /// What the filter adds to the query (" WHERE ..."); kept for the next reload.
    QString filter;
    /// Why nobody adds or edits records in this list; empty for most lists.
    QString recordRefusal;
    /// Who may only look may export the list as well.
    bool isExportedToViewers = false;
    /// A record may take several rows, which begin with its number: the list counts the records.
    bool countsRecords = false;

private:
    void buildList(QLayout *layout);
    void findWords(const QString &condition, const QLineEdit *field);
    void openEditor(const QString &id);
    void showRecord(const RowStore &records, const QModelIndex &index, bool isNew);
    void followUnclear();
    void connectDelegate();
    void addWritingNote();
    void openCell(const QModelIndex &cell);
    void addName();
    void tellEmptyText();
    void narrow(const Destination &destination);
    QString statement() const;

    setting *m_setting;
    QLoadedUser *m_user;
    QSqlDatabase *m_db;
    ListPane *m_list = nullptr;
    ListFilter *m_filter = nullptr;
    QObject *m_receiver;
    QTabDelegate *m_delegate;
    DbTasks m_tasks;
    /// How often each box of the filter was filled: the newest counts.
    QHash<const QComboBox *, int> m_fillings;
    QPointer<RecordDialog> m_editor;
    /// Of the rows that were asked for last.
    QStringList m_conditions;
    /// A record was to be added while the rows were still on their way.
    bool m_addsWhenLoaded = false;
    /// The row that is being added.
    QPersistentModelIndex m_added;
    WaitNote *m_note = nullptr;
};
