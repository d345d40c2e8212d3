#pragma once

#include <map>
#include <string>

#include "kx_chart_data_path.h"

class KXChartDataUser;
class SqlDataProvider;

/** The member of each column that an item of a chart is about: those on its path, and those that all rows of
 * its chart have by a filter. */
using ItemFacts = std::map<std::string, std::string>;

[[nodiscard]] ItemFacts collectItemFacts(SqlDataProvider& provider, KXChartDataUser* user,
                                         const KXChartDataPath& path);

/** @return the facts that a filter gives to every item of provider */
[[nodiscard]] ItemFacts collectFilterFacts(const SqlDataProvider& provider);

/** @return whether a column has the same member in both, and none has another one */
[[nodiscard]] bool doFactsAgree(const ItemFacts& first, const ItemFacts& second);
