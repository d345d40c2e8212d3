#pragma once

#include "kx_chart_data_path.h"

#include <cstdint>
#include <string>

/** An item of a chart, for a page to be told about. */
struct WebItem {
    std::uint32_t chart = 0; // as the page knows it
    KXChartDataPath path;

    /** @return {"event": event, "chart": ..., "identifier": ..., "dimension": [...], "value": [...]} */
    std::string obtainMessage(const std::string& event) const;
};
