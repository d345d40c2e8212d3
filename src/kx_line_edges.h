#pragma once

#include "kx_axis_chart_stacks.h"
#include "kx_export.h"
#include "kx_line_chart_options.h"
#include "kx_value_pyramid.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

/**
 * The heights at which lines and the bands below them run, one at each place, NaN for none. Places are the
 * categories in the order in which lines join them: by growing number on a continuous axis. Heights that are
 * the values themselves are lent; sums of stacks are made once and kept, as large as the values.
 */
class KX_EXPORT KXLineEdges {
public:
    using Heights = std::span<const double>;

    /** What an area fills between two edges. */
    struct Band {
        Heights lower; /**< empty: from zero */
        Heights upper;
    };

    KXLineEdges();
    ~KXLineEdges();

    /** Forgets everything; there are other data now. */
    void clear();
    /** Takes the lent values again, and makes what is not there yet. What is lent stays valid as long as the
     * chart's data do. */
    void take(const KXAxisChartStacks& source, KXLineNullHandling nulls);

    /** @return of how many series there are heights */
    std::size_t getCount() const { return m_lines.size(); }
    Heights getLine(std::size_t position) const { return m_lines[position]; }
    /** @return one band, or, stacked with values on both sides of zero, one on each side */
    const std::vector<Band>& getBands(std::size_t position) const { return m_bands[position]; }
    /** @return whether some series are drawn in part */
    bool hasParts() const { return m_form.hasParts; }
    /** @return what is drawn in full of a series: where that ends; empty where it is all of it */
    Heights getPartLine(std::size_t position) const { return m_partLines[position]; }
    /** @return the same of its bands */
    const std::vector<Band>& getPartBands(std::size_t position) const { return m_partBands[position]; }
    bool isStacked() const { return m_form.stacking != KXAxisChartStacking::Plain; }

    std::size_t getPlaceCount() const { return m_placeCount; }
    std::uint64_t obtainCategory(std::size_t place) const;
    /** @return where the places in sight lie on their axis, without values */
    const KXAxisChartStacks& getPlaces() const { return m_places; }
    /** @return the extremes of one of the edges */
    const KXValuePyramid& obtainPyramid(Heights heights);

private:
    struct Form {
        KXAxisChartStacking stacking = KXAxisChartStacking::Plain;
        bool hasZeros = false; // in place of nulls
        bool hasParts = false;
        std::size_t seriesCount = 0, placeCount = 0;

        friend bool operator==(const Form&, const Form&) = default;
    };

    void _makeLines(const KXAxisChartStacks& source);
    void _makeStacks(const KXAxisChartStacks& source);
    void _makeSums(const KXAxisChartStacks& source, const std::vector<bool>& hasNegatives);
    void _makeParts(const KXAxisChartStacks& source);
    double _obtainPartHeight(const KXAxisChartStacks& source, std::size_t position, const Band& band,
                             std::size_t place) const;
    Heights _keep(std::vector<double> heights);

    Form m_form;
    bool m_isMade = false;
    std::size_t m_placeCount = 0;
    std::vector<std::uint64_t> m_order; // the categories by their places; empty where these are the same
    KXAxisChartStacks m_places;
    std::vector<std::vector<double>> m_own; // heights that are no lent values
    std::vector<Heights> m_lines;
    std::vector<std::vector<Band>> m_bands;
    std::vector<std::vector<double>> m_partHeights;
    std::vector<Heights> m_partLines;
    std::vector<std::vector<Band>> m_partBands;
    std::map<const double*, KXValuePyramid> m_pyramids; // by the first of their heights
};
