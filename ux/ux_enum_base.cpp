#include "ux/ux_enum_base.h"

#include <algorithm>

namespace UXEnum {

UXEnumBase::UXEnumBase() = default;
UXEnumBase::UXEnumBase(const UXEnumBase&) = default;
UXEnumBase& UXEnumBase::operator=(const UXEnumBase&) = default;
UXEnumBase::~UXEnumBase() = default;

std::vector<std::string> splitString(const std::string& names)
{
    std::vector<std::string> result;
    std::size_t begin = 0;
    while (begin < names.size()) {
        const std::size_t end = std::min(names.find(',', begin), names.size());
        result.push_back(names.substr(begin, end - begin));
        begin = std::min(names.find_first_not_of(' ', std::min(end + 1, names.size())), names.size());
    }
    return result;
}

} // namespace UXEnum
