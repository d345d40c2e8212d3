#include "kx_pie_segment_info.h"

KXPieSegmentInfo::KXPieSegmentInfo() = default;

KXPieSegmentInfo::KXPieSegmentInfo(std::uint64_t group, double value, double percentage, double startDegrees,
                                   double sweepDegrees)
    : m_group(static_cast<std::int64_t>(group)), m_value(value), m_percentage(percentage),
      m_startDegrees(startDegrees), m_sweepDegrees(sweepDegrees)
{
}

KXPieSegmentInfo::~KXPieSegmentInfo() = default;

void KXPieSegmentInfo::customSerialize()
{
    serializeInt64("m_group", m_group);
    serializeDouble("m_value", m_value);
    serializeDouble("m_percentage", m_percentage);
    serializeDouble("m_startDegrees", m_startDegrees);
    serializeDouble("m_sweepDegrees", m_sweepDegrees);
}

std::string KXPieSegmentInfo::customSerializeTypeID() { return "KXPieSegmentInfo"; }

bool KXPieSegmentInfo::customDeserialize()
{
    bool complete = deserializeInt64("m_group", m_group);
    complete = deserializeDouble("m_value", m_value) && complete;
    complete = deserializeDouble("m_percentage", m_percentage) && complete;
    complete = deserializeDouble("m_startDegrees", m_startDegrees) && complete;
    return deserializeDouble("m_sweepDegrees", m_sweepDegrees) && complete;
}
