#pragma once

#include "page.h"
#include "qloadeduser.h"

#include <QDialog>

class QMenuBar;
class QTreeWidget;

/// What a member of a permission group would see: the menus of the main window with the actions that these
/// rights show, and whether records may be changed behind them. Nothing can be started from here.
class MemberPreview : public QDialog
{
    Q_OBJECT

public:
    MemberPreview(const QString &group, const UserRights &rights, const PageTable &pages, QMenuBar *menus,
                  QWidget *parent);

private:
    void build(const QString &group);
    void showMenus(const PageTable &pages, QMenuBar *menus);
    QString commandsOf(const PageTable &pages, const QString &action) const;

    QLoadedUser m_member;
    QTreeWidget *m_tree;
};
