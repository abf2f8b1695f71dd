#include "jobpanel.h"

#include "job.h"
#include "joblist.h"
#include "money.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

namespace {
const int tickMs = 250;
const int barSteps = 1000;
} // namespace

JobPanel::JobPanel(QWidget *parent)
    : QWidget(parent), m_stage(new QLabel(this)), m_bar(new QProgressBar(this)), m_times(new QLabel(this))
{
    m_stage->setObjectName(QStringLiteral("labelStage"));
    m_stage->setTextFormat(Qt::PlainText);
    m_bar->setObjectName(QStringLiteral("progressWork"));
    m_bar->setAccessibleName(tr("Скільки зроблено"));
    m_bar->setAlignment(Qt::AlignCenter);
    m_times->setObjectName(QStringLiteral("labelTimes"));
    m_times->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("00:00, ще 00:00")));
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_stage);
    row->addWidget(m_bar, 1);
    row->addWidget(m_times);
    QSizePolicy keepsRoom = m_bar->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    m_bar->setSizePolicy(keepsRoom);
    m_ticking.setInterval(tickMs);
    connect(&m_ticking, &QTimer::timeout, this, &JobPanel::tick);
    clear();
}

void JobPanel::follow(Job *job)
{
    m_job = job;
    m_shownStage.clear();
    m_clock.start();
    connect(job, &Job::progressed, this, [this, job] { showProgress(*job); });
    connect(job, &Job::finished, this, [this, job] {
        if (m_job == job)
            clear();
    });
    m_bar->setVisible(true);
    m_ticking.start();
    showProgress(*job);
}

void JobPanel::showProgress(const Job &job)
{
    if (m_job != &job)
        return;
    const JobProgress &progress = job.progress();
    if (progress.stage != m_shownStage)
        m_clock.restart();
    m_shownStage = progress.stage;
    m_stage->setText(progress.stage);
    // Nobody knows how much: the bar shows that something goes on.
    m_bar->setMaximum(progress.of > 0 ? barSteps : 0);
    m_bar->setValue(progress.of > 0 ? static_cast<int>(barSteps * progress.done / progress.of) : 0);
    m_bar->setFormat(tr("%1 з %2").arg(wholeShown(progress.done), wholeShown(progress.of)));
    tick();
}

void JobPanel::tick()
{
    if (m_job != nullptr)
        m_times->setText(jobTimes(m_clock.elapsed(), m_job->progress()));
}

void JobPanel::clear()
{
    m_job = nullptr;
    m_ticking.stop();
    m_stage->clear();
    m_times->clear();
    m_bar->setVisible(false);
}
