#include "ux/json/ux_json_encoding.h"

#include "ux/ux_arrangement.h"
#include "ux/ux_color.h"
#include "ux/ux_font.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_hint_position.h"
#include "ux/ux_named_enum_map.h"
#include "ux/ux_point.h"
#include "ux/ux_position.h"
#include "ux/ux_rect.h"
#include "ux/ux_saturate.h"
#include "ux/ux_size.h"
#include "ux/ux_symbol_style.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <type_traits>
#include <utility>

namespace {

// The fields of each structure, in the order of the document; both directions go through the same list.

template <class Visit>
void visitFields(UXPoint& value, Visit& visit)
{
    visit("x", value.x);
    visit("y", value.y);
}

template <class Visit>
void visitFields(UXSize& value, Visit& visit)
{
    visit("width", value.width);
    visit("height", value.height);
}

template <class Visit>
void visitFields(UXRect& value, Visit& visit)
{
    visit("x", value.x);
    visit("y", value.y);
    visit("width", value.width);
    visit("height", value.height);
}

template <class Visit>
void visitFields(UXColor& value, Visit& visit)
{
    visit("red", value.red);
    visit("green", value.green);
    visit("blue", value.blue);
    visit("alpha", value.alpha);
}

template <class Visit>
void visitFields(UXFont& value, Visit& visit)
{
    visit("familyName", value.familyName);
    visit("size", value.size);
    visit("bold", value.bold);
    visit("italic", value.italic);
    visit("attribute", value.attribute);
}

template <class Visit>
void visitFields(UXTextProperty& value, Visit& visit)
{
    visit("font", value.font);
    visit("align", value.align);
    visit("option", value.option);
    visit("lineMode", value.lineMode);
    visit("textColor", value.textColor);
}

template <class Visit>
void visitFields(UXHintRowInfo& value, Visit& visit)
{
    visit("color", value.color);
    visit("symbolStyle", value.symbolStyle);
    visit("label", value.label);
    visit("value", value.value);
    visit("labelProperty", value.labelProperty);
    visit("valueProperty", value.valueProperty);
    visit("showSymbol", value.showSymbol);
    visit("blankHeight", value.blankHeight);
}

template <class Visit>
void visitFields(UXHintInfo& value, Visit& visit)
{
    visit("title", value.title);
    visit("titleProperty", value.titleProperty);
    visit("text", value.text);
    visit("textProperty", value.textProperty);
    visit("rows", value.rows);
    visit("footerRows", value.footerRows);
    visit("position", value.position);
    visit("distance", value.distance);
    visit("maxWidth", value.maxWidth);
    visit("enabled", value.enabled);
    visit("followMouse", value.followMouse);
}

UXJsonValue encode(bool value) { return UXJsonValue::makeBool(value); }
UXJsonValue encode(int value) { return UXJsonValue::makeInteger(value); }
UXJsonValue encode(double value) { return UXJsonValue::makeDouble(value); }
UXJsonValue encode(const std::string& value) { return UXJsonValue::makeString(value); }
template <class E>
requires std::is_enum_v<E> UXJsonValue encode(E value)
{
    return UXJsonValue::makeString(uxObtainNamedEnumMap<E>().obtainName(value));
}
template <class T>
requires std::is_class_v<T> UXJsonValue encode(const T& value);
template <class T>
UXJsonValue encode(const std::deque<T>& values);

bool decode(const UXJsonValue& json, bool& value) { return json.getBool(value); }
bool decode(const UXJsonValue& json, double& value) { return json.getNumber(value); }
bool decode(const UXJsonValue& json, std::string& value) { return json.getString(value); }
bool decode(const UXJsonValue& json, int& value)
{
    std::int64_t whole = 0;
    if (!json.getInteger(whole))
        return false;
    value = uxSaturateToInt(whole);
    return true;
}
template <class E>
requires std::is_enum_v<E>
bool decode(const UXJsonValue& json, E& value)
{
    std::string name;
    return json.getString(name) && uxObtainNamedEnumMap<E>().obtainValue(name, value);
}
template <class T>
requires std::is_class_v<T>
bool decode(const UXJsonValue& json, T& value);
template <class T>
bool decode(const UXJsonValue& json, std::deque<T>& values);

struct Encoder {
    template <class Field>
    void operator()(const char* key, const Field& field)
    {
        object.set(key, encode(field));
    }

    UXJsonValue object = UXJsonValue::makeObject();
};

struct Decoder {
    template <class Field>
    void operator()(const char* key, Field& field)
    {
        const UXJsonValue* found = object.find(key);
        isComplete = found && decode(*found, field) && isComplete;
    }

    const UXJsonValue& object;
    bool isComplete = true;
};

template <class T>
requires std::is_class_v<T> UXJsonValue encode(const T& value)
{
    Encoder encoder;
    visitFields(const_cast<T&>(value), encoder);
    return std::move(encoder.object);
}

template <class T>
UXJsonValue encode(const std::deque<T>& values)
{
    UXJsonValue list = UXJsonValue::makeArray();
    for (const T& value : values)
        list.append(encode(value));
    return list;
}

template <class T>
requires std::is_class_v<T>
bool decode(const UXJsonValue& json, T& value)
{
    T read;
    Decoder decoder{json};
    visitFields(read, decoder);
    if (decoder.isComplete)
        value = std::move(read);
    return decoder.isComplete;
}

template <class T>
bool decode(const UXJsonValue& json, std::deque<T>& values)
{
    if (!json.isArray())
        return false;
    std::deque<T> read(json.count());
    for (std::size_t i = 0; i < read.size(); ++i) {
        if (!decode(*json.at(i), read[i]))
            return false;
    }
    values = std::move(read);
    return true;
}

} // namespace

template <class T>
UXJsonValue uxEncodeJson(const T& value)
{
    return encode(value);
}

template <class T>
bool uxDecodeJson(const UXJsonValue& json, T& value)
{
    return decode(json, value);
}

#define UX_JSON_ENCODING(T)                         \
    template UXJsonValue uxEncodeJson<T>(const T&); \
    template bool uxDecodeJson<T>(const UXJsonValue&, T&);
UX_JSON_ENCODING(bool)
UX_JSON_ENCODING(int)
UX_JSON_ENCODING(double)
UX_JSON_ENCODING(std::string)
UX_JSON_ENCODING(UXPoint)
UX_JSON_ENCODING(UXSize)
UX_JSON_ENCODING(UXRect)
UX_JSON_ENCODING(UXColor)
UX_JSON_ENCODING(UXFont)
UX_JSON_ENCODING(UXTextProperty)
UX_JSON_ENCODING(UXHintInfo)
UX_JSON_ENCODING(UXPosition)
UX_JSON_ENCODING(UXHintPosition)
UX_JSON_ENCODING(UXArrangement)
UX_JSON_ENCODING(UXSymbolStyle)
UX_JSON_ENCODING(UXTextAlign)
#undef UX_JSON_ENCODING
