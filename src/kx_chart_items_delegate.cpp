#include "kx_chart_items_delegate.h"

#include "ux/ux_rect_functions.h"

#include <limits>

namespace {

/** What gives way can still be read, but draws no eye. */
constexpr double usualDimmedOpacity = 0.35;

} // namespace

std::optional<KXChartItem> KXChartItemsDelegate::obtainExplainedAt(UXPoint) const { return std::nullopt; }

std::vector<KXChartItem> KXChartItemsDelegate::obtainItems() const
{
    std::vector<KXChartItem> items;
    for (std::optional<KXChartItem> item = obtainItemBeside(std::nullopt, KXChartItemStep::First); item;
         item = obtainItemBeside(item, KXChartItemStep::Next))
        items.push_back(*item);
    return items;
}

std::uint64_t KXChartItemsDelegate::obtainItemRowCount() const { return 0; }
std::string KXChartItemsDelegate::obtainItemRowName(std::uint64_t) { return {}; }
std::uint64_t KXChartItemsDelegate::obtainItemRowLength(std::uint64_t) const { return 0; }

KXChartItem KXChartItemsDelegate::obtainItemInRow(std::uint64_t row, std::uint64_t place) const
{
    return {0, row, place};
}

UXAccessibleRole KXChartItemsDelegate::obtainItemRole(const KXChartItem&) const
{
    return UXAccessibleRole::Mark;
}

double KXChartItemsDelegate::obtainItemValue(const KXChartItem&) const
{
    return std::numeric_limits<double>::quiet_NaN();
}

std::string KXChartItemsDelegate::obtainItemValueText(const KXChartItem&) const { return {}; }

UXPoint KXChartItemsDelegate::obtainItemHintPoint(const KXChartItem& item)
{
    const UXRect rect = obtainItemRect(item);
    return {uxMidX(rect), rect.y};
}

void KXChartItemsDelegate::showItem(const KXChartItem&) {}
KXChartItem KXChartItemsDelegate::obtainExplained(const std::vector<KXChartItem>& items) const
{
    return items.front();
}
KXChartLabel* KXChartItemsDelegate::obtainItemLabel(const KXChartItem&) const { return nullptr; }
std::vector<KXChartLabel*> KXChartItemsDelegate::obtainItemLabels() const { return {}; }
void KXChartItemsDelegate::itemLookChanged(const KXChartItem&) { itemLooksChanged(); }
void KXChartItemsDelegate::itemExplained(const std::optional<KXChartItem>&) {}
double KXChartItemsDelegate::obtainDimmedOpacity() const { return usualDimmedOpacity; }
