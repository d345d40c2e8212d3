#include "kx_object_id_path.h"

#include "kx_object_id_key_maker.h"

// Takes a copy, so that a literal becomes a pointer.
template <class T>
// NOLINTNEXTLINE(performance-unnecessary-value-param)
KXObjectIDPath kxCreateObjectIDPath(T value)
{
    return {kxMakeObjectIDKey(value)};
}

template KX_EXPORT KXObjectIDPath kxCreateObjectIDPath(KXBarChartObjectIDPath);
template KX_EXPORT KXObjectIDPath kxCreateObjectIDPath(KXLineChartObjectIDPath);
template KX_EXPORT KXObjectIDPath kxCreateObjectIDPath(KXPieChartObjectIDPath);
template KX_EXPORT KXObjectIDPath kxCreateObjectIDPath(KXHeatMapChartObjectIDPath);
template KX_EXPORT KXObjectIDPath kxCreateObjectIDPath(KXChartObjectIDProperty);
template KX_EXPORT KXObjectIDPath kxCreateObjectIDPath(std::string);
template KX_EXPORT KXObjectIDPath kxCreateObjectIDPath(const char*);
