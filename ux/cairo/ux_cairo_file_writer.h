#pragma once

#include <string>
#include <string_view>

/**
 * Writes a whole file or none: the bytes go to a new file beside it, which then takes its name. A link is
 * followed, and what is not a plain file, a pipe for one, is written to as it is.
 * @param path UTF-8
 * @return whether the file holds the bytes; if not, what stood there before stands there still
 */
bool uxCairoWriteFile(const std::string& path, std::string_view bytes);
