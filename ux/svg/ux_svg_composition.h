#pragma once

#include "ux/ux_paint_styles.h"

#include <string>

class UXSvgDocument;

/** @return whether drawing by mode on what is there shows anything, given that nothing there can be erased or
 * read */
[[nodiscard]] bool uxDrawsOnSvgGround(UXCompositionMode mode);

/** @return the style attribute that blends an element with what is there, with its blank in front; mostly
 * nothing */
[[nodiscard]] std::string uxFormatSvgBlend(UXCompositionMode mode);

/**
 * @param content elements whose alpha lets through
 * @param region the attributes x, y, width and height that bound the mask, in the space of the page
 * @return the name of the mask
 */
[[nodiscard]] std::string uxDefineSvgMask(UXSvgDocument& document, const std::string& content,
                                          const std::string& region);

/** @return an element that shows the outcome of combining the elements upper with lower inside region, for
 * all modes */
[[nodiscard]] std::string uxComposeSvg(UXSvgDocument& document, const std::string& upper,
                                       const std::string& lower, const std::string& region,
                                       UXCompositionMode mode);
