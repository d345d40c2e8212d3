#include "kx_chart_groups.h"

#include <algorithm>
#include <utility>

namespace {

constexpr UXColor hiddenColor(205, 205, 210);

} // namespace

bool KXChartGroups::isShown(std::uint64_t group) const { return std::ranges::binary_search(m_shown, group); }

bool KXChartGroups::setShown(std::uint64_t group, const std::string& identity, bool shown)
{
    if (group >= m_count || shown == isShown(group) || std::ranges::binary_search(m_leftOut, group))
        return false;
    const auto place = std::ranges::lower_bound(m_shown, group);
    if (shown) {
        m_hidden.erase(identity);
        m_shown.insert(place, group);
    } else {
        m_hidden.insert(identity);
        m_shown.erase(place);
    }
    return true;
}

void KXChartGroups::reload(std::uint64_t count, const std::vector<std::string>& identities)
{
    m_count = count;
    m_shown.clear();
    m_leftOut.clear();
    for (std::uint64_t group = 0; group < count; ++group)
        if (group >= identities.size() || !m_hidden.contains(identities[group]))
            m_shown.push_back(group);
}

void KXChartGroups::leaveOut(std::uint64_t group)
{
    m_leftOut.push_back(group);
    std::erase(m_shown, group);
}

void KXChartGroups::clear()
{
    m_leftOut.clear();
    m_count = 0;
    m_shown.clear();
    m_hostColors.clear();
}

void KXChartGroups::setHostColors(std::vector<std::optional<UXColor>> colors)
{
    m_hostColors = std::move(colors);
}

void KXChartGroups::setUsualColors(std::vector<UXColor> colors) { m_usualColors = std::move(colors); }

UXColor KXChartGroups::obtainColor(std::uint64_t group) const
{
    if (group < m_hostColors.size() && m_hostColors[group])
        return *m_hostColors[group];
    const auto before = std::ranges::lower_bound(m_leftOut, group) - m_leftOut.begin();
    const std::uint64_t place = group - static_cast<std::uint64_t>(before);
    return m_usualColors.empty() ? UXColor() : m_usualColors[place % m_usualColors.size()];
}

UXColor KXChartGroups::obtainSymbolColor(std::uint64_t group) const
{
    return isShown(group) ? obtainColor(group) : hiddenColor;
}
