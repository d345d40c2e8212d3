#include "kx_context_menu.h"

#include "ux/ux_context.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_message_right_click_param.h"

void kxOpenContextMenu(UXObject* object, const UXEvent& event, void* menu)
{
    const UXDiagram* diagram = uxObtainDiagram(object);
    UXContext* context = diagram ? diagram->getContext() : nullptr;
    if (!context)
        return;
    UXEvent copy = event;
    UXMessageRightClickParam message(&copy, menu);
    context->notifyRightClickMenu(&message, UXPoint());
}
