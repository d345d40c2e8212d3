#include "kx_accessible_item.h"

#include "kx_chart.h"
#include "kx_chart_items.h"
#include "kx_chart_items_delegate.h"
#include "kx_chart_label.h"
#include "kx_chart_property.h"
#include "kx_sentence.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_hint_words.h"

#include <algorithm>

KXAccessibleItem::KXAccessibleItem(KXChart& chart, const KXChartItem& item) : m_chart(&chart), m_item(item) {}

KXAccessibleItem::~KXAccessibleItem() = default;

UXObject* KXAccessibleItem::getObject() const { return m_chart.getObject(); }

KXChart* KXAccessibleItem::_getChart() const { return static_cast<KXChart*>(m_chart.getObject()); }

/** @return what the hint says; of an item without one what its label says, and of one without a value where
 * that would stand */
std::string KXAccessibleItem::_obtainName() const
{
    KXChart* chart = _getChart();
    auto* delegate = dynamic_cast<KXChartItemsDelegate*>(chart);
    const bool isThere = delegate->hasItem(m_item);
    const UXHintInfo hint = chart->getItems()->obtainHint(m_item);
    if (!m_chart.isAlive())
        return {};
    if (!isThere)
        return kxWriteSentence("%1: no value", {hint.title});
    std::string words = uxWriteHint(hint);
    const KXChartLabel* label = delegate->obtainItemLabel(m_item);
    if (words.empty() && label)
        words = label->getText().empty() ? label->getDefaultText() : label->getText();
    return words.empty() ? delegate->obtainItemValueText(m_item) : words;
}

UXAccessibleInfo KXAccessibleItem::obtainInfo()
{
    UXAccessibleInfo info;
    const KXChart* chart = _getChart();
    const auto* delegate = dynamic_cast<const KXChartItemsDelegate*>(chart);
    if (!delegate || !chart->getItems())
        return info;
    info.role = delegate->obtainItemRole(m_item);
    info.name = _obtainName();
    if (!m_chart.isAlive())
        return {};
    if (!delegate->hasItem(m_item))
        return info;
    info.rect = chart->translateRectToParent(delegate->obtainItemRect(m_item), nullptr);
    const KXChartItems& items = *chart->getItems();
    info.isFocusable = chart->getChartProperty()->getEnableInteraction();
    info.isFocused = items.isWalkedTo(m_item);
    info.isSelected = std::ranges::binary_search(items.getSelected(), m_item);
    if (info.isFocusable)
        info.actions = {UXAccessibleAction::Focus, UXAccessibleAction::Press};
    return info;
}

bool KXAccessibleItem::perform(UXAccessibleAction action)
{
    const bool presses = action == UXAccessibleAction::Press;
    const KXChart* chart = _getChart();
    return chart && chart->getItems() && (presses || action == UXAccessibleAction::Focus) &&
           chart->getItems()->goTo(m_item, presses);
}
