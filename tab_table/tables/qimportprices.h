#pragma once

#include "pricelistimport.h"

#include <QDialog>
#include <QPointer>
#include <functional>
#include <memory>

class Job;
class ListPane;
class QLoadedUser;
class QSqlDatabase;

namespace Ui {
class QImportPrices;
}

/// A price list on its way into the goods: what the file holds is shown, with what each of its first records
/// does, and what is wrong with the others; then it is asked about and written. Reading, checking and writing
/// are a job each. What was shown is what is written, also when the file changes meanwhile.
class QImportPrices : public QDialog
{
    Q_OBJECT

public:
    /// mainWindow receives the messages.
    QImportPrices(QSqlDatabase *db, const QLoadedUser *user, QObject *mainWindow, QWidget *parent);
    ~QImportPrices() override;

    /// Reads the file; what it leaves open about its form is as wanted. Then exec().
    void open(const QString &path, const CsvForm &wanted);
    using QDialog::open;

    /// Who tells the file to write, from a suggested name; empty when none is wanted. The file dialog at
    /// first.
    using FileChooser = std::function<QString(const QString &suggested)>;
    void setFileChooser(const FileChooser &chooser) { m_fileToWrite = chooser; }

public slots:
    /// Asks and writes.
    void start();
    void stop();
    /// Not while it writes, which is said.
    void reject() override;

signals:
    /// The goods have changed.
    void imported();

private:
    enum class Work { None, Looking, Importing };
    using Then = std::function<void(const JobResult &)>;

    void buildLists();
    void connectInputs();
    void look(const std::shared_ptr<PriceListLook> &look);
    void lookAgain();
    std::shared_ptr<PriceListLook> anew() const;
    void showLook(const PriceListLook &look, const JobResult &result);
    void showForm(const CsvForm &form);
    CsvForm chosenForm() const;
    void showPlan(const PriceListPlan &plan);
    void showNothing(const QString &why);
    QString doubts() const;
    bool mayImport();
    void import();
    void showOutcome(const JobResult &result, const PriceListOutcome &outcome);
    void showRefused(const RefusedLines &lines);
    void saveRefused();

    void begin(Work kind, const QString &title, const std::function<JobResult(JobContext &)> &work,
               const Then &then);
    void leaveLooking();
    void followWork();

    std::unique_ptr<Ui::QImportPrices> ui;
    QSqlDatabase *m_db;
    QObject *m_mainWindow;
    std::shared_ptr<PriceListLook> m_look;
    std::shared_ptr<const PriceListPlan> m_plan;
    QPointer<Job> m_job;
    Work m_work = Work::None;
    bool m_isImported = false;
    FileChooser m_fileToWrite;
};
