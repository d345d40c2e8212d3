#pragma once

#include "ux/ux_export.h"

#include <string>
#include <vector>

namespace UXEnum {

/** What the maps of all enumerations have in common, so that they can be kept in one list of owners. */
class UX_EXPORT UXEnumBase {
public:
    UXEnumBase();
    UXEnumBase(const UXEnumBase&);
    UXEnumBase& operator=(const UXEnumBase&);
    virtual ~UXEnumBase();
};

/** Splits a list of names such as "Butt, Round, Square".
 *  @return the names in order, without the blanks that follow a comma; a comma at the end adds no name */
UX_EXPORT std::vector<std::string> splitString(const std::string& names);

} // namespace UXEnum
