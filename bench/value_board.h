#pragma once

#include "kx_value_chart.h"
#include "text_value.h"
#include "ux/ux_diagram.h"

#include <array>
#include <memory>

class UXPaintConfig;

/** Four value charts one above the other: the picture that the comparison of chart libraries calls "kpi". */
class ValueBoard {
public:
    ValueBoard();

    void layout(int width, int height);
    void paint(UXPaintConfig& config);
    /** Replaces the texts by other ones, and back again with the next call. */
    void update();

private:
    void _reload();

    static constexpr std::size_t count = 4;

    std::array<TextValue, count> m_texts;
    bool m_showsOtherTexts = false;
    UXDiagram m_diagram; // does not own the charts, which leave it as they are destroyed
    std::array<std::unique_ptr<KXValueChart>, count> m_charts;
};
