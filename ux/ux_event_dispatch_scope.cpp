#include "ux/ux_event_dispatch_scope.h"

#include <utility>

namespace {

// Events arrive on the host's one thread.
int dispatchDepth = 0;
std::uint64_t dispatchNumber = 0;
// Carries what is posted without an event of its own, and the queues of events dispatched inside others.
UXEvent* outermostEvent = nullptr;

} // namespace

UXEventDispatchScope::UXEventDispatchScope(const UXEvent& event) : m_event(event)
{
    m_event._beginDispatch();
    if (dispatchDepth++ == 0) {
        outermostEvent = &m_event;
        ++dispatchNumber;
    }
}

UXEventDispatchScope::~UXEventDispatchScope() noexcept(false)
{
    if (!m_isFinished)
        m_event._endDispatch();
    if (--dispatchDepth == 0)
        outermostEvent = nullptr;
}

void UXEventDispatchScope::finish()
{
    m_isFinished = true;
    m_event._endDispatch();
    m_notifications.finish();
    if (&m_event == outermostEvent)
        m_event.runPostedActions();
    else
        outermostEvent->postAction([event = m_event] { event.runPostedActions(); });
}

bool UXEventDispatchScope::isDispatching() { return dispatchDepth > 0; }

std::uint64_t UXEventDispatchScope::getNumber() { return dispatchNumber; }

void UXEventDispatchScope::postAction(std::function<void()> action)
{
    outermostEvent->postAction(std::move(action));
}
