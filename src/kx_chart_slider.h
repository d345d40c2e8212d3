#pragma once

#include "kx_chart_data_action.h"
#include "kx_control_chart_options.h"
#include "kx_control_part.h"
#include "kx_export.h"

#include <functional>
#include <limits>
#include <string>
#include <vector>

/**
 * A track with one or two thumbs: one value, a limit, or both limits of a range, both of which lie inside. An
 * end that stands at the track's end is open: it holds what lies beyond as well.
 *
 * The pointer drags the nearest thumb. Arrows move the thumb that has the keys by a step, the page keys by
 * ten, Home and End as far as it goes; Tab goes from thumb to thumb.
 */
class KX_EXPORT KXChartSlider : public KXControlPart, public KXChartDataAction {
public:
    KXChartSlider();
    ~KXChartSlider() override;

    KXChartSliderType getType() const { return m_type; }
    void setType(KXChartSliderType type);
    double getLowest() const { return m_lowest; }
    double getGreatest() const { return m_greatest; }
    /** @param lowest, greatest the ends of the track; not finite, or the wrong way round: it has no thumbs */
    void setBounds(double lowest, double greatest);
    /** @return the lower limit, NaN for an open one; of a single value the value */
    double getFrom() const { return m_from; }
    /** @return the upper limit, NaN for an open one; of a single value the value */
    double getTo() const { return m_to; }
    /** Tells nobody. @param from, to NaN: open */
    void setRange(double from, double to);
    /** @param step what an arrow adds, and what a thumb that is dragged stands at whole numbers of, from 0
     * on; 0: a hundredth of the track, and a thumb stands anywhere */
    void setStep(double step);
    /** @param writer writes a value for those who do not see the track; without one it is a plain number */
    void setValueWriter(std::function<std::string(double)> writer);
    /** @param snap the place that a thumb takes in place of one that it is brought to, and which of the two
     * directions it comes from (-1, 0 for a drag, 1); empty for the steps' */
    void setSnap(std::function<double(double value, int direction)> snap);
    /** @param handler called whenever the user moves a thumb, with the event that did it and isFinal off
     * while it is dragged; may destroy this */
    void setChangedHandler(std::function<void(bool isFinal, const UXEvent& event)> handler);

    /** @return the thumbs of the type, none without a track */
    std::vector<KXChartSliderThumbType> obtainThumbs() const;
    /** @return the thumb's place in the own space */
    UXDoubleRect obtainThumbRect(KXChartSliderThumbType thumb) const;
    /** @return where a value stands across, in the own space */
    double obtainPlace(double value) const;
    /** @return the value at a place, within the track */
    double obtainValue(double place) const;
    /** How far the track is away from the left and right edge, so that thumbs have room there. */
    static constexpr int trackInset = 9;

    // From KXControlPart
    void describe(UXAccessibleInfo& info) const override;

    // From UXJsonObject, UXObject and KXChartDataAction
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    /** @return null: a slider shows no item; who uses one registers a path */
    KXChartDataPath* createDataPath() override;

protected:
    void _paintPart(UXPainter& painter) const override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;
    bool customMouseUp(const UXEvent& event, bool& stop) override;

private:
    bool _hasTrack() const { return m_greatest > m_lowest; }
    double _obtainThumbValue(KXChartSliderThumbType thumb) const;
    double _obtainLimit(KXChartSliderThumbType thumb, bool upper) const;
    KXChartSliderThumbType _obtainNearestThumb(double place) const;
    double _snap(double value, int direction) const;
    void _moveThumb(double value, int direction, bool isFinal, const UXEvent& event);
    bool _goToOtherThumb(bool forwards);
    void _paintTrack(UXPainter& painter) const;
    void _paintThumb(UXPainter& painter, KXChartSliderThumbType thumb) const;

    KXChartSliderType m_type = KXChartSliderType::Range;
    KXChartSliderThumbType m_active = KXChartSliderThumbType::Lower;
    double m_lowest = 0, m_greatest = 100;
    double m_from = std::numeric_limits<double>::quiet_NaN(), m_to = std::numeric_limits<double>::quiet_NaN();
    double m_step = 0;
    double m_grip = 0; // where the pointer holds the thumb, from its middle
    bool m_isDragged = false;
    std::function<double(double, int)> m_snap;
    std::function<std::string(double)> m_valueWriter;
    std::function<void(bool, const UXEvent&)> m_changedHandler;
};
