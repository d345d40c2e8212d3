#include "kx_value_pyramid.h"

#include <algorithm>
#include <cmath>

namespace {

/** So many values are one block, and so many blocks one of the next level. */
constexpr std::size_t valuesInBlock = 16, blocksInBlock = 4;

/** Adds values that follow what was found, which begins at base, to the interval before or as a new one. */
void take(std::span<const double> values, const KXValueInterval& next, std::size_t base,
          std::vector<KXValueInterval>& found)
{
    if (found.size() == base || found.back().end != next.first) {
        found.push_back(next);
        return;
    }
    KXValueInterval& last = found.back();
    last.end = next.end;
    if (values[next.least] < values[last.least])
        last.least = next.least;
    if (values[next.greatest] > values[last.greatest])
        last.greatest = next.greatest;
}

} // namespace

KXValuePyramid::Block KXValuePyramid::_join(std::span<const double> values, const Block& a, const Block& b)
{
    Block joined = a.least == Block::none ? b : a;
    if (a.least != Block::none && b.least != Block::none) {
        if (values[b.least] < values[a.least])
            joined.least = b.least;
        if (values[b.greatest] > values[a.greatest])
            joined.greatest = b.greatest;
    }
    joined.hasNull = a.hasNull | b.hasNull;
    return joined;
}

/** Without branches, whose outcome nobody could foretell: each value is compared once with either extreme. */
KXValuePyramid::Block KXValuePyramid::_makeBlock(std::span<const double> values, std::size_t first)
{
    const auto base = static_cast<std::uint32_t>(first);
    double least = values[first], greatest = least;
    std::uint32_t leastAt = 0, greatestAt = 0;
    bool hasNull = std::isnan(least);
    for (std::uint32_t i = 1; i < valuesInBlock; ++i) {
        const double value = values[first + i];
        const bool isLess = value<least, isGreater = value> greatest;
        least = isLess ? value : least;
        leastAt = isLess ? i : leastAt;
        greatest = isGreater ? value : greatest;
        greatestAt = isGreater ? i : greatestAt;
        hasNull |= std::isnan(value);
    }
    if (hasNull)
        return _makeBlockWithNulls(values, first);
    Block block;
    block.least = base + leastAt;
    block.greatest = (base + greatestAt) & Block::greatestIndex;
    return block;
}

KXValuePyramid::Block KXValuePyramid::_makeBlockWithNulls(std::span<const double> values, std::size_t first)
{
    Block block;
    block.hasNull = 1;
    for (std::size_t at = first; at < first + valuesInBlock; ++at) {
        const auto index = static_cast<std::uint32_t>(at);
        if (std::isnan(values[at]))
            continue;
        if (block.least == Block::none)
            block.least = block.greatest = index & Block::greatestIndex;
        else if (values[at] < values[block.least])
            block.least = index;
        else if (values[at] > values[block.greatest])
            block.greatest = index & Block::greatestIndex;
    }
    return block;
}

KXValuePyramid::KXValuePyramid(std::span<const double> values)
{
    std::vector<Block> blocks(values.size() / valuesInBlock);
    for (std::size_t i = 0; i < blocks.size(); ++i)
        blocks[i] = _makeBlock(values, i * valuesInBlock);
    while (!blocks.empty()) {
        std::vector<Block> next(blocks.size() / blocksInBlock);
        for (std::size_t i = 0; i < next.size(); ++i) {
            next[i] = blocks[i * blocksInBlock];
            for (std::size_t part = 1; part < blocksInBlock; ++part)
                next[i] = _join(values, next[i], blocks[i * blocksInBlock + part]);
        }
        m_levels.push_back(std::move(blocks));
        blocks = std::move(next);
    }
}

/** Each step takes the largest block that begins here, fits and has values only, or none; else one value. */
void KXValuePyramid::findIntervals(std::span<const double> values, std::size_t first, std::size_t end,
                                   std::vector<KXValueInterval>& found) const
{
    const std::size_t base = found.size();
    for (std::size_t at = first; at < end;) {
        const Block* largest = nullptr;
        std::size_t extent = 1, length = valuesInBlock;
        for (const std::vector<Block>& level : m_levels) {
            if (at % length != 0 || at + length > end || level[at / length].isMixed())
                break;
            largest = &level[at / length];
            extent = length;
            length *= blocksInBlock;
        }
        if (largest && largest->least != Block::none)
            take(values, {at, at + extent, largest->least, largest->greatest}, base, found);
        else if (!largest && !std::isnan(values[at]))
            take(values, {at, at + 1, at, at}, base, found);
        at += extent;
    }
}

std::size_t KXValuePyramid::obtainMemory() const
{
    std::size_t bytes = 0;
    for (const std::vector<Block>& level : m_levels)
        bytes += level.capacity() * sizeof(Block);
    return bytes;
}
