#pragma once

// The library's own names of what Cairo and Pango hand around, so that no header of ours includes one of
// theirs.
struct _cairo;
struct _cairo_pattern;
struct _cairo_surface;

/** What Cairo calls cairo_t. */
using UXCairoContext = struct _cairo;
/** What Cairo calls cairo_pattern_t. */
using UXCairoPattern = struct _cairo_pattern;
/** What Cairo calls cairo_surface_t. */
using UXCairoSurface = struct _cairo_surface;
