#pragma once

#include "kx_export.h"
#include "ux/ux_object_watcher.h"

class KXChartDataUser;

/** Keeps a data user for later and notices that it is gone: it goes with the chart that it serves. */
class KX_EXPORT KXChartDataUserWatcher {
public:
    KXChartDataUserWatcher();
    /** @param user stays its chart's; null for none */
    explicit KXChartDataUserWatcher(KXChartDataUser* user);

    /** @return null for none, and once it is gone */
    KXChartDataUser* get() const { return isGone() ? nullptr : m_user; }
    bool isGone() const { return m_hasChart && !m_chart.isAlive(); }

private:
    KXChartDataUser* m_user;
    UXObjectWatcher m_chart;
    bool m_hasChart;
};
