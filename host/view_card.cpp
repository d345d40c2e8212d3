#include "view_card.h"

#include "kx_chart.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"

namespace {

constexpr int padding = 14;
constexpr double cornerRadius = 8;
constexpr UXColor ringColor(37, 99, 235);

} // namespace

ViewCard::ViewCard(KXChart& chart) : m_chart(chart)
{
    setPadding(UXPadding(padding, padding, padding, padding));
    chart.setAlign(UXAlign::Client);
    addChild(&chart);
}

ViewCard::~ViewCard() { detachChildren(); }

void ViewCard::setShowRing(bool showRing)
{
    if (showRing == m_showRing)
        return;
    m_showRing = showRing;
    invalidate();
}

void ViewCard::setColors(const UXColor& ground, const UXColor& border)
{
    m_ground = ground;
    m_border = border;
    invalidate();
}

void ViewCard::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        // The line lies inside the card, which paints nothing outside of itself.
        const double line = m_showRing ? 2 : 1, inset = line / 2;
        painter->setColor(m_ground);
        uxAddRoundRectanglePath(*painter,
                                uxInflateDoubleRect(UXDoubleRect(getBoundingRect()), -inset, -inset),
                                cornerRadius - inset);
        painter->fillPreserve();
        painter->setColor(m_showRing ? ringColor : m_border);
        painter->setLineWidth(line);
        painter->stroke();
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}
