#include <gtest/gtest.h>

#include "csv_importer.h"
#include "data_binding_reader.h"
#include "host_error.h"
#include "host_postgresql_server.h"
#include "host_temporary_file.h"
#include "sql_data_set.h"
#include "sql_session.h"
#include "time_step.h"

namespace {

// The first of January of 2024 is a Monday, that of 2023 a Sunday.
const char* const moments = "kind,amount,price,day,at,moment,\"o'dd:x \"\"#?\"\n"
                            "b,1,0.5,2022-12-31,00:00:59,2022-12-31T23:59:59,u\n"
                            "a,2,1.5,2023-01-01,00:01:00,2023-01-01T00:00:00,v\n"
                            "b,3,,2023-01-02,10:30:15,2023-01-02T10:30:15,u\n"
                            ",4,2.25,2023-07-15,10:59:00,2023-07-15T10:59:00,v\n"
                            "c,-5,1e10,2024-02-29,23:00:00,2024-02-29T23:00:00,\n"
                            "a,20,4,,,,u\n"
                            "B,2,4,2024-03-04,10:30:45,2024-03-04T10:30:45,\n";

/** @return the members of each dimension and then the first measures of each cell, '~' for made ones, '-' for
 * none */
std::string describe(const SqlDataSet& set)
{
    std::string text;
    std::uint64_t cells = 1;
    for (std::size_t i = 0; i < set.getDimensionCount(); ++i) {
        for (const SqlMember& member : set.getMembers(i))
            text += (member.isGenerated ? "~" : "") + member.text + ' ';
        text += "; ";
        cells *= set.getMembers(i).size();
    }
    for (std::uint64_t cell = 0; cell < cells; ++cell) {
        std::vector<std::uint64_t> path(set.getDimensionCount());
        std::uint64_t rest = cell;
        for (std::size_t i = path.size(); i-- > 0; rest /= set.getMembers(i).size())
            path[i] = rest % set.getMembers(i).size();
        for (std::size_t measure = 0; measure < set.getMeasureCount(); ++measure) {
            const SqlValue value = set.obtainValue(measure, path);
            text += (measure ? "," : "") + (!value.isPresent ? "-" : value.isNull ? "null" : value.text);
        }
        text += cell + 1 < cells ? " " : "";
    }
    return text;
}

std::string ask(SqlSession& session, const std::string& binding)
{
    try {
        return describe(SqlDataSet(session, DataBindingReader("b").readText(binding)));
    } catch (const HostError& error) {
        return error.what();
    }
}

const std::string countRows = R"("measures": [{"aggregate": "count"}])";

std::string byLevel(const std::string& column, const std::string& level)
{
    return R"({"dimensions": [{"column": ")" + column + R"(", "level": ")" + level + R"("}], )" + countRows +
           '}';
}

std::string byKind(const std::string& more)
{
    return R"({"dimensions": [{"column": "kind")" + more +
           R"(}], "measures": [{"column": "amount", "aggregate": "sum"}, {"column": "price", "aggregate": "max"}]})";
}

std::string filtered(const std::string& filters)
{
    return R"({"measures": [{"column": "amount", "aggregate": "sum"}], "filters": [)" + filters + "]}";
}

struct Case {
    const char* name;
    std::string binding, expected;
};

void expectAnswers(SqlSession& session, const std::vector<Case>& cases)
{
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(ask(session, c.binding), c.expected);
    }
}

/** What every engine must answer alike. */
void expectEngineAnswers(SqlSession& session)
{
    std::string longList;
    for (int i = 0; i < 100'000; ++i)
        longList += '"' + std::to_string(i) + "\", ";
    expectAnswers(
        session,
        {
            {"each aggregate",
             R"({"measures": [{"column": "price", "aggregate": "sum"}, {"column": "amount", "aggregate": "average"},
                 {"aggregate": "count"}, {"column": "price", "aggregate": "count"},
                 {"column": "price", "aggregate": "distinct"}, {"column": "amount", "aggregate": "min"},
                 {"column": "kind", "aggregate": "max"}, {"column": "moment", "aggregate": "max"},
                 {"column": "day", "aggregate": "min"}, {"column": "at", "aggregate": "max"}]})",
             "10000000012.25,3.857142857142857,7,6,5,-5,c,2024-03-04 10:30:45,2022-12-31,23:00:00"},
            {"text members by bytes, null last", byKind(""),
             "B a b c (null) ; 2,4 22,4 4,0.5 -5,10000000000 4,2.25"},
            {"descending, null still last", byKind(R"(, "sort": {"descending": true})"),
             "c b a B (null) ; -5,10000000000 4,0.5 22,4 2,4 4,2.25"},
            {"by a measure, ties in their own order",
             byKind(R"(, "sort": {"measure": 0, "descending": true})"),
             "a b (null) B c ; 22,4 4,0.5 4,2.25 2,4 -5,10000000000"},
            {"top two, the rest left out", byKind(R"(, "top": {"count": 2, "measure": 1})"),
             "B c ; 2,4 -5,10000000000"},
            {"top two, the rest as one", byKind(R"(, "top": {"count": 2, "others": "Rest"})"),
             "a b ~Rest ; 22,4 4,0.5 1,10000000000"},
            {"bottom, sorted by a measure",
             byKind(R"(, "top": {"count": 2, "bottom": true}, "sort": {"measure": 0, "descending": true})"),
             "B c ; 2,4 -5,10000000000"},
            {"more than there are", byKind(R"(, "top": {"count": 9, "others": "Rest"})"),
             "B a b c (null) ; 2,4 22,4 4,0.5 -5,10000000000 4,2.25"},
            {"number members by value", R"({"dimensions": [{"column": "price"}], )" + countRows + '}',
             "0.5 1.5 2.25 4 10000000000 (null) ; 1 1 1 2 1 1"},
            {"the rest as one, of what does not add up",
             R"({"dimensions": [{"column": "kind", "top": {"count": 1, "others": "Rest"}}],
                 "measures": [{"column": "price", "aggregate": "sum"}, {"column": "price", "aggregate": "distinct"},
                              {"column": "amount", "aggregate": "average"}]})",
             "c ~Rest ; 10000000000,1,-5 12.25,4,5.333333333333333"},
            {"given types",
             R"({"types": {"amount": "text", "day": "text", "price": "integer"}, "dimensions": [{"column": "amount"}],
                 "measures": [{"column": "day", "aggregate": "max"}, {"column": "price", "aggregate": "sum"}],
                 "filters": [{"column": "amount", "is": "greater", "value": "20"}]})",
             "3 4 ; 2023-01-02,null 2023-07-15,2"},
            {"a type given to no column", R"({"types": {"x": "text"}, "measures": [{"aggregate": "count"}]})",
             "b: types: no column \"x\" in table \"data\""},
            {"two dimensions, cells without rows",
             R"({"dimensions": [{"column": "kind"}, {"column": "o'dd:x \"#?"}],
                 "measures": [{"column": "amount", "aggregate": "sum"}], "nullText": "none"})",
             "B a b c none ; u v none ; - - 2 20 2 - 4 - - - - -5 - 4 -"},
            {"year", byLevel("moment", "year"), "2022-01-01 2023-01-01 2024-01-01 (null) ; 1 3 2 1"},
            {"quarter", byLevel("day", "quarter"), "2022 Q4 2023 Q1 2023 Q3 2024 Q1 (null) ; 1 2 1 2 1"},
            {"month", byLevel("moment", "month"),
             "2022-12-01 2023-01-01 2023-07-01 2024-02-01 2024-03-01 (null) ; 1 2 1 1 1 1"},
            {"week", byLevel("day", "week"),
             "2022 W52 2023 W00 2023 W01 2023 W28 2024 W09 2024 W10 (null) ; 1 1 1 1 1 1 1"},
            {"day", byLevel("moment", "day"),
             "2022-12-31 2023-01-01 2023-01-02 2023-07-15 2024-02-29 2024-03-04 (null) ; 1 1 1 1 1 1 1"},
            {"day of week", byLevel("day", "dayOfWeek"),
             "2001-01-01 2001-01-04 2001-01-06 2001-01-07 (null) ; 2 1 2 1 1"},
            {"hour", byLevel("moment", "hour"),
             "2022-12-31 23:00:00 2023-01-01 00:00:00 2023-01-02 10:00:00 2023-07-15 10:00:00 2024-02-29 "
             "23:00:00 "
             "2024-03-04 10:00:00 (null) ; 1 1 1 1 1 1 1"},
            {"hour of day", byLevel("at", "hour"), "00:00:00 10:00:00 23:00:00 (null) ; 2 3 1 1"},
            {"hour of any day", byLevel("moment", "hourOfDay"),
             "00:00:00 10:00:00 23:00:00 (null) ; 1 3 2 1"},
            {"minute", byLevel("at", "minute"),
             "00:00:00 00:01:00 10:30:00 10:59:00 23:00:00 (null) ; 1 1 2 1 1 1"},
            {"no level: a second", R"({"dimensions": [{"column": "at"}], )" + countRows + '}',
             "00:00:59 00:01:00 10:30:15 10:30:45 10:59:00 23:00:00 (null) ; 1 1 1 1 1 1 1"},
            {"equal", filtered(R"({"column": "kind", "value": "b"})"), "4"},
            {"not equal takes nulls", filtered(R"({"column": "kind", "is": "notEqual", "value": "b"})"),
             "23"},
            {"in", filtered(R"({"column": "kind", "is": "in", "value": ["b", "c", "' OR 1=1 --"]})"), "-1"},
            {"in, whole numbers in any form",
             filtered(R"({"column": "amount", "is": "in", "value": [1.0, 3, 2.5]})"), "4"},
            {"not in, none of them whole", filtered(R"({"column": "amount", "is": "notIn", "value": [0.5]})"),
             "27"},
            {"in, awkward texts", filtered(R"({"column": "kind", "is": "in", "value": ["\"\\{,}'", "b"]})"),
             "4"},
            {"in, times", filtered(R"({"column": "at", "is": "in", "value": ["10:59"]})"), "4"},
            {"in a hundred thousand",
             filtered(R"({"column": "kind", "is": "in", "value": [)" + longList + "\"b\"]}"), "4"},
            {"not in", filtered(R"({"column": "kind", "is": "notIn", "value": ["b", "c"]})"), "28"},
            {"contains", filtered(R"({"column": "o'dd:x \"#?", "is": "contains", "value": "u"})"), "24"},
            {"contains no pattern", filtered(R"({"column": "kind", "is": "contains", "value": "%"})"), "-"},
            {"numbers as numbers", filtered(R"({"column": "amount", "is": "less", "value": 3.5})"), "3"},
            {"numbers written as text",
             filtered(R"({"column": "price", "is": "greaterOrEqual", "value": "4"})"), "17"},
            {"dates", filtered(R"({"column": "day", "is": "greater", "value": "2023/1/1"})"), "4"},
            {"moments", filtered(R"({"column": "moment", "is": "lessOrEqual", "value": "2023-01-01"})"), "3"},
            {"times", filtered(R"({"column": "at", "value": "10:59"})"), "4"},
            {"null", filtered(R"({"column": "day", "is": "isNull"})"), "20"},
            {"not null, and another",
             filtered(
                 R"({"column": "kind", "is": "isNotNull"}, {"column": "amount", "is": "less", "value": 0})"),
             "-5"},
            {"months and the null",
             filtered(R"({"column": "day", "level": "month", "is": "in", "value": ["2023-01-01", null]})"),
             "25"},
            {"neither a month nor null",
             filtered(R"({"column": "day", "level": "month", "is": "notIn", "value": ["2023-01-01", null]})"),
             "2"},
            {"hours of moments",
             filtered(
                 R"({"column": "moment", "level": "hour", "is": "in", "value": ["2023-01-02 10:00:00"]})"),
             "3"},
            {"the null alone, and neither", filtered(R"({"column": "kind", "is": "in", "value": [null]},
                 {"column": "kind", "is": "notIn", "value": ["a"]})"),
             "4"},
            {"nothing left", filtered(R"({"column": "kind", "value": "z"})"), "-"},
        });
}

} // namespace

TEST(HostSql, SqliteAnswers)
{
    const TemporaryFile file(moments);
    SqlSession session("");
    CsvImporter(session).importFile(file.getPath(), "data");
    expectEngineAnswers(session);
}

TEST(HostSql, OdbcAnswers)
{
    const TemporaryFile file(moments);
    const TemporaryFile database("", "data.db");
    SqlSession("sqlite://" + database.getPath(), SqlSession::MissingFile::Make);
    {
        SqlSession session("sqlite://" + database.getPath());
        CsvImporter(session).importFile(file.getPath(), "data");
    }
    std::unique_ptr<SqlSession> session;
    try {
        session = std::make_unique<SqlSession>("odbc://Driver=SQLite3;Database=" + database.getPath());
    } catch (const HostError& error) {
        GTEST_SKIP() << "no ODBC driver named SQLite3: " << error.what();
    }
    expectEngineAnswers(*session);
}

TEST(HostSql, PostgresqlAnswers)
{
    const PostgresqlServer server;
    if (server.getConnection().empty())
        GTEST_SKIP() << "no PostgreSQL server could be started";
    const TemporaryFile file(moments);
    SqlSession session(server.getConnection());
    CsvImporter(session).importFile(file.getPath(), "data");
    expectEngineAnswers(session);

    // What only a database of others has: names, types and session settings that a CSV file never makes.
    session.execute(R"(CREATE SCHEMA other; CREATE TABLE other.data (z INTEGER);
        CREATE TABLE "a""b:c'd#" (flag BOOLEAN, big NUMERIC(30, 3), stamp TIMESTAMPTZ);
        INSERT INTO "a""b:c'd#" VALUES (true, 12345678901234567.5, '2024-01-01 00:30:00+02'), (false, 1, NULL))");
    EXPECT_EQ(ask(session, R"({"table": "a\"b:c'd#", "dimensions": [{"column": "flag"}],
        "measures": [{"column": "big", "aggregate": "sum"}, {"column": "stamp", "aggregate": "max"}]})"),
              "false true ; 1,null 12345678901234568,2023-12-31 22:30:00");
    EXPECT_EQ(ask(session, R"({"schema": "other", "measures": [{"column": "z", "aggregate": "count"}]})"),
              "-");
    EXPECT_EQ(ask(session, R"({"table": "a\"b:c'd#", "types": {"flag": "integer", "stamp": "date"},
        "measures": [{"column": "flag", "aggregate": "sum"}, {"column": "stamp", "aggregate": "max"}]})"),
              "1,2023-12-31");
    EXPECT_THROW(SqlSession(server.getConnection() + "_none"), HostError);
    for (const std::string& form : server.obtainForms())
        EXPECT_EQ(SqlSession(form).obtainColumns("data").size(), 7U) << form;
    EXPECT_THROW(session.obtainColumns("pg_nothing"), HostError);
}

TEST(HostSql, SqliteColumnsAreWhatTheirValuesAre)
{
    SqlSession session("");
    const std::string rows = "(1.5, 2, 1, 3, '10', '2024-01-31', '2024-01-31T23:30:00Z', 'a', '007', NULL), "
                             "(2, 0.5, 1, 4, '9', '2024-02-01', '2024-02-01T08:00', 'b', '2/1', NULL), "
                             "(NULL, 'x', NULL, NULL, NULL, '', NULL, NULL, NULL, NULL)";
    for (const std::string& statement :
         {std::string("CREATE TABLE odd (num NUM, money MONEY, flag BOOLEAN, bare, digits TEXT, day TEXT, "
                      "moment VARCHAR, word TEXT COLLATE NOCASE, mixed, none)"),
          "INSERT INTO odd VALUES " + rows, std::string("INSERT INTO odd (word) VALUES ('A')"),
          std::string("CREATE VIEW seen AS SELECT num * 2 AS twice, bare || '' AS texts FROM odd"),
          std::string("ATTACH ':memory:' AS shop"), std::string("CREATE TABLE shop.odd (n INTEGER)"),
          std::string("INSERT INTO shop.odd VALUES (42)")})
        session.execute(statement);
    const auto sum = [](const std::string& column, const std::string& more = {}) {
        return R"({"table": "odd", "measures": [{"column": ")" + column + R"(", "aggregate": "sum"}])" +
               more + '}';
    };
    const auto by = [](const std::string& dimension) {
        return R"({"table": "odd", "dimensions": [{"column": )" + dimension + "}], " + countRows + '}';
    };
    expectAnswers(
        session,
        {
            {"a number by its declaration", sum("num"), "3.5"},
            {"money", sum("money"), "2.5"},
            {"flags", sum("flag"), "2"},
            {"no declaration", sum("bare"), "7"},
            {"nothing in it", sum("none"), "null"},
            {"digits declared as text", sum("digits"),
             "b: measures[0]: \"digits\" holds no numbers to add up"},
            {"digits given as numbers", sum("digits", R"(, "types": {"digits": "integer"})"), "19"},
            {"what is not of the given type", sum("mixed", R"(, "types": {"mixed": "float"})"),
             "b: types.mixed: \"2/1\" in the table is not a number"},
            {"computed in a view",
             R"({"table": "seen", "measures": [{"column": "twice", "aggregate": "sum"}]})", "7"},
            {"days", by(R"("day", "level": "month")"), "2024-01-01 2024-02-01 (null) ; 1 1 2"},
            {"moments", by(R"("moment", "level": "hour")"),
             "2024-01-31 23:00:00 2024-02-01 08:00:00 (null) ; 1 1 2"},
            {"moments in order",
             sum("bare", R"(, "filters": [{"column": "moment", "is": "less", "value": "2024-02-01 09:00"}])"),
             "7"},
            {"texts by bytes", by(R"("word")"), "A a b (null) ; 1 1 1 1"},
            {"another schema",
             R"({"schema": "shop", "table": "odd", "measures": [{"column": "n", "aggregate": "sum"}]})",
             "42"},
        });
}

TEST(HostSql, BindingsThatDoNotFit)
{
    const TemporaryFile file(moments);
    SqlSession session("");
    CsvImporter(session).importFile(file.getPath(), "data");
    const auto measure = [](const std::string& text) { return R"({"measures": [)" + text + "]}"; };
    const auto dimension = [](const std::string& text) {
        return R"({"dimensions": [{)" + text + "}], " + countRows + '}';
    };
    expectAnswers(
        session,
        {
            {"unknown column", measure(R"({"column": "Amount", "aggregate": "sum"})"),
             "b: measures[0]: no column \"Amount\" in table \"data\"; it has kind, amount, price, day, at, "
             "moment, "
             "o'dd:x \"#?"},
            {"sum of texts", measure(R"({"column": "kind", "aggregate": "sum"})"),
             "b: measures[0]: \"kind\" holds no numbers to add up"},
            {"unknown table", R"({"table": "x'; --", "measures": [{"aggregate": "count"}]})",
             "sqlite: table \"x'; --\": no such table"},
            {"year of a time", dimension(R"("column": "at", "level": "year")"),
             "b: dimensions[0]: \"at\" holds times of day without a date"},
            {"sorted by what is not there", dimension(R"("column": "kind", "sort": {"measure": 1})"),
             "b: dimensions[0]: there is no measure 1"},
            {"top none", dimension(R"("column": "kind", "top": {"count": 0})"),
             "b: dimensions[0].top: a count from 1 to 1000000000 is needed"},
            {"gaps among texts", dimension(R"("column": "kind", "fillGaps": true)"),
             "b: dimensions[0]: gaps can be filled in dates and times in their own order only"},
            {"no number", filtered(R"({"column": "amount", "value": "many"})"),
             "b: filters[0]: \"many\" cannot be compared with the column \"amount\""},
            {"no list", filtered(R"({"column": "kind", "is": "in", "value": "b"})"),
             "b: filters[0].value: a list is needed here"},
            {"misspelt key", measure(R"({"colum": "amount", "aggregate": "sum"})"),
             "b: measures[0]: unknown key \"colum\""},
            {"misspelt aggregate", measure(R"({"column": "amount", "aggregate": "total"})"),
             "b: measures[0].aggregate: \"total\" is none of sum, average, count, distinct, min, max"},
            {"negative count", dimension(R"("column": "kind", "top": {"count": -1})"),
             "b: dimensions[0].top.count: a whole number from 0 on is needed here"},
        });
    EXPECT_TRUE(
        ask(session, "{\"measures\": [").starts_with("b: is no JSON: parse error at line 1, column 15"));
    EXPECT_TRUE(ask(session, "{\"measures\": 1e999}").starts_with("b: is no JSON: "));
    EXPECT_EQ(ask(session, std::string(100'000, '[')), "b: is nested deeper than 256 levels");
}

TEST(HostSql, ConnectionsThatCannotBeOpened)
{
    for (const char* connection :
         {"data.db", "oracle://x", "sqlite:///nowhere/none.db", "odbc://Driver=None;",
          "odbc://Driver=SQLite3;Database=none.db", "postgresql://host=/nowhere dbname=x password=secret"}) {
        try {
            SqlSession session(connection);
            ADD_FAILURE() << connection;
        } catch (const HostError& error) {
            const std::string text = error.what();
            EXPECT_EQ(text.find_first_of("\r\n"), std::string::npos) << text;
            EXPECT_EQ(text.find("secret"), std::string::npos) << text;
        }
    }
    EXPECT_FALSE(std::filesystem::exists("data.db") || std::filesystem::exists("none.db"));
}
