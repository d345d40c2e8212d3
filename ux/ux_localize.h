#pragma once

#include "ux/ux_export.h"

#include <functional>
#include <string>

/** @return the host's translation of a user-visible text; text itself where no localizer is set */
[[nodiscard]] UX_EXPORT std::string uxLocalizeString(const std::string& text);

/** Makes localizer answer uxLocalizeString; an empty one restores the untranslated texts. */
UX_EXPORT void uxSetLocalizer(std::function<std::string(const std::string&)> localizer);
