#pragma once

#include "kx_export.h"
#include "kx_value_bar.h"

#include <string>

/** A bar that grows to the right. */
class KX_EXPORT KXHorizontalBar : public KXValueBar {
public:
    KXHorizontalBar();
    ~KXHorizontalBar() override;

    // From UXJsonObject
    std::string customSerializeTypeID() override;

protected:
    bool isVertical() const override;
};
