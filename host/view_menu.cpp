#include "view_menu.h"

#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

// In logical units
constexpr int rowHeight = 28, inset = 5, textInset = 10, leastWidth = 140, shadowReach = 6;
constexpr double cornerRadius = 7, rowRadius = 4;
constexpr UXColor groundColor(255, 255, 255), borderColor(0, 0, 0, 0.14), shadowColor(0, 0, 0, 0.035),
    litColor(232, 238, 251), textColor(31, 41, 55);

UXTextProperty makeTextProperty()
{
    UXTextProperty property;
    property.font.size = 13;
    property.textColor = textColor;
    return property;
}

int toPixels(double units, double scale) { return uxRoundToInt(units * scale); }

} // namespace

void ViewMenu::open(const ViewMenuEntries& entries, UXPoint point, const UXSize& room, double scale)
{
    close();
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    double widest = 0;
    for (const ViewMenuEntry& entry : entries)
        widest = std::max(widest, helper->getTextSize(entry.text, makeTextProperty()).width);
    m_entries = entries;
    m_scale = scale;
    m_lit = -1;
    m_size = {std::max(leastWidth, uxSaturateToInt(std::ceil(widest)) + 2 * (inset + textInset)),
              uxSaturateToInt(entries.size()) * rowHeight + 2 * inset};
    const UXRect wanted(point.x, point.y, toPixels(m_size.width, scale), toPixels(m_size.height, scale));
    m_menuRect = isOpen() ? uxShiftAndBoundInRect(wanted, UXRect(0, 0, room.width, room.height)) : UXRect();
    _markDirty();
}

void ViewMenu::close()
{
    if (!isOpen())
        return;
    _markDirty();
    m_entries.clear();
    m_menuRect = {};
}

void ViewMenu::lightFirstEntry()
{
    if (isOpen())
        _light(0);
}

void ViewMenu::_markDirty()
{
    const int reach = toPixels(shadowReach, m_scale);
    addDirtyRect(uxInflateRect(m_menuRect, reach, reach));
}

int ViewMenu::_findEntry(const UXPoint& point) const
{
    if (!uxPointInRect(point, m_menuRect))
        return -1;
    const double along = (point.y - m_menuRect.y) / m_scale - inset;
    const int entry = uxSaturateToInt(std::floor(along / rowHeight));
    return entry >= 0 && std::cmp_less(entry, m_entries.size()) ? entry : -1;
}

void ViewMenu::_light(int entry)
{
    if (entry == m_lit)
        return;
    m_lit = entry;
    _markDirty();
}

void ViewMenu::_choose(int entry, const UXEvent& event)
{
    if (entry < 0)
        return;
    const std::function<void()> action = m_entries[static_cast<std::size_t>(entry)].action;
    close();
    if (action)
        event.postAction(action);
}

bool ViewMenu::mouseDown(const UXEvent& event)
{
    const bool wasOpen = isOpen();
    if (wasOpen && !uxPointInRect(event.getMousePoint(), m_menuRect))
        close();
    return wasOpen;
}

bool ViewMenu::mouseMove(const UXEvent& event)
{
    if (isOpen())
        _light(_findEntry(event.getMousePoint()));
    return isOpen();
}

bool ViewMenu::mouseUp(const UXEvent& event)
{
    const bool wasOpen = isOpen();
    if (wasOpen)
        _choose(_findEntry(event.getMousePoint()), event);
    return wasOpen;
}

bool ViewMenu::mouseLeave(const UXEvent&)
{
    if (isOpen())
        _light(-1);
    return false;
}

bool ViewMenu::mouseWheel(const UXEvent&) { return isOpen(); }

bool ViewMenu::mouseDoubleClick(const UXEvent&) { return isOpen(); }

bool ViewMenu::keyDown(const UXEvent& event)
{
    if (!isOpen())
        return false;
    const int count = uxSaturateToInt(m_entries.size());
    switch (static_cast<UXKeyCode>(event.getKeyCode())) {
    case UXKeyCode::Down:
        _light((m_lit + 1) % count);
        break;
    case UXKeyCode::Up:
        _light(m_lit <= 0 ? count - 1 : m_lit - 1);
        break;
    case UXKeyCode::Enter:
    case UXKeyCode::Space:
        _choose(m_lit, event);
        break;
    case UXKeyCode::Escape:
    case UXKeyCode::Tab:
        close();
        break;
    default:
        break;
    }
    return true;
}

bool ViewMenu::controlSize(const UXEvent& event)
{
    close();
    return UXGlobalControlSpaceEventDiagram::controlSize(event);
}

void ViewMenu::paint(UXPaintConfig* config, UXRect)
{
    UXPainter* painter = isOpen() ? uxCreatePainter(config) : nullptr;
    if (!painter)
        return;
    painter->translate(m_menuRect.x, m_menuRect.y);
    painter->scale(m_scale, m_scale);
    _drawGround(*painter);
    _drawEntries(*painter);
    uxDestroyPainter(painter);
}

void ViewMenu::_drawGround(UXPainter& painter) const
{
    const UXDoubleRect menu(0, 0, m_size.width, m_size.height);
    painter.setColor(shadowColor);
    for (int reach = 1; reach < shadowReach; ++reach) {
        UXDoubleRect shadow = uxInflateDoubleRect(menu, reach - 1.0, reach - 1.0);
        shadow.y += 1;
        uxAddRoundRectanglePath(painter, shadow, cornerRadius + reach);
        painter.fill();
    }
    uxAddRoundRectanglePath(painter, uxInflateDoubleRect(menu, -0.5, -0.5), cornerRadius);
    painter.setColor(groundColor);
    painter.fillPreserve();
    painter.setColor(borderColor);
    painter.stroke();
}

void ViewMenu::_drawEntries(UXPainter& painter) const
{
    const double width = m_size.width - 2.0 * inset;
    for (int i = 0; std::cmp_less(i, m_entries.size()); ++i) {
        const UXDoubleRect row(inset, inset + i * rowHeight, width, rowHeight);
        if (i == m_lit) {
            painter.setColor(litColor);
            uxAddRoundRectanglePath(painter, row, rowRadius);
            painter.fill();
        }
        painter.drawText(m_entries[static_cast<std::size_t>(i)].text,
                         uxInflateDoubleRect(row, -textInset, 0, -textInset, 0), makeTextProperty());
    }
}
