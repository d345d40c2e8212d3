#include "kx_value_pyramid.h"

#include <array>
#include <limits>
#include <utility>

namespace {

/** So many values are one block, and so many blocks one of the next level. */
constexpr std::size_t valuesInBlock = 32, blocksInBlock = 4;
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

} // namespace

/** Several at a time and without branches, whose outcome nobody could foretell. */
KXValuePyramid::Block KXValuePyramid::_makeBlock(std::span<const double> values)
{
    constexpr std::size_t lanes = 8;
    std::array<double, lanes> mins, maxes, nulls{};
    mins.fill(infinity);
    maxes.fill(-infinity);
    for (std::size_t first = 0; first < valuesInBlock; first += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            const double value = values[first + lane];
            mins[lane] = value < mins[lane] ? value : mins[lane];
            maxes[lane] = value > maxes[lane] ? value : maxes[lane];
            nulls[lane] += value == value ? 0.0 : 1.0;
        }
    Block block{infinity, -infinity};
    double nullCount = 0;
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        block.min = mins[lane] < block.min ? mins[lane] : block.min;
        block.max = maxes[lane] > block.max ? maxes[lane] : block.max;
        nullCount += nulls[lane];
    }
    return nullCount > 0 && nullCount < valuesInBlock ? Block{noNumber, noNumber} : block;
}

KXValuePyramid::Block KXValuePyramid::_join(std::span<const Block> blocks)
{
    Block joined = blocks.front();
    for (const Block& block : blocks.subspan(1)) {
        if (block.isMixed() || block.hasValues() != joined.hasValues())
            return {noNumber, noNumber};
        joined.min = block.min < joined.min ? block.min : joined.min;
        joined.max = block.max > joined.max ? block.max : joined.max;
    }
    return joined;
}

KXValuePyramid::KXValuePyramid(std::span<const double> values)
{
    std::vector<Block> blocks;
    blocks.reserve(values.size() / valuesInBlock);
    for (std::size_t end = valuesInBlock; end <= values.size(); end += valuesInBlock)
        blocks.push_back(_makeBlock(values.subspan(end - valuesInBlock, valuesInBlock)));
    while (!blocks.empty()) {
        std::vector<Block> next;
        next.reserve(blocks.size() / blocksInBlock);
        for (std::size_t end = blocksInBlock; end <= blocks.size(); end += blocksInBlock)
            next.push_back(_join(std::span(blocks).subspan(end - blocksInBlock, blocksInBlock)));
        m_levels.push_back(std::move(blocks));
        blocks = std::move(next);
    }
}

void KXValuePyramid::Run::take(std::size_t newEnd, const Block& block, const Part& part)
{
    end = newEnd;
    if (block.min < extremes.min) {
        extremes.min = block.min;
        least = part;
    }
    if (block.max > extremes.max) {
        extremes.max = block.max;
        greatest = part;
    }
}

/** @return the index of the first value of a part that is its extreme */
std::size_t KXValuePyramid::_find(std::span<const double> values, Part part, double Block::*extreme,
                                  double value) const
{
    for (; part.level > 1; --part.level) {
        const std::vector<Block>& blocks = m_levels[part.level - 2];
        part.index *= blocksInBlock;
        while (blocks[part.index].*extreme != value)
            ++part.index;
    }
    if (part.level == 0)
        return part.index;
    std::size_t at = part.index * valuesInBlock;
    while (values[at] != value)
        ++at;
    return at;
}

/** Each step takes the largest block that begins here, fits and has values only, or none; else one value. */
void KXValuePyramid::findIntervals(std::span<const double> values, std::size_t first, std::size_t end,
                                   std::vector<KXValueInterval>& found) const
{
    Run run;
    const auto endRun = [&] {
        if (run.end > run.first)
            found.push_back({run.first, run.end, _find(values, run.least, &Block::min, run.extremes.min),
                             _find(values, run.greatest, &Block::max, run.extremes.max)});
        run = {};
    };
    for (std::size_t at = first; at < end;) {
        Block block{values[at], values[at]};
        Part part{0, at};
        std::size_t extent = 1, length = valuesInBlock;
        for (const std::vector<Block>& level : m_levels) {
            if (at % length != 0 || at + length > end || level[at / length].isMixed())
                break;
            part = {part.level + 1, at / length};
            block = level[part.index];
            extent = length;
            length *= blocksInBlock;
        }
        if (!block.hasValues())
            endRun();
        else if (run.end == run.first)
            run = {at, at + extent, block, part, part};
        else
            run.take(at + extent, block, part);
        at += extent;
    }
    endRun();
}

std::size_t KXValuePyramid::obtainMemory() const
{
    std::size_t bytes = 0;
    for (const std::vector<Block>& level : m_levels)
        bytes += level.capacity() * sizeof(Block);
    return bytes;
}
