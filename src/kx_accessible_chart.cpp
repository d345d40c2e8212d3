#include "kx_accessible_chart.h"

#include "kx_accessible_items.h"
#include "kx_chart.h"
#include "kx_chart_item_description.h"
#include "kx_chart_items_delegate.h"
#include "kx_chart_label.h"
#include "kx_chart_summary.h"
#include "kx_chart_toolbox.h"
#include "kx_legend.h"
#include "kx_no_data_label.h"
#include "kx_sentence.h"
#include "ux/ux_accessible_leaf.h"
#include "ux/ux_localize.h"

#include <algorithm>

KXAccessibleChart::KXAccessibleChart(KXChart& chart) : UXAccessibleObject(chart, UXAccessibleRole::Figure) {}

KXAccessibleChart::~KXAccessibleChart() = default;

KXChart* KXAccessibleChart::_getChart() const { return static_cast<KXChart*>(getObject()); }

KXChartDescription& KXAccessibleChart::_obtainDescription()
{
    if (!m_description) {
        m_description.emplace();
        if (KXChart* chart = _getChart())
            chart->describe(*m_description);
    }
    return *m_description;
}

UXAccessibleInfo KXAccessibleChart::obtainInfo()
{
    UXAccessibleInfo info = UXAccessibleObject::obtainInfo();
    KXChartDescription description = _obtainDescription(); // the items are told of here alone
    if (KXChart* chart = _getChart())
        kxDescribeItems(*chart, description);
    const std::string summary = kxWriteSummary(description);
    if (!getObject())
        return {};
    info.name = description.title.empty() ? description.kind : description.title;
    info.description = summary;
    return info;
}

/** The texts of a chart are told by its title, its axes and its items, but for the one that there are none.
 */
std::vector<UXObject*> KXAccessibleChart::_obtainParts() const
{
    std::vector<UXObject*> parts = UXAccessibleObject::_obtainParts();
    std::erase_if(parts, [](UXObject* part) {
        return dynamic_cast<UXLabel*>(part) && !dynamic_cast<KXNoDataLabel*>(part);
    });
    return parts;
}

/** @return whether nothing that can be operated stands for the items */
bool KXAccessibleChart::_hasItems() const
{
    const KXChart* chart = _getChart();
    if (!chart || !dynamic_cast<const KXChartItemsDelegate*>(chart))
        return false;
    return std::ranges::all_of(_obtainParts(), [&](UXObject* part) {
        return part == chart->getLegend() || part == chart->getToolbox() ||
               part->hasParent(chart->getToolbox()) || dynamic_cast<UXLabel*>(part);
    });
}

std::unique_ptr<UXAccessibleNode> KXAccessibleChart::_createTitle() const
{
    KXChartLabel& title = *_getChart()->getTitle();
    UXAccessibleInfo info = UXAccessibleObject(title, UXAccessibleRole::Heading).obtainInfo();
    info.name = _getChart()->obtainTitleText();
    return std::make_unique<UXAccessibleLeaf>(title, info);
}

std::unique_ptr<UXAccessibleNode> KXAccessibleChart::_createAxis(const KXChartDescription::Axis& axis) const
{
    KXChart& chart = *_getChart();
    UXAccessibleInfo info;
    info.rect = chart.translateRectToParent(axis.place, nullptr);
    const std::string side = uxLocalizeString(axis.isHorizontal ? "Horizontal axis" : "Vertical axis");
    info.name = axis.name.empty() ? side : side + ", " + axis.name;
    info.value = axis.memberCount == 1 ? axis.first
                                       : kxWriteSentence("from %1 to %2", {axis.first, axis.last});
    return getObject() ? std::make_unique<UXAccessibleLeaf>(chart, info) : nullptr;
}

std::uint64_t KXAccessibleChart::obtainChildCount()
{
    const KXChartDescription& description = _obtainDescription();
    KXChart* chart = _getChart();
    if (!chart)
        return 0;
    if (!m_items && _hasItems())
        m_items = std::make_unique<KXAccessibleItems>(*chart);
    const std::uint64_t items = m_items ? m_items->obtainChildCount() : 0;
    return (description.title.empty() ? 0 : 1) + description.axes.size() + items +
           UXAccessibleObject::obtainChildCount();
}

std::unique_ptr<UXAccessibleNode> KXAccessibleChart::createChild(std::uint64_t index)
{
    if (index >= obtainChildCount() || !getObject())
        return nullptr;
    std::uint64_t place = index;
    if (!m_description->title.empty() && place-- == 0)
        return _createTitle();
    if (place < m_description->axes.size())
        return _createAxis(m_description->axes[static_cast<std::size_t>(place)]);
    place -= m_description->axes.size();
    const std::uint64_t items = m_items ? m_items->obtainChildCount() : 0;
    return place < items ? m_items->createChild(place) : UXAccessibleObject::createChild(place - items);
}
