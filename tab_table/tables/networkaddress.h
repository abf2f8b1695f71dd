#pragma once

#include <QString>

/// False for what is no network address. Nothing typed is none either, but not wrong.
bool isSoundAddress(const QString &address);
