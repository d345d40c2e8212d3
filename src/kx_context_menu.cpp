#include "kx_context_menu.h"

#include "ux/ux_context.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_message_right_click_param.h"

#include <algorithm>
#include <vector>

void kxOpenContextMenu(UXObject* object, const UXEvent& event, void* menu)
{
    UXDiagram* diagram = uxObtainDiagram(object);
    UXContext* context = diagram ? diagram->getContext() : nullptr;
    if (!context)
        return;
    // What is shown in two windows opens its menu in the one that was clicked.
    const std::vector<UXControl*> controls = context->getControlsWithDiagramAnyRelated(diagram);
    UXControl* clicked = event.getControl();
    if (std::ranges::find(controls, clicked) == controls.end())
        clicked = controls.empty() ? nullptr : controls.front();
    UXEvent copy = event;
    copy.setSourceObject(object);
    UXMessageRightClickParam message(&copy, menu);
    context->notifyRightClickMenu(clicked, &message, UXPoint());
}
