#include "ux/cairo/ux_cairo_path_keeper.h"

#include <cairo.h>

UXCairoPathKeeper::UXCairoPathKeeper(UXCairoContext* context)
    : m_context(context), m_path(cairo_copy_path(context))
{
    cairo_new_path(context);
}

UXCairoPathKeeper::~UXCairoPathKeeper()
{
    cairo_new_path(m_context);
    if (m_path->status == CAIRO_STATUS_SUCCESS)
        cairo_append_path(m_context, m_path);
    cairo_path_destroy(m_path);
}
