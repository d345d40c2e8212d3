#include "chart_document.h"

#include "host_error.h"
#include "host_temporary_file.h"

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

} // namespace
