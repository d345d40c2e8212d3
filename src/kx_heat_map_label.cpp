#include "kx_heat_map_label.h"

#include <utility>

KXHeatMapLabel::KXHeatMapLabel() = default;

KXHeatMapLabel::KXHeatMapLabel(const KXGridCell& cell, std::string text, const UXDoubleRect& rect,
                               const UXColor& color)
    : m_row(static_cast<std::int64_t>(cell.row)), m_column(static_cast<std::int64_t>(cell.column)),
      m_text(std::move(text)), m_x(rect.x), m_y(rect.y), m_width(rect.width), m_height(rect.height),
      m_color(color)
{
}

KXHeatMapLabel::~KXHeatMapLabel() = default;

KXGridCell KXHeatMapLabel::getCell() const
{
    return {static_cast<std::uint64_t>(m_row), static_cast<std::uint64_t>(m_column)};
}

void KXHeatMapLabel::customSerialize()
{
    serializeInt64("m_row", m_row);
    serializeInt64("m_column", m_column);
    serializeString("m_text", m_text);
    serializeDouble("m_x", m_x);
    serializeDouble("m_y", m_y);
    serializeDouble("m_width", m_width);
    serializeDouble("m_height", m_height);
    serializeUXColor("m_color", m_color);
}

std::string KXHeatMapLabel::customSerializeTypeID() { return "KXHeatMapLabel"; }

bool KXHeatMapLabel::customDeserialize()
{
    bool complete = deserializeInt64("m_row", m_row);
    complete = deserializeInt64("m_column", m_column) && complete;
    complete = deserializeString("m_text", m_text) && complete;
    complete = deserializeDouble("m_x", m_x) && complete;
    complete = deserializeDouble("m_y", m_y) && complete;
    complete = deserializeDouble("m_width", m_width) && complete;
    complete = deserializeDouble("m_height", m_height) && complete;
    return deserializeUXColor("m_color", m_color) && complete;
}
