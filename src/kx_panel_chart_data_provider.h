#pragma once

#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_hint_data.h"

#include <cstdint>
#include <span>
#include <string>

/** One cell of a measure over two dimensions. */
struct KXPanelChartDataItem {
    std::uint64_t firstMember = 0;  /**< of dimension 0 */
    std::uint64_t secondMember = 0; /**< of dimension 1 */
    double value = 0;               /**< NaN for a null */

    friend bool operator==(const KXPanelChartDataItem&, const KXPanelChartDataItem&) = default;
};

/**
 * The data of a chart that shows measures over the members of no, one or two dimensions. The values of a
 * measure stand at paths (measure, member of dimension 0, member of dimension 1), as far as there are
 * dimensions, and without any at (measure, 0).
 *
 * The questions about several values or texts have answers made of those about one, so a small host has
 * nothing to add. A chart pulls all values when it prepares its data, and asks for texts of those members
 * only that it shows.
 */
class KX_EXPORT KXPanelChartDataProvider : public virtual KXChartDataProvider {
public:
    ~KXPanelChartDataProvider() override;

    /** Sets values[i] to the value at the path with i added to its last index, NaN for a null. */
    virtual void obtainValues(KXChartDataUser* user, const KXIndexPath& first, std::span<double> values);
    /** How many cells of the first measure over two dimensions there are; by default all. A host with few of
     * many cells answers this and obtainItems in place of obtainValues. */
    virtual std::uint64_t obtainItemCount(KXChartDataUser* user);
    /** Sets items[i] to cell first + i of these, in any order; by default the rows of the first dimension one
     * after the other. */
    virtual void obtainItems(KXChartDataUser* user, std::uint64_t first,
                             std::span<KXPanelChartDataItem> items);
    /** Sets texts[i] to the text of member first + i of the dimension; asked right after the layout that
     * found them missing.
     *  @return false for "not yet": the host has them later and calls the user's dataArrived */
    virtual bool obtainMemberTexts(KXChartDataUser* user, std::uint64_t dimension, std::uint64_t first,
                                   std::span<std::string> texts);
    /** @return whether the sum of several values of the measure says something, so that small ones can be
     * gathered; by default yes */
    virtual bool obtainValueAddsUp(KXChartDataUser* user, std::uint64_t measure);
    /** @return the hint of the value at path; an empty one leaves the hint to the chart */
    virtual KXChartDataProviderHintData obtainHintData(KXChartDataUser* user, const KXIndexPath& path);
};
