#include "ux/ux_read_double.h"

#if defined(__cpp_lib_to_chars)

std::from_chars_result uxReadDouble(const char* first, const char* last, double& value)
{
    return std::from_chars(first, last, value);
}

#else

#    include <cmath>
#    include <cstdlib>
#    include <string>

// A library whose from_chars reads no doubles yet. Its strtod rounds alike, in the one locale of a page, but
// takes more than digits and wants a zero behind them.

namespace {

const char* skipDigits(const char* at, const char* last)
{
    while (at != last && *at >= '0' && *at <= '9')
        ++at;
    return at;
}

/** @return the end of the number that begins at first; first where none does */
const char* findNumberEnd(const char* first, const char* last)
{
    // 1. A sign and digits, with a point anywhere between or beside them.
    const char* const digits = first != last && *first == '-' ? first + 1 : first;
    const char* at = skipDigits(digits, last);
    auto count = at - digits;
    if (at != last && *at == '.') {
        const char* const fraction = at + 1;
        at = skipDigits(fraction, last);
        count += at - fraction;
    }
    if (count == 0)
        return first;

    // 2. An exponent counts with its digits only.
    if (at == last || (*at != 'e' && *at != 'E'))
        return at;
    const char* power = at + 1;
    if (power != last && (*power == '-' || *power == '+'))
        ++power;
    const char* const end = skipDigits(power, last);
    return end == power ? at : end;
}

} // namespace

std::from_chars_result uxReadDouble(const char* first, const char* last, double& value)
{
    const char* const end = findNumberEnd(first, last);
    if (end == first)
        return {first, std::errc::invalid_argument};
    const std::string digits(first, end);
    const double read = std::strtod(digits.c_str(), nullptr);
    const bool hasDigit = digits.find_first_of("123456789") < digits.find_first_of("eE");
    if (std::isinf(read) || (read == 0 && hasDigit))
        return {end, std::errc::result_out_of_range};
    value = read;
    return {end, std::errc{}};
}

#endif
