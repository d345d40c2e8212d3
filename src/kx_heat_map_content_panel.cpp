#include "kx_heat_map_content_panel.h"

#include "kx_heat_map_raster.h"
#include "kx_highlighted_parts.h"
#include "kx_pixel_grid.h"
#include "kx_readable_color.h"
#include "ux/ux_device_transform.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

namespace {

/** More cells than these are drawn as an image. */
constexpr std::uint64_t greatestRectCount = 1500;
/** Cells that are shorter have no gaps between them, which would take too much of them. */
constexpr double leastGaps = 12;
/** Between a text and the edges of its cell. */
constexpr double padding = 3;
/** The colour of a cell says what its value is, so that a line at its lower edge tells the part that is
 * chosen elsewhere; smaller cells fade instead. */
constexpr double leastLineExtent = 16, lineInset = 2;
/** From one slanted line in a null to the next one, and how they look. */
constexpr double hatchDistance = 6;
constexpr UXColor hatchColor(205, 205, 212);
constexpr UXColor darkRing(33, 33, 33), lightRing(255, 255, 255);
constexpr double ringWidth = 2, leastRingExtent = 6;

UXColor dim(const UXColor& color, double opacity)
{
    return KXHighlightedParts::obtainLightColor(color, opacity);
}

/** Adds the slanted lines of a rectangle, which go on in those beside it. */
void addHatch(const UXDoubleRect& rect, std::vector<std::pair<UXDoublePoint, UXDoublePoint>>& lines)
{
    const double right = rect.x + rect.width, bottom = rect.y + rect.height;
    for (double sum = std::ceil((rect.x + rect.y) / hatchDistance) * hatchDistance; sum < right + bottom;
         sum += hatchDistance) {
        const double left = std::max(rect.x, sum - bottom), end = std::min(right, sum - rect.y);
        lines.push_back({{left, sum - left}, {end, sum - end}});
    }
}

} // namespace

KXHeatMapContentPanel::KXHeatMapContentPanel() = default;
KXHeatMapContentPanel::~KXHeatMapContentPanel() = default;

std::string KXHeatMapContentPanel::customSerializeTypeID() { return "KXHeatMapContentPanel"; }

void KXHeatMapContentPanel::setCells(const KXHeatMapCells& cells, const KXHeatMapCellStyle& style,
                                     TextFunction text)
{
    m_cells = cells;
    m_style = style;
    m_text = std::move(text);
    m_colors = KXHeatMapColors(cells.scale);
    m_drawn.clear();
    m_hatch.clear();
    m_labels.clear();
    m_image = {};
    setRequireToVerifyLayout(true, true);
}

void KXHeatMapContentPanel::setScale(const KXGradientScale& scale)
{
    m_cells.scale = scale;
    m_colors = KXHeatMapColors(scale);
    _drawCells();
    for (KXHeatMapLabel& label : m_labels)
        if (m_style.autoLabelColor)
            label = {label.getCell(), label.getText(), label.getRect(),
                     kxObtainReadableColor(obtainColor(label.getCell()))};
    invalidate();
}

void KXHeatMapContentPanel::setHighlight(KXHeatMapHighlight highlight)
{
    const KXHeatMapHighlight before = std::exchange(m_highlight, std::move(highlight));
    const auto isLocal = [](const KXHeatMapHighlight& some) {
        return some.restOpacity >= 1 &&
               std::ranges::all_of(some.looks, [](const auto& entry) { return entry.second.sizeRatio <= 1; });
    };
    if (!isLocal(before) || !isLocal(m_highlight)) {
        invalidate();
        return;
    }
    // Nothing but these cells looks different.
    const KXPixelGrid grid(uxObtainDeviceTransform(*this));
    const auto repaint = [&](const KXGridCell& cell) {
        addDirtyRect(uxSurroundingRect(
            uxInflateDoubleRect(_obtainDrawnRect(cell, grid), leastRingExtent, leastRingExtent)));
    };
    for (const KXHeatMapHighlight* some : {&before, &std::as_const(m_highlight)}) {
        std::ranges::for_each(some->rings, repaint);
        for (const auto& [cell, look] : some->looks)
            repaint(cell);
    }
}

std::optional<KXGridBlock> KXHeatMapContentPanel::findCells(const UXDoublePoint& point) const
{
    const std::optional<KXGridCell> cell = findCell(point);
    if (!cell)
        return std::nullopt;
    if (!m_isMerged)
        return KXGridBlock{{cell->row, cell->row + 1}, {cell->column, cell->column + 1}};
    const UXTransform toDevice = uxObtainDeviceTransform(*this).unmirrored();
    const UXDoubleRect first = obtainCellRect({0, 0}); // where the lines begin
    const auto obtainRange = [](const KXGridLines& lines, double start, double place, double scale) {
        const double pixel = 1 / scale;
        const double index = std::max(std::floor(place * scale), 0.0);
        return kxObtainPixelLines(lines, start + index * pixel, pixel, 1, 0)[0].lines;
    };
    return KXGridBlock{
        obtainRange(getRows(), m_imageRect.y - first.y, point.y - m_imageRect.y, toDevice.yy),
        obtainRange(getColumns(), m_imageRect.x - first.x, point.x - m_imageRect.x, toDevice.xx)};
}

void KXHeatMapContentPanel::_layoutCells()
{
    _drawCells();
    m_labels.clear();
    if (m_style.showsLabels && m_text && !m_isMerged)
        _placeLabels({obtainVisibleRows(), obtainVisibleColumns()});
}

void KXHeatMapContentPanel::_drawCells()
{
    m_drawn.clear();
    m_hatch.clear();
    m_image = {};
    m_isMerged = false;
    const KXGridBlock seen{obtainVisibleRows(), obtainVisibleColumns()};
    if (m_cells.values.empty() || seen.rows.isEmpty() || seen.columns.isEmpty())
        return;
    const UXTransform toDevice = uxObtainDeviceTransform(*this).unmirrored();
    const UXDoubleRect cell = obtainCellRect({seen.rows.first, seen.columns.first});
    m_isMerged = cell.width * toDevice.xx < 1 || cell.height * toDevice.yy < 1;
    if (!m_isMerged && seen.rows.obtainCount() * seen.columns.obtainCount() <= greatestRectCount)
        _drawRects(seen, KXPixelGrid(toDevice));
    else
        _drawImage();
}

/** @return the room between cells, none where they are small in either direction */
double KXHeatMapContentPanel::_obtainGap() const
{
    const UXDoubleRect cell = obtainCellRect({0, 0});
    const bool isLarge = std::min(cell.width, cell.height) >= leastGaps * m_style.gap;
    return isLarge ? std::max(m_style.gap, 0.0) : 0;
}

UXDoubleRect KXHeatMapContentPanel::_obtainDrawnRect(const KXGridCell& cell, const KXPixelGrid& grid) const
{
    const UXDoubleRect rect = obtainCellRect(cell);
    UXDoubleRect drawn = grid.snap({rect.x, rect.y, rect.x + rect.width, rect.y + rect.height});
    drawn.width -= _obtainGap();
    drawn.height -= _obtainGap();
    return drawn;
}

void KXHeatMapContentPanel::_drawRects(const KXGridBlock& seen, const KXPixelGrid& grid)
{
    m_drawn.reserve(seen.rows.obtainCount() * seen.columns.obtainCount());
    for (std::uint64_t row = seen.rows.first; row < seen.rows.end; ++row)
        for (std::uint64_t column = seen.columns.first; column < seen.columns.end; ++column) {
            const KXGridCell cell{row, column};
            const UXDoubleRect rect = _obtainDrawnRect(cell, grid);
            if (!std::isnan(m_cells.obtainValue(cell)))
                m_drawn.push_back({cell, rect, obtainColor(cell)});
            else if (m_style.hatchesNulls)
                addHatch(rect, m_hatch);
        }
}

void KXHeatMapContentPanel::_drawImage()
{
    const UXTransform shown = uxObtainDeviceTransform(*this), toDevice = shown.unmirrored();
    const KXPixelGrid grid(toDevice);
    const UXRect own = getBoundingRect();
    const double right = grid.snapX(own.width), bottom = grid.snapY(own.height);
    m_imageRect = {grid.snapX(0), grid.snapY(0), right - grid.snapX(0), bottom - grid.snapY(0)};
    const auto obtainPixels = [](double extent, double scale) {
        return static_cast<int>(std::lround(extent * scale));
    };
    const int width = obtainPixels(m_imageRect.width, toDevice.xx);
    const int height = obtainPixels(m_imageRect.height, toDevice.yy);
    if (width <= 0 || height <= 0)
        return;
    const UXDoubleRect first = obtainCellRect({0, 0});
    const double gap = _obtainGap();
    const std::vector<KXPixelLine> rows = kxObtainPixelLines(getRows(), m_imageRect.y - first.y,
                                                             1 / toDevice.yy, height, gap);
    std::vector<KXPixelLine> columns = kxObtainPixelLines(getColumns(), m_imageRect.x - first.x,
                                                          1 / toDevice.xx, width, gap);
    if (shown.xx < 0)
        std::ranges::reverse(columns); // no painter mirrors what an image shows
    KXHeatMapHatch hatch;
    if (m_style.hatchesNulls)
        hatch = {kxObtainPixel(hatchColor), static_cast<int>(std::lround(hatchDistance * toDevice.xx))};
    m_image = kxDrawHeatMapRaster(m_cells, m_colors, rows, columns, hatch);
}

/** A text that does not fit is left out, as a part of a number says something else. */
void KXHeatMapContentPanel::_placeLabels(const KXGridBlock& seen)
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const UXDoubleRect first = obtainCellRect({seen.rows.first, seen.columns.first});
    const double lineHeight = std::ceil(helper->getTextSize("0", m_style.labelProperty).height);
    if (first.height < lineHeight || first.width < lineHeight / 2)
        return;
    for (std::uint64_t row = seen.rows.first; row < seen.rows.end; ++row)
        for (std::uint64_t column = seen.columns.first; column < seen.columns.end; ++column) {
            const KXGridCell cell{row, column};
            std::string text = m_text(cell);
            if (text.empty())
                continue;
            const UXDoubleSize size = helper->getTextSize(text, m_style.labelProperty);
            const UXDoubleRect rect = obtainCellRect(cell);
            const double width = std::ceil(size.width), height = std::ceil(size.height);
            const UXDoubleRect place(rect.x + (rect.width - _obtainGap() - width) / 2,
                                     rect.y + (rect.height - _obtainGap() - height) / 2, width, height);
            const UXDoubleRect shown = uxIntersectionDoubleRect(place, UXDoubleRect(getBoundingRect()));
            if (width + padding > rect.width || height > rect.height ||
                2 * shown.width * shown.height < width * height)
                continue; // or most of it would be cut where the panel ends
            const UXColor& color = m_style.autoLabelColor ? kxObtainReadableColor(obtainColor(cell))
                                                          : m_style.labelProperty.textColor;
            m_labels.emplace_back(cell, std::move(text), place, color);
        }
}

bool KXHeatMapContentPanel::_standsOut(const KXGridCell& cell) const
{
    return std::ranges::any_of(m_highlight.blocks,
                               [&](const KXGridBlock& block) { return block.contains(cell); });
}

void KXHeatMapContentPanel::_paintCells(UXPainter& painter, const UXRect& dirtyRect) const
{
    if (m_image.getPixels())
        _paintImage(painter);
    else
        _paintRects(painter, dirtyRect);
    _paintLooks(painter);
    _paintLabels(painter, dirtyRect);
}

void KXHeatMapContentPanel::_paintRects(UXPainter& painter, const UXRect& dirtyRect) const
{
    for (const Drawn& drawn : m_drawn) {
        if (!uxIntersectsRect(uxSurroundingRect(drawn.rect), dirtyRect))
            continue;
        const bool isFull = m_highlight.restOpacity >= 1 || _standsOut(drawn.cell);
        const UXColor color = isFull ? drawn.color : dim(drawn.color, m_highlight.restOpacity);
        const bool hasPart = !m_cells.parts.empty();
        const double share = m_cells.obtainFullShare(drawn.cell);
        const bool hasLine = hasPart && std::min(drawn.rect.width, drawn.rect.height) >= leastLineExtent;
        painter.setColor(hasPart && !hasLine ? dim(color, std::lerp(m_cells.lightOpacity, 1.0, share))
                                             : color);
        painter.drawRects({&drawn.rect, 1});
        if (hasLine)
            KXHighlightedParts::paintLine(
                painter,
                {drawn.rect.x + lineInset,
                 drawn.rect.y + drawn.rect.height - lineInset - KXHighlightedParts::lineHeight,
                 drawn.rect.width - 2 * lineInset, KXHighlightedParts::lineHeight},
                share, dim(kxObtainReadableColor(drawn.color), isFull ? 1 : m_highlight.restOpacity),
                m_cells.lightOpacity);
    }
    if (m_hatch.empty())
        return;
    painter.setColor(dim(hatchColor, m_highlight.restOpacity));
    painter.setLineWidth(1);
    for (const auto& [from, to] : m_hatch)
        painter.addLinePath(from.x, from.y, to.x, to.y);
    painter.stroke();
}

void KXHeatMapContentPanel::_paintImage(UXPainter& painter) const
{
    painter.drawImage(&m_image, m_imageRect, m_highlight.restOpacity);
    if (m_highlight.restOpacity >= 1 || m_highlight.blocks.empty())
        return;
    const UXPainterState state(painter);
    const KXPixelGrid grid(uxObtainDeviceTransform(*this));
    for (const KXGridBlock& block : m_highlight.blocks) {
        const UXDoubleRect from = obtainCellRect({block.rows.first, block.columns.first});
        const UXDoubleRect to = obtainCellRect({block.rows.end - 1, block.columns.end - 1});
        painter.addRectanglePath(grid.snap({from.x, from.y, to.x + to.width, to.y + to.height}));
    }
    painter.clip();
    painter.drawImage(&m_image, m_imageRect, 1);
}

void KXHeatMapContentPanel::_paintLooks(UXPainter& painter) const
{
    const KXPixelGrid grid(uxObtainDeviceTransform(*this));
    for (const auto& [cell, look] : m_highlight.looks) {
        const UXDoubleRect rect = _obtainDrawnRect(cell, grid);
        const UXDoubleRect drawn = uxInflateDoubleRect(rect, rect.width * (look.sizeRatio - 1) / 2,
                                                       rect.height * (look.sizeRatio - 1) / 2);
        painter.setColor(look.fill);
        painter.drawRects({&drawn, 1});
        if (look.line.alpha <= 0)
            continue;
        painter.setColor(look.line);
        painter.setLineWidth(1);
        painter.addRectanglePath(uxInflateDoubleRect(drawn, -0.5, -0.5));
        painter.stroke();
    }
    // Two lines, of which one shows on any colour, inside the cell where that has room.
    for (const KXGridCell& cell : m_highlight.rings) {
        const UXDoubleRect rect = _obtainDrawnRect(cell, grid);
        const double across = std::max((leastRingExtent - rect.width) / 2, -ringWidth / 2);
        const double down = std::max((leastRingExtent - rect.height) / 2, -ringWidth / 2);
        const UXDoubleRect ring = uxInflateDoubleRect(rect, across, down);
        for (const bool isOuter : {false, true}) {
            const double inset = isOuter ? 0 : -ringWidth / 2;
            painter.setColor(isOuter ? darkRing : lightRing);
            painter.setLineWidth(ringWidth);
            painter.addRectanglePath(uxInflateDoubleRect(ring, inset, inset));
            painter.stroke();
        }
    }
}

void KXHeatMapContentPanel::_paintLabels(UXPainter& painter, const UXRect& dirtyRect) const
{
    UXTextProperty property = m_style.labelProperty;
    property.align = UXTextAlign::Center;
    for (const KXHeatMapLabel& label : m_labels) {
        if (!uxIntersectsRect(uxSurroundingRect(label.getRect()), dirtyRect))
            continue;
        const bool isFull = m_highlight.restOpacity >= 1 || _standsOut(label.getCell());
        property.textColor = isFull ? label.getColor() : dim(label.getColor(), m_highlight.restOpacity);
        painter.drawText(label.getText(), label.getRect(), property);
    }
}
