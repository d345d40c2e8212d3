#include "kx_popup_event_diagram.h"

#include <utility>
#include <vector>

namespace {

/** @return whether object can be seen on diagram, as far as visibility goes */
bool standsOn(const UXObject* object, const UXDiagram* diagram)
{
    while (object && object != diagram && object->getVisible())
        object = object->getParent();
    return object == diagram;
}

} // namespace

KXPopupEventDiagram::KXPopupEventDiagram(UXContext* context) : UXGlobalEventDiagram(context)
{
    setVisible(false);
}

KXPopupEventDiagram::~KXPopupEventDiagram() = default;

bool KXPopupEventDiagram::_openOver(UXDiagram* diagram, UXObject* owner)
{
    const UXObjectWatcher self(this), over(diagram), ownerWatcher(owner);
    close();
    if (!self.isAlive() || !over.isAlive() || ownerWatcher.getObject() != owner)
        return false;
    const std::vector<UXDiagram*> served = getServedDiagrams();
    for (UXDiagram* before : served)
        if (before != diagram)
            before->unregisterGlobalEventDiagram(this);
    diagram->registerGlobalEventDiagram(this);
    diagram->bringGlobalEventDiagramToFront(this);
    setActiveDiagram(diagram);
    m_owner = ownerWatcher;
    m_hasOwner = owner != nullptr;
    m_keepsRelease = false;
    setDirection(owner && owner->isRightToLeft() ? UXDirection::RightToLeft : UXDirection::LeftToRight);
    setVisible(true);
    if (!self.isAlive() || !over.isAlive())
        return false;
    setRect(diagram->getBoundingRect());
    return self.isAlive();
}

void KXPopupEventDiagram::close()
{
    if (!isOpen())
        return;
    const UXObjectWatcher self(this);
    _removeContent();
    if (!self.isAlive())
        return;
    setVisible(false);
    if (!self.isAlive())
        return;
    // A copy, because the handler may destroy this diagram and with it the handler.
    const std::function<void()> handler = m_closedHandler;
    if (handler)
        handler();
}

void KXPopupEventDiagram::setClosedHandler(std::function<void()> handler)
{
    m_closedHandler = std::move(handler);
}

bool KXPopupEventDiagram::_takeRelease() { return std::exchange(m_keepsRelease, false); }

void KXPopupEventDiagram::endActions() { close(); }

bool KXPopupEventDiagram::controlSize(const UXEvent& event)
{
    const UXObjectWatcher self(this);
    close();
    return self.isAlive() && UXGlobalEventDiagram::controlSize(event);
}

void KXPopupEventDiagram::setActiveDiagram(UXDiagram* diagram)
{
    UXGlobalEventDiagram::setActiveDiagram(diagram);
    // What was placed inside another rectangle might stand out of this one.
    const bool isPlaced = diagram && getRect() == diagram->getBoundingRect();
    const bool isWanted = !m_hasOwner || (diagram && standsOn(m_owner.getObject(), diagram));
    if (!isPlaced || !isWanted)
        close();
}

void KXPopupEventDiagram::servedDiagramLeft()
{
    if (!getActiveDiagram())
        close();
}

bool KXPopupEventDiagram::customMouseDoubleClick(const UXEvent&, bool&) { return isOpen(); }
bool KXPopupEventDiagram::customKeyUp(const UXEvent&, bool&) { return isOpen(); }
