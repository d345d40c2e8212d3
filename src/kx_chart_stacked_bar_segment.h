#pragma once

#include "kx_export.h"
#include "kx_rectangle.h"

#include <string>

/** One piece of a stacked bar, which gives it its place. */
class KX_EXPORT KXChartStackedBarSegment : public KXRectangle {
public:
    KXChartStackedBarSegment();
    ~KXChartStackedBarSegment() override;

    double getValue() const { return m_value; }
    /** @param value counts without its sign; none for what is not finite */
    void setValue(double value);

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    double m_value = 0;
};
