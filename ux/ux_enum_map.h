#pragma once

#include "ux/ux_enum_base.h"

#include <map>
#include <string>
#include <vector>

namespace UXEnum {

/** Names for the values of E: the i-th name of the list stands for the value i. */
template <class E>
class UXEnumMap : public UXEnumBase {
public:
    /** @param names such as "Butt, Round, Square"; of a repeated name the later value is kept */
    explicit UXEnumMap(const std::string& names)
    {
        int value = 0;
        for (const std::string& name : splitString(names)) {
            m_names[static_cast<E>(value)] = name;
            m_values[name] = static_cast<E>(value);
            ++value;
        }
    }
    ~UXEnumMap() override = default;

    /** @return the name of value; a value outside the list gets the empty name and keeps it */
    const std::string& obtainName(E value) { return m_names[value]; }

    /** @return false, and value as it was, when no name is exactly the given one, case included */
    bool obtainValue(const std::string& name, E& value) const
    {
        const auto found = m_values.find(name);
        if (found == m_values.end())
            return false;
        value = found->second;
        return true;
    }

private:
    std::map<E, std::string> m_names;
    std::map<std::string, E> m_values;
};

} // namespace UXEnum
