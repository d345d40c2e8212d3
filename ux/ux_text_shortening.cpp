#include "ux/ux_text_shortening.h"

#include "ux/ux_utf8.h"

#include <cstddef>
#include <vector>

namespace {

constexpr std::string_view ellipsis = "\xE2\x80\xA6";

/** @return where each character of the line begins, and its end */
std::vector<std::size_t> obtainBoundaries(std::string_view line)
{
    std::vector<std::size_t> boundaries{0};
    for (std::size_t at = 0; at < line.size();) {
        (void)uxDecodeUtf8(line, at);
        boundaries.push_back(at);
    }
    return boundaries;
}

/** @return the line with count of its characters left */
std::string cut(std::string_view line, const std::vector<std::size_t>& boundaries, std::size_t count,
                UXTextOption option)
{
    const std::size_t inFront = option == UXTextOption::EllipsisEnd     ? count
                                : option == UXTextOption::EllipsisStart ? 0
                                                                        : (count + 1) / 2;
    const std::size_t last = boundaries.size() - 1;
    std::string shortened(line.substr(0, boundaries[inFront]));
    shortened.append(ellipsis).append(line.substr(boundaries[last - (count - inFront)]));
    return shortened;
}

} // namespace

std::string uxShortenText(std::string_view line, UXTextOption option, double limit,
                          const UXTextWidthFunction& widthOf)
{
    if (option == UXTextOption::Default || widthOf(line) <= limit)
        return std::string(line);

    const std::vector<std::size_t> boundaries = obtainBoundaries(line);
    std::size_t fitting = 0, tooMany = boundaries.size();
    while (fitting + 1 < tooMany) {
        const std::size_t middle = fitting + (tooMany - fitting) / 2;
        (widthOf(cut(line, boundaries, middle, option)) <= limit ? fitting : tooMany) = middle;
    }
    return cut(line, boundaries, fitting, option);
}
