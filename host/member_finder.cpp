#include "member_finder.h"

#include "kx_folded_text.h"
#include "sql_data_set.h"

#include <algorithm>

void MemberFinder::_fold(const std::vector<SqlMember>& members)
{
    if (m_ends.size() == members.size())
        return;
    m_ends.reserve(members.size());
    for (const SqlMember& member : members) {
        m_folded += kxFoldText(member.text);
        m_folded += '\0';
        m_ends.push_back(m_folded.size());
    }
}

void MemberFinder::find(const std::vector<SqlMember>& members, const std::string& text, std::uint64_t first,
                        std::span<std::uint64_t>& found)
{
    _fold(members);
    const std::string wanted = kxFoldText(text);
    if (wanted != m_wanted || first < m_next) {
        m_wanted = wanted;
        m_next = 0;
        m_at = 0;
    }
    std::size_t count = 0;
    // A text with a zero byte could be found across the border of two members.
    const bool isText = !wanted.empty() && wanted.find('\0') == std::string::npos;
    while (isText && count < found.size()) {
        const std::size_t at = m_folded.find(wanted, m_at);
        if (at == std::string::npos)
            break;
        const auto end = std::ranges::upper_bound(m_ends, at);
        m_at = *end;
        if (m_next++ >= first)
            found[count++] = static_cast<std::uint64_t>(end - m_ends.begin());
    }
    found = found.first(count);
}
