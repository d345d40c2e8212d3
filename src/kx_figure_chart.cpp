#include "kx_figure_chart.h"

#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_figure_drawing.h"
#include "kx_highlighted_parts.h"
#include "kx_key_definitions.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

KX_DEFINE_CHART_KEY_TABLE(KXFigureChart, KXMemberPanelChart, KX_FIGURE_CHART_KEYS)

namespace {

/** Between two lines, in logical units. */
constexpr double lineGap = 4;
/** So many panels say how large all need to be. */
constexpr std::size_t greatestSampleCount = 200;
/** Of the width of the values in full size: where they have less, panels scroll. */
constexpr double leastValueShare = 0.6;
constexpr double leastPanelWidth = 60;
/** In full sizes of a panel. */
constexpr double enoughRoom = 1.5;
/** What captions ask for, however long they are; and what other lines beside the value's ask for at most. */
constexpr double usualCaptionWidth = 120, greatestOtherWidth = 240;
/** Of a text's height. */
constexpr double leastSeenShare = 0.6;
/** Between panels and their scroll bar. */
constexpr double barGap = 4;
constexpr double greatestGap = 1000;
constexpr int greatestColumnCount = 1000;

double bound(double value, double greatest)
{
    return std::isnan(value) ? 0 : std::clamp(value, 0.0, greatest);
}

} // namespace

KXFigureChart::KXFigureChart() : KXFigureChart(std::make_unique<UXVirtualScrollView>()) {}

KXFigureChart::KXFigureChart(std::unique_ptr<UXVirtualScrollView> view) : m_view(view.release())
{
    m_view->setVisible(false);
    m_view->setEnableHorizontalScrollBar(false, false);
    m_view->setAutoJumpOut(true);
    m_view->setDelegate(this);
    addChild(m_view);
}

KXFigureChart::~KXFigureChart()
{
    _leaveView();
    m_view->setDelegate(nullptr);
}

UXTextProperty KXFigureChart::_makeTextProperty(int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.textColor = color;
    return property;
}

/** Panels name themselves. */
std::uint64_t KXFigureChart::obtainLegendCellSize() { return 0; }
std::string KXFigureChart::_obtainItemKind() const { return "Panel"; }
UXHintInfo KXFigureChart::_obtainHintLook() const { return m_hintInfo; }
UXColor KXFigureChart::_obtainItemColor(const KXChartItem&) const { return m_panelColor; }

/** A line below the figures tells the part. */
double KXFigureChart::_obtainFullShare(const KXChartItem&) const { return 1; }

double KXFigureChart::_obtainGap() const { return bound(m_panelGap, greatestGap); }

double KXFigureChart::_obtainPadding() const
{
    return m_panelColor.alpha > 0 ? bound(m_panelPadding, greatestGap) : 0;
}

bool KXFigureChart::_showsCaptions() const
{
    const bool isSingle = getDimensionCount() == 0 && obtainGroupCount() == 1;
    return m_showCaption && !(isSingle && getChartProperty()->getShowTitle());
}

UXColor KXFigureChart::_obtainDrawnColor(const KXChartItem& item, const UXColor& color) const
{
    return getItems()->obtainDrawnColor(item, color, KXInteractionEffectTarget::NonFilled);
}

/** A panel stands for all that its member has. */
KXListedGroups KXFigureChart::_listIndexes() { return {{0}, {}, 1}; }

/** The layout takes the names itself. */
std::vector<std::uint64_t> KXFigureChart::_obtainNamedMembers(std::uint64_t) const { return {}; }

bool KXFigureChart::hasItem(const KXChartItem& item) const
{
    return item.kind == 0 && item.index == 0 && isGroupShown(item.group);
}

std::vector<std::uint64_t> KXFigureChart::_obtainShownGroups() const
{
    std::vector<std::uint64_t> groups = getListedGroups().getAll();
    std::erase_if(groups, [this](std::uint64_t group) { return !isGroupShown(group); });
    return groups;
}

std::vector<KXChartItem> KXFigureChart::obtainItems() const
{
    std::vector<KXChartItem> items;
    items.reserve(getListedGroups().getAll().size());
    for (const std::uint64_t group : _obtainShownGroups())
        items.push_back({0, group, 0});
    return items;
}

std::optional<KXChartItem> KXFigureChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                           KXChartItemStep step) const
{
    const std::vector<KXChartItem> items = obtainItems();
    const auto found = from ? std::ranges::find(items, *from) : items.end();
    const auto place = found == items.end() ? std::nullopt
                                            : std::optional(static_cast<std::size_t>(found - items.begin()));
    if (place && (step == KXChartItemStep::Up || step == KXChartItemStep::Down)) {
        const bool isUp = step == KXChartItemStep::Up;
        if (isUp ? *place < m_grid.columns : items.size() - *place <= m_grid.columns)
            return std::nullopt;
        return items[isUp ? *place - m_grid.columns : *place + m_grid.columns];
    }
    const std::optional<std::size_t> next = _obtainPlaceBeside(place, items.size(), step);
    return next ? std::optional(items[*next]) : std::nullopt;
}

void KXFigureChart::showItem(const KXChartItem& item)
{
    const std::vector<std::uint64_t> groups = _obtainShownGroups();
    const auto found = std::ranges::find(groups, item.group);
    if (found == groups.end() || !m_view->getVisible())
        return;
    const std::uint64_t row = static_cast<std::uint64_t>(found - groups.begin()) / m_grid.columns;
    const double place = static_cast<double>(row) * m_grid.distance.y;
    const auto top = static_cast<std::int64_t>(place);
    const auto bottom = static_cast<std::int64_t>(place + std::ceil(m_grid.panel.height));
    const std::int64_t offset = m_view->getContentOffsetY();
    m_view->setContentOffsetY(std::min(std::max(offset, bottom - m_view->obtainDisplayArea().height), top));
}

void KXFigureChart::virtualScrollViewContentOffsetChanged(UXVirtualScrollView*, const UXEvent&)
{
    if (!m_layingOut)
        setRequireToVerifyLayout(true, true);
}

std::vector<KXPanelItem> KXFigureChart::_layoutItems(const UXRect& area)
{
    UXFlagScope layingOut(this, m_layingOut);
    m_texts.clear();
    m_textLosses.clear();
    m_area = area;
    const std::vector<std::uint64_t> groups = _obtainShownGroups();
    if (!preparedAndReloadedData() || groups.empty() || uxIsEmptyRect(area)) {
        m_view->setVisible(false);
        return {};
    }
    _arrange(groups, area);

    // 1. Whole rows of panels are in sight.
    const double offset = static_cast<double>(m_view->getContentOffsetY());
    const auto count = static_cast<double>(groups.size()), columns = static_cast<double>(m_grid.columns);
    const double firstRow = std::floor(offset / m_grid.distance.y);
    const double endRow = std::ceil((offset + area.height) / m_grid.distance.y);
    const auto first = static_cast<std::size_t>(std::min(firstRow * columns, count));
    const auto end = static_cast<std::size_t>(std::min(endRow * columns, count));

    // 2. Their lines, in whole units, so that texts of panels without a gap do not meet by rounding.
    const double padding = std::min({_obtainPadding(), m_grid.panel.width / 4, m_grid.panel.height / 4});
    const UXDoubleSize room(std::floor(m_grid.panel.width - 2 * padding), m_grid.panel.height - 2 * padding);
    for (std::size_t line = 0; line < m_lines.size(); ++line)
        for (std::size_t i = first; i < end; ++i)
            m_lines[line].texts.push_back(_obtainOneLine(groups[i], line).text);
    m_figureHeight = kxStackFigure(m_lines, room, lineGap);

    // 3. The panels and their texts.
    std::vector<KXPanelItem> items;
    items.reserve(end - first);
    for (std::size_t i = first; i < end; ++i) {
        const std::uint64_t row = i / m_grid.columns, column = i % m_grid.columns;
        const UXDoubleRect panel(std::round(area.x + static_cast<double>(column) * m_grid.distance.x),
                                 std::round(area.y + static_cast<double>(row) * m_grid.distance.y - offset),
                                 m_grid.panel.width, m_grid.panel.height);
        items.push_back({{0, groups[i], 0}, KXPanelShape(panel)});
        _layoutPanel(groups[i], {panel.x + padding, panel.y + padding, room.width, room.height});
    }
    return items;
}

KXFigureChart::Text KXFigureChart::_obtainOneLine(std::uint64_t group, std::size_t line)
{
    Text said = _obtainText(group, line);
    std::ranges::replace_if(
        said.text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return said;
}

/** Decides on the grid, and on scrolling. The lines keep the texts by which their fonts are chosen: the first
 * ones and, later on, those in sight. */
void KXFigureChart::_arrange(const std::vector<std::uint64_t>& groups, const UXRect& area)
{
    m_lines = _makeLines();
    const std::size_t sampleCount = std::min(groups.size(), greatestSampleCount);
    double otherWidth = leastPanelWidth, rowWidth = 0;
    for (std::size_t line = 0; line < m_lines.size(); ++line) {
        KXFigureLine& own = m_lines[line];
        double widest = own.isCaption ? usualCaptionWidth : 0;
        if (own.isCaption)
            own.texts.emplace_back("0"); // stands for the names
        for (std::size_t i = 0; i < sampleCount && !own.isCaption; ++i) {
            const Text said = _obtainOneLine(groups[i], line);
            own.texts.push_back(said.text);
            widest = std::max(widest, uxMeasureText(own.texts.back(), own.property).width + said.indent);
        }
        if (own.rank == 0 || own.place != KXFigureLinePlace::Below)
            rowWidth += widest + lineGap;
        else
            otherWidth = std::max(otherWidth, std::min(widest, greatestOtherWidth));
    }
    const double padding = 2 * _obtainPadding();
    const UXDoubleSize room(area.width, area.height);
    const UXDoubleSize natural(std::ceil(std::max(otherWidth, rowWidth)) + 1 + padding,
                               kxMeasureFigureHeight(m_lines, lineGap) + padding);
    const UXDoubleSize least(std::max(otherWidth, rowWidth * leastValueShare) + padding,
                             kxMeasureLeastFigureHeight(m_lines, lineGap) + padding);
    const auto obtainContentHeight = [&] {
        const std::uint64_t rows = (groups.size() + m_grid.columns - 1) / m_grid.columns;
        return static_cast<double>(rows - 1) * m_grid.distance.y + m_grid.panel.height;
    };
    m_grid = _arrangePanels(groups.size(), natural, least, room);
    const bool scrolls = obtainContentHeight() > room.height + 1;
    if (scrolls)
        m_grid = _arrangePanels(
            groups.size(), natural, least,
            {std::max(room.width - UXVirtualScrollView::extraExtent - barGap, 1.0), room.height});
    m_view->setVisible(scrolls);
    m_view->setRect(area);
    m_view->setContentWidth(area.width);
    m_view->setContentHeight(scrolls ? static_cast<std::int64_t>(std::ceil(obtainContentHeight())) : 0);
}

KXFigureChart::Grid KXFigureChart::_makeGrid(std::uint64_t columns, double width, double height) const
{
    const auto count = static_cast<double>(columns);
    const double gap = std::min(_obtainGap(), width / (2 * count));
    Grid grid;
    grid.columns = columns;
    grid.panel = {std::max((width - (count - 1) * gap) / count, 1.0), std::max(height, 1.0)};
    grid.distance = {grid.panel.width + gap, grid.panel.height + gap};
    return grid;
}

KXFigureChart::Grid KXFigureChart::_arrangePanels(std::uint64_t count, const UXDoubleSize& natural,
                                                  const UXDoubleSize& least, const UXDoubleSize& room) const
{
    const auto most = static_cast<std::uint64_t>(greatestColumnCount);
    const auto wanted = static_cast<std::uint64_t>(std::clamp(m_columnCount, 0, greatestColumnCount));
    const std::uint64_t from = wanted > 0 ? std::min(wanted, count) : 1;
    const std::uint64_t to = wanted > 0 ? from : std::min(count, most);
    Grid best;
    double bestScale = -1;
    bool isBestFull = false;
    for (std::uint64_t columns = from; columns <= to; ++columns) {
        const std::uint64_t rowCount = (count + columns - 1) / columns;
        const auto rows = static_cast<double>(rowCount);
        const double gap = std::min(_obtainGap(), room.height / (2 * rows));
        const Grid grid = _makeGrid(columns, room.width, (room.height - (rows - 1) * gap) / rows);
        // More room than enough makes no panel better; then a full last row does, and more side by side.
        const double scale = std::min(
            {grid.panel.width / natural.width, grid.panel.height / natural.height, enoughRoom});
        const bool isFull = count % columns == 0;
        if (scale > bestScale || (scale == bestScale && (isFull || !isBestFull))) {
            isBestFull = isFull;
            best = grid;
            best.distance.y = grid.panel.height + gap;
            bestScale = scale;
        }
    }
    const bool fits = best.panel.width >= least.width && best.panel.height >= least.height;
    if (fits || count == 1)
        return best;
    // What scrolls need not be small.
    const double across = (room.width + _obtainGap()) / (natural.width + _obtainGap());
    const std::uint64_t columns = wanted > 0
                                      ? from
                                      : std::min(static_cast<std::uint64_t>(std::max(across, 1.0)), to);
    return _makeGrid(columns, room.width, std::min(natural.height, room.height));
}

void KXFigureChart::_layoutPanel(std::uint64_t group, const UXDoubleRect& panel)
{
    const double free = std::max(panel.height - m_figureHeight, 0.0);
    const double down = m_centersVertically ? std::floor(free / 2) : 0;
    for (std::size_t line = 0; line < m_lines.size(); ++line) {
        const KXFigureLine& own = m_lines[line];
        const Text said = own.height > 0 ? _obtainOneLine(group, line) : Text();
        if (said.text.empty())
            continue;
        // A line that does not take all of the width stands with the others.
        const double beside = own.greatestWidth > 0 ? std::floor(kxObtainShareBefore(m_mainLabelAlign) *
                                                                 (panel.width - own.width))
                                                    : own.left;
        const UXDoubleRect room(panel.x + beside, panel.y + down + own.top, own.width, own.height);
        _placeText(own, said, room, {{0, group, 0}, line, {}, {}, own.property, said.indent});
    }
}

void KXFigureChart::_placeText(const KXFigureLine& line, const Text& said, const UXDoubleRect& room,
                               PlacedText placed)
{
    placed.text = said.text;
    placed.property.align = UXTextAlign::Left;
    placed.property.option = UXTextOption::Default;
    placed.property.lineMode = 2;
    if (said.color)
        placed.property.textColor = *said.color;
    placed.rect = kxPlaceFigureText(placed.text, placed.property, room, said.indent,
                                    line.align.value_or(m_mainLabelAlign));
    // What the edge would cut cannot be read.
    const double top = std::max(placed.rect.y, static_cast<double>(m_area.y));
    const double bottom = std::min(placed.rect.y + placed.rect.height,
                                   static_cast<double>(m_area.y) + m_area.height);
    if (placed.rect.width <= 0 || bottom - top <= placed.rect.height * leastSeenShare) {
        m_textLosses.leaveOut(said.text, room);
        return;
    }
    if (placed.text != said.text)
        m_textLosses.shorten(said.text, placed.rect);
    m_texts.push_back(std::move(placed));
}

/** At the lower edge of each panel, as far below its texts as the gap to the next one lets it be. */
void KXFigureChart::_paintPartLines(UXPainter& painter) const
{
    if (!hasHighlightedParts())
        return;
    const double below = std::min(_obtainGap() / 2, KXHighlightedParts::lineHeight);
    for (const KXPanelItem& item : getLaidOutItems()) {
        const UXDoubleRect* rect = item.shape.obtainRect();
        if (!rect || std::isnan(obtainItemPart(item.item)))
            continue;
        const double bottom = std::min(rect->y + rect->height + below,
                                       static_cast<double>(m_area.getBottom()));
        const double top = bottom - KXHighlightedParts::lineHeight;
        KXHighlightedParts::paintLine(painter, {rect->x, top, rect->width, KXHighlightedParts::lineHeight},
                                      KXMemberPanelChart::_obtainFullShare(item.item),
                                      _obtainDrawnColor(item.item, m_valueProperty.textColor),
                                      obtainDimmedOpacity());
    }
}

void KXFigureChart::_paintOverItems(UXPainter& painter) const
{
    _paintPartLines(painter);
    for (const PlacedText& placed : m_texts) {
        UXTextProperty property = placed.property;
        property.textColor = _obtainDrawnColor(placed.item, property.textColor);
        painter.drawText(placed.text, placed.rect, property);
    }
}
