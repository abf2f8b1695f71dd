#include "qtabonline.h"

#include "permittedlists.h"
#include "qmessevent.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QCursor>
#include <QMenu>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

QTabOnLine::QTabOnLine(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent,
                       int longestStrayDrag, const QVector<int> &stateColumns)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , m_longestStrayDrag(longestStrayDrag)
    , m_stateColumns(stateColumns)
    , m_commandTasks(db->connectionName(), receiver, nullptr)
{
    connect(view(), &QNTableView::LMoveMouseInRow, this, &QTabOnLine::LMoveMouse);
    connect(view(), &QNTableView::RClicked, this, &QTabOnLine::RightClickSlot);
    addKey(Qt::CTRL + Qt::Key_Right, tr("Те саме, що потягти рядок мишею праворуч"),
           [this](const QModelIndex &index) { dragged(index.row()); });
    addKey(Qt::CTRL + Qt::Key_R, tr("Запустити програму для рядка"), [this](const QModelIndex &index) {
        const QPoint corner = view()->visualRect(index).bottomLeft();
        offerLaunch(index, view()->viewport()->mapToGlobal(corner));
    });
    connect(this, &QTab::loaded, this, &QTabOnLine::readCommands);
    readCommands();
}

void QTabOnLine::showEvent(QShowEvent *event)
{
    QTab::showEvent(event);
    readCommands();
}

/// A failure was reported: what was read before stays.
void QTabOnLine::readCommands()
{
    if (m_commandTasks.isWaiting())
        return;
    m_commandTasks.read(&readComands, [this](const std::optional<NamedCommands> &commands) {
        if (commands)
            m_comands = *commands;
        m_isCommandsRead = true;
        if (const auto wanted = std::exchange(m_whenRead, nullptr))
            wanted();
    });
}

void QTabOnLine::addKey(int key, const QString &words, const std::function<void(const QModelIndex &)> &act)
{
    auto *shortcut = new QShortcut(key, view(), nullptr, nullptr, Qt::WidgetShortcut);
    shortcut->setWhatsThis(words);
    connect(shortcut, &QShortcut::activated, this, [this, act] {
        if (view()->currentIndex().isValid())
            act(view()->currentIndex());
    });
}

void QTabOnLine::LMoveMouse(int countpx, const QModelIndex &index)
{
    if (countpx > m_longestStrayDrag && index.isValid())
        dragged(index.row());
}

void QTabOnLine::RightClickSlot(const QModelIndex &index)
{
    if (index.isValid())
        offerLaunch(index, QCursor::pos());
}

/// The row and the commands are those of now, whatever the list shows when the menu is answered.
void QTabOnLine::offerLaunch(const QModelIndex &index, const QPoint &place)
{
    if (!m_isCommandsRead) {
        m_whenRead = [this, place, wanted = QPersistentModelIndex(index)] {
            if (wanted.isValid())
                offerLaunch(wanted, place);
        };
        return;
    }
    if (!mayLaunch(index.row()))
        return;
    const NamedCommand own = ownCommand(index.row());
    NamedCommands others;
    for (const NamedCommand &command : qAsConst(m_comands)) {
        if (command.name != own.name)
            others.append(command);
    }
    if (others.isEmpty())
        return launch(own.command, index.row());
    const QString address = launchAddress(index.row());
    QMenu *menu = makeLaunchMenu(this, own, others, [this, address](const LaunchCommand &command) {
        launchProgram(this, receiver(), command, address);
    });
    menu->popup(place);
    menu->setActiveAction(menu->actions().constFirst());
}

void QTabOnLine::launch(const LaunchCommand &command, int row)
{
    launchProgram(this, receiver(), command, launchAddress(row));
}

QString QTabOnLine::launchRefusal(int row) const
{
    Q_UNUSED(row)
    return QString();
}

bool QTabOnLine::mayLaunch(int row)
{
    const QString why = launchRefusal(row);
    if (!why.isEmpty())
        postMessage(receiver(), why, QMessEvent::Information);
    return why.isEmpty();
}

void QTabOnLine::rowsShown()
{
    for (int row = 0; row < model()->rowCount(); ++row)
        rowShown(row);
}

void QTabOnLine::rowShown(int row)
{
    showLineState(model(), row, m_stateColumns, lineState(row));
}

void QTabOnLine::fillGroups(QComboBox *box, const std::function<void(bool isKept)> &filled)
{
    fillFilter(box, permittedGroupsSql(*user(), true), tr("Усі групи"), filled);
}
