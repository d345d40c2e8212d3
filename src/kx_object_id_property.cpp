#include "kx_object_id_property.h"

#include "kx_object_id_key_maker.h"

// Takes a copy, so that a literal becomes a pointer.
template <class T>
// NOLINTNEXTLINE(performance-unnecessary-value-param)
KXObjectIDProperty kxCreateObjectIDProperty(T value)
{
    return {kxMakeObjectIDKey(value)};
}

template KX_EXPORT KXObjectIDProperty kxCreateObjectIDProperty(KXBarChartObjectIDProperty);
template KX_EXPORT KXObjectIDProperty kxCreateObjectIDProperty(KXLineChartObjectIDProperty);
template KX_EXPORT KXObjectIDProperty kxCreateObjectIDProperty(KXHeatMapChartObjectIDProperty);
template KX_EXPORT KXObjectIDProperty kxCreateObjectIDProperty(KXChartObjectIDProperty);
template KX_EXPORT KXObjectIDProperty kxCreateObjectIDProperty(std::string);
template KX_EXPORT KXObjectIDProperty kxCreateObjectIDProperty(const char*);
