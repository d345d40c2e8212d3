#pragma once

#include "kx_key_table.h"
#include "kx_member_panel_chart.h"
#include "kx_pie.h"
#include "kx_pie_chart_options.h"
#include "kx_pie_turn.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_text_property.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class UXLayoutHelper;

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_PIE_CHART_KEYS(KEY)                                                                            \
    KEY(double, HoleRatio, m_holeRatio, 0, Any(Pie), Layout,                                              \
        "radius of the hole as a share of the pie's, 0 to 0.95; 0.6 makes a donut")                       \
    KEY(double, StartAngle, m_startAngle, -90, Any(Pie), Layout,                                          \
        "where the first slice begins, in degrees from the right, clockwise; -90 is the top")             \
    KEY(bool, IsClockwise, m_isClockwise, true, Any(Pie), Layout, "which way around the slices follow")   \
    KEY(double, Sweep, m_sweep, 360, Any(Pie), Layout,                                                    \
        "how much of the circle a pie fills, 1 to 360 degrees")                                           \
    KEY(KXPieChartSliceStyle, SliceStyle, m_sliceStyle, KXPieChartSliceStyle::Default, Any(Pie), Reload,  \
        "which slices are gathered in Others")                                                            \
    KEY(std::int64_t, SliceCount, m_sliceCount, 10, Any(Pie), Reload,                                     \
        "with NumOfSliceDisplay: how many slices stay, the largest")                                      \
    KEY(double, GroupBelowPercent, m_groupBelowPercent, 2, Any(Pie), Reload,                              \
        "with GroupValueLessThan: slices below this percentage are gathered")                             \
    KEY(KXPieSliceOrder, Sort, m_sort, KXPieSliceOrder::None, Any(Pie), Reload,                           \
        "order of the slices; Others is the last one always")                                             \
    KEY(bool, ShowLabelName, m_showLabelName, true, Any(DataLabel), Layout, "the name in the labels")     \
    KEY(bool, ShowLabelValue, m_showLabelValue, false, Any(DataLabel), Layout, "the value in the labels") \
    KEY(bool, ShowLabelPercentage, m_showLabelPercentage, true, Any(DataLabel), Layout,                   \
        "the part of the whole in the labels")                                                            \
    KEY(KXPieLabelPosition, LabelPosition, m_labelPosition, KXPieLabelPosition::Auto, Any(DataLabel),     \
        Layout, "where the labels stand")                                                                 \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeTextProperty(12, UXColor(80, 80, 80)),       \
        Any(DataLabel), Layout, "text of the labels")                                                     \
    KEY(bool, AutoLabelColor, m_autoLabelColor, true, Any(DataLabel), Layout,                             \
        "labels on slices are dark or white, whichever can be read there")                                \
    KEY(bool, ShowLeaderLines, m_showLeaderLines, true, Any(DataLabel), Repaint,                          \
        "lines from the slices to the labels beside them")                                                \
    KEY(UXColor, LeaderLineColor, m_leaderLineColor, UXColor(165, 165, 170), Any(DataLabel), Repaint,     \
        "colour of these lines")                                                                          \
    KEY(bool, ShowTotal, m_showTotal, false, Any(Pie), Layout,                                            \
        "the sum of the slices in the hole; of pies without one above them")                              \
    KEY(std::string, TotalCaption, m_totalCaption, std::string(), Any(Pie), Layout,                       \
        "what stands below the sum, or above a pie before it")                                            \
    KEY(UXTextProperty, ValueProperty, m_valueProperty, _makeTextProperty(28, UXColor(64, 64, 64)),       \
        Any(Pie), Layout, "text of the sum in the hole; it shrinks until it fits")                        \
    KEY(UXTextProperty, CaptionProperty, m_captionProperty, _makeTextProperty(13, UXColor(80, 80, 80)),   \
        Any(Pie), Layout, "text of the captions of several pies, and below the sum")                      \
    KEY(double, SliceGap, m_sliceGap, 1, Any(Pie), Layout,                                                \
        "room between two slices at the edge, in logical units")                                          \
    KEY(std::vector<UXColor>, SeriesColors, m_seriesColors, {}, Any(Pie), Recolor,                        \
        "colours that the slices take in turn; none: the palette")                                        \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(Pie), None, "how hints look")

/**
 * Shows the parts of a whole as slices of a pie or a donut, and with a second dimension one pie for each of
 * its members, all of the same size, with its text above.
 *
 * What is not above zero has no slice, and is told below the pies. A click on the legend leaves a slice out,
 * and total and percentages are worked out anew.
 */
class KX_EXPORT KXPieChart : public KXMemberPanelChart {
    KX_DECLARE_CHART_KEYS(KX_PIE_CHART_KEYS)
public:
    KXPieChart();
    ~KXPieChart() override;

    /** The line from a slice to its label: from the slice's edge outwards, then to the label. */
    using Leader = std::array<UXDoublePoint, 3>;

    // As of the last layout, in the chart's own space
    /** @return one for each member of the second dimension that has a place */
    const std::vector<KXPie>& getPies() const { return m_pies; }
    const std::vector<Leader>& getLeaders() const { return m_leaders; }
    /** @return "12.3 %", as of the slices that are shown; empty for an item without a slice */
    std::string obtainPercentageText(const KXChartItem& item) const;

    // From UXJsonObject, KXChartDataUser and KXChartItemsDelegate
    std::string customSerializeTypeID() override;
    void resetData() override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;

protected:
    // From KXMemberPanelChart
    KXListedGroups _listGroups() override;
    std::vector<KXPanelItem> _layoutItems(const UXRect& area) override;
    void _requestLabels(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const override;
    std::vector<UXColor> _obtainUsualColors() const override;
    std::string _obtainItemKind() const override;
    KXObjectID _obtainGroupObjectID(std::uint64_t group) const override;
    KXChartDataProviderHintData _describeItem(const KXChartItem& item) override;
    UXHintInfo _obtainHintLook() const override;
    UXDoublePoint _obtainChosenShift(const KXPanelItem& item) const override;
    void _paintOverItems(UXPainter& painter) const override;

private:
    /** What is to be written at a slice. */
    struct SliceLabel {
        std::size_t pie, segment;
        std::size_t item;          // the index of the laid-out one
        std::string name, numbers; // either may be empty
        std::string percentage;    // as it stands in the numbers
        double nameWidth, numbersWidth;
        UXDoubleRect rect; // beside the pie; empty for a label inside
        std::string text;  // what of it stands there
    };
    /** How much of its place a pie takes. */
    struct PieRoom {
        double radius = 0, columnWidth = 0; // the second 0 where labels do not stand beside it
    };

    static UXTextProperty _makeTextProperty(int fontSize, const UXColor& color);
    KXPieTurn _obtainTurn() const;
    double _obtainHoleShare() const;
    void _divide(std::size_t greatestCount);
    KXLeftOutCounts _countLeftOut() const;
    void _makeSliceLabels(UXLayoutHelper& helper, double height);
    PieRoom _measureRoom(const UXDoubleRect& place, double leastColumn) const;
    void _placePie(std::size_t pie, const UXDoubleRect& place, const PieRoom& room);
    void _placeBeside(UXLayoutHelper& helper, std::size_t pie, const UXDoubleRect& place,
                      const PieRoom& room);
    bool _showsTotalsAbove() const { return m_showTotal && _obtainHoleShare() == 0; }
    std::string _writeCaption(const KXLabelPlacer& placer, std::size_t pie) const;
    void _requestTotals(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const;
    bool _requestTotal(const KXLabelPlacer& placer, const KXPie& pie, const UXTextProperty& property,
                       std::vector<KXLabelRequest>& requests) const;
    void _requestInside(const KXLabelPlacer& placer, const SliceLabel& label,
                        std::vector<KXLabelRequest>& requests) const;

    // Made by the layout
    std::vector<KXPie> m_pies;
    std::vector<UXDoubleRect> m_captions; // of several pies
    std::vector<SliceLabel> m_sliceLabels;
    std::vector<Leader> m_leaders;
};
