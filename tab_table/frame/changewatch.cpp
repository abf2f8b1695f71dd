#include "changewatch.h"

#include "connectionstate.h"
#include "listpane.h"
#include "qntableview.h"

#include <QAccessible>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
std::chrono::milliseconds pauseLength{5000};
/// Long enough for somebody who only passes on the way to another page.
const int arrivalMs = 500;

/// Nothing while a lost server is looked for, by others, and when it refuses to tell.
struct Told
{
    std::optional<bool> isNewer;
    bool isLost;
};

Told askTracker(const Db &db, const QVector<TableTime> &read)
{
    ConnectionState *state = ConnectionState::of(*db.connection());
    if (state != nullptr && !state->isUsable())
        return {std::nullopt, true};
    const auto isNewer = QUpdateBD().isNewer(read, *db.connection(), db.receiver());
    return {isNewer, state != nullptr && state->isLost()};
}
} // namespace

ChangeWatch::ChangeWatch(ListPane *list, const QString &connection, QObject *receiver, QWidget *page)
    : QObject(list), m_list(list), m_page(page), m_tasks(connection, receiver, nullptr)
{
    buildBar();
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, &ChangeWatch::ask);
    connect(list, &ListPane::rowsShown, this, &ChangeWatch::begin);
    page->installEventFilter(this);
}

void ChangeWatch::setPause(std::chrono::milliseconds pause)
{
    pauseLength = pause;
}

/// Below the list: above it, it would push the row away that somebody is about to click on.
void ChangeWatch::buildBar()
{
    m_bar = new QFrame(m_list);
    m_bar->setObjectName(QStringLiteral("changeBar"));
    m_bar->setAccessibleName(tr("Повідомлення"));
    m_bar->setFrameShape(QFrame::StyledPanel);
    m_bar->setAutoFillBackground(true);
    m_bar->setBackgroundRole(QPalette::ToolTipBase);
    auto *text = new QLabel(tr("Ці дані в базі вже змінено. У списку те, що було прочитано раніше."), m_bar);
    text->setObjectName(QStringLiteral("labelChanged"));
    text->setForegroundRole(QPalette::ToolTipText);
    text->setWordWrap(true);
    auto *reload = new QPushButton(tr("Оновит&и"), m_bar);
    reload->setObjectName(QStringLiteral("pbReload"));
    reload->setToolTip(QStringLiteral("F5"));
    connect(reload, &QPushButton::clicked, this, [this] {
        m_list->view()->setFocus();
        emit reloadWanted();
    });
    auto *line = new QHBoxLayout(m_bar);
    // Of a small window it takes no more than a row.
    line->setContentsMargins(line->contentsMargins().left(), 1, line->contentsMargins().right(), 1);
    line->addWidget(text, 1);
    line->addWidget(reload);
    static_cast<QVBoxLayout *>(m_list->layout())->insertWidget(1, m_bar);
    QWidget::setTabOrder(m_list->view(), reload);
    m_bar->hide();
}

bool ChangeWatch::eventFilter(QObject *page, QEvent *event)
{
    if (page == m_page && event->type() == QEvent::Show && !m_tasks.isWaiting())
        m_pause.start(arrivalMs);
    return QObject::eventFilter(page, event);
}

/// What is asked about rows that are gone is not wanted any more.
void ChangeWatch::begin()
{
    m_tasks.drop();
    m_bar->hide();
    m_pause.start(pauseLength);
}

bool ChangeWatch::mayAsk() const
{
    return m_bar->isHidden() && m_page->isVisible() && !m_page->window()->isMinimized() &&
           !m_list->isLoading() && !m_list->readTimes().isEmpty();
}

/// The next time only when the answer is there: a silent server gets no queue of questions.
void ChangeWatch::ask()
{
    if (!mayAsk()) {
        m_pause.start(pauseLength);
        return;
    }
    m_tasks.read([read = m_list->readTimes()](const Db &db) { return askTracker(db, read); },
                 [this](const Told &told) {
                     if (told.isNewer == true)
                         tell();
                     // A refusal was told, once: the next load begins anew.
                     else if (told.isNewer || told.isLost)
                         m_pause.start(pauseLength);
                 });
}

/// The rows stay where they are, but for a current one that the bar would cover.
void ChangeWatch::tell()
{
    QNTableView *view = m_list->view();
    const bool isSeen = view->viewport()->rect().intersects(view->visualRect(view->currentIndex()));
    m_bar->show();
    m_list->layout()->activate();
    if (isSeen)
        view->scrollTo(view->currentIndex());
    QAccessibleEvent event(m_bar, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}
