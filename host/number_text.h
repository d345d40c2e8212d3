#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/** @return the whole of text as a decimal whole number, a '+' allowed; nothing when it is none or beyond 64
 * bits */
std::optional<std::int64_t> obtainInteger(std::string_view text);

/** @return the whole of text as a finite decimal number, an exponent allowed, whatever the locale; else
 * nothing */
std::optional<double> obtainFloat(std::string_view text);

/** @return the shortest text that reads back as number, without an exponent for whole numbers below 1e17 */
std::string obtainNumberText(double number);
