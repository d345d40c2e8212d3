#pragma once

#include "kx_chart_aggregate_type.h"
#include "kx_chart_data_type.h"

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

class KXTableDataProvider;
class SqlDataProvider;

/** What a provider answers as columns, for those who show charts without its database, such as a page. */
class TableExport {
public:
    /** Asks for all of it. Combinations of members without a value have no row. */
    explicit TableExport(SqlDataProvider& provider);

    /** @return {"dimensions": [{"label", "type", "level", "texts"}], "measures": [{"label", "integer",
     * "numbers"}]}, as the module of a page takes it; a null is null */
    nlohmann::ordered_json toJson() const;
    void fill(KXTableDataProvider& table) const;

private:
    struct Dimension {
        std::string label;
        KXChartDataType type;
        KXChartAggregateType level;
        std::vector<std::string> texts;
        std::vector<double> numbers; // in place of texts where the type is a number
    };
    struct Measure {
        std::string label;
        KXChartDataType type;
        std::vector<double> numbers;
        std::vector<std::string> texts; // in place of numbers where the type is no number
    };

    void _addRow(SqlDataProvider& provider, const std::vector<std::uint64_t>& members, bool hasValues);
    void _addRows(SqlDataProvider& provider, std::vector<std::uint64_t>& members);

    std::vector<Dimension> m_dimensions;
    std::vector<Measure> m_measures;
};
