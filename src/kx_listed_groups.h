#pragma once

#include "kx_export.h"

#include <cstdint>
#include <optional>
#include <vector>

/** Which members of a dimension a panel shows as groups, in the order in which it lists them, and which small
 * ones it gathers in a group of its own, "Others", that stands last. A group is the index of its member;
 * Others has the one behind the last member's. */
class KX_EXPORT KXListedGroups {
public:
    /** No groups. */
    KXListedGroups() = default;
    /** @param kept the members that stand for themselves, in their order
     *  @param gathered none, or those in Others
     *  @param memberCount of the dimension */
    KXListedGroups(std::vector<std::uint64_t> kept, std::vector<std::uint64_t> gathered,
                   std::uint64_t memberCount);

    /** @return the groups, Others included */
    const std::vector<std::uint64_t>& getAll() const { return m_all; }
    /** @return the members in Others */
    const std::vector<std::uint64_t>& getGathered() const { return m_gathered; }
    /** @return how many groups there could be: each index is below this */
    std::uint64_t getBound() const { return m_isListed.size(); }
    bool contains(std::uint64_t group) const;
    bool isOthers(std::uint64_t group) const { return !m_gathered.empty() && group + 1 == getBound(); }
    /** @return whether the group shows the member */
    bool holds(std::uint64_t group, std::uint64_t member) const;

private:
    std::vector<std::uint64_t> m_all;
    std::vector<std::uint64_t> m_gathered;
    std::vector<bool> m_isListed; // by group
};
