#include "kx_bar_labels.h"

#include "kx_bar_chart_data_view.h"

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

enum Rank : int { total, extreme, other };

bool holds(const UXDoubleRect& bar, const UXDoubleSize& text)
{
    return text.width + 2 * sideGap <= bar.width && text.height <= bar.height;
}

} // namespace

KXBarLabelPlacer::KXBarLabelPlacer(const KXBarChartDataView& view, const KXBarLabelStyle& style)
    : m_view(view), m_plane(view.getPlane()), m_style(style), m_placer(UXDoubleRect(m_plane.area), labelGap)
{
}

KXBarLabelPlacer::~KXBarLabelPlacer() = default;

UXDoubleRect KXBarLabelPlacer::_makeRect(const UXDoubleRect& bar, KXBarLabelPosition position,
                                         bool growsForwards, const UXDoubleSize& size) const
{
    const KXAxisChartInterval across = m_plane.obtainAcross(bar), along = m_plane.obtainAlong(bar);
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

void KXBarLabelPlacer::add(std::size_t index, const Request& request)
{
    const KXBar& bar = m_view.getBars()[index];
    KXLabelRequest made{
        request.text, request.property, request.isExtreme ? extreme : other, false, index, {}};
    made.property.align = UXTextAlign::Center;
    const UXDoubleSize size = m_placer.measure(made.text, made.property);
    if (!request.isExtreme && _isTooLong(size))
        return;
    const bool growsForwards = m_plane.growsForwards() == (bar.to >= bar.from);
    const bool wantsOutside = m_style.position == KXBarLabelPosition::Outside;
    const auto addCandidate = [&](KXBarLabelPosition position, const std::optional<UXColor>& ground = {}) {
        made.candidates.push_back({_makeRect(bar.rect, position, growsForwards, size), ground});
    };

    // 1. Beyond the end, on the background.
    if (wantsOutside && request.canStandOutside)
        addCandidate(KXBarLabelPosition::Outside);

    // 2. On the bar, in a colour that is read there; where it is too small, over its edges or not at all.
    const KXBarLabelPosition inside = !wantsOutside             ? m_style.position
                                      : request.canStandOutside ? KXBarLabelPosition::InsideEnd
                                                                : KXBarLabelPosition::InsideCenter;
    if (holds(bar.rect, size)) {
        const bool isReadable = m_style.isReadableOnBars && !request.hasOwnColor;
        addCandidate(inside, isReadable ? std::optional(request.barColor) : std::nullopt);
    } else if (m_style.overflow == KXBarLabelOverflow::Visible) {
        if (!wantsOutside && request.canStandOutside)
            addCandidate(KXBarLabelPosition::Outside);
        addCandidate(inside);
    }
    m_requests.push_back(std::move(made));
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

void KXBarLabelPlacer::addTotal(const KXBarSlot& slot, double value, const std::string& text,
                                const UXTextProperty& property)
{
    KXLabelRequest made{text, property, total, false, KXCollisionGrid::noOwner, {}};
    made.property.align = UXTextAlign::Center;
    const UXDoubleSize size = m_placer.measure(made.text, made.property);
    if (_isTooLong(size))
        return;
    for (const bool isBelow : {value < 0, value >= 0})
        if (const KXBar* outermost = _findOutermost(slot, isBelow))
            made.candidates.push_back({_makeRect(outermost->rect, KXBarLabelPosition::Outside,
                                                 m_plane.growsForwards() != isBelow, size),
                                       std::nullopt});
    m_requests.push_back(std::move(made));
}

bool KXBarLabelPlacer::_isTooLong(const UXDoubleSize& size) const
{
    return (m_plane.isVertical ? size.width : size.height) > greatestSpan * m_plane.spacing;
}

std::vector<KXBarLabel> KXBarLabelPlacer::place()
{
    const std::vector<KXBar>& bars = m_view.getBars();
    for (std::size_t i = 0; i < bars.size(); ++i)
        m_placer.addObstacle(bars[i].rect, i);
    std::vector<KXBarLabel> labels;
    for (KXPlacedLabel& placed : m_placer.place(m_requests)) {
        const std::size_t bar = m_requests[placed.request].mark;
        labels.push_back({bar < bars.size() ? std::optional(bars[bar].mark) : std::nullopt,
                          std::move(placed.text), placed.rect, placed.property, placed.isOnGround});
    }
    return labels;
}
