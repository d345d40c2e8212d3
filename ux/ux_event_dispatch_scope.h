#pragma once

#include "ux/ux_event.h"
#include "ux/ux_notification_scope.h"

#include <cstdint>
#include <functional>

/**
 * One event on its way through the objects. Dispatches can stand inside one another; what was posted
 * meanwhile, on any of their events, runs when the outermost is finished, after the controls have been told.
 * What runs then may open dialogs with loops of their own, during which controls go on being told.
 */
class UXEventDispatchScope {
public:
    explicit UXEventDispatchScope(const UXEvent& event);
    /** Ends the call, whose exceptions pass through, as UXNotificationScope says. */
    ~UXEventDispatchScope() noexcept(false);

    UXEventDispatchScope(const UXEventDispatchScope&) = delete;
    UXEventDispatchScope& operator=(const UXEventDispatchScope&) = delete;

    /** Tells the controls, and runs the posted actions, if this is the outermost dispatch. Any object may be
     * gone afterwards. */
    void finish();

    static bool isDispatching();
    /** @return the number of the outermost dispatch, another one for each event of a host's, above 0 */
    static std::uint64_t getNumber();
    /** Keeps action until the outermost dispatch is finished; to be called during one only. */
    static void postAction(std::function<void()> action);

private:
    UXNotificationScope m_notifications;
    // A copy, which keeps the queue of posted actions when a callback destroys the event.
    UXEvent m_event;
    bool m_isFinished = false;
};
