#pragma once

#include "kx_chart_item.h"
#include "kx_export.h"
#include "ux/ux_accessible_node.h"
#include "ux/ux_object_watcher.h"

#include <optional>
#include <vector>

class KXChart;
class KXChartItemsDelegate;

/** The items of a chart for those who do not see them: all, in one row or in rows; the rows of a table; or
 * one row. */
class KX_EXPORT KXAccessibleItems : public UXAccessibleNode {
public:
    /** All items. */
    explicit KXAccessibleItems(KXChart& chart);
    ~KXAccessibleItems() override;

    // From UXAccessibleNode
    UXObject* getObject() const override;
    UXAccessibleInfo obtainInfo() override;
    std::uint64_t obtainChildCount() override;
    std::unique_ptr<UXAccessibleNode> createChild(std::uint64_t index) override;

private:
    /** Which of them. */
    enum class Part { All, Table, Row };

    KXAccessibleItems(KXChart& chart, Part part, std::uint64_t row);
    KXChartItemsDelegate* _getDelegate() const;
    void _listRow();

    UXObjectWatcher m_chart;
    Part m_part = Part::All;
    std::uint64_t m_row = 0;
    std::optional<std::vector<KXChartItem>> m_listed; // what does not stand in a row without gaps
    bool m_hasLooked = false;                         // for gaps
};
