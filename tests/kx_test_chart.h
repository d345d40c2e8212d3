#pragma once

#include "kx_chart.h"
#include "kx_chart_data_user.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

/** A chart of legend cells that a test sets, which keeps the plot area that it is given. */
class KXTestChart : public KXChart, public KXChartDataUser {
public:
    KXTestChart() : KXChartDataUser(this) {}

    void setLabels(const std::vector<std::string>& labels)
    {
        cellCount = labels.size();
        label = [labels](std::uint64_t index) { return labels.at(index); };
    }
    void customPrepareData(KXChartDataProvider*, bool&) override {}
    void customReloadData() override {}
    std::uint64_t obtainLegendCellSize() override { return cellCount; }
    std::string obtainLegendLabel(std::uint64_t index) override
    {
        askedLabels.push_back(index);
        return label(index);
    }
    bool obtainLegendShouldShowCell(std::uint64_t index) override { return !hidden.contains(index); }

    std::uint64_t cellCount = 0;
    std::function<std::string(std::uint64_t)> label = [](std::uint64_t) { return "cell"; };
    std::set<std::uint64_t> hidden;
    std::vector<std::uint64_t> askedLabels;
    UXRect plotArea;

protected:
    void _customLayout(UXRect area) override { plotArea = area; }
};
