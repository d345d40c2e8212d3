#include "kx_tree_map_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_hint_data.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_data_requests.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "kx_line_gradient_legend.h"
#include "kx_measure_format.h"
#include "kx_percentages.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

KX_DEFINE_CHART_KEY_TABLE(KXTreeMapChart, KXMemberPanelChart, KX_TREE_MAP_CHART_KEYS)

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
/** What is not in the second measure is neither at one end of the colours nor between them. */
constexpr UXColor colorOfNull(222, 222, 226);
constexpr int percentageDecimals = 1;

} // namespace

KXTreeMapChart::KXTreeMapChart() : m_gradientLegend(new KXLineGradientLegend)
{
    m_gradientLegend->setVisible(false);
    addChild(m_gradientLegend);
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent& event) {
        if (!isInteractionEnabled() ||
            !uxPointInDoubleRect(getTranslatedPointFromEvent(event, this), m_wayBack))
            return false;
        setShownGroup("");
        return true;
    });
}

KXTreeMapChart::~KXTreeMapChart() { _leaveView(); }

UXTextProperty KXTreeMapChart::_makeTextProperty(int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.textColor = color;
    return property;
}

std::string KXTreeMapChart::customSerializeTypeID() { return "KXTreeMapChart"; }
std::string KXTreeMapChart::_obtainItemKind() const { return "Tile"; }
std::uint64_t KXTreeMapChart::_obtainGroupDimension() const { return _hasGroups() ? 1 : 0; }
UXHintInfo KXTreeMapChart::_obtainHintLook() const { return m_hintInfo; }

const KXChartDataFormat& KXTreeMapChart::_obtainFormat(std::uint64_t measure) const
{
    return kxFindMeasureFormat(m_dataFormats, measure, *m_dataFormat);
}

KXObjectID KXTreeMapChart::_obtainGroupObjectID(std::uint64_t group) const
{
    const std::string kind = _hasGroups() ? "Group" : "Tile";
    return KXObjectID::instance().path(kxCreateObjectIDPath(kind)).index(group);
}

std::vector<KXObjectID> KXTreeMapChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    const KXObjectID group = _obtainGroupObjectID(item.group);
    if (!_hasGroups())
        return {group};
    return {KXObjectID(group).path(kxCreateObjectIDPath(std::string("Tile"))).index(item.index)};
}

std::vector<UXColor> KXTreeMapChart::_obtainUsualColors() const
{
    return m_seriesColors.empty() ? getDefaultColors() : m_seriesColors;
}

UXColor KXTreeMapChart::_obtainItemColor(const KXChartItem& item) const
{
    const std::optional<KXGradientScale> scale = obtainColorScale();
    if (!scale)
        return KXMemberPanelChart::_obtainItemColor(item);
    const double value = _obtainColorValue(item);
    return std::isnan(value) ? colorOfNull : scale->obtainColor(value);
}

double KXTreeMapChart::_obtainColorValue(const KXChartItem& item) const
{
    return _isOthers(item) ? noNumber : getValue(1, _obtainCell(_obtainOwnItem(item)));
}

std::optional<KXGradientScale> KXTreeMapChart::obtainColorScale() const
{
    if (!_hasColorMeasure())
        return std::nullopt;
    return KXGradientScale{m_leastColorValue, m_greatestColorValue, m_middleValue, m_minColor,
                           m_middleColor,     m_maxColor,           m_classCount};
}

void KXTreeMapChart::_updateGradientLegend()
{
    const std::optional<KXGradientScale> scale = obtainColorScale();
    if (!scale)
        return;
    m_gradientLegend->setScale(*scale, getChartProperty()->getLegendLabelColor(),
                               [this](double value) { return _obtainFormat(1).formatNumber(value); });
}

void KXTreeMapChart::registerChartPropertyUpdatedEvents()
{
    KXMemberPanelChart::registerChartPropertyUpdatedEvents();
    // In place of the base's own: both legends have that colour.
    getChartProperty()->registerUpdatedEvents({"m_legendLabelColor"}, [this](const std::string&) {
        getLegend()->setLabelColor(getChartProperty()->getLegendLabelColor());
        _updateGradientLegend();
    });
}

void KXTreeMapChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXObjectWatcher self(this);
    KXMemberPanelChart::_applyKeyEffect(effect);
    if (self.isAlive())
        _updateGradientLegend();
}

/** Where colours stand for values they name no group. */
std::uint64_t KXTreeMapChart::obtainLegendCellSize()
{
    return _hasColorMeasure() ? 0 : KXMemberPanelChart::obtainLegendCellSize();
}

void KXTreeMapChart::resetData()
{
    KXMemberPanelChart::resetData();
    m_isSorted = false;
    m_alone.reset();
    m_branches.clear();
    m_groupPlaces.clear();
    m_percentages.clear();
    m_leftOut = {};
    m_wayBack = {};
}

void KXTreeMapChart::customReloadData()
{
    const UXObjectWatcher self(this);
    std::string all = uxLocalizeString("All");
    if (!self.isAlive())
        return;
    m_allWord = std::move(all);
    m_isSorted = false;
    KXMemberPanelChart::customReloadData();
    if (self.isAlive())
        _findShownGroup();
}

/** Finds the group that the user wants to see alone among those of the data; without it all are shown.
 *  @return false where the host destroyed the chart */
bool KXTreeMapChart::_findShownGroup()
{
    const UXObjectWatcher self(this);
    m_alone.reset();
    if (m_shownGroup.empty() || !_hasGroups())
        return true;
    for (const std::uint64_t group : std::vector(getListedGroups().getAll())) {
        const std::string name = obtainGroupName(group);
        if (!self.isAlive())
            return false;
        if (name != m_shownGroup)
            continue;
        m_alone = group;
        break;
    }
    return true;
}

void KXTreeMapChart::_memberTextsArrived()
{
    if (_findShownGroup())
        KXMemberPanelChart::_memberTextsArrived();
}

/** The first tiles that the user wants to see, which are the largest ones, in the host's order; of these the
 * small ones together. */
KXListedGroups KXTreeMapChart::_listTiles(std::uint64_t dimension)
{
    const std::vector<double> sums = _sumMembers(dimension);
    std::vector<std::uint64_t> members(sums.size());
    std::iota(members.begin(), members.end(), std::uint64_t{0});
    if (const std::uint64_t most = _obtainGreatestGroupCount(); members.size() > most) {
        std::ranges::stable_sort(members, std::ranges::greater(),
                                 [&](std::uint64_t i) { return std::isnan(sums[i]) ? 0 : sums[i]; });
        members.resize(static_cast<std::size_t>(most));
        std::ranges::sort(members);
    }
    if (m_tileStyle == KXTreeMapChartTileStyle::Default)
        return {std::move(members), {}, sums.size()};
    KXOthersRule rule;
    rule.leastShare = m_groupBelowPercent / 100;
    return _gatherMembers(dimension, std::move(members), sums, rule);
}

KXListedGroups KXTreeMapChart::_listGroups()
{
    if (!_hasGroups())
        return _listTiles(0);
    std::vector<std::uint64_t> all(obtainGroupCount());
    std::iota(all.begin(), all.end(), std::uint64_t{0});
    return {std::move(all), {}, obtainGroupCount()};
}

KXListedGroups KXTreeMapChart::_listIndexes()
{
    return _hasGroups() ? _listTiles(0) : KXMemberPanelChart::_listIndexes();
}

bool KXTreeMapChart::hasItem(const KXChartItem& item) const
{
    return (!m_alone || item.group == *m_alone) && KXMemberPanelChart::hasItem(item) &&
           obtainItemValue(item) > 0;
}

const std::vector<double>& KXTreeMapChart::_obtainPercentages() const
{
    if (!m_percentages.empty())
        return m_percentages;
    std::size_t count = 0;
    for (const Branch& branch : m_branches)
        count += branch.leaves.size();
    std::vector<double> values;
    values.reserve(count);
    for (const Branch& branch : m_branches)
        for (const Leaf& leaf : branch.leaves)
            values.push_back(leaf.value);
    m_percentages = kxObtainPercentages(values, percentageDecimals);
    return m_percentages;
}

std::optional<KXTile> KXTreeMapChart::obtainTile(const KXChartItem& item) const
{
    const std::vector<KXPanelItem>& items = getLaidOutItems();
    const auto found = std::ranges::find(items, item, &KXPanelItem::item);
    if (found == items.end())
        return std::nullopt;
    const std::vector<double>& percentages = _obtainPercentages();
    std::size_t place = 0;
    for (const Branch& branch : m_branches) {
        const auto leaf = std::ranges::find(branch.leaves, item, &Leaf::item);
        if (leaf != branch.leaves.end())
            return KXTile(item.group, item.index, leaf->value,
                          percentages[place + static_cast<std::size_t>(leaf - branch.leaves.begin())],
                          found->shape.getBounds());
        place += branch.leaves.size();
    }
    return std::nullopt;
}

KXChartDataProviderHintData KXTreeMapChart::_describeItem(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    KXChartDataProviderHintData data = KXMemberPanelChart::_describeItem(item);
    if (!self.isAlive())
        return data;
    if (const std::optional<KXTile> tile = obtainTile(item))
        data.value += " (" +
                      kxFormatPartOfWhole(tile->getPercentage(), tile->getValue(), percentageDecimals) + ")";
    const double colorValue = _hasColorMeasure() ? _obtainColorValue(item) : noNumber;
    if (!std::isnan(colorValue)) {
        data.subtitle = std::move(data.value); // which is read before the row of the other measure
        data.value = getMeasureLabel(1) + ": " + _obtainFormat(1).formatNumber(colorValue);
    }
    return data;
}

std::optional<std::uint64_t> KXTreeMapChart::_findGroupAt(const UXPoint& point) const
{
    const auto found = std::ranges::find_if(
        m_groupPlaces, [&](const Group& group) { return uxPointInDoubleRect(point, group.rect); });
    return found == m_groupPlaces.end() ? std::nullopt : std::optional(found->group);
}

void KXTreeMapChart::_showGroup(std::uint64_t group)
{
    const UXObjectWatcher self(this);
    const std::string name = obtainGroupName(group);
    if (self.isAlive() && name != KXDataRequests::placeholder)
        setShownGroup(name);
}

bool KXTreeMapChart::customMouseDoubleClick(const UXEvent& event, bool& stop)
{
    const std::optional<std::uint64_t> group = _findGroupAt(getTranslatedPointFromEvent(event, this));
    if (!group || m_alone || !isInteractionEnabled())
        return KXMemberPanelChart::customMouseDoubleClick(event, stop);
    _showGroup(*group);
    return true;
}

bool KXTreeMapChart::customKeyDown(const UXEvent& event, bool& stop)
{
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    if (isInteractionEnabled() && m_alone && key == UXKeyCode::Backspace) {
        setShownGroup("");
        return true;
    }
    const std::optional<KXChartItem>& focused = getItems()->getFocused();
    if (isInteractionEnabled() && _hasGroups() && !m_alone && focused && key == UXKeyCode::Enter &&
        event.containsEventKey(UXEventKey::Ctrl)) {
        _showGroup(focused->group);
        return true;
    }
    return KXMemberPanelChart::customKeyDown(event, stop);
}
