#include "web_view.h"

#include "kx_chart_data_action.h"
#include "kx_chart_data_user.h"
#include "ux/ux_event.h"
#include "ux/ux_message_right_click_param.h"
#include "ux/ux_paint_clip.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "web_page.h"
#include "web_paint_config.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int presentUseCase = 1, interactiveUseCase = 2;

UXRect toPixels(const UXControlRect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

/** The views that there are, for what knows its chart alone. */
std::vector<WebView*>& views()
{
    static std::vector<WebView*> all;
    return all;
}

} // namespace

WebView::WebView()
{
    views().push_back(this);
    setUseCases({presentUseCase, interactiveUseCase});
    m_diagram.registerGlobalEventDiagram(&m_hints);
    m_diagram.registerGlobalEventDiagram(&m_scroller);
    m_diagram.registerGlobalEventDiagram(&m_linked);
    m_context.setActiveDiagram(this, &m_diagram);
    resize({1, 1}, 1);
}

WebView::~WebView() { std::erase(views(), this); }

WebChart* WebView::addChart(const std::string& document)
{
    std::unique_ptr<WebChart> chart = WebChart::create(document);
    if (!chart)
        return nullptr;
    m_diagram.addChild(chart.get());
    m_charts.push_back(std::move(chart));
    return m_charts.back().get();
}

void WebView::removeChart(WebChart* chart)
{
    const auto found = std::ranges::find(m_charts, chart, &std::unique_ptr<WebChart>::get);
    if (found == m_charts.end())
        return;
    const std::unique_ptr<WebChart> removed = std::move(*found);
    m_charts.erase(found);
}

void WebView::setFocusedChart(WebChart* chart)
{
    m_diagram.setFocusedObject(chart ? &chart->getChart() : nullptr);
}

void WebView::activateFocusedChart()
{
    auto* chart = dynamic_cast<KXChart*>(m_diagram.getFocusedObject());
    KXChartDataUser* user = chart ? chart->obtainLegendDataUser() : nullptr;
    auto* action = dynamic_cast<KXChartDataAction*>(chart);
    if (user && action)
        action->triggerLeftClickAction(user);
}

void WebView::resize(const UXSize& pixels, double scale)
{
    const UXSize size(std::max(pixels.width, 1), std::max(pixels.height, 1));
    m_allDirty = true;
    setScalingFactor(scale);
    setControlRect(UXControlRect(0, 0, size.width, size.height));
    m_diagram.setRect(UXRect(0, 0, uxSaturateToInt(std::ceil(size.width / getScalingFactor())),
                             uxSaturateToInt(std::ceil(size.height / getScalingFactor()))));
    webRequestFrame(_obtainNumber());
}

void WebView::setGround(const UXColor& ground)
{
    m_ground = ground;
    m_allDirty = true;
    webRequestFrame(_obtainNumber());
}

void WebView::measureAnew()
{
    for (const std::unique_ptr<WebChart>& chart : m_charts)
        chart->getChart().setRequireToVerifyLayout(true);
    m_allDirty = true;
    webRequestFrame(_obtainNumber());
}

const std::vector<std::uint32_t>& WebView::drawFrame(std::int64_t nowMilliseconds)
{
    timer(nowMilliseconds);
    m_diagram.layout();
    m_drawing.clear();
    const UXDirtyRegion region = _takeDirtyPixels();
    for (const UXRect& area : region.getRects())
        _drawArea(area);
    return m_drawing.getWords();
}

void WebView::tell(std::uint32_t chart, const std::string& message)
{
    for (const WebView* view : views()) {
        const bool isHere = std::ranges::any_of(view->m_charts, [chart](const auto& own) {
            return WebChart::findNumber(&own->getChart()) == chart;
        });
        if (isHere)
            return webNotify(view->_obtainNumber(), message);
    }
}

bool WebView::hasDefaultBackground() const { return true; }

bool WebView::shouldReduceMotion() const { return m_reduceMotion; }

void WebView::customEvent()
{
    // A timer may have been started, which only a frame runs.
    if (obtainNextTimer(0))
        webRequestFrame(_obtainNumber());
}

void WebView::notifyDirtyRect(UXDiagram*) { webRequestFrame(_obtainNumber()); }

void WebView::notifyFullScreenDirtyRect(UXDiagram*)
{
    m_allDirty = true;
    webRequestFrame(_obtainNumber());
}

void WebView::notifyCursorChange(int cursor) { webShowCursor(_obtainNumber(), cursor); }

void WebView::notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint)
{
    if (param && param->data)
        webNotify(_obtainNumber(), static_cast<const WebItem*>(param->data)->obtainMessage("menu"));
}

std::uint32_t WebView::_obtainNumber() const
{
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(this));
}

/** @return what lies over the charts in the canvas's pixels, from back to front */
std::vector<UXGlobalControlSpaceEventDiagram*> WebView::_obtainOverlays() const
{
    std::vector<UXGlobalControlSpaceEventDiagram*> overlays;
    for (UXGlobalEventDiagram* diagram : m_diagram.getGlobalEventDiagrams()) {
        if (auto* overlay = dynamic_cast<UXGlobalControlSpaceEventDiagram*>(diagram))
            overlays.insert(overlays.begin(), overlay);
    }
    return overlays;
}

UXDirtyRegion WebView::_takeDirtyPixels()
{
    UXDirtyRegion region;
    const UXRect bounds = toPixels(getControlRect());
    if (m_allDirty)
        region.add(bounds);
    for (const UXRect& rect : m_diagram.getDirtyRegion().getRects())
        region.add(uxIntersectionRect(toPixels(diagramSpaceToControlSpace(rect)), bounds));
    m_diagram.clearDirtyRect();
    for (UXGlobalControlSpaceEventDiagram* overlay : _obtainOverlays()) {
        for (const UXRect& rect : overlay->getDirtyRegion().getRects())
            region.add(uxIntersectionRect(rect, bounds));
        overlay->clearDirtyRect();
    }
    m_allDirty = false;
    return region;
}

void WebView::_drawArea(const UXRect& pixels)
{
    WebPaintConfig canvas(m_drawing, {});
    const UXPaintClip clip(canvas, UXDoubleRect(pixels));
    if (UXPainter* painter = uxCreatePainter(&canvas)) {
        painter->setCompositionMode(UXCompositionMode::Source); // a ground may let the page through
        painter->setColor(m_ground);
        painter->addRectanglePath(UXDoubleRect(pixels));
        painter->fill();
        uxDestroyPainter(painter);
    }
    const double zoom = getZoomRatioWithScalingFactor();
    const UXDoubleControlPoint origin = getDiagramDoubleOriginInControlSpace();
    WebPaintConfig board(m_drawing, UXTransform{}.translated(origin.x, origin.y).scaled(zoom, zoom));
    const UXControlRect area(pixels.x, pixels.y, pixels.width, pixels.height);
    const UXPaintClip boardClip(
        board, controlSpaceToDiagramSpace(UXDoubleControlRect(area.x, area.y, area.width, area.height)));
    m_diagram.paint(&board, controlSpaceToDiagramSpace(area));
    for (UXGlobalControlSpaceEventDiagram* overlay : _obtainOverlays()) {
        if (overlay->getVisible())
            overlay->paintOver(this, &canvas, pixels);
    }
}
