#pragma once

#include "kx_export.h"
#include "kx_index_path.h"

#include <string>

/** Names one clicked or highlighted data item between a chart, its provider and the charts linked to it.
 *  A provider copies what it wants to keep: the path lives for the call it is given to. */
struct KX_EXPORT KXChartDataPath {
    KXChartDataPath() = default;
    KXChartDataPath(const KXChartDataPath&) = default;
    KXChartDataPath& operator=(const KXChartDataPath&) = default;
    virtual ~KXChartDataPath();

    std::string identifier;
    KXIndexPath dimensionIndexPath;
    KXIndexPath valueIndexPath;
};
