#include "kx_date_time_text.h"

#include <algorithm>

namespace {

constexpr std::size_t maximumSize = std::size_t{16} << 20;

} // namespace

KXDateTimeText::KXDateTimeText(std::string_view pattern) : m_text(pattern), m_marks(pattern.size(), unwritten)
{
    _count(m_text, 1);
}

std::size_t KXDateTimeText::find(const KXDateTimeToken& token)
{
    // Most tokens are not there, and this tells of most of these.
    if (_counter(token.name.front()) < token.firstLetters)
        return nowhere;
    return _findFrom(token.name, 0);
}

void KXDateTimeText::replaceString(std::string_view token, std::string_view text, std::size_t place,
                                   char mark)
{
    if (token.size() == text.size())
        _overwrite(token, text, place, mark);
    else
        _rebuild(token, text, place, mark);
}

std::size_t KXDateTimeText::_findFrom(std::string_view token, std::size_t start) const
{
    std::size_t place = m_text.find(token.front(), start);
    while (place != nowhere &&
           (m_marks[place] != unwritten || std::string_view(m_text).substr(place, token.size()) != token))
        place = m_text.find(token.front(), place + 1);
    return place;
}

void KXDateTimeText::_overwrite(std::string_view token, std::string_view text, std::size_t place, char mark)
{
    for (; place != nowhere; place = _findFrom(token, place + token.size())) {
        text.copy(&m_text[place], text.size());
        std::fill_n(&m_marks[place], text.size(), mark);
        _countReplacement(token, text);
    }
}

// One pass for all the places, so that the work grows with the text and not with its square.
void KXDateTimeText::_rebuild(std::string_view token, std::string_view text, std::size_t place, char mark)
{
    m_rebuiltText.clear();
    m_rebuiltMarks.clear();
    std::size_t copied = 0;
    std::size_t size = m_text.size();
    for (; place != nowhere; place = _findFrom(token, place + token.size())) {
        size = size - token.size() + text.size();
        if (text.size() > token.size() && size > maximumSize)
            break;
        m_rebuiltText.append(m_text, copied, place - copied).append(text);
        m_rebuiltMarks.append(m_marks, copied, place - copied).append(text.size(), mark);
        _countReplacement(token, text);
        copied = place + token.size();
    }
    m_rebuiltText.append(m_text, copied);
    m_rebuiltMarks.append(m_marks, copied);
    m_text.swap(m_rebuiltText);
    m_marks.swap(m_rebuiltMarks);
}

// Bytes that share a counter make it too high at most; letters do not share theirs.
std::size_t& KXDateTimeText::_counter(char c)
{
    return m_counts[static_cast<unsigned char>(c) % m_counts.size()];
}

void KXDateTimeText::_count(std::string_view text, int change)
{
    for (const char c : text)
        _counter(c) += static_cast<std::size_t>(change);
}

void KXDateTimeText::_countReplacement(std::string_view token, std::string_view text)
{
    _count(token, -1);
    _count(text, 1);
}
