#pragma once

#include "job.h"

#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class QBoxLayout;
class QFrame;
class QLabel;
class QProgressBar;
class QPushButton;

/// One job in the list: its title, how far it is and the way to cancel it; then what came of it.
class JobRow : public QWidget
{
    Q_OBJECT

public:
    JobRow(Job *job, QWidget *parent);

    bool isRunning() const { return m_job != nullptr; }
    /// False for what was over before anybody could have read it.
    bool isDue() const;
    /// True once a result that nobody has to see has stood long enough.
    bool isOver() const;
    const QString &words() const { return m_words; }
    /// Brings the times up to date.
    void tick();
    void focusButton() const;

signals:
    /// The job is over.
    void changed();
    void dismissed();

private:
    void build();
    void showText(const QString &text, int mostLetters);
    void showProgress();
    void showResult(const JobResult &result);
    void leave();

    QPointer<Job> m_job;
    QString m_title;
    QString m_words;
    JobResult::Outcome m_outcome = JobResult::Cancelled;
    bool m_isKept = false;
    QElapsedTimer m_sinceEnd;
    QLabel *m_text = nullptr;
    QProgressBar *m_bar = nullptr;
    QLabel *m_time = nullptr;
    QPushButton *m_button = nullptr;
};

/// The jobs of the program in the status bar of the main window: one row as it is; several, or where the
/// window is narrow, behind a button that opens them. A failure stays until it is closed, other results go by
/// themselves. It finds the jobs by itself.
class JobList : public QWidget
{
    Q_OBJECT

public:
    explicit JobList(QWidget *parent);
    ~JobList() override;

    /// True when a row tells this just now.
    bool isTelling(const QString &words) const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void build();
    void add(Job *job);
    void remove(JobRow *row);
    void tick();
    void arrange();
    bool isRoomFor(const JobRow &row) const;
    bool isOwn(const QWidget *widget) const;
    void open();
    void placePopup();
    void focusFirst();

    QVector<JobRow *> m_rows;
    QBoxLayout *m_layout = nullptr;
    QPushButton *m_opener = nullptr;
    QFrame *m_popup = nullptr;
    QBoxLayout *m_popupRows = nullptr;
    QTimer m_ticking;
    /// What had the focus before a button here.
    QPointer<QWidget> m_before;
};

/// "0:07, ще 1:30": the time a job has taken and, as far as it can be reckoned, what it still takes.
QString jobTimes(qint64 elapsedMs, const JobProgress &progress);
