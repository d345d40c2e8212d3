#include "kx_panel_chart_data_user.h"

#include "kx_chart.h"
#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_use.h"
#include "kx_legend.h"
#include "kx_panel_chart_data_provider.h"
#include "ux/ux_assert.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <utility>

// Hosts may refer to them, on Windows too
constexpr std::size_t KXPanelChartDataUser::greatestDimensionCount;
constexpr std::uint64_t KXPanelChartDataUser::greatestMeasureCount;
constexpr std::uint64_t KXPanelChartDataUser::greatestValueCount;

namespace {

/** Texts of more members than anyone can see at once are not kept. */
constexpr std::size_t greatestTextCount = 4096;
/** Of a sparse list, so many cells are asked for at once. */
constexpr std::uint64_t greatestItemBlock = 65'536;

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
const std::string noText;
const std::vector<double> noValues;

} // namespace

std::uint64_t KXPanelChartDataUser::Data::obtainCellCount() const
{
    std::uint64_t count = 1;
    for (std::size_t i = 0; i < dimensionCount; ++i)
        count *= memberCounts[i];
    return count;
}

KXPanelChartDataUser::KXPanelChartDataUser(KXChart* chart)
    : KXChartDataUser(chart), m_textRequests{_makeRequests(0), _makeRequests(1)}
{
}

KXDataRequests KXPanelChartDataUser::_makeRequests(std::uint64_t dimension)
{
    return {getChart(),
            [this, dimension](std::uint64_t first, std::uint64_t count) {
                return _pullTexts(dimension, first, count);
            },
            [this] { _memberTextsArrived(); }};
}

KXPanelChartDataUser::~KXPanelChartDataUser() = default;

const std::string& KXPanelChartDataUser::getMeasureLabel(std::uint64_t measure) const
{
    return measure < m_data.measures.size() ? m_data.measures[measure].label : noText;
}

bool KXPanelChartDataUser::getMeasureAddsUp(std::uint64_t measure) const
{
    return measure < m_data.measures.size() && m_data.measures[measure].addsUp;
}

std::uint64_t KXPanelChartDataUser::getMemberCount(std::uint64_t dimension) const
{
    return dimension < m_data.dimensionCount ? m_data.memberCounts[dimension] : 0;
}

KXChartDataType KXPanelChartDataUser::getDimensionDataType(std::uint64_t dimension) const
{
    return dimension < m_data.dimensionCount ? m_data.types[dimension] : KXChartDataType::String;
}

KXChartAggregateType KXPanelChartDataUser::getDimensionAggregateType(std::uint64_t dimension) const
{
    return dimension < m_data.dimensionCount ? m_data.levels[dimension] : KXChartAggregateType();
}

const std::vector<double>& KXPanelChartDataUser::getValues(std::uint64_t measure) const
{
    return measure < m_data.measures.size() ? m_data.measures[measure].values : noValues;
}

double KXPanelChartDataUser::getValue(std::uint64_t measure, std::uint64_t cell) const
{
    const std::vector<double>& values = getValues(measure);
    return cell < values.size() ? values[cell] : noNumber;
}

const std::vector<double>& KXPanelChartDataUser::getHighlightedParts(std::uint64_t measure) const
{
    return measure < m_data.measures.size() ? m_data.measures[measure].parts.getAll() : noValues;
}

bool KXPanelChartDataUser::hasHighlightedParts() const
{
    return std::ranges::any_of(m_data.measures,
                               [](const Measure& measure) { return measure.parts.areTold(); });
}

double KXPanelChartDataUser::getHighlightedPart(std::uint64_t measure, std::uint64_t cell) const
{
    return measure < m_data.measures.size() ? m_data.measures[measure].parts.obtainPart(cell) : noNumber;
}

KXIndexPath KXPanelChartDataUser::obtainValuePath(std::uint64_t measure, std::uint64_t cell) const
{
    if (m_data.dimensionCount < 2)
        return {measure, cell};
    const std::uint64_t across = (std::max<std::uint64_t>)(m_data.memberCounts[1], 1);
    return {measure, cell / across, cell % across};
}

std::string KXPanelChartDataUser::obtainMemberText(std::uint64_t dimension, std::uint64_t member)
{
    if (member >= getMemberCount(dimension))
        return {};
    if (!hasMemberText(dimension, member)) {
        const UXObjectWatcher chart(getChart());
        m_textRequests[dimension].want(member);
        if (!chart.isAlive() || !hasMemberText(dimension, member))
            return {};
    }
    return m_memberTexts[dimension].at(member).text;
}

std::string KXPanelChartDataUser::obtainMemberName(std::uint64_t dimension, std::uint64_t member,
                                                   const KXChartDataFormat& format)
{
    const UXObjectWatcher chart(getChart());
    std::string text = obtainMemberText(dimension, member);
    if (!chart.isAlive() || !shouldFormatMemberText(dimension, member))
        return text;
    return format.formatDateTime(text, getDimensionDataType(dimension), getDimensionAggregateType(dimension));
}

bool KXPanelChartDataUser::hasMemberText(std::uint64_t dimension, std::uint64_t member) const
{
    return dimension < greatestDimensionCount && m_memberTexts[dimension].contains(member);
}

bool KXPanelChartDataUser::shouldFormatMemberText(std::uint64_t dimension, std::uint64_t member) const
{
    return hasMemberText(dimension, member) && m_memberTexts[dimension].at(member).shouldFormat;
}

/** @return false where the host does not have the texts yet */
bool KXPanelChartDataUser::_pullTexts(std::uint64_t dimension, std::uint64_t first, std::uint64_t count)
{
    const KXChartDataProviderUse use(*this);
    std::vector<std::string> pulled(count);
    auto* provider = use.as<KXPanelChartDataProvider>();
    if (provider && !provider->obtainMemberTexts(this, dimension, first, pulled))
        return false;
    const KXChartDataType type = use.isAlive() ? getDimensionDataType(dimension) : KXChartDataType::String;
    const bool isTime = type == KXChartDataType::Date || type == KXChartDataType::Time ||
                        type == KXChartDataType::DateTime;
    std::vector<bool> shouldFormat(count, isTime);
    for (std::uint64_t i = 0; i < count && isTime && use.isCurrent(); ++i)
        shouldFormat[i] = use.get()->shouldFormatDimenionData(this, {dimension, first + i});
    if (!use.isAlive())
        return true;
    auto& texts = m_memberTexts[dimension];
    if (texts.size() >= greatestTextCount)
        texts.clear();
    for (std::uint64_t i = 0; i < count; ++i)
        texts[first + i] = {std::move(pulled[i]), shouldFormat[i]};
    return true;
}

void KXPanelChartDataUser::_memberTextsArrived()
{
    const UXObjectWatcher chart(getChart());
    getChart()->getLegend()->markDataUpdated();
    if (chart.isAlive())
        getChart()->setRequireToVerifyLayout(true, true);
}

/** The members of the second dimension are told with those of the first. */
void KXPanelChartDataUser::dataArrived(std::uint64_t first, std::uint64_t count)
{
    const bool isMember = m_textRequests[0].arrive(first, count);
    const bool isInner = m_textRequests[1].arrive(0, getMemberCount(1));
    if (isMember || isInner)
        _memberTextsArrived();
}

void KXPanelChartDataUser::resetData()
{
    KXChartDataUser::resetData();
    m_data = {};
    m_memberTexts = {};
    for (KXDataRequests& requests : m_textRequests)
        requests.clear();
}

void KXPanelChartDataUser::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    auto* panelProvider = dynamic_cast<KXPanelChartDataProvider*>(provider);
    const KXChartDataProviderWatcher watcher(this);
    if (!uxAssert(panelProvider) || panelProvider->obtainDataIsEmpty(this) || !watcher.isCurrent())
        return;

    // The answers are gathered aside: the provider may destroy the chart, and this with it, in any of them.
    Data data;
    for (std::size_t i = 0; i < greatestDimensionCount && watcher.isCurrent(); ++i) {
        const std::uint64_t room = greatestValueCount / data.obtainCellCount();
        data.memberCounts[i] = (std::min)(panelProvider->obtainDimensionDataCount(this, i), room);
        if (data.memberCounts[i] == 0)
            break;
        ++data.dimensionCount;
        if (watcher.isCurrent())
            data.types[i] = panelProvider->obtainDimensionDataType(this, i);
        if (watcher.isCurrent())
            data.levels[i] = panelProvider->obtainDimensionAggregateType(this, i);
    }
    const std::uint64_t count = watcher.isCurrent() ? panelProvider->obtainValueCount(this) : 0;
    const std::uint64_t most = (std::min)(greatestMeasureCount, greatestValueCount / data.obtainCellCount());
    for (std::uint64_t measure = 0; measure < (std::min)(count, most); ++measure)
        if (!watcher.isCurrent() || !_pullMeasure(*panelProvider, measure, data))
            return;
    if (!watcher.isCurrent())
        return;
    m_data = std::move(data);
    prepared = std::ranges::any_of(m_data.measures, [](const Measure& measure) {
        return std::ranges::any_of(measure.values, [](double value) { return !std::isnan(value); });
    });
}

/** @return false once the provider must not be asked more */
bool KXPanelChartDataUser::_pullMeasure(KXPanelChartDataProvider& provider, std::uint64_t measure, Data& data)
{
    const KXChartDataProviderWatcher watcher(this);
    Measure pulled;
    pulled.label = provider.obtainValueLabel(this, measure);
    if (!watcher.isCurrent())
        return false;
    pulled.addsUp = provider.obtainValueAddsUp(this, measure);
    if (!watcher.isCurrent())
        return false;
    pulled.values.resize(data.obtainCellCount(), noNumber);
    const bool mayBeSparse = measure == 0 && data.dimensionCount > 1;
    if (!mayBeSparse || !_pullItems(provider, data, pulled.values))
        _pullRows(provider, measure, data, pulled.values);
    if (!watcher.isCurrent())
        return false;
    for (double& value : pulled.values)
        if (!std::isfinite(value))
            value = noNumber;
    _pullParts(provider, measure, data, pulled);
    if (!watcher.isCurrent())
        return false;
    data.measures.push_back(std::move(pulled));
    return true;
}

/** In rows, as values are; a host for whom nothing is chosen is asked once. */
void KXPanelChartDataUser::_pullParts(KXPanelChartDataProvider& provider, std::uint64_t measure,
                                      const Data& data, Measure& pulled)
{
    const KXChartDataProviderWatcher watcher(this);
    const bool hasRows = data.dimensionCount > 1;
    const std::uint64_t rowLength = hasRows ? data.memberCounts[1] : pulled.values.size();
    std::vector<double> parts;
    for (std::uint64_t row = 0; parts.size() < pulled.values.size() && watcher.isCurrent(); ++row) {
        const KXIndexPath first = hasRows ? KXIndexPath{measure, row, 0} : KXIndexPath{measure, 0};
        const auto own = KXHighlightedParts::pull(provider, this, first, first.size() - 1,
                                                  std::span(pulled.values).subspan(parts.size(), rowLength));
        if (!own.areTold())
            return;
        parts.insert(parts.end(), own.getAll().begin(), own.getAll().end());
    }
    pulled.parts = KXHighlightedParts(std::move(parts), pulled.values);
}

/** @return false where the provider has all cells, which are pulled in rows */
bool KXPanelChartDataUser::_pullItems(KXPanelChartDataProvider& provider, const Data& data,
                                      std::vector<double>& values)
{
    const KXChartDataProviderWatcher watcher(this);
    const std::uint64_t count = provider.obtainItemCount(this);
    if (watcher.isCurrent() && count >= data.obtainCellCount())
        return false;
    std::vector<KXPanelChartDataItem> items;
    for (std::uint64_t first = 0; first < count && watcher.isCurrent(); first += items.size()) {
        items.assign((std::min)(greatestItemBlock, count - first), {});
        provider.obtainItems(this, first, items);
        for (const KXPanelChartDataItem& item : items)
            if (item.firstMember < data.memberCounts[0] && item.secondMember < data.memberCounts[1])
                values[item.firstMember * data.memberCounts[1] + item.secondMember] = item.value;
    }
    return true;
}

void KXPanelChartDataUser::_pullRows(KXPanelChartDataProvider& provider, std::uint64_t measure,
                                     const Data& data, std::vector<double>& values)
{
    const KXChartDataProviderWatcher watcher(this);
    const bool hasRows = data.dimensionCount > 1;
    const std::uint64_t rowLength = hasRows ? data.memberCounts[1] : values.size();
    const std::uint64_t rowCount = values.size() / rowLength;
    for (std::uint64_t row = 0; row < rowCount && watcher.isCurrent(); ++row) {
        const KXIndexPath first = hasRows ? KXIndexPath{measure, row, 0} : KXIndexPath{measure, 0};
        provider.obtainValues(this, first, std::span(values).subspan(row * rowLength, rowLength));
    }
}

void KXPanelChartDataUser::customReloadData() {}
