#pragma once

#include "kx_export.h"
#include "ux/ux_json_object.h"

#include <memory>
#include <string>
#include <vector>

class KXScatterPoint;
class UXPainter;

/** The points of one series that are drawn one by one. */
class KX_EXPORT KXScatterPlotData : public UXJsonObject {
public:
    explicit KXScatterPlotData(std::string series = {});
    ~KXScatterPlotData() override;

    const std::string& getSeries() const { return m_series; }
    /** @return a new point, over all others */
    KXScatterPoint& addPoint();
    const std::vector<std::unique_ptr<KXScatterPoint>>& getPoints() const { return m_points; }

    void paint(UXPainter& painter) const;

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    std::string m_series; // its label
    std::vector<std::unique_ptr<KXScatterPoint>> m_points;
};
