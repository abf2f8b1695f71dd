#pragma once

#include "qtabnames.h"

class QFrame;
class QLabel;

/// The tab of the shop groups. A new one is seen by nobody until a permission group has it in its list: below
/// the list it is offered to show it to the permission group of who has added it.
class QTabGroup_Shops : public QTabNames
{
    Q_OBJECT

public:
    QTabGroup_Shops(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

private:
    void buildOffer();
    void offer(const QString &id, const QString &name);
    void showOffer();
    void showToOwnGroup();

    /// The new shop groups that the user does not see, with their names.
    QVector<QPair<QString, QString>> m_unseen;
    QFrame *m_bar = nullptr;
    QLabel *m_text = nullptr;
    DbTasks m_showing;
};
