#include "kx_menu.h"

#include "kx_menu_item.h"
#include "kx_menu_style.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_saturate.h"
#include "ux/ux_string.h"

#include <algorithm>
#include <optional>
#include <string_view>

namespace {

// In logical units
constexpr int leastWidth = 120;
constexpr int greatestWidth = 320;
constexpr int framePadding = 4; // above the first row and below the last
constexpr int shadowMargin = 12;
constexpr int shadowDrop = 2;
constexpr double frameRadius = 6;
constexpr double shadowAlpha = 0.011; // of one layer

} // namespace

KXMenu::KXMenu() { setPadding(UXPadding(shadowMargin, shadowMargin, shadowMargin, shadowMargin)); }

KXMenu::~KXMenu() = default;

void KXMenu::setEntries(const std::vector<KXMenuEntry>& entries)
{
    const UXObjectWatcher self(this);
    clearChildren();
    KXMenuItem::Columns columns;
    for (const KXMenuEntry& entry : entries) {
        columns.checks = columns.checks || (entry.checked && !entry.separator);
        columns.icons = columns.icons || (entry.icon != KXMenuIcon::None && !entry.separator);
        columns.subMenus = columns.subMenus || (!entry.entries.empty() && !entry.separator);
    }
    int width = leastWidth;
    std::int64_t height = std::int64_t{2} * framePadding;
    for (const KXMenuEntry& entry : entries) {
        if (!self.isAlive())
            return;
        auto* item = new KXMenuItem;
        item->setEntry(entry);
        item->setColumns(columns);
        width = std::max(width, item->obtainWantedWidth());
        height += item->obtainHeight();
        addChild(item);
    }
    if (!self.isAlive())
        return;
    m_wantedSize = {std::min(width, greatestWidth), uxSaturateToInt(height)};
    m_scrollOffset = 0;
    _placeItems();
}

int KXMenu::getItemCount() const { return uxSaturateToInt(getChildren().size()); }

KXMenuItem* KXMenu::getItem(int index) const
{
    return index < 0 ? nullptr : dynamic_cast<KXMenuItem*>(getChild(static_cast<std::uint64_t>(index)));
}

UXRect KXMenu::getFrameRect() const { return getRectExcludePadding(); }

void KXMenu::setFrameRect(const UXRect& frame)
{
    const UXObjectWatcher self(this);
    setRect(uxInflateRect(frame, shadowMargin, shadowMargin));
    if (self.isAlive())
        _placeItems();
}

int KXMenu::obtainFramePadding() { return framePadding; }

void KXMenu::scroll(int distance)
{
    const std::int64_t limit = std::max(m_wantedSize.height - getContentRect().height, 0);
    const int offset = uxSaturateToInt(
        std::clamp<std::int64_t>(std::int64_t{m_scrollOffset} + distance, 0, limit));
    if (offset == m_scrollOffset)
        return;
    m_scrollOffset = offset;
    _placeItems();
}

int KXMenu::getCurrentIndex() const
{
    for (int i = 0; i < getItemCount(); ++i) {
        const KXMenuItem* item = getItem(i);
        if (item && item->getCurrent())
            return i;
    }
    return -1;
}

void KXMenu::setCurrentIndex(int index)
{
    const UXObjectWatcher self(this);
    const KXMenuItem* wanted = getItem(index);
    const int current = wanted && wanted->canBeChosen() ? index : -1;
    for (int i = 0; self.isAlive() && i < getItemCount(); ++i) {
        if (KXMenuItem* item = getItem(i))
            item->setCurrent(i == current);
    }
    if (self.isAlive())
        _reveal(current);
}

int KXMenu::obtainNextIndex(int from, int step) const
{
    const int count = getItemCount();
    for (int i = 1; i <= count; ++i) {
        // From none, down begins with the first row and up with the last.
        const int start = from < 0 && step < 0 ? count : from;
        const int index = ((start + i * step) % count + count) % count;
        const KXMenuItem* item = getItem(index);
        if (item && item->canBeChosen())
            return index;
    }
    return -1;
}

int KXMenu::obtainIndexByText(const std::string& typed) const
{
    const auto begins = [&typed](const std::string& text) {
        return uxEqualStrings(std::string_view(text).substr(0, typed.size()), typed, false);
    };
    int index = getCurrentIndex();
    for (int i = 0; i < getItemCount() && !typed.empty(); ++i) {
        index = obtainNextIndex(index, 1);
        if (index < 0 || begins(getItem(index)->getEntry().text))
            return index;
    }
    return -1;
}

int KXMenu::obtainIndexAt(UXPoint point) const
{
    if (!ptInRect(point))
        return -1;
    for (int i = 0; i < getItemCount(); ++i) {
        const KXMenuItem* item = getItem(i);
        if (item && uxPointInRect(point, item->getRect()))
            return i;
    }
    return -1;
}

std::string KXMenu::customSerializeTypeID() { return "KXMenu"; }

bool KXMenu::ptInRect(UXPoint point) const { return uxPointInRect(point, getContentRect()); }

void KXMenu::customLayout() { _placeItems(); }

bool KXMenu::_isScrollable() const { return m_wantedSize.height > getContentRect().height; }

void KXMenu::_placeItems()
{
    const UXObjectWatcher self(this);
    const UXRect frame = getContentRect();
    std::int64_t y = std::int64_t{frame.y} + framePadding - m_scrollOffset;
    for (int i = 0; self.isAlive() && i < getItemCount(); ++i) {
        KXMenuItem* item = getItem(i);
        if (!item)
            continue;
        const int height = item->obtainHeight();
        item->setRect({frame.x, uxSaturateToInt(y), frame.width, height});
        y += height;
    }
}

void KXMenu::_reveal(int index)
{
    const KXMenuItem* item = getItem(index);
    if (!item || !_isScrollable())
        return;
    const UXRect row = item->getRect();
    const UXRect area = uxInflateRect(getContentRect(), 0, -framePadding);
    if (row.y < area.y)
        scroll(row.y - area.y);
    else if (row.getBottom() > area.getBottom())
        scroll(row.getBottom() - area.getBottom());
}

void KXMenu::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        _paintFrame(*painter);
        uxDestroyPainter(painter);
    }
    std::optional<UXPaintClip> clip;
    if (config && _isScrollable())
        clip.emplace(*config,
                     UXDoubleRect(translateRectToParent(uxInflateRect(getContentRect(), -1, -1), nullptr)));
    UXObject::paint(config, dirtyRect);
}

void KXMenu::_paintFrame(UXPainter& painter) const
{
    const UXDoubleRect frame(getContentRect());
    // Translucent layers, each smaller than the one before: the shadow is darkest next to the frame.
    painter.setColor({20, 26, 40, shadowAlpha});
    for (int reach = shadowMargin - shadowDrop; reach > 0; --reach) {
        const UXDoubleRect layer(frame.x - reach, frame.y - reach + shadowDrop, frame.width + 2 * reach,
                                 frame.height + 2 * reach);
        uxAddRoundRectanglePath(painter, layer, frameRadius + reach);
        painter.fill();
    }
    painter.setColor(kxMenuBorderColor);
    uxAddRoundRectanglePath(painter, frame, frameRadius);
    painter.fill();
    painter.setColor(kxMenuGroundColor);
    uxAddRoundRectanglePath(painter, uxInflateDoubleRect(frame, -1.0, -1.0), frameRadius - 1);
    painter.fill();
}
