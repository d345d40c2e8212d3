#pragma once

#include "ux/ux_object.h"
#include "ux/ux_recording_paint_config.h"

#include <initializer_list>
#include <string>

/** @return what the object paints of itself and its children, a line for each operation */
inline std::string uxPaintToText(UXObject& object, double scale = 1)
{
    UXRecordingPaintConfig config(scale);
    object.paint(&config, object.getBoundingRect());
    return config.getRecording().getText();
}

/** @return the first of the parts that the text does not hold behind the ones before it, empty where it holds
 * all */
inline std::string uxFindMissing(const std::string& text, std::initializer_list<const char*> parts)
{
    std::size_t from = 0;
    for (const char* part : parts) {
        from = text.find(part, from);
        if (from == std::string::npos)
            return part;
    }
    return "";
}
