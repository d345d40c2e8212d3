#pragma once

#include "kx_chart_data_provider_watcher.h"
#include "kx_export.h"

class KXChartDataProvider;
class KXChartDataUser;

/**
 * One use of a data user's provider, which ends with the scope, also where the host throws:
 * @code
 *     const KXChartDataProviderUse use(*this);
 *     if (auto* provider = use.as<KXAxisChartDataProvider>())
 *         label = provider->obtainSeriesLabel(this, series);
 *     if (!use.isAlive())
 *         return;
 * @endcode
 * After each answer isCurrent() says whether the provider can be asked more.
 */
class KX_EXPORT KXChartDataProviderUse {
public:
    explicit KXChartDataProviderUse(KXChartDataUser& user);
    ~KXChartDataProviderUse();

    KXChartDataProviderUse(const KXChartDataProviderUse&) = delete;
    KXChartDataProviderUse& operator=(const KXChartDataProviderUse&) = delete;

    bool isAlive() const { return m_watcher.isAlive(); }
    bool isCurrent() const { return m_provider && m_watcher.isCurrent(); }
    /** @return null without a provider, and once it must not be asked any more */
    KXChartDataProvider* get() const { return isCurrent() ? m_provider : nullptr; }
    /** @return null for a provider of another kind, too */
    template <class Provider>
    Provider* as() const
    {
        return dynamic_cast<Provider*>(get());
    }

private:
    KXChartDataUser& m_user;
    KXChartDataProviderWatcher m_watcher;
    KXChartDataProvider* m_provider; // the host's
};
