#pragma once

#include "ux/ux_color.h"
#include "ux/ux_export.h"
#include "ux/ux_size.h"

class UXObject;
class UXPaintConfig;

/** How a picture of an object is made. */
struct UXPictureSetting {
    UXSize size{480, 320};         /**< logical units */
    int margin = 12;               /**< logical units of ground around the object */
    UXColor ground{255, 255, 255}; /**< what the object stands on */
};

/** Lays object out at the setting's size and paints ground and object. For that it stands on a diagram of its
 * own, where it keeps its place, and has no parent afterwards. */
UX_EXPORT void uxPaintPicture(UXObject& object, UXPaintConfig& config, const UXPictureSetting& setting = {});
