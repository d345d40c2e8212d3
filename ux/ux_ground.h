#pragma once

#include "ux/ux_export.h"

class UXObject;
class UXPainter;
struct UXColor;

/** Fills an object's bounding rectangle with its background colour, where that has any alpha, and draws its
 * border, where it shows one, a unit wide and wholly inside.
 *  @param painter in the object's own space
 *  @param cornerRadius logical units, 0 for square corners */
UX_EXPORT void uxDrawGround(UXPainter& painter, const UXObject& object, double cornerRadius);

/** @return the opaque background colour of object, or of the next one around it that has one; white else */
[[nodiscard]] UX_EXPORT UXColor uxObtainGroundColor(const UXObject& object);
