#pragma once

#include "kx_chart.h"
#include "kx_chart_items_delegate.h"

#include <optional>
#include <vector>

/**
 * A chart whose items stand in one panel, without axes: labels, and what the chart draws itself. It answers
 * for its items by the list of those that are shown, and for those that are shown by a label by that label; a
 * chart that draws items overrides obtainItemAt and obtainItemRect.
 *
 * A chart type calls _makeItems in its constructor, as it is also the data user and what hints and clicks
 * need.
 */
class KX_EXPORT KXPanelChart : public KXChart, public KXChartItemsDelegate {
public:
    KXPanelChart();
    ~KXPanelChart() override;

    // From KXChartItemsDelegate
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;
    bool hasItem(const KXChartItem& item) const override;
    UXRect obtainItemRect(const KXChartItem& item) const override;
    /** Every arrow goes on in the reading order, back to the left and up. */
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    std::vector<KXChartLabel*> obtainItemLabels() const override;
    void itemLooksChanged() override;

protected:
    /** @return the items that are shown, in the order in which one reads them; as of the last layout */
    virtual std::vector<KXChartItem> _obtainShownItems() const = 0;
};
