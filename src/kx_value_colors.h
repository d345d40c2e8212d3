#pragma once

#include "kx_export.h"
#include "kx_gradient_scale.h"
#include "ux/ux_color.h"

#include <optional>
#include <utility>
#include <vector>

struct KXAxisChartPlotFrame;
class UXPainter;

/** In which colour a mark is drawn where it has a certain value: one for all, or by a scale, or another one
 * below zero. */
struct KX_EXPORT KXValueColors {
    UXColor color;
    std::optional<KXGradientScale> scale; /**< in place of the colour */
    UXColor negativeColor{0, 0, 0, 0};    /**< in place of both below zero, unless it is clear */
    /** Colours by places across, which grow, in place of all of these: other values than the mark's own. */
    std::vector<std::pair<double, UXColor>> places;

    UXColor obtainColor(double value) const;
    /** Has the painter draw with these colours, each place in that of its value.
     *  @param opacity of all of them, 0 to 1 */
    void use(UXPainter& painter, const KXAxisChartPlotFrame& frame, double opacity) const;

private:
    void _usePlaces(UXPainter& painter, const KXAxisChartPlotFrame& frame, double opacity) const;
};
