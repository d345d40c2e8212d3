#include "kx_chart_label.h"

#include "kx_highlight_ground.h"
#include "ux/ux_event.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_shortening.h"

#include <cmath>
#include <utility>

namespace {

/** How far the ground behind a label that stands out reaches over it, in logical units. */
constexpr double glowInset = 4;

} // namespace

KXChartLabel::KXChartLabel() : KXChartDataAction(this), KXInteraction(this) {}

KXChartLabel::~KXChartLabel() = default;

std::string KXChartLabel::getDefaultText() const { return m_defaultText; }

void KXChartLabel::setDefaultText(const std::string& text)
{
    if (m_defaultText == text)
        return;
    m_defaultText = text;
    requireLayout();
    invalidate();
}

std::string KXChartLabel::getIdentifier() const { return m_identifier; }

void KXChartLabel::setIdentifier(const std::string& identifier) { m_identifier = identifier; }

std::string KXChartLabel::customSerializeTypeID() { return "KXChartLabel"; }

KXChartDataPath* KXChartLabel::createDataPath()
{
    // A label shows one value: the first cell.
    auto* path = new KXChartDataPath;
    path->identifier = m_identifier;
    path->valueIndexPath = {0, 0};
    return path;
}

std::string KXChartLabel::obtainText()
{
    if (m_cutText)
        return *m_cutText;
    const std::string text = UXLabel::obtainText();
    return text.empty() ? m_defaultText : text;
}

void KXChartLabel::setSelectable(bool selectable)
{
    UXLabel::setSelectable(selectable);
    if (!selectable || m_togglesSelection)
        return;
    m_togglesSelection = true;
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent&) {
        if (getSelectable())
            setSelected(!getSelected());
        return false;
    });
}

void KXChartLabel::keepTextInside(const UXRect& area)
{
    const UXNotificationScope scope;
    if (m_textRoom)
        invalidate();
    m_textRoom.reset();
    m_cutText.reset();
    const UXRect rect = getRect();
    if (uxIsEmptyRect(rect) || uxContainsRect(area, rect))
        return;
    const UXRect seen = uxIntersectionRect(area, rect);
    const UXRect room(uxSaturateToInt(std::int64_t{seen.x} - rect.x),
                      uxSaturateToInt(std::int64_t{seen.y} - rect.y), seen.width, seen.height);
    const auto heightOf = [&](std::string_view piece) {
        return uxMeasureText(std::string(piece), getTextProperty(), room.width).height;
    };
    // More of a text is higher as it is wider, so that heights can be cut as widths are.
    std::string cut = uxShortenText(obtainText(), UXTextOption::EllipsisEnd, room.height, heightOf);
    m_cutText = heightOf(cut) <= room.height ? std::move(cut) : std::string();
    m_textRoom = room;
    invalidate();
}

void KXChartLabel::autoResize()
{
    m_textRoom.reset();
    m_cutText.reset();
    UXLabel::autoResize();
}

void KXChartLabel::selectionChanged()
{
    const UXNotificationScope scope;
    UXLabel::selectionChanged();
    KXChartDataUser* user = getDataUser();
    if (!user)
        return;
    const UXEvent event(UXEventType::LeftClick);
    if (getSelected())
        triggerLinkedHighlightAction(user, this, event);
    else
        triggerLinkedHighlightClearAction(user, this, event);
    event.runPostedActions();
}

void KXChartLabel::updateInteractionEffects(const std::vector<KXInteractionEffect*>& effects)
{
    const UXNotificationScope scope;
    if (effects.empty() && getInteractionEffects().empty())
        return;
    // Before as well: what is drawn larger reaches over what the next look leaves free.
    invalidate();
    KXInteractionChartObject::updateInteractionEffects(effects);
    invalidate();
}

void KXChartLabel::updateHighlightState(KXHighlightState state)
{
    const UXNotificationScope scope;
    if (state == getHighlightState())
        return;
    invalidate();
    KXInteractionChartObject::updateHighlightState(state);
    invalidate();
}

bool KXChartLabel::_showsGlow() const
{
    return needsDefaultHighlight() || (getSelected() && !hasLookEffects());
}

/** @return where the text is drawn, larger or smaller about its middle, in the own space */
UXDoubleRect KXChartLabel::_obtainDrawnRect() const
{
    const UXDoubleRect bounds(getBoundingRect());
    const double ratio = obtainDrawnSizeRatio();
    return {bounds.x + bounds.width * (1 - ratio) / 2, bounds.y + bounds.height * (1 - ratio) / 2,
            bounds.width * ratio, bounds.height * ratio};
}

UXRect KXChartLabel::_obtainPaintedRect() const
{
    const double glow = _showsGlow() || getSelected() ? glowInset : 0;
    if (glow == 0 && obtainDrawnSizeRatio() == 1)
        return getBoundingRect();
    const UXDoubleRect drawn = uxInflateDoubleRect(_obtainDrawnRect(), glow, glow);
    const UXRect rect(uxSaturateToInt(std::floor(drawn.x)), uxSaturateToInt(std::floor(drawn.y)),
                      uxSaturateToInt(std::ceil(drawn.width) + 1),
                      uxSaturateToInt(std::ceil(drawn.height) + 1));
    return uxUnionRect(rect, getBoundingRect());
}

bool KXChartLabel::inRect(UXRect rect) const
{
    const bool isPlain = obtainDrawnSizeRatio() == 1 && !_showsGlow();
    return isPlain ? UXLabel::inRect(rect) : !uxIsEmptyRect(uxIntersectionRect(rect, _obtainPaintedRect()));
}

UXRect KXChartLabel::customDirtyRect() { return _obtainPaintedRect(); }

void KXChartLabel::drawLabel(UXPainter& painter, const UXDoubleRect&, const UXTextProperty& property)
{
    UXDoubleRect rect = _obtainDrawnRect();
    UXTextProperty drawn = property;
    if (m_textRoom) {
        rect = uxIntersectionDoubleRect(rect, UXDoubleRect(*m_textRoom));
        if (drawn.option == UXTextOption::Default)
            drawn.option = UXTextOption::EllipsisEnd;
    }
    drawn.textColor = obtainDrawnColor(property.textColor, KXInteractionEffectTarget::NonFilled);
    drawn.font.size = uxSaturateToInt(std::round(property.font.size * obtainDrawnSizeRatio()));
    if (_showsGlow())
        kxDrawHighlightGround(painter, uxInflateDoubleRect(rect, glowInset, glowInset), drawn.textColor);
    UXLabel::drawLabel(painter, rect, drawn);
}
