#include "kx_interaction_event_info.h"

#include "ux/ux_event.h"

KXInteractionEventInfo::KXInteractionEventInfo(const UXEvent& event)
    : buttonCode(event.containsEventKey(UXEventKey::LeftButton)    ? 1
                 : event.containsEventKey(UXEventKey::RightButton) ? 3
                                                                   : 0),
      firstModifier(event.containsEventKey(UXEventKey::Shift)),
      secondModifier(event.containsEventKey(UXEventKey::Ctrl)),
      thirdModifier(event.containsEventKey(UXEventKey::Alt))
{
}
