#pragma once

#include "kx_axis_chart.h"
#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_linear_scale.h"
#include "kx_axis_chart_plot_frame.h"
#include "ux/ux_double_rect.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

class KXAxis;
class KXAxisProperty;
class KXChartDataFormat;

/**
 * Categories along one axis, values along the other. The X axis is that of the categories, whatever the
 * orientation is: from left to right below the marks, or from top to bottom on their left. A second axis for
 * values stands across from the first one where a series asks for it.
 *
 * Categories are slots, counted from 0 with category c around the value c; on a continuous axis each lies at
 * its number. What stands against the axes are the marks of the chart's views, which are placed by the frame
 * of their value axis, so that one code serves both orientations and both kinds of axis. A chart type adds
 * its views, says which of them shows a series where there are several, and leaves the rest to them.
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

    /** @return whether the values of a series are told by the secondary axis, as its view is */
    bool isSeriesOnSecondaryAxis(std::uint64_t series) const;

    // Policy
    /** @return whether an automatic range of that value axis holds zero, as marks that start there need it;
     * by default where a view wants it */
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
    KXAxisChartLinearScale obtainCategoryMap() const;
    /** @return the room of one category along its axis: a slot, or the least distance of a continuous axis */
    double obtainCategorySpacing() const;
    KXAxisChartLinearScale obtainLinearScale(std::uint64_t series) const;
    /** @return where marks against one of the value axes are drawn, with the pixels of the device that is
     * known to show the chart */
    KXAxisChartPlotFrame obtainPlotFrame(bool isOnSecondaryAxis) const;
    /** @return where the categories lie on a continuous axis, as of the last reload; empty for slots */
    const std::vector<double>& getCategoryNumbers() const { return m_categoryNumbers; }
    /** @return the first category that can be seen, and the one after the last. On a continuous axis whose
     * numbers do not grow these are all. */
    std::pair<std::uint64_t, std::uint64_t> obtainVisibleCategories();

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
    void _categoryTextsArrived(bool areFirst) override;
    /** Adds a view in front of those before it. @return it, which the chart keeps */
    template <class View>
    View& _addView(std::unique_ptr<View> view)
    {
        View& added = *view;
        _insertView(getDataViews().size(), std::move(view));
        return added;
    }
    void _insertView(std::size_t place, std::unique_ptr<KXAxisChartDataView> view);

    double _calculateSuitableRange(double amount, bool forTicks) const;

    // From KXAxisChartBase and KXAxisChart
    void _customUpdateAxes() override;
    KXAxisChartAxis* _obtainScrolledAxis() const override;
    double _obtainMinCategorySpacing() const override;
    double _obtainLabelledCategorySpacing() const override;
    void _axisPropertyUpdated(KXAxisChartAxis& axis, UXPropertyEffect effect) override;
    std::optional<std::uint64_t> _obtainCategoryAt(UXPoint point) const override;
    UXPoint _obtainHintPoint(const KXAxisChartMark& mark) override;
    void _updateDataRanges() override;

private:
    KXAxisChartAxis& _obtainValueAxis(std::uint64_t series) const;
    bool _wantsContinuous() const;
    bool _takeNumberRange();
    void _updateCategoryRange();
    // Views by their places that the other axis of values tells than the one that the chart type gave them
    std::vector<int> _getViewsOnOtherAxis() const;
    void _storeViewsOnOtherAxis(const std::vector<int>& places);
    void _updateViewsOnOtherAxis(const std::vector<int>& places);
    static const UXPropertyType& _obtainViewsType();
    /** @return whether a view has values on the axis */
    bool _updateValueRange(KXAxisChartAxis& axis);
    std::optional<std::uint64_t> _obtainPlacedCategoryAt(UXPoint point) const;
    void _updateDefaultTitles();
    std::string _obtainProposedTitle(const KXAxisChartAxis& axis) const;
    void _placeSides();
    void _setCategoryScale();
    std::string _obtainCategoryTickText(double value);

    KXAxisChartAxis& m_x; // the chart's axes
    KXAxisChartAxis& m_y;
    KXAxisChartAxis& m_secondaryY;
    bool m_isContinuous = false;
    std::optional<KXValueExtremes> m_numberRange; // of marks that lie at numbers of their own
    bool m_categoriesGrow = true;                 // on a continuous axis: no number is below the one before
    double m_categoryDistance = 1;                // the least one between two of them
    std::vector<double> m_categoryNumbers;
    UXPropertyTableBinding m_xyPropertyBinding{*this, obtainPropertyTable()};
};
