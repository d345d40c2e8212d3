// kx_gallery: every sample document becomes pictures and an entry of an index page. What the pictures show
// can be accepted: tests then hold later ones against it.

#include "chart_baseline.h"
#include "chart_document.h"
#include "chart_picture.h"
#include "chart_sample.h"
#include "command_line.h"
#include "dashboard.h"
#include "dashboard_reader.h"
#include "gallery_page.h"
#include "host_error.h"
#include "opened_sample.h"
#include "ux/cairo/ux_cairo_install.h"
#include "view_data_provider.h"
#include "whole_file.h"

#include <cstdio>
#include <filesystem>
#include <span>

namespace {

/** What is saved, read and saved again has to be the same document. */
void requireSavesAlike(const ChartSample& sample, const std::string& saved, const std::filesystem::path& out)
{
    writeWholeFile((out / (sample.name + ".json")).string(), saved);
    const std::string again = sample.isDashboard()
                                  ? Dashboard(DashboardReader(sample.chart).readText(saved), {}).save()
                                  : ChartDocument(sample.chart, saved).save();
    if (again != saved)
        throw HostError(sample.chart, "", "changes when it is saved, read and saved again");
}

void drawSample(const ChartSample& sample, const OpenedSample& opened, const std::filesystem::path& out)
{
    const std::string base = (out / sample.name).string();
    const std::span<const GalleryPicture> pictures = obtainGalleryPictures(sample);
    PictureSetting setting;
    for (const GalleryPicture& picture : pictures) {
        setting.size = picture.size;
        writePicture(opened.obtainPainter(), setting, base + picture.suffix + ".png");
        for (const std::string& fault : checkPicture(opened.obtainPainter(), setting))
            std::printf("%s%s: %s\n", sample.name.c_str(), picture.suffix, fault.c_str());
    }
    setting.size = pictures[0].size;
    writePicture(opened.obtainPainter(), setting, base + ".svg");
}

void drawGallery(const std::filesystem::path& folder, const std::filesystem::path& out)
{
    std::error_code error;
    std::filesystem::create_directories(out, error);
    if (error)
        throw HostError(out.string(), "", "cannot be made: " + error.message());
    uxCairoInstall();
    GalleryPage page;
    const std::vector<ChartSample> samples = readChartSamples(folder.string());
    for (const ChartSample& sample : samples) {
        const OpenedSample opened(sample);
        requireSavesAlike(sample, opened.save(), out);
        drawSample(sample, opened, out);
        page.addSample(sample, opened.getCaption());
    }
    writeWholeFile((out / "index.html").string(), page.obtainHtml());
    std::printf("%zu samples drawn, see %s\n", samples.size(), (out / "index.html").string().c_str());
}

void acceptGallery(const std::string& folder)
{
    for (const ChartSample& sample : readChartSamples(folder))
        ChartBaseline::draw(sample).write(sample);
    ChartBaseline::writeVersions(folder);
}

} // namespace

int main(int argc, char** argv)
{
    CLI::App app("Renders the samples of a folder to pictures with an index page.", "kx_gallery");
    std::string folder, out;
    bool accepts = false;
    app.add_option("samples", folder, "The folder of the samples and their gallery.json")->required();
    app.add_option("out", out, "The folder of the pictures")->required();
    app.add_flag("--accept", accepts, "Let tests hold later drawings against these");
    return runCommandLine(app, argc, argv, [&] {
        drawGallery(folder, out);
        if (accepts)
            acceptGallery(folder);
    });
}
