#pragma once

#include "kx_export.h"
#include "ux/ux_enum_map.h"
#include "ux/ux_json_object.h"

#include <concepts>
#include <string>

enum class UXHintPosition : int;
enum class UXPosition : int;
enum class UXSymbolStyle : int;

/** The names under which the charts save the framework's enumerations. */
constexpr const char* kxObtainEnumNames(UXSymbolStyle)
{
    return "Rectangle, Circle, Line, LineLeft, LineRight, Area, AreaLeft, AreaRight, ThreeVerticalDots, "
           "AssistantLine, AssistantLineWithDash, AssistantLineWithDot";
}
constexpr const char* kxObtainEnumNames(UXPosition)
{
    return "Top, Bottom, Left, Right, Center, TopRight, BottomRight";
}
constexpr const char* kxObtainEnumNames(UXHintPosition) { return "AboveValue, Top"; }

/** An enumeration that is saved by name. */
template <class E>
concept KXNamedEnum = requires(E value)
{
    {
        kxObtainEnumNames(value)
        } -> std::same_as<const char*>;
};

/** Exists for every KXNamedEnum.
 *  @return the one map of E, made when it is first asked for and kept until the library is unloaded; never
 * null */
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
