#pragma once

class QApplication;

/// From now on the wheel of the mouse changes nothing that somebody did not turn to: a spin box, date, slider
/// or tab bar follows it only with the focus, a combo box only in its open list, and nothing takes the focus
/// by being wheeled over. What ignores the wheel lets the area around it scroll.
void installWheelGuard(QApplication *application);
