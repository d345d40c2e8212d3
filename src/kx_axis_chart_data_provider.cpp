#include "kx_axis_chart_data_provider.h"

#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_data_user.h"
#include "kx_chart_data_value.h"

#include <algorithm>
#include <limits>

// Hosts may refer to them, on Windows too
constexpr std::uint64_t KXAxisChartDataProvider::categoryDimension;
constexpr std::uint64_t KXAxisChartDataProvider::seriesDimension;

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();

/** Which measure a series is, and which member of the dimension that divides it. */
struct SeriesPlace {
    std::uint64_t measure = 0;
    std::uint64_t member = 0;
    bool isDivided = false;
};

SeriesPlace obtainPlace(KXAxisChartDataProvider& provider, KXChartDataUser* user, std::uint64_t series)
{
    const std::uint64_t members = provider.obtainDimensionDataCount(user, provider.seriesDimension);
    return members == 0 ? SeriesPlace{series, 0, false}
                        : SeriesPlace{series / members, series % members, true};
}

} // namespace

KXAxisChartDataProvider::~KXAxisChartDataProvider() = default;

std::uint64_t KXAxisChartDataProvider::obtainSeriesCount(KXChartDataUser* user)
{
    const KXChartDataProviderWatcher watcher(user);
    const std::uint64_t measures = obtainValueCount(user);
    if (measures == 0 || !watcher.isCurrent())
        return 0;
    const std::uint64_t members = std::max<std::uint64_t>(obtainDimensionDataCount(user, seriesDimension), 1);
    return measures > (std::numeric_limits<std::uint64_t>::max)() / members
               ? (std::numeric_limits<std::uint64_t>::max)()
               : measures * members;
}

std::string KXAxisChartDataProvider::obtainSeriesLabel(KXChartDataUser* user, std::uint64_t series)
{
    const KXChartDataProviderWatcher watcher(user);
    const SeriesPlace place = obtainPlace(*this, user, series);
    if (!watcher.isCurrent())
        return {};
    if (!place.isDivided)
        return obtainValueLabel(user, place.measure);
    const std::string member = obtainDimensionData(user, {seriesDimension, place.member});
    if (!watcher.isCurrent() || obtainValueCount(user) < 2 || !watcher.isCurrent())
        return member;
    return member + " - " + obtainValueLabel(user, place.measure);
}

std::string KXAxisChartDataProvider::obtainSeriesID(KXChartDataUser* user, std::uint64_t series)
{
    const KXChartDataProviderWatcher watcher(user);
    const SeriesPlace place = obtainPlace(*this, user, series);
    if (!watcher.isCurrent())
        return {};
    const std::string measure = obtainValueID(user, place.measure);
    if (!place.isDivided || !watcher.isCurrent())
        return measure;
    return measure + "/" + obtainDimensionData(user, {seriesDimension, place.member});
}

KXIndexPath KXAxisChartDataProvider::obtainSeriesValuePath(KXChartDataUser* user, std::uint64_t series,
                                                           std::uint64_t category)
{
    const SeriesPlace place = obtainPlace(*this, user, series);
    return place.isDivided ? KXIndexPath{place.measure, category, place.member}
                           : KXIndexPath{place.measure, category};
}

std::optional<double> KXAxisChartDataProvider::obtainSeriesValue(KXChartDataUser* user, std::uint64_t series,
                                                                 std::uint64_t category)
{
    double value = noNumber;
    obtainSeriesValues(user, series, category, {&value, 1});
    return value == value ? std::optional<double>(value) : std::nullopt;
}

void KXAxisChartDataProvider::obtainSeriesValues(KXChartDataUser* user, std::uint64_t series,
                                                 std::uint64_t firstCategory, std::span<double> values)
{
    std::ranges::fill(values, noNumber);
    const KXChartDataProviderWatcher watcher(user);
    KXIndexPath path = obtainSeriesValuePath(user, series, firstCategory);
    if (path.size() < 2)
        return;
    for (double& value : values) {
        value = kxObtainValueNumber(*this, user, path, watcher).value_or(noNumber);
        if (!watcher.isCurrent())
            return;
        ++path[1];
    }
}

void KXAxisChartDataProvider::obtainCategoryNumbers(KXChartDataUser* user, std::uint64_t firstCategory,
                                                    std::span<double> numbers)
{
    std::ranges::fill(numbers, noNumber);
    const KXChartDataProviderWatcher watcher(user);
    KXIndexPath path{categoryDimension, firstCategory};
    for (double& number : numbers) {
        if (!watcher.isCurrent())
            return;
        number = obtainDimensionDataAsNumber(user, path);
        ++path[1];
    }
}

bool KXAxisChartDataProvider::obtainCategoryTexts(KXChartDataUser* user, std::uint64_t firstCategory,
                                                  std::span<std::string> texts)
{
    const KXChartDataProviderWatcher watcher(user);
    for (std::string& text : texts) {
        text = obtainDimensionData(user, {categoryDimension, firstCategory++});
        if (!watcher.isCurrent())
            break;
    }
    return true;
}

std::int64_t KXAxisChartDataProvider::obtainColorMeasure(KXChartDataUser*) { return -1; }

bool KXAxisChartDataProvider::obtainBandMeasures(KXChartDataUser*, std::uint64_t, std::uint64_t&,
                                                 std::uint64_t&)
{
    return false;
}

bool KXAxisChartDataProvider::obtainStepIsTotal(KXChartDataUser*, std::uint64_t) { return false; }

KXChartDataProviderHintData KXAxisChartDataProvider::obtainHintData(KXChartDataUser*, const KXIndexPath&)
{
    return {};
}
