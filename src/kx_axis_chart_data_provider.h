#pragma once

#include "kx_chart_data_provider.h"
#include "kx_chart_data_provider_hint_data.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

/**
 * The data of an axis chart. Its categories are the members of dimension 0. Its series are the measures;
 * where dimension 1 has members, each measure is divided into one series per member, the first measure's
 * first.
 *
 * The questions about series have answers made of those about dimensions and values, so a host with a table
 * has nothing to add. A host with many categories answers obtainSeriesValues at once. A chart pulls all
 * values when it prepares its data, and asks for the texts of those categories only that it shows.
 */
class KX_EXPORT KXAxisChartDataProvider : public virtual KXChartDataProvider {
public:
    static constexpr std::uint64_t categoryDimension = 0;
    static constexpr std::uint64_t seriesDimension = 1;

    ~KXAxisChartDataProvider() override;

    virtual std::uint64_t obtainSeriesCount(KXChartDataUser* user);
    /** @return by default the measure's label, the member's text, or both where there are several of each */
    virtual std::string obtainSeriesLabel(KXChartDataUser* user, std::uint64_t series);
    /** @return what names the series also when the data changes; by default made as its label */
    virtual std::string obtainSeriesID(KXChartDataUser* user, std::uint64_t series);
    /** @return the value path of one mark: (measure, category) or (measure, category, member) */
    virtual KXIndexPath obtainSeriesValuePath(KXChartDataUser* user, std::uint64_t series,
                                              std::uint64_t category);
    /** @return nothing for a null */
    virtual std::optional<double> obtainSeriesValue(KXChartDataUser* user, std::uint64_t series,
                                                    std::uint64_t category);
    /** Sets values[i] to the value of category firstCategory + i, NaN for a null. Of many categories a part
     * is asked for at a time. */
    virtual void obtainSeriesValues(KXChartDataUser* user, std::uint64_t series, std::uint64_t firstCategory,
                                    std::span<double> values);
    /** Sets numbers[i] to where category firstCategory + i stands on a continuous axis. */
    virtual void obtainCategoryNumbers(KXChartDataUser* user, std::uint64_t firstCategory,
                                       std::span<double> numbers);

    /** Sets texts[i] to the text of category firstCategory + i; asked right after the layout that found them
     * missing.
     *  @return false for "not yet": the host has them later and calls the user's dataArrived */
    virtual bool obtainCategoryTexts(KXChartDataUser* user, std::uint64_t firstCategory,
                                     std::span<std::string> texts);
    /** @return the measure whose values colour the lines of all others where the user wants colours by value,
     * and which is no series itself; by default -1 for none */
    virtual std::int64_t obtainColorMeasure(KXChartDataUser* user);
    /** Tells between which two measures the values of another one are thought to lie. These are the ends of
     * a band, or of whiskers, and no series themselves.
     *  @return whether there is a band; by default not */
    virtual bool obtainBandMeasures(KXChartDataUser* user, std::uint64_t measure, std::uint64_t& low,
                                    std::uint64_t& high);
    /** @return whether a member of the categories' dimension is the sum of what comes before it, so that a
     * waterfall has it stand on zero; by default not */
    virtual bool obtainStepIsTotal(KXChartDataUser* user, std::uint64_t category);

    /** @return the hint of the value at path; an empty one leaves the hint to the chart, which lists every
     * series of the category */
    virtual KXChartDataProviderHintData obtainHintData(KXChartDataUser* user, const KXIndexPath& path);
};
