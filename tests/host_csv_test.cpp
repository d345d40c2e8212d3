#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <tuple>

#include "column_type_guess.h"
#include "csv_importer.h"
#include "data_binding.h"
#include "data_opener.h"
#include "host_error.h"
#include "host_temporary_file.h"
#include "sql_session.h"
#include "temporal_text.h"

namespace {

using Type = KXChartDataType;

/** @return the rows of a CSV text, fields joined by '|', or the error without the file's name */
std::string readAll(const std::string& content)
{
    const TemporaryFile file(content);
    CsvReader reader(file.getPath());
    std::string rows;
    try {
        reader.read(
            [&](const CsvReader::Row& row, std::uint64_t line) {
                rows += std::to_string(line);
                for (const std::string& field : row)
                    rows += '|' + field;
                rows += ';';
            },
            {});
    } catch (const HostError& error) {
        const std::string text = error.what();
        EXPECT_TRUE(text.starts_with(file.getPath() + ": ")) << text;
        return text.substr(file.getPath().size() + 2);
    }
    return rows;
}

/** @return every text of a column of a table in the order of its rows, nulls as "NULL", joined by '|' */
std::string readColumn(SqlSession& session, const std::string& expression, const std::string& table)
{
    const SqlTable rows = session.query(
        {"SELECT COALESCE(CAST(" + expression + " AS TEXT), 'NULL') FROM " + table,
         {},
         {SqlResultType::Text}});
    std::string joined;
    for (std::size_t i = 0; i < rows.getRowCount(); ++i)
        joined += (i ? "|" : "") + rows.getText(i, 0);
    return joined;
}

} // namespace

TEST(HostCsv, RowsWithTheirLines)
{
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"plain", "a,b\n1,2\n3,4\n", "2|1|2;3|3|4;"},
        {"no last line end", "a,b\n1,2", "2|1|2;"},
        {"carriage returns", "a,b\r\n1,2\r\n\r\n3,4\r\n", "2|1|2;4|3|4;"},
        {"old line ends", "a,b\r1,2\r3,4", "2|1|2;3|3|4;"},
        {"byte order mark", "\xef\xbb\xbf\"a\",b\n1,2\n", "2|1|2;"},
        {"quotes", "a,b\n\"x, \"\"y\"\"\nz\",2\n3,4\n", "2|x, \"y\"\nz|2;4|3|4;"},
        {"empty fields", "a,b\n,\n\"\",\n", "2||;3||;"},
        {"semicolons", "a;\"b,c,d\"\n1;2,5\n", "2|1|2,5;"},
        {"tabulators", "a\tb;c\td\n1\t2\t3\n", "2|1|2|3;"},
        {"a field after shorter and longer ones", "a,b\nlong text of one,x\ny,long text of two\n",
         "2|long text of one|x;3|y|long text of two;"},
        {"no end of fields", "a,b\n" + std::string(100'000, ','), "line 2: more than 10000 fields"},
        {"no end of a field", "a,b\n1,\"" + std::string(std::size_t{65} << 20U, 'x'),
         "line 2: a row longer than 64 MiB"},
        {"header alone", "a,b\n", ""},
        {"hostile names", "\"a'; DROP TABLE x; --\",\":p0 #\"\n1,2\n", "2|1|2;"},
        {"too few fields", "a,b\n1,2\n\n3\n", "line 4: 1 fields where the header has 2"},
        {"too many fields", "a,b\n\"1\n\",2,3\n", "line 2: 3 fields where the header has 2"},
        {"an open quote", "a,b\n1,2\n3,\"4\n5,6\n", "line 3: a quote opened in this row is never closed"},
        {"a stray quote", "a,b\n1,2\n3,4\"5\n", "line 3: a stray quote inside a field"},
        {"nothing", "", "is empty; a header row is needed"},
        {"empty lines", "\n\n", "is empty; a header row is needed"},
        {"no text", std::string("a,b\n1,\0", 7), "line 2: holds a zero byte; this is no text file"},
        {"sixteen bits",
         "\xff\xfe"
         "a",
         "line 1: is UTF-16 text; UTF-8 is needed"},
    };
    for (const auto& [name, content, expected] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(readAll(content), expected);
    }
}

TEST(HostCsv, FilesThatCannotBeRead)
{
    for (const std::string& path : {std::string("/nowhere/none.csv"), testing::TempDir()}) {
        try {
            CsvReader(path).read({}, {});
            ADD_FAILURE() << path;
        } catch (const HostError& error) {
            EXPECT_TRUE(std::string(error.what()).starts_with(path + ": ")) << error.what();
            EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos);
        }
    }
}

TEST(HostCsv, ImportsTypedColumns)
{
    const TemporaryFile file("n,x,day,at,moment,\"say \"\"it's\"\" :p0 #1 ?\",\n"
                             "1,0.1,2024-01-02,10:30,2024-01-02T10:30:00,a,007\n"
                             ",,,,,,\n"
                             "9007199254740993,1e300,2024/1/3,23:59:59,2024-01-03,\"x\ny\",008\n");
    SqlSession session("sqlite://");
    CsvImporter importer(session);
    importer.importFile(file.getPath(), "da\"ta");

    const std::vector<SqlColumn> columns = session.obtainColumns("da\"ta");
    const std::vector<std::pair<std::string, Type>> expected = {
        {"n", Type::Integer},       {"x", Type::Float},         {"day", Type::Date},
        {"at", Type::Time},         {"moment", Type::DateTime}, {"say \"it's\" :p0 #1 ?", Type::String},
        {"column 7", Type::String},
    };
    ASSERT_EQ(columns.size(), expected.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        EXPECT_EQ(columns[i].name, expected[i].first);
        EXPECT_EQ(columns[i].type, expected[i].second) << columns[i].name;
    }
    EXPECT_EQ(readColumn(session, "n", "\"da\"\"ta\""), "1|NULL|9007199254740993");
    EXPECT_EQ(readColumn(session, "day", "\"da\"\"ta\""), "2024-01-02|NULL|2024-01-03");
    EXPECT_EQ(readColumn(session, "at", "\"da\"\"ta\""), "10:30:00|NULL|23:59:59");
    EXPECT_EQ(readColumn(session, "moment", "\"da\"\"ta\""), "2024-01-02 10:30:00|NULL|2024-01-03 00:00:00");
    EXPECT_EQ(readColumn(session, "\"column 7\"", "\"da\"\"ta\""), "007|NULL|008");
    const SqlTable number = session.query({"SELECT SUM(x) FROM \"da\"\"ta\"", {}, {SqlResultType::Number}});
    EXPECT_EQ(number.getNumber(0, 0), 1e300 + 0.1);
    EXPECT_THROW(importer.importFile(file.getPath(), "da\"ta"), HostError) << "there is one of the name";
    EXPECT_EQ(readColumn(session, "n", "\"da\"\"ta\""), "1|NULL|9007199254740993");
}

TEST(HostCsv, ImportFailsAsAWhole)
{
    struct Case {
        const char* name;
        const char* content;
        std::vector<std::pair<std::string, Type>> declared;
        const char* expected;
    };
    const Case cases[] = {
        {"not of the declared type",
         "a,b\n1,2\n3,x\n",
         {{"b", Type::Integer}},
         "line 3: column \"b\": \"x\" is not a whole number"},
        {"declared but missing",
         "a,b\n1,2\n",
         {{"c", Type::Date}},
         "line 1: the column \"c\", whose type is declared, is not in the header"},
        {"named twice", "a,A\n1,2\n", {}, "line 1: two columns are named \"A\""},
        {"ragged late", "a,b\n1,2\n3\n", {}, "line 3: 1 fields where the header has 2"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const TemporaryFile file(c.content);
        const TemporaryFile database("", "data.db");
        SqlSession session("sqlite://" + database.getPath());
        CsvImporter importer(session);
        for (const auto& [column, type] : c.declared)
            importer.declareType(column, type);
        try {
            importer.importFile(file.getPath(), "data");
            ADD_FAILURE() << "imported";
        } catch (const HostError& error) {
            EXPECT_EQ(error.what(), file.getPath() + ": " + c.expected);
        }
        EXPECT_THROW(session.obtainColumns("data"), HostError);
        EXPECT_EQ(std::filesystem::file_size(database.getPath()), 0U);
    }
}

TEST(DataOpener, AFileOfAQueryIsItsRowsAndNothingElse)
{
    struct Case {
        const char* query;
        const char* text; // of the only column
    };
    const Case cases[] = {
        {"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 3) SELECT i AS a FROM n",
         "1|2|3"},
        {"-- a comment\nSELECT 'x' AS a\n-- and another", "x"},
        {"DROP TABLE x", nullptr},
        {"", nullptr},
    };
    const DataBinding binding;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.query);
        const TemporaryFile file(c.query, "rows.sql");
        if (!c.text) {
            EXPECT_THROW((void)openData(file.getPath(), {&binding}, {}), HostError);
            continue;
        }
        const std::unique_ptr<SqlSession> session = openData(file.getPath(), {&binding, &binding}, {});
        EXPECT_EQ(readColumn(*session, "a", binding.table), c.text);
    }
}
