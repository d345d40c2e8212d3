#include "kx_chart_items.h"

#include "kx_chart.h"
#include "kx_chart_data_action.h"
#include "kx_chart_data_path.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_user.h"
#include "kx_chart_data_value.h"
#include "kx_chart_label.h"
#include "kx_chart_selection_provider.h"
#include "kx_legend.h"
#include "ux/ux_color_contrast.h"
#include "ux/ux_control.h"
#include "ux/ux_event.h"
#include "ux/ux_hint_delegate.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_localize.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>

namespace {

constexpr double ringWidth = 2;
/** Between the item and the ring, and around the ring: a line in the opposite colour. */
constexpr double ringEdge = 1;
constexpr UXColor darkRing(33, 33, 33), lightRing(255, 255, 255);
/** So much a ring has to differ from what it stands on, as WCAG 2.1 has it for parts of a control. */
constexpr double leastRingContrast = 3;
/** Beyond so many, finding what is drawn of each item costs more than drawing all. */
constexpr std::size_t greatestChangeCount = 64;

void strokeRing(UXPainter& painter, const UXDoubleRect& rect, double width, const UXColor& color)
{
    painter.setColor(color);
    painter.setLineWidth(width);
    painter.addRectanglePath(rect.x, rect.y, rect.width, rect.height);
    painter.stroke();
}

bool contains(const std::vector<KXChartItem>& items, const KXChartItem& item)
{
    return std::ranges::binary_search(items, item);
}

/** Adds the items that are in one of two lists only. @param before none where it is the same as now */
void addDifference(std::vector<KXChartItem>& items, const std::optional<std::vector<KXChartItem>>& before,
                   const std::vector<KXChartItem>& now)
{
    if (before)
        std::ranges::set_symmetric_difference(*before, now, std::back_inserter(items));
}

} // namespace

KXChartItems::KXChartItems(KXChartItemsDelegate& delegate, KXChartDataUser& user, UXHintDelegate& hint,
                           KXChartDataAction& action)
    : m_delegate(delegate), m_user(user), m_hint(hint), m_action(action), m_chart(*user.getChart())
{
    m_chart.setShowsFocus(true);
    m_chart.registerEventHandler(UXEventType::LeftClick,
                                 [this](const UXEvent& event) { return _click(event); });
}

KXChartItems::~KXChartItems() = default;

void KXChartItems::highlightGroup(const std::optional<std::uint64_t>& group)
{
    const UXNotificationScope scope;
    if (group == m_group)
        return;
    m_group = group;
    _tellLooksLater();
}

void KXChartItems::hoverGroup(std::uint64_t group, bool hovered)
{
    if (hovered && m_user.isInteractionEnabled())
        highlightGroup(group);
    else if (m_group == group)
        highlightGroup(std::nullopt);
}

void KXChartItems::setLinked(std::vector<KXChartItem> items)
{
    const UXNotificationScope scope;
    std::ranges::sort(items);
    if (items == m_linked)
        return;
    const UXObjectWatcher self(&m_chart);
    _dropLook(m_linkedLook, m_linked);
    std::vector<KXChartItem> before = std::exchange(m_linked, {});
    for (const KXChartItem& item : before)
        _dropEffects(item);
    m_linked = std::move(items);
    if (!m_toldLinked)
        m_toldLinked = std::move(before);
    _tellLooksLater();
    if (self.isAlive() && !m_linked.empty())
        _takeEffects(m_linked);
}

bool KXChartItems::isHighlighting() const
{
    return m_hovered || m_group || !m_linked.empty() || !m_selected.empty();
}

bool KXChartItems::isHighlighted(const KXChartItem& item) const
{
    return m_hovered == item || m_group == item.group || contains(m_linked, item) ||
           contains(m_selected, item);
}

UXColor KXChartItems::obtainDrawnColor(const KXChartItem& item, const UXColor& color,
                                       KXInteractionEffectTarget target) const
{
    if (const KXChartLabel* label = m_delegate.obtainItemLabel(item))
        return label->obtainDrawnColor(color, target);
    if (m_hovered == item)
        return m_hoveredLook.obtainDrawnColor(color, target);
    if (contains(m_linked, item))
        return m_linkedLook.obtainDrawnColor(color, target);
    UXColor drawn = color;
    if (isHighlighting() && !isHighlighted(item))
        drawn.alpha *= std::clamp(m_delegate.obtainDimmedOpacity(), 0.0, 1.0);
    return drawn;
}

double KXChartItems::obtainDrawnSizeRatio(const KXChartItem& item) const
{
    if (const KXChartLabel* label = m_delegate.obtainItemLabel(item))
        return label->obtainDrawnSizeRatio();
    if (m_hovered == item)
        return m_hoveredLook.obtainDrawnSizeRatio();
    return contains(m_linked, item) ? m_linkedLook.obtainDrawnSizeRatio() : 1;
}

KXChartItemLook KXChartItems::obtainLook(const KXChartItem& item, const UXColor& color) const
{
    KXChartItemLook look{color};
    if (!isHighlighting())
        return look;
    look.fill = obtainDrawnColor(item, color);
    look.sizeRatio = obtainDrawnSizeRatio(item);
    // There is no line of its own, so one is seen only where the host wants lines to stand out.
    const UXColor line = obtainDrawnColor(item, color, KXInteractionEffectTarget::NonFilled);
    if (line != look.fill && line != color)
        look.line = line;
    return look;
}

void KXChartItems::paintFocus(UXPainter& painter) const
{
    if (!m_showsFocus || !m_focused || !_hasKeys())
        return;
    const UXRect rect = m_delegate.obtainItemRect(*m_focused);
    if (uxIsEmptyRect(rect))
        return;
    // Two lines, as the ring may lie on the ground or on other items: one of them shows on either.
    const UXColor ground = m_chart.getBackgroundColor().alpha > 0 ? m_chart.getBackgroundColor() : lightRing;
    const bool isDark = uxObtainContrast(darkRing, ground) >= leastRingContrast;
    const double middle = ringEdge + ringWidth / 2;
    strokeRing(painter, uxInflateDoubleRect(UXDoubleRect(rect), middle, middle), ringWidth + 2 * ringEdge,
               isDark ? lightRing : darkRing);
    strokeRing(painter, uxInflateDoubleRect(UXDoubleRect(rect), middle, middle), ringWidth,
               isDark ? darkRing : lightRing);
}

void KXChartItems::press(const UXEvent& event)
{
    const UXObjectWatcher self(&m_chart);
    m_actionItem = m_user.isInteractionEnabled()
                       ? m_delegate.obtainItemAt(m_chart.getTranslatedPointFromEvent(event, &m_chart))
                       : std::nullopt;
    if (m_actionItem)
        m_focused = m_actionItem; // the keys go on from there
    if (std::exchange(m_showsFocus, false))
        m_chart.invalidate();
    // Whether there is a menu depends on the item, so the provider is asked now.
    if (self.isAlive() && event.containsEventKey(UXEventKey::RightButton))
        m_action.registerRightClickMenu(&m_user, KXTriggerCondition());
}

void KXChartItems::hover(const UXEvent& event)
{
    if (!m_user.isInteractionEnabled())
        return;
    const UXObjectWatcher self(&m_chart);
    const UXPoint point = m_chart.getTranslatedPointFromEvent(event, &m_chart);
    const std::optional<KXChartItem> item = m_delegate.obtainItemAt(point);
    const std::optional<KXChartItem> explained = item ? item : m_delegate.obtainExplainedAt(point);
    _setHovered(item, event);
    if (self.isAlive())
        _explain(explained, point);
    if (self.isAlive())
        m_delegate.itemExplained(m_hint.getHintVisible() ? m_explained : std::nullopt);
}

void KXChartItems::leave(const UXEvent& event)
{
    const UXObjectWatcher self(&m_chart);
    _setHovered(std::nullopt, event);
    if (self.isAlive())
        _explain(std::nullopt, {});
}

void KXChartItems::_setHovered(const std::optional<KXChartItem>& item, const UXEvent& event)
{
    if (item == m_hovered)
        return;
    // What the two ask of linked charts is done in one call, so that these show the change from one to the
    // other.
    const UXEvent links = event.copyWithoutActions();
    event.postAction([links] {
        const UXNotificationScope scope;
        links.runPostedActions();
    });

    // 1. The one that was left no longer asks for anything.
    const UXObjectWatcher self(&m_chart);
    if (m_hovered) {
        m_actionItem = m_hovered;
        _askForLinks(*m_hovered, links, false);
    }
    if (!self.isAlive())
        return;
    if (m_hovered)
        _dropLook(m_hoveredLook, {*m_hovered});
    const std::optional<KXChartItem> left = std::exchange(m_hovered, item);
    m_actionItem = item;
    if (left)
        _dropEffects(*left);
    _tellLooksLater();
    if (self.isAlive())
        m_action.showWhetherClickable();

    // 2. The new one asks for its matches and its look. Each answer may have put the pointer elsewhere.
    const auto isCurrent = [&] { return self.isAlive() && item && m_hovered == item; };
    if (isCurrent())
        _askForLinks(*item, links, true);
    if (isCurrent())
        _takeEffects({*item});
}

void KXChartItems::_askForLinks(const KXChartItem& item, const UXEvent& event, bool wanted)
{
    KXChartLabel* label = m_delegate.obtainItemLabel(item);
    KXChartDataAction& action = label ? *label : m_action;
    UXObject* source = label ? static_cast<UXObject*>(label) : &m_chart;
    if (wanted)
        action.triggerLinkedHighlightAction(&m_user, source, event);
    else
        action.triggerLinkedHighlightClearAction(&m_user, source, event);
}

void KXChartItems::_explain(const std::optional<KXChartItem>& item, UXPoint point)
{
    const bool isSame = item == m_explained && m_hint.getHintVisible();
    m_explained = item;
    if (!item) {
        m_delegate.itemExplained(std::nullopt);
        m_hint.hideHint();
        return;
    }
    const UXObjectWatcher self(&m_chart);
    UXHintInfo info = isSame ? m_hint.getHintInfo() : obtainHint(*item);
    if (self.isAlive() && m_explained == item)
        m_hint.showHint(point, nullptr, &info);
}

/** @return where the effects of an item are kept while it stands out */
KXInteractionChartObject& KXChartItems::_obtainLook(const KXChartItem& item)
{
    if (KXChartLabel* label = m_delegate.obtainItemLabel(item))
        return *label;
    return m_hovered == item ? m_hoveredLook : m_linkedLook;
}

bool KXChartItems::_hasLook(const KXChartItem& item) const
{
    return m_hovered == item || contains(m_linked, item);
}

/** The provider says how items look that stand out together. */
void KXChartItems::_takeEffects(const std::vector<KXChartItem>& items)
{
    const UXObjectWatcher self(&m_chart);
    const KXChartItem first = items.front();
    std::vector<KXObjectID> identifiers;
    for (const KXChartItem& item : items)
        for (KXObjectID& identifier : m_delegate.obtainItemObjectIDs(item))
            identifiers.push_back(std::move(identifier));
    const std::vector<KXInteractionEffect*> effects = m_user.obtainInteractionEffects(identifiers);
    // Meanwhile the chart may have gone, or the items may stand out no longer.
    if (self.isAlive() && _hasLook(first)) {
        _obtainLook(first).updateInteractionEffects(effects);
        if (effects.empty())
            return;
        // Of items that stand out together, each has the look.
        const std::vector<KXChartItem>& changed = m_hovered == first ? items : m_linked;
        m_changedEffects.insert(m_changedEffects.end(), changed.begin(), changed.end());
        _tellLooksLater();
        return;
    }
    for (KXInteractionEffect* effect : effects)
        delete effect;
}

void KXChartItems::_dropEffects(const KXChartItem& item)
{
    KXChartLabel* label = m_delegate.obtainItemLabel(item);
    if (!label || _hasLook(item) || label->getInteractionEffects().empty())
        return;
    label->updateInteractionEffects({});
    m_changedEffects.push_back(item);
}

/** Ends the effects of items that the chart draws itself, which may reach beyond what is drawn of these
 * usually. */
void KXChartItems::_dropLook(KXInteractionChartObject& look, const std::vector<KXChartItem>& items)
{
    if (look.getInteractionEffects().empty())
        return;
    _tellLooksOf(items); // where they were drawn
    look.updateInteractionEffects({});
    m_changedEffects.insert(m_changedEffects.end(), items.begin(), items.end());
}

/** What changes several times in one call, as a highlight that is ended for another one, is drawn anew where
 * that makes a difference. */
void KXChartItems::_tellLooksLater()
{
    if (std::exchange(m_tellsLooks, true))
        return;
    UXNotificationScope::postAction([watcher = UXObjectWatcher(&m_chart)] {
        const auto* chart = static_cast<const KXChart*>(watcher.getObject());
        if (chart && chart->getItems())
            chart->getItems()->_tellLooks();
    });
}

void KXChartItems::_tellLooks()
{
    m_tellsLooks = false;
    if (m_toldLinked || m_toldSelected)
        _updateLabels();

    // 1. The items that stand out, or did.
    std::vector<KXChartItem> changed = std::exchange(m_changedEffects, {});
    addDifference(changed, std::exchange(m_toldLinked, {}), m_linked);
    addDifference(changed, std::exchange(m_toldSelected, {}), m_selected);
    if (const std::optional<KXChartItem> left = std::exchange(m_toldHovered, m_hovered); left != m_hovered)
        for (const std::optional<KXChartItem>& item : {left, m_hovered})
            if (item)
                changed.push_back(*item);

    // 2. All, where a whole group does, or where the others begin or cease to give way.
    const bool wasHighlighting = std::exchange(m_toldHighlighting, isHighlighting());
    const bool othersChange = wasHighlighting != isHighlighting() && m_delegate.obtainDimmedOpacity() < 1;
    if (std::exchange(m_toldGroup, m_group) != m_group || othersChange)
        m_delegate.itemLooksChanged();
    else
        _tellLooksOf(changed);
}

void KXChartItems::_tellLooksOf(const std::vector<KXChartItem>& items)
{
    if (items.size() > greatestChangeCount)
        m_delegate.itemLooksChanged();
    else
        for (const KXChartItem& item : items)
            m_delegate.itemLookChanged(item);
}

/** Labels are highlighted, and give way, by their own state. */
void KXChartItems::_updateLabels()
{
    std::vector<KXChartLabel*> lit, chosen;
    for (const KXChartItem& item : m_linked)
        lit.push_back(m_delegate.obtainItemLabel(item));
    for (const KXChartItem& item : m_selected)
        chosen.push_back(m_delegate.obtainItemLabel(item));
    const auto obtainState = [&](KXChartLabel* label) {
        if (std::ranges::count(lit, label) > 0)
            return KXHighlightState::Lit;
        const bool givesWay = (!lit.empty() || !chosen.empty()) && std::ranges::count(chosen, label) == 0;
        return givesWay ? KXHighlightState::Dimmed : KXHighlightState::None;
    };
    for (KXChartLabel* label : m_delegate.obtainItemLabels())
        label->updateHighlightState(obtainState(label));
}

KXHighlightResult KXChartItems::showLinked(const KXChartDataPath& path, UXControl* control)
{
    const UXObjectWatcher self(&m_chart);
    const std::weak_ptr<const bool> controlLife = control ? control->getLife() : std::weak_ptr<const bool>();
    std::vector<KXChartItem> items = m_delegate.findItems(path);
    if (!self.isAlive() || items.empty())
        return KXHighlightResult::NotFound;
    const KXChartItem first = items.front(), explained = m_delegate.obtainExplained(items);
    setLinked(std::move(items));
    if (!self.isAlive())
        return KXHighlightResult::Highlighted;
    UXHintInfo info = obtainHint(explained);
    if (self.isAlive() && info.enabled && (!control || !controlLife.expired()))
        m_chart.showLinkedHighlightHint(&info, &m_chart, m_delegate.obtainItemHintPoint(first), control);
    return KXHighlightResult::Highlighted;
}

void KXChartItems::forgetPointer()
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(&m_chart);
    const UXEvent event;
    _setHovered(std::nullopt, event);
    event.runPostedActions();
    if (!self.isAlive())
        return;
    m_actionItem.reset();
    _explain(std::nullopt, {});
}

void KXChartItems::clear()
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(&m_chart);
    forgetPointer();
    if (!self.isAlive())
        return;
    m_focused.reset();
    m_showsFocus = false;
    setLinked({});
}

void KXChartItems::takeNewData()
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(&m_chart);
    forgetPointer();
    if (self.isAlive())
        setLinked({});
    if (!self.isAlive())
        return;
    m_group.reset();
    m_anchor.reset();
    if (m_focused && !m_delegate.hasItem(*m_focused))
        m_focused.reset();
    _askForSelectionAnew();
}

KXChartDataPath* KXChartItems::createActionPath()
{
    return m_actionItem ? m_delegate.createItemPath(*m_actionItem) : nullptr;
}

/** @return what the hint of an item says, and that the data have no such item where it was filled in */
UXHintInfo KXChartItems::obtainHint(const KXChartItem& item)
{
    const UXObjectWatcher self(&m_chart);
    UXHintInfo info = m_delegate.obtainItemHint(item);
    if (!self.isAlive() || !info.enabled || !m_delegate.hasItem(item))
        return info;
    const std::unique_ptr<const KXChartDataPath> path(m_delegate.createItemPath(item));
    if (!self.isAlive() || !path)
        return info;
    const KXChartDataProviderUse use(m_user);
    if (kxObtainItemIsGenerated(use, &m_user, *path))
        info.addFooterRow(UXColor(), UXSymbolStyle::Rectangle, uxLocalizeString("Not in the data"), "")
            .showSymbol = false;
    return info;
}

UXRect KXChartItems::obtainHintArea(UXPoint point) const
{
    const std::optional<KXChartItem> item = m_delegate.obtainItemAt(point);
    return item ? m_delegate.obtainItemRect(*item) : UXRect();
}
