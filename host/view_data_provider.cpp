#include "view_data_provider.h"

#include "kx_chart_data_path.h"
#include "kx_chart_data_user.h"
#include "kx_interaction_highlight_complementary_info_effect.h"

#include <memory>
#include <utility>

ViewDataProvider::ViewDataProvider(SqlSession& session, DataBinding binding, const ViewItemHandlers& handlers)
    : SqlDataProvider(session, std::move(binding)), m_handlers(handlers)
{
}

bool ViewDataProvider::obtainDataShouldRightClickAction(KXChartDataUser* user, KXChartDataPath* path)
{
    return !_obtainItem(user, path).value.empty();
}

void* ViewDataProvider::obtainDataRightClickContext(KXChartDataUser* user, KXChartDataPath* path)
{
    const Item item = _obtainItem(user, path);
    if (item.value.empty())
        return nullptr;
    m_menu = {{"Copy value", _makeCopyAction(item.value)},
              {"Copy value with name", _makeCopyAction(item.obtainLine())}};
    return &m_menu;
}

bool ViewDataProvider::obtainDataShouldLeftClickAction(KXChartDataUser* user, KXChartDataPath* path)
{
    return !_obtainItem(user, path).value.empty();
}

std::function<void()> ViewDataProvider::obtainDataLeftClickAction(KXChartDataUser* user,
                                                                  KXChartDataPath* path)
{
    return [&handlers = m_handlers, line = _obtainItem(user, path).obtainLine()] {
        if (handlers.itemClicked)
            handlers.itemClicked(line);
    };
}

bool ViewDataProvider::obtainDataShouldLinkedHighlightAction(KXChartDataUser* user, KXChartDataPath* path)
{
    return !_obtainItem(user, path).value.empty();
}

KXChartDataPath* ViewDataProvider::obtainDataLinkedHighlightTargetPath(KXChartDataUser* user,
                                                                       KXChartDataPath* path,
                                                                       KXChartDataProvider*)
{
    // The item is in the data of the chart that asks, its match in this.
    auto* source = user ? dynamic_cast<ViewDataProvider*>(user->beginUseDataProvider()) : nullptr;
    if (user)
        user->endUseDataProvider();
    if (!source || !path)
        return nullptr;
    const Members members = source->_obtainMembers(*path);
    const std::optional<std::uint64_t> measure =
        path->valueIndexPath.empty() ? std::nullopt
                                     : _findMeasure(source->obtainValueLabel(user, path->valueIndexPath[0]));

    std::uint64_t dimensions = 0;
    KXIndexPath cell{measure.value_or(0)};
    for (; !obtainDimensionName(user, dimensions).empty(); ++dimensions)
        if (const std::optional<std::uint64_t> member = _findMember(dimensions, members))
            cell.push_back(*member);
    const bool isCell = measure && cell.size() == dimensions + 1 && (dimensions > 0 || members.empty());
    const std::optional<std::uint64_t> member = dimensions > 0 ? _findMember(0, members) : std::nullopt;
    if (!isCell && !member)
        return nullptr;
    auto match = std::make_unique<KXChartDataPath>();
    if (member)
        match->dimensionIndexPath = {0, *member};
    if (isCell)
        match->valueIndexPath = dimensions > 0 ? cell : KXIndexPath{*measure, 0};
    return match.release();
}

ViewDataProvider::Members ViewDataProvider::_obtainMembers(const KXChartDataPath& path)
{
    Members members;
    const auto add = [&](std::uint64_t dimension, std::uint64_t member) {
        const std::string column = obtainDimensionName(nullptr, dimension);
        const std::string text = obtainDimensionData(nullptr, {dimension, member});
        if (!column.empty() && !text.empty())
            members[column] = text;
    };
    if (path.dimensionIndexPath.size() > 1)
        add(path.dimensionIndexPath[0], path.dimensionIndexPath[1]);
    for (std::uint64_t i = 0; i + 1 < path.valueIndexPath.size(); ++i)
        add(i, path.valueIndexPath[i + 1]);
    return members;
}

std::optional<std::uint64_t> ViewDataProvider::_findMember(std::uint64_t dimension, const Members& members)
{
    const auto wanted = members.find(obtainDimensionName(nullptr, dimension));
    const std::uint64_t count = wanted == members.end() ? 0 : obtainDimensionDataCount(nullptr, dimension);
    for (std::uint64_t i = 0; i < count; ++i)
        if (obtainDimensionData(nullptr, {dimension, i}) == wanted->second)
            return i;
    return std::nullopt;
}

std::optional<std::uint64_t> ViewDataProvider::_findMeasure(const std::string& label)
{
    for (std::uint64_t i = 0; i < obtainValueCount(nullptr); ++i)
        if (!label.empty() && obtainValueLabel(nullptr, i) == label)
            return i;
    return std::nullopt;
}

std::vector<KXInteractionEffect*> ViewDataProvider::obtainInteractionEffects(const std::vector<KXObjectID>&)
{
    return {new KXInteractionHighlightComplementaryInfoEffect};
}

std::function<void()> ViewDataProvider::_makeCopyAction(const std::string& text) const
{
    return [&handlers = m_handlers, text] {
        if (handlers.copyRequested)
            handlers.copyRequested(text);
    };
}

ViewDataProvider::Item ViewDataProvider::_obtainItem(KXChartDataUser* user, const KXChartDataPath* path)
{
    if (!path)
        return {};
    const KXIndexPath& dimension = path->dimensionIndexPath;
    const KXIndexPath& value = path->valueIndexPath;
    if (value.empty() && !dimension.empty())
        return {obtainDimensionLabel(user, dimension[0]), obtainDimensionData(user, dimension)};
    if (value.empty())
        return {};

    // A cell is named by its members, then by its measure.
    Item item{"", obtainValueDataString(user, value)};
    for (std::uint64_t i = 0; i + 1 < value.size(); ++i) {
        const std::string member = obtainDimensionData(user, {i, value[i + 1]});
        item.label += member.empty() ? "" : member + ", ";
    }
    item.label += obtainValueLabel(user, value[0]);
    return item;
}
