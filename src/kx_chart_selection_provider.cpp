#include "kx_chart_selection_provider.h"

#include "kx_chart_data_path.h"

KXChartSelectionProvider::~KXChartSelectionProvider() = default;

bool KXChartSelectionProvider::obtainCanSelect(KXChartDataUser*) { return true; }

bool KXChartSelectionProvider::obtainSelectedPaths(KXChartDataUser*, std::vector<KXChartDataPath>&)
{
    return false;
}
