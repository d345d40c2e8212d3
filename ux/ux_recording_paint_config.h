#pragma once

#include "ux/ux_paint_config.h"
#include "ux/ux_recording.h"

/** Paints into a recording, to be compared line by line or played into a back end. */
class UX_EXPORT UXRecordingPaintConfig final : public UXPaintConfig {
public:
    explicit UXRecordingPaintConfig(double deviceScale = 1) : m_recording(deviceScale) {}

    UXRecording& getRecording() { return m_recording; }
    const UXRecording& getRecording() const { return m_recording; }

    // From UXPaintConfig
    UXPainter* createPainter(UXObject* object) override;

private:
    UXRecording m_recording;
};
