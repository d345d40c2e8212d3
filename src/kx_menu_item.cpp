#include "kx_menu_item.h"

#include "kx_menu_style.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_property.h"

#include <algorithm>
#include <cmath>

namespace {

// In logical units
constexpr int rowHeight = 26;
constexpr int separatorHeight = 9;
constexpr int sidePadding = 12;
constexpr int hoverInset = 4;
constexpr int columnWidth = 24; // an icon and the gap after it
constexpr int fontSize = 13;

UXTextProperty makeTextProperty()
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.option = UXTextOption::EllipsisEnd;
    return property;
}

/** A row has one line, whatever the host writes. */
std::string toOneLine(std::string text)
{
    std::ranges::replace_if(
        text, [](char letter) { return letter == '\n' || letter == '\r' || letter == '\t'; }, ' ');
    return text;
}

UXDoubleRect makeIconRect(double x, int height)
{
    return {x, (height - kxMenuIconExtent) / 2, kxMenuIconExtent, kxMenuIconExtent};
}

} // namespace

KXMenuItem::KXMenuItem() = default;

KXMenuItem::~KXMenuItem() = default;

void KXMenuItem::setEntry(const KXMenuEntry& entry)
{
    m_entry = entry;
    m_entry.text = toOneLine(entry.text);
    invalidate();
}

void KXMenuItem::setColumns(const Columns& columns)
{
    if (columns == m_columns)
        return;
    m_columns = columns;
    invalidate();
}

void KXMenuItem::setCurrent(bool current)
{
    if (current == m_current)
        return;
    m_current = current;
    invalidate();
}

int KXMenuItem::obtainWantedWidth() const
{
    if (m_entry.separator)
        return 0;
    const UXTextProperty property = makeTextProperty();
    const double label =
        uxMeasureText(m_entry.text, property.font, UXTextOption::Default, property.lineMode).width;
    const int count = int{m_columns.checks} + int{m_columns.icons} + int{m_columns.subMenus};
    return uxSaturateToInt(std::ceil(label) + 2 * sidePadding + count * columnWidth);
}

int KXMenuItem::obtainHeight() const { return m_entry.separator ? separatorHeight : rowHeight; }

UXRect KXMenuItem::obtainLabelRect() const
{
    const int left = sidePadding + (int{m_columns.checks} + int{m_columns.icons}) * columnWidth;
    const int right = sidePadding + int{m_columns.subMenus} * columnWidth;
    return {left, 0, std::max(getRect().width - left - right, 0), getRect().height};
}

std::string KXMenuItem::customSerializeTypeID() { return "KXMenuItem"; }

void KXMenuItem::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        _paintRow(*painter);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void KXMenuItem::_paintRow(UXPainter& painter) const
{
    const int width = getRect().width, height = getRect().height;
    if (m_entry.separator) {
        const double middle[] = {height / 2.0};
        painter.setColor(kxMenuBorderColor);
        painter.drawHorizontalLines(middle, sidePadding, std::max(width - sidePadding, sidePadding), 1);
        return;
    }
    if (m_current) {
        painter.setColor(kxMenuHoverColor);
        uxAddRoundRectanglePath(painter, uxInflateDoubleRect(UXDoubleRect(getBoundingRect()), -hoverInset, 0),
                                kxMenuHoverRadius);
        painter.fill();
    }
    const UXColor iconColor = m_entry.enabled ? kxMenuIconColor : kxMenuDisabledColor;
    if (m_entry.checked)
        kxDrawMenuIcon(painter, KXMenuIcon::Check, makeIconRect(sidePadding, height), iconColor);
    const int iconLeft = sidePadding + int{m_columns.checks} * columnWidth;
    kxDrawMenuIcon(painter, m_entry.icon, makeIconRect(iconLeft, height), iconColor);

    UXTextProperty property = makeTextProperty();
    property.textColor = m_entry.enabled ? kxMenuTextColor : kxMenuDisabledColor;
    const UXRect label = obtainLabelRect();
    if (label.width > 0)
        painter.drawText(m_entry.text, UXDoubleRect(label), property);
    if (!m_entry.entries.empty()) {
        const double arrow = width - sidePadding / 2.0 - kxMenuIconExtent;
        kxDrawMenuIcon(painter, KXMenuIcon::SubMenu, makeIconRect(arrow, height), iconColor);
    }
}
