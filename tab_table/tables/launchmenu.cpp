#include "launchmenu.h"

#include "servererror.h"

#include <QCoreApplication>
#include <QMenu>

namespace {
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(LaunchMenu)
};

/// Of a path of this or of another system.
QString fileName(const QString &path)
{
    const int slash = qMax(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
    return path.mid(slash + 1);
}

QAction *addCommand(QMenu *menu, const NamedCommand &offered,
                    const std::function<void(const LaunchCommand &)> &start)
{
    QString caption = offered.name;
    QAction *action = menu->addAction(caption.replace(QLatin1Char('&'), QLatin1String("&&")));
    action->setToolTip(commandLine(offered.command, addressPlace));
    QObject::connect(action, &QAction::triggered, menu,
                     [start, command = offered.command] { start(command); });
    return action;
}
} // namespace

std::optional<NamedCommands> readComands(const Db &db)
{
    auto rows = db.runExpecting(ServerError::NoSuchTable,
                                QStringLiteral("SELECT name,comand,param FROM comands ORDER BY name,id"));
    if (!rows && db.lastErrorNumber() != ServerError::NoSuchTable)
        return std::nullopt;
    NamedCommands commands;
    while (rows && rows->next()) {
        const LaunchCommand command{toText(rows->value(1)), toText(rows->value(2))};
        const QString name = toText(rows->value(0));
        if (!command.path.isEmpty())
            commands.append({name.isEmpty() ? fileName(command.path) : name, command});
    }
    return commands;
}

std::optional<NamedCommand> commandNamed(const NamedCommands &commands, const QString &name)
{
    const QString wanted = name.trimmed();
    for (const NamedCommand &command : commands) {
        if (!wanted.isEmpty() && command.name.trimmed().compare(wanted, Qt::CaseInsensitive) == 0)
            return command;
    }
    return std::nullopt;
}

NamedCommand settingsCommand(const LaunchCommand &command)
{
    return {Texts::tr("Програма з налаштувань: %1").arg(fileName(command.path)), command};
}

QMenu *makeLaunchMenu(QWidget *parent, const NamedCommand &own, const NamedCommands &others,
                      const std::function<void(const LaunchCommand &)> &start)
{
    auto *menu = new QMenu(parent);
    menu->setObjectName(QStringLiteral("menuLaunch"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setToolTipsVisible(true);
    if (!own.command.path.isEmpty()) {
        menu->setDefaultAction(addCommand(menu, own, start));
        menu->addSeparator();
    }
    for (const NamedCommand &other : others)
        addCommand(menu, other, start);
    return menu;
}
