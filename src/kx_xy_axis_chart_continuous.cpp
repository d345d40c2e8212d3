#include "kx_xy_axis_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_pixel_columns.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_axis_scale.h"
#include "kx_axis_tick_label_view.h"
#include "kx_calendar_ticks.h"
#include "kx_calendar_time.h"
#include "kx_chart_data_format.h"
#include "kx_logarithmic_scale.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <ranges>

// The continuous X axis: which categories lie where on it, and its ticks.

namespace {

constexpr double hour = 3600, day = 86400;
/** Between the texts of two ticks, in logical units: along a line of text, and between two lines. */
constexpr double textGap = 10, lineGap = 3;
/** Ticks closer together than this are not tried. */
constexpr double leastTickPitch = 12;
/** Data by months have no ticks by days, but an axis that shows little has some. */
constexpr double leastTickCount = 4;
constexpr double greatestNumberTickCount = 1000;
constexpr double tickNoise = 1e-9;
/** A page of the keyboard's walk is one part of what is seen of so many. */
constexpr double pageDivider = 10;

bool isDate(KXChartDataType type)
{
    return type == KXChartDataType::Date || type == KXChartDataType::DateTime;
}

std::string padTwo(double number)
{
    const std::string digits = std::to_string(static_cast<long long>(number));
    return digits.size() < 2 ? '0' + digits : digits;
}

/** @return "13:05:07", on beyond a day */
std::string obtainTimeText(double seconds)
{
    const double whole = std::floor(std::clamp(std::abs(seconds), 0.0, 1e15));
    return (seconds < 0 ? "-" : "") + padTwo(std::floor(whole / hour)) + ':' +
           padTwo(std::fmod(std::floor(whole / 60), 60)) + ':' + padTwo(std::fmod(whole, 60));
}

} // namespace

/** @return whether user or host say how the members lie, who then are heard */
bool KXXYAxisChart::_decidesContinuous() const
{
    return m_x.property->getIsCustomizedIsContinuous() || m_x.property->getIsContinuous() ||
           getCategorySetting().firstFlag;
}

bool KXXYAxisChart::_mayBeContinuous() const
{
    if (getCategoryDataType() == KXChartDataType::String)
        return false;
    if (_decidesContinuous())
        return !m_x.property->getIsCustomizedIsContinuous() || m_x.property->getIsContinuous();
    const auto mayShow = [](const auto& view) { return view->canShowSeries(); };
    const auto prefersContinuous = [&](const auto& view) {
        return isDate(getCategoryDataType()) ? view->prefersContinuousDates()
                                             : view->prefersContinuousNumbers();
    };
    return std::ranges::any_of(getDataViews(), mayShow) &&
           std::ranges::all_of(getDataViews(),
                               [&](const auto& view) { return !mayShow(view) || prefersContinuous(view); });
}

/** Dates whose numbers do not tell them apart have none that anybody has given them. */
void KXXYAxisChart::_takePlaces(std::span<const double> numbers)
{
    m_places.take(numbers, getAxisChartProperty()->getIsXLogarithmic() && !m_x.cache.isTemporalDimension);
    const std::vector<double>& taken = m_places.getNumbers();
    if (!m_places.isEmpty() && !_decidesContinuous() && taken.front() == taken.back() &&
        (taken.size() > 1 || taken.front() == 0))
        m_places.clear();
}

/** @return the room of a category, in what the axis counts: the least distance of two; one that is alone has
 * a day, an hour or a whole number */
double KXXYAxisChart::_obtainCategoryDistance() const
{
    const std::vector<double>& numbers = m_places.getNumbers();
    if (numbers.size() > 1 && numbers.front() < numbers.back())
        return m_places.getLeastDistance();
    if (!m_x.cache.isTemporalDimension)
        return 1;
    return getCategoryDataType() == KXChartDataType::Date ? day : hour;
}

std::span<const double> KXXYAxisChart::obtainPlottedValues(std::uint64_t series) const
{
    const std::vector<double>& values = getSeriesValues(series);
    if (!isLogarithmic(*_obtainValueAxis(series).property))
        return values;
    const auto [found, isNew] = m_positiveValues.try_emplace(series);
    const auto isBeside = [](double value) { return value <= 0; };
    if (isNew && std::ranges::any_of(values, isBeside)) {
        found->second = values;
        std::ranges::replace_if(found->second, isBeside, std::numeric_limits<double>::quiet_NaN());
    }
    return found->second.empty() ? std::span(values) : std::span<const double>(found->second);
}

/** @param categoryNumbers where marks lie that have no number of their own along the X axis; may be empty
 *  @return how many marks have no place on a logarithmic axis; series that no view shows have no marks */
std::uint64_t KXXYAxisChart::_countLeftOut(std::span<const double> categoryNumbers) const
{
    std::uint64_t count = 0;
    for (const std::uint64_t series : getShownSeries()) {
        const bool isLogarithmicAlong = isLogarithmic(*_obtainValueAxis(series).property);
        const KXAxisChartDataView* view = obtainViewOfSeries(series);
        if (!view || (!isLogarithmicAlong && !m_x.cache.isLogarithmic))
            continue;
        const std::span<const double> y = getSeriesValues(series);
        std::span<const double> x = view->obtainNumbers(series);
        if (x.empty())
            x = categoryNumbers;
        const std::size_t shown = std::min<std::size_t>(y.size(), obtainShownCategoryCount());
        for (std::size_t i = 0; i < shown; ++i) {
            const bool isLeftOut = (isLogarithmicAlong && y[i] <= 0) ||
                                   (m_x.cache.isLogarithmic && i < x.size() && x[i] <= 0);
            count += isLeftOut && y[i] == y[i] ? 1 : 0;
        }
    }
    return count;
}

/** @return the range of what a view shows of the visible part, none without a value there */
std::optional<KXAxisChartValueRange> KXXYAxisChart::_obtainShownValueRange(
    const KXAxisChartDataView& view) const
{
    if (m_places.isEmpty() || view.getShownSeries().empty())
        return std::nullopt;
    const KXVisibleRange shown = _obtainShownRange(m_x);
    const bool isLogarithmic = m_x.cache.isLogarithmic;
    const auto [first, end] = m_places.findInside(isLogarithmic ? std::pow(10.0, shown.from) : shown.from,
                                                  isLogarithmic ? std::pow(10.0, shown.to) : shown.to);
    const KXAxisChartStacks stacks = view._makeStacks();
    KXValueExtremes values, sums;
    std::vector<KXAxisChartStackSegment> pieces;
    for (std::uint64_t place = first; place < end; ++place) {
        stacks.obtainPieces(stacks.obtainCategory(place), pieces);
        for (const KXAxisChartStackSegment& piece : pieces) {
            values.take({piece.value, piece.value});
            sums.take({std::min(piece.from, piece.to), std::max(piece.from, piece.to)});
        }
    }
    if (values.isEmpty())
        return std::nullopt;
    return KXAxisChartValueRange{values.min, values.max, std::min(sums.min, 0.0), std::max(sums.max, 0.0)};
}

std::optional<std::uint64_t> KXXYAxisChart::_obtainCategoryBeside(std::uint64_t category, bool forwards) const
{
    if (m_places.isEmpty())
        return KXAxisChart::_obtainCategoryBeside(category, forwards);
    const std::uint64_t place = m_places.obtainPlace(category);
    if (place == KXCategoryPlaces::none || (forwards ? place + 1 >= m_places.getCount() : place == 0))
        return std::nullopt;
    return m_places.obtainCategory(forwards ? place + 1 : place - 1);
}

std::optional<std::uint64_t> KXXYAxisChart::_obtainCategoryBeyond(std::uint64_t category, bool forwards,
                                                                  bool isPage) const
{
    // 1. Mostly it is the next one.
    const std::optional<std::uint64_t> beside = _obtainCategoryBeside(category, forwards);
    const KXAxisChartPlotFrame frame = obtainPlotFrame(false);
    const KXAxisChartPixelColumns columns(frame);
    const auto [first, end] = _findVisibleCategories();
    if (!beside || uxIsEmptyRect(frame.area) || (!isPage && end - first <= columns.getCount()))
        return beside;

    // 2. Places that follow each other never go back.
    const auto obtainPosition = [&](std::uint64_t place) {
        return frame.categories.obtainPosition(obtainCategoryValue(m_places.obtainCategory(place)));
    };
    const std::uint64_t from = m_places.isEmpty() ? category : m_places.obtainPlace(category);
    const std::uint64_t count = m_places.isEmpty() ? obtainShownCategoryCount() : m_places.getCount();
    const double position = obtainPosition(from), page = frame.obtainAcross().obtainLength() / pageDivider;
    const std::int64_t column = columns.findColumnAt(position);
    const auto isBeyond = [&](std::uint64_t place) {
        const double other = obtainPosition(place);
        return isPage ? std::abs(other - position) >= page : columns.findColumnAt(other) != column;
    };
    const auto places = forwards ? std::views::iota(from + 1, count)
                                 : std::views::iota(std::uint64_t{0}, from);
    const auto found = std::ranges::partition_point(
        places, [&](std::uint64_t place) { return isBeyond(place) != forwards; });
    if (forwards ? found != places.end() : found != places.begin())
        return m_places.obtainCategory(forwards ? *found : *std::ranges::prev(found));
    if (!isPage)
        return std::nullopt;
    return m_places.obtainCategory(forwards ? count - 1 : 0);
}

void KXXYAxisChart::_customUpdateTicks()
{
    m_knowsAxisLengths = true;
    if (std::ranges::any_of(getDataViews(), [](const auto& view) { return view->obtainReach() > 0; })) {
        _setCategoryScale();
        for (KXAxisChartAxis* axis : {&m_y, &m_secondaryY})
            _setValueScale(*axis);
    }
    if (!m_isContinuous || !m_x.isUsed)
        return;
    const KXVisibleRange shown{m_x.axis->getMinValue(), m_x.axis->getMaxValue()};
    if (m_x.cache.isTemporalDimension && !m_numberRange)
        _updateCalendarTicks(shown);
    else
        _updateNumberTicks(m_x, shown);
}

void KXXYAxisChart::_setTicks(KXAxisChartAxis& axis, std::vector<double> ticks)
{
    if (axis.cache.ownTicks == ticks)
        return;
    axis.cache.ownTicks = std::move(ticks);
    axis.ticksChanged = !axis.labels->getVisible();
    if (axis.labels->getVisible())
        axis.labels->reloadData();
}

/** @return what the user's own pattern makes of a tick */
std::string KXXYAxisChart::_obtainCustomTickText(double value) const
{
    const KXChartDataType type = getCategoryDataType();
    const std::string text = type == KXChartDataType::Time
                                 ? obtainTimeText(value)
                                 : kxObtainCalendarText(kxObtainCalendarTime(value));
    return m_x.dataFormat->formatDateTime(text, type, KXChartAggregateType{});
}

void KXXYAxisChart::_updateCalendarTicks(const KXVisibleRange& shown)
{
    // 1. How large the texts are, and where they stand.
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const UXTextProperty property = m_x.property->getTickLabelProperty();
    const bool lies = m_x.isHorizontal();
    const double spacing = m_x.axis->obtainCurrentValueSpacing(), gap = lies ? textGap : lineGap;
    const bool isCustom = m_x.dataFormat->getDateTimeMode() == KXChartDataFormatDateTimeMode::Custom;
    const auto obtainText = [&](const KXCalendarTicks& ticks, std::size_t i) {
        return isCustom ? _obtainCustomTickText(ticks.values[i]) : ticks.texts[i];
    };
    const auto fits = [&](const KXCalendarTicks& ticks) {
        double end = -std::numeric_limits<double>::infinity();
        for (std::size_t i = 0; i < ticks.values.size(); ++i) {
            const UXDoubleSize size = helper->getTextSize(obtainText(ticks, i), property);
            const double place = (ticks.values[i] - shown.from) * spacing;
            const double half = (lies ? size.width : size.height) / 2;
            if (place - half < end + gap)
                return false;
            end = place + half;
        }
        return true;
    };

    // 2. The finest ticks that fit, but none that are closer together than what they tell.
    const double length = shown.obtainLength();
    double least = std::min(m_places.getLeastDistance(), length / leastTickCount);
    if (getCategoryDataType() == KXChartDataType::Date)
        least = std::max(least, day);
    const auto limit = static_cast<std::size_t>(
        std::clamp(length * spacing / leastTickPitch, 2.0, greatestNumberTickCount));
    const KXCalendarTicks ticks = kxChooseCalendarTicks(getCategoryDataType(), shown.from, shown.to,
                                                        least * (1 - tickNoise), limit, fits);

    // 3. Without any there are none at even intervals either.
    std::vector<std::string> texts;
    texts.reserve(ticks.values.size());
    for (std::size_t i = 0; i < ticks.values.size(); ++i)
        texts.push_back(obtainText(ticks, i));
    m_x.cache.tickInterval = ticks.values.empty() ? 0 : ticks.step.obtainSeconds();
    m_x.labels->setTickInterval(m_x.cache.tickInterval);
    if (texts != m_tickTexts)
        m_x.cache.ownTicks.clear();
    m_tickTexts = std::move(texts);
    _setTicks(m_x, ticks.values);
}

void KXXYAxisChart::_updateNumberTicks(KXAxisChartAxis& axis, const KXVisibleRange& shown)
{
    const KXAxisProperty& property = *axis.property;
    const int wanted = property.getAxisPossibleTickCount();
    if (axis.cache.isLogarithmic) {
        _setTicks(axis, kxObtainLogarithmicTicks(shown.from, shown.to, wanted));
        return;
    }
    const double length = shown.obtainLength(), custom = property.getCustomAxisTickInterval();
    double interval = kxCalculateSuitableRange(length / std::max(wanted - 1, 1), true);
    if (!property.getAutoAxisTicks() && custom > 0 && length / custom < greatestNumberTickCount)
        interval = custom;
    else if (axis.cache.isSmallRange) // between whole numbers there is nothing
        interval = std::max(interval, 1.0);
    // Far from zero neighbouring numbers may be further apart than ticks: those are counted, not the numbers.
    const double first = std::ceil(shown.from / interval - tickNoise);
    const double count = std::min(std::floor(shown.to / interval + tickNoise) - first,
                                  greatestNumberTickCount - 1);
    std::vector<double> ticks;
    for (double i = 0; interval > 0 && i <= count; ++i)
        if (const double tick = (first + i) * interval + 0.0; ticks.empty() || tick > ticks.back())
            ticks.push_back(tick);
    axis.cache.tickInterval = ticks.empty() ? 0 : interval;
    axis.labels->setTickInterval(axis.cache.tickInterval);
    _setTicks(axis, std::move(ticks));
}
