#include "kx_axis.h"

#include "kx_axis_delegate.h"
#include "kx_key_type.h"
#include "ux/ux_color.h"
#include "ux/ux_double_rect.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

constexpr double tolerance = 1e-8;
constexpr double largest = (std::numeric_limits<double>::max)();
/** Places are kept within this many lengths of the content. */
constexpr double farthestLengths = 1000;

double saturate(double value) { return std::isnan(value) ? 0 : std::clamp(value, -largest, largest); }

int obtainSign(int number) { return (number > 0) - (number < 0); }

struct Ends {
    UXPoint start, end;

    double obtainLength() const
    {
        return std::hypot(static_cast<double>(end.x) - start.x, static_cast<double>(end.y) - start.y);
    }
};

Ends obtainEnds(const UXRect& rect, int xNotation, int yNotation)
{
    const std::int64_t width = rect.width, height = rect.height;
    const UXPoint start{uxSaturateToInt(xNotation >= 0 ? rect.x : rect.x + width),
                        uxSaturateToInt(yNotation >= 0 ? rect.y + height : rect.y)};
    return {start,
            {uxSaturateToInt(start.x + width * xNotation), uxSaturateToInt(start.y - height * yNotation)}};
}

double lengthenLine(double start, double end, double share)
{
    return saturate(start + (end - start) * share);
}

/** @return the point at share of the way, whatever the numbers are */
double obtainBetween(double start, double end, double share)
{
    return start == end ? start : saturate(start + share * saturate(end - start));
}

} // namespace

KXAxis::KXAxis() { setColor(UXColor(239, 239, 244, 1.0)); }

KXAxis::~KXAxis() = default;

void KXAxis::setDelegate(KXAxisDelegate* delegate) { m_delegate = delegate; }

void KXAxis::setRect(UXRect rect)
{
    if (rect != getRect())
        m_needsUpdate = true;
    KXAxisChartBaseLayer::setRect(rect);
}

void KXAxis::setVectorNotation(int x, int y)
{
    x = obtainSign(x);
    y = obtainSign(y);
    if (x == m_xVectorNotation && y == m_yVectorNotation)
        return;
    m_xVectorNotation = x;
    m_yVectorNotation = y;
    _markStale();
}

void KXAxis::setVectorNotationRight() { setVectorNotation(1, m_yVectorNotation); }

void KXAxis::setMaxValue(double value) { _updateValue(m_maxValue, value); }

void KXAxis::setMinValue(double value) { _updateValue(m_minValue, value); }

void KXAxis::setValueSpacing(double spacing) { _updateValue(m_valueSpacing, spacing); }

void KXAxis::setMinValueSpacing(double spacing) { _updateValue(m_minValueSpacing, spacing); }

void KXAxis::setValueScale(double scale) { _updateValue(m_valueScale, scale); }

void KXAxis::setOffset(std::int64_t offset)
{
    if (offset == m_offset)
        return;
    m_offset = offset;
    m_offsetChanged = true;
    _markStale();
}

void KXAxis::setShiftHalfValueSpacing(bool shift)
{
    if (shift == m_shiftHalfValueSpacing)
        return;
    m_shiftHalfValueSpacing = shift;
    _markStale();
}

double KXAxis::getExtraLength(const std::string& key) const
{
    const auto found = m_extraLengths.find(key);
    return found == m_extraLengths.end() ? 0 : found->second;
}

void KXAxis::setExtraLength(const std::string& key, double length)
{
    length = (std::max)(saturate(length), 0.0);
    // However small the difference: what the axis had before must not be seen in what it shows now.
    if (getExtraLength(key) == length)
        return;
    if (length > 0)
        m_extraLengths[key] = length;
    else
        m_extraLengths.erase(key);
    _markStale();
}

void KXAxis::setGap(double length)
{
    m_gap = (std::max)(saturate(length), 0.0);
    setExtraLength("gap", m_gap);
}

void KXAxis::clearExtraLengths()
{
    if (m_extraLengths.empty())
        return;
    m_extraLengths.clear();
    m_gap = 0;
    _markStale();
}

void KXAxis::setApplyExtralengthToTheEnd(bool apply)
{
    if (apply == m_applyExtralengthToTheEnd)
        return;
    m_applyExtralengthToTheEnd = apply;
    _markStale();
}

void KXAxis::setShowAxis(bool show)
{
    if (show == m_showAxis)
        return;
    m_showAxis = show;
    invalidate();
}

void KXAxis::update()
{
    if (!_updateCache())
        return;
    const bool changed = m_offsetChanged || m_currentValueSpacing != m_notifiedValueSpacing;
    m_offsetChanged = false;
    m_notifiedValueSpacing = m_currentValueSpacing;
    if (changed && m_delegate)
        m_delegate->axisVisibleValuesChanged(this);
}

void KXAxis::reloadData()
{
    m_needsUpdate = true;
    update();
}

void KXAxis::updateCache() { _updateCache(); }

double KXAxis::obtainTotalExtraLength() const
{
    double total = 0;
    for (const auto& [key, length] : m_extraLengths)
        total += length;
    return saturate(total);
}

double KXAxis::obtainValueSpacing(double extraLength) const
{
    if (m_valueSpacing > 0)
        return m_valueSpacing;
    const double span = _obtainSpan() / m_valueScale;
    if (!(span > 0))
        return 0;
    const double length = obtainEnds(getRect(), m_xVectorNotation, m_yVectorNotation).obtainLength();
    const double filling = saturate((length - saturate(extraLength)) / span);
    return (std::max)({0.0, m_minValueSpacing, filling});
}

double KXAxis::obtainCurrentValueSpacing() { return _updateCache() ? m_currentValueSpacing : 0; }

double KXAxis::obtainAxisLength() { return _updateCache() ? m_axisLength : 0; }

double KXAxis::obtainTotalLength() { return _updateCache() ? m_totalLength : 0; }

std::pair<UXPoint, UXPoint> KXAxis::obtainStartEndPoints()
{
    if (!_updateCache())
        return {};
    return {m_startPoint, m_endPoint};
}

double KXAxis::obtainShiftHalfValueSpacingOffset() { return _updateCache() ? _obtainShift() : 0; }

double KXAxis::obtainActualOffset(std::int64_t offset)
{
    return obtainShiftHalfValueSpacingOffset() + static_cast<double>(offset);
}

UXDoublePoint KXAxis::obtainDoubleValuePositionInAxis(double value)
{
    return obtainDoubleValuePositionInAxis(value, m_offset);
}

UXDoublePoint KXAxis::obtainDoubleValuePositionInAxis(double value, std::int64_t offset)
{
    // 1. Without extent there is one place.
    if (!_updateCache())
        return {};
    if (m_maxValue == m_minValue || m_currentExtraLength >= m_totalLength || std::isnan(value))
        return m_contentStart;

    // 2. Scroll the place within the content along the axis.
    UXDoublePoint point = _obtainContentPoint(value);
    double moved = -(_obtainShift() + static_cast<double>(offset));
    if (isReversed() && m_applyExtralengthToTheEnd)
        moved += m_currentExtraLength;
    const double farthest = saturate(m_totalLength * farthestLengths);
    const double beyond = value < 0 ? 0 : value > 0 ? m_gap : m_gap / 2; // of the gap
    if (m_xVectorNotation != 0)
        point.x = std::clamp(point.x + moved + beyond * m_xVectorNotation, -farthest, farthest);
    if (m_yVectorNotation != 0)
        point.y = std::clamp(point.y + moved - beyond * m_yVectorNotation, -farthest, farthest);
    return point;
}

UXPoint KXAxis::obtainValuePositionInAxis(double value) { return obtainValuePositionInAxis(value, m_offset); }

UXPoint KXAxis::obtainValuePositionInAxis(double value, std::int64_t offset)
{
    const UXDoublePoint point = obtainDoubleValuePositionInAxis(value, offset);
    return {uxSaturateToInt(std::round(point.x)), uxSaturateToInt(std::round(point.y))};
}

std::pair<double, double> KXAxis::obtainCurrentFirstLastValues()
{
    if (!_updateCache())
        return {};
    if (m_currentValueSpacing <= 0)
        return {m_minValue, m_minValue};
    const double offset = _obtainShift() + static_cast<double>(m_offset);
    const double visible = saturate(m_axisLength / m_currentValueSpacing);
    if (!isReversed()) {
        const double first = saturate(offset / m_currentValueSpacing + m_minValue);
        return {first, saturate(first + visible)};
    }
    const double last = saturate((m_totalLength - offset) / m_currentValueSpacing + m_minValue);
    return {saturate(last - visible), last};
}

bool KXAxis::isValidAxis()
{
    return _updateCache() && m_maxValue != m_minValue && m_currentExtraLength < m_totalLength;
}

bool KXAxis::isScrollable() { return _updateCache() && m_totalLength - uxSaturateToInt(m_axisLength) > 1.0; }

void KXAxis::customLayout()
{
    const UXObjectWatcher watcher(this);
    KXAxisChartBaseLayer::customLayout();
    if (watcher.isAlive())
        update();
}

void KXAxis::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (m_showAxis) {
        if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
            const UXRect line = _obtainLineRect();
            const UXDoubleRect rects[] = {UXDoubleRect(line.x, line.y, line.width, line.height)};
            painter->setColor(getColor());
            painter->drawRects(rects);
            uxDestroyPainter(painter);
        }
    }
    KXAxisChartBaseLayer::paint(config, dirtyRect);
}

void KXAxis::customSerialize()
{
    KXAxisChartBaseLayer::customSerialize();
    serializeInt64("m_xVectorNotation", m_xVectorNotation);
    serializeInt64("m_yVectorNotation", m_yVectorNotation);
    serializeDouble("m_maxValue", m_maxValue);
    serializeDouble("m_minValue", m_minValue);
    serializeDouble("m_valueSpacing", m_valueSpacing);
    serializeDouble("m_minValueSpacing", m_minValueSpacing);
    serializeDouble("m_valueScale", m_valueScale);
    serializeInt64("m_offset", m_offset);
    serializeBool("m_shiftHalfValueSpacing", m_shiftHalfValueSpacing);
    std::vector<std::string> keys;
    std::vector<double> lengths;
    for (const auto& [key, length] : m_extraLengths) {
        keys.push_back(key);
        lengths.push_back(length);
    }
    kxWriteKey(this, "m_extraLengths_key", keys);
    kxWriteKey(this, "m_extraLengths_value", lengths);
    serializeBool("m_applyExtralengthToTheEnd", m_applyExtralengthToTheEnd);
    serializeBool("m_showAxis", m_showAxis);
}

std::string KXAxis::customSerializeTypeID() { return "KXAxis"; }

bool KXAxis::customDeserialize()
{
    bool complete = KXAxisChartBaseLayer::customDeserialize();
    complete = deserializeInt64("m_xVectorNotation", m_xVectorNotation) && complete;
    complete = deserializeInt64("m_yVectorNotation", m_yVectorNotation) && complete;
    complete = deserializeDouble("m_maxValue", m_maxValue) && complete;
    complete = deserializeDouble("m_minValue", m_minValue) && complete;
    complete = deserializeDouble("m_valueSpacing", m_valueSpacing) && complete;
    complete = deserializeDouble("m_minValueSpacing", m_minValueSpacing) && complete;
    complete = deserializeDouble("m_valueScale", m_valueScale) && complete;
    const std::int64_t offset = m_offset;
    complete = deserializeInt64("m_offset", m_offset) && complete;
    complete = deserializeBool("m_shiftHalfValueSpacing", m_shiftHalfValueSpacing) && complete;
    complete = _deserializeExtraLengths() && complete;
    complete = deserializeBool("m_applyExtralengthToTheEnd", m_applyExtralengthToTheEnd) && complete;
    complete = deserializeBool("m_showAxis", m_showAxis) && complete;

    m_xVectorNotation = obtainSign(m_xVectorNotation);
    m_yVectorNotation = obtainSign(m_yVectorNotation);
    m_offsetChanged = m_offsetChanged || m_offset != offset;
    _markStale();
    return complete;
}

bool KXAxis::_deserializeExtraLengths()
{
    std::vector<std::string> keys;
    std::vector<double> lengths;
    const bool hasKeys = kxReadKey(this, "m_extraLengths_key", keys);
    const bool hasLengths = kxReadKey(this, "m_extraLengths_value", lengths);
    if (!hasKeys || !hasLengths || keys.size() != lengths.size())
        return false;
    m_extraLengths.clear();
    for (std::size_t i = 0; i < keys.size(); ++i)
        if (lengths[i] > 0)
            m_extraLengths[keys[i]] = lengths[i];
    return true;
}

void KXAxis::_markStale()
{
    m_needsUpdate = true;
    requireLayout();
}

void KXAxis::_updateValue(double& member, double value)
{
    if (std::isnan(value) || std::abs(saturate(value) - member) < tolerance)
        return;
    member = saturate(value);
    _markStale();
}

/** @return false once the delegate has destroyed the axis */
bool KXAxis::_updateCache()
{
    if (!m_needsUpdate || m_updating)
        return true;
    const UXFlagScope updating(this, m_updating);
    m_needsUpdate = false;

    // 1. Work out the lengths. The scale divides the spacing and multiplies the total.
    m_maxValue = (std::max)(m_maxValue, m_minValue);
    const Ends ends = obtainEnds(getRect(), m_xVectorNotation, m_yVectorNotation);
    const double extra = obtainTotalExtraLength();
    const double spacing = obtainValueSpacing(extra);
    double total = saturate(_obtainSpan() * spacing * m_valueScale);
    if (total > 0 && extra > 0)
        total = saturate(total + extra);
    const double length = ends.obtainLength();
    const bool changed = total != m_totalLength || spacing != m_currentValueSpacing || length != m_axisLength;

    // 2. Keep them, and lay the content along the line.
    m_startPoint = ends.start;
    m_endPoint = ends.end;
    m_currentValueSpacing = spacing;
    m_currentExtraLength = extra;
    m_totalLength = total;
    m_axisLength = length;
    _updateContentLine();

    // 3. Tell the delegate last, when every query has its answer.
    const UXObjectWatcher watcher(this);
    if (changed && m_delegate)
        m_delegate->axisAxisLengthChanged(this, total);
    return watcher.isAlive();
}

/** Lays the content so that the visible part is its first piece: from the start, or from the end of a
 * reversed axis, whose positions are counted from the far end of the content. */
void KXAxis::_updateContentLine()
{
    m_contentStart = m_startPoint;
    m_contentEnd = m_startPoint;
    if (!(m_axisLength > 0) || !(m_totalLength > m_currentExtraLength))
        return;
    const UXDoublePoint from = isReversed() ? m_endPoint : m_startPoint;
    const UXDoublePoint to = isReversed() ? m_startPoint : m_endPoint;
    const double share = (m_totalLength - m_currentExtraLength) / m_axisLength;
    m_contentStart = from;
    m_contentEnd = {lengthenLine(from.x, to.x, share), lengthenLine(from.y, to.y, share)};
}

double KXAxis::_obtainSpan() const { return saturate(m_maxValue - m_minValue); }

UXDoublePoint KXAxis::_obtainContentPoint(double value) const
{
    const double distance = saturate(value - m_minValue);
    const double share = saturate(distance * m_currentValueSpacing / (m_totalLength - m_currentExtraLength));
    const UXDoublePoint from = isReversed() ? m_contentEnd : m_contentStart;
    const UXDoublePoint to = isReversed() ? m_contentStart : m_contentEnd;
    return {obtainBetween(from.x, to.x, share), obtainBetween(from.y, to.y, share)};
}

double KXAxis::_obtainShift() const
{
    if (!m_shiftHalfValueSpacing)
        return 0;
    const double shift = std::floor(0.5 * m_currentValueSpacing);
    return isReversed() ? -shift : shift;
}

/** @return the axis line in the own space, one unit thick and inside the rectangle */
UXRect KXAxis::_obtainLineRect() const
{
    const UXRect rect = getRect();
    if (m_xVectorNotation != 0)
        return {0, uxSaturateToInt(std::int64_t{rect.height} - 1), rect.width, 1};
    if (m_yVectorNotation != 0)
        return {0, 0, 1, rect.height};
    return {};
}
