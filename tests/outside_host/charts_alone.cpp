#include <kxcharts/kxcharts.h>

/** Asks the charts' library alone: links and starts where the framework is named nowhere. */
int main() { return kxObtainEnumMap<KXChartDataType>() ? 0 : 1; }
