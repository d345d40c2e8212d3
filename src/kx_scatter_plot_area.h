#pragma once

#include "kx_export.h"
#include "ux/ux_json_object.h"

#include <memory>
#include <string>
#include <vector>

class KXScatterPlotData;
class UXPainter;

/** What is drawn one by one over the points of a scatter chart, series by series: those that stand out. */
class KX_EXPORT KXScatterPlotArea : public UXJsonObject {
public:
    KXScatterPlotArea();
    ~KXScatterPlotArea() override;

    /** @param series its label
     *  @return the points of the series, new ones where there are none yet */
    KXScatterPlotData& obtainData(const std::string& series);
    const std::vector<std::unique_ptr<KXScatterPlotData>>& getData() const { return m_data; }

    void paint(UXPainter& painter) const;

    // From UXJsonObject
    void customSerialize() override;
    std::string customSerializeTypeID() override;
    bool customDeserialize() override;

private:
    std::vector<std::unique_ptr<KXScatterPlotData>> m_data;
};
