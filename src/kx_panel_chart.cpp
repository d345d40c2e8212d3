#include "kx_panel_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_label.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_property_table.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cstdint>

namespace {

/** A page is one part of the items of so many. */
constexpr std::int64_t pageDivider = 10;

} // namespace

KXPanelChart::KXPanelChart() : m_dataFormat(std::make_unique<KXChartDataFormat>())
{
    m_dataFormat->setUpdatedEvent([this] { setRequireToVerifyLayout(true, true); });
}

KXPanelChart::~KXPanelChart() { m_dataFormat->setUpdatedEvent({}); }

KXChartDataFormat* KXPanelChart::getDataFormat() const { return m_dataFormat.get(); }

bool KXPanelChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool isComplete = KXChart::customDeserialize();
    if (self.isAlive())
        setRequireToVerifyLayout(true, true);
    return isComplete;
}

void KXPanelChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    auto* other = dynamic_cast<KXPanelChart*>(source);
    if (!other || UXPropertyTable::obtainTable(*other) != UXPropertyTable::obtainTable(*this))
        return;
    const UXObjectWatcher self(this), sourceWatcher(source);
    if (groups.contains("DataFormat"))
        m_dataFormat->customResetProperties(KXChartResetType::All, other->m_dataFormat.get(), groups);
    const UXPropertyTable& own = *UXPropertyTable::obtainTable(*source);
    for (const UXPropertyTable* table : own.obtainTables(&KXChart::obtainPropertyTable()))
        if (self.isAlive() && sourceWatcher.isAlive())
            _resetKeys(*table, type, *source, groups);
}

std::optional<KXChartItem> KXPanelChart::obtainItemAt(UXPoint point) const
{
    for (const KXChartItem& item : obtainItems()) {
        const KXChartLabel* label = obtainItemLabel(item);
        if (label && label->getVisible() && uxPointInRect(point, label->getRect()))
            return item;
    }
    return std::nullopt;
}

bool KXPanelChart::hasItem(const KXChartItem& item) const
{
    return std::ranges::count(obtainItems(), item) > 0;
}

UXRect KXPanelChart::obtainItemRect(const KXChartItem& item) const
{
    const KXChartLabel* label = obtainItemLabel(item);
    return label && label->getVisible() ? uxIntersectionRect(label->getRect(), getBoundingRect()) : UXRect();
}

std::optional<KXChartItem> KXPanelChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                          KXChartItemStep step) const
{
    const std::vector<KXChartItem> items = obtainItems();
    const auto found = from ? std::ranges::find(items, *from) : items.end();
    const auto place = found == items.end() ? std::nullopt
                                            : std::optional(static_cast<std::size_t>(found - items.begin()));
    const std::optional<std::size_t> next = _obtainPlaceBeside(place, items.size(), step);
    return next ? std::optional(items[*next]) : std::nullopt;
}

std::optional<std::size_t> KXPanelChart::_obtainPlaceBeside(const std::optional<std::size_t>& from,
                                                            std::size_t count, KXChartItemStep step)
{
    using enum KXChartItemStep;
    if (count == 0)
        return std::nullopt;
    if (step == First || step == Last)
        return step == First ? 0 : count - 1;
    if (!from)
        return std::nullopt;
    const bool isBack = step == Previous || step == Left || step == Up || step == PageUp;
    const bool isPage = step == PageUp || step == PageDown;
    const auto last = static_cast<std::int64_t>(count - 1), place = static_cast<std::int64_t>(*from);
    const std::int64_t distance = isPage ? std::max(last / pageDivider, std::int64_t{1}) : 1;
    const std::int64_t wanted = std::clamp(isBack ? place - distance : place + distance, std::int64_t{0},
                                           last);
    if (wanted == place)
        return std::nullopt;
    return static_cast<std::size_t>(wanted);
}

std::vector<KXObjectID> KXPanelChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    const KXChartLabel* label = obtainItemLabel(item);
    return label ? label->getExtraOIDs() : std::vector<KXObjectID>();
}

std::vector<KXChartLabel*> KXPanelChart::obtainItemLabels() const
{
    std::vector<KXChartLabel*> labels;
    for (const KXChartItem& item : obtainItems())
        if (KXChartLabel* label = obtainItemLabel(item))
            labels.push_back(label);
    return labels;
}

void KXPanelChart::itemLooksChanged() { invalidate(); }
