#pragma once

#include <optional>
#include <string>
#include <string_view>

/** @return text as YYYY-MM-DD when it is a day of the calendar, years 1 to 9999, with '-' or '/' between
 * year, month and day, one or two digits each for the latter two; else nothing */
std::optional<std::string> obtainDateText(std::string_view text);

/** @return text as HH:MM:SS, with the digits of a fraction behind a '.' kept, when it is a time of day;
 * seconds may be missing; else nothing */
std::optional<std::string> obtainTimeText(std::string_view text);

/** @return text as YYYY-MM-DD HH:MM:SS, a fraction kept, when it is a day and a time of day with a 'T' or
 * blanks between them and perhaps a 'Z' behind; a day alone gets midnight; else nothing */
std::optional<std::string> obtainDateTimeText(std::string_view text);
