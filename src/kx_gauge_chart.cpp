#include "kx_gauge_chart.h"

#include "kx_chart_data_format.h"
#include "kx_chart_data_provider_use.h"
#include "kx_chart_items.h"
#include "kx_chart_label.h"
#include "kx_chart_toolbox.h"
#include "kx_gauge_chart_data_provider.h"
#include "kx_gauge_layout.h"
#include "kx_hint_text.h"
#include "kx_key_definitions.h"
#include "ux/ux_event.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_localize.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_string.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>
#include <utility>

namespace {

constexpr int greatestPartitionCount = 8;
constexpr double dialDegrees = 180;
constexpr UXColor unnamedPartitionColor(24, 200, 140);

// The measures of the host, by index
enum Measure : std::uint64_t { value, target, minimum, maximum };

KXChartItem makeItem(std::uint64_t measure) { return {0, measure, 0}; }

bool isKnown(double number)
{
    using Limits = std::numeric_limits<double>;
    return number > Limits::lowest() && number < (Limits::max)();
}

/** @return where number stands between low and high, 0 to 1; of a range that no double holds, by halves */
double obtainRatio(double number, double low, double high)
{
    if (number < low)
        return 0;
    if (number > high)
        return 1;
    const double range = high - low;
    return std::isfinite(range) ? (number - low) / range : (number / 2 - low / 2) / (high / 2 - low / 2);
}

UXColor mixColors(const UXColor& from, const UXColor& to, double share)
{
    const auto mix = [share](int a, int b) {
        return uxSaturateToInt(std::floor((static_cast<double>(b) - a) * share) + a);
    };
    return {mix(from.red, to.red), mix(from.green, to.green), mix(from.blue, to.blue)};
}

UXRect toWholeRect(const UXDoubleRect& rect)
{
    return {uxSaturateToInt(std::round(rect.x)), uxSaturateToInt(std::round(rect.y)),
            uxSaturateToInt(rect.width), uxSaturateToInt(rect.height)};
}

UXTextProperty makeTextProperty(const std::string& fontName, int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.familyName = fontName;
    property.font.size = fontSize;
    property.align = UXTextAlign::Center;
    property.textColor = color;
    return property;
}

} // namespace

std::string kxObtainGaugeTargetCaption() { return uxLocalizeString("Target") + ": "; }

KXGaugeChart::KXGaugeChart()
    : KXGaugeChartDataUser(this), UXPropertyAccessor(this), UXHintDelegate(this), KXChartDataAction(this),
      m_mainLabel(new KXChartLabel), m_maxLabel(new KXChartLabel), m_minLabel(new KXChartLabel),
      m_targetLabel(new KXChartLabel), m_dataFormat(std::make_unique<KXChartDataFormat>())
{
    for (KXChartLabel* label : {m_mainLabel, m_maxLabel, m_minLabel, m_targetLabel})
        addChild(label);
    _makeItems(*this, *this, *this, *this);
    for (const std::uint64_t measure : {value, target, minimum, maximum})
        getItems()->followLabel(_obtainLabel(measure), makeItem(measure));
    m_dataFormat->setUpdatedEvent([this] { _layoutAnew(); });
}

KXGaugeChart::~KXGaugeChart()
{
    _leaveView();
    m_dataFormat->setUpdatedEvent({});
}

KX_DEFINE_CHART_KEYS(KXGaugeChart, KX_GAUGE_CHART_KEYS)

KXChartDataFormat* KXGaugeChart::getDataFormat() const { return m_dataFormat.get(); }
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

void KXGaugeChart::initParam()
{
    const double number = getValueData(), wanted = obtainTargetValueData();
    const double low = obtainMinValueData(), high = obtainMaxValueData();
    m_valueRatio = m_targetRatio = noValue;
    if (!isKnown(low) || !isKnown(high) || !isKnown(number) || high <= low)
        return;
    m_valueRatio = obtainRatio(number, low, high);
    if (isKnown(wanted))
        m_targetRatio = obtainRatio(wanted, low, high);
}

double KXGaugeChart::getValueRatio() const { return m_valueRatio; }
double KXGaugeChart::getTargetRatio() const { return m_targetRatio; }
UXRect KXGaugeChart::getPipeRect() const { return m_pipeRect; }

int KXGaugeChart::obtainPipePartition() const
{
    return static_cast<int>(std::clamp<std::int64_t>(m_pipePartition, 1, greatestPartitionCount));
}

double KXGaugeChart::obtainPartitionAngle(int i) const
{
    switch (m_partitionStyle) {
    case KXGaugeChartPartitionStyle::EvenlyDistributed:
        return dialDegrees / obtainPipePartition() * (i + 1.0);
    case KXGaugeChartPartitionStyle::Custom:
        return obtainPartitionLabelPercentage(i + 1) / 100 * dialDegrees;
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
    const bool isRange = isKnown(low) && isKnown(high) && high > low;
    const double number = isRange ? percentage * (high - low) / 100 + low : noValue;
    return obtainLabelDisplayString(number, percentage / 100, m_partitionLabelDisplay);
}

std::string KXGaugeChart::obtainLabelDisplayString(double number, double ratio,
                                                   KXGaugeChartLabelDisplay display) const
{
    const std::string actual = isKnown(number) ? m_dataFormat->formatNumber(number) : "--";
    const std::string comparison = (isKnown(ratio) ? uxDoubleToString(ratio * 100, 2) : "--") + "%";
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
    // A difference of whole numbers is exact; one of shares would lose a unit of colour now and then.
    const auto share = [half](int part) { return static_cast<double>(part) / half; };
    return half >= i ? mixColors(m_pipeValueMinColor, m_pipeValueMiddleColor, share(i))
                     : mixColors(m_pipeValueMiddleColor, m_pipeValueMaxColor, share(i - half));
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
    _registerActions(m_mainLabel, "MainLabel", value);
    _registerActions(m_targetLabel, "TargetLabel", target);
    _registerActions(m_minLabel, "MinLabel", minimum);
    _registerActions(m_maxLabel, "MaxLabel", maximum);
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
    case value:
        return m_mainLabel;
    case target:
        return m_targetLabel;
    case minimum:
        return m_minLabel;
    default:
        return m_maxLabel;
    }
}

std::string KXGaugeChart::_obtainMeasureText(std::uint64_t measure, KXGaugeChartLabelDisplay display) const
{
    switch (measure) {
    case value:
        return obtainLabelDisplayString(getValueData(), m_valueRatio, display);
    case target:
        return obtainLabelDisplayString(obtainTargetValueData(), m_targetRatio, display);
    case minimum:
        return obtainLabelDisplayString(obtainMinValueData(), 0, display);
    default:
        return obtainLabelDisplayString(obtainMaxValueData(), 1, display);
    }
}

/** @return a measure as its label tells it, the number where it has no label */
std::string KXGaugeChart::_obtainHintText(std::uint64_t measure) const
{
    const KXGaugeChartLabelDisplay display = measure == value    ? m_mainDisplay
                                             : measure == target ? m_targetDisplay
                                                                 : m_maxMinDisplay;
    return _obtainMeasureText(
        measure, display == KXGaugeChartLabelDisplay::None ? KXGaugeChartLabelDisplay::Actual : display);
}

/** @return whether the measure is the host's, not the user's own number */
bool KXGaugeChart::_isGivenByHost(std::uint64_t measure) const
{
    switch (measure) {
    case value:
        return isKnown(getValueData());
    case target:
        return !m_customTargetValue && isKnown(getTargetData());
    case minimum:
        return !m_customMinValue && isKnown(getMinData());
    default:
        return !m_customMaxValue && isKnown(getMaxData());
    }
}

/** @return whether the measure has its label or its piece of the dial */
bool KXGaugeChart::_showsMeasure(std::uint64_t measure) const
{
    const bool isOnDial = (measure == value && _hasValue()) || (measure == target && isKnown(m_targetRatio));
    return isOnDial || _obtainLabel(measure)->getVisible();
}

std::vector<KXChartItem> KXGaugeChart::_obtainShownItems() const
{
    std::vector<KXChartItem> items;
    for (const std::uint64_t measure : {value, target, minimum, maximum})
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
    for (const std::uint64_t measure : {value, target, minimum, maximum})
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
    std::vector<KXChartItem> items = _obtainShownItems();
    std::erase_if(items, [&](const KXChartItem& item) {
        return path.valueIndexPath.empty() ? path.identifier != obtainItemLabel(item)->getIdentifier()
                                           : path.valueIndexPath != KXIndexPath{item.group, 0};
    });
    return items;
}

void KXGaugeChart::_customLayout(UXRect plotArea)
{
    initParam();
    KXGaugeLayout layout;
    layout.pipeShare = m_pipeWithPercentage;
    layout.showsPointer = m_showPointer;
    layout.showsTick = isKnown(m_targetRatio);
    _customLayout_setText(layout);
    _customLayout_setPartitionLabel(layout);
    _customLayout_setTextProperty(layout);
    _customLayout_setRect(layout, plotArea);
}

void KXGaugeChart::_customLayout_setText(KXGaugeLayout& layout)
{
    layout.main.text = _obtainMeasureText(value, m_mainDisplay);
    layout.minimum.text = _obtainMeasureText(minimum, m_maxMinDisplay);
    layout.maximum.text = _obtainMeasureText(maximum, m_maxMinDisplay);

    // The target's label marks a place on the dial; without the place there is nothing to label. The tick has
    // its room there with the label or without.
    if (!isKnown(m_targetRatio))
        return;
    layout.target.degrees = m_targetRatio * dialDegrees;
    if (m_targetDisplay != KXGaugeChartLabelDisplay::None)
        layout.target.text = m_targetCaption + _obtainMeasureText(target, m_targetDisplay);
}

void KXGaugeChart::_customLayout_setPartitionLabel(KXGaugeLayout& layout)
{
    if (m_partitionLabelDisplay == KXGaugeChartLabelDisplay::None)
        return;

    // A boundary that is no further than one before it divides nothing, and the ends need not be said twice.
    const int count = obtainPipePartition();
    double reached = -1;
    for (int i = 0; i <= count; ++i) {
        const double percentage = obtainPartitionLabelPercentage(i);
        KXGaugeText& boundary = layout.boundaries.emplace_back();
        if (!(percentage >= 0 && percentage > reached))
            continue;
        reached = percentage;
        boundary.degrees = percentage / 100 * dialDegrees;
        const std::string text = obtainPartitionLabelString(i);
        const bool isRepeated = (percentage == 0 && text == layout.minimum.text) ||
                                (percentage == 100 && text == layout.maximum.text);
        if (!isRepeated)
            boundary.text = text;
    }
    _growPartitionLabelsPool(layout.boundaries.size());
}

void KXGaugeChart::_growPartitionLabelsPool(std::size_t count)
{
    while (m_partitionLabelsPool.size() < count) {
        m_partitionLabelsPool.push_back(new KXChartLabel);
        addChild(m_partitionLabelsPool.back());
    }
}

void KXGaugeChart::_customLayout_setTextProperty(KXGaugeLayout& layout) const
{
    layout.main.property = makeTextProperty(m_fontName, m_fontSize, m_fontColor);
    layout.minimum.property = makeTextProperty(m_maxMinFontName, m_maxMinFontSize, m_maxMinFontColor);
    layout.maximum.property = layout.minimum.property;
    layout.target.property = makeTextProperty(m_targetFontName, m_targetFontSize, m_targetFontColor);
    for (KXGaugeText& boundary : layout.boundaries)
        boundary.property = makeTextProperty(m_partitionLabelFontName, m_partitionLabelFontSize,
                                             m_partitionLabelFontColor);
}

void KXGaugeChart::_customLayout_setRect(KXGaugeLayout& layout, const UXRect& plotArea)
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    layout.place(plotArea, *helper, [&](const KXGaugeLayout::Room& room) {
        m_maxMinProperty = room.endProperty;
        return _customLayout_setRect_pipeRadius(
            room.showsEnds ? m_maxMinDisplay : KXGaugeChartLabelDisplay::None, helper.get(), room.rect,
            room.endHeight, room.mainHeight, room.targetSize);
    });
    m_pipeRect = toWholeRect(layout.dial.obtainRect());
    _takeText(m_mainLabel, layout.main);
    _takeText(m_minLabel, layout.minimum);
    _takeText(m_maxLabel, layout.maximum);
    _takeText(m_targetLabel, layout.target);
    layout.boundaries.resize(m_partitionLabelsPool.size());
    for (std::size_t i = 0; i < m_partitionLabelsPool.size(); ++i)
        _takeText(m_partitionLabelsPool[i], layout.boundaries[i]);
}

int KXGaugeChart::_customLayout_setRect_pipeRadius(KXGaugeChartLabelDisplay display, UXLayoutHelper* helper,
                                                   UXRect rect, int h1, int h2, UXSize size)
{
    // 1. Minimum and maximum may stick out sideways by as much as the wider of them.
    double widest = 0;
    if (display != KXGaugeChartLabelDisplay::None)
        for (const std::string& text : {obtainLabelDisplayString(obtainMaxValueData(), 1, display),
                                        obtainLabelDisplayString(obtainMinValueData(), 0, display)})
            widest = std::max(widest, helper->getTextSize(text, m_maxMinProperty).width);

    // 2. What the width allows.
    const double width = std::round(rect.width * 0.95);
    const double pad = std::round(width * 0.06 + 2 * widest);
    const double widthLimit = std::round((width - pad) / 2);

    // 3. What the height allows, over the texts below the dial.
    const double height = std::round(rect.height * 0.95);
    const double mainGap = h2 > 0 ? std::round(height * 0.028) : 0;
    const double endGap = h1 > 0 ? std::round(height * 0.035) : 0;
    const double ends = endGap + h1;
    const double below = m_showPointer ? std::max(h2 + std::round(height * 0.04) + mainGap, ends) : ends;
    const int radius = uxSaturateToInt(std::min(widthLimit, height - below));

    // 4. The target stands beside the dial.
    if (m_targetLabel->getVisible())
        m_targetLabel->setRect(_customLayout_getRect_targetLabel(rect, radius, size));
    return radius;
}

UXRect KXGaugeChart::_customLayout_getRect_targetLabel(UXRect rect, int radius, UXSize size) const
{
    if (!isKnown(m_targetRatio))
        return {};
    const UXPoint center(uxSaturateToInt(rect.x + std::round(rect.width / 2.0)), uxMaxY(rect));
    return _customLayout_getRect_targetLabel_core(center, radius, size);
}

UXRect KXGaugeChart::_customLayout_getRect_targetLabel_core(UXPoint center, int radius, UXSize size) const
{
    const KXGaugeDial dial{center, std::max(radius, 0) + 0.0, 0};
    return toWholeRect(dial.placeOutside({size.width + 0.0, size.height + 0.0}, m_targetRatio * dialDegrees,
                                         dial.obtainTickClearance()));
}

void KXGaugeChart::_takeText(KXChartLabel* label, const KXGaugeText& text) const
{
    label->setVisible(text.shown);
    if (!text.shown)
        return;
    label->setText(text.text);
    label->setTextProperty(text.property);
    label->setRect(toWholeRect(text.rect));
}

KXGaugeDial KXGaugeChart::_obtainDial() const
{
    return KXGaugeDial::fromRect(m_pipeRect, m_pipeWithPercentage);
}

bool KXGaugeChart::_hasValue() const { return isKnown(m_valueRatio); }

bool KXGaugeChart::_shouldPaintChild(const UXObject* child) const
{
    return child != m_mainLabel; // which stands over the dial
}

void KXGaugeChart::_paintOverChildren(UXPaintConfig* config, const UXRect& dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        const KXGaugeDial dial = _obtainDial();
        if (dial.radius > 0) {
            _drawPipe(*painter, dial);
            _drawTarget(*painter, dial);
            if (m_showPointer)
                _drawPointer(*painter, dial);
        }
        uxDestroyPainter(painter);
    }
    _paintChild(m_mainLabel, config, dirtyRect);
}

std::optional<KXChartItem> KXGaugeChart::obtainItemAt(UXPoint point) const
{
    if (const std::optional<KXChartItem> item = KXPanelChart::obtainItemAt(point))
        return item;

    // A tick is thin, so that what is near it counts as well.
    const KXGaugeDial dial = _obtainDial();
    if (isKnown(m_targetRatio)) {
        const UXDoubleRect tick = dial.obtainTickBounds(m_targetRatio * dialDegrees);
        const double reach = dial.obtainTickEnd();
        if (uxPointInDoubleRect(point, uxInflateDoubleRect(tick, reach, reach)) && !dial.holdsPoint(point))
            return makeItem(target);
    }
    return dial.holdsPoint(point) ? std::optional(makeItem(value)) : std::nullopt;
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

void KXGaugeChart::_drawPipe(UXPainter& painter, const KXGaugeDial& dial) const
{
    const double valueDegrees = _hasValue() ? m_valueRatio * dialDegrees : 0;
    double covered = 0;
    for (int i = 0; i < obtainPipePartition(); ++i) {
        // Parts are whole degrees wide, so that their edges do not shimmer; the last one ends with the dial.
        const double exact = obtainPartitionAngle(i) - covered;
        const double sweep = std::trunc(covered + exact < dialDegrees ? exact + 0.5 : exact);
        if (exact < 0 || sweep <= 0)
            continue;
        const double end = covered + sweep;
        painter.setColor(m_showPointer ? _obtainPipePartitionColor(i) : m_pipeBackgroundColor);
        dial.fillSegment(painter, covered, end);
        if (!m_showPointer && valueDegrees > covered)
            _drawPipeValue(painter, dial, i, covered, std::min(end, valueDegrees));
        covered = end;
    }
}

/** The value's share of a partition; effects make it thicker on both sides. */
void KXGaugeChart::_drawPipeValue(UXPainter& painter, const KXGaugeDial& dial, int partition, double from,
                                  double to) const
{
    KXGaugeDial drawn = dial;
    const double more = (dial.radius - dial.innerRadius) * (m_mainLabel->obtainDrawnSizeRatio() - 1) / 2;
    drawn.radius += more;
    drawn.innerRadius = std::max(dial.innerRadius - more, 0.0);
    painter.setColor(m_mainLabel->obtainDrawnColor(_obtainPipePartitionColor(partition),
                                                   KXInteractionEffectTarget::Filled));
    drawn.fillSegment(painter, from, to);
}

void KXGaugeChart::_drawTarget(UXPainter& painter, const KXGaugeDial& dial) const
{
    if (!isKnown(m_targetRatio) || m_targetRatio < 0)
        return;
    // Beside a small dial the tick may reach over the chart's edge, which cuts it.
    const UXRect bounds = getBoundingRect();
    std::optional<UXPainterState> clip;
    if (!uxContainsRect(bounds, uxSurroundingRect(dial.obtainTickBounds(m_targetRatio * dialDegrees)))) {
        clip.emplace(painter);
        painter.addRectanglePath(bounds.x, bounds.y, bounds.width, bounds.height);
        painter.clip();
    }
    painter.setColor(
        m_targetLabel->obtainDrawnColor(m_pipeTargetColor, KXInteractionEffectTarget::NonFilled));
    dial.strokeTick(painter, m_targetRatio * dialDegrees, m_targetLabel->obtainDrawnSizeRatio());
}

void KXGaugeChart::_drawPointer(UXPainter& painter, const KXGaugeDial& dial) const
{
    painter.setColor(m_mainLabel->obtainDrawnColor(m_pointerColor, KXInteractionEffectTarget::Filled));
    dial.fillHub(painter);
    if (!_hasValue())
        return;
    painter.setColor(m_mainLabel->obtainDrawnColor(m_pointerColor, KXInteractionEffectTarget::NonFilled));
    dial.strokeNeedle(painter, m_valueRatio * dialDegrees, m_mainLabel->obtainDrawnSizeRatio());
}

void KXGaugeChart::_customResetProperties(KXChartResetType type, KXChart* source, const KXKeys& groups)
{
    const auto* other = dynamic_cast<const KXGaugeChart*>(source);
    if (!other)
        return;
    const UXObjectWatcher self(this), sourceWatcher(source);
    if (groups.contains("DataFormat"))
        m_dataFormat->customResetProperties(KXChartResetType::All, other->m_dataFormat.get(), groups);
    if (self.isAlive() && sourceWatcher.isAlive())
        _resetKeys(obtainPropertyTable(), type, *source, groups);
}

const UXPropertyTable& KXGaugeChart::obtainPropertyTable()
{
    using Self = KXGaugeChart;
    static constexpr UXProperty rows[] = {
        KX_OBJECT_ROW("m_mainLabel", uxObtainPartType, m_mainLabel, "the label of the value")
            KX_OBJECT_ROW("m_maxLabel", uxObtainPartType, m_maxLabel, "the label of the maximum")
                KX_OBJECT_ROW("m_minLabel", uxObtainPartType, m_minLabel, "the label of the minimum")
                    KX_OBJECT_ROW("m_targetLabel", uxObtainPartType, m_targetLabel, "the label of the target")
                        UXProperty{.key = "m_partitionLabelsPool",
                                   .type = _obtainPartitionLabelsPoolType,
                                   .place = [](void* owner) { return owner; },
                                   .meaning = "the labels at the bounds of the parts"},
        KX_GAUGE_CHART_KEYS_BEFORE_FORMAT(KX_CHART_KEY_ROW)
            KX_OBJECT_ROW("m_dataFormat", uxObtainNestedObjectType, m_dataFormat,
                          "how every number is written") KX_GAUGE_CHART_KEYS_AFTER_FORMAT(KX_CHART_KEY_ROW)};
    static const UXPropertyTable table("KXGaugeChart", &KXChart::obtainPropertyTable(),
                                       kxObtainKeyOwner<Self>, rows);
    return table;
}

/** The pool's size is the chart's business, so its place is the chart. */
const UXPropertyType& KXGaugeChart::_obtainPartitionLabelsPoolType()
{
    using Pool = std::vector<KXChartLabel*>;
    static constexpr UXPropertyType type{
        .info = &typeid(Pool),
        .name = "list of objects",
        .assign =
            [](void* to, const void* chart) {
                *static_cast<Pool*>(to) = static_cast<const KXGaugeChart*>(chart)->m_partitionLabelsPool;
            },
        .write =
            [](const UXPropertyType&, UXJsonObject& object, const std::string& key, const void* chart) {
                const Pool& pool = static_cast<const KXGaugeChart*>(chart)->m_partitionLabelsPool;
                object.serializeObjectList(key, {pool.begin(), pool.end()});
            },
        .read = [](const UXPropertyType&, UXJsonObject&, const std::string& key,
                   void* chart) { return static_cast<KXGaugeChart*>(chart)->_readPartitionLabelsPool(key); }};
    return type;
}

void KXGaugeChart::customSerialize()
{
    KXPanelChart::customSerialize();
    obtainPropertyTable().write(*this);
}

std::string KXGaugeChart::customSerializeTypeID() { return "KXGaugeChart"; }

bool KXGaugeChart::customDeserialize()
{
    bool complete = KXPanelChart::customDeserialize();
    complete = obtainPropertyTable().read(*this) && complete;
    _colorLabels();
    _layoutAnew();
    return complete;
}

/** Makes as many labels as a document lists, up to what a dial can use. */
bool KXGaugeChart::_readPartitionLabelsPool(const std::string& key)
{
    std::uint64_t count = 0;
    const bool isList = deserializeArrayBegin(key) && deserializePeekArray(count);
    deserializeArrayEnd();
    if (!isList)
        return false;
    const auto kept = static_cast<std::size_t>(std::min<std::uint64_t>(count, greatestPartitionCount + 1));
    getItems()->setLinked({}); // which dims the labels that go
    while (m_partitionLabelsPool.size() > kept) {
        delete m_partitionLabelsPool.back();
        m_partitionLabelsPool.pop_back();
    }
    _growPartitionLabelsPool(kept);
    return deserializeExistingObjectList(key, {m_partitionLabelsPool.begin(), m_partitionLabelsPool.end()}) &&
           kept == count;
}
