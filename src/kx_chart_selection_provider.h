#pragma once

#include "kx_export.h"

#include <vector>

class KXChartDataUser;
struct KXChartDataPath;

/** A data provider that also is one of these lets the user choose items of its charts. The host keeps the
 *  choice, by what the items are rather than by their indexes, so that it survives new data; a chart asks for
 *  it again whenever its data are reloaded. */
class KX_EXPORT KXChartSelectionProvider {
public:
    virtual ~KXChartSelectionProvider();

    /** @return whether items of the user's chart can be chosen now; by default they can */
    virtual bool obtainCanSelect(KXChartDataUser* user);
    /** Asked before any obtainIsSelected, so that a chart of many items need not ask about each of them.
     *  @param paths receives what names the chosen items, as clicks name them
     *  @return whether these are all; by default not, and each item is asked about */
    virtual bool obtainSelectedPaths(KXChartDataUser* user, std::vector<KXChartDataPath>& paths);
    /** @param path names an item as clicks do, lent for the call */
    virtual bool obtainIsSelected(KXChartDataPath* path) = 0;
    /** The user chose. Called after the event; what then is chosen is asked for again.
     *  @param paths all items that are to be chosen from now on */
    virtual void selectionChanged(KXChartDataUser* user, const std::vector<KXChartDataPath>& paths) = 0;
};
