#include "kx_gauge_chart.h"

#include "kx_chart_label.h"
#include "kx_gauge_dial.h"
#include "kx_gauge_layout.h"
#include "kx_gauge_measures.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_rect_functions.h"
#include "ux/ux_saturate.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace {

/** @return where number stands between low and high, 0 to 1; of a range that no double holds, by halves */
double obtainRatio(double number, double low, double high)
{
    if (number < low)
        return 0;
    if (number > high)
        return 1;
    const double range = high - low;
    return std::isfinite(range) ? (number - low) / range : (number / 2 - low / 2) / (high / 2 - low / 2);
}

UXRect toWholeRect(const UXDoubleRect& rect)
{
    return {uxSaturateToInt(std::round(rect.x)), uxSaturateToInt(std::round(rect.y)),
            uxSaturateToInt(rect.width), uxSaturateToInt(rect.height)};
}

UXTextProperty makeTextProperty(const std::string& fontName, int fontSize, const UXColor& color)
{
    UXTextProperty property;
    property.font.familyName = fontName;
    property.font.size = fontSize;
    property.align = UXTextAlign::Center;
    property.textColor = color;
    return property;
}

} // namespace

void KXGaugeChart::initParam()
{
    const double number = getValueData(), wanted = obtainTargetValueData();
    const double low = obtainMinValueData(), high = obtainMaxValueData();
    m_valueRatio = m_targetRatio = noValue;
    if (!kxIsGaugeNumber(low) || !kxIsGaugeNumber(high) || !kxIsGaugeNumber(number) || high <= low)
        return;
    m_valueRatio = obtainRatio(number, low, high);
    if (kxIsGaugeNumber(wanted))
        m_targetRatio = obtainRatio(wanted, low, high);
}

void KXGaugeChart::_customLayout(UXRect plotArea)
{
    initParam();
    KXGaugeLayout layout;
    layout.pipeShare = m_pipeWithPercentage;
    layout.showsPointer = m_showPointer;
    layout.showsTick = kxIsGaugeNumber(m_targetRatio);
    _customLayout_setText(layout);
    _customLayout_setPartitionLabel(layout);
    _customLayout_setTextProperty(layout);
    _customLayout_setRect(layout, plotArea);
}

void KXGaugeChart::_customLayout_setText(KXGaugeLayout& layout)
{
    layout.main.text = _obtainMeasureText(kxGaugeValue, m_mainDisplay);
    layout.minimum.text = _obtainMeasureText(kxGaugeMinimum, m_maxMinDisplay);
    layout.maximum.text = _obtainMeasureText(kxGaugeMaximum, m_maxMinDisplay);

    // The target's label marks a place on the dial; without the place there is nothing to label. The tick has
    // its room there with the label or without.
    if (!kxIsGaugeNumber(m_targetRatio))
        return;
    layout.target.degrees = m_targetRatio * KXGaugeDial::sweepDegrees;
    if (m_targetDisplay != KXGaugeChartLabelDisplay::None)
        layout.target.text = m_targetCaption + _obtainMeasureText(kxGaugeTarget, m_targetDisplay);
}

void KXGaugeChart::_customLayout_setPartitionLabel(KXGaugeLayout& layout)
{
    if (m_partitionLabelDisplay == KXGaugeChartLabelDisplay::None)
        return;

    // A boundary that is no further than one before it divides nothing, and the ends need not be said twice.
    const int count = obtainPipePartition();
    double reached = -1;
    for (int i = 0; i <= count; ++i) {
        const double percentage = obtainPartitionLabelPercentage(i);
        KXGaugeText& boundary = layout.boundaries.emplace_back();
        if (!(percentage >= 0 && percentage > reached))
            continue;
        reached = percentage;
        boundary.degrees = percentage / 100 * KXGaugeDial::sweepDegrees;
        const std::string text = obtainPartitionLabelString(i);
        const bool isRepeated = (percentage == 0 && text == layout.minimum.text) ||
                                (percentage == 100 && text == layout.maximum.text);
        if (!isRepeated)
            boundary.text = text;
    }
    _growPartitionLabelsPool(layout.boundaries.size());
}

void KXGaugeChart::_growPartitionLabelsPool(std::size_t count)
{
    while (m_partitionLabelsPool.size() < count) {
        m_partitionLabelsPool.push_back(new KXChartLabel);
        addChild(m_partitionLabelsPool.back());
    }
}

void KXGaugeChart::_customLayout_setTextProperty(KXGaugeLayout& layout) const
{
    layout.main.property = makeTextProperty(m_fontName, m_fontSize, m_fontColor);
    layout.minimum.property = makeTextProperty(m_maxMinFontName, m_maxMinFontSize, m_maxMinFontColor);
    layout.maximum.property = layout.minimum.property;
    layout.target.property = makeTextProperty(m_targetFontName, m_targetFontSize, m_targetFontColor);
    for (KXGaugeText& boundary : layout.boundaries)
        boundary.property = makeTextProperty(m_partitionLabelFontName, m_partitionLabelFontSize,
                                             m_partitionLabelFontColor);
}

void KXGaugeChart::_customLayout_setRect(KXGaugeLayout& layout, const UXRect& plotArea)
{
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    layout.place(plotArea, *helper, [&](const KXGaugeLayout::Room& room) {
        m_maxMinProperty = room.endProperty;
        return _customLayout_setRect_pipeRadius(
            room.showsEnds ? m_maxMinDisplay : KXGaugeChartLabelDisplay::None, helper.get(), room.rect,
            room.endHeight, room.mainHeight, room.targetSize);
    });
    m_pipeRect = toWholeRect(layout.dial.obtainRect());
    m_textLosses.clear();
    _takeText(m_mainLabel, layout.main);
    _takeText(m_minLabel, layout.minimum);
    _takeText(m_maxLabel, layout.maximum);
    _takeText(m_targetLabel, layout.target);
    layout.boundaries.resize(m_partitionLabelsPool.size());
    for (std::size_t i = 0; i < m_partitionLabelsPool.size(); ++i)
        _takeText(m_partitionLabelsPool[i], layout.boundaries[i]);
}

int KXGaugeChart::_customLayout_setRect_pipeRadius(KXGaugeChartLabelDisplay display, UXLayoutHelper* helper,
                                                   UXRect rect, int h1, int h2, UXSize size)
{
    // 1. Minimum and maximum may stick out sideways by as much as the wider of them.
    double widest = 0;
    if (display != KXGaugeChartLabelDisplay::None)
        for (const std::string& text : {obtainLabelDisplayString(obtainMaxValueData(), 1, display),
                                        obtainLabelDisplayString(obtainMinValueData(), 0, display)})
            widest = std::max(widest, helper->getTextSize(text, m_maxMinProperty).width);

    // 2. What the width allows.
    const double width = std::round(rect.width * 0.95);
    const double pad = std::round(width * 0.06 + 2 * widest);
    const double widthLimit = std::round((width - pad) / 2);

    // 3. What the height allows, over the texts below the dial.
    const double height = std::round(rect.height * 0.95);
    const double mainGap = h2 > 0 ? std::round(height * 0.028) : 0;
    const double endGap = h1 > 0 ? std::round(height * 0.035) : 0;
    const double ends = endGap + h1;
    const double below = m_showPointer ? std::max(h2 + std::round(height * 0.04) + mainGap, ends) : ends;
    const int radius = uxSaturateToInt(std::min(widthLimit, height - below));

    // 4. The target stands beside the dial.
    if (m_targetLabel->getVisible())
        m_targetLabel->setRect(_customLayout_getRect_targetLabel(rect, radius, size));
    return radius;
}

UXRect KXGaugeChart::_customLayout_getRect_targetLabel(UXRect rect, int radius, UXSize size) const
{
    if (!kxIsGaugeNumber(m_targetRatio))
        return {};
    const UXPoint center(uxSaturateToInt(rect.x + std::round(rect.width / 2.0)), uxMaxY(rect));
    return _customLayout_getRect_targetLabel_core(center, radius, size);
}

UXRect KXGaugeChart::_customLayout_getRect_targetLabel_core(UXPoint center, int radius, UXSize size) const
{
    const KXGaugeDial dial{center, std::max(radius, 0) + 0.0, 0};
    return toWholeRect(dial.placeOutside({size.width + 0.0, size.height + 0.0},
                                         m_targetRatio * KXGaugeDial::sweepDegrees,
                                         dial.obtainTickClearance()));
}

void KXGaugeChart::_takeText(KXChartLabel* label, const KXGaugeText& text)
{
    label->setVisible(text.shown);
    if (!text.shown) {
        if (!text.text.empty())
            m_textLosses.leaveOut(text.text, text.rect);
        return;
    }
    label->setText(text.text);
    label->setTextProperty(text.property);
    label->setRect(toWholeRect(text.rect));
}
