#include "member_finder.h"

#include "kx_folded_text.h"
#include "sql_data_set.h"

#include <algorithm>

namespace {

/** Further texts are copied when those before do not hold enough of what is looked for. */
constexpr std::size_t membersAtOnce = 1 << 14;

} // namespace

/** @return false where all texts have been copied */
bool MemberFinder::_foldMore(const std::vector<SqlMember>& members)
{
    const std::size_t end = std::min(m_ends.size() + membersAtOnce, members.size());
    if (m_ends.size() == end)
        return false;
    m_ends.reserve(members.size());
    if (!m_ends.empty()) // further texts may be as long as these
        m_folded.reserve(m_folded.size() / m_ends.size() * (members.size() + membersAtOnce));
    for (std::size_t i = m_ends.size(); i < end; ++i) {
        kxAppendFoldedText(m_folded, members[i].text);
        m_folded += '\0';
        m_ends.push_back(m_folded.size());
    }
    return true;
}

void MemberFinder::find(const std::vector<SqlMember>& members, const std::string& text, std::uint64_t first,
                        std::span<std::uint64_t>& found)
{
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
        if (at == std::string::npos) {
            m_at = m_folded.size();
            if (!_foldMore(members))
                break;
            continue;
        }
        const auto end = std::ranges::upper_bound(m_ends, at);
        m_at = *end;
        if (m_next++ >= first)
            found[count++] = static_cast<std::uint64_t>(end - m_ends.begin());
    }
    found = found.first(count);
}
