#include "kx_bar_chart.h"

#include "kx_axis_chart_data_provider.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_property.h"
#include "kx_bar_chart_property.h"
#include "kx_key_definitions.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace {

constexpr double leastShare = 0.1;
/** Pixels that lie differently by less than this are the same. */
constexpr double pixelNoise = 1e-6;

/** @return the part of a category's room that its bars take */
double obtainShareOf(KXChartDataDensity density)
{
    switch (density) {
    case KXChartDataDensity::Loose:
        return 0.6;
    case KXChartDataDensity::Medium:
        break;
    case KXChartDataDensity::Compact:
        return 0.8;
    }
    return 0.7;
}

/** @return the least width of a bar beside others, in logical units, before the chart scrolls instead */
double obtainLeastWidth(KXChartDataDensity density)
{
    switch (density) {
    case KXChartDataDensity::Loose:
        return 12;
    case KXChartDataDensity::Medium:
        break;
    case KXChartDataDensity::Compact:
        return 3;
    }
    return 6;
}

} // namespace

KXBarChart::KXBarChart() : m_barChartProperty(std::make_unique<KXBarChartProperty>())
{
    m_barChartProperty->registerUpdatedEvents([this](const std::string&) { _layoutAnew(); });
}

KXBarChart::~KXBarChart() { m_barChartProperty->unregisterAllUpdatedEvents(); }

KXBarChartProperty* KXBarChart::getBarChartProperty() const { return m_barChartProperty.get(); }

void KXBarChart::updateBarForm(KXAxisChartStacking form)
{
    const UXObjectWatcher self(this);
    getYAxisProperty()->updateIsStacked(form != KXAxisChartStacking::Plain);
    if (self.isAlive())
        getYAxisProperty()->updateIs100PercentStacked(form == KXAxisChartStacking::Percentage);
}

KXAxisChartStacking KXBarChart::obtainBarForm() const
{
    const KXAxisProperty& axis = *getYAxisProperty();
    if (!axis.getIsStacked())
        return KXAxisChartStacking::Plain;
    return axis.getIs100PercentStacked() ? KXAxisChartStacking::Percentage : KXAxisChartStacking::Stacked;
}

UXColor KXBarChart::obtainBarColor(const KXAxisChartMark& mark) const
{
    if (!m_barChartProperty->getColorByItem())
        return obtainSeriesColor(mark.series);
    const std::vector<UXColor> own = m_barChartProperty->getItemColors();
    const std::vector<UXColor> colors = own.empty() ? getDefaultColors() : own;
    return colors[mark.category % colors.size()];
}

bool KXBarChart::shouldIncludeZero(const KXAxisProperty*) const { return true; }

bool KXBarChart::calculateSuitableMinMaxIfNumberData(KXAxisProperty* property)
{
    return property != getXAxisProperty();
}

double KXBarChart::_obtainShare() const
{
    const double own = m_barChartProperty->getBarWidth();
    return own > 0 ? std::clamp(own, leastShare, 1.0)
                   : obtainShareOf(getAxisChartProperty()->getDataDensity());
}

double KXBarChart::_obtainMinCategorySpacing() const
{
    const double least = KXXYAxisChart::_obtainMinCategorySpacing();
    if (least < 0 || obtainBarForm() != KXAxisChartStacking::Plain)
        return least;
    const double width = obtainLeastWidth(getAxisChartProperty()->getDataDensity());
    return std::max(least, std::ceil(static_cast<double>(getShownSeries().size()) * width / _obtainShare()));
}

KXAxisChartStacks KXBarChart::_makeSource()
{
    KXAxisChartStacks source;
    for (const std::uint64_t series : getShownSeries())
        source.series.push_back({series, getSeriesValues(series)});
    source.form = obtainBarForm();
    source.categoryNumbers = _getCategoryNumbers();
    std::tie(source.first, source.end) = obtainVisibleCategories();
    return source;
}

/** @return whether the values of source are still there: a host that is asked may replace them */
bool KXBarChart::_isLent(const KXAxisChartStacks& source) const
{
    const std::vector<double>& numbers = _getCategoryNumbers();
    if (source.categoryNumbers.data() != numbers.data() || source.categoryNumbers.size() != numbers.size())
        return false;
    return std::ranges::all_of(source.series, [this](const KXAxisChartStacks::Series& series) {
        const std::vector<double>& values = getSeriesValues(series.index);
        return values.data() == series.values.data() && values.size() == series.values.size();
    });
}

KXBarPlane KXBarChart::_makePlane() const
{
    KXBarPlane plane;
    plane.isVertical = isVertical();
    plane.area = getMarksArea();
    plane.categories = obtainCategoryMap();
    plane.values = obtainValueMap(0);
    plane.spacing = obtainCategorySpacing();
    plane.share = _obtainShare();
    plane.pixelScale = m_pixelScale;
    plane.pixelOffset = m_pixelOffset;
    return plane;
}

void KXBarChart::_customReloadMarks()
{
    m_facts.clear();
    m_dataView.clear();
    m_barColors.clear();
    m_hostColors.clear();
    m_labelWishes = {};
    m_labels.clear();
}

void KXBarChart::_layoutMarks()
{
    const UXObjectWatcher self(this);
    m_hostColors.clear();
    m_labelWishes = {};
    m_labels.clear();
    if (m_pixelScale < 1) {
        // A coarse device may merge bars that the next one tells apart, so the host is asked about all.
        m_pixelScale = 1;
        m_pixelOffset = 0;
    }
    m_dataView.layout(_makeSource(), _makePlane());
    _colorBars();
    if (m_dataView.isDense())
        return;
    _takeHostColors();
    // The host may have begun to replace the data; what it reloads is laid out anew.
    if (self.isAlive() && preparedAndReloadedData())
        _layoutLabels();
}

void KXBarChart::_colorBars()
{
    m_barColors.clear();
    m_barColors.reserve(m_dataView.getBars().size());
    for (const KXBar& bar : m_dataView.getBars())
        m_barColors.push_back(obtainBarColor(bar.mark));
}

void KXBarChart::_takeHostColors()
{
    const UXObjectWatcher self(this);
    auto* provider = dynamic_cast<KXAxisChartDataProvider*>(beginUseDataProvider());
    for (std::size_t i = 0; provider && i < m_dataView.getBars().size(); ++i) {
        const KXAxisChartMark mark = m_dataView.getBars()[i].mark;
        UXColor color = m_barColors[i];
        const KXIndexPath path = provider->obtainSeriesValuePath(this, mark.series, mark.category);
        if (!self.isAlive())
            return;
        const bool isSet = provider->obtainValueDataColor(this, path, color);
        if (!self.isAlive())
            return;
        if (isSet && i < m_barColors.size())
            m_barColors[i] = color;
    }
    endUseDataProvider();
    m_hostColors = m_barColors;
}

/** Bars are as wide as whole pixels of the device, which only a painter knows.
 *  @return whether they lie differently than those of the last one */
bool KXBarChart::_takePixels(const UXPainter& painter)
{
    const UXTransform toDevice = painter.getDeviceTransform();
    const double scale = isVertical() ? toDevice.xx : toDevice.yy;
    const double offset = isVertical() ? toDevice.dx : toDevice.dy;
    if (!toDevice.isUpright() || !(scale > 0) || !std::isfinite(scale) || !std::isfinite(offset))
        return false;
    const double moved = offset - m_pixelOffset;
    if (std::abs(scale - m_pixelScale) < pixelNoise && std::abs(moved - std::round(moved)) < pixelNoise)
        return false;
    m_pixelScale = scale;
    m_pixelOffset = offset - std::floor(offset);
    return true;
}

void KXBarChart::_paintMarks(UXPainter& painter)
{
    if (_takePixels(painter)) {
        m_dataView.layout(_makeSource(), _makePlane());
        // Side by side these are the bars that the host was asked about.
        const bool isKnown = !m_dataView.isDense() && m_dataView.getBars().size() == m_hostColors.size();
        if (isKnown)
            m_barColors = m_hostColors;
        else
            _colorBars();
        m_labels.clear();
        if (isKnown)
            _placeLabels();
    }
    m_dataView.paint(painter, [this](std::size_t bar) {
        return obtainMarkColor(m_dataView.getBars()[bar].mark, m_barColors[bar]);
    });
}

UXRect KXBarChart::_obtainMarkArea(UXPoint point) const
{
    const KXBar* bar = m_dataView.hitBar(point);
    if (!bar)
        return {};
    const int left = uxSaturateToInt(std::floor(bar->rect.x)), top = uxSaturateToInt(std::floor(bar->rect.y));
    return {left, top, uxSaturateToInt(std::ceil(uxMaxDoubleX(bar->rect) - left)),
            uxSaturateToInt(std::ceil(uxMaxDoubleY(bar->rect) - top))};
}

std::optional<KXAxisChartMark> KXBarChart::_hitMark(UXPoint point) const
{
    const KXBar* bar = m_dataView.hitBar(point);
    return bar ? std::optional(bar->mark) : std::nullopt;
}

std::optional<std::uint64_t> KXBarChart::_obtainCategoryAt(UXPoint point) const
{
    const KXBarSlot* slot = m_dataView.isDense() ? m_dataView.findSlot(point) : nullptr;
    if (!slot)
        return KXXYAxisChart::_obtainCategoryAt(point);
    const KXBar* bar = m_dataView.hitBar(point);
    return bar ? bar->mark.category : slot->category;
}

/** The end of the bar, wherever its stack has it. */
UXPoint KXBarChart::_obtainHintPoint(const KXAxisChartMark& mark)
{
    const auto found = std::ranges::find(m_dataView.getBars(), mark, &KXBar::mark);
    if (found == m_dataView.getBars().end())
        return KXXYAxisChart::_obtainHintPoint(mark);
    const UXDoubleRect& rect = found->rect;
    const UXDoublePoint end = isVertical() ? UXDoublePoint(rect.x + rect.width / 2, rect.y)
                                           : UXDoublePoint(rect.x + rect.width, rect.y + rect.height / 2);
    return {uxSaturateToInt(end.x), uxSaturateToInt(end.y)};
}

void KXBarChart::_fillHint(UXHintInfo& info, std::uint64_t category,
                           const std::optional<KXAxisChartMark>& hovered)
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_fillHint(info, category, hovered);
    if (!self.isAlive() || info.rows.empty())
        return;
    std::vector<std::uint64_t> order;
    if (hovered)
        order.push_back(hovered->series);
    for (const std::uint64_t series : getShownSeries())
        if (!hovered || series != hovered->series)
            order.push_back(series);
    std::erase_if(order, [&](std::uint64_t series) { return std::isnan(getValue(series, category)); });

    const KXAxisChartStacks source = _makeSource();
    for (std::size_t i = 0; i < std::min(order.size(), info.rows.size()); ++i) {
        const KXAxisChartMark mark{order[i], category};
        info.rows[i].color = obtainBarColor(mark);
        const auto found = std::ranges::find(source.series, mark.series, &KXAxisChartStacks::Series::index);
        if (_tellsPercentages() && found != source.series.end()) {
            const auto position = static_cast<std::size_t>(found - source.series.begin());
            info.rows[i].value += " (" + formatPercentage(_obtainPercentage(source, mark, position)) + ")";
        }
    }
    if (source.form != KXAxisChartStacking::Stacked || order.size() < 2)
        return;
    UXHintRowInfo& total = info.addFooterRow(UXColor(), UXSymbolStyle::Rectangle, uxLocalizeString("Total"),
                                             obtainValueText(order.front(), source.obtainTotal(category)));
    total.showSymbol = false;
}

void KXBarChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_customResetProperties(type, source, groups);
    const auto* other = self.isAlive() ? dynamic_cast<KXBarChart*>(source) : nullptr;
    if (other)
        m_barChartProperty->customResetProperties(type, other->getBarChartProperty(), groups);
}

const UXPropertyTable& KXBarChart::obtainPropertyTable()
{
    static const UXPropertyTable table(
        &KXXYAxisChart::obtainPropertyTable(),
        {UXProperty::makeObject<KXBarChart>("m_barChartProperty", [](KXBarChart& chart) {
            return static_cast<UXJsonObject*>(chart.getBarChartProperty());
        })});
    return table;
}

void KXBarChart::customSerialize()
{
    KXXYAxisChart::customSerialize();
    serializeObject("m_barChartProperty", m_barChartProperty.get());
}

std::string KXBarChart::customSerializeTypeID() { return "KXBarChart"; }

bool KXBarChart::customDeserialize()
{
    const UXObjectWatcher self(this);
    const bool complete = KXXYAxisChart::customDeserialize();
    return self.isAlive() && deserializeExistingObject("m_barChartProperty", m_barChartProperty.get()) &&
           complete;
}
