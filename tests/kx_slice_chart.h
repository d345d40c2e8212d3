#pragma once

#include "kx_key_table.h"
#include "kx_member_panel_chart.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

#define KX_SLICE_KEYS(KEY)                                                                           \
    KEY(double, HoleRatio, m_holeRatio, 0, Any(Slices), Layout, "share of the radius, 0 to 1")       \
    KEY(std::vector<UXColor>, SliceColors, m_sliceColors, {}, Any(Slices), Recolor, "of the slices") \
    KEY(bool, ShowNames, m_showNames, true, Any(Slices), Layout, "inside of the slices")

/** Slices of a whole, clockwise from the top, with their names inside; a whole for each member of a second
 * dimension. This is all that such a panel has to say. */
class KXSliceChart : public KXMemberPanelChart {
    KX_DECLARE_CHART_KEYS(KX_SLICE_KEYS)
public:
    ~KXSliceChart() override { _leaveView(); }
    std::string customSerializeTypeID() override { return "KXSliceChart"; }

protected:
    std::vector<KXPanelItem> _layoutItems(const UXRect& area) override
    {
        std::vector<double> sums(obtainIndexCount()), starts(obtainIndexCount(), -90.0);
        for (const KXChartItem& item : obtainItems())
            sums[item.index] += std::max(obtainItemValue(item), 0.0);
        const double width = area.width / static_cast<double>(sums.size());
        const double radius = std::min<double>(width, area.height) / 2;
        std::vector<KXPanelItem> items;
        for (const KXChartItem& item : obtainItems()) {
            const double part = std::max(obtainItemValue(item), 0.0) / sums[item.index];
            const UXDoublePoint center(area.x + (static_cast<double>(item.index) + 0.5) * width,
                                       area.y + area.height / 2.0);
            if (!(part > 0))
                continue;
            items.push_back(
                {item, KXSector{center, m_holeRatio * radius, radius, starts[item.index], 360 * part}});
            starts[item.index] += 360 * part;
        }
        return items;
    }
    void _requestLabels(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const override
    {
        for (std::size_t i = 0; m_showNames && i < getLaidOutItems().size(); ++i)
            requests.push_back(_makeLabelInside(placer, i, _findName(getLaidOutItems()[i].item), {}));
    }
    std::vector<UXColor> _obtainUsualColors() const override
    {
        return m_sliceColors.empty() ? getDefaultColors() : m_sliceColors;
    }
    std::string _obtainItemKind() const override { return "Slice"; }
};
