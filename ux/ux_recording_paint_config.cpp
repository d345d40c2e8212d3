#include "ux/ux_recording_paint_config.h"

#include "ux/ux_recording_painter.h"

UXPainter* UXRecordingPaintConfig::createPainter(UXObject*) { return new UXRecordingPainter(m_recording); }
