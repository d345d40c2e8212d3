#pragma once

#include "kx_axis_chart_options.h"
#include "kx_export.h"
#include "ux/ux_color.h"
#include "ux/ux_object.h"

#include <string>
#include <vector>

class KXChartStackedBarSegment;

/** A bar of several values, one after the other: parts of the whole that the object is as long as. */
class KX_EXPORT KXStackedBar : public UXObject {
public:
    KXStackedBar();
    ~KXStackedBar() override;

    KXAxisChartOrientation getOrientation() const { return m_orientation; }
    /** @param orientation Vertical from the bottom up, Horizontal from the left on */
    void setOrientation(KXAxisChartOrientation orientation);
    double getTotal() const { return m_total; }
    /** @param total what the object's whole length is; 0 or below for the sum of the segments */
    void setTotal(double total);

    /** @return a new segment after the others, a child */
    KXChartStackedBarSegment* addSegment(double value, const UXColor& color);
    void clearSegments();
    /** @return in their order, the bar's own */
    const std::vector<KXChartStackedBarSegment*>& getSegments() const { return m_segments; }

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

protected:
    void customLayout() override;
    /** @return whether the first segment is the right one, or the upper one; by default not */
    virtual bool growsBackwards() const;

private:
    bool _readSegments();

    KXAxisChartOrientation m_orientation = KXAxisChartOrientation::Horizontal;
    double m_total = 0;
    std::vector<KXChartStackedBarSegment*> m_segments; // children
};
