#include "testing.h"

#include "joblist.h"

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QStatusBar>

/// The jobs in the status bar, as whoever waits for them sees and handles them.
class TstJobList : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void timesAreReckoned();
    void rowTellsAndCancels();
    void failureStaysUntilClosed();
    void severalStandBehindAButton();
    void quickSuccessAndGoneOwnerLeaveNoRow();

private:
    /// Runs until it is told its end, or cancelled.
    Job *start(const QString &title);
    void end(Job *job, const JobResult &result);
    QList<JobRow *> shown() const;
    template<typename T>
    T *part(const char *name) const
    {
        return child<T>(shown().constFirst(), QLatin1String(name));
    }

    std::unique_ptr<QMainWindow> m_window;
    JobList *m_list = nullptr;
    struct Told
    {
        std::atomic<bool> isOver{false};
        JobResult result;
    };
    QHash<Job *, std::shared_ptr<Told>> m_told;
};

void TstJobList::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_window->setCentralWidget(new QLineEdit);
    m_list = new JobList(m_window.get());
    m_window->statusBar()->addPermanentWidget(m_list);
    m_window->resize(1024, 600);
    QVERIFY(showActive(m_window.get()));
}

void TstJobList::cleanup()
{
    m_window.reset();
    m_told.clear();
    QVERIFY(RunningJobs::all().jobs().isEmpty());
}

Job *TstJobList::start(const QString &title)
{
    const auto told = std::make_shared<Told>();
    auto *job = new Job(
        title, QString(),
        [told](JobContext &context) -> JobResult {
            context.progress(1, 4);
            while (!told->isOver && context.pause(5)) {
            }
            return context.isCancelled() ? JobResult() : told->result;
        },
        m_window.get());
    m_told.insert(job, told);
    connect(job, &Job::finished, job, &QObject::deleteLater);
    job->start();
    return job;
}

void TstJobList::end(Job *job, const JobResult &result)
{
    m_told[job]->result = result;
    m_told[job]->isOver = true;
}

QList<JobRow *> TstJobList::shown() const
{
    QList<JobRow *> rows;
    for (JobRow *row : m_window->findChildren<JobRow *>()) {
        if (row->isVisible())
            rows.append(row);
    }
    return rows;
}

void TstJobList::timesAreReckoned()
{
    QCOMPARE(jobTimes(67000, {}), QStringLiteral("1:07"));
    QCOMPARE(jobTimes(30000, {25, 100, {}}), QStringLiteral("0:30, ще 1:30"));
    // Too early to guess, and nothing left.
    QCOMPARE(jobTimes(1000, {25, 100, {}}), QStringLiteral("0:01"));
    QCOMPARE(jobTimes(30000, {100, 100, {}}), QStringLiteral("0:30"));
    QCOMPARE(jobTimes(3600000, {5000000000, 10000000000, {}}), QStringLiteral("60:00, ще 60:00"));
}

void TstJobList::rowTellsAndCancels()
{
    QWidget *page = m_window->centralWidget();
    page->setFocus();
    Job *job = start(QStringLiteral("Експорт: Товари"));
    QTRY_COMPARE(shown().size(), 1);
    QVERIFY(part<QLabel>("labelJob")->text().contains(QStringLiteral("Експорт: Товари")));
    QCOMPARE(part<QProgressBar>("progressJob")->value() * 4, part<QProgressBar>("progressJob")->maximum());
    QVERIFY(m_window->statusBar()->isAncestorOf(shown().constFirst()));
    // A click leaves the focus where people type; the key gets there and back.
    auto *cancel = part<QPushButton>("pbCancelJob");
    QCOMPARE(cancel->accessibleName(), QStringLiteral("Скасувати: Експорт: Товари"));
    pressKeys({Qt::CTRL + Qt::Key_J});
    QCOMPARE(QApplication::focusWidget(), cancel);
    QSignalSpy finished(job, &Job::finished);
    pressKeys({Qt::Key_Space});
    QVERIFY(finished.wait(10000));
    QTRY_VERIFY(part<QLabel>("labelJob")->text().endsWith(QStringLiteral("скасовано")));
    QVERIFY(!part<QProgressBar>("progressJob")->isVisible());
    pressKeys({Qt::Key_Space});
    QTRY_VERIFY(shown().isEmpty());
    QCOMPARE(QApplication::focusWidget(), page);
}

void TstJobList::failureStaysUntilClosed()
{
    const QString words = QStringLiteral("Файл не збережено: немає місця\nEIO");
    Job *job = start(QStringLiteral("Експорт"));
    end(job, {JobResult::Failed, words, {}});
    QTRY_COMPARE(shown().size(), 1);
    QVERIFY(m_list->isTelling(words));
    QCOMPARE(part<QLabel>("labelJob")->text(), QStringLiteral("Файл не збережено: немає місця"));
    QCOMPARE(part<QLabel>("labelJob")->toolTip(), words);
    QVERIFY(!shown().constFirst()->isOver());
    QTest::mouseClick(part<QPushButton>("pbCancelJob"), Qt::LeftButton);
    QTRY_VERIFY(shown().isEmpty() && !m_list->isTelling(words));
}

void TstJobList::severalStandBehindAButton()
{
    start(QStringLiteral("Перше"));
    Job *second = start(QStringLiteral("Друге"));
    auto *opener = child<QPushButton>(m_list, QStringLiteral("pbJobs"));
    QTRY_VERIFY(opener->isVisible());
    QCOMPARE(opener->text(), QStringLiteral("Завдання: 2"));
    QVERIFY(shown().isEmpty());
    QTest::mouseClick(opener, Qt::LeftButton);
    QTRY_COMPARE(shown().size(), 2);
    // The first one is cancelled by the key that the focus is on, the result stands beside the other job.
    pressKeys({Qt::Key_Space});
    QTRY_COMPARE(RunningJobs::all().jobs(), QVector<Job *>{second});
    QTRY_VERIFY(part<QLabel>("labelJob")->text().endsWith(QStringLiteral("скасовано")));
    pressKeys({Qt::Key_Escape});
    QTRY_VERIFY(shown().isEmpty());
    QVERIFY(opener->isVisible());

    // One alone stands in the bar, where the window is wide enough.
    QTest::mouseClick(opener, Qt::LeftButton);
    QTest::mouseClick(part<QPushButton>("pbCancelJob"), Qt::LeftButton);
    pressKeys({Qt::Key_Escape});
    QTRY_VERIFY(shown().size() == 1 && !opener->isVisible());
    m_window->resize(300, 300);
    QTRY_VERIFY(shown().isEmpty() && opener->isVisible());
}

void TstJobList::quickSuccessAndGoneOwnerLeaveNoRow()
{
    end(start(QStringLiteral("Швидке")), {JobResult::Done, QStringLiteral("Готово"), {}});
    QTRY_VERIFY(RunningJobs::all().jobs().isEmpty());
    Job *job = start(QStringLiteral("Чуже"));
    QTRY_COMPARE(shown().size(), 1);
    QVERIFY(part<QLabel>("labelJob")->text().contains(QStringLiteral("Чуже")));
    delete job;
    QTRY_VERIFY(shown().isEmpty());
    QVERIFY(!m_list->isTelling(QStringLiteral("Готово")));
}

QTEST_MAIN(TstJobList)
#include "tst_joblist.moc"
