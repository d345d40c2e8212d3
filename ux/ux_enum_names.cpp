#include "ux/ux_enum_names.h"

namespace UXEnum {

UXEnumNames::UXEnumNames(const std::string& names)
{
    int number = 0;
    for (const std::string& name : splitString(names)) {
        m_names[number] = name;
        m_numbers[name] = number;
        ++number;
    }
}

UXEnumNames::UXEnumNames(const UXEnumNames&) = default;
UXEnumNames& UXEnumNames::operator=(const UXEnumNames&) = default;
UXEnumNames::~UXEnumNames() = default;

const std::string& UXEnumNames::obtainNameOfNumber(int number) { return m_names[number]; }

bool UXEnumNames::obtainNumber(const std::string& name, int& number) const
{
    const auto found = m_numbers.find(name);
    if (found == m_numbers.end())
        return false;
    number = found->second;
    return true;
}

} // namespace UXEnum
