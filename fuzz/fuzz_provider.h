#pragma once

#include "fuzz_input.h"
#include "kx_axis_chart_data_provider.h"
#include "kx_chart_toolbox_menu_context.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_pie_chart_data_provider.h"
#include "kx_value_chart_data_provider.h"

#include <functional>
#include <vector>

/** A host that answers every question with the next bytes of a case: with lies, with something else each
 * time, and after having done anything to the charts. */
class FuzzProvider : public KXValueChartDataProvider,
                     public KXGaugeChartDataProvider,
                     public KXPieChartDataProvider,
                     public KXAxisChartDataProvider {
public:
    explicit FuzzProvider(FuzzInput& input) : m_input(input) {}

    /** Called before every answer. */
    std::function<void()> whenAsked;

    void beginPrepareData(KXChartDataUser*) override { _ask(); }
    void endPrepareData(KXChartDataUser*) override { _ask(); }
    bool obtainDataIsEmpty(KXChartDataUser*) override { return _ask().takeBelow(8) == 7; }

    std::string obtainDimensionLabel(KXChartDataUser*, std::uint64_t) override { return _ask().takeText(); }
    KXChartDataProviderDimensionSetting obtainDimensionSetting(KXChartDataUser*, std::uint64_t) override;
    KXChartDataType obtainDimensionDataType(KXChartDataUser*, std::uint64_t) override { return _takeType(); }
    KXChartAggregateType obtainDimensionAggregateType(KXChartDataUser*, std::uint64_t) override;
    std::uint64_t obtainDimensionDataCount(KXChartDataUser*, std::uint64_t) override;
    std::string obtainDimensionData(KXChartDataUser*, const KXIndexPath&) override
    {
        return _ask().takeText();
    }
    bool obtainDimensionDataIsNull(KXChartDataUser*, const KXIndexPath&) override
    {
        return _ask().takeBool();
    }
    double obtainDimensionDataAsNumber(KXChartDataUser*, const KXIndexPath&) override;

    std::uint64_t obtainValueCount(KXChartDataUser* user) override;
    std::string obtainValueLabel(KXChartDataUser*, std::uint64_t) override { return _ask().takeText(); }
    KXChartDataType obtainValueDataType(KXChartDataUser*, const KXIndexPath&) override { return _takeType(); }
    bool obtainValueAddsUp(KXChartDataUser*, std::uint64_t) override { return _ask().takeBool(); }
    KXChartAggregateType obtainValueAggregateType(KXChartDataUser*, const KXIndexPath&) override;
    bool obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath&) override;
    double obtainValueData(KXChartDataUser*, const KXIndexPath&) override { return _ask().takeNumber(); }
    std::string obtainValueDataString(KXChartDataUser*, const KXIndexPath&) override;
    bool obtainValueDataColor(KXChartDataUser*, const KXIndexPath&, UXColor& color) override;
    void customizeValueDataLabel(KXChartDataUser*, const KXIndexPath&, std::string& text,
                                 UXTextProperty& style) override;
    KXChartDataProviderHintData obtainHintData(KXChartDataUser*, const KXIndexPath&) override;

    bool obtainDataShouldRightClickAction(KXChartDataUser*, KXChartDataPath*) override;
    bool obtainDataShouldLeftClickAction(KXChartDataUser*, KXChartDataPath*) override;
    std::function<void()> obtainDataLeftClickAction(KXChartDataUser*, KXChartDataPath*) override;
    bool obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath*) override;
    KXChartDataPath* obtainDataLinkedHighlightTargetPath(KXChartDataUser*, KXChartDataPath* path,
                                                         KXChartDataProvider*) override;
    bool obtainDataShouldShowToolbox(KXChartDataUser*, KXChartDataPath*) override
    {
        return _ask().takeBool();
    }
    // Menus: the context of a strip or of a drop-down menu, and the entries of a context menu
    KXChartToolboxMenuContext* obtainDataToolboxContext(KXChartDataUser*, KXChartDataPath*) override;
    bool obtainDataShouldDropDownMenu(KXChartDataUser*, KXChartDataPath*) override
    {
        return _ask().takeBelow(4) != 0;
    }
    KXChartToolboxMenuContext* obtainDataDropDownMenuContext(KXChartDataUser*, KXChartDataPath*) override;
    void* obtainDataRightClickContext(KXChartDataUser*, KXChartDataPath*) override;
    KXInteractionOperation obtainInteractionOperation(const std::vector<KXObjectID>&,
                                                      const KXInteractionEventInfo&) override;
    std::vector<KXInteractionEffect*> obtainInteractionEffects(const std::vector<KXObjectID>&) override;

private:
    FuzzInput& _ask();
    KXChartDataType _takeType();
    std::vector<KXMenuEntry> _askForEntries(int depth);
    std::vector<KXMenuEntry> _takeEntries(int depth);
    KXMenuEntry _takeEntry(int depth);

    FuzzInput& m_input;
    KXChartToolboxMenuContext m_strip, m_dropDown;
    std::vector<KXMenuEntry> m_contextMenu;
};
