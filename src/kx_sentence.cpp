#include "kx_sentence.h"

#include "ux/ux_localize.h"

#include <cstddef>

std::string kxWriteSentence(const std::string& pattern, const std::vector<std::string>& values)
{
    const std::string words = uxLocalizeString(pattern);
    std::string sentence;
    // In one pass, so that a percent sign of a value stays one.
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool isPlace = words[i] == '%' && i + 1 < words.size() && words[i + 1] >= '1' &&
                             words[i + 1] <= '9';
        const std::size_t value = isPlace ? static_cast<std::size_t>(words[i + 1] - '1') : values.size();
        if (value < values.size()) {
            sentence += values[value];
            ++i;
        } else {
            sentence += words[i];
        }
    }
    return sentence;
}
