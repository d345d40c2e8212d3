#pragma once

#include "kx_chart_item.h"
#include "kx_export.h"
#include "ux/ux_accessible_node.h"
#include "ux/ux_object_watcher.h"

#include <string>

class KXChart;

/** One item of a chart for those who do not see it. Its name is what its hint says, and what is done with it
 * is what the keyboard does. */
class KX_EXPORT KXAccessibleItem : public UXAccessibleNode {
public:
    KXAccessibleItem(KXChart& chart, const KXChartItem& item);
    ~KXAccessibleItem() override;

    const KXChartItem& getItem() const { return m_item; }

    // From UXAccessibleNode
    UXObject* getObject() const override;
    UXAccessibleInfo obtainInfo() override;
    bool perform(UXAccessibleAction action) override;

private:
    KXChart* _getChart() const;
    std::string _obtainName() const;

    UXObjectWatcher m_chart;
    KXChartItem m_item;
};
