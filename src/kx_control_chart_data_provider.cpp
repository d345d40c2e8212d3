#include "kx_control_chart_data_provider.h"

KXControlChartDataProvider::~KXControlChartDataProvider() = default;

bool KXControlChartDataProvider::obtainSelection(KXChartDataUser*, std::vector<std::uint64_t>&, bool&)
{
    return false;
}

void KXControlChartDataProvider::selectionChanged(KXChartDataUser*, const std::vector<std::uint64_t>&, bool)
{
}

bool KXControlChartDataProvider::obtainCanFindMembers(KXChartDataUser*) { return false; }

bool KXControlChartDataProvider::findMembers(KXChartDataUser*, const std::string&, std::uint64_t,
                                             std::span<std::uint64_t>& found)
{
    found = {};
    return true;
}

bool KXControlChartDataProvider::obtainRange(KXChartDataUser*, double&, double&) { return false; }
void KXControlChartDataProvider::rangeChanged(KXChartDataUser*, double, double) {}
bool KXControlChartDataProvider::obtainRangeBounds(KXChartDataUser*, double&, double&) { return false; }

bool KXControlChartDataProvider::obtainHistogram(KXChartDataUser*, double, double, std::span<double>)
{
    return false;
}

bool KXControlChartDataProvider::obtainCanChooseRelativeRange(KXChartDataUser*) { return false; }

bool KXControlChartDataProvider::obtainRelativeRange(KXChartDataUser*, KXControlChartRelativeRange&)
{
    return false;
}

void KXControlChartDataProvider::relativeRangeChanged(KXChartDataUser*, const KXControlChartRelativeRange&) {}
