#pragma once

#include "page.h"

#include <QMap>

/// What the menus follow, whatever page is in front.
struct MenuState
{
    const QLoadedUser *user;
    bool isConnected = false;
    bool isStarting = false;
    /// The settings name a server.
    bool hasAddress = false;
    /// Nobody is logged in, and the service actions were asked for.
    bool isServiceShown = false;
};

/// Whether each action shows that depends on the user and on the connection, by its name. The commands for
/// the page in front are asked of that page.
QMap<QString, bool> shownActions(const PageTable &pages, const MenuState &state);
