#include "menurights.h"

#include "qloadeduser.h"

QMap<QString, bool> shownActions(const PageTable &pages, const MenuState &state)
{
    const QLoadedUser &user = *state.user;
    const bool isNobody = !user.isLoaded();
    const bool isAllowed = user.maySee(Permission::BackOffice);
    const bool isService =
        (isAllowed && user.maySee(Permission::Service)) || (isNobody && state.isServiceShown);
    QMap<QString, bool> shown;
    for (const PageEntry &entry : pages)
        shown.insert(QLatin1String(entry.action), isAllowed && entry.make && maySeePage(user, entry));
    shown.insert(QStringLiteral("changpass"), isAllowed);
    for (const char *action : {"about", "go_to", "key_list", "show_toolbar"})
        shown.insert(QLatin1String(action), isAllowed);
    shown.insert(QStringLiteral("mt_importBD"), isAllowed && user.maySee(Permission::PreviousImport));
    shown.insert(QStringLiteral("settings"), isService || isNobody || !state.isConnected);
    shown.insert(QStringLiteral("mt_create_tables"), isService && state.hasAddress);
    shown.insert(QStringLiteral("mt_tune"), isService && state.isConnected);
    shown.insert(QStringLiteral("reconnect"), !state.isConnected && !state.isStarting);
    shown.insert(QStringLiteral("login"), state.isConnected);
    return shown;
}
