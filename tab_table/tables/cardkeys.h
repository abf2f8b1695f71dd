#pragma once

#include <QString>
#include <QStringList>

/// The personal key of a user: ten digits. The card that holds it is an EAN-13 barcode of the prefix of the
/// settings and the key, so the last digit of the key is the check digit of the whole.

/// The thirteen digits of the card; empty when prefix and key make no sound barcode.
QString cardCode(const QString &prefix, const QString &key);
/// The key of a card that was read; empty when it is none of that prefix.
QString keyOfCard(const QString &prefix, const QString &code);
/// Why there is no card for such a key, in words that say what to do; empty when there is one.
QString cardKeyRefusal(const QString &prefix, const QString &key);
/// The key behind the highest one that is taken, else the lowest that is free; empty when the prefix allows
/// none.
QString nextFreeKey(const QString &prefix, const QStringList &taken);
