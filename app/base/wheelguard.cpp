#include "wheelguard.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QScrollBar>
#include <QTabBar>

namespace {
class WheelGuard : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};

/// Closed combo boxes stay as they are even with the focus: it comes back to them when their list closes.
bool followsWheel(const QWidget *widget)
{
    if (qobject_cast<const QComboBox *>(widget) != nullptr)
        return false;
    const bool isGuarded = qobject_cast<const QAbstractSpinBox *>(widget) != nullptr ||
                           qobject_cast<const QTabBar *>(widget) != nullptr ||
                           (qobject_cast<const QAbstractSlider *>(widget) != nullptr &&
                            qobject_cast<const QScrollBar *>(widget) == nullptr);
    return !isGuarded || widget->hasFocus();
}

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel && event->type() != QEvent::Polish)
        return false;
    auto *widget = qobject_cast<QWidget *>(watched);
    if (widget == nullptr)
        return false;
    if (event->type() == QEvent::Polish) {
        // The focus would come with the wheel, before the wheel itself.
        if (widget->focusPolicy() == Qt::WheelFocus)
            widget->setFocusPolicy(Qt::StrongFocus);
        return false;
    }
    if (followsWheel(widget))
        return false;
    event->ignore();
    return true;
}
} // namespace

void installWheelGuard(QApplication *application)
{
    application->installEventFilter(new WheelGuard(application));
}
