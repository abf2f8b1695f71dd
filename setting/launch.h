#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QObject;
class QWidget;

/// An outside program that is started against the address of a shop or a register.
struct LaunchCommand
{
    /// The program file.
    QString path;
    /// Its parameters; "[{IP}]" stands for the address.
    QString param;
};

/// Stands for the address in a command.
inline const QLatin1String addressPlace("[{IP}]");
/// Of the dialogs that choose a program.
inline const QLatin1String programFilter("*.* (*.*)");

/// Starts the command detached and tells whether it runs. Nothing happens for an empty path. Where the
/// command holds "[{IP}]", the address must be four numbers from 0 to 255 with points between, and
/// replaces it. What stands in the way is shown over parent and posted to receiver for the log.
bool launchProgram(QWidget *parent, QObject *receiver, const LaunchCommand &command, const QString &address);

/// The line that is started: the path in quotes, a blank and the parameters as they stand, with the address
/// in the place of each "[{IP}]".
QString commandLine(const LaunchCommand &command, const QString &address);

/// The address with its numbers written without leading zeros, which some programs read as octal; empty
/// for anything but four numbers from 0 to 255.
QString dottedAddress(const QString &text);

/// Asks for a program file; empty when cancelled. Beside the filter all files are offered, and shown at
/// first: it hides names without a point.
QString chooseProgram(QWidget *parent, const QString &title, const QString &filter, const QString &path);

/// How a program is started: detached, answering whether it could be. Tests replace it.
using ProgramStarter = std::function<bool(const QString &program, const QStringList &arguments)>;
void setProgramStarter(const ProgramStarter &starter);
