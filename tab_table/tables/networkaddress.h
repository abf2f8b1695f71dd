#pragma once

#include <QString>

class QLineEdit;

/// What was typed into a field with the mask of a network address; empty when nothing was.
QString typedAddress(const QLineEdit *field);
/// False for what is no network address. Nothing typed is none either, but not wrong.
bool isSoundAddress(const QString &address);
