#include "chart_baseline.h"

#include "chart_sample.h"
#include "gallery_page.h"
#include "opened_sample.h"
#include "text_file.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/cairo/ux_cairo_versions.h"
#include "ux/ux_accessible_node.h"
#include "ux/ux_accessible_text.h"
#include "ux/ux_double_size.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_text_measurer.h"
#include "whole_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <vector>

namespace fs = std::filesystem;

namespace {

constexpr UXSize drawingSize{480, 320}, dashboardDrawingSize{960, 640};

void paint(const OpenedSample& sample, UXSize size, UXPaintConfig& config)
{
    PictureSetting setting;
    setting.size = size;
    sample.paint(setting, config);
}

/** The 64-bit FNV-1a hash, by Fowler, Noll and Vo: http://www.isthe.com/chongo/tech/comp/fnv/ */
std::string hashPixels(const UXCairoImagePaintConfig& config)
{
    std::uint64_t hash = 0xcbf29ce484222325u;
    const UXSize size = config.getPixelSize();
    for (int y = 0; y < size.height; ++y) {
        const std::uint32_t* row = config.getPixels() + std::ptrdiff_t{y} * config.getRowLength();
        for (int x = 0; x < size.width; ++x) {
            for (int shift = 0; shift < 32; shift += 8)
                hash = (hash ^ (row[x] >> shift & 0xff)) * 0x100000001b3u;
        }
    }
    std::array<char, 17> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(hash));
    return text.data();
}

bool startsWithOneOf(const std::string& line, std::initializer_list<const char*> starts)
{
    return std::ranges::any_of(starts, [&](const char* start) { return line.starts_with(start); });
}

/** @return the steps without the saved and restored states between which nothing is drawn */
std::string joinDrawingSteps(const std::vector<std::string>& lines)
{
    std::vector<std::string> kept;
    std::vector<std::size_t> saved; // where in kept a state begins in which nothing has been drawn so far
    for (const std::string& line : lines) {
        if (line == "saveState") {
            saved.push_back(kept.size());
        } else if (line == "restoreState" && !saved.empty()) {
            kept.resize(saved.back());
            saved.pop_back();
            continue;
        } else if (!startsWithOneOf(line, {"restoreState", "set", "translate", "rotate", "scale"})) {
            saved.clear();
        }
        kept.push_back(line);
    }
    std::string steps;
    for (const std::string& line : kept)
        steps += line + '\n';
    return steps;
}

std::string obtainPath(const fs::path& folder, const std::string& name)
{
    return (folder / "baselines" / (name + ".txt")).string();
}

std::string obtainPath(const ChartSample& sample)
{
    return obtainPath(fs::path(sample.chart).parent_path(), sample.name);
}

std::string obtainTreePath(const ChartSample& sample)
{
    return obtainPath(fs::path(sample.chart).parent_path(), sample.name + ".tree");
}

std::string readIfThere(const std::string& path)
{
    std::error_code none;
    return fs::exists(path, none) ? readTextFile(path) : std::string();
}

} // namespace

ChartBaseline ChartBaseline::drawSteps(const ChartSample& sample)
{
    uxSetTextMeasurer(nullptr); // the one that looks at no font
    UXRecordingPaintConfig config;
    const OpenedSample opened(sample);
    paint(opened, sample.isDashboard() ? dashboardDrawingSize : drawingSize, config);
    return {joinDrawingSteps(config.getRecording().getLines()),
            uxWriteAccessibleTree(*opened.createAccessibleNode()),
            {}};
}

std::string ChartBaseline::drawPictures(const ChartSample& sample)
{
    uxCairoInstall();
    const OpenedSample opened(sample);
    std::string hashes;
    for (const GalleryPicture& picture : obtainGalleryPictures(sample)) {
        UXCairoImagePaintConfig config{UXDoubleSize(picture.size)};
        paint(opened, picture.size, config);
        hashes += (hashes.empty() ? "" : " ") + hashPixels(config);
    }
    return hashes;
}

ChartBaseline ChartBaseline::draw(const ChartSample& sample)
{
    ChartBaseline baseline = drawSteps(sample);
    baseline.pictures = drawPictures(sample);
    return baseline;
}

ChartBaseline ChartBaseline::read(const ChartSample& sample)
{
    const std::string text = readIfThere(obtainPath(sample));
    const std::size_t end = text.find('\n');
    if (end == std::string::npos)
        return {};
    return {text.substr(end + 1), readIfThere(obtainTreePath(sample)), text.substr(0, end)};
}

void ChartBaseline::write(const ChartSample& sample) const
{
    fs::create_directories(fs::path(obtainPath(sample)).parent_path());
    writeWholeFile(obtainPath(sample), pictures + '\n' + drawing);
    writeWholeFile(obtainTreePath(sample), tree);
}

std::string ChartBaseline::readVersions(const std::string& folder)
{
    return readIfThere(obtainPath(folder, "versions"));
}

void ChartBaseline::writeVersions(const std::string& folder)
{
    writeWholeFile(obtainPath(folder, "versions"), uxCairoObtainVersions() + '\n');
}
