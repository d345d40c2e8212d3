#pragma once

#include "kx_scatter_chart_data_view.h"
#include "kx_xy_axis_chart.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXLineGradientLegend;
class KXScatterChartProperty;
class KXSizeLegend;

/**
 * Shows how values lie to each other: each member is a point whose places along both axes, size and colour
 * are the values of up to four measures. Without one along the X axis points lie at their members, which may
 * be dates. Both axes can be zoomed; the keyboard goes from point to point in the direction of its arrows.
 */
class KX_EXPORT KXScatterChart : public KXXYAxisChart {
public:
    KXScatterChart();
    ~KXScatterChart() override;

    // Properties
    /** @return the property object that the chart made and destroys, never null */
    KXScatterChartProperty* getScatterChartProperty() const;
    /** @return how the measure that gives sizes, and the one that gives colours, are written; the chart's,
     * never null */
    KXChartDataFormat* getSizeDataFormat() const { return m_sizeDataFormat.get(); }
    KXChartDataFormat* getColorDataFormat() const { return m_colorDataFormat.get(); }

    // Queries
    const KXScatterChartDataView& getDataView() const { return m_dataView; }
    /** @return the legends of colours that stand for values, and of sizes; children of the chart, never null
     */
    KXLineGradientLegend* getGradientLegend() const { return m_gradientLegend; }
    KXSizeLegend* getSizeLegend() const { return m_sizeLegend; }

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From KXXYAxisChart, KXChart, KXLegendDelegate and UXJsonObject
    bool calculateSuitableMinMaxIfNumberData(KXAxisProperty* property) override;
    bool shouldSelectByBox() override;
    /** Tells the provider of the points whose centres lie in the box, and chooses them where it keeps a
     * choice. */
    void selectInBox(const UXDoubleRect& box, const UXEvent& event) override;
    void registerChartPropertyUpdatedEvents() override;
    std::uint64_t obtainLegendCellSize() override;
    std::string customSerializeTypeID() override;

    // From KXChartItemsDelegate
    std::optional<KXChartItem> obtainItemBeside(const std::optional<KXChartItem>& from,
                                                KXChartItemStep step) const override;
    void showItem(const KXChartItem& item) override;

protected:
    std::optional<RoleMeasures> _obtainRoleMeasures(KXAxisChartDataProvider& provider) override;
    std::string _obtainProposedTitle(const KXAxisChartAxis& axis) const override;
    std::optional<std::uint64_t> _obtainCategoryAt(UXPoint point) const override;
    std::vector<KXObjectID> _obtainMarkObjectIDs(const KXAxisChartMark& mark) const override;
    void _fillHint(UXHintInfo& info, std::uint64_t category,
                   const std::optional<KXAxisChartMark>& first) override;
    void _customLayout(UXRect plotArea) override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;

private:
    void _updateLegends();

    KXScatterChartDataView& m_dataView; // the chart's
    std::unique_ptr<KXChartDataFormat> m_sizeDataFormat, m_colorDataFormat;
    KXLineGradientLegend* m_gradientLegend;
    KXSizeLegend* m_sizeLegend;
    UXPropertyTableBinding m_scatterPropertyBinding{*this, obtainPropertyTable()};
};
