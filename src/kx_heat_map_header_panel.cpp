#include "kx_heat_map_header_panel.h"

#include "kx_data_requests.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_painter.h"
#include "ux/ux_painter_state.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_text_shortening.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string_view>
#include <utility>

namespace {

/** Between a name and the cells. */
constexpr double padding = 6;
/** Between two names in one line. */
constexpr double gap = 5;
/** Of the height of a line: names that are shorter are easier to read in steps than turned. */
constexpr double leastTurnedShare = 2;

/** @return the least of 1, 2, 5, 10, 20 ... that is not below */
std::uint64_t obtainRoundStep(double least)
{
    constexpr double most = 1e15;
    double power = 1;
    while (power < most) {
        for (const double factor : {1.0, 2.0, 5.0})
            if (factor * power >= least)
                return static_cast<std::uint64_t>(factor * power);
        power *= 10;
    }
    return static_cast<std::uint64_t>(most);
}

} // namespace

KXHeatMapHeaderPanel::KXHeatMapHeaderPanel() = default;
KXHeatMapHeaderPanel::~KXHeatMapHeaderPanel() = default;

std::string KXHeatMapHeaderPanel::customSerializeTypeID() { return "KXHeatMapHeaderPanel"; }

void KXHeatMapHeaderPanel::setNames(TextFunction text, const UXTextProperty& property, bool mayTurn)
{
    m_text = std::move(text);
    m_property = property;
    m_mayTurn = mayTurn;
    setRequireToVerifyLayout(true, true);
}

double KXHeatMapHeaderPanel::_measure(const std::string& text) const
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    return std::ceil(helper->getTextSize(text, m_property).width);
}

/** @return a name in one line */
std::string KXHeatMapHeaderPanel::_obtainName(std::uint64_t line) const
{
    std::string name = m_text ? m_text(line) : std::string();
    std::ranges::replace_if(
        name, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return name;
}

void KXHeatMapHeaderPanel::_measureNames(const KXGridRange& seen)
{
    const std::uint64_t first = (seen.first + m_step - 1) / m_step * m_step;
    for (std::uint64_t line = first; line < seen.end; line += m_step)
        if (const std::string name = _obtainName(line); name != KXDataRequests::placeholder)
            m_widest = std::max(m_widest, _measure(name));
}

int KXHeatMapHeaderPanel::fit(const KXGridLines& lines, const KXGridRange& seen, int most)
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    m_lineHeight = std::ceil(helper->getTextSize("0", m_property).height);
    m_isTurned = false;
    m_step = 1;
    m_room = (std::numeric_limits<double>::max)();
    if (lines.getCount() == 0 || !(lines.obtainTotal() > 0))
        return 0;
    const double extent = lines.obtainTotal() / static_cast<double>(lines.getCount());

    // 1. One below the other, or as near as the shortest names could stand.
    const auto obtainStep = [extent](double length, double room) {
        // The first name may begin with its line rather than stand in its middle.
        return extent >= room ? 1 : obtainRoundStep((length / 2 + room) / extent);
    };
    m_step = obtainStep(m_lineHeight, m_lineHeight);
    _measureNames(seen);
    const auto obtainExtent = [most](double wanted) {
        return static_cast<int>(std::min<double>(std::ceil(wanted), std::max(most, 0)));
    };
    if (_areRows())
        return obtainExtent(m_widest > 0 ? m_widest + padding : 0);

    // 2. Side by side, upright, or with longer steps.
    const std::uint64_t step = obtainStep(m_widest, m_widest + gap);
    const bool areWords = step > 1 && m_mayTurn && m_step == 1 && m_widest > leastTurnedShare * m_lineHeight;
    const bool isCutTurned = m_widest + padding > most; // and then more may be left of it side by side
    m_isTurned = areWords && !(isCutTurned && extent - gap >= most - padding);
    if (m_isTurned)
        return obtainExtent(m_widest + padding);
    if (!areWords)
        m_step = step;
    m_room = static_cast<double>(m_step) * extent - gap;
    return obtainExtent(m_widest > 0 ? m_lineHeight + padding : 0);
}

void KXHeatMapHeaderPanel::_layoutCells()
{
    m_labels.clear();
    m_losses.clear();
    const bool areRows = _areRows();
    const KXGridLines& lines = areRows ? getRows() : getColumns();
    const KXGridRange seen = areRows ? obtainVisibleRows() : obtainVisibleColumns();
    const UXRect own = getBoundingRect();
    if (!m_text || seen.isEmpty() || m_lineHeight > own.height)
        return;
    const bool areStacked = areRows || m_isTurned; // the height of a line stands along the lines
    const double room = std::min(m_room, (m_isTurned ? own.height : own.width) - padding);
    const UXDoubleRect first = obtainCellRect({0, 0});
    const double start = areRows ? first.y : first.x, end = start + lines.obtainTotal();
    double taken = -1e300; // by the labels so far
    for (std::uint64_t line = (seen.first + m_step - 1) / m_step * m_step; line < seen.end; line += m_step) {
        const std::string name = _obtainName(line);
        std::string text = name;
        if (_measure(text) > room)
            text = uxShortenText(text, UXTextOption::EllipsisEnd, room,
                                 [this](std::string_view part) { return _measure(std::string(part)); });
        const double width = _measure(text), extent = areStacked ? m_lineHeight : width;
        const double middle = start + lines.obtainStart(line) + lines.obtainExtent(line) / 2;
        // All of it stands beside the lines, if these have the room, and none over another one.
        const double place = std::max(std::min(middle - extent / 2, end - extent), start);
        const bool isInside = place + extent / 2 >= 0 &&
                              place + extent / 2 <= (areRows ? own.height : own.width);
        m_losses.leaveOutMore(std::min(m_step, seen.end - line) - 1);
        if (text.empty() || place < taken || !isInside) {
            if (!name.empty())
                m_losses.leaveOut(name, {});
            continue;
        }
        taken = place + extent + (areStacked ? 0 : gap / 2);
        UXDoubleRect rect(place, own.height - padding / 2 - m_lineHeight, width, m_lineHeight);
        if (areRows)
            rect = {own.width - padding - width, place, width, m_lineHeight};
        else if (m_isTurned)
            rect = {place, own.height - padding, width, m_lineHeight};
        if (text != name)
            m_losses.shorten(name, rect);
        m_labels.push_back({line, std::move(text), rect, m_isTurned});
    }
}

void KXHeatMapHeaderPanel::_paintCells(UXPainter& painter, const UXRect&) const
{
    for (const Label& label : m_labels) {
        if (!label.isTurned) {
            painter.drawText(label.text, label.rect, m_property);
            continue;
        }
        constexpr double upwards = -90;
        const UXPainterState state(painter);
        painter.translate(label.rect.x, label.rect.y);
        painter.rotate(upwards);
        painter.drawText(label.text, {0, 0, label.rect.width, label.rect.height}, m_property);
    }
}
