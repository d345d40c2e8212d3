#include "kx_axis_chart_pixel_columns.h"

#include <algorithm>
#include <cmath>

namespace {

/** What a place is off its exact one by computing it. */
constexpr double noise = 1e-9;
/** No screen has more columns. */
constexpr double greatestColumnCount = 65536;

/** Where places never go back, all categories between two with the same columns have these too: the end is
 * found in leaps that double, then halve.
 * @param isInside whether a category has the columns of the first one
 * @param guess how many categories more there may be */
template <class IsInside>
std::uint64_t findRunEnd(std::uint64_t first, std::uint64_t guess, const IsInside& isInside)
{
    std::uint64_t last = first, leap = 1;
    if (isInside(last + guess))
        last += guess;
    for (; isInside(last + leap); leap *= 2)
        last += leap;
    for (; leap > 0; leap /= 2)
        if (isInside(last + leap))
            last += leap;
    return last + 1;
}

} // namespace

KXAxisChartPixelColumns::KXAxisChartPixelColumns(const KXAxisChartPlotFrame& frame) : m_frame(frame)
{
    const KXAxisChartInterval across = frame.obtainAcross();
    m_firstPixel = std::floor(frame.toPixel(across.start) + noise);
    const double count = std::ceil(frame.toPixel(across.end) - noise) - m_firstPixel;
    m_count = static_cast<std::size_t>(std::clamp(count, 0.0, greatestColumnCount));
}

KXAxisChartInterval KXAxisChartPixelColumns::obtainAcross(std::size_t first, std::size_t end) const
{
    return {m_frame.fromPixel(m_firstPixel + static_cast<double>(first)),
            m_frame.fromPixel(m_firstPixel + static_cast<double>(end))};
}

std::int64_t KXAxisChartPixelColumns::findColumnAt(double across) const
{
    return findColumn(m_frame.toPixel(across) - m_firstPixel);
}

/** Places of pixels are far inside 64 bits, and std::floor is a call where the processor may be an old one.
 */
std::int64_t KXAxisChartPixelColumns::findColumn(double place)
{
    const auto whole = static_cast<std::int64_t>(place + noise);
    return static_cast<double>(whole) > place + noise ? whole - 1 : whole;
}

std::vector<KXAxisChartPixelRun> KXAxisChartPixelColumns::findRuns(const KXAxisChartStacks& values,
                                                                   const ColumnsOf& columnsOf) const
{
    const auto find = [&](std::uint64_t category) {
        const double place = m_frame.categories.obtainPosition(values.obtainCategoryValue(category));
        return columnsOf(m_frame.toPixel(place) - m_firstPixel);
    };
    std::vector<KXAxisChartPixelRun> runs;
    std::uint64_t guess = 0;
    for (std::uint64_t category = values.first; category < values.end;) {
        const auto columns = find(category);
        const auto isInside = [&](std::uint64_t other) {
            return other < values.end && find(other) == columns;
        };
        const std::uint64_t end = findRunEnd(category, guess, isInside);
        if (columns.second > 0 && columns.first < static_cast<std::int64_t>(m_count))
            runs.push_back({category, end, columns.first, columns.second});
        // The next one is about as long.
        guess = std::max<std::uint64_t>(end - category, 2) - 2;
        category = end;
    }
    return runs;
}
