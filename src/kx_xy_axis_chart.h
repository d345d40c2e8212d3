#pragma once

#include "kx_axis_chart.h"
#include "kx_axis_chart_value_map.h"
#include "ux/ux_double_rect.h"

#include <cstdint>
#include <utility>

class KXAxis;
class KXAxisProperty;
class KXChartDataFormat;

/**
 * Categories along one axis, values along the other. The X axis is that of the categories, whatever the
 * orientation is: from left to right below the marks, or from top to bottom on their left. A second axis for
 * values stands across from the first one where a series asks for it.
 *
 * Categories are slots, counted from 0 with category c around the value c; on a continuous axis each lies at
 * its number. Marks are placed by maps, so that one code serves both orientations and both kinds of axis:
 *
 *     const KXAxisChartValueMap across = obtainCategoryMap(), along = obtainValueMap(series);
 *     const auto [first, end] = obtainVisibleCategories();
 *     for (std::uint64_t c = first; c < end; ++c) {
 *         const double centre = across.obtainPosition(obtainCategoryValue(c));
 *         rect = obtainPlotRect(centre - half, centre + half, along.obtainPosition(0),
 *                               along.obtainPosition(getValue(series, c)));
 *     }
 */
class KX_EXPORT KXXYAxisChart : public KXAxisChart {
public:
    KXXYAxisChart();
    ~KXXYAxisChart() override;

    // Parts: made and destroyed by the chart, never null
    KXAxisProperty* getXAxisProperty() const;
    KXAxisProperty* getYAxisProperty() const;
    KXAxisProperty* getSecondaryYAxisProperty() const;
    /** @return how the categories' dates and times are written */
    KXChartDataFormat* getXDataFormat() const;
    KXChartDataFormat* getYDataFormat() const;
    KXChartDataFormat* getSecondaryYDataFormat() const;
    KXAxis* getXAxis() const;
    KXAxis* getYAxis() const;
    KXAxis* getSecondaryYAxis() const;

    // Policy
    /** @return whether a series' values are told by the secondary axis; by default none's */
    virtual bool isSeriesOnSecondaryAxis(std::uint64_t series) const;
    /** @return whether an automatic range of that value axis holds zero, as marks that start there need it.
     * By default not. */
    virtual bool shouldIncludeZero(const KXAxisProperty* property) const;
    /** @return whether an automatic range of that axis gets rounded bounds with headroom; by default not */
    virtual bool calculateSuitableMinMaxIfNumberData(KXAxisProperty* property);

    // Scale
    /** Makes the range of the data's if the record is stale. @return whether there was anything to do */
    bool updateAxisCacheData(KXAxisProperty* property, KXAxisChartAxisCacheData* cache);
    /** @return the ranges of an axis, as of the last layout; null for a property of no axis */
    const KXAxisChartAxisCacheData* obtainAxisCacheData(const KXAxisProperty* property) const;

    // Tick labels
    /** @return the property of the axis that the view labels; null for a view of no axis */
    virtual KXAxisProperty* obtainAxisPropertyOfTickLabelView(KXAxisTickLabelView* view);
    virtual KXAxisChartAxisCacheData* obtainAxisCacheDataOfTickLabelView(KXAxisTickLabelView* view);

    // Places, as of the last layout; in the plot's space
    /** @return whether the categories lie at their numbers instead of in slots */
    bool isContinuous() const { return m_isContinuous; }
    /** @return where on the X axis a category lies: its index, or its number on a continuous axis */
    double obtainCategoryValue(std::uint64_t category);
    KXAxisChartValueMap obtainCategoryMap() const;
    /** @return the room of one category along its axis: a slot, or the least distance of a continuous axis */
    double obtainCategorySpacing() const;
    KXAxisChartValueMap obtainValueMap(std::uint64_t series) const;
    /** @return the first category that can be seen, and the one after the last. On a continuous axis whose
     * numbers do not grow these are all. */
    std::pair<std::uint64_t, std::uint64_t> obtainVisibleCategories();
    /** @return the rectangle between two places along the categories and two along the values, in any order
     */
    UXDoubleRect obtainPlotRect(double category1, double category2, double value1, double value2) const;

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From UXJsonObject, KXAxisTickLabelViewDelegate and KXAxisChart
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    int axisTickLabelViewObtainTickLabelCount(KXAxisTickLabelView* view) override;
    double axisTickLabelViewObtainTick(KXAxisTickLabelView* view, int index) override;
    void axisTickLabelViewObtainTickLabel(KXAxisTickLabelView* view, double value,
                                          std::string& text) override;
    std::string obtainValueText(std::uint64_t series, double value) const override;

protected:
    /** @return where the categories lie on a continuous axis, as of the last layout; empty for slots */
    const std::vector<double>& _getCategoryNumbers() const { return m_categoryNumbers; }
    double _calculateSuitableRange(double amount, bool forTicks) const;

    // From KXAxisChartBase and KXAxisChart
    void _customUpdateAxes() override;
    KXAxisChartAxis* _obtainScrolledAxis() const override;
    double _obtainMinCategorySpacing() const override;
    void _axisPropertyUpdated(KXAxisChartAxis& axis, const std::string& key) override;
    std::optional<std::uint64_t> _obtainCategoryAt(UXPoint point) const override;
    UXPoint _obtainHintPoint(const KXAxisChartMark& mark) override;
    void _updateDataRanges() override;

private:
    KXAxisChartAxis& _obtainValueAxis(std::uint64_t series) const;
    bool _wantsContinuous() const;
    void _updateCategoryRange();
    void _updateValueRange(KXAxisChartAxis& axis, const std::vector<std::uint64_t>& series);
    void _updateDefaultTitles();
    std::string _obtainProposedTitle(const KXAxisChartAxis& axis) const;
    void _placeSides();
    void _setCategoryScale();
    std::string _obtainCategoryTickText(double value);

    KXAxisChartAxis& m_x; // the chart's axes
    KXAxisChartAxis& m_y;
    KXAxisChartAxis& m_secondaryY;
    bool m_isContinuous = false;
    bool m_categoriesGrow = true;  // on a continuous axis: no number is below the one before
    double m_categoryDistance = 1; // the least one between two of them
    std::vector<double> m_categoryNumbers;
    UXPropertyTableBinding m_xyPropertyBinding{*this, obtainPropertyTable()};
};
