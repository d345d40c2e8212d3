#pragma once

#include "ux/ux_export.h"
#include "ux/ux_object.h"

/** A container with a ground and a border of its own. Its children stand inside its padding: those with an
 * alignment are placed there, and none is painted outside of it. */
class UX_EXPORT UXPanel : public UXObject {
public:
    UXPanel();
    ~UXPanel() override;

    // From UXJsonObject and UXObject
    std::string customSerializeTypeID() override;
    void paint(UXPaintConfig* config, UXRect dirtyRect) override;
};
