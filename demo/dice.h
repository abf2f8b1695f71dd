#pragma once

#include <QtGlobal>

namespace demo {
/// Numbers that look random and are the same on every machine for the same seed and stream.
class Dice
{
public:
    explicit Dice(quint64 seed, quint64 stream = 0) : m_state(seed * 0x9E3779B97F4A7C15ULL + stream)
    {
        next();
    }

    /// 0 to below - 1; below > 0.
    int below(int below) { return static_cast<int>((next() >> 33) % static_cast<quint64>(below)); }
    /// from to to, both included.
    int between(int from, int to) { return from + below(to - from + 1); }
    /// The same for sums and quantities, in whole multiples of a grain.
    qint64 amount(qint64 from, qint64 to, qint64 grain)
    {
        const qint64 steps = to / grain - from / grain + 1;
        return (from / grain + below(static_cast<int>(steps))) * grain;
    }
    /// True in so many of a hundred cases.
    bool percent(int chance) { return below(100) < chance; }

private:
    quint64 next()
    {
        quint64 z = (m_state += 0x9E3779B97F4A7C15ULL);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
        return z ^ (z >> 31);
    }

    quint64 m_state;
};
} // namespace demo
