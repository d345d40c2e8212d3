#pragma once

#include "kx_export.h"
#include "kx_index_path.h"
#include "kx_interaction_user.h"

#include <cstdint>
#include <string>
#include <vector>

class KXChart;
class KXChartDataProvider;
class KXInteractionEffect;
class KXObjectID;

/** The side of a chart that pulls data from the provider. prepareData() asks the provider and caches its
 * answers; reloadData() makes what the chart draws of them. */
class KX_EXPORT KXChartDataUser : public KXInteractionUser {
public:
    /** @param chart the chart that this serves, not null, not owned */
    explicit KXChartDataUser(KXChart* chart);
    ~KXChartDataUser() override;

    /** Takes what the chart draws out of provider, which is not null; sets prepared once the data can be
     * used. */
    virtual void customPrepareData(KXChartDataProvider* provider, bool& prepared) = 0;
    /** Makes the chart's drawable records of what customPrepareData() cached. */
    virtual void customReloadData() = 0;
    virtual void customReloadColors();
    /** Sets the provider of data and of interaction. @param provider the host's, not owned; may be null */
    virtual void setDataProvider(KXChartDataProvider* provider);
    /** @return the provider, null when there is none; every begin is followed by one end, which
     *  KXChartDataProviderUse sees to */
    virtual KXChartDataProvider* beginUseDataProvider();
    virtual void endUseDataProvider();
    /** Forgets what was prepared. A chart's own data user clears its cache here. */
    virtual void resetData();
    /** Asks the provider for everything. What it began it is asked to end, also where an answer throws. */
    virtual void prepareData();
    virtual void requestToReloadData();
    virtual void reloadData();
    /** Takes up changed colours; neither lays out nor asks for data. */
    virtual void reloadColors();
    virtual bool preparedData();
    virtual bool reloadedData();
    virtual bool preparedAndReloadedData();
    /** @return whether paths was set: the items in the order in which colours go to them */
    virtual bool obtainSortedIndexPathsByColorOrder(std::vector<KXIndexPath>& paths);
    /** @return whether text was set: the item at path, formatted */
    virtual bool obtainFormattedDataWithSortedIndexPath(const KXIndexPath& path, std::string& text);

    /** The host calls this when it has what it answered "not yet" about: the chart lays out, and asks for
     * what it still shows. The base shows nothing that can come late.
     *  @param first, count the members of the chart's first dimension that have come */
    virtual void dataArrived(std::uint64_t first, std::uint64_t count);

    /** @return the chart that this serves */
    KXChart* getChart() const { return m_chart; }
    /** @return whether the chart's pieces answer the pointer */
    bool isInteractionEnabled() const;
    /** Asks the provider how what the identifiers name looks while it stands out. Nothing is asked without
     *  identifiers and while interaction is off.
     *  @return the caller's to delete */
    std::vector<KXInteractionEffect*> obtainInteractionEffects(const std::vector<KXObjectID>& objectIDs);

private:
    friend class KXChartDataProviderWatcher;
    class Preparation;

    KXChart* m_chart;
    KXChartDataProvider* m_dataProvider = nullptr; // the host's
    unsigned m_providerGeneration = 0;             // changes with each provider that is set
    bool m_prepared = false;
    bool m_reloaded = false;
};
