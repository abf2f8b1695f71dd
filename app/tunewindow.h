#pragma once

#include "tuning.h"

#include <QDialog>
#include <QSqlDatabase>
#include <memory>

namespace Ui {
class TuneWindow;
}

/// Shows how far the indexes for quick reports are and stops the work; the main window stays usable beside
/// it. It goes when the work is over.
class TuneWindow : public QDialog
{
    Q_OBJECT

public:
    /// The work begins at once. receiver gets the messages.
    TuneWindow(const QSqlDatabase &db, DatabaseTuning::Work work, QObject *receiver, QWidget *parent);
    ~TuneWindow() override;

    /// Asks whether to add the indexes or, when they stand, to take them away, and shows the work. Null when
    /// it is not wanted or the database does not answer (reported).
    static TuneWindow *ask(QSqlDatabase *db, QWidget *mainWindow);

public slots:
    /// Stops the work; the window goes when it has stopped.
    void reject() override;

private:
    void showProgress(int percent);
    void close(DatabaseTuning::Outcome outcome);

    std::unique_ptr<Ui::TuneWindow> ui;
    DatabaseTuning m_tuning;
    DatabaseTuning::Work m_work;
    QObject *m_receiver;
};

/// What to tell when the work is over; empty after a failure, which was reported.
QString tuningResult(DatabaseTuning::Work work, DatabaseTuning::Outcome outcome);
