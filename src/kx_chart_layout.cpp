#include "kx_chart.h"

#include "kx_chart_label.h"
#include "kx_chart_linked_action_diagram.h"
#include "kx_chart_property.h"
#include "kx_chart_toolbox.h"
#include "kx_legend.h"
#include "ux/ux_child_walk.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

// How a chart divides its content between title, legend and plot area.

namespace {

/** Between title, legend and plot area, in logical units. */
constexpr int partGap = 15;
/** A legend is not worth its place when less than this would be left. */
constexpr int leastHeightWithLegend = 100;
constexpr int leastWidthWithLegend = 300;
constexpr int leastLegendWidth = 100;
constexpr int greatestLegendWidth = 200;
constexpr int toolboxInset = 1;
constexpr int toolboxHeight = 25;

bool isHorizontal(UXPosition position)
{
    return position == UXPosition::Left || position == UXPosition::Right;
}
bool isVertical(UXPosition position) { return position == UXPosition::Top || position == UXPosition::Bottom; }

void clampToEmpty(UXRect& rect)
{
    rect.width = std::max(rect.width, 0);
    rect.height = std::max(rect.height, 0);
}

/** Takes amount units and the gap away from the right of area. A text of an absurd font size is as large as
 * an int can say, so sums with it saturate. */
void cutRight(UXRect& area, int amount)
{
    area.width = uxSaturateToInt(std::int64_t{area.width} - amount - partGap);
}

void cutBottom(UXRect& area, int amount)
{
    area.height = uxSaturateToInt(std::int64_t{area.height} - amount - partGap);
}

void cutLeft(UXRect& area, int amount)
{
    area.x = uxSaturateToInt(std::int64_t{area.x} + amount + partGap);
    cutRight(area, amount);
}

void cutTop(UXRect& area, int amount)
{
    area.y = uxSaturateToInt(std::int64_t{area.y} + amount + partGap);
    cutBottom(area, amount);
}

/** @return where a part begins that ends at end; an absurd padding puts the edges at int's limits */
int obtainEndPlace(int end, int extent) { return uxSaturateToInt(std::int64_t{end} - extent); }

/** @return the width of a title at the side: at most half of the content, less the gap; negative when there
 * is no room */
int obtainSideTitleWidth(const UXRect& content, const UXRect& title)
{
    return std::min(content.width / 2 - partGap, title.width);
}

} // namespace

/** What a layout pass decides before any part is moved. */
struct KXChart::Division {
    UXRect content; // C: all there is
    UXRect title;   // T
    UXRect legend;  // L
    UXRect plot;    // P
    bool showsTitle = false;
    bool showsLegend = false;
};

void KXChart::customLayout()
{
    // The concrete chart may ask its provider while it lays out, and the provider may destroy the chart.
    const UXObjectWatcher self(this);
    init();
    beforeCustomLayout();
    if (!self.isAlive())
        return;
    Division division = _divideContent();
    if (!self.isAlive())
        return;
    m_title->setRect(division.title);
    m_title->keepTextInside(division.content);
    m_legend->setRect(division.legend);
    _customLayout(division.plot);
    if (!self.isAlive())
        return;
    const UXRect& content = division.content;
    const UXRect inside = uxInflateRect(content, -toolboxInset, -toolboxInset);
    m_toolbox->setRect(uxMakeRect(inside.x, inside.y, inside.width, toolboxHeight));
    if (auto* linked = KXChartLinkedActionDiagram::find(this))
        linked->joinHighlight(this);
    if (!self.isAlive())
        return;
    UXChildWalk walk(this);
    while (UXObject* child = walk.next())
        if (child->getVisible())
            child->layout();
}

KXChart::Division KXChart::_divideContent()
{
    Division division;
    division.content = getContentRect();
    division.title = _measureTitle(division.content);
    division.showsTitle = _shouldShowTitle(division.title);
    division.showsLegend = _shouldShowLegend(division);
    division.plot = division.content;
    if (division.showsTitle)
        _placeTitle(division);
    else
        division.title = uxMakeRect(division.content.x, division.content.y, 0, 0);
    if (division.showsLegend)
        _placeLegend(division);
    else
        division.legend = uxMakeRect(division.content.x, division.content.y, 0, 0);
    clampToEmpty(division.title);
    clampToEmpty(division.legend);
    clampToEmpty(division.plot);
    return division;
}

UXRect KXChart::_measureTitle(const UXRect& content)
{
    // The alignment belongs to the place: it follows the title along the top and the bottom only.
    UXTextProperty property = m_chartProperty->getTitleProperty();
    property.align = UXTextAlign::Left;
    if (property.option == UXTextOption::Default)
        property.option = UXTextOption::EllipsisEnd; // a title never runs out of the chart
    if (isVertical(m_chartProperty->getTitlePosition())) {
        if (m_chartProperty->getTitleHorizontalAlign() == UXPosition::Center)
            property.align = UXTextAlign::Center;
        else if (m_chartProperty->getTitleHorizontalAlign() == UXPosition::Right)
            property.align = UXTextAlign::Right;
    }
    m_title->setTextProperty(property);
    m_title->setRect(content);
    m_title->autoResize();
    UXRect title = m_title->getRect();
    const int most = std::max(obtainSideTitleWidth(content, title), 0);
    if (isHorizontal(m_chartProperty->getTitlePosition()) && m_chartProperty->getTitleValueWrap() &&
        most < title.width) {
        // Narrower lines are more of them.
        m_title->setRect({content.x, content.y, most, content.height});
        m_title->autoResize();
        title.height = m_title->getRect().height;
    }
    return title;
}

bool KXChart::_shouldShowTitle(const UXRect& title) const
{
    if (!m_title->getVisible())
        return false;
    const UXPosition position = m_chartProperty->getTitlePosition();
    return isVertical(position) ? title.height >= 1 : !isHorizontal(position) || title.width >= 1;
}

bool KXChart::_shouldShowLegend(const Division& division)
{
    if (!m_legend->getVisible() || obtainLegendCellSize() == 0)
        return false;
    const UXPosition titlePosition = m_chartProperty->getTitlePosition();
    const UXPosition legendPosition = m_chartProperty->getLegendPosition();
    const bool titleIsElsewhere = division.showsTitle && !isVertical(titlePosition) &&
                                  !isHorizontal(titlePosition);
    if (titleIsElsewhere)
        return true;
    const UXRect& content = division.content;
    if (isVertical(legendPosition)) {
        const bool sharesHeight = division.showsTitle && isVertical(titlePosition);
        const std::int64_t taken = sharesHeight ? std::int64_t{division.title.height} + partGap : 0;
        return content.height - taken >= leastHeightWithLegend;
    }
    if (isHorizontal(legendPosition)) {
        const bool sharesWidth = division.showsTitle && isHorizontal(titlePosition);
        const std::int64_t taken = sharesWidth
                                       ? std::int64_t{obtainSideTitleWidth(content, division.title)} + partGap
                                       : 0;
        return content.width - taken >= leastWidthWithLegend;
    }
    return true;
}

void KXChart::_placeTitle(Division& division) const
{
    const UXRect& content = division.content;
    UXRect& title = division.title;
    const UXPosition position = m_chartProperty->getTitlePosition();
    if (isVertical(position)) {
        title.width = content.width;
        if (position == UXPosition::Top) {
            cutTop(division.plot, title.height);
        } else {
            title.y = obtainEndPlace(content.getBottom(), title.height);
            cutBottom(division.plot, title.height);
        }
        return;
    }
    if (!isHorizontal(position))
        return;

    title.width = obtainSideTitleWidth(content, title);
    const UXPosition align = m_chartProperty->getTitleVerticalAlign();
    if (align == UXPosition::Top)
        title.y = content.y;
    else if (align == UXPosition::Center)
        title.y = obtainEndPlace(uxMidY(content), title.height / 2);
    else if (align == UXPosition::Bottom)
        title.y = obtainEndPlace(content.getBottom(), title.height);
    // A chart too narrow for any title gives it no width and keeps the whole plot area.
    const bool fits = title.width >= 0;
    title.width = std::max(title.width, 0);
    if (position == UXPosition::Right)
        title.x = obtainEndPlace(uxMaxX(content), title.width);
    if (fits && position == UXPosition::Left)
        cutLeft(division.plot, title.width);
    else if (fits)
        cutRight(division.plot, title.width);
}

void KXChart::_placeLegend(Division& division) const
{
    UXRect& plot = division.plot;
    division.legend = plot;
    UXRect& legend = division.legend;
    // The legend measures its texts, for which the concrete chart may ask its host.
    const UXObjectWatcher part(m_legend); // which goes with the chart
    const double wantedHeight = m_legend->obtainLegendHeight();
    const double wantedWidth = part.isAlive() ? m_legend->obtainLegendWidth() : 0;
    if (!part.isAlive())
        return;
    const int height = uxSaturateToInt(std::floor(wantedHeight));
    const int width = std::clamp(uxSaturateToInt(std::floor(wantedWidth)), leastLegendWidth,
                                 greatestLegendWidth);
    switch (m_chartProperty->getLegendPosition()) {
    case UXPosition::Top:
        legend.height = height;
        cutTop(plot, height);
        break;
    case UXPosition::Bottom:
        legend.y = obtainEndPlace(plot.getBottom(), height);
        legend.height = height;
        cutBottom(plot, height);
        break;
    case UXPosition::Left:
        legend.width = width;
        cutLeft(plot, width);
        break;
    case UXPosition::Right:
        legend.x = obtainEndPlace(uxMaxX(plot), width);
        legend.width = width;
        cutRight(plot, width);
        break;
    default:
        legend = uxMakeRect(division.content.x, division.content.y, 0, 0);
        break;
    }
}
