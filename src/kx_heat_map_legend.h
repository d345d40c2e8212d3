#pragma once

#include "kx_export.h"
#include "kx_gradient_legend.h"

#include <optional>
#include <string>

/** The legend of a heat map, on which the value that the pointer is over is marked. */
class KX_EXPORT KXHeatMapLegend : public KXGradientLegend {
public:
    KXHeatMapLegend();
    ~KXHeatMapLegend() override;

    const std::optional<double>& getMarkedValue() const { return m_markedValue; }
    /** @param value beyond the scale it is marked at the end */
    void setMarkedValue(const std::optional<double>& value);

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;

private:
    std::optional<double> m_markedValue;
};
