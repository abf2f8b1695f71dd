#pragma once

#include "dbtasks.h"
#include "groupaccess.h"

#include <QDialog>

class ListPane;
class QComboBox;
class QLoadedUser;
class QSqlDatabase;

/// In what two permission groups differ, side by side, as the database has them; to be printed and copied as
/// any list.
class GroupsCompare : public QDialog
{
    Q_OBJECT

public:
    /// idGroup: the group on the left at first.
    GroupsCompare(QSqlDatabase *db, QLoadedUser *user, QObject *receiver,
                  const QVector<PermissionGroup> &groups, const QString &idGroup, QWidget *parent);

private:
    QComboBox *addBox(const QString &name, const QString &caption, const QVector<PermissionGroup> &groups);
    void buildRows();
    void compare();
    void showDifferences(const RecordFields &one, const RecordFields &other);

    QComboBox *m_one;
    QComboBox *m_other;
    ListPane *m_list;
    DbTasks m_tasks;
};
