#include "chart_sample.h"

#include "host_error.h"
#include "json_cursor.h"
#include "json_document.h"
#include "text_file.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace fs = std::filesystem;

std::vector<ChartSample> readChartSamples(const std::string& folder)
{
    const std::string list = (fs::path(folder) / "gallery.json").string();
    const nlohmann::json parsed = parseJsonDocument(list, readTextFile(list));
    std::vector<ChartSample> samples;
    JsonCursor(list, parsed).visitList([&](const JsonCursor& entry) {
        entry.requireKeys({"chart", "binding", "data", "dashboard"});
        const auto readPath = [&](const char* key) {
            return (fs::path(folder) / entry.getValue(key).readText()).string();
        };
        ChartSample sample;
        if (entry.hasKey("dashboard"))
            sample.chart = readPath("dashboard");
        else
            sample = {"", readPath("chart"), readPath("binding"), readPath("data")};
        const std::string file = fs::path(sample.chart).filename().string();
        sample.name = file.substr(0, file.find('.'));
        samples.push_back(sample);
    });
    return samples;
}

ChartSample findChartSample(const std::string& chart)
{
    const fs::path path(chart);
    std::error_code unknown;
    const bool hasList = fs::exists(path.parent_path() / "gallery.json", unknown);
    const std::vector<ChartSample> samples = hasList ? readChartSamples(path.parent_path().string())
                                                     : std::vector<ChartSample>();
    const auto found = std::ranges::find_if(samples, [&](const ChartSample& sample) {
        return fs::path(sample.chart).filename() == path.filename();
    });
    if (found == samples.end())
        throw HostError(chart, "", "is in no gallery.json beside it; name its data and its binding");
    return *found;
}
