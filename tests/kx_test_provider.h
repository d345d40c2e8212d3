#pragma once

#include "kx_chart_data_user.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_value_chart_data_provider.h"
#include "ux/ux_layout_rounds.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/** A provider of one value or a gauge's measures that a test sets, which notes every question of interest in
 * order. */
class KXTestProvider : public KXValueChartDataProvider, public KXGaugeChartDataProvider {
public:
    std::vector<std::string> calls;
    bool empty = false;
    std::uint64_t valueCount = 1;
    KXChartDataType dataType = KXChartDataType::Float;
    KXChartAggregateType aggregateType{6};
    bool isNull = false;
    double number = 0;
    std::vector<std::optional<double>> measures; // in place of number where there are any
    std::string text;
    std::function<KXChartDataProviderHintData(const KXIndexPath&)> hint;
    KXInteractionOperation operation;
    KXInteractionEventInfo eventInfo;               // of the last interaction
    std::vector<std::vector<KXObjectID>> objectIDs; // of all interactions
    std::function<KXInteractionEffect*()> effect;
    bool wantsRightClick = false;
    bool wantsLeftClick = false;
    bool wantsHighlight = false;
    bool wantsToolbox = false;
    bool wantsDropDown = false;
    KXChartToolboxMenuContext* toolboxContext = nullptr;
    KXChartToolboxMenuContext* dropDownContext = nullptr;
    std::function<void()> leftClickAction;
    void* rightClickContext = nullptr;
    std::vector<KXChartDataPath> paths; // copies of those that came with clicks
    std::function<void(const std::string&)> onCall;

    std::ptrdiff_t count(const std::string& call) const { return std::ranges::count(calls, call); }

    void beginPrepareData(KXChartDataUser*) override { _note("begin"); }
    void endPrepareData(KXChartDataUser*) override { _note("end"); }
    bool obtainDataIsEmpty(KXChartDataUser*) override { return _answer("isEmpty", empty); }
    std::uint64_t obtainValueCount(KXChartDataUser*) override
    {
        return _answer("count", measures.empty() ? valueCount : measures.size());
    }
    KXChartDataType obtainValueDataType(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer("type" + _text(path), dataType);
    }
    KXChartAggregateType obtainValueAggregateType(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer("aggregate" + _text(path), aggregateType);
    }
    bool obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer("isNull" + _text(path), measures.empty() ? isNull : !measures.at(path.at(0)));
    }
    double obtainValueData(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer("number" + _text(path), measures.empty() ? number : *measures.at(path.at(0)));
    }
    std::string obtainValueDataString(KXChartDataUser*, const KXIndexPath& path) override
    {
        return _answer("text" + _text(path), text);
    }
    KXChartDataProviderHintData obtainHintData(KXChartDataUser*, const KXIndexPath& path) override
    {
        const KXChartDataProviderHintData told = hint ? hint(path) : KXChartDataProviderHintData();
        return _answer("hint", told);
    }
    KXInteractionOperation obtainInteractionOperation(const std::vector<KXObjectID>& about,
                                                      const KXInteractionEventInfo& info) override
    {
        objectIDs.push_back(about);
        eventInfo = info;
        return _answer("operation", operation);
    }
    std::vector<KXInteractionEffect*> obtainInteractionEffects(const std::vector<KXObjectID>&) override
    {
        KXInteractionEffect* made = effect ? effect() : nullptr;
        return _answer("effects", std::vector<KXInteractionEffect*>(made ? 1 : 0, made));
    }
    bool obtainDataShouldRightClickAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        return _answer("shouldRightClick", wantsRightClick, path);
    }
    void* obtainDataRightClickContext(KXChartDataUser*, KXChartDataPath* path) override
    {
        return _answer("rightClickContext", rightClickContext, path);
    }
    bool obtainDataShouldLeftClickAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        return _answer("shouldLeftClick", wantsLeftClick, path);
    }
    std::function<void()> obtainDataLeftClickAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        return _answer("leftClickAction", leftClickAction, path);
    }
    bool obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath* path) override
    {
        return _answer("shouldHighlight", wantsHighlight, path);
    }
    bool obtainDataShouldShowToolbox(KXChartDataUser*, KXChartDataPath* path) override
    {
        return _answer(path ? "shouldShowToolbox of an item" : "shouldShowToolbox", wantsToolbox);
    }
    KXChartToolboxMenuContext* obtainDataToolboxContext(KXChartDataUser*, KXChartDataPath*) override
    {
        return _answer("toolboxContext", toolboxContext);
    }
    bool obtainDataShouldDropDownMenu(KXChartDataUser*, KXChartDataPath* path) override
    {
        return _answer("shouldDropDown " + path->identifier, wantsDropDown, path);
    }
    KXChartToolboxMenuContext* obtainDataDropDownMenuContext(KXChartDataUser*, KXChartDataPath* path) override
    {
        return _answer("dropDownContext " + path->identifier, dropDownContext, path);
    }

private:
    static std::string _text(const KXIndexPath& path)
    {
        std::string text = "(";
        for (const std::uint64_t index : path)
            text += (text.size() > 1 ? "," : "") + std::to_string(index);
        return text + ")";
    }
    void _note(const std::string& call)
    {
        EXPECT_FALSE(UXLayoutRounds::isLayingOut()) << call;
        calls.push_back(call);
        if (onCall)
            onCall(call);
    }
    template <class T>
    T _answer(const std::string& call, T value, const KXChartDataPath* path = nullptr)
    {
        if (path)
            paths.push_back(*path);
        _note(call); // may change or destroy anything but the provider; the answer is the one from before
        return value;
    }
};
