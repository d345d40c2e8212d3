#pragma once

#include "kx_chart_data_user.h"

#include <array>
#include <cstddef>
#include <limits>

/** Pulls the value of a gauge and what it is compared with. */
class KX_EXPORT KXGaugeChartDataUser : public KXChartDataUser {
public:
    /** Stands for a number that the host does not give. */
    static constexpr double noValue = std::numeric_limits<double>::lowest();

    explicit KXGaugeChartDataUser(KXChart* chart);
    ~KXGaugeChartDataUser() override;

    // What was pulled, noValue until then
    double getValueData() const { return m_value; }
    double getTargetData() const { return m_target; }
    double getMinData() const { return m_min; }
    double getMaxData() const { return m_max; }

    // From KXChartDataUser
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void customReloadData() override;
    void resetData() override;

private:
    double m_value = noValue;
    double m_target = noValue;
    double m_min = noValue;
    double m_max = noValue;
};
