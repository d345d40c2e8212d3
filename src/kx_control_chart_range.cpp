#include "kx_control_chart_range.h"

#include "kx_chart_slider.h"
#include "kx_control_button.h"
#include "kx_control_chart.h"
#include "kx_control_range.h"
#include "kx_control_words.h"
#include "kx_text_line.h"
#include "ux/ux_diagram.h"
#include "ux/ux_diagram_lookup.h"
#include "ux/ux_event.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"
#include "ux/ux_text_measurer.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

constexpr int gap = 6, dashWidth = 14, sliderHeight = 22; // logical units
constexpr int greatestHistogramHeight = 200, leastHistogramHeight = 16;
constexpr int greatestLineWidth = 140, leastLineWidth = 56;
constexpr UXColor restColor(214, 218, 226);

} // namespace

KXControlChartRange::KXControlChartRange(KXControlChart& chart)
    : m_chart(chart), m_fromLine(new KXTextLine), m_toLine(new KXTextLine),
      m_relativeButton(new KXControlButton), m_clearButton(new KXControlButton), m_slider(new KXChartSlider)
{
    for (KXControlPart* part : _obtainParts())
        addChild(part);
    m_slider->setChangedHandler([this](bool isFinal, const UXEvent& event) {
        m_chart.chooseRange(m_slider->getFrom(), m_slider->getTo(), isFinal, event);
    });
    m_slider->setValueWriter([this](double value) { return m_chart.formatRangeValue(value); });
    m_slider->setSnap([this](double value, int direction) { return m_chart.snapRangeEnd(value, direction); });
    for (KXTextLine* line : {m_fromLine, m_toLine}) {
        line->setFinishedHandler([this](const UXEvent& event) { _takeTyped(event); });
        line->setCancelledHandler([this] { choiceChanged(); });
    }
    m_relativeButton->setAction([this](const UXEvent&) { m_chart.openRelativeMenu(*m_relativeButton); });
    m_clearButton->setQuiet(true);
    m_clearButton->setAction([this](const UXEvent& event) { m_chart.clearChoice(event); });
}

KXControlChartRange::~KXControlChartRange() { setParent(nullptr); }

std::string KXControlChartRange::customSerializeTypeID() { return "KXControlChartRange"; }

/** @return in the order of the keyboard */
std::array<KXControlPart*, 5> KXControlChartRange::_obtainParts() const
{
    return {m_fromLine, m_toLine, m_relativeButton, m_clearButton, m_slider};
}

void KXControlChartRange::dataChanged()
{
    const KXControlRange& range = m_chart.getRange();
    m_slider->setType(m_chart.getSliderType());
    m_slider->setBounds(range.getLowest(), range.getGreatest());
    m_slider->setStep(m_chart.obtainRangeStep());
    choiceChanged();
    requireLayout();
}

void KXControlChartRange::choiceChanged()
{
    const double from = m_chart.getRangeFrom(), to = m_chart.getRangeTo();
    m_slider->setRange(from, to);
    m_fromLine->setText(std::isnan(from) ? std::string() : m_chart.obtainInputText(from));
    m_toLine->setText(std::isnan(to) ? std::string() : m_chart.obtainInputText(to));
    m_fromLine->setValid(true);
    m_toLine->setValid(true);
    m_relativeButton->setText(m_chart.obtainRelativeText());
    requireLayout(); // the buttons may be others
    invalidate();
}

void KXControlChartRange::colorsChanged()
{
    for (KXControlPart* part : _obtainParts())
        part->setAccentColor(m_chart.getAccentColor());
    invalidate();
}

/** What is typed counts once it means something; ends the wrong way round are exchanged. */
void KXControlChartRange::_takeTyped(const UXEvent& event)
{
    const std::optional<double> from = m_chart.parseInput(m_fromLine->getInputText());
    const std::optional<double> to = m_chart.parseInput(m_toLine->getInputText());
    m_fromLine->setValid(from.has_value());
    m_toLine->setValid(to.has_value());
    if (!from || !to)
        return;
    const bool isTurned = *from > *to;
    m_chart.chooseRange(isTurned ? *to : *from, isTurned ? *from : *to, true, event);
}

bool KXControlChartRange::walkParts(bool forwards)
{
    const UXDiagram* diagram = uxObtainDiagram(this);
    const UXObject* focused = diagram ? diagram->getFocusedObject() : nullptr;
    const auto parts = _obtainParts();
    const int count = static_cast<int>(parts.size());
    int place = forwards ? -1 : count;
    for (int i = 0; i < count; ++i)
        if (parts[static_cast<std::size_t>(i)] == focused)
            place = i;
    for (place += forwards ? 1 : -1; place >= 0 && place < count; place += forwards ? 1 : -1)
        if (parts[static_cast<std::size_t>(place)]->takeKeys())
            return true;
    return false;
}

/** @return the height that they take */
int KXControlChartRange::_layoutInputs()
{
    const KXControlWords& words = m_chart.getWords();
    for (KXControlPart* part : _obtainParts())
        part->setTextProperty(m_chart.getLabelProperty());
    m_fromLine->setName(words.from);
    m_toLine->setName(words.to);
    m_fromLine->setPlaceholder(m_chart.formatRangeValue(m_chart.getRange().getLowest()));
    m_toLine->setPlaceholder(m_chart.formatRangeValue(m_chart.getRange().getGreatest()));
    m_clearButton->setText(words.clear);
    m_fromLine->autoResize();
    m_clearButton->autoResize();
    m_relativeButton->autoResize();
    const UXRect area = getBoundingRect();
    const int height = m_fromLine->getRect().height;
    const KXChartSliderType type = m_chart.getSliderType();
    const bool hasFrom = type != KXChartSliderType::Max,
               hasTo = type == KXChartSliderType::Max || type == KXChartSliderType::Range;
    const bool hasRoom = area.height >= height + gap + sliderHeight + leastHistogramHeight;
    const bool showsClear = m_chart.hasChoice() && hasRoom,
               showsRelative = m_chart.canChooseRelative() && hasRoom;
    int right = area.width;
    const auto placeButton = [&](KXControlButton* button, bool isShown) {
        button->setVisible(isShown);
        if (!isShown)
            return;
        const int width = std::min(button->getRect().width, right);
        right -= width;
        button->setRect(uxMakeRect(right, 0, width, height));
        right -= gap;
    };
    placeButton(m_clearButton, showsClear);
    placeButton(m_relativeButton, showsRelative);
    const int lineCount = (hasFrom ? 1 : 0) + (hasTo ? 1 : 0);
    const int room = (right - (lineCount - 1) * dashWidth) / std::max(lineCount, 1);
    const bool showsLines = m_chart.getShowInput() && hasRoom && room >= leastLineWidth;
    const int width = std::min(room, greatestLineWidth);
    m_fromLine->setVisible(showsLines && hasFrom);
    m_toLine->setVisible(showsLines && hasTo);
    m_fromLine->setRect(uxMakeRect(0, 0, width, height));
    const int toLeft = hasFrom ? width + dashWidth : 0;
    m_toLine->setRect(uxMakeRect(toLeft, 0, width, height));
    m_dash = showsLines && lineCount == 2 ? UXDoubleRect(width, 0, dashWidth, height) : UXDoubleRect();
    return showsLines || showsClear || showsRelative ? height + gap : 0;
}

void KXControlChartRange::customLayout()
{
    const UXRect area = getBoundingRect();
    colorsChanged();
    int top = _layoutInputs();
    const int endsHeight = uxSaturateToInt(std::ceil(uxMeasureText("Wp", m_chart.getValueProperty()).height));
    const bool showsEnds = area.height - top >= sliderHeight + endsHeight + leastHistogramHeight;
    const int room = area.height - top - sliderHeight - (showsEnds ? endsHeight : 0);
    m_histogram = {};
    if (m_chart.getShowHistogram() && !m_chart.getRange().getCounts().empty() &&
        room >= leastHistogramHeight) {
        const int height = std::min(room, greatestHistogramHeight);
        m_histogram = UXDoubleRect(KXChartSlider::trackInset, top, area.width - 2 * KXChartSlider::trackInset,
                                   height);
        top += height - sliderHeight / 2 + 2; // the bars stand on the track
    }
    m_slider->setRect(uxMakeRect(0, top, area.width, std::min(sliderHeight, std::max(area.height - top, 0))));
    const bool hasRoom = area.height >= sliderHeight && area.width > 4 * KXChartSlider::trackInset;
    m_slider->setVisible(hasRoom);
    top += sliderHeight;
    m_ends = showsEnds ? UXDoubleRect(0, top, area.width, endsHeight) : UXDoubleRect();
    UXObject::customLayout();
    for (KXControlPart* part : _obtainParts())
        part->layout();
}

void KXControlChartRange::paint(UXPaintConfig* config, UXRect dirtyRect)
{
    if (UXPainter* painter = uxCreatePainterWithObject(config, this)) {
        _paintHistogram(*painter);
        _paintEnds(*painter);
        if (m_dash.width > 0) {
            painter->setColor(m_chart.getValueProperty().textColor);
            const double middle = uxMidDoubleX(m_dash), y = uxMidDoubleY(m_dash);
            painter->drawHorizontalLines(std::span(&y, 1), middle - 3, middle + 3, 1);
        }
        uxDestroyPainter(painter);
    }
    UXObject::paint(config, dirtyRect);
}

void KXControlChartRange::_paintHistogram(UXPainter& painter) const
{
    const std::vector<double>& counts = m_chart.getRange().getCounts();
    const double greatest = counts.empty() ? 0 : *std::ranges::max_element(counts);
    if (!(m_histogram.width > 0) || !(greatest > 0))
        return;
    const double width = m_histogram.width / static_cast<double>(counts.size());
    const double bottom = m_histogram.y + m_histogram.height;
    const double from = m_chart.getRangeFrom(), to = m_chart.getRangeTo();
    const double left = std::isnan(from) ? m_histogram.x : m_slider->obtainPlace(from);
    const double right = std::isnan(to) ? m_histogram.x + m_histogram.width : m_slider->obtainPlace(to);
    std::vector<UXDoubleRect> chosen, rest;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const double height = counts[i] > 0 ? std::max(counts[i] / greatest * m_histogram.height, 1.0) : 0;
        const double begin = m_histogram.x + width * static_cast<double>(i);
        const UXDoubleRect bar{begin, bottom - height, std::max(width - 1, 0.5), height};
        const double middle = begin + width / 2;
        if (height > 0)
            (middle >= left && middle <= right ? chosen : rest).push_back(bar);
    }
    painter.setColor(restColor);
    painter.drawRects(rest);
    UXColor color = m_chart.getAccentColor();
    color.alpha *= 0.55;
    painter.setColor(color);
    painter.drawRects(chosen);
}

void KXControlChartRange::_paintEnds(UXPainter& painter) const
{
    if (!(m_ends.width > 0) || m_chart.getRange().isEmpty())
        return;
    UXTextProperty property = m_chart.getValueProperty();
    const std::string low = m_chart.formatRangeValue(m_chart.getRange().getLowest());
    const std::string high = m_chart.formatRangeValue(m_chart.getRange().getGreatest());
    const double lowWidth = uxMeasureText(low, property).width,
                 highWidth = uxMeasureText(high, property).width;
    if (lowWidth + highWidth + gap > m_ends.width)
        return;
    property.align = UXTextAlign::Left;
    painter.drawText(low, m_ends, property);
    property.align = UXTextAlign::Right;
    painter.drawText(high, m_ends, property);
}
