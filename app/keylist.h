#pragma once

#include "rowstore.h"

#include <QDialog>
#include <QVector>

class ListPane;
class QLineEdit;
class QLoadedUser;
class QMainWindow;
class QSqlDatabase;

/// A key that works now, of what, and what it does.
struct ShownKey
{
    QString place;
    QString keys;
    QString words;
};

/// What the keys of a main window do: those of its menus, its own, and those of what is to be seen of the
/// page in front. Asked of the actions, shortcuts and buttons themselves, and of every KeyTeller.
QVector<ShownKey> keysOf(const QMainWindow &window);

/// Shows them, to be searched and printed.
class KeyList : public QDialog
{
    Q_OBJECT

public:
    KeyList(const QVector<ShownKey> &keys, QSqlDatabase *db, const QLoadedUser *user, QObject *receiver,
            QWidget *parent);

private:
    void build();
    void show(const QString &words);

    QVector<ShownKey> m_keys;
    QLineEdit *m_search;
    ListPane *m_list;
};
