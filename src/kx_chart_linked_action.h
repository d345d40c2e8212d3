#pragma once

#include "kx_chart_data_path.h"
#include "kx_export.h"

class KXChartDataUser;
class UXEvent;
class UXObject;

/** What a chart does when one of its items asks the linked charts to show the matching items. Keeps no state.
 */
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
};
