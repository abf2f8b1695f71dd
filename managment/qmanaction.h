#pragma once

#include "actionassignment.h"
#include "combos.h"
#include "dbtasks.h"
#include "page.h"
#include "pastedbarcodes.h"

#include <QPointer>
#include <QWidget>
#include <memory>

class QLoadedUser;
class QSqlDatabase;
class setting;

namespace Ui {
class QManAction;
}

/// Gives promotions to goods of shops, and takes them off: what is chosen is shown with its prices first,
/// then asked about and written. Showing and writing are a job each. What was shown is what is written.
class QManAction : public QWidget, public Page
{
    Q_OBJECT

public:
    /// mainWindow receives the messages.
    QManAction(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set, QWidget *parent);
    ~QManAction() override;

    ListPane *list() const override;
    Commands commands() const override;
    void run(Command command) override;
    bool isLoading() const override;
    /// While something is written it stays.
    bool mayClose() override;
    void openedByMenu() override;

public slots:
    /// Shows what would change.
    void preview();
    /// Asks and writes what is shown.
    void assign();
    void stop();

private:
    /// What the boxes offer behind their first items.
    struct Offered
    {
        ListEntries actions;
        ListEntries groups;
        ListEntries shops;
    };
    enum class Work { None, Planning, Assigning };
    using Then = std::function<void(const JobResult &)>;

    void buildList();
    void connectInputs();
    /// Reads what the boxes offer; what is chosen in them stays.
    void fillBoxes();
    void showOffered(const Offered &offered);
    void showShops(const ListEntries &shops);
    void showAction(const QString &words);
    void readAction();
    void askForBarcodes();
    void takeBarcodes(const QString &text);
    void followChoice();
    ActionChoice choice() const;
    QString choiceRefusal() const;
    QString assignRefusal() const;
    bool refuse(const QString &why);
    QString question() const;
    void showPlan(const std::shared_ptr<ActionPlan> &plan, const JobResult &result);
    void showAssigned(const std::shared_ptr<ActionAssigned> &assigned, const JobResult &result);
    void begin(Work kind, const QString &title, const std::function<JobResult(JobContext &)> &work,
               const Then &then);
    void leavePlanning();
    void followWork();

    std::unique_ptr<Ui::QManAction> ui;
    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_mainWindow;
    DbTasks m_tasks;
    DbTasks m_boxes;
    /// It was asked for before the boxes were filled.
    bool m_previewsWhenFilled = false;
    PastedBarcodes m_barcodes;
    std::shared_ptr<const ActionPlan> m_plan;
    QPointer<Job> m_job;
    Work m_work = Work::None;
};
