#pragma once

#include "kx_export.h"

#include <array>
#include <cstdint>
#include <string>

/** How many values a panel has no shape for. */
struct KX_EXPORT KXLeftOutCounts {
    std::uint64_t negative = 0, zero = 0, missing = 0;
    std::uint64_t pies = 0; /**< whole pies without room */

    /** Counts a value that is not above zero. @param isMissed whether a null says anything */
    void add(double value, bool isMissed);
};

/** Tells of values that a panel has no shape for, in the host's language. */
class KX_EXPORT KXLeftOutWords {
public:
    /** Says nothing. */
    KXLeftOutWords() = default;
    /** @return those of the host's language; asking for them may destroy any chart */
    static KXLeftOutWords load();

    /** @return "Not shown: 2 negative, 1 zero"; empty where there is nothing to tell */
    std::string tell(const KXLeftOutCounts& counts) const;

private:
    std::array<std::string, 5> m_words;
};
