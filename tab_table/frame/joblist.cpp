#include "joblist.h"

#include <QApplication>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <algorithm>
#include <iterator>

namespace {
const int tickMs = 250;
/// What is over sooner is told by its message alone.
const int shortMs = 400;
const int resultMs = 8000;
/// Earlier a rate is a guess.
const int guessMs = 2000;
/// In letters.
const int titleLetters = 36;
const int barLetters = 16;
const int resultLetters = 60;
const int barSteps = 1000;
/// Of the window's width, in per cent, for a row in the status bar.
const int mostOfWindow = 60;

QString clockText(qint64 ms)
{
    const qint64 seconds = ms / 1000;
    return QStringLiteral("%1:%2").arg(seconds / 60).arg(seconds % 60, 2, 10, QLatin1Char('0'));
}

int letters(const QWidget &widget, int count)
{
    return widget.fontMetrics().averageCharWidth() * count;
}
/// The page above must not jump when a job comes or goes.
int lowHeight(const QWidget &widget)
{
    return widget.fontMetrics().height() + 4;
}
} // namespace

QString jobTimes(qint64 elapsedMs, const JobProgress &progress)
{
    QString taken = clockText(elapsedMs);
    if (elapsedMs < guessMs || progress.done <= 0 || progress.of <= progress.done)
        return taken;
    return JobRow::tr("%1, ще %2")
        .arg(taken, clockText(elapsedMs * (progress.of - progress.done) / progress.done));
}

JobRow::JobRow(Job *job, QWidget *parent) : QWidget(parent), m_job(job), m_title(job->title())
{
    build();
    connect(job, &Job::progressed, this, &JobRow::showProgress);
    connect(job, &Job::finished, this, &JobRow::showResult);
    // Its owner is gone, and whoever wanted to know with it.
    connect(job, &QObject::destroyed, this, [this] {
        if (!m_sinceEnd.isValid())
            emit dismissed();
    });
    showProgress();
}

void JobRow::build()
{
    setObjectName(QStringLiteral("jobRow"));
    setAccessibleName(m_title);
    m_text = new QLabel(this);
    m_text->setObjectName(QStringLiteral("labelJob"));
    m_text->setTextFormat(Qt::PlainText);
    m_bar = new QProgressBar(this);
    m_bar->setObjectName(QStringLiteral("progressJob"));
    m_bar->setAccessibleName(tr("Скільки зроблено: %1").arg(m_title));
    m_bar->setFixedWidth(letters(*this, barLetters));
    m_bar->setMaximumHeight(lowHeight(*m_bar));
    m_time = new QLabel(this);
    m_time->setObjectName(QStringLiteral("labelJobTime"));
    m_button = new QPushButton(tr("Скасувати"), this);
    m_button->setObjectName(QStringLiteral("pbCancelJob"));
    m_button->setAccessibleName(tr("Скасувати: %1").arg(m_title));
    m_button->setFocusPolicy(Qt::TabFocus);
    m_button->setMaximumHeight(lowHeight(*m_button));
    connect(m_button, &QPushButton::clicked, this, &JobRow::leave);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_text, 1);
    for (QWidget *part : std::initializer_list<QWidget *>{m_bar, m_time, m_button})
        layout->addWidget(part);
}

bool JobRow::isDue() const
{
    return m_job != nullptr ? m_job->elapsed() >= shortMs : m_isKept;
}

bool JobRow::isOver() const
{
    return m_sinceEnd.isValid() &&
           (!m_isKept || (m_outcome != JobResult::Failed && m_sinceEnd.elapsed() >= resultMs));
}

void JobRow::tick()
{
    if (m_job != nullptr)
        m_time->setText(jobTimes(m_job->elapsed(), m_job->progress()));
}

void JobRow::showText(const QString &text, int mostLetters)
{
    const QString line = text.section(QLatin1Char('\n'), 0, 0);
    m_text->setText(m_text->fontMetrics().elidedText(line, Qt::ElideMiddle, letters(*m_text, mostLetters)));
    m_text->setToolTip(text);
    m_text->setAccessibleName(text);
}

void JobRow::showProgress()
{
    const JobProgress &progress = m_job->progress();
    showText(progress.stage.isEmpty() ? m_title : m_title + QStringLiteral(": ") + progress.stage,
             titleLetters);
    // Nobody knows how much: the bar shows that something goes on.
    m_bar->setMaximum(progress.of > 0 ? barSteps : 0);
    m_bar->setValue(progress.of > 0 ? static_cast<int>(barSteps * progress.done / progress.of) : 0);
    tick();
}

void JobRow::showResult(const JobResult &result)
{
    m_isKept = result.outcome == JobResult::Done ? isDue() && !result.words.isEmpty() : true;
    m_job = nullptr;
    m_outcome = result.outcome;
    m_words = result.words;
    m_sinceEnd.start();
    m_bar->hide();
    m_time->hide();
    QFont font = m_text->font();
    font.setBold(m_outcome == JobResult::Failed);
    m_text->setFont(font);
    showText(m_words.isEmpty() ? tr("%1 – скасовано").arg(m_title) : m_words, resultLetters);
    m_button->setText(tr("Закрити"));
    m_button->setAccessibleName(tr("Закрити: %1").arg(m_title));
    emit changed();
}

/// The button: cancels the job, closes its result.
void JobRow::leave()
{
    if (m_job == nullptr) {
        emit dismissed();
        return;
    }
    m_button->setText(tr("Зупиняється…"));
    m_job->cancel();
}

void JobRow::focusButton() const
{
    m_button->setFocus(Qt::ShortcutFocusReason);
}

JobList::JobList(QWidget *parent) : QWidget(parent)
{
    build();
    m_ticking.setInterval(tickMs);
    connect(&m_ticking, &QTimer::timeout, this, &JobList::tick);
    connect(&RunningJobs::all(), &RunningJobs::started, this, &JobList::add);
    auto *shortcut = new QShortcut(QKeySequence(Qt::CTRL + Qt::Key_J), window());
    shortcut->setWhatsThis(tr("До завдань у рядку стану"));
    connect(shortcut, &QShortcut::activated, this, &JobList::focusFirst);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *before, QWidget *now) {
        if (isOwn(now) && !isOwn(before))
            m_before = before;
    });
    for (Job *job : RunningJobs::all().jobs())
        add(job);
    window()->installEventFilter(this);
}

JobList::~JobList() = default;

void JobList::build()
{
    setObjectName(QStringLiteral("jobList"));
    setAccessibleName(tr("Завдання"));
    m_layout = new QHBoxLayout(this);
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_opener = new QPushButton(this);
    m_opener->setObjectName(QStringLiteral("pbJobs"));
    m_opener->setFocusPolicy(Qt::TabFocus);
    m_opener->setMaximumHeight(lowHeight(*m_opener));
    m_opener->setToolTip(tr("Показати завдання (Ctrl+J)"));
    m_opener->hide();
    connect(m_opener, &QPushButton::clicked, this, &JobList::open);
    m_layout->addWidget(m_opener);
    m_popup = new QFrame(this, Qt::Popup);
    m_popup->setObjectName(QStringLiteral("jobPopup"));
    m_popup->setAccessibleName(tr("Завдання"));
    m_popup->setFrameShape(QFrame::StyledPanel);
    m_popup->installEventFilter(this);
    m_popupRows = new QVBoxLayout(m_popup);
}

bool JobList::isTelling(const QString &words) const
{
    return std::any_of(m_rows.begin(), m_rows.end(), [&](const JobRow *row) {
        return !row->isRunning() && row->isDue() && row->words() == words;
    });
}

void JobList::add(Job *job)
{
    auto *row = new JobRow(job, this);
    row->hide();
    m_rows.append(row);
    // Not from within a signal of the row that goes.
    connect(row, &JobRow::changed, this, &JobList::tick, Qt::QueuedConnection);
    connect(
        row, &JobRow::dismissed, this, [this, row] { remove(row); }, Qt::QueuedConnection);
    m_ticking.start();
}

void JobList::remove(JobRow *row)
{
    if (!m_rows.removeOne(row))
        return;
    const QWidget *focus = QApplication::focusWidget();
    if (focus != nullptr && row->isAncestorOf(focus) && m_before != nullptr)
        m_before->setFocus();
    delete row;
    arrange();
}

void JobList::tick()
{
    const QVector<JobRow *> rows = m_rows;
    for (JobRow *row : rows) {
        row->tick();
        if (row->isOver())
            remove(row);
    }
    arrange();
    if (m_rows.isEmpty())
        m_ticking.stop();
}

/// One row stands in the status bar where it has room; otherwise they all stand in the popup.
void JobList::arrange()
{
    QVector<JobRow *> due;
    std::copy_if(m_rows.begin(), m_rows.end(), std::back_inserter(due),
                 [](const JobRow *row) { return row->isDue(); });
    const bool isInline = due.size() == 1 && !m_popup->isVisible() && isRoomFor(*due.constFirst());
    for (JobRow *row : qAsConst(due)) {
        if (QBoxLayout *to = isInline ? m_layout : m_popupRows; to->indexOf(row) < 0)
            to->addWidget(row);
        row->show();
    }
    m_opener->setText(tr("Завдання: %1").arg(due.size()));
    m_opener->setVisible(!isInline && !due.isEmpty());
    if (due.isEmpty())
        m_popup->hide();
    else if (m_popup->isVisible())
        placePopup();
}

bool JobList::isRoomFor(const JobRow &row) const
{
    return row.sizeHint().width() <= window()->width() * mostOfWindow / 100;
}

bool JobList::eventFilter(QObject *watched, QEvent *event)
{
    if ((watched == window() && event->type() == QEvent::Resize) ||
        (watched == m_popup && event->type() == QEvent::Hide))
        QTimer::singleShot(0, this, &JobList::arrange);
    return QWidget::eventFilter(watched, event);
}

bool JobList::isOwn(const QWidget *widget) const
{
    return widget != nullptr && (isAncestorOf(widget) || m_popup->isAncestorOf(widget) || widget == m_popup);
}

void JobList::open()
{
    placePopup();
    m_popup->show();
    focusFirst();
}

/// Above the button, as large as its rows.
void JobList::placePopup()
{
    m_popup->adjustSize();
    const QPoint corner = m_opener->mapToGlobal(QPoint(m_opener->width(), 0));
    m_popup->move(qMax(0, corner.x() - m_popup->width()), corner.y() - m_popup->height());
}

/// The first button, for those without a mouse.
void JobList::focusFirst()
{
    if (m_opener->isVisible() && !m_popup->isVisible())
        open();
    for (const JobRow *row : qAsConst(m_rows)) {
        if (row->isVisible())
            return row->focusButton();
    }
}
