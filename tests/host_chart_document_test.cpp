#include "chart_document.h"

#include "chart_data_source.h"
#include "host_error.h"
#include "host_temporary_file.h"
#include "kx_chart_data_format.h"
#include "kx_xy_axis_chart.h"
#include "sql_data_provider.h"

#include <gtest/gtest.h>

namespace {

/** @return what is wrong with the document, without the file's name; empty when it is read */
std::string complain(const std::string& text)
{
    const TemporaryFile file(text, "chart.json");
    try {
        const ChartDocument document(file.getPath());
        return {};
    } catch (const HostError& error) {
        const std::string line = error.what();
        EXPECT_TRUE(line.starts_with(file.getPath() + ": ")) << line;
        EXPECT_EQ(line.find('\n'), std::string::npos) << line;
        return line.substr(std::min(line.size(), file.getPath().size() + 2));
    }
}

std::string nest(int levels)
{
    return R"({"type": "KXValueChart", "other": )" + std::string(static_cast<std::size_t>(levels), '[') +
           std::string(static_cast<std::size_t>(levels), ']') + "}";
}

TEST(HostChartDocument, SaysWhatIsWrongAndWhere)
{
    const std::pair<std::string, std::string> cases[] = {
        {R"({"type": "KXValueChart"})", ""},
        {"", "is no JSON: parse error at line 1, column 1"},
        {R"({"type": )", "is no JSON: parse error at line 1, column 10"},
        {R"({"type": "KXValueChart", "m_fontSize": 1e400})", "is no JSON: number overflow"},
        {std::string(100'000, '['), "is nested deeper than 256 levels"},
        {nest(255), ""},
        {nest(256), "is nested deeper than 256 levels"},
        {"[]", "holds no JSON object"},
        {R"({"type": 5})", "type: does not name the kind of chart"},
        {R"({"type": "KXNone"})", "type: there is no chart called \"KXNone\""},
        {R"({"type": "KXChartDataFormat"})", "type: there is no chart called \"KXChartDataFormat\""},
        {R"({"type": "KXValueChart", "m_fontSize": 1.5})", "m_fontSize: holds a value"},
        {R"({"type": "KXValueChart", "m_titlePosition": "Up"})", "m_titlePosition: holds a value"},
        {R"({"type": "KXValueChart", "m_dataFormat": {"type": "KXChartDataFormat", "m_decimals": "x"}})",
         "m_dataFormat.m_decimals: holds a value"},
        {R"({"type": "KXValueChart", "m_dataFormat": {"type": "KXNone"}})",
         "m_dataFormat.type: holds a value"},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text.substr(0, 100));
        const std::string complaint = complain(text);
        EXPECT_TRUE(expected.empty() ? complaint.empty() : complaint.starts_with(expected)) << complaint;
    }
}

TEST(HostChartDocument, TimesReadAsTheirLevelAsks)
{
    const std::tuple<const char*, const char*, std::string, std::string> cases[] = {
        {"moment", "year", "", "2024"},
        {"moment", "quarter", "", "2024 Q1"},
        {"moment", "month", "", "Feb 2024"},
        {"moment", "week", "", "2024 W09"},
        {"moment", "day", "", "2024-02-29"},
        {"moment", "dayOfWeek", "", "Thursday"},
        {"moment", "hour", "", "2024-02-29 17:00"},
        {"moment", "hourOfDay", "", "17:00"},
        {"at", "minute", "", "08:05"},
        {"at", "second", "", "08:05:09"},
        {"moment", "month", R"("m_datePresetFormat": "MM/YY")", "02/24"},
    };
    const TemporaryFile data("moment,at\n2024-02-29 17:30:12,08:05:09\n");
    for (const auto& [column, level, pattern, expected] : cases) {
        SCOPED_TRACE(std::string(column) + ' ' + level);
        const TemporaryFile binding(R"({"dimensions": [{"column": ")" + std::string(column) +
                                        R"(", "level": ")" + level +
                                        R"("}], "measures": [{"aggregate": "count"}]})",
                                    "binding.json");
        const TemporaryFile file(R"({"type": "KXBarChart", "m_xDataFormat": {"type": "KXChartDataFormat")" +
                                     (pattern.empty() ? "" : ", " + pattern) + "}}",
                                 "chart.json");
        ChartDocument document(file.getPath());
        ChartDataSource source(data.getPath(), binding.getPath(), {});
        SqlDataProvider& provider = source.getProvider();
        document.loadData(&provider);
        EXPECT_EQ(dynamic_cast<KXXYAxisChart&>(document.getChart())
                      .getXDataFormat()
                      ->formatDateTime(provider.obtainDimensionData(nullptr, {0, 0}),
                                       provider.obtainDimensionDataType(nullptr, 0),
                                       provider.obtainDimensionAggregateType(nullptr, 0)),
                  expected);
    }
}

TEST(HostChartDocument, DataOfAnotherKindIsTold)
{
    const TemporaryFile binding(R"({"measures": [{"aggregate": "count"}]})", "binding.json");
    for (const char* start : {"SQLite format 3", "PK\x03\x04", "PAR1"}) {
        const TemporaryFile data(start + std::string(40, '\0'));
        try {
            const ChartDataSource source(data.getPath(), binding.getPath(), {});
            ADD_FAILURE() << start;
        } catch (const HostError& error) {
            const std::string text = error.what();
            EXPECT_TRUE(text.ends_with("sqlite://" + data.getPath()) || text.ends_with("as CSV")) << text;
        }
    }
}

} // namespace
