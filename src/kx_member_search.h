#pragma once

#include "kx_export.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

class KXControlChartDataProvider;
class KXPanelChartDataUser;

/**
 * The members of a control that the user looks for, in pages, as far as they are looked at: found by the host
 * where it searches, otherwise in the texts of all members, which are asked for once and kept folded.
 */
class KX_EXPORT KXMemberSearch {
public:
    /** So many are found at once. */
    static constexpr std::uint64_t pageSize = 256;

    /** @param user whose members of dimension 0 they are; its chart destroys this
     *  @param format makes the shown text of a host's; asks nobody */
    KXMemberSearch(KXPanelChartDataUser& user, std::function<std::string(const std::string&)> format);

    /** Finds the first page. An empty text ends the search. The host is asked, which may destroy this, as in
     * findMore.
     *  @param hostFinds whether the host searches */
    void begin(const std::string& text, bool hostFinds);
    /** Finds a further page, unless there is none or the host has it not yet. */
    void findMore();
    /** @param order the members, those of the whole dimension in their order where it is empty
     * @return the first one whose text begins so, none where there is none or the host has not all texts yet;
     * it is asked, as above */
    std::optional<std::uint64_t> findBeginning(const std::string& text, std::span<const std::uint64_t> order);
    /** What the host did not have has arrived. */
    void arrive();
    /** The members are others; what is looked for stays. */
    void forgetMembers();

    bool isActive() const { return !m_text.empty(); }
    const std::string& getText() const { return m_text; }
    const std::vector<std::uint64_t>& getFound() const { return m_found; }
    /** @return whether all that there are have been found */
    bool isComplete() const { return m_isComplete; }
    bool isWaiting() const { return m_isWaiting; }

private:
    bool _askHost(KXControlChartDataProvider& provider);
    bool _loadTexts(KXControlChartDataProvider& provider);
    void _scan();

    KXPanelChartDataUser& m_user;
    std::function<std::string(const std::string&)> m_format;
    std::string m_text;                 // as the user typed it
    std::vector<std::uint64_t> m_found; // in the members' order
    std::vector<std::string> m_texts;   // folded, of all members, once they were needed
    std::uint64_t m_next = 0;           // the member from which on the texts have not been looked through
    unsigned m_generation = 0;          // changes with each search
    bool m_hostFinds = false;
    bool m_isComplete = true;
    bool m_isWaiting = false;
};
