#include "kx_member_search.h"

#include "kx_chart_data_provider_use.h"
#include "kx_control_chart_data_provider.h"
#include "kx_data_requests.h"
#include "kx_folded_text.h"
#include "kx_panel_chart_data_user.h"

#include <algorithm>
#include <span>
#include <utility>

// Hosts may refer to it, on Windows too
constexpr std::uint64_t KXMemberSearch::pageSize;

KXMemberSearch::KXMemberSearch(KXPanelChartDataUser& user,
                               std::function<std::string(const std::string&)> format)
    : m_user(user), m_format(std::move(format))
{
}

void KXMemberSearch::begin(const std::string& text, bool hostFinds)
{
    ++m_generation;
    m_text = text;
    m_hostFinds = hostFinds;
    m_found.clear();
    m_next = 0;
    m_isWaiting = false;
    m_isComplete = text.empty();
    findMore();
}

void KXMemberSearch::arrive()
{
    if (std::exchange(m_isWaiting, false))
        findMore();
}

void KXMemberSearch::forgetMembers()
{
    ++m_generation;
    m_found.clear();
    m_texts.clear();
    m_next = 0;
    m_isWaiting = false;
    m_isComplete = m_text.empty();
}

void KXMemberSearch::findMore()
{
    if (m_isComplete || m_isWaiting)
        return;
    const KXChartDataProviderUse use(m_user);
    const unsigned generation = m_generation;
    auto* provider = use.as<KXControlChartDataProvider>();
    if (!provider)
        return;
    const bool isThere = m_hostFinds ? _askHost(*provider) : _loadTexts(*provider);
    // Meanwhile the chart may have gone, or look for something else.
    if (!use.isAlive() || generation != m_generation)
        return;
    m_isWaiting = !isThere;
    if (isThere && !m_hostFinds)
        _scan();
}

std::optional<std::uint64_t> KXMemberSearch::findBeginning(const std::string& text,
                                                           std::span<const std::uint64_t> order)
{
    const KXChartDataProviderUse use(m_user);
    auto* provider = use.as<KXControlChartDataProvider>();
    const std::vector<std::uint64_t> members(order.begin(), order.end());
    const bool isThere = provider && _loadTexts(*provider) && use.isAlive();
    if (!isThere || m_texts.size() != m_user.getMemberCount(0))
        return std::nullopt;
    const std::string wanted = kxFoldText(text);
    for (std::uint64_t place = 0; place < m_texts.size(); ++place) {
        const std::uint64_t member = place < members.size() ? members[place] : place;
        if (member < m_texts.size() && m_texts[member].starts_with(wanted))
            return member;
    }
    return std::nullopt;
}

/** @return false for "not yet" */
bool KXMemberSearch::_askHost(KXControlChartDataProvider& provider)
{
    const KXChartDataProviderWatcher watcher(&m_user);
    const unsigned generation = m_generation;
    std::vector<std::uint64_t> page(pageSize);
    std::span<std::uint64_t> found(page);
    const std::string text = m_text;
    if (!provider.findMembers(&m_user, text, m_found.size(), found))
        return false;
    if (!watcher.isAlive() || generation != m_generation)
        return true;
    m_isComplete = found.size() < pageSize;
    const std::uint64_t count = m_user.getMemberCount(0);
    std::ranges::copy_if(found, std::back_inserter(m_found),
                         [count](std::uint64_t member) { return member < count; });
    return true;
}

/** @return false for "not yet" */
bool KXMemberSearch::_loadTexts(KXControlChartDataProvider& provider)
{
    const KXChartDataProviderWatcher watcher(&m_user);
    const std::uint64_t count = m_user.getMemberCount(0);
    if (m_texts.size() == count)
        return true;
    const unsigned generation = m_generation;
    std::vector<std::string> folded;
    folded.reserve(count);
    while (folded.size() < count) {
        std::vector<std::string> block(std::min(count - folded.size(), KXDataRequests::greatestBlock));
        const bool isThere = provider.obtainMemberTexts(&m_user, 0, folded.size(), block);
        if (!watcher.isAlive() || generation != m_generation || !watcher.isCurrent())
            return true;
        if (!isThere)
            return false;
        for (const std::string& text : block)
            folded.push_back(kxFoldText(m_format(text)));
    }
    m_texts = std::move(folded);
    return true;
}

void KXMemberSearch::_scan()
{
    const std::string wanted = kxFoldText(m_text);
    const std::size_t enough = m_found.size() + pageSize;
    while (m_next < m_texts.size() && m_found.size() < enough) {
        if (m_texts[m_next].find(wanted) != std::string::npos)
            m_found.push_back(m_next);
        ++m_next;
    }
    m_isComplete = m_next == m_texts.size();
}
