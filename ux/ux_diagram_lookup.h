#pragma once

#include "ux/ux_export.h"

class UXDiagram;
class UXObject;

/** @return the diagram that object stands on or is, null where it stands on none or is null */
[[nodiscard]] UX_EXPORT UXDiagram* uxObtainDiagram(UXObject* object);
