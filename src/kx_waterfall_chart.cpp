#include "kx_waterfall_chart.h"

#include "kx_axis_chart_data_provider.h"
#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_key_definitions.h"
#include "kx_value_change.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace {

using Kind = KXWaterfallStep::Kind;
using View = KXWaterfallChartDataView;

constexpr double none = std::numeric_limits<double>::quiet_NaN();

} // namespace

KX_DEFINE_CHART_KEY_TABLE(KXWaterfallChart, KXBarChart, KX_WATERFALL_CHART_KEYS)

KXWaterfallChart::KXWaterfallChart() : KXWaterfallChart(std::make_unique<KXWaterfallChartDataView>()) {}

KXWaterfallChart::KXWaterfallChart(std::unique_ptr<KXWaterfallChartDataView> view)
    : KXDerivedBarChart(std::move(view)),
      m_waterfallView(static_cast<KXWaterfallChartDataView&>(*getDataViews().front()))
{
}

KXWaterfallChart::~KXWaterfallChart() = default;

const KXWaterfallSteps& KXWaterfallChart::getSteps() const { return m_waterfallView.getSteps(); }

void KXWaterfallChart::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    const KXChartDataProviderWatcher watcher(this);
    KXDerivedBarChart::customPrepareData(provider, prepared);
    auto* axisProvider = dynamic_cast<KXAxisChartDataProvider*>(provider);
    if (!watcher.isCurrent() || !prepared || !axisProvider)
        return;
    std::vector<bool> areTotals;
    std::optional<std::uint64_t> hostOthers;
    if (_isPulledDivided()) {
        for (std::uint64_t i = 0; i < _getPulledSeriesCount() && !hostOthers; ++i) {
            if (axisProvider->obtainDimensionDataIsGenerated(
                    this, {KXAxisChartDataProvider::seriesDimension, _getPulledMember(i)}))
                hostOthers = _getPulledMember(i);
            if (!watcher.isCurrent())
                return;
        }
    } else {
        areTotals.reserve(_getPulledCategoryCount());
        for (std::uint64_t i = 0; i < _getPulledCategoryCount(); ++i) {
            areTotals.push_back(axisProvider->obtainStepIsTotal(this, i));
            if (!watcher.isCurrent())
                return;
        }
    }
    m_areTotals = std::move(areTotals);
    m_hostOthers = hostOthers;
}

void KXWaterfallChart::resetData()
{
    KXDerivedBarChart::resetData();
    m_areTotals.clear();
    m_hostOthers.reset();
    m_partSeries.clear();
    m_waterfallView.takeSteps({}, m_startAtZero);
}

KXAxisChartDrawnData KXWaterfallChart::_deriveData()
{
    // 1. The steps, of the first measure.
    KXWaterfallSource source;
    source.isDivided = _isPulledDivided();
    source.areTotals = m_areTotals;
    source.hostOthers = m_hostOthers;
    source.count = _getPulledCategoryCount();
    if (getChartProperty()->getShowOnlyTopX())
        source.count = std::min(source.count, static_cast<std::uint64_t>(std::max<std::int64_t>(
                                                  getChartProperty()->getTopXItemsToShow(), 0)));
    m_partSeries.clear();
    for (std::uint64_t i = 0; i < _getPulledSeriesCount(); ++i)
        if (_getPulledMeasure(i) == _getPulledMeasure(0))
            m_partSeries.push_back(i);
    source.parts.reserve(m_partSeries.size());
    for (const std::uint64_t series : m_partSeries)
        source.parts.emplace_back(_getPulledValues(series));
    m_waterfallView.takeSteps(
        kxMakeWaterfallSteps(source,
                             {m_firstIsStart, m_showTotal,
                              static_cast<std::uint64_t>(std::max(m_maxSteps, 0)), m_groupValueSortOrder}),
        m_startAtZero);

    m_waterfallView.setShowsConnectors(m_showConnectors);

    // 2. A category each, and three series.
    KXAxisChartDrawnData drawn;
    const char* const names[] = {"Increase", "Decrease", "Total"};
    const std::vector<KXWaterfallStep>& steps = getSteps().steps;
    for (const char* name : names)
        drawn.series.push_back({uxLocalizeString(name), name, std::vector<double>(steps.size(), none), {}});
    const std::vector<double> parts = _deriveParts();
    for (KXAxisChartDrawnData::Series& series : drawn.series)
        series.parts = parts;
    drawn.categories.reserve(steps.size());
    const std::uint64_t own = _getPulledCategoryCount();
    for (std::size_t i = 0; i < steps.size(); ++i) {
        const KXWaterfallStep& step = steps[i];
        drawn.series[static_cast<std::size_t>(View::obtainSeries(step))].values[i] = step.value;
        const bool isPart = source.isDivided && step.kind == Kind::Change;
        if (step.kind == Kind::Total || (step.kind == Kind::Change && !isPart)) {
            drawn.categories.push_back(step.member);
            continue;
        }
        drawn.categories.push_back(own + drawn.ownTexts.size());
        drawn.ownTexts.push_back(isPart ? _getPulledSeriesLabel(m_partSeries[step.part])
                                        : uxLocalizeString(step.kind == Kind::End ? "Total" : "Others"));
    }
    return drawn;
}

/** Works out of the parts what the steps are of the values; empty where nothing is chosen elsewhere. */
std::vector<double> KXWaterfallChart::_deriveParts() const
{
    std::vector<double> parts;
    if (!hasHighlightedParts())
        return parts;
    const auto obtainPart = [this](std::uint64_t part, std::optional<std::uint64_t> member) {
        const double own = member ? _getPulledPart(m_partSeries[part], *member) : 0;
        return std::isnan(own) ? 0 : own;
    };
    std::optional<std::uint64_t> before; // the total that the present changes start from
    const auto obtainChange = [&](std::uint64_t part, const KXWaterfallStep& step) {
        return obtainPart(part, step.member) - (getSteps().isDivided ? obtainPart(part, before) : 0);
    };
    double running = 0;
    parts.reserve(getSteps().steps.size());
    for (const KXWaterfallStep& step : getSteps().steps) {
        double part = 0;
        if (step.kind == Kind::Change)
            part = obtainChange(step.part, step);
        else if (step.kind == Kind::Others)
            for (const std::uint64_t member : getSteps().gathered[step.member])
                part += obtainChange(member, step);
        else if (step.kind == Kind::Total) {
            running = 0;
            before = step.member;
            for (std::uint64_t i = 0; i < m_partSeries.size(); ++i)
                part += obtainPart(i, step.member);
        }
        running += part;
        parts.push_back(step.kind == Kind::End ? running : part);
    }
    return parts;
}

std::uint64_t KXWaterfallChart::obtainShownCategoryCount() const { return getCategoryCount(); }

std::string KXWaterfallChart::obtainValueText(std::uint64_t series, double value) const
{
    return series == View::Total || std::isnan(value) ? KXDerivedBarChart::obtainValueText(series, value)
                                                      : kxFormatSignedNumber(value, *getYDataFormat());
}

/** Only what is drawn is explained: what has bars, and lines of reference. */
bool KXWaterfallChart::obtainLegendShouldShowCell(std::uint64_t index)
{
    return _isAssistantLineCell(index) ||
           std::ranges::any_of(getSeriesValues(index), [](double value) { return !std::isnan(value); });
}

/** A total without some of its steps would be wrong. */
void KXWaterfallChart::legendCellClicked(std::uint64_t, const UXEvent&) {}

void KXWaterfallChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXDerivedBarChart::afterReloadData();
    if (self.isAlive())
        registerLeftClickAction(this, [this] {
            const std::optional<KXChartItem>& item = getItems()->getActionItem();
            const KXWaterfallStep* step = item ? _findStep(item->index) : nullptr;
            return !step || step->kind == Kind::Change || step->kind == Kind::Total;
        });
}

bool KXWaterfallChart::_areSeriesOfHost() const { return false; }

std::vector<UXColor> KXWaterfallChart::_obtainUsualColors() const
{
    return {m_increaseColor, m_decreaseColor, m_totalColor};
}

void KXWaterfallChart::_applyKeyEffect(UXPropertyEffect effect)
{
    m_waterfallView.setShowsConnectors(m_showConnectors);
    KXDerivedBarChart::_applyKeyEffect(effect);
}

const KXWaterfallStep* KXWaterfallChart::_findStep(std::uint64_t category) const
{
    return category < getSteps().steps.size() ? &getSteps().steps[category] : nullptr;
}

KXIndexPath KXWaterfallChart::_obtainValuePath(KXAxisChartDataProvider& provider, const KXAxisChartMark& mark)
{
    const KXWaterfallStep* step = _findStep(mark.category);
    const bool isSum = step &&
                       (step->kind != Kind::Change && (step->kind != Kind::Total || getSteps().isDivided));
    if (!step || isSum || m_partSeries.empty())
        return {};
    return provider.obtainSeriesValuePath(this, m_partSeries[step->part], step->member);
}

/** Steps follow each other, whichever way they go. */
std::optional<KXChartItem> KXWaterfallChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                              KXChartItemStep step) const
{
    using enum KXChartItemStep;
    const bool goesBack = step == (isVertical() ? Left : Up), goesOn = step == (isVertical() ? Right : Down);
    return KXDerivedBarChart::obtainItemBeside(from, goesBack ? Previous : goesOn ? Next : step);
}

KXChartDataPath* KXWaterfallChart::createItemPath(const KXChartItem& item)
{
    const KXWaterfallStep* step = _findStep(item.index);
    if (!step || step->kind == Kind::Change || step->kind == Kind::Total) {
        KXChartDataPath* path = KXDerivedBarChart::createItemPath(item);
        if (path && step && step->kind == Kind::Change && getSteps().isDivided)
            path->dimensionIndexPath = {KXAxisChartDataProvider::seriesDimension, step->part};
        return path;
    }
    auto path = std::make_unique<KXChartDataPath>();
    path->identifier = step->kind == Kind::End ? "Total" : "Others";
    if (step->kind == Kind::Others) {
        const std::vector<std::uint64_t>& members = getSteps().gathered[step->member];
        path->dimensionIndexPath = {KXAxisChartDataProvider::seriesDimension};
        path->dimensionIndexPath.insert(path->dimensionIndexPath.end(), members.begin(), members.end());
    }
    return path.release();
}

bool KXWaterfallChart::_holdsPart(const KXWaterfallStep& step, std::uint64_t part) const
{
    if (step.kind == Kind::Change)
        return getSteps().isDivided && step.part == part;
    return step.kind == Kind::Others && std::ranges::count(getSteps().gathered[step.member], part) > 0;
}

/** A value is the step that leads to it, a member of the first dimension its total or step, and one of the
 * second dimension each of its steps; what is gathered answers for each of its members. */
bool KXWaterfallChart::_isStepOf(const KXWaterfallStep& step, const KXChartDataPath& path) const
{
    const KXIndexPath& value = path.valueIndexPath;
    const KXIndexPath& members = path.dimensionIndexPath;
    const bool isOwn = step.kind == Kind::Total || (step.kind == Kind::Change && !getSteps().isDivided);
    if (value.size() > 2)
        return !m_partSeries.empty() && value[0] == _getPulledMeasure(m_partSeries.front()) &&
               step.member == value[1] && _holdsPart(step, value[2]);
    if (value.size() > 1)
        return !m_partSeries.empty() && value[0] == _getPulledMeasure(m_partSeries.front()) && isOwn &&
               step.member == value[1];
    if (members.size() < 2)
        return step.kind == Kind::End && path.identifier == "Total" && members.empty();
    return std::any_of(members.begin() + 1, members.end(), [&](std::uint64_t member) {
        return members[0] == KXAxisChartDataProvider::categoryDimension ? isOwn && step.member == member
               : members[0] == KXAxisChartDataProvider::seriesDimension ? _holdsPart(step, member)
                                                                        : false;
    });
}

std::vector<KXChartItem> KXWaterfallChart::findItems(const KXChartDataPath& path)
{
    std::vector<KXChartItem> items;
    for (std::uint64_t i = 0; i < getSteps().steps.size(); ++i) {
        const KXWaterfallStep& step = getSteps().steps[i];
        if (_isStepOf(step, path) && !std::isnan(step.value))
            items.push_back({0, static_cast<std::uint64_t>(View::obtainSeries(step)), i});
    }
    return items;
}

std::string KXWaterfallChart::customSerializeTypeID() { return "KXWaterfallChart"; }
