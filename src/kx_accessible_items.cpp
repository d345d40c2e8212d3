#include "kx_accessible_items.h"

#include "kx_accessible_item.h"
#include "kx_chart.h"
#include "kx_chart_item_description.h"
#include "kx_chart_items_delegate.h"

#include <cstddef>
#include <utility>

KXAccessibleItems::KXAccessibleItems(KXChart& chart) : m_chart(&chart) {}

KXAccessibleItems::KXAccessibleItems(KXChart& chart, Part part, std::uint64_t row)
    : m_chart(&chart), m_part(part), m_row(row)
{
}

KXAccessibleItems::~KXAccessibleItems() = default;

UXObject* KXAccessibleItems::getObject() const { return m_chart.getObject(); }

KXChartItemsDelegate* KXAccessibleItems::_getDelegate() const
{
    return dynamic_cast<KXChartItemsDelegate*>(m_chart.getObject());
}

UXAccessibleInfo KXAccessibleItems::obtainInfo()
{
    UXAccessibleInfo info;
    KXChartItemsDelegate* delegate = _getDelegate();
    if (!delegate)
        return info;
    info.role = m_part == Part::Table       ? UXAccessibleRole::Table
                : kxHasItemTable(*delegate) ? UXAccessibleRole::Row
                                            : UXAccessibleRole::Group;
    if (m_part == Part::Row && m_row < delegate->obtainItemRowCount())
        info.name = delegate->obtainItemRowName(m_row);
    return info;
}

std::uint64_t KXAccessibleItems::obtainChildCount()
{
    KXChartItemsDelegate* delegate = _getDelegate();
    if (!delegate)
        return 0;
    const std::uint64_t rows = delegate->obtainItemRowCount();
    if (m_part == Part::Row && m_row < rows && !std::exchange(m_hasLooked, true))
        _listRow();
    if (m_listed)
        return m_listed->size();
    if (m_part == Part::Row)
        return m_row < rows ? delegate->obtainItemRowLength(m_row) : 0;
    if (rows > 0)
        return m_part == Part::All && kxHasItemTable(*delegate) ? 1 : rows;
    m_listed = delegate->obtainItems();
    return m_listed->size();
}

/** Of marks those that are there are listed, as the keyboard goes from one to the next; cells of a table
 * stand in their columns, whatever they hold. A row without gaps needs no list. */
void KXAccessibleItems::_listRow()
{
    const KXChartItemsDelegate& delegate = *_getDelegate();
    const std::uint64_t length = delegate.obtainItemRowLength(m_row);
    if (kxHasItemTable(delegate))
        return;
    std::uint64_t count = 0;
    for (std::uint64_t place = 0; place < length; ++place)
        count += delegate.hasItem(delegate.obtainItemInRow(m_row, place));
    if (count == length)
        return;
    m_listed.emplace();
    m_listed->reserve(static_cast<std::size_t>(count));
    for (std::uint64_t place = 0; place < length; ++place)
        if (const KXChartItem item = delegate.obtainItemInRow(m_row, place); delegate.hasItem(item))
            m_listed->push_back(item);
}

std::unique_ptr<UXAccessibleNode> KXAccessibleItems::createChild(std::uint64_t index)
{
    if (index >= obtainChildCount())
        return nullptr;
    auto& chart = static_cast<KXChart&>(*getObject());
    const KXChartItemsDelegate& delegate = *_getDelegate();
    if (m_listed)
        return std::make_unique<KXAccessibleItem>(chart, (*m_listed)[static_cast<std::size_t>(index)]);
    if (m_part == Part::Row)
        return std::make_unique<KXAccessibleItem>(chart, delegate.obtainItemInRow(m_row, index));
    const Part part = m_part == Part::All && kxHasItemTable(delegate) ? Part::Table : Part::Row;
    return std::unique_ptr<UXAccessibleNode>(new KXAccessibleItems(chart, part, index));
}
