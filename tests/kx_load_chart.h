#pragma once

#include "kx_chart_data_provider.h"
#include "ux/ux_object_watcher.h"
#include "ux/ux_rect.h"

/** Brings data and layout of a chart up to date as a host does, and stops where the chart has gone. */
template <class Chart>
void kxLoad(Chart& chart)
{
    const UXObjectWatcher self(&chart);
    chart.prepareData();
    if (self.isAlive())
        chart.reloadData();
    if (self.isAlive())
        chart.layout();
}

/** Gives the chart its place and its provider first. */
template <class Chart>
void kxLoad(Chart& chart, KXChartDataProvider& provider, const UXRect& rect)
{
    chart.setRect(rect);
    chart.setDataProvider(&provider);
    kxLoad(chart);
}
