#pragma once

#include "ux/ux_export.h"
#include "ux/ux_transform.h"

class UXObject;
class UXPaintConfig;

/** @return the map from the own space of object to the pixels of the device that is known to show its
 * diagram; without a diagram a unit is a pixel */
[[nodiscard]] UX_EXPORT UXTransform uxObtainDeviceTransform(const UXObject& object);

/** @return the map from the space of the root of a painted tree to the pixels of config; the identity where
 * it cannot be painted on */
[[nodiscard]] UX_EXPORT UXTransform uxObtainDeviceTransform(UXPaintConfig& config);
