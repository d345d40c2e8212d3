#pragma once

#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_options.h"
#include "kx_axis_chart_plot_frame.h"
#include "kx_export.h"
#include "kx_gradient_scale.h"
#include "kx_line_edges.h"
#include "kx_line_labels.h"
#include "kx_line_layout.h"
#include "kx_line_pen.h"
#include "kx_value_colors.h"
#include "kx_value_label_texts.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_point.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXLineChartProperty;
class KXLines;
class UXPainter;
struct KXChartItemLook;
struct UXTextProperty;

/** A point that is drawn. */
struct KXLinePlace {
    KXAxisChartMark mark;
    double value = 0;
    UXDoublePoint place; /**< its centre, in the plot's space */
};

/**
 * Draws the values of each series as a line, as the area below it, or as points alone. Where there are more
 * values than pixels, a line shows the first, the least, the greatest and the last value of each column of
 * these, so that it looks as if all were drawn.
 */
class KX_EXPORT KXLineChartDataView : public KXAxisChartDataView {
public:
    /** @param type Line, Area, or Scatter for points alone; any other is Line
     *  @param canStack whether the series pile up where the value axis is stacked
     *  @param property what the user sets about the lines, which other views may share; null for one of its
     * own */
    explicit KXLineChartDataView(KXAxisChartType type = KXAxisChartType::Line, bool canStack = true,
                                 std::shared_ptr<KXLineChartProperty> property = nullptr);
    ~KXLineChartDataView() override;

    /** @return never null */
    KXLineChartProperty* getLineChartProperty() const { return m_property.get(); }
    KXAxisChartType getType() const { return m_type; }
    /** Has the view draw whiskers in place of bands, beside marks that have these. */
    void setDrawsWhiskers(bool drawsWhiskers) { m_drawsWhiskers = drawsWhiskers; }

    // What can be seen, as of the last layout
    /** @return one a shown series */
    const std::vector<KXLineShape>& getShapes() const { return m_layout.shapes; }
    /** @return those that are drawn */
    const std::vector<KXLinePlace>& getPoints() const { return m_points; }
    const std::vector<KXLineLabel>& getLabels() const { return m_labels; }
    const KXAxisChartPlotFrame& getFrame() const { return m_frame; }
    /** @return which colours stand for which values, none where each series has its own */
    std::optional<KXGradientScale> obtainColorScale() const;
    /** @return whether a point can stand for many categories */
    bool isDense() const { return m_layout.isDense; }

    static const UXPropertyTable& obtainPropertyTable();

    // From KXAxisChartDataView and UXJsonObject
    bool drawsSeriesAsOne() const override;
    bool canStack() const override;
    bool prefersContinuousDates() const override;
    bool shouldIncludeZero() const override;
    double obtainExtraRoomAcross() const override;
    void reload() override;
    void layout(const KXAxisChartPlotFrame& frame) override;
    std::vector<KXAxisChartMark> obtainSingleMarks() const override;
    void updateLook() override;
    void layoutLabels() override;
    std::vector<UXDoubleRect> obtainLabelRects() const override;
    void paint(UXPainter& painter, const UXRect& dirtyRect) const override;
    void paintLabels(UXPainter& painter, const UXRect& dirtyRect) const override;
    /** @return of the line that is nearest to the pointer, if that is near enough, the point that is nearest
     * to where the line is hit, or the nearest one of the area that the pointer is in */
    std::optional<KXAxisChartMark> hitMark(UXPoint point) const override;
    double obtainHitDistance(UXPoint point) const override;
    UXRect obtainMarkPlace(const KXAxisChartMark& mark) const override;
    std::vector<UXRect> obtainMarkRects(const KXAxisChartMark& mark) const override;
    std::optional<std::uint64_t> obtainCategoryAt(UXPoint point) const override;
    std::optional<UXPoint> obtainHintPoint(const KXAxisChartMark& mark) const override;
    void fillHintRow(UXHintRowInfo& row, const KXAxisChartMark& mark) override;
    void fillHintFooter(UXHintInfo& info, std::uint64_t category) override;
    std::optional<UXSymbolStyle> obtainLegendSymbolStyle(std::uint64_t series) const override;
    /** Draws the dashes and the points of a series, where it has some of its own. */
    bool paintLegendSymbol(std::uint64_t series, UXPainter& painter, const UXDoubleRect& bounds,
                           const UXColor& color) const override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    double _obtainAcross(const UXDoublePoint& point) const;
    bool _isInSight(const KXLineVertex& vertex) const;
    KXLinePlace _makePlace(std::size_t position, const KXLineVertex& vertex) const;
    double _obtainLineWidth(std::uint64_t series) const;
    KXLinePen _obtainPen(std::uint64_t series) const;
    double _obtainStandingOutSize(const KXChartItemLook& look) const;
    void _layoutPoints();
    void _layoutBands();
    UXColor _obtainColor(std::size_t position, const KXAxisChartMark& mark) const;
    void _fillPlaces(KXValueColors& colors, std::size_t position) const;
    /** @return where a mark lies, none for one without a value */
    std::optional<UXDoublePoint> _placeMark(const KXAxisChartMark& mark) const;

    // Under the pointer
    /** The place of a series that is nearest to the pointer. */
    struct Hit {
        std::size_t position = 0; // of the series
        UXDoublePoint place;
        double distance = 0;

        void take(const UXDoublePoint& at, const UXDoublePoint& other);
    };
    bool _isPoint(std::size_t position, const KXLineVertex& vertex) const;
    Hit _hitLine(std::size_t position, const UXDoublePoint& at) const;
    bool _isInArea(std::size_t position, const UXDoublePoint& at) const;
    std::optional<Hit> _hitShape(const UXDoublePoint& at) const;
    const KXLineVertex* _findNearest(std::size_t position, const UXDoublePoint& at) const;

    // Paint
    double _obtainOpacity(std::uint64_t series) const;
    void _paintBand(UXPainter& painter, std::size_t position) const;
    const KXLineShape* _findPart(std::size_t position) const;
    double _obtainWholeOpacity(std::size_t position) const;
    void _paintArea(UXPainter& painter, std::size_t position, const KXLineShape& shape, double opacity) const;
    void _paintLine(UXPainter& painter, std::size_t position, const KXLineShape& shape, double opacity) const;
    void _paintPoints(UXPainter& painter, std::size_t position) const;
    bool _hasPoints(std::uint64_t series) const;
    void _paintHighlighted(UXPainter& painter) const;
    void _addStandingOut(KXLines& lines, const KXAxisChartMark& mark) const;

    // Labels
    bool _showsNames() const;
    bool _isOverLine(const UXDoubleRect& rect) const;
    void _requestLabels(const KXAxisChartStacks& source, KXLineLabelPlacer& placer);
    void _requestLabel(const KXAxisChartStacks& source, const KXLinePlace& place, std::size_t position,
                       KXLineLabelPlacer& placer);
    void _requestNames(KXLineLabelPlacer& placer) const;

    std::shared_ptr<KXLineChartProperty> m_property;
    KXAxisChartType m_type;
    bool m_canStack;
    bool m_drawsWhiskers = false;
    KXValueLabelTexts m_texts;
    KXLineEdges m_edges;

    // Made by the layout
    KXAxisChartPlotFrame m_frame;
    KXLineLayout m_layout;
    std::vector<KXLinePlace> m_points;                            // by series
    std::vector<std::vector<std::vector<UXDoublePoint>>> m_bands; // polygons, or whiskers in one; one list a
                                                                  // shape
    std::vector<KXLineLabel> m_labels;

    // Made by the look
    std::vector<KXValueColors> m_colors; // one a shape
    std::vector<UXColor> m_pointColors;  // one a point
    UXPropertyTableBinding m_keyBinding{*this, obtainPropertyTable()};
};
