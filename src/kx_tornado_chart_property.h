#pragma once

#include "kx_chart_property_base.h"
#include "kx_export.h"
#include "kx_key_table.h"
#include "kx_tornado_chart_options.h"

// type, name, member and JSON key, default, reset, effect, meaning
#define KX_TORNADO_CHART_PROPERTY_KEYS(KEY)                                                             \
    KEY(KXTornadoChartStackStyle, StackStyle, m_stackStyle, KXTornadoChartStackStyle::StackedBar,       \
        Any(Tornado), Reload, "both sides, or the difference of the right one to the left one")         \
    KEY(bool, SortBySize, m_sortBySize, true, Any(Tornado), Reload, "the longest row first")            \
    KEY(bool, LabelsInCenter, m_labelsInCenter, false, Any(Tornado), Reload,                            \
        "the categories are named between the two sides of a mirrored axis; off: left of all bars")     \
    KEY(bool, IsMirrored, m_isMirrored, true, Any(Tornado), Reload,                                     \
        "the sides run from zero to the left and to the right; off: all values from m_center on along " \
        "one axis")                                                                                     \
    KEY(double, Center, m_center, 0, Any(Tornado), Reload,                                              \
        "where bars start that are not mirrored, in values")

/** What the user can set about the two sides of a tornado. */
class KX_EXPORT KXTornadoChartProperty : public KXChartPropertyBase {
    KX_DECLARE_KEYS(KXTornadoChartProperty, KXChartPropertyBase, KX_TORNADO_CHART_PROPERTY_KEYS)
public:
    KXTornadoChartProperty();
    KXTornadoChartProperty(const KXTornadoChartProperty&);
    KXTornadoChartProperty& operator=(const KXTornadoChartProperty&);
    ~KXTornadoChartProperty() override;
};
