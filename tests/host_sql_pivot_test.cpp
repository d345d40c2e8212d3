#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "data_binding_reader.h"
#include "host_postgresql_server.h"
#include "sql_data_provider.h"
#include "sql_session.h"

namespace {

using Texts = std::vector<std::optional<std::string>>; // of members along a path, none for null

const char* const binding = R"~({"nullText": "(null)", "dimensions": [{"column": "a"},
    {"column": "b", "sort": {"measure": 0, "descending": true}}, {"column": "c", "across": true}],
    "measures": [{"aggregate": "sum", "column": "v"}, {"aggregate": "average", "column": "v"},
    {"aggregate": "distinct", "column": "v"}, {"aggregate": "count"}, {"aggregate": "max", "column": "v"}]})~";
const char* const aggregates =
    "SUM(v), AVG(CAST(v AS DOUBLE PRECISION)), COUNT(DISTINCT v), COUNT(*), MAX(v)";
constexpr std::size_t measureCount = 5;

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
        sql.append(aggregates).append(" FROM data WHERE 1 = 1");
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
        const SqlTable expected = m_session.query(
            {sql, {}, std::vector<SqlResultType>(measureCount, SqlResultType::Number)});
        const bool isEmpty = expected.getNumber(0, 3) == 0;
        for (std::size_t measure = 0; measure < measureCount; ++measure) {
            const KXTableCell cell = _ask(row, column, measure);
            EXPECT_EQ(cell.state, isEmpty                       ? KXTableCellState::Empty
                                  : expected.isNull(0, measure) ? KXTableCellState::Null
                                                                : KXTableCellState::Value);
            if (cell.state == KXTableCellState::Value) {
                EXPECT_NEAR(cell.number, expected.getNumber(0, measure), 1e-9);
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
