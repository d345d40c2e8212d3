#include "kx_control_chart_event_diagram.h"

#include "kx_control_chart_combo_box_scroll_view.h"
#include "kx_control_chart_list.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>

namespace {

constexpr int leastWidth = 180, greatestHeight = 340, anchorGap = 2; // logical units

/** @return a frame below anchor, or above it where that has more room, inside bounds */
UXRect placeFrame(int wantedHeight, const UXRect& anchor, const UXRect& bounds)
{
    const std::int64_t below = std::int64_t{bounds.getBottom()} - anchor.getBottom() - anchorGap;
    const std::int64_t above = std::int64_t{anchor.y} - bounds.y - anchorGap;
    const std::int64_t wanted = std::min(wantedHeight, greatestHeight);
    const bool isBelow = below >= wanted || below >= above;
    const int height = uxSaturateToInt(std::clamp<std::int64_t>(wanted, 0, std::max(below, above)));
    const int width = std::max(anchor.width, leastWidth);
    const int top = isBelow ? anchor.getBottom() + anchorGap : anchor.y - anchorGap - height;
    return uxShiftAndBoundInRect({anchor.x, top, width, height}, bounds);
}

} // namespace

KXControlChartEventDiagram::KXControlChartEventDiagram(UXContext* context) : KXPopupEventDiagram(context) {}

KXControlChartEventDiagram::~KXControlChartEventDiagram()
{
    setClosedHandler({});
    clearChildren();
}

void KXControlChartEventDiagram::open(UXDiagram* diagram, KXControlChartComboBoxScrollView* view,
                                      const UXRect& anchor, UXObject* owner)
{
    if (!_openOver(diagram, owner)) {
        delete view;
        return;
    }
    m_view = UXObjectWatcher(view);
    addChild(view);
    const UXRect bounds = getBoundingRect();
    const bool isMirrored = isRightToLeft();
    const UXRect frame = placeFrame(view->obtainWantedHeight(),
                                    isMirrored ? uxMirrorRect(anchor, bounds) : anchor, bounds);
    view->setFrameRect(isMirrored ? uxMirrorRect(frame, bounds) : frame);
    layout();
    if (KXControlChartComboBoxScrollView* shown = getView())
        shown->getList()->walkParts(true);
}

void KXControlChartEventDiagram::_removeContent() { delete m_view.getObject(); }

KXControlChartComboBoxScrollView* KXControlChartEventDiagram::getView() const
{
    return static_cast<KXControlChartComboBoxScrollView*>(m_view.getObject());
}

std::string KXControlChartEventDiagram::customSerializeTypeID() { return "KXControlChartEventDiagram"; }

bool KXControlChartEventDiagram::customMouseDown(const UXEvent& event, bool&)
{
    const KXControlChartComboBoxScrollView* view = getView();
    if (!view)
        return false;
    if (!uxPointInRect(event.getMousePoint(), view->getFrameRect())) {
        _keepRelease();
        close();
    }
    return true;
}

bool KXControlChartEventDiagram::customMouseMove(const UXEvent&, bool&) { return isOpen(); }

bool KXControlChartEventDiagram::customMouseUp(const UXEvent&, bool&) { return _takeRelease() || isOpen(); }

bool KXControlChartEventDiagram::customMouseDragging(const UXEvent&, bool&)
{
    return _keepsRelease() || isOpen();
}

bool KXControlChartEventDiagram::customMouseWheel(const UXEvent&, bool&) { return isOpen(); }

bool KXControlChartEventDiagram::customKeyDown(const UXEvent& event, bool&)
{
    const KXControlChartComboBoxScrollView* view = getView();
    if (!view)
        return false;
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    const bool isTab = key == UXKeyCode::Tab;
    if (isTab && view->getList()->walkParts(!event.containsEventKey(UXEventKey::Shift)))
        return true;
    if (isTab || key == UXKeyCode::Escape)
        close();
    return true;
}
