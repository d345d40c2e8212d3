#pragma once

#include "kx_export.h"
#include "ux/ux_accessible_object.h"

class KXControlPart;

/** What the user operates, for those who do not see it: what is done with it is what its keys do. */
class KX_EXPORT KXAccessiblePart : public UXAccessibleObject {
public:
    explicit KXAccessiblePart(KXControlPart& part);
    ~KXAccessiblePart() override;

    // From UXAccessibleNode
    UXAccessibleInfo obtainInfo() override;
    bool perform(UXAccessibleAction action) override;

private:
    KXControlPart* _getPart() const;
};
