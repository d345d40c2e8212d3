#pragma once

#include "kx_axis_tick_label_options.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_size.h"
#include "ux/ux_point.h"
#include "ux/ux_position.h"
#include "ux/ux_rect.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_lines.h"

#include <string>
#include <string_view>

/** @return by how much labels at a side of an axis are turned: those above and below it alone can be.
 *          Degrees, growing clockwise */
[[nodiscard]] double kxObtainTickLabelDegrees(UXPosition position, KXAxisTickLabelRotationType rotation);

/**
 * @param extent what a label takes beside its tick, in logical units
 * @param gap the room to keep beyond that
 * @param distance between two ticks
 * @return every how many ticks a label fits, at least 1
 */
[[nodiscard]] double kxObtainTickLabelInterval(double extent, double gap, double distance);

/** @return whether a label would say something else if it were cut: a number or a date, with one letter at
 *          most */
[[nodiscard]] bool kxIsNumberLabel(std::string_view text);

/** @return text in the narrowest two lines that break no word; as it is where it is a number or one word */
[[nodiscard]] std::string kxWrapTickLabel(const std::string& text, const UXTextWidthFunction& widthOf);

/** Where a text is drawn. */
struct KXAxisTickLabelPlace {
    UXDoublePoint center;
    UXDoubleSize size; /**< of the text before it is turned */
};

/** How the labels at one side of an axis stand to their ticks. Text sizes are given as measured, before the
 *  text is turned; places and ticks are in one space. */
class KXAxisTickLabelLayout {
public:
    /** @param rotation the resolved one; Auto counts as Horizontal */
    KXAxisTickLabelLayout(UXPosition position, KXAxisTickLabelRotationType rotation);

    double getDegrees() const { return m_degrees; }
    /** @return whether the labels stand side by side: above or below the axis */
    bool isAlongX() const;
    UXTextAlign obtainAlign() const;

    /** @return the size of the upright rectangle around the turned text */
    UXDoubleSize obtainTurnedSize(const UXDoubleSize& text) const;
    /** @return what the label takes across the axis */
    double obtainBandLength(const UXDoubleSize& text) const;
    /** @return how far apart the ticks of two such labels have to be for their texts not to meet */
    double obtainLengthAlong(const UXDoubleSize& text) const;

    /** @param direction 1 towards larger coordinates along the axis, -1 towards smaller ones
     *  @return how far the text reaches beyond its tick there where it cannot be shortened */
    double obtainReach(const UXDoubleSize& text, int direction) const;

    KXAxisTickLabelPlace obtainPlace(const UXDoubleSize& text, const UXPoint& tick) const;
    UXRect obtainRect(const KXAxisTickLabelPlace& place) const;
    /**
     * @param area what the labels may cover
     * @param movesInside whether a label at an end moves away from its tick rather than being cut
     * @return the width that the text may have, 0 for none
     */
    double obtainWidthLimit(const UXDoubleSize& text, const UXPoint& tick, const UXRect& area,
                            bool movesInside) const;
    /** @return the part of the area that is no further than length away from the tick, across the axis */
    UXRect obtainBand(const UXPoint& tick, const UXRect& area, double length) const;
    /** @return whether the area is high enough, across the direction of the text, for the text's height */
    bool hasRoomForHeight(double textHeight, const UXPoint& tick, const UXRect& area) const;

    /** @param tick any, whose y is where labels begin
     *  @return where along the axis the tick of a label through the point would be; otherwise the point */
    UXPoint obtainFoot(const UXPoint& point, double textHeight, const UXPoint& tick) const;

    /** @param gap to be kept between the end of one text and the beginning of the other */
    bool isOverlapping(const KXAxisTickLabelPlace& a, const KXAxisTickLabelPlace& b, double gap) const;
    bool holdsPoint(const KXAxisTickLabelPlace& place, const UXPoint& point) const;

private:
    double _obtainRoomAcross(const UXPoint& tick, const UXRect& area) const;
    UXDoublePoint _turnBack(double dx, double dy) const;

    UXPosition m_side; // Top, Bottom, Left or Right
    double m_degrees;
    double m_cos, m_sin;
};
