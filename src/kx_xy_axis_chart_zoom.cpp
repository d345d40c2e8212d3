#include "kx_xy_axis_chart.h"

#include "kx_axis.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_chart_toolbox_item.h"
#include "ux/ux_event.h"
#include "ux/ux_label.h"
#include "ux/ux_localize.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>

// What is shown of the axes, and what stands over the marks because of it.

namespace {

/** A moment, below which no time axis goes, in seconds. */
constexpr double leastMoment = 1e-3;
/** Where no two points say what the least range is, this part of the whole is. */
constexpr double leastPart = 1e-6;
/** Marks that reach further along an axis than this part of it get no room of their own. */
constexpr double greatestReachShare = 0.2;
constexpr int reachRounds = 8;
constexpr int partGap = 4;
/** In a smaller plot there is no room for anything but marks. */
constexpr UXSize leastAreaForParts{120, 80};
constexpr UXColor noteColor(90, 90, 90), noteGround(255, 255, 255, 0.85);
constexpr int noteFontSize = 11;

} // namespace

void KXXYAxisChart::_addZoomParts()
{
    m_zoomButton->setVisible(false);
    m_zoomButton->registerEventHandler(UXEventType::LeftClick, [this](const UXEvent&) {
        showAll();
        return true;
    });
    m_note->setVisible(false);
    UXTextProperty property;
    property.font.size = noteFontSize;
    property.option = UXTextOption::EllipsisEnd;
    property.textColor = noteColor;
    m_note->setTextProperty(property);
    m_note->setBackgroundColor(noteGround);
    getPlot()->addChild(m_note);
    getPlot()->addChild(m_zoomButton);
}

double KXXYAxisChart::_toAxis(const KXAxisChartAxis& axis, double value) const
{
    if (!axis.cache.isLogarithmic)
        return value;
    return value > 0 ? std::log10(value) : axis.cache.axisMin;
}

/** @return what there is to see of an axis, in what it counts */
KXVisibleRange KXXYAxisChart::_obtainWholeRange(const KXAxisChartAxis& axis) const
{
    const KXVisibleRange whole = _makeRoomForMarks(axis, {axis.cache.axisMin, axis.cache.axisMax});
    if (&axis != &m_x)
        return whole;
    const double distance = _obtainCategoryDistance();
    double overhang = 0; // on both sides, so that marks at the ends are whole
    for (const auto& view : getDataViews())
        overhang = std::max(overhang, view->obtainOverhang() * distance);
    if (whole.from == whole.to)
        overhang = std::max(overhang, distance / 2);
    return {whole.from - overhang, whole.to + overhang};
}

/** @return range, wider where marks would reach beyond the axis */
KXVisibleRange KXXYAxisChart::_makeRoomForMarks(const KXAxisChartAxis& axis,
                                                const KXVisibleRange& range) const
{
    // 1. What marks need, of the length that there is.
    double reach = 0;
    for (const auto& view : getDataViews())
        if (&axis == &m_x || view->getIsOnSecondaryAxis() == (&axis == &m_secondaryY))
            reach = std::max(reach, view->obtainReach());
    const double share = reach / axis.axis->obtainAxisLength();
    const bool isFixed = !axis.property->getAutoAxisRange() || (&axis == &m_x && !m_isContinuous);
    if (!m_knowsAxisLengths || !(share > 0) || share > greatestReachShare || isFixed || !axis.isUsed)
        return range;

    // 2. Each end moves out as far as the marks next to it reach, which makes a unit shorter.
    const double least = _toAxis(axis, axis.cache.dataMin), greatest = _toAxis(axis, axis.cache.dataMax);
    KXVisibleRange wider = range;
    for (int round = 0; round < reachRounds; ++round) {
        const double room = share * wider.obtainLength();
        wider = {std::min(range.from, least - room), std::max(range.to, greatest + room)};
    }
    return std::isfinite(wider.obtainLength()) ? wider : range;
}

double KXXYAxisChart::_obtainLeastLength(const KXAxisChartAxis& axis) const
{
    const double part = leastPart * _obtainWholeRange(axis).obtainLength();
    if (&axis != &m_x || m_places.getCount() < 2)
        return part;
    return m_x.cache.isTemporalDimension ? std::max(m_places.getLeastDistance(), leastMoment)
                                         : m_places.getLeastDistance();
}

KXVisibleRange KXXYAxisChart::_obtainShownRange(const KXAxisChartAxis& axis) const
{
    const KXVisibleRange whole = _obtainWholeRange(axis);
    const KXAxisChartProperty& property = *getAxisChartProperty();
    const bool isX = &axis == &m_x;
    if ((isX && !m_isContinuous) || &axis == &m_secondaryY)
        return whole;
    const double from = isX ? property.getVisibleXFrom() : property.getVisibleYFrom();
    const double to = isX ? property.getVisibleXTo() : property.getVisibleYTo();
    if (!(from < to))
        return whole;
    return kxFitVisibleRange({_toAxis(axis, from), _toAxis(axis, to)}, whole, _obtainLeastLength(axis));
}

KXVisibleRange KXXYAxisChart::obtainShownRange(const KXAxis& axis) const
{
    const KXAxisChartAxis* own = _findAxis(&axis);
    return own ? _obtainShownRange(*own) : KXVisibleRange();
}

/** Where a part of the value axis is shown whatever the marks zoom along, that goes with the others, so that
 * the user gets back to all of it. */
std::vector<KXAxis*> KXXYAxisChart::obtainZoomedAxes() const
{
    if (!m_x.isUsed || !getAxisChartProperty()->getEnableZoom())
        return {};
    const bool zoomsAlongValues = m_numberRange || std::ranges::any_of(getDataViews(), [](const auto& view) {
                                      return view->zoomsAlongValues() && !view->getIsOnSecondaryAxis();
                                  });
    const bool isPartOfValues = m_y.isUsed && _obtainShownRange(m_y) != _obtainWholeRange(m_y);
    std::vector<KXAxis*> axes;
    if (m_isContinuous)
        axes.push_back(m_x.axis);
    if ((m_isContinuous && zoomsAlongValues) || isPartOfValues)
        axes.push_back(m_y.axis);
    return axes;
}

bool KXXYAxisChart::isZoomed() const
{
    return std::ranges::any_of(obtainZoomedAxes(), [this](const KXAxis* axis) {
        return obtainShownRange(*axis) != _obtainWholeRange(*_findAxis(axis));
    });
}

void KXXYAxisChart::showRange(const KXAxis& axis, const KXVisibleRange& range)
{
    const KXAxisChartAxis* own = _findAxis(&axis);
    if (!own || own == &m_secondaryY)
        return;
    const KXVisibleRange whole = _obtainWholeRange(*own);
    const KXVisibleRange fitted = kxFitVisibleRange(range, whole, _obtainLeastLength(*own));
    const auto toValue = [own](double counted) {
        return own->cache.isLogarithmic ? std::pow(10.0, counted) : counted;
    };
    const KXVisibleRange values = fitted == whole ? KXVisibleRange()
                                                  : KXVisibleRange{toValue(fitted.from), toValue(fitted.to)};
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    KXAxisChartProperty& property = *getAxisChartProperty();
    const bool isX = own == &m_x;
    if (isX)
        property.updateVisibleXFrom(values.from);
    else
        property.updateVisibleYFrom(values.from);
    if (!self.isAlive())
        return;
    if (isX)
        property.updateVisibleXTo(values.to);
    else
        property.updateVisibleYTo(values.to);
}

bool KXXYAxisChart::showValue(const KXAxis& axis, double value)
{
    const KXAxisChartAxis* own = _findAxis(&axis);
    const double place = own ? _toAxis(*own, value) : value;
    const KXVisibleRange shown = obtainShownRange(axis);
    if (!own || !std::isfinite(place) || (place >= shown.from && place <= shown.to))
        return false;
    showRange(axis, kxMoveVisibleRange(shown, place < shown.from ? place - shown.from : place - shown.to));
    return true;
}

bool KXXYAxisChart::shouldSelectByBox() { return false; }
void KXXYAxisChart::selectInBox(const UXDoubleRect&, const UXEvent&) {}

void KXXYAxisChart::showAll()
{
    const UXObjectWatcher self(this);
    for (const KXAxisChartAxis* axis : {&m_x, &m_y})
        if (self.isAlive())
            showRange(*axis->axis, _obtainWholeRange(*axis));
}

/** The view follows the walk. */
void KXXYAxisChart::showItem(const KXChartItem& item)
{
    if (!m_isContinuous) {
        KXAxisChart::showItem(item);
        return;
    }
    const UXObjectWatcher self(this);
    if (showValue(*m_x.axis, obtainCategoryValue(item.index)) && self.isAlive())
        layout();
}

void KXXYAxisChart::_applyKeyEffect(UXPropertyEffect effect)
{
    if (effect == UXPropertyEffect::Layout)
        for (KXAxisChartAxis* axis : {&m_x, &m_y, &m_secondaryY})
            axis->cache.needsUpdate = true;
    KXAxisChart::_applyKeyEffect(effect);
}

void KXXYAxisChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    KXAxisChart::_customLayout(plotArea);
    if (self.isAlive())
        _placeZoomButton();
}

/** At the far corner of the marks, over them. */
void KXXYAxisChart::_placeZoomButton()
{
    const UXObjectWatcher self(this);
    const UXRect& area = getMarksArea();
    const bool isShown = isZoomed() && area.width >= leastAreaForParts.width &&
                         area.height >= leastAreaForParts.height;
    if (isShown && m_zoomButton->getEntry().text.empty()) {
        KXMenuEntry entry;
        entry.text = uxLocalizeString("Show all");
        entry.icon = KXMenuIcon::Expand;
        if (!self.isAlive())
            return;
        m_zoomButton->setEntry(entry);
    }
    constexpr int extent = KXChartToolboxItem::extent;
    m_zoomButton->setVisible(isShown);
    m_zoomButton->setRect({uxMaxX(area) - extent - partGap, area.y + partGap, extent, extent});
}

/** Says what a logarithmic axis cannot. */
void KXXYAxisChart::_placeNote()
{
    const UXObjectWatcher self(this);
    const UXRect& area = getMarksArea();
    const bool isShown = m_leftOutCount > 0 && area.width >= leastAreaForParts.width &&
                         area.height >= leastAreaForParts.height;
    m_note->setVisible(isShown);
    if (!isShown)
        return;
    const std::string text = std::to_string(m_leftOutCount) + ' ' +
                             uxLocalizeString(m_leftOutCount == 1 ? "value not above zero is left out"
                                                                  : "values not above zero are left out");
    if (!self.isAlive())
        return;
    m_note->setText(text);
    m_note->setRect({area.x + partGap, area.y + partGap, 0, 0});
    m_note->autoResize();
    UXRect rect = m_note->getRect();
    rect.width = std::min(rect.width, area.width - 2 * partGap);
    m_note->setRect(rect);
}

void KXXYAxisChart::_paintOverMarks(UXPainter& painter)
{
    KXAxisChart::_paintOverMarks(painter);
    m_zoom.paint(painter);
}

bool KXXYAxisChart::customMouseDown(const UXEvent& event, bool& stop)
{
    m_zoom.press(event);
    return KXAxisChart::customMouseDown(event, stop);
}

bool KXXYAxisChart::customMouseDragging(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    return m_zoom.drag(event) || (self.isAlive() && KXAxisChart::customMouseDragging(event, stop));
}

bool KXXYAxisChart::shouldTriggerMouseUp(const UXEvent& event)
{
    const UXObjectWatcher self(this);
    return !m_zoom.release(event) && self.isAlive() && KXAxisChart::shouldTriggerMouseUp(event);
}

bool KXXYAxisChart::customMouseWheel(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    return m_zoom.turnWheel(event) || (self.isAlive() && KXAxisChart::customMouseWheel(event, stop));
}

bool KXXYAxisChart::customMouseDoubleClick(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    return m_zoom.doubleClick(event) || (self.isAlive() && KXAxisChart::customMouseDoubleClick(event, stop));
}

bool KXXYAxisChart::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    return m_zoom.pressKey(event) || (self.isAlive() && KXAxisChart::customKeyDown(event, stop));
}
