#pragma once

#include "ux/ux_enum_map.h"
#include "ux/ux_export.h"

/** Exists for the framework's enumerations that documents hold: UXAlign, UXArrangement, UXDirection,
 *  UXHintPosition, UXPosition, UXRectEdge, UXSymbolStyle, UXTextAlign and UXTextOption.
 *  @return the one map of E, made when it is first asked for and kept until the library is unloaded */
template <class E>
UX_EXPORT UXEnum::UXEnumMap<E>& uxObtainNamedEnumMap();
