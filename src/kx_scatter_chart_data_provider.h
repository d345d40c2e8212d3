#pragma once

#include "kx_axis_chart_data_provider.h"
#include "kx_chart_data_path.h"
#include "kx_scatter_chart_options.h"

#include <cstdint>
#include <functional>
#include <vector>

/**
 * The data of a scatter chart. Each member of dimension 0 is a point, with a value of each measure; the
 * members of dimension 1, if there are any, are series, each with a point of its own at every member of
 * dimension 0. A point without a value along one of the axes is left out.
 */
class KX_EXPORT KXScatterChartDataProvider : public KXAxisChartDataProvider {
public:
    ~KXScatterChartDataProvider() override;

    /** @return the measure that points have in that role, -1 for none. Without one for X, points lie at the
     * number of their member of dimension 0, or in slots where members have none. By default measures 0 to 3
     * in the order of the roles; one that is alone is Y. */
    virtual std::int64_t obtainRoleMeasure(KXChartDataUser* user, KXScatterChartRole role);
    /** @return whether a drag draws a box around points to be selected, rather than around what is to be
     * shown; by default not */
    virtual bool shouldSelectByBox(KXChartDataUser* user);
    /** @param paths of the points in the box that the user has drawn
     *  @return what is to be done with them after the event; by default nothing */
    virtual std::function<void()> obtainSelectionAction(KXChartDataUser* user,
                                                        const std::vector<KXChartDataPath>& paths);

    /** @return the usual measure of a role where there are so many */
    static std::int64_t obtainUsualRoleMeasure(KXScatterChartRole role, std::uint64_t measureCount);
};
