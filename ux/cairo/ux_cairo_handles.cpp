#include "ux/cairo/ux_cairo_handles.h"

#include <cairo.h>

void UXCairoRelease::operator()(UXCairoPattern* pattern) const { cairo_pattern_destroy(pattern); }

void UXCairoRelease::operator()(UXCairoSurface* surface) const { cairo_surface_destroy(surface); }

void UXCairoRelease::operator()(_cairo_scaled_font* font) const { cairo_scaled_font_destroy(font); }
