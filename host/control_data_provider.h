#pragma once

#include "member_finder.h"
#include "view_data_provider.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

/** Answers a filter control from a table. Its members are those of all rows, whatever is chosen in other
 * controls; what they count follows those choices, and a member that is left without rows has a null. What is
 * chosen here is one condition of dimension 0, or, where the binding has none, a range of the column of
 * measure 0. */
class ControlDataProvider : public ViewDataProvider {
public:
    using ViewDataProvider::ViewDataProvider;

    // From KXChartDataProvider and KXChartSelectionProvider
    bool obtainDataIsEmpty(KXChartDataUser* user) override;
    /** @return NaN for what has no number */
    double obtainDimensionDataAsNumber(KXChartDataUser* user, const KXIndexPath& path) override;
    bool obtainCanSelect(KXChartDataUser* user) override;

    // From KXControlChartDataProvider
    bool obtainSelection(KXChartDataUser* user, std::vector<std::uint64_t>& members,
                         bool& isExcluding) override;
    void selectionChanged(KXChartDataUser* user, const std::vector<std::uint64_t>& members,
                          bool isExcluding) override;
    using ViewDataProvider::selectionChanged;
    bool obtainCanFindMembers(KXChartDataUser* user) override;
    bool findMembers(KXChartDataUser* user, const std::string& text, std::uint64_t first,
                     std::span<std::uint64_t>& found) override;
    bool obtainRange(KXChartDataUser* user, double& from, double& to) override;
    void rangeChanged(KXChartDataUser* user, double from, double to) override;
    /** Of a measure's column alone; members are numbers enough. */
    bool obtainRangeBounds(KXChartDataUser* user, double& lowest, double& greatest) override;
    bool obtainHistogram(KXChartDataUser* user, double lowest, double greatest,
                         std::span<double> counts) override;

    /** @return whether the data reach into the last two years: what is long past has no today */
    bool obtainCanChooseRelativeRange(KXChartDataUser* user) override;
    bool obtainRelativeRange(KXChartDataUser* user, KXControlChartRelativeRange& range) override;
    void relativeRangeChanged(KXChartDataUser* user, const KXControlChartRelativeRange& range) override;

protected:
    SqlDataSet askForData() override;

private:
    /** The column that ranges are about. */
    struct Column {
        std::string name;
        KXChartDataType type = KXChartDataType::Float;
        std::optional<DateLevel> level; // of dates and times
    };

    const ChoiceCondition* _getCondition() const;
    Column _obtainColumn() const;
    DataBinding _obtainUnfiltered() const;
    void _addChosenMembers(const SqlDataSet& data, std::vector<SqlMember>& members) const;
    void _tell(const ChoiceCondition& condition) const;

    std::vector<SqlMember> m_members; // of all rows, while choices elsewhere leave some out
    MemberFinder m_finder;            // among the members that are shown
};
