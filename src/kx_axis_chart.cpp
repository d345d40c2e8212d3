#include "kx_axis_chart.h"

#include "kx_axis_chart_data_provider.h"
#include "kx_axis_chart_data_view.h"
#include "kx_axis_chart_property.h"
#include "kx_axis_scale.h"
#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_chart_property.h"
#include "kx_key_definitions.h"
#include "kx_legend.h"
#include "kx_no_data_label.h"
#include "ux/ux_accessible_change.h"
#include "ux/ux_layout_rounds.h"
#include "ux/ux_notification_scope.h"
#include "ux/ux_virtual_scroll_view.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

/** How far from its old index a category is looked for among other data. */
constexpr std::uint64_t greatestCategoryMove = 256;

KXObjectID makeSeriesID(std::uint64_t series)
{
    return KXObjectID::instance().path(kxCreateObjectIDPath(std::string("Series"))).index(series);
}

} // namespace

KXAxisChart::KXAxisChart()
    : KXAxisChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_noDataLabel(new KXNoDataLabel)
{
    getPlot()->addChild(m_noDataLabel);
    getLegend()->enableCellClick();
    m_groups.setUsualColors(getDefaultColors());
    _makeItems(*this, *this, *this, *this);
}

KXAxisChart::~KXAxisChart() { _leaveView(); }

UXColor KXAxisChart::obtainSeriesColor(std::uint64_t series) const { return m_groups.obtainColor(series); }

std::optional<UXColor> KXAxisChart::obtainHostColor(const KXAxisChartMark& mark) const
{
    return m_hostLooks.findMarkColor(mark);
}

void KXAxisChart::customizeMarkLabel(const KXAxisChartMark& mark, std::string& text, UXTextProperty& property)
{
    const KXAxisChartHostLooks::Label usual{text, property};
    if (const KXAxisChartHostLooks::Label* known = m_hostLooks.findLabel(mark, usual)) {
        text = known->text;
        property = known->property;
        return;
    }
    m_hostLooks.wantLabel(mark, usual);
    _askForLooksLater();
}

bool KXAxisChart::isSeriesShown(std::uint64_t series) const { return m_groups.isShown(series); }

void KXAxisChart::setSeriesShown(std::uint64_t series, bool shown)
{
    const UXNotificationScope scope;
    if (!m_groups.setShown(series, getSeriesID(series), shown))
        return;
    const UXObjectWatcher self(this);
    _shownSeriesChanged();
    if (!self.isAlive())
        return;
    updateLegendColor();
    _layoutAnew();
}

void KXAxisChart::_shownSeriesChanged()
{
    const UXObjectWatcher self(this);
    _customReloadMarks();
    if (self.isAlive())
        _updateDataRanges();
    if (self.isAlive())
        uxTellAccessibleChange(*this, UXAccessibleChange::Children);
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
    if (self.isAlive() && category < getCategoryCount() && !hasCategoryText(category))
        return KXDataRequests::placeholder;
    const KXAxisChartAxis* axis = self.isAlive() ? _obtainScrolledAxis() : nullptr;
    const bool isNumber = axis && (getCategoryDataType() == KXChartDataType::Integer ||
                                   getCategoryDataType() == KXChartDataType::Float);
    if (!axis || isNumber || !obtainShouldFormatCategoryText(category) || !self.isAlive())
        return text;
    return axis->dataFormat->formatDateTime(text, getCategoryDataType(), getCategoryAggregateType());
}

std::string KXAxisChart::formatPercentage(double value) const { return kxFormatPercentage(value); }

std::uint64_t KXAxisChart::obtainLegendCellSize() { return getOwnSeriesCount() > 1 ? getSeriesCount() : 0; }
bool KXAxisChart::obtainLegendShouldShowCell(std::uint64_t index) { return isOwnSeries(index); }

std::string KXAxisChart::obtainLegendLabel(std::uint64_t index) { return getSeriesLabel(index); }

bool KXAxisChart::obtainLegendSymbolColor(std::uint64_t index, UXColor& color)
{
    color = m_groups.obtainSymbolColor(index);
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
    getItems()->hoverGroup(index, hovered && isSeriesShown(index));
}

void KXAxisChart::resetData()
{
    KXAxisChartDataUser::resetData();
    m_hostLooks.clear();
    m_groups.clear();
    m_linkedTab = {};
}

void KXAxisChart::customReloadData()
{
    const UXObjectWatcher self(this);
    m_hostLooks.clear();
    getItems()->forgetPointer();
    if (!self.isAlive())
        return;
    std::vector<std::string> identities;
    identities.reserve(getSeriesCount());
    for (std::uint64_t series = 0; series < getSeriesCount(); ++series)
        identities.push_back(getSeriesID(series));
    m_groups.reload(getSeriesCount(), identities);
    for (std::uint64_t series = 0; series < getSeriesCount(); ++series)
        if (!isOwnSeries(series))
            m_groups.leaveOut(series);
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
    m_hostLooks.clearColors();
    m_groups.setHostColors({});
    _updateSeriesColors();
    if (!_areSeriesOfHost())
        return;
    std::vector<std::optional<UXColor>> pulled(getSeriesCount());
    const KXChartDataProviderUse use(*this);
    for (std::uint64_t series = 0; use.isCurrent() && series < pulled.size(); ++series) {
        UXColor color = obtainSeriesColor(series);
        if (use.get()->obtainValueDataColorForGroup(this, series, color))
            pulled[series] = color;
        if (!use.isAlive())
            return;
    }
    m_groups.setHostColors(std::move(pulled));
}

void KXAxisChart::reloadChartColors()
{
    KXAxisChartBase::reloadChartColors();
    _updateLooks();
}

bool KXAxisChart::_areSeriesOfHost() const { return true; }

std::vector<UXColor> KXAxisChart::_obtainUsualColors() const
{
    const std::vector<UXColor>& own = getAxisChartProperty()->getSeriesColors();
    if (own.empty() && getOwnSeriesCount() == 1)
        return {getChartProperty()->getDefaultColor()};
    return own.empty() ? getDefaultColors() : own;
}

void KXAxisChart::_updateSeriesColors() { m_groups.setUsualColors(_obtainUsualColors()); }

KXIndexPath KXAxisChart::_obtainValuePath(KXAxisChartDataProvider& provider, const KXAxisChartMark& mark)
{
    return provider.obtainSeriesValuePath(this, mark.series, _obtainPulledCategory(mark.category));
}

void KXAxisChart::_updateLooks()
{
    const UXObjectWatcher self(this);
    _updateSeriesColors();
    _updateViewLooks();
    if (!self.isAlive())
        return;
    updateLegendColor();
    _repaintMarks();
}

/** Asks the host for the colours of marks, where it has not answered: in a layout when that has ended, and
 * decides the looks then. It may destroy the chart. */
void KXAxisChart::_loadHostColors(const std::vector<KXAxisChartMark>& marks)
{
    const std::vector<KXAxisChartMark> unknown = m_hostLooks.findUnknown(marks);
    if (unknown.empty())
        return;
    if (UXLayoutRounds::isLayingOut()) {
        _askForLooksLater();
        return;
    }
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXAxisChartDataProvider>();
    for (std::size_t i = 0; provider && i < unknown.size(); ++i) {
        const KXIndexPath path = _obtainValuePath(*provider, unknown[i]);
        if (!use.isCurrent())
            return;
        UXColor color = obtainSeriesColor(unknown[i].series);
        const bool isGiven = !path.empty() && provider->obtainValueDataColor(this, path, color);
        if (!use.isCurrent())
            return;
        m_hostLooks.setMarkColor(unknown[i], isGiven ? std::optional(color) : std::nullopt);
    }
}

/** A layout asks nothing. What the host says of looks moves no mark: colours and labels alone follow. */
void KXAxisChart::_askForLooksLater()
{
    if (std::exchange(m_asksForLooks, true))
        return;
    UXLayoutRounds::postAction([this, self = UXObjectWatcher(this)] {
        if (self.isAlive())
            _askForLooks();
    });
}

void KXAxisChart::_askForLooks()
{
    m_asksForLooks = false;
    if (!preparedAndReloadedData())
        return; // what is reloaded is laid out anew
    const UXObjectWatcher self(this);
    bool hasLabels = false;
    while (auto wanted = m_hostLooks.takeWantedLabel()) {
        const KXAxisChartHostLooks::Label usual = wanted->usual;
        const KXChartDataProviderUse use(*this);
        if (auto* provider = use.as<KXAxisChartDataProvider>()) {
            const KXIndexPath path = _obtainValuePath(*provider, wanted->mark);
            if (use.isCurrent() && !path.empty())
                provider->customizeValueDataLabel(this, path, wanted->usual.text, wanted->usual.property);
        }
        if (!use.isAlive())
            return;
        m_hostLooks.setLabel(wanted->mark, usual, wanted->usual);
        hasLabels = true;
    }
    _updateViewLooks();
    if (self.isAlive() && hasLabels)
        _layoutMarkLabels();
    if (self.isAlive())
        _repaintMarks();
}

void KXAxisChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXAxisChartBase::afterReloadData();
    if (self.isAlive())
        registerLeftClickAction(this, KXTriggerCondition());
}

KXChartDataPath* KXAxisChart::createDataPath() { return getItems()->createActionPath(); }

std::vector<KXObjectID> KXAxisChart::_obtainMarkObjectIDs(const KXAxisChartMark& mark) const
{
    const KXObjectIDPath category = kxCreateObjectIDPath(std::string("Category"));
    return {makeSeriesID(mark.series).path(category).index(mark.category)};
}

bool KXAxisChart::_hasData() { return preparedAndReloadedData() && obtainShownCategoryCount() > 0; }

void KXAxisChart::_applyKeyEffect(UXPropertyEffect effect)
{
    const UXNotificationScope scope;
    const UXObjectWatcher self(this);
    if (effect == UXPropertyEffect::Recolor)
        _updateLooks();
    if (self.isAlive())
        KXAxisChartBase::_applyKeyEffect(effect);
}

void KXAxisChart::_visibleCategoriesChanged()
{
    // What stands out no more takes back its links, which the host is asked about.
    UXLayoutRounds::postAction([this, self = UXObjectWatcher(this)] {
        if (self.isAlive())
            getItems()->forgetPointer();
    });
    _placeLinkedTab();
    _noteFirstCategory();
}

void KXAxisChart::_noteFirstCategory()
{
    const double first = _getFirstCategory();
    m_firstCategoryText.clear();
    if (first < 1 || !_hasData())
        return;
    const UXObjectWatcher self(this);
    const std::string text = obtainCategoryText(static_cast<std::uint64_t>(first));
    if (self.isAlive())
        m_firstCategoryText = text;
}

void KXAxisChart::_categoryTextsArrived(bool)
{
    const UXLayoutRounds layout;
    _noteFirstCategory();
    if (preparedAndReloadedData())
        _layoutMarkLabels();
    _repaintMarks();
}

void KXAxisChart::_customLayout(UXRect plotArea)
{
    const UXObjectWatcher self(this);
    KXAxisChartBase::_customLayout(plotArea);
    if (self.isAlive())
        m_noDataLabel->update(getPlot()->getBoundingRect(), _hasData());
}
