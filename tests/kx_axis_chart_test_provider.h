#pragma once

#include "kx_axis_chart_data_provider.h"
#include "ux/ux_color.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_text_property.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <vector>

/** A provider of a small table that a test sets: one list of values per series, NaN for a null. It counts its
 * questions by name, none of which a layout asks, and notes every category whose text is asked for. */
class KXAxisChartTestProvider : public KXAxisChartDataProvider {
public:
    static constexpr double null = std::numeric_limits<double>::quiet_NaN();

    std::vector<std::vector<double>> values{{1, 2, 3}};
    std::uint64_t categoryCount = 3;
    KXChartDataType categoryType = KXChartDataType::String;
    KXChartDataType valueType = KXChartDataType::Float;
    KXChartDataProviderDimensionSetting setting;
    std::map<std::string, int> asked;
    std::vector<std::uint64_t> askedTexts;
    std::vector<KXChartDataPath> paths; // copies of those that came with clicks and highlights
    bool wantsHighlight = false;
    KXChartDataProviderHintData hint;
    std::uint64_t memberCount = 0;            // of the second dimension, each with a value in the lists
    KXIndexPath redPath;                      // of a value whose colour and label the host sets
    std::optional<std::uint64_t> greenSeries; // whose colour the host sets
    std::function<std::vector<KXInteractionEffect*>()> makeEffects;
    std::function<std::string(std::uint64_t)> categoryText;
    std::function<double(std::uint64_t)> categoryNumber;
    std::function<void(const std::string&)> onCall;

    void beginPrepareData(KXChartDataUser*) override { _note("begin"); }
    void endPrepareData(KXChartDataUser*) override { _note("end"); }
    bool obtainDataIsEmpty(KXChartDataUser*) override { return _answer("isEmpty", values.empty()); }
    KXChartDataProviderDimensionSetting obtainDimensionSetting(KXChartDataUser*, std::uint64_t) override
    {
        return _answer("setting", setting);
    }
    std::string obtainDimensionLabel(KXChartDataUser*, std::uint64_t) override
    {
        return _answer("dimensionLabel", std::string("Categories"));
    }
    KXChartDataType obtainDimensionDataType(KXChartDataUser*, std::uint64_t) override
    {
        return _answer("dimensionType", categoryType);
    }
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension) override
    {
        return dimension == 0 ? _answer("categoryCount", categoryCount) : _answer("memberCount", memberCount);
    }
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath& path) override
    {
        askedTexts.push_back(path.at(1));
        const std::string text = categoryText ? categoryText(path[1]) : "c" + std::to_string(path[1]);
        return _answer("text", text);
    }
    double obtainDimensionDataAsNumber(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer("number",
                       categoryNumber ? categoryNumber(path.at(1)) : static_cast<double>(path.at(1)));
    }
    std::uint64_t obtainValueCount(KXChartDataUser*) override
    {
        return _answer("valueCount", std::uint64_t{values.size()});
    }
    std::string obtainValueLabel(KXChartDataUser*, std::uint64_t value) override
    {
        return _answer("valueLabel", "s" + std::to_string(value));
    }
    KXChartDataType obtainValueDataType(KXChartDataUser*, const KXIndexPath&) override
    {
        return _answer("valueType", valueType);
    }
    bool obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer("isNull", std::isnan(_value(path)));
    }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer("value", _value(path));
    }
    bool obtainValueDataColor(KXChartDataUser*, const KXIndexPath& path, UXColor& color) override
    {
        if (path == redPath)
            color = UXColor(255, 0, 0);
        return _answer("color", path == redPath);
    }
    bool obtainValueDataColorForGroup(KXChartDataUser*, std::uint64_t group, UXColor& color) override
    {
        if (group == greenSeries)
            color = UXColor(0, 255, 0);
        return _answer("groupColor", group == greenSeries);
    }
    void customizeValueDataLabel(KXChartDataUser*, const KXIndexPath& path, std::string& label,
                                 UXTextProperty&) override
    {
        if (path == redPath)
            label = "red";
        _note("label");
    }
    bool obtainDataShouldLeftClickAction(KXChartDataUser*, KXChartDataPath*) override { return true; }
    std::function<void()> obtainDataLeftClickAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        paths.push_back(*path);
        return _answer("leftClickAction", std::function<void()>());
    }
    bool obtainDataShouldRightClickAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        paths.push_back(*path);
        return _answer("shouldRightClick", true);
    }
    bool obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        paths.push_back(*path);
        return _answer("shouldHighlight", wantsHighlight);
    }
    std::vector<KXInteractionEffect*> obtainInteractionEffects(const std::vector<KXObjectID>&) override
    {
        return makeEffects ? makeEffects() : std::vector<KXInteractionEffect*>();
    }
    KXChartDataProviderHintData obtainHintData(KXChartDataUser*, const KXIndexPath&) override
    {
        return _answer("hint", hint);
    }

private:
    double _value(const KXIndexPath& path) const
    {
        const std::vector<double>& list = values.at(path.at(0));
        const std::uint64_t index = path.size() < 3 ? path.at(1) : path[1] * memberCount + path[2];
        return index < list.size() ? list[index] : null;
    }
    void _note(const std::string& call)
    {
        EXPECT_FALSE(UXLayoutRounds::isLayingOut()) << call;
        ++asked[call];
        if (onCall)
            onCall(call);
    }
    template <class T>
    T _answer(const std::string& call, T answer)
    {
        _note(call); // may destroy the chart; the answer is the one from before
        return answer;
    }
};
