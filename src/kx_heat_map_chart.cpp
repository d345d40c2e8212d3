#include "kx_heat_map_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_items.h"
#include "kx_chart_object_id_types.h"
#include "kx_chart_property.h"
#include "kx_chart_selection_provider.h"
#include "kx_heat_map_chart_data_provider.h"
#include "kx_heat_map_legend.h"
#include "kx_heat_map_panel.h"
#include "kx_highlighted_parts.h"
#include "kx_hint_text.h"
#include "kx_key_definitions.h"
#include "kx_no_data_label.h"
#include "ux/ux_event.h"
#include "ux/ux_key_code.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <utility>

// Hosts may refer to them, on Windows too
constexpr int KXHeatMapChart::cellKind;
constexpr int KXHeatMapChart::rowKind;
constexpr int KXHeatMapChart::columnKind;
constexpr int KXHeatMapChart::rowTotalKind;
constexpr int KXHeatMapChart::columnTotalKind;
constexpr int KXHeatMapChart::grandTotalKind;

KX_DEFINE_CHART_KEYS(KXHeatMapChart, KX_HEAT_MAP_CHART_KEYS)

const UXPropertyTable& KXHeatMapChart::obtainPropertyTable()
{
    using Self = KXHeatMapChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_dataFormat", uxObtainNestedObjectType, m_dataFormat, "how values are written")
            KX_HEAT_MAP_CHART_KEYS(KX_CHART_KEY_ROW)};
    static const UXPropertyTable table("KXHeatMapChart", &KXChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
/** What stands for more cells than these is not listed one by one. */
constexpr std::uint64_t greatestListedCount = std::uint64_t{1} << 20;
/** Not more cells are chosen by one drag: the host is told each of them. */
constexpr std::uint64_t greatestChosenCount = 65'536;

} // namespace

KXHeatMapChart::KXHeatMapChart()
    : KXPanelChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_panel(new KXHeatMapPanel), m_legend(new KXHeatMapLegend), m_noDataLabel(new KXNoDataLabel)
{
    addChild(m_panel);
    addChild(m_legend);
    addChild(m_noDataLabel);
    m_legend->setVisible(false);
    m_panel->setScrolledHandler([this] { getItems()->forgetPointer(); });
    m_panel->setDragHandler(
        [this] { return _canChoose(); },
        [this](const KXGridBlock& block, const UXEvent& event) { _choose(block, event); });
    _makeItems(*this, *this, *this, *this);
}

KXHeatMapChart::~KXHeatMapChart() { _leaveView(); }

UXTextProperty KXHeatMapChart::_makeTextProperty(int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.textColor = color;
    return property;
}

std::string KXHeatMapChart::customSerializeTypeID() { return "KXHeatMapChart"; }

// Data

std::uint64_t KXHeatMapChart::obtainRowCount() const
{
    if (getMeasureCount() == 0)
        return 0;
    const std::uint64_t all = getDimensionCount() > 0 ? getMemberCount(0) : 1;
    const std::int64_t most = std::max<std::int64_t>(getChartProperty()->getTopXItemsToShow(), 0);
    return getChartProperty()->getShowOnlyTopX() ? std::min(all, static_cast<std::uint64_t>(most)) : all;
}

std::uint64_t KXHeatMapChart::obtainColumnCount() const
{
    if (getMeasureCount() == 0)
        return 0;
    return getDimensionCount() > 1 ? getMemberCount(1) : 1;
}

std::uint64_t KXHeatMapChart::_obtainCell(const KXGridCell& cell) const
{
    return cell.row * obtainColumnCount() + cell.column;
}

void KXHeatMapChart::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    const KXChartDataProviderWatcher watcher(this);
    KXPanelChartDataUser::customPrepareData(provider, prepared);
    auto* own = watcher.isCurrent() ? dynamic_cast<KXHeatMapChartDataProvider*>(provider) : nullptr;
    if (!own || !prepared)
        return;
    // The answers are gathered aside: the provider may destroy the chart in any of them.
    std::array<std::vector<double>, 2> totals;
    const std::uint64_t counts[] = {getDimensionCount() > 0 ? getMemberCount(0) : 1, obtainColumnCount()};
    for (std::size_t i = 0; i < totals.size() && watcher.isCurrent(); ++i) {
        const bool ofRows = i == 0;
        if (!own->obtainHasTotals(this, ofRows) || !watcher.isCurrent())
            continue;
        totals[i].resize(counts[i], noNumber);
        own->obtainTotals(this, ofRows, 0, totals[i]);
        for (double& total : totals[i])
            if (!std::isfinite(total))
                total = noNumber;
    }
    const bool hasBoth = !totals[0].empty() && !totals[1].empty();
    const double grandTotal = hasBoth && watcher.isCurrent() ? own->obtainGrandTotal(this) : noNumber;
    if (!watcher.isAlive())
        return;
    for (std::size_t i = 0; i < totals.size(); ++i)
        m_totals[i].values = std::move(totals[i]);
    m_grandTotal.assign(hasBoth ? 1 : 0, std::isfinite(grandTotal) ? grandTotal : noNumber);
}

void KXHeatMapChart::resetData()
{
    KXPanelChartDataUser::resetData();
    m_totals = {};
    m_grandTotal.clear();
    m_sorted.clear();
    m_note.clear();
    _fillPanels(); // which refer to the values
}

void KXHeatMapChart::customReloadData()
{
    const UXObjectWatcher self(this);
    std::array<std::string, 5> words{"Total", "cells", "Beyond the colours", "below", "above"};
    for (std::string& word : words)
        word = uxLocalizeString(word);
    if (!self.isAlive())
        return;
    m_words = std::move(words);
    _summarize();
}

/** A document may show other rows. */
bool KXHeatMapChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool isComplete = KXPanelChart::customDeserialize();
    if (self.isAlive() && reloadedData())
        reloadData();
    return isComplete;
}

/** Nothing is to move under the eyes of who scrolls. */
void KXHeatMapChart::_memberTextsArrived()
{
    m_keepsNames = m_panel->getContentOffsetX() > 0 || m_panel->getContentOffsetY() > 0;
    KXPanelChartDataUser::_memberTextsArrived();
}

void KXHeatMapChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXPanelChart::afterReloadData();
    if (self.isAlive())
        registerLeftClickAction(this, [] { return true; });
}

double KXHeatMapChart::obtainItemValue(const KXChartItem& item) const
{
    const auto obtainTotal = [this](bool ofRows, std::uint64_t index, std::uint64_t count) {
        const std::vector<double>& values = _getTotals(ofRows).values;
        return index < std::min<std::uint64_t>(count, values.size()) ? values[index] : noNumber;
    };
    switch (item.kind) {
    case cellKind:
        return item.group < obtainRowCount() && item.index < obtainColumnCount()
                   ? getValue(0, _obtainCell({item.group, item.index}))
                   : noNumber;
    case rowTotalKind:
        return obtainTotal(true, item.group, obtainRowCount());
    case columnTotalKind:
        return obtainTotal(false, item.index, obtainColumnCount());
    case grandTotalKind:
        return m_grandTotal.empty() ? noNumber : m_grandTotal.front();
    default:
        return noNumber;
    }
}

// What items are

std::optional<KXHeatMapChart::Place> KXHeatMapChart::_obtainPlace(const KXChartItem& item) const
{
    const auto rowCount = static_cast<std::int64_t>(obtainRowCount());
    const auto columnCount = static_cast<std::int64_t>(obtainColumnCount());
    const bool hasRow = item.group < obtainRowCount(), hasColumn = item.index < obtainColumnCount();
    const auto row = static_cast<std::int64_t>(item.group), column = static_cast<std::int64_t>(item.index);
    switch (item.kind) {
    case cellKind:
        return hasRow && hasColumn ? std::optional(Place{row, column}) : std::nullopt;
    case rowKind:
        return hasRow && item.index == 0 ? std::optional(Place{row, -1}) : std::nullopt;
    case columnKind:
        return hasColumn && item.group == 0 ? std::optional(Place{-1, column}) : std::nullopt;
    case rowTotalKind:
        return hasRow && item.index == 0 ? std::optional(Place{row, columnCount}) : std::nullopt;
    case columnTotalKind:
        return hasColumn && item.group == 0 ? std::optional(Place{rowCount, column}) : std::nullopt;
    case grandTotalKind:
        return item.group == 0 && item.index == 0 ? std::optional(Place{rowCount, columnCount})
                                                  : std::nullopt;
    default:
        return std::nullopt;
    }
}

KXChartItem KXHeatMapChart::_obtainItem(const Place& place) const
{
    const bool isTotalRow = place.row == static_cast<std::int64_t>(obtainRowCount());
    const bool isTotalColumn = place.column == static_cast<std::int64_t>(obtainColumnCount());
    if (isTotalRow && isTotalColumn)
        return {grandTotalKind, 0, 0};
    if (place.column < 0 || isTotalColumn)
        return {isTotalColumn ? rowTotalKind : rowKind,
                static_cast<std::uint64_t>(std::max<std::int64_t>(place.row, 0)), 0};
    if (place.row < 0 || isTotalRow)
        return {isTotalRow ? columnTotalKind : columnKind, 0, static_cast<std::uint64_t>(place.column)};
    return {cellKind, static_cast<std::uint64_t>(place.row), static_cast<std::uint64_t>(place.column)};
}

bool KXHeatMapChart::hasItem(const KXChartItem& item) const
{
    if (!_obtainPlace(item))
        return false;
    return item.kind == rowKind || item.kind == columnKind ? getDimensionCount() > 0
                                                           : !std::isnan(obtainItemValue(item));
}

std::vector<KXChartItem> KXHeatMapChart::obtainItems() const
{
    std::vector<KXChartItem> items;
    const std::uint64_t rowCount = obtainRowCount(), columnCount = obtainColumnCount();
    KXGridBlock listed{{0, rowCount}, {0, columnCount}};
    if (columnCount > 0 && rowCount > greatestListedCount / columnCount)
        listed = {m_panel->getContentPanel().obtainVisibleRows(),
                  m_panel->getContentPanel().obtainVisibleColumns()};
    for (std::uint64_t row = listed.rows.first; row < std::min(listed.rows.end, rowCount); ++row)
        for (std::uint64_t column = listed.columns.first; column < std::min(listed.columns.end, columnCount);
             ++column)
            if (hasItem({cellKind, row, column}))
                items.push_back({cellKind, row, column});
    return items;
}

std::uint64_t KXHeatMapChart::obtainItemRowCount() const
{
    const bool hasNames = getDimensionCount() > 0;
    return obtainRowCount() == 0 || !hasNames ? 0 : 1 + obtainRowCount() + (_hasTotals(false) ? 1 : 0);
}

std::uint64_t KXHeatMapChart::obtainItemRowLength(std::uint64_t row) const
{
    return obtainColumnCount() + (_hasTotals(true) ? 1 : 0) + (row > 0 ? 1 : 0);
}

/** Names stand before the cells, so that they have the place -1 in the grid. */
KXChartItem KXHeatMapChart::obtainItemInRow(std::uint64_t row, std::uint64_t place) const
{
    const auto column = static_cast<std::int64_t>(place);
    return row == 0 ? _obtainItem({-1, column})
                    : _obtainItem({static_cast<std::int64_t>(row) - 1, column - 1});
}

UXAccessibleRole KXHeatMapChart::obtainItemRole(const KXChartItem& item) const
{
    if (getDimensionCount() == 0)
        return UXAccessibleRole::Mark;
    return item.kind == rowKind      ? UXAccessibleRole::RowHeader
           : item.kind == columnKind ? UXAccessibleRole::ColumnHeader
                                     : UXAccessibleRole::Cell;
}

std::string KXHeatMapChart::obtainItemValueText(const KXChartItem& item) const { return _writeValue(item); }

std::vector<KXObjectID> KXHeatMapChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    const std::optional<Place> place = _obtainPlace(item);
    if (!place || item.kind == grandTotalKind)
        return {};
    const KXObjectID row =
        KXObjectID::instance().path(kxCreateObjectIDPath(KXHeatMapChartObjectIDPath::Row)).index(item.group);
    const auto column = kxCreateObjectIDPath(KXHeatMapChartObjectIDPath::Column);
    if (item.kind == rowKind || item.kind == rowTotalKind)
        return {row};
    if (item.kind == columnKind || item.kind == columnTotalKind)
        return {KXObjectID::instance().path(column).index(item.index)};
    return {KXObjectID(row)
                .path(column)
                .index(item.index)
                .path(kxCreateObjectIDPath(KXHeatMapChartObjectIDPath::Cell))
                .index(_obtainCell({item.group, item.index}))};
}

/** @return null for what no member and no value stands for */
KXChartDataPath* KXHeatMapChart::createItemPath(const KXChartItem& item)
{
    if (!_obtainPlace(item) || item.kind == grandTotalKind)
        return nullptr;
    auto path = std::make_unique<KXChartDataPath>();
    const bool isColumn = item.kind == columnKind || item.kind == columnTotalKind;
    if (item.kind == cellKind) {
        path->identifier = "Cell";
        path->valueIndexPath = obtainValuePath(0, _obtainCell({item.group, item.index}));
    } else
        path->identifier = isColumn ? "Column" : "Row";
    if (getDimensionCount() > 1 || (getDimensionCount() > 0 && !isColumn))
        path->dimensionIndexPath = isColumn ? KXIndexPath{1, item.index} : KXIndexPath{0, item.group};
    return path.release();
}

/** A value is named by its whole path, and a row or a column by its member. */
std::vector<KXChartItem> KXHeatMapChart::findItems(const KXChartDataPath& path)
{
    const KXIndexPath &value = path.valueIndexPath, &members = path.dimensionIndexPath;
    std::vector<KXChartItem> items;
    const auto isNamed = [&](std::uint64_t dimension, std::uint64_t member) {
        return members.empty() || members[0] != dimension ||
               std::find(members.begin() + 1, members.end(), member) != members.end();
    };
    if (value.size() > 1) {
        const std::uint64_t row = getDimensionCount() > 0 ? value[1] : 0;
        const std::uint64_t column = value.size() > 2 ? value[2] : 0;
        const KXChartItem item{cellKind, row, column};
        if (hasItem(item) && value == obtainValuePath(0, _obtainCell({row, column})) && isNamed(0, row) &&
            isNamed(1, column) && (members.empty() || members[0] < getDimensionCount()))
            items.push_back(item);
        return items;
    }
    if (members.empty() || members[0] >= getDimensionCount())
        return items;
    for (std::size_t i = 1; i < members.size(); ++i) {
        const KXChartItem item = members[0] == 0 ? KXChartItem{rowKind, members[i], 0}
                                                 : KXChartItem{columnKind, 0, members[i]};
        if (hasItem(item))
            items.push_back(item);
    }
    return items;
}

// The pointer and the keys

bool KXHeatMapChart::_canChoose()
{
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXChartSelectionProvider>();
    return provider && isInteractionEnabled() && provider->obtainCanSelect(this) && use.isAlive();
}

/** A drag chooses the cells that have a value; totals are none of them. */
void KXHeatMapChart::_choose(const KXGridBlock& block, const UXEvent& event)
{
    const KXGridRange rows = kxIntersectRanges(block.rows, {0, obtainRowCount()});
    const KXGridRange columns = kxIntersectRanges(block.columns, {0, obtainColumnCount()});
    std::vector<KXChartItem> items;
    if (rows.isEmpty() || columns.isEmpty() ||
        rows.obtainCount() > greatestChosenCount / columns.obtainCount())
        return;
    items.reserve(rows.obtainCount() * columns.obtainCount());
    for (std::uint64_t row = rows.first; row < rows.end; ++row)
        for (std::uint64_t column = columns.first; column < columns.end; ++column)
            if (const KXChartItem item = _obtainItem(
                    {static_cast<std::int64_t>(row), static_cast<std::int64_t>(column)});
                hasItem(item))
                items.push_back(item);
    getItems()->choose(items, event);
}

UXRect KXHeatMapChart::obtainHintArea(UXPoint point) { return getItems()->obtainHintArea(point); }
KXChartDataPath* KXHeatMapChart::createDataPath() { return getItems()->createActionPath(); }

std::optional<KXChartItem> KXHeatMapChart::obtainItemAt(UXPoint point) const
{
    const UXRect rect = m_panel->getRect();
    const UXPoint own(point.x - rect.x, point.y - rect.y);
    const std::optional<KXGridHit> hit = m_panel->findCell(own);
    if (!hit)
        return std::nullopt;
    const auto obtainLine = [](KXGridBand band, std::uint64_t line, std::uint64_t count) {
        return band == KXGridBand::Header
                   ? -1
                   : static_cast<std::int64_t>(band == KXGridBand::Content ? line : count);
    };
    KXGridCell cell = hit->cell;
    const KXHeatMapContentPanel& content = m_panel->getContentPanel();
    if (hit->isContent() && content.isMerged()) {
        const std::optional<KXGridBlock> block = content.findCells(
            {double{1} * own.x - content.getRect().x, double{1} * own.y - content.getRect().y});
        const std::optional<KXGridCell> strongest = block ? content.getCells().findStrongest(*block)
                                                          : std::nullopt;
        if (!strongest)
            return std::nullopt;
        cell = *strongest;
    }
    const Place place{obtainLine(hit->rowBand, cell.row, obtainRowCount()),
                      obtainLine(hit->columnBand, cell.column, obtainColumnCount())};
    const bool isCorner = (place.row < 0 || hit->rowBand == KXGridBand::Totals) && place.column < 0;
    if (isCorner || (place.row < 0 && hit->columnBand == KXGridBand::Totals))
        return std::nullopt;
    const KXChartItem item = _obtainItem(place);
    return hasItem(item) ? std::optional(item) : std::nullopt;
}

UXRect KXHeatMapChart::obtainItemRect(const KXChartItem& item) const
{
    const std::optional<Place> place = _obtainPlace(item);
    if (!place)
        return {};
    const auto obtainBand = [](std::int64_t line, std::uint64_t count) {
        if (line < 0)
            return KXGridBand::Header;
        return line < static_cast<std::int64_t>(count) ? KXGridBand::Content : KXGridBand::Totals;
    };
    KXGridHit hit{
        obtainBand(place->row, obtainRowCount()), obtainBand(place->column, obtainColumnCount()), {}};
    hit.cell = {hit.rowBand == KXGridBand::Content ? item.group : 0,
                hit.columnBand == KXGridBand::Content ? item.index : 0};
    UXRect rect = m_panel->obtainSeenRect(hit);
    if (uxIsEmptyRect(rect))
        return {};
    rect.x += m_panel->getRect().x;
    rect.y += m_panel->getRect().y;
    return rect;
}

/** @return the next item in a direction; what has no value is passed over */
std::optional<KXChartItem> KXHeatMapChart::_stepFrom(const Place& from, int rows, int columns) const
{
    Place place = from;
    const auto rowCount = static_cast<std::int64_t>(obtainRowCount());
    const auto columnCount = static_cast<std::int64_t>(obtainColumnCount());
    for (;;) {
        place.row += rows;
        place.column += columns;
        if (place.row < -1 || place.column < -1 || place.row > rowCount || place.column > columnCount ||
            (place.row < 0 && place.column < 0))
            return std::nullopt;
        const bool isBesideTotals = (place.row < 0 && place.column == columnCount) ||
                                    (place.column < 0 && place.row == rowCount);
        const KXChartItem item = _obtainItem(place);
        if (!isBesideTotals && hasItem(item))
            return item;
    }
}

/** @param from a cell's number, counted row after row
 *  @return the first cell with a value from there on */
std::optional<KXChartItem> KXHeatMapChart::_findInReadingOrder(std::uint64_t from, bool forwards) const
{
    const std::uint64_t across = obtainColumnCount(), count = obtainRowCount() * across;
    for (std::uint64_t cell = from; cell < count; cell += forwards ? 1 : ~std::uint64_t{0}) // or wraps
        if (const KXChartItem item{cellKind, cell / across, cell % across}; hasItem(item))
            return item;
    return std::nullopt;
}

std::optional<KXChartItem> KXHeatMapChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                            KXChartItemStep step) const
{
    using enum KXChartItemStep;
    const std::uint64_t count = obtainRowCount() * obtainColumnCount();
    if (count == 0)
        return std::nullopt;
    if (step == First || step == Last)
        return _findInReadingOrder(step == First ? 0 : count - 1, step == First);
    const std::optional<Place> place = from ? _obtainPlace(*from) : std::nullopt;
    if (!place)
        return std::nullopt;
    if (step == Previous || step == Next) {
        const std::uint64_t cell = _obtainCell({from->group, from->index});
        return from->kind == cellKind ? _findInReadingOrder(step == Next ? cell + 1 : cell - 1, step == Next)
                                      : std::nullopt;
    }
    return _stepFrom(*place,
                     step == Down ? 1
                     : step == Up ? -1
                                  : 0,
                     step == Right  ? 1
                     : step == Left ? -1
                                    : 0);
}

void KXHeatMapChart::showItem(const KXChartItem& item)
{
    // Of a name or a total, what it is about comes into sight in the one direction that scrolls it.
    const KXHeatMapContentPanel& content = m_panel->getContentPanel();
    const KXGridRange rows = content.obtainVisibleRows(), columns = content.obtainVisibleColumns();
    KXGridCell cell{item.group, item.index};
    if (item.kind == rowKind || item.kind == rowTotalKind)
        cell.column = columns.first;
    if (item.kind == columnKind || item.kind == columnTotalKind)
        cell.row = rows.first;
    if (item.kind == grandTotalKind)
        return;
    const UXObjectWatcher self(this);
    m_panel->showCell(cell);
    if (self.isAlive() && m_panel->getRequireToVerifyLayout())
        m_panel->layout(); // so that the ring stands around it
}

bool KXHeatMapChart::customKeyDown(const UXEvent& event, bool& stop)
{
    const auto key = static_cast<UXKeyCode>(event.getKeyCode());
    const std::optional<KXChartItem>& focused = getItems()->getFocused();
    const bool isPage = key == UXKeyCode::PageUp || key == UXKeyCode::PageDown;
    if (!isPage || !isInteractionEnabled() || !focused || focused->kind != cellKind)
        return KXPanelChart::customKeyDown(event, stop);
    const std::uint64_t page = m_panel->obtainPageRows(), last = obtainRowCount() - 1;
    KXChartItem wanted = *focused;
    wanted.group = key == UXKeyCode::PageUp
                       ? wanted.group - std::min(wanted.group, page)
                       : wanted.group + std::min(last - std::min(wanted.group, last), page);
    if (!hasItem(wanted)) {
        const std::optional<KXChartItem> near = _stepFrom(*_obtainPlace(wanted),
                                                          key == UXKeyCode::PageUp ? 1 : -1, 0);
        wanted = near && near->kind == cellKind ? *near : *focused;
    }
    getItems()->walkTo(wanted);
    return true;
}

/** Colours that stand for values are not to change under the pointer; only what others wish to be seen makes
 * the rest give way. */
double KXHeatMapChart::obtainDimmedOpacity() const
{
    const KXChartItems& items = *getItems();
    const bool isName = items.getHovered() && items.getHovered()->kind != cellKind;
    return items.getLinked().empty() && items.getSelected().empty() && !isName
               ? 1
               : KXPanelChart::obtainDimmedOpacity();
}

// Hints

std::string KXHeatMapChart::_obtainName(std::uint64_t dimension, std::uint64_t member)
{
    if (dimension < getDimensionCount())
        return obtainMemberName(dimension, member, *m_dataFormat);
    return dimension == 1 ? getMeasureLabel(0) : std::string();
}

std::string KXHeatMapChart::_writeValue(const KXChartItem& item) const
{
    const std::string text = m_dataFormat->formatNumber(obtainItemValue(item));
    const KXHeatMapContentPanel& content = m_panel->getContentPanel();
    if (item.kind != cellKind || !content.isMerged())
        return text;
    const UXDoubleRect rect = content.obtainCellRect({item.group, item.index});
    const std::optional<KXGridBlock> block = content.findCells({rect.x, rect.y});
    const std::uint64_t count = block ? block->rows.obtainCount() * block->columns.obtainCount() : 1;
    return count > 1 ? text + " (" + std::to_string(count) + " " + m_words[1] + ")" : text;
}

KXChartDataProviderHintData KXHeatMapChart::_describeItem(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    const bool hasRow = item.kind == cellKind || item.kind == rowKind || item.kind == rowTotalKind;
    const bool hasColumn = item.kind == cellKind || item.kind == columnKind || item.kind == columnTotalKind;
    std::string title = hasRow ? _obtainName(0, item.group) : std::string();
    if (!self.isAlive())
        return {};
    if (const std::string name = hasColumn ? _obtainName(1, item.index) : std::string(); !name.empty())
        title += (title.empty() ? "" : ", ") + name;
    if (!self.isAlive())
        return {};
    if (item.kind == rowKind || item.kind == columnKind)
        return {title, std::string()};
    if (item.kind != cellKind)
        title += (title.empty() ? "" : ", ") + m_words[0];
    KXChartDataProviderHintData data(title, _writeValue(item));
    if (item.kind != cellKind)
        return data;
    const std::uint64_t cell = _obtainCell({item.group, item.index});
    const double second = getMeasureCount() > 1 ? getValue(1, cell) : noNumber;
    const std::string other = std::isnan(second)
                                  ? std::string()
                                  : getMeasureLabel(1) + ": " + m_dataFormat->formatNumber(second);
    // Telling of a part comes last, as asking for its words may destroy the chart.
    if (const double part = getHighlightedPart(0, cell); !std::isnan(part))
        data.value = KXHighlightedParts::tellPart(m_dataFormat->formatNumber(part), data.value);
    if (!other.empty())
        data.subtitle = std::exchange(data.value, other); // which is read before the other measure
    return data;
}

/** @return what the provider says about a cell, or else its names and its value */
UXHintInfo KXHeatMapChart::obtainItemHint(const KXChartItem& item)
{
    KXChartDataProviderHintData data;
    const KXChartDataProviderUse use(*this);
    if (auto* provider = use.as<KXPanelChartDataProvider>(); provider && item.kind == cellKind)
        data = provider->obtainHintData(this, obtainValuePath(0, _obtainCell({item.group, item.index})));
    if (use.isAlive() && data.isEmpty())
        data = _describeItem(item);
    return use.isAlive() ? kxMakeHintInfo(data, m_hintInfo) : UXHintInfo(false);
}
