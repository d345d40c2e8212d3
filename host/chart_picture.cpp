#include "chart_picture.h"

#include "drawing_check.h"
#include "host_error.h"
#include "kx_chart.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/cairo/ux_cairo_pdf_paint_config.h"
#include "ux/ux_accessible_node.h"
#include "ux/ux_double_size.h"
#include "ux/ux_paint_picture.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_svg_paint_config.h"
#include "whole_file.h"

#include <algorithm>
#include <cctype>
#include <iterator>

namespace {

std::string obtainEnding(const std::string& path)
{
    const std::size_t dot = path.find_last_of("./\\");
    std::string ending = dot != std::string::npos && path[dot] == '.' ? path.substr(dot + 1) : std::string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    return ending;
}

HostError makeWriteError(const std::string& path) { return {path, "", "cannot be written"}; }

void requireDrawable(const UXPaintConfig& config, const std::string& path)
{
    if (!config.isPaintConfigValid())
        throw HostError(path, "", "cannot be this large or this small");
}

void writePng(const PicturePainter& paint, const PictureSetting& setting, const std::string& path)
{
    UXCairoImagePaintConfig config(UXDoubleSize(setting.size), setting.scale);
    requireDrawable(config, path);
    paint(setting, config);
    if (!config.writePng(path))
        throw makeWriteError(path);
}

void writePdf(const PicturePainter& paint, const PictureSetting& setting, const std::string& path)
{
    UXCairoPdfPaintConfig config{UXDoubleSize(setting.size)};
    requireDrawable(config, path);
    paint(setting, config);
    if (!config.writePdf(path))
        throw makeWriteError(path);
}

void writeSvg(const PicturePainter& paint, const PictureSetting& setting, const std::string& path,
              const PictureReader& read)
{
    UXSvgPaintConfig config(setting.size);
    requireDrawable(config, path);
    paint(setting, config);
    if (const std::unique_ptr<UXAccessibleNode> node = read ? read() : nullptr) {
        // A chart that was painted stands on no diagram any more, and its node begins at its own corner.
        const bool isChart = dynamic_cast<const KXChart*>(node->getObject()) != nullptr;
        config.describe(*node, isChart ? UXPoint(setting.margin, setting.margin) : UXPoint());
    }
    writeWholeFile(path, config.getSvg());
}

} // namespace

void paintChart(KXChart& chart, const PictureSetting& setting, UXPaintConfig& config)
{
    uxPaintPicture(chart, config, {setting.size, setting.margin, setting.ground});
}

PictureFormat obtainPictureFormat(const std::string& path)
{
    const std::string ending = obtainEnding(path);
    if (ending == "png")
        return PictureFormat::Png;
    if (ending == "svg")
        return PictureFormat::Svg;
    if (ending == "pdf")
        return PictureFormat::Pdf;
    const std::string stem = path.substr(0, ending.empty() ? path.size() : path.size() - ending.size() - 1);
    throw HostError(path, "", "has to end in .png, .svg or .pdf, such as " + stem + ".png");
}

void writePicture(const PicturePainter& paint, const PictureSetting& setting, const std::string& path,
                  const PictureReader& read)
{
    switch (obtainPictureFormat(path)) {
    case PictureFormat::Png:
        writePng(paint, setting, path);
        break;
    case PictureFormat::Svg:
        writeSvg(paint, setting, path, read);
        break;
    case PictureFormat::Pdf:
        writePdf(paint, setting, path);
        break;
    }
}

std::vector<std::string> checkPicture(const PicturePainter& paint, const PictureSetting& setting)
{
    UXRecordingPaintConfig config(setting.scale);
    paint(setting, config);
    return checkDrawing(config.getRecording(), UXDoubleRect(0, 0, setting.size.width, setting.size.height));
}
