#pragma once

#include "kx_value_chart.h"
#include "kx_value_chart_data_provider.h"
#include "ux/ux_diagram.h"

#include <array>
#include <memory>
#include <string>

class UXPaintConfig;

/** Four value charts one above the other: the picture that the comparison of chart libraries calls "kpi". */
class ValueBoard {
public:
    ValueBoard();

    void layout(int width, int height);
    void paint(UXPaintConfig& config);
    /** Gives every chart its text anew, as data that was replaced. */
    void reload();

private:
    /** One text as a host would provide it. */
    class Text : public KXValueChartDataProvider {
    public:
        std::string text;

        void beginPrepareData(KXChartDataUser*) override {}
        void endPrepareData(KXChartDataUser*) override {}
        bool obtainDataIsEmpty(KXChartDataUser*) override { return false; }
        std::uint64_t obtainValueCount(KXChartDataUser*) override { return 1; }
        KXChartDataType obtainValueDataType(KXChartDataUser*, const KXIndexPath&) override
        {
            return KXChartDataType::String;
        }
        std::string obtainValueDataString(KXChartDataUser*, const KXIndexPath&) override { return text; }
    };

    static constexpr std::size_t count = 4;
    std::array<Text, count> m_texts;
    UXDiagram m_diagram; // where the charts stand
    std::array<std::unique_ptr<KXValueChart>, count> m_charts;
};
