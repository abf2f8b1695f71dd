#pragma once

#include <QKeyEvent>

/// What the parts of a tab ask of a key.

inline bool isEnterKey(const QKeyEvent *key)
{
    return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

/// Types a character.
inline bool isTypedKey(const QKeyEvent *key)
{
    return !key->text().isEmpty() && key->text().at(0).isPrint() &&
           (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == 0;
}
