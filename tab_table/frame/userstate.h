#pragma once

#include <QVariant>

/// What the program remembers for a user of this machine between two starts (window geometry, column
/// widths), in the operating system user's own settings.
QVariant rememberedState(const QString &idUser, const QString &key);
void rememberState(const QString &idUser, const QString &key, const QVariant &value);
