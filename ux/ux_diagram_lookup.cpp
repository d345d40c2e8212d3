#include "ux/ux_diagram_lookup.h"

#include "ux/ux_diagram.h"

UXDiagram* uxObtainDiagram(UXObject* object)
{
    while (object && object->getParent())
        object = object->getParent();
    return dynamic_cast<UXDiagram*>(object);
}
