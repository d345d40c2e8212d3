#include "kx_line_gradient_legend.h"

KXLineGradientLegend::KXLineGradientLegend() = default;
KXLineGradientLegend::~KXLineGradientLegend() = default;

std::string KXLineGradientLegend::customSerializeTypeID() { return "KXLineGradientLegend"; }
