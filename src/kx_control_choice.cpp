#include "kx_control_choice.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

void sortOnce(std::vector<std::uint64_t>& members)
{
    std::ranges::sort(members);
    const auto rest = std::ranges::unique(members);
    members.erase(rest.begin(), rest.end());
}

} // namespace

KXControlChoice::KXControlChoice(std::vector<std::uint64_t> members, bool isExcluding)
    : m_members(std::move(members)), m_isExcluding(isExcluding)
{
    sortOnce(m_members);
}

bool KXControlChoice::_lists(std::uint64_t member) const
{
    return std::ranges::binary_search(m_members, member);
}

bool KXControlChoice::contains(std::uint64_t member) const { return _lists(member) != m_isExcluding; }

void KXControlChoice::setChosen(std::uint64_t member, bool chosen)
{
    const bool isListed = chosen != m_isExcluding;
    if (_lists(member) == isListed)
        return;
    const auto place = std::ranges::lower_bound(m_members, member);
    if (isListed)
        m_members.insert(place, member);
    else
        m_members.erase(place);
}

void KXControlChoice::setChosen(std::vector<std::uint64_t> members, bool chosen)
{
    sortOnce(members);
    std::vector<std::uint64_t> listed;
    if (chosen != m_isExcluding)
        std::ranges::set_union(m_members, members, std::back_inserter(listed));
    else
        std::ranges::set_difference(m_members, members, std::back_inserter(listed));
    m_members = std::move(listed);
}

std::uint64_t KXControlChoice::obtainCount(std::uint64_t memberCount) const
{
    const auto end = std::ranges::lower_bound(m_members, memberCount);
    const auto listed = static_cast<std::uint64_t>(end - m_members.begin());
    return m_isExcluding ? memberCount - listed : listed;
}

KXToggleSwitchState KXControlChoice::obtainState(std::uint64_t memberCount) const
{
    const std::uint64_t count = obtainCount(memberCount);
    if (count == memberCount && (memberCount > 0 || m_isExcluding))
        return KXToggleSwitchState::On;
    return count == 0 ? KXToggleSwitchState::Off : KXToggleSwitchState::Mixed;
}
