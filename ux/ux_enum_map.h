#pragma once

#include "ux/ux_enum_names.h"

#include <string>
#include <type_traits>

namespace UXEnum {

/** Names for the values of E: the i-th name of the list stands for the value i. */
template <class E>
class UXEnumMap : public UXEnumNames {
    static_assert(std::is_same_v<std::underlying_type_t<E>, int>);

public:
    using UXEnumNames::UXEnumNames;

    /** @return the name of value; a value outside the list gets the empty name and keeps it */
    const std::string& obtainName(E value) { return obtainNameOfNumber(static_cast<int>(value)); }

    /** @return false, and value as it was, when no name is exactly the given one, case included */
    bool obtainValue(const std::string& name, E& value) const
    {
        int number = 0;
        if (!obtainNumber(name, number))
            return false;
        value = static_cast<E>(number);
        return true;
    }
};

} // namespace UXEnum
