#pragma once

#include <compare>
#include <string>
#include <typeindex>
#include <typeinfo>
#include <variant>

/** A name with its type: an enumeration's value or a text. Keys of different types differ, whatever they
 *  hold. The order is by type (the order of the types' mangled names), then numbers before texts, then the
 *  value; texts compare byte-wise. */
struct KXObjectIDKey {
    std::type_index type = typeid(std::string);
    std::variant<int, std::string> value = std::string();

    friend std::strong_ordering operator<=>(const KXObjectIDKey&, const KXObjectIDKey&) = default;
};
