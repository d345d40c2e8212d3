#include "kx_tile.h"

KXTile::KXTile() = default;

KXTile::KXTile(std::uint64_t group, std::uint64_t index, double value, double percentage,
               const UXDoubleRect& rect)
    : m_group(static_cast<std::int64_t>(group)), m_index(static_cast<std::int64_t>(index)), m_value(value),
      m_percentage(percentage), m_x(rect.x), m_y(rect.y), m_width(rect.width), m_height(rect.height)
{
}

KXTile::~KXTile() = default;

void KXTile::customSerialize()
{
    serializeInt64("m_group", m_group);
    serializeInt64("m_index", m_index);
    serializeDouble("m_value", m_value);
    serializeDouble("m_percentage", m_percentage);
    serializeDouble("m_x", m_x);
    serializeDouble("m_y", m_y);
    serializeDouble("m_width", m_width);
    serializeDouble("m_height", m_height);
}

std::string KXTile::customSerializeTypeID() { return "KXTile"; }

bool KXTile::customDeserialize()
{
    bool complete = deserializeInt64("m_group", m_group);
    complete = deserializeInt64("m_index", m_index) && complete;
    complete = deserializeDouble("m_value", m_value) && complete;
    complete = deserializeDouble("m_percentage", m_percentage) && complete;
    complete = deserializeDouble("m_x", m_x) && complete;
    complete = deserializeDouble("m_y", m_y) && complete;
    complete = deserializeDouble("m_width", m_width) && complete;
    return deserializeDouble("m_height", m_height) && complete;
}
