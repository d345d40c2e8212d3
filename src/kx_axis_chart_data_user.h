#pragma once

#include "kx_axis_chart_drawn_data.h"
#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_provider_dimension_setting.h"
#include "kx_chart_data_type.h"
#include "kx_chart_data_user.h"
#include "kx_data_requests.h"
#include "kx_highlighted_parts.h"
#include "kx_scatter_chart_options.h"
#include "kx_value_extremes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

class KXAxisChartDataProvider;

/** The range of some series, and of their sums: each category's positive values stack up from zero, its
 * negative ones down. Zero without any number. */
struct KXAxisChartValueRange {
    double min = 0, max = 0;
    double stackedMin = 0, stackedMax = 0;

    friend bool operator==(const KXAxisChartValueRange&, const KXAxisChartValueRange&) = default;
};

/** @return the range of both; none where there is neither */
[[nodiscard]] KX_EXPORT std::optional<KXAxisChartValueRange> kxUniteValueRanges(
    const std::optional<KXAxisChartValueRange>& a, const std::optional<KXAxisChartValueRange>& b);

/**
 * Pulls the data of an axis chart: the values once, as one dense list per series, and the texts of categories
 * when they are asked for. Beyond the texts of a few thousand categories it keeps 8 bytes per value, and 8
 * per category of a continuous axis.
 */
class KX_EXPORT KXAxisChartDataUser : public KXChartDataUser {
public:
    /** Not more series and values than these are pulled, whatever the provider has. */
    static constexpr std::uint64_t greatestSeriesCount = 10'000;
    static constexpr std::uint64_t greatestValueCount = std::uint64_t{1} << 27;

    explicit KXAxisChartDataUser(KXChart* chart);
    ~KXAxisChartDataUser() override;

    // What was pulled, or what the chart draws in place of that; empty until then. A series or category past
    // the count has neither text nor value.
    std::uint64_t getSeriesCount() const { return m_series.size(); }
    std::uint64_t getCategoryCount() const { return m_categoryCount; }
    const std::string& getSeriesLabel(std::uint64_t series) const;
    const std::string& getSeriesID(std::uint64_t series) const;
    /** @return one value per category, NaN where there is none; every other number is finite */
    const std::vector<double>& getSeriesValues(std::uint64_t series) const;
    double getValue(std::uint64_t series, std::uint64_t category) const;
    /** @return whether a series stands for itself. Of one that does not, the values colour others, or are the
     * ends of their bands. */
    bool isOwnSeries(std::uint64_t series) const;
    std::uint64_t getOwnSeriesCount() const { return m_ownSeriesCount; }
    /** @return which part of a value belongs to what is chosen elsewhere; NaN where nothing is chosen */
    double getHighlightedPart(std::uint64_t series, std::uint64_t category) const;
    /** @return the parts of a series, one per category; empty where nothing is chosen */
    const std::vector<double>& getHighlightedParts(std::uint64_t series) const;
    /** @return whether something is chosen elsewhere, so that marks are drawn in part */
    bool hasHighlightedParts() const;
    /** @return the values that colour a series, one per category; empty for none */
    const std::vector<double>& getColorValues(std::uint64_t series) const;
    /** @return where the points of a series lie along the X axis, one per category; empty where its marks
     * belong to their categories */
    const std::vector<double>& getXValues(std::uint64_t series) const;
    /** @return what the points of a series are large by, one per category; empty for none */
    const std::vector<double>& getSizeValues(std::uint64_t series) const;
    /** @return the label of the measure that points have in a role; empty for none */
    const std::string& getRoleLabel(KXScatterChartRole role) const;
    /** @return the ends of the band of a series, one per category each; empty for none */
    const std::vector<double>& getBandLows(std::uint64_t series) const;
    const std::vector<double>& getBandHighs(std::uint64_t series) const;
    /** @return what the categories are together: "Month" */
    const std::string& getCategoryDimensionLabel() const { return m_categoryDimensionLabel; }
    /** @return what the values are: the measure's label; empty where there are several measures */
    const std::string& getMeasureLabel() const { return m_measureLabel; }
    KXChartDataType getCategoryDataType() const { return m_categoryDataType; }
    KXChartAggregateType getCategoryAggregateType() const { return m_categoryAggregateType; }
    /** @return the host's settings of the categories. The first flag proposes a continuous axis. */
    const KXChartDataProviderDimensionSetting& getCategorySetting() const { return m_categorySetting; }

    // Asked of the provider at the first call for the prepared data. The provider may destroy the chart.
    /** @return the host's text of a category; empty past the count, and where it is not there: in a layout it
     * is asked for when that has ended, and laid out then */
    std::string obtainCategoryText(std::uint64_t category);
    /** @return whether the text is there */
    bool hasCategoryText(std::uint64_t category) const;
    /** @return whether the host wants that text formatted as the date or time that it is */
    bool obtainShouldFormatCategoryText(std::uint64_t category);
    /** @return where the categories stand on a continuous axis, NaN for one without a number; empty where the
     * categories are no numbers, or none of them has one */
    const std::vector<double>& obtainCategoryNumbers();

    /** @param series those that count
     *  @param categoryCount only the first categories count
     *  @param withSums whether the sums are wanted, which take a look at each value; else they are 0 */
    KXAxisChartValueRange obtainValueRange(const std::vector<std::uint64_t>& series,
                                           std::uint64_t categoryCount, bool withSums) const;

    // From KXChartDataUser
    void customPrepareData(KXChartDataProvider* provider, bool& prepared) override;
    void resetData() override;
    void dataArrived(std::uint64_t first, std::uint64_t count) override;

protected:
    // A chart that draws other categories than those of its data
    /** Shows series and categories in place of those that were pulled, until the data are reset. */
    void _drawInstead(KXAxisChartDrawnData drawn);
    /** @return the category as the host counts them; past the count for one of the chart's own */
    std::uint64_t _obtainPulledCategory(std::uint64_t category) const;
    /** @return the category that has the text of one of the host's, none where it is not drawn */
    std::optional<std::uint64_t> _findDrawnCategory(std::uint64_t pulled) const;
    std::uint64_t _getPulledCategoryCount() const;
    std::uint64_t _getPulledSeriesCount() const { return _getPulled().size(); }
    const std::string& _getPulledSeriesLabel(std::uint64_t series) const;
    const std::string& _getPulledSeriesID(std::uint64_t series) const;
    const std::vector<double>& _getPulledValues(std::uint64_t series) const;
    double _getPulledPart(std::uint64_t series, std::uint64_t category) const;
    /** @return which measure a series of the host is, and which member of the dimension that divides it */
    std::uint64_t _getPulledMeasure(std::uint64_t series) const;
    std::uint64_t _getPulledMember(std::uint64_t series) const;
    /** @return whether the measures are divided by the members of a second dimension */
    bool _isPulledDivided() const { return !_getPulled().empty() && _getPulled().front().isDivided; }

    // A chart whose marks are points of several measures each
    /** A measure for each KXScatterChartRole, -1 for none. */
    using RoleMeasures = std::array<std::int64_t, 4>;
    /** @return which measures the points have; by default none, as each measure is a series. The provider is
     * asked, which may destroy the chart. */
    virtual std::optional<RoleMeasures> _obtainRoleMeasures(KXAxisChartDataProvider& provider);

    /** Texts that a layout missed are there, or can be asked for. By default the chart lays out anew.
     *  @param areFirst whether none was there before */
    virtual void _categoryTextsArrived(bool areFirst);

private:
    /** One that is there for a series: past the count for none. */
    static constexpr std::size_t noSeries = greatestSeriesCount;
    struct Series {
        std::string label;
        std::string id;
        std::vector<double> values;
        KXHighlightedParts parts;
        KXValueExtremes extremes; // of all values
        std::uint64_t measure = 0, member = 0;
        bool isDivided = false; // it is that of a member
        bool isOwn = true;
        std::size_t color = noSeries, low = noSeries, high = noSeries;
        std::size_t x = noSeries, size = noSeries;
    };
    struct CategoryText {
        std::string text;
        bool shouldFormat = true; // as the date or time that it is
    };
    /** The measures between whose values those of another one are thought to lie. */
    struct Band {
        std::uint64_t low, high;
    };
    struct Pulled;

    const std::vector<Series>& _getPulled() const { return m_isDrawn ? m_pulledSeries : m_series; }
    bool _pullDimension(KXAxisChartDataProvider& provider, Pulled& pulled);
    bool _pullSeries(KXAxisChartDataProvider& provider, Pulled& pulled);
    bool _hasNumbers(KXAxisChartDataProvider& provider, std::uint64_t series, Pulled& pulled);
    bool _pullValues(KXAxisChartDataProvider& provider, std::uint64_t index, bool hasNumbers, Pulled& pulled);
    bool _pullParts(KXAxisChartDataProvider& provider, std::uint64_t series, Pulled& pulled);
    bool _pullRoles(KXAxisChartDataProvider& provider, Pulled& pulled);
    static bool _pullMeasuresForOthers(KXAxisChartDataProvider& provider, KXChartDataUser* user,
                                       Pulled& pulled);
    bool _pullPoints(KXAxisChartDataProvider& provider, const RoleMeasures& measures, Pulled& pulled);
    static std::optional<Band> _pullBand(KXAxisChartDataProvider& provider, KXChartDataUser* user,
                                         std::uint64_t measure);
    const std::vector<double>& _getValues(std::uint64_t series, std::size_t Series::*role) const;
    static KXValueExtremes _findExtremes(const Series& series, std::size_t count);
    const CategoryText& _obtainText(std::uint64_t drawn);
    bool _pullTexts(std::uint64_t first, std::uint64_t count);
    void _tellOfTexts();
    void _keepText(std::uint64_t category, CategoryText text);

    std::vector<Series> m_series;
    std::uint64_t m_ownSeriesCount = 0;
    std::vector<std::vector<double>> m_oldValues; // of the data before, whose memory the next ones take
    std::uint64_t m_categoryCount = 0;
    // In place of which the chart draws others
    bool m_isDrawn = false;
    std::vector<Series> m_pulledSeries;
    std::uint64_t m_pulledCategoryCount = 0;
    std::vector<std::uint64_t> m_drawnCategories;
    std::vector<CategoryText> m_ownTexts;

    std::string m_categoryDimensionLabel;
    std::string m_measureLabel;
    std::array<std::string, 4> m_roleLabels; // by KXScatterChartRole
    KXChartDataType m_categoryDataType = KXChartDataType::String;
    KXChartAggregateType m_categoryAggregateType{};
    KXChartDataProviderDimensionSetting m_categorySetting;
    std::vector<double> m_categoryNumbers;
    bool m_categoryNumbersPulled = false;
    std::unordered_map<std::uint64_t, CategoryText> m_categoryTexts;
    std::size_t m_categoryTextBytes = 0;
    bool m_showsCategoryTexts = false; // some were there in a layout
    KXDataRequests m_textRequests;
};
