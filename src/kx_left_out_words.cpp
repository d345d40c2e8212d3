#include "kx_left_out_words.h"

#include "ux/ux_localize.h"

#include <cmath>
#include <cstddef>

void KXLeftOutCounts::add(double value, bool isMissed)
{
    negative += value < 0;
    zero += value == 0;
    missing += isMissed && std::isnan(value);
}

KXLeftOutWords KXLeftOutWords::load()
{
    KXLeftOutWords made;
    made.m_words = {"Not shown", "negative", "zero", "without a value", "pies without room"};
    for (std::string& word : made.m_words)
        word = uxLocalizeString(word);
    return made;
}

std::string KXLeftOutWords::tell(const KXLeftOutCounts& counts) const
{
    const std::array<std::uint64_t, 4> numbers{counts.negative, counts.zero, counts.missing, counts.pies};
    std::string told;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (numbers[i] > 0)
            told += (told.empty() ? "" : ", ") + std::to_string(numbers[i]) + " " + m_words[i + 1];
    return told.empty() ? told : m_words[0] + ": " + told;
}
