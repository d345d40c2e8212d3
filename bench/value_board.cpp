#include "value_board.h"

#include "kx_chart_label.h"
#include "ux/ux_rect_functions.h"

namespace {

/** One of the board's texts and what replaces it: its middle as a share of the board's height, and its look.
 */
struct Line {
    const char* text;
    const char* otherText;
    double middle;
    int size;
    bool bold;
    UXColor color;
};

const UXColor dark(51, 51, 51);
const Line lines[] = {
    {"Revenue", "Turnover", 0.28, 24, false, dark},
    {"1,284,930", "1,310,754", 0.46, 72, true, dark},
    {"+4.2 % vs last month", "+2.0 % vs last month", 0.62, 20, false, UXColor(59, 162, 114)},
    {"Updated 2024-06-01", "Updated 2024-07-01", 0.72, 12, false, dark},
};

} // namespace

ValueBoard::ValueBoard()
{
    m_diagram.setBackgroundColor(UXColor(255, 255, 255));
    for (std::size_t i = 0; i < count; ++i) {
        m_charts[i] = std::make_unique<KXValueChart>();
        KXValueChart& chart = *m_charts[i];
        chart.setFontName("DejaVu Sans");
        chart.setFontSize(lines[i].size);
        chart.setFontColor(lines[i].color);
        chart.setMainLabelAlign(UXTextAlign::Center);
        UXTextProperty property = chart.getValueLabel()->getTextProperty();
        property.font.bold = lines[i].bold;
        chart.getValueLabel()->setTextProperty(property);
        chart.setDataProvider(&m_texts[i]);
        chart.setAlign(UXAlign::None); // the board places the charts itself
        m_diagram.addChild(&chart);
    }
    _reload();
}

void ValueBoard::update()
{
    m_showsOtherTexts = !m_showsOtherTexts;
    _reload();
}

void ValueBoard::_reload()
{
    for (std::size_t i = 0; i < count; ++i) {
        m_texts[i] = TextValue(m_showsOtherTexts ? lines[i].otherText : lines[i].text);
        m_charts[i]->prepareData();
        m_charts[i]->reloadData();
    }
    m_diagram.layout();
}

void ValueBoard::layout(int width, int height)
{
    m_diagram.setRect(uxMakeRect(0, 0, width, height));
    for (std::size_t i = 0; i < count; ++i) {
        // The value stands at the top of its plot area, one line of about 1.2 times the font size high.
        const int lineHeight = lines[i].size * 12 / 10;
        const int top = static_cast<int>(lines[i].middle * height) - lineHeight / 2 - 1;
        m_charts[i]->setRect(uxMakeRect(0, top, width, lineHeight + 8));
    }
    m_diagram.layout();
}

void ValueBoard::paint(UXPaintConfig& config)
{
    m_diagram.paintBackground(&config);
    m_diagram.paint(&config, m_diagram.getBoundingRect());
}
