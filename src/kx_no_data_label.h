#pragma once

#include "kx_export.h"
#include "ux/ux_label.h"
#include "ux/ux_rect.h"

/** Says in the middle of a chart's place that there is nothing to show there. */
class KX_EXPORT KXNoDataLabel : public UXLabel {
public:
    KXNoDataLabel();
    ~KXNoDataLabel() override;

    /** Shows the words in the host's language, or nothing where the place is too low for them. The host may
     * destroy this.
     *  @param place in the parent's space */
    void update(const UXRect& place, bool hasData);

protected:
    /** In a colour that can be read on the parent's ground. */
    void drawLabel(UXPainter& painter, const UXDoubleRect& textRect, const UXTextProperty& property) override;
};
