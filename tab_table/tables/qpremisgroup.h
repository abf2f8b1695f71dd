#pragma once

#include "dbtasks.h"
#include "groupaccess.h"
#include "page.h"

#include <QWidget>
#include <memory>

namespace Ui {
class QPremisGroup;
}
class QListWidget;
class QLoadedUser;
class QSqlDatabase;
class QTreeWidgetItem;
class TypingPause;
class WaitNote;
struct UserRights;

/// The permission groups: what the members of each may do, which shop groups they see, to which shops they
/// may send. Nothing is written until it is saved; a save tells what somebody else has changed meanwhile.
class QPremisGroup : public QWidget, public Page
{
    Q_OBJECT

public:
    QPremisGroup(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, QWidget *parent);
    ~QPremisGroup() override;

    Commands commands() const override;
    void run(Command command) override;
    bool isLoading() const override;
    /// What is not saved is asked about, what is being written is waited for.
    bool mayClose() override;
    /// All groups side by side.
    ListPane *list() const override;
    /// True when something stands here that the database has not.
    bool isChanged() const;

public slots:
    /// A new group without any right, or with all that the one in front has; it exists once it is saved.
    void add();
    void copy();
    void save();
    /// Back to what was read.
    void revert();
    void compare();

signals:
    /// What a member of the group would see, with the rights as they stand here.
    void memberWanted(const QString &group, const UserRights &rights);

private:
    struct Reading
    {
        std::optional<GroupsOverview> overview;
        QString id;
        RecordFields group;
    };
    static Reading readPage(const Db &db, const QString &idWanted);
    bool mayEdit() const;
    bool isNew() const;
    void connectWidgets();
    void followRights();

    void reload(const QString &idWanted);
    void showOverview(const GroupsOverview &overview);
    void readMatrix();
    void chooseGroup(const QTreeWidgetItem *item);
    void markGroup(const QString &id);
    void take(const QString &id, const RecordFields &fields);
    void showAccess();
    void fillList(QListWidget *list, const QVector<QStringList> &all, const QMap<QString, QString> &chosen);
    void takeChecked(const QListWidget *list, QMap<QString, QString> *chosen);
    void takeRights(const QList<int> &ids, int value);
    void showChanged();
    bool mayDropChanges(const QString &keepCaption);
    void dropChanges();
    void askMember();

    // premisgroupsaving.cpp
    RecordDraft draft() const;
    QString refusal() const;
    bool mayTakeOwnRights();
    void send();
    void takeSaved(const RecordSaved &saved);
    void takeWritten();
    void tellUnclear();
    void askWhetherArrived();
    bool settleChanges(const RecordFields &theirs);
    void warn(const QString &why);

    std::unique_ptr<Ui::QPremisGroup> ui;
    QSqlDatabase *m_db;
    QLoadedUser *m_user;
    QObject *m_receiver;
    WaitNote *m_note = nullptr;
    TypingPause *m_typing;
    GroupsOverview m_overview;
    /// Empty for a group that is not saved yet.
    QString m_id;
    /// As the group was read; empty for one that is not saved yet.
    RecordFields m_read;
    GroupAccess m_mine;
    /// As it began: of a new group what it had at first.
    RecordFields m_begun;
    /// What was sent last, and the id that it got, in case the answer was lost.
    RecordDraft m_sent;
    QString m_sentId;
    bool m_isUnclear = false;
    bool m_isShowing = false;
    DbTasks m_tasks;
    /// Of the list of the groups and of all groups side by side.
    DbTasks m_listTasks;
};
