#include "ux/ux_notification_scope.h"

#include "ux/ux_accessible_change.h"
#include "ux/ux_control.h"
#include "ux/ux_diagram.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <deque>
#include <exception>
#include <memory>
#include <utility>

namespace {

struct PendingNotification {
    UXNotification notification;
    UXControl* control;
    std::weak_ptr<const bool> controlLife;
    UXObjectWatcher diagram;
    bool isAboutDiagram;
    int cursor;
    UXObjectWatcher object{nullptr};
    UXAccessibleChange change = UXAccessibleChange::Content;
};

// Calls arrive on the host's one thread.
int callDepth = 0;

/** @return what waits; never destroyed, since a host's static objects may outlive any other */
std::deque<PendingNotification>& pendingNotifications()
{
    static auto* const pending = new std::deque<PendingNotification>;
    return *pending;
}

/** @return what the controls wait for; never destroyed either */
std::deque<std::function<void()>>& pendingActions()
{
    static auto* const pending = new std::deque<std::function<void()>>;
    return *pending;
}

void tell(const PendingNotification& told)
{
    if (told.controlLife.expired())
        return;
    auto* diagram = static_cast<UXDiagram*>(told.diagram.getObject());
    if (told.isAboutDiagram && (!diagram || told.control->getActiveDiagram() != diagram))
        return;
    switch (told.notification) {
    case UXNotification::DirtyRect:
        return told.control->notifyDirtyRect(diagram);
    case UXNotification::FullScreenDirtyRect:
        return told.control->notifyFullScreenDirtyRect(diagram);
    case UXNotification::DiagramAlignChanged:
        return told.control->notifyDiagramAlignChanged(diagram);
    case UXNotification::DiagramSizeChanged:
        return told.control->notifyDiagramSizeChanged(diagram);
    case UXNotification::ResetScroller:
        return told.control->notifyResetScroller();
    case UXNotification::CursorChange:
        return told.control->notifyCursorChange(told.cursor);
    case UXNotification::AccessibleChange:
        if (UXObject* object = told.object.getObject())
            told.control->notifyAccessibleChange(object, told.change);
        return;
    }
}

} // namespace

UXNotificationScope::UXNotificationScope() : m_exceptions(std::uncaught_exceptions()) { ++callDepth; }

UXNotificationScope::~UXNotificationScope() noexcept(false)
{
    if (!m_isFinished)
        finish();
}

void UXNotificationScope::finish()
{
    m_isFinished = true;
    const bool passesException = std::uncaught_exceptions() > m_exceptions;
    {
        struct CallEnd {
            ~CallEnd() { --callDepth; }
        };
        const CallEnd end;
        // What the actions make dirty is told with the rest, so they are still a part of the call.
        if (callDepth == 1 && !passesException)
            runPostedActions();
    }
    if (callDepth > 0 || passesException)
        return;
    // Whoever is told may call again, which tells the rest meanwhile.
    std::deque<PendingNotification>& pending = pendingNotifications();
    while (!pending.empty()) {
        const PendingNotification told = std::move(pending.front());
        pending.pop_front();
        tell(told);
    }
}

void UXNotificationScope::post(UXNotification notification, UXControl* control, UXDiagram* diagram,
                               int cursor)
{
    if (!control)
        return;
    const UXNotificationScope scope;
    std::deque<PendingNotification>& pending = pendingNotifications();
    const auto known = std::ranges::find_if(pending, [&](const PendingNotification& other) {
        return other.notification == notification && other.control == control &&
               !other.controlLife.expired() && other.diagram.getObject() == diagram &&
               other.isAboutDiagram == (diagram != nullptr);
    });
    if (known != pending.end())
        known->cursor = cursor;
    else
        pending.push_back({notification, control, control->getLife(), UXObjectWatcher(diagram),
                           diagram != nullptr, cursor});
}

void UXNotificationScope::postAccessibleChange(UXControl* control, UXObject& object,
                                               UXAccessibleChange change)
{
    if (!control)
        return;
    const UXNotificationScope scope;
    std::deque<PendingNotification>& pending = pendingNotifications();
    const bool isKnown = std::ranges::any_of(pending, [&](const PendingNotification& other) {
        return other.notification == UXNotification::AccessibleChange && other.control == control &&
               !other.controlLife.expired() && other.object.getObject() == &object && other.change == change;
    });
    if (!isKnown)
        pending.push_back({UXNotification::AccessibleChange, control, control->getLife(),
                           UXObjectWatcher(nullptr), false, 0, UXObjectWatcher(&object), change});
}

void UXNotificationScope::postAction(std::function<void()> action)
{
    const UXNotificationScope scope;
    pendingActions().push_back(std::move(action));
}

void UXNotificationScope::runPostedActions()
{
    std::deque<std::function<void()>>& pending = pendingActions();
    while (!pending.empty()) {
        const std::function<void()> action = std::move(pending.front());
        pending.pop_front();
        action();
    }
}
