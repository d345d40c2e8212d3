#pragma once

#include "kx_chart_data_path.h"
#include "kx_export.h"
#include "kx_highlight_result.h"

class KXChartDataUser;
class UXControl;
class UXEvent;
class UXObject;

/** What a chart does for the charts that it is linked to: it passes on what its own items ask for, and shows
 *  what the items of others ask for. Keeps no state. */
class KX_EXPORT KXChartLinkedAction {
public:
    KXChartLinkedAction() = default;
    KXChartLinkedAction(const KXChartLinkedAction&) = default;
    KXChartLinkedAction& operator=(const KXChartLinkedAction&) = default;
    virtual ~KXChartLinkedAction();

    /** An item of this chart asks for the highlight of its matches. By default nothing happens.
     *  @param source the pointed-at object, null when it is gone by now */
    virtual void linkedHighlightRequested(KXChartDataUser* user, const KXChartDataPath& path,
                                          UXObject* source, const UXEvent& event);
    /** The item no longer asks. */
    virtual void linkedHighlightCleared(KXChartDataUser* user, const KXChartDataPath& path, UXObject* source,
                                        const UXEvent& event);

    /** Makes an item of this chart stand out because it matches one that another chart highlights. By default
     *  the chart takes no part.
     *  @param path names the item in this chart's own data
     *  @param control shows the chart and is where hints appear; may be null */
    virtual KXHighlightResult showLinkedHighlight(const KXChartDataPath& path, UXControl* control);
    virtual void hideLinkedHighlight(UXControl* control);
};
