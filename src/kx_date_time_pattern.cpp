#include "kx_date_time_pattern.h"

#include "kx_date_time_text.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

using Fields = KXDateTimeFields;

// What is longer is not a label, and not worth keeping.
constexpr std::size_t longestPattern = 256, longestText = 1024;

constexpr int Fields::*fieldList[] = {&Fields::year,    &Fields::quarter,    &Fields::month, &Fields::week,
                                      &Fields::weekday, &Fields::day,        &Fields::hour,  &Fields::minute,
                                      &Fields::second,  &Fields::halfDayHour};

/** @return a bit for each field that the value has */
unsigned obtainPresentFields(const Fields& fields)
{
    unsigned present = 0, bit = 1;
    for (int Fields::*const field : fieldList) {
        present |= fields.*field != Fields::absent ? bit : 0;
        bit <<= 1;
    }
    return present;
}

bool isPresent(const KXDateTimeToken& token, unsigned presentFields)
{
    std::size_t i = 0;
    while (fieldList[i] != token.field)
        ++i;
    return (presentFields >> i & 1U) != 0;
}

/** Token after token, with the texts of one value. */
std::string replaceTokens(std::string_view pattern, const Fields& fields)
{
    KXDateTimeText text(pattern);
    std::string replacement;
    for (const KXDateTimeToken& token : kxObtainDateTimeTokens()) {
        if (fields.*token.field == Fields::absent)
            continue;
        const std::size_t place = text.find(token);
        if (place == KXDateTimeText::nowhere)
            continue;
        replacement.resize(kxObtainDateTimeTokenRoom(token, fields));
        char* const begin = replacement.data();
        replacement.resize(static_cast<std::size_t>(kxWriteDateTimeToken(begin, token, fields) - begin));
        text.replaceString(token.name, replacement, place, '\1');
    }
    return text.getText();
}

/** @return whether the token could begin in the literal bytes and run on into what replaced another: the W of
 * "WMMMM" and the D of December */
bool couldRunIntoReplacement(const KXDateTimeToken& token, const KXDateTimeText& text)
{
    const std::string_view bytes = text.getText();
    const std::string& marks = text.getMarks();
    for (std::size_t at = 1; at < bytes.size(); ++at) {
        if (marks[at] == KXDateTimeText::unwritten || marks[at - 1] != KXDateTimeText::unwritten)
            continue;
        const KXDateTimeToken& replaced = kxObtainDateTimeTokens()[static_cast<std::size_t>(marks[at]) - 1];
        for (std::size_t length = 1; length < token.name.size() && length <= at; ++length) {
            if (bytes.substr(at - length, length) == token.name.substr(0, length) &&
                replaced.initials.find(token.name[length]) != std::string_view::npos)
                return true;
        }
    }
    return false;
}

} // namespace

std::string KXDateTimePattern::obtainText(std::string_view pattern, const KXDateTimeFields& fields)
{
    // 1. A value that says nothing leaves the pattern, and what was compiled for the others.
    const unsigned presentFields = obtainPresentFields(fields);
    if (presentFields == 0)
        return std::string(pattern);

    // 2. Another pattern, or a value with other fields, is compiled once.
    if (pattern.size() > longestPattern)
        return replaceTokens(pattern, fields);
    if (pattern != m_pattern || presentFields != m_presentFields)
        _compile(pattern, presentFields);
    const std::size_t room = m_room + m_seconds * fields.secondDecimals.size();
    if (!m_hasPieces || room > longestText)
        return replaceTokens(pattern, fields);

    // 3. Piece after piece.
    std::array<char, longestText> text;
    char* to = text.data();
    for (const Piece& piece : m_pieces)
        to = piece.token ? kxWriteDateTimeToken(to, *piece.token, fields)
                         : std::copy(piece.begin, piece.end, to);
    return {text.data(), to};
}

void KXDateTimePattern::_compile(std::string_view pattern, unsigned presentFields)
{
    m_pattern = pattern;
    m_presentFields = presentFields;
    m_hasPieces = false;
    m_pieces.clear();

    // 1. Replace every token by one byte that no token has, whatever its text will be.
    KXDateTimeText text(pattern);
    const std::span<const KXDateTimeToken> tokens = kxObtainDateTimeTokens();
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (!isPresent(tokens[i], presentFields))
            continue;
        if (couldRunIntoReplacement(tokens[i], text))
            return;
        const std::size_t place = text.find(tokens[i]);
        if (place != KXDateTimeText::nowhere)
            text.replaceString(tokens[i].name, {"\0", 1}, place, static_cast<char>(i + 1));
    }

    // 2. Those bytes are the tokens, and what lies between them is literal.
    const std::string& marks = text.getMarks();
    const char* literal = m_pattern.data();
    for (std::size_t at = 0; at < marks.size();) {
        const std::size_t first = at;
        while (at < marks.size() && marks[at] == KXDateTimeText::unwritten)
            ++at;
        if (at > first)
            m_pieces.push_back({nullptr, literal, literal + (at - first)});
        literal += at - first;
        if (at < marks.size()) {
            m_pieces.push_back({&tokens[static_cast<std::size_t>(marks[at++]) - 1], nullptr, nullptr});
            literal += m_pieces.back().token->name.size();
        }
    }

    // 3. The room that they take at most, but for the decimals.
    m_room = pattern.size();
    m_seconds = 0;
    for (const Piece& piece : m_pieces) {
        if (!piece.token)
            continue;
        m_room += kxObtainDateTimeTokenRoom(*piece.token, {});
        m_seconds += piece.token->field == &Fields::second ? 1 : 0;
    }
    m_hasPieces = true;
}
