#include "ux/ux_event.h"

#include "ux/ux_control.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <deque>
#include <utility>

/** What the copies of an event have in common. */
struct UXEvent::Shared {
    struct Delivery {
        UXEventType type;
        UXObjectWatcher object;
    };

    std::deque<std::function<void()>> actions;
    std::vector<Delivery> deliveries; // of the dispatch under way
    int dispatches = 0;               // inside one another
};

UXEvent::UXEvent() : m_shared(std::make_shared<Shared>()) {}

UXEvent::UXEvent(UXEventType type) : UXEvent() { m_eventType = type; }

bool UXEvent::containUseCase(int useCase) const
{
    return std::find(m_useCases.begin(), m_useCases.end(), useCase) != m_useCases.end();
}

void UXEvent::setControl(UXControl* control)
{
    m_control = control;
    m_controlLife = control ? control->m_life : nullptr;
}

void UXEvent::addUseCase(int useCase)
{
    if (!containUseCase(useCase))
        m_useCases.push_back(useCase);
}

void UXEvent::postAction(std::function<void()> action) const
{
    if (action)
        m_shared->actions.push_back(std::move(action));
}

UXEvent UXEvent::copyWithoutActions() const
{
    UXEvent copy = *this;
    copy.m_shared = std::make_shared<Shared>();
    return copy;
}

void UXEvent::runPostedActions() const
{
    // The queue outlives this event, which an action may destroy, and has let go of an action before it runs.
    const std::shared_ptr<Shared> queue = m_shared;
    while (!queue->actions.empty()) {
        const std::function<void()> action = std::move(queue->actions.front());
        queue->actions.pop_front();
        action();
    }
}

bool UXEvent::_noteDelivery(UXEventType type, UXObject* object) const
{
    std::vector<Shared::Delivery>& deliveries = m_shared->deliveries;
    const bool isNew = std::ranges::none_of(deliveries, [&](const Shared::Delivery& delivery) {
        return delivery.type == type && delivery.object.getObject() == object;
    });
    if (isNew)
        deliveries.push_back({type, UXObjectWatcher(object)});
    return isNew;
}

void UXEvent::_beginDispatch() const { ++m_shared->dispatches; }

void UXEvent::_endDispatch() const
{
    if (--m_shared->dispatches == 0)
        m_shared->deliveries.clear();
}
