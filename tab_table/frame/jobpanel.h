#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class Job;
class QLabel;
class QProgressBar;

/// How far a job of this page is: what is being done, "13 000 з 100 000", how long that has taken and how
/// long it will. Empty, but of the same height, while nothing runs.
class JobPanel : public QWidget
{
    Q_OBJECT

public:
    explicit JobPanel(QWidget *parent = nullptr);

    /// From now on it shows that one, to its end.
    void follow(Job *job);

private:
    void showProgress(const Job &job);
    void tick();
    void clear();

    QPointer<Job> m_job;
    QLabel *m_stage;
    QProgressBar *m_bar;
    QLabel *m_times;
    QTimer m_ticking;
    /// Of the stage: what remains is reckoned from its own pace.
    QElapsedTimer m_clock;
    QString m_shownStage;
};
