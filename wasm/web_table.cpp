#include "web_table.h"

#include "kx_chart.h"
#include "kx_chart_data_user.h"
#include "web_chart.h"

#include <optional>

namespace {

template <typename Matches>
std::optional<std::uint64_t> findIndex(std::uint64_t count, const Matches& matches)
{
    for (std::uint64_t i = 0; i < count; ++i)
        if (matches(i))
            return i;
    return std::nullopt;
}

} // namespace

void WebTable::setHandlers(bool hasClicks, bool hasMenus)
{
    m_hasClicks = hasClicks;
    m_hasMenus = hasMenus;
}

bool WebTable::obtainDataShouldLeftClickAction(KXChartDataUser*, KXChartDataPath*) { return m_hasClicks; }

std::function<void()> WebTable::obtainDataLeftClickAction(KXChartDataUser* user, KXChartDataPath* path)
{
    if (!user || !path)
        return {};
    return [chart = WebChart::findNumber(user->getChart()), kept = *path] {
        WebChart::tell({chart, kept}, "click");
    };
}

bool WebTable::obtainDataShouldRightClickAction(KXChartDataUser*, KXChartDataPath*) { return m_hasMenus; }

void* WebTable::obtainDataRightClickContext(KXChartDataUser* user, KXChartDataPath* path)
{
    if (!m_hasMenus || !user || !path)
        return nullptr;
    m_menuItem = {WebChart::findNumber(user->getChart()), *path};
    return &m_menuItem;
}

bool WebTable::obtainDataShouldLinkedHighlightAction(KXChartDataUser*, KXChartDataPath*) { return true; }

KXChartDataPath* WebTable::obtainDataLinkedHighlightTargetPath(KXChartDataUser*, KXChartDataPath* path,
                                                               KXChartDataProvider* target)
{
    auto* table = dynamic_cast<WebTable*>(target);
    if (!table || !path)
        return nullptr;
    const bool namesMeasure = !path->valueIndexPath.empty();
    return table
        ->_makeTargetPath(_collectFacts(*path),
                          namesMeasure ? obtainValueLabel(nullptr, path->valueIndexPath[0]) : std::string())
        .release();
}

std::uint64_t WebTable::_countDimensions()
{
    std::uint64_t count = 0;
    while (obtainDimensionDataCount(nullptr, count) > 0)
        ++count;
    return count;
}

WebTable::Facts WebTable::_collectFacts(const KXChartDataPath& path)
{
    Facts facts;
    const KXIndexPath &own = path.dimensionIndexPath, &value = path.valueIndexPath;
    const std::uint64_t count = _countDimensions();
    for (std::uint64_t i = 0; i < count; ++i) {
        if (own.size() == 2 && own[0] == i)
            facts[obtainDimensionLabel(nullptr, i)] = obtainDimensionData(nullptr, own);
        else if (i + 1 < value.size())
            facts[obtainDimensionLabel(nullptr, i)] = obtainDimensionData(nullptr, {i, value[i + 1]});
    }
    return facts;
}

std::unique_ptr<KXChartDataPath> WebTable::_makeTargetPath(const Facts& facts,
                                                           const std::string& measureLabel)
{
    const std::uint64_t count = _countDimensions();
    const std::optional<std::uint64_t> measure = findIndex(obtainValueCount(nullptr), [&](std::uint64_t i) {
        return obtainValueLabel(nullptr, i) == measureLabel;
    });
    KXIndexPath cell{measure.value_or(0)};
    for (std::uint64_t i = 0; i < count && cell.size() == i + 1; ++i) {
        const auto wanted = facts.find(obtainDimensionLabel(nullptr, i));
        if (wanted == facts.end())
            break;
        const auto member = findIndex(obtainDimensionDataCount(nullptr, i), [&](std::uint64_t index) {
            return obtainDimensionData(nullptr, {i, index}) == wanted->second;
        });
        if (!member)
            return nullptr;
        cell.push_back(*member);
    }
    if (cell.size() == 1)
        return nullptr;
    auto match = std::make_unique<KXChartDataPath>();
    match->dimensionIndexPath = {0, cell[1]};
    if (measure && cell.size() == count + 1)
        match->valueIndexPath = cell;
    return match;
}
