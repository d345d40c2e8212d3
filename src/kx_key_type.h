#pragma once

#include "kx_enum_map.h"
#include "ux/ux_property_type.h"

#include <string>
#include <type_traits>
#include <vector>

/** @return the map of E without its type */
template <KXNamedEnum E>
UXEnum::UXEnumNames& kxObtainEnumNames()
{
    return *kxObtainEnumMap<E>();
}

/** What can be done with the values of keys of one type. */
template <class T>
struct KXKeyTypeOf {
    static const UXPropertyType& obtain() { return uxObtainPropertyType<T>(); }
};

/** The same of an enumeration, which documents give by name. */
template <KXNamedEnum E>
struct KXKeyTypeOf<E> {
    static const UXPropertyType& obtain() { return uxObtainEnumPropertyType<E, kxObtainEnumNames<E>>(); }
};

/** The same of a list, by its elements. */
template <class T>
struct KXKeyTypeOf<std::vector<T>> {
    static const UXPropertyType& obtain() { return uxObtainListPropertyType<T, KXKeyTypeOf<T>::obtain>(); }
};

/** @return what can be done with the values of a key of type T: a framework's value type, an enumeration with
 * names, or a list of these */
template <class T>
const UXPropertyType& kxObtainKeyType()
{
    return KXKeyTypeOf<T>::obtain();
}

/** Writes one value outside of a key table. */
template <class T>
void kxWriteKey(UXJsonObject* object, const std::string& key, const T& value)
{
    const UXPropertyType& type = kxObtainKeyType<T>();
    type.write(type, *object, key, &value);
}

/** @return false, and value as it was, when the key is missing or holds another type */
template <class T>
bool kxReadKey(UXJsonObject* object, const std::string& key, T& value)
{
    const UXPropertyType& type = kxObtainKeyType<T>();
    return type.read(type, *object, key, &value);
}
