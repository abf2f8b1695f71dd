#pragma once

#include <QKeySequence>
#include <QString>
#include <QVector>

/// Keys that a widget, or who watches its keys, takes by itself, without an action or a shortcut; and what
/// they do, in a few words.
struct ToldKey
{
    QVector<QKeySequence> keys;
    QString words;
};

/// Who takes such keys, so that the list of keys knows them. Actions and buttons have their texts; a
/// QShortcut has the words in its whatsThis().
class KeyTeller
{
public:
    KeyTeller() = default;
    virtual ~KeyTeller() = default;
    Q_DISABLE_COPY(KeyTeller)

    virtual QVector<ToldKey> toldKeys() const = 0;
};
