// kx_gallery: every sample document becomes pictures and an entry of an index page.

#include "chart_data_source.h"
#include "chart_document.h"
#include "chart_picture.h"
#include "gallery_page.h"
#include "host_error.h"
#include "json_cursor.h"
#include "json_document.h"
#include "kx_chart_property.h"
#include "sql_data_provider.h"
#include "text_file.h"
#include "ux/cairo/ux_cairo_install.h"
#include "whole_file.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <nlohmann/json.hpp>

namespace {

constexpr int badInput = 2;

struct Sample {
    std::string name, chart, binding, data;
};

std::vector<Sample> readSamples(const std::filesystem::path& folder)
{
    const std::string list = (folder / "gallery.json").string();
    const nlohmann::json parsed = parseJsonDocument(list, readTextFile(list));
    std::vector<Sample> samples;
    JsonCursor(list, parsed).visitList([&](const JsonCursor& entry) {
        entry.requireKeys({"chart", "binding", "data"});
        Sample sample;
        sample.chart = (folder / entry.getValue("chart").readText()).string();
        sample.binding = (folder / entry.getValue("binding").readText()).string();
        sample.data = (folder / entry.getValue("data").readText()).string();
        const std::string file = std::filesystem::path(sample.chart).filename().string();
        sample.name = file.substr(0, file.find('.'));
        samples.push_back(sample);
    });
    return samples;
}

/** A saved chart that is read and saved again has to be the same document. */
void requireSavesAlike(const Sample& sample, const ChartDocument& document, const std::filesystem::path& out)
{
    const std::string saved = document.save();
    const std::string path = (out / (sample.name + ".json")).string();
    writeWholeFile(path, saved);
    if (ChartDocument(path).save() != saved)
        throw HostError(sample.chart, "", "changes when it is saved, read and saved again");
}

void drawSample(const Sample& sample, const std::filesystem::path& out)
{
    ChartDocument document(sample.chart);
    requireSavesAlike(sample, document, out);
    ChartDataSource source(sample.data, sample.binding, {});
    document.loadData(&source.getProvider());
    if (!source.getProvider().getError().empty())
        throw std::runtime_error(source.getProvider().getError());

    const std::string base = (out / sample.name).string();
    PictureSetting setting;
    for (const GalleryPicture& picture : galleryPictures) {
        setting.size = picture.size;
        writeChartPicture(document.getChart(), setting, base + picture.suffix + ".png");
    }
    setting.size = galleryPictures[0].size;
    writeChartPicture(document.getChart(), setting, base + ".svg");
}

void drawGallery(const std::filesystem::path& folder, const std::filesystem::path& out)
{
    std::error_code error;
    std::filesystem::create_directories(out, error);
    if (error)
        throw HostError(out.string(), "", "cannot be made: " + error.message());
    uxCairoInstall();
    GalleryPage page;
    const std::vector<Sample> samples = readSamples(folder);
    for (const Sample& sample : samples) {
        drawSample(sample, out);
        page.addSample(sample.name, ChartDocument(sample.chart).getChart().getChartProperty()->getRemarks(),
                       std::filesystem::path(sample.data).filename().string());
    }
    writeWholeFile((out / "index.html").string(), page.obtainHtml());
    std::printf("%zu samples drawn, see %s\n", samples.size(), (out / "index.html").string().c_str());
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: kx_gallery SAMPLES OUT\n");
        return badInput;
    }
    try {
        drawGallery(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kx_gallery: %s\n", error.what());
        return badInput;
    }
    return 0;
}
