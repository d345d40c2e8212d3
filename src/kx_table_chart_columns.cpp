#include "kx_table_chart.h"
#include "kx_table_grid.h"
#include "ux/ux_event.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <numeric>
#include <span>
#include <utility>

namespace {

constexpr double leastWidth = 24;
/** A column does not grow beyond these by itself. */
constexpr double greatestValueWidth = 320, greatestHeaderWidth = 360;
constexpr double firstHeaderWidth = 60, firstValueWidth = 56;
/** Row headers leave so much of the width to the cells. */
constexpr double greatestHeaderShare = 0.4;
/** Cells become wider than they need, to fill a wide table, by this much at most. */
constexpr double greatestStretch = 48;
/** Where there are more columns, all are as wide as the widest measure needs. */
constexpr std::uint64_t greatestGivenCount = 1 << 20;
/** So far the pointer moves before a header goes with it, and so many siblings can be put in order. */
constexpr int leastDrag = 4;
constexpr std::uint64_t greatestSiblingCount = 4096;

} // namespace

/** Columns are as wide as what was in sight of them needs, or as the user wants; what is left of the width
 * goes to all of them. */
void KXTableChart::_updateColumns()
{
    m_headerWidths.resize(_obtainRowHeaderCount(), firstHeaderWidth);
    m_measureWidths.resize(std::max<std::size_t>(getMeasures().size(), 1), firstValueWidth);
    const std::uint64_t content = _obtainContentCount(false), count = obtainColumnCount();
    const std::uint64_t frozen = _obtainFrozenCount();
    const bool areEqual = content > greatestGivenCount ||
                          (m_sizedColumns.empty() && _obtainMeasuresAlong(false) == 1);
    const auto obtainWidth = [this](KXGridBand band, std::uint64_t column) {
        return _findGivenWidth(band, column).value_or(_obtainNaturalWidth(band, column));
    };

    // 1. Row headers
    const double down = m_grid->getRows(KXGridBand::Header).obtainTotal() +
                        m_grid->getRows(KXGridBand::Content).obtainTotal() +
                        m_grid->getRows(KXGridBand::Totals).obtainTotal();
    const bool scrollsDown = down > m_grid->getRect().height;
    const double room = m_grid->getRect().width - (scrollsDown ? UXVirtualScrollView::extraExtent : 0);
    double left = room * greatestHeaderShare;
    std::vector<double> widths;
    widths.reserve(_obtainRowHeaderCount() + (areEqual ? 0 : count));
    for (std::uint64_t column = 0; column < _obtainRowHeaderCount(); ++column) {
        const std::optional<double> given = _findGivenWidth(KXGridBand::Header, column);
        widths.push_back(given.value_or(std::min(_obtainNaturalWidth(KXGridBand::Header, column), left)));
        left = std::max(left - widths.back(), leastWidth);
    }
    const KXGridLines headers = KXGridLines::makeGiven(widths);
    m_grid->setColumns(KXGridBand::Header, headers);

    // 2. What all cells of a row need
    widths.clear();
    double needed = 0;
    if (areEqual)
        needed = static_cast<double>(count) * *std::ranges::max_element(m_measureWidths);
    for (std::uint64_t column = 0; !areEqual && column < count; ++column) {
        const bool isTotal = column >= content;
        widths.push_back(obtainWidth(isTotal ? KXGridBand::Totals : KXGridBand::Content,
                                     isTotal ? column - content : column));
        needed += widths.back();
    }
    const double spare = room - headers.obtainTotal() - needed;
    m_stretch = std::floor(
        std::clamp(spare / static_cast<double>(std::max<std::uint64_t>(count, 1)), 0.0, greatestStretch));

    // 3. Their columns
    if (areEqual) {
        const double width = *std::ranges::max_element(m_measureWidths) + m_stretch;
        m_grid->setColumns(KXGridBand::Frozen, KXGridLines::makeEqual(frozen, width));
        m_grid->setColumns(KXGridBand::Content, KXGridLines::makeEqual(content - frozen, width));
        m_grid->setColumns(KXGridBand::Totals, KXGridLines::makeEqual(count - content, width));
        return;
    }
    for (double& width : widths)
        width += m_stretch;
    const std::span<const double> all(widths);
    m_grid->setColumns(KXGridBand::Frozen, KXGridLines::makeGiven(all.first(frozen)));
    m_grid->setColumns(KXGridBand::Content, KXGridLines::makeGiven(all.subspan(frozen, content - frozen)));
    m_grid->setColumns(KXGridBand::Totals, KXGridLines::makeGiven(all.subspan(content)));
}

std::string KXTableChart::_obtainSizeIdentity(KXGridBand band, std::uint64_t column)
{
    if (band == KXGridBand::Header)
        return "//" + std::to_string(column);
    return band == KXGridBand::Content ? _obtainColumnIdentity(column)
                                       : "///" + getMeasures()[_obtainLine(false, band, column).measure].id;
}

double& KXTableChart::_obtainNaturalWidth(KXGridBand band, std::uint64_t column)
{
    if (band == KXGridBand::Header)
        return m_headerWidths[column];
    return m_measureWidths[m_measuresOnRows ? 0 : _obtainMeasureAt(false, column % m_measureWidths.size())];
}

std::optional<double> KXTableChart::_findGivenWidth(KXGridBand band, std::uint64_t column)
{
    if (m_sizedColumns.empty())
        return std::nullopt;
    const std::string identity = _obtainSizeIdentity(band, column);
    const auto found = std::ranges::find(m_sizedColumns, identity);
    const auto place = static_cast<std::size_t>(found - m_sizedColumns.begin());
    if (identity.empty() || place >= m_columnWidths.size() || !std::isfinite(m_columnWidths[place]))
        return std::nullopt;
    return std::clamp(m_columnWidths[place], leastWidth, double{1 << 14});
}

/** A text does not fit its column, which is laid out anew with the room that it takes, unless the user wants
 * it so. */
void KXTableChart::_growColumn(KXGridBand band, std::uint64_t column, double width)
{
    const bool isHeader = band == KXGridBand::Header;
    double& natural = _obtainNaturalWidth(band, column);
    const double wanted = std::ceil(std::min(width, isHeader ? greatestHeaderWidth : greatestValueWidth));
    if (wanted <= natural || _findGivenWidth(band, column))
        return;
    natural = wanted;
    if (std::exchange(m_isGrowing, true) || m_isLayingOut || m_asksNobody)
        return;
    UXLayoutRounds::postAction([this, self = UXObjectWatcher(this)] { // it was scrolled into sight
        if (!self.isAlive())
            return;
        m_keepsWidths = true;
        setRequireToVerifyLayout(true, true);
    });
}

// Their order

/** Measures stand in the order that the user has put them in, those that it does not name behind. */
void KXTableChart::_orderMeasures()
{
    m_measureOrder.resize(getMeasures().size());
    std::iota(m_measureOrder.begin(), m_measureOrder.end(), std::uint64_t{0});
    std::ranges::stable_sort(m_measureOrder, {}, [this](std::uint64_t measure) {
        return std::ranges::find(m_columnOrder, "/" + getMeasures()[measure].id) - m_columnOrder.begin();
    });
}

/** A press on the name of a member or a measure takes it up. */
void KXTableChart::_takeColumn(KXTablePanel& panel, const UXEvent& event)
{
    const UXPoint point = panel.getTranslatedPointFromEvent(event, &panel);
    const std::optional<KXGridCell> cell = panel.findCell(UXDoublePoint(point.x, point.y));
    const Columns columns = _obtainColumns(panel.getColumnBand());
    if (!cell || panel.getRowBand() != KXGridBand::Header || columns.band == KXGridBand::Header)
        return;
    const Line line = _obtainLine(false, columns.band, columns.first + cell->column);
    ColumnDrag drag;
    drag.startX = point.x;
    drag.isMeasure = _hasMeasureHeaders() && cell->row + 1 == _obtainColumnHeaderCount();
    drag.measure = line.measure;
    const KXIndexPath& path = line.line.path;
    if (!drag.isMeasure && cell->row >= path.size())
        return; // the name of a total
    if (!drag.isMeasure)
        drag.path.assign(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(cell->row) + 1);
    if (_obtainSiblings(drag).size() > 1)
        m_columnDrag = std::move(drag);
}

/** @return the measures, or the members below the same parent, in the order in which they are shown; none
 * where there are too many */
std::vector<std::uint64_t> KXTableChart::_obtainSiblings(const ColumnDrag& drag) const
{
    if (drag.isMeasure)
        return m_measureOrder;
    const KXIndexPath parent(drag.path.begin(), drag.path.end() - 1);
    const std::uint64_t count = getTree(false).obtainMemberCount(parent);
    if (count > greatestSiblingCount)
        return {};
    return getTree(false).obtainShownMembers(parent);
}

/** @return the place among the siblings of the one that a column belongs to, none where it is of others */
std::optional<std::uint64_t> KXTableChart::_findSibling(const ColumnDrag& drag, const Line& column) const
{
    std::uint64_t sibling = column.measure;
    if (!drag.isMeasure) {
        const KXIndexPath& path = column.line.path;
        const std::size_t length = drag.path.size();
        if (path.size() < length ||
            !std::equal(path.begin(), path.begin() + static_cast<std::ptrdiff_t>(length) - 1,
                        drag.path.begin()))
            return std::nullopt;
        sibling = path[length - 1];
    }
    const std::vector<std::uint64_t> siblings = _obtainSiblings(drag);
    const auto found = std::ranges::find(siblings, sibling);
    return found == siblings.end() ? std::nullopt
                                   : std::optional(static_cast<std::uint64_t>(found - siblings.begin()));
}

/** Shows where the header would be put down: at the nearer edge of what is below the pointer. */
void KXTableChart::_dragColumn(KXTablePanel& panel, const UXEvent& event)
{
    const UXPoint point = panel.getTranslatedPointFromEvent(event, &panel);
    m_columnDrag->hasMoved = m_columnDrag->hasMoved || std::abs(point.x - m_columnDrag->startX) > leastDrag;
    if (!m_columnDrag->hasMoved)
        return;
    m_columnDrag->place.reset();
    const KXGridRange range = panel.obtainVisibleColumns();
    const Columns columns = _obtainColumns(panel.getColumnBand());
    const auto obtainSibling = [&](std::uint64_t index) {
        return _findSibling(*m_columnDrag, _obtainLine(false, columns.band, columns.first + index));
    };
    std::optional<double> edge;
    for (std::uint64_t index = range.first; index < range.end; ++index) {
        const UXDoubleRect rect = panel.obtainCellRect({0, index});
        const std::optional<std::uint64_t> sibling = obtainSibling(index);
        if (!sibling || point.x < rect.x || point.x >= uxMaxDoubleX(rect))
            continue;
        // The columns of one member go together.
        std::uint64_t first = index, last = index;
        while (first > range.first && obtainSibling(first - 1) == sibling)
            --first;
        while (last + 1 < range.end && obtainSibling(last + 1) == sibling)
            ++last;
        const double left = panel.obtainCellRect({0, first}).x;
        const double right = uxMaxDoubleX(panel.obtainCellRect({0, last}));
        const bool isBehind = point.x > (left + right) / 2;
        m_columnDrag->place = *sibling + (isBehind ? 1 : 0);
        edge = isBehind ? right : left;
    }
    panel.setDropEdge(edge);
}

std::optional<KXTableChart::ColumnDrag> KXTableChart::_endColumnDrag()
{
    for (KXTablePanel* panel : m_panels)
        panel->setDropEdge(std::nullopt);
    return std::exchange(m_columnDrag, std::nullopt);
}

void KXTableChart::_dropColumn(const UXEvent& event)
{
    const std::optional<ColumnDrag> drag = _endColumnDrag();
    if (!drag || !drag->place)
        return;
    event.postAction([this, self = UXObjectWatcher(this), drag = *drag] {
        if (self.isAlive())
            _moveColumn(drag);
    });
}

/** Notes the siblings in their new order by what documents know them by. The host is asked for names that are
 * not there, which may destroy the chart. */
void KXTableChart::_moveColumn(const ColumnDrag& drag)
{
    // 1. The new order
    std::vector<std::uint64_t> siblings = _obtainSiblings(drag);
    const auto found = std::ranges::find(siblings, drag.isMeasure ? drag.measure : drag.path.back());
    const auto target = static_cast<std::ptrdiff_t>(std::min<std::uint64_t>(*drag.place, siblings.size()));
    const std::ptrdiff_t from = found - siblings.begin();
    if (found == siblings.end() || target == from || target == from + 1)
        return;
    if (target > from)
        std::rotate(found, found + 1, siblings.begin() + target);
    else
        std::rotate(siblings.begin() + target, found, found + 1);

    // 2. Their names
    const UXObjectWatcher self(this);
    std::vector<std::string> order = m_columnOrder, names;
    KXIndexPath path = drag.path;
    for (const std::uint64_t sibling : siblings) {
        std::string name;
        if (drag.isMeasure) {
            name = "/" + getMeasures()[sibling].id;
        } else {
            path.back() = sibling;
            const bool isThere = _fetchHeader(false, path) != nullptr;
            if (!self.isAlive())
                return;
            name = isThere ? obtainIdentity(false, path) : std::string();
        }
        if (name.empty())
            continue;
        std::erase(order, name);
        names.push_back(std::move(name));
    }
    order.insert(order.end(), names.begin(), names.end());
    setColumnOrder(order);
}
