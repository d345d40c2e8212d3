#pragma once

#include <cmath>

/** A sum that is compensated (Neumaier) and known after each value, so that neither cancelled magnitudes nor
 * the order of the values show in it. */
class KXRunningSum {
public:
    void add(double value)
    {
        const double next = m_sum + value;
        m_lost += std::abs(m_sum) >= std::abs(value) ? (m_sum - next) + value : (value - next) + m_sum;
        m_sum = next;
    }
    double obtainSum() const { return m_sum + m_lost; }

private:
    double m_sum = 0, m_lost = 0;
};
