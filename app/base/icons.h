#pragma once

#include <QIcon>

class QObject;

/// The icon of a freedesktop name: that of the desktop's theme, if it has all that the program shows and this
/// one stands out from its windows, else the program's own, drawn in the colour of the text. Null without
/// either.
QIcon themeIcon(const QString &name);
/// The icon of an action, of the page that it opens or of a button, by its object name; null without one.
QIcon actionIcon(const QString &objectName);
/// Gives every action and button below an object the icon that it has.
void showIcons(QObject *parent);
/// The program's own, for its windows and the task bar.
QIcon programIcon();
