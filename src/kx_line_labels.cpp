#include "kx_line_labels.h"

#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <utility>

namespace {

/** Between two labels in a row, in logical units. */
constexpr double labelGap = 3;

enum Rank : int { first, other };

} // namespace

KXLineLabelPlacer::KXLineLabelPlacer(const KXAxisChartPlotFrame& frame, KXLineLabelPosition position,
                                     double pointSize, std::function<bool(const UXDoubleRect&)> isOverLine)
    : m_frame(frame), m_position(position), m_distance(std::max(pointSize, 0.0) / 2 + gap),
      m_isOverLine(std::move(isOverLine)), m_placer(UXDoubleRect(frame.area), labelGap)
{
}

KXLineLabelPlacer::~KXLineLabelPlacer() = default;

void KXLineLabelPlacer::addObstacle(const UXDoublePoint& point)
{
    const double half = m_distance - gap;
    m_placer.addObstacle({point.x - half, point.y - half, 2 * half, 2 * half});
}

void KXLineLabelPlacer::addObstacle(const UXDoubleRect& rect)
{
    m_placer.addObstacle(rect);
    m_taken.push_back(rect);
}

UXDoubleRect KXLineLabelPlacer::_makeRect(const UXDoublePoint& point, KXLineLabelPosition side,
                                          const UXDoubleSize& size) const
{
    UXDoubleRect rect(point.x - size.width / 2, point.y - size.height / 2, size.width, size.height);
    switch (side) {
    case KXLineLabelPosition::Left:
        rect.x = point.x - m_distance - size.width;
        break;
    case KXLineLabelPosition::Right:
        rect.x = point.x + m_distance;
        break;
    case KXLineLabelPosition::Top:
        rect.y = point.y - m_distance - size.height;
        break;
    case KXLineLabelPosition::Bottom:
        rect.y = point.y + m_distance;
        break;
    }
    return rect;
}

void KXLineLabelPlacer::add(const KXAxisChartMark& mark, const UXDoublePoint& point, const std::string& text,
                            const UXTextProperty& property, Extreme extreme)
{
    using enum KXLineLabelPosition;
    const bool isExtreme = extreme != Extreme::None;
    KXLabelRequest request{text, property, isExtreme ? first : other, false, KXCollisionGrid::noOwner, {}};
    request.property.align = UXTextAlign::Center;
    const UXDoubleSize size = m_placer.measure(request.text, request.property);
    const bool standsBelow = extreme == Extreme::Least && m_position == Top && m_frame.isVertical;
    const KXLineLabelPosition wanted = standsBelow ? Bottom : m_position;
    request.candidates.push_back({_makeRect(point, wanted, size), std::nullopt});
    for (const KXLineLabelPosition side : {Top, Bottom, Right, Left})
        if (side != wanted)
            request.candidates.push_back({_makeRect(point, side, size), std::nullopt});
    std::ranges::stable_partition(request.candidates,
                                  [this](const auto& candidate) { return !m_isOverLine(candidate.rect); });
    m_requests.push_back(std::move(request));
    m_marks.push_back(mark);
}

void KXLineLabelPlacer::addName(const KXAxisChartMark& mark, const UXDoublePoint& point,
                                const std::string& text, const UXTextProperty& property)
{
    KXLineLabel name{mark, text, {}, property, false};
    name.property.align = m_frame.isVertical ? UXTextAlign::Left : UXTextAlign::Center;
    const KXLineLabelPosition side = m_frame.isVertical ? KXLineLabelPosition::Right
                                                        : KXLineLabelPosition::Bottom;
    name.rect = _makeRect(point, side, m_placer.measure(text, name.property));
    m_names.push_back(std::move(name));
}

/** From the start on each one moves only as far as the one before it wants, then all as far back as the end
 * of the room wants; those that still have none are left to the hints. */
void KXLineLabelPlacer::_placeNames(std::vector<KXLineLabel>& labels) const
{
    const KXAxisChartInterval room = m_frame.obtainAlong();
    const auto obtainAlong = [this](const KXLineLabel& label) { return m_frame.obtainAlong(label.rect); };
    const auto moveTo = [this](KXLineLabel& label, double start) {
        (m_frame.isVertical ? label.rect.y : label.rect.x) = start;
    };
    std::vector<KXLineLabel> names = m_names;
    std::ranges::stable_sort(names, {}, [&](const KXLineLabel& name) { return obtainAlong(name).start; });
    double reached = room.start;
    for (KXLineLabel& name : names) {
        moveTo(name, std::max(obtainAlong(name).start, reached));
        reached = obtainAlong(name).end;
    }
    double limit = room.end;
    for (std::size_t i = names.size(); i > 0; --i) {
        KXLineLabel& name = names[i - 1];
        moveTo(name, std::min(obtainAlong(name).start, limit - obtainAlong(name).obtainLength()));
        limit = obtainAlong(name).start;
    }
    reached = room.start;
    const KXAxisChartInterval across = m_frame.obtainAcross();
    for (KXLineLabel& name : names) {
        if (obtainAlong(name).start < reached || m_frame.obtainAcross(name.rect).end > across.end)
            continue;
        reached = obtainAlong(name).end;
        const bool isTaken = std::ranges::any_of(m_taken, [&name](const UXDoubleRect& taken) {
            return uxIntersectionDoubleRect(taken, name.rect).width > 0;
        });
        if (!isTaken)
            labels.push_back(std::move(name));
    }
}

std::vector<KXLineLabel> KXLineLabelPlacer::place()
{
    std::vector<KXLineLabel> labels;
    for (KXPlacedLabel& placed : m_placer.place(m_requests))
        labels.push_back({m_marks[placed.request], std::move(placed.text), placed.rect, placed.property,
                          m_isOverLine(placed.rect)});
    _placeNames(labels);
    return labels;
}
