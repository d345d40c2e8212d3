#include "checking_painter.h"

#include "ux/ux_rect_functions.h"
#include "ux/ux_text_measurer.h"
#include "ux/ux_text_placement.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

/** A curve is looked at in so many places. */
constexpr int curvePieces = 16;
/** How far something may reach out of the area, in logical units: the smoothing of an edge. A line along the
 * edge may have the pixel beyond it. */
constexpr double reachOut = 0.5;
/** How far two texts may reach into each other: their boxes are as high as a line, their letters are not. */
constexpr double blankHeight = 0.75, noise = 0.01;
/** A text of which less is left cannot be read. Of one that is cut through the middle the sums that made its
 * place may leave a little less than half. */
constexpr double leastSeenShare = 0.5 - 1e-6;
/** How far an edge may be from the next one between pixels, in pixels. */
constexpr double edgeNoise = 1e-3;
/** All that can be drawn on. */
constexpr UXDoubleRect everywhere{-1e9, -1e9, 2e9, 2e9};

using Corners = std::array<UXDoublePoint, 4>;

Corners obtainCorners(const UXTransform& transform, const UXDoubleRect& rect)
{
    return {transform.apply(rect.x, rect.y), transform.apply(rect.x + rect.width, rect.y),
            transform.apply(rect.x + rect.width, rect.y + rect.height),
            transform.apply(rect.x, rect.y + rect.height)};
}

UXDoubleRect obtainBounds(std::span<const UXDoublePoint> points)
{
    if (points.empty())
        return {};
    const auto [left, right] = std::minmax_element(points.begin(), points.end(),
                                                   [](auto& a, auto& b) { return a.x < b.x; });
    const auto [top, bottom] = std::minmax_element(points.begin(), points.end(),
                                                   [](auto& a, auto& b) { return a.y < b.y; });
    return {left->x, top->y, right->x - left->x, bottom->y - top->y};
}

/** @return whether two boxes lie on different sides of a line along one of the first one's edges */
bool isSeparatedByEdge(const Corners& box, const Corners& other)
{
    for (const std::size_t next : {std::size_t{1}, std::size_t{3}}) {
        const double x = box[next].x - box[0].x, y = box[next].y - box[0].y;
        const auto obtainRange = [x, y](const Corners& corners) {
            double low = corners[0].x * x + corners[0].y * y, high = low;
            for (const UXDoublePoint& corner : corners) {
                low = std::min(low, corner.x * x + corner.y * y);
                high = std::max(high, corner.x * x + corner.y * y);
            }
            return std::pair(low, high);
        };
        const auto own = obtainRange(box), others = obtainRange(other);
        const double tolerance = noise * std::hypot(x, y);
        if (own.second <= others.first + tolerance || others.second <= own.first + tolerance)
            return true;
    }
    return false;
}

/** @return how much of whole lies inside part, 0 to 1 */
double obtainShareInside(const UXDoubleRect& whole, const UXDoubleRect& part)
{
    const UXDoubleRect inside = uxIntersectionDoubleRect(whole, part);
    const bool isEmpty = inside.width <= 0 || inside.height <= 0;
    return isEmpty ? 0 : inside.width / whole.width * (inside.height / whole.height);
}

/** @return whether a rectangle lies beyond an edge of the clip that is inside the area, as what is scrolled
 * out of sight does */
bool isBeyondInnerEdge(const UXDoubleRect& rect, const UXDoubleRect& clip, const UXDoubleRect& area)
{
    const UXDoubleRect inner = uxInflateDoubleRect(area, -reachOut, -reachOut);
    return (uxMaxDoubleX(rect) <= clip.x && clip.x > inner.x) ||
           (rect.x >= uxMaxDoubleX(clip) && uxMaxDoubleX(clip) < uxMaxDoubleX(inner)) ||
           (uxMaxDoubleY(rect) <= clip.y && clip.y > inner.y) ||
           (rect.y >= uxMaxDoubleY(clip) && uxMaxDoubleY(clip) < uxMaxDoubleY(inner));
}

std::string describe(const UXDoubleRect& rect)
{
    char text[160];
    std::snprintf(text, sizeof text, "(%g, %g, %g x %g)", rect.x, rect.y, rect.width, rect.height);
    return text;
}

bool isBetweenPixels(double edge) { return std::abs(edge - std::round(edge)) <= edgeNoise; }

} // namespace

CheckingPainter::CheckingPainter(const UXDoubleRect& area, double deviceScale, const DrawingExcuses& excuses)
    : m_area(area), m_deviceScale(deviceScale), m_excuses(excuses)
{
    m_state.clip = everywhere;
}

std::vector<std::string> CheckingPainter::obtainFaults() const
{
    std::vector<std::string> faults = m_faults;
    for (auto a = m_texts.begin(); a != m_texts.end(); ++a) {
        for (auto b = a + 1; b != m_texts.end(); ++b) {
            if (!isSeparatedByEdge(a->corners, b->corners) && !isSeparatedByEdge(b->corners, a->corners) &&
                !_mayMeet(*a, *b))
                faults.push_back("text \"" + a->text + "\" " + describe(a->bounds) + " meets \"" + b->text +
                                 "\" " + describe(b->bounds));
        }
    }
    return faults;
}

bool CheckingPainter::_mayMeet(const Text& a, const Text& b) const
{
    return m_excuses.mayMeet && m_excuses.mayMeet(a, b);
}

void CheckingPainter::saveState() { m_savedStates.push_back(m_state); }

void CheckingPainter::restoreState()
{
    if (m_savedStates.empty())
        return;
    m_state = m_savedStates.back();
    m_savedStates.pop_back();
}

void CheckingPainter::setColor(const UXColor& color) { m_state.isClear = !(color.alpha > 0); }

void CheckingPainter::usePattern() { m_state.isClear = false; }

void CheckingPainter::setLineWidth(double width) { m_state.lineWidth = width; }

UXTransform CheckingPainter::getDeviceTransform() const
{
    return UXTransform{}.scaled(m_deviceScale, m_deviceScale).combined(m_state.toRoot);
}

void CheckingPainter::_checkFinite(const std::string& what, std::initializer_list<double> numbers)
{
    if (!std::ranges::all_of(numbers, [](double number) { return std::isfinite(number); }))
        m_faults.push_back(what + " has a place that is no number");
}

/** A space without a way back is one that no painter goes into. */
void CheckingPainter::transformSpace(const UXTransform& change)
{
    const UXTransform changed = m_state.toRoot.combined(change);
    _checkFinite("a space", {changed.xx, changed.xy, changed.yx, changed.yy, changed.dx, changed.dy});
    if (changed.isInvertible())
        m_state.toRoot = changed;
}

void CheckingPainter::transformPath(const UXTransform& change)
{
    if (!change.isInvertible())
        return;
    const UXTransform inRoot = m_state.toRoot.combined(change).combined(m_state.toRoot.inverted());
    for (UXDoublePoint& point : m_path)
        point = inRoot.apply(point.x, point.y);
}

void CheckingPainter::setStartPoint(double x, double y) { addLinePath(x, y); }

void CheckingPainter::addLinePath(double x, double y)
{
    _checkFinite("a path", {x, y});
    m_path.push_back(m_state.toRoot.apply(x, y));
}

void CheckingPainter::addRelativeLinePath(double dx, double dy)
{
    if (m_path.empty())
        return;
    const UXDoublePoint last = m_state.toRoot.inverted().apply(m_path.back().x, m_path.back().y);
    addLinePath(last.x + dx, last.y + dy);
}

void CheckingPainter::addCubicCurvePath(double x1, double y1, double x2, double y2, double x3, double y3)
{
    _checkFinite("a curve", {x1, y1, x2, y2, x3, y3});
    const UXDoublePoint first = m_path.empty() ? m_state.toRoot.apply(x1, y1) : m_path.back();
    const UXDoublePoint second = m_state.toRoot.apply(x1, y1), third = m_state.toRoot.apply(x2, y2);
    const UXDoublePoint last = m_state.toRoot.apply(x3, y3);
    for (int i = 1; i <= curvePieces; ++i) {
        const double t = static_cast<double>(i) / curvePieces, r = 1 - t;
        const double a = r * r * r, b = 3 * r * r * t, c = 3 * r * t * t, d = t * t * t;
        m_path.push_back({a * first.x + b * second.x + c * third.x + d * last.x,
                          a * first.y + b * second.y + c * third.y + d * last.y});
    }
}

void CheckingPainter::fillPreserve() { _checkPath("a shape", 0); }

void CheckingPainter::strokePreserve()
{
    if (m_state.lineWidth > 0)
        _checkPath("a line", m_state.lineWidth / 2);
}

void CheckingPainter::clipPreserve()
{
    m_state.clip = uxIntersectionDoubleRect(m_state.clip, obtainBounds(m_path));
}

/** @param margin around the path, in logical units */
void CheckingPainter::_checkPath(const std::string& what, double margin)
{
    if (!m_path.empty())
        _checkBounds(what, uxInflateDoubleRect(obtainBounds(m_path), margin, margin));
}

void CheckingPainter::_checkBounds(const std::string& what, const UXDoubleRect& bounds)
{
    if (m_state.isClear)
        return;
    const UXDoubleRect seen = uxIntersectionDoubleRect(bounds, m_state.clip);
    const double most = std::max(reachOut, 1 / m_deviceScale);
    const UXDoubleRect area = uxInflateDoubleRect(m_area, most, most);
    const bool isInside = seen.x >= area.x && seen.y >= area.y &&
                          seen.x + seen.width <= area.x + area.width &&
                          seen.y + seen.height <= area.y + area.height;
    if (!(seen.width <= 0 || seen.height <= 0) && !isInside)
        m_faults.push_back(what + " " + describe(seen) + " reaches out of the area");
}

void CheckingPainter::_checkRect(const std::string& what, const UXDoubleRect& rect)
{
    _checkFinite(what, {rect.x, rect.y, rect.width, rect.height});
    _checkBounds(what, obtainBounds(obtainCorners(m_state.toRoot, rect)));
}

void CheckingPainter::drawText(const std::string& text, const UXDoubleRect& rect, const UXFont& font,
                               UXTextAlign align, UXTextOption option, int lineMode)
{
    _checkFinite("text \"" + text + "\"", {rect.x, rect.y, rect.width, rect.height});
    UXDoubleSize size = uxMeasureText(text, font, option, lineMode, std::max(0.0, rect.width));
    if (option != UXTextOption::Default)
        size.width = std::min(size.width, rect.width);
    const UXDoubleRect place = uxPlaceText(size, rect, align);
    const Corners corners = obtainCorners(m_state.toRoot, uxInflateDoubleRect(place, 0, -blankHeight));
    const UXDoubleRect bounds = obtainBounds(corners);
    if (m_state.isClear || !(bounds.width > 0 && bounds.height > 0))
        return;
    _checkSeen({text, bounds});
    const UXDoubleRect seen = uxIntersectionDoubleRect(bounds, m_state.clip);
    if (!(seen.width > 0 && seen.height > 0))
        return;
    // Of a text that stands upright only what the clip leaves is seen; the bounds of a sloping one are not
    // it.
    const bool isUpright = m_state.toRoot.isUpright();
    m_texts.push_back(
        {{text, isUpright ? seen : bounds}, isUpright ? obtainCorners(UXTransform(), seen) : corners});
}

/** What is outside the area is a fault though a clip along the area's edge hides it. */
void CheckingPainter::_checkSeen(const DrawnText& whole)
{
    const std::string name = "text \"" + whole.text + "\"";
    const double share = obtainShareInside(whole.bounds, m_state.clip);
    const bool isOutside = obtainShareInside(whole.bounds, m_area) < leastSeenShare &&
                           !isBeyondInnerEdge(whole.bounds, m_state.clip, m_area);
    const bool isCut = share > 0 && share < leastSeenShare;
    if (!isOutside && !isCut)
        _checkBounds(name, whole.bounds);
    else if (!m_excuses.mayBeCut || !m_excuses.mayBeCut(whole))
        m_faults.push_back(name + " " + describe(whole.bounds) +
                           (isOutside ? " lies mostly out of the area" : " is mostly cut off"));
}

void CheckingPainter::drawRects(std::span<const UXDoubleRect> rects)
{
    const UXTransform toDevice = getDeviceTransform();
    for (const UXDoubleRect& rect : rects) {
        if (!(rect.width > 0 && rect.height > 0))
            continue;
        _checkRect("a rectangle", rect);
        const UXDoubleRect device = obtainBounds(obtainCorners(toDevice, rect));
        if (toDevice.isUpright() &&
            !(isBetweenPixels(device.x) && isBetweenPixels(device.y) &&
              isBetweenPixels(device.x + device.width) && isBetweenPixels(device.y + device.height)))
            m_faults.push_back("a rectangle has edges inside pixels " + describe(device));
    }
}

void CheckingPainter::drawImage(const UXImage*, const UXDoubleRect& rect, double)
{
    _checkRect("an image", rect);
}

void CheckingPainter::drawPicture(const UXPicture*, const UXDoubleRect& rect, double)
{
    _checkRect("a picture", rect);
}

void CheckingPainter::drawMaskedPicture(const UXPicture*, const UXImage*, const UXDoubleRect& rect)
{
    _checkRect("a picture", rect);
}

void CheckingPainter::drawMaskedPicture(const UXPicture*, const UXPicture*, const UXDoubleRect& rect)
{
    _checkRect("a picture", rect);
}

void CheckingPainter::drawMasked(const UXPaintFunction&, UXPaintConfig*, const UXDoubleRect& rect)
{
    _checkRect("a masked shape", rect);
}

void CheckingPainter::drawCompositedPicture(const UXPicture*, const UXPicture*, const UXDoubleRect& rect,
                                            UXCompositionMode)
{
    _checkRect("a picture", rect);
}

/** What a layer holds is looked at like everything else, as far as the layer shows. */
void CheckingPainter::drawComposited(const UXPaintFunction& action, UXPaintConfig*, const UXDoubleRect& rect,
                                     UXCompositionMode)
{
    if (!action)
        return;
    saveState();
    m_state.clip = uxIntersectionDoubleRect(m_state.clip, obtainBounds(obtainCorners(m_state.toRoot, rect)));
    action(this);
    restoreState();
}
