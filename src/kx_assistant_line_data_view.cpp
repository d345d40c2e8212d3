#include "kx_assistant_line_data_view.h"

#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_axis_scale.h"
#include "kx_calendar_time.h"
#include "kx_chart_data_format.h"
#include "kx_chart_value_operation.h"
#include "kx_line_edges.h"
#include "kx_xy_axis_chart.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_symbol_style.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double noValue = std::numeric_limits<double>::quiet_NaN();
/** The member at which a line stands is looked for among so many. */
constexpr std::uint64_t greatestCategorySearch = 10'000;

bool isFixed(const KXAssistantLineProperty& line)
{
    return line.obtainOperation() == KXChartValueOperation::FixedValue;
}

} // namespace

/** The values that a line tells something of, and where each lies on the X axis. */
struct KXAssistantLineDataView::Data {
    std::vector<double> values, x;
    std::vector<double> byPlaces; // one value a place: that of the series, the sum of a stack, or the mean
};

KXAssistantLineDataView::~KXAssistantLineDataView() = default;

bool KXAssistantLineDataView::canShowSeries() const { return false; }
std::optional<KXAxisChartValueRange> KXAssistantLineDataView::obtainValueRange() const
{
    return std::nullopt;
}
void KXAssistantLineDataView::updateLook() {}

UXSymbolStyle KXAssistantLineDataView::obtainSymbolStyle(const KXAssistantLineProperty& line)
{
    switch (line.getLineStyle()) {
    case KXChartLineStyle::Dash:
        return UXSymbolStyle::AssistantLineWithDash;
    case KXChartLineStyle::Dot:
        return UXSymbolStyle::AssistantLineWithDot;
    case KXChartLineStyle::None:
        break;
    }
    return UXSymbolStyle::AssistantLine;
}

KXAssistantLineDataView::Data KXAssistantLineDataView::_collectData(const KXAssistantLineProperty& line) const
{
    // 1. The series that count: all of the axis, or the one that is named.
    const KXXYAxisChart& chart = *getChart();
    std::vector<std::span<const double>> lists,
        numbers; // numbers are empty where marks lie at their categories
    bool isStacked = false;
    for (const std::uint64_t series : chart.getShownSeries()) {
        const KXAxisChartDataView* view = chart.obtainViewOfSeries(series);
        const bool isNamed = line.getSeriesID().empty()
                                 ? chart.isSeriesOnSecondaryAxis(series) == line.getIsOnSecondaryAxis()
                                 : chart.getSeriesID(series) == line.getSeriesID();
        if (!isNamed || !view)
            continue;
        lists.push_back(chart.obtainPlottedValues(series));
        numbers.push_back(view->obtainNumbers(series));
        isStacked = isStacked || view->obtainStacking() == KXAxisChartStacking::Stacked;
    }
    isStacked = isStacked && line.getSeriesID().empty();

    // 2. Place by place; the categories of a stack count by their sums.
    Data data;
    const KXCategoryPlaces& places = chart.getCategoryPlaces();
    const std::uint64_t count = places.isEmpty() ? chart.obtainShownCategoryCount() : places.getCount();
    const auto add = [&data](double x, double value) {
        data.x.push_back(x);
        data.values.push_back(value);
    };
    for (std::uint64_t place = 0; place < count; ++place) {
        const std::uint64_t category = places.obtainCategory(place);
        const double x = places.isEmpty() ? static_cast<double>(place) : places.getNumbers()[place];
        double sum = 0, number = 0;
        for (std::size_t i = 0; i < lists.size(); ++i) {
            const std::span<const double> values = lists[i];
            const double own = category < numbers[i].size() ? numbers[i][category] : x;
            if (category >= values.size() || std::isnan(values[category]) || std::isnan(own))
                continue;
            sum += values[category];
            ++number;
            if (!isStacked && !line.getIsOnXAxis())
                add(own, values[category]);
            else if (line.getIsOnXAxis() && !numbers[i].empty())
                add(own, own);
        }
        sum = std::clamp(sum, std::numeric_limits<double>::lowest(), (std::numeric_limits<double>::max)());
        if (isStacked && number > 0 && !line.getIsOnXAxis())
            add(x, sum);
        if (line.getIsOnXAxis() && !chart.hasOwnNumbers())
            add(x, x);
        data.byPlaces.push_back(number == 0 ? noValue : isStacked ? sum : sum / number);
    }
    return data;
}

bool KXAssistantLineDataView::_standsAtMember(const KXAssistantLineProperty& line) const
{
    return line.getIsOnXAxis() && !line.getCategory().empty() && isFixed(line) && !getChart()->isContinuous();
}

/** Looks for the member at which the line stands. Texts that the host has not told yet are asked for when the
 * layout has ended, and the lines are laid out anew when they have arrived. */
void KXAssistantLineDataView::_updateMember(Line& line) const
{
    KXXYAxisChart& chart = *getChart();
    const std::string& wanted = line.property.getCategory();
    const std::uint64_t count = std::min(chart.obtainShownCategoryCount(), greatestCategorySearch);
    for (std::uint64_t category = 0; category < count; ++category) {
        if (chart.obtainCategoryText(category) != wanted)
            continue;
        line.value = static_cast<double>(category);
        return;
    }
    line.value = noValue;
}

/** Percentages of a whole have no values of their own on their axis. */
bool KXAssistantLineDataView::_isDrawn(const Line& line) const
{
    const KXAssistantLineProperty& property = line.property;
    const KXAxisProperty& axis = property.getIsOnSecondaryAxis() ? *getChart()->getSecondaryYAxisProperty()
                                                                 : *getChart()->getYAxisProperty();
    const bool areFixed = isFixed(property) &&
                          (!property.getIsBand() ||
                           property.obtainToOperation() == KXChartValueOperation::FixedValue);
    return areFixed || property.getIsOnXAxis() || !getChart()->isPercentageAxis(axis);
}

std::string KXAssistantLineDataView::_obtainValueText(const KXAssistantLineProperty& line, double value) const
{
    KXXYAxisChart& chart = *getChart();
    if (std::isnan(value))
        return {};
    if (!line.getIsOnXAxis()) {
        const KXAxisProperty& axis = line.getIsOnSecondaryAxis() ? *chart.getSecondaryYAxisProperty()
                                                                 : *chart.getYAxisProperty();
        const KXChartDataFormat& format = line.getIsOnSecondaryAxis() ? *chart.getSecondaryYDataFormat()
                                                                      : *chart.getYDataFormat();
        return chart.isPercentageAxis(axis) ? kxFormatPercentage(value) : format.formatNumber(value);
    }
    const KXChartDataType type = chart.getCategoryDataType();
    if (!chart.isContinuous()) {
        const bool isMember = value >= 0 && value < static_cast<double>(chart.obtainShownCategoryCount());
        return isMember ? chart.obtainCategoryLabel(static_cast<std::uint64_t>(value)) : std::string();
    }
    if (!chart.hasOwnNumbers() && (type == KXChartDataType::Date || type == KXChartDataType::DateTime))
        return chart.getXDataFormat()->formatDateTime(kxObtainCalendarText(kxObtainCalendarTime(value)), type,
                                                      KXChartAggregateType{});
    return chart.getXDataFormat()->formatNumber(value);
}

/** Says what a line tells, as the formats write it now. */
void KXAssistantLineDataView::_updateText(Line& line) const
{
    const double told = !line.means.empty() ? line.means.back()
                        : line.trend        ? line.trend->obtainValue(line.lastX)
                                            : line.value;
    line.valueText = _obtainValueText(line.property, told);
    const std::string other = _obtainValueText(line.property, line.toValue);
    line.valueText += (line.valueText.empty() || other.empty() ? "" : " \u2013 ") + other;
}

void KXAssistantLineDataView::_updateLine(Line& line) const
{
    const KXAssistantLineProperty& property = line.property;
    const KXChartValueOperation operation = property.obtainOperation();
    const Data data = _collectData(property);
    line.value = kxObtainOperationValue(operation, property.getValue(), data.values);
    line.toValue = property.getIsBand() ? kxObtainOperationValue(property.obtainToOperation(),
                                                                 property.getToValue(), data.values)
                                        : noValue;
    if (property.getIsOnXAxis())
        return;
    if (operation == KXChartValueOperation::MovingAverage && !std::isnan(property.getValue())) {
        const double count = std::clamp(property.getValue(), 1.0, 1e9);
        line.means = kxObtainMovingAverage(data.byPlaces, static_cast<std::size_t>(count));
        line.edges = std::make_shared<KXLineEdges>();
    } else if (operation == KXChartValueOperation::Trend && !data.x.empty()) {
        line.trend = kxFitTrendLine(data.x, data.values, property.getConfidence());
        const auto [first, last] = std::ranges::minmax_element(data.x);
        line.firstX = *first;
        line.lastX = *last;
    }
}

std::array<bool, 2> KXAssistantLineDataView::_obtainStackedAxes() const
{
    return {getChart()->getYAxisProperty()->getIsStacked(),
            getChart()->getSecondaryYAxisProperty()->getIsStacked()};
}

void KXAssistantLineDataView::updateLines()
{
    m_lines.clear();
    m_labels.clear();
    m_areStacked = _obtainStackedAxes();
    const std::vector<KXAssistantLineProperty> all = getChart()->getAxisChartProperty()->getAssistantLines();
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (all[i].getIsInFront() != m_isInFront)
            continue;
        Line& line = m_lines.emplace_back();
        line.property = all[i];
        line.index = i;
        _updateLine(line);
    }
}

void KXAssistantLineDataView::fillHint(UXHintInfo& info, const Line& line) const
{
    info.title = line.property.obtainCaption();
    info.addRow(line.property.getColor(), obtainSymbolStyle(line.property), "", line.valueText).showSymbol =
        true;
}

void KXAssistantLineDataView::customSerialize()
{
    KXAxisChartDataView::customSerialize();
    serializeBool("m_isInFront", m_isInFront);
}

std::string KXAssistantLineDataView::customSerializeTypeID() { return "KXAssistantLineDataView"; }

bool KXAssistantLineDataView::customDeserialize()
{
    const bool complete = KXAxisChartDataView::customDeserialize();
    return deserializeBool("m_isInFront", m_isInFront) && complete;
}
