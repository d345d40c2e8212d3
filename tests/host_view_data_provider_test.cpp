#include "view_data_provider.h"

#include "csv_importer.h"
#include "data_binding_reader.h"
#include "host_temporary_file.h"
#include "kx_chart_data_path.h"
#include "kx_value_chart.h"
#include "sql_session.h"

#include <gtest/gtest.h>

#include <memory>

TEST(HostViewDataProvider, ItemsMatchByTheirMembersAndMeasures)
{
    const TemporaryFile file("place,kind,score\nx,a,1\ny,a,2\ny,b,4\nz,b,8\n");
    SqlSession session("");
    CsvImporter(session).importFile(file.getPath(), "data");
    const ViewItemHandlers handlers;
    const auto make = [&](const std::string& binding) {
        auto provider = std::make_unique<ViewDataProvider>(session, DataBindingReader("b").readText(binding),
                                                           handlers);
        provider->beginPrepareData(nullptr);
        return provider;
    };
    const std::string place = R"("dimensions": [{"column": "place"}], )";
    const std::string both = R"("dimensions": [{"column": "kind"}, {"column": "place"}], )";
    const std::string score = R"("measures": [{"column": "score", "aggregate": "sum", "label": "Score"}])";
    const std::string rows = R"("measures": [{"aggregate": "count", "label": "Rows"}])";
    struct Case {
        const char* name;
        std::string source, target;
        KXIndexPath value; // of the source
        bool matches;
        KXIndexPath expectedMember, expectedValue;
    };
    const Case cases[] = {
        {"the same cell", place + score, place + score, {0, 2}, true, {0, 2}, {0, 2}},
        {"another measure", place + score, place + rows, {0, 1}, true, {0, 1}, {}},
        {"fewer members", both + score, place + score, {0, 0, 1}, true, {0, 1}, {0, 1}},
        {"more members, the shared one not first", place + score, both + score, {0, 1}, false, {}, {}},
        {"no members at all", score, score, {0, 0}, true, {}, {0, 0}},
        {"a total has no cell", score, place + score, {0, 0}, false, {}, {}},
        {"nothing in common", score, rows, {0, 0}, false, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const auto source = make("{" + c.source + "}"), target = make("{" + c.target + "}");
        KXValueChart asking;
        asking.setDataProvider(source.get());
        KXChartDataPath path;
        path.valueIndexPath = c.value;
        EXPECT_TRUE(source->obtainDataShouldLinkedHighlightAction(&asking, &path));
        const std::unique_ptr<KXChartDataPath> match(
            target->obtainDataLinkedHighlightTargetPath(&asking, &path, target.get()));
        ASSERT_EQ(match != nullptr, c.matches);
        if (!match)
            continue;
        EXPECT_EQ(match->dimensionIndexPath, c.expectedMember);
        EXPECT_EQ(match->valueIndexPath, c.expectedValue);
    }
}
