#pragma once

#include "ux/ux_enum_map.h"

/** @return the one map of an enumeration that UX_NAMED_ENUM declared, made when it is first asked for */
template <class E>
UXEnum::UXEnumMap<E>& uxObtainNamedEnumMap()
{
    static UXEnum::UXEnumMap<E> map(uxObtainEnumNames(E{}));
    return map;
}
