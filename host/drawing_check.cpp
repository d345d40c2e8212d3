#include "drawing_check.h"

#include "checking_painter.h"
#include "ux/ux_recording.h"

std::vector<std::string> checkDrawing(const UXRecording& recording, const UXDoubleRect& area,
                                      const DrawingExcuses& excuses)
{
    CheckingPainter painter(area, recording.getDeviceScale(), excuses);
    recording.replay(painter);
    return painter.obtainFaults();
}
