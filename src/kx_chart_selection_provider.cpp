#include "kx_chart_selection_provider.h"

KXChartSelectionProvider::~KXChartSelectionProvider() = default;

bool KXChartSelectionProvider::obtainCanSelect(KXChartDataUser*) { return true; }
