#pragma once

#include "ux/ux_double_size.h"
#include "ux/ux_export.h"
#include "ux/ux_text_property.h"

#include <string>

/** Measures text outside a paint pass. All sizes are in logical units; a limit below 0 is none. */
class UX_EXPORT UXLayoutHelper {
public:
    virtual ~UXLayoutHelper();

    virtual UXDoubleSize getTextSize(const std::string& text, const UXTextProperty& property);
    virtual UXDoubleSize getTextSize(const std::string& text, const UXTextProperty& property,
                                     double widthLimit);
    virtual UXDoubleSize getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                     int lineMode);
    virtual UXDoubleSize getTextSize(const std::string& text, const UXFont& font, UXTextOption option,
                                     int lineMode, double widthLimit);
};

/** @return a new helper, the caller's to delete */
[[nodiscard]] UX_EXPORT UXLayoutHelper* uxCreateLayoutHelper();
