#pragma once

#include "columns.h"
#include "keyteller.h"
#include "listcolumns.h"
#include "qupdatebd.h"
#include "roworder.h"
#include "rowstore.h"

#include <QElapsedTimer>
#include <QWidget>
#include <functional>
#include <memory>

class DbTasks;
class ListSelection;
class QAbstractItemModel;
class QKeyEvent;
class QLabel;
class QLoadedUser;
class QNTableView;
class QPushButton;
class QRowModel;
class QSqlDatabase;
class QTableView;
class QueryOwner;
class RowSorting;
struct PrintedList;
struct QueryAnswer;

/// The one list: a grid whose rows are loaded away from the window, the columns as the user has them, below
/// it what became of the load, and printing. A table tab, a report and the sale each own one.
class ListPane : public QWidget, public KeyTeller
{
    Q_OBJECT

public:
    explicit ListPane(QWidget *parent = nullptr);
    ~ListPane() override;

    /// Before anything else: the connection whose server is asked, the user for whom the columns are
    /// remembered, and who gets the messages.
    void open(QSqlDatabase *db, const QLoadedUser *user, QObject *receiver);
    /// Its statements may take many seconds, as a report's do.
    void expectLongLoads(bool isLong = true);
    /// Before setColumns(): captions may take two lines, for lists of many columns.
    void breakCaptions();
    /// The columns in the order of the SELECT; key: the list's name among all lists.
    void setColumns(const QVector<Column> &columns, const QString &key);

    QVector<ToldKey> toldKeys() const override;

    QNTableView *view() const { return m_view; }
    QRowModel *model() const { return m_model; }
    /// The line below the grid; a window with a status bar may take it there.
    QWidget *footer() const { return m_footer; }
    /// load is disabled and stop shown while a load is on its way; both may be null.
    void setButtons(QPushButton *load, QPushButton *stop);

    /// Asks for the rows in the background; a newer load takes the place of an older one. Values of people go
    /// in through lit(). numberSql: a statement of one whole number that is asked for behind it, see
    /// number(). failure: the text that opens the report; "Помилка запиту:" when empty.
    void load(const QString &sql, const QString &numberSql = {}, const QString &failure = {});
    /// A load whose statement is still to be found: it is on its way until load(), stop() or clear().
    void expectLoad();
    /// Sends the statements of the last load once more; nothing when there was none.
    void loadAgain();
    /// The rows on their way are the same ones read again: the current row and what is seen of the list stay,
    /// unless another load takes their place.
    void keepPlace() { m_keepsPlace = isLoading(); }
    /// When the tables of the rows in the list were changed last; empty for rows that were read elsewhere.
    const QVector<TableTime> &readTimes() const { return m_readTimes; }
    /// Ends a load on its way; the list stays as it was.
    void stop();
    bool isLoading() const;
    /// Puts rows into the list that were read elsewhere; a load on its way is ended. Many rows come a moment
    /// later, sorted.
    void showRows(RowStore &&rows);
    /// Empties the list, ends a load on its way and tells nothing.
    void clear();
    /// The same after a statement that failed and was reported.
    void clearAfterFailure();
    /// After a failed load the rows before stay, for a list that tells what its rows are.
    void keepRowsAfterFailure() { m_keepsRows = true; }
    /// What numberSql gave for the rows in the list, 0 for NULL.
    qint64 number() const { return m_number; }
    /// How long the rows in the list took to come.
    qint64 loadMs() const { return m_loadMs; }

    /// The row whose first column holds the id; invalid when the list does not show it.
    QModelIndex indexOf(const QString &id) const;
    /// A record of a store into a row from the column firstColumn on, or with row -1 into a new one at the
    /// end, which becomes the current one.
    void refreshRow(const RowStore &records, int record, int row, int firstColumn = 0);
    /// A double click on a row and Enter on the current one do the same.
    void connectOpening(const std::function<void(const QModelIndex &)> &open);
    /// Goes into the list: to its current row, else to the first one, which may still be on its way.
    void enter();

    /// What the empty grid says after a load that found nothing.
    void setEmptyText(const QString &text) { m_emptyText = text; }
    /// How many records there are, where that is not the number of rows; after rowsShown().
    void setCount(qint64 count);
    /// One record more, which stands in the list already.
    void countAdded();
    /// The column that is added up for the selected rows, where the last one of amounts is not meant.
    void sumUsually(int column);
    /// What the state tells behind the number of records: how long it took, of what the rows are.
    void setDetails(const QString &details) { m_details = details; }
    /// Lines above the printed list: what it is, of which place and time.
    void setHeading(const QStringList &heading) { m_heading = heading; }
    const QStringList &heading() const { return m_heading; }
    /// The lines below the printed list.
    void setTotals(const std::function<QStringList()> &totals) { m_totals = totals; }
    /// The rows of the list out of those that the statement found, where they differ.
    void setArranging(const std::function<RowStore(RowStore &&)> &arrange) { m_arrange = arrange; }

    /// Who tells the PDF file to write, from a suggested name; empty when none is wanted. The file dialog at
    /// first.
    using FileChooser = std::function<QString(const QString &suggested)>;
    void setFileChooser(const FileChooser &chooser) { m_chooseFile = chooser; }

    /// Writes what a list holds, hidden columns left out, into a CSV file: UTF-8, or Windows-1251 with any
    /// code. In the background: its end is posted. False when it cannot begin (posted too).
    static bool exportCsv(QObject *receiver, const QAbstractItemModel *model, const QTableView *view,
                          const QString &code, const QString &path);
    bool exportCsv(const QString &code, const QString &path) const;
    /// Writes what is shown, with its heading and totals, as a workbook of typed cells; the rest as
    /// exportCsv().
    bool exportXlsx(const QString &path) const;

protected:
    /// Escape in the list stops a sorting; many rows are copied in the background.
    bool eventFilter(QObject *watched, QEvent *event) override;

public slots:
    /// Shows the list as it would be printed, with the way to the printer.
    void preview();
    /// Asks for a file and writes the list into it in the background; its end is posted.
    void savePdf();

signals:
    /// All rows were replaced, or there are none any more: for colours, sums and pictures.
    void rowsShown();
    /// One row was written again.
    void rowShown(int row);
    /// A load has ended: its rows stand in the list.
    void loaded();
    /// A load has failed (reported).
    void failed();

private:
    void buildFooter();
    void showSelection();
    void takeAnswer(const std::shared_ptr<QueryAnswer> &answer);
    void takeRows(const std::shared_ptr<QueryAnswer> &answer);
    void sortArrived();
    void showArrived(RowOrder &&sorted, const RowSort &by);
    void tellTracker(const RowStore &times);
    void endLoad();
    RowSort wantedSort() const;
    void stopSorting();
    void followSorting();
    void thinOutSelection();
    bool stopsSorting(const QKeyEvent &key);
    bool copiesMany(const QKeyEvent &key);
    void copyInBackground();
    void showCount();
    void showState(const QString &text, bool isLoading);
    PrintedList printed() const;

    QNTableView *m_view;
    QRowModel *m_model;
    QWidget *m_footer;
    QLabel *m_state;
    ListSelection *m_selection;
    QPushButton *m_print;
    QPushButton *m_pdf;
    QPushButton *m_load = nullptr;
    QPushButton *m_stop = nullptr;
    ListColumns m_columns;
    QueryOwner *m_queries = nullptr;
    /// Of the last load.
    QString m_sql;
    QString m_numberSql;
    QString m_failure;
    DbTasks *m_tasks = nullptr;
    /// Rows that have come and are being sorted before they are shown.
    std::shared_ptr<QueryAnswer> m_arrived;
    RowSorting *m_sorting;
    QSqlDatabase *m_db = nullptr;
    const QLoadedUser *m_user = nullptr;
    QObject *m_receiver = nullptr;
    QElapsedTimer m_clock;
    qint64 m_loadMs = 0;
    qint64 m_number = 0;
    /// -1: as many as rows.
    qint64 m_count = -1;
    QString m_emptyText;
    QString m_details;
    QStringList m_heading;
    std::function<QStringList()> m_totals;
    std::function<RowStore(RowStore &&)> m_arrange;
    FileChooser m_chooseFile;
    bool m_keepsRows = false;
    bool m_isExpecting = false;
    bool m_keepsPlace = false;
    QVector<TableTime> m_readTimes;
    /// The list was entered before its rows had come: the first one becomes current then.
    bool m_wantsRow = false;
};
