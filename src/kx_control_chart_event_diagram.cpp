#include "kx_control_chart_event_diagram.h"

#include "kx_control_chart_combo_box_scroll_view.h"
#include "kx_control_chart_list.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <utility>

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

bool standsOn(const UXObject* object, const UXDiagram* diagram)
{
    while (object && object != diagram && object->getVisible())
        object = object->getParent();
    return object == diagram;
}

} // namespace

KXControlChartEventDiagram::KXControlChartEventDiagram(UXContext* context) : UXGlobalEventDiagram(context)
{
    setVisible(false);
}

KXControlChartEventDiagram::~KXControlChartEventDiagram()
{
    m_closedHandler = {};
    clearChildren();
}

void KXControlChartEventDiagram::open(UXDiagram* diagram, KXControlChartComboBoxScrollView* view,
                                      const UXRect& anchor, UXObject* owner)
{
    close();
    for (UXDiagram* before : std::vector<UXDiagram*>(getServedDiagrams()))
        if (before != diagram)
            before->unregisterGlobalEventDiagram(this);
    diagram->registerGlobalEventDiagram(this);
    diagram->bringGlobalEventDiagramToFront(this);
    setActiveDiagram(diagram);
    m_owner = UXObjectWatcher(owner);
    m_view = UXObjectWatcher(view);
    m_keepsRelease = false;
    setVisible(true);
    setRect(diagram->getBoundingRect());
    addChild(view);
    view->setFrameRect(placeFrame(view->obtainWantedHeight(), anchor, getBoundingRect()));
    layout();
    if (KXControlChartComboBoxScrollView* shown = getView())
        shown->getList()->walkParts(true);
}

void KXControlChartEventDiagram::close()
{
    if (!isOpen())
        return;
    const UXObjectWatcher self(this);
    delete m_view.getObject();
    if (!self.isAlive())
        return;
    setVisible(false);
    if (!self.isAlive())
        return;
    // A copy: the handler may destroy this diagram, and itself with it.
    const std::function<void()> handler = m_closedHandler;
    if (handler)
        handler();
}

KXControlChartComboBoxScrollView* KXControlChartEventDiagram::getView() const
{
    return static_cast<KXControlChartComboBoxScrollView*>(m_view.getObject());
}

void KXControlChartEventDiagram::setClosedHandler(std::function<void()> handler)
{
    m_closedHandler = std::move(handler);
}

void KXControlChartEventDiagram::endActions() { close(); }

std::string KXControlChartEventDiagram::customSerializeTypeID() { return "KXControlChartEventDiagram"; }

bool KXControlChartEventDiagram::controlSize(const UXEvent& event)
{
    const UXObjectWatcher self(this);
    close();
    return self.isAlive() && UXGlobalEventDiagram::controlSize(event);
}

void KXControlChartEventDiagram::setActiveDiagram(UXDiagram* diagram)
{
    UXGlobalEventDiagram::setActiveDiagram(diagram);
    // A list that was placed inside another rectangle might stand out of this one.
    const bool isPlaced = diagram && getRect() == diagram->getBoundingRect();
    if (isOpen() && (!isPlaced || !standsOn(m_owner.getObject(), diagram)))
        close();
}

void KXControlChartEventDiagram::servedDiagramLeft()
{
    if (!getActiveDiagram())
        close();
}

bool KXControlChartEventDiagram::customMouseDown(const UXEvent& event, bool&)
{
    const KXControlChartComboBoxScrollView* view = getView();
    if (!view)
        return false;
    if (!uxPointInRect(event.getMousePoint(), view->getFrameRect())) {
        m_keepsRelease = true;
        close();
    }
    return true;
}

bool KXControlChartEventDiagram::customMouseMove(const UXEvent&, bool&) { return isOpen(); }

bool KXControlChartEventDiagram::customMouseUp(const UXEvent&, bool&)
{
    return std::exchange(m_keepsRelease, false) || isOpen();
}

bool KXControlChartEventDiagram::customMouseDragging(const UXEvent&, bool&)
{
    return m_keepsRelease || isOpen();
}

bool KXControlChartEventDiagram::customMouseWheel(const UXEvent&, bool&) { return isOpen(); }
bool KXControlChartEventDiagram::customMouseDoubleClick(const UXEvent&, bool&) { return isOpen(); }
bool KXControlChartEventDiagram::customKeyUp(const UXEvent&, bool&) { return isOpen(); }

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
