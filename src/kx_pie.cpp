#include "kx_pie.h"

#include "kx_percentages.h"
#include "kx_pie_turn.h"

#include <algorithm>
#include <limits>
#include <numbers>

constexpr int KXPie::percentageDecimals; // hosts may refer to it, on Windows too

namespace {

/** A document can list any number; more than there are pixels are never seen. */
constexpr std::uint64_t mostSegments = 10'000;
/** Of its own sweep: what a slice gives up to the gaps beside it at most. */
constexpr double greatestGapShare = 0.5;

} // namespace

KXPie::KXPie() = default;
KXPie::~KXPie() = default;

void KXPie::divide(std::span<const KXPiePart> parts, const KXPieTurn& turn)
{
    // 1. Divided by the largest first, no sum is beyond a double.
    m_segments.clear();
    std::vector<double> values;
    for (const KXPiePart& part : parts)
        values.push_back(part.value);
    const double largest = values.empty() ? 0 : std::ranges::max(values);
    double whole = 0;
    for (const double value : values)
        whole += value / largest;
    m_total = std::min(whole, (std::numeric_limits<double>::max)() / std::max(largest, 1.0)) * largest;

    // 2. Each slice ends where the sum up to it does, so that nothing adds up to a rest.
    const std::vector<double> percentages = kxObtainPercentages(values, percentageDecimals);
    const double sweep = turn.obtainSweep();
    double reached = 0, from = 0;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        reached += values[i] / largest / whole;
        const double to = i + 1 < parts.size() ? std::min(reached, 1.0) * sweep : sweep;
        const double start = turn.isClockwise ? turn.startDegrees + from : turn.startDegrees - to;
        m_segments.emplace_back(parts[i].group, values[i], percentages[i], start, to - from);
        from = to;
    }
}

void KXPie::setCircle(const UXDoublePoint& center, double radius, double holeRadius)
{
    m_centerX = center.x;
    m_centerY = center.y;
    m_radius = radius;
    m_holeRadius = holeRadius;
}

const KXPieSegmentInfo* KXPie::findSegment(std::uint64_t group) const
{
    const auto found = std::ranges::find(m_segments, group, &KXPieSegmentInfo::getGroup);
    return found == m_segments.end() ? nullptr : &*found;
}

KXSector KXPie::obtainSector(std::size_t segment, double gap) const
{
    const KXPieSegmentInfo& info = m_segments[segment];
    const double sweep = info.getSweepDegrees();
    const double room = m_segments.size() > 1 && m_radius > 0 ? gap / m_radius * 180 / std::numbers::pi : 0;
    const double left = std::min(room, sweep * greatestGapShare);
    return {getCenter(), m_holeRadius, m_radius, info.getStartDegrees() + left / 2, sweep - left};
}

void KXPie::customSerialize()
{
    serializeDouble("m_centerX", m_centerX);
    serializeDouble("m_centerY", m_centerY);
    serializeDouble("m_radius", m_radius);
    serializeDouble("m_holeRadius", m_holeRadius);
    serializeDouble("m_total", m_total);
    std::vector<UXJsonObject*> segments;
    segments.reserve(m_segments.size());
    for (KXPieSegmentInfo& segment : m_segments)
        segments.push_back(&segment);
    serializeObjectList("m_segments", segments);
}

std::string KXPie::customSerializeTypeID() { return "KXPie"; }

bool KXPie::customDeserialize()
{
    bool complete = deserializeDouble("m_centerX", m_centerX);
    complete = deserializeDouble("m_centerY", m_centerY) && complete;
    complete = deserializeDouble("m_radius", m_radius) && complete;
    complete = deserializeDouble("m_holeRadius", m_holeRadius) && complete;
    complete = deserializeDouble("m_total", m_total) && complete;
    std::uint64_t count = 0;
    const bool isList = deserializeArrayBegin("m_segments") && deserializePeekArray(count);
    deserializeArrayEnd();
    if (!isList)
        return false;
    m_segments.assign(static_cast<std::size_t>(std::min(count, mostSegments)), {});
    std::vector<UXJsonObject*> segments;
    segments.reserve(m_segments.size());
    for (KXPieSegmentInfo& segment : m_segments)
        segments.push_back(&segment);
    return deserializeExistingObjectList("m_segments", segments) && count <= mostSegments && complete;
}
