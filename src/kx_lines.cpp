#include "kx_lines.h"

#include "kx_line_point.h"
#include "kx_line_segment.h"
#include "ux/ux_painter_state.h"

#include <algorithm>
#include <cstdint>

namespace {

/** A document may not have more made. */
constexpr std::uint64_t mostPieces = 10'000;

template <class Piece>
std::vector<UXJsonObject*> listPieces(const std::vector<std::unique_ptr<Piece>>& pieces)
{
    std::vector<UXJsonObject*> list;
    list.reserve(pieces.size());
    for (const std::unique_ptr<Piece>& piece : pieces)
        list.push_back(piece.get());
    return list;
}

/** Makes as many pieces as a document lists, and reads them. */
template <class Piece>
bool readPieces(UXJsonObject& object, const char* key, std::vector<std::unique_ptr<Piece>>& pieces)
{
    std::uint64_t count = 0;
    const bool isList = object.deserializeArrayBegin(key) && object.deserializePeekArray(count);
    object.deserializeArrayEnd();
    if (!isList)
        return false;
    pieces.clear();
    while (pieces.size() < std::min(count, mostPieces))
        pieces.push_back(std::make_unique<Piece>());
    return object.deserializeExistingObjectList(key, listPieces(pieces)) && pieces.size() == count;
}

} // namespace

KXLines::KXLines() = default;
KXLines::~KXLines() = default;

KXLineSegment& KXLines::addSegment() { return *m_segments.emplace_back(std::make_unique<KXLineSegment>()); }
KXLinePoint& KXLines::addPoint() { return *m_points.emplace_back(std::make_unique<KXLinePoint>()); }

void KXLines::clear()
{
    m_segments.clear();
    m_points.clear();
}

void KXLines::paint(UXPainter& painter) const
{
    const UXPainterState state(painter);
    for (const std::unique_ptr<KXLineSegment>& segment : m_segments)
        segment->paint(painter);
    for (const std::unique_ptr<KXLinePoint>& point : m_points)
        point->paint(painter);
}

void KXLines::customSerialize()
{
    UXJsonObject::customSerialize();
    serializeObjectList("m_segments", listPieces(m_segments));
    serializeObjectList("m_points", listPieces(m_points));
}

std::string KXLines::customSerializeTypeID() { return "KXLines"; }

bool KXLines::customDeserialize()
{
    bool complete = UXJsonObject::customDeserialize();
    complete = readPieces(*this, "m_segments", m_segments) && complete;
    return readPieces(*this, "m_points", m_points) && complete;
}
