#include "kx_chart_data_path.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_highlighted_parts.h"
#include "kx_hint_text.h"
#include "kx_table_chart.h"
#include "kx_table_chart_data_provider.h"
#include "kx_table_grid.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace {

constexpr std::uint64_t allMembers = KXTableChartDataProvider::allMembers;

} // namespace

std::optional<KXChartItem> KXTableChart::obtainItemAt(UXPoint point) const
{
    const UXRect area = m_grid->getRect();
    if (!m_grid->getVisible() || !uxPointInRect(point, area))
        return std::nullopt;
    const std::optional<KXGridHit> hit = m_grid->findCell({point.x - area.x, point.y - area.y});
    if (!hit || (hit->rowBand == KXGridBand::Header && hit->columnBand == KXGridBand::Header))
        return std::nullopt;
    const Columns columns = _obtainColumns(hit->columnBand);
    return _makeItem(hit->rowBand, columns.band, hit->cell.row, columns.first + hit->cell.column);
}

bool KXTableChart::hasItem(const KXChartItem& item) const { return _findHit(item).has_value(); }

std::vector<KXChartItem> KXTableChart::obtainItems() const
{
    std::vector<KXChartItem> items;
    for (const KXTablePanel* panel : m_panels)
        for (const KXTableDrawnCell& cell : panel->getCells())
            if (m_grid->getVisible() && cell.item && cell.item->kind == cellKind && hasItem(*cell.item))
                items.push_back(*cell.item);
    std::ranges::sort(items);
    return items;
}

std::uint64_t KXTableChart::obtainItemRowCount() const
{
    return obtainRowCount() == 0 ? 0 : 1 + obtainRowCount();
}

std::uint64_t KXTableChart::obtainItemRowLength(std::uint64_t row) const
{
    return obtainColumnCount() + (row > 0 ? 1 : 0);
}

KXChartItem KXTableChart::obtainItemInRow(std::uint64_t row, std::uint64_t place) const
{
    if (row == 0)
        return {columnKind, 0, place};
    return place == 0 ? KXChartItem{rowKind, row - 1, 0} : KXChartItem{cellKind, row - 1, place - 1};
}

UXAccessibleRole KXTableChart::obtainItemRole(const KXChartItem& item) const
{
    return item.kind == rowKind      ? UXAccessibleRole::RowHeader
           : item.kind == columnKind ? UXAccessibleRole::ColumnHeader
                                     : UXAccessibleRole::Cell;
}

UXRect KXTableChart::obtainItemRect(const KXChartItem& item) const
{
    const std::optional<KXGridHit> hit = m_grid->getVisible() ? _findHit(item) : std::nullopt;
    if (!hit)
        return {};
    UXRect rect = m_grid->obtainSeenRect(*hit);
    if (uxIsEmptyRect(rect))
        return {};
    rect.x += m_grid->getRect().x;
    rect.y += m_grid->getRect().y;
    return uxIntersectionRect(rect, getBoundingRect());
}

std::optional<KXChartItem> KXTableChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                          KXChartItemStep step) const
{
    using enum KXChartItemStep;
    const std::uint64_t rows = obtainRowCount(), columns = obtainColumnCount();
    if (rows == 0 || columns == 0)
        return std::nullopt;
    if (step == First)
        return KXChartItem{cellKind, 0, 0};
    if (step == Last)
        return KXChartItem{cellKind, rows - 1, columns - 1};
    if (!from)
        return std::nullopt;
    KXChartItem item = *from;
    item.kind = cellKind;
    const auto moveBack = [this](std::uint64_t& place) {
        const std::uint64_t before = place;
        place -= std::min(place, m_stepLength);
        return place != before;
    };
    const auto moveOn = [this](std::uint64_t& place, std::uint64_t count) {
        const std::uint64_t before = place;
        place += std::min(count - 1 - place, m_stepLength);
        return place != before;
    };
    switch (step) {
    case Left:
        return moveBack(item.index) ? std::optional(item) : std::nullopt;
    case Right:
        return moveOn(item.index, columns) ? std::optional(item) : std::nullopt;
    case Up:
        return moveBack(item.group) ? std::optional(item) : std::nullopt;
    case Down:
        return moveOn(item.group, rows) ? std::optional(item) : std::nullopt;
    case Previous:
        if (item.index > 0)
            return KXChartItem{cellKind, item.group, item.index - 1};
        return item.group > 0 ? std::optional(KXChartItem{cellKind, item.group - 1, columns - 1})
                              : std::nullopt;
    default: // Next
        if (item.index + 1 < columns)
            return KXChartItem{cellKind, item.group, item.index + 1};
        return item.group + 1 < rows ? std::optional(KXChartItem{cellKind, item.group + 1, 0}) : std::nullopt;
    }
}

void KXTableChart::showItem(const KXChartItem& item)
{
    if (!hasItem(item))
        return;
    const UXObjectWatcher self(this);
    m_grid->showCell({item.group, item.index});
    if (self.isAlive())
        m_grid->layout(); // so that what is explained of the cell stands where it is
}

KXChartDataPath* KXTableChart::createItemPath(const KXChartItem& item)
{
    auto* path = new KXChartDataPath;
    static constexpr const char* identifiers[] = {"Cell", "Row", "Column"};
    const std::optional<KXTablePlace> place = obtainPlace(item.group, item.index);
    if (!place || item.kind < cellKind || item.kind > columnKind)
        return path;
    path->identifier = identifiers[item.kind];
    if (item.kind == cellKind) {
        path->valueIndexPath = _makeValuePath(*place);
        return path;
    }
    const bool isRow = item.kind == rowKind;
    const KXIndexPath& positions = isRow ? place->row : place->column;
    if (positions.empty())
        return path; // a total of all, or the name of a measure
    path->dimensionIndexPath = {(isRow ? 0 : getDimensions(true).size()) + positions.size() - 1};
    path->dimensionIndexPath.insert(path->dimensionIndexPath.end(), positions.begin(), positions.end());
    return path;
}

/** @param positions of a total with allMembers at their end, or shorter
 *  @return the first row or column that stands for them, none where it is not shown */
std::optional<std::uint64_t> KXTableChart::_findLine(bool isRow, KXIndexPath positions) const
{
    while (!positions.empty() && positions.back() == allMembers)
        positions.pop_back();
    if (positions.empty() && !getDimensions(isRow).empty())
        return _hasGrandTotal(isRow) ? std::optional(_obtainContentCount(isRow)) : std::nullopt;
    std::optional<std::uint64_t> line = getTree(isRow).findLine(positions);
    if (!line)
        line = getTree(isRow).findLine(positions, true);
    return line ? std::optional(*line * _obtainMeasuresAlong(isRow)) : std::nullopt;
}

std::optional<KXChartItem> KXTableChart::_findCell(const KXTablePlace& place) const
{
    const std::optional<std::uint64_t> row = _findLine(true, place.row);
    const std::optional<std::uint64_t> column = _findLine(false, place.column);
    if (!row || !column || place.measure >= getMeasures().size())
        return std::nullopt;
    const auto found = std::ranges::find(m_measureOrder, place.measure);
    const bool isOrdered = found != m_measureOrder.end();
    const std::uint64_t offset = isOrdered ? static_cast<std::uint64_t>(found - m_measureOrder.begin())
                                           : place.measure;
    return m_measuresOnRows ? KXChartItem{cellKind, *row + offset, *column}
                            : KXChartItem{cellKind, *row, *column + offset};
}

/** A path of another chart may name fewer dimensions: then it is about a row or a column. */
std::vector<KXChartItem> KXTableChart::findItems(const KXChartDataPath& path)
{
    const std::size_t rowLevels = getDimensions(true).size(), columnLevels = getDimensions(false).size();
    const KXIndexPath &value = path.valueIndexPath, &member = path.dimensionIndexPath;
    if (value.size() == 1 + rowLevels + columnLevels && value[0] < getMeasures().size()) {
        const auto middle = value.begin() + 1 + static_cast<std::ptrdiff_t>(rowLevels);
        const std::optional<KXChartItem> item = _findCell(
            {{value.begin() + 1, middle}, {middle, value.end()}, value[0]});
        return item ? std::vector{*item} : std::vector<KXChartItem>();
    }
    // The member of a dimension, or the value of a chart that has the first of them alone
    KXIndexPath positions(member.begin() + (member.empty() ? 0 : 1), member.end());
    std::uint64_t dimension = member.empty() ? 0 : member[0];
    if (member.empty() && value.size() == 2)
        positions = {value[1]};
    if (positions.empty() || rowLevels + columnLevels == 0)
        return {};
    const bool isRow = dimension < rowLevels;
    dimension -= isRow ? 0 : rowLevels;
    if (dimension + 1 != positions.size())
        return {};
    const std::optional<std::uint64_t> line = _findLine(isRow, positions);
    const KXChartItem item = isRow ? KXChartItem{rowKind, line.value_or(0), 0}
                                   : KXChartItem{columnKind, 0, line.value_or(0)};
    return line && hasItem(item) ? std::vector{item} : std::vector<KXChartItem>();
}

std::vector<KXObjectID> KXTableChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    const auto make = [](const char* kind, std::uint64_t index) {
        return KXObjectID::instance().path(kxCreateObjectIDPath(std::string(kind))).index(index);
    };
    if (item.kind == rowKind)
        return {make("Row", item.group)};
    if (item.kind == columnKind)
        return {make("Column", item.index)};
    return {make("Row", item.group).path(kxCreateObjectIDPath(std::string("Column"))).index(item.index)};
}

/** @return what the provider says about a cell, or else its row, its column and what it shows */
UXHintInfo KXTableChart::obtainItemHint(const KXChartItem& item)
{
    const std::optional<KXTablePlace> place = obtainPlace(item.group, item.index);
    if (!place)
        return UXHintInfo(false);
    const KXChartDataProviderUse use(*this);
    KXChartDataProviderHintData data;
    auto* provider = use.as<KXTableChartDataProvider>();
    if (provider && item.kind == cellKind)
        data = provider->obtainHintData(this, _makeValuePath(*place));
    if (!use.isAlive() || obtainPlace(item.group, item.index) != place)
        return UXHintInfo(false);
    if (!data.isEmpty())
        return kxMakeHintInfo(data, m_hintInfo);

    if (item.kind != cellKind) {
        const bool isRow = item.kind == rowKind;
        return kxMakeHintInfo({obtainHeaderText(isRow, isRow ? item.group : item.index), ""}, m_hintInfo);
    }
    std::string title = _describeLine(true, _obtainLineAt(true, item.group));
    const std::string column = _describeLine(false, _obtainLineAt(false, item.index));
    title += (title.empty() || column.empty() ? "" : ", ") + column;
    const std::string label = getMeasures()[place->measure].label;
    const KXTableCell* cell = findCell(*place);
    std::string text = cell && cell->state == KXTableCellState::Error ? cell->text : std::string();
    if (text.empty())
        text = obtainCellText(item.group, item.index);
    if (!use.isAlive() || obtainPlace(item.group, item.index) != place)
        return UXHintInfo(false);
    const KXTableCell* told = findCell(*place);
    if (told && told->part && _obtainShown(place->measure) == KXTableShowValuesAs::Value)
        text = KXHighlightedParts::tellPart(_obtainFormat(place->measure).formatNumber(*told->part), text);
    if (!use.isAlive())
        return UXHintInfo(false);
    return kxMakeHintInfo({title, label, text}, m_hintInfo);
}

UXRect KXTableChart::obtainHintArea(UXPoint point) { return getItems()->obtainHintArea(point); }
KXChartDataPath* KXTableChart::createDataPath() { return getItems()->createActionPath(); }

/** A row or a column that stands out does so in all of its cells. */
bool KXTableChart::_isHighlighted(const KXChartItem& item) const
{
    const KXChartItems& items = *getItems();
    return items.isHighlighted(item) ||
           (item.kind == cellKind && (items.isHighlighted({rowKind, item.group, 0}) ||
                                      items.isHighlighted({columnKind, 0, item.index})));
}

void KXTableChart::itemLooksChanged()
{
    for (KXTablePanel* panel : m_panels)
        if (panel->highlightCells([this](const KXChartItem& item) { return _isHighlighted(item); }))
            panel->invalidate();
}
