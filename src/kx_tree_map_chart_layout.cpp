#include "kx_chart_property.h"
#include "kx_line_gradient_legend.h"
#include "kx_pixel_grid.h"
#include "kx_squarify.h"
#include "kx_tree_map_chart.h"
#include "ux/ux_device_transform.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_lines.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>
#include <utility>

namespace {

constexpr double greatest = (std::numeric_limits<double>::max)();
/** Of a group: what its tiles keep below a caption. */
constexpr double leastShareOfTiles = 2.0 / 3;
/** Of its height: a caption that is narrower says nothing. */
constexpr double leastCaptionShare = 3;
/** Between a text and the edges of its tile. */
constexpr double padding = 4;
/** A narrower text says nothing. */
constexpr double leastTextWidth = 8;
/** A gap takes no more of a tile than this, so that something is left of it. */
constexpr double greatestGapShare = 1.0 / 3;
constexpr std::size_t greatestNameLines = 3;
/** The second size of labels, as a share of the first. */
constexpr double smallShare = 0.8;
constexpr int leastFontSize = 8;
constexpr const char* sampleText = "Ag0";

double measureLine(const UXTextProperty& property)
{
    return std::ceil(uxMeasureText(sampleText, property).height);
}

double takeGap(double extent, double gap)
{
    const double wanted = std::isfinite(gap) ? std::max(gap, 0.0) : 0;
    return wanted <= extent * greatestGapShare ? extent - wanted : extent;
}

KXTileEdges makeEdges(const UXDoubleRect& rect)
{
    return {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
}

} // namespace

void KXTreeMapChart::_customLayout(UXRect plotArea)
{
    _sortTiles();
    _updateGradientLegend();
    const bool isWanted = _hasColorMeasure() && !m_branches.empty() && preparedAndReloadedData();
    KXMemberPanelChart::_customLayout(m_gradientLegend->takeRoom(plotArea, *getChartProperty(), isWanted));
}

/** Finds out what is shown and in which order, where that has changed. */
void KXTreeMapChart::_sortTiles()
{
    std::vector<std::uint64_t> shown;
    for (const std::uint64_t group : getListedGroups().getAll())
        if (isGroupShown(group) && (!m_alone || group == *m_alone))
            shown.push_back(group);
    if (m_isSorted && shown == m_sortedGroups)
        return;
    m_isSorted = true;
    m_sortedGroups = std::move(shown);
    m_percentages.clear();
    _fillBranches();
    const auto obtainRank = [this](const Leaf& leaf) { return _isOthers(leaf.item) ? -1 : leaf.value; };
    bool hasColors = false;
    m_leastColorValue = m_greatestColorValue = 0;
    for (Branch& branch : m_branches) {
        std::ranges::stable_sort(branch.leaves, std::ranges::greater(), obtainRank);
        for (const Leaf& leaf : branch.leaves) {
            const double value = _obtainColorValue(leaf.item);
            if (std::isnan(value))
                continue;
            m_leastColorValue = hasColors ? std::min(m_leastColorValue, value) : value;
            m_greatestColorValue = hasColors ? std::max(m_greatestColorValue, value) : value;
            hasColors = true;
        }
    }
    std::ranges::stable_sort(m_branches, std::ranges::greater(), &Branch::sum);
}

void KXTreeMapChart::_fillBranches()
{
    m_leftOut = {};
    m_branches.clear();
    m_branches.resize(_hasGroups() ? m_sortedGroups.size() : 1);
    const auto add = [this](Branch& branch, const KXChartItem& item, double value) {
        if (!(value > 0)) {
            m_leftOut.add(value, true);
            return;
        }
        branch.leaves.push_back({item, value});
        branch.sum = std::min(branch.sum + value, greatest);
    };
    if (_hasGroups()) {
        for (std::size_t i = 0; i < m_branches.size(); ++i)
            m_branches[i].group = m_sortedGroups[i];
        const MemberValues values = _obtainMemberValues();
        for (const std::uint64_t index : _getListedIndexes().getAll()) // whose values stand side by side
            for (Branch& branch : m_branches) {
                const KXChartItem item{0, branch.group, index};
                const double value = _getListedIndexes().isOthers(index) ? obtainItemValue(item)
                                                                         : values.at(branch.group, index);
                // Members that do not meet have no value, which nobody misses.
                if (!std::isnan(value))
                    add(branch, item, value);
            }
    } else
        for (const std::uint64_t group : m_sortedGroups)
            add(m_branches.front(), {0, group, 0}, obtainItemValue({0, group, 0}));
    std::erase_if(m_branches, [](const Branch& branch) { return branch.leaves.empty(); });
}

std::vector<KXPanelItem> KXTreeMapChart::_layoutItems(const UXRect& area)
{
    UXDoubleRect room(area);
    m_groupPlaces.clear();
    m_labelledTiles.clear();
    UXTextProperty small = m_labelProperty;
    small.font.size = std::min(small.font.size, leastFontSize);
    m_leastLabelledHeight = measureLine(small) + padding;
    _takeNoteRoom(m_leftOut, m_labelProperty, room);
    _layoutWayBack(room);
    const KXPixelGrid grid(uxObtainDeviceTransform(*this));
    std::vector<double> sums(m_branches.size());
    std::ranges::transform(m_branches, sums.begin(), &Branch::sum);
    const std::vector<KXTileEdges> places = kxSquarify(sums, room);
    std::vector<KXPanelItem> items;
    std::size_t leafCount = 0;
    for (const Branch& branch : m_branches)
        leafCount += branch.leaves.size();
    items.reserve(leafCount);
    for (std::size_t i = 0; i < places.size(); ++i)
        _layoutBranch(m_branches[i], grid.snap(places[i]), grid, items);
    return items;
}

/** The names above a group that is shown alone. */
void KXTreeMapChart::_layoutWayBack(UXDoubleRect& room)
{
    m_wayBack = {};
    const double height = measureLine(m_captionProperty) + padding;
    if (!m_alone || height > room.height / 2)
        return;
    m_wayBack = {room.x, room.y, room.width, height};
    room.y += height;
    room.height -= height;
}

void KXTreeMapChart::_layoutBranch(const Branch& branch, const UXDoubleRect& place, const KXPixelGrid& grid,
                                   std::vector<KXPanelItem>& items)
{
    // 1. What the group itself takes.
    UXDoubleRect room = place;
    if (_hasGroups()) {
        Group group{branch.group, branch.sum, place, {}};
        room.width = takeGap(room.width, m_groupGap);
        room.height = takeGap(room.height, m_groupGap);
        const double height = measureLine(m_captionProperty) + padding / 2;
        if (m_showCaptions && !m_alone && room.height - height >= leastShareOfTiles * place.height &&
            room.width >= leastCaptionShare * height) {
            group.caption = {room.x, room.y, room.width, height};
            room.y += height;
            room.height -= height;
        }
        m_groupPlaces.push_back(group);
    }

    // 2. The leaves, as far as there is a pixel for each.
    std::vector<double> values(branch.leaves.size());
    std::ranges::transform(branch.leaves, values.begin(), &Leaf::value);
    const std::vector<KXTileEdges> places = kxSquarify(values, grid.snap(makeEdges(room)));
    for (std::size_t i = 0; i < places.size(); ++i) {
        UXDoubleRect rect = grid.snap(places[i]);
        if (!(rect.width > 0 && rect.height > 0))
            continue;
        rect.width = takeGap(rect.width, m_tileGap);
        rect.height = takeGap(rect.height, m_tileGap);
        if (_mayHaveLabel(rect))
            m_labelledTiles.push_back(items.size());
        items.push_back({branch.leaves[i].item, KXPanelShape(rect)});
    }
}

bool KXTreeMapChart::_mayHaveLabel(const UXDoubleRect& rect) const
{
    return m_showLabels && rect.width >= leastTextWidth + 2 * padding && rect.height >= m_leastLabelledHeight;
}

std::vector<std::uint64_t> KXTreeMapChart::_obtainNamedMembers(std::uint64_t dimension) const
{
    std::vector<std::uint64_t> members;
    if (dimension > 0) {
        for (const Group& group : m_groupPlaces)
            if (group.caption.height > 0)
                members.push_back(group.group);
        return members;
    }
    for (const std::size_t tile : m_labelledTiles)
        if (const KXChartItem own = _obtainOwnItem(getLaidOutItems()[tile].item); !_isOthers(own))
            members.push_back(_hasGroups() ? own.index : own.group);
    std::ranges::sort(members);
    const auto twice = std::ranges::unique(members);
    members.erase(twice.begin(), twice.end());
    return members;
}

void KXTreeMapChart::_requestLabels(const KXLabelPlacer& placer, std::vector<KXLabelRequest>& requests) const
{
    const auto requestLine = [&](const std::string& text, UXTextProperty property, const UXDoubleRect& rect) {
        property.align = UXTextAlign::Left;
        requests.push_back({text, property, -1, true, KXCollisionGrid::noOwner, {{rect, {}}}});
    };
    if (m_wayBack.height > 0)
        requestLine(m_allWord + " / " + m_shownGroup, m_captionProperty,
                    {m_wayBack.x, m_wayBack.y, m_wayBack.width, m_wayBack.height - padding});
    for (const Group& group : m_groupPlaces)
        if (group.caption.height > 0)
            requestLine(_findMemberName(1, group.group), m_captionProperty,
                        {group.caption.x, group.caption.y, group.caption.width - padding,
                         group.caption.height - padding / 2});
    for (const std::size_t i : m_labelledTiles) {
        const KXPanelItem& item = getLaidOutItems()[i];
        const std::optional<TileText> written = _writeTile(placer, item);
        if (!written)
            continue;
        UXDoubleRect rect = item.shape.getBounds();
        rect = {rect.x + padding, rect.y + padding / 2, rect.width - 2 * padding, 0};
        for (const std::string& line : written->lines) {
            const UXDoubleSize size = placer.measure(line, written->property);
            rect.height = size.height;
            KXLabelRequest request{line, written->property, 0, false, i, {}};
            request.candidates = {{{rect.x, rect.y, size.width, size.height},
                                   m_autoLabelColor ? std::optional(item.color) : std::nullopt}};
            requests.push_back(std::move(request));
            rect.y += size.height;
        }
    }
}

/** The whole text in the larger size, else in the smaller one, else the name alone, else nothing. */
std::optional<KXTreeMapChart::TileText> KXTreeMapChart::_writeTile(const KXLabelPlacer& placer,
                                                                   const KXPanelItem& item) const
{
    const UXDoubleRect& rect = item.shape.getBounds();
    const std::string name = _findName(item.item);
    if (name.empty())
        return std::nullopt;
    const std::string value = m_showLabelValue ? obtainItemValueText(item.item) : std::string();
    const double width = rect.width - 2 * padding, height = rect.height - padding;
    TileText text{{}, m_labelProperty};
    text.property.align = UXTextAlign::Left;
    const int small = std::max(static_cast<int>(m_labelProperty.font.size * smallShare), leastFontSize);
    for (const bool hasValue : {true, false})
        for (const int size : {m_labelProperty.font.size, std::min(small, m_labelProperty.font.size)}) {
            if (hasValue && value.empty())
                continue;
            text.property.font.size = size;
            std::optional<std::vector<std::string>> lines = _breakName(placer, name, text.property, width);
            if (!lines)
                continue;
            if (hasValue)
                lines->push_back(value);
            double used = 0, widest = 0;
            for (const std::string& line : *lines) {
                const UXDoubleSize extent = placer.measure(line, text.property);
                used += extent.height;
                widest = std::max(widest, extent.width);
            }
            if (used > height || widest > width)
                continue;
            text.lines = std::move(*lines);
            return text;
        }
    return std::nullopt;
}

/** @return none where a word would have to be broken, or where there are too many lines */
std::optional<std::vector<std::string>> KXTreeMapChart::_breakName(const KXLabelPlacer& placer,
                                                                   const std::string& name,
                                                                   const UXTextProperty& property,
                                                                   double width) const
{
    const auto measure = [&](std::string_view part) {
        return placer.measure(std::string(part), property).width;
    };
    const std::vector<std::string_view> parts = uxBreakTextLines(name, width, measure);
    if (parts.size() > greatestNameLines)
        return std::nullopt;
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const bool isLast = i + 1 == parts.size();
        const bool endsWord = isLast || parts[i].data() + parts[i].size() != parts[i + 1].data();
        if (!endsWord && !parts[i].empty() && static_cast<unsigned char>(parts[i].back()) < 0x80)
            return std::nullopt;
        if (!parts[i].empty())
            lines.emplace_back(parts[i]);
    }
    return lines;
}
