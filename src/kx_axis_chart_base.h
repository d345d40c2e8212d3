#pragma once

#include "kx_axis_chart_axis.h"
#include "kx_axis_delegate.h"
#include "kx_axis_tick_label_view_delegate.h"
#include "kx_chart.h"
#include "ux/ux_padding.h"
#include "ux/ux_virtual_scroll_view_delegate.h"

#include <memory>
#include <string>
#include <vector>

class KXAxisChartGridLayer;
class KXAxisChartLayer;
class KXAxisChartProperty;
class UXPainter;
class UXVirtualScrollView;

/**
 * The frame of every chart whose marks stand against axes. It holds the axes and the layers, divides the plot
 * area between labels, titles, scroll bar and marks, and scrolls along the category axis.
 *
 * Everything lies in one object, the plot, in its space: the layers cover it, and positions of axes, marks
 * and hits are in it. Its children in paint order are the grid, the marks, their labels, the tick labels, the
 * axes and the titles; a chart that adds a layer moves it over or under one of these.
 *
 * Scrolling and a new size keep what is seen: the first visible category is remembered, not an offset. Work
 * for a frame depends on what is visible alone.
 */
class KX_EXPORT KXAxisChartBase : public KXChart,
                                  public KXAxisDelegate,
                                  public KXAxisTickLabelViewDelegate,
                                  public UXVirtualScrollViewDelegate {
public:
    KXAxisChartBase();
    ~KXAxisChartBase() override;

    // Parts: made and destroyed by the chart, never null
    KXAxisChartProperty* getAxisChartProperty() const;
    UXVirtualScrollView* getPlot() const;
    KXAxisChartGridLayer* getGridLayer() const;
    KXAxisChartLayer* getMarksLayer() const;
    KXAxisChartLayer* getMarkLabelsLayer() const;

    // Queries
    /** @return whether values grow upwards and categories to the right; otherwise values grow to the right
     * and categories downwards */
    bool isVertical() const;
    /** @return the part of the plot in which marks are drawn, in its space; as of the last layout */
    const UXRect& getMarksArea() const { return m_marksArea; }

    /** The keys of the chart's KXAxisChartProperty, which stand in its document as the chart's own. */
    static const UXPropertyTable& obtainPropertyTable();

    // From UXJsonObject, KXAxisDelegate, KXAxisTickLabelViewDelegate and UXVirtualScrollViewDelegate
    bool customDeserialize() override;
    void axisAxisLengthChanged(KXAxis* axis, double totalLength) override;
    void axisVisibleValuesChanged(KXAxis* axis) override;
    void axisTickLabelViewRequestExtraLengthAtTheEnd(KXAxisTickLabelView* view, double length) override;
    bool shouldClipInScrollArea(UXVirtualScrollView* view, UXObject* object) override;
    using UXVirtualScrollViewDelegate::virtualScrollViewContentOffsetChanged;
    void virtualScrollViewContentOffsetChanged(UXVirtualScrollView* view, const UXEvent& event) override;

protected:
    // What a chart type answers
    /** Brings the ranges of the axes up to date and gives them to the KXAxis objects. */
    virtual void _customUpdateAxes() = 0;
    /** Brings ticks up to date that depend on how long the axes are, which may be others in each round of the
     * layout; by default there are none. */
    virtual void _customUpdateTicks();
    /** @return the axis along which the chart scrolls, the one of the categories; null for none */
    virtual KXAxisChartAxis* _obtainScrolledAxis() const = 0;
    /** @return the least room of a category along its axis, in logical units; with less the chart scrolls. By
     * default it follows the density of the chart's property. */
    virtual double _obtainMinCategorySpacing() const;
    /** @return the room of a category in a chart that scrolls anyway, so that the labels of its marks show
     * that the user asked for; 0 for any */
    virtual double _obtainLabelledCategorySpacing() const = 0;
    /**
     * Makes the records of the visible marks: rectangles or points in the plot's space, which painting, hits
     * and hints read. Called when the axes are in place, after each layout and each scroll; look only at the
     * categories that are visible.
     */
    virtual void _layoutMarks() = 0;
    /** Draws the marks in the plot's space, which is clipped to the marks' area. Reads records only.
     *  @param dirtyRect what is to be painted; a mark that does not reach into it may be left out */
    virtual void _paintMarks(UXPainter& painter, const UXRect& dirtyRect) = 0;
    /** Draws the labels of the marks, over all of them, clipped to the marks' area too. */
    virtual void _paintMarkLabels(UXPainter& painter, const UXRect& dirtyRect) = 0;
    /** Draws what stands over marks and labels, clipped likewise. */
    virtual void _paintOverMarks(UXPainter& painter) = 0;
    /** A key of an axis's property changed. */
    virtual void _axisPropertyUpdated(KXAxisChartAxis& axis, UXPropertyEffect effect);
    void _applyKeyEffect(UXPropertyEffect effect) override;
    void _diagnose(std::vector<KXChartDiagnostic>& diagnostics) const override;
    /** Other categories became visible, or the first layout of some showed them. */
    virtual void _visibleCategoriesChanged() = 0;
    void _customLayout(UXRect plotArea) override;
    void _customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups) override;

    // What a chart type calls
    /** @return a new axis with its objects, which the chart keeps */
    KXAxisChartAxis& _addAxis();
    const std::vector<std::unique_ptr<KXAxisChartAxis>>& _getAxes() const { return m_axes; }
    /** @return the axis of an object of it; null for one of no axis */
    KXAxisChartAxis* _findAxis(const KXAxis* axis) const;
    KXAxisChartAxis* _findAxis(const KXAxisTickLabelView* labels) const;
    void _layoutAnew();
    /** Has the marks and their labels painted anew. */
    void _repaintMarks();
    /** The same of those in an area of the plot's space. */
    void _repaintMarks(const UXRect& area);
    /** The labels along an axis have other texts, which the layout has missed before: what a scroll brought
     * into sight takes its place, and all else is laid out anew. */
    void _updateTickTexts(KXAxisChartAxis& axis);
    /** @return the first visible category and what of it is scrolled out: 2.5 shows half of category 2 */
    double _getFirstCategory() const { return m_firstCategory; }
    /** Scrolls there with the next layout. */
    void _setFirstCategory(double category);

private:
    /** What stands beside the marks on one side, in logical units. */
    struct Band {
        int labels = 0;
        int title = 0;
        int endTitle = 0; // of an axis that ends at this side, with the gap before it
        int endGap = 0;
        int overhang = 0; // of the labels at a side around the corner, into room of their own
        int reach = 0;    // of them towards the labels at this side

        int obtainExtent() const { return (std::max)(labels + title + endTitle, overhang); }
    };
    struct Bands {
        Band left, top, right, bottom;
        int gap = 0; // between the marks, for labels there

        Band& at(UXPosition side);
        const Band& at(UXPosition side) const { return const_cast<Bands*>(this)->at(side); }
        /** @return the room between the marks and the labels at a side */
        int obtainLabelGap(UXPosition side) const;
    };
    /** What there is room for beside the marks. */
    struct Detail {
        bool titles = true;
        bool lyingLabels = true, standingLabels = true; // of axes along x and along y
    };

    void _layoutAxes();
    void _layoutAxes(const Detail& detail);
    bool _settleScroll(const Bands& bands, bool scrolls);
    double _obtainScrolledSpacing(const KXAxisChartAxis& axis, const UXRect& area) const;
    void _updateLabels(const Detail& detail);
    Bands _measureBands(const Detail& detail);
    void _measureLabels(Bands& bands);
    void _measureOverhang(const KXAxisChartAxis& axis, Bands& bands);
    void _measureTitle(const KXAxisChartAxis& axis, Bands& bands);
    int _obtainEndTitleGap(const KXAxisChartAxis& axis) const;
    UXRect _obtainArea(const Bands& bands, bool scrolls) const;
    void _placeAxes(const UXRect& area, int gap);
    UXRect _obtainGapRect(int gap) const;
    void _placeLabels(const Bands& bands);
    void _placeTitles(const Bands& bands, const Detail& detail, bool scrolls);
    UXRect _obtainTitleRect(const KXAxisChartAxis& axis, const Bands& bands, int bar) const;
    UXRect _obtainEndTitleRect(const KXAxisChartAxis& axis, const Bands& bands) const;
    void _placeScroll(const Bands& bands, bool scrolls);
    void _placeLayers();
    void _layoutContent();
    void _layoutGrid();
    void _colorAxes();
    void _keepLabelsInRoom();

    std::unique_ptr<KXAxisChartProperty> m_axisChartProperty;
    UXVirtualScrollView* m_plot;       // a child
    KXAxisChartGridLayer* m_gridLayer; // children of the plot
    KXAxisChartLayer* m_marksLayer;
    KXAxisChartLayer* m_markLabelsLayer;
    std::vector<std::unique_ptr<KXAxisChartAxis>> m_axes;
    UXRect m_marksArea;
    int m_scrolledLabelLength = 0; // what the layout has reserved
    double m_firstCategory = 0;
    bool m_fitsCategories = false; // in the present layout, whatever room each would need to scroll
    bool m_layingOut = false, m_isScrolling = false;
    UXPropertyTableBinding m_axisChartPropertyBinding{*this, obtainPropertyTable()};
};
