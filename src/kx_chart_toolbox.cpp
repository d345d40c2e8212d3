#include "kx_chart_toolbox.h"

#include "kx_chart.h"
#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_user.h"
#include "kx_chart_toolbox_item.h"
#include "kx_chart_toolbox_menu_context.h"
#include "kx_menu_event_diagram.h"
#include "kx_menu_style.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_localize.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace {

constexpr int itemGap = 1; // logical units
constexpr int itemPitch = KXChartToolboxItem::extent + itemGap;

bool asksForMenu(const KXMenuEntry& entry) { return !entry.action && entry.entries.empty(); }

} // namespace

KXChartToolbox::KXChartToolbox() { setShowsFocus(true); }

KXChartToolbox::~KXChartToolbox() = default;

void KXChartToolbox::setDataUser(KXChartDataUser* user) { m_dataUser = KXChartDataUserWatcher(user); }

KXChartDataUser* KXChartToolbox::getDataUser() const { return m_dataUser.get(); }

void KXChartToolbox::prepare()
{
    const UXObjectWatcher self(this);
    std::vector<KXMenuEntry> entries = _obtainEntries(
        [](const KXChartDataProviderUse& use, KXChartDataUser* user) {
            return use.get()->obtainDataToolboxContext(user, nullptr);
        });
    if (!self.isAlive())
        return;
    std::erase_if(entries, [](const KXMenuEntry& entry) { return entry.separator; });
    m_entries = std::move(entries);
    _placeItems();
}

/** @return a copy of the entries of the context that ask answers with; none where it answers with none */
std::vector<KXMenuEntry> KXChartToolbox::_obtainEntries(const Question& ask)
{
    KXChartDataUser* user = getDataUser();
    if (!user)
        return {};
    const KXChartDataProviderUse use(*user);
    const KXChartToolboxMenuContext* context = use.isCurrent() ? ask(use, user) : nullptr;
    return context ? context->entries : std::vector<KXMenuEntry>();
}

std::vector<KXChartToolboxItem*> KXChartToolbox::getItems() const
{
    std::vector<KXChartToolboxItem*> items;
    for (UXObject* child : getChildren()) {
        if (auto* item = dynamic_cast<KXChartToolboxItem*>(child))
            items.push_back(item);
    }
    return items;
}

void KXChartToolbox::refresh()
{
    if (UXObject* parent = getParent())
        parent->addDirtyRect(getRect());
}

void KXChartToolbox::pointerCame()
{
    const UXObjectWatcher self(this);
    if (!getVisible()) {
        _focusItem(-1);
        prepare();
    }
    if (!self.isAlive())
        return;
    m_showsForKeys = false;
    setVisible(true);
    if (self.isAlive())
        refresh();
}

void KXChartToolbox::pointerLeft()
{
    m_hidesAfterMenu = getMenuOpen();
    m_showsForKeys = _hasFocus() && std::ranges::any_of(getItems(), &KXChartToolboxItem::getFocused);
    if (m_hidesAfterMenu || m_showsForKeys)
        return;
    const UXObjectWatcher self(this);
    setVisible(false);
    if (self.isAlive())
        refresh();
}

bool KXChartToolbox::takeKeys()
{
    const UXObjectWatcher self(this);
    const bool isShown = getVisible();
    prepare();
    UXDiagram* diagram = self.isAlive() ? uxObtainDiagram(this) : nullptr;
    if (!diagram || getItems().empty())
        return false;
    diagram->setFocusedObject(this);
    m_showsForKeys = !isShown;
    setVisible(true);
    if (self.isAlive())
        _focusItem(0);
    return true;
}

void KXChartToolbox::leaveKeys()
{
    const UXObjectWatcher self(this);
    _focusItem(-1);
    if (!self.isAlive() || !m_showsForKeys)
        return;
    setVisible(false);
    if (self.isAlive())
        refresh();
}

bool KXChartToolbox::getMenuOpen() const { return m_menuDiagram && m_menuDiagram->isOpen(); }

bool KXChartToolbox::activateItem(KXChartToolboxItem* item, const UXEvent& event)
{
    if (!item || item->getParent() != this)
        return false;
    // A copy: the provider may have the buttons made anew.
    const KXMenuEntry entry = item->getEntry();
    if (!entry.enabled)
        return true;
    const UXRect anchor = item->translateRectToParent(item->getBoundingRect(), nullptr);
    if (!entry.entries.empty()) {
        _openOwnMenu(item);
    } else if (entry.action) {
        event.postAction(entry.action);
        _prepareAfter(event);
    } else {
        _openDropDownMenu(entry.identifier, anchor, item);
    }
    return true;
}

/** Opens a button's entries as the host wants them now: what was chosen before may have changed them. */
void KXChartToolbox::_openOwnMenu(KXChartToolboxItem* item)
{
    const UXObjectWatcher self(this), button(item);
    prepare();
    if (!self.isAlive() || !button.isAlive() || item->getParent() != this || !item->getEntry().enabled)
        return;
    const std::vector<KXMenuEntry> entries = item->getEntry().entries;
    _openMenu(entries, item->translateRectToParent(item->getBoundingRect(), nullptr), item);
}

/** What an action changed shows on the buttons that stay. */
void KXChartToolbox::_prepareAfter(const UXEvent& event)
{
    event.postAction([self = UXObjectWatcher(this)] {
        if (auto* toolbox = static_cast<KXChartToolbox*>(self.getObject()); toolbox && toolbox->getVisible())
            toolbox->prepare();
    });
}

void KXChartToolbox::_openDropDownMenu(const std::string& identifier, const UXRect& anchor, UXObject* item)
{
    const UXObjectWatcher self(this), button(item);
    const std::vector<KXMenuEntry> entries = _obtainEntries(
        [&](const KXChartDataProviderUse& use, KXChartDataUser* user) -> KXChartToolboxMenuContext* {
            KXChartDataPath path;
            path.identifier = identifier;
            const bool wanted = use.get()->obtainDataShouldDropDownMenu(user, &path);
            return wanted && use.isCurrent() ? use.get()->obtainDataDropDownMenuContext(user, &path)
                                             : nullptr;
        });
    if (self.isAlive())
        _openMenu(entries, anchor, button.getObject());
}

void KXChartToolbox::_openMenu(const std::vector<KXMenuEntry>& entries, const UXRect& anchor, UXObject* item)
{
    UXDiagram* diagram = uxObtainDiagram(this);
    if (!diagram || entries.empty())
        return;
    if (!m_menuDiagram) {
        m_menuDiagram = std::make_unique<KXMenuEventDiagram>();
        m_menuDiagram->setClosedHandler([this] { _menuClosed(); });
    }
    const UXObjectWatcher self(this), button(item);
    // A row may open this menu after the pointer has left: the strip stays for it, too.
    m_hidesAfterMenu = m_hidesAfterMenu || !getVisible();
    setVisible(true);
    m_menuDiagram->openMenu(diagram, entries, anchor, this);
    if (self.isAlive() && getMenuOpen() && button.isAlive())
        static_cast<KXChartToolboxItem*>(button.getObject())->setMenuOpen(true);
}

void KXChartToolbox::_menuClosed()
{
    const UXObjectWatcher self(this);
    for (KXChartToolboxItem* item : getItems()) {
        item->setMenuOpen(false);
        if (!self.isAlive())
            return;
    }
    if (std::exchange(m_hidesAfterMenu, false))
        pointerLeft();
}

std::string KXChartToolbox::customSerializeTypeID() { return "KXChartToolbox"; }

bool KXChartToolbox::getVisible() const { return UXObject::getVisible() && (!m_showsForKeys || _hasFocus()); }

void KXChartToolbox::setVisible(bool visible)
{
    const UXObjectWatcher self(this);
    UXObject::setVisible(visible);
    if (!self.isAlive() || visible)
        return;
    m_showsForKeys = false;
    _focusItem(-1);
    if (self.isAlive() && m_menuDiagram)
        m_menuDiagram->closeMenu();
}

bool KXChartToolbox::ptInRect(UXPoint point) const { return uxPointInRect(point, _obtainButtonsRect()); }

void KXChartToolbox::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const UXRect buttons = _obtainButtonsRect();
    if (UXPainter* painter = uxIsEmptyRect(buttons) ? nullptr : uxCreatePainterWithObject(config, this)) {
        painter->setColor(kxMenuGroundColor); // buttons may stand over the title
        uxAddRoundRectanglePath(*painter, UXDoubleRect(buttons), kxMenuHoverRadius);
        painter->fill();
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void KXChartToolbox::customLayout() { _placeItems(); }

UXRect KXChartToolbox::_obtainButtonsRect() const
{
    UXRect rect;
    for (const KXChartToolboxItem* item : getItems())
        rect = uxUnionRect(rect, item->getRect());
    return rect;
}

/** @return as many entries as have room; the last one leads to those that have none */
std::vector<KXMenuEntry> KXChartToolbox::_obtainShownEntries() const
{
    const UXObjectWatcher self(const_cast<KXChartToolbox*>(this));
    // The last button has no gap after it.
    const std::int64_t width = std::int64_t{getRect().width} + itemGap;
    const auto room = static_cast<std::size_t>(std::max<std::int64_t>(width / itemPitch, 0));
    if (m_entries.size() <= room)
        return m_entries;
    if (room == 0)
        return {};
    const std::string moreText = uxLocalizeString("More");
    if (!self.isAlive())
        return {};
    const auto rest = m_entries.begin() + static_cast<std::ptrdiff_t>(room) - 1;
    std::vector<KXMenuEntry> shown(m_entries.begin(), rest);
    KXMenuEntry& more = shown.emplace_back();
    more.text = moreText;
    more.icon = KXMenuIcon::More;
    more.entries.assign(rest, m_entries.end());
    for (KXMenuEntry& entry : more.entries) {
        // What asks the provider when its button is pressed does so from the menu, too.
        if (asksForMenu(entry))
            entry.action = [self = UXObjectWatcher(const_cast<KXChartToolbox*>(this)),
                            identifier = entry.identifier] {
                auto* toolbox = static_cast<KXChartToolbox*>(self.getObject());
                const auto items = toolbox ? toolbox->getItems() : std::vector<KXChartToolboxItem*>();
                if (!items.empty())
                    toolbox->_openDropDownMenu(
                        identifier,
                        items.back()->translateRectToParent(items.back()->getBoundingRect(), nullptr),
                        items.back());
            };
    }
    return shown;
}

void KXChartToolbox::_placeItems()
{
    const UXObjectWatcher self(this);
    const std::vector<KXMenuEntry> shown = _obtainShownEntries();
    if (!self.isAlive())
        return;
    // Buttons that stay keep the focus.
    for (auto items = getItems(); items.size() > shown.size(); items = getItems()) {
        delete items.back();
        if (!self.isAlive())
            return;
    }
    // The gap is between buttons: the last one ends where the strip does.
    const int left = getRect().width - uxSaturateToInt(shown.size()) * itemPitch + itemGap;
    const int top = (getRect().height - KXChartToolboxItem::extent) / 2;
    for (std::size_t i = 0; self.isAlive() && i < shown.size(); ++i) {
        const auto items = getItems();
        KXChartToolboxItem* item = i < items.size() ? items[i] : new KXChartToolboxItem;
        const UXObjectWatcher placed(item);
        if (i >= items.size())
            addChild(item);
        if (placed.isAlive())
            item->setEntry(shown[i]);
        if (placed.isAlive())
            item->setRect({left + uxSaturateToInt(i) * itemPitch, top, KXChartToolboxItem::extent,
                           KXChartToolboxItem::extent});
    }
}

bool KXChartToolbox::customMouseDown(const UXEvent& event, bool&)
{
    // Whoever takes the mouse needs no ring.
    _focusItem(-1);
    return !event.containsEventKey(UXEventKey::RightButton);
}

bool KXChartToolbox::customMouseUp(const UXEvent& event, bool&)
{
    return !event.containsEventKey(UXEventKey::RightButton);
}

bool KXChartToolbox::_hasFocus() const
{
    auto* own = const_cast<KXChartToolbox*>(this);
    const UXDiagram* diagram = uxObtainDiagram(own);
    const UXObject* focused = diagram ? diagram->getFocusedObject() : nullptr;
    return focused && (focused == this || focused->hasParent(own));
}

void KXChartToolbox::_focusItem(int index)
{
    const UXObjectWatcher self(this);
    const std::vector<KXChartToolboxItem*> items = getItems();
    for (std::size_t i = 0; self.isAlive() && i < items.size(); ++i)
        items[i]->setFocused(std::cmp_equal(i, index));
}

/** @return the button with the ring, or the one that was pressed last; -1 for none */
int KXChartToolbox::_obtainFocusedIndex() const
{
    const std::vector<KXChartToolboxItem*> items = getItems();
    auto found = std::ranges::find_if(items, &KXChartToolboxItem::getFocused);
    if (found == items.end()) {
        const UXDiagram* diagram = uxObtainDiagram(const_cast<KXChartToolbox*>(this));
        found = std::ranges::find(items, diagram ? diagram->getFocusedObject() : nullptr);
    }
    return found == items.end() ? -1 : uxSaturateToInt(found - items.begin());
}

bool KXChartToolbox::customKeyDown(const UXEvent& event, bool&)
{
    const std::vector<KXChartToolboxItem*> items = getItems();
    const int count = uxSaturateToInt(items.size());
    if (!getVisible() || count == 0)
        return false;
    const int focused = _obtainFocusedIndex();
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Left:
        _focusItem(focused <= 0 ? count - 1 : focused - 1);
        return true;
    case UXKeyCode::Right:
        _focusItem((focused + 1) % count);
        return true;
    case UXKeyCode::Home:
        _focusItem(0);
        return true;
    case UXKeyCode::End:
        _focusItem(count - 1);
        return true;
    case UXKeyCode::Escape:
        if (std::ranges::none_of(items, &KXChartToolboxItem::getFocused))
            return false;
        if (UXDiagram* diagram = uxObtainDiagram(this))
            diagram->setFocusedObject(getParent());
        leaveKeys();
        return true;
    case UXKeyCode::Enter:
    case UXKeyCode::Space:
    case UXKeyCode::Down: {
        if (focused < 0)
            return false;
        const UXObjectWatcher self(this);
        activateItem(items[static_cast<std::size_t>(focused)], event);
        if (self.isAlive() && getMenuOpen())
            m_menuDiagram->selectFirstItem();
        return true;
    }
    default:
        return false;
    }
}
