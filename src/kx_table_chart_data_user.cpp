#include "kx_table_chart_data_user.h"

#include "kx_chart.h"
#include "kx_chart_data_provider_use.h"
#include "kx_highlighted_parts.h"
#include "kx_table_chart_data_provider.h"
#include "ux/ux_assert.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

// Hosts may refer to them, on Windows too
constexpr std::uint64_t KXTableChartDataUser::greatestLevelCount;
constexpr std::uint64_t KXTableChartDataUser::greatestMeasureCount;
constexpr std::size_t KXTableChartDataUser::greatestCellSize;
constexpr std::uint64_t KXTableChartDataUser::greatestOpenCount;

namespace {

constexpr std::uint64_t allMembers = KXTableChartDataProvider::allMembers;
/** Headers and cells come in blocks of so many. */
constexpr std::uint64_t headerBlock = 256, rowBlock = 64, columnBlock = 16;
constexpr std::size_t greatestHeaderSize = std::size_t{16} << 20;
/** Sums up to a member go over so many before it at most. */
constexpr std::uint64_t greatestRun = 100'000;
constexpr std::size_t percentileCount = 101;
const std::vector<double> noPercentiles;
constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
const KXTableExtent noExtent;
const KXTableCell noCell;

/** Where the member of a path stands: below which parent and at which position; of a total that of all. */
struct Position {
    KXIndexPath parent;
    std::uint64_t index = 0;
};

Position obtainPosition(const KXIndexPath& path, std::uint64_t levelCount)
{
    if (levelCount == 0)
        return {};
    if (path.size() < levelCount)
        return {path, allMembers};
    return {KXIndexPath(path.begin(), path.end() - 1), path.back()};
}

std::uint64_t obtainBlockStart(std::uint64_t index, std::uint64_t block)
{
    return index == allMembers ? allMembers : index - index % block;
}

/** What a block of headers is known by: the side, its first position, the parent's path. */
KXIndexPath makeHeaderKey(bool isRow, const KXIndexPath& parent, std::uint64_t first)
{
    KXIndexPath key{isRow ? std::uint64_t{1} : 0, first};
    key.insert(key.end(), parent.begin(), parent.end());
    return key;
}

constexpr std::size_t headerKeyHead = 2;

/** What a block of cells is known by: measure, first row, first column, the levels above the rows, the paths
 * of both parents. */
KXIndexPath makeCellKey(std::uint64_t measure, const Position& row, const Position& column)
{
    KXIndexPath key{measure, obtainBlockStart(row.index, rowBlock),
                    obtainBlockStart(column.index, columnBlock), row.parent.size()};
    key.insert(key.end(), row.parent.begin(), row.parent.end());
    key.insert(key.end(), column.parent.begin(), column.parent.end());
    return key;
}

constexpr std::size_t cellKeyHead = 4;

/** @return how many members a block has from its first on */
std::uint64_t obtainBlockLength(std::uint64_t first, std::uint64_t count, std::uint64_t block)
{
    if (first == allMembers)
        return 1;
    return first < count ? std::min(block, count - first) : 0;
}

void addPart(std::string& identity, const std::string& part)
{
    if (!identity.empty())
        identity += '/';
    for (const char character : part) {
        if (character == '/' || character == '\\')
            identity += '\\';
        identity += character;
    }
}

} // namespace

KXTableChartDataUser::KXTableChartDataUser(KXChart* chart)
    : KXChartDataUser(chart), m_headers(greatestHeaderSize), m_cells(greatestCellSize)
{
}

KXTableChartDataUser::~KXTableChartDataUser() = default;

const KXTableExtent& KXTableChartDataUser::getExtent(std::uint64_t measure) const
{
    return measure < m_extents.size() ? m_extents[measure] : noExtent;
}

bool KXTableChartDataUser::hasTotals(bool isRow, std::uint64_t level) const
{
    const std::vector<bool>& levels = _side(isRow).hasTotals;
    return level < levels.size() && levels[level];
}

void KXTableChartDataUser::resetData()
{
    KXChartDataUser::resetData();
    ++m_generation;
    m_data = {};
    m_extents.clear();
    m_percentiles.clear();
    m_wantedPercentiles.clear();
    m_rows = {};
    m_columns = {};
    m_headers.clear();
    m_cells.clear();
    m_hasRun = false;
}

void KXTableChartDataUser::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    auto* tableProvider = dynamic_cast<KXTableChartDataProvider*>(provider);
    const KXChartDataProviderWatcher watcher(this);
    if (!uxAssert(tableProvider) || tableProvider->obtainDataIsEmpty(this) || !watcher.isCurrent())
        return;

    // The answers are gathered aside: the provider may destroy the chart, and this with it, in any of them.
    Data data;
    if (!_pullSide(*tableProvider, true, data.rows, 0) ||
        !_pullSide(*tableProvider, false, data.columns, data.rows.dimensions.size()) ||
        !_pullMeasures(*tableProvider, data))
        return;
    m_data = std::move(data);
    m_extents = m_data.extents;
    prepared = !m_data.measures.empty() && m_data.rows.count > 0 && m_data.columns.count > 0;
}

/** @return false once the provider must not be asked more */
bool KXTableChartDataUser::_pullSide(KXTableChartDataProvider& provider, bool isRow, Side& side,
                                     std::uint64_t firstDimension)
{
    const KXChartDataProviderWatcher watcher(this);
    std::uint64_t count = isRow ? provider.obtainRowDimensionCount(this)
                                : provider.obtainColumnDimensionCount(this);
    count = std::min(count, greatestLevelCount);
    for (std::uint64_t level = 0; level < count && watcher.isCurrent(); ++level) {
        const std::uint64_t dimension = firstDimension + level;
        Dimension pulled;
        pulled.label = provider.obtainDimensionLabel(this, dimension);
        if (watcher.isCurrent())
            pulled.name = provider.obtainDimensionName(this, dimension);
        if (watcher.isCurrent())
            pulled.type = provider.obtainDimensionDataType(this, dimension);
        if (watcher.isCurrent())
            pulled.level = provider.obtainDimensionAggregateType(this, dimension);
        const bool hasTotals = watcher.isCurrent() && provider.obtainHasTotals(this, isRow, level);
        side.dimensions.push_back(std::move(pulled));
        side.hasTotals.push_back(hasTotals);
    }
    if (watcher.isCurrent())
        side.count = count > 0 ? provider.obtainHeaderCount(this, isRow, {}) : 1;
    return watcher.isCurrent();
}

bool KXTableChartDataUser::_pullMeasures(KXTableChartDataProvider& provider, Data& data)
{
    const KXChartDataProviderWatcher watcher(this);
    const std::uint64_t count = std::min(provider.obtainValueCount(this), greatestMeasureCount);
    for (std::uint64_t measure = 0; measure < count && watcher.isCurrent(); ++measure) {
        Measure pulled;
        pulled.label = provider.obtainValueLabel(this, measure);
        if (watcher.isCurrent())
            pulled.id = provider.obtainValueID(this, measure);
        if (watcher.isCurrent())
            pulled.type = provider.obtainValueDataType(this, {measure, 0, 0});
        if (watcher.isCurrent())
            pulled.level = provider.obtainValueAggregateType(this, {measure, 0, 0});
        const bool hasExtent = watcher.isCurrent() && pulled.isNumber();
        data.extents.push_back(hasExtent ? provider.obtainExtent(this, measure) : KXTableExtent());
        data.measures.push_back(std::move(pulled));
    }
    return watcher.isCurrent();
}

void KXTableChartDataUser::customReloadData()
{
    const KXChartDataProviderUse use(*this);
    m_headers.takeWanted();
    m_cells.takeWanted();
    m_wantedPercentiles.clear();
    for (const bool isRow : {true, false}) {
        const Side& side = _side(isRow);
        KXTableHeaderTree::Style style = _obtainTreeStyle(isRow);
        style.hasTotals = side.hasTotals;
        const std::uint64_t levelCount = side.dimensions.size();
        (isRow ? m_rows : m_columns) = KXTableHeaderTree(levelCount, side.count, std::move(style));
        std::uint64_t room = greatestOpenCount;
        _openGroups(isRow, {}, room);
        if (!use.isAlive())
            return;
    }
}

/** Opens the groups below a parent, and those below them. @param room how many may still be looked at */
void KXTableChartDataUser::_openGroups(bool isRow, const KXIndexPath& parent, std::uint64_t& room)
{
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXTableChartDataProvider>();
    KXTableHeaderTree& tree = isRow ? m_rows : m_columns;
    const std::uint64_t count = tree.obtainMemberCount(parent);
    const bool isAboveLeaves = parent.size() + 1 < tree.getLevelCount();
    if (!provider || parent.size() >= tree.getLevelCount() || count > room)
        return;
    const unsigned generation = m_generation;
    const auto isCurrent = [&] { return use.isCurrent() && generation == m_generation; };
    _arrangeMembers(isRow, parent);
    if (!isCurrent() || !isAboveLeaves)
        return;
    room -= count;
    KXIndexPath path = parent;
    path.push_back(0);
    for (; path.back() < count; ++path.back()) {
        const KXTableHeader* header = _fetchHeader(isRow, path);
        if (!isCurrent())
            return;
        if (!header || !header->hasChildren || !_isGroupOpen(isRow, obtainIdentity(isRow, path)))
            continue;
        const std::uint64_t memberCount = provider->obtainHeaderCount(this, isRow, path);
        if (!isCurrent())
            return;
        tree.expand(path, memberCount);
        _openGroups(isRow, path, room);
        if (!isCurrent())
            return;
    }
}

/** Members below a parent are shown in the order that is wanted, without those that have no values. */
void KXTableChartDataUser::_arrangeMembers(bool isRow, const KXIndexPath& parent)
{
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXTableChartDataProvider>();
    KXTableHeaderTree& tree = isRow ? m_rows : m_columns;
    const bool hidesEmpty = _hidesEmptyMembers(isRow), hasOrder = !_obtainMemberOrder(isRow).empty();
    if (!provider || (!hidesEmpty && !hasOrder))
        return;

    // 1. Ask for what it takes
    const unsigned generation = m_generation;
    const auto isCurrent = [&] { return use.isCurrent() && generation == m_generation; };
    const std::uint64_t count = tree.obtainMemberCount(parent);
    std::vector<bool> areEmpty;
    if (hidesEmpty)
        areEmpty = provider->obtainEmptyHeaders(this, isRow, parent, 0, count);
    areEmpty.resize(count, false);
    std::vector<std::string> identities(count);
    KXIndexPath path = parent;
    path.push_back(0);
    for (; hasOrder && path.back() < count && isCurrent(); ++path.back())
        if (_fetchHeader(isRow, path) && isCurrent())
            identities[path.back()] = obtainIdentity(isRow, path);
    if (!isCurrent())
        return;

    // 2. Those without a place of their own stay in the host's order.
    const std::vector<std::string>& order = _obtainMemberOrder(isRow);
    std::map<std::string, std::size_t> places;
    for (std::size_t place = 0; place < order.size(); ++place)
        places.try_emplace(order[place], place);
    const auto obtainRank = [&](std::uint64_t position) {
        const auto found = places.find(identities[position]);
        return found == places.end() ? order.size() : found->second;
    };
    std::vector<std::uint64_t> shown;
    shown.reserve(count);
    for (std::uint64_t position = 0; position < count; ++position)
        if (!areEmpty[position])
            shown.push_back(position);
    std::ranges::stable_sort(shown, {}, obtainRank);
    tree.setShownMembers(parent, std::move(shown));
}

void KXTableChartDataUser::_setGroupOpen(bool isRow, const KXIndexPath& path, bool isOpen)
{
    if (!isOpen) {
        (isRow ? m_rows : m_columns).collapse(path);
        return;
    }
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXTableChartDataProvider>();
    const unsigned generation = m_generation;
    const std::uint64_t count = provider ? provider->obtainHeaderCount(this, isRow, path) : 0;
    if (!use.isAlive() || generation != m_generation)
        return;
    (isRow ? m_rows : m_columns).expand(path, count);
    std::uint64_t room = greatestOpenCount;
    _openGroups(isRow, path, room);
}

const KXTableHeader* KXTableChartDataUser::findHeader(bool isRow, const KXIndexPath& path)
{
    if (path.empty())
        return nullptr;
    const KXIndexPath parent(path.begin(), path.end() - 1);
    const std::uint64_t first = obtainBlockStart(path.back(), headerBlock);
    const std::vector<KXTableHeader>* block = m_headers.find(makeHeaderKey(isRow, parent, first));
    return block && path.back() - first < block->size() ? &(*block)[path.back() - first] : nullptr;
}

const KXTableHeader* KXTableChartDataUser::_fetchHeader(bool isRow, const KXIndexPath& path)
{
    const UXObjectWatcher chart(getChart());
    if (!findHeader(isRow, path) && (!_requestAll() || !chart.isAlive()))
        return nullptr;
    return findHeader(isRow, path);
}

std::string KXTableChartDataUser::obtainIdentity(bool isRow, const KXIndexPath& path)
{
    std::string identity;
    for (std::size_t length = 1; length <= path.size(); ++length) {
        const KXTableHeader* header = findHeader(
            isRow, KXIndexPath(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(length)));
        if (!header)
            return {};
        addPart(identity, header->obtainIdentity());
    }
    return identity;
}

/** @return whether the host has such a cell: a total only where it says that there are totals */
bool KXTableChartDataUser::_isAnswered(const KXTablePlace& place) const
{
    const auto isThere = [this](bool isRow, const KXIndexPath& path) {
        return path.size() >= _side(isRow).dimensions.size() || hasTotals(isRow, path.size());
    };
    return place.measure < m_data.measures.size() && isThere(true, place.row) && isThere(false, place.column);
}

const KXTableCell* KXTableChartDataUser::findCell(const KXTablePlace& place)
{
    if (!_isAnswered(place))
        return &noCell;
    const Position row = obtainPosition(place.row, m_data.rows.dimensions.size());
    const Position column = obtainPosition(place.column, m_data.columns.dimensions.size());
    const std::vector<KXTableCell>* block = m_cells.find(makeCellKey(place.measure, row, column));
    if (!block)
        return nullptr;
    // Blocks at the end are shorter: their width is that of what the parent has left.
    const std::uint64_t columnStart = obtainBlockStart(column.index, columnBlock);
    const std::uint64_t width = obtainBlockLength(columnStart, m_columns.obtainMemberCount(column.parent),
                                                  columnBlock);
    const std::uint64_t index = (row.index - obtainBlockStart(row.index, rowBlock)) * width +
                                (column.index - columnStart);
    return index < block->size() ? &(*block)[index] : nullptr;
}

double KXTableChartDataUser::_findNumber(const KXTablePlace& place)
{
    const KXTableCell* cell = findCell(place);
    return cell && cell->state == KXTableCellState::Value ? cell->number : noNumber;
}

double KXTableChartDataUser::obtainShownNumber(const KXTablePlace& place, KXTableShowValuesAs shown)
{
    using enum KXTableShowValuesAs;
    const double value = _findNumber(place);
    const auto percentOf = [value](double total) { return total != 0 ? 100 * (value / total) : noNumber; };
    KXTablePlace other = place;
    switch (shown) {
    case Value:
        return value;
    case PercentOfRow:
        other.column.clear();
        return percentOf(_findNumber(other));
    case PercentOfColumn:
        other.row.clear();
        return percentOf(_findNumber(other));
    case PercentOfTotal:
        other.row.clear();
        other.column.clear();
        return percentOf(_findNumber(other));
    case Difference:
        if (place.row.empty() || place.row.back() == 0 || place.row.size() < m_data.rows.dimensions.size())
            return noNumber;
        --other.row.back();
        return value - _findNumber(other);
    case RunningTotal:
        return _obtainRunningTotal(place);
    }
    return value;
}

/** @return the sum of the members of the group up to the cell's; a total is its own */
double KXTableChartDataUser::_obtainRunningTotal(const KXTablePlace& place)
{
    const bool isMember = !place.row.empty() && place.row.size() == m_data.rows.dimensions.size();
    if (!isMember)
        return _findNumber(place);
    const std::uint64_t last = place.row.back();
    if (last >= greatestRun)
        return noNumber;

    // 1. Rows are shown one after the other, so that mostly the sum before is known.
    KXTablePlace other = place;
    other.row.back() = last > 0 ? last - 1 : 0;
    const bool goesOn = m_hasRun && last > 0 && other == m_runPlace;
    double sum = goesOn ? m_runSum : 0;

    // 2. What is not there yet leaves no sum, and all of it is asked for at once.
    bool isComplete = true;
    for (other.row.back() = goesOn ? last : 0; other.row.back() <= last; ++other.row.back()) {
        const KXTableCell* cell = findCell(other);
        isComplete = isComplete && cell;
        if (cell && cell->state == KXTableCellState::Value)
            sum += cell->number;
        else if (!cell) // the others of its block are not there either
            other.row.back() = obtainBlockStart(other.row.back(), rowBlock) + rowBlock - 1;
    }
    m_hasRun = isComplete;
    m_runPlace = place;
    m_runSum = sum;
    return isComplete ? sum : noNumber;
}

void KXTableChartDataUser::_requestMissing()
{
    if (!_hasMissing())
        return;
    const UXObjectWatcher chart(getChart());
    if (!UXLayoutRounds::isLayingOut()) {
        if (_requestAll() && chart.isAlive())
            _blocksArrived();
        return;
    }
    if (std::exchange(m_isPosted, true))
        return;
    UXLayoutRounds::postAction([this, chart] {
        if (!chart.isAlive())
            return;
        m_isPosted = false;
        if (_requestAll() && chart.isAlive())
            _blocksArrived();
    });
}

bool KXTableChartDataUser::_fetchMissing() { return _requestAll(); }

/** Asks for all that was missed. The host may destroy the chart. @return whether something has come */
bool KXTableChartDataUser::_requestAll()
{
    const UXObjectWatcher chart(getChart());
    const unsigned generation = m_generation;
    const auto isCurrent = [&] { return chart.isAlive() && generation == m_generation; };
    bool hasCome = false;
    for (const std::uint64_t measure : std::exchange(m_wantedPercentiles, {})) {
        const bool isThere = _pullPercentiles(measure);
        if (!isCurrent())
            return false;
        hasCome = hasCome || isThere;
    }
    for (const KXIndexPath& key : m_headers.takeWanted()) {
        const bool isThere = _pullHeaders(key);
        if (!isCurrent())
            return false;
        if (!isThere)
            m_headers.await(key);
        hasCome = hasCome || isThere;
    }
    for (const KXIndexPath& key : m_cells.takeWanted()) {
        const bool isThere = _pullCells(key);
        if (!isCurrent())
            return false;
        if (!isThere)
            m_cells.await(key);
        hasCome = hasCome || isThere;
    }
    return hasCome;
}

const std::vector<double>& KXTableChartDataUser::findPercentiles(std::uint64_t measure)
{
    if (const auto found = m_percentiles.find(measure); found != m_percentiles.end())
        return found->second;
    if (measure < m_data.measures.size() && m_data.measures[measure].isNumber())
        m_wantedPercentiles.insert(measure);
    return noPercentiles;
}

/** @return whether the host knows them */
bool KXTableChartDataUser::_pullPercentiles(std::uint64_t measure)
{
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXTableChartDataProvider>();
    const unsigned generation = m_generation;
    std::vector<double> values(percentileCount);
    const bool isKnown = provider && provider->obtainPercentiles(this, measure, values);
    if (!use.isAlive() || generation != m_generation)
        return false;
    if (!isKnown)
        values.clear();
    m_percentiles[measure] = std::move(values);
    return isKnown;
}

bool KXTableChartDataUser::_pullHeaders(const KXIndexPath& key)
{
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXTableChartDataProvider>();
    const bool isRow = key[0] == 1;
    const std::uint64_t first = key[1];
    const KXIndexPath parent(key.begin() + headerKeyHead, key.end());
    const std::uint64_t count = (isRow ? m_rows : m_columns).obtainMemberCount(parent);
    const unsigned generation = m_generation;
    std::vector<KXTableHeader> headers(obtainBlockLength(first, count, headerBlock));
    if (provider && !headers.empty() && !provider->obtainHeaders(this, isRow, parent, first, headers))
        return false;
    if (use.isAlive() && generation == m_generation)
        m_headers.store(key, std::move(headers));
    return true;
}

bool KXTableChartDataUser::_pullCells(const KXIndexPath& key)
{
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXTableChartDataProvider>();
    const std::uint64_t measure = key[0], firstRow = key[1], firstColumn = key[2];
    const auto middle = key.begin() + cellKeyHead + static_cast<std::ptrdiff_t>(key[3]);
    const KXIndexPath rowParent(key.begin() + cellKeyHead, middle), columnParent(middle, key.end());
    const std::uint64_t height = obtainBlockLength(firstRow, m_rows.obtainMemberCount(rowParent), rowBlock);
    const std::uint64_t width = obtainBlockLength(firstColumn, m_columns.obtainMemberCount(columnParent),
                                                  columnBlock);
    const unsigned generation = m_generation;
    std::vector<KXTableCell> cells(height * width);
    if (provider && !cells.empty() &&
        !provider->obtainCells(this, rowParent, firstRow, columnParent, firstColumn, measure, {cells, width}))
        return false;
    if (!use.isAlive() || generation != m_generation)
        return true;
    for (KXTableCell& cell : cells) {
        if (cell.state == KXTableCellState::Value && m_data.measures[measure].isNumber() &&
            !std::isfinite(cell.number))
            cell.state = KXTableCellState::Null;
        if (cell.part)
            cell.part = KXHighlightedParts::clampPart(*cell.part, cell.number);
    }
    if (!m_data.extents[measure].hasValues)
        _noteCells(measure, cells, firstRow == allMembers || firstColumn == allMembers);
    m_cells.store(key, std::move(cells));
    m_hasRun = false;
    return true;
}

void KXTableChartDataUser::_noteCells(std::uint64_t measure, const std::vector<KXTableCell>& cells,
                                      bool areTotals)
{
    for (const KXTableCell& cell : cells)
        if (cell.state == KXTableCellState::Value)
            kxExtendTableExtent(m_extents[measure], cell.number, areTotals);
}

void KXTableChartDataUser::dataArrived(std::uint64_t, std::uint64_t)
{
    const bool hasPercentiles = std::erase_if(m_percentiles,
                                              [](const auto& known) { return known.second.empty(); }) > 0;
    const bool hasHeaders = m_headers.arrive(), hasCells = m_cells.arrive();
    if (hasHeaders || hasCells || hasPercentiles)
        _blocksArrived();
}
