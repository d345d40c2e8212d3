#pragma once

#include "csv_reader.h"
#include "dashboard_document.h"
#include "data_binding.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

class ChartDocument;
class KXChart;
class SqlSession;
class ViewDataProvider;
struct ViewItemHandlers;

/** Charts over their data that filter each other: what is chosen in one of them is a condition in the queries
 * of all others over the same data whose table has the column, or highlights its part of their values.
 * Several choices hold together. */
class Dashboard {
public:
    /** Opens the document's parts and data, applies its choices and loads its charts. Throws HostError for
     *  what cannot be opened, read or understood, and where a database refuses.
     *  @param handlers what clicks on items do; outlives this object
     *  @param progress told how far the reading of a CSV file is; may be empty */
    Dashboard(DashboardDocument document, const ViewItemHandlers& handlers,
              const CsvReader::ProgressHandler& progress = {});
    ~Dashboard();
    Dashboard(const Dashboard&) = delete;
    Dashboard& operator=(const Dashboard&) = delete;

    const DashboardDocument& getDocument() const { return m_document; }
    std::size_t getItemCount() const { return m_items.size(); }
    KXChart& getChart(std::size_t item) const;
    ViewDataProvider& getProvider(std::size_t item) const { return *m_items[item].provider; }

    /** Makes choice what is chosen in an item, and loads the charts that it reaches anew. They keep what
     *  their user made of them. */
    void choose(std::size_t item, const DataChoice& choice);

    /** @return the document with what is chosen now. A chart that stands in it is saved as it is now; what is
     *  a file of its own stays that file. */
    std::string save() const;

private:
    /** Destroyed from the last to the first: a chart goes before what it asks. */
    struct Item {
        std::string data;
        DataBinding binding;
        SqlSession* session = nullptr; // one of those below
        std::vector<std::string> columns;
        std::unique_ptr<ViewDataProvider> provider;
        std::unique_ptr<ChartDocument> chart;
    };

    std::string _obtainPath(const std::string& file) const;
    void _readParts(std::size_t index);
    void _requireOneCondition(std::size_t index) const;
    void _openData(const CsvReader::ProgressHandler& progress);
    static bool _reaches(const Item& source, const Item& target, const FilterAlternatives& filters);
    std::vector<FilterAlternatives> _collectChoices(std::size_t target, ChoiceEffect effect) const;
    bool _takeChoices(std::size_t target) const;

    DashboardDocument m_document;
    std::map<std::string, std::unique_ptr<SqlSession>> m_sessions; // by what they opened
    std::vector<Item> m_items;                                     // in the document's order
};
