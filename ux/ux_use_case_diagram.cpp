#include "ux/ux_use_case_diagram.h"

#include "ux/ux_saturate.h"

#include <cmath>

UXUseCaseDiagram::UXUseCaseDiagram(UXContext* context) : UXDiagram(context), m_sourceDiagram(nullptr) {}

UXUseCaseDiagram::~UXUseCaseDiagram() = default;

UXDiagram* UXUseCaseDiagram::getSourceDiagram() const
{
    return static_cast<UXDiagram*>(m_sourceDiagram.getObject());
}

void UXUseCaseDiagram::setSourceDiagram(UXDiagram* diagram)
{
    m_sourceDiagram = UXObjectWatcher(diagram);
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

UXRect UXUseCaseDiagram::obtainShownRect() const
{
    const UXDiagram* source = getSourceDiagram();
    if (!source)
        return {};
    return m_useContentRect ? source->getContentRect() : source->getBoundingRect();
}
