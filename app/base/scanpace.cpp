#include "scanpace.h"

#include "ean13.h"

#include <QKeyEvent>
#include <utility>

ScanPace::Kind ScanPace::kindOf(const QKeyEvent &key)
{
    if (key.text().size() == 1 && isAllDigits(key.text()) && !key.isAutoRepeat())
        return Digit;
    const bool isEnd = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter || key.key() == Qt::Key_Tab;
    return isEnd ? End : Other;
}

bool ScanPace::take(const QKeyEvent &key)
{
    // The system's time of the key holds even when the window was busy and the keys come all at once.
    const qint64 time = key.timestamp() != 0 ? static_cast<qint64>(key.timestamp()) : m_clock.elapsed();
    const bool isNext = time - std::exchange(m_last, time) <= gapMs;
    const Kind kind = kindOf(key);
    if (!isNext || kind == Other || m_isEnded)
        m_code.clear();
    m_isEnded = kind == End;
    if (kind == Digit)
        m_code += key.text();
    return isNext;
}

bool isEnterOfHand(ScanPace *pace, const QKeyEvent &key)
{
    pace->take(key);
    const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    return isEnter && !pace->isCode();
}
