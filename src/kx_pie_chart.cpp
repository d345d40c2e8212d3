#include "kx_pie_chart.h"

#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_object_id_types.h"
#include "kx_key_definitions.h"
#include "kx_others.h"
#include "kx_percentages.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <numeric>
#include <utility>

KX_DEFINE_CHART_KEY_TABLE(KXPieChart, KXMemberPanelChart, KX_PIE_CHART_KEYS)

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
constexpr double greatest = (std::numeric_limits<double>::max)();
/** Of the radius: how far a chosen slice is pulled out. */
constexpr double chosenShare = 0.06;

} // namespace

KXPieChart::KXPieChart() = default;
KXPieChart::~KXPieChart() { _leaveView(); }

UXTextProperty KXPieChart::_makeTextProperty(int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.textColor = color;
    return property;
}

std::string KXPieChart::customSerializeTypeID() { return "KXPieChart"; }
std::string KXPieChart::_obtainItemKind() const { return "Slice"; }
UXHintInfo KXPieChart::_obtainHintLook() const { return m_hintInfo; }

std::vector<UXColor> KXPieChart::_obtainUsualColors() const
{
    return m_seriesColors.empty() ? getDefaultColors() : m_seriesColors;
}

KXObjectID KXPieChart::_obtainGroupObjectID(std::uint64_t group) const
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(KXPieChartObjectIDPath::Slice)).index(group);
}

std::vector<KXObjectID> KXPieChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    return {_obtainGroupObjectID(item.group)
                .path(kxCreateObjectIDPath(KXPieChartObjectIDPath::Pie))
                .index(item.index)};
}

void KXPieChart::customReloadData()
{
    const UXObjectWatcher self(this);
    KXMemberPanelChart::customReloadData();
    std::array<std::string, 5> words{"Not shown", "negative", "zero", "without a value", "pies without room"};
    for (std::string& word : words) {
        if (!self.isAlive())
            return;
        word = uxLocalizeString(word);
    }
    if (self.isAlive())
        m_noteWords = std::move(words);
}

void KXPieChart::resetData()
{
    KXMemberPanelChart::resetData();
    m_pies.clear();
    m_sliceLabels.clear();
    m_leaders.clear();
}

/** Slices have one order and one set of others in all pies, by their sums. */
KXListedGroups KXPieChart::_listGroups()
{
    // 1. What has no part of any whole counts nowhere.
    const std::uint64_t count = obtainGroupCount();
    std::vector<double> sums(count, noNumber);
    for (std::uint64_t group = 0; group < count; ++group)
        for (std::uint64_t index = 0; index < obtainIndexCount(); ++index)
            if (const double value = obtainItemValue({0, group, index}); value > 0)
                sums[group] = std::min(std::isnan(sums[group]) ? value : sums[group] + value, greatest);

    // 2. The first ones of what is shown, in the order in which it is shown.
    std::vector<std::uint64_t> members(count);
    std::iota(members.begin(), members.end(), std::uint64_t{0});
    if (m_sort != KXPieSliceOrder::None)
        std::ranges::stable_sort(members, [&](std::uint64_t a, std::uint64_t b) {
            if (std::isnan(sums[a]) || std::isnan(sums[b]))
                return !std::isnan(sums[a]) && std::isnan(sums[b]);
            return m_sort == KXPieSliceOrder::Descending ? sums[a] > sums[b] : sums[a] < sums[b];
        });
    members.resize(std::min(count, _obtainGreatestGroupCount()));
    if (m_sliceStyle == KXPieChartSliceStyle::Default || !obtainMeasuresAddUp())
        return {std::move(members), {}, count};

    // 3. Of these, the small ones together.
    const UXObjectWatcher self(this);
    KXOthersRule rule;
    if (m_sliceStyle == KXPieChartSliceStyle::NumOfSliceDisplay)
        rule.greatestCount = static_cast<std::uint64_t>(std::max<std::int64_t>(m_sliceCount, 0));
    else
        rule.leastShare = m_groupBelowPercent / 100;
    rule.hostOthers = _findHostOthers(members);
    if (!self.isAlive())
        return {};
    std::vector<double> values;
    for (const std::uint64_t member : members)
        values.push_back(sums[member]);
    KXOthers others = kxGatherOthers(values, rule);
    for (std::vector<std::uint64_t>* list : {&others.kept, &others.gathered})
        std::ranges::transform(*list, list->begin(), [&](std::uint64_t i) { return members[i]; });
    std::ranges::sort(others.gathered);
    return {std::move(others.kept), std::move(others.gathered), count};
}

/** @return the place of the one member that the host made up; several fill gaps, and gather nothing */
std::optional<std::uint64_t> KXPieChart::_findHostOthers(const std::vector<std::uint64_t>& members)
{
    std::optional<std::uint64_t> found;
    const KXChartDataProviderUse use(*this);
    for (std::uint64_t i = 0; i < members.size() && getDimensionCount() > 0 && use.isCurrent(); ++i) {
        if (!use.get()->obtainDimensionDataIsGenerated(this, {_obtainGroupDimension(), members[i]}))
            continue;
        if (found)
            return std::nullopt;
        found = i;
    }
    return found;
}

std::string KXPieChart::obtainPercentageText(const KXChartItem& item) const
{
    const KXPieSegmentInfo* segment = item.index < m_pies.size() ? m_pies[item.index].findSegment(item.group)
                                                                 : nullptr;
    return segment
               ? kxFormatPartOfWhole(segment->getPercentage(), segment->getValue(), KXPie::percentageDecimals)
               : std::string();
}

KXChartDataProviderHintData KXPieChart::_describeItem(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    KXChartDataProviderHintData data = KXMemberPanelChart::_describeItem(item);
    if (!self.isAlive())
        return data;
    const std::string percentage = obtainPercentageText(item);
    if (!percentage.empty())
        data.value += " (" + percentage + ")";
    return data;
}

UXDoublePoint KXPieChart::_obtainChosenShift(const KXPanelItem& item) const
{
    const KXSector* sector = item.shape.obtainSector();
    if (!sector || sector->sweepDegrees >= 360)
        return {};
    const double turn = (sector->startDegrees + sector->sweepDegrees / 2) * std::numbers::pi / 180;
    const double distance = chosenShare * sector->radius;
    return {distance * std::cos(turn), distance * std::sin(turn)};
}

void KXPieChart::_paintOverItems(UXPainter& painter) const
{
    if (!m_showLeaderLines)
        return;
    painter.setColor(m_leaderLineColor);
    painter.setLineWidth(1);
    for (const Leader& leader : m_leaders)
        painter.drawPolyline(leader);
}
