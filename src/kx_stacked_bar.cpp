#include "kx_stacked_bar.h"

#include "kx_chart_stacked_bar_segment.h"
#include "kx_enum_map.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>

namespace {

/** A document can list any number; more than there are pixels are never seen. */
constexpr std::uint64_t mostSegments = 10000;

double obtainAmount(const KXChartStackedBarSegment& segment)
{
    return std::isfinite(segment.getValue()) ? std::abs(segment.getValue()) : 0;
}

} // namespace

KXStackedBar::KXStackedBar() = default;
KXStackedBar::~KXStackedBar() = default;

void KXStackedBar::setOrientation(KXAxisChartOrientation orientation)
{
    if (orientation == m_orientation)
        return;
    m_orientation = orientation;
    setRequireToVerifyLayout(true, true);
}

void KXStackedBar::setTotal(double total)
{
    if (total == m_total)
        return;
    m_total = total;
    setRequireToVerifyLayout(true, true);
}

KXChartStackedBarSegment* KXStackedBar::addSegment(double value, const UXColor& color)
{
    auto* segment = new KXChartStackedBarSegment;
    segment->setColor(color);
    segment->setValue(value);
    m_segments.push_back(segment);
    addChild(segment);
    setRequireToVerifyLayout(true, true);
    return segment;
}

void KXStackedBar::clearSegments()
{
    for (KXChartStackedBarSegment* segment : m_segments)
        delete segment;
    m_segments.clear();
    setRequireToVerifyLayout(true, true);
}

bool KXStackedBar::growsBackwards() const { return false; }

/** Edges are rounded from the sums, so that segments touch each other. */
void KXStackedBar::customLayout()
{
    UXObject::customLayout();
    const UXRect whole = getBoundingRect();
    const bool isVertical = m_orientation == KXAxisChartOrientation::Vertical;
    const int length = std::max(isVertical ? whole.height : whole.width, 0);
    double sum = 0, reached = 0;
    for (const KXChartStackedBarSegment* segment : m_segments)
        sum += obtainAmount(*segment);
    const double total = m_total > 0 ? m_total : sum;
    const auto edgeOf = [&](double amount) {
        const double share = total > 0 ? std::min(amount / total, 1.0) : 0;
        return uxSaturateToInt(std::round(length * (std::isnan(share) ? 0 : share)));
    };
    for (KXChartStackedBarSegment* segment : m_segments) {
        const int start = edgeOf(reached);
        reached += obtainAmount(*segment);
        const int end = edgeOf(reached);
        const int place = growsBackwards() != isVertical ? length - end : start;
        segment->setRect(isVertical ? UXRect(0, place, whole.width, end - start)
                                    : UXRect(place, 0, end - start, whole.height));
    }
}

void KXStackedBar::customSerialize()
{
    UXObject::customSerialize();
    kxSerializeEnum(this, "m_orientation", m_orientation);
    serializeDouble("m_total", m_total);
    serializeObjectList("m_segments", {m_segments.begin(), m_segments.end()});
}

std::string KXStackedBar::customSerializeTypeID() { return "KXStackedBar"; }

bool KXStackedBar::customDeserialize()
{
    bool complete = UXObject::customDeserialize();
    complete = kxDeserializeEnum(this, "m_orientation", m_orientation) && complete;
    complete = deserializeDouble("m_total", m_total) && complete;
    complete = _readSegments() && complete;
    setRequireToVerifyLayout(true, true);
    return complete;
}

/** Makes as many segments as a document lists, up to what a bar can show. */
bool KXStackedBar::_readSegments()
{
    std::uint64_t count = 0;
    const bool isList = deserializeArrayBegin("m_segments") && deserializePeekArray(count);
    deserializeArrayEnd();
    if (!isList)
        return false;
    clearSegments();
    while (m_segments.size() < std::min(count, mostSegments))
        addSegment(0, UXColor());
    return deserializeExistingObjectList("m_segments", {m_segments.begin(), m_segments.end()}) &&
           m_segments.size() == count;
}
