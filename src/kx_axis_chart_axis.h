#pragma once

#include "kx_axis_chart_axis_cache_data.h"
#include "kx_export.h"
#include "ux/ux_position.h"
#include "ux/ux_size.h"

#include <memory>
#include <string>

class KXAxis;
class KXAxisProperty;
class KXAxisTickLabelView;
class KXChartDataFormat;
class UXLabel;

/** What labels ask for beside the marks, before the start of their axis and after its end; logical units. */
struct KXAxisChartLabelRoom {
    int length = 0, startOverhang = 0;
    double extraLength = 0;

    friend bool operator==(const KXAxisChartLabelRoom&, const KXAxisChartLabelRoom&) = default;
};

/** One axis of a chart: what the user set about it, its range, and the objects that show it, which are
 * children of the chart's plot. */
struct KX_EXPORT KXAxisChartAxis {
    KXAxisChartAxis();
    ~KXAxisChartAxis();

    /** @return whether it lies along x */
    bool isHorizontal() const { return position == UXPosition::Bottom || position == UXPosition::Top; }
    /** @return the title to show: the user's, else the chart's */
    std::string obtainTitleText() const;
    /** @return whether there is a title, and the user wants it */
    bool showsTitle() const;
    /** @return what the whole title takes in one line, in whole logical units */
    UXSize measureTitle() const;
    /** @return what of the title fits in that width, empty where not even an ellipsis does */
    std::string shortenTitle(int width) const;
    /** @return the height of a tick label, in logical units */
    double measureLabelLine() const;

    std::unique_ptr<KXAxisProperty> property;
    std::unique_ptr<KXChartDataFormat> dataFormat;
    KXAxisChartAxisCacheData cache;
    UXPosition position = UXPosition::Bottom; /**< the side of the marks at which it stands */
    bool isUsed = true;                       /**< off: nothing of it is shown, and it takes no room */
    bool sharesGrid = true;                   /**< off: its grid lines would lie beside those of another */
    bool labelsInGap = false;                 /**< its labels stand in a gap of the axis of values */
    bool ticksChanged = true;                 /**< since the labels were told of them */
    KXAxisChartLabelRoom labelRoom;           /**< by which the last layout has placed the marks */
    KXAxis* axis = nullptr;
    KXAxisTickLabelView* labels = nullptr;
    UXLabel* title = nullptr;
};
