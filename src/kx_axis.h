#pragma once

#include "kx_axis_chart_base_layer.h"
#include "kx_export.h"
#include "ux/ux_double_point.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>

class KXAxisDelegate;

/**
 * The live scale of one axis: it maps values to places along a line that may be longer than its rectangle and
 * is then scrolled.
 *
 * Places are in the space of the axis's rectangle, its parent's; lengths and spacings are in logical units. A
 * horizontal axis runs along the bottom of the rectangle, a vertical one along its left side. A reversed
 * axis, bottom to top or right to left, has its minimum at its start too: at the bottom, at the right. Its
 * content is laid from its end, so that an offset of 0 shows the maximum, as a scroll view shows the top.
 *
 * The scale is worked out by the first query after a change. Degenerate input is no error: every value of an
 * axis without extent lies at its start, and no place or length is ever infinite or no number. A query calls
 * the delegate when lengths changed; where that destroys the axis, it answers zeros.
 */
class KX_EXPORT KXAxis : public KXAxisChartBaseLayer {
public:
    KXAxis();
    ~KXAxis() override;

    // Properties. Doubles that differ by less than 1e-8 are the same; NaN is not stored and infinities are
    // stored as the largest numbers. What changes marks the scale stale and asks for a new layout.
    KXAxisDelegate* getDelegate() const { return m_delegate; }
    /** @param delegate stays its owner's, who takes it back with null before it goes; null for none */
    void setDelegate(KXAxisDelegate* delegate);
    void setRect(UXRect rect) override;
    /** @param x 1 left to right, -1 right to left, 0 not along x
     *  @param y 1 bottom to top, -1 top to bottom, 0 not along y; both count by their sign */
    void setVectorNotation(int x, int y);
    /** Turns x to left to right; y stays. */
    void setVectorNotationRight();
    int getVectorNotationX() const { return m_xVectorNotation; }
    int getVectorNotationY() const { return m_yVectorNotation; }
    double getMaxValue() const { return m_maxValue; }
    void setMaxValue(double value);
    double getMinValue() const { return m_minValue; }
    void setMinValue(double value);
    double getValueSpacing() const { return m_valueSpacing; }
    /** @param spacing of one value unit; above 0 in place of the one that fills the rectangle */
    void setValueSpacing(double spacing);
    double getMinValueSpacing() const { return m_minValueSpacing; }
    void setMinValueSpacing(double spacing);
    double getValueScale() const { return m_valueScale; }
    /** @param scale value units in one spacing */
    void setValueScale(double scale);
    std::int64_t getOffset() const { return m_offset; }
    /** @param offset how far the content is scrolled along the axis, in logical units */
    void setOffset(std::int64_t offset);
    bool getShiftHalfValueSpacing() const { return m_shiftHalfValueSpacing; }
    /** Moves all places half a spacing towards the minimum, so that whole values stand in the middle of
     * slots: 1 in the first one above a minimum of 0. */
    void setShiftHalfValueSpacing(bool shift);
    /** @return 0 for a key without a length */
    double getExtraLength(const std::string& key) const;
    /** Keeps room in the content beside the values, for what key names. Lengths below 0 are 0. */
    void setExtraLength(const std::string& key, double length);
    void clearExtraLengths();
    /** @return the room within the axis between the values below zero and those above */
    double getGap() const { return m_gap; }
    /** Keeps such a room; zero lies in its middle. It is an extra length. */
    void setGap(double length);
    /** @return whether a reversed axis has the extra room at its end, beyond the maximum */
    bool getApplyExtralengthToTheEnd() const { return m_applyExtralengthToTheEnd; }
    void setApplyExtralengthToTheEnd(bool apply);
    bool getShowAxis() const { return m_showAxis; }
    void setShowAxis(bool show);

    // Steps
    /** Brings the scale up to date and tells the delegate where other values became visible. */
    void update();
    /** Works the scale out anew. */
    void reloadData();
    /** Works the scale out if it is stale. A maximum below the minimum is raised to it. */
    void updateCache();

    // Queries
    /** @return whether values run against the coordinates of the screen */
    bool isReversed() const { return m_xVectorNotation < 1 && m_yVectorNotation >= 0; }
    double obtainTotalExtraLength() const;
    /** @return the spacing of one value unit with that much extra length, at the present rectangle */
    double obtainValueSpacing(double extraLength) const;
    double obtainCurrentValueSpacing();
    /** @return the visible length */
    double obtainAxisLength();
    /** @return the length of the whole content, extra lengths included */
    double obtainTotalLength();
    /** @return the ends of the axis line at the minimum's side and at the maximum's */
    std::pair<UXPoint, UXPoint> obtainStartEndPoints();
    double obtainShiftHalfValueSpacingOffset();
    /** @return offset with the shift of half a spacing */
    double obtainActualOffset(std::int64_t offset);
    UXDoublePoint obtainDoubleValuePositionInAxis(double value);
    UXDoublePoint obtainDoubleValuePositionInAxis(double value, std::int64_t offset);
    /** @return the place rounded half away from zero */
    UXPoint obtainValuePositionInAxis(double value);
    UXPoint obtainValuePositionInAxis(double value, std::int64_t offset);
    /** @return the values at both ends of the visible part, which may lie beyond minimum and maximum */
    std::pair<double, double> obtainCurrentFirstLastValues();
    /** @return whether there are values to place, and room for them */
    bool isValidAxis();
    bool isScrollable();

    // From UXObject and UXJsonObject
    /** Draws the axis line in the colour of the object, one unit thick. */
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

protected:
    void customLayout() override;

private:
    bool _deserializeExtraLengths();
    void _markStale();
    void _updateValue(double& member, double value);
    bool _updateCache();
    void _updateContentLine();
    double _obtainSpan() const;
    UXDoublePoint _obtainContentPoint(double value) const;
    double _obtainShift() const;
    UXRect _obtainLineRect() const;

    KXAxisDelegate* m_delegate = nullptr; /**< the chart's */
    int m_xVectorNotation = 0;
    int m_yVectorNotation = 0;
    double m_maxValue = 0;
    double m_minValue = 0;
    double m_valueSpacing = -1.0;
    double m_minValueSpacing = -1.0;
    double m_valueScale = 1.0;
    std::int64_t m_offset = 0;
    bool m_shiftHalfValueSpacing = false;
    std::map<std::string, double> m_extraLengths;
    bool m_applyExtralengthToTheEnd = true;
    double m_gap = 0; // not saved: it follows from what a chart puts there
    bool m_showAxis = true;

    // The scale as it was worked out last
    bool m_needsUpdate = true;
    bool m_updating = false;
    double m_currentValueSpacing = -1.0;
    double m_currentExtraLength = 0;
    UXPoint m_startPoint, m_endPoint;
    UXDoublePoint m_contentStart, m_contentEnd;
    double m_axisLength = 0;
    double m_totalLength = 0;

    // What the delegate was not yet told of
    bool m_offsetChanged = false;
    double m_notifiedValueSpacing = -1.0;
};
