#pragma once

#include "kx_chart_description.h"
#include "kx_export.h"
#include "ux/ux_accessible_object.h"

#include <vector>

class KXChart;

/**
 * A chart for those who do not see it: a figure with its title, its axes, its items in rows, which are made
 * when someone asks for them, and its legend and other parts. Where parts of a chart are operated themselves,
 * as in a filter, those are its items.
 */
class KX_EXPORT KXAccessibleChart : public UXAccessibleObject {
public:
    explicit KXAccessibleChart(KXChart& chart);
    ~KXAccessibleChart() override;

    // From UXAccessibleNode
    UXAccessibleInfo obtainInfo() override;
    std::uint64_t obtainChildCount() override;
    std::unique_ptr<UXAccessibleNode> createChild(std::uint64_t index) override;

protected:
    std::vector<UXObject*> _obtainParts() const override;

private:
    KXChart* _getChart() const;
    bool _hasItems() const;
    KXChartDescription& _obtainDescription();
    std::unique_ptr<UXAccessibleNode> _createTitle() const;
    std::unique_ptr<UXAccessibleNode> _createAxis(const KXChartDescription::Axis& axis) const;

    std::optional<KXChartDescription> m_description; // once asked for
    std::unique_ptr<UXAccessibleNode> m_items;       // of what its children stand in this one
};
