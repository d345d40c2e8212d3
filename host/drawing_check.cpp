#include "drawing_check.h"

#include "checking_painter.h"
#include "ux/ux_recording.h"

std::vector<std::string> checkDrawing(const UXRecording& recording, const UXDoubleRect& area)
{
    CheckingPainter painter(area, recording.getDeviceScale());
    recording.replay(painter);
    return painter.obtainFaults();
}
