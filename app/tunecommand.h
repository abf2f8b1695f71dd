#pragma once

#include <QStringList>

/// "--tune-database" on the command line: adds the indexes for quick reports to the database of the
/// settings or, when they stand, takes them away. It asks before; "--yes" is the answer given beforehand.
/// Ctrl+C stops the work.

bool isTuneCommand(const QStringList &arguments);
/// The program's exit code: 0 done, 1 failed or stopped, 2 not wanted. Needs an application object.
int runTuneCommand(const QString &directory, const QStringList &arguments);
