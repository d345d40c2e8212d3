#pragma once

#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_type.h"
#include "kx_chart_data_user.h"
#include "kx_data_requests.h"
#include "kx_highlighted_parts.h"

#include <array>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

class KXChartDataFormat;
class KXPanelChartDataProvider;

/** Pulls measures over the members of no, one or two dimensions: the values once, as one dense column per
 * measure, and the texts of members when they are asked for. */
class KX_EXPORT KXPanelChartDataUser : public KXChartDataUser {
public:
    static constexpr std::size_t greatestDimensionCount = 2;
    /** Not more measures and values than these are pulled, whatever the provider has. */
    static constexpr std::uint64_t greatestMeasureCount = 10'000;
    static constexpr std::uint64_t greatestValueCount = std::uint64_t{1} << 27;

    explicit KXPanelChartDataUser(KXChart* chart);
    ~KXPanelChartDataUser() override;

    // What was pulled, empty until then
    std::uint64_t getMeasureCount() const { return m_data.measures.size(); }
    const std::string& getMeasureLabel(std::uint64_t measure) const;
    /** @return whether the sum of several values of a measure says something */
    bool getMeasureAddsUp(std::uint64_t measure) const;
    std::uint64_t getDimensionCount() const { return m_data.dimensionCount; }
    /** @return how many members the dimension has, 0 for one that there is not */
    std::uint64_t getMemberCount(std::uint64_t dimension) const;
    KXChartDataType getDimensionDataType(std::uint64_t dimension) const;
    KXChartAggregateType getDimensionAggregateType(std::uint64_t dimension) const;
    /** @return one value per cell, NaN where there is none; every other number is finite. The members of the
     * last dimension stand side by side; without a dimension there is one cell. */
    const std::vector<double>& getValues(std::uint64_t measure) const;
    /** @return NaN past the counts */
    double getValue(std::uint64_t measure, std::uint64_t cell) const;
    /** @return which part of a value belongs to what is chosen elsewhere; NaN where nothing is chosen */
    double getHighlightedPart(std::uint64_t measure, std::uint64_t cell) const;
    /** @return whether something is chosen elsewhere, so that values are drawn in part */
    bool hasHighlightedParts() const;
    /** @return the parts of a measure, one per cell; empty where nothing is chosen */
    const std::vector<double>& getHighlightedParts(std::uint64_t measure) const;
    /** @return where the value of a cell stands in the provider's data */
    KXIndexPath obtainValuePath(std::uint64_t measure, std::uint64_t cell) const;

    /** @return the host's text of a member; empty past the count, and where it is not there: in a layout it
     * is asked for when that has ended, and laid out then, else at once, which may destroy the chart */
    std::string obtainMemberText(std::uint64_t dimension, std::uint64_t member);
    /** @return the same, a date or a time as the format writes it where the chart is to write it */
    std::string obtainMemberName(std::uint64_t dimension, std::uint64_t member,
                                 const KXChartDataFormat& format);
    /** @return whether the text is there */
    bool hasMemberText(std::uint64_t dimension, std::uint64_t member) const;
    /** @return whether the text is a date or a time that is there and the chart is to write its own way */
    bool shouldFormatMemberText(std::uint64_t dimension, std::uint64_t member) const;

    // From KXChartDataUser
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void customReloadData() override;
    void resetData() override;
    void dataArrived(std::uint64_t first, std::uint64_t count) override;

protected:
    /** Texts that a layout missed are there, or can be asked for. By default chart and legend are laid out
     * anew. */
    virtual void _memberTextsArrived();

private:
    struct Measure {
        std::string label;
        std::vector<double> values;
        KXHighlightedParts parts;
        bool addsUp = true;
    };
    struct Data {
        std::vector<Measure> measures;
        std::array<std::uint64_t, greatestDimensionCount> memberCounts{};
        std::array<KXChartDataType, greatestDimensionCount> types{};
        std::array<KXChartAggregateType, greatestDimensionCount> levels{};
        std::uint64_t dimensionCount = 0;

        std::uint64_t obtainCellCount() const;
    };

    struct MemberText {
        std::string text;
        bool shouldFormat = false;
    };

    bool _pullMeasure(KXPanelChartDataProvider& provider, std::uint64_t measure, Data& data);
    bool _pullItems(KXPanelChartDataProvider& provider, const Data& data, std::vector<double>& values);
    void _pullRows(KXPanelChartDataProvider& provider, std::uint64_t measure, const Data& data,
                   std::vector<double>& values);
    void _pullParts(KXPanelChartDataProvider& provider, std::uint64_t measure, const Data& data,
                    Measure& pulled);
    KXDataRequests _makeRequests(std::uint64_t dimension);
    bool _pullTexts(std::uint64_t dimension, std::uint64_t first, std::uint64_t count);

    Data m_data;
    std::array<std::unordered_map<std::uint64_t, MemberText>, greatestDimensionCount> m_memberTexts;
    std::array<KXDataRequests, greatestDimensionCount> m_textRequests;
};
