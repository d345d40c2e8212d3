#include "kx_member_panel_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_drawing_layer.h"
#include "kx_hint_text.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "kx_no_data_label.h"
#include "kx_panel_chart_data_provider.h"
#include "kx_readable_color.h"
#include "ux/ux_accessible_change.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <unordered_set>
#include <utility>

namespace {

/** More names than anyone can read at once are not asked for. */
constexpr std::size_t greatestNameCount = 4096;
/** What paths call it that is gathered. */
const std::string othersIdentifier = "Others";
/** What is gathered is no more one of the members than another. */
constexpr UXColor othersColor(140, 140, 146);
/** Items of less height have nothing told below them. */
constexpr int leastHeightWithNote = 100;
constexpr double noteGap = 4;

/** @param sum NaN for none; it stops at the limit */
void addPart(double& sum, double value)
{
    if (value > 0)
        sum = std::min(std::isnan(sum) ? value : sum + value, (std::numeric_limits<double>::max)());
}

} // namespace

KXMemberPanelChart::KXMemberPanelChart()
    : KXPanelChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_layer(new KXDrawingLayer), m_noDataLabel(new KXNoDataLabel)
{
    addChild(m_layer);
    addChild(m_noDataLabel);
    m_layer->setPaintFunction(
        [this](UXPainter& painter, const UXRect& dirtyRect) { _paintItems(painter, dirtyRect); });
    m_groups.setUsualColors(getDefaultColors());
    _makeItems(*this, *this, *this, *this);
    getLegend()->enableCellClick();
}

KXMemberPanelChart::~KXMemberPanelChart() { _leaveView(); }

const UXPropertyTable& KXMemberPanelChart::obtainPropertyTable()
{
    using Self = KXMemberPanelChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_dataFormat", uxObtainNestedObjectType, m_dataFormat, "how values are written")};
    static const UXPropertyTable table("KXMemberPanelChart", &KXChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

std::uint64_t KXMemberPanelChart::obtainGroupCount() const
{
    return getDimensionCount() > 0 && getMeasureCount() > 0 ? getMemberCount(_obtainGroupDimension())
                                                            : getMeasureCount();
}

std::string KXMemberPanelChart::obtainGroupName(std::uint64_t group)
{
    if (m_listed.isOthers(group))
        return m_othersName;
    if (getDimensionCount() == 0)
        return getMeasureLabel(group);
    const UXObjectWatcher self(this);
    const std::uint64_t dimension = _obtainGroupDimension();
    const std::string text = obtainMemberName(dimension, group, *m_dataFormat);
    const bool isMissing = self.isAlive() && group < getMemberCount(dimension) &&
                           !hasMemberText(dimension, group);
    return isMissing ? KXDataRequests::placeholder : text;
}

UXColor KXMemberPanelChart::obtainGroupColor(std::uint64_t group) const
{
    return m_groups.obtainColor(group);
}

bool KXMemberPanelChart::isGroupShown(std::uint64_t group) const
{
    return m_listed.contains(group) && m_groups.isShown(group);
}

void KXMemberPanelChart::setGroupShown(std::uint64_t group, bool shown)
{
    const UXObjectWatcher self(this);
    const std::string name = obtainGroupName(group);
    if (!self.isAlive() || !m_groups.setShown(group, name, shown))
        return;
    updateLegendColor();
    uxTellAccessibleChange(*this, UXAccessibleChange::Children);
    getItems()->forgetPointer();
    if (self.isAlive())
        setRequireToVerifyLayout(true, true);
}

std::uint64_t KXMemberPanelChart::obtainIndexCount() const
{
    return getDimensionCount() > 1 ? getMemberCount(1 - _obtainGroupDimension()) : 1;
}

std::uint64_t KXMemberPanelChart::_obtainMember(const KXChartItem& item, std::uint64_t dimension) const
{
    return dimension == _obtainGroupDimension() ? item.group : item.index;
}

std::uint64_t KXMemberPanelChart::_obtainMeasure(const KXChartItem& item) const
{
    return getDimensionCount() > 0 ? 0 : item.group;
}

const KXListedGroups& KXMemberPanelChart::_obtainListed(std::uint64_t dimension) const
{
    return dimension == _obtainGroupDimension() ? m_listed : m_listedIndexes;
}

KXChartItem KXMemberPanelChart::_obtainOwnItem(const KXChartItem& item) const
{
    const bool isGroup = m_listed.isOthers(item.group);
    if (m_soleMembers.empty() || !(isGroup || m_listedIndexes.isOthers(item.index)))
        return item;
    const auto sole = m_soleMembers.find(isGroup ? item.index : item.group);
    if (sole == m_soleMembers.end())
        return item;
    return isGroup ? KXChartItem{item.kind, sole->second, item.index}
                   : KXChartItem{item.kind, item.group, sole->second};
}

bool KXMemberPanelChart::_isOthers(const KXChartItem& item) const
{
    const KXChartItem own = _obtainOwnItem(item);
    return m_listed.isOthers(own.group) || m_listedIndexes.isOthers(own.index);
}

std::vector<KXChartItem> KXMemberPanelChart::_obtainHeldItems(const KXChartItem& item) const
{
    if (!_isOthers(item))
        return {_obtainOwnItem(item)};
    std::vector<KXChartItem> items;
    const bool isGroup = m_listed.isOthers(item.group);
    for (const std::uint64_t member : (isGroup ? m_listed : m_listedIndexes).getGathered()) {
        const KXChartItem held = isGroup ? KXChartItem{item.kind, member, item.index}
                                         : KXChartItem{item.kind, item.group, member};
        if (_obtainMemberValue(held) > 0)
            items.push_back(held);
    }
    return items;
}

std::uint64_t KXMemberPanelChart::_obtainCell(const KXChartItem& item) const
{
    if (getDimensionCount() == 0)
        return 0;
    return getDimensionCount() > 1 ? _obtainMember(item, 0) * getMemberCount(1) + _obtainMember(item, 1)
                                   : item.group;
}

KXIndexPath KXMemberPanelChart::_obtainValuePath(const KXChartItem& item) const
{
    return obtainValuePath(_obtainMeasure(item), _obtainCell(item));
}

double KXMemberPanelChart::_obtainMemberValue(const KXChartItem& item) const
{
    if (item.group >= obtainGroupCount() || item.index >= obtainIndexCount())
        return std::numeric_limits<double>::quiet_NaN();
    return getValue(_obtainMeasure(item), _obtainCell(item));
}

KXMemberPanelChart::MemberValues KXMemberPanelChart::_obtainMemberValues() const
{
    const std::uint64_t across = getDimensionCount() > 1 ? getMemberCount(1) : 1;
    const bool areFirst = _obtainGroupDimension() == 0; // the groups
    return {getValues(0), areFirst ? across : 1, areFirst ? 1 : across};
}

double KXMemberPanelChart::_obtainMemberPart(const KXChartItem& item) const
{
    if (item.group >= obtainGroupCount() || item.index >= obtainIndexCount())
        return std::numeric_limits<double>::quiet_NaN();
    return getHighlightedPart(_obtainMeasure(item), _obtainCell(item));
}

/** What has no part of a whole adds nothing to what is gathered. */
double KXMemberPanelChart::_sumHeld(const KXChartItem& item,
                                    double (KXMemberPanelChart::*obtain)(const KXChartItem& item) const) const
{
    if (!_isOthers(item))
        return (this->*obtain)(_obtainOwnItem(item));
    double sum = std::numeric_limits<double>::quiet_NaN();
    for (const KXChartItem& held : _obtainHeldItems(item))
        addPart(sum, (this->*obtain)(held));
    return sum;
}

double KXMemberPanelChart::obtainItemValue(const KXChartItem& item) const
{
    return _sumHeld(item, &KXMemberPanelChart::_obtainMemberValue);
}

double KXMemberPanelChart::obtainItemPart(const KXChartItem& item) const
{
    if (!hasHighlightedParts())
        return std::numeric_limits<double>::quiet_NaN();
    const double part = _sumHeld(item, &KXMemberPanelChart::_obtainMemberPart);
    return std::isnan(part) && _isOthers(item) ? 0 : part;
}

double KXMemberPanelChart::_obtainFullShare(const KXChartItem& item) const
{
    return KXHighlightedParts::obtainShare(obtainItemPart(item), obtainItemValue(item));
}

const KXChartDataFormat& KXMemberPanelChart::_obtainFormat(std::uint64_t) const { return *m_dataFormat; }

std::string KXMemberPanelChart::obtainItemValueText(const KXChartItem& item) const
{
    const double value = obtainItemValue(item);
    return std::isnan(value) ? std::string() : _obtainFormat(_obtainMeasure(item)).formatNumber(value);
}

void KXMemberPanelChart::_requestLabels(const KXLabelPlacer&, std::vector<KXLabelRequest>&) const {}

UXColor KXMemberPanelChart::_obtainItemColor(const KXChartItem& item) const
{
    return obtainGroupColor(item.group);
}

std::vector<UXColor> KXMemberPanelChart::_obtainUsualColors() const { return getDefaultColors(); }
std::string KXMemberPanelChart::_obtainItemKind() const { return "Item"; }

KXObjectID KXMemberPanelChart::_obtainGroupObjectID(std::uint64_t group) const
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(_obtainItemKind())).index(group);
}

std::uint64_t KXMemberPanelChart::_obtainGroupDimension() const { return 0; }
void KXMemberPanelChart::_paintUnderItems(UXPainter&) const {}
void KXMemberPanelChart::_paintOverItems(UXPainter&) const {}
UXHintInfo KXMemberPanelChart::_obtainHintLook() const { return {}; }
UXDoublePoint KXMemberPanelChart::_obtainChosenShift(const KXPanelItem&) const { return {}; }

std::uint64_t KXMemberPanelChart::_obtainGreatestGroupCount() const
{
    const KXChartProperty& property = *getChartProperty();
    const std::int64_t most = std::max<std::int64_t>(property.getTopXItemsToShow(), 0);
    return property.getShowOnlyTopX() ? static_cast<std::uint64_t>(most)
                                      : (std::numeric_limits<std::uint64_t>::max)();
}

KXListedGroups KXMemberPanelChart::_listGroups()
{
    std::vector<std::uint64_t> kept(std::min(obtainGroupCount(), _obtainGreatestGroupCount()));
    std::iota(kept.begin(), kept.end(), std::uint64_t{0});
    return {std::move(kept), {}, obtainGroupCount()};
}

KXListedGroups KXMemberPanelChart::_listIndexes()
{
    std::vector<std::uint64_t> kept(obtainIndexCount());
    std::iota(kept.begin(), kept.end(), std::uint64_t{0});
    return {std::move(kept), {}, obtainIndexCount()};
}

std::vector<double> KXMemberPanelChart::_sumMembers(std::uint64_t dimension) const
{
    const bool areGroups = getDimensionCount() == 0 || dimension == _obtainGroupDimension();
    std::vector<double> sums(areGroups ? obtainGroupCount() : obtainIndexCount(),
                             std::numeric_limits<double>::quiet_NaN());
    const std::uint64_t across = areGroups ? obtainIndexCount() : obtainGroupCount();
    if (getDimensionCount() == 0) {
        for (std::uint64_t group = 0; group < sums.size(); ++group)
            addPart(sums[group], _obtainMemberValue({0, group, 0}));
        return sums;
    }
    const MemberValues values = _obtainMemberValues();
    for (std::uint64_t member = 0; member < sums.size(); ++member)
        for (std::uint64_t other = 0; other < across; ++other)
            addPart(sums[member], areGroups ? values.at(member, other) : values.at(other, member));
    return sums;
}

KXListedGroups KXMemberPanelChart::_gatherMembers(std::uint64_t dimension, std::vector<std::uint64_t> members,
                                                  const std::vector<double>& sums, KXOthersRule rule)
{
    if (!_doMeasuresAddUp())
        return {std::move(members), {}, sums.size()};
    const UXObjectWatcher self(this);
    rule.hostOthers = _findHostOthers(dimension, members);
    if (!self.isAlive())
        return {};
    std::vector<double> values(members.size());
    std::ranges::transform(members, values.begin(), [&](std::uint64_t member) { return sums[member]; });
    KXOthers others = kxGatherOthers(values, rule);
    for (std::vector<std::uint64_t>* list : {&others.kept, &others.gathered})
        std::ranges::transform(*list, list->begin(), [&](std::uint64_t i) { return members[i]; });
    std::ranges::sort(others.gathered);
    return {std::move(others.kept), std::move(others.gathered), sums.size()};
}

/** @return whether the values that can be gathered do: with a dimension those of the first measure, as others
 * only describe them; else those of all */
bool KXMemberPanelChart::_doMeasuresAddUp() const
{
    const std::uint64_t count = getDimensionCount() > 0 ? 1 : getMeasureCount();
    for (std::uint64_t measure = 0; measure < count; ++measure)
        if (!getMeasureAddsUp(measure))
            return false;
    return true;
}

/** @return the place of the one member that the host made up; several fill gaps, and gather nothing */
std::optional<std::uint64_t> KXMemberPanelChart::_findHostOthers(std::uint64_t dimension,
                                                                 const std::vector<std::uint64_t>& members)
{
    std::optional<std::uint64_t> found;
    const KXChartDataProviderUse use(*this);
    for (std::uint64_t i = 0; i < members.size() && getDimensionCount() > 0 && use.isCurrent(); ++i) {
        if (!use.get()->obtainDimensionDataIsGenerated(this, {dimension, members[i]}))
            continue;
        if (found)
            return std::nullopt;
        found = i;
    }
    return found;
}

std::uint64_t KXMemberPanelChart::obtainLegendCellSize() { return m_listed.getAll().size(); }

std::string KXMemberPanelChart::obtainLegendLabel(std::uint64_t index)
{
    return index < obtainLegendCellSize() ? obtainGroupName(m_listed.getAll()[index]) : std::string();
}

bool KXMemberPanelChart::obtainLegendSymbolColor(std::uint64_t index, UXColor& color)
{
    if (index < obtainLegendCellSize())
        color = m_groups.obtainSymbolColor(m_listed.getAll()[index]);
    return true;
}

std::vector<KXObjectID> KXMemberPanelChart::obtainLegendCellObjectID(std::uint64_t index)
{
    if (index >= obtainLegendCellSize())
        return {};
    return {_obtainGroupObjectID(m_listed.getAll()[index])};
}

bool KXMemberPanelChart::obtainLegendCellIsOn(std::uint64_t index)
{
    return index < obtainLegendCellSize() && isGroupShown(m_listed.getAll()[index]);
}

void KXMemberPanelChart::legendCellClicked(std::uint64_t index, const UXEvent&)
{
    if (!isInteractionEnabled() || index >= obtainLegendCellSize())
        return;
    const std::uint64_t group = m_listed.getAll()[index];
    setGroupShown(group, !isGroupShown(group));
}

void KXMemberPanelChart::legendCellHovered(std::uint64_t index, bool hovered)
{
    if (index >= obtainLegendCellSize())
        return;
    const std::uint64_t group = m_listed.getAll()[index];
    getItems()->hoverGroup(group, hovered && isGroupShown(group));
}

/** A document may list other groups. */
bool KXMemberPanelChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool isComplete = KXPanelChart::customDeserialize();
    if (self.isAlive() && reloadedData())
        reloadData();
    return isComplete;
}

void KXMemberPanelChart::resetData()
{
    KXPanelChartDataUser::resetData();
    m_listed = {};
    m_listedIndexes = {};
    m_soleMembers.clear();
    m_note.clear();
    m_groups.clear();
    m_hostColors.clear();
}

void KXMemberPanelChart::customReloadData()
{
    const UXObjectWatcher self(this);
    std::string othersName = uxLocalizeString("Others");
    KXLeftOutWords words = KXLeftOutWords::load();
    if (!self.isAlive())
        return;
    m_othersName = std::move(othersName);
    m_leftOutWords = std::move(words);
    if (!_loadGroups())
        return;
    std::vector<std::string> names;
    for (std::uint64_t group = 0; m_groups.needsIdentities() && group < m_listed.getBound(); ++group) {
        names.push_back(m_listed.contains(group) ? obtainGroupName(group) : std::string());
        if (!self.isAlive())
            return;
    }
    m_groups.reload(m_listed.getBound(), names);
}

/** @return false where the host destroyed the chart */
bool KXMemberPanelChart::_loadGroups()
{
    const UXObjectWatcher self(this);
    m_listed = {};
    m_listedIndexes = {};
    m_soleMembers.clear();
    KXListedGroups listed = _listGroups();
    if (!self.isAlive())
        return false;
    KXListedGroups indexes = _listIndexes();
    if (!self.isAlive())
        return false;
    m_listed = std::move(listed);
    m_listedIndexes = std::move(indexes);
    _findSoleMembers();
    return true;
}

/** Others is of a whole dimension, and may hold less of one member of the other one. */
void KXMemberPanelChart::_findSoleMembers()
{
    const bool areGroups = !m_listed.getGathered().empty();
    const std::vector<std::uint64_t>& gathered = (areGroups ? m_listed : m_listedIndexes).getGathered();
    if (gathered.empty() || getDimensionCount() < 2)
        return;
    const MemberValues values = _obtainMemberValues();
    const std::uint64_t otherCount = areGroups ? obtainIndexCount() : obtainGroupCount();
    for (std::uint64_t other = 0; other < otherCount; ++other) {
        std::uint64_t count = 0, sole = 0;
        for (const std::uint64_t member : gathered) {
            if (!((areGroups ? values.at(member, other) : values.at(other, member)) > 0))
                continue;
            sole = member;
            if (++count > 1)
                break;
        }
        if (count == 1)
            m_soleMembers.emplace(other, sole);
    }
}

/** Where a group has a single item, a colour of the item is the group's. */
void KXMemberPanelChart::customReloadColors()
{
    m_groups.setUsualColors(_obtainUsualColors());
    const bool areSingle = getDimensionCount() < 2;
    std::vector<std::optional<UXColor>> groupColors(m_listed.getBound());
    std::unordered_map<std::uint64_t, UXColor> itemColors;
    MemberValues values = _obtainMemberValues();
    const KXChartDataProviderUse use(*this);
    bool isCurrent = use.isCurrent();
    for (const std::uint64_t group : std::vector(m_listed.getAll())) {
        if (m_listed.isOthers(group)) {
            groupColors[group] = othersColor;
            continue;
        }
        UXColor color = m_groups.obtainColor(group);
        if (isCurrent && use.get()->obtainValueDataColorForGroup(this, group, color))
            groupColors[group] = color;
        isCurrent = use.isCurrent();
        const std::uint64_t indexCount = isCurrent ? obtainIndexCount() : 0;
        for (std::uint64_t index = 0; isCurrent && index < indexCount; ++index) {
            if (!areSingle && std::isnan(values.at(group, index)))
                continue;
            const KXChartItem item{0, group, index};
            const bool hasColor = use.get()->obtainValueDataColor(this, _obtainValuePath(item), color);
            isCurrent = use.isCurrent();
            if (!use.isAlive())
                return;
            values = _obtainMemberValues(); // the host may have had the chart pull others
            if (!hasColor)
                continue;
            if (areSingle)
                groupColors[group] = color;
            else
                itemColors[_obtainCell(item)] = color;
        }
        if (!use.isAlive())
            return;
    }
    m_groups.setHostColors(std::move(groupColors));
    m_hostColors = std::move(itemColors);
}

void KXMemberPanelChart::reloadChartColors()
{
    KXPanelChart::reloadChartColors();
    _updateColors();
}

void KXMemberPanelChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXObjectWatcher self(this);
    if (effect == UXPropertyEffect::Recolor)
        _updateColors();
    if (self.isAlive())
        KXPanelChart::_applyKeyEffect(effect);
}

void KXMemberPanelChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXPanelChart::afterReloadData();
    // What is gathered is no item of the host's that could be clicked.
    if (self.isAlive())
        registerLeftClickAction(this, [this] {
            const std::optional<KXChartItem>& item = getItems()->getActionItem();
            return !item || !_isOthers(*item);
        });
}

UXRect KXMemberPanelChart::obtainHintArea(UXPoint point) { return getItems()->obtainHintArea(point); }
KXChartDataPath* KXMemberPanelChart::createDataPath() { return getItems()->createActionPath(); }

std::optional<KXChartItem> KXMemberPanelChart::obtainItemAt(UXPoint point) const
{
    const std::optional<std::size_t> found = m_laidOut.findAt(point);
    return found ? std::optional(getLaidOutItems()[*found].item) : std::nullopt;
}

bool KXMemberPanelChart::hasItem(const KXChartItem& item) const
{
    return item.kind == 0 && isGroupShown(item.group) && m_listedIndexes.contains(item.index) &&
           !std::isnan(obtainItemValue(item));
}

std::vector<KXChartItem> KXMemberPanelChart::obtainItems() const
{
    std::vector<KXChartItem> items;
    for (const std::uint64_t index : m_listedIndexes.getAll())
        for (const std::uint64_t group : m_listed.getAll())
            if (hasItem({0, group, index}))
                items.push_back({0, group, index});
    return items;
}

std::uint64_t KXMemberPanelChart::obtainItemRowCount() const
{
    if (getDimensionCount() < 2)
        return 0;
    return static_cast<std::uint64_t>(std::ranges::count_if(
        m_listed.getAll(), [this](std::uint64_t group) { return isGroupShown(group); }));
}

std::string KXMemberPanelChart::obtainItemRowName(std::uint64_t row)
{
    return obtainGroupName(obtainItemInRow(row, 0).group);
}

std::uint64_t KXMemberPanelChart::obtainItemRowLength(std::uint64_t) const
{
    return m_listedIndexes.getAll().size();
}

KXChartItem KXMemberPanelChart::obtainItemInRow(std::uint64_t row, std::uint64_t place) const
{
    const KXChartItem none{0, m_listed.getBound(), 0};
    const auto makeItem = [&](std::uint64_t group) {
        return KXChartItem{0, group, m_listedIndexes.getAll()[static_cast<std::size_t>(place)]};
    };
    if (!m_groups.needsIdentities()) // none is switched off
        return row < m_listed.getAll().size() ? makeItem(m_listed.getAll()[static_cast<std::size_t>(row)])
                                              : none;
    std::uint64_t before = row;
    for (const std::uint64_t group : m_listed.getAll())
        if (isGroupShown(group) && before-- == 0)
            return makeItem(group);
    return none;
}

UXRect KXMemberPanelChart::obtainItemRect(const KXChartItem& item) const
{
    const std::optional<std::size_t> found = m_laidOut.find(item);
    if (!found)
        return {};
    const UXRect rect = uxSurroundingRect(getLaidOutItems()[*found].shape.getBounds());
    return uxIntersectionRect(rect, m_layer->getDrawingRect());
}

std::optional<KXChartItem> KXMemberPanelChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                                KXChartItemStep step) const
{
    const std::optional<std::size_t> found = from ? m_laidOut.find(*from) : std::nullopt;
    const std::optional<std::size_t> next = _obtainPlaceBeside(found, getLaidOutItems().size(), step);
    return next ? std::optional(getLaidOutItems()[*next].item) : std::nullopt;
}

KXChartDataPath* KXMemberPanelChart::createItemPath(const KXChartItem& item)
{
    auto* path = new KXChartDataPath;
    if (_isOthers(item)) {
        const std::uint64_t groups = _obtainGroupDimension();
        const std::uint64_t gathered = m_listed.isOthers(item.group) ? groups : 1 - groups;
        path->identifier = othersIdentifier;
        if (getDimensionCount() > 0)
            path->dimensionIndexPath = {gathered};
        for (const KXChartItem& held : _obtainHeldItems(item))
            path->dimensionIndexPath.push_back(getDimensionCount() == 0 ? held.group
                                                                        : _obtainMember(held, gathered));
        return path;
    }
    const KXChartItem own = _obtainOwnItem(item);
    path->identifier = _obtainItemKind();
    path->valueIndexPath = _obtainValuePath(own);
    if (getDimensionCount() > 0)
        path->dimensionIndexPath = {_obtainGroupDimension(), own.group};
    return path;
}

/** A value is named by its whole path, and all values of a member by the member; what is gathered answers for
 * each of its members. */
std::vector<KXChartItem> KXMemberPanelChart::findItems(const KXChartDataPath& path)
{
    const KXIndexPath& member = path.dimensionIndexPath;
    const bool namesValue = path.valueIndexPath.size() > 1;
    const bool hasMembers = getDimensionCount() > 0;
    if (hasMembers ? member.empty() && !path.identifier.empty() : !member.empty())
        return {};
    if (!namesValue && member.empty())
        return {};
    std::vector<KXChartItem> items = obtainItems();
    std::erase_if(items, [&](const KXChartItem& item) {
        return (namesValue && !_holdsValue(item, path.valueIndexPath)) || !_isOfMembers(item, member);
    });
    return items;
}

bool KXMemberPanelChart::_holdsValue(const KXChartItem& item, const KXIndexPath& valuePath) const
{
    if (!_isOthers(item)) // most are not, and need no list
        return valuePath == _obtainValuePath(_obtainOwnItem(item));
    return std::ranges::any_of(_obtainHeldItems(item),
                               [&](const KXChartItem& held) { return valuePath == _obtainValuePath(held); });
}

/** @param path (dimension, member, ...), or empty for any */
bool KXMemberPanelChart::_isOfMembers(const KXChartItem& item, const KXIndexPath& path) const
{
    if (path.empty())
        return true;
    if (path[0] >= getDimensionCount())
        return false;
    const std::uint64_t dimension = path[0];
    const auto isNamed = [&](const KXChartItem& held) {
        return std::find(path.begin() + 1, path.end(), _obtainMember(held, dimension)) != path.end();
    };
    return _isOthers(item) ? std::ranges::any_of(_obtainHeldItems(item), isNamed)
                           : isNamed(_obtainOwnItem(item));
}

std::vector<KXObjectID> KXMemberPanelChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    KXObjectID id = _obtainGroupObjectID(item.group);
    if (getDimensionCount() > 1)
        id = id.path(kxCreateObjectIDPath(std::string("Member"))).index(item.index);
    return {id};
}

std::string KXMemberPanelChart::_obtainHintTitle(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    const KXChartItem own = _obtainOwnItem(item);
    std::string title = obtainGroupName(own.group);
    if (!self.isAlive())
        return title;
    const auto tellCount = [&] { return " (" + std::to_string(_obtainHeldItems(own).size()) + ")"; };
    if (m_listed.isOthers(own.group))
        title += tellCount();
    if (m_listedIndexes.isOthers(own.index))
        title += ", " + m_othersName + tellCount();
    else if (getDimensionCount() > 1)
        title += ", " + obtainMemberName(1 - _obtainGroupDimension(), own.index, *m_dataFormat);
    return title;
}

/** @return what the provider says about an item, or else its name and its value */
UXHintInfo KXMemberPanelChart::obtainItemHint(const KXChartItem& item)
{
    KXChartDataProviderHintData data;
    const KXChartDataProviderUse use(*this);
    if (auto* provider = use.as<KXPanelChartDataProvider>())
        if (!_isOthers(item))
            data = provider->obtainHintData(this, _obtainValuePath(_obtainOwnItem(item)));
    if (use.isAlive() && data.isEmpty())
        data = _describeItem(item);
    return use.isAlive() ? kxMakeHintInfo(data, _obtainHintLook()) : UXHintInfo(false);
}

std::string KXMemberPanelChart::_tellPart(const KXChartItem& item, const std::string& whole) const
{
    const double part = obtainItemPart(item);
    const KXChartDataFormat& format = _obtainFormat(_obtainMeasure(item));
    return std::isnan(part) ? whole : KXHighlightedParts::tellPart(format.formatNumber(part), whole);
}

KXChartDataProviderHintData KXMemberPanelChart::_describeItem(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    const std::string title = _obtainHintTitle(item);
    if (!self.isAlive())
        return {};
    return {title, _tellPart(item, obtainItemValueText(item))};
}

void KXMemberPanelChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    m_layer->setRect(getBoundingRect());
    m_layer->setDrawingRect(plotArea);
    m_labels.clear();
    m_runs = {};
    m_laidOut.set(_layoutItems(plotArea), UXDoubleRect(plotArea));
    if (hasHighlightedParts())
        for (KXPanelItem& item : m_laidOut.getAll())
            item.share = _obtainFullShare(item.item);
    if (getLaidOutItems().empty())
        m_note.clear(); // which says less than the words in its place
    m_noDataLabel->update(plotArea, !getLaidOutItems().empty());
    if (!self.isAlive() || !_loadNames())
        return;
    _placeLabels(plotArea);
    _updateColors();
}

/** Takes the names that labels may show; those that are missing are asked for when the layout has ended, and
 * laid out then. @return false where the host destroyed the chart */
bool KXMemberPanelChart::_loadNames()
{
    const UXObjectWatcher self(this);
    for (auto& names : m_names)
        names.clear();
    for (std::uint64_t dimension = 0; dimension < getDimensionCount(); ++dimension)
        for (const std::uint64_t member : _obtainNamedMembers(dimension)) {
            if (m_names[dimension].size() >= greatestNameCount)
                break;
            std::string name = obtainMemberName(dimension, member, *m_dataFormat);
            if (!self.isAlive())
                return false;
            m_names[dimension][member] = std::move(name);
        }
    return true;
}

std::vector<std::uint64_t> KXMemberPanelChart::_obtainNamedMembers(std::uint64_t dimension) const
{
    std::vector<std::uint64_t> members;
    std::unordered_set<std::uint64_t> known;
    for (const KXPanelItem& item : getLaidOutItems()) {
        const std::uint64_t member = _obtainMember(_obtainOwnItem(item.item), dimension);
        if (!_obtainListed(dimension).isOthers(member) && known.insert(member).second)
            members.push_back(member);
    }
    return members;
}

std::string KXMemberPanelChart::_findName(const KXChartItem& item) const
{
    if (getDimensionCount() == 0)
        return m_listed.isOthers(item.group) ? m_othersName : getMeasureLabel(item.group);
    const std::uint64_t member = _obtainMember(_obtainOwnItem(item), 0);
    return _obtainListed(0).isOthers(member) ? m_othersName : _findMemberName(0, member);
}

std::string KXMemberPanelChart::_findMemberName(std::uint64_t dimension, std::uint64_t member) const
{
    if (dimension >= m_names.size())
        return {};
    const auto found = m_names[dimension].find(member);
    return found == m_names[dimension].end() ? std::string() : found->second;
}

KXLabelRequest KXMemberPanelChart::_makeLabelInside(const KXLabelPlacer& placer, std::size_t item,
                                                    const std::string& text,
                                                    const UXTextProperty& property) const
{
    const KXPanelItem& laidOut = getLaidOutItems()[item];
    KXLabelRequest request{text, property, 0, false, item, {}};
    request.property.align = UXTextAlign::Center;
    const UXDoubleSize size = placer.measure(text, request.property);
    for (const UXDoublePoint& middle : laidOut.shape.obtainTextPlaces()) {
        const UXDoubleRect rect(middle.x - size.width / 2, middle.y - size.height / 2, size.width,
                                size.height);
        if (laidOut.shape.holdsRect(rect))
            request.candidates.push_back({rect, laidOut.color});
    }
    return request;
}

void KXMemberPanelChart::_takeNoteRoom(const KXLeftOutCounts& counts, const UXTextProperty& property,
                                       UXDoubleRect& room)
{
    m_note = m_leftOutWords.tell(counts);
    m_noteRequest = {};
    if (m_note.empty() || room.height < leastHeightWithNote)
        return;
    const double height = std::ceil(uxMeasureText(m_note, property).height);
    room.height -= height + noteGap;
    m_noteRequest = {m_note, property, -1, true, KXCollisionGrid::noOwner, {}};
    m_noteRequest.property.align = UXTextAlign::Left;
    m_noteRequest.candidates = {{{room.x, room.y + room.height + noteGap, room.width, height}, {}}};
}

void KXMemberPanelChart::_placeLabels(const UXRect& area)
{
    constexpr double gap = 3; // between two in one line
    KXLabelPlacer placer(UXDoubleRect(area), gap);
    std::vector<KXLabelRequest> requests;
    if (!m_note.empty() && !m_noteRequest.candidates.empty())
        requests.push_back(m_noteRequest);
    _requestLabels(placer, requests);
    for (KXPlacedLabel& placed : placer.place(requests)) {
        const std::size_t item = requests[placed.request].mark;
        m_labels.push_back({std::move(placed), item, {}});
    }
    m_labelLosses = placer.getLosses();
}

void KXMemberPanelChart::_updateColors()
{
    m_groups.setUsualColors(_obtainUsualColors());
    for (KXPanelItem& item : m_laidOut.getAll()) {
        if (_isOthers(item.item)) {
            item.color = othersColor;
            continue;
        }
        const auto own = m_hostColors.empty() ? m_hostColors.end()
                                              : m_hostColors.find(_obtainCell(_obtainOwnItem(item.item)));
        const bool hasNone = own == m_hostColors.end() ||
                             item.item.kind != 0; // as it is no value of the host's
        item.color = hasNone ? _obtainItemColor(item.item) : own->second;
    }
    for (Label& label : m_labels)
        if (label.placed.isOnGround) {
            const KXPanelItem& item = getLaidOutItems()[label.item];
            const UXDoublePoint middle(uxMidDoubleX(label.placed.rect), uxMidDoubleY(label.placed.rect));
            const bool isOnPart = item.share >= 1 || item.shape.obtainPart(item.share).holdsPoint(middle);
            label.placed.property.textColor = kxObtainReadableColor(
                KXHighlightedParts::obtainTextGround(item.color, isOnPart ? 1 : 0, obtainDimmedOpacity()));
        }
    updateLegendColor();
    _updateLooks();
}

void KXMemberPanelChart::_updateLook(KXPanelItem& item) const
{
    item.look = getItems()->obtainLook(item.item, item.color);
    item.light = KXHighlightedParts::obtainLightColor(item.look.fill, obtainDimmedOpacity());
    const std::vector<KXChartItem>& chosen = getItems()->getSelected();
    const bool isChosen = std::ranges::binary_search(chosen, item.item);
    item.shift = isChosen ? _obtainChosenShift(item) : UXDoublePoint();
}

void KXMemberPanelChart::_updateLabelLook(Label& label) const
{
    const UXColor& color = label.placed.property.textColor;
    if (label.item < getLaidOutItems().size())
        label.drawnColor = getItems()->obtainDrawnColor(getLaidOutItems()[label.item].item, color,
                                                        KXInteractionEffectTarget::NonFilled);
    else
        label.drawnColor = color;
}

void KXMemberPanelChart::_updateLooks()
{
    const bool arePlain = !getItems()->isHighlighting() && getItems()->getSelected().empty();
    for (KXPanelItem& item : m_laidOut.getAll()) {
        if (!arePlain) {
            _updateLook(item);
            continue;
        }
        item.look = {item.color};
        item.shift = {};
        if (item.share < 1)
            item.light = KXHighlightedParts::obtainLightColor(item.color, obtainDimmedOpacity());
    }
    m_runs.set(getLaidOutItems());
    for (Label& label : m_labels)
        _updateLabelLook(label);
    m_layer->addDirtyRect(m_layer->getDrawingRect());
}

void KXMemberPanelChart::itemLooksChanged() { _updateLooks(); }

void KXMemberPanelChart::itemLookChanged(const KXChartItem& item)
{
    const std::optional<std::size_t> found = m_laidOut.find(item);
    if (!found)
        return;
    const auto repaint = [&] {
        const KXPanelItem& drawn = getLaidOutItems()[*found];
        const UXDoubleRect bounds = drawn.obtainDrawnShape().getBounds();
        m_layer->addDirtyRect(uxSurroundingRect(uxInflateDoubleRect(bounds, 1.0, 1.0)));
    };
    repaint(); // where it was drawn
    _updateLook(m_laidOut.getAll()[*found]);
    m_runs.set(getLaidOutItems());
    repaint();
    for (Label& label : m_labels)
        if (label.item == *found) {
            _updateLabelLook(label);
            m_layer->addDirtyRect(uxSurroundingRect(label.placed.rect));
        }
}

void KXMemberPanelChart::_paintItems(UXPainter& painter, const UXRect& dirtyRect) const
{
    _paintUnderItems(painter);
    m_runs.paint(painter, dirtyRect, getLaidOutItems());
    _paintOverItems(painter);
    for (const Label& label : m_labels) {
        UXDoubleRect rect = label.placed.rect;
        if (label.placed.isOnGround) { // and goes along with its item
            rect.x += getLaidOutItems()[label.item].shift.x;
            rect.y += getLaidOutItems()[label.item].shift.y;
        }
        if (!uxIntersectsRect(uxSurroundingRect(rect), dirtyRect))
            continue;
        UXTextProperty property = label.placed.property;
        property.textColor = label.drawnColor;
        painter.drawText(label.placed.text, rect, property);
    }
}
