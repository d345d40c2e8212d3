#include "kx_axis_tick_label_view.h"

#include "kx_axis.h"
#include "kx_axis_tick_label_layout.h"
#include "kx_axis_tick_label_placed_label.h"
#include "kx_axis_tick_label_view_delegate.h"
#include "kx_key_type.h"
#include "ux/ux_label.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>

// type and member, which is its JSON key, in the document's order around m_uxLabels
#define KX_AXIS_TICK_LABEL_VIEW_KEYS_BEFORE_LABELS(KEY) \
    KEY(UXPosition, m_position)                         \
    KEY(double, m_tickInterval)
#define KX_AXIS_TICK_LABEL_VIEW_KEYS_AFTER_LABELS(KEY)        \
    KEY(bool, m_showTickLabels)                               \
    KEY(bool, m_showLabelInBound)                             \
    KEY(int, m_customLabelLength)                             \
    KEY(int, m_maxLabelLength)                                \
    KEY(bool, m_autoRotateLabels)                             \
    KEY(KXAxisTickLabelRotationType, m_tickLabelRotationType) \
    KEY(KXAxisTickLabelIntervalMode, m_tickLabelIntervalMode) \
    KEY(bool, m_useFixedTickLabelIntervalForAutoIntervalMode) \
    KEY(double, m_tickLabelInterval)

namespace {

constexpr double tolerance = 1e-8;
/** As many labels as can be told apart anywhere. */
constexpr std::size_t mostLabels = 16384;
constexpr int defaultFontSize = 13;

} // namespace

KXAxisTickLabelView::KXAxisTickLabelView() : UXHintDelegate(this)
{
    m_textProperty.font.size = defaultFontSize;
    m_textProperty.textColor = UXColor(120, 120, 120, 1.0);
}

KXAxisTickLabelView::~KXAxisTickLabelView() { setParent(nullptr); }

KXAxis* KXAxisTickLabelView::getAxis() const { return static_cast<KXAxis*>(m_axis.getObject()); }

void KXAxisTickLabelView::setAxis(KXAxis* axis)
{
    if (axis == getAxis())
        return;
    m_axis = UXObjectWatcher(axis);
    _markStale(Step::Ticks);
}

void KXAxisTickLabelView::setDelegate(KXAxisTickLabelViewDelegate* delegate)
{
    if (delegate == m_delegate)
        return;
    m_delegate = delegate;
    _markStale(Step::Ticks);
}

void KXAxisTickLabelView::setScrollBarRect(const UXRect& rect)
{
    if (rect == m_scrollBarRect)
        return;
    m_scrollBarRect = rect;
    _markStale(Step::Cache);
}

/** What is longest, and what was turned, is found anew; the ticks and their texts stay. */
void KXAxisTickLabelView::_markStale(Step step)
{
    m_cacheStale = true;
    m_visibleTicksStale = m_visibleTicksStale || step != Step::Cache;
    m_ticksStale = m_ticksStale || step == Step::Ticks;
    _forgetMeasures();
    setRequireToVerifyLayout(true, true);
}

template <class T>
void KXAxisTickLabelView::_setMember(T& member, const T& value)
{
    if (member == value)
        return;
    member = value;
    _markStale(Step::Cache);
}

void KXAxisTickLabelView::_setLength(double& member, double value)
{
    if (std::isnan(value) || std::abs(value - member) < tolerance)
        return;
    member = value;
    _markStale(Step::Cache);
}

void KXAxisTickLabelView::setPosition(UXPosition position) { _setMember(m_position, position); }
void KXAxisTickLabelView::setTickInterval(double interval) { _setLength(m_tickInterval, interval); }
void KXAxisTickLabelView::setAnchorTick(int index) { _setMember(m_anchorTick, (std::max)(index, 0)); }
void KXAxisTickLabelView::setShowTickLabels(bool show) { _setMember(m_showTickLabels, show); }
void KXAxisTickLabelView::setShowLabelInBound(bool show) { _setMember(m_showLabelInBound, show); }
void KXAxisTickLabelView::setCustomLabelLength(int length) { _setMember(m_customLabelLength, length); }
void KXAxisTickLabelView::setMaxLabelLength(int length) { _setMember(m_maxLabelLength, length); }
void KXAxisTickLabelView::setAutoRotateLabels(bool rotate) { _setMember(m_autoRotateLabels, rotate); }

void KXAxisTickLabelView::setPrefersAllLabels(bool prefer) { _setMember(m_prefersAllLabels, prefer); }

void KXAxisTickLabelView::setCentersLabels(bool centers) { _setMember(m_centersLabels, centers); }

void KXAxisTickLabelView::setTickLabelRotationType(KXAxisTickLabelRotationType type)
{
    _setMember(m_tickLabelRotationType, type);
}

void KXAxisTickLabelView::setTickLabelIntervalMode(KXAxisTickLabelIntervalMode mode)
{
    _setMember(m_tickLabelIntervalMode, mode);
}

void KXAxisTickLabelView::setUseFixedTickLabelIntervalForAutoIntervalMode(bool useFixed)
{
    _setMember(m_useFixedTickLabelIntervalForAutoIntervalMode, useFixed);
}

void KXAxisTickLabelView::setTickLabelInterval(double interval) { _setLength(m_tickLabelInterval, interval); }

void KXAxisTickLabelView::setTextProperty(const UXTextProperty& property)
{
    if (property.font == m_textProperty.font) {
        setLabelColor(property.textColor);
        return;
    }
    m_textProperty = property;
    m_sizesStale = true;
    _markStale(Step::Cache);
}

UXColor KXAxisTickLabelView::getLabelColor() const { return m_textProperty.textColor; }

void KXAxisTickLabelView::setLabelColor(const UXColor& color)
{
    // A colour changes no measure.
    if (m_textProperty.textColor == color)
        return;
    m_textProperty.textColor = color;
    setRequireToVerifyLayout(true, true);
}

bool KXAxisTickLabelView::_canTurnLabels() const
{
    return m_position == UXPosition::Top || m_position == UXPosition::Bottom;
}

bool KXAxisTickLabelView::_isEachDecided() const
{
    return m_tickLabelIntervalMode == KXAxisTickLabelIntervalMode::Auto &&
           !m_useFixedTickLabelIntervalForAutoIntervalMode;
}

void KXAxisTickLabelView::reloadData()
{
    _markStale(Step::Ticks);
    _bringUpToDate(Step::Ticks);
}

void KXAxisTickLabelView::updateVisibleTicksCache()
{
    m_visibleTicksStale = true;
    setRequireToVerifyLayout(true, true);
    _bringUpToDate(Step::VisibleTicks);
}

void KXAxisTickLabelView::updateCache()
{
    m_cacheStale = true;
    setRequireToVerifyLayout(true, true);
    _bringUpToDate(Step::Cache);
}

void KXAxisTickLabelView::update(bool reload)
{
    if (reload)
        _markStale(Step::Ticks);
    setRequireToVerifyLayout(true, true);
    _bringUpToDate(Step::Cache);
}

void KXAxisTickLabelView::updateTexts()
{
    for (Tick& tick : m_visibleTicks) {
        tick.text.reset();
        tick.size.reset();
    }
    _forgetMeasures();
    m_widestText = {};
    m_cacheStale = true;
    setRequireToVerifyLayout(true, true);
}

void KXAxisTickLabelView::forgetRoom()
{
    _forgetMeasures();
    m_cacheStale = true;
}

void KXAxisTickLabelView::requestLabels(std::uint64_t count)
{
    _growLabels(static_cast<std::size_t>((std::min)(count, std::uint64_t{mostLabels})));
}

int KXAxisTickLabelView::obtainLabelLength()
{
    const UXObjectWatcher self(this);
    _bringUpToDate(Step::Cache);
    if (!self.isAlive() || !m_showTickLabels)
        return 0;
    if (m_customLabelLength > 0)
        return m_customLabelLength;
    const int longest = (std::max)(m_longestLabelLength, 0);
    return getVisible() && m_maxLabelLength > 0 ? (std::min)(longest, m_maxLabelLength) : longest;
}

int KXAxisTickLabelView::obtainStartOverhang()
{
    const UXObjectWatcher self(this);
    _bringUpToDate(Step::Cache);
    return self.isAlive() ? (std::max)(m_startOverhang, 0) : 0;
}

std::vector<double> KXAxisTickLabelView::obtainVisibleTicks()
{
    const UXObjectWatcher self(this);
    _bringUpToDate(Step::VisibleTicks);
    std::vector<double> values;
    if (!self.isAlive())
        return values;
    for (const Tick& tick : m_visibleTicks)
        values.push_back(tick.value);
    return values;
}

KXAxisTickLabelRotationType KXAxisTickLabelView::obtainResolvedRotation()
{
    const UXObjectWatcher self(this);
    _bringUpToDate(Step::Cache);
    return self.isAlive() ? m_resolvedRotation : KXAxisTickLabelRotationType::Horizontal;
}

double KXAxisTickLabelView::obtainTickLabelInterval()
{
    const UXObjectWatcher self(this);
    _bringUpToDate(Step::Cache);
    return self.isAlive() ? m_calculatedInterval : -1;
}

std::string KXAxisTickLabelView::obtainTickLabel(double value)
{
    std::string text;
    _obtainText(value, text);
    return text;
}

KXVirtualAxisLabelInfo KXAxisTickLabelView::obtainTickLabelInfo(double value, bool turned)
{
    KXVirtualAxisLabelInfo info;
    const UXObjectWatcher self(this);
    if (turned)
        _bringUpToDate(Step::Cache);
    if (!self.isAlive() || !_obtainText(value, info.text))
        return info;
    UXDoubleSize size = _measureText(turned ? _obtainLines(info.text) : info.text, m_textProperty);
    if (turned)
        size = _obtainLayout().obtainTurnedSize(size);
    info.width = uxSaturateToInt(std::ceil(size.width - tolerance));
    info.height = uxSaturateToInt(std::ceil(size.height - tolerance));
    return info;
}

UXRect KXAxisTickLabelView::obtainTickLabelRect(double value)
{
    const UXObjectWatcher self(this);
    std::string text;
    UXPoint position;
    if (!_bringUpToDate(Step::Cache) || !self.isAlive() || !_obtainText(value, text) ||
        !_askAxis([&](KXAxis& axis) { position = axis.obtainValuePositionInAxis(value); }))
        return {};
    const KXAxisTickLabelLayout layout = _obtainLayout();
    return layout.obtainRect(
        layout.obtainPlace(_measureText(_obtainLines(text), m_textProperty), _obtainTickPoint(position)));
}

UXRect KXAxisTickLabelView::obtainTickLabelRectForIntersection(double value)
{
    const UXObjectWatcher self(this);
    const UXRect rect = obtainTickLabelRect(value);
    if (!self.isAlive())
        return {};
    return m_showLabelInBound ? updateLabelRectToShowInBoundary(rect) : intersectLabelRect(rect);
}

std::string KXAxisTickLabelView::getExtraLengthKey() const
{
    return "tickLabels" + kxObtainEnumMap<UXPosition>()->obtainName(m_position);
}

std::vector<UXLabel*> KXAxisTickLabelView::obtainLabels() const
{
    std::vector<UXLabel*> labels;
    for (const UXObjectWatcher& label : m_uxLabels)
        if (label.isAlive())
            labels.push_back(static_cast<UXLabel*>(label.getObject()));
    return labels;
}

UXRect KXAxisTickLabelView::updateLabelRectToShowInBoundary(const UXRect& rect) const
{
    return uxShiftAndBoundInRect(rect, obtainContentRectWithoutScrollBar());
}

UXRect KXAxisTickLabelView::intersectLabelRect(const UXRect& rect) const
{
    return uxIntersectionRect(rect, obtainContentRectWithoutScrollBar());
}

UXRect KXAxisTickLabelView::intersectLabelRectWithNotation(const UXRect& rect) const
{
    UXRect area = obtainContentRectWithoutScrollBar();
    if (_obtainLayout().isAlongX())
        area = {area.x, rect.y, area.width, rect.height};
    else
        area = {rect.x, area.y, rect.width, area.height};
    return uxIntersectionRect(rect, area);
}

bool KXAxisTickLabelView::isNextToScrollBar() const { return uxIntersectsRect(m_scrollBarRect, getRect()); }

/** Cuts the bar off with the side of the view that leaves the most. */
UXRect KXAxisTickLabelView::obtainContentRectWithoutScrollBar() const
{
    const UXRect content = getContentRect();
    const UXRect own = getRect();
    const UXRect bar = uxIntersectionRect({uxSaturateToInt(std::int64_t{m_scrollBarRect.x} - own.x),
                                           uxSaturateToInt(std::int64_t{m_scrollBarRect.y} - own.y),
                                           m_scrollBarRect.width, m_scrollBarRect.height},
                                          content);
    if (uxIsEmptyRect(bar))
        return content;
    const UXRect parts[] = {
        {content.x, content.y, content.width, bar.y - content.y},
        {content.x, bar.getBottom(), content.width, content.getBottom() - bar.getBottom()},
        {content.x, content.y, bar.x - content.x, content.height},
        {uxMaxX(bar), content.y, uxMaxX(content) - uxMaxX(bar), content.height},
    };
    const auto size = [](const UXRect& part) { return std::int64_t{part.width} * part.height; };
    return *std::max_element(std::begin(parts), std::end(parts),
                             [&](const UXRect& a, const UXRect& b) { return size(a) < size(b); });
}

void KXAxisTickLabelView::customSerialize()
{
    KXAxisChartBaseLayer::customSerialize();
    const std::vector<UXLabel*> labels = obtainLabels();
#define KX_AXIS_TICK_LABEL_VIEW_WRITE(Type, member) kxWriteKey(this, #member, member);
    KX_AXIS_TICK_LABEL_VIEW_KEYS_BEFORE_LABELS(KX_AXIS_TICK_LABEL_VIEW_WRITE)
    serializeObjectList("m_uxLabels", {labels.begin(), labels.end()});
    KX_AXIS_TICK_LABEL_VIEW_KEYS_AFTER_LABELS(KX_AXIS_TICK_LABEL_VIEW_WRITE)
#undef KX_AXIS_TICK_LABEL_VIEW_WRITE
}

std::string KXAxisTickLabelView::customSerializeTypeID() { return "KXAxisTickLabelView"; }

bool KXAxisTickLabelView::customDeserialize()
{
    bool complete = KXAxisChartBaseLayer::customDeserialize();
#define KX_AXIS_TICK_LABEL_VIEW_READ(Type, member) complete = kxReadKey(this, #member, member) && complete;
    KX_AXIS_TICK_LABEL_VIEW_KEYS_BEFORE_LABELS(KX_AXIS_TICK_LABEL_VIEW_READ)
    complete = _readLabels() && complete;
    KX_AXIS_TICK_LABEL_VIEW_KEYS_AFTER_LABELS(KX_AXIS_TICK_LABEL_VIEW_READ)
#undef KX_AXIS_TICK_LABEL_VIEW_READ
    _markStale(Step::Ticks);
    return complete;
}

/** Makes as many labels as a document lists, up to what can be seen; what they show is known by the delegate
 *  alone. */
bool KXAxisTickLabelView::_readLabels()
{
    std::uint64_t count = 0;
    const bool isList = deserializeArrayBegin("m_uxLabels") && deserializePeekArray(count);
    deserializeArrayEnd();
    if (!isList)
        return false;
    requestLabels(count);
    std::vector<UXLabel*> labels = obtainLabels();
    while (labels.size() > count) {
        delete labels.back();
        labels.pop_back();
    }
    return deserializeExistingObjectList("m_uxLabels", {labels.begin(), labels.end()}) &&
           labels.size() == count;
}
