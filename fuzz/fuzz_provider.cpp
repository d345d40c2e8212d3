#include "fuzz_provider.h"

#include "kx_axis_chart_data_user.h"
#include "kx_interaction_color_effect.h"
#include "kx_interaction_context_menu_default_effect.h"
#include "kx_interaction_highlight_brightness_effect.h"
#include "kx_interaction_highlight_color_pattern_effect.h"
#include "kx_interaction_highlight_complementary_info_effect.h"
#include "kx_interaction_highlight_size_effect.h"
#include "ux/ux_text_property.h"

#include <limits>

FuzzInput& FuzzProvider::_ask()
{
    if (whenAsked)
        whenAsked();
    return m_input;
}

KXChartDataType FuzzProvider::_takeType() { return static_cast<KXChartDataType>(_ask().takeBelow(8) - 1); }

KXChartDataProviderDimensionSetting FuzzProvider::obtainDimensionSetting(KXChartDataUser*, std::uint64_t)
{
    KXChartDataProviderDimensionSetting setting;
    setting.firstFlag = _ask().takeBool();
    return setting;
}

KXChartAggregateType FuzzProvider::obtainDimensionAggregateType(KXChartDataUser*, std::uint64_t)
{
    return KXChartAggregateType{_ask().takeInt()};
}

std::uint64_t FuzzProvider::obtainDimensionDataCount(KXChartDataUser*, std::uint64_t dimension)
{
    // What is believed is pulled, as many values as both dimensions make together, so the lies stay small
    // enough for many cases a second.
    const bool isSeries = dimension != categoryDimension;
    const int choice = _ask().takeBelow(16);
    const int count = choice == 15  ? (isSeries ? 30 : 3000)
                      : choice > 10 ? m_input.takeBelow(isSeries ? 16 : 256)
                                    : choice % 5;
    return static_cast<std::uint64_t>(count);
}

double FuzzProvider::obtainDimensionDataAsNumber(KXChartDataUser*, const KXIndexPath&)
{
    return _ask().takeNumber();
}

std::uint64_t FuzzProvider::obtainValueCount(KXChartDataUser* user)
{
    const bool pullsThatMany = dynamic_cast<KXAxisChartDataUser*>(user) != nullptr;
    const int choice = _ask().takeBelow(8); // the user may be gone now
    if (choice == 7 && !pullsThatMany)
        return (std::numeric_limits<std::uint64_t>::max)();
    return static_cast<std::uint64_t>(choice);
}

KXChartAggregateType FuzzProvider::obtainValueAggregateType(KXChartDataUser*, const KXIndexPath&)
{
    return KXChartAggregateType{_ask().takeInt()};
}

bool FuzzProvider::obtainValueDataIsNull(KXChartDataUser*, const KXIndexPath&)
{
    return _ask().takeBelow(4) == 3;
}

std::string FuzzProvider::obtainValueDataString(KXChartDataUser*, const KXIndexPath&)
{
    return _ask().takeText();
}

bool FuzzProvider::obtainValueDataColor(KXChartDataUser*, const KXIndexPath&, UXColor& color)
{
    // In braces, so that every compiler takes them in this order.
    color = UXColor{_ask().takeInt(), m_input.takeInt(), m_input.takeInt(), m_input.takeNumber()};
    return m_input.takeBool();
}

void FuzzProvider::customizeValueDataLabel(KXChartDataUser*, const KXIndexPath&, std::string& text,
                                           UXTextProperty& style)
{
    if (_ask().takeBelow(4) != 0)
        return;
    text = m_input.takeText();
    style.font.size = m_input.takeInt();
}

KXChartDataProviderHintData FuzzProvider::obtainHintData(KXChartDataUser*, const KXIndexPath&)
{
    std::string title = _ask().takeText();
    return {std::move(title), m_input.takeText()};
}

bool FuzzProvider::obtainDataShouldRightClickAction(KXChartDataUser*, KXChartDataPath*)
{
    return _ask().takeBool();
}

bool FuzzProvider::obtainDataShouldLeftClickAction(KXChartDataUser*, KXChartDataPath*)
{
    return _ask().takeBool();
}

std::function<void()> FuzzProvider::obtainDataLeftClickAction(KXChartDataUser*, KXChartDataPath*)
{
    if (_ask().takeBelow(4) == 3)
        return {};
    return [this] { _ask(); };
}

bool FuzzProvider::obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath*)
{
    return _ask().takeBool();
}

KXChartDataPath* FuzzProvider::obtainDataLinkedHighlightTargetPath(KXChartDataUser*, KXChartDataPath* path,
                                                                   KXChartDataProvider*)
{
    return _ask().takeBool() && path ? new KXChartDataPath(*path) : nullptr;
}

KXInteractionOperation FuzzProvider::obtainInteractionOperation(const std::vector<KXObjectID>&,
                                                                const KXInteractionEventInfo&)
{
    KXInteractionOperation operation;
    const int choice = _ask().takeByte();
    if (choice % 2 != 0)
        operation.action = [this] { _ask(); };
    if (choice >= 192) {
        m_contextMenu = _takeEntries(2);
        operation.contextMenu = &m_contextMenu;
    }
    return operation;
}

std::vector<KXMenuEntry> FuzzProvider::_askForEntries(int depth)
{
    _ask();
    return _takeEntries(depth);
}

KXMenuEntry FuzzProvider::_takeEntry(int depth)
{
    KXMenuEntry entry;
    const int choice = m_input.takeByte();
    entry.text = m_input.takeBool() ? m_input.takeText() : std::string("entry");
    entry.icon = static_cast<KXMenuIcon>(choice % 16);
    entry.enabled = choice % 5 != 0;
    entry.checked = choice % 7 == 0;
    entry.separator = choice % 11 == 0;
    if (choice >= 160 && depth > 0)
        entry.entries = _takeEntries(depth - 1);
    else if (choice >= 64)
        entry.action = [this] { _ask(); };
    return entry;
}

std::vector<KXMenuEntry> FuzzProvider::_takeEntries(int depth)
{
    std::vector<KXMenuEntry> entries;
    const int choice = m_input.takeBelow(16);
    for (int count = choice == 15 && depth == 2 ? 40 : choice % 5; count > 0; --count)
        entries.push_back(_takeEntry(depth));
    return entries;
}

KXChartToolboxMenuContext* FuzzProvider::obtainDataToolboxContext(KXChartDataUser*, KXChartDataPath*)
{
    m_strip.entries = _askForEntries(2);
    return m_input.takeBelow(8) != 7 ? &m_strip : nullptr;
}

KXChartToolboxMenuContext* FuzzProvider::obtainDataDropDownMenuContext(KXChartDataUser*, KXChartDataPath*)
{
    m_dropDown.entries = _askForEntries(1);
    return m_input.takeBelow(8) != 7 ? &m_dropDown : nullptr;
}

void* FuzzProvider::obtainDataRightClickContext(KXChartDataUser*, KXChartDataPath*)
{
    m_contextMenu = _askForEntries(2);
    return m_input.takeBelow(8) != 7 ? &m_contextMenu : nullptr;
}

std::vector<KXInteractionEffect*> FuzzProvider::obtainInteractionEffects(const std::vector<KXObjectID>&)
{
    std::vector<KXInteractionEffect*> effects;
    for (int count = _ask().takeBelow(4); count > 0; --count) {
        switch (m_input.takeBelow(8)) {
        case 4:
            effects.push_back(new KXInteractionHighlightColorPatternEffect);
            break;
        case 5:
            effects.push_back(new KXInteractionHighlightComplementaryInfoEffect);
            break;
        case 6:
            effects.push_back(new KXInteractionContextMenuDefaultEffect);
            break;
        case 0:
            effects.push_back(nullptr);
            break;
        case 1:
            effects.push_back(new KXInteractionColorEffect);
            break;
        case 2:
            effects.push_back(new KXInteractionHighlightBrightnessEffect);
            break;
        default:
            effects.push_back(new KXInteractionHighlightSizeEffect);
        }
    }
    return effects;
}
