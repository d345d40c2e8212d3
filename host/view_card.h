#pragma once

#include "ux/ux_color.h"
#include "ux/ux_object.h"

class KXChart;

/** The card that a chart stands on, with a ring around it while the keyboard is at it. */
class ViewCard : public UXObject {
public:
    /** @param chart its owner's; fills the card, and leaves it when one of them goes */
    explicit ViewCard(KXChart& chart);
    ~ViewCard() override;

    KXChart& getChart() const { return m_chart; }
    bool getShowRing() const { return m_showRing; }
    void setShowRing(bool showRing);
    void setColors(const UXColor& ground, const UXColor& border);

    // From UXObject
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    KXChart& m_chart;
    UXColor m_ground{255, 255, 255}, m_border{222, 225, 230};
    bool m_showRing = false;
};
