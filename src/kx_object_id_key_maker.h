#pragma once

#include "kx_object_id_key.h"

#include <type_traits>

/** @return the key of an enumeration's value or of a text, under the type T; a null text counts as empty */
template <class T>
KXObjectIDKey kxMakeObjectIDKey(const T& value)
{
    if constexpr (std::is_enum_v<T>)
        return {typeid(T), static_cast<int>(value)};
    else if constexpr (std::is_pointer_v<T>)
        return {typeid(T), std::string(value ? value : "")};
    else
        return {typeid(T), value};
}
