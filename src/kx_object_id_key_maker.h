#pragma once

#include "kx_object_id_key.h"

#include <type_traits>

/** @return the key of an enumeration's value, under the type T, or of a text, under std::string however it is
 * given; a null text counts as empty */
template <class T>
KXObjectIDKey kxMakeObjectIDKey(const T& value)
{
    if constexpr (std::is_enum_v<T>)
        return {typeid(T), static_cast<int>(value)};
    else if constexpr (std::is_pointer_v<T>)
        return {typeid(std::string), std::string(value ? value : "")};
    else
        return {typeid(T), value};
}
