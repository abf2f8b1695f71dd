#pragma once

#include "recorddialog.h"

#include <QSet>
#include <memory>

namespace Ui {
class QAddEdtUsers;
}
class QLoadedUser;

/// The editor of a user: who it is, what the user may do, where the home is, and how to get in.
class QAddEdtUsers : public RecordDialog
{
    Q_OBJECT

public:
    /// id: the user to edit; empty or null for a new one, whose id it holds after the save.
    /// user: who is at work here. cardPrefix: of the settings.
    QAddEdtUsers(const QLoadedUser *user, const QString &cardPrefix, QSqlDatabase *db, QString *id,
                 QObject *receiver, QWidget *parent);
    ~QAddEdtUsers() override;

protected:
    QString refusal() const override;
    QVector<UniqueValue> uniqueValues() const override;
    RecordDraft draft() const override;
    bool takeRows(const QVector<TextRows> &more) override;
    void showField(const QString &key, const std::optional<RecordField> &value) override;
    void takeOver(const RecordDraft &written) override;
    void loaded() override;
    /// Who takes away the own right is asked first.
    void save() override;

private:
    /// A shop that may be somebody's home.
    struct Shop
    {
        QString address;
        QString id;
        QString group;
    };
    QVector<RecordInput> inputs() const;
    void connectFields();
    void tellEntry();
    void offerShops();
    void tidyTelephone();
    void followKey();
    void proposeKey();
    QString telephoneRefusal() const;
    QString passwordRefusal() const;
    QString keyRefusal() const;
    QString readValue(const char *column) const;
    bool losesOwnRight() const;

    std::unique_ptr<Ui::QAddEdtUsers> ui;
    const QLoadedUser *m_user;
    QString m_cardPrefix;
    QVector<Shop> m_shops;
    /// Of all users, for the first proposal.
    QStringList m_keys;
    /// The permission groups whose members do not get in, and those whose members may change users.
    QSet<QString> m_closedGroups;
    QSet<QString> m_editingGroups;
    DbTasks m_keyTasks;
};
