#pragma once

#include "kx_export.h"
#include "ux/ux_json_object.h"

#include <cstdint>
#include <string>

/** One slice of a pie: what it stands for and which part of the circle it has. */
class KX_EXPORT KXPieSegmentInfo : public UXJsonObject {
public:
    KXPieSegmentInfo();
    /** @param percentage of the pie's whole, rounded as it is shown
     *  @param startDegrees the painter's, where the slice begins going clockwise */
    KXPieSegmentInfo(std::uint64_t group, double value, double percentage, double startDegrees,
                     double sweepDegrees);
    ~KXPieSegmentInfo() override;

    std::uint64_t getGroup() const { return static_cast<std::uint64_t>(m_group); }
    double getValue() const { return m_value; }
    double getPercentage() const { return m_percentage; }
    double getStartDegrees() const { return m_startDegrees; }
    double getSweepDegrees() const { return m_sweepDegrees; }
    double obtainMiddleDegrees() const { return m_startDegrees + m_sweepDegrees / 2; }

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    std::int64_t m_group = 0;
    double m_value = 0;
    double m_percentage = 0;
    double m_startDegrees = 0;
    double m_sweepDegrees = 0;
};
