#pragma once

#include "kx_chart_data_format_key.h"
#include "kx_control_chart_options.h"
#include "kx_figure_chart.h"
#include "kx_value_list.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_VALUE_LIST_CHART_KEYS(KEY)                                                                    \
    KEY(std::vector<KXChartDataFormat>, DataFormats, m_dataFormats, {}, Any(DataFormat), Layout,         \
        "how the values of each measure are written; of those past the last one m_dataFormat")           \
    KEY(int, ItemStyle, m_itemStyle, static_cast<int>(KXValueListBaseItemStyle::Left), Any(ValueList),   \
        Layout, "where captions stand, seen from their values: 0 left, 1 above, 2 below, 3 right")       \
    KEY(bool, ShowFurther, m_showFurther, true, Any(ValueList), Layout, "the further measures below")    \
    KEY(bool, ShowSeparators, m_showSeparators, true, Any(ValueList), Repaint, "lines between the rows") \
    KEY(UXColor, SeparatorColor, m_separatorColor, UXColor(229, 231, 235), Any(ValueList), Repaint,      \
        "of these lines")                                                                                \
    KEY(UXColor, NegativeFontColor, m_negativeFontColor, UXColor(190, 40, 40), Any(ValueList), Layout,   \
        "of values below zero")

/** A list of values with their captions: in as many columns as there is room for, all values in one size. */
class KX_EXPORT KXValueListChart : public KXFigureChart {
    KX_DECLARE_CHART_KEYS(KX_VALUE_LIST_CHART_KEYS)
public:
    KXValueListChart();
    ~KXValueListChart() override;

    /** What an item has lines for. */
    enum Part : std::size_t { Caption, Value, Further };

    /** @return what is in sight, as of the last layout */
    const KXValueList& getValueList() const { return m_list; }
    /** @return what a part of an item says, empty for nothing. The provider may be asked for a caption, which
     * may destroy the chart. */
    std::string obtainPartText(std::uint64_t group, Part part);

    // From UXJsonObject and KXChartItemsDelegate
    std::string customSerializeTypeID() override;
    std::vector<KXChartItem> findItems(const KXChartDataPath& path) override;

protected:
    std::string _obtainItemKind() const override;
    const KXChartDataFormat& _obtainFormat(std::uint64_t measure) const override;
    std::vector<KXFigureLine> _makeLines() const override;
    Text _obtainText(std::uint64_t group, std::size_t line) override;
    Grid _arrangePanels(std::uint64_t count, const UXDoubleSize& natural, const UXDoubleSize& least,
                        const UXDoubleSize& room) const override;
    std::vector<KXPanelItem> _layoutItems(const UXRect& area) override;
    KXChartDataProviderHintData _describeItem(const KXChartItem& item) override;
    void _paintUnderItems(UXPainter& painter) const override;

private:
    KXValueListBaseItemStyle _obtainStyle() const;
    Part _obtainPart(std::size_t line) const;
    std::string _obtainFurtherText(std::uint64_t group) const;

    KXValueList m_list;
};
