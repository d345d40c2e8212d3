#pragma once

#include "ux/cairo/ux_cairo_types.h"

struct cairo_path;

/** Sets the context's path aside for one scope, in which the path is empty at first, and puts it back after.
 */
class UXCairoPathKeeper {
public:
    explicit UXCairoPathKeeper(UXCairoContext* context);
    ~UXCairoPathKeeper();

    UXCairoPathKeeper(const UXCairoPathKeeper&) = delete;
    UXCairoPathKeeper& operator=(const UXCairoPathKeeper&) = delete;

private:
    UXCairoContext* m_context;
    cairo_path* m_path;
};
