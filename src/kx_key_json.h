#pragma once

#include "kx_enum_map.h"
#include "ux/ux_json_object.h"

#include <cstdint>
#include <string>
#include <vector>

/** How a value of type T stands in a document: write(object, key, value), and read(object, key, value)
 *  which answers false, and leaves the value as it was, when the key is missing or holds another type. */
template <class T>
struct KXKeyJson;

/** An enumeration stands there as its name. */
template <KXNamedEnum E>
struct KXKeyJson<E> {
    static void write(UXJsonObject* object, const std::string& key, E value)
    {
        kxSerializeEnum(object, key, value);
    }
    static bool read(UXJsonObject* object, const std::string& key, E& value)
    {
        return kxDeserializeEnum(object, key, value);
    }
};

#define KX_KEY_JSON(Type, Name)                                                            \
    template <>                                                                            \
    struct KXKeyJson<Type> {                                                               \
        static void write(UXJsonObject* object, const std::string& key, const Type& value) \
        {                                                                                  \
            object->serialize##Name(key, value);                                           \
        }                                                                                  \
        static bool read(UXJsonObject* object, const std::string& key, Type& value)        \
        {                                                                                  \
            return object->deserialize##Name(key, value);                                  \
        }                                                                                  \
    };
KX_KEY_JSON(bool, Bool)
KX_KEY_JSON(int, Int64)
KX_KEY_JSON(std::int64_t, Int64)
KX_KEY_JSON(double, Double)
KX_KEY_JSON(std::string, String)
KX_KEY_JSON(UXPoint, UXPoint)
KX_KEY_JSON(UXSize, UXSize)
KX_KEY_JSON(UXRect, UXRect)
KX_KEY_JSON(UXColor, UXColor)
KX_KEY_JSON(UXFont, UXFont)
KX_KEY_JSON(UXTextProperty, UXTextProperty)
KX_KEY_JSON(UXHintInfo, UXHintInfo)
#undef KX_KEY_JSON

/** A list stands there as an array. A wrong element is passed over, which makes the list shorter and the
 *  answer false. */
template <class T>
struct KXKeyJson<std::vector<T>> {
    static void write(UXJsonObject* object, const std::string& key, const std::vector<T>& values)
    {
        if (object->serializeCheckInit(key)) {
            object->serializeArrayBegin();
            for (const T& value : values)
                KXKeyJson<T>::write(object, "", value);
            object->serializeArrayEnd(key);
        }
        object->serializeCheckFinalize();
    }

    static bool read(UXJsonObject* object, const std::string& key, std::vector<T>& values)
    {
        if (!object->deserializeArrayBegin(key)) {
            object->deserializeArrayEnd();
            return false;
        }
        values.clear();
        std::uint64_t count = 0;
        bool complete = object->deserializePeekArray(count);
        for (std::uint64_t i = 0; i < count; ++i) {
            T value{};
            if (_readElement(object, i, value))
                values.push_back(value);
            else
                complete = false;
        }
        return object->deserializeArrayEnd() && complete;
    }

private:
    static bool _readElement(UXJsonObject* object, std::uint64_t index, T& value)
    {
        UXJsonValue* element = nullptr;
        if (!object->deserializeArrayElement(index, element))
            return false;
        object->pushJsonValue(element);
        const bool complete = KXKeyJson<T>::read(object, "", value);
        object->popJsonValue();
        object->deleteJsonValue(element);
        return complete;
    }
};
