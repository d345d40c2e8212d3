#pragma once

#include "ux/ux_color.h"
#include "ux/ux_size.h"

#include <string>
#include <vector>

class KXChart;
class UXPaintConfig;

/** The file formats that a chart can be drawn into. */
enum class PictureFormat { Png, Svg, Pdf };

/** How a chart becomes a picture. */
struct PictureSetting {
    UXSize size{1000, 600};             // logical units
    int margin = 12;                    // logical units of ground around the chart
    double scale = 1;                   // device pixels per logical unit
    UXColor ground{255, 255, 255, 1.0}; // what the chart stands on
};

/** @return the format that the file's ending names; throws HostError for another ending */
PictureFormat obtainPictureFormat(const std::string& path);

/** Lays the chart out at the setting's size, on a diagram that it leaves again, and paints ground and chart.
 */
void paintChart(KXChart& chart, const PictureSetting& setting, UXPaintConfig& config);

/** Lays the chart out at the setting's size and writes its picture. Throws HostError where the file cannot be
 * written; a file of that name is then as it was. */
void writeChartPicture(KXChart& chart, const PictureSetting& setting, const std::string& path);

/** Lays the chart out at the setting's size and draws it without writing anything.
 *  @return a sentence for each fault that a reader would see, as checkDrawing finds them */
std::vector<std::string> checkChartPicture(KXChart& chart, const PictureSetting& setting);
