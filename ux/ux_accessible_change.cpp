#include "ux/ux_accessible_change.h"

#include "ux/ux_context.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_notification_scope.h"

void uxTellAccessibleChange(UXObject& object, UXAccessibleChange change)
{
    UXDiagram* diagram = uxObtainDiagram(&object);
    const UXContext* context = diagram ? diagram->getContext() : nullptr;
    if (!context)
        return;
    for (UXControl* control : context->getControlsWithDiagramAnyRelated(diagram))
        UXNotificationScope::postAccessibleChange(control, object, change);
}
