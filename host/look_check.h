#pragma once

#include <string>
#include <vector>

class KXChart;

/** Looks through the colours that a chart has, over its own ground or white, whatever its data.
 *  @return lines of text: the numbers of its palette, and for each key with a text that cannot be read, and
 * for a palette that not all eyes tell apart, what is wrong and the nearest colours that are not */
std::vector<std::string> checkLook(KXChart& chart);
