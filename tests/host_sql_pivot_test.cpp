#include <algorithm>
#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "data_binding_reader.h"
#include "host_postgresql_server.h"
#include "number_text.h"
#include "sql_data_provider.h"
#include "sql_data_set.h"
#include "sql_highlight.h"
#include "sql_pivot.h"
#include "sql_session.h"

namespace {

using Texts = std::vector<std::optional<std::string>>; // of members along a path, none for null

const char* const binding = R"~({"nullText": "(null)", "dimensions": [{"column": "a"},
    {"column": "b", "sort": {"measure": 0, "descending": true}}, {"column": "c", "across": true}],
    "measures": [{"aggregate": "sum", "column": "v"}, {"aggregate": "average", "column": "v"},
    {"aggregate": "distinct", "column": "v"}, {"aggregate": "count"}, {"aggregate": "max", "column": "v"}]})~";
// What is chosen of the rows, what of them is highlighted, and the same as the bindings have it
const char* const chosen = "(v IS NULL OR v <> 3.25)";
const char* const highlighted = "(a = 'a1' OR b = 'b''2' AND v >= 5.25)";
const FilterAlternatives choice{{{"v", FilterOperation::NotEqual, {"3.25"}, false, {}}}};
const FilterAlternatives highlight{{{"a", FilterOperation::Equal, {"a1"}, false, {}}},
                                   {{"b", FilterOperation::In, {"b'2"}, false, {}},
                                    {"v", FilterOperation::GreaterOrEqual, {"5.25"}, false, {}}}};
const char* const aggregates =
    "SUM(v), AVG(CAST(v AS DOUBLE PRECISION)), COUNT(DISTINCT v), COUNT(*), MAX(v)";
constexpr std::size_t measureCount = 5;
constexpr std::array havePart{true, false, true, true, false};

/** Some hundred rows with nulls in every column. */
void fill(SqlSession& session)
{
    session.execute("CREATE TABLE data (a TEXT, b TEXT, c TEXT, v DOUBLE PRECISION)");
    std::mt19937 random(7);
    const auto pick = [&](unsigned count, const std::string& name) {
        const auto number = random() % (count + 1);
        return number == count ? std::string("NULL") : "'" + name + std::to_string(number) + "'";
    };
    for (int i = 0; i < 300; ++i) {
        const std::string value = random() % 6 == 0 ? "NULL" : std::to_string(int(random() % 40) - 9) + ".25";
        session.execute("INSERT INTO data VALUES (" + pick(3, "a") + "," + pick(5, "b''") + "," +
                        pick(3, "c") + "," + value + ")");
    }
}

/** A pivot over the rows, walked through as a table asks for it. */
class Pivot {
public:
    explicit Pivot(SqlSession& session)
        : m_session(session), m_provider(session, DataBindingReader("b").readText(binding))
    {
        m_provider.setChoices({choice});
        m_provider.setHighlights({highlight});
        m_provider.beginPrepareData(nullptr);
        m_provider.endPrepareData(nullptr);
    }

    SqlDataProvider& get() { return m_provider; }
    /** Compares each cell below two paths with what the database says of the rows behind it.
     *  @return how many there were */
    int check(const KXIndexPath& row, const Texts& rowTexts, const KXIndexPath& column,
              const Texts& columnTexts)
    {
        int count = _checkCell(row, rowTexts, column, columnTexts);
        if (column.empty())
            for (const auto& [path, texts] : _obtainBelow(false, column, columnTexts))
                count += _checkCell(row, rowTexts, path, texts);
        for (const auto& [path, texts] : _obtainBelow(true, row, rowTexts))
            count += check(path, texts, column, columnTexts);
        return count;
    }

private:
    using Path = std::pair<KXIndexPath, Texts>;

    std::vector<Path> _obtainBelow(bool isRow, const KXIndexPath& path, const Texts& texts)
    {
        std::vector<Path> below;
        if (path.size() >= (isRow ? 2u : 1u))
            return below;
        std::vector<KXTableHeader> headers(m_provider.obtainHeaderCount(nullptr, isRow, path));
        m_provider.obtainHeaders(nullptr, isRow, path, 0, headers);
        for (std::uint64_t i = 0; i < headers.size(); ++i) {
            below.emplace_back(path, texts);
            below.back().first.push_back(i);
            const bool isNull = headers[i].text == "(null)";
            below.back().second.push_back(isNull ? std::nullopt : std::optional(headers[i].text));
            EXPECT_EQ(headers[i].hasChildren, isRow && path.empty());
        }
        return below;
    }

    int _checkCell(const KXIndexPath& row, const Texts& rowTexts, const KXIndexPath& column,
                   const Texts& columnTexts)
    {
        std::string sql = "SELECT ";
        sql.append(aggregates).append(" FROM data WHERE ").append(chosen);
        const auto addCondition = [&](const char* name, const std::optional<std::string>& text) {
            std::string quoted;
            for (const char c : text.value_or(""))
                quoted += c == '\'' ? "''" : std::string(1, c);
            sql.append(" AND ").append(name);
            if (text)
                sql.append(" = '").append(quoted).append("'");
            else
                sql.append(" IS NULL");
        };
        for (std::size_t i = 0; i < rowTexts.size(); ++i)
            addCondition(i == 0 ? "a" : "b", rowTexts[i]);
        for (const std::optional<std::string>& text : columnTexts)
            addCondition("c", text);
        SCOPED_TRACE(sql);
        const auto ask = [&](const std::string& question) {
            return m_session.query(
                {question, {}, std::vector<SqlResultType>(measureCount, SqlResultType::Number)});
        };
        const SqlTable expected = ask(sql);
        sql.append(" AND ").append(highlighted);
        const SqlTable parts = ask(sql);
        const bool isEmpty = expected.getNumber(0, 3) == 0;
        for (std::size_t measure = 0; measure < measureCount; ++measure) {
            const KXTableCell cell = _ask(row, column, measure);
            EXPECT_EQ(cell.state, isEmpty                       ? KXTableCellState::Empty
                                  : expected.isNull(0, measure) ? KXTableCellState::Null
                                                                : KXTableCellState::Value);
            if (cell.state == KXTableCellState::Value) {
                EXPECT_NEAR(cell.number, expected.getNumber(0, measure), 1e-9);
                EXPECT_EQ(cell.part.has_value(), havePart.at(measure));
                if (cell.part) {
                    EXPECT_NEAR(*cell.part, parts.isNull(0, measure) ? 0 : parts.getNumber(0, measure), 1e-9);
                }
            }
        }
        return 1;
    }

    KXTableCell _ask(const KXIndexPath& row, const KXIndexPath& column, std::size_t measure)
    {
        constexpr std::uint64_t all = KXTableChartDataProvider::allMembers;
        const auto split = [&](KXIndexPath path, std::size_t levels) {
            if (path.size() < levels)
                return std::pair(path, all);
            const std::uint64_t last = path.back();
            path.pop_back();
            return std::pair(path, last);
        };
        const auto [rowParent, firstRow] = split(row, 2);
        const auto [columnParent, firstColumn] = split(column, 1);
        KXTableCell cell;
        m_provider.obtainCells(nullptr, rowParent, firstRow, columnParent, firstColumn, measure,
                               {{&cell, 1}, 1});
        return cell;
    }

    SqlSession& m_session;
    SqlDataProvider m_provider;
};

/** Writes a whole table: each row's name and cells, its total after "=", in the end the totals of columns; of
 * each number the part that is of the name z. */
std::string writeTable(SqlSession& session, const std::string& text)
{
    DataBinding marked = DataBindingReader("b").readText(text);
    marked.highlights = {FilterAlternatives{{{"name", FilterOperation::Equal, {"z"}, false, {}}}}};
    SqlPivot pivot(session, marked);
    constexpr std::uint64_t all = KXTableChartDataProvider::allMembers;
    const auto write = [&](std::uint64_t row, std::uint64_t column) {
        KXTableCell cell;
        pivot.obtainCells({}, row, {}, column, 0, {{&cell, 1}, 1});
        return cell.state != KXTableCellState::Value
                   ? std::string(".")
                   : obtainNumberText(cell.number) + '/' + obtainNumberText(cell.part.value_or(NAN));
    };
    std::string table;
    for (const SqlMember& column : pivot.obtainMembers(false, {}, 0, 100))
        table += column.text.substr(column.text.size() - 2) + (column.isGenerated ? "+ " : " ");
    const auto addRow = [&](const std::string& name, std::uint64_t row) {
        table += "| " + name + ": ";
        for (std::uint64_t column = 0; column < pivot.obtainCount(false, {}); ++column)
            table += write(row, column) + " ";
        table += "= " + write(row, all) + " ";
    };
    std::uint64_t row = 0;
    for (const SqlMember& member : pivot.obtainMembers(true, {}, 0, 100))
        addRow(member.text, row++);
    addRow("all", all);
    return table;
}

void checkMadeMembers(SqlSession& session)
{
    session.execute("CREATE TABLE days (d DATE, name TEXT, v INTEGER)");
    session.execute("INSERT INTO days VALUES ('2024-01-01','x',5),('2024-01-04','y',2),('2024-01-01','z',1),"
                    "('2024-01-04',NULL,NULL),(NULL,'x',1)");
    const std::string head = R"({"table": "days", "measures": [{"aggregate": "sum", "column": "v"}],
        "nullText": "no", "dimensions": [{"column": "name", "top": {"count": 1)";
    const std::string tail = R"(}}, {"column": "d", "across": true, "fillGaps": true}]})";
    EXPECT_EQ(writeTable(session, head + R"(, "others": "rest")" + tail),
              "01 02+ 03+ 04 no | x: 5/0 . . . 1/0 = 6/0 | rest: 1/1 . . 2/0 . = 3/1 | "
              "all: 6/1 . . 2/0 1/0 = 9/1 ");
    EXPECT_EQ(writeTable(session, head + tail),
              "01 02+ 03+ 04 no | x: 5/0 . . . 1/0 = 6/0 | all: 6/1 . . 2/0 1/0 = 9/1 ");
}

/** The totals of a heat map over the same rows. */
void checkHeatTotals(SqlSession& session)
{
    SqlDataProvider provider(session, DataBindingReader("b").readText(R"({"totals": true, "dimensions":
        [{"column": "a"}, {"column": "c"}], "measures": [{"aggregate": "average", "column": "v"}]})"));
    provider.beginPrepareData(nullptr);
    for (const bool ofRows : {true, false}) {
        const std::string column = ofRows ? "a" : "c";
        std::string sql = "SELECT AVG(CAST(v AS DOUBLE PRECISION)) FROM data GROUP BY ";
        sql.append(column).append(" ORDER BY ").append(column).append(" NULLS LAST");
        const SqlTable expected = session.query({sql, {}, {SqlResultType::Number}});
        std::vector<double> totals(expected.getRowCount());
        provider.obtainTotals(nullptr, ofRows, 0, totals);
        ASSERT_EQ(totals.size(), provider.obtainDimensionDataCount(nullptr, ofRows ? 0 : 1));
        for (std::size_t i = 0; i < totals.size(); ++i)
            EXPECT_NEAR(totals[i], expected.getNumber(i, 0), 1e-9) << column << i;
    }
}

/** @return the value that a share of sorted ones lies below */
double findQuantile(const std::vector<double>& sorted, double share)
{
    const double place = share * static_cast<double>(sorted.size() - 1);
    const auto before = static_cast<std::size_t>(place);
    const std::size_t after = std::min(before + 1, sorted.size() - 1);
    return sorted[before] + (place - static_cast<double>(before)) * (sorted[after] - sorted[before]);
}

/** Bins of the same rows, and what is told of the numbers behind them. */
void checkBins(SqlSession& session)
{
    SqlDataProvider provider(session, DataBindingReader("b").readText(R"({"dimensions": [{"column": "a"},
        {"column": "v", "bins": {"count": 10}}], "measures": [{"aggregate": "count"}]})"));
    provider.beginPrepareData(nullptr);
    const auto read = [&](const std::string& sql) {
        const SqlTable rows = session.query({sql, {}, {SqlResultType::Number}});
        std::vector<double> values;
        for (std::size_t row = 0; row < rows.getRowCount(); ++row)
            values.push_back(rows.getNumber(row, 0));
        return values;
    };
    ASSERT_EQ(provider.obtainDimensionDataCount(nullptr, 1), 10u) << "from -10 to 35, and the null";
    for (std::uint64_t group = 0; group < provider.obtainDimensionDataCount(nullptr, 0); ++group) {
        const std::string name = provider.obtainDimensionData(nullptr, {0, group});
        std::string condition = " FROM data WHERE a ";
        condition.append(name == "(null)" ? "IS NULL" : "= '" + name + "'");
        SCOPED_TRACE(condition);
        const std::vector<double> values = read("SELECT v" + condition + " AND v IS NOT NULL ORDER BY v");
        for (const double share : {0.05, 0.25, 0.5, 1.0})
            EXPECT_NEAR(provider.obtainQuantile(nullptr, group, share), findQuantile(values, share), 1e-9);
        EXPECT_NEAR(provider.obtainMean(nullptr, group), read("SELECT AVG(v)" + condition).at(0), 1e-9);
        for (std::uint64_t bin = 0; bin < 9; ++bin) {
            const double start = provider.obtainDimensionDataAsNumber(nullptr, {1, bin});
            EXPECT_EQ(start, static_cast<double>(bin) * 5 - 10);
            EXPECT_EQ(provider.obtainDimensionDataAsRangeDifference(nullptr, {1, bin}), 5);
            const auto isInside = [&](double value) { return value >= start && value < start + 5; };
            EXPECT_EQ(provider.obtainValueData(nullptr, {0, group, bin}),
                      static_cast<double>(std::ranges::count_if(values, isInside)));
        }
    }
}

/** A part stands in the bins of the whole, however narrow the range of what is chosen is. */
void checkHighlightedBins(SqlSession& session)
{
    DataBinding binned = DataBindingReader("b").readText(
        R"({"dimensions": [{"column": "v", "bins": {"count": 10}}], "measures": [{"aggregate": "count"}]})");
    const SqlDataSet whole(session, binned);
    binned.highlights = {{{FilterBinding{"v", FilterOperation::Less, {"0"}, false, {}}}}};
    const SqlHighlight part(session, binned, whole);
    double sum = 0;
    for (std::uint64_t bin = 0; bin < whole.getMembers(0).size(); ++bin) {
        const SqlMember& member = whole.getMembers(0)[bin];
        const bool isBelow = !member.isNull && std::stod(member.text) < 0;
        const std::uint64_t path[] = {bin};
        EXPECT_EQ(part.obtainNumber(0, path), isBelow ? whole.obtainNumber(0, path) : 0) << member.text;
        sum += part.obtainNumber(0, path);
    }
    EXPECT_GT(sum, 0);
}

TEST(HostSqlPivot, EveryNumberIsTheDatabasesOwn)
{
    const PostgresqlServer server;
    for (const std::string& connection : {std::string(), server.getConnection()}) {
        SCOPED_TRACE(connection.empty() ? "SQLite, or no server" : "PostgreSQL");
        SqlSession session(connection);
        fill(session);
        Pivot pivot(session);
        EXPECT_EQ(pivot.get().getError(), "");
        EXPECT_EQ(pivot.get().obtainRowDimensionCount(nullptr), 2u);
        EXPECT_EQ(pivot.get().obtainColumnDimensionCount(nullptr), 1u);
        EXPECT_GT(pivot.check({}, {}, {}, {}), 100);
        checkHeatTotals(session);
        checkBins(session);
        checkHighlightedBins(session);
        checkMadeMembers(session);
        if (server.getConnection().empty())
            break;
    }
}

TEST(HostSqlPivot, RowsAreSortedBelowEachParent)
{
    SqlSession session("");
    session.execute("CREATE TABLE data (a TEXT, b TEXT, c TEXT, v DOUBLE PRECISION)");
    session.execute("INSERT INTO data VALUES ('x','p','l',1),('x','q','l',5),('x','r','r',9),('y','p','l',7),"
                    "('y','q','l',NULL),('y','q','r',2)");
    SqlPivot pivot(session, DataBindingReader("b").readText(binding));
    const auto list = [&](const KXIndexPath& path) {
        return pivot.obtainMembers(true, path, 0, pivot.obtainCount(true, path));
    };
    const auto names = [&] {
        std::string text;
        std::uint64_t place = 0;
        for (const SqlMember& a : list({})) {
            text += a.text + ":";
            for (const SqlMember& b : list({place}))
                text += b.text;
            text += " ";
            ++place;
        }
        return text;
    };
    struct Case {
        const char* name;
        std::vector<KXTableSort> order;
        std::string expected;
    };
    const Case cases[] = {
        {"the host's", {}, "x:rpq y:pq "}, // b by its sum: r 9, p 8, q 7
        {"by the column l", {{0, {0}, true}}, "y:pq x:qpr "},
        {"upwards, without a value last", {{0, {0}, false}}, "x:pqr y:pq "},
        {"by the total, then by another measure", {{3, {}, true}, {0, {}, false}}, "y:qp x:pqr "},
        {"by their names", {{6, {}, true}}, "x:qpr y:qp "}, // those of b, the other way round
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        pivot.sort(c.order);
        EXPECT_EQ(names(), c.expected);
    }
}

} // namespace
