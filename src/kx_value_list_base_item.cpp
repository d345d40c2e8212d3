#include "kx_value_list_base_item.h"

#include <algorithm>

KXValueListBaseItem::KXValueListBaseItem() = default;

KXValueListBaseItem::KXValueListBaseItem(std::uint64_t group, KXValueListBaseItemStyle style,
                                         const UXDoubleRect& rect)
    : m_group(static_cast<std::int64_t>(group)), m_style(style), m_x(rect.x), m_y(rect.y),
      m_width(rect.width), m_height(rect.height)
{
}

KXValueListBaseItem::~KXValueListBaseItem() = default;

void KXValueListBaseItem::customSerialize()
{
    serializeInt64("m_group", m_group);
    serializeInt64("m_itemStyle", static_cast<int>(m_style));
    serializeDouble("m_x", m_x);
    serializeDouble("m_y", m_y);
    serializeDouble("m_width", m_width);
    serializeDouble("m_height", m_height);
    serializeString("m_caption", m_caption);
    serializeString("m_value", m_value);
}

std::string KXValueListBaseItem::customSerializeTypeID() { return "KXValueListBaseItem"; }

bool KXValueListBaseItem::customDeserialize()
{
    int style = static_cast<int>(m_style);
    bool complete = deserializeInt64("m_group", m_group);
    complete = deserializeInt64("m_itemStyle", style) && complete;
    complete = deserializeDouble("m_x", m_x) && complete;
    complete = deserializeDouble("m_y", m_y) && complete;
    complete = deserializeDouble("m_width", m_width) && complete;
    complete = deserializeDouble("m_height", m_height) && complete;
    complete = deserializeString("m_caption", m_caption) && complete;
    m_style = static_cast<KXValueListBaseItemStyle>(
        std::clamp(style, 0, static_cast<int>(KXValueListBaseItemStyle::Right)));
    return deserializeString("m_value", m_value) && complete;
}
