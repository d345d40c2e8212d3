#include "kx_pie_chart.h"

#include "kx_chart_object_id_types.h"
#include "kx_key_definitions.h"
#include "kx_others.h"
#include "kx_percentages.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <utility>

KX_DEFINE_CHART_KEY_TABLE(KXPieChart, KXMemberPanelChart, KX_PIE_CHART_KEYS)

namespace {

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
    // 1. What has no part of any whole has no sum.
    const std::vector<double> sums = _sumMembers(_obtainGroupDimension());
    const std::uint64_t count = sums.size();

    // 2. The first ones of what is shown, in the order in which it is shown; what has no part comes behind.
    std::vector<std::uint64_t> members(count);
    std::iota(members.begin(), members.end(), std::uint64_t{0});
    if (m_sort != KXPieSliceOrder::None)
        std::ranges::stable_sort(members, [&](std::uint64_t a, std::uint64_t b) {
            if (std::isnan(sums[a]) || std::isnan(sums[b]))
                return !std::isnan(sums[a]) && std::isnan(sums[b]);
            return m_sort == KXPieSliceOrder::Descending ? sums[a] > sums[b] : sums[a] < sums[b];
        });
    else
        std::ranges::stable_partition(members, [&](std::uint64_t i) { return !std::isnan(sums[i]); });
    members.resize(static_cast<std::size_t>(std::min(count, _obtainGreatestGroupCount())));
    if (m_sort == KXPieSliceOrder::None)
        std::ranges::sort(members);
    if (m_sliceStyle == KXPieChartSliceStyle::Default)
        return {std::move(members), {}, count};

    // 3. Of these, the small ones together.
    KXOthersRule rule;
    if (m_sliceStyle == KXPieChartSliceStyle::NumOfSliceDisplay)
        rule.greatestCount = static_cast<std::uint64_t>(std::max<std::int64_t>(m_sliceCount, 0));
    else
        rule.leastShare = m_groupBelowPercent / 100;
    return _gatherMembers(_obtainGroupDimension(), std::move(members), sums, rule);
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
