#include "kx_panel_chart.h"

#include "kx_chart_label.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>

KXPanelChart::KXPanelChart() = default;
KXPanelChart::~KXPanelChart() = default;

std::optional<KXChartItem> KXPanelChart::obtainItemAt(UXPoint point) const
{
    for (const KXChartItem& item : _obtainShownItems()) {
        const KXChartLabel* label = obtainItemLabel(item);
        if (label && label->getVisible() && uxPointInRect(point, label->getRect()))
            return item;
    }
    return std::nullopt;
}

bool KXPanelChart::hasItem(const KXChartItem& item) const
{
    return std::ranges::count(_obtainShownItems(), item) > 0;
}

UXRect KXPanelChart::obtainItemRect(const KXChartItem& item) const
{
    const KXChartLabel* label = obtainItemLabel(item);
    return label && label->getVisible() ? uxIntersectionRect(label->getRect(), getBoundingRect()) : UXRect();
}

std::optional<KXChartItem> KXPanelChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                          KXChartItemStep step) const
{
    using enum KXChartItemStep;
    const std::vector<KXChartItem> items = _obtainShownItems();
    if (items.empty())
        return std::nullopt;
    if (step == First || step == Last)
        return step == First ? items.front() : items.back();
    const auto found = from ? std::ranges::find(items, *from) : items.end();
    if (found == items.end())
        return std::nullopt;
    const bool isBack = step == Previous || step == Left || step == Up;
    if (isBack ? found == items.begin() : found + 1 == items.end())
        return std::nullopt;
    return isBack ? *(found - 1) : *(found + 1);
}

std::vector<KXObjectID> KXPanelChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    const KXChartLabel* label = obtainItemLabel(item);
    return label ? label->getExtraOIDs() : std::vector<KXObjectID>();
}

std::vector<KXChartLabel*> KXPanelChart::obtainItemLabels() const
{
    std::vector<KXChartLabel*> labels;
    for (const KXChartItem& item : _obtainShownItems())
        if (KXChartLabel* label = obtainItemLabel(item))
            labels.push_back(label);
    return labels;
}

void KXPanelChart::itemLooksChanged() { invalidate(); }
