#pragma once

#include "ux/cairo/ux_cairo_export.h"

#include <string>

/** @return one line with the versions of all that decides the pixels of a picture: the drawing and text
 *  libraries and the fonts behind the family "Default". Equal lines promise equal pictures. */
UX_CAIRO_EXPORT std::string uxCairoObtainVersions();
