#pragma once

#include "kx_chart.h"
#include "kx_chart_items_delegate.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

class KXChartDataFormat;

/**
 * A chart whose items stand in one panel, without axes: labels, and what the chart draws itself. A chart type
 * lists its items with obtainItems, in the order in which one reads them. For an item that is shown by a
 * label the label answers; a chart that draws items overrides obtainItemAt and obtainItemRect.
 *
 * What a chart type has in its key tables is written, read and reset here, in the tables' order.
 *
 * A chart type calls _makeItems in its constructor, as it is also the data user and what hints and clicks
 * need.
 */
class KX_EXPORT KXPanelChart : public KXChart, public KXChartItemsDelegate {
public:
    KXPanelChart();
    ~KXPanelChart() override;

    /** @return how numbers are written; made and destroyed by the chart, never null */
    KXChartDataFormat* getDataFormat() const;

    // From UXJsonObject: the keys of the chart type, by its tables
    bool customDeserialize() override;

    // From KXChartItemsDelegate
    std::optional<KXChartItem> obtainItemAt(UXPoint point) const override;
    bool hasItem(const KXChartItem& item) const override;
    std::vector<KXChartItem> obtainItems() const override = 0;
    UXRect obtainItemRect(const KXChartItem& item) const override;
    /** Every arrow goes on in the reading order, back to the left and up. */
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;
    std::vector<KXChartLabel*> obtainItemLabels() const override;
    void itemLooksChanged() override;

protected:
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;
    /** @return where a step leads to among count items in the order in which one reads them, none beyond the
     * ends */
    static std::optional<std::size_t> _obtainPlaceBeside(const std::optional<std::size_t>& from,
                                                         std::size_t count, KXChartItemStep step);

    std::unique_ptr<KXChartDataFormat> m_dataFormat;
};
