#pragma once

#include "kx_chart.h"

#include <memory>
#include <string>

class KXChartDataProvider;
class KXChartDataUser;

/** A chart read from a saved document, and what can be asked of every kind of chart. */
class ChartDocument {
public:
    /** Reads the chart in a file. Throws HostError for a file that cannot be read, for text that is no JSON
     * object, a type that no chart has, and a key whose value the chart does not take. A key that is missing
     * keeps its default. */
    explicit ChartDocument(const std::string& path);
    /** The same of a text. @param name what errors call it */
    ChartDocument(std::string name, const std::string& text);
    ~ChartDocument();

    KXChart& getChart() const { return *m_chart; }
    /** Prepares and loads the chart's data. Dates and times along the categories read as their level asks,
     * where the document has no pattern for them. @param provider outlives this object, null for none */
    void loadData(KXChartDataProvider* provider);
    /** Asks the provider for everything anew; the chart keeps what its user made of it. */
    void reloadData();
    /** Writes a line to stderr for each key that no chart of the kind has: a mistyped one, most likely. */
    void tellUnknownKeys() const;
    /** @return the chart as it is saved now */
    std::string save() const { return m_chart->serialize(); }

private:
    void _requireUnderstood(const std::string& text) const;
    void _takeDatePattern(KXChartDataUser* user, KXChartDataProvider* provider);

    std::string m_path;
    std::unique_ptr<KXChart> m_chart;
    bool m_hasDatePattern = false;
};
