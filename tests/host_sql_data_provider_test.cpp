#include <gtest/gtest.h>
#include <limits>
#include <tuple>

#include "csv_importer.h"
#include "data_binding_reader.h"
#include "host_error.h"
#include "host_temporary_file.h"
#include "kx_xy_axis_chart.h"
#include "sql_data_provider.h"
#include "sql_session.h"

namespace {

using Type = KXChartDataType;

/** A provider over rows of a CSV text, prepared as a chart does it. */
class PreparedProvider {
public:
    PreparedProvider(const std::string& rows, const std::string& binding)
        : m_file(rows), m_session(""), m_provider(m_session, DataBindingReader("b").readText(binding))
    {
        CsvImporter(m_session).importFile(m_file.getPath(), "data");
        prepare();
    }

    void prepare()
    {
        m_provider.beginPrepareData(nullptr);
        m_provider.endPrepareData(nullptr);
    }

    SqlSession& getSession() { return m_session; }
    SqlDataProvider& get() { return m_provider; }

private:
    TemporaryFile m_file;
    SqlSession m_session;
    SqlDataProvider m_provider;
};

const char* const visits = "day,place,score\n2024-03-01,x,1\n2024-03-01,y,\n2024-03-04,x,5\n2024-03-04,z,-2\n"
                           "2024-03-05,z,8\n,y,1\n";

} // namespace

TEST(HostSqlDataProvider, OneValueOfAnyType)
{
    const std::tuple<const char*, std::string, Type, int, bool, double, std::string> cases[] = {
        {"sum", R"("column": "score", "aggregate": "sum")", Type::Integer, 6, false, 13, "13"},
        {"average", R"("column": "score", "aggregate": "average")", Type::Float, 6, false, 2.6, "2.6"},
        {"count", R"("aggregate": "count")", Type::Integer, 6, false, 6, "6"},
        {"text", R"("column": "place", "aggregate": "max")", Type::String, 6, false, 0, "z"},
        {"date", R"("column": "day", "aggregate": "max")", Type::Date, 0, false, 0, "2024-03-05"},
        {"null", R"("column": "score", "aggregate": "sum"}], "filters": [{"column": "score", "is": "isNull")",
         Type::Integer, 6, true, 0, "none"},
    };
    for (const auto& [name, measure, type, level, isNull, number, text] : cases) {
        SCOPED_TRACE(name);
        PreparedProvider prepared(visits, R"({"nullText": "none", "measures": [{)" + measure + "}]}");
        SqlDataProvider& provider = prepared.get();
        EXPECT_EQ(provider.getError(), "");
        EXPECT_FALSE(provider.obtainDataIsEmpty(nullptr));
        EXPECT_EQ(provider.obtainValueCount(nullptr), 1U);
        EXPECT_EQ(provider.obtainValueDataType(nullptr, {0}), type);
        EXPECT_EQ(static_cast<int>(provider.obtainValueAggregateType(nullptr, {0})), level);
        EXPECT_EQ(provider.obtainValueDataIsNull(nullptr, {0, 0}), isNull);
        EXPECT_EQ(provider.obtainValueData(nullptr, {0, 0}), number);
        EXPECT_EQ(provider.obtainValueDataString(nullptr, {0, 0}), text);
    }
}

TEST(HostSqlDataProvider, MembersAndCells)
{
    PreparedProvider prepared(visits, R"({
        "dimensions": [{"column": "day", "label": "Day", "fillGaps": true},
                       {"column": "place", "top": {"count": 1, "measure": 1, "others": "Rest"}}],
        "measures": [{"column": "score", "aggregate": "sum", "label": "Score", "id": "s"},
                     {"aggregate": "count", "label": "Visits"}]})");
    SqlDataProvider& provider = prepared.get();
    EXPECT_EQ(provider.obtainDimensionName(nullptr, 0), "day");
    EXPECT_EQ(provider.obtainDimensionLabel(nullptr, 0), "Day");
    EXPECT_EQ(provider.obtainDimensionLabel(nullptr, 1), "place");
    EXPECT_EQ(provider.obtainDimensionDataType(nullptr, 0), Type::Date);
    EXPECT_EQ(static_cast<int>(provider.obtainDimensionAggregateType(nullptr, 0)), 15);
    EXPECT_EQ(provider.obtainDimensionDataType(nullptr, 1), Type::String);
    EXPECT_EQ(static_cast<int>(provider.obtainDimensionAggregateType(nullptr, 1)), 0);
    EXPECT_EQ(provider.obtainValueLabel(nullptr, 1), "Visits");
    EXPECT_EQ(provider.obtainValueID(nullptr, 0), "s");
    EXPECT_EQ(provider.obtainValueID(nullptr, 1), "Visits");

    struct Member {
        std::uint64_t dimension, index;
        std::string text;
        bool isNull, isGenerated, shouldFormat;
        std::int64_t next, previous;
    };
    const Member members[] = {
        {0, 0, "2024-03-01", false, false, true, 3, -1}, {0, 1, "2024-03-02", false, true, true, 3, 0},
        {0, 3, "2024-03-04", false, false, true, 4, 0},  {0, 5, "(null)", true, false, false, -1, 4},
        {1, 0, "x", false, false, true, -1, -1},         {1, 1, "Rest", false, true, false, -1, 0},
    };
    ASSERT_EQ(provider.obtainDimensionDataCount(nullptr, 0), 6U);
    ASSERT_EQ(provider.obtainDimensionDataCount(nullptr, 1), 2U);
    for (const Member& m : members) {
        SCOPED_TRACE(m.text);
        const KXIndexPath path = {m.dimension, m.index};
        EXPECT_EQ(provider.obtainDimensionData(nullptr, path), m.text);
        EXPECT_EQ(provider.obtainDimensionDataIsNull(nullptr, path), m.isNull);
        EXPECT_EQ(provider.obtainDimensionDataIsGenerated(nullptr, path), m.isGenerated);
        EXPECT_EQ(provider.shouldFormatDimenionData(nullptr, path), m.shouldFormat);
        EXPECT_EQ(provider.obtainNextValidDimensionIndex(nullptr, path), m.next);
        EXPECT_EQ(provider.obtainPreviousValidDimensionIndex(nullptr, path), m.previous);
    }

    const std::tuple<const char*, KXIndexPath, bool, bool, bool, double> cells[] = {
        {"x on the first day", {0, 0, 0}, false, false, false, 1},
        {"a null score", {0, 0, 1}, false, true, true, 0},
        {"counted all the same", {1, 0, 1}, false, false, true, 1},
        {"a filled gap", {0, 1, 0}, true, true, true, 0},
        {"no such pair", {0, 4, 0}, true, true, false, 0},
        {"the day that is null", {0, 5, 1}, false, false, true, 1},
        {"no such measure", {2, 0, 0}, true, true, false, 0},
        {"no such member", {0, 6, 0}, true, true, false, 0},
        {"too short", {0, 0}, true, true, false, 0},
        {"empty", {}, true, true, false, 0},
    };
    for (const auto& [name, path, isEmpty, isNull, isGenerated, number] : cells) {
        SCOPED_TRACE(name);
        EXPECT_EQ(provider.obtainValueDataIsEmpty(nullptr, path), isEmpty);
        EXPECT_EQ(provider.obtainValueDataIsNull(nullptr, path), isNull);
        EXPECT_EQ(provider.obtainValueDataIsGenerated(nullptr, path), isGenerated);
        EXPECT_EQ(provider.obtainValueData(nullptr, path), number);
    }
}

TEST(HostSqlDataProvider, TotalsAreTheDatabases)
{
    PreparedProvider prepared(visits,
                              R"({"dimensions": [{"column": "day"}, {"column": "place"}], "totals": true,
        "measures": [{"column": "score", "aggregate": "average"}]})");
    SqlDataProvider& provider = prepared.get();
    ASSERT_EQ(provider.getError(), "");
    const auto read = [&](bool ofRows, std::size_t count) {
        std::vector<double> totals(count);
        provider.obtainTotals(nullptr, ofRows, 0, totals);
        return totals;
    };
    EXPECT_TRUE(provider.obtainHasTotals(nullptr, true));
    EXPECT_EQ(read(true, 4), (std::vector<double>{1, 1.5, 8, 1})) << "the last of no day";
    EXPECT_EQ(read(false, 3), (std::vector<double>{3, 1, 3}));
    EXPECT_EQ(provider.obtainGrandTotal(nullptr), 2.6);
}

TEST(HostSqlDataProvider, SeriesOfAnAxisChart)
{
    PreparedProvider provider(visits,
                              R"({"dimensions": [{"column": "place"}, {"column": "day", "level": "day"}],
                    "measures": [{"column": "score", "aggregate": "sum"}]})");
    KXXYAxisChart chart;
    KXChartDataUser* user = chart.obtainLegendDataUser();
    SqlDataProvider& answers = provider.get();
    EXPECT_EQ(answers.obtainSeriesCount(user), 4U);
    EXPECT_EQ(answers.obtainSeriesLabel(user, 1), "2024-03-04");
    EXPECT_EQ(answers.obtainSeriesValue(user, 1, 2), -2);
    EXPECT_EQ(answers.obtainSeriesValue(user, 0, 1), std::nullopt);
}

TEST(HostSqlDataProvider, NoRowsAreNoData)
{
    PreparedProvider prepared("n\n",
                              R"({"dimensions": [{"column": "n"}], "measures": [{"aggregate": "count"}]})");
    EXPECT_EQ(prepared.get().getError(), "");
    EXPECT_TRUE(prepared.get().obtainDataIsEmpty(nullptr));
    EXPECT_EQ(prepared.get().obtainDimensionDataCount(nullptr, 0), 0U);
}
