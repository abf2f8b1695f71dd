#pragma once

#include <QElapsedTimer>
#include <QString>

class QKeyEvent;

/// Knows the keys of a scanner from those of a hand by their pace: the one place that says how fast a scanner
/// is. A code is a run of digits, each soon behind the one before, and the key that ends it.
class ScanPace
{
public:
    /// At most between two keys of a scanner.
    static constexpr int gapMs = 80;
    static constexpr int shortestCode = 8;

    /// End is what a scanner is set to send behind a code: Enter or Tab.
    enum Kind { Digit, End, Other };
    static Kind kindOf(const QKeyEvent &key);

    ScanPace() { m_clock.start(); }

    /// Counts a key. True when it came as soon behind the one before as a scanner's would.
    bool take(const QKeyEvent &key);
    /// The digits of the run that the last key goes on with, begins or ends.
    const QString &code() const { return m_code; }
    /// Whether nobody types so many digits so fast.
    bool isCode() const { return m_code.size() >= shortestCode; }
    void forget() { m_code.clear(); }

private:
    QElapsedTimer m_clock;
    qint64 m_last = -gapMs - 1;
    bool m_isEnded = false;
    QString m_code;
};

/// For who opens something by Enter: counts the key, and is true for an Enter that ends no scanned code.
bool isEnterOfHand(ScanPace *pace, const QKeyEvent &key);
