#pragma once

#include "kx_export.h"
#include "kx_visible_range.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_point.h"
#include "ux/ux_rect.h"

#include <vector>

class KXAxis;
class KXXYAxisChart;
class UXEvent;
class UXPainter;

/**
 * What pointer and keys do to the part that is shown of a chart's axes, and which marks a box is drawn
 * around.
 *
 * Ctrl and wheel, + and -: less or more of it, about the pointer or the focus. A drag moves it, with Shift a
 * box is drawn around what is to be shown; where the chart wants marks to be selected so, a drag without
 * Shift draws one around these. Shift and arrows move it by a tenth. 0 and a double click beside all marks
 * show everything. A press is a click until it has moved a little.
 */
class KX_EXPORT KXAxisChartZoom {
public:
    /** @param chart owns this */
    explicit KXAxisChartZoom(KXXYAxisChart& chart) : m_chart(chart) {}
    KXAxisChartZoom(const KXAxisChartZoom&) = delete;
    KXAxisChartZoom& operator=(const KXAxisChartZoom&) = delete;

    // Each says whether the event was about this; the chart may have gone then
    bool turnWheel(const UXEvent& event);
    bool doubleClick(const UXEvent& event);
    bool pressKey(const UXEvent& event);
    void press(const UXEvent& event);
    bool drag(const UXEvent& event);
    /** Ends a drag, if there is one. */
    bool release(const UXEvent& event);

    /** Draws the box, in the plot's space. */
    void paint(UXPainter& painter) const;

private:
    enum class Drag { None, Pressed, Panning, Boxing };
    /** An axis as it was when the press began. */
    struct Held {
        KXAxis* axis; // the chart's
        KXVisibleRange shown;
        double start, end; // the ends of that along it, in the plot's space
    };

    std::vector<Held> _hold() const;
    bool _isInMarks(const UXEvent& event) const;
    UXPoint _obtainPlace(const UXEvent& event) const;
    void _zoom(const std::vector<Held>& axes, UXPoint about, double factor);
    void _pan(UXPoint place);
    void _showBox();
    UXDoubleRect _obtainBox() const;
    UXPoint _obtainFocus() const;

    KXXYAxisChart& m_chart;
    Drag m_drag = Drag::None;
    UXPoint m_from, m_to;     // of the drag, in the plot's space
    std::vector<Held> m_held; // while there is a drag
    bool m_selects = false;   // marks in the box, rather than showing what it holds
};
