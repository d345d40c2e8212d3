#pragma once

#include "kx_control_chart_options.h"
#include "kx_export.h"

#include <cstdint>
#include <vector>

/** Which members are chosen: some, or all but some, so that members to come are in. At first all are. */
class KX_EXPORT KXControlChoice {
public:
    KXControlChoice() = default;
    /** @param members in any order */
    KXControlChoice(std::vector<std::uint64_t> members, bool isExcluding);

    /** @return ascending; chosen, or where the choice excludes the others */
    const std::vector<std::uint64_t>& getMembers() const { return m_members; }
    bool isExcluding() const { return m_isExcluding; }
    /** @return whether nothing is filtered */
    bool isAll() const { return m_isExcluding && m_members.empty(); }
    bool contains(std::uint64_t member) const;
    void setChosen(std::uint64_t member, bool chosen);
    /** @param members in any order */
    void setChosen(std::vector<std::uint64_t> members, bool chosen);
    /** @return how many of memberCount members are chosen */
    std::uint64_t obtainCount(std::uint64_t memberCount) const;
    /** @return whether all of memberCount members are chosen, none, or some */
    KXToggleSwitchState obtainState(std::uint64_t memberCount) const;

    friend bool operator==(const KXControlChoice&, const KXControlChoice&) = default;

private:
    bool _lists(std::uint64_t member) const;

    std::vector<std::uint64_t> m_members;
    bool m_isExcluding = true;
};
