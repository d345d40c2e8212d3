#pragma once

#include "dashboard_document.h"

#include <cstdint>
#include <nlohmann/json.hpp>

class JsonCursor;

/** Reads a dashboard from JSON:
 *  {
 *    "type": "Dashboard",
 *    "title": "Bird strikes",
 *    "data": "data/birdstrikes.csv",
 *    "columns": 12, "rows": 8,
 *    "items": [{"chart": "strikes.chart.json", "binding": {"measures": [{"aggregate": "count"}]},
 *               "data": "sqlite:///data/sales.db", "column": 0, "row": 0, "width": 4, "height": 2,
 *               "clickFilters": true, "isFiltered": true,
 *               "choice": [{"column": "weather", "members": ["rain", null]}]}]
 *  }
 *  Charts and bindings are files, named from the dashboard's folder, or stand there as objects. Only "type",
 *  "items" and in them "chart", "binding" and the place are needed; a CSV file or a connection has to be
 *  named once at least. */
class DashboardReader {
public:
    /** @param file what errors call the text */
    explicit DashboardReader(std::string file);

    /** @return whether the file says that it is a dashboard; throws HostError where it is no JSON */
    bool isDashboard() const;

    /** Both throw HostError for what cannot be read or is not understood, places outside of the grid and
     *  items that lie over each other. */
    DashboardDocument readFile() const;
    DashboardDocument readText(const std::string& text) const;

private:
    void _readItem(const JsonCursor& place, const nlohmann::ordered_json& written,
                   DashboardDocument& document) const;

    std::string m_file;
};
