#include "kx_line_bar_chart.h"

#include "kx_axis_chart_data_provider.h"
#include "kx_axis_property.h"
#include "kx_axis_scale.h"
#include "kx_bar_chart_data_view.h"
#include "kx_bar_chart_property.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_property.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "kx_line_chart_data_view.h"
#include "kx_line_chart_property.h"
#include "kx_line_gradient_legend.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** A measure so many times larger or smaller than the first one has an axis of its own. */
constexpr double greatestRatio = 10;

} // namespace

KXLineBarChart::KXLineBarChart()
    : m_lineProperty(std::make_shared<KXLineChartProperty>()),
      m_areas(_addLines(KXAxisChartType::Area, false)),
      m_secondaryAreas(_addLines(KXAxisChartType::Area, true)),
      m_bars(_addView(std::make_unique<KXBarChartDataView>())),
      m_lines(_addLines(KXAxisChartType::Line, false)),
      m_secondaryLines(_addLines(KXAxisChartType::Line, true)),
      m_points(_addLines(KXAxisChartType::Scatter, false)), m_gradientLegends{new KXLineGradientLegend,
                                                                              new KXLineGradientLegend}
{
    for (KXLineGradientLegend* legend : m_gradientLegends) {
        legend->setVisible(false);
        addChild(legend);
    }
    getBarChartProperty()->registerUpdatedEvents([this](const std::string& key) {
        _applyKeyEffect(KXBarChartProperty::obtainPropertyTable().obtainEffect(key));
    });
    m_lineProperty->registerUpdatedEvents([this](const std::string& key) {
        updateLegendColor(); // the legend draws lines and points as the plot does
        _applyKeyEffect(KXLineChartProperty::obtainPropertyTable().obtainEffect(key));
    });
}

KXLineBarChart::~KXLineBarChart()
{
    getBarChartProperty()->unregisterAllUpdatedEvents();
    m_lineProperty->unregisterAllUpdatedEvents();
}

KXLineChartDataView& KXLineBarChart::_addLines(KXAxisChartType type, bool isOnSecondaryAxis)
{
    const bool canStack = type == KXAxisChartType::Area;
    auto view = std::make_unique<KXLineChartDataView>(type, canStack, m_lineProperty);
    view->updateIsOnSecondaryAxis(isOnSecondaryAxis);
    view->setDrawsWhiskers(true);
    return _addView(std::move(view));
}

KXBarChartProperty* KXLineBarChart::getBarChartProperty() const { return m_bars.getBarChartProperty(); }
KXLineChartProperty* KXLineBarChart::getLineChartProperty() const { return m_lineProperty.get(); }

KXLineGradientLegend* KXLineBarChart::getGradientLegend(bool isSecondary) const
{
    return m_gradientLegends[isSecondary ? 1 : 0];
}

KXAxisChartType KXLineBarChart::obtainSeriesType(std::uint64_t series) const
{
    const std::uint64_t measure = series < m_measures.size() ? m_measures[series] : series;
    const std::vector<KXAxisChartType> types = m_lineProperty->getSeriesTypes();
    const KXAxisChartType own = measure < types.size() ? types[measure] : KXAxisChartType::Unknown;
    return own == KXAxisChartType::Unknown ? _guessType(measure) : own;
}

KXAxisChartType KXLineBarChart::_guessType(std::uint64_t measure) const
{
    if (measure == 0)
        return KXAxisChartType::Bar;
    const KXAxisProperty& axis = *getYAxisProperty();
    const double first = _obtainMagnitude(0), own = _obtainMagnitude(measure);
    const bool isFarOff = own > greatestRatio * first || own < first / greatestRatio;
    return isFarOff || (axis.getIsStacked() && axis.getIs100PercentStacked()) ? KXAxisChartType::SecondaryLine
                                                                              : KXAxisChartType::Line;
}

double KXLineBarChart::_obtainMagnitude(std::uint64_t measure) const
{
    double greatest = 0;
    for (std::uint64_t series = 0; series < m_measures.size(); ++series)
        if (m_measures[series] == measure) {
            const KXValueExtremes range = kxFindValueExtremes(getSeriesValues(series));
            if (!range.isEmpty())
                greatest = std::max({greatest, std::abs(range.min), std::abs(range.max)});
        }
    return greatest;
}

KXAxisChartDataView& KXLineBarChart::_obtainView(KXAxisChartType type) const
{
    switch (type) {
    case KXAxisChartType::Unknown:
    case KXAxisChartType::Bar:
        break;
    case KXAxisChartType::Line:
        return m_lines;
    case KXAxisChartType::SecondaryLine:
        return m_secondaryLines;
    case KXAxisChartType::Area:
        return m_areas;
    case KXAxisChartType::SecondaryArea:
        return m_secondaryAreas;
    case KXAxisChartType::Scatter:
        return m_points;
    }
    return m_bars;
}

KXAxisChartDataView* KXLineBarChart::obtainViewOfSeries(std::uint64_t series) const
{
    return series < m_seriesViews.size() ? m_seriesViews[series] : &m_bars;
}

bool KXLineBarChart::calculateSuitableMinMaxIfNumberData(KXAxisProperty* property)
{
    return property != getXAxisProperty();
}

void KXLineBarChart::_customReloadMarks()
{
    if (!_loadMeasures())
        return;
    m_seriesViews.clear();
    for (std::uint64_t series = 0; series < m_measures.size(); ++series)
        m_seriesViews.push_back(&_obtainView(obtainSeriesType(series)));
    KXXYAxisChart::_customReloadMarks();
}

/** @return false where the host destroyed the chart */
bool KXLineBarChart::_loadMeasures()
{
    std::vector<std::uint64_t> measures;
    const KXChartDataProviderUse use(*this);
    for (std::uint64_t series = 0; series < getSeriesCount(); ++series) {
        auto* provider = use.as<KXAxisChartDataProvider>();
        const KXIndexPath path = provider ? provider->obtainSeriesValuePath(this, series, 0) : KXIndexPath();
        if (!use.isAlive())
            return false;
        measures.push_back(path.empty() ? series : path.front());
    }
    m_measures = std::move(measures);
    return true;
}

/** @return which colours stand for which values on an axis, none where no lines are told by it. */
std::optional<KXGradientScale> KXLineBarChart::_obtainColorScale(bool isSecondary) const
{
    for (const KXLineChartDataView* view :
         {&m_areas, &m_secondaryAreas, &m_lines, &m_secondaryLines, &m_points})
        if (view->getIsOnSecondaryAxis() == isSecondary && !view->getShownSeries().empty())
            return view->obtainColorScale();
    return std::nullopt;
}

void KXLineBarChart::_updateGradientLegends()
{
    for (const bool isSecondary : {false, true}) {
        const std::optional<KXGradientScale> scale = _obtainColorScale(isSecondary);
        const KXAxisProperty& axis = isSecondary ? *getSecondaryYAxisProperty() : *getYAxisProperty();
        const KXChartDataFormat& format = isSecondary ? *getSecondaryYDataFormat() : *getYDataFormat();
        if (scale)
            getGradientLegend(isSecondary)
                ->setScale(*scale, getChartProperty()->getLegendLabelColor(),
                           [&](double value) { return kxFormatAxisTick(axis, format, value); });
    }
}

void KXLineBarChart::registerChartPropertyUpdatedEvents()
{
    KXXYAxisChart::registerChartPropertyUpdatedEvents();
    // In place of the base's own: all legends have that colour.
    getChartProperty()->registerUpdatedEvents({"m_legendLabelColor"}, [this](const std::string&) {
        getLegend()->setLabelColor(getChartProperty()->getLegendLabelColor());
        _updateGradientLegends();
    });
}

/** The legends show the ranges of what is seen now, so that the axes come first. One is enough where lines on
 * both axes have the colours of the same values, as of another measure.
 */
void KXLineBarChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    _customUpdateAxes();
    if (!self.isAlive())
        return;
    _updateGradientLegends();
    const std::optional<KXGradientScale> first = _obtainColorScale(false), second = _obtainColorScale(true);
    const bool hasData = preparedAndReloadedData();
    const KXChartProperty& property = *getChartProperty();
    const UXRect rest = getGradientLegend(false)->takeRoom(plotArea, property, hasData && first);
    KXXYAxisChart::_customLayout(
        getGradientLegend(true)->takeRoom(rest, property, hasData && second && second != first));
}

void KXLineBarChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_applyKeyEffect(effect);
    if (self.isAlive())
        _updateGradientLegends();
}

void KXLineBarChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this), sourceWatcher(source);
    KXXYAxisChart::_customResetProperties(type, source, groups);
    const auto* other = self.isAlive() ? dynamic_cast<KXLineBarChart*>(source) : nullptr;
    if (other)
        getBarChartProperty()->customResetProperties(type, other->getBarChartProperty(), groups);
    if (other && self.isAlive() && sourceWatcher.isAlive())
        m_lineProperty->customResetProperties(type, other->getLineChartProperty(), groups);
}

const UXPropertyTable& KXLineBarChart::obtainPropertyTable()
{
    using Self = KXLineBarChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_barChartProperty", uxObtainNestedObjectType, getBarChartProperty(), "the bars")
            KX_OBJECT_ROW("m_lineChartProperty", uxObtainNestedObjectType, getLineChartProperty(),
                          "the areas, lines and points")};
    static const UXPropertyTable table("KXLineBarChart", &KXXYAxisChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

std::string KXLineBarChart::customSerializeTypeID() { return "KXLineBarChart"; }
