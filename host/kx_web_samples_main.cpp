// kx_web_samples: the samples for a page, which has no database: each chart's document and its data as
// columns, and what the charts look like here, which the module of the page is held to.

#include "chart_data_source.h"
#include "chart_document.h"
#include "chart_picture.h"
#include "chart_sample.h"
#include "command_line.h"
#include "dashboard.h"
#include "dashboard_reader.h"
#include "gallery_page.h"
#include "host_error.h"
#include "kx_chart_property.h"
#include "kx_table_data_provider.h"
#include "sql_data_provider.h"
#include "table_export.h"
#include "view_data_provider.h"
#include "whole_file.h"

#include <cstdio>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

namespace {

using Json = nlohmann::ordered_json;

/** Draws the chart over its exported data at the gallery's sizes. @return the sizes */
Json drawSizes(const ChartSample& sample, const std::string& document, const TableExport& data,
               const std::string& base)
{
    Json sizes = Json::array();
    for (const GalleryPicture& picture : obtainGalleryPictures(sample)) {
        KXTableDataProvider table;
        data.fill(table);
        ChartDocument chart(sample.chart, document);
        if (KXChartDataUser* user = chart.getChart().obtainLegendDataUser())
            table.serve(*user);
        PictureSetting setting;
        setting.size = picture.size;
        writePicture([&](const PictureSetting& own,
                         UXPaintConfig& config) { paintChart(chart.getChart(), own, config); },
                     setting,
                     base + '-' + std::to_string(picture.size.width) + 'x' +
                         std::to_string(picture.size.height) + ".svg");
        sizes.push_back({picture.size.width, picture.size.height});
    }
    return sizes;
}

Json exportChart(const ChartSample& sample, const std::string& name, KXChart& chart,
                 SqlDataProvider& provider, const std::filesystem::path& out)
{
    const TableExport data(provider);
    const std::string document = chart.serialize();
    return {{"name", name},
            {"caption", chart.getChartProperty()->getRemarks()},
            {"document", Json::parse(document)},
            {"data", data.toJson()},
            {"sizes", drawSizes(sample, document, data, (out / name).string())}};
}

void exportSample(const ChartSample& sample, const std::filesystem::path& out, Json& list)
{
    if (!sample.isDashboard()) {
        ChartDocument document(sample.chart);
        ChartDataSource source(sample.data, sample.binding, {});
        document.loadData(&source.getProvider());
        list.push_back(exportChart(sample, sample.name, document.getChart(), source.getProvider(), out));
        return;
    }
    const ViewItemHandlers noHandlers;
    Dashboard dashboard(DashboardReader(sample.chart).readFile(), noHandlers);
    const DashboardDocument& document = dashboard.getDocument();
    Json items = Json::array();
    for (std::size_t i = 0; i < dashboard.getItemCount(); ++i) {
        const std::string name = sample.name + '-' + std::to_string(i + 1);
        const UXRect& cells = document.items[i].cells;
        Json item = exportChart(sample, name, dashboard.getChart(i), dashboard.getProvider(i), out);
        item["place"] = {{"x", double(cells.x) / document.columns},
                         {"y", double(cells.y) / document.rows},
                         {"width", double(cells.width) / document.columns},
                         {"height", double(cells.height) / document.rows}};
        items.push_back(item);
    }
    list.push_back({{"name", sample.name}, {"caption", document.title}, {"items", items}});
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Writes the samples of a folder for a page.", "kx_web_samples");
    std::string folder, out;
    app.add_option("samples", folder, "The folder of the samples and their gallery.json")->required();
    app.add_option("out", out, "The folder of samples.json and of what the charts look like")->required();
    return runCommandLine(app, argc, argv, [&] {
        std::filesystem::create_directories(out);
        Json list = Json::array();
        for (const ChartSample& sample : readChartSamples(folder))
            exportSample(sample, out, list);
        writeWholeFile((std::filesystem::path(out) / "samples.json").string(), list.dump());
        std::printf("%zu samples for a page, see %s\n", list.size(), out.c_str());
    });
}
