#pragma once

#include "ux/ux_export.h"

#include <functional>
#include <string>

/** @return the text that was copied last, UTF-8; empty where there is none */
[[nodiscard]] UX_EXPORT std::string uxReadClipboard();
/** Makes text what is pasted from now on. */
UX_EXPORT void uxWriteClipboard(const std::string& text);

/** Makes the host's clipboard the one that is read and written. Until then, and with empty functions, texts
 * are copied and pasted within the program. */
UX_EXPORT void uxSetClipboard(std::function<std::string()> read,
                              std::function<void(const std::string&)> write);
