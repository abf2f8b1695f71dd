#pragma once

class QColor;

/// How much two colours stand out from each other: 1 not at all, 21 as black from white.
double contrast(const QColor &one, const QColor &other);
/// Black or white, whichever stands out more on the background.
QColor readableOn(const QColor &background);
