#pragma once

#include "kx_export.h"
#include "kx_kpi_chart_options.h"
#include "kx_value_change.h"
#include "ux/ux_json_object.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>

/** The numbers of one panel of a KPI chart, NaN for what there is not, and what follows from them. */
class KX_EXPORT KXChartKpiPanel : public UXJsonObject {
public:
    KXChartKpiPanel();
    /** @param group the index of the member that it shows */
    KXChartKpiPanel(std::uint64_t group, double actual, double comparison,
                    double lower = std::numeric_limits<double>::quiet_NaN(),
                    double upper = std::numeric_limits<double>::quiet_NaN());
    ~KXChartKpiPanel() override;

    std::uint64_t getGroup() const { return static_cast<std::uint64_t>(m_group); }
    double getActual() const { return m_actual; }
    double getComparison() const { return m_comparison; }
    double getLower() const { return m_lower; }
    double getUpper() const { return m_upper; }

    /** @return how far the actual value is from the comparison */
    KXValueChange obtainChange() const { return kxObtainValueChange(m_actual, m_comparison); }
    /** @return the actual value in percent of the comparison, NaN for a comparison of zero or none */
    double obtainRatio() const;
    /** @return the same where it tells progress: NaN for a comparison that is not above zero */
    double obtainProgress() const;
    /** @param thresholds percentages of the comparison from which on a value is fair and good, at most two;
     * where lower values are better they count from 100 on in the other direction
     *  @return None where nothing decides. The bounds decide where there are any: those between them are
     * fair. */
    KXKpiStatus obtainStatus(std::span<const double> thresholds, bool higherIsBetter) const;

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    /** From which values on it is fair, and good. */
    struct Limits {
        double fair, good;
    };

    std::optional<Limits> _obtainLimits(std::span<const double> thresholds, bool higherIsBetter) const;

    std::int64_t m_group = 0;
    double m_actual, m_comparison, m_lower, m_upper;
};
