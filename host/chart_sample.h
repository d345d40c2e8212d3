#pragma once

#include <string>
#include <vector>

/** A chart document, and the data and binding that it is shown with; or a dashboard, which names its own. All
 * are paths. */
struct ChartSample {
    std::string name;                 // of the document's file, up to its first dot
    std::string chart, binding, data; // the latter two are empty for a dashboard

    bool isDashboard() const { return binding.empty(); }
};

/** @return the samples that the gallery.json of a folder lists, in its order; throws HostError where that
 * cannot be read or understood */
std::vector<ChartSample> readChartSamples(const std::string& folder);

/** @return the sample that the gallery.json beside a chart document lists for it; throws HostError where
 * there is none */
ChartSample findChartSample(const std::string& chart);
