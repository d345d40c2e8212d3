#include "kx_gauge_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_gauge_dial.h"
#include "kx_gauge_measures.h"
#include "kx_gradient_scale.h"
#include "kx_hint_text.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_string.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace {

constexpr UXColor unnamedPartitionColor(24, 200, 140);

KXChartItem makeItem(std::uint64_t measure) { return {0, measure, 0}; }

} // namespace

std::string kxObtainGaugeTargetCaption() { return uxLocalizeString("Target") + ": "; }

KXGaugeChart::KXGaugeChart()
    : KXGaugeChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_mainLabel(new KXChartLabel), m_maxLabel(new KXChartLabel), m_minLabel(new KXChartLabel),
      m_targetLabel(new KXChartLabel)
{
    for (KXChartLabel* label : {m_mainLabel, m_maxLabel, m_minLabel, m_targetLabel})
        addChild(label);
    _makeItems(*this, *this, *this, *this);
    for (const std::uint64_t measure : {kxGaugeValue, kxGaugeTarget, kxGaugeMinimum, kxGaugeMaximum})
        getItems()->followLabel(_obtainLabel(measure), makeItem(measure));
}

KXGaugeChart::~KXGaugeChart() { _leaveView(); }

KXChartLabel* KXGaugeChart::getMainLabel() const { return m_mainLabel; }
KXChartLabel* KXGaugeChart::getMaxLabel() const { return m_maxLabel; }
KXChartLabel* KXGaugeChart::getMinLabel() const { return m_minLabel; }
KXChartLabel* KXGaugeChart::getTargetLabel() const { return m_targetLabel; }
const std::vector<KXChartLabel*>& KXGaugeChart::getPartitionLabelsPool() const
{
    return m_partitionLabelsPool;
}

void KXGaugeChart::_layoutAnew() { setRequireToVerifyLayout(true, true); }

void KXGaugeChart::_applyKeyEffect(UXPropertyEffect effect)
{
    if (effect == UXPropertyEffect::Recolor)
        _colorLabels();
    else
        KXChart::_applyKeyEffect(effect);
}

/** A colour moves nothing. */
void KXGaugeChart::_colorLabels()
{
    const auto color = [](KXChartLabel* label, const UXColor& textColor) {
        UXTextProperty property = label->getTextProperty();
        property.textColor = textColor;
        label->setTextProperty(property);
    };
    color(m_mainLabel, m_fontColor);
    color(m_maxLabel, m_maxMinFontColor);
    color(m_minLabel, m_maxMinFontColor);
    color(m_targetLabel, m_targetFontColor);
    for (KXChartLabel* label : m_partitionLabelsPool)
        color(label, m_partitionLabelFontColor);
    invalidate();
}

void KXGaugeChart::setCustomPartitionColor(const std::vector<double>& boundaries,
                                           const std::vector<UXColor>& colors)
{
    m_customParititonSegment = boundaries;
    m_customPartitionColor = colors;
    m_initPartition = true;
    _layoutAnew();
}

double KXGaugeChart::obtainTargetValueData() const
{
    return m_customTargetValue ? m_targetValueCache : getTargetData();
}

double KXGaugeChart::obtainMaxValueData() const { return m_customMaxValue ? m_maxValueCache : getMaxData(); }
double KXGaugeChart::obtainMinValueData() const { return m_customMinValue ? m_minValueCache : getMinData(); }

double KXGaugeChart::getValueRatio() const { return m_valueRatio; }
double KXGaugeChart::getTargetRatio() const { return m_targetRatio; }
UXRect KXGaugeChart::getPipeRect() const { return m_pipeRect; }

int KXGaugeChart::obtainPipePartition() const
{
    return static_cast<int>(std::clamp<std::int64_t>(m_pipePartition, 1, kxGreatestGaugePartitionCount));
}

double KXGaugeChart::obtainPartitionAngle(int i) const
{
    switch (m_partitionStyle) {
    case KXGaugeChartPartitionStyle::EvenlyDistributed:
        return KXGaugeDial::sweepDegrees / obtainPipePartition() * (i + 1.0);
    case KXGaugeChartPartitionStyle::Custom:
        return obtainPartitionLabelPercentage(i + 1) / 100 * KXGaugeDial::sweepDegrees;
    }
    return 0;
}

double KXGaugeChart::obtainPartitionLabelPercentage(int i) const
{
    const int count = obtainPipePartition();
    if (m_partitionStyle == KXGaugeChartPartitionStyle::EvenlyDistributed)
        return i * 100.0 / count;
    const bool isGiven = i >= 0 && i < count && std::cmp_less(i, m_customParititonSegment.size());
    return isGiven ? std::min(100.0, m_customParititonSegment[static_cast<std::size_t>(i)]) : 100;
}

std::string KXGaugeChart::obtainPartitionLabelString(int i) const
{
    const double low = obtainMinValueData(), high = obtainMaxValueData();
    const double percentage = obtainPartitionLabelPercentage(i);
    const bool isRange = kxIsGaugeNumber(low) && kxIsGaugeNumber(high) && high > low;
    const double number = isRange ? percentage * (high - low) / 100 + low : noValue;
    return obtainLabelDisplayString(number, percentage / 100, m_partitionLabelDisplay);
}

std::string KXGaugeChart::obtainLabelDisplayString(double number, double ratio,
                                                   KXGaugeChartLabelDisplay display) const
{
    const std::string actual = kxIsGaugeNumber(number) ? m_dataFormat->formatNumber(number) : "--";
    const std::string comparison = (kxIsGaugeNumber(ratio) ? uxDoubleToString(ratio * 100, 2) : "--") + "%";
    switch (display) {
    case KXGaugeChartLabelDisplay::None:
        break;
    case KXGaugeChartLabelDisplay::Actual:
        return actual;
    case KXGaugeChartLabelDisplay::Comparison:
        return comparison;
    case KXGaugeChartLabelDisplay::Both:
        return actual + " (" + comparison + ")";
    }
    return "";
}

UXColor KXGaugeChart::_obtainPipePartitionColor(int i) const
{
    if (m_partitionStyle != KXGaugeChartPartitionStyle::Custom)
        return _obtainPipePartitionColor_EventDistributed(obtainPipePartition(), i);
    const bool isGiven = i >= 0 && std::cmp_less(i, m_customPartitionColor.size());
    return isGiven ? m_customPartitionColor[static_cast<std::size_t>(i)] : unnamedPartitionColor;
}

UXColor KXGaugeChart::_obtainPipePartitionColor_EventDistributed(int n, int i) const
{
    const int half = n / 2;
    if (i == 0)
        return m_pipeValueMinColor;
    if (i == n - 1)
        return m_pipeValueMaxColor;
    if (n % 2 == 1 && i == half)
        return m_pipeValueMiddleColor;
    const KXGradientScale scale{.greatest = 2.0 * half,
                                .middleValue = static_cast<double>(half),
                                .minColor = m_pipeValueMinColor,
                                .middleColor = m_pipeValueMiddleColor,
                                .maxColor = m_pipeValueMaxColor};
    UXColor color = scale.obtainColor(i);
    color.alpha = 1;
    return color;
}

/** @return the path of the measure that is pointed at, the value's beside them */
KXChartDataPath* KXGaugeChart::createDataPath()
{
    KXChartDataPath* path = getItems()->createActionPath();
    return path ? path : m_mainLabel->createDataPath();
}

void KXGaugeChart::afterReloadData()
{
    const UXObjectWatcher self(this);
    KXPanelChart::afterReloadData();
    if (!self.isAlive())
        return;
    _registerActions(m_mainLabel, "MainLabel", kxGaugeValue);
    _registerActions(m_targetLabel, "TargetLabel", kxGaugeTarget);
    _registerActions(m_minLabel, "MinLabel", kxGaugeMinimum);
    _registerActions(m_maxLabel, "MaxLabel", kxGaugeMaximum);
    registerRightClickMenu(this, KXTriggerCondition());
}

void KXGaugeChart::_registerActions(KXChartLabel* label, const std::string& identifier, std::uint64_t measure)
{
    label->setIdentifier(identifier);
    KXChartDataPath* path = label->createDataPath();
    path->valueIndexPath = {measure, 0};
    label->registerLeftClickAction(this, path, KXTriggerCondition());
    const KXObjectID id =
        KXObjectID::instance().path(kxCreateObjectIDPath(KXChartObjectIDProperty::Value)).index(measure);
    label->updateExtraOIDs({id});
    label->registerInteraction(this, {KXInteractionEventType::LeftClick}, id);
}

KXChartLabel* KXGaugeChart::_obtainLabel(std::uint64_t measure) const
{
    switch (measure) {
    case kxGaugeValue:
        return m_mainLabel;
    case kxGaugeTarget:
        return m_targetLabel;
    case kxGaugeMinimum:
        return m_minLabel;
    default:
        return m_maxLabel;
    }
}

std::string KXGaugeChart::_obtainMeasureText(std::uint64_t measure, KXGaugeChartLabelDisplay display) const
{
    switch (measure) {
    case kxGaugeValue:
        return obtainLabelDisplayString(getValueData(), m_valueRatio, display);
    case kxGaugeTarget:
        return obtainLabelDisplayString(obtainTargetValueData(), m_targetRatio, display);
    case kxGaugeMinimum:
        return obtainLabelDisplayString(obtainMinValueData(), 0, display);
    default:
        return obtainLabelDisplayString(obtainMaxValueData(), 1, display);
    }
}

/** @return a measure as its label tells it, the number where it has no label */
std::string KXGaugeChart::_obtainHintText(std::uint64_t measure) const
{
    const KXGaugeChartLabelDisplay display = measure == kxGaugeValue    ? m_mainDisplay
                                             : measure == kxGaugeTarget ? m_targetDisplay
                                                                        : m_maxMinDisplay;
    return _obtainMeasureText(
        measure, display == KXGaugeChartLabelDisplay::None ? KXGaugeChartLabelDisplay::Actual : display);
}

/** @return whether the measure is the host's, not the user's own number */
bool KXGaugeChart::_isGivenByHost(std::uint64_t measure) const
{
    switch (measure) {
    case kxGaugeValue:
        return kxIsGaugeNumber(getValueData());
    case kxGaugeTarget:
        return !m_customTargetValue && kxIsGaugeNumber(getTargetData());
    case kxGaugeMinimum:
        return !m_customMinValue && kxIsGaugeNumber(getMinData());
    default:
        return !m_customMaxValue && kxIsGaugeNumber(getMaxData());
    }
}

/** @return whether the measure has its label or its piece of the dial */
bool KXGaugeChart::_showsMeasure(std::uint64_t measure) const
{
    const bool isOnDial = (measure == kxGaugeValue && _hasValue()) ||
                          (measure == kxGaugeTarget && kxIsGaugeNumber(m_targetRatio));
    return isOnDial || _obtainLabel(measure)->getVisible();
}

std::vector<KXChartItem> KXGaugeChart::obtainItems() const
{
    std::vector<KXChartItem> items;
    for (const std::uint64_t measure : {kxGaugeValue, kxGaugeTarget, kxGaugeMinimum, kxGaugeMaximum})
        if (_showsMeasure(measure))
            items.push_back(makeItem(measure));
    return items;
}

KXChartLabel* KXGaugeChart::obtainItemLabel(const KXChartItem& item) const
{
    return _obtainLabel(item.group);
}

std::vector<KXChartLabel*> KXGaugeChart::obtainItemLabels() const
{
    std::vector<KXChartLabel*> labels = m_partitionLabelsPool;
    for (const std::uint64_t measure : {kxGaugeValue, kxGaugeTarget, kxGaugeMinimum, kxGaugeMaximum})
        labels.push_back(_obtainLabel(measure));
    return labels;
}

KXChartDataPath* KXGaugeChart::createItemPath(const KXChartItem& item)
{
    KXChartDataPath* path = obtainItemLabel(item)->createDataPath();
    path->valueIndexPath = {item.group, 0};
    return path;
}

std::vector<KXChartItem> KXGaugeChart::findItems(const KXChartDataPath& path)
{
    // What belongs to a member of a dimension is none of the measures, though it may stand in the same cell.
    if (!path.dimensionIndexPath.empty())
        return {};
    std::vector<KXChartItem> items = obtainItems();
    std::erase_if(items, [&](const KXChartItem& item) {
        return path.valueIndexPath.empty() ? path.identifier != obtainItemLabel(item)->getIdentifier()
                                           : path.valueIndexPath != KXIndexPath{item.group, 0};
    });
    return items;
}

KXGaugeDial KXGaugeChart::_obtainDial() const
{
    return KXGaugeDial::fromRect(m_pipeRect, m_pipeWithPercentage);
}

bool KXGaugeChart::_hasValue() const { return kxIsGaugeNumber(m_valueRatio); }

std::optional<KXChartItem> KXGaugeChart::obtainItemAt(UXPoint point) const
{
    if (const std::optional<KXChartItem> item = KXPanelChart::obtainItemAt(point))
        return item;

    // A tick is thin, so that what is near it counts as well.
    const KXGaugeDial dial = _obtainDial();
    if (kxIsGaugeNumber(m_targetRatio)) {
        const UXDoubleRect tick = dial.obtainTickBounds(m_targetRatio * KXGaugeDial::sweepDegrees);
        const double reach = dial.obtainTickEnd();
        if (uxPointInDoubleRect(point, uxInflateDoubleRect(tick, reach, reach)) && !dial.holdsPoint(point))
            return makeItem(kxGaugeTarget);
    }
    return dial.holdsPoint(point) ? std::optional(makeItem(kxGaugeValue)) : std::nullopt;
}

UXRect KXGaugeChart::obtainItemRect(const KXChartItem& item) const
{
    const UXRect rect = KXPanelChart::obtainItemRect(item);
    return uxIsEmptyRect(rect) && _showsMeasure(item.group) ? m_pipeRect : rect;
}

/** @return what the provider says about a measure, or else its name and what its label shows */
UXHintInfo KXGaugeChart::obtainItemHint(const KXChartItem& item)
{
    const std::uint64_t measure = item.group;
    const KXChartDataProviderUse use(*this);
    auto* provider = use.as<KXGaugeChartDataProvider>();
    KXChartDataProviderHintData data;
    if (provider)
        data = provider->obtainHintData(this, {measure, 0});
    if (provider && use.isCurrent() && data.isEmpty()) {
        data.value = _obtainHintText(measure);
        if (_isGivenByHost(measure))
            data.title = provider->obtainValueLabel(this, measure);
    }
    return use.isAlive() ? kxMakeHintInfo(data, m_hintInfo) : UXHintInfo(false);
}
