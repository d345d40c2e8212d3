#pragma once

#include "kx_export.h"
#include "kx_index_path.h"

#include <optional>

struct KXChartDataPath;
class KXChartDataProvider;
class KXChartDataProviderUse;
class KXChartDataProviderWatcher;
class KXChartDataUser;

/** @param watcher notices whether an answer destroys the user or takes the provider away from it
 *  @return whether there is no value at path: the provider says that it is null, not valid or empty, or must
 * not be asked more */
[[nodiscard]] KX_EXPORT bool kxObtainValueIsMissing(KXChartDataProvider& provider, KXChartDataUser* user,
                                                    const KXIndexPath& path,
                                                    const KXChartDataProviderWatcher& watcher);

/** @return the number at path, nothing where there is none */
[[nodiscard]] KX_EXPORT std::optional<double> kxObtainValueNumber(KXChartDataProvider& provider,
                                                                  KXChartDataUser* user,
                                                                  const KXIndexPath& path,
                                                                  const KXChartDataProviderWatcher& watcher);

/** Asks the provider in use, which may destroy the user.
 *  @return whether the item of a path stands for nothing in the data: a step that was filled in, or the rest
 */
[[nodiscard]] KX_EXPORT bool kxObtainItemIsGenerated(const KXChartDataProviderUse& use, KXChartDataUser* user,
                                                     const KXChartDataPath& path);
