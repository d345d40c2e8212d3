#include "number_text.h"

#include <array>
#include <charconv>
#include <cmath>

namespace {

template <typename Number>
std::optional<Number> readWhole(std::string_view text)
{
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    Number number{};
    const char* begin = text.data();
    const char* end = begin + text.size();
    const auto [stop, error] = std::from_chars(begin, end, number);
    return error == std::errc() && stop == end ? std::optional(number) : std::nullopt;
}

} // namespace

std::optional<std::int64_t> obtainInteger(std::string_view text) { return readWhole<std::int64_t>(text); }

std::optional<double> obtainFloat(std::string_view text)
{
    const std::optional<double> number = readWhole<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::string obtainNumberText(double number)
{
    std::array<char, 32> digits{};
    char* const end = digits.data() + digits.size();
    const bool isPlain = std::trunc(number) == number && std::abs(number) < 1e17;
    const std::to_chars_result result = isPlain ? std::to_chars(digits.data(), end,
                                                                static_cast<std::int64_t>(number))
                                                : std::to_chars(digits.data(), end, number);
    return {digits.data(), result.ptr};
}
