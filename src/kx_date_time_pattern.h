#pragma once

#include "kx_date_time_fields.h"
#include "kx_date_time_token.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/** Writes the fields of dates and times as a pattern says. It remembers how the last pattern falls into
 * literal pieces and tokens, so that the labels of an axis are not searched for tokens one by one. */
class KXDateTimePattern {
public:
    KXDateTimePattern() = default;
    KXDateTimePattern(const KXDateTimePattern&) = delete;
    KXDateTimePattern& operator=(const KXDateTimePattern&) = delete;

    /** @param pattern text with tokens, replaced one kind after the other; what was put in for a token is
     * not searched for others
     *  @return the pattern with every token replaced whose field is present. A token that would make the
     * text longer than 16 MiB stays. */
    [[nodiscard]] std::string obtainText(std::string_view pattern, const KXDateTimeFields& fields);

private:
    struct Piece {
        const KXDateTimeToken* token; // null for a literal
        const char *begin, *end;      // of a literal, in m_pattern
    };

    void _compile(std::string_view pattern, unsigned presentFields);

    std::string m_pattern;
    unsigned m_presentFields = 0;
    bool m_hasPieces = false; // else what the tokens stand for decides which tokens there are
    std::vector<Piece> m_pieces;
    std::size_t m_room = 0;    // bytes that the text takes at most, without decimals of the second
    std::size_t m_seconds = 0; // how many pieces have those
};
