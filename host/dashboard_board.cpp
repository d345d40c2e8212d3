#include "dashboard_board.h"

#include "chart_picture.h"
#include "kx_chart.h"
#include "kx_chart_theme.h"
#include "ux/ux_device_transform.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_property.h"
#include "view_grid.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

namespace {

/** What a chart has to be to be read at all. */
constexpr UXSize leastItem{160, 90};
constexpr int titleFontSize = 20, titleHeight = 30;
constexpr UXColor titleColor(40, 44, 52);

UXTextProperty makeTitleProperty()
{
    UXTextProperty property;
    property.font.size = titleFontSize;
    property.font.bold = true;
    property.option = UXTextOption::EllipsisEnd;
    property.textColor = titleColor;
    return property;
}

/** @return where a line of the grid lies: the lines are shares of the extent, so that cells fill it to the
 *  last unit */
int obtainLine(int extent, int line, int lines)
{
    return static_cast<int>(std::int64_t{extent + ViewGrid::gap} * line / lines);
}

/** @return the extent at which an item of some of the lines is at least as large as a chart has to be */
int obtainLeastExtent(int least, int own, int lines)
{
    return (least + ViewGrid::gap) * lines / own - ViewGrid::gap;
}

} // namespace

DashboardBoard::DashboardBoard(DashboardDocument document, const ViewItemHandlers& handlers,
                               const CsvReader::ProgressHandler& progress)
    : m_dashboard(std::move(document), handlers, progress)
{
    for (std::size_t i = 0; i < m_dashboard.getItemCount(); ++i)
        addChart(m_dashboard.getChart(i));
    getDiagram().setDirection(m_dashboard.getDocument().direction);
    if (m_dashboard.getDocument().title.empty())
        return;
    m_title = new UXLabel;
    m_title->setText(m_dashboard.getDocument().title);
    m_title->setTextProperty(makeTitleProperty());
    getDiagram().addChild(m_title);
}

DashboardBoard::~DashboardBoard() = default;

void DashboardBoard::takeTheme(const KXChartTheme* theme)
{
    ViewBoard::takeTheme(theme);
    if (!m_title)
        return;
    UXTextProperty property = m_title->getTextProperty();
    property.textColor = theme ? theme->getStrongText() : titleColor;
    m_title->setTextProperty(property);
}

void DashboardBoard::arrange(const UXSize& room)
{
    const DashboardDocument& document = m_dashboard.getDocument();
    const int around = 2 * ViewGrid::gap;
    UXSize size = room;
    for (const DashboardItem& item : document.items) {
        size.width = std::max(
            size.width, around + obtainLeastExtent(leastItem.width, item.cells.width, document.columns));
        size.height = std::max(size.height,
                               around + (m_title ? titleHeight + ViewGrid::gap : 0) +
                                   obtainLeastExtent(leastItem.height, item.cells.height, document.rows));
    }
    _place(size, ViewGrid::gap);
}

void DashboardBoard::_place(const UXSize& size, int margin)
{
    getDiagram().setRect(UXRect(0, 0, size.width, size.height));
    UXRect area = uxInflateRect(getDiagram().getBoundingRect(), -margin, -margin);
    if (m_title) {
        m_title->setRect(UXRect(area.x, area.y, std::max(area.width, 0), titleHeight));
        area = uxInflateRect(area, 0, -titleHeight - ViewGrid::gap, 0, 0);
    }
    const DashboardDocument& document = m_dashboard.getDocument();
    for (std::size_t i = 0; i < document.items.size(); ++i) {
        const UXRect& cells = document.items[i].cells;
        const int left = obtainLine(area.width, cells.x, document.columns);
        const int right = obtainLine(area.width, uxMaxX(cells), document.columns) - ViewGrid::gap;
        const int top = obtainLine(area.height, cells.y, document.rows);
        const int bottom = obtainLine(area.height, uxMaxY(cells), document.rows) - ViewGrid::gap;
        placeCard(i, {area.x + left, area.y + top, std::max(right - left, 0), std::max(bottom - top, 0)});
    }
}

void DashboardBoard::paintPicture(const PictureSetting& setting, UXPaintConfig& config)
{
    const UXRect page(0, 0, setting.size.width, setting.size.height);
    if (UXPainter* painter = uxCreatePainter(&config)) {
        painter->setColor(setting.ground);
        painter->addRectanglePath(UXDoubleRect(page));
        painter->fill();
        uxDestroyPainter(painter);
    }
    UXDiagram& diagram = getDiagram();
    _place(setting.size, setting.margin);
    diagram.setDeviceTransform(uxObtainDeviceTransform(config));
    for (const std::unique_ptr<ViewCard>& card : getCards())
        card->getChart().setRequireToVerifyLayout(
            true); // it may be laid out for the pixels of another device
    diagram.layout();
    diagram.paint(&config, page);
}
