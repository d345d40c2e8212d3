#include "kx_axis_tick_label_view_delegate.h"

#include "ux/ux_color.h"

KXAxisTickLabelViewDelegate::~KXAxisTickLabelViewDelegate() = default;

bool KXAxisTickLabelViewDelegate::axisTickLabelViewObtainTickLabelVisuals(KXAxisTickLabelView*, double,
                                                                          UXColor&, bool&)
{
    return false;
}

bool KXAxisTickLabelViewDelegate::axisTickLabelViewShouldConsiderStartEndLabelLength(KXAxisTickLabelView*,
                                                                                     bool&)
{
    return false;
}

bool KXAxisTickLabelViewDelegate::axisTickLabelViewIsTickLabelToCome(KXAxisTickLabelView*, double)
{
    return false;
}
