#pragma once

#include "ux/ux_color.h"
#include "ux/ux_size.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

class KXChart;
class UXAccessibleNode;
class UXPaintConfig;

/** The file formats that a picture can be drawn into. */
enum class PictureFormat { Png, Svg, Pdf };

/** How a chart or a dashboard becomes a picture. */
struct PictureSetting {
    UXSize size{1000, 600};             // logical units
    int margin = 12;                    // logical units of ground around it
    double scale = 1;                   // device pixels per logical unit
    UXColor ground{255, 255, 255, 1.0}; // what it stands on
};

/** @return the format that the file's ending names; throws HostError for another ending */
PictureFormat obtainPictureFormat(const std::string& path);

/** Lays the chart out at the setting's size, on a diagram that it leaves again, and paints ground and chart.
 */
void paintChart(KXChart& chart, const PictureSetting& setting, UXPaintConfig& config);

/** Lays out what a picture shows at the setting's size, and paints ground and content. */
using PicturePainter = std::function<void(const PictureSetting& setting, UXPaintConfig& config)>;

/** @return what a picture that was painted last shows to those who do not see it */
using PictureReader = std::function<std::unique_ptr<UXAccessibleNode>()>;

/** Writes what paint paints.
 *  @param read an SVG says what it answers; may be empty Throws HostError where the file cannot be written; a
 * file of that name is then as it was. */
void writePicture(const PicturePainter& paint, const PictureSetting& setting, const std::string& path,
                  const PictureReader& read = {});

/** Draws without writing anything.
 *  @return a sentence for each fault that a reader would see, as checkDrawing finds them */
std::vector<std::string> checkPicture(const PicturePainter& paint, const PictureSetting& setting);
