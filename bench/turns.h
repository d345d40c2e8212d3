#pragma once

#include "frame_clock.h"

#include <vector>

/** Measures two works in turns, so that a busy machine slows both. */
class Turns {
public:
    /** @param count how often a work runs in its turn */
    explicit Turns(int count) : m_count(count) {}

    void take(const auto& first, const auto& second)
    {
        m_first.push_back(measure(first));
        m_second.push_back(measure(second));
    }

    /** @return the median CPU microseconds of one run */
    double getFirst() const { return frame_clock::median(m_first); }
    double getSecond() const { return frame_clock::median(m_second); }

private:
    double measure(const auto& work) const
    {
        const double before = frame_clock::cpu();
        for (int i = 0; i < m_count; ++i)
            work();
        return (frame_clock::cpu() - before) * 1e3 / m_count;
    }

    int m_count;
    std::vector<double> m_first, m_second;
};
