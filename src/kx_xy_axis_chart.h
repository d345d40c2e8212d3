#pragma once

#include "kx_assistant_line_data_view.h"
#include "kx_axis_chart.h"
#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_plot_frame.h"
#include "kx_axis_chart_scale.h"
#include "kx_axis_chart_zoom.h"
#include "kx_category_places.h"
#include "kx_chart_description.h"
#include "kx_visible_range.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

class KXAxis;
class KXAxisProperty;
class KXChartDataFormat;
class KXChartToolboxItem;

/**
 * Categories along one axis, values along the other. The X axis is that of the categories, whatever the
 * orientation is: from left to right below the marks, or from top to bottom on their left. A second axis for
 * values stands across from the first one where a series asks for it.
 *
 * Categories are slots, counted from 0 with category c around the value c; on a continuous axis each lies at
 * its number, those without one nowhere. A continuous axis has ticks of its own, of what is shown of it, and
 * can show a part. What stands against the axes are the marks of the chart's views, which are placed by the
 * frame of their value axis, so that one code serves both orientations and both kinds of axis. A chart type
 * adds its views, says which of them shows a series where there are several, and leaves the rest to them.
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

    /** @return the lines of reference in front of the marks, or behind them */
    const KXAssistantLineDataView& getAssistantLineView(bool isInFront) const
    {
        return isInFront ? *m_linesInFront : *m_linesBehind;
    }
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

    /** @return whether an axis counts exponents to base ten; stacked ones never do, nor those of marks that
     * place themselves */
    bool isLogarithmic(const KXAxisProperty& property) const;
    /** @return whether a value axis tells parts of 100 percent */
    bool isPercentageAxis(const KXAxisProperty& property) const;

    // Zoom
    /** @return the axes of which the user can have a part shown: a continuous X axis, and the first value
     * axis where marks lie at numbers of their own along both, or where a part of it is shown */
    std::vector<KXAxis*> obtainZoomedAxes() const;
    /** @return whether a part of such an axis is shown */
    bool isZoomed() const;
    /** Shows a part of one of these axes, as near to it as there are data.
     *  @param range in what the axis counts */
    void showRange(const KXAxis& axis, const KXVisibleRange& range);
    /** Shows another part of such an axis, as near as it holds a value that it does not.
     *  @return whether it did; the chart may have gone then */
    bool showValue(const KXAxis& axis, double value);
    void showAll();
    /** @return whether a drag draws a box around marks to be selected; by default not. May ask the host. */
    virtual bool shouldSelectByBox();
    /** Selects the marks in a box of the plot's space; by default there is nothing to select. */
    virtual void selectInBox(const UXDoubleRect& box, const UXEvent& event);
    /** @return what is shown of the axis, in what it counts */
    KXVisibleRange obtainShownRange(const KXAxis& axis) const;

    // Tick labels
    /** @return the property of the axis that the view labels; null for a view of no axis */
    virtual KXAxisProperty* obtainAxisPropertyOfTickLabelView(KXAxisTickLabelView* view);
    virtual KXAxisChartAxisCacheData* obtainAxisCacheDataOfTickLabelView(KXAxisTickLabelView* view);

    // Places, as of the last layout; in the plot's space
    /** @return whether the categories lie at their numbers instead of in slots */
    bool isContinuous() const { return m_isContinuous; }
    /** @return whether marks lie at numbers of their own along the X axis, whatever their categories are */
    bool hasOwnNumbers() const { return m_numberRange.has_value(); }
    /** @return where on the X axis a category lies: its index, or its number on a continuous axis, NaN where
     * it has none */
    double obtainCategoryValue(std::uint64_t category) const;
    /** @return whether a mark's category and value can stand on their axes */
    bool isPlaced(const KXAxisChartMark& mark) const;
    KXAxisChartScale obtainCategoryMap() const;
    /** @return the room of one category along its axis: a slot, or the least distance of a continuous axis */
    double obtainCategorySpacing() const;
    KXAxisChartScale obtainValueScale(std::uint64_t series) const;
    /** @return where marks against one of the value axes are drawn, with the pixels of the device that is
     * known to show the chart */
    KXAxisChartPlotFrame obtainPlotFrame(bool isOnSecondaryAxis) const;
    /** @return where the categories lie on a continuous axis, as of the last reload; empty for slots */
    const KXCategoryPlaces& getCategoryPlaces() const { return m_places; }
    /** @return where it is told what a logarithmic axis cannot show, which labels keep off; in the plot's
     * space, none where there is no such note */
    std::optional<UXDoubleRect> obtainNoteRect() const;
    /** @return the values of a series by categories, as they are drawn: on a logarithmic axis those that are
     * not above zero are NaN; lent until the data are replaced or reloaded */
    std::span<const double> obtainPlottedValues(std::uint64_t series) const;
    /** @return the place of the first category that can be seen, and the one after the last; places of slots
     * are the categories */
    std::pair<std::uint64_t, std::uint64_t> obtainVisibleCategories();

    /** The chart's properties by key, for UXPropertyAccessor. */
    static const UXPropertyTable& obtainPropertyTable();

    // From KXChart: what is on which axis
    void describe(KXChartDescription& description) override;

    // From UXJsonObject, KXAxisTickLabelViewDelegate and KXAxisChart
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;
    int axisTickLabelViewObtainTickLabelCount(KXAxisTickLabelView* view) override;
    double axisTickLabelViewObtainTick(KXAxisTickLabelView* view, int index) override;
    void axisTickLabelViewObtainTickLabel(KXAxisTickLabelView* view, double value,
                                          std::string& text) override;
    bool axisTickLabelViewShouldConsiderStartEndLabelLength(KXAxisTickLabelView* view,
                                                            bool& consider) override;
    bool axisTickLabelViewIsTickLabelToCome(KXAxisTickLabelView* view, double value) override;
    std::string obtainValueText(std::uint64_t series, double value) const override;
    UXSymbolStyle obtainLegendSymbolStyle(std::uint64_t series) override;
    std::uint64_t obtainLegendCellSize() override;
    bool obtainLegendShouldShowCell(std::uint64_t index) override;
    std::string obtainLegendLabel(std::uint64_t index) override;
    bool obtainLegendSymbolColor(std::uint64_t index, UXColor& color) override;
    std::vector<KXObjectID> obtainLegendCellObjectID(std::uint64_t index) override;
    bool obtainLegendCellIsOn(std::uint64_t index) override;
    void legendCellClicked(std::uint64_t index, const UXEvent& event) override;
    void legendCellHovered(std::uint64_t index, bool hovered) override;
    std::optional<KXChartItem> obtainExplainedAt(UXPoint point) const override;
    UXHintInfo obtainItemHint(const KXChartItem& item) override;
    void showItem(const KXChartItem& item) override;
    /** @return false where it ends a drag, which is no click */
    bool shouldTriggerMouseUp(const UXEvent& event) override;

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
    /** @return what an axis is called where the user does not say; by default the dimension of the
     * categories, and the measure that an axis of values tells */
    virtual std::string _obtainProposedTitle(const KXAxisChartAxis& axis) const;
    /** @return whether a cell of the legend is that of a line of reference, as those after the series are */
    bool _isAssistantLineCell(std::uint64_t index) { return _findLegendLine(index).has_value(); }

    // From KXAxisChartBase and KXAxisChart
    void _customUpdateAxes() override;
    KXAxisChartAxis* _obtainScrolledAxis() const override;
    double _obtainMinCategorySpacing() const override;
    double _obtainLabelledCategorySpacing() const override;
    void _axisPropertyUpdated(KXAxisChartAxis& axis, UXPropertyEffect effect) override;
    std::optional<std::uint64_t> _obtainCategoryAt(UXPoint point) const override;
    UXPoint _obtainHintPoint(const KXAxisChartMark& mark) override;
    void _updateDataRanges() override;
    void _customReloadMarks() override;
    void _layoutMarks() override;
    void _layoutMarkLabels() override;
    void _paintMarks(UXPainter& painter, const UXRect& dirtyRect) override;
    void _paintMarkLabels(UXPainter& painter, const UXRect& dirtyRect) override;
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;
    void _customUpdateTicks() override;
    void _customLayout(UXRect plotArea) override;
    void _paintOverMarks(UXPainter& painter) override;
    std::optional<std::uint64_t> _obtainCategoryBeside(std::uint64_t category, bool forwards) const override;
    std::optional<std::uint64_t> _obtainCategoryBeyond(std::uint64_t category, bool forwards,
                                                       bool isPage) const override;
    bool customMouseDown(const UXEvent& event, bool& stop) override;
    bool customMouseDragging(const UXEvent& event, bool& stop) override;
    bool customMouseWheel(const UXEvent& event, bool& stop) override;
    bool customMouseDoubleClick(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

private:
    void _describeCategories(KXChartDescription::Axis& told);
    void _describeRange(const KXAxisChartAxis& axis, KXChartDescription::Axis& told) const;
    KXAxisChartAxis& _obtainValueAxis(std::uint64_t series) const;
    const KXAxisChartAxisCacheData& _obtainCache(const KXAxisProperty& property) const;
    bool _mayBeContinuous() const;
    bool _decidesContinuous() const;
    void _takePlaces(std::span<const double> numbers);
    bool _takeNumberRange();
    void _updateCategoryRange();
    // Views by their places that the other axis of values tells than the one that the chart type gave them
    std::vector<int> _getViewsOnOtherAxis() const;
    void _storeViewsOnOtherAxis(const std::vector<int>& places);
    void _updateViewsOnOtherAxis(const std::vector<int>& places);
    static const UXPropertyType& _obtainViewsType();
    /** @return whether a view has values on the axis */
    bool _updateValueRange(KXAxisChartAxis& axis);
    void _alignValueAxes();
    void _setValueScale(KXAxisChartAxis& axis);
    double _toAxis(const KXAxisChartAxis& axis, double value) const;
    KXVisibleRange _obtainWholeRange(const KXAxisChartAxis& axis) const;
    KXVisibleRange _makeRoomForMarks(const KXAxisChartAxis& axis, const KXVisibleRange& range) const;
    double _obtainLeastLength(const KXAxisChartAxis& axis) const;
    KXVisibleRange _obtainShownRange(const KXAxisChartAxis& axis) const;
    double _obtainCategoryDistance() const;
    std::pair<std::uint64_t, std::uint64_t> _findVisibleCategories() const;
    void _setTicks(KXAxisChartAxis& axis, std::vector<double> ticks);
    void _updateCalendarTicks(const KXVisibleRange& shown);
    void _updateNumberTicks(KXAxisChartAxis& axis, const KXVisibleRange& shown);
    std::optional<KXAxisChartValueRange> _obtainShownValueRange(const KXAxisChartDataView& view) const;
    std::uint64_t _countLeftOut(std::span<const double> categoryNumbers) const;
    std::string _obtainCustomTickText(double value) const;
    void _updateAssistantLines();
    void _includeFixedValues(const KXAxisChartAxis& axis, double& min, double& max) const;
    const KXAssistantLineDataView::Line* _hitAssistantLine(UXPoint point) const;
    std::vector<KXAssistantLineProperty> _obtainLegendLines() const;
    std::optional<KXAssistantLineProperty> _findLegendLine(std::uint64_t index);
    void _addZoomParts();
    void _placeZoomButton();
    void _placeNote();
    std::optional<std::uint64_t> _obtainPlacedCategoryAt(UXPoint point) const;
    void _updateDefaultTitles();
    void _placeSides();
    void _setCategoryScale();
    std::string _obtainCategoryTickText(double value);

    KXAxisChartAxis& m_x; // the chart's axes
    KXAxisChartAxis& m_y;
    KXAxisChartAxis& m_secondaryY;
    std::unique_ptr<KXAssistantLineDataView> m_linesBehind, m_linesInFront;
    bool m_isContinuous = false;
    bool m_isPartOfYShown = false;
    /** Off while a layout has not placed the axes yet: what it does must not depend on the one before. */
    bool m_knowsAxisLengths = false;
    std::optional<KXValueExtremes> m_numberRange; // of marks that lie at numbers of their own
    KXCategoryPlaces m_places;
    std::vector<std::string> m_tickTexts; // of the X axis's own ticks; empty where these are numbers
    /** The values of series on a logarithmic axis without those that are not above zero; empty where all are.
     */
    mutable std::map<std::uint64_t, std::vector<double>> m_positiveValues;
    std::uint64_t m_leftOutCount = 0; // of these
    KXAxisChartZoom m_zoom{*this};
    KXChartToolboxItem* m_zoomButton; // children of the plot
    UXLabel* m_note;
    UXPropertyTableBinding m_xyPropertyBinding{*this, obtainPropertyTable()};
};
