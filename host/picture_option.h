#pragma once

#include "ux/ux_color.h"
#include "ux/ux_size.h"

#include <string>

// The texts of the command-line options about pictures. Each reader throws HostError for a text that is none.

/** @param text such as "1000x600", both from 1 to 32767 */
UXSize readSizeOption(const std::string& text);

/** @return margin as it is when it is between 0 and 1000 */
int readMarginOption(int margin);

/** @return scale as it is when it is between 0.1 and 16 */
double readScaleOption(double scale);

/** @param text "#rrggbb", "#rrggbbaa" or "none", which is clear */
UXColor readColorOption(const std::string& text);
