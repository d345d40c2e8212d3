#pragma once

#include <compare>
#include <cstdint>

/** Rows or columns that stand side by side. */
struct KXGridRange {
    std::uint64_t first = 0;
    std::uint64_t end = 0; /**< the one after the last */

    bool isEmpty() const { return end <= first; }
    std::uint64_t obtainCount() const { return isEmpty() ? 0 : end - first; }
    bool contains(std::uint64_t line) const { return line >= first && line < end; }

    friend auto operator<=>(const KXGridRange&, const KXGridRange&) = default;
};

/** @return what lies in both; where that is nothing, an empty one */
[[nodiscard]] constexpr KXGridRange kxIntersectRanges(const KXGridRange& a, const KXGridRange& b)
{
    return {a.first > b.first ? a.first : b.first, a.end < b.end ? a.end : b.end};
}
