#include "kx_listed_groups.h"

#include <algorithm>
#include <utility>

KXListedGroups::KXListedGroups(std::vector<std::uint64_t> kept, std::vector<std::uint64_t> gathered,
                               std::uint64_t memberCount)
    : m_all(std::move(kept)), m_gathered(std::move(gathered)),
      m_isListed(static_cast<std::size_t>(memberCount) + !m_gathered.empty())
{
    if (!m_gathered.empty())
        m_all.push_back(memberCount);
    for (const std::uint64_t group : m_all)
        m_isListed[static_cast<std::size_t>(group)] = true;
}

bool KXListedGroups::contains(std::uint64_t group) const
{
    return group < m_isListed.size() && m_isListed[static_cast<std::size_t>(group)];
}

bool KXListedGroups::holds(std::uint64_t group, std::uint64_t member) const
{
    return isOthers(group) ? std::ranges::count(m_gathered, member) > 0 : group == member;
}
