#pragma once

#include "ux/cairo/ux_cairo_export.h"

/**
 * Makes this back end measure every text and load every image of the framework. A host calls it once, before
 * it lays anything out: only then is what is measured what is drawn. Calling it again does nothing more; it
 * costs nothing until the first text is measured.
 */
UX_CAIRO_EXPORT void uxCairoInstall();
