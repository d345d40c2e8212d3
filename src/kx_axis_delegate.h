#pragma once

#include "kx_export.h"

class KXAxis;

/** Who places what depends on an axis: the axis chart. Either operation may destroy the axis. */
class KX_EXPORT KXAxisDelegate {
public:
    virtual ~KXAxisDelegate() = default;

    /**
     * The content's length, the spacing of its values or the visible length changed. Called while the axis
     * updates itself: what is set on it now is taken up by its next query.
     * @param totalLength of the whole content in logical units, extra lengths included
     */
    virtual void axisAxisLengthChanged(KXAxis* axis, double totalLength) = 0;
    /** Other values are visible than before, or the same at other places. */
    virtual void axisVisibleValuesChanged(KXAxis* axis) = 0;
};
