#include "picture_option.h"

#include "host_error.h"

#include <charconv>
#include <cstdint>

namespace {

constexpr int greatestSide = 32767;
constexpr int greatestMargin = 1000;
constexpr double leastScale = 0.1, greatestScale = 16;

/** @return whether all of text from begin to end is one number of the base, stored in number */
template <class T>
bool readWhole(const std::string& text, std::size_t begin, std::size_t end, T& number, int base = 10)
{
    const char* const last = text.data() + end;
    const auto read = std::from_chars(text.data() + begin, last, number, base);
    return begin < end && read.ec == std::errc() && read.ptr == last;
}

} // namespace

UXSize readSizeOption(const std::string& text)
{
    const std::size_t cross = text.find('x');
    UXSize size;
    const bool isSize = cross != std::string::npos && readWhole(text, 0, cross, size.width) &&
                        readWhole(text, cross + 1, text.size(), size.height);
    if (!isSize || size.width < 1 || size.height < 1 || size.width > greatestSide ||
        size.height > greatestSide)
        throw HostError("--size", text, "is no size such as 1000x600");
    return size;
}

int readMarginOption(int margin)
{
    if (margin < 0 || margin > greatestMargin)
        throw HostError("--margin", "", "has to be between 0 and 1000");
    return margin;
}

double readScaleOption(double scale)
{
    if (!(scale >= leastScale && scale <= greatestScale))
        throw HostError("--scale", "", "has to be between 0.1 and 16");
    return scale;
}

UXColor readColorOption(const std::string& text)
{
    if (text == "none")
        return {0, 0, 0, 0};
    std::uint32_t bits = 0;
    const bool hasAlpha = text.size() == 9;
    if ((text.size() != 7 && !hasAlpha) || text[0] != '#' || !readWhole(text, 1, text.size(), bits, 16))
        throw HostError("--ground", text, "is no colour such as #ffffff");
    if (!hasAlpha)
        bits = bits << 8 | 0xff;
    const auto part = [bits](int shift) { return static_cast<int>(bits >> shift & 0xff); };
    return {part(24), part(16), part(8), part(0) / 255.0};
}
