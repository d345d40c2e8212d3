#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

struct SqlMember;

/** Finds members by a part of their texts, whatever their case and accents. It makes a folded copy of the
 * texts, one behind the other, as far as questions have come, which takes their size and eight bytes for each
 * member; a question runs through that copy once. */
class MemberFinder {
public:
    /** Sets found to the indexes of members whose texts hold text, in their order, and shortens it where
     * there are fewer.
     *  @param members the same at every question
     *  @param first how many of them are left out before */
    void find(const std::vector<SqlMember>& members, const std::string& text, std::uint64_t first,
              std::span<std::uint64_t>& found);

private:
    bool _foldMore(const std::vector<SqlMember>& members);

    std::string m_folded;              // the texts, each with a zero byte behind it
    std::vector<std::uint64_t> m_ends; // of the texts, behind their zero bytes

    // Where the last question ended, from where one for the next page goes on
    std::string m_wanted;
    std::uint64_t m_next = 0;
    std::size_t m_at = 0;
};
