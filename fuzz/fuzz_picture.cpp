#include "fuzz_picture.h"

#include "fuzz_input.h"
#include "svg_check.h"
#include "ux/ux_object.h"
#include "ux/ux_recording_paint_config.h"
#include "ux/ux_recording_painter.h"
#include "ux/ux_svg_paint_config.h"

#include <string>
#include <vector>

namespace {

/** @return whether a recorded step that is no text names a number that is not finite. The parts of a colour
 * are the host's own, which painters bound. */
bool holdsOddNumber(const std::string& line)
{
    if (line.find("setColor") != std::string::npos || line.find("addGradient") != std::string::npos)
        return false;
    const std::string numbers = line.substr(0, line.find('"'));
    return numbers.find("nan") != std::string::npos || numbers.find("inf") != std::string::npos;
}

std::vector<std::string> record(UXObject& object, UXRecordingPaintConfig& config)
{
    object.paint(&config, object.getBoundingRect());
    std::vector<std::string> lines = config.getRecording().getLines();
    for (const std::string& line : lines)
        require(!holdsOddNumber(line), "every coordinate is finite");
    return lines;
}

} // namespace

void drawRecorded(UXObject& object, double deviceScale)
{
    UXRecordingPaintConfig config(deviceScale);
    record(object, config);
}

void drawEverywhere(UXObject& object, double deviceScale)
{
    UXRecordingPaintConfig config(deviceScale);
    const std::vector<std::string> lines = record(object, config);
    UXRecordingPainter second(deviceScale);
    config.getRecording().replay(second);
    require(second.getLines() == lines, "a recording that is played is recorded alike");

    UXSvgPaintConfig page({256, 256});
    UXPainter* painter = uxCreatePainter(&page);
    config.getRecording().replay(*painter);
    uxDestroyPainter(painter);
    require(isWellFormed(page.getSvg()), "a page is well-formed");
}
