#include "toolbar.h"

#include <QAction>
#include <QActionEvent>
#include <QHelpEvent>
#include <QKeySequence>
#include <QLayout>
#include <QStyle>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <algorithm>

namespace {
/// Why it cannot be given, or what it is called and its key.
QString tipOf(const QAction &action)
{
    const QString caption = QString(action.text()).remove(QLatin1Char('&'));
    if (!action.isEnabled() && !action.statusTip().isEmpty())
        return caption + QStringLiteral(": ") + action.statusTip();
    const QString key = action.shortcut().toString(QKeySequence::NativeText);
    return key.isEmpty() ? caption : caption + QStringLiteral(" (") + key + QLatin1Char(')');
}
} // namespace

ToolBar::ToolBar(QWidget *parent) : QToolBar(tr("Панель інструментів"), parent)
{
    setObjectName(QStringLiteral("toolbar"));
    setAccessibleName(windowTitle());
    setMovable(false);
    setFloatable(false);
    // The icons are drawn for this size beside the one of menus.
    const int side = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this) * 22 / 16;
    setIconSize({side, side});
    hide();
}

void ToolBar::setActions(const QList<QAction *> &pages, const QList<QList<QAction *>> &commands)
{
    addGroup(pages);
    for (const QList<QAction *> &group : commands)
        addGroup(group);
    follow();
}

void ToolBar::addGroup(const QList<QAction *> &actions)
{
    m_groups.append(Group{m_groups.isEmpty() ? nullptr : addSeparator(), {}});
    for (QAction *action : actions) {
        if (action == nullptr)
            continue;
        addAction(action);
        widgetForAction(action)->installEventFilter(this);
        m_groups.last().actions.append(action);
    }
}

void ToolBar::setWanted(bool isWanted)
{
    m_isWanted = isWanted;
    follow();
}

/// Rights and pages show and hide many actions one after the other: what follows waits for the last one.
void ToolBar::actionEvent(QActionEvent *event)
{
    QToolBar::actionEvent(event);
    if (m_isFollowing)
        return;
    m_isFollowing = true;
    QTimer::singleShot(0, this, &ToolBar::follow);
}

void ToolBar::resizeEvent(QResizeEvent *event)
{
    QToolBar::resizeEvent(event);
    fitWords();
}

void ToolBar::follow()
{
    m_isFollowing = false;
    bool any = false;
    for (const Group &group : qAsConst(m_groups)) {
        const bool isShown = std::any_of(group.actions.begin(), group.actions.end(),
                                         [](const QAction *action) { return action->isVisible(); });
        if (group.separator != nullptr)
            group.separator->setVisible(any && isShown);
        any = any || isShown;
    }
    setVisible(m_isWanted && any);
    fitWords();
}

void ToolBar::fitWords()
{
    for (const auto &[onPages, onCommands] :
         {std::pair(true, true), std::pair(true, false), std::pair(false, false)}) {
        showWords(onPages, onCommands);
        layout()->invalidate();
        if (layout()->sizeHint().width() <= width())
            return;
    }
}

void ToolBar::showWords(bool onPages, bool onCommands)
{
    for (const Group &group : qAsConst(m_groups)) {
        const bool isShown = &group == &m_groups.first() ? onPages : onCommands;
        for (QAction *action : group.actions)
            static_cast<QToolButton *>(widgetForAction(action))
                ->setToolButtonStyle(isShown ? Qt::ToolButtonTextBesideIcon : Qt::ToolButtonIconOnly);
    }
}

bool ToolBar::eventFilter(QObject *watched, QEvent *event)
{
    const auto *button = qobject_cast<QToolButton *>(watched);
    if (event->type() != QEvent::ToolTip || button == nullptr || button->defaultAction() == nullptr)
        return QToolBar::eventFilter(watched, event);
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tipOf(*button->defaultAction()), this);
    return true;
}
