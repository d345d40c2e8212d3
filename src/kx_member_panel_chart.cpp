#include "kx_member_panel_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_hint_text.h"
#include "kx_legend.h"
#include "kx_panel_chart_data_provider.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr UXColor offColor(205, 205, 210);

KXChartItem makeItem(std::uint64_t item) { return {0, item, 0}; }

} // namespace

KXMemberPanelChart::KXMemberPanelChart()
    : KXPanelChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_dataFormat(std::make_unique<KXChartDataFormat>())
{
    _makeItems(*this, *this, *this, *this);
    getLegend()->enableCellClick();
    m_dataFormat->setUpdatedEvent([this] { setRequireToVerifyLayout(true, true); });
}

KXMemberPanelChart::~KXMemberPanelChart()
{
    _leaveView();
    m_dataFormat->setUpdatedEvent({});
}

KXChartDataFormat* KXMemberPanelChart::getDataFormat() const { return m_dataFormat.get(); }

std::uint64_t KXMemberPanelChart::obtainItemCount() const
{
    return _showsMembers() && getMeasureCount() > 0 ? getMemberCount(0) : getMeasureCount();
}

KXIndexPath KXMemberPanelChart::_obtainItemPath(std::uint64_t item) const
{
    return _showsMembers() ? KXIndexPath{0, item} : KXIndexPath{item, 0};
}

double KXMemberPanelChart::obtainItemValue(std::uint64_t item) const
{
    if (item >= obtainItemCount())
        return std::numeric_limits<double>::quiet_NaN();
    return _showsMembers() ? getValue(0, item) : getValue(item, 0);
}

std::string KXMemberPanelChart::obtainItemName(std::uint64_t item)
{
    if (!_showsMembers())
        return getMeasureLabel(item);
    const UXObjectWatcher self(this);
    const std::string text = obtainMemberText(0, item);
    const bool isMissing = self.isAlive() && item < getMemberCount(0) && !hasMemberText(0, item);
    return isMissing ? KXDataRequests::placeholder : text;
}

std::string KXMemberPanelChart::obtainItemValueText(std::uint64_t item) const
{
    const double value = obtainItemValue(item);
    return std::isnan(value) ? std::string() : m_dataFormat->formatNumber(value);
}

UXColor KXMemberPanelChart::obtainItemColor(std::uint64_t item) const
{
    if (item < m_itemColors.size())
        return m_itemColors[item];
    const std::vector<UXColor> colors = getDefaultColors();
    return colors[item % colors.size()];
}

bool KXMemberPanelChart::isItemShown(std::uint64_t item) const
{
    return item < m_isOn.size() && m_isOn[item] && !std::isnan(obtainItemValue(item));
}

void KXMemberPanelChart::setItemShown(std::uint64_t item, bool shown)
{
    if (item >= m_isOn.size() || m_isOn[item] == shown)
        return;
    const UXObjectWatcher self(this);
    const std::string name = obtainItemName(item);
    if (!self.isAlive() || item >= m_isOn.size())
        return;
    m_isOn[item] = shown;
    if (shown)
        m_namesOff.erase(name);
    else
        m_namesOff.insert(name);
    updateLegendColor();
    getItems()->forgetPointer();
    if (self.isAlive())
        setRequireToVerifyLayout(true, true);
}

std::vector<KXChartItem> KXMemberPanelChart::_obtainShownItems() const
{
    std::vector<KXChartItem> items;
    for (std::uint64_t item = 0; item < obtainItemCount(); ++item)
        if (isItemShown(item))
            items.push_back(makeItem(item));
    return items;
}

std::string KXMemberPanelChart::_obtainItemKind() const { return "Item"; }

std::uint64_t KXMemberPanelChart::obtainLegendCellSize() { return obtainItemCount(); }
std::string KXMemberPanelChart::obtainLegendLabel(std::uint64_t index) { return obtainItemName(index); }

bool KXMemberPanelChart::obtainLegendSymbolColor(std::uint64_t index, UXColor& color)
{
    color = obtainLegendCellIsOn(index) ? obtainItemColor(index) : offColor;
    return true;
}

std::vector<KXObjectID> KXMemberPanelChart::obtainLegendCellObjectID(std::uint64_t index)
{
    return obtainItemObjectIDs(makeItem(index));
}

bool KXMemberPanelChart::obtainLegendCellIsOn(std::uint64_t index)
{
    return index < m_isOn.size() && m_isOn[index];
}

void KXMemberPanelChart::legendCellClicked(std::uint64_t index, const UXEvent&)
{
    if (isInteractionEnabled())
        setItemShown(index, !obtainLegendCellIsOn(index));
}

void KXMemberPanelChart::legendCellHovered(std::uint64_t index, bool hovered)
{
    if (hovered && isInteractionEnabled() && isItemShown(index))
        getItems()->highlightGroup(index);
    else if (getItems()->getHighlightedGroup() == index)
        getItems()->highlightGroup(std::nullopt);
}

void KXMemberPanelChart::customReloadData()
{
    const UXObjectWatcher self(this);
    std::vector<bool> isOn(obtainItemCount(), true);
    // Names are asked for only where some are to be found again.
    for (std::uint64_t item = 0; item < isOn.size() && !m_namesOff.empty(); ++item) {
        const std::string name = obtainItemName(item);
        if (!self.isAlive())
            return;
        isOn[item] = !m_namesOff.contains(name);
    }
    m_isOn = std::move(isOn);
}

void KXMemberPanelChart::customReloadColors()
{
    const std::vector<UXColor> palette = getDefaultColors();
    std::vector<UXColor> colors;
    const KXChartDataProviderUse use(*this);
    for (std::uint64_t item = 0; item < obtainItemCount(); ++item) {
        UXColor& color = colors.emplace_back(palette[item % palette.size()]);
        if (use.isCurrent())
            use.get()->obtainValueDataColor(this, _obtainItemPath(item), color);
        if (!use.isAlive())
            return;
    }
    m_itemColors = std::move(colors);
}

void KXMemberPanelChart::reloadChartColors()
{
    KXPanelChart::reloadChartColors();
    updateLegendColor();
    invalidate();
}

void KXMemberPanelChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXPanelChart::afterReloadData();
    if (self.isAlive())
        registerLeftClickAction(this, KXTriggerCondition());
}

UXRect KXMemberPanelChart::obtainHintArea(UXPoint point) { return getItems()->obtainHintArea(point); }
KXChartDataPath* KXMemberPanelChart::createDataPath() { return getItems()->createActionPath(); }

KXChartDataPath* KXMemberPanelChart::createItemPath(const KXChartItem& item)
{
    auto* path = new KXChartDataPath;
    path->identifier = _obtainItemKind();
    path->valueIndexPath = _obtainItemPath(item.group);
    if (_showsMembers())
        path->dimensionIndexPath = {0, item.group};
    return path;
}

/** A value is named by its whole path, and a member by itself. */
std::vector<KXChartItem> KXMemberPanelChart::findItems(const KXChartDataPath& path)
{
    const KXIndexPath& member = path.dimensionIndexPath;
    const bool namesValue = path.valueIndexPath.size() > 1;
    if (_showsMembers() ? member.empty() && !path.identifier.empty() : !member.empty())
        return {};
    std::vector<KXChartItem> items = _obtainShownItems();
    std::erase_if(items, [&](const KXChartItem& item) {
        const bool isValue = !namesValue || path.valueIndexPath == _obtainItemPath(item.group);
        const bool isMember = member.empty() ? namesValue : member == KXIndexPath{0, item.group};
        return !isValue || !isMember;
    });
    return items;
}

std::vector<KXObjectID> KXMemberPanelChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    return {KXObjectID::instance().path(kxCreateObjectIDPath(_obtainItemKind())).index(item.group)};
}

/** @return what the provider says about an item, or else its name and its value */
UXHintInfo KXMemberPanelChart::obtainItemHint(const KXChartItem& item)
{
    KXChartDataProviderHintData data;
    const KXChartDataProviderUse use(*this);
    if (auto* provider = use.as<KXPanelChartDataProvider>())
        data = provider->obtainHintData(this, _obtainItemPath(item.group));
    if (!use.isAlive())
        return UXHintInfo(false);
    if (data.isEmpty()) {
        data.title = obtainItemName(item.group);
        if (!use.isAlive())
            return UXHintInfo(false);
        data.value = obtainItemValueText(item.group);
    }
    return kxMakeHintInfo(data, UXHintInfo());
}
