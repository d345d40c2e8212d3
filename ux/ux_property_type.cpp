#include "ux/ux_property_type.h"

#include "ux/ux_color.h"
#include "ux/ux_font.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"
#include "ux/ux_size.h"
#include "ux/ux_text_property.h"

// The operations of one type, whose document form UXJsonObject knows under the name.
#define UX_PROPERTY_TYPE(Type, Name, documented)                                                         \
    template <>                                                                                          \
    UX_EXPORT const UXPropertyType& uxObtainPropertyType<Type>()                                         \
    {                                                                                                    \
        static constexpr UXPropertyType type{                                                            \
            &typeid(Type),                                                                               \
            documented,                                                                                  \
            uxEqualPropertyValues<Type>,                                                                 \
            uxAssignPropertyValue<Type>,                                                                 \
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* value) { \
                object.serialize##Name(key, *static_cast<const Type*>(value));                           \
            },                                                                                           \
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* value) {       \
                return object.deserialize##Name(key, *static_cast<Type*>(value));                        \
            }};                                                                                          \
        return type;                                                                                     \
    }
UX_PROPERTY_TYPE(bool, Bool, "true or false")
UX_PROPERTY_TYPE(int, Int64, "whole number")
UX_PROPERTY_TYPE(std::int64_t, Int64, "whole number")
UX_PROPERTY_TYPE(double, Double, "number")
UX_PROPERTY_TYPE(std::string, String, "text")
UX_PROPERTY_TYPE(UXPoint, UXPoint, "point")
UX_PROPERTY_TYPE(UXSize, UXSize, "size")
UX_PROPERTY_TYPE(UXRect, UXRect, "rectangle")
UX_PROPERTY_TYPE(UXColor, UXColor, "colour")
UX_PROPERTY_TYPE(UXFont, UXFont, "font")
UX_PROPERTY_TYPE(UXTextProperty, UXTextProperty, "text property")
UX_PROPERTY_TYPE(UXHintInfo, UXHintInfo, "hint settings")
#undef UX_PROPERTY_TYPE

const UXPropertyType& uxObtainNestedObjectType()
{
    static constexpr UXPropertyType type{
        .info = &typeid(UXJsonObject*),
        .name = "object",
        .write =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* value) {
                object.serializeObject(key, static_cast<UXJsonObject*>(const_cast<void*>(value)));
            },
        .read =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* value) {
                return object.deserializeExistingObject(key, static_cast<UXJsonObject*>(value));
            },
        .isObject = true};
    return type;
}

const UXPropertyType& uxObtainPartType()
{
    static constexpr UXPropertyType type{
        .info = &typeid(UXJsonObject*),
        .name = "place of a part",
        .write =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* value) {
                object.serializeObjectWeakRef(key, static_cast<UXJsonObject*>(const_cast<void*>(value)));
            },
        .read =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, void* value) {
                return object.deserializeObjectWeakRef(
                    key, [value](UXJsonObject* found) { return found == value; });
            },
        .isObject = true};
    return type;
}

void uxWriteEnumProperty(const UXPropertyType& type, UXJsonObject& object, const std::string& key,
                         const void* value)
{
    object.serializeString(key, type.names().obtainNameOfNumber(type.obtainNumber(value)));
}

bool uxReadEnumProperty(const UXPropertyType& type, UXJsonObject& object, const std::string& key, void* value)
{
    std::string name;
    int number = 0;
    if (!object.deserializeString(key, name) || !type.names().obtainNumber(name, number))
        return false;
    type.makeOfNumber(value, number);
    return true;
}

bool uxReadListElements(UXJsonObject& object, const std::string& key, void* list, void (*clear)(void* list),
                        bool (*read)(UXJsonObject& object, void* list))
{
    if (!object.deserializeArrayBegin(key)) {
        object.deserializeArrayEnd();
        return false;
    }
    clear(list);
    std::uint64_t count = 0;
    bool complete = object.deserializePeekArray(count);
    for (std::uint64_t i = 0; i < count; ++i) {
        UXJsonValue* element = nullptr;
        if (!object.deserializeArrayElement(i, element)) {
            complete = false;
            continue;
        }
        object.pushJsonValue(element);
        complete = read(object, list) && complete;
        object.popJsonValue();
        object.deleteJsonValue(element);
    }
    return object.deserializeArrayEnd() && complete;
}
