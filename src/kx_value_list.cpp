#include "kx_value_list.h"

#include "ux/ux_double_rect.h"
#include "ux/ux_painter.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

/** A document with more items than anyone can see is not read to its end. */
constexpr std::uint64_t mostItems = 10'000;

} // namespace

KXValueList::KXValueList() = default;
KXValueList::~KXValueList() = default;

KXValueListBaseItem& KXValueList::addItem(const KXValueListBaseItem& item)
{
    return m_items.emplace_back(item);
}

void KXValueList::clear()
{
    m_items.clear();
    m_isScrolled = false;
}

void KXValueList::paintSeparators(UXPainter& painter, double gap, const UXColor& color) const
{
    painter.setColor(color);
    std::vector<UXDoubleRect> lines;
    lines.reserve(m_items.size());
    for (const KXValueListBaseItem& item : m_items) {
        const UXDoubleRect rect = item.getRect();
        if (m_isScrolled || rect.y > m_items.front().getRect().y)
            lines.emplace_back(rect.x, std::floor(rect.y - gap / 2), rect.width, 1);
    }
    painter.drawRects(lines);
}

std::vector<UXJsonObject*> KXValueList::_listItems()
{
    std::vector<UXJsonObject*> items;
    items.reserve(m_items.size());
    for (KXValueListBaseItem& item : m_items)
        items.push_back(&item);
    return items;
}

void KXValueList::customSerialize()
{
    serializeBool("m_isScrolled", m_isScrolled);
    serializeObjectList("m_items", _listItems());
}

std::string KXValueList::customSerializeTypeID() { return "KXValueList"; }

bool KXValueList::customDeserialize()
{
    const bool complete = deserializeBool("m_isScrolled", m_isScrolled);
    std::uint64_t count = 0;
    const bool isList = deserializeArrayBegin("m_items") && deserializePeekArray(count);
    deserializeArrayEnd();
    if (!isList)
        return false;
    m_items.assign(static_cast<std::size_t>(std::min(count, mostItems)), {});
    return deserializeExistingObjectList("m_items", _listItems()) && count <= mostItems && complete;
}
