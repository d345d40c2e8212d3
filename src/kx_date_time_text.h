#pragma once

#include "kx_date_time_token.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

/** A pattern while its tokens are being replaced, one kind after the other. It knows of every byte whether a
 * replacement wrote it, and which: what was put in for a token is not searched for others. */
class KXDateTimeText {
public:
    static constexpr std::size_t nowhere = std::string::npos;
    static constexpr char unwritten = '\0';

    explicit KXDateTimeText(std::string_view pattern);

    /** @return where the token stands first, with a first byte that is not written; the bytes behind may be
     */
    std::size_t find(const KXDateTimeToken& token);
    /** Replaces the token at the place, which find answered, and wherever else it stands behind. A
     * replacement that would make the text longer than 16 MiB is left out.
     *  @param mark what is known of the bytes of text from now on, not unwritten */
    void replaceString(std::string_view token, std::string_view text, std::size_t place, char mark);

    const std::string& getText() const { return m_text; }
    /** @return as long as the text: the mark of the replacement that wrote a byte, or unwritten */
    const std::string& getMarks() const { return m_marks; }

private:
    std::size_t _findFrom(std::string_view token, std::size_t start) const;
    void _overwrite(std::string_view token, std::string_view text, std::size_t place, char mark);
    void _rebuild(std::string_view token, std::string_view text, std::size_t place, char mark);
    std::size_t& _counter(char c);
    void _count(std::string_view text, int change);
    void _countReplacement(std::string_view token, std::string_view text);

    std::string m_text;
    std::string m_marks;
    std::string m_rebuiltText, m_rebuiltMarks; // kept for their memory
    std::array<std::size_t, 64> m_counts{};    // of the bytes in the text
};
