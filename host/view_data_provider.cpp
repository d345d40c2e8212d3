#include "view_data_provider.h"

#include "kx_chart_data_path.h"
#include "kx_chart_data_user.h"
#include "kx_interaction_highlight_complementary_info_effect.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

ViewDataProvider::ViewDataProvider(SqlSession& session, DataBinding binding, const ViewItemHandlers& handlers)
    : SqlDataProvider(session, std::move(binding)), m_handlers(handlers)
{
}

bool ViewDataProvider::obtainCanSelect(KXChartDataUser*)
{
    return m_choiceHandler && !getBinding().dimensions.empty();
}

bool ViewDataProvider::obtainSelectedPaths(KXChartDataUser*, std::vector<KXChartDataPath>&)
{
    return m_choice.empty();
}

bool ViewDataProvider::obtainIsSelected(KXChartDataPath* path)
{
    return path && std::ranges::binary_search(m_choice, _makeChosenItem(*path));
}

void ViewDataProvider::selectionChanged(KXChartDataUser*, const std::vector<KXChartDataPath>& paths)
{
    DataChoice choice;
    choice.reserve(paths.size());
    for (const KXChartDataPath& path : paths) {
        if (ChosenItem item = _makeChosenItem(path); !item.empty())
            choice.push_back(std::move(item));
    }
    std::ranges::sort(choice);
    choice.erase(std::ranges::unique(choice).begin(), choice.end());
    tellChoice(choice);
}

void ViewDataProvider::tellChoice(const DataChoice& choice) const
{
    if (m_choiceHandler)
        m_choiceHandler(choice);
}

/** @return what is true of the rows of an item: one condition for each dimension that its path names */
ChosenItem ViewDataProvider::_makeChosenItem(const KXChartDataPath& path) const
{
    ChosenItem item;
    const KXIndexPath& own = path.dimensionIndexPath;
    const KXIndexPath& value = path.valueIndexPath;
    for (std::size_t i = 0; i < getData().getDimensionCount(); ++i) {
        if (getData().getBinWidth(i))
            continue; // no value is chosen by where its bin begins
        // The dimension path may hold several members, as that of Others does; the other has one of each.
        if (own.size() > 1 && own[0] == i)
            item.push_back(makeCondition(i, std::span(own).subspan(1)));
        else if (i + 1 < value.size())
            item.push_back(makeCondition(i, std::span(value).subspan(i + 1, 1)));
    }
    return item;
}

ChoiceCondition ViewDataProvider::makeCondition(std::size_t dimension,
                                                std::span<const std::uint64_t> members) const
{
    const std::vector<SqlMember>& all = getData().getMembers(dimension);
    ChoiceCondition condition;
    condition.column = getBinding().dimensions[dimension].column;
    condition.level = getData().getDimensionLevel(dimension);
    const auto isOthers = [&](std::uint64_t member) { return member < all.size() && all[member].isOthers(); };
    // What stands for the rest is all but what stands beside it and is not chosen with it.
    const bool isRest = std::ranges::any_of(members, isOthers);
    condition.kind = isRest ? ChoiceCondition::Kind::AllBut : ChoiceCondition::Kind::Members;
    const auto add = [&](const SqlMember& member) {
        if (member.isNull)
            condition.hasNull = true;
        else if (!member.isOthers())
            condition.members.push_back(member.text);
    };
    if (isRest) {
        for (std::uint64_t i = 0; i < all.size(); ++i)
            if (std::ranges::find(members, i) == members.end())
                add(all[i]);
    } else {
        for (const std::uint64_t member : members)
            if (member < all.size())
                add(all[member]);
    }
    std::ranges::sort(condition.members);
    return condition;
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

bool ViewDataProvider::obtainDataShouldShowToolbox(KXChartDataUser*, KXChartDataPath* path)
{
    return !path && getError().empty();
}

KXChartToolboxMenuContext* ViewDataProvider::obtainDataToolboxContext(KXChartDataUser*, KXChartDataPath*)
{
    const auto makeEntry = [](const char* text, const std::function<void()>& action) {
        KXMenuEntry entry;
        entry.text = text;
        entry.action = action;
        return entry;
    };
    // The table is made when it is wanted.
    const auto makeCopy = [this](bool withNames) -> std::function<void()> {
        return [this, withNames] { _makeCopyAction(_obtainTable(withNames))(); };
    };
    KXMenuEntry copy = makeEntry("Copy table", {});
    copy.icon = KXMenuIcon::Table;
    copy.entries = {makeEntry("With names", makeCopy(true)), makeEntry("Values only", makeCopy(false))};
    KXMenuEntry line;
    line.separator = true;
    KXMenuEntry source = makeEntry(("From " + getBinding().name).c_str(), {});
    source.enabled = false;

    KXMenuEntry menu = makeEntry("Menu", {});
    menu.icon = KXMenuIcon::Menu;
    menu.entries = {copy, line, source};
    m_toolbox.entries = {menu};
    return &m_toolbox;
}

/** @return a line for each cell: its members, if withNames, and its values, between tabs */
std::string ViewDataProvider::_obtainTable(bool withNames)
{
    const std::size_t dimensions = getBinding().dimensions.size();
    std::vector<std::uint64_t> counts;
    counts.reserve(dimensions);
    for (std::size_t i = 0; i < dimensions; ++i)
        counts.push_back(obtainDimensionDataCount(nullptr, i));
    std::string text;
    KXIndexPath members(dimensions, 0);
    for (bool more = std::ranges::find(counts, 0U) == counts.end(); more;) {
        std::string row;
        for (std::size_t i = 0; i < dimensions && withNames; ++i)
            row += obtainDimensionData(nullptr, {i, members[i]}) + "\t";
        for (std::uint64_t value = 0; value < obtainValueCount(nullptr); ++value) {
            KXIndexPath path{value};
            path.insert(path.end(), members.begin(), members.end());
            row += (value > 0 ? "\t" : "") + obtainValueDataString(nullptr, path);
        }
        text += row + "\n";
        more = false;
        for (std::size_t i = dimensions; i > 0 && !more; --i) {
            more = ++members[i - 1] < counts[i - 1];
            if (!more)
                members[i - 1] = 0;
        }
    }
    return text;
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
    const bool namesMeasure = !path->valueIndexPath.empty();
    return _makeTargetPath(collectItemFacts(*source, user, *path),
                           namesMeasure ? source->obtainValueLabel(user, path->valueIndexPath[0]) : "")
        .release();
}

/** @return the path of the item of which the facts are true, and its value where it has the measure; null
 * where there is none */
std::unique_ptr<KXChartDataPath> ViewDataProvider::_makeTargetPath(const ItemFacts& facts,
                                                                   const std::string& measureLabel)
{
    const std::vector<DimensionBinding>& dimensions = getBinding().dimensions;
    const std::optional<std::uint64_t> measure = _findMeasure(measureLabel);
    ItemFacts own = collectFilterFacts(*this);
    KXIndexPath cell{measure.value_or(0)};
    for (std::size_t i = 0; i < dimensions.size() && cell.size() == i + 1; ++i) {
        if (const std::optional<std::uint64_t> member = _findMember(i, facts)) {
            own[dimensions[i].column] = facts.at(dimensions[i].column);
            cell.push_back(*member);
        }
    }
    const bool isTotal = dimensions.empty();
    const bool isSame = isTotal && facts.empty() && own.empty() && measure;
    if ((!doFactsAgree(facts, own) && !isSame) || (!isTotal && cell.size() == 1))
        return nullptr;
    auto match = std::make_unique<KXChartDataPath>();
    if (isTotal)
        match->valueIndexPath = {measure.value_or(0), 0};
    else
        match->dimensionIndexPath = {0, cell[1]};
    if (!isTotal && measure && cell.size() == dimensions.size() + 1)
        match->valueIndexPath = cell;
    return match;
}

std::optional<std::uint64_t> ViewDataProvider::_findMember(std::uint64_t dimension, const ItemFacts& facts)
{
    const auto wanted = facts.find(obtainDimensionName(nullptr, dimension));
    const std::uint64_t count = wanted == facts.end() ? 0 : obtainDimensionDataCount(nullptr, dimension);
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
