#pragma once

#include <QStringList>

/// "--tune-database" on the command line tells whether the database of the settings has the indexes for quick
/// reports. With "--add" it adds them, with "--remove" it takes them away; run again, either changes nothing.
/// It asks before; "--yes" is the answer given beforehand. Ctrl+C stops the work.

bool isTuneCommand(const QStringList &arguments);
/// The program's exit code: 0 done or so already, 1 failed or stopped, 2 not wanted, 3 an unknown argument.
/// Needs an application object.
int runTuneCommand(const QString &directory, const QStringList &arguments);
