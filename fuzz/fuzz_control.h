#pragma once

#include "kx_menu_event_diagram.h"
#include "ux/ux_control.h"
#include "ux/ux_recording_paint_config.h"

/** A host's view: it paints when it is asked to, and opens the menus that charts ask it for. */
class FuzzControl : public UXControl {
public:
    KXMenuEventDiagram menus;
    bool paintsAtOnce = true;
    bool reducesMotion = false;

    /** Throws away what was painted, which otherwise grows for as long as a case lasts. */
    void forgetPictures() { m_config.getRecording().clear(); }

    // From UXControl
    UXPaintConfig* obtainPaintConfig(UXDiagram*) override { return paintsAtOnce ? &m_config : nullptr; }
    bool shouldReduceMotion() const override { return reducesMotion; }
    /** The data of a request is the entries of a menu, null where nobody answers for them. */
    void notifyRightClickMenu(UXMessageRightClickParam* param, UXPoint point) override;

private:
    UXRecordingPaintConfig m_config;
};
