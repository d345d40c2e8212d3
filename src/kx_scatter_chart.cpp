#include "kx_scatter_chart.h"

#include "kx_axis_chart_axis.h"
#include "kx_axis_chart_axis_cache_data.h"
#include "kx_axis_property.h"
#include "kx_chart_data_format.h"
#include "kx_chart_data_path.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_data_provider_watcher.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "kx_line_gradient_legend.h"
#include "kx_scatter_chart_data_provider.h"
#include "kx_scatter_chart_property.h"
#include "kx_size_legend.h"
#include "ux/ux_event.h"
#include "ux/ux_hint_info.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_symbol_style.h"

#include <cmath>
#include <functional>
#include <initializer_list>
#include <utility>

namespace {

constexpr KXScatterChartRole roles[] = {KXScatterChartRole::X, KXScatterChartRole::Y,
                                        KXScatterChartRole::Size, KXScatterChartRole::Color};

} // namespace

KXScatterChart::KXScatterChart()
    : m_dataView(_addView(std::make_unique<KXScatterChartDataView>())),
      m_sizeDataFormat(std::make_unique<KXChartDataFormat>()),
      m_colorDataFormat(std::make_unique<KXChartDataFormat>()), m_gradientLegend(new KXLineGradientLegend),
      m_sizeLegend(new KXSizeLegend)
{
    getXAxisProperty()->setShowGridLine(true);
    for (UXObject* legend : std::initializer_list<UXObject*>{m_gradientLegend, m_sizeLegend}) {
        legend->setVisible(false);
        addChild(legend);
    }
    getScatterChartProperty()->registerUpdatedEvents([this](const std::string& key) {
        updateLegendColor(); // the legend draws points as the plot does
        _applyKeyEffect(KXScatterChartProperty::obtainPropertyTable().obtainEffect(key));
    });
    for (KXChartDataFormat* format : {getSizeDataFormat(), getColorDataFormat()})
        format->setUpdatedEvent([this] { _layoutAnew(); });
}

KXScatterChart::~KXScatterChart() { getScatterChartProperty()->unregisterAllUpdatedEvents(); }

KXScatterChartProperty* KXScatterChart::getScatterChartProperty() const
{
    return m_dataView.getScatterChartProperty();
}

/** Dates have the ends of their data, as their ticks stand anywhere. */
bool KXScatterChart::calculateSuitableMinMaxIfNumberData(KXAxisProperty* property)
{
    return property != getXAxisProperty() || !obtainAxisCacheData(property)->isTemporalDimension;
}

bool KXScatterChart::shouldSelectByBox()
{
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXScatterChartDataProvider>();
    return provider && isInteractionEnabled() && provider->shouldSelectByBox(this);
}

void KXScatterChart::selectInBox(const UXDoubleRect& box, const UXEvent& event)
{
    std::vector<KXChartItem> items;
    for (const KXAxisChartMark& mark : m_dataView.findInside(box))
        items.push_back({0, mark.series, mark.category});
    const UXObjectWatcher self(this);
    std::vector<KXChartDataPath> paths;
    paths.reserve(items.size());
    for (const KXChartItem& item : items) {
        const std::unique_ptr<KXChartDataPath> path(createItemPath(item));
        if (!self.isAlive())
            return;
        paths.push_back(*path);
    }
    {
        const KXChartDataProviderUse use(*this);
        if (auto* provider = use.as<KXScatterChartDataProvider>())
            if (const std::function<void()> action = provider->obtainSelectionAction(this, paths))
                event.postAction(action);
    }
    if (self.isAlive())
        getItems()->choose(items, event);
}

void KXScatterChart::registerChartPropertyUpdatedEvents()
{
    KXXYAxisChart::registerChartPropertyUpdatedEvents();
    // In place of the base's own: all legends have that colour.
    getChartProperty()->registerUpdatedEvents({"m_legendLabelColor"}, [this](const std::string&) {
        getLegend()->setLabelColor(getChartProperty()->getLegendLabelColor());
        _updateLegends();
    });
}

/** Where colours stand for values they name no series. */
std::uint64_t KXScatterChart::obtainLegendCellSize()
{
    return m_dataView.obtainColorScale() ? 0 : KXXYAxisChart::obtainLegendCellSize();
}

std::optional<KXAxisChartDataUser::RoleMeasures> KXScatterChart::_obtainRoleMeasures(
    KXAxisChartDataProvider& provider)
{
    const KXChartDataProviderWatcher watcher(this);
    auto* own = dynamic_cast<KXScatterChartDataProvider*>(&provider);
    const std::uint64_t count = provider.obtainValueCount(this);
    RoleMeasures measures{-1, -1, -1, -1};
    for (const KXScatterChartRole role : roles) {
        if (!watcher.isCurrent())
            return std::nullopt;
        measures[static_cast<std::size_t>(role)] = own ? own->obtainRoleMeasure(this, role)
                                                       : KXScatterChartDataProvider::obtainUsualRoleMeasure(
                                                             role, count);
    }
    return measures;
}

std::string KXScatterChart::_obtainProposedTitle(const KXAxisChartAxis& axis) const
{
    if (axis.axis != getXAxis())
        return getRoleLabel(KXScatterChartRole::Y);
    return hasOwnNumbers() ? getRoleLabel(KXScatterChartRole::X) : KXXYAxisChart::_obtainProposedTitle(axis);
}

/** Beside the points nothing is explained: a place along one axis says nothing of them. */
std::optional<std::uint64_t> KXScatterChart::_obtainCategoryAt(UXPoint) const { return std::nullopt; }

std::vector<KXObjectID> KXScatterChart::_obtainMarkObjectIDs(const KXAxisChartMark& mark) const
{
    return {KXObjectID::instance()
                .path(kxCreateObjectIDPath(std::string("Series")))
                .index(mark.series)
                .path(kxCreateObjectIDPath(std::string("Point")))
                .index(mark.category)};
}

void KXScatterChart::_fillHint(UXHintInfo& info, std::uint64_t category,
                               const std::optional<KXAxisChartMark>& first)
{
    const UXObjectWatcher self(this);
    const std::string title = obtainCategoryLabel(category);
    if (!self.isAlive())
        return;
    info.title = title;
    const auto addRows = [&](const KXAxisChartMark& mark) {
        const double y = m_dataView.obtainValue(mark), size = m_dataView.obtainSize(mark);
        if (std::isnan(y))
            return;
        const auto addRow = [&](const std::string& label, const std::string& text) {
            if (!text.empty())
                info.addRow(UXColor(), UXSymbolStyle::Circle, label, text).showSymbol = false;
        };
        if (getOwnSeriesCount() > 1)
            info.addRow(m_dataView.obtainColor(mark), UXSymbolStyle::Circle, getSeriesLabel(mark.series), "")
                .showSymbol = true;
        if (!getXValues(mark.series).empty())
            addRow(getRoleLabel(KXScatterChartRole::X), m_dataView.obtainXText(mark));
        addRow(getRoleLabel(KXScatterChartRole::Y), obtainValueText(mark.series, y) + _obtainBandText(mark));
        if (!std::isnan(size))
            addRow(getRoleLabel(KXScatterChartRole::Size), m_sizeDataFormat->formatNumber(size));
        const std::vector<double>& colors = getColorValues(mark.series);
        if (mark.category < colors.size() && !std::isnan(colors[mark.category]))
            addRow(getRoleLabel(KXScatterChartRole::Color),
                   m_colorDataFormat->formatNumber(colors[mark.category]));
    };
    if (first)
        addRows(*first);
    else
        for (const std::uint64_t series : getShownSeries())
            addRows({series, category});
    info.enabled = info.enabled && !info.rows.empty();
}

std::optional<KXChartItem> KXScatterChart::obtainItemBeside(const std::optional<KXChartItem>& from,
                                                            KXChartItemStep step) const
{
    using enum KXChartItemStep;
    if (!from || (step != Left && step != Right && step != Up && step != Down))
        return KXXYAxisChart::obtainItemBeside(from, step);
    const std::optional<KXAxisChartMark> found = m_dataView.findBeside({from->group, from->index}, step);
    return found ? std::optional(KXChartItem{from->kind, found->series, found->category}) : std::nullopt;
}

/** The view follows the walk along both axes. */
void KXScatterChart::showItem(const KXChartItem& item)
{
    if (!isContinuous()) {
        KXXYAxisChart::showItem(item);
        return;
    }
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    const KXAxisChartMark mark{item.group, item.index};
    const bool isMoved = showValue(*getXAxis(), m_dataView.obtainX(mark));
    const bool isMovedToo = self.isAlive() && showValue(*getYAxis(), m_dataView.obtainValue(mark));
    if (self.isAlive() && (isMoved || isMovedToo))
        layout();
}

void KXScatterChart::_customLayout(UXRect plotArea)
{
    _updateLegends();
    const bool hasData = preparedAndReloadedData();
    const KXChartProperty& property = *getChartProperty();
    const UXRect rest = m_gradientLegend->takeRoom(plotArea, property,
                                                   hasData && m_dataView.obtainColorScale().has_value());
    KXXYAxisChart::_customLayout(m_sizeLegend->takeRoom(rest, property, hasData));
}

void KXScatterChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXObjectWatcher self(this);
    KXXYAxisChart::_applyKeyEffect(effect);
    if (self.isAlive())
        _updateLegends();
}

void KXScatterChart::_updateLegends()
{
    const UXColor labelColor = getChartProperty()->getLegendLabelColor();
    if (const std::optional<KXGradientScale> scale = m_dataView.obtainColorScale())
        m_gradientLegend->setScale(*scale, labelColor,
                                   [this](double value) { return m_colorDataFormat->formatNumber(value); });
    m_sizeLegend->setTextColor(labelColor);
    m_sizeLegend->setSizes(m_dataView.obtainForm(), labelColor,
                           [this](double value) { return m_sizeDataFormat->formatNumber(value); });
}

void KXScatterChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const UXObjectWatcher self(this), sourceWatcher(source);
    KXXYAxisChart::_customResetProperties(type, source, groups);
    const bool areThere = self.isAlive() && sourceWatcher.isAlive();
    if (const auto* other = areThere ? dynamic_cast<KXScatterChart*>(source) : nullptr)
        getScatterChartProperty()->customResetProperties(type, other->getScatterChartProperty(), groups);
}

const UXPropertyTable& KXScatterChart::obtainPropertyTable()
{
    using Self = KXScatterChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_scatterChartProperty", uxObtainNestedObjectType, getScatterChartProperty(),
                      "the points") KX_OBJECT_ROW("m_sizeDataFormat", uxObtainNestedObjectType,
                                                  m_sizeDataFormat, "how the values of sizes are written")
            KX_OBJECT_ROW("m_colorDataFormat", uxObtainNestedObjectType, m_colorDataFormat,
                          "how the values of colours are written")};
    static const UXPropertyTable table("KXScatterChart", &KXXYAxisChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

std::string KXScatterChart::customSerializeTypeID() { return "KXScatterChart"; }
