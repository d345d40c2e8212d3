#pragma once

#include "kx_control_chart_relative_range.h"
#include "kx_panel_chart_data_provider.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/**
 * What filter controls show, and who keeps what the user has chosen in them. The members of dimension 0 are
 * what can be chosen; the first measure, where there is one, counts or weighs them, and a member that has
 * none of it is shown fainter. A range over a measure needs no dimension.
 *
 * A choice is told after the event that made it. The host keeps it by what the members are, and answers with
 * it whenever the data are reloaded. Members that the data do not have any more, and that are chosen, stay
 * members, with a null.
 *
 * A range goes over numbers: of dates the seconds since 1970, of times those since midnight. Both ends lie
 * inside, of dates and times up to the end of the last step.
 */
class KX_EXPORT KXControlChartDataProvider : public virtual KXPanelChartDataProvider {
public:
    ~KXControlChartDataProvider() override;

    // The choice of members
    /** @param isExcluding whether all members are chosen but these, so that new ones are in
     *  @return false, as by default, where nothing is filtered */
    virtual bool obtainSelection(KXChartDataUser* user, std::vector<std::uint64_t>& members,
                                 bool& isExcluding);
    /** @param members ascending; none of them and excluding is everything */
    virtual void selectionChanged(KXChartDataUser* user, const std::vector<std::uint64_t>& members,
                                  bool isExcluding);

    // Search
    /** @return whether the host searches; by default the control does, in all texts of the members, which it
     * asks for when the user searches first */
    virtual bool obtainCanFindMembers(KXChartDataUser* user);
    /** Sets found to the members whose texts contain text, in their order, and shortens it where there are
     * fewer. Neither case nor accents count.
     *  @param first how many of them are left out before
     *  @return false for "not yet": the host has them later and calls the user's dataArrived */
    virtual bool findMembers(KXChartDataUser* user, const std::string& text, std::uint64_t first,
                             std::span<std::uint64_t>& found);

    // The range
    /** @param from, to NaN for an open end
     *  @return false, as by default, where no range is chosen */
    virtual bool obtainRange(KXChartDataUser* user, double& from, double& to);
    virtual void rangeChanged(KXChartDataUser* user, double from, double to);
    /** @return false, as by default, where the control is to take the ends from the members' numbers */
    virtual bool obtainRangeBounds(KXChartDataUser* user, double& lowest, double& greatest);
    /** Sets counts[i] to how much lies in each of as many equal parts, the greatest value in the last.
     *  @return false, as by default, where the control is to count the members' numbers */
    virtual bool obtainHistogram(KXChartDataUser* user, double lowest, double greatest,
                                 std::span<double> counts);

    // Dates relative to now
    /** @return whether the user can choose them; by default not */
    virtual bool obtainCanChooseRelativeRange(KXChartDataUser* user);
    /** @return false, as by default, where none is chosen */
    virtual bool obtainRelativeRange(KXChartDataUser* user, KXControlChartRelativeRange& range);
    /** The host works the dates out by its clock, and answers obtainRange with them. */
    virtual void relativeRangeChanged(KXChartDataUser* user, const KXControlChartRelativeRange& range);
};
