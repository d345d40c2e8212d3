#pragma once

#include "ux/ux_image.h"

#include <span>
#include <string>
#include <vector>

/**
 * The image as a PNG file (ISO/IEC 15948) with eight bits for each of red, green, blue and alpha. The pixels
 * are kept as they are in stored blocks, so that the same image gives the same bytes everywhere.
 */
[[nodiscard]] std::vector<unsigned char> uxEncodePng(const UXImage& image);

/** @return bytes in the base 64 of RFC 4648, padded, on one line */
[[nodiscard]] std::string uxEncodeBase64(std::span<const unsigned char> bytes);
