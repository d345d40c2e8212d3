#pragma once

#include "kx_assistant_line_property.h"
#include "kx_axis_chart_data_view.h"
#include "kx_export.h"
#include "kx_value_statistics.h"
#include "ux/ux_double_point.h"
#include "ux/ux_double_rect.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class KXLineEdges;
enum class UXSymbolStyle : int;
struct UXHintInfo;

/**
 * Draws the lines of reference that a chart has behind its marks, or in front of them. What they tell is
 * worked out of the shown categories of the shown series when the data or these change, whatever part of them
 * is seen.
 */
class KX_EXPORT KXAssistantLineDataView : public KXAxisChartDataView {
public:
    /** A line of reference, or a band. */
    struct Line {
        KXAssistantLineProperty property;
        std::size_t index = 0; /**< in the chart's list */
        double value = 0;      /**< NaN for none; a line that stands at a member learns it in the layout */
        double toValue = 0;    /**< the other edge of a band, NaN without one */
        std::vector<double> means;          /**< of a moving average, by places; empty for any other */
        std::shared_ptr<KXLineEdges> edges; /**< of these means */
        std::optional<KXTrendLine> trend;
        double firstX = 0, lastX = 0; /**< between which a trend runs */

        // Made by the layout, in the plot's space
        std::string valueText;           /**< what it tells; empty where that is no single value */
        std::vector<UXDoublePoint> path; /**< points that are not finite are gaps; empty out of sight */
        std::vector<UXDoublePoint> band; /**< a polygon */
    };
    /** What a line says of itself. */
    struct Label {
        std::size_t line = 0; /**< in the view's list */
        std::string text;
        UXDoubleRect rect; /**< in the plot's space */
        UXTextProperty property;
    };

    explicit KXAssistantLineDataView(bool isInFront = true) : m_isInFront(isInFront) {}
    ~KXAssistantLineDataView() override;

    const std::vector<Line>& getLines() const { return m_lines; }
    const std::vector<Label>& getLabels() const { return m_labels; }
    /** Works out what the lines tell. Asks nobody. */
    void updateLines();
    /** @return the line at a point of the plot's space, of those that are near to it the front one */
    const Line* hitLine(UXPoint point) const;
    void fillHint(UXHintInfo& info, const Line& line) const;
    static UXSymbolStyle obtainSymbolStyle(const KXAssistantLineProperty& line);

    // From KXAxisChartDataView and UXJsonObject
    bool canShowSeries() const override;
    std::optional<KXAxisChartValueRange> obtainValueRange() const override;
    void layout(const KXAxisChartPlotFrame& frame) override;
    void updateLook() override;
    void layoutLabels() override;
    void paint(UXPainter& painter, const UXRect& dirtyRect) const override;
    void paintLabels(UXPainter& painter, const UXRect& dirtyRect) const override;
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    struct Data;

    Data _collectData(const KXAssistantLineProperty& line) const;
    void _updateLine(Line& line) const;
    std::array<bool, 2> _obtainStackedAxes() const;
    bool _isDrawn(const Line& line) const;
    bool _standsAtMember(const KXAssistantLineProperty& line) const;
    void _updateMember(Line& line) const;
    void _updateText(Line& line) const;
    std::string _obtainValueText(const KXAssistantLineProperty& line, double value) const;
    void _layoutLine(Line& line, const KXAxisChartPlotFrame& frame) const;
    void _layoutTrend(Line& line, const KXAxisChartPlotFrame& frame) const;
    void _layoutMeans(Line& line, const KXAxisChartPlotFrame& frame) const;
    std::string _obtainLabelText(const Line& line) const;

    bool m_isInFront;
    std::array<bool, 2> m_areStacked{}; // the value axes, when the lines were worked out
    std::vector<Line> m_lines;
    std::vector<Label> m_labels;
};
