#include "kx_legend_cell.h"

#include "kx_legend.h"
#include "ux/ux_event.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_symbol_shape.h"

KXLegendCell::KXLegendCell(KXLegend* legend) : KXInteraction(this), UXHintDelegate(this), m_legend(legend) {}

KXLegendCell::~KXLegendCell() = default;

void KXLegendCell::showCell(std::uint64_t index, const std::string& label, UXSymbolStyle style)
{
    if (m_index == index && m_label == label && m_symbolStyle == style)
        return;
    m_index = index;
    m_label = label;
    m_symbolStyle = style;
    // The pointer was over another cell; its next move tells what it is over now.
    _endHover();
    invalidate();
}

std::string KXLegendCell::customSerializeTypeID() { return "KXLegendCell"; }

void KXLegendCell::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        const UXColor color = m_legend->obtainLegendCellColor(m_index);
        uxDrawSymbol(*painter, m_symbolStyle, m_legend->obtainSymbolRect(), color);
        const UXDoubleRect labelRect = m_legend->obtainLabelRect(getRect().width);
        if (labelRect.width > 0 && !m_label.empty()) {
            UXTextProperty property = m_legend->getTextProperty();
            property.option = UXTextOption::EllipsisEnd;
            painter->drawText(m_label, labelRect, property);
        }
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

bool KXLegendCell::customMouseDown(const UXEvent& event, bool& stop)
{
    return UXObject::customMouseDown(event, stop) || m_legend->isCellClickEnabled();
}

bool KXLegendCell::customMouseUp(const UXEvent& event, bool& stop)
{
    return UXObject::customMouseUp(event, stop) || m_legend->isCellClickEnabled();
}

bool KXLegendCell::customMouseMove(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    const bool showPointingHand = m_legend->obtainShouldShowPointingHand(m_index, event);
    if (!self.isAlive())
        return false;
    m_showPointingHand = showPointingHand;
    m_hovered = true;
    if (m_legend->getShowHint() && m_legend->isLabelCut(m_label, getRect().width)) {
        UXHintInfo info;
        info.title = m_label;
        UXEvent hintEvent = event;
        showHint(getTranslatedPointFromEvent(event, this), &hintEvent, &info);
    } else {
        hideHint();
    }
    return self.isAlive() && UXObject::customMouseMove(event, stop);
}

bool KXLegendCell::customMouseLeave(const UXEvent& event, bool& stop)
{
    _endHover();
    return UXObject::customMouseLeave(event, stop);
}

void KXLegendCell::_endHover()
{
    m_hovered = false;
    m_showPointingHand = false;
    hideHint();
}
