#pragma once

#include "ux/ux_transform.h"

#include <cstdint>
#include <string>
#include <string_view>

/** @return a coordinate in whole thousandths, within a billion units; 0 for NaN */
[[nodiscard]] std::int64_t uxObtainSvgThousandths(double value);

/** Appends thousandths as a decimal number with at most three digits behind the point. */
void uxAppendSvgThousandths(std::string& text, std::int64_t thousandths);

/** @return a coordinate or length, to the thousandth */
[[nodiscard]] std::string uxFormatSvgNumber(double value);

/** @return the value of a transform attribute, with nine significant digits for its factors */
[[nodiscard]] std::string uxFormatSvgTransform(const UXTransform& transform);

/**
 * @param text any bytes
 * @return text for an attribute or between tags: well-formed UTF-8 without the characters that XML forbids
 * (U+FFFD stands for them), blanks for tabs and line ends, and entities for the characters that XML gives a
 * meaning
 */
[[nodiscard]] std::string uxEscapeSvgText(std::string_view text);
