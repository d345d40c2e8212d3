#include "kx_legend_cell.h"

#include "kx_highlight_ground.h"
#include "kx_legend.h"
#include "ux/ux_event.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** The label of a cell that is switched off keeps this share of its opacity. */
constexpr double offShare = 0.5;
constexpr double walkMarkRadius = 3; // logical units

} // namespace

KXLegendCell::KXLegendCell(KXLegend* legend)
    : KXInteraction(this), UXHintDelegate(this), m_ownLegend(legend ? nullptr : new KXLegend),
      m_legend(legend ? legend : m_ownLegend.get())
{
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent& event) {
        m_legend->cellClicked(getIndex(), event);
        return false;
    });
}

KXLegendCell::~KXLegendCell() { setParent(nullptr); }

void KXLegendCell::showCell(std::uint64_t index, const std::string& label, UXSymbolStyle style)
{
    if (getIndex() == index && m_label == label && m_symbolStyle == style)
        return;
    // The pointer was over another cell; its next move tells what it is over now.
    const UXObjectWatcher self(this);
    endHover();
    if (!self.isAlive())
        return;
    _setIndex(index);
    m_label = label;
    m_symbolStyle = style;
    invalidate();
}

std::string KXLegendCell::customSerializeTypeID() { return "KXLegendCell"; }

void KXLegendCell::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        const UXColor color = obtainDrawnColor(m_legend->obtainLegendCellColor(getIndex()),
                                               KXInteractionEffectTarget::Filled);
        if (needsDefaultHighlight())
            kxDrawHighlightGround(*painter, UXDoubleRect(getBoundingRect()),
                                  m_legend->getTextProperty().textColor);
        m_legend->paintSymbol(getIndex(), *painter, m_symbolStyle, _obtainDrawnSymbolRect(), color);
        const UXDoubleRect labelRect = m_legend->obtainLabelRect(getRect().width);
        if (labelRect.width > 0 && !m_label.empty()) {
            UXTextProperty property = m_legend->getTextProperty();
            property.option = UXTextOption::EllipsisEnd;
            property.textColor = obtainDrawnColor(property.textColor, KXInteractionEffectTarget::NonFilled);
            if (!m_legend->isCellOn(getIndex()))
                property.textColor.alpha *= offShare;
            painter->drawText(m_label, labelRect, property);
        }
        if (m_legend->isWalkedTo(getIndex()))
            _drawWalkMark(*painter);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

/** A line around the cell, in the margin that every cell has, where the keyboard is. */
void KXLegendCell::_drawWalkMark(UXPainter& painter) const
{
    painter.setColor(m_legend->getTextProperty().textColor);
    painter.setLineWidth(1);
    uxAddRoundRectanglePath(painter, uxInflateDoubleRect(UXDoubleRect(getBoundingRect()), 0.5, 0.5),
                            walkMarkRadius);
    painter.stroke();
}

bool KXLegendCell::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    return m_legend->walk(event) || (self.isAlive() && UXObject::customKeyDown(event, stop));
}

bool KXLegendCell::customMouseDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    m_legend->takeFocus(getIndex());
    if (!self.isAlive())
        return true;
    return UXObject::customMouseDown(event, stop) || m_legend->isCellClickEnabled();
}

bool KXLegendCell::customMouseUp(const UXEvent& event, bool& stop)
{
    return UXObject::customMouseUp(event, stop) || m_legend->isCellClickEnabled();
}

bool KXLegendCell::customMouseMove(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    const bool showPointingHand = m_legend->obtainShouldShowPointingHand(getIndex(), event);
    if (!self.isAlive())
        return false;
    m_showPointingHand = showPointingHand;
    setCursor(showPointingHand ? UXCursor::PointingHand : UXCursor::AsParent);
    if (!isHovered())
        _beginHover();
    if (!self.isAlive())
        return false;
    UXEvent hintEvent = event;
    explain(getTranslatedPointFromEvent(event, this), &hintEvent);
    return self.isAlive() && UXObject::customMouseMove(event, stop);
}

void KXLegendCell::explain(UXPoint point, UXEvent* event)
{
    if (m_legend->getShowHint() &&
        (showsComplementaryInfo() || m_legend->isLabelCut(m_label, getRect().width))) {
        UXHintInfo info;
        info.title = m_label;
        showHint(point, event, &info);
    } else {
        hideHint();
    }
}

void KXLegendCell::endExplanation() { hideHint(); }

bool KXLegendCell::customMouseLeave(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    endHover();
    return self.isAlive() && UXObject::customMouseLeave(event, stop);
}

/** The provider says how a piece under the pointer looks different. */
void KXLegendCell::_beginHover()
{
    _setHovered(true);
    const UXObjectWatcher self(this);
    m_legend->cellHovered(getIndex(), true);
    if (!self.isAlive())
        return;
    const std::vector<KXInteractionEffect*> effects = m_legend->obtainCellEffects(getIndex());
    // Meanwhile the cell may have gone, or stand for another one.
    if (self.isAlive() && isHovered()) {
        updateInteractionEffects(effects);
        return;
    }
    for (KXInteractionEffect* effect : effects)
        delete effect;
}

void KXLegendCell::endHover()
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    if (_setHovered(false))
        m_legend->cellHovered(getIndex(), false);
    if (!self.isAlive())
        return;
    m_showPointingHand = false;
    setCursor(UXCursor::AsParent);
    updateInteractionEffects({});
    hideHint();
}

void KXLegendCell::updateInteractionEffects(const std::vector<KXInteractionEffect*>& effects)
{
    if (effects.empty() && getInteractionEffects().empty())
        return;
    // Before as well: a larger symbol reaches over what the next one leaves free.
    invalidate();
    KXInteractionChartObject::updateInteractionEffects(effects);
    invalidate();
}

UXRect KXLegendCell::customDirtyRect()
{
    const UXDoubleRect symbol = m_legend->obtainSymbolRect(), drawn = _obtainDrawnSymbolRect();
    const int more = uxSaturateToInt(
        std::ceil(std::max({drawn.width - symbol.width, drawn.height - symbol.height, 0.0}) / 2));
    return uxInflateRect(getBoundingRect(), more, more);
}

UXDoubleRect KXLegendCell::_obtainDrawnSymbolRect() const
{
    const UXDoubleRect rect = m_legend->obtainSymbolRect();
    const double ratio = obtainDrawnSizeRatio();
    return {rect.x + rect.width * (1 - ratio) / 2, rect.y + rect.height * (1 - ratio) / 2, rect.width * ratio,
            rect.height * ratio};
}
