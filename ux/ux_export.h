#pragma once

// UX_EXPORT marks what the ux library offers; everything else stays hidden in it.
#if defined(_WIN32)
#    if defined(ux_EXPORTS)
#        define UX_EXPORT __declspec(dllexport)
#    else
#        define UX_EXPORT __declspec(dllimport)
#    endif
#else
#    define UX_EXPORT __attribute__((visibility("default")))
#endif
