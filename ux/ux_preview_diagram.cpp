#include "ux/ux_preview_diagram.h"

#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>

UXPreviewDiagram::UXPreviewDiagram(UXContext* context) : UXUseCaseDiagram(context) {}

UXPreviewDiagram::~UXPreviewDiagram() = default;

UXPoint UXPreviewDiagram::getUseCaseOrigin() const
{
    const UXRect area = getContentRect(), shown = obtainShownRect();
    const double zoom = getUseCaseZoomRatio();
    return {uxSaturateToInt(std::floor(area.x + (area.width - shown.width * zoom) / 2)),
            uxSaturateToInt(std::floor(area.y + (area.height - shown.height * zoom) / 2))};
}

double UXPreviewDiagram::getUseCaseZoomRatio() const
{
    const UXRect area = getContentRect(), shown = obtainShownRect();
    if (uxIsEmptyRect(area) || uxIsEmptyRect(shown))
        return 1;
    return std::min(static_cast<double>(area.width) / shown.width,
                    static_cast<double>(area.height) / shown.height);
}

std::string UXPreviewDiagram::customSerializeTypeID() { return "UXPreviewDiagram"; }
