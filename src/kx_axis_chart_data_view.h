#pragma once

#include "kx_axis_chart_data_user.h"
#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_plot_frame.h"
#include "kx_axis_chart_stacks.h"
#include "kx_export.h"
#include "kx_text_losses.h"
#include "kx_value_extremes.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_json_object.h"
#include "ux/ux_point.h"
#include "ux/ux_property_table.h"
#include "ux/ux_rect.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

class KXAxisProperty;
class KXXYAxisChart;
class UXPainter;
struct UXColor;
enum class UXSymbolStyle : int;
struct UXHintInfo;
struct UXHintRowInfo;

/**
 * One sort of marks of an axis chart: bars, lines, points. It draws some series of the chart against one of
 * the value axes, and says what it needs of the axes for that. The chart keeps its views in the order in
 * which they are painted and has them do each step, one after the other:
 *
 *     reload              records of the data, which ranges are made of
 *     layout              the marks that can be seen, in the plot's space
 *     updateLook          their colours; alone where nothing but colours changed
 *     layoutLabels        texts beside the marks
 *     paint, paintLabels  read what the steps before have made
 *
 * Hits and hints read the same. A view of a new kind answers layout, updateLook and paint, and whatever else
 * is not as it is here.
 */
class KX_EXPORT KXAxisChartDataView : public UXJsonObject {
public:
    KXAxisChartDataView();
    ~KXAxisChartDataView() override;

    // Place
    /** @return the chart that keeps the view, null for none yet */
    KXXYAxisChart* getChart() const { return m_chart; }
    bool getIsOnSecondaryAxis() const { return m_isOnSecondaryAxis; }
    /** Has the values told by the second value axis, or by the first. Data that are shown are reloaded. */
    void updateIsOnSecondaryAxis(bool isOnSecondaryAxis);
    /** @return the series that the view draws, in their order; hidden ones are left out */
    const std::vector<std::uint64_t>& getShownSeries() const { return m_shownSeries; }

    // What it is about
    /** @return whether series are shown by views of this kind; what stands for itself says no */
    virtual bool canShowSeries() const;
    /** @return whether a series is drawn as one: it stands out, or gives way, as a whole, and what its marks
     * have in common with others is their place, which a thin line shows while a hint tells of it, of the
     * nearest series first. By default each mark stands for itself. */
    virtual bool drawsSeriesAsOne() const;
    /** @return whether the series pile up where the value axis is stacked; by default they do */
    virtual bool canStack() const;
    /** @return whether the marks place themselves, so that stacks as the value axis has them mean nothing; by
     * default not */
    virtual bool placesItself() const;
    /** @return whether the value axis can count exponents; by default not where marks place themselves */
    virtual bool canBeLogarithmic() const;
    /** @return whether the value axis shows 0 to the greatest value on both sides; by default not */
    virtual bool isMirrored() const;
    /** @return whether the categories are named between the two sides of a mirrored axis, in a gap of it; by
     * default not */
    virtual bool labelsCategoriesInGap() const;
    /** @return whether members that are dates lie at their numbers unless somebody says otherwise; by default
     * they have slots, as bars want them */
    virtual bool prefersContinuousDates() const;
    /** @return the same of members that are numbers; by default these have slots too */
    virtual bool prefersContinuousNumbers() const;
    /** @return how the series stand to each other on their value axis */
    virtual KXAxisChartStacking obtainStacking() const;

    // What it needs of the axes
    /** @return what the value axis has to hold, by default the values of the series and their sums; none
     * where nothing is shown */
    virtual std::optional<KXAxisChartValueRange> obtainValueRange() const;
    /** @return what the X axis has to hold where marks lie at numbers of their own along it; by default none:
     * marks belong to categories */
    virtual std::optional<KXValueExtremes> obtainNumberRange() const;
    /** @return where the marks of a series lie along the X axis, one number a category, NaN for none; by
     * default empty: each lies at its category. Lent until the data are replaced. */
    virtual std::span<const double> obtainNumbers(std::uint64_t series) const;
    /** @return whether the user can have a part of the value axis shown, too, wherever that can be had of the
     * X axis; by default not */
    virtual bool zoomsAlongValues() const;
    /** @return how far marks reach around their places on both axes, in logical units; automatic ranges hold
     * them whole. By default 0. */
    virtual double obtainReach() const;
    /** @return whether an automatic range of the value axis holds zero, where the marks start; by default not
     */
    virtual bool shouldIncludeZero() const;
    /** @return the room of a category along its axis below which the chart scrolls instead, in logical units;
     * 0 for any */
    virtual double obtainMinCategorySpacing() const;
    /** @return the room of a category in a chart that scrolls anyway, so that the labels show that the user
     * asked for; by default 0 for any */
    virtual double obtainLabelledCategorySpacing() const;
    /** @return what the marks at the ends of a continuous axis reach over their numbers, as a part of the
     * least distance of two categories; by default nothing */
    virtual double obtainOverhang() const;
    /** @return the room beyond the furthest mark along the value axis, in logical units, beside what the axis
     * leaves there anyway; by default none */
    virtual double obtainExtraLength() const;
    /** @return the room beyond the last category, in logical units; by default none */
    virtual double obtainExtraRoomAcross() const;

    // Steps
    /** Forgets what was made of the data; there are others now, or other series are shown. */
    virtual void reload();
    /** Places the marks that can be seen. Nothing lies outside of the frame's area. */
    virtual void layout(const KXAxisChartPlotFrame& frame) = 0;
    /** @return the marks that are drawn one by one, each of which the host may give a colour; by default none
     */
    virtual std::vector<KXAxisChartMark> obtainSingleMarks() const;
    /** Decides the colours of what was placed. Asks nobody. */
    virtual void updateLook() = 0;
    /** Places the labels. Asks nobody: for what the host has not said of them it is asked afterwards. */
    virtual void layoutLabels();
    /** @return the labels that found no place, or one for a part of their texts; in the plot's space */
    const KXTextLosses& getLabelLosses() const { return m_labelLosses; }
    /** @return where its labels stand, in the plot's space, which those of the views after it keep off */
    virtual std::vector<UXDoubleRect> obtainLabelRects() const;
    /** @param dirtyRect what is to be painted; a mark that does not reach into it may be left out */
    virtual void paint(UXPainter& painter, const UXRect& dirtyRect) const = 0;
    virtual void paintLabels(UXPainter& painter, const UXRect& dirtyRect) const;

    // Under the pointer, in the plot's space
    virtual std::optional<KXAxisChartMark> hitMark(UXPoint point) const;
    /** @return how far the mark is that hitMark answers for point, in logical units, by which the chart
     * chooses among those of several views; by default that of a filled one, which the pointer is in: thin
     * marks over it have to be nearer */
    virtual double obtainHitDistance(UXPoint point) const;
    /** @return the whole mark, which hints keep off and the keyboard's ring goes around; empty where it is
     * not drawn */
    virtual UXRect obtainMarkPlace(const KXAxisChartMark& mark) const;
    /** @return where a mark and its label are painted just now; by default all of the marks' area */
    virtual std::vector<UXRect> obtainMarkRects(const KXAxisChartMark& mark) const;
    /** @return the category that a hint at point is about where that is not the one whose room it is in */
    virtual std::optional<std::uint64_t> obtainCategoryAt(UXPoint point) const;
    /** @return where the hint of a mark stands; none for the middle of the category at the mark's value */
    virtual std::optional<UXPoint> obtainHintPoint(const KXAxisChartMark& mark) const;
    /** @return the value of a mark as hints tell it, NaN where it has none; by default that of the data */
    virtual double obtainValue(const KXAxisChartMark& mark) const;
    /** Says what the row of a mark that has a value tells otherwise than by series and value. */
    virtual void fillHintRow(UXHintRowInfo& row, const KXAxisChartMark& mark);
    /** Adds what a hint tells below the rows of its series. */
    virtual void fillHintFooter(UXHintInfo& info, std::uint64_t category);
    /** @return the symbol of a series in the legend and in hints; none for the legend's own */
    virtual std::optional<UXSymbolStyle> obtainLegendSymbolStyle(std::uint64_t series) const;
    /** Paints the legend's symbol of a series where that is like no other.
     *  @return false, as by default, for what its style looks like */
    virtual bool paintLegendSymbol(std::uint64_t series, UXPainter& painter, const UXDoubleRect& bounds,
                                   const UXColor& color) const;

    /** The view's properties by key, as its document holds them. */
    static const UXPropertyTable& obtainPropertyTable();

    // From UXJsonObject
    void customSerialize() override;
    bool customDeserialize() override;

protected:
    /** Notes what is to be told of the labels; forgotten before they are placed anew. */
    void _setLabelLosses(KXTextLosses losses) { m_labelLosses = std::move(losses); }
    /** @return the values of the shown series, lent until the chart's data are replaced */
    virtual KXAxisChartStacks _makeStacks() const;
    KXAxisProperty& _getValueAxisProperty() const;
    /** @return where the labels of the views before this one stand */
    std::vector<UXDoubleRect> _obtainEarlierLabels() const;
    /** Adds the sum of a stack of at least two to the footer of a hint. */
    void _addTotal(UXHintInfo& info, std::uint64_t category) const;

private:
    friend class KXAxisChart;
    friend class KXXYAxisChart;

    KXXYAxisChart* m_chart = nullptr; // which owns this
    std::vector<std::uint64_t> m_shownSeries;
    KXTextLosses m_labelLosses;
    bool m_isOnSecondaryAxis = false;
    bool m_isMadeForSecondaryAxis = false; // by the chart that keeps it
    UXPropertyTableBinding m_keyBinding{*this, obtainPropertyTable()};
};
