#include "kx_line_edges.h"

#include "kx_highlighted_parts.h"

#include <algorithm>
#include <cmath>
#include <utility>

KXLineEdges::KXLineEdges() = default;
KXLineEdges::~KXLineEdges() = default;

void KXLineEdges::clear() { *this = KXLineEdges(); }

void KXLineEdges::take(const KXAxisChartStacks& source, KXLineNullHandling nulls)
{
    std::size_t placeCount = 0;
    for (const KXAxisChartStacks::Series& series : source.series)
        placeCount = std::max(placeCount, series.values.size());
    if (!source.categoryNumbers.empty())
        placeCount = std::min(placeCount, source.categoryNumbers.size());
    const bool hasParts = std::ranges::any_of(
        source.series, [](const KXAxisChartStacks::Series& series) { return !series.parts.empty(); });
    const Form form{source.form, nulls == KXLineNullHandling::Zero, hasParts, source.series.size(),
                    placeCount};
    const bool isNew = !m_isMade || form != m_form;
    if (isNew) {
        clear();
        m_isMade = true;
        m_form = form;
        m_placeCount = placeCount;
        m_order.assign(source.categories.begin(), source.categories.end());
        if (isStacked())
            _makeStacks(source);
        else
            _makeLines(source);
    }
    // What is lent may have moved.
    if (!isStacked() && m_own.empty())
        for (std::size_t i = 0; i < source.series.size(); ++i) {
            m_lines[i] = source.series[i].values.first(std::min(placeCount, source.series[i].values.size()));
            m_bands[i] = {{{}, m_lines[i]}};
        }
    if (isNew && hasParts)
        _makeParts(source);
    m_places.categoryNumbers = source.categoryNumbers;
    m_places.first = std::min<std::uint64_t>(source.first, placeCount);
    m_places.end = std::min<std::uint64_t>(source.end, placeCount);
}

KXLineEdges::Heights KXLineEdges::_keep(std::vector<double> heights)
{
    return m_own.emplace_back(std::move(heights));
}

void KXLineEdges::_makeLines(const KXAxisChartStacks& source)
{
    m_lines.resize(source.series.size());
    m_bands.resize(source.series.size());
    if (m_order.empty() && !m_form.hasZeros)
        return;
    for (std::size_t position = 0; position < m_lines.size(); ++position) {
        std::vector<double> heights(m_placeCount);
        for (std::size_t place = 0; place < m_placeCount; ++place) {
            const double value = source.obtainValue(position, obtainCategory(place));
            heights[place] = std::isnan(value) && m_form.hasZeros ? 0 : value;
        }
        m_lines[position] = _keep(std::move(heights));
        m_bands[position] = {{{}, m_lines[position]}};
    }
}

/** Each series has its upper edge above zero and, where it has negative values, its lower one below. Of a
 * series with both the line changes from one to the other. */
void KXLineEdges::_makeStacks(const KXAxisChartStacks& source)
{
    std::vector<bool> hasNegatives;
    hasNegatives.reserve(source.series.size());
    for (const KXAxisChartStacks::Series& series : source.series)
        hasNegatives.push_back(source.form == KXAxisChartStacking::Stacked &&
                               std::ranges::any_of(series.values, [](double value) { return value < 0; }));
    _makeSums(source, hasNegatives);
    Heights above, below;
    std::size_t own = 0;
    for (const bool isBelow : hasNegatives) {
        const Heights upper = m_own[own++];
        m_bands.push_back({{above, upper}});
        above = upper;
        m_lines.push_back(upper);
        if (!isBelow)
            continue;
        const Heights lower = m_own[own++];
        m_bands.back().push_back({below, lower});
        below = lower;
        m_lines.back() = m_own[own++];
    }
}

/** Keeps the sums above zero of each series, and of one with negative values also those below and its line.
 */
void KXLineEdges::_makeSums(const KXAxisChartStacks& source, const std::vector<bool>& hasNegatives)
{
    std::vector<std::size_t> firstOwn;
    firstOwn.reserve(hasNegatives.size());
    for (const bool isBelow : hasNegatives) {
        firstOwn.push_back(m_own.size());
        for (int i = 0; i < (isBelow ? 3 : 1); ++i)
            _keep(std::vector<double>(m_placeCount));
    }
    std::vector<KXAxisChartStackSegment> pieces;
    for (std::size_t place = 0; place < m_placeCount; ++place) {
        source.obtainPieces(obtainCategory(place), pieces);
        double above = 0, below = 0;
        auto piece = pieces.begin();
        for (std::size_t position = 0; position < firstOwn.size(); ++position) {
            bool isBelow = false;
            if (piece != pieces.end() && piece->position == position) {
                isBelow = hasNegatives[position] && piece->value < 0;
                (isBelow ? below : above) = piece->to;
                ++piece;
            }
            const std::size_t own = firstOwn[position];
            m_own[own][place] = above;
            if (!hasNegatives[position])
                continue;
            m_own[own + 1][place] = below;
            m_own[own + 2][place] = isBelow ? below : above;
        }
    }
}

/** Where a series is divided into what is drawn in full, from where it begins on, and the rest. */
void KXLineEdges::_makeParts(const KXAxisChartStacks& source)
{
    m_partLines.resize(m_lines.size());
    m_partBands.resize(m_lines.size());
    for (std::size_t position = 0; position < m_lines.size(); ++position) {
        if (source.series[position].parts.empty())
            continue;
        for (const Band& band : m_bands[position]) {
            std::vector<double> heights(m_lines[position].size());
            for (std::size_t place = 0; place < heights.size(); ++place)
                heights[place] = _obtainPartHeight(source, position, band, place);
            m_partBands[position].push_back({band.lower, m_partHeights.emplace_back(std::move(heights))});
        }
        // The line is that of the side on which the value lies.
        std::vector<double> line(m_lines[position].size());
        for (std::size_t place = 0; place < line.size(); ++place) {
            const bool isBelow = source.obtainValue(position, obtainCategory(place)) < 0;
            const std::vector<Band>& parts = m_partBands[position];
            line[place] = (isBelow ? parts.back() : parts.front()).upper[place];
        }
        m_partLines[position] = m_partHeights.emplace_back(std::move(line));
    }
}

double KXLineEdges::_obtainPartHeight(const KXAxisChartStacks& source, std::size_t position, const Band& band,
                                      std::size_t place) const
{
    const std::uint64_t category = obtainCategory(place);
    const std::span<const double> parts = source.series[position].parts;
    const double share = KXHighlightedParts::obtainShare(category < parts.size() ? parts[category] : 0,
                                                         source.obtainValue(position, category));
    const double lower = place < band.lower.size() ? band.lower[place] : 0;
    return lower + share * (band.upper[place] - lower);
}

std::uint64_t KXLineEdges::obtainCategory(std::size_t place) const
{
    return place < m_order.size() ? m_order[place] : place;
}

const KXValuePyramid& KXLineEdges::obtainPyramid(Heights heights)
{
    return m_pyramids.try_emplace(heights.data(), heights).first->second;
}
