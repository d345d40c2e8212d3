#pragma once

#include "kx_export.h"

class UXEvent;

/** The buttons and modifier keys of one event, as an interaction provider is told of them. */
struct KX_EXPORT KXInteractionEventInfo {
    KXInteractionEventInfo() = default;
    explicit KXInteractionEventInfo(const UXEvent& event);

    int buttonCode = 0;          // 1 the left button, 3 the right one, 0 none
    bool firstModifier = false;  // Shift
    bool secondModifier = false; // Ctrl
    bool thirdModifier = false;  // Alt
};
