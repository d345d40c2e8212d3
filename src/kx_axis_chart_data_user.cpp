#include "kx_axis_chart_data_user.h"

#include "kx_axis_chart_data_provider.h"
#include "kx_chart.h"
#include "kx_chart_data_provider_use.h"
#include "kx_value_extremes.h"
#include "ux/ux_assert.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

// Hosts may refer to them, on Windows too
constexpr std::uint64_t KXAxisChartDataUser::greatestSeriesCount;
constexpr std::uint64_t KXAxisChartDataUser::greatestValueCount;
constexpr std::size_t KXAxisChartDataUser::noSeries;

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
/** Texts of more categories than anyone can see at once are not kept. */
constexpr std::size_t greatestTextCount = 4096, greatestTextBytes = std::size_t{16} << 20;

const std::string noText;
const std::vector<double> noValues;

constexpr double largest = (std::numeric_limits<double>::max)();

/** Values that are pulled at a time: few enough to be at hand still when they are looked at. */
constexpr std::size_t valuesTogether = std::size_t{1} << 16;

/** Puts NaN in place of what is infinite.
 *  @return the extremes of the others */
KXValueExtremes takeFinite(std::span<double> values)
{
    const KXValueExtremes extremes = kxFindValueExtremes(values);
    if (extremes.min >= -largest && extremes.max <= largest)
        return extremes;
    std::ranges::replace_if(
        values, [](double value) { return std::isinf(value); }, noNumber);
    return kxFindValueExtremes(values);
}

KXValueExtremes findStackedExtremes(const std::vector<std::span<const double>>& lists, std::size_t count)
{
    KXValueExtremes sums;
    for (std::size_t category = 0; category < count; ++category) {
        double up = 0, down = 0;
        for (const std::span<const double>& values : lists) {
            const double value = values[category];
            if (value > 0)
                up += value;
            else if (value < 0)
                down += value;
        }
        sums.min = std::min(sums.min, down);
        sums.max = std::max(sums.max, up);
    }
    return sums;
}

} // namespace

std::optional<KXAxisChartValueRange> kxUniteValueRanges(const std::optional<KXAxisChartValueRange>& a,
                                                        const std::optional<KXAxisChartValueRange>& b)
{
    if (!a || !b)
        return a ? a : b;
    return KXAxisChartValueRange{std::min(a->min, b->min), std::max(a->max, b->max),
                                 std::min(a->stackedMin, b->stackedMin),
                                 std::max(a->stackedMax, b->stackedMax)};
}

/** The provider's answers, gathered aside: it may destroy the chart, and this with it, in any of them. */
struct KXAxisChartDataUser::Pulled {
    explicit Pulled(KXAxisChartDataUser* user) : watcher(user) {}

    KXChartDataProviderWatcher watcher;
    std::vector<Series> series;
    std::uint64_t seriesCount = 0;
    std::uint64_t categoryCount = 0;
    std::string categoryDimensionLabel;
    std::string measureLabel;
    std::array<std::string, 4> roleLabels;
    KXChartDataType categoryDataType = KXChartDataType::String;
    KXChartAggregateType categoryAggregateType{};
    KXChartDataProviderDimensionSetting categorySetting;
    std::vector<std::vector<double>> oldValues;
    bool hasNumber = false;

    /** @return the series of a measure that has the same member as another series */
    std::size_t findSeries(std::uint64_t measure, std::uint64_t member) const
    {
        const auto found = std::ranges::find_if(
            series, [&](const Series& each) { return each.measure == measure && each.member == member; });
        return found == series.end() ? noSeries : static_cast<std::size_t>(found - series.begin());
    }

    /** Tells a series which ones are the ends of its band. */
    void findBand(Series& own, const std::optional<Band>& band) const
    {
        own.low = own.high = noSeries;
        if (!band)
            return;
        own.low = findSeries(band->low, own.member);
        own.high = findSeries(band->high, own.member);
    }

    /** @return any value for each category, where the series' old ones were if these were about as many */
    std::vector<double> takeValues(std::size_t index)
    {
        std::vector<double> values;
        if (index < oldValues.size() && oldValues[index].capacity() / 2 <= categoryCount)
            values.swap(oldValues[index]);
        values.resize(static_cast<std::size_t>(categoryCount));
        return values;
    }
};

KXAxisChartDataUser::KXAxisChartDataUser(KXChart* chart)
    : KXChartDataUser(chart),
      m_textRequests(
          chart, [this](std::uint64_t first, std::uint64_t count) { return _pullTexts(first, count); },
          [this] { _tellOfTexts(); })
{
}

KXAxisChartDataUser::~KXAxisChartDataUser() = default;

const std::string& KXAxisChartDataUser::getSeriesLabel(std::uint64_t series) const
{
    return series < m_series.size() ? m_series[series].label : noText;
}

const std::string& KXAxisChartDataUser::getSeriesID(std::uint64_t series) const
{
    return series < m_series.size() ? m_series[series].id : noText;
}

const std::vector<double>& KXAxisChartDataUser::getSeriesValues(std::uint64_t series) const
{
    return series < m_series.size() ? m_series[series].values : noValues;
}

double KXAxisChartDataUser::getValue(std::uint64_t series, std::uint64_t category) const
{
    const std::vector<double>& values = getSeriesValues(series);
    return category < values.size() ? values[category] : noNumber;
}

const std::vector<double>& KXAxisChartDataUser::getHighlightedParts(std::uint64_t series) const
{
    return series < m_series.size() ? m_series[series].parts.getAll() : noValues;
}

double KXAxisChartDataUser::getHighlightedPart(std::uint64_t series, std::uint64_t category) const
{
    return series < m_series.size() ? m_series[series].parts.obtainPart(category) : noNumber;
}

bool KXAxisChartDataUser::hasHighlightedParts() const
{
    return std::ranges::any_of(_getPulled(), [](const Series& series) { return series.parts.areTold(); });
}

double KXAxisChartDataUser::_getPulledPart(std::uint64_t series, std::uint64_t category) const
{
    return series < _getPulled().size() ? _getPulled()[series].parts.obtainPart(category) : noNumber;
}

bool KXAxisChartDataUser::isOwnSeries(std::uint64_t series) const
{
    return series < m_series.size() && m_series[series].isOwn;
}

const std::vector<double>& KXAxisChartDataUser::_getValues(std::uint64_t series,
                                                           std::size_t Series::*role) const
{
    return series < m_series.size() ? getSeriesValues(m_series[series].*role) : noValues;
}

const std::vector<double>& KXAxisChartDataUser::getColorValues(std::uint64_t series) const
{
    return _getValues(series, &Series::color);
}

const std::vector<double>& KXAxisChartDataUser::getXValues(std::uint64_t series) const
{
    return _getValues(series, &Series::x);
}

const std::vector<double>& KXAxisChartDataUser::getSizeValues(std::uint64_t series) const
{
    return _getValues(series, &Series::size);
}

const std::string& KXAxisChartDataUser::getRoleLabel(KXScatterChartRole role) const
{
    return m_roleLabels[static_cast<std::size_t>(role)];
}

const std::vector<double>& KXAxisChartDataUser::getBandLows(std::uint64_t series) const
{
    return _getValues(series, &Series::low);
}

const std::vector<double>& KXAxisChartDataUser::getBandHighs(std::uint64_t series) const
{
    return _getValues(series, &Series::high);
}

void KXAxisChartDataUser::resetData()
{
    KXChartDataUser::resetData();
    m_oldValues.clear();
    for (Series& series : m_isDrawn ? m_pulledSeries : m_series)
        m_oldValues.push_back(std::move(series.values));
    m_series.clear();
    m_isDrawn = false;
    m_pulledSeries.clear();
    m_pulledCategoryCount = 0;
    m_drawnCategories.clear();
    m_ownTexts.clear();
    m_ownSeriesCount = 0;
    m_categoryCount = 0;
    m_categoryDimensionLabel.clear();
    m_measureLabel.clear();
    m_roleLabels = {};
    m_categoryDataType = KXChartDataType::String;
    m_categoryAggregateType = KXChartAggregateType{};
    m_categorySetting = {};
    m_categoryNumbers.clear();
    m_categoryNumbersPulled = false;
    m_categoryTexts.clear();
    m_categoryTextBytes = 0;
    m_showsCategoryTexts = false;
    m_textRequests.clear();
}

void KXAxisChartDataUser::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    auto* axisProvider = dynamic_cast<KXAxisChartDataProvider*>(provider);
    Pulled pulled(this);
    pulled.oldValues = std::exchange(m_oldValues, {});
    if (!uxAssert(axisProvider) || axisProvider->obtainDataIsEmpty(this) || !pulled.watcher.isCurrent())
        return;
    if (!_pullDimension(*axisProvider, pulled) || !_pullSeries(*axisProvider, pulled) ||
        !_pullRoles(*axisProvider, pulled))
        return;
    m_series = std::move(pulled.series);
    m_ownSeriesCount = static_cast<std::uint64_t>(std::ranges::count_if(m_series, &Series::isOwn));
    m_categoryCount = pulled.categoryCount;
    m_categoryDimensionLabel = std::move(pulled.categoryDimensionLabel);
    m_measureLabel = std::move(pulled.measureLabel);
    m_roleLabels = std::move(pulled.roleLabels);
    m_categoryDataType = pulled.categoryDataType;
    m_categoryAggregateType = pulled.categoryAggregateType;
    m_categorySetting = std::move(pulled.categorySetting);
    prepared = pulled.hasNumber;
}

/** @return false once the provider must not be asked more; the same for the next */
bool KXAxisChartDataUser::_pullDimension(KXAxisChartDataProvider& provider, Pulled& pulled)
{
    constexpr std::uint64_t dimension = KXAxisChartDataProvider::categoryDimension;
    pulled.categorySetting = provider.obtainDimensionSetting(this, dimension);
    if (pulled.watcher.isCurrent())
        pulled.categoryDataType = provider.obtainDimensionDataType(this, dimension);
    if (pulled.watcher.isCurrent())
        pulled.categoryAggregateType = provider.obtainDimensionAggregateType(this, dimension);
    if (pulled.watcher.isCurrent())
        pulled.categoryDimensionLabel = provider.obtainDimensionLabel(this, dimension);
    if (pulled.watcher.isCurrent())
        pulled.categoryCount = provider.obtainDimensionDataCount(this, dimension);
    if (pulled.watcher.isCurrent())
        pulled.seriesCount = std::min(provider.obtainSeriesCount(this), greatestSeriesCount);
    if (pulled.watcher.isCurrent() && provider.obtainValueCount(this) == 1 && pulled.watcher.isCurrent())
        pulled.measureLabel = provider.obtainValueLabel(this, 0);
    const std::uint64_t most = greatestValueCount / std::max<std::uint64_t>(pulled.seriesCount, 1);
    pulled.categoryCount = std::min(pulled.categoryCount, most);
    return pulled.watcher.isCurrent();
}

bool KXAxisChartDataUser::_pullSeries(KXAxisChartDataProvider& provider, Pulled& pulled)
{
    for (std::uint64_t i = 0; i < pulled.seriesCount; ++i) {
        Series& series = pulled.series.emplace_back();
        series.values = pulled.takeValues(static_cast<std::size_t>(i));
        series.label = provider.obtainSeriesLabel(this, i);
        if (pulled.watcher.isCurrent())
            series.id = provider.obtainSeriesID(this, i);
        const bool hasNumbers = pulled.watcher.isCurrent() && _hasNumbers(provider, i, pulled);
        if (!pulled.watcher.isCurrent() || !_pullValues(provider, i, hasNumbers, pulled))
            return false;
        if (hasNumbers && !_pullParts(provider, i, pulled))
            return false;
    }
    return true;
}

/** Sets the values of the last series that was added, and finds their extremes. */
bool KXAxisChartDataUser::_pullValues(KXAxisChartDataProvider& provider, std::uint64_t index, bool hasNumbers,
                                      Pulled& pulled)
{
    Series& series = pulled.series.back();
    for (std::size_t first = 0; first < series.values.size(); first += valuesTogether) {
        const std::span some =
            std::span(series.values).subspan(first, std::min(valuesTogether, series.values.size() - first));
        std::ranges::fill(some, noNumber);
        if (hasNumbers)
            provider.obtainSeriesValues(this, index, first, some);
        if (!pulled.watcher.isCurrent())
            return false;
        series.extremes.take(takeFinite(some));
    }
    return true;
}

/** The values of a series stand along the categories. */
bool KXAxisChartDataUser::_pullParts(KXAxisChartDataProvider& provider, std::uint64_t series, Pulled& pulled)
{
    const KXIndexPath first = provider.obtainSeriesValuePath(this, series, 0);
    if (!pulled.watcher.isCurrent())
        return false;
    Series& own = pulled.series.back();
    own.parts = KXHighlightedParts::pull(provider, this, first, 1, own.values);
    return pulled.watcher.isCurrent();
}

/** Finds out which series are there for others. */
bool KXAxisChartDataUser::_pullRoles(KXAxisChartDataProvider& provider, Pulled& pulled)
{
    const std::optional<RoleMeasures> measures = _obtainRoleMeasures(provider);
    if (!pulled.watcher.isCurrent())
        return false;
    if (!(measures ? _pullPoints(provider, *measures, pulled)
                   : _pullMeasuresForOthers(provider, this, pulled)))
        return false;
    pulled.hasNumber = std::ranges::any_of(
        pulled.series, [](const Series& series) { return series.isOwn && !series.extremes.isEmpty(); });
    return true;
}

std::optional<KXAxisChartDataUser::RoleMeasures> KXAxisChartDataUser::_obtainRoleMeasures(
    KXAxisChartDataProvider&)
{
    return std::nullopt;
}

/** The measure along the Y axis is the series, or one series a member. The ends of its band are nothing else.
 */
bool KXAxisChartDataUser::_pullPoints(KXAxisChartDataProvider& provider, const RoleMeasures& measures,
                                      Pulled& pulled)
{
    const auto obtainMeasure = [&](KXScatterChartRole role) {
        return measures[static_cast<std::size_t>(role)];
    };
    for (std::size_t role = 0; role < measures.size(); ++role) {
        if (measures[role] >= 0)
            pulled.roleLabels[role] = provider.obtainValueLabel(this,
                                                                static_cast<std::uint64_t>(measures[role]));
        if (!pulled.watcher.isCurrent())
            return false;
    }
    const std::int64_t y = obtainMeasure(KXScatterChartRole::Y);
    std::optional<Band> band;
    if (y >= 0)
        band = _pullBand(provider, this, static_cast<std::uint64_t>(y));
    if (!pulled.watcher.isCurrent())
        return false;
    for (Series& series : pulled.series) {
        series.isOwn = y >= 0 && series.measure == static_cast<std::uint64_t>(y);
        if (!series.isOwn)
            continue;
        const auto find = [&](KXScatterChartRole role) {
            const auto measure = static_cast<std::uint64_t>(obtainMeasure(role));
            const bool isEnd = band && (measure == band->low || measure == band->high);
            return obtainMeasure(role) < 0 || isEnd ? noSeries : pulled.findSeries(measure, series.member);
        };
        series.x = find(KXScatterChartRole::X);
        series.size = find(KXScatterChartRole::Size);
        series.color = find(KXScatterChartRole::Color);
        pulled.findBand(series, band);
        if (series.isDivided)
            series.label = provider.obtainDimensionData(
                this, {KXAxisChartDataProvider::seriesDimension, series.member});
        if (!pulled.watcher.isCurrent())
            return false;
    }
    return true;
}

/** @return none where the host names a measure as an end of its own band; it may have taken the chart away */
std::optional<KXAxisChartDataUser::Band> KXAxisChartDataUser::_pullBand(KXAxisChartDataProvider& provider,
                                                                        KXChartDataUser* user,
                                                                        std::uint64_t measure)
{
    Band band{};
    const bool isThere = provider.obtainBandMeasures(user, measure, band.low, band.high) &&
                         band.low != measure && band.high != measure;
    return isThere ? std::optional(band) : std::nullopt;
}

/** Measures that colour others, and those that are the ends of bands, are no series. */
bool KXAxisChartDataUser::_pullMeasuresForOthers(KXAxisChartDataProvider& provider, KXChartDataUser* user,
                                                 Pulled& pulled)
{
    const std::int64_t color = pulled.series.size() > 1 ? provider.obtainColorMeasure(user) : -1;
    const auto takeAway = [&](std::uint64_t measure) {
        for (Series& series : pulled.series)
            series.isOwn = series.isOwn && series.measure != measure;
    };
    if (!pulled.watcher.isCurrent())
        return false;
    if (color >= 0)
        takeAway(static_cast<std::uint64_t>(color));
    std::uint64_t measure = 0;
    std::optional<Band> band;
    bool isAsked = false;
    for (std::size_t i = 0; i < pulled.series.size() && pulled.series.size() > 1; ++i) {
        if (!pulled.series[i].isOwn)
            continue;
        // The members of a measure follow each other.
        if (!isAsked || measure != pulled.series[i].measure) {
            measure = pulled.series[i].measure;
            band = _pullBand(provider, user, measure);
            if (!pulled.watcher.isCurrent())
                return false;
            isAsked = true;
            if (band) {
                takeAway(band->low);
                takeAway(band->high);
            }
        }
        Series& series = pulled.series[i];
        series.color = color >= 0 ? pulled.findSeries(static_cast<std::uint64_t>(color), series.member)
                                  : noSeries;
        pulled.findBand(series, band);
    }
    return true;
}

bool KXAxisChartDataUser::_hasNumbers(KXAxisChartDataProvider& provider, std::uint64_t series, Pulled& pulled)
{
    const KXIndexPath path = provider.obtainSeriesValuePath(this, series, 0);
    if (path.empty() || !pulled.watcher.isCurrent())
        return false;
    pulled.series.back().measure = path[0];
    pulled.series.back().isDivided = path.size() > 2;
    pulled.series.back().member = path.size() > 2 ? path[2] : 0;
    const KXChartDataType type = provider.obtainValueDataType(this, {path[0]});
    const bool isNumber = type == KXChartDataType::Integer || type == KXChartDataType::Float;
    return isNumber && pulled.watcher.isCurrent();
}

void KXAxisChartDataUser::_drawInstead(KXAxisChartDrawnData drawn)
{
    if (!std::exchange(m_isDrawn, true)) {
        m_pulledSeries = std::move(m_series);
        m_pulledCategoryCount = m_categoryCount;
    }
    m_series.clear();
    m_series.reserve(drawn.series.size());
    for (KXAxisChartDrawnData::Series& own : drawn.series) {
        Series& series = m_series.emplace_back();
        series.label = std::move(own.label);
        series.id = std::move(own.id);
        series.values = std::move(own.values);
        series.extremes = kxFindValueExtremes(series.values);
        if (!own.parts.empty())
            series.parts = KXHighlightedParts(std::move(own.parts), series.values);
    }
    m_ownSeriesCount = m_series.size();
    m_categoryCount = drawn.categories.size();
    m_drawnCategories = std::move(drawn.categories);
    m_ownTexts.clear();
    m_ownTexts.reserve(drawn.ownTexts.size());
    for (std::string& text : drawn.ownTexts)
        m_ownTexts.push_back({std::move(text), false});
}

std::uint64_t KXAxisChartDataUser::_obtainPulledCategory(std::uint64_t category) const
{
    if (!m_isDrawn)
        return category;
    return category < m_drawnCategories.size() ? m_drawnCategories[category]
                                               : (std::numeric_limits<std::uint64_t>::max)();
}

std::optional<std::uint64_t> KXAxisChartDataUser::_findDrawnCategory(std::uint64_t pulled) const
{
    if (!m_isDrawn)
        return pulled < m_categoryCount ? std::optional(pulled) : std::nullopt;
    const auto found = std::ranges::find(m_drawnCategories, pulled);
    if (found == m_drawnCategories.end() || pulled >= m_pulledCategoryCount)
        return std::nullopt;
    return static_cast<std::uint64_t>(found - m_drawnCategories.begin());
}

std::uint64_t KXAxisChartDataUser::_getPulledCategoryCount() const
{
    return m_isDrawn ? m_pulledCategoryCount : m_categoryCount;
}

const std::string& KXAxisChartDataUser::_getPulledSeriesLabel(std::uint64_t series) const
{
    return series < _getPulled().size() ? _getPulled()[series].label : noText;
}

const std::string& KXAxisChartDataUser::_getPulledSeriesID(std::uint64_t series) const
{
    return series < _getPulled().size() ? _getPulled()[series].id : noText;
}

const std::vector<double>& KXAxisChartDataUser::_getPulledValues(std::uint64_t series) const
{
    return series < _getPulled().size() ? _getPulled()[series].values : noValues;
}

std::uint64_t KXAxisChartDataUser::_getPulledMeasure(std::uint64_t series) const
{
    return series < _getPulled().size() ? _getPulled()[series].measure : 0;
}

std::uint64_t KXAxisChartDataUser::_getPulledMember(std::uint64_t series) const
{
    return series < _getPulled().size() ? _getPulled()[series].member : 0;
}

bool KXAxisChartDataUser::hasCategoryText(std::uint64_t category) const
{
    const std::uint64_t pulled = _obtainPulledCategory(category);
    return m_categoryTexts.contains(pulled) ||
           (m_isDrawn && category < m_categoryCount && pulled >= m_pulledCategoryCount);
}

std::string KXAxisChartDataUser::obtainCategoryText(std::uint64_t category)
{
    return _obtainText(category).text;
}

bool KXAxisChartDataUser::obtainShouldFormatCategoryText(std::uint64_t category)
{
    return _obtainText(category).shouldFormat;
}

const KXAxisChartDataUser::CategoryText& KXAxisChartDataUser::_obtainText(std::uint64_t drawn)
{
    static const CategoryText none;
    const std::uint64_t category = _obtainPulledCategory(drawn);
    if (m_isDrawn && category >= m_pulledCategoryCount)
        return drawn < m_categoryCount ? m_ownTexts[category - m_pulledCategoryCount] : none;
    const auto found = m_categoryTexts.find(category);
    if (found != m_categoryTexts.end())
        return found->second;
    if (category >= _getPulledCategoryCount())
        return none;

    const UXObjectWatcher chart(getChart());
    m_textRequests.want(category);
    if (!chart.isAlive())
        return none;
    const auto pulled = m_categoryTexts.find(category);
    return pulled == m_categoryTexts.end() ? none : pulled->second;
}

/** @return false where the host does not have the texts yet */
bool KXAxisChartDataUser::_pullTexts(std::uint64_t first, std::uint64_t count)
{
    const KXChartDataProviderUse use(*this);
    std::vector<CategoryText> pulled(count);
    if (auto* provider = use.as<KXAxisChartDataProvider>()) {
        std::vector<std::string> texts(count);
        if (!provider->obtainCategoryTexts(this, first, texts))
            return false;
        for (std::size_t i = 0; i < count; ++i)
            pulled[i].text = std::move(texts[i]);
    }
    for (std::uint64_t i = 0; i < count && use.isCurrent(); ++i)
        pulled[i].shouldFormat = use.get()->shouldFormatDimenionData(
            this, {KXAxisChartDataProvider::categoryDimension, first + i});
    if (!use.isAlive())
        return true;
    for (std::uint64_t i = 0; i < count; ++i)
        _keepText(first + i, std::move(pulled[i]));
    return true;
}

void KXAxisChartDataUser::_keepText(std::uint64_t category, CategoryText text)
{
    m_categoryTextBytes += text.text.size();
    if (m_categoryTexts.size() >= greatestTextCount || m_categoryTextBytes > greatestTextBytes) {
        m_categoryTexts.clear();
        m_categoryTextBytes = text.text.size();
    }
    m_categoryTexts[category] = std::move(text);
}

void KXAxisChartDataUser::_tellOfTexts()
{
    _categoryTextsArrived(!std::exchange(m_showsCategoryTexts, true));
}

void KXAxisChartDataUser::_categoryTextsArrived(bool) { getChart()->setRequireToVerifyLayout(true, true); }

void KXAxisChartDataUser::dataArrived(std::uint64_t first, std::uint64_t count)
{
    if (m_textRequests.arrive(first, count))
        _tellOfTexts();
}

const std::vector<double>& KXAxisChartDataUser::obtainCategoryNumbers()
{
    if (m_isDrawn)
        return noValues; // their order is not that of the numbers
    if (m_categoryNumbersPulled || m_categoryDataType == KXChartDataType::String)
        return m_categoryNumbers;
    const KXChartDataProviderUse use(*this);
    std::vector<double> numbers(m_categoryCount, noNumber);
    if (auto* provider = use.as<KXAxisChartDataProvider>())
        provider->obtainCategoryNumbers(this, 0, numbers);
    if (!use.isAlive())
        return noValues;
    m_categoryNumbersPulled = true;
    std::ranges::replace_if(
        numbers, [](double number) { return !std::isfinite(number); }, noNumber);
    if (!std::ranges::all_of(numbers, [](double number) { return std::isnan(number); }))
        m_categoryNumbers = std::move(numbers);
    return m_categoryNumbers;
}

KXValueExtremes KXAxisChartDataUser::_findExtremes(const Series& series, std::size_t count)
{
    return count == series.values.size() ? series.extremes
                                         : kxFindValueExtremes(std::span(series.values).first(count));
}

KXAxisChartValueRange KXAxisChartDataUser::obtainValueRange(const std::vector<std::uint64_t>& series,
                                                            std::uint64_t categoryCount, bool withSums) const
{
    const auto count = static_cast<std::size_t>(std::min(categoryCount, m_categoryCount));
    std::vector<std::span<const double>> lists;
    KXValueExtremes all;
    for (const std::uint64_t index : series) {
        if (index >= m_series.size())
            continue;
        const Series& own = m_series[index];
        lists.push_back(std::span(own.values).first(count));
        for (const std::size_t other : {std::size_t{index}, own.low, own.high})
            if (other < m_series.size())
                all.take(_findExtremes(m_series[other], count));
    }
    if (all.isEmpty())
        return {};
    if (!withSums)
        return {all.min, all.max, 0, 0};
    const KXValueExtremes stacked = lists.size() == 1 ? all : findStackedExtremes(lists, count);
    return {all.min, all.max, std::clamp(stacked.min, -largest, 0.0), std::clamp(stacked.max, 0.0, largest)};
}
