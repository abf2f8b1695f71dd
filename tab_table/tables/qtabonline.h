#pragma once

#include "launchmenu.h"
#include "linestate.h"
#include "qtab.h"

/// A list of what stands in the shops and may be connected with the head office: each row shows its state in
/// colour, and programs are started against its address. A right click, or Ctrl+R, starts the row's own
/// command when there is no other to choose from, else it opens the menu of them. What a drag to the right
/// does, and Ctrl+Right, is the list's affair.
class QTabOnLine : public QTab
{
    Q_OBJECT

public:
    /// longestStrayDrag: so many pixels are no drag yet. stateColumns: those that show the state.
    QTabOnLine(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent,
               int longestStrayDrag, const QVector<int> &stateColumns);

public slots:
    void LMoveMouse(int countpx, const QModelIndex &index);
    void RightClickSlot(const QModelIndex &index);

protected:
    virtual void dragged(int row) = 0;
    /// What a right click starts; without a path when there is nothing.
    virtual NamedCommand ownCommand(int row) const = 0;
    /// Against what address.
    virtual QString launchAddress(int row) const = 0;
    /// Why no program is started for the row, for the user; empty when one may be.
    virtual QString launchRefusal(int row) const;
    virtual LineState lineState(int row) const = 0;
    void rowsShown() override;
    void rowShown(int row) override;
    /// Whoever comes back to the tab may have changed the commands.
    void showEvent(QShowEvent *event) override;

    /// The list of launch commands as it was read last.
    const NamedCommands &comands() const { return m_comands; }
    /// Tells why not.
    bool mayLaunch(int row);
    void launch(const LaunchCommand &command, int row);

    /// Offers the shop groups that the user may see, as fillFilter() does.
    void fillGroups(QComboBox *box, const std::function<void(bool isKept)> &filled);

private:
    void addKey(int key, const QString &words, const std::function<void(const QModelIndex &)> &act);
    void readCommands();
    void offerLaunch(const QModelIndex &index, const QPoint &place);

    const int m_longestStrayDrag;
    const QVector<int> m_stateColumns;
    DbTasks m_commandTasks;
    NamedCommands m_comands;
    /// Before that nobody knows what a right click is to start: it waits.
    bool m_isCommandsRead = false;
    std::function<void()> m_whenRead;
};
