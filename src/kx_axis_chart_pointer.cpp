#include "kx_axis_chart.h"

#include "kx_axis_chart_data_provider.h"
#include "kx_axis_chart_property.h"
#include "kx_chart_property.h"
#include "kx_hint_text.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** A hint with more rows would be higher than most charts. */
constexpr std::size_t greatestHintRowCount = 24;

} // namespace

bool KXAxisChart::customMouseDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    m_actionMark = getChartProperty()->getEnableInteraction() ? _obtainTarget(_obtainPlotPoint(event)).mark
                                                              : std::nullopt;
    // Whether there is a menu depends on the mark, so the provider is asked now.
    if (event.containsEventKey(UXEventKey::RightButton))
        registerRightClickMenu(this, KXTriggerCondition());
    return self.isAlive() && KXAxisChartBase::customMouseDown(event, stop);
}

bool KXAxisChart::customMouseMove(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    const bool handled = KXAxisChartBase::customMouseMove(event, stop);
    if (!self.isAlive() || !getChartProperty()->getEnableInteraction())
        return handled;
    const UXPoint point = _obtainPlotPoint(event);
    const Target target = _obtainTarget(point);
    _setHoveredMark(target.mark, event);
    if (self.isAlive())
        _showHint(target, point);
    return handled;
}

bool KXAxisChart::customMouseLeave(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    _setHoveredMark(std::nullopt, event);
    if (!self.isAlive())
        return false;
    m_hintTarget = {};
    hideHint();
    return KXAxisChartBase::customMouseLeave(event, stop);
}

UXPoint KXAxisChart::_obtainPlotPoint(const UXEvent& event) const
{
    return getTranslatedPointFromEvent(event, getPlot());
}

KXAxisChart::Target KXAxisChart::_obtainTarget(UXPoint point) const
{
    if (!uxPointInRect(point, getMarksArea()) || m_shownSeries.empty())
        return {};
    return {_obtainCategoryAt(point), _hitMark(point)};
}

void KXAxisChart::_setHoveredMark(const std::optional<KXAxisChartMark>& mark, const UXEvent& event)
{
    if (mark == m_hoveredMark)
        return;
    const UXObjectWatcher self(this);
    if (m_hoveredMark) {
        m_actionMark = m_hoveredMark;
        triggerLinkedHighlightClearAction(this, this, event);
    }
    if (!self.isAlive())
        return;
    const bool wasHighlighting = isHighlighting();
    if (m_hoveredMark)
        _repaintMark(*m_hoveredMark); // where it was painted
    m_hoveredMark = m_actionMark = mark;
    m_hoveredObject.updateInteractionEffects({});
    if (wasHighlighting != isHighlighting() && getAxisChartProperty()->getDimmedOpacity() < 1)
        _repaintMarks(); // all others begin or cease to be dimmed
    else if (mark)
        _repaintMark(*mark);
    _showWhetherClickable();
    if (!self.isAlive() || !mark || m_hoveredMark != mark)
        return;
    triggerLinkedHighlightAction(this, this, event);
    if (self.isAlive() && m_hoveredMark == mark)
        _loadHoverEffects();
}

void KXAxisChart::_repaintMark(const KXAxisChartMark& mark)
{
    for (const UXRect& rect : _obtainMarkRects(mark))
        _repaintMarks(rect);
}

/** The provider says how the mark under the pointer looks different. */
void KXAxisChart::_loadHoverEffects()
{
    const UXObjectWatcher self(this);
    const KXAxisChartMark mark = *m_hoveredMark;
    const std::vector<KXInteractionEffect*> effects = obtainInteractionEffects(_obtainMarkObjectIDs(mark));
    // Meanwhile the chart may have gone, or the pointer be over another mark.
    if (self.isAlive() && m_hoveredMark == mark) {
        m_hoveredObject.updateInteractionEffects(effects);
        _repaintMark(mark);
        return;
    }
    for (KXInteractionEffect* effect : effects)
        delete effect;
}

/** What lies under the pointer is not known any more, until it moves. */
void KXAxisChart::_forgetHover()
{
    const UXObjectWatcher self(this);
    const UXEvent event;
    _setHoveredMark(std::nullopt, event);
    event.runPostedActions();
    if (!self.isAlive())
        return;
    m_actionMark.reset();
    m_hintTarget = {};
    hideHint();
}

void KXAxisChart::_showHint(const Target& target, UXPoint plotPoint)
{
    const UXPoint point = translatePoint(plotPoint, getPlot(), this);
    const UXObjectWatcher self(this);
    const bool isSame = target == m_hintTarget && getHintVisible();
    m_hintTarget = target;
    if (!target.category) {
        hideHint();
        return;
    }
    UXHintInfo info = isSame ? getHintInfo() : _makeHint(target);
    if (self.isAlive())
        showHint(point, nullptr, &info);
}

UXHintInfo KXAxisChart::_makeHint(const Target& target)
{
    const UXObjectWatcher self(this);
    UXHintInfo info = getAxisChartProperty()->getHintSettings();
    info.clearRows();
    KXChartDataProviderHintData data;
    auto* provider = dynamic_cast<KXAxisChartDataProvider*>(beginUseDataProvider());
    if (provider && target.mark) {
        const KXIndexPath path = provider->obtainSeriesValuePath(this, target.mark->series,
                                                                 target.mark->category);
        if (self.isAlive())
            data = provider->obtainHintData(this, path);
    }
    if (!self.isAlive())
        return UXHintInfo(false);
    endUseDataProvider();
    if (data.isEmpty())
        _fillHint(info, *target.category, target.mark);
    else
        info = kxMakeHintInfo(data, info);
    return info;
}

void KXAxisChart::_fillHint(UXHintInfo& info, std::uint64_t category,
                            const std::optional<KXAxisChartMark>& hovered)
{
    const UXObjectWatcher self(this);
    const std::string title = obtainCategoryLabel(category);
    if (!self.isAlive())
        return;
    info.title = title;
    const auto addRow = [&](std::uint64_t series) {
        const double value = _obtainMarkValue({series, category});
        if (std::isnan(value))
            return;
        if (info.rows.size() >= greatestHintRowCount) {
            ++info.omittedRowCount;
            return;
        }
        UXHintRowInfo& row = info.addRow(obtainSeriesColor(series), obtainLegendSymbolStyle(series),
                                         getSeriesLabel(series), obtainValueText(series, value));
        row.showSymbol = true;
        _fillHintRow(row, {series, category});
    };
    if (hovered)
        addRow(hovered->series);
    for (const std::uint64_t series : m_shownSeries)
        if (!hovered || series != hovered->series)
            addRow(series);
    info.enabled = info.enabled && !info.rows.empty();
    if (!info.rows.empty())
        _fillHintFooter(info, category);
}

UXRect KXAxisChart::obtainHintArea(UXPoint point)
{
    const UXRect area = uxIntersectionRect(_obtainMarkArea(translatePoint(point, this, getPlot())),
                                           getMarksArea());
    return uxIsEmptyRect(area) ? UXRect() : translateRect(area, getPlot(), this);
}

UXRect KXAxisChart::_obtainMarkArea(UXPoint) const { return {}; }

std::vector<UXRect> KXAxisChart::_obtainMarkRects(const KXAxisChartMark&) const { return {getMarksArea()}; }

KXHighlightResult KXAxisChart::showLinkedHighlight(const KXChartDataPath& path, UXControl* control)
{
    const UXObjectWatcher self(this);
    const std::vector<KXAxisChartMark> marks = findMarks(path);
    if (!self.isAlive() || marks.empty())
        return KXHighlightResult::NotFound;
    setLinkedMarks(marks);
    const KXAxisChartMark& first = marks.front();
    UXHintInfo info = _makeHint({first.category, marks.size() == 1 ? std::optional(first) : std::nullopt});
    if (!self.isAlive())
        return KXHighlightResult::Highlighted;
    // Of a mark out of sight the hint stands at the edge behind which it lies.
    const UXRect& area = getMarksArea();
    if (info.enabled && !uxIsEmptyRect(area)) {
        const UXPoint point = _obtainHintPoint(first);
        showLinkedHighlightHint(&info, getPlot(),
                                {std::clamp(point.x, area.x, uxMaxX(area) - 1),
                                 std::clamp(point.y, area.y, area.getBottom() - 1)},
                                control);
    }
    return KXHighlightResult::Highlighted;
}

/** Linked marks never scroll a chart, which stays where its reader left it: a tab says where they are. */
void KXAxisChart::_placeLinkedTab()
{
    m_linkedTab = m_linkedMarks.empty()
                      ? KXAxisChartEdgeTab()
                      : KXAxisChartEdgeTab::make(getMarksArea(), _obtainHintPoint(m_linkedMarks.front()),
                                                 isVertical());
}

void KXAxisChart::_paintOverMarks(UXPainter& painter) { m_linkedTab.paint(painter); }

void KXAxisChart::hideLinkedHighlight(UXControl* control)
{
    setLinkedMarks({});
    KXAxisChartBase::hideLinkedHighlight(control);
}

UXPoint KXAxisChart::_obtainHintPoint(const KXAxisChartMark&)
{
    return {uxMidX(getMarksArea()), getMarksArea().y};
}

void KXAxisChart::_interactionDisabled()
{
    const UXObjectWatcher self(this);
    KXAxisChartBase::_interactionDisabled();
    if (self.isAlive())
        _forgetHover();
}
