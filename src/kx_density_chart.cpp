#include "kx_density_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_items.h"
#include "kx_density_chart_data_provider.h"
#include "kx_hint_text.h"
#include "kx_key_definitions.h"
#include "kx_percentages.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

// Hosts may refer to it, on Windows too
constexpr int KXDensityChart::rowKind;

KX_DEFINE_CHART_KEY_TABLE(KXDensityChart, KXMemberPanelChart, KX_DENSITY_CHART_KEYS)

namespace {

const KXDensity noDensity;
constexpr double greatestWhisker = 0.25;
constexpr int percentageDecimals = 1;

} // namespace

KXDensityChart::KXDensityChart() = default;
KXDensityChart::~KXDensityChart() { _leaveView(); }

UXTextProperty KXDensityChart::_makeTextProperty(int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.size = fontSize;
    property.textColor = color;
    return property;
}

std::string KXDensityChart::customSerializeTypeID() { return "KXDensityChart"; }
std::string KXDensityChart::_obtainItemKind() const { return "Bin"; }
UXHintInfo KXDensityChart::_obtainHintLook() const { return m_hintInfo; }

std::vector<UXColor> KXDensityChart::_obtainUsualColors() const
{
    return m_seriesColors.empty() ? getDefaultColors() : m_seriesColors;
}

/** The bins of a single row have its colour. */
UXColor KXDensityChart::_obtainItemColor(const KXChartItem& item) const
{
    return obtainGroupColor(_obtainRow(item));
}

/** Bins count values; none is a value of which there is a part. */
double KXDensityChart::_obtainFullShare(const KXChartItem&) const { return 1; }

KXObjectID KXDensityChart::_obtainGroupObjectID(std::uint64_t group) const
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(std::string("Row"))).index(group);
}

std::vector<KXObjectID> KXDensityChart::obtainItemObjectIDs(const KXChartItem& item) const
{
    const KXObjectID row = _obtainGroupObjectID(_obtainRow(item));
    if (item.kind == rowKind)
        return {row};
    return {KXObjectID(row).path(kxCreateObjectIDPath(std::string("Bin"))).index(_obtainBin(item))};
}

/** A single row needs no name. */
std::uint64_t KXDensityChart::obtainLegendCellSize()
{
    return _hasGroups() ? KXMemberPanelChart::obtainLegendCellSize() : 0;
}

KXListedGroups KXDensityChart::_listGroups()
{
    if (_hasGroups())
        return KXMemberPanelChart::_listGroups();
    std::vector<std::uint64_t> all(obtainGroupCount()); // of a single row all bins
    std::iota(all.begin(), all.end(), std::uint64_t{0});
    return {std::move(all), {}, obtainGroupCount()};
}

void KXDensityChart::resetData()
{
    KXMemberPanelChart::resetData();
    m_edges.clear();
    m_widths.clear();
    m_densities.clear();
    m_summaries.clear();
    m_rows.clear();
}

void KXDensityChart::customPrepareData(KXChartDataProvider* provider, bool& prepared)
{
    const KXChartDataProviderWatcher watcher(this);
    KXMemberPanelChart::customPrepareData(provider, prepared);
    if (!watcher.isCurrent())
        return;
    const std::uint64_t dimension = _hasGroups() ? 1 : 0, count = _obtainBinCount();
    std::vector<double> edges, widths;
    edges.reserve(count);
    widths.reserve(count);
    for (std::uint64_t bin = 0; bin < count && watcher.isCurrent(); ++bin) {
        edges.push_back(provider->obtainDimensionDataAsNumber(this, {dimension, bin}));
        if (watcher.isCurrent())
            widths.push_back(provider->obtainDimensionDataAsRangeDifference(this, {dimension, bin}));
    }
    if (!watcher.isCurrent())
        return;
    m_edges = std::move(edges);
    m_widths = std::move(widths);
}

void KXDensityChart::customReloadData()
{
    const UXObjectWatcher self(this);
    KXMemberPanelChart::customReloadData();
    if (!self.isAlive())
        return;
    m_densities.clear();
    for (std::uint64_t row = 0; row < _obtainRowCount(); ++row) {
        std::vector<KXDensityBinData> bins(m_edges.size());
        for (std::size_t bin = 0; bin < bins.size(); ++bin)
            bins[bin] = {m_edges[bin], m_widths[bin], getValue(0, row * m_edges.size() + bin)};
        m_densities.emplace_back(std::move(bins));
    }
    _loadSummaries();
}

void KXDensityChart::_loadSummaries()
{
    const KXChartDataProviderUse use(*this);
    const double whisker = std::isnan(m_whisker) ? 0 : std::clamp(m_whisker, 0.0, greatestWhisker);
    const double shares[] = {whisker, 0.25, 0.5, 0.75, 1 - whisker};
    const std::vector<KXDensity> densities = m_densities;
    const bool wantsMean = m_showMean;
    std::vector<Summary> summaries(densities.size());
    for (std::size_t row = 0; row < densities.size() && use.isCurrent(); ++row) {
        Summary& summary = summaries[row];
        const auto take = [&](double& place, double told, double estimated) {
            place = std::isfinite(told) ? told : estimated;
            summary.isEstimated = summary.isEstimated || !std::isfinite(told);
        };
        auto* provider = use.as<KXDensityChartDataProvider>();
        for (std::size_t i = 0; i < std::size(shares) && use.isCurrent(); ++i)
            take(summary.quantiles[i],
                 provider ? provider->obtainQuantile(this, row, shares[i]) : std::nan(""),
                 densities[row].obtainQuantile(shares[i]));
        if (wantsMean && use.isCurrent())
            take(summary.mean, provider ? provider->obtainMean(this, row) : std::nan(""),
                 densities[row].obtainMean());
        std::ranges::sort(summary.quantiles);
    }
    if (use.isAlive())
        m_summaries = std::move(summaries);
}

const KXDensity& KXDensityChart::obtainDensity(std::uint64_t group) const
{
    return group < m_densities.size() ? m_densities[group] : noDensity;
}

bool KXDensityChart::_isRowShown(std::uint64_t row) const
{
    return !obtainDensity(row).isEmpty() && (!_hasGroups() || isGroupShown(row));
}

bool KXDensityChart::hasItem(const KXChartItem& item) const
{
    if (item.kind == rowKind)
        return !_showsBins() && item.index == 0 && _isRowShown(item.group);
    return _showsBins() && _isRowShown(_obtainRow(item)) && KXMemberPanelChart::hasItem(item) &&
           obtainItemValue(item) > 0;
}

std::vector<KXChartItem> KXDensityChart::obtainItems() const
{
    if (_showsBins())
        return KXMemberPanelChart::obtainItems();
    std::vector<KXChartItem> items;
    for (std::uint64_t row = 0; row < _obtainRowCount(); ++row)
        if (hasItem({rowKind, row, 0}))
            items.push_back({rowKind, row, 0});
    return items;
}

KXChartDataPath* KXDensityChart::createItemPath(const KXChartItem& item)
{
    if (item.kind != rowKind)
        return KXMemberPanelChart::createItemPath(item);
    auto* path = new KXChartDataPath;
    path->identifier = "Row";
    if (_hasGroups())
        path->dimensionIndexPath = {0, item.group};
    return path;
}

/** A row is named by its group, and by each of its bins. */
std::vector<KXChartItem> KXDensityChart::findItems(const KXChartDataPath& path)
{
    if (_showsBins())
        return KXMemberPanelChart::findItems(path);
    const KXIndexPath &members = path.dimensionIndexPath, &value = path.valueIndexPath;
    std::vector<KXChartItem> items = obtainItems();
    std::erase_if(items, [&](const KXChartItem& item) {
        if (!_hasGroups())
            return members.empty() && value.size() < 2 && path.identifier != "Row";
        if (members.size() > 1 && members[0] == 0)
            return std::find(members.begin() + 1, members.end(), item.group) == members.end();
        return value.size() < 3 || value[1] != item.group;
    });
    return items;
}

UXHintInfo KXDensityChart::obtainItemHint(const KXChartItem& item)
{
    if (item.kind != rowKind)
        return KXMemberPanelChart::obtainItemHint(item);
    const UXObjectWatcher self(this);
    const KXChartDataProviderHintData data = _describeItem(item);
    return self.isAlive() ? kxMakeHintInfo(data, _obtainHintLook()) : UXHintInfo(false);
}

KXChartDataProviderHintData KXDensityChart::_describeItem(const KXChartItem& item)
{
    const UXObjectWatcher self(this);
    const std::uint64_t row = _obtainRow(item);
    std::string title = _hasGroups() ? obtainGroupName(item.group) : getMeasureLabel(0);
    std::array<std::string, 4> words{"Median", "quartiles", "about", "mean"};
    for (std::string& word : words)
        word = uxLocalizeString(word);
    if (!self.isAlive() || row >= m_summaries.size())
        return {};
    const auto write = [this](double value) { return m_dataFormat->formatNumber(value); };
    const double total = obtainDensity(row).getTotal();
    if (item.kind != rowKind) {
        const double count = obtainItemValue(item), edge = m_edges.at(_obtainBin(item));
        const std::vector<KXDensityBin>& bins = obtainDensity(row).getBins();
        const auto bin = std::ranges::find(bins, edge, &KXDensityBin::from);
        const std::string range = bin == bins.end() ? write(edge)
                                                    : write(bin->from) + " \u2013 " + write(bin->to);
        std::vector<double> counts(bins.size());
        std::ranges::transform(bins, counts.begin(), &KXDensityBin::count);
        const std::vector<double> percentages = kxObtainPercentages(counts, percentageDecimals);
        const double percentage = bin == bins.end()
                                      ? 0
                                      : percentages[static_cast<std::size_t>(bin - bins.begin())];
        return {title, range,
                write(count) + " (" + kxFormatPartOfWhole(percentage, count, percentageDecimals) + ")"};
    }
    const Summary& summary = m_summaries[row];
    const std::string about = summary.isEstimated ? words[2] + " " : "";
    std::string told = words[0] + " " + about + write(summary.quantiles[2]) + ", " + words[1] + " " + about +
                       write(summary.quantiles[1]) + " \u2013 " + write(summary.quantiles[3]);
    if (m_showMean)
        told += ", " + words[3] + " " + about + write(summary.mean);
    return {title, told, getMeasureLabel(0) + ": " + write(total)};
}
