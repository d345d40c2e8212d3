#pragma once

#include "ux/cairo/ux_cairo_types.h"

#include <memory>

struct _cairo_scaled_font;

/** Gives one reference to an object of Cairo back. */
struct UXCairoRelease {
    void operator()(UXCairoPattern* pattern) const;
    void operator()(UXCairoSurface* surface) const;
    void operator()(_cairo_scaled_font* font) const;
};

// Each holds one reference.
using UXCairoPatternHandle = std::unique_ptr<UXCairoPattern, UXCairoRelease>;
using UXCairoSurfaceHandle = std::unique_ptr<UXCairoSurface, UXCairoRelease>;
using UXCairoScaledFontHandle = std::unique_ptr<_cairo_scaled_font, UXCairoRelease>;
