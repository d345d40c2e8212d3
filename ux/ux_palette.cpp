#include "ux/ux_palette.h"

#include "ux/ux_color_contrast.h"
#include "ux/ux_color_vision.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace {

using enum UXColorVision;
constexpr std::array visions{Normal, Protanopia, Deuteranopia, Tritanopia};

/** A colour as each kind of eyes sees it. */
using SeenColor = std::array<UXLabColor, visions.size()>;

SeenColor obtainSeen(const UXColor& color)
{
    SeenColor seen;
    for (std::size_t i = 0; i < visions.size(); ++i)
        seen[i] = uxColorToLab(uxObtainSeenColor(color, visions[i]));
    return seen;
}

bool areDistinct(const SeenColor& a, const SeenColor& b)
{
    for (std::size_t i = 0; i < visions.size(); ++i)
        if (uxObtainColorDifference(a[i], b[i]) < uxDistinctDifference)
            return false;
    return true;
}

/** The colours that can be seen on a ground, out of a lattice through all. */
class VisibleColors {
public:
    explicit VisibleColors(const UXColor& ground)
    {
        constexpr int step = 15; // 255 is the seventeenth
        for (int red = 0; red <= 255; red += step)
            for (int green = 0; green <= 255; green += step)
                for (int blue = 0; blue <= 255; blue += step)
                    if (const UXColor color(red, green, blue);
                        uxObtainContrast(color, ground) >= uxVisibleContrast)
                        m_colors.push_back(color);
    }

    /** @return the one nearest to color that is distinct from all that are taken; color without one */
    UXColor findNearest(const UXColor& color, const std::vector<SeenColor>& taken) const
    {
        const UXLabColor wanted = uxColorToLab(color);
        std::vector<std::pair<double, std::size_t>> byDistance;
        byDistance.reserve(m_colors.size());
        for (std::size_t i = 0; i < m_colors.size(); ++i)
            byDistance.emplace_back(uxObtainColorDifference(uxColorToLab(m_colors[i]), wanted), i);
        std::ranges::sort(byDistance);
        for (const auto& [distance, index] : byDistance) {
            const SeenColor seen = obtainSeen(m_colors[index]);
            if (std::ranges::all_of(taken, [&](const SeenColor& other) { return areDistinct(seen, other); }))
                return m_colors[index];
        }
        return color;
    }

private:
    std::vector<UXColor> m_colors;
};

} // namespace

bool UXPaletteNumbers::areEnough() const
{
    return leastContrast >= uxVisibleContrast &&
           std::ranges::all_of(leastDifferences, [](double least) { return least >= uxDistinctDifference; });
}

UXPaletteNumbers uxMeasurePalette(const std::vector<UXColor>& colors, const UXColor& ground)
{
    constexpr double nothing = std::numeric_limits<double>::infinity();
    UXPaletteNumbers numbers{nothing, {nothing, nothing, nothing, nothing}};
    std::vector<SeenColor> seen;
    seen.reserve(colors.size());
    for (const UXColor& color : colors) {
        numbers.leastContrast = std::min(numbers.leastContrast, uxObtainContrast(color, ground));
        const SeenColor next = obtainSeen(uxLayColorOver(color, ground));
        for (const SeenColor& other : seen)
            for (std::size_t i = 0; i < visions.size(); ++i)
                numbers.leastDifferences[i] = std::min(numbers.leastDifferences[i],
                                                       uxObtainColorDifference(next[i], other[i]));
        seen.push_back(next);
    }
    return numbers;
}

std::vector<UXColor> uxMakeDistinctPalette(const std::vector<UXColor>& colors, const UXColor& ground)
{
    const VisibleColors visible(ground);
    std::vector<UXColor> made;
    std::vector<SeenColor> taken;
    made.reserve(colors.size());
    taken.reserve(colors.size());
    for (const UXColor& color : colors) {
        const UXColor own = uxLayColorOver(color, ground);
        const SeenColor seen = obtainSeen(own);
        const bool stays = uxObtainContrast(own, ground) >= uxVisibleContrast &&
                           std::ranges::all_of(
                               taken, [&](const SeenColor& other) { return areDistinct(seen, other); });
        made.push_back(stays ? own : visible.findNearest(own, taken));
        taken.push_back(obtainSeen(made.back()));
    }
    return made;
}
