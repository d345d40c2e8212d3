#include "view_data_provider.h"

#include "kx_chart_data_path.h"
#include "kx_interaction_highlight_complementary_info_effect.h"

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
