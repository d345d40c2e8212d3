#include "kx_line_chart.h"

#include "kx_axis_property.h"
#include "kx_axis_scale.h"
#include "kx_chart_property.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "kx_line_chart_property.h"
#include "kx_line_gradient_legend.h"
#include "ux/ux_object_watcher.h"

namespace {

KXObjectID makeSeriesID(std::uint64_t series)
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(KXLineChartObjectIDPath::Series)).index(series);
}

} // namespace

KXLineChart::KXLineChart() : KXLineChart(KXAxisChartType::Line) {}

KXLineChart::KXLineChart(KXAxisChartType type)
    : m_dataView(_addView(std::make_unique<KXLineChartDataView>(type))),
      m_gradientLegend(new KXLineGradientLegend)
{
    m_gradientLegend->setVisible(false);
    addChild(m_gradientLegend);
    getLineChartProperty()->registerUpdatedEvents([this](const std::string& key) {
        updateLegendColor(); // the legend draws lines and points as the plot does
        _applyKeyEffect(KXLineChartProperty::obtainPropertyTable().obtainEffect(key));
    });
}

KXLineChart::~KXLineChart() { getLineChartProperty()->unregisterAllUpdatedEvents(); }

KXLineChartProperty* KXLineChart::getLineChartProperty() const { return m_dataView.getLineChartProperty(); }

bool KXLineChart::calculateSuitableMinMaxIfNumberData(KXAxisProperty* property)
{
    return property != getXAxisProperty();
}

void KXLineChart::registerChartPropertyUpdatedEvents()
{
    KXXYAxisChart::registerChartPropertyUpdatedEvents();
    // In place of the base's own: both legends have that colour.
    getChartProperty()->registerUpdatedEvents({"m_legendLabelColor"}, [this](const std::string&) {
        getLegend()->setLabelColor(getChartProperty()->getLegendLabelColor());
        _updateGradientLegend();
    });
}

/** Where colours stand for values they name no series. */
std::uint64_t KXLineChart::obtainLegendCellSize()
{
    return getLineChartProperty()->getColorByValue() ? 0 : KXXYAxisChart::obtainLegendCellSize();
}

/** The legend shows the range of what is seen now, so that the axes come first. */
void KXLineChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    _customUpdateAxes();
    if (!self.isAlive())
        return;
    const bool isWanted = getLineChartProperty()->getColorByValue() && preparedAndReloadedData();
    m_gradientLegend->setVisible(isWanted && getChartProperty()->getShowLegend());
    _updateGradientLegend();
    KXXYAxisChart::_customLayout(m_gradientLegend->takeRoom(plotArea, *getChartProperty(), isWanted));
}

void KXLineChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_applyKeyEffect(effect);
    if (self.isAlive())
        _updateGradientLegend();
}

void KXLineChart::_updateGradientLegend()
{
    const std::optional<KXGradientScale> scale = m_dataView.obtainColorScale();
    if (!scale || !m_gradientLegend->getVisible())
        return;
    m_gradientLegend->setScale(*scale, getChartProperty()->getLegendLabelColor(), [this](double value) {
        return kxFormatAxisTick(*getYAxisProperty(), *getYDataFormat(), value);
    });
}

std::vector<KXObjectID> KXLineChart::obtainLegendCellObjectID(std::uint64_t index)
{
    if (_isAssistantLineCell(index))
        return KXXYAxisChart::obtainLegendCellObjectID(index);
    return {makeSeriesID(index)};
}

std::vector<KXObjectID> KXLineChart::_obtainMarkObjectIDs(const KXAxisChartMark& mark) const
{
    const KXObjectIDPath category = kxCreateObjectIDPath(KXLineChartObjectIDPath::Category);
    return {makeSeriesID(mark.series).path(category).index(mark.category)};
}

double KXLineChart::_obtainMinCategorySpacing() const { return -1; }

void KXLineChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_customResetProperties(type, source, groups);
    const auto* other = self.isAlive() ? dynamic_cast<KXLineChart*>(source) : nullptr;
    if (other)
        getLineChartProperty()->customResetProperties(type, other->getLineChartProperty(), groups);
}

const UXPropertyTable& KXLineChart::obtainPropertyTable()
{
    using Self = KXLineChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_lineChartProperty", uxObtainNestedObjectType, getLineChartProperty(), "the lines")};
    static const UXPropertyTable table("KXLineChart", &KXXYAxisChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

std::string KXLineChart::customSerializeTypeID() { return "KXLineChart"; }
