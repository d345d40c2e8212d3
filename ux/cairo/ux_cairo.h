#pragma once

// Everything that ux_cairo offers: painting, text and images by Cairo and Pango.

#include "ux/cairo/ux_cairo_image_helper.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/cairo/ux_cairo_paint_config.h"
#include "ux/cairo/ux_cairo_pdf_paint_config.h"
#include "ux/cairo/ux_cairo_text_measurer.h"
#include "ux/cairo/ux_cairo_versions.h"
