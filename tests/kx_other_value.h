#pragma once

#include "kx_assistant_line_property.h"
#include "kx_enum_map.h"
#include "ux/ux_color.h"
#include "ux/ux_font.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"
#include "ux/ux_size.h"
#include "ux/ux_text_property.h"

#include <concepts>
#include <string>
#include <type_traits>
#include <vector>

// kxMakeOtherValue answers a valid value that differs from the given one, for every type that a key can have.

template <class T>
requires std::integral<T> || std::floating_point<T> T kxMakeOtherValue(T value)
{
    return static_cast<T>(value + 1);
}

inline bool kxMakeOtherValue(bool value) { return !value; }

inline std::string kxMakeOtherValue(const std::string& value) { return value + " \"é\""; }

template <class E>
requires std::is_enum_v<E> E kxMakeOtherValue(E value) { return value == E() ? static_cast<E>(1) : E(); }

inline UXPoint kxMakeOtherValue(UXPoint value) { return {value.x + 1, value.y - 1}; }

inline UXSize kxMakeOtherValue(UXSize value) { return {value.width + 1, value.height + 2}; }

inline UXRect kxMakeOtherValue(UXRect value)
{
    return {value.x - 1, value.y + 1, value.width + 2, value.height};
}

inline UXColor kxMakeOtherValue(UXColor value)
{
    value.red = 255 - value.red;
    value.alpha = 0.1 + value.alpha / 3;
    return value;
}

inline UXFont kxMakeOtherValue(UXFont value)
{
    value.size += 1;
    return value;
}

inline UXTextProperty kxMakeOtherValue(UXTextProperty value)
{
    value.font = kxMakeOtherValue(value.font);
    value.textColor = kxMakeOtherValue(value.textColor);
    return value;
}

inline UXHintInfo kxMakeOtherValue(UXHintInfo value)
{
    value.distance += 1;
    return value;
}

inline KXAssistantLineProperty kxMakeOtherValue(KXAssistantLineProperty value)
{
    value.setValue(value.getValue() + 1);
    return value;
}

template <class T>
std::vector<T> kxMakeOtherValue(std::vector<T> values)
{
    values.push_back(kxMakeOtherValue(T()));
    return values;
}
