#pragma once

#include "devicetypes.h"
#include "qtab.h"
#include "qtabdelegate.h"

/// The inline editor of the devices: of their names, and of their types, which are chosen.
class QTabDevicesDelegate : public QTabDelegate
{
    Q_OBJECT

public:
    /// The parent receives the messages.
    QTabDevicesDelegate(QSqlDatabase *db, QObject *parent);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    /// The type opens by itself, everything else leads to the name.
    QModelIndex cellFor(const QModelIndex &index) const override;

protected:
    QString typedText(const QLineEdit &edit, int column) const override;
    QString refusal(int column, const QString &text, QString *value) const override;
    CellWriter writer() const override;
    bool eventFilter(QObject *editor, QEvent *event) override;

private:
    QStringList choices() const;

    DbTasks m_typeTasks;
    /// Nothing until they are read.
    std::optional<QStringList> m_types;
};

/// The chain's devices: name and type are edited in place. A new device is asked for its type right behind
/// its name.
class qtabdevices : public QTab
{
    Q_OBJECT

public:
    qtabdevices(QSqlDatabase *db, QLoadedUser *user, QObject *receiver, setting *set, QWidget *parent);

public slots:
    void Add() override;

private:
    void noteStored();

    /// A device whose name was stored just now: its type comes next.
    QPersistentModelIndex m_withoutType;
};
