#include "kx_axis_chart.h"

#include "kx_axis_chart_data_provider.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_scale.h"
#include "kx_chart_data_format.h"
#include "kx_chart_property.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "ux/ux_label.h"
#include "ux/ux_localize.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr UXColor hiddenSeriesColor(205, 205, 210);
constexpr UXColor noDataColor(120, 120, 120);
constexpr int noDataFontSize = 13;
/** How far from its old index a category is looked for among other data. */
constexpr std::uint64_t greatestCategoryMove = 256;

KXObjectID makeSeriesID(std::uint64_t series)
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(std::string("Series"))).index(series);
}

} // namespace

KXAxisChart::KXAxisChart()
    : KXAxisChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_noDataLabel(new UXLabel)
{
    UXTextProperty property;
    property.font.size = noDataFontSize;
    property.align = UXTextAlign::Center;
    property.option = UXTextOption::EllipsisEnd;
    property.textColor = noDataColor;
    m_noDataLabel->setTextProperty(property);
    getPlot()->addChild(m_noDataLabel);
    getLegend()->enableCellClick();
    // A click is about the mark that was pressed, if it is still under the pointer.
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent& event) {
        if (_obtainTarget(_obtainPlotPoint(event)).mark != m_actionMark)
            m_actionMark.reset();
        return false;
    });
}

KXAxisChart::~KXAxisChart() = default;

UXColor KXAxisChart::obtainSeriesColor(std::uint64_t series) const
{
    if (series < m_seriesColors.size())
        return m_seriesColors[series];
    const std::vector<UXColor> colors = getDefaultColors();
    return colors[series % colors.size()];
}

bool KXAxisChart::isSeriesShown(std::uint64_t series) const
{
    return std::ranges::binary_search(m_shownSeries, series);
}

void KXAxisChart::setSeriesShown(std::uint64_t series, bool shown)
{
    if (series >= getSeriesCount() || shown == isSeriesShown(series))
        return;
    if (shown)
        m_hiddenSeriesIDs.erase(getSeriesID(series));
    else
        m_hiddenSeriesIDs.insert(getSeriesID(series));
    const UXObjectWatcher self(this);
    _shownSeriesChanged();
    if (!self.isAlive())
        return;
    updateLegendColor();
    _layoutAnew();
}

void KXAxisChart::_updateShownSeries()
{
    m_shownSeries.clear();
    for (std::uint64_t series = 0; series < getSeriesCount(); ++series)
        if (!m_hiddenSeriesIDs.contains(getSeriesID(series)))
            m_shownSeries.push_back(series);
}

void KXAxisChart::_shownSeriesChanged()
{
    const UXObjectWatcher self(this);
    _updateShownSeries();
    _updateDataRanges();
    if (self.isAlive())
        _customReloadMarks();
}

std::uint64_t KXAxisChart::obtainShownCategoryCount() const
{
    const KXChartProperty& property = *getChartProperty();
    if (!property.getShowOnlyTopX())
        return getCategoryCount();
    const std::int64_t most = std::max<std::int64_t>(property.getTopXItemsToShow(), 0);
    return std::min(getCategoryCount(), static_cast<std::uint64_t>(most));
}

std::string KXAxisChart::obtainCategoryLabel(std::uint64_t category)
{
    const UXObjectWatcher self(this);
    const std::string text = obtainCategoryText(category);
    const KXAxisChartAxis* axis = self.isAlive() ? _obtainScrolledAxis() : nullptr;
    const bool isNumber = axis && (getCategoryDataType() == KXChartDataType::Integer ||
                                   getCategoryDataType() == KXChartDataType::Float);
    if (!axis || isNumber || !obtainShouldFormatCategoryText(category) || !self.isAlive())
        return text;
    return axis->dataFormat->formatDateTime(text, getCategoryDataType(), getCategoryAggregateType());
}

std::string KXAxisChart::formatPercentage(double value) const { return kxFormatPercentage(value); }

void KXAxisChart::setHighlightedSeries(std::optional<std::uint64_t> series)
{
    if (series == m_highlightedSeries)
        return;
    m_highlightedSeries = series;
    _repaintMarks();
}

void KXAxisChart::setLinkedMarks(const std::vector<KXAxisChartMark>& marks)
{
    if (marks.empty() && m_linkedMarks.empty())
        return;
    m_linkedMarks = marks;
    std::ranges::sort(m_linkedMarks);
    _placeLinkedTab();
    _repaintMarks();
}

bool KXAxisChart::isHighlighting() const
{
    return m_hoveredMark || m_highlightedSeries || !m_linkedMarks.empty();
}

bool KXAxisChart::isMarkHighlighted(const KXAxisChartMark& mark) const
{
    return m_hoveredMark == mark || m_highlightedSeries == mark.series ||
           std::ranges::binary_search(m_linkedMarks, mark);
}

UXColor KXAxisChart::obtainMarkColor(const KXAxisChartMark& mark, const UXColor& color) const
{
    if (m_hoveredMark == mark)
        return m_hoveredObject.obtainDrawnColor(color, KXInteractionEffectTarget::Filled);
    UXColor drawn = color;
    if (isHighlighting() && !isMarkHighlighted(mark))
        drawn.alpha *= std::clamp(getAxisChartProperty()->getDimmedOpacity(), 0.0, 1.0);
    return drawn;
}

KXChartDataPath* KXAxisChart::createMarkPath(const KXAxisChartMark& mark)
{
    const UXObjectWatcher self(this);
    auto* path = new KXChartDataPath;
    path->identifier = "Mark";
    path->dimensionIndexPath = {KXAxisChartDataProvider::categoryDimension, mark.category};
    if (auto* provider = dynamic_cast<KXAxisChartDataProvider*>(beginUseDataProvider()))
        path->valueIndexPath = provider->obtainSeriesValuePath(this, mark.series, mark.category);
    if (self.isAlive())
        endUseDataProvider();
    return path;
}

std::vector<KXAxisChartMark> KXAxisChart::findMarks(const KXChartDataPath& path)
{
    // An item that is called something and belongs to no member is one of a chart without dimensions. A
    // member is one of the categories, and the value that it comes with stands at it.
    const bool namesValue = path.valueIndexPath.size() > 1;
    const KXIndexPath& indexes = namesValue ? path.valueIndexPath : path.dimensionIndexPath;
    const KXIndexPath& member = path.dimensionIndexPath;
    if (indexes.size() < 2 || indexes[1] >= obtainShownCategoryCount())
        return {};
    if (member.empty() ? !path.identifier.empty()
                       : member != KXIndexPath{KXAxisChartDataProvider::categoryDimension, indexes[1]})
        return {};
    const UXObjectWatcher self(this);
    const std::vector<std::uint64_t> shown = m_shownSeries;
    auto* provider = dynamic_cast<KXAxisChartDataProvider*>(beginUseDataProvider());
    std::vector<KXAxisChartMark> marks;
    for (const std::uint64_t series : shown) {
        const bool isNamed =
            !namesValue || (provider && provider->obtainSeriesValuePath(this, series, indexes[1]) == indexes);
        if (!self.isAlive())
            return {};
        if (isNamed)
            marks.push_back({series, indexes[1]});
    }
    if (self.isAlive())
        endUseDataProvider();
    return marks;
}

const UXPropertyTable& KXAxisChart::obtainPropertyTable()
{
    static const UXPropertyTable table(
        &KXChart::obtainPropertyTable(),
        {UXProperty::makeObject<KXAxisChart>("m_axisChartProperty", [](KXAxisChart& chart) {
            return static_cast<UXJsonObject*>(chart.getAxisChartProperty());
        })});
    return table;
}

std::uint64_t KXAxisChart::obtainLegendCellSize() { return getSeriesCount() > 1 ? getSeriesCount() : 0; }

std::string KXAxisChart::obtainLegendLabel(std::uint64_t index) { return getSeriesLabel(index); }

bool KXAxisChart::obtainLegendSymbolColor(std::uint64_t index, UXColor& color)
{
    color = isSeriesShown(index) ? obtainSeriesColor(index) : hiddenSeriesColor;
    return true;
}

std::vector<KXObjectID> KXAxisChart::obtainLegendCellObjectID(std::uint64_t index)
{
    return {makeSeriesID(index)};
}

bool KXAxisChart::obtainLegendCellIsOn(std::uint64_t index) { return isSeriesShown(index); }

void KXAxisChart::legendCellClicked(std::uint64_t index, const UXEvent&)
{
    if (getChartProperty()->getEnableInteraction())
        setSeriesShown(index, !isSeriesShown(index));
}

void KXAxisChart::legendCellHovered(std::uint64_t index, bool hovered)
{
    if (hovered && getChartProperty()->getEnableInteraction() && isSeriesShown(index))
        setHighlightedSeries(index);
    else if (m_highlightedSeries == index)
        setHighlightedSeries(std::nullopt);
}

void KXAxisChart::resetData()
{
    KXAxisChartDataUser::resetData();
    m_shownSeries.clear();
    m_linkedMarks.clear();
    m_linkedTab = {};
    m_highlightedSeries.reset();
}

void KXAxisChart::customReloadData()
{
    const UXObjectWatcher self(this);
    _forgetHover();
    if (self.isAlive())
        _shownSeriesChanged();
    if (self.isAlive())
        _restoreFirstCategory();
}

/** The category that stood first stands first again, also where others came before it or went. */
void KXAxisChart::_restoreFirstCategory()
{
    const double first = _getFirstCategory();
    if (m_firstCategoryText.empty() || first < 1 || getCategoryCount() == 0)
        return;
    const UXObjectWatcher self(this);
    const std::string wanted = m_firstCategoryText;
    const auto before = static_cast<std::uint64_t>(first);
    for (std::uint64_t move = 0; move <= greatestCategoryMove; ++move) {
        for (const bool forwards : {true, false}) {
            const std::uint64_t category = forwards ? before + move : before - move;
            if (!forwards && (move > before || move == 0))
                continue;
            const bool isFound = category < getCategoryCount() && obtainCategoryText(category) == wanted;
            if (!self.isAlive())
                return;
            if (isFound) {
                _setFirstCategory(first + static_cast<double>(category) - static_cast<double>(before));
                return;
            }
        }
    }
}

void KXAxisChart::customReloadColors()
{
    const UXObjectWatcher self(this);
    const std::vector<UXColor>& own = getAxisChartProperty()->getSeriesColors();
    const std::vector<UXColor> colors = own.empty() ? getDefaultColors() : own;
    std::vector<UXColor> pulled;
    KXChartDataProvider* provider = beginUseDataProvider();
    for (std::uint64_t series = 0; series < getSeriesCount(); ++series) {
        UXColor& color = pulled.emplace_back(colors[series % colors.size()]);
        if (provider)
            provider->obtainValueDataColorForGroup(this, series, color);
        if (!self.isAlive())
            return;
    }
    endUseDataProvider();
    m_seriesColors = std::move(pulled);
    updateLegendColor();
}

void KXAxisChart::reloadChartColors()
{
    KXAxisChartBase::reloadChartColors();
    _repaintMarks();
}

void KXAxisChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXAxisChartBase::afterReloadData();
    if (self.isAlive())
        registerLeftClickAction(this, KXTriggerCondition());
}

KXChartDataPath* KXAxisChart::createDataPath()
{
    return m_actionMark ? createMarkPath(*m_actionMark) : nullptr;
}

void KXAxisChart::_customReloadMarks() {}
std::optional<KXAxisChartMark> KXAxisChart::_hitMark(UXPoint) const { return std::nullopt; }

std::vector<KXObjectID> KXAxisChart::_obtainMarkObjectIDs(const KXAxisChartMark& mark) const
{
    const KXObjectIDPath category = kxCreateObjectIDPath(std::string("Category"));
    return {makeSeriesID(mark.series).path(category).index(mark.category)};
}

bool KXAxisChart::_hasData() { return preparedAndReloadedData() && obtainShownCategoryCount() > 0; }

void KXAxisChart::_axisChartPropertyUpdated(const std::string& key)
{
    const UXObjectWatcher self(this);
    if (key == "m_seriesColors")
        reloadColors();
    if (self.isAlive())
        KXAxisChartBase::_axisChartPropertyUpdated(key);
}

void KXAxisChart::_visibleCategoriesChanged()
{
    const UXObjectWatcher self(this);
    KXAxisChartBase::_visibleCategoriesChanged();
    _forgetHover();
    if (!self.isAlive())
        return;
    _placeLinkedTab();
    const double first = _getFirstCategory();
    m_firstCategoryText.clear();
    if (first < 1 || !_hasData())
        return;
    const std::string text = obtainCategoryText(static_cast<std::uint64_t>(first));
    if (self.isAlive())
        m_firstCategoryText = text;
}

void KXAxisChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    KXAxisChartBase::_customLayout(plotArea);
    if (self.isAlive())
        _placeNoDataLabel();
}

void KXAxisChart::_placeNoDataLabel()
{
    const UXRect area = getPlot()->getBoundingRect();
    m_noDataLabel->setText(uxLocalizeString("No data"));
    m_noDataLabel->setRect(area);
    m_noDataLabel->autoResize();
    m_noDataLabel->setVisible(!_hasData() && m_noDataLabel->getRect().height <= area.height);
    m_noDataLabel->setRect(area);
}
