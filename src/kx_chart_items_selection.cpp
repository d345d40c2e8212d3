#include "kx_chart.h"
#include "kx_chart_data_action.h"
#include "kx_chart_data_path.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_data_user.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_chart_selection_provider.h"
#include "ux/ux_accessible_change.h"
#include "ux/ux_event.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>

/** A click on the chart itself, not on a label. It is about the item that was pressed, if it is still under
 *  the pointer. @return whether it was handed on to the label of the item */
bool KXChartItems::_click(const UXEvent& event)
{
    const UXPoint point = m_chart.getTranslatedPointFromEvent(event, &m_chart);
    if (!m_clicksByKey && m_delegate.obtainItemAt(point) != m_actionItem)
        m_actionItem.reset();
    const UXObjectWatcher self(&m_chart);
    KXChartLabel* label = m_actionItem ? m_delegate.obtainItemLabel(*m_actionItem) : nullptr;
    if (label)
        return !uxPointInRect(point, label->getRect()) && label->triggerEventHandler(event);
    if (m_actionItem)
        _choose(*m_actionItem, event);
    else if (!m_selected.empty() && !event.containsEventKey(UXEventKey::Ctrl))
        _tellSelection({}, event);
    return !self.isAlive();
}

void KXChartItems::followLabel(KXChartLabel* label, const KXChartItem& item)
{
    label->registerEventHandler(UXEventType::LeftClick, [this, item](const UXEvent& event) {
        _choose(item, event);
        return false;
    });
}

KXChartSelectionProvider* KXChartItems::_obtainSelectionProvider()
{
    const KXChartDataProviderUse use(m_user);
    auto* provider = use.as<KXChartSelectionProvider>();
    const bool canSelect = provider && m_user.isInteractionEnabled() && provider->obtainCanSelect(&m_user);
    return use.isCurrent() && canSelect ? provider : nullptr;
}

void KXChartItems::_choose(const KXChartItem& item, const UXEvent& event)
{
    const UXObjectWatcher self(&m_chart);
    if (!_obtainSelectionProvider() || !self.isAlive())
        return;
    std::vector<KXChartItem> wanted{item};
    if (event.containsEventKey(UXEventKey::Shift) && m_anchor) {
        wanted = _obtainRange(*m_anchor, item);
    } else {
        m_anchor = item;
        if (event.containsEventKey(UXEventKey::Ctrl)) {
            wanted = m_selected;
            if (std::erase(wanted, item) == 0)
                wanted.push_back(item);
        }
    }
    _tellSelection(wanted, event);
}

void KXChartItems::choose(const std::vector<KXChartItem>& items, const UXEvent& event)
{
    const UXObjectWatcher self(&m_chart);
    if (!_obtainSelectionProvider() || !self.isAlive())
        return;
    std::vector<KXChartItem> wanted = items;
    if (event.containsEventKey(UXEventKey::Ctrl))
        std::ranges::copy_if(m_selected, std::back_inserter(wanted), [&](const KXChartItem& item) {
            return std::ranges::find(items, item) == items.end();
        });
    _tellSelection(wanted, event);
}

/** @return both ends and what stands between them in the reading order */
std::vector<KXChartItem> KXChartItems::_obtainRange(const KXChartItem& from, const KXChartItem& to) const
{
    for (const auto& [start, end] : {std::pair(from, to), std::pair(to, from)}) {
        std::vector<KXChartItem> range{start};
        std::optional<KXChartItem> item = start;
        while (item && *item != end) {
            item = m_delegate.obtainItemBeside(item, KXChartItemStep::Next);
            if (item)
                range.push_back(*item);
        }
        if (item)
            return range;
    }
    return {to};
}

void KXChartItems::_tellSelection(const std::vector<KXChartItem>& wanted, const UXEvent& event)
{
    const UXObjectWatcher self(&m_chart);
    std::vector<KXChartDataPath> paths;
    for (const KXChartItem& item : wanted) {
        const std::unique_ptr<KXChartDataPath> path(m_delegate.createItemPath(item));
        if (!self.isAlive())
            return;
        if (path)
            paths.push_back(*path);
    }
    std::vector<KXChartItem> asked = m_selected;
    asked.insert(asked.end(), wanted.begin(), wanted.end());
    std::ranges::sort(asked);
    asked.erase(std::ranges::unique(asked).begin(), asked.end());
    event.postAction([this, self, paths, asked] {
        KXChartSelectionProvider* provider = self.isAlive() ? _obtainSelectionProvider() : nullptr;
        if (!provider || !self.isAlive())
            return;
        provider->selectionChanged(&m_user, paths);
        if (self.isAlive())
            _askForSelection(asked);
    });
}

/** What was chosen may stand elsewhere among new data, or be gone. */
void KXChartItems::_askForSelectionAnew() { _askForSelection(std::nullopt); }

/** @return the items of paths that the host has named */
std::vector<KXChartItem> KXChartItems::_findNamedItems(const std::vector<KXChartDataPath>& paths)
{
    const KXChartDataProviderWatcher watcher(&m_user);
    std::vector<KXChartItem> found;
    for (const KXChartDataPath& path : paths) {
        const std::vector<KXChartItem> items = m_delegate.findItems(path);
        if (!watcher.isCurrent())
            break;
        std::ranges::copy_if(items, std::back_inserter(found),
                             [this](const KXChartItem& item) { return m_delegate.hasItem(item); });
    }
    return found;
}

/** @return those of the items that are chosen, asked for one by one */
std::vector<KXChartItem> KXChartItems::_findSelectedItems(KXChartSelectionProvider& provider,
                                                          const std::vector<KXChartItem>& items)
{
    const KXChartDataProviderWatcher watcher(&m_user);
    std::vector<KXChartItem> found;
    for (const KXChartItem& item : items) {
        if (!watcher.isCurrent())
            break;
        if (!m_delegate.hasItem(item))
            continue;
        const std::unique_ptr<KXChartDataPath> path(m_delegate.createItemPath(item));
        if (path && watcher.isCurrent() && provider.obtainIsSelected(path.get()))
            found.push_back(item);
    }
    return found;
}

/** Takes over from the host which items are chosen.
 *  @param items that may be, none for all */
void KXChartItems::_askForSelection(const std::optional<std::vector<KXChartItem>>& items)
{
    const UXObjectWatcher self(&m_chart);
    const KXChartDataProviderWatcher watcher(&m_user);
    KXChartSelectionProvider* provider = _obtainSelectionProvider();
    std::vector<KXChartItem> selected;
    std::vector<KXChartDataPath> paths;
    const bool areNamed = provider && watcher.isCurrent() && provider->obtainSelectedPaths(&m_user, paths);
    if (areNamed && watcher.isCurrent())
        selected = _findNamedItems(paths);
    else if (provider && watcher.isCurrent())
        selected = _findSelectedItems(*provider, items ? *items : m_delegate.obtainItems());
    if (!self.isAlive())
        return;
    std::ranges::sort(selected);
    selected.erase(std::ranges::unique(selected).begin(), selected.end());
    if (selected == m_selected)
        return;
    std::vector<KXChartItem> before = std::exchange(m_selected, std::move(selected));
    uxTellAccessibleChange(m_chart, UXAccessibleChange::Selection);
    if (!m_toldSelected)
        m_toldSelected = std::move(before);
    _tellLooksLater();
}
