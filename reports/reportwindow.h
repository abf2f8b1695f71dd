#pragma once

#include "chekorigin.h"
#include "db.h"
#include "listpane.h"
#include "page.h"

#include <QMainWindow>
#include <functional>

class DbTasks;
class PlaceSelector;
class QLoadedUser;
class QNTableView;
class QPushButton;
class QRowModel;

/// The base of a report: a list with its heading, its totals and the places that the user may ask for. The
/// concrete report has a form, takes its list with takeList() and gives a statement to loadList().
class ReportWindow : public QMainWindow, public Page
{
    Q_OBJECT

public:
    /// mainWindow receives the messages.
    ReportWindow(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~ReportWindow() override;

    /// That of takeList(), unless the report shows another one instead.
    ListPane *list() const override { return m_list; }
    QNTableView *view() const { return m_list->view(); }
    QRowModel *model() const { return m_list->model(); }
    bool isLoading() const override { return list()->isLoading(); }
    /// Whether something that a load needs is still being read, the places above all.
    virtual bool isChoosing() const;

    Commands commands() const override;
    void run(Command command) override;

    /// Report, place, range: the lines over the printed list, of the load whose rows it shows; none for an
    /// emptied list.
    const QStringList &heading() const { return m_list->heading(); }
    /// What stands under a printed list; nothing by default.
    virtual QStringList totals() const { return {}; }

public slots:
    /// Asks for the list anew.
    virtual void load() = 0;

signals:
    /// The rows stand in the list, or the load failed (reported) and it is as it was.
    void loaded();
    /// The receipts behind a line of the list are to be shown.
    void cheksWanted(const ChekOrigin &origin);

protected:
    /// Makes the form's list that of this report. pbLoad is disabled while loading, stopping is offered
    /// beside it.
    void takeList(ListPane *list, QPushButton *pbLoad, QPushButton *pbStop);
    /// The columns in the order of the SELECT; what the user has made of them before comes back.
    void setColumns(const QVector<Column> &columns);
    /// Fills the places with what the user may see: now, and again when that has changed. shopsOf refills the
    /// shops of the group chosen.
    void offerPlaces(const std::function<void()> &shopsOf);
    /// Another place is chosen, and its boxes are filled.
    virtual void placeChosen() {}
    /// load() begins with it. True while isChoosing(): then load() is called again when that has ended.
    bool loadsLater();
    /// Something that a load needs has been read.
    void goOnLoading();
    /// A load on its way, or put off, does not come.
    void forgetLoad();
    /// For a load of all places: gives the shop groups that limit it, none when the user may see every one.
    void askSeenGroups(const std::function<void(const QStringList &groups)> &then);
    /// Runs the statement in the background. Values of people go in through lit(). heading is what the rows
    /// will be; numberSql a statement of one whole number that is asked for before the list.
    void loadList(const QString &sql, const QStringList &heading, const QString &numberSql = {});
    /// Forgets the rows with their heading, and a load on its way.
    void emptyList();
    /// The rows of the list out of those that the statement found, where they differ.
    virtual RowStore arranged(RowStore &&found) { return std::move(found); }
    /// False: the list goes into a PDF file only.
    virtual bool isExported() const { return false; }
    /// Called with the rows in the model, before loaded(): totals, colours, a chart.
    virtual void rowsShown() {}
    /// Shows why a load is refused; true when there is a reason.
    bool refuse(const QString &why);

    /// For reading one thing away from the window, the newest request of which counts.
    DbTasks *newTasks();
    PlaceSelector *places() const { return m_places; }
    QSqlDatabase *connection() const { return m_db; }
    QLoadedUser *user() const { return m_user; }
    QObject *mainWindow() const { return m_mainWindow; }

private:
    void refillPlaces();
    void describeRows();

    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_mainWindow;
    ListPane *m_list = nullptr;
    PlaceSelector *m_places = nullptr;
    DbTasks *m_seen;
    bool m_loadsLater = false;
    std::function<void()> m_refillShops;
    QStringList m_groups;
    /// Of the rows on their way.
    QStringList m_askedHeading;
};
