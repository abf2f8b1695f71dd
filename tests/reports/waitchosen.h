#pragma once

#include "reportwindow.h"

#include <QTest>

/// Waits until the boxes of a report have been read and hold what was chosen.
inline void waitChosen(const ReportWindow *report)
{
    if (!QTest::qWaitFor([report] { return !report->isChoosing(); }))
        qFatal("The boxes of %s have not been read", report->metaObject()->className());
}
