#pragma once

#include "kx_export.h"
#include "ux/ux_double_size.h"
#include "ux/ux_text_property.h"

#include <span>
#include <string>

/** No text shrinks below this font size, in logical units: smaller text cannot be read. */
inline constexpr int kxLeastFontSize = 9;

/**
 * Finds the largest font size in which each of the texts is less wide and less high than the room, so that
 * what stands in a row has one size.
 * @param texts what all get one size, each in lines of its own; empty ones take no room
 * @param property its font's size is the largest that is tried, and becomes the one that was found. It is the
 * least one where nothing fits, and stays as it is below that.
 * @return the extent of the widest and of the highest text in that size
 */
KX_EXPORT UXDoubleSize kxFitFont(std::span<const std::string> texts, const UXDoubleSize& room,
                                 UXTextProperty& property);
