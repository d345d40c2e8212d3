#pragma once

#include "kx_export.h"
#include "kx_switch_part.h"

/** A switch whose knob stands left for off, right for on and in the middle for mixed, and a text beside it.
 */
class KX_EXPORT KXToggleSwitch : public KXSwitchPart {
public:
    KXToggleSwitch();
    ~KXToggleSwitch() override;

    // From KXControlPart and UXJsonObject
    void describe(UXAccessibleInfo& info) const override;
    std::string customSerializeTypeID() override;

protected:
    double _obtainMarkWidth() const override;
    void _paintMark(UXPainter& painter, const UXDoubleRect& rect) const override;
};
