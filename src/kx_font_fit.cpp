#include "kx_font_fit.h"

#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cstddef>

namespace {

/** A line of text is at least half as high as its font size, so larger sizes than this many heights never
 * fit. */
constexpr double sizesPerHeight = 2;

} // namespace

UXDoubleSize kxFitFont(std::span<const std::string> texts, const UXDoubleSize& room, UXTextProperty& property)
{
    int& fontSize = property.font.size;
    const auto measure = [&](const std::string& text, int size) {
        fontSize = size;
        return uxMeasureText(text, property);
    };
    const auto fits = [&room](const UXDoubleSize& size) {
        return room.width > size.width && room.height > size.height;
    };
    // The text that is the first to leave the room is among the widest and the highest in each size.
    std::size_t worst = 0;
    const auto measureAll = [&](int size) {
        UXDoubleSize extent;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const UXDoubleSize own = measure(texts[i], size);
            if (own.width > extent.width || (own.height >= room.height && own.height > extent.height))
                worst = i;
            extent.width = std::max(extent.width, own.width);
            extent.height = std::max(extent.height, own.height);
        }
        return extent;
    };

    const bool hasText = !std::ranges::all_of(texts, &std::string::empty);
    const int greatest = std::max(uxSaturateToInt(room.height * sizesPerHeight), kxLeastFontSize);
    UXDoubleSize extent = measureAll(hasText ? std::min(fontSize, greatest) : fontSize);
    while (fontSize > kxLeastFontSize && !fits(extent)) {
        // A text grows with its font, so halving finds the largest size that fits, the least if none does.
        int tooLarge = fontSize, found = kxLeastFontSize;
        while (tooLarge - found > 1) {
            const int middle = found + (tooLarge - found) / 2;
            (fits(measure(texts[worst], middle)) ? found : tooLarge) = middle;
        }
        extent = measureAll(found);
    }
    return extent;
}
