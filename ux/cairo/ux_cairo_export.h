#pragma once

// UX_CAIRO_EXPORT marks what the ux_cairo library offers; everything else stays hidden in it.
#if defined(_WIN32)
#    if defined(ux_cairo_EXPORTS)
#        define UX_CAIRO_EXPORT __declspec(dllexport)
#    else
#        define UX_CAIRO_EXPORT __declspec(dllimport)
#    endif
#else
#    define UX_CAIRO_EXPORT __attribute__((visibility("default")))
#endif
