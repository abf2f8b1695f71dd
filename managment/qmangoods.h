#pragma once

#include "bulkwriter.h"
#include "page.h"

#include <QPointer>
#include <QWidget>
#include <memory>

class QLoadedUser;
class QSqlDatabase;
class setting;

namespace Ui {
class QManGoods;
}

/// Changes many goods at once: their prices by a step, or their group, tax group, block or rule. What is
/// chosen is shown first, old and new, then asked about and written; the last change can be taken back until
/// the page closes. Showing, writing and taking back are a job each. What was shown is what is written.
class QManGoods : public QWidget, public Page
{
    Q_OBJECT

public:
    /// mainWindow receives the messages.
    QManGoods(QSqlDatabase *db, QLoadedUser *user, QObject *mainWindow, setting *set, QWidget *parent);
    ~QManGoods() override;

    /// That of prices, or that of all else.
    ListPane *list() const override;
    Commands commands() const override;
    void run(Command command) override;
    bool isLoading() const override;
    /// While something is written it stays; what could still be taken back is asked about.
    bool mayClose() override;
    void openedByMenu() override;

public slots:
    /// Shows what would change.
    void preview();
    /// Asks and writes what is shown.
    void write();
    /// Asks and puts back what stood there before the last change.
    void undo();
    void stop();

private:
    enum class Work { None, Planning, Writing };
    using Then = std::function<void(const JobResult &)>;

    void buildLists();
    void followChoice();
    QString choiceRefusal() const;
    QString writeRefusal() const;
    QString undoRefusal() const;
    bool refuse(const QString &why);
    int changedAlready() const;
    QString question() const;
    void showRows();
    void whyPrice(int row);
    void showPlan(const std::shared_ptr<BulkPlan> &plan, const JobResult &result);
    void showWritten(const std::shared_ptr<BulkOutcome> &outcome, const JobResult &result);
    void showUndone(const std::shared_ptr<BulkOutcome> &outcome, const JobResult &result);
    void showOutcome(const std::shared_ptr<BulkOutcome> &outcome, const JobResult &result);
    void begin(Work kind, const QString &title, const std::function<JobResult(JobContext &)> &work,
               const Then &then);
    void leavePlanning();
    void followWork();

    std::unique_ptr<Ui::QManGoods> ui;
    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_mainWindow;
    /// Null when nothing that is shown may be written.
    std::shared_ptr<const BulkPlan> m_plan;
    /// The rows of the list, and whose they are.
    std::shared_ptr<const RowStore> m_shown;
    std::shared_ptr<const BulkPlan> m_shownPlan;
    /// The last change; null when there is none to be taken back.
    std::shared_ptr<const BulkDone> m_done;
    QPointer<Job> m_job;
    Work m_work = Work::None;
};
