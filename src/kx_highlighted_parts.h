#pragma once

#include "kx_export.h"
#include "kx_index_path.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

class KXChartDataProvider;
class KXChartDataUser;
class UXPainter;
struct UXColor;
struct UXDoubleRect;

/**
 * Which part of each of some values belongs to what is chosen elsewhere. What every kind makes of it is
 * decided here: a mark draws the part's share of it in full over the whole in light, and hints tell both
 * numbers.
 */
class KX_EXPORT KXHighlightedParts {
public:
    /** Nothing is chosen. */
    KXHighlightedParts();
    /** @param parts one a value. One that is null, or goes the other way than its value, is 0, and one beyond
     * its value all of it. */
    KXHighlightedParts(std::vector<double> parts, std::span<const double> values);

    /** Asks for the parts of values, the first of which stands at a path and whose others follow along one of
     * its indexes. The provider may destroy the user. */
    static KXHighlightedParts pull(KXChartDataProvider& provider, KXChartDataUser* user,
                                   const KXIndexPath& first, std::size_t along,
                                   std::span<const double> values);

    /** @return whether something is chosen */
    bool areTold() const { return !m_parts.empty(); }
    /** @return one a value, between 0 and it, NaN where there is no value; empty where nothing is chosen */
    const std::vector<double>& getAll() const { return m_parts; }
    /** @return NaN where there is no value, and where nothing is chosen */
    double obtainPart(std::size_t index) const;

    /** @return part as it can be drawn in value: between 0 and it; NaN where there is no value */
    static double clampPart(double part, double value);
    /** @return what is drawn in full of a mark, from 0 to 1; all of it where no part is told */
    static double obtainShare(double part, double value);
    /** @return the colour of the whole below the part
     *  @param opacity the share of its opacity that keeps what gives way */
    static UXColor obtainLightColor(const UXColor& color, double opacity);
    /** @return what a text in the middle of a mark is read on */
    static UXColor obtainTextGround(const UXColor& color, double share, double opacity);
    /** @return what a hint tells of a value: the part's text and the whole's */
    static std::string tellPart(const std::string& part, const std::string& whole);
    /** Draws a line of which the share is in full, where a value is a text.
     * @param color of the text
     * @param opacity as above */
    static void paintLine(UXPainter& painter, const UXDoubleRect& rect, double share, const UXColor& color,
                          double opacity);
    /** How high that line is, in logical units, and how far from its text. */
    static constexpr double lineHeight = 3, lineGap = 2;

private:
    std::vector<double> m_parts;
};
