#pragma once

#include "kx_export.h"
#include "ux/ux_accessible_object.h"

/** An object that a click makes do something, for those who do not see it. */
class KX_EXPORT KXAccessibleButton : public UXAccessibleObject {
public:
    KXAccessibleButton(UXObject& button, std::string name, bool isEnabled);
    ~KXAccessibleButton() override;

    // From UXAccessibleNode
    UXAccessibleInfo obtainInfo() override;
    bool perform(UXAccessibleAction action) override;

private:
    bool m_isEnabled;
};
