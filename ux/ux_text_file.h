#pragma once

#include "ux/ux_export.h"

#include <string>

/**
 * Reads a whole file.
 * @param fileName UTF-8 on every system
 * @return false, and text as it was, when the file is missing, unreadable or larger than a document may be
 */
[[nodiscard]] UX_EXPORT bool uxReadTextFile(const std::string& fileName, std::string& text);

/** @return false when the file could not be written in full; what was there before is lost then */
[[nodiscard]] UX_EXPORT bool uxWriteTextFile(const std::string& fileName, const std::string& text);
