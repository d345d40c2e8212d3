#pragma once

#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_mark.h"
#include "kx_axis_chart_plot_frame.h"
#include "kx_chart_items_delegate.h"
#include "kx_export.h"
#include "kx_gradient_scale.h"
#include "kx_scatter_index.h"
#include "kx_scatter_layout.h"
#include "kx_value_extremes.h"
#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_text_property.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class KXScatterChartProperty;
class KXScatterPlotArea;
class UXPainter;

/** A text that has found a place at its point. */
struct KXScatterLabel {
    KXAxisChartMark mark;
    std::string text;
    UXDoubleRect rect; /**< in the plot's space */
    UXTextProperty property;
};

/**
 * Draws points whose places along both axes, sizes and colours are values. Points that look alike are drawn
 * at once, however many they are; the larger ones lie behind the smaller ones, and where they crowd, all can
 * be seen through.
 */
class KX_EXPORT KXScatterChartDataView : public KXAxisChartDataView {
public:
    KXScatterChartDataView();
    ~KXScatterChartDataView() override;

    /** @return never null */
    KXScatterChartProperty* getScatterChartProperty() const { return m_property.get(); }

    // What can be seen, as of the last layout
    const KXScatterLayout& getLayout() const { return m_layout; }
    const std::vector<KXScatterLabel>& getLabels() const { return m_labels; }
    const KXAxisChartPlotFrame& getFrame() const { return m_frame; }
    /** @return how opaque points are, unless one has a colour that is not */
    double getOpacity() const { return m_opacity; }
    /** @return which colours stand for which values, none where each series has its own */
    std::optional<KXGradientScale> obtainColorScale() const;
    /** @return which widths stand for which values; without sizes its greatest size is 0 */
    KXScatterForm obtainForm() const;

    // The points
    /** @return the point that the keyboard goes to from one, none beyond the last in a direction */
    std::optional<KXAxisChartMark> findBeside(const KXAxisChartMark& from, KXChartItemStep step) const;
    /** @return the points whose centres lie in a rectangle of the plot's space, in the order of drawing */
    std::vector<KXAxisChartMark> findInside(const UXDoubleRect& rect) const;
    /** @return where it lies along the X axis, NaN for nowhere */
    double obtainX(const KXAxisChartMark& mark) const;
    /** @return where it lies there, in words */
    std::string obtainXText(const KXAxisChartMark& mark) const;
    /** @return what it is large by, NaN for none */
    double obtainSize(const KXAxisChartMark& mark) const;
    UXColor obtainColor(const KXAxisChartMark& mark) const;

    static const UXPropertyTable& obtainPropertyTable();

    // From KXAxisChartDataView and UXJsonObject
    bool canStack() const override;
    bool placesItself() const override;
    bool canBeLogarithmic() const override;
    bool prefersContinuousDates() const override;
    bool prefersContinuousNumbers() const override;
    bool zoomsAlongValues() const override;
    double obtainReach() const override;
    std::optional<KXAxisChartValueRange> obtainValueRange() const override;
    std::optional<KXValueExtremes> obtainNumberRange() const override;
    std::span<const double> obtainNumbers(std::uint64_t series) const override;
    void reload() override;
    void layout(const KXAxisChartPlotFrame& frame) override;
    std::vector<KXAxisChartMark> obtainSingleMarks() const override;
    void updateLook() override;
    void layoutLabels() override;
    std::vector<UXDoubleRect> obtainLabelRects() const override;
    void paint(UXPainter& painter, const UXRect& dirtyRect) const override;
    void paintLabels(UXPainter& painter, const UXRect& dirtyRect) const override;
    std::optional<KXAxisChartMark> hitMark(UXPoint point) const override;
    UXRect obtainMarkPlace(const KXAxisChartMark& mark) const override;
    std::vector<UXRect> obtainMarkRects(const KXAxisChartMark& mark) const override;
    std::optional<UXPoint> obtainHintPoint(const KXAxisChartMark& mark) const override;
    double obtainValue(const KXAxisChartMark& mark) const override;
    std::optional<UXSymbolStyle> obtainLegendSymbolStyle(std::uint64_t series) const override;
    bool paintLegendSymbol(std::uint64_t series, UXPainter& painter, const UXDoubleRect& bounds,
                           const UXColor& color) const override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    /** Points that look alike and follow each other in the layout. */
    struct Batch {
        std::size_t end; // after the last one; the first follows the batch before
        UXColor color;
    };

    std::size_t _obtainCategoryCount() const;
    void _placeWhiskers();
    double _obtainGreatestDiameter() const;
    const std::vector<double>& _obtainCategoryNumbers() const;
    double _obtainDiameter(const KXAxisChartMark& mark) const;
    bool _isHollow(const KXAxisChartMark& mark) const;
    std::optional<UXDoublePoint> _placeMark(const KXAxisChartMark& mark) const;
    UXColor _obtainPointColor(std::size_t point, const std::optional<KXGradientScale>& scale) const;
    std::size_t _findEndOfLike(std::size_t first) const;
    const KXScatterIndex& _obtainIndex() const;

    // Paint
    UXColor _obtainDrawnColor(const Batch& batch, std::size_t point) const;
    void _paintRun(UXPainter& painter, const Batch& batch, std::size_t point,
                   std::span<const UXDoublePoint> centres) const;
    void _paintAll(UXPainter& painter) const;
    void _paintPart(UXPainter& painter, const UXRect& dirtyRect) const;
    void _paintStandingOut(UXPainter& painter) const;
    void _addStandingOut(KXScatterPlotArea& area, const KXAxisChartMark& mark) const;

    // Labels
    std::string _obtainLabelText(const KXAxisChartMark& mark) const;

    std::shared_ptr<KXScatterChartProperty> m_property;
    KXValueExtremes m_sizes, m_colors;             // of the points that have a place, as of the last reload
    bool m_hasSizes = false;                       // whether a measure tells them
    mutable std::vector<double> m_categoryNumbers; // where points lie at their categories; empty until needed

    // Made by the layout
    KXAxisChartPlotFrame m_frame;
    KXScatterForm m_form;
    KXScatterLayout m_layout;
    mutable KXScatterIndex m_index; // made when it is first needed
    std::vector<KXScatterLabel> m_labels;
    std::vector<UXDoublePoint> m_whiskers; // one line with gaps

    // Made by the look
    double m_opacity = 1;
    std::vector<Batch> m_batches;
    UXPropertyTableBinding m_keyBinding{*this, obtainPropertyTable()};
};
