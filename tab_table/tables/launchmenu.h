#pragma once

#include "db.h"
#include "launch.h"

#include <QVector>
#include <functional>
#include <optional>

class QMenu;
class QWidget;

/// A launch command under the name that people know it by.
struct NamedCommand
{
    QString name;
    LaunchCommand command;
};
using NamedCommands = QVector<NamedCommand>;

/// The list of launch commands by name, without those that start nothing. Empty in a database that has no
/// such list, nothing after a reported failure.
std::optional<NamedCommands> readComands(const Db &db);
/// The first one of that name, capitals and blanks around it aside; nothing for an empty name.
std::optional<NamedCommand> commandNamed(const NamedCommands &commands, const QString &name);
/// The program of the settings file, named by its file.
NamedCommand settingsCommand(const LaunchCommand &command);

/// The menu that offers `own` first, if there is one, and below it the others. Whoever calls shows it; it
/// deletes itself when it closes. start gets what was chosen.
QMenu *makeLaunchMenu(QWidget *parent, const NamedCommand &own, const NamedCommands &others,
                      const std::function<void(const LaunchCommand &)> &start);
