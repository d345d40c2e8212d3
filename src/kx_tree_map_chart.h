#pragma once

#include "kx_chart_data_format_key.h"
#include "kx_gradient_scale.h"
#include "kx_key_table.h"
#include "kx_member_panel_chart.h"
#include "kx_tile.h"
#include "kx_tree_map_chart_options.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_text_property.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

class KXLineGradientLegend;
class KXPixelGrid;

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_TREE_MAP_CHART_KEYS(KEY)                                                                         \
    KEY(KXTreeMapChartTileStyle, TileStyle, m_tileStyle, KXTreeMapChartTileStyle::Default, Any(TreeMap),    \
        Reload, "which tiles are gathered in Others")                                                       \
    KEY(double, GroupBelowPercent, m_groupBelowPercent, 2, Any(TreeMap), Reload,                            \
        "with GroupValueLessThan: tiles below this percentage are gathered")                                \
    KEY(bool, ShowLabels, m_showLabels, true, Any(DataLabel), Layout, "the names in the tiles")             \
    KEY(bool, ShowLabelValue, m_showLabelValue, true, Any(DataLabel), Layout, "the values below the names") \
    KEY(std::vector<KXChartDataFormat>, DataFormats, m_dataFormats, {}, Any(DataFormat), Layout,            \
        "how the values of each measure are written; of those past the last one m_dataFormat")              \
    KEY(UXTextProperty, LabelProperty, m_labelProperty, _makeTextProperty(12, UXColor(40, 40, 40)),         \
        Any(DataLabel), Layout, "text of the labels; where it does not fit it is smaller once")             \
    KEY(bool, AutoLabelColor, m_autoLabelColor, true, Any(DataLabel), Layout,                               \
        "labels are dark or white, whichever can be read on the tile")                                      \
    KEY(bool, ShowCaptions, m_showCaptions, true, Any(TreeMap), Layout,                                     \
        "the name of a group above its tiles, where these keep two thirds of it")                           \
    KEY(UXTextProperty, CaptionProperty, m_captionProperty, _makeTextProperty(12, UXColor(80, 80, 80)),     \
        Any(TreeMap), Layout, "text of the captions, and of the way back from a group")                     \
    KEY(double, TileGap, m_tileGap, 1, Any(TreeMap), Layout,                                                \
        "room inside the right and lower edge of a tile, in logical units")                                 \
    KEY(double, GroupGap, m_groupGap, 3, Any(TreeMap), Layout, "room inside those of a group")              \
    KEY(std::vector<UXColor>, SeriesColors, m_seriesColors, {}, Any(TreeMap), Recolor,                      \
        "colours that the groups take in turn; none: the palette")                                          \
    KEY(UXColor, MinColor, m_minColor, UXColor(49, 104, 178), Any(ColorSeries), Recolor,                    \
        "with a second measure: the colour of its least value")                                             \
    KEY(UXColor, MiddleColor, m_middleColor, UXColor(224, 184, 96), Any(ColorSeries), Recolor,              \
        "the colour of the middle value")                                                                   \
    KEY(UXColor, MaxColor, m_maxColor, UXColor(196, 48, 43), Any(ColorSeries), Recolor,                     \
        "the colour of the greatest value")                                                                 \
    KEY(double, MiddleValue, m_middleValue, 0, Any(ColorSeries), Recolor,                                   \
        "has the middle colour where it lies between the two; else halfway")                                \
    KEY(int, ClassCount, m_classCount, 0, Any(ColorSeries), Recolor,                                        \
        "above 0: as many classes of values, each in one colour")                                           \
    KEY(std::string, ShownGroup, m_shownGroup, std::string(), Any(TreeMap), Reload,                         \
        "the name of the one group that is shown alone; empty: all")                                        \
    KEY(UXHintInfo, HintSettings, m_hintInfo, UXHintInfo(), Any(TreeMap), None, "how hints look")

/**
 * Shows the parts of a whole as tiles of an area, with a second dimension in groups with captions. Areas are
 * exact among the groups, and among the tiles of one group, and their edges lie on whole pixels.
 *
 * With a second measure colours stand for its values, and a gradient takes the place of the legend. What is
 * not above zero has no tile, and is told below.
 *
 * A double click on a group, or Ctrl and Enter on one of its tiles, shows it alone; a click on the line above
 * it, or Backspace, leads back.
 */
class KX_EXPORT KXTreeMapChart : public KXMemberPanelChart {
    KX_DECLARE_CHART_KEYS(KX_TREE_MAP_CHART_KEYS)
public:
    KXTreeMapChart();
    ~KXTreeMapChart() override;

    /** A group of tiles that has a place. */
    struct Group {
        std::uint64_t group = 0;
        double sum = 0;
        UXDoubleRect rect;    /**< in the chart's own space, with caption and gaps */
        UXDoubleRect caption; /**< empty without one */
    };

    /** @return as of the last layout, by falling sum; none without a second dimension */
    const std::vector<Group>& getGroups() const { return m_groupPlaces; }
    /** @return the tile of an item, none where it has none as of the last layout */
    std::optional<KXTile> obtainTile(const KXChartItem& item) const;
    /** @return what colours stand for, none without a second measure */
    std::optional<KXGradientScale> obtainColorScale() const;
    /** @return the line that leads back from a group that is shown alone, in the own space; else empty */
    const UXDoubleRect& getWayBack() const { return m_wayBack; }

    // From UXJsonObject, KXChart, KXLegendDelegate and KXChartItemsDelegate
    std::string customSerializeTypeID() override;
    void customReloadData() override;
    void resetData() override;
    void registerChartPropertyUpdatedEvents() override;
    std::uint64_t obtainLegendCellSize() override;
    bool hasItem(const KXChartItem& item) const override;
    std::vector<KXObjectID> obtainItemObjectIDs(const KXChartItem& item) const override;

    // From UXObject
    bool customMouseDoubleClick(const UXEvent& event, bool& stop) override;
    bool customKeyDown(const UXEvent& event, bool& stop) override;

protected:
    // From KXMemberPanelChart
    KXListedGroups _listGroups() override;
    KXListedGroups _listIndexes() override;
    std::vector<KXPanelItem> _layoutItems(const UXRect& area) override;
    void _requestLabels(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const override;
    std::vector<std::uint64_t> _obtainNamedMembers(std::uint64_t dimension) const override;
    UXColor _obtainItemColor(const KXChartItem& item) const override;
    std::vector<UXColor> _obtainUsualColors() const override;
    std::string _obtainItemKind() const override;
    KXObjectID _obtainGroupObjectID(std::uint64_t group) const override;
    std::uint64_t _obtainGroupDimension() const override;
    KXChartDataProviderHintData _describeItem(const KXChartItem& item) override;
    const KXChartDataFormat& _obtainFormat(std::uint64_t measure) const override;
    UXHintInfo _obtainHintLook() const override;
    void _memberTextsArrived() override;
    void _customLayout(UXRect plotArea) override;
    void _applyKeyEffect(UXPropertyEffect effect) override;

private:
    struct Leaf {
        KXChartItem item;
        double value;
    };
    /** The leaves that stand side by side. */
    struct Branch {
        std::uint64_t group = 0;
        std::vector<Leaf> leaves; // by falling value, Others last
        double sum = 0;
    };
    /** What a tile says: lines from top to bottom. */
    struct TileText {
        std::vector<std::string> lines;
        UXTextProperty property;
    };

    static UXTextProperty _makeTextProperty(int fontSize, const UXColor& color);
    bool _hasGroups() const { return getDimensionCount() > 1; }
    bool _hasColorMeasure() const { return getDimensionCount() > 0 && getMeasureCount() > 1; }
    double _obtainColorValue(const KXChartItem& item) const;
    KXListedGroups _listTiles(std::uint64_t dimension);
    bool _findShownGroup();
    void _showGroup(std::uint64_t group);
    void _sortTiles();
    void _fillBranches();
    void _layoutWayBack(UXDoubleRect& room);
    void _layoutBranch(const Branch& branch, const UXDoubleRect& place, const KXPixelGrid& grid,
                       std::vector<KXPanelItem>& items);
    bool _mayHaveLabel(const UXDoubleRect& rect) const;
    std::optional<TileText> _writeTile(const KXLabelPlacer& placer, const KXPanelItem& item) const;
    std::optional<std::vector<std::string>> _breakName(const KXLabelPlacer& placer, const std::string& name,
                                                       const UXTextProperty& property, double width) const;
    const std::vector<double>& _obtainPercentages() const;
    void _updateGradientLegend();
    std::optional<std::uint64_t> _findGroupAt(const UXPoint& point) const;

    KXLineGradientLegend* m_gradientLegend; // a child
    std::optional<std::uint64_t> m_alone;   // the group that is shown alone
    std::string m_allWord;                  // in the host's language

    // Made of the data and of what is shown of them
    std::vector<Branch> m_branches;            // by falling sum
    std::vector<std::uint64_t> m_sortedGroups; // those that these are made of
    bool m_isSorted = false;
    KXLeftOutCounts m_leftOut;
    double m_leastColorValue = 0, m_greatestColorValue = 0;
    mutable std::vector<double> m_percentages; // by leaf in the branches' order; empty until asked for

    // Made by the layout
    std::vector<Group> m_groupPlaces;
    std::vector<std::size_t> m_labelledTiles; // those with room for a label, by index
    double m_leastLabelledHeight = 0;         // of a tile
    UXDoubleRect m_wayBack;
};
