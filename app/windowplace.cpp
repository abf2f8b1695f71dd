#include "windowplace.h"

#include "userstate.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace {
const QLatin1String geometryKey("geometry");

void fitOntoScreen(QWidget *window)
{
    const QScreen *screen = QGuiApplication::screenAt(window->geometry().center());
    const QRect free = (screen == nullptr ? QGuiApplication::primaryScreen() : screen)->availableGeometry();
    QSize frame = window->frameGeometry().size() - window->size();
    // Before it is shown, a window has no frame yet.
    if (frame.isNull())
        frame.setHeight(window->style()->pixelMetric(QStyle::PM_TitleBarHeight));
    const QSize fitting = window->size().boundedTo(free.size() - frame);
    const QPoint corner(
        qBound(free.left(), window->x(), free.right() + 1 - fitting.width() - frame.width()),
        qBound(free.top(), window->y(), free.bottom() + 1 - fitting.height() - frame.height()));
    if (fitting != window->size())
        window->resize(fitting);
    if (corner != window->pos())
        window->move(corner);
}
} // namespace

void restorePlace(QWidget *window, const QString &idUser)
{
    const QVariant remembered = rememberedState(idUser, geometryKey);
    if (remembered.isValid())
        window->restoreGeometry(remembered.toByteArray());
    if (!window->isMaximized() && !window->isFullScreen())
        fitOntoScreen(window);
}

void rememberPlace(const QWidget *window, const QString &idUser)
{
    rememberState(QString(), geometryKey, window->saveGeometry());
    if (!idUser.isEmpty())
        rememberState(idUser, geometryKey, window->saveGeometry());
}
