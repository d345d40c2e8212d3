#include "kx_density_room.h"

#include "kx_axis_chart_options.h"

KXDensityRoom kxObtainDensityRoom(KXChartDataDensity density)
{
    switch (density) {
    case KXChartDataDensity::Loose:
        return {24, 0.6, 12};
    case KXChartDataDensity::Medium:
        break;
    case KXChartDataDensity::Compact:
        return {6, 0.8, 3};
    }
    return {14, 0.7, 6};
}
