#pragma once

#include "kx_export.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_object.h"

#include <array>
#include <string>
#include <vector>

class KXChartSlider;
class KXControlButton;
class KXControlChart;
class KXControlPart;
class KXTextLine;
class UXPainter;

/** The range of a filter control: its ends as texts that can be typed, how much lies where, and a slider
 * below. Where there is little room the slider stays. */
class KX_EXPORT KXControlChartRange : public UXObject {
public:
    /** @param chart whose range this is; destroys this */
    explicit KXControlChartRange(KXControlChart& chart);
    ~KXControlChartRange() override;

    // Parts: children
    KXChartSlider& getSlider() const { return *m_slider; }
    KXTextLine& getFromLine() const { return *m_fromLine; }
    KXTextLine& getToLine() const { return *m_toLine; }
    KXControlButton& getRelativeButton() const { return *m_relativeButton; }
    KXControlButton& getClearButton() const { return *m_clearButton; }

    // What the chart tells
    void dataChanged();
    void choiceChanged();
    void colorsChanged();
    /** Goes from part to part. @return false at an end */
    bool walkParts(bool forwards);

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

protected:
    void customLayout() override;

private:
    std::array<KXControlPart*, 5> _obtainParts() const;
    void _takeTyped(const UXEvent& event);
    int _layoutInputs();
    void _paintHistogram(UXPainter& painter) const;
    void _paintEnds(UXPainter& painter) const;

    KXControlChart& m_chart;
    KXTextLine* m_fromLine;
    KXTextLine* m_toLine;
    KXControlButton* m_relativeButton;
    KXControlButton* m_clearButton;
    KXChartSlider* m_slider;
    UXDoubleRect m_histogram, m_ends; // empty for none
    UXDoubleRect m_dash;              // between the lines
};
