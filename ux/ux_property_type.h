#pragma once

#include "ux/ux_enum_names.h"
#include "ux/ux_export.h"
#include "ux/ux_json_object.h"

#include <new>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

/** What can be done with the value of a property without knowing its type: one set of operations a type, so
 * that the properties of all classes are plain data. A value is given by its place. */
struct UXPropertyType {
    const std::type_info* info;
    /** How documentation calls the type; null for an enumeration and a list, which say it otherwise. */
    const char* name = nullptr;
    bool (*equal)(const void* first, const void* second) = nullptr;
    void (*assign)(void* to, const void* from) = nullptr;
    void (*write)(const UXPropertyType& type, UXJsonObject& object, const std::string& key,
                  const void* value) = nullptr;
    /** @return false, and the value as it was, when the key is missing or holds another type */
    bool (*read)(const UXPropertyType& type, UXJsonObject& object, const std::string& key,
                 void* value) = nullptr;

    /** The map of an enumeration that has names, and how its values become numbers and
     * are made of them, in storage of an int's size. */
    UXEnum::UXEnumNames& (*names)() = nullptr;
    int (*obtainNumber)(const void* value) = nullptr;
    void (*makeOfNumber)(void* value, int number) = nullptr;

    /** The type of a list's elements. */
    const UXPropertyType& (*element)() = nullptr;
    /** The property is an object; its place is a UXJsonObject. */
    bool isObject = false;
};

/** Exists for bool, int, std::int64_t, double, std::string, and the framework's structures that documents
 * hold: UXPoint, UXSize, UXRect, UXColor, UXFont, UXTextProperty and UXHintInfo. */
template <class T>
UX_EXPORT const UXPropertyType& uxObtainPropertyType();

/** An object that a class holds for good: written as it stands there, and read into. */
UX_EXPORT const UXPropertyType& uxObtainNestedObjectType();
/** A part of the object itself: only its place is written, and reading confirms it. */
UX_EXPORT const UXPropertyType& uxObtainPartType();

// How the values of enumerations and lists stand in a document, whichever they are
UX_EXPORT void uxWriteEnumProperty(const UXPropertyType& type, UXJsonObject& object, const std::string& key,
                                   const void* value);
UX_EXPORT bool uxReadEnumProperty(const UXPropertyType& type, UXJsonObject& object, const std::string& key,
                                  void* value);
/** @param read called for each element that there is, while it is on top of the reader's stack
 *  @return whether there is a list, and read said yes to each element */
UX_EXPORT bool uxReadListElements(UXJsonObject& object, const std::string& key, void* list,
                                  void (*clear)(void* list), bool (*read)(UXJsonObject& object, void* list));

template <class T>
bool uxEqualPropertyValues(const void* first, const void* second)
{
    return *static_cast<const T*>(first) == *static_cast<const T*>(second);
}

template <class T>
void uxAssignPropertyValue(void* to, const void* from)
{
    *static_cast<T*>(to) = *static_cast<const T*>(from);
}

/** The type of an enumeration. It stands in a document as its name.
 *  @param Names gives the map of E */
template <class E, UXEnum::UXEnumNames& (*Names)()>
const UXPropertyType& uxObtainEnumPropertyType()
{
    static constexpr UXPropertyType type{
        &typeid(E),
        nullptr,
        [](const void* first, const void* second) { return uxEqualPropertyValues<E>(first, second); },
        [](void* to, const void* from) { uxAssignPropertyValue<E>(to, from); },
        uxWriteEnumProperty,
        uxReadEnumProperty,
        Names,
        [](const void* value) { return static_cast<int>(*static_cast<const E*>(value)); },
        [](void* value, int number) { ::new (value) E(static_cast<E>(number)); }};
    return type;
}

/** The type of a list, which stands in a document as an array. A wrong element is passed over, which makes
 * the list shorter and the answer false.
 *  @param Element gives the type of an element */
template <class T, const UXPropertyType& (*Element)()>
const UXPropertyType& uxObtainListPropertyType()
{
    using List = std::vector<T>;
    static constexpr UXPropertyType type{
        &typeid(List),
        nullptr,
        [](const void* first, const void* second) { return uxEqualPropertyValues<List>(first, second); },
        [](void* to, const void* from) { uxAssignPropertyValue<List>(to, from); },
        [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* list) {
            if (object.serializeCheckInit(key)) {
                object.serializeArrayBegin();
                for (const T& value : *static_cast<const List*>(list))
                    Element().write(Element(), object, {}, &value);
                object.serializeArrayEnd(key);
            }
            object.serializeCheckFinalize();
        },
        [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* list) {
            return uxReadListElements(
                object, key, list, [](void* values) { static_cast<List*>(values)->clear(); },
                [](UXJsonObject& reader, void* values) {
                    T value{};
                    if (!Element().read(Element(), reader, {}, &value))
                        return false;
                    static_cast<List*>(values)->push_back(std::move(value));
                    return true;
                });
        },
        nullptr,
        nullptr,
        nullptr,
        Element};
    return type;
}
