#pragma once

#include "kx_export.h"
#include "kx_value_bar.h"

#include <string>

/** A bar that grows upwards. */
class KX_EXPORT KXVerticalBar : public KXValueBar {
public:
    KXVerticalBar();
    ~KXVerticalBar() override;

    // From UXJsonObject
    std::string customSerializeTypeID() override;

protected:
    bool isVertical() const override;
};
