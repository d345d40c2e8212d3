#pragma once

#include "kx_export.h"
#include "kx_gradient_legend.h"

#include <string>

/** The legend of lines, points and tiles whose colours stand for values. */
class KX_EXPORT KXLineGradientLegend : public KXGradientLegend {
public:
    KXLineGradientLegend();
    ~KXLineGradientLegend() override;

    // From UXJsonObject
    std::string customSerializeTypeID() override;
};
