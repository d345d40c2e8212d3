#include "kx_axis_tick_label_view.h"

#include "kx_axis.h"
#include "kx_axis_tick_label_layout.h"
#include "kx_axis_tick_label_placed_label.h"
#include "kx_axis_tick_label_view_delegate.h"
#include "kx_chart_diagnostic.h"
#include "kx_text_losses.h"
#include "ux/ux_event.h"
#include "ux/ux_flag_scope.h"
#include "ux/ux_label.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_shortening.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string_view>

namespace {

constexpr std::string_view ellipsis = "\xE2\x80\xA6";
constexpr double noise = 1e-6;
constexpr int noWrapLineMode = 2;
/** How near to a hidden label's tick the pointer asks for it, where ticks are far apart. */
constexpr double hintReach = 8;
/** What is seen between labels at least: what is kept between them, less the unit by which the places of
 *  their ticks are rounded. */
constexpr double leastGap = 1;
/** And beside one that is partly scrolled out of sight. */
constexpr double scrolledGap = 4;
/** By how much a marked number may be wider than the room that was kept for the plain one. */
constexpr double markedSlack = 2;

UXPoint add(const UXPoint& point, std::int64_t x, std::int64_t y)
{
    return {uxSaturateToInt(point.x + x), uxSaturateToInt(point.y + y)};
}

/** @return the text with an ellipsis directly after its last word or letter that fits */
std::string shorten(const std::string& text, double limit, const UXTextWidthFunction& widthOf)
{
    std::string shortened = uxShortenText(text, UXTextOption::EllipsisEnd, limit, widthOf);
    if (!shortened.ends_with(ellipsis))
        return shortened;
    const std::size_t end = shortened.size() - ellipsis.size();
    const std::size_t last = shortened.find_last_not_of(' ', end == 0 ? 0 : end - 1);
    const std::size_t kept = end == 0 || last == std::string::npos ? 0 : last + 1;
    return shortened.erase(kept, end - kept);
}

} // namespace

double KXAxisTickLabelView::_obtainRotateDegree(KXAxisTickLabelRotationType type) const
{
    return kxObtainTickLabelDegrees(m_position, type);
}

KXAxisTickLabelLayout KXAxisTickLabelView::_obtainLayout() const { return {m_position, m_resolvedRotation}; }

UXDoubleSize KXAxisTickLabelView::_measureText(const std::string& text, const UXTextProperty& property) const
{
    return uxMeasureText(text, property.font, UXTextOption::Default, noWrapLineMode);
}

/** @return the text with the breaks that are resolved for all labels */
std::string KXAxisTickLabelView::_obtainLines(const std::string& text) const
{
    return m_lineCount == 1 ? text : kxWrapTickLabel(text, [this](std::string_view piece) {
        return _measureText(std::string(piece), m_textProperty).width;
    });
}

/** @return the place of a tick in the own space, across the axis at the edge of the area that faces it */
UXPoint KXAxisTickLabelView::_obtainTickPoint(const UXPoint& positionInAxis) const
{
    UXPoint point = add(positionInAxis, -std::int64_t{m_scale.origin.x}, -std::int64_t{m_scale.origin.y});
    const UXRect& area = m_scale.area;
    if (_obtainLayout().isAlongX())
        point.y = std::clamp(point.y, area.y, (std::max)(uxMaxY(area), area.y));
    else if (m_centersLabels) // the axis may be anywhere
        point.x = m_position == UXPosition::Right ? area.x : uxMaxX(area);
    else
        point.x = std::clamp(point.x, area.x, (std::max)(uxMaxX(area), area.x));
    return point;
}

/** @return what the band may be long at most, nothing where it may be of any length */
std::optional<double> KXAxisTickLabelView::_obtainLengthLimit() const
{
    if (m_customLabelLength > 0)
        return m_customLabelLength;
    if (getVisible() && m_maxLabelLength > 0)
        return m_maxLabelLength;
    return std::nullopt;
}

void KXAxisTickLabelView::customLayout()
{
    if (m_updating)
        return;
    const UXObjectWatcher self(this);
    KXAxisChartBaseLayer::customLayout();
    if (!self.isAlive())
        return;
    bool isDone = _bringUpToDate(Step::Cache);
    if (!self.isAlive())
        return;
    UXFlagScope updating(this, m_updating);
    isDone = isDone && _wantTexts();
    isDone = isDone && self.isAlive() && _placeLabels();
    if (!self.isAlive())
        return;
    updating.end();
    // Without a delegate or an axis, what was shown stands for nothing.
    if (!isDone)
        m_placedLabels.clear();
    _showLabels();
}

bool KXAxisTickLabelView::_placeLabels()
{
    std::vector<PlacedLabel> placed;
    const std::size_t count = m_showTickLabels && m_scale.isValid ? m_visibleTicks.size() : 0;
    for (std::size_t i = 0; i < count; ++i) {
        Tick& tick = m_visibleTicks[m_scale.isReversed ? count - 1 - i : i];
        if (!_isShown(tick))
            continue;
        PlacedLabel label;
        bool isPlaced = false;
        if (!_placeLabel(tick, label, isPlaced))
            return false;
        if (isPlaced)
            _joinLabels(placed, std::move(label));
    }
    m_placedLabels = std::move(placed);
    return true;
}

/** What is partly scrolled out of sight moves inside, and gives way where it comes too close to its
 * neighbour: in between, even steps have no gap. Of labels that are decided one by one, the first one stays.
 */
void KXAxisTickLabelView::_joinLabels(std::vector<PlacedLabel>& placed, PlacedLabel&& label) const
{
    const bool keepsApart = m_tickLabelIntervalMode == KXAxisTickLabelIntervalMode::Auto && !placed.empty();
    const bool isAtEnd = keepsApart && (label.isScrolledOut || placed.back().isScrolledOut);
    const double gap = isAtEnd && !_isEachDecided() ? scrolledGap : leastGap;
    if (keepsApart && _obtainLayout().isOverlapping(placed.back().place, label.place, gap)) {
        if (_isEachDecided() || label.isScrolledOut)
            return;
        if (placed.back().isScrolledOut)
            placed.pop_back();
    }
    placed.push_back(std::move(label));
}

bool KXAxisTickLabelView::_placeLabel(Tick& tick, PlacedLabel& label, bool& isPlaced)
{
    // 1. A tick outside the area has no label, however far its label would reach.
    UXPoint point;
    if (!_measureTick(tick) ||
        !_askAxis([&](KXAxis& axis) { point = axis.obtainValuePositionInAxis(tick.value); }))
        return false;
    point = _obtainTickPoint(point);
    const UXRect reach = uxInflateRect(m_scale.area, 1, 1);
    if (uxIsEmptyRect(m_scale.area) || !uxPointInRect(point, reach))
        return true;

    // 2. A marked label is printed bold, and wider.
    label.index = tick.index;
    label.wholeText = *tick.text;
    label.text = tick.lines;
    label.property = m_textProperty;
    bool isDifferent = false, isMarked = false;
    UXColor color = m_textProperty.textColor;
    if (!_askDelegate([&](KXAxisTickLabelViewDelegate& delegate) {
            isDifferent = delegate.axisTickLabelViewObtainTickLabelVisuals(this, tick.value, color, isMarked);
        }))
        return false;
    if (isDifferent) {
        label.property.textColor = color;
        label.property.font.bold = label.property.font.bold || isMarked;
    }
    isPlaced = !label.text.empty() && _fitLabel(label, point, _obtainWidthBetweenNeighbors(tick, point));
    label.isScrolledOut = label.movedBy > _obtainMoveInside(tick, _obtainLayout()) + 1;
    return true;
}

/** @param widthLimit of the text, beside what the area allows
 *  @return whether anything is left of the label */
bool KXAxisTickLabelView::_fitLabel(PlacedLabel& label, const UXPoint& tick, double widthLimit) const
{
    // 1. A text can be shortened, a number not, and nothing be made flatter.
    const KXAxisTickLabelLayout layout = _obtainLayout();
    const auto measure = [&](const std::string& text) { return _measureText(text, label.property); };
    UXDoubleSize size = measure(label.text);
    UXRect area = m_scale.area;
    if (!layout.hasRoomForHeight(size.height, tick, area))
        return false;

    // 2. The band's limit counts where the text runs across the axis.
    if (const std::optional<double> limit = _obtainLengthLimit())
        area = layout.obtainBand(tick, area, *limit);
    widthLimit = (std::min)(widthLimit, layout.obtainWidthLimit(size, tick, area, m_showLabelInBound));
    const double slack = label.property.font == m_textProperty.font ? noise : markedSlack;
    if (size.width > widthLimit + slack) {
        if (kxIsNumberLabel(label.wholeText))
            return false;
        label.text = shorten(label.wholeText, widthLimit,
                             [&](std::string_view piece) { return measure(std::string(piece)).width; });
        if (label.text == ellipsis)
            return false;
        label.isCut = label.text != label.wholeText;
        size = measure(label.text);
    }

    // 3. What still sticks out is half the height of a line.
    label.place = layout.obtainPlace(size, tick);
    if (m_centersLabels && !layout.isAlongX())
        label.place.center.x = m_scale.area.x + m_scale.area.width / 2.0;
    const UXRect rect = layout.obtainRect(label.place);
    label.rect = updateLabelRectToShowInBoundary(rect);
    label.movedBy = std::abs(layout.isAlongX() ? label.rect.x - rect.x : label.rect.y - rect.y);
    label.place.center.x += label.rect.x - rect.x;
    label.place.center.y += label.rect.y - rect.y;
    return true;
}

void KXAxisTickLabelView::_showLabels()
{
    _growLabels(m_placedLabels.size());
    const UXObjectWatcher self(this);
    const double degrees = _obtainRotateDegree(m_resolvedRotation);
    for (std::size_t i = 0; self.isAlive() && i < m_uxLabels.size(); ++i) {
        auto* label = static_cast<UXLabel*>(m_uxLabels[i].getObject());
        if (!label)
            continue;
        if (i >= m_placedLabels.size()) {
            label->setVisible(false);
            continue;
        }
        const PlacedLabel& placed = m_placedLabels[i];
        UXTextProperty property = placed.property;
        property.align = _obtainLayout().obtainAlign();
        property.option = UXTextOption::Default;
        property.lineMode = noWrapLineMode;
        label->setTextProperty(property);
        label->setText(placed.text);
        label->setRotation(degrees);
        label->setRect(placed.rect);
        label->setVisible(true);
    }
}

/** Makes labels where there are fewer, in place of those that someone destroyed as well. */
void KXAxisTickLabelView::_growLabels(std::size_t count)
{
    std::erase_if(m_uxLabels, [](const UXObjectWatcher& label) { return !label.isAlive(); });
    while (m_uxLabels.size() < count) {
        auto* label = new UXLabel;
        label->setVisible(false);
        addChild(label);
        m_uxLabels.emplace_back(label);
    }
}

bool KXAxisTickLabelView::customMouseMove(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    const bool isHandled = KXAxisChartBaseLayer::customMouseMove(event, stop);
    if (!self.isAlive())
        return isHandled;
    const UXPoint point = translatePoint(event.getMousePoint(), nullptr, this);
    std::string text;
    if (!_obtainHiddenText(point, text))
        return isHandled;
    if (text.empty()) {
        hideHint();
        return isHandled;
    }
    UXHintInfo info;
    info.title = text;
    UXEvent hintEvent = event;
    showHint(point, &hintEvent, &info);
    return isHandled;
}

bool KXAxisTickLabelView::customMouseLeave(const UXEvent& event, bool& stop)
{
    hideHint();
    return KXAxisChartBaseLayer::customMouseLeave(event, stop);
}

UXRect KXAxisTickLabelView::obtainHintArea(UXPoint point)
{
    const PlacedLabel* label = _findLabelAt(point);
    return label ? label->rect : UXRect();
}

const KXAxisTickLabelView::PlacedLabel* KXAxisTickLabelView::_findLabelAt(const UXPoint& point) const
{
    const KXAxisTickLabelLayout layout = _obtainLayout();
    const auto found = std::find_if(
        m_placedLabels.begin(), m_placedLabels.end(),
        [&](const PlacedLabel& label) { return layout.holdsPoint(label.place, point); });
    return found == m_placedLabels.end() ? nullptr : &*found;
}

/** @param text receives the label at a point that cannot be read there, nothing where there is none
 *  @return false once the view has gone */
bool KXAxisTickLabelView::_obtainHiddenText(const UXPoint& point, std::string& text)
{
    if (const PlacedLabel* label = _findLabelAt(point)) {
        if (label->isCut)
            text = label->wholeText;
        return true;
    }
    if (!m_showTickLabels || !m_scale.isValid || m_updating)
        return true;
    const UXObjectWatcher self(this);
    Tick tick;
    bool isFound = false;
    // The delegate may ask for a step meanwhile, which would take the ticks away from under this.
    UXFlagScope updating(this, m_updating);
    const bool isDone = _findTickAt(point, tick, isFound);
    updating.end();
    if (!isDone)
        return self.isAlive();
    const auto shown = std::find_if(m_placedLabels.begin(), m_placedLabels.end(),
                                    [&](const PlacedLabel& label) { return label.index == tick.index; });
    if (isFound && (shown == m_placedLabels.end() || shown->isCut))
        text = *tick.text;
    return true;
}

/** Finds the tick whose label would lie at a point. */
bool KXAxisTickLabelView::_findTickAt(const UXPoint& point, Tick& tick, bool& isFound)
{
    const double height = m_placedLabels.empty() ? 0 : m_placedLabels.front().place.size.height;
    const UXPoint foot = _obtainLayout().obtainFoot(point, height, _obtainTickPoint(m_scale.start));
    const double x = static_cast<double>(foot.x) + m_scale.origin.x - m_scale.start.x;
    const double y = static_cast<double>(foot.y) + m_scale.origin.y - m_scale.start.y;
    const double along = x * m_scale.xNotation - (m_scale.xNotation == 0 ? y * m_scale.yNotation : 0);
    double value = m_scale.first + along / m_scale.spacing;
    if (const KXAxis* axis = getAxis(); axis && value > 0)
        value = (std::max)(value - axis->getGap() / m_scale.spacing, 0.0);
    const std::optional<int> next = _findTick(value);
    if (!next)
        return false;
    double nearest = (std::max)(hintReach, m_tickDistance * m_scale.spacing / 2) + noise;
    int found = -1;
    for (const int index : {*next - 1, *next}) {
        double candidate = 0;
        if (index < 0 || index >= m_tickCount)
            continue;
        if (!_obtainTick(index, candidate))
            return false;
        const double distance = std::abs(candidate - value) * m_scale.spacing;
        if (distance < nearest) {
            nearest = distance;
            found = index;
        }
    }
    isFound = found >= 0;
    return !isFound || _takeTick(found, tick);
}

void KXAxisTickLabelView::diagnose(std::vector<KXChartDiagnostic>& diagnostics, const UXObject& chart) const
{
    auto* axis = static_cast<KXAxis*>(m_axis.getObject());
    if (!m_showTickLabels || !m_scale.isValid || !axis)
        return;
    KXTextLosses losses;
    const UXRect reach = uxInflateRect(m_scale.area, 1, 1);
    for (const Tick& tick : m_visibleTicks) {
        const auto placed = std::ranges::find(m_placedLabels, tick.index, &PlacedLabel::index);
        if (placed != m_placedLabels.end()) {
            if (placed->isCut)
                losses.shorten(placed->wholeText, UXDoubleRect(placed->rect));
            continue;
        }
        const UXPoint point = _obtainTickPoint(axis->obtainValuePositionInAxis(tick.value));
        if (!uxPointInRect(point, reach))
            continue;
        if (tick.text && !tick.text->empty())
            losses.leaveOut(*tick.text, UXDoubleRect(point.x, point.y, 1, 1));
        else if (!tick.text)
            losses.leaveOutMore(1);
    }
    losses.tell(diagnostics, *this, chart);
}
