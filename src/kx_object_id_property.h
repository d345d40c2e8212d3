#pragma once

#include "kx_chart_object_id_types.h"
#include "kx_export.h"
#include "kx_object_id_key.h"

/** Names a property of a piece of a chart, such as its colour. */
struct KXObjectIDProperty : KXObjectIDKey {
    friend std::strong_ordering operator<=>(const KXObjectIDProperty&, const KXObjectIDProperty&) = default;
};

/** Exists for KXBarChartObjectIDProperty, KXLineChartObjectIDProperty, KXHeatMapChartObjectIDProperty,
 *  KXChartObjectIDProperty, std::string and const char*.
 *  @return the property of the value, with the type T; a literal and a std::string of the same text make the
 * same one. A null text counts as empty. */
template <class T>
KX_EXPORT KXObjectIDProperty kxCreateObjectIDProperty(T value);
