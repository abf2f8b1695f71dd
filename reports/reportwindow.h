#pragma once

#include "chekorigin.h"
#include "columns.h"
#include "db.h"
#include "page.h"
#include "rowstore.h"

#include <QElapsedTimer>
#include <QMainWindow>
#include <functional>
#include <memory>

class QLabel;
class QLoadedUser;
class QNTableView;
class QPushButton;
class QRowModel;
class QueryOwner;
struct QueryAnswer;
struct PrintedList;

/// The base of a report: a list that is loaded away from the window, with its state told below it. The
/// concrete report has a form, takes its grid with takeList() and gives a statement to loadList().
class ReportWindow : public QMainWindow, public Page
{
    Q_OBJECT

public:
    /// mainWindow receives the messages.
    ReportWindow(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~ReportWindow() override;

    QNTableView *list() const { return m_list; }
    QRowModel *model() const { return m_model; }
    bool isLoading() const override;

    /// Writes the list into a CSV file; code: empty for UTF-8, else Windows-1251. Failures are reported.
    void export_to_csv(const QString &code, const QString &path) override;
    Commands commands() const override;

    /// Who tells the PDF file to write, from a suggested name; empty when none is wanted. The file dialog at
    /// first.
    using FileChooser = std::function<QString(const QString &suggested)>;
    void setFileChooser(const FileChooser &chooser) { m_chooseFile = chooser; }

    /// Report, place, range: the lines over the printed list, of the load whose rows it shows; none for an
    /// emptied list.
    const QStringList &heading() const { return m_heading; }
    /// What stands under a printed list; nothing by default.
    virtual QStringList totals() const { return {}; }

public slots:
    /// Asks for the list anew.
    virtual void load() = 0;
    /// Ends a load on its way; the list stays as it was.
    void stopLoading();
    /// Shows the list as it would be printed, with the way to the printer.
    void preview();
    /// Asks for a file and writes the list into it; a failure is reported.
    void savePdf();

signals:
    /// The rows stand in the list, or the load failed (reported) and it is as it was.
    void loaded();
    /// The receipts behind a line of the list are to be shown.
    void cheksWanted(const ChekOrigin &origin);

protected:
    /// Makes the form's grid the list of this report. pbLoad is disabled while loading, stopping is
    /// offered beside it; both may be null.
    void takeList(QNTableView *view, QPushButton *pbLoad, QPushButton *pbStop);
    /// Column widths by sample texts, as wide as the widest of sample and caption.
    void setColumns(const QVector<Column> &columns, const QStringList &samples);
    /// Fills the places with what the user may see: now, and again when that has changed. shopsOf refills the
    /// shops of the group chosen.
    void offerPlaces(const std::function<void()> &shopsOf);
    /// Runs the statement in the background. Values of people go in through lit(). heading is what the rows
    /// will be; numberSql a statement of one whole number that is asked for before the list, see number().
    void loadList(const QString &sql, const QStringList &heading, const QString &numberSql = {});
    /// Forgets the rows with their heading, and a load on its way.
    void emptyList();
    /// A double click on a line and Enter on the selected one do the same.
    void connectOpening(const std::function<void(const QModelIndex &)> &open);
    /// What numberSql gave for the rows in the list, 0 for NULL.
    qint64 number() const { return m_number; }
    /// How many rows the line below tells; those of the model.
    virtual int shownRows() const;
    /// The rows of the list out of those that the statement found, where they differ.
    virtual RowStore arranged(RowStore &&found) { return std::move(found); }
    /// False: the list goes into a PDF file only.
    virtual bool isExported() const { return false; }
    /// Called with the rows in the model, before loaded(): totals, colours, a chart.
    virtual void rowsShown() {}
    /// Shows why a load is refused; true when there is a reason.
    bool refuse(const QString &why);

    Db db() const { return Db(m_db, m_mainWindow); }
    QSqlDatabase *connection() const { return m_db; }
    QLoadedUser *user() const { return m_user; }
    QObject *mainWindow() const { return m_mainWindow; }

private:
    void refillPlaces();
    void showFound(const std::shared_ptr<QueryAnswer> &found);
    void addPrintButtons();
    PrintedList printed() const;
    void showState(const QString &text, bool loading);
    void sortAsBefore();

    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_mainWindow;
    QNTableView *m_list = nullptr;
    QRowModel *m_model = nullptr;
    QPushButton *m_load = nullptr;
    QPushButton *m_stop = nullptr;
    QLabel *m_state = nullptr;
    std::function<void()> m_refillShops;
    QStringList m_groups;
    QPushButton *m_print = nullptr;
    QPushButton *m_pdf = nullptr;
    FileChooser m_chooseFile;
    QueryOwner *m_queries;
    QElapsedTimer m_clock;
    qint64 m_number = 0;
    /// Of the rows in the list, and of those on their way.
    QStringList m_heading;
    QStringList m_askedHeading;
};
