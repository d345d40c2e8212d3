#include "ux/ux_event.h"

#include "ux/ux_control.h"

#include <algorithm>
#include <deque>
#include <utility>

struct UXEvent::ActionQueue {
    std::deque<std::function<void()>> actions;
};

UXEvent::UXEvent() : m_actions(std::make_shared<ActionQueue>()) {}

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
        m_actions->actions.push_back(std::move(action));
}

UXEvent UXEvent::copyWithoutActions() const
{
    UXEvent copy = *this;
    copy.m_actions = std::make_shared<ActionQueue>();
    return copy;
}

void UXEvent::runPostedActions() const
{
    // The queue outlives this event, which an action may destroy, and has let go of an action before it runs.
    const std::shared_ptr<ActionQueue> queue = m_actions;
    while (!queue->actions.empty()) {
        const std::function<void()> action = std::move(queue->actions.front());
        queue->actions.pop_front();
        action();
    }
}
