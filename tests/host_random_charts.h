#pragma once

#include "chart_picture.h"
#include "kx_assistant_line_property.h"
#include "kx_axis_chart_options.h"
#include "kx_axis_chart_test_provider.h"
#include "kx_axis_tick_label_options.h"
#include "kx_bar_chart_options.h"
#include "kx_chart_data_format.h"
#include "kx_chart_data_format_options.h"
#include "kx_control_chart_data_provider.h"
#include "kx_control_chart_options.h"
#include "kx_density_chart_options.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_gauge_chart_options.h"
#include "kx_json_object_factory.h"
#include "kx_kpi_chart_options.h"
#include "kx_line_chart_options.h"
#include "kx_pie_chart_data_provider.h"
#include "kx_pie_chart_options.h"
#include "kx_scatter_chart_options.h"
#include "kx_table_chart_data_provider.h"
#include "kx_table_chart_options.h"
#include "kx_table_color_rule.h"
#include "kx_table_databar_info.h"
#include "kx_tree_map_chart_options.h"
#include "kx_trend_chart_options.h"
#include "kx_value_chart_data_provider.h"
#include "ux/ux_enum_base.h"
#include "ux/ux_padding.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_option.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <memory>
#include <nlohmann/json.hpp>
#include <random>
#include <set>
#include <string>
#include <vector>

/** What a chart of any kind shows: one table of numbers, one list a measure, with names of every kind. */
class RandomTable : public KXAxisChartTestProvider,
                    public KXValueChartDataProvider,
                    public KXGaugeChartDataProvider,
                    public KXPieChartDataProvider,
                    public KXTableChartDataProvider,
                    public KXControlChartDataProvider {
public:
    std::vector<std::string> labels{"s"};
    std::string text;
    bool tellsNulls = true; // off: what is no number is given out as a value

    std::string obtainDimensionLabel(KXChartDataUser*, std::uint64_t) override { return labels.front(); }
    std::string obtainValueLabel(KXChartDataUser*, std::uint64_t value) override
    {
        return labels.at(value % labels.size());
    }
    std::string obtainValueID(KXChartDataUser*, std::uint64_t value) override
    {
        return std::to_string(value);
    }
    bool obtainValueDataIsNull(KXChartDataUser* user, const KXIndexPath& path) override
    {
        return tellsNulls && KXAxisChartTestProvider::obtainValueDataIsNull(user, path);
    }
    std::string obtainValueDataString(KXChartDataUser*, const KXIndexPath&) override { return text; }
};

/** Documents, data and pictures that a host can have, whatever they are. A seed always makes the same ones.
 */
class RandomCharts {
public:
    using Json = nlohmann::json;

    explicit RandomCharts(std::uint64_t seed) : m_random(seed) {}

    int below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    bool oneIn(int count) { return below(count) == 0; }

    template <class Values>
    auto pick(const Values& values)
    {
        return values[static_cast<std::size_t>(below(static_cast<int>(std::size(values))))];
    }

    std::string pickType()
    {
        if (const char* type = std::getenv("KX_RANDOM_TYPE")) // to look at one kind alone
            return type;
        static const std::vector<std::string> types = [] {
            // Bars have the most that can go wrong.
            std::vector<std::string> names = KXJsonObjectFactory::obtainChartTypeNames();
            names.insert(names.end(), 2, "KXBarChart");
            return names;
        }();
        return pick(types);
    }

    /** @return a new chart's document with some keys, or most of them, changed to other valid values */
    Json makeDocument(const std::string& type)
    {
        const std::unique_ptr<UXJsonObject> fresh(KXJsonObjectFactory().create(type));
        Json document = Json::parse(fresh->serialize());
        const int rates[] = {1, 2, 3, 6, 12, 40};
        m_rate = pick(rates);
        m_fontSizes = oneIn(5) ? std::vector{-5, 0, 1, 8, 33, 80, 250, 2147483647}
                               : std::vector{8, 9, 11, 12, 14, 18, 24};
        _changeKeys(document);
        if (document.contains("m_yAxisProperty")) {
            document["m_yAxisProperty"]["m_isStacked"] = !oneIn(3);
            document["m_yAxisProperty"]["m_is100PercentStacked"] = oneIn(2);
            document["m_orientation"] = oneIn(2) ? "Vertical" : "Horizontal";
            for (const char* marks : {"m_barChartProperty", "m_lineChartProperty", "m_scatterChartProperty"})
                if (document.contains(marks))
                    document[marks]["m_showLabels"] = oneIn(2);
            if (document.contains("m_barChartProperty"))
                document["m_barChartProperty"]["m_showTotals"] = oneIn(2);
        }
        return document;
    }

    std::unique_ptr<RandomTable> makeTable(const std::string& type)
    {
        auto table = std::make_unique<RandomTable>();
        const int categoryCounts[] = {0, 1, 1, 2, 3, 5, 8, 12, 24, 60, 300};
        const int measureCounts[] = {0, 1, 1, 2, 3, 4, 9};
        const bool hasAxes = type != "KXGaugeChart" && type != "KXValueChart";
        table->categoryCount = hasAxes ? static_cast<std::uint64_t>(pick(categoryCounts)) : 1;
        const int measures = hasAxes ? pick(measureCounts) : type == "KXGaugeChart" ? 4 - below(12) / 9 : 1;
        const int kind = below(7);
        if (type == "KXWaterfallChart" || type == "KXTornadoChart" || type == "KXScatterChart")
            table->memberCount = static_cast<std::uint64_t>(pick(std::array{0, 0, 1, 2, 3, 5, 12}));
        const std::uint64_t valueCount = table->categoryCount *
                                         std::max<std::uint64_t>(table->memberCount, 1);
        table->values.assign(static_cast<std::size_t>(measures), {});
        for (std::vector<double>& values : table->values)
            for (std::uint64_t i = 0; i < valueCount; ++i)
                values.push_back(oneIn(9) ? KXAxisChartTestProvider::null : _makeNumber(kind));
        if (type == "KXGaugeChart" && !oneIn(4) && measures == 4)
            std::sort(table->values.begin(), table->values.end());
        if (type == "KXGaugeChart" && measures == 4) // value, target, minimum, maximum
            std::rotate(table->values.begin(), table->values.begin() + 1, table->values.end() - 1);
        table->valueType = hasAxes || !oneIn(4) ? KXChartDataType::Float
                                                : static_cast<KXChartDataType>(below(6));
        table->categoryType = oneIn(2) ? KXChartDataType::String : static_cast<KXChartDataType>(below(6));
        table->setting.firstFlag = oneIn(3);
        table->tellsNulls = !oneIn(6);
        table->text = makeText();
        table->labels = {makeText(), makeText(), makeText()};
        std::vector<std::string> texts{makeText(), makeText(), makeText(), makeText()};
        if (oneIn(2))
            texts.clear();
        table->categoryText = [texts](std::uint64_t category) {
            return texts.empty() ? "c" + std::to_string(category)
                                 : texts[category % texts.size()] + std::to_string(category);
        };
        const double step = oneIn(4) ? 1e-3 : oneIn(3) ? 86400 : 1, first = oneIn(2) ? 1.6e9 : -7;
        const bool grows = !oneIn(5);
        table->categoryNumber = [step, first, grows](std::uint64_t category) {
            return first + step * static_cast<double>(grows ? category : category * 7 % 5);
        };
        return table;
    }

    PictureSetting makePicture()
    {
        const int extents[] = {0, 1, 2, 7, 15, 33, 61, 100, 151, 240, 333, 480, 640, 1000, 1600};
        const double scales[] = {1, 1, 1.25, 1.5, 2, 3, 0.75};
        PictureSetting setting;
        setting.size = oneIn(3) ? UXSize(pick(extents), pick(extents))
                                : UXSize(120 + below(900), 80 + below(600));
        setting.margin = oneIn(2) ? 0 : below(20);
        setting.scale = pick(scales);
        setting.ground = UXColor(255, 255, 255, 0);
        return setting;
    }

    UXPadding makePadding()
    {
        return oneIn(3) ? UXPadding(below(30), below(30), below(30), below(30)) : UXPadding(1, 1, 1, 1);
    }

    std::string makeText()
    {
        const char* const texts[] = {
            "",
            "a",
            "Sales",
            "Net sales by region and year",
            "first\nsecond line\nx",
            "\u9500\u552e\u989d\uff08\u4e07\u5143\uff09",            // CJK
            "\xd9\x85\xd8\xa8\xd9\x8a\xd8\xb9\xd8\xa7\xd8\xaa 2024", // right to left
            "2024-03-05",
            "12:30:00",
            "\xf0\x9f\x98\x80 e\xcc\x81",
            "\t<&\"'> ",
            "Donaudampfschifffahrtsgesellschaftskapitaenswitwenrentenauszahlungsstelle"};
        std::string text = pick(texts);
        for (int i = oneIn(12) ? 6 : 0; i > 0; --i)
            text += " " + text.substr(0, 30);
        return _cutWhole(text);
    }

private:
    /** @return text without a half character at a seam */
    static std::string _cutWhole(const std::string& text)
    {
        return Json::parse(Json(text).dump(-1, ' ', false, Json::error_handler_t::replace))
            .get<std::string>();
    }

    double _makeNumber(int kind)
    {
        const double odd[] = {0,
                              -0.0,
                              1e300,
                              -1e300,
                              1.7e308,
                              5e-324,
                              -1e-300,
                              1,
                              -1,
                              1e15 + 0.5,
                              std::numeric_limits<double>::infinity()};
        switch (kind) {
        case 0:
            return 0;
        case 1:
            return pick(odd);
        case 2:
            return (below(2000) - 1000) / 8.0;
        case 3:
            return below(1000) * 1e9;
        case 4:
            return -below(50);
        case 5:
            return below(1000) * 1e-7;
        default:
            return below(100);
        }
    }

    UXColor _makeColor() { return {below(256), below(256), below(256), oneIn(6) ? below(11) / 10.0 : 1}; }
    Json _makeJsonColor()
    {
        const UXColor color = _makeColor();
        return {{"red", color.red}, {"green", color.green}, {"blue", color.blue}, {"alpha", color.alpha}};
    }

    void _changeKeys(Json& object)
    {
        for (auto& [key, value] : object.items()) {
            if (!key.starts_with("m_") || key == "m_hintInfo" || key == "m_partitionLabelsPool")
                continue;
            if (value.is_object() && value.contains("type"))
                _changeKeys(value);
            else if (oneIn(m_rate))
                _changeValue(_tellApart(object, key), value);
        }
        // One character cannot be both; the format would move one of them.
        if (object.contains("m_thousandsSeparator") &&
            object["m_thousandsSeparator"] == object["m_decimalSeparator"])
            object["m_thousandsSeparator"] = "Space";
    }

    /** @return the key, marked where it has other values in an object of this type than in bars */
    static std::string _tellApart(const Json& object, const std::string& key)
    {
        const std::string type = object.value("type", "");
        if (key == "m_style" && type == "KXControlChart")
            return "control." + key;
        if (key == "m_mainDisplay" && type == "KXKpiChart")
            return "kpi." + key;
        const bool isOfLines = type == "KXLineChartProperty" || type == "KXScatterChartProperty";
        if (key != "m_labelPosition" || (!isOfLines && type != "KXPieChart"))
            return key;
        return (type == "KXPieChart" ? "slices." : "lines.") + key;
    }

    void _changeValue(const std::string& key, Json& value)
    {
        if (value.is_boolean())
            value = oneIn(2);
        else if (value.is_number())
            _changeNumber(key, value);
        else if (value.is_string())
            _changeText(key, value);
        else if (value.is_object() && value.contains("red"))
            value = _makeJsonColor();
        else if (value.is_object() && value.contains("font"))
            _changeTextProperty(value);
        else if (value.is_array())
            _changeList(key, value);
    }

    void _changeTextProperty(Json& property)
    {
        property["font"]["size"] = pick(m_fontSizes);
        property["font"]["bold"] = oneIn(2);
        property["align"] = _pickName(uxObtainEnumNames(UXTextAlign()));
        property["option"] = _pickName(uxObtainEnumNames(UXTextOption()));
        property["lineMode"] = 1 + below(2);
        property["textColor"] = _makeJsonColor();
    }

    Json _makeAssistantLine()
    {
        Json line = Json::parse(KXAssistantLineProperty().serialize());
        for (const char* key : {"m_operation", "m_toOperation"})
            line[key] = below(10);
        for (const char* key : {"m_value", "m_toValue"})
            line[key] = below(200) - 50;
        for (const char* key :
             {"m_isOnXAxis", "m_isOnSecondaryAxis", "m_isBand", "m_isInFront", "m_showInLegend"})
            line[key] = oneIn(3);
        line["m_labelText"] = oneIn(2) ? "Line" : "";
        return line;
    }

    Json _makeFormat()
    {
        Json format = Json::parse(KXChartDataFormat().serialize());
        format["m_decimals"] = below(4);
        return format;
    }

    Json _makeColorRule()
    {
        Json rule = Json::parse(KXTableColorRule().serialize());
        rule["m_kind"] = _pickName(uxObtainEnumNames(KXTableColorRuleKind()));
        rule["m_from"] = below(50) - 20;
        rule["m_to"] = below(150) - 20;
        return rule;
    }

    Json _makeDatabar()
    {
        Json bar = Json::parse(KXTableDatabarInfo().serialize());
        bar["m_style"] = _pickName(uxObtainEnumNames(KXTableDatabarStyle()));
        bar["m_hasRange"] = oneIn(3);
        bar["m_minimum"] = below(20) - 10;
        bar["m_maximum"] = below(200) - 50;
        return bar;
    }

    void _changeList(const std::string& key, Json& list)
    {
        static const std::map<std::string, std::string> names = {
            {"m_seriesLineStyles", uxObtainEnumNames(KXChartLineStyle())},
            {"m_seriesShapes", uxObtainEnumNames(KXPointShape())},
            {"m_showValuesAs", uxObtainEnumNames(KXTableShowValuesAs())},
            {"m_seriesTypes", uxObtainEnumNames(KXAxisChartType())}};
        const auto found = names.find(key);
        list = Json::array();
        for (int i = below(9), reached = 0; i > 0; --i)
            if (key == "m_customParititonSegment")
                list.push_back(reached += below(30) - 2);
            else if (key == "m_dataFormats")
                list.push_back(_makeFormat());
            else if (key == "m_colorRules")
                list.push_back(_makeColorRule());
            else if (key == "m_databars")
                list.push_back(_makeDatabar());
            else if (key == "m_assistantLines")
                list.push_back(_makeAssistantLine());
            else if (key == "m_thresholds")
                list.push_back(below(300) / 2.0);
            else if (key == "m_toggledRows" || key == "m_toggledColumns" || key == "m_sizedColumns" ||
                     key == "m_columnOrder")
                list.push_back("c" + std::to_string(i));
            else if (key == "m_sortOrder")
                list.push_back("-/" + std::to_string(i));
            else if (key == "m_columnWidths")
                list.push_back(pick(std::array{-1, 0, 30, 200, 100'000}));
            else if (key == "m_seriesLineWidths")
                list.push_back(below(9) / 2.0);
            else
                list.push_back(found != names.end() ? Json(_pickName(found->second)) : _makeJsonColor());
    }

    void _changeNumber(const std::string& key, Json& value)
    {
        static const std::map<std::string, std::vector<double>> numbers = {
            {"m_topXItemsToShow", {0, 1, 3, 10, 1000}},
            {"m_dimmedOpacity", {0, 0.3, 1}},
            {"m_frozenColumns", {-1, 0, 1, 2, 5, 1000}},
            {"m_customMinAxisValue", {-1e300, -1000, -1, 0, 5, 50}},
            {"m_customMaxAxisValue", {-5, 0, 1, 60, 1000, 1e300}},
            {"m_customAxisTickInterval", {0, 0.001, 1, 7, 25, 1e6}},
            {"m_customAxisTickIntervalFor100PercentStacked", {0, 1, 20, 33, 100, 1000}},
            {"m_axisPossibleTickCount", {0, 1, 2, 5, 11, 60}},
            {"m_axisLength", {-1, 0, 1, 40, 150, 300, 5000}},
            {"m_tickLabelInterval", {0, 1, 2, 3.7, 10, 1000}},
            {"m_divider", {0, 1, 1000, 1e6, 0.001}},
            {"m_decimals", {-1, 0, 1, 2, 6, 15}},
            {"m_barWidth", {0, 0.05, 0.3, 0.9, 1, 2}},
            {"m_lineWidth", {0, 0.4, 1, 7, 60}},
            {"m_pointSize", {-1, 0, 3, 14, 200}},
            {"m_fillOpacity", {-1, 0, 0.4, 3}},
            {"m_opacity", {-1, 0, 0.4, 3}},
            {"m_minPointSize", {-1, 0, 3, 300}},
            {"m_maxPointSize", {-1, 0, 9, 60, 1e300}},
            {"m_middleValue", {-1e300, 0, 20}},
            {"m_classCount", {0, 1, 3, 1000}},
            {"m_targetValueCache", {-20, 0, 50, 1e12, 99.5}},
            {"m_maxValueCache", {-5, 0, 100, 1e12, 1e300}},
            {"m_minValueCache", {-1e300, -100, 0, 3}},
            {"m_pipePartition", {0, 1, 2, 3, 5, 8, 20}},
            {"m_holeRatio", {-1, 0, 0.3, 0.6, 1}},
            {"m_startAngle", {-90, 0, 33, 1e300}},
            {"m_sweep", {-10, 0, 90, 180, 270, 360}},
            {"m_sliceCount", {-1, 0, 1, 3, 10}},
            {"m_groupBelowPercent", {-1, 0, 2, 20, 101}},
            {"m_rowHeight", {-1, 0, 9, 40, 100'000}},
            {"m_tileGap", {-1, 0, 1, 50}},
            {"m_overlap", {-1, 0, 0.3, 2}},
            {"m_kernelWidth", {-1, 0, 0.001, 3, 1e300}},
            {"m_lowerBound", {-1e300, 0, 3}},
            {"m_upperBound", {1e300, 0, 30}},
            {"m_whisker", {-1, 0, 0.05, 0.5}},
            {"m_panelGap", {-1, 0, 3, 16, 500}},
            {"m_panelPadding", {-1, 0, 12, 300}},
            {"m_columnCount", {-1, 0, 1, 3, 7}},
            {"m_percentageDecimals", {-1, 0, 2, 30}},
            {"m_compareBack", {-1, 0, 1, 12, 1e9}},
            {"m_itemStyle", {-1, 0, 1, 2, 3, 9}},
            {"m_groupGap", {-1, 0, 3, 50}},
            {"m_sliceGap", {-1, 0, 1, 50}},
            {"m_pipeWithPercentage", {-0.5, 0, 0.02, 0.1, 0.28, 0.6, 1, 2}}};
        const auto found = numbers.find(key);
        if (key.ends_with("ontSize"))
            value = pick(m_fontSizes);
        else if (found != numbers.end())
            value.is_number_integer() ? value = static_cast<std::int64_t>(pick(found->second))
                                      : value = pick(found->second);
    }

    void _changeText(const std::string& key, Json& value)
    {
        static const std::string sides = "Top, Bottom, Left, Right"; // elsewhere a title lies over the chart
        static const std::string display = uxObtainEnumNames(KXGaugeChartLabelDisplay());
        static const std::map<std::string, std::string> names = {
            {"m_titlePosition", sides},
            {"m_titleHorizontalAlign", "Left, Center, Right"},
            {"m_titleVerticalAlign", "Top, Center, Bottom"},
            {"m_legendPosition", sides},
            {"m_legendHorizontalAlign", "Left, Center, Right"},
            {"m_legendVerticalAlign", "Top, Center, Bottom"},
            {"m_mainLabelAlign", uxObtainEnumNames(UXTextAlign())},
            {"m_dataDensity", uxObtainEnumNames(KXChartDataDensity())},
            {"m_tickLabelRotationType", uxObtainEnumNames(KXAxisTickLabelRotationType())},
            {"m_tickLabelIntervalMode", uxObtainEnumNames(KXAxisTickLabelIntervalMode())},
            {"m_thousandsSeparator", uxObtainEnumNames(KXChartDataFormatThousandsSeparator())},
            {"m_decimalSeparator", uxObtainEnumNames(KXChartDataFormatDecimalSeparator())},
            {"m_negative", uxObtainEnumNames(KXChartDataFormatNegative())},
            {"m_dateTimeMode", uxObtainEnumNames(KXChartDataFormatDateTimeMode())},
            {"m_labelPosition", uxObtainEnumNames(KXBarLabelPosition())},
            {"lines.m_labelPosition", uxObtainEnumNames(KXLineLabelPosition())},
            {"slices.m_labelPosition", uxObtainEnumNames(KXPieLabelPosition())},
            {"m_lineStyle", uxObtainEnumNames(KXChartLineStyle())},
            {"m_lineCapStyle", uxObtainEnumNames(KXChartLineCapStyle())},
            {"m_lineJoinStyle", uxObtainEnumNames(KXChartLineJoinStyle())},
            {"m_curve", uxObtainEnumNames(KXLineCurve())},
            {"m_nullHandling", uxObtainEnumNames(KXLineNullHandling())},
            {"m_pointDisplay", uxObtainEnumNames(KXLinePointDisplay())},
            {"m_pointShape", uxObtainEnumNames(KXPointShape())},
            {"m_labelContent", uxObtainEnumNames(KXScatterLabelContent())},
            {"m_sliceStyle", uxObtainEnumNames(KXPieChartSliceStyle())},
            {"m_sort", uxObtainEnumNames(KXPieSliceOrder())},
            {"m_style", uxObtainEnumNames(KXDensityStyle())},
            {"control.m_style", uxObtainEnumNames(KXControlChartStyle())},
            {"m_sliderType", uxObtainEnumNames(KXChartSliderType())},
            {"m_smoothing", uxObtainEnumNames(KXDensitySmoothing())},
            {"m_heightScale", uxObtainEnumNames(KXDensityHeightScale())},
            {"m_differenceDisplay", uxObtainEnumNames(KXKpiDifferenceDisplay())},
            {"kpi.m_mainDisplay", uxObtainEnumNames(KXKpiChartMainDisplay())},
            {"m_compareTo", uxObtainEnumNames(KXTrendComparison())},
            {"m_diffDisplay", uxObtainEnumNames(KXTrendChartDiffDisplay())},
            {"m_rowLayout", uxObtainEnumNames(KXTableRowLayout())},
            {"m_rowTotals", uxObtainEnumNames(KXTableTotals())},
            {"m_columnTotals", uxObtainEnumNames(KXTableTotals())},
            {"m_tileStyle", uxObtainEnumNames(KXTreeMapChartTileStyle())},
            {"m_labelOverflow", uxObtainEnumNames(KXBarLabelOverflow())},
            {"m_labelDisplayOption", uxObtainEnumNames(KXAxisChartLabelDisplayOption())},
            {"m_labelValueOption", uxObtainEnumNames(KXAxisChartValueOption())},
            {"m_mainDisplay", display},
            {"m_targetDisplay", display},
            {"m_maxMinDisplay", display},
            {"m_partitionLabelDisplay", display},
            {"m_partitionStyle", uxObtainEnumNames(KXGaugeChartPartitionStyle())}};
        static const std::set<std::string> texts = {"m_titleValue",   "m_titleDefaultValue", "m_prefix",
                                                    "m_suffix",       "m_targetCaption",     "m_remarks",
                                                    "m_totalCaption", "m_comparisonCaption", "m_nullText",
                                                    "m_errorText"};
        const auto found = names.find(key);
        if (found != names.end())
            value = _pickName(found->second);
        else if (texts.contains(key))
            value = makeText();
        else if (key.ends_with("DateTimeFormat"))
            value = "YYYY/MM \"at\" HH";
    }

    std::string _pickName(const std::string& names) { return pick(UXEnum::splitString(names)); }

    std::mt19937_64 m_random;
    int m_rate = 1; // one key in so many is changed
    std::vector<int> m_fontSizes;
};
