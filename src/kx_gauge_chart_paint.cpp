#include "kx_gauge_chart.h"

#include "kx_chart_label.h"
#include "kx_gauge_dial.h"
#include "kx_gauge_measures.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <optional>

bool KXGaugeChart::_shouldPaintChild(const UXObject* child) const
{
    return child != m_mainLabel; // which stands over the dial
}

void KXGaugeChart::_paintOverChildren(UXPaintConfig* config, const UXRect& dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        const KXGaugeDial dial = _obtainDial();
        if (dial.radius > 0) {
            _drawPipe(*painter, dial);
            _drawTarget(*painter, dial);
            if (m_showPointer)
                _drawPointer(*painter, dial);
        }
        uxDestroyPainter(painter);
    }
    _paintChild(m_mainLabel, config, dirtyRect);
}

void KXGaugeChart::_drawPipe(UXPainter& painter, const KXGaugeDial& dial) const
{
    const double valueDegrees = _hasValue() ? m_valueRatio * KXGaugeDial::sweepDegrees : 0;
    double covered = 0;
    for (int i = 0; i < obtainPipePartition(); ++i) {
        // Parts are whole degrees wide, so that their edges do not shimmer; the last one ends with the dial.
        const double exact = obtainPartitionAngle(i) - covered;
        const double sweep = std::trunc(covered + exact < KXGaugeDial::sweepDegrees ? exact + 0.5 : exact);
        if (exact < 0 || sweep <= 0)
            continue;
        const double end = covered + sweep;
        painter.setColor(m_showPointer ? _obtainPipePartitionColor(i) : m_pipeBackgroundColor);
        dial.fillSegment(painter, covered, end);
        if (!m_showPointer && valueDegrees > covered)
            _drawPipeValue(painter, dial, i, covered, std::min(end, valueDegrees));
        covered = end;
    }
}

/** The value's share of a partition; effects make it thicker on both sides. */
void KXGaugeChart::_drawPipeValue(UXPainter& painter, const KXGaugeDial& dial, int partition, double from,
                                  double to) const
{
    painter.setColor(m_mainLabel->obtainDrawnColor(_obtainPipePartitionColor(partition),
                                                   KXInteractionEffectTarget::Filled));
    dial.fillSegment(painter, from, to, m_mainLabel->obtainDrawnSizeRatio());
}

void KXGaugeChart::_drawTarget(UXPainter& painter, const KXGaugeDial& dial) const
{
    if (!kxIsGaugeNumber(m_targetRatio) || m_targetRatio < 0)
        return;
    // Beside a small dial the tick may reach over the chart's edge, which cuts it.
    const UXRect bounds = getBoundingRect();
    std::optional<UXPainterState> clip;
    if (!uxContainsRect(
            bounds, uxSurroundingRect(dial.obtainTickBounds(m_targetRatio * KXGaugeDial::sweepDegrees)))) {
        clip.emplace(painter);
        painter.addRectanglePath(bounds.x, bounds.y, bounds.width, bounds.height);
        painter.clip();
    }
    painter.setColor(
        m_targetLabel->obtainDrawnColor(m_pipeTargetColor, KXInteractionEffectTarget::NonFilled));
    dial.strokeTick(painter, m_targetRatio * KXGaugeDial::sweepDegrees,
                    m_targetLabel->obtainDrawnSizeRatio());
}

void KXGaugeChart::_drawPointer(UXPainter& painter, const KXGaugeDial& dial) const
{
    painter.setColor(m_mainLabel->obtainDrawnColor(m_pointerColor, KXInteractionEffectTarget::Filled));
    dial.fillHub(painter);
    if (!_hasValue())
        return;
    painter.setColor(m_mainLabel->obtainDrawnColor(m_pointerColor, KXInteractionEffectTarget::NonFilled));
    dial.strokeNeedle(painter, m_valueRatio * KXGaugeDial::sweepDegrees, m_mainLabel->obtainDrawnSizeRatio());
}
