#include "kx_scatter_layout.h"

#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace {

/** Sizes that differ by less look the same, in logical units: points of one such size are drawn together. */
constexpr double diameterStep = 0.125;
/** Of values that are coloured by steps; the one after the last is for those without a value. */
constexpr int colorStepCount = 64;

double roundDiameter(double diameter) { return std::round(diameter / diameterStep) * diameterStep; }

std::uint8_t obtainColorStep(double value, const KXValueExtremes& colors)
{
    if (std::isnan(value))
        return colorStepCount;
    const double span = colors.max - colors.min;
    const double share = span > 0 && std::isfinite(span) ? (value - colors.min) / span : 0;
    return static_cast<std::uint8_t>(std::clamp(share * colorStepCount, 0.0, colorStepCount - 1.0));
}

/** What one point adds beside its place. */
struct Look {
    float diameter;
    bool isHollow;
};

Look obtainLook(const KXScatterForm& form, double size)
{
    return {static_cast<float>(roundDiameter(form.obtainDiameter(size))), !(size >= 0)};
}

/** Appends the points of a series that can be seen. */
class Collector {
public:
    Collector(const KXAxisChartPlotFrame& frame, const KXScatterForm& form, KXScatterLayout& layout)
        : m_frame(frame), m_form(form), m_layout(layout), m_area(frame.area)
    {
    }

    void add(const KXScatterSeries& own)
    {
        const std::size_t count = std::min(own.x.size(), own.y.size());
        m_layout.centres.reserve(m_layout.centres.size() + count);
        m_layout.categories.reserve(m_layout.categories.size() + count);
        for (std::size_t category = 0; category < count; ++category)
            _add(own, category);
    }

private:
    void _add(const KXScatterSeries& own, std::size_t category)
    {
        const double x = own.x[category], y = own.y[category];
        if (std::isnan(x) || std::isnan(y) || (m_frame.categories.isLogarithmic && !(x > 0)) ||
            (m_frame.values.isLogarithmic && !(y > 0)))
            return;
        const UXDoublePoint centre = m_frame.makePoint(m_frame.categories.obtainPosition(x),
                                                       m_frame.values.obtainPosition(y));
        const bool hasSizes = m_form.hasSizes;
        const double size = category < own.sizes.size() ? own.sizes[category]
                                                        : std::numeric_limits<double>::quiet_NaN();
        const Look look = hasSizes ? obtainLook(m_form, size) : Look{};
        const double reach = (hasSizes ? static_cast<double>(look.diameter) : m_form.usualDiameter) / 2;
        if (centre.x < m_area.x - reach || centre.x > m_area.x + m_area.width + reach ||
            centre.y < m_area.y - reach || centre.y > m_area.y + m_area.height + reach)
            return;
        m_layout.centres.push_back(centre);
        m_layout.categories.push_back(static_cast<std::uint32_t>(category));
        if (!hasSizes)
            return;
        m_layout.diameters.push_back(look.diameter);
        m_layout.areHollow.push_back(look.isHollow ? 1 : 0);
        m_layout.greatestDiameter = std::max(m_layout.greatestDiameter, 2 * reach);
    }

    const KXAxisChartPlotFrame& m_frame;
    const KXScatterForm& m_form;
    KXScatterLayout& m_layout;
    UXDoubleRect m_area;
};

template <class T>
void reorder(std::vector<T>& list, const std::vector<std::uint64_t>& keys)
{
    if (list.empty())
        return;
    std::vector<T> ordered(list.size());
    std::ranges::transform(keys, ordered.begin(),
                           [&](std::uint64_t key) { return list[static_cast<std::uint32_t>(key)]; });
    list = std::move(ordered);
}

/** The largest first, hollow ones after filled ones as large, then by colour, then as they are. */
void sortPoints(KXScatterLayout& layout)
{
    if (layout.diameters.empty() && layout.colorSteps.empty())
        return;
    std::vector<std::uint64_t> keys(layout.getCount());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const double below = layout.diameters.empty()
                                 ? 0
                                 : layout.greatestDiameter - static_cast<double>(layout.diameters[i]);
        const std::uint64_t step = layout.colorSteps.empty() ? 0 : layout.colorSteps[i];
        const auto size = static_cast<std::uint64_t>(below / diameterStep);
        keys[i] = size << 40 | (layout.isHollow(i) ? std::uint64_t{1} << 39 : 0) | step << 32 | i;
    }
    if (std::ranges::is_sorted(keys))
        return;
    std::ranges::sort(keys);
    reorder(layout.centres, keys);
    reorder(layout.series, keys);
    reorder(layout.categories, keys);
    reorder(layout.diameters, keys);
    reorder(layout.areHollow, keys);
    reorder(layout.colorSteps, keys);
}

} // namespace

double KXScatterForm::obtainDiameter(double size) const
{
    const double least = std::min(leastDiameter, greatestDiameter);
    if (!(size >= 0) || !(greatestSize > 0))
        return least;
    return std::clamp(greatestDiameter * std::sqrt(std::min(size / greatestSize, 1.0)), least,
                      std::max(greatestDiameter, least));
}

void KXScatterLayout::clear()
{
    centres.clear();
    series.clear();
    categories.clear();
    diameters.clear();
    areHollow.clear();
    colorSteps.clear();
    firstSeries = 0;
    usualDiameter = greatestDiameter = 0;
}

KXAxisChartMark KXScatterLayout::obtainMark(std::size_t point) const
{
    return {series.empty() ? firstSeries : series[point], categories[point]};
}

double KXScatterLayout::obtainDiameter(std::size_t point) const
{
    return diameters.empty() ? usualDiameter : static_cast<double>(diameters[point]);
}

double KXScatterLayout::obtainCrowding(const UXRect& area) const
{
    if (uxIsEmptyRect(area))
        return 0;
    double squares = diameters.empty() ? static_cast<double>(getCount()) * usualDiameter * usualDiameter : 0;
    for (const float diameter : diameters)
        squares += static_cast<double>(diameter) * static_cast<double>(diameter);
    return std::numbers::pi / 4 * squares / (1.0 * area.width * area.height);
}

double kxObtainScatterColorValue(std::uint8_t step, const KXValueExtremes& colors)
{
    if (step >= colorStepCount)
        return std::numeric_limits<double>::quiet_NaN();
    const double share = (step + 0.5) / colorStepCount;
    return colors.min * (1 - share) + colors.max * share;
}

void kxLayoutScatter(std::span<const KXScatterSeries> series, const KXAxisChartPlotFrame& frame,
                     const KXScatterForm& form, KXScatterLayout& layout)
{
    // 1. The points of each series in their order.
    layout.clear();
    layout.usualDiameter = layout.greatestDiameter = form.hasSizes ? 0 : form.usualDiameter;
    if (uxIsEmptyRect(frame.area))
        return;
    Collector collector(frame, form, layout);
    layout.firstSeries = series.empty() ? 0 : series.front().series;
    std::vector<std::size_t> ends; // of each series
    for (const KXScatterSeries& own : series) {
        collector.add(own);
        ends.push_back(layout.getCount());
    }

    // 2. Where there are several, each point says of which it is.
    for (std::size_t i = 0; series.size() > 1 && i < series.size(); ++i)
        layout.series.resize(ends[i], static_cast<std::uint32_t>(series[i].series));

    // 3. Many points have the colour of a step, so that those of one can be drawn together.
    if (!form.colors.isEmpty() && layout.getCount() > kxGreatestOwnColorCount) {
        layout.colorSteps.reserve(layout.getCount());
        for (std::size_t i = 0, end = 0; i < series.size(); ++i)
            for (end = ends[i]; layout.colorSteps.size() < end;) {
                const std::uint32_t category = layout.categories[layout.colorSteps.size()];
                layout.colorSteps.push_back(obtainColorStep(category < series[i].colors.size()
                                                                ? series[i].colors[category]
                                                                : std::numeric_limits<double>::quiet_NaN(),
                                                            form.colors));
            }
    }
    sortPoints(layout);
}
