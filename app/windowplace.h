#pragma once

class QString;
class QWidget;

/// Where a window of that user, or with an empty id of whoever was here last, stood when it was closed; back
/// on a screen, should that one be gone or smaller now.
void restorePlace(QWidget *window, const QString &idUser);
void rememberPlace(const QWidget *window, const QString &idUser);
