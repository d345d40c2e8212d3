#include "kx_accessible_part.h"

#include "kx_control_part.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_notification_scope.h"

#include <algorithm>

namespace {

UXKeyCode obtainKey(UXAccessibleAction action)
{
    return action == UXAccessibleAction::Press      ? UXKeyCode::Space
           : action == UXAccessibleAction::Increase ? UXKeyCode::Right
                                                    : UXKeyCode::Left;
}

} // namespace

KXAccessiblePart::KXAccessiblePart(KXControlPart& part) : UXAccessibleObject(part) {}

KXAccessiblePart::~KXAccessiblePart() = default;

KXControlPart* KXAccessiblePart::_getPart() const { return static_cast<KXControlPart*>(getObject()); }

UXAccessibleInfo KXAccessiblePart::obtainInfo()
{
    UXAccessibleInfo info = UXAccessibleObject::obtainInfo();
    const KXControlPart* part = _getPart();
    if (!part)
        return info;
    info.isDisabled = !part->isEnabled();
    info.isFocusable = part->isEnabled();
    part->describe(info);
    if (info.isDisabled)
        info.actions.clear();
    else
        info.actions.insert(info.actions.begin(), UXAccessibleAction::Focus);
    return info;
}

bool KXAccessiblePart::perform(UXAccessibleAction action)
{
    const UXNotificationScope scope;
    KXControlPart* part = _getPart();
    if (!part || std::ranges::count(obtainInfo().actions, action) == 0 || !part->takeKeys())
        return false;
    if (action == UXAccessibleAction::Focus)
        return true;
    UXEvent event(UXEventType::KeyDown);
    event.setKeyCode(static_cast<int>(obtainKey(action)));
    const bool isDone = part->keyDown(event);
    event.runPostedActions();
    return isDone;
}
