#include "qtabonline.h"

#include "permittedlists.h"
#include "qntableview.h"
#include "qrowmodel.h"

#include <QShortcut>
#include <QVBoxLayout>

QTabOnLine::QTabOnLine(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent,
                       int longestStrayDrag, const QVector<int> &stateColumns)
    : QTab(db, user, receiver, set, parent, nullptr, new QVBoxLayout)
    , m_longestStrayDrag(longestStrayDrag)
    , m_stateColumns(stateColumns)
{
    connect(view(), &QNTableView::LMoveMouseInRow, this, &QTabOnLine::LMoveMouse);
    connect(view(), &QNTableView::RClicked, this, &QTabOnLine::RightClickSlot);
    addKey(Qt::CTRL + Qt::Key_Right, [this](const QModelIndex &index) { dragged(index.row()); });
    addKey(Qt::CTRL + Qt::Key_R, [this](const QModelIndex &index) { rightClicked(index.row()); });
}

void QTabOnLine::addKey(int key, const std::function<void(const QModelIndex &)> &act)
{
    auto *shortcut = new QShortcut(key, view(), nullptr, nullptr, Qt::WidgetShortcut);
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
        rightClicked(index.row());
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
