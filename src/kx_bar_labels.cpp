#include "kx_bar_labels.h"

#include "kx_bar_chart_data_view.h"

#include "ux/ux_color_contrast.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** Free room, in logical units: between a bar's end and its label, at a label's sides on a bar, and between
 * two labels in a row. */
constexpr double endGap = 3;
constexpr double sideGap = 2;
constexpr double labelGap = 3;
/** A label across more categories than these is about none of them. */
constexpr double greatestSpan = 1.5;
/** The length of a cell, about that of a label. */
constexpr double cellLength = 48;

constexpr UXColor darkTextColor(38, 38, 38);
constexpr UXColor lightTextColor(255, 255, 255);

bool intersects(const UXDoubleRect& a, const UXDoubleRect& b, double gap)
{
    return a.x < b.x + b.width + gap && b.x < a.x + a.width + gap && a.y < b.y + b.height &&
           b.y < a.y + a.height;
}

bool holds(const UXDoubleRect& bar, const UXDoubleSize& text)
{
    return text.width + 2 * sideGap <= bar.width && text.height <= bar.height;
}

} // namespace

UXColor kxObtainReadableColor(const UXColor& background)
{
    // What is seen through a translucent colour is taken to be white, as the light text is.
    const double onDark = uxObtainContrast(background, lightTextColor);
    const double onLight = uxObtainContrast(darkTextColor, lightTextColor) / onDark;
    return onLight >= onDark ? darkTextColor : lightTextColor;
}

KXBarLabelPlacer::KXBarLabelPlacer(const KXBarChartDataView& view, const KXBarLabelStyle& style)
    : m_view(view), m_plane(view.getPlane()), m_style(style), m_helper(uxCreateLayoutHelper())
{
    const double length = m_plane.obtainAcross().obtainLength();
    m_cells.resize(static_cast<std::size_t>(std::max(std::ceil(length / cellLength), 0.0)) + 1);
}

KXBarLabelPlacer::~KXBarLabelPlacer() = default;

UXDoubleSize KXBarLabelPlacer::_measure(const std::string& text, const UXTextProperty& property) const
{
    const UXDoubleSize size = m_helper->getTextSize(text, property);
    return {std::ceil(size.width), std::ceil(size.height)};
}

UXDoubleRect KXBarLabelPlacer::_makeRect(const KXAxisChartStretch& across, const KXAxisChartStretch& along,
                                         KXBarLabelPosition position, bool growsForwards,
                                         const UXDoubleSize& size) const
{
    const double wide = m_plane.isVertical ? size.width : size.height;
    const double length = m_plane.isVertical ? size.height : size.width;
    const double gap = m_plane.isVertical && position != KXBarLabelPosition::Outside ? 1 : endGap;
    double start = (along.start + along.end - length) / 2;
    if (position == KXBarLabelPosition::Outside)
        start = growsForwards ? along.end + gap : along.start - gap - length;
    else if (position != KXBarLabelPosition::InsideCenter)
        start = (position == KXBarLabelPosition::InsideEnd) == growsForwards ? along.end - gap - length
                                                                             : along.start + gap;
    const double middle = (across.start + across.end) / 2;
    return m_plane.makeRect({middle - wide / 2, middle + wide / 2}, {start, start + length});
}

bool KXBarLabelPlacer::place(const KXBar& bar, const Wish& wish)
{
    if (wish.text.empty())
        return false;
    UXTextProperty property = wish.property;
    property.align = UXTextAlign::Center;
    const UXDoubleSize size = _measure(wish.text, property);
    if (!wish.isExtreme && _isTooLong(size))
        return false;
    const KXAxisChartStretch across = m_plane.obtainAcross(bar.rect), along = m_plane.obtainAlong(bar.rect);
    const bool growsForwards = m_plane.growsForwards() == (bar.to >= bar.from);
    const bool wantsOutside = m_style.position == KXBarLabelPosition::Outside;
    const auto placeAt = [&](KXBarLabelPosition position, bool isReadOnBar = false) {
        return _add(_makeRect(across, along, position, growsForwards, size), &bar, wish.text, property,
                    isReadOnBar);
    };

    // 1. Beyond the end, on the background.
    if (wantsOutside && wish.canStandOutside && placeAt(KXBarLabelPosition::Outside))
        return true;

    // 2. Where the bar is too small for it.
    const KXBarLabelPosition inside = !wantsOutside          ? m_style.position
                                      : wish.canStandOutside ? KXBarLabelPosition::InsideEnd
                                                             : KXBarLabelPosition::InsideCenter;
    if (!holds(bar.rect, size)) {
        if (m_style.overflow != KXBarLabelOverflow::Visible)
            return false;
        const bool triesOutside = !wantsOutside && wish.canStandOutside;
        return (triesOutside && placeAt(KXBarLabelPosition::Outside)) || placeAt(inside);
    }

    // 3. On the bar, in a colour that is read there.
    const bool isReadOnBar = m_style.isReadableOnBars && !wish.hasOwnColor;
    if (isReadOnBar)
        property.textColor = kxObtainReadableColor(wish.barColor);
    return placeAt(inside, isReadOnBar);
}

const KXBar* KXBarLabelPlacer::_findOutermost(const KXBarSlot& slot, bool isBelow) const
{
    const KXBar* outermost = nullptr;
    for (std::size_t i = slot.firstBar; i < slot.endBar; ++i) {
        const KXBar& bar = m_view.getBars()[i];
        if ((bar.value < 0) == isBelow && (!outermost || std::abs(bar.to) >= std::abs(outermost->to)))
            outermost = &bar;
    }
    return outermost;
}

bool KXBarLabelPlacer::placeTotal(const KXBarSlot& slot, double value, const std::string& text,
                                  const UXTextProperty& property)
{
    UXTextProperty centred = property;
    centred.align = UXTextAlign::Center;
    const UXDoubleSize size = _measure(text, centred);
    if (text.empty() || _isTooLong(size))
        return false;
    for (const bool isBelow : {value < 0, value >= 0}) {
        const KXBar* outermost = _findOutermost(slot, isBelow);
        if (outermost &&
            _add(_makeRect(m_plane.obtainAcross(outermost->rect), m_plane.obtainAlong(outermost->rect),
                           KXBarLabelPosition::Outside, m_plane.growsForwards() != isBelow, size),
                 nullptr, text, centred))
            return true;
    }
    return false;
}

bool KXBarLabelPlacer::_isTooLong(const UXDoubleSize& size) const
{
    return (m_plane.isVertical ? size.width : size.height) > greatestSpan * m_plane.spacing;
}

bool KXBarLabelPlacer::_add(const UXDoubleRect& rect, const KXBar* own, const std::string& text,
                            const UXTextProperty& property, bool isReadOnBar)
{
    if (!_isFree(rect, own))
        return false;
    const auto [first, end] = _obtainCells(rect);
    for (std::size_t cell = first; cell < end; ++cell)
        m_cells[cell].push_back(m_labels.size());
    m_labels.push_back({own ? std::optional(own->mark) : std::nullopt, text, rect, property, isReadOnBar});
    return true;
}

bool KXBarLabelPlacer::_isFree(const UXDoubleRect& rect, const KXBar* own) const
{
    const UXDoubleRect area(m_plane.area);
    if (rect.x < area.x || rect.y < area.y || rect.x + rect.width > area.x + area.width ||
        rect.y + rect.height > area.y + area.height)
        return false;
    const auto [firstCell, endCell] = _obtainCells(rect);
    for (std::size_t cell = firstCell; cell < endCell; ++cell)
        for (const std::size_t label : m_cells[cell])
            if (intersects(m_labels[label].rect, rect, labelGap))
                return false;
    const auto [firstSlot, endSlot] = m_view.findSlots(m_plane.obtainAcross(rect));
    for (std::size_t slot = firstSlot; slot < endSlot; ++slot)
        for (std::size_t i = m_view.getSlots()[slot].firstBar; i < m_view.getSlots()[slot].endBar; ++i)
            if (const KXBar& bar = m_view.getBars()[i]; &bar != own && intersects(bar.rect, rect, 0))
                return false;
    return true;
}

std::pair<std::size_t, std::size_t> KXBarLabelPlacer::_obtainCells(const UXDoubleRect& rect) const
{
    const KXAxisChartStretch across = m_plane.obtainAcross(rect), whole = m_plane.obtainAcross();
    const auto cellOf = [&](double place) {
        const double cell = std::floor((place - whole.start) / cellLength);
        return static_cast<std::size_t>(std::clamp(cell, 0.0, static_cast<double>(m_cells.size() - 1)));
    };
    return {cellOf(across.start - labelGap), cellOf(across.end + labelGap) + 1};
}
