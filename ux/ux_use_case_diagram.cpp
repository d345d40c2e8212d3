#include "ux/ux_use_case_diagram.h"

#include "ux/ux_paint_config_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_saturate.h"

#include <cmath>

UXUseCaseDiagram::UXUseCaseDiagram(UXContext* context) : UXDiagram(context), m_sourceDiagram(nullptr) {}

UXUseCaseDiagram::~UXUseCaseDiagram() { _leaveSource(); }

UXDiagram* UXUseCaseDiagram::getSourceDiagram() const
{
    return static_cast<UXDiagram*>(m_sourceDiagram.getObject());
}

void UXUseCaseDiagram::setSourceDiagram(UXDiagram* diagram)
{
    for (const UXDiagram* shown = diagram; shown;) {
        if (shown == this)
            return;
        const auto* made = dynamic_cast<const UXUseCaseDiagram*>(shown);
        shown = made ? made->getSourceDiagram() : nullptr;
    }
    _leaveSource();
    m_sourceDiagram = UXObjectWatcher(diagram);
    if (diagram)
        diagram->m_useCaseDiagrams.push_back(this);
    invalidate();
}

void UXUseCaseDiagram::setUseContentRect(bool useContentRect)
{
    m_useContentRect = useContentRect;
    invalidate();
}

UXPoint UXUseCaseDiagram::getUseCaseOrigin() const { return m_useCaseOrigin; }

void UXUseCaseDiagram::setUseCaseOrigin(UXPoint origin)
{
    m_useCaseOrigin = origin;
    invalidate();
}

double UXUseCaseDiagram::getUseCaseZoomRatio() const { return m_useCaseZoomRatio; }

void UXUseCaseDiagram::setUseCaseZoomRatio(double ratio)
{
    if (!std::isfinite(ratio) || ratio <= 0)
        return;
    m_useCaseZoomRatio = ratio;
    invalidate();
}

UXPoint UXUseCaseDiagram::diagramSpaceToUseCaseDiagramSpace(UXPoint point) const
{
    const UXRect shown = obtainShownRect();
    const UXPoint origin = getUseCaseOrigin();
    const double zoom = getUseCaseZoomRatio();
    return {uxRoundToInt(origin.x + (static_cast<double>(point.x) - shown.x) * zoom),
            uxRoundToInt(origin.y + (static_cast<double>(point.y) - shown.y) * zoom)};
}

UXSize UXUseCaseDiagram::diagramSpaceToUseCaseDiagramSpace(UXSize size) const
{
    const double zoom = getUseCaseZoomRatio();
    return {uxRoundToInt(size.width * zoom), uxRoundToInt(size.height * zoom)};
}

UXPoint UXUseCaseDiagram::useCaseDiagramSpaceToDiagramSpace(UXPoint point) const
{
    const UXRect shown = obtainShownRect();
    const UXPoint origin = getUseCaseOrigin();
    const double zoom = getUseCaseZoomRatio();
    return {uxRoundToInt(shown.x + (static_cast<double>(point.x) - origin.x) / zoom),
            uxRoundToInt(shown.y + (static_cast<double>(point.y) - origin.y) / zoom)};
}

UXSize UXUseCaseDiagram::useCaseDiagramSpaceToDiagramSpace(UXSize size) const
{
    const double zoom = getUseCaseZoomRatio();
    return {uxRoundToInt(size.width / zoom), uxRoundToInt(size.height / zoom)};
}

std::string UXUseCaseDiagram::customSerializeTypeID() { return "UXUseCaseDiagram"; }

void UXUseCaseDiagram::layout()
{
    UXObjectWatcher watcher(this);
    if (UXDiagram* source = getSourceDiagram())
        source->layout();
    if (watcher.isAlive())
        UXDiagram::layout();
}

void UXUseCaseDiagram::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    const UXObjectWatcher watcher(this);
    const UXPaintConfigWatcher configWatcher(config);
    if (UXDiagram* source = getSourceDiagram())
        _paintSource(*source, config);
    if (watcher.isAlive() && !configWatcher.isGone())
        UXDiagram::paint(config, dirtyRect);
}

void UXUseCaseDiagram::_leaveSource()
{
    if (UXDiagram* source = getSourceDiagram())
        std::erase(source->m_useCaseDiagrams, this);
}

/** The source's objects know their places in the source only: they are recorded there and played here. */
void UXUseCaseDiagram::_paintSource(UXDiagram& source, UXPaintConfig* config)
{
    const UXRect shown = obtainShownRect();
    UXPainter* painter = uxCreatePainterWithObject(config, this);
    if (!painter)
        return;
    const double zoom = getUseCaseZoomRatio();
    UXRecordingPaintConfig recording(painter->getDeviceScale() * zoom);
    // What is painted may destroy this diagram, which is not looked at any more from here on.
    const UXPoint origin = getUseCaseOrigin();
    const UXObjectWatcher watcher(&source);
    const UXPaintConfigWatcher configWatcher(config);
    source.paintBackground(&recording);
    if (watcher.isAlive())
        source.paint(&recording, shown);
    if (configWatcher.isGone()) {
        // uxDestroyPainter would hand the drawing over to what is gone.
        delete painter;
        return;
    }
    painter->translate(origin.x, origin.y);
    painter->scale(zoom, zoom);
    painter->translate(-shown.x, -shown.y);
    painter->addRectanglePath(UXDoubleRect(shown));
    painter->clip();
    recording.getRecording().replay(*painter);
    uxDestroyPainter(painter);
}

UXRect UXUseCaseDiagram::obtainShownRect() const
{
    const UXDiagram* source = getSourceDiagram();
    if (!source)
        return {};
    return m_useContentRect ? source->getContentRect() : source->getBoundingRect();
}
