#include "kx_control_chart_row.h"

#include "kx_check_mark.h"
#include "kx_control_chart.h"
#include "kx_control_chart_list.h"
#include "kx_highlight_ground.h"
#include "ux/ux_event.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_round_rectangle.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double inset = 5, markExtent = 16, gap = 8; // logical units
constexpr double barRadius = 3, ringRadius = 3;
constexpr double faintShare = 0.5;
/** The count gives way where it would leave the text less than this share of the row. */
constexpr double leastTextShare = 0.4;

} // namespace

KXControlChartRow::KXControlChartRow(KXControlChartList* list) : m_list(list)
{
    registerEventHandler(UXEventType::LeftClick, [this](const UXEvent& event) {
        if (m_list)
            m_list->rowClicked(getIndex(), event);
        return m_list != nullptr;
    });
    registerEventHandler(UXEventType::RightClick, [this](const UXEvent& event) {
        if (m_list)
            m_list->openRowMenu(getIndex(), event);
        return m_list != nullptr;
    });
}

KXControlChartRow::~KXControlChartRow() { setParent(nullptr); }

void KXControlChartRow::showRow(std::uint64_t index, KXControlChartRowContent content)
{
    if (getIndex() == index && m_content == content)
        return;
    // The pointer was over another row; its next move tells what it is over now.
    if (getIndex() != index)
        _setHovered(false);
    _setIndex(index);
    m_content = std::move(content);
    invalidate();
}

void KXControlChartRow::endHover()
{
    if (_setHovered(false))
        invalidate();
}

void KXControlChartRow::explain(UXPoint, UXEvent*)
{
    if (m_list)
        m_list->explainRow(*this);
}

void KXControlChartRow::endExplanation()
{
    if (m_list)
        m_list->endExplanation();
}

void KXControlChartRow::customSerialize()
{
    KXListCell::customSerialize();
    serializeString("m_text", m_content.text);
    serializeString("m_valueText", m_content.valueText);
}

std::string KXControlChartRow::customSerializeTypeID() { return "KXControlChartRow"; }

bool KXControlChartRow::customDeserialize()
{
    bool complete = KXListCell::customDeserialize();
    complete = deserializeString("m_text", m_content.text) && complete;
    return deserializeString("m_valueText", m_content.valueText) && complete;
}

void KXControlChartRow::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = m_list ? uxCreatePainterWithObject(config, this) : nullptr) {
        _paintRow(*painter);
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void KXControlChartRow::_paintRow(UXPainter& painter) const
{
    const UXDoubleRect bounds(getBoundingRect());
    const KXControlChart& chart = m_list->getChart();
    if (isHovered() || m_list->isRowHighlighted(getIndex()))
        kxDrawHighlightGround(painter, bounds, chart.getLabelProperty().textColor);
    const double left = inset + markExtent + gap;
    if (m_content.share > 0) {
        const UXDoubleRect bar{left - gap / 2, bounds.y + 3,
                               (bounds.width - left + gap / 2 - inset) * std::min(m_content.share, 1.0),
                               bounds.height - 6};
        painter.setColor(chart.getBarColor());
        uxAddRoundRectanglePath(painter, bar, barRadius);
        painter.fill();
    }
    kxDrawCheckMark(painter, {inset, uxMidDoubleY(bounds) - markExtent / 2, markExtent, markExtent},
                    {m_list->obtainRowState(getIndex()), !chart.getMultipleSelection(), true, isHovered(),
                     getMousePressing(), chart.getAccentColor()});
    _paintTexts(painter);
    if (m_list->isWalkedTo(getIndex())) {
        painter.setColor(chart.getAccentColor());
        painter.setLineWidth(2);
        uxAddRoundRectanglePath(painter, uxInflateDoubleRect(bounds, -1.0, -1.0), ringRadius);
        painter.stroke();
    }
}

KXControlChartRow::Places KXControlChartRow::_obtainPlaces() const
{
    const UXDoubleRect bounds(getBoundingRect());
    Places places;
    places.text = {inset + markExtent + gap, bounds.y,
                   std::max(bounds.width - markExtent - gap - 2 * inset - 2, 0.0), bounds.height};
    const UXDoubleRect room = places.text;
    const double width =
        m_content.valueText.empty()
            ? 0
            : uxMeasureText(m_content.valueText, m_list->getChart().getValueProperty()).width + 1;
    if (width > 0 && room.width - width - gap >= room.width * leastTextShare) {
        places.value = {room.x + room.width - width, room.y, width, room.height};
        places.text.width -= width + gap;
    }
    return places;
}

bool KXControlChartRow::isCut() const
{
    if (!m_list)
        return false;
    const Places places = _obtainPlaces();
    const double width = uxMeasureText(m_content.text, m_list->getChart().getLabelProperty()).width;
    return width > places.text.width || (!m_content.valueText.empty() && !(places.value.width > 0));
}

void KXControlChartRow::_paintTexts(UXPainter& painter) const
{
    const KXControlChart& chart = m_list->getChart();
    const auto draw = [&](const std::string& text, const UXDoubleRect& rect, UXTextProperty property,
                          UXTextAlign align) {
        property.align = align;
        property.option = UXTextOption::EllipsisEnd;
        property.lineMode = UXTextProperty().lineMode; // a row is one line
        if (m_content.isFaint)
            property.textColor.alpha *= faintShare;
        if (rect.width > 0)
            painter.drawText(text, rect, property);
    };
    const Places places = _obtainPlaces();
    draw(m_content.valueText, places.value, chart.getValueProperty(), UXTextAlign::Right);
    draw(m_content.text, places.text, chart.getLabelProperty(), UXTextAlign::Left);
}

bool KXControlChartRow::customKeyDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    return (m_list && m_list->walk(event)) || (self.isAlive() && KXListCell::customKeyDown(event, stop));
}

bool KXControlChartRow::customMouseDown(const UXEvent& event, bool& stop)
{
    const UXObjectWatcher self(this);
    if (m_list)
        m_list->pressRow(getIndex());
    if (!self.isAlive())
        return true;
    invalidate();
    return KXListCell::customMouseDown(event, stop);
}

bool KXControlChartRow::customMouseUp(const UXEvent& event, bool& stop)
{
    invalidate();
    return KXListCell::customMouseUp(event, stop);
}

bool KXControlChartRow::customMouseMove(const UXEvent& event, bool& stop)
{
    if (!_setHovered(true))
        invalidate();
    return KXListCell::customMouseMove(event, stop);
}

bool KXControlChartRow::customMouseLeave(const UXEvent& event, bool& stop)
{
    endHover();
    return KXListCell::customMouseLeave(event, stop);
}
