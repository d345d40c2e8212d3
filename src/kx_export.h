#pragma once

// KX_EXPORT marks what the kxcharts library offers; everything else stays hidden in it.
#if defined(_WIN32)
#    if defined(kxcharts_EXPORTS)
#        define KX_EXPORT __declspec(dllexport)
#    else
#        define KX_EXPORT __declspec(dllimport)
#    endif
#else
#    define KX_EXPORT __attribute__((visibility("default")))
#endif
