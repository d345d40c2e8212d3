#pragma once

#include "kx_chart_object_id_types.h"
#include "kx_export.h"
#include "kx_object_id_key.h"

/** One level of a piece's position in a chart: the kind of item that an index counts. */
struct KXObjectIDPath : KXObjectIDKey {
    friend std::strong_ordering operator<=>(const KXObjectIDPath&, const KXObjectIDPath&) = default;
};

/** Exists for KXBarChartObjectIDPath, KXLineChartObjectIDPath, KXPieChartObjectIDPath,
 *  KXHeatMapChartObjectIDPath, KXChartObjectIDProperty, std::string and const char*.
 *  @return the path of the value, with the type T; a literal and a std::string of the same text make the same
 *          one. A null text counts as empty. */
template <class T>
KX_EXPORT KXObjectIDPath kxCreateObjectIDPath(T value);
