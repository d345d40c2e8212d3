#pragma once

#include "ux/ux_object.h"
#include "ux/ux_recording_paint_config.h"

#include <string>

/** @return what the object paints of itself and its children, a line for each operation */
inline std::string uxPaintToText(UXObject& object, double scale = 1)
{
    UXRecordingPaintConfig config(scale);
    object.paint(&config, object.getBoundingRect());
    return config.getRecording().getText();
}
