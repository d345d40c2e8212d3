#pragma once

#include "kx_export.h"
#include "ux/ux_enum_map.h"
#include "ux/ux_json_object.h"

#include <string>
#include <type_traits>

/** An enumeration whose values have names. */
template <class E>
concept KXNamedEnum = std::is_enum_v<E> && requires
{
    uxObtainEnumNames(E());
};

/** Exists for every enumeration of the charts that has names, and for those of the framework that a key
 *  can have.
 *  @return the one map of E, made when it is first asked for and kept until the library is unloaded; never
 *          null */
template <class E>
KX_EXPORT UXEnum::UXEnumMap<E>* kxObtainEnumMap();

/** Writes the value's name; a value without one is written as the empty text. */
template <KXNamedEnum E>
void kxSerializeEnum(UXJsonObject* object, const std::string& key, E value)
{
    object->serializeString(key, kxObtainEnumMap<E>()->obtainName(value));
}

/** @return false, and value as it was, when the key is missing or holds no name of E, case included */
template <KXNamedEnum E>
bool kxDeserializeEnum(UXJsonObject* object, const std::string& key, E& value)
{
    std::string name;
    return object->deserializeString(key, name) && kxObtainEnumMap<E>()->obtainValue(name, value);
}
