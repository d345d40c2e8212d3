#pragma once

#include "ux/ux_enum_base.h"

#include <map>
#include <string>

namespace UXEnum {

/** Names for numbers: the i-th name of the list stands for i. */
class UX_EXPORT UXEnumNames : public UXEnumBase {
public:
    /** @param names such as "Butt, Round, Square"; of a repeated name the later number is kept */
    explicit UXEnumNames(const std::string& names);
    UXEnumNames(const UXEnumNames&);
    UXEnumNames& operator=(const UXEnumNames&);
    ~UXEnumNames() override;

    /** @return the name of number; a number outside the list gets the empty name and keeps it */
    const std::string& obtainNameOfNumber(int number);
    /** @return false, and number as it was, when no name is exactly the given one, case included */
    bool obtainNumber(const std::string& name, int& number) const;

private:
    std::map<int, std::string> m_names;
    std::map<std::string, int> m_numbers;
};

} // namespace UXEnum
