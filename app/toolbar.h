#pragma once

#include <QToolBar>

/// Pages and commands at one click: the same actions as in the menus. It never takes the focus, so that a
/// scan goes where it went before; where there is no room for its words only pictures are left.
class ToolBar : public QToolBar
{
    Q_OBJECT

public:
    explicit ToolBar(QWidget *parent);

    /// The pages stand first and stay where they are, whatever commands come and go. Null actions are left
    /// out.
    void setActions(const QList<QAction *> &pages, const QList<QList<QAction *>> &commands);
    /// The user wants to see it; it is seen when it has something to show, too.
    void setWanted(bool isWanted);

protected:
    void actionEvent(QActionEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// Actions that stand together, behind a separator if others stand before them.
    struct Group
    {
        QAction *separator;
        QList<QAction *> actions;
    };

    void addGroup(const QList<QAction *> &actions);
    void follow();
    void fitWords();
    void showWords(bool onPages, bool onCommands);

    QVector<Group> m_groups;
    bool m_isWanted = true;
    bool m_isFollowing = false;
};
