#pragma once

#include "kx_chart_item.h"
#include "kx_chart_item_look.h"
#include "kx_chart_items_delegate.h"
#include "kx_export.h"
#include "kx_highlight_result.h"
#include "kx_interaction_chart_object.h"
#include "ux/ux_color.h"
#include "ux/ux_rect.h"

#include <cstdint>
#include <optional>
#include <vector>

class KXChart;
class KXChartDataAction;
class KXChartDataUser;
class KXChartLabel;
class KXChartSelectionProvider;
class UXControl;
class UXEvent;
class UXHintDelegate;
class UXObject;
class UXPainter;
struct KXChartDataPath;

/**
 * What becomes of the items of a chart: which one the pointer is over, which ones another chart highlights,
 * which are chosen and where the keyboard is; with the hints, clicks, menus and linked highlights that come
 * of it. The chart says what its items are, hands its events on, and draws each item as it looks here.
 *
 * Left click, Enter: the left-click action, and the choice where the host keeps one (Ctrl adds or takes away,
 * Shift extends along the reading order). Arrows, Home, End: walk from item to item. Escape: clears the
 * choice, else ends the walk.
 */
class KX_EXPORT KXChartItems {
public:
    /** All four are one chart in its roles, which owns this. */
    KXChartItems(KXChartItemsDelegate& delegate, KXChartDataUser& user, UXHintDelegate& hint,
                 KXChartDataAction& action);
    KXChartItems(const KXChartItems&) = delete;
    KXChartItems& operator=(const KXChartItems&) = delete;
    ~KXChartItems();

    // What stands out
    const std::optional<KXChartItem>& getHovered() const { return m_hovered; }
    /** @return what a click, a menu or a highlight is about */
    const std::optional<KXChartItem>& getActionItem() const { return m_actionItem; }
    /** @return where the keyboard is or goes on from */
    const std::optional<KXChartItem>& getFocused() const { return m_focused; }
    /** @return ascending; the same below */
    const std::vector<KXChartItem>& getLinked() const { return m_linked; }
    const std::vector<KXChartItem>& getSelected() const { return m_selected; }
    /** Highlights all items of a group, as its legend cell does under the pointer; nothing ends it. */
    void highlightGroup(const std::optional<std::uint64_t>& group);
    const std::optional<std::uint64_t>& getHighlightedGroup() const { return m_group; }
    /** The pointer came over the legend cell of a group that is shown, or it left. */
    void hoverGroup(std::uint64_t group, bool hovered);
    /** Highlights items because a linked chart wants so; none end it. */
    void setLinked(std::vector<KXChartItem> items);
    /** @return whether some items stand out, so that the others give way */
    bool isHighlighting() const;
    bool isHighlighted(const KXChartItem& item) const;
    /** @return color as the item is drawn in it just now */
    UXColor obtainDrawnColor(const KXChartItem& item, const UXColor& color,
                             KXInteractionEffectTarget target = KXInteractionEffectTarget::Filled) const;
    double obtainDrawnSizeRatio(const KXChartItem& item) const;
    /** @return how an item without a line of its own, of that colour, is drawn just now */
    KXChartItemLook obtainLook(const KXChartItem& item, const UXColor& color) const;
    /** Draws a ring around the item where the keyboard is, in the chart's own space. */
    void paintFocus(UXPainter& painter) const;

    // What the chart hands on. The host is asked, which may destroy the chart, and this with it.
    void press(const UXEvent& event);
    void hover(const UXEvent& event);
    void leave(const UXEvent& event);
    /** Acts on a key. @return whether it is one of the items' */
    bool walk(const UXEvent& event);
    /** Goes to an item as a key does, and explains it there. */
    void walkTo(const KXChartItem& item);
    /** The same from wherever the keys are now. @param presses clicks the item, too, as Enter does
     *  @return whether there is such an item that answers */
    bool goTo(const KXChartItem& item, bool presses);
    /** @return whether the keyboard is on the item, and shows it */
    bool isWalkedTo(const KXChartItem& item) const { return m_showsFocus && m_focused == item && _hasKeys(); }
    /** Chooses items together where the host keeps a choice, with Ctrl beside those that are chosen. */
    void choose(const std::vector<KXChartItem>& items, const UXEvent& event);
    /** Lets a click on the label, which is the chart's, choose the item. */
    void followLabel(KXChartLabel* label, const KXChartItem& item);
    KXHighlightResult showLinked(const KXChartDataPath& path, UXControl* control);
    /** What lies under the pointer is not known any more, until it moves. */
    void forgetPointer();
    /** Leaves every item as it usually is. */
    void clear();
    /** Items that are gone stand out no more, and the host is asked which ones are chosen. */
    void takeNewData();

    // What the chart answers with
    /** @return what is said of an item wherever it is explained. The host may be asked, which may destroy the
     * chart. */
    UXHintInfo obtainHint(const KXChartItem& item);
    /** @return the path of the item that a click, a menu or a highlight is about, owned by the caller; null
     * where there is none */
    KXChartDataPath* createActionPath();
    /** @return what of the item at a point a hint leaves free */
    UXRect obtainHintArea(UXPoint point) const;

private:
    void _setHovered(const std::optional<KXChartItem>& item, const UXEvent& event);
    void _explain(const std::optional<KXChartItem>& item, UXPoint point);
    void _askForLinks(const KXChartItem& item, const UXEvent& event, bool wanted);
    KXInteractionChartObject& _obtainLook(const KXChartItem& item);
    bool _hasLook(const KXChartItem& item) const;
    void _takeEffects(const std::vector<KXChartItem>& items);
    void _dropEffects(const KXChartItem& item);
    void _dropLook(KXInteractionChartObject& look, const std::vector<KXChartItem>& items);
    void _updateLabels();
    void _tellLooksLater();
    void _tellLooks();
    void _tellLooksOf(const std::vector<KXChartItem>& items);

    // The keyboard
    bool _hasKeys() const;
    bool _escape(const UXEvent& event);
    bool _pressFocused(const UXEvent& event);
    bool _click(const UXEvent& event);

    // The choice
    void _choose(const KXChartItem& item, const UXEvent& event);
    KXChartSelectionProvider* _obtainSelectionProvider();
    std::vector<KXChartItem> _obtainRange(const KXChartItem& from, const KXChartItem& to) const;
    void _tellSelection(const std::vector<KXChartItem>& wanted, const UXEvent& event);
    void _askForSelectionAnew();
    void _askForSelection(const std::optional<std::vector<KXChartItem>>& items);
    std::vector<KXChartItem> _findNamedItems(const std::vector<KXChartDataPath>& paths);
    std::vector<KXChartItem> _findSelectedItems(KXChartSelectionProvider& provider,
                                                const std::vector<KXChartItem>& items);

    KXChartItemsDelegate& m_delegate;
    KXChartDataUser& m_user;
    UXHintDelegate& m_hint;
    KXChartDataAction& m_action;
    KXChart& m_chart;

    std::optional<KXChartItem> m_hovered;
    std::optional<KXChartItem> m_explained;  // what the hint is about
    std::optional<KXChartItem> m_actionItem; // what clicks, menus and links are about
    std::optional<KXChartItem> m_focused;
    std::optional<KXChartItem> m_anchor; // where a choice of a range begins
    std::optional<std::uint64_t> m_group;
    std::vector<KXChartItem> m_linked;
    std::vector<KXChartItem> m_selected;
    KXInteractionChartObject m_hoveredLook; // of an item that the chart draws itself
    KXInteractionChartObject m_linkedLook;
    bool m_showsFocus = false;
    bool m_clicksByKey = false;

    // What the chart was told last of what stands out; of the lists only where they have changed since
    std::optional<KXChartItem> m_toldHovered;
    std::optional<std::uint64_t> m_toldGroup;
    std::optional<std::vector<KXChartItem>> m_toldLinked, m_toldSelected;
    bool m_toldHighlighting = false;
    std::vector<KXChartItem> m_changedEffects; // of these since then
    bool m_tellsLooks = false;                 // when the call ends
};
