#pragma once

#include "kx_export.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"

#include <string>

class UXPainter;

// Where the texts of a figure and the arrows before them stand, for every chart that shows figures.

/** @return the share of the free width that stands before what is aligned so */
[[nodiscard]] KX_EXPORT double kxObtainShareBefore(UXTextAlign align);
/** Places a text of one line, and shortens it where it is too wide.
 *  @param text gets an ellipsis then
 *  @param room of the line
 *  @param indent what stays free before the text
 *  @return where the text stands; without a width where nothing of it fits */
[[nodiscard]] KX_EXPORT UXDoubleRect kxPlaceFigureText(std::string& text, const UXTextProperty& property,
                                                       const UXDoubleRect& room, double indent,
                                                       UXTextAlign align);
/** @return the indent of a text that has an arrow before it */
[[nodiscard]] KX_EXPORT double kxObtainArrowRoom(const UXTextProperty& property);
/** @param text where the text stands
 *  @return where its arrow stands, in the middle of the digits' height */
[[nodiscard]] KX_EXPORT UXDoubleRect kxPlaceArrow(const UXDoubleRect& text, const UXTextProperty& property,
                                                  double indent);
/** @return where the middle of the digits of a line is */
[[nodiscard]] KX_EXPORT double kxObtainDigitMiddle(const UXDoubleRect& text);
/** Fills an arrow with the painter's colour. */
KX_EXPORT void kxDrawArrow(UXPainter& painter, const UXDoubleRect& rect, bool isUp);
