#include "kx_bar_chart.h"
#include "kx_chart_property.h"
#include "kx_gauge_chart.h"
#include "kx_json_object_factory.h"
#include "ux/ux_json_object.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace {

std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

// The documents were saved on Linux; every system has to save the same bytes.
TEST(KXSavedDocument, IsTheSameOnEverySystem)
{
    for (const std::string& type : KXJsonObjectFactory::obtainChartTypeNames()) {
        SCOPED_TRACE(type);
        const std::string file = type + "_saved_on_linux.json";
        const std::string saved = readFile(std::filesystem::path(KX_SOURCE_DIR) / "tests/documents" / file);
        KXJsonObjectFactory factory;
        const std::unique_ptr<UXJsonObject> chart(factory.create(type));
        EXPECT_TRUE(chart->deserialize(saved, &factory));
        EXPECT_EQ(chart->serialize(), saved);
    }
}

TEST(KXSavedDocument, TellsTheKeysThatNobodyAskedFor)
{
    KXBarChart chart;
    std::string document = chart.serialize();
    EXPECT_TRUE(chart.deserialize(document));
    EXPECT_TRUE(chart.getDeserializedUnknownKeys().empty());

    chart.deserialize(R"({"type": "KXBarChart", "m_showTitel": true, "m_orientation": 7, "note": {"a": 1},
        "m_yAxisProperty": {"type": "KXAxisProperty", "m_showAxis": false, "m_isStaked": true}})");
    EXPECT_EQ(chart.getDeserializedUnknownKeys(),
              (std::vector<std::string>{"m_yAxisProperty.m_isStaked", "m_showTitel", "note"}));

    KXGaugeChart gauge;
    gauge.deserialize(R"({"m_partitionLabelsPool": [{"m_x": 1}]})");
    EXPECT_EQ(gauge.getDeserializedUnknownKeys(), std::vector<std::string>{"m_partitionLabelsPool[].m_x"});
}

TEST(KXSavedDocument, OlderVersionsAreCompatibleAndNewerOnesAreTold)
{
    const std::tuple<const char*, bool> cases[] = {{"0", true}, {"0.9", true}, {"1.0", true}, {"1.1", false}};
    for (const auto& [version, isCompatible] : cases) {
        KXBarChart chart;
        EXPECT_TRUE(chart.serialize().starts_with(R"({"type":"KXBarChart","version":"1.0")"));
        chart.deserialize(R"({"version":")" + std::string(version) + R"(","m_titleValue":"read"})");
        EXPECT_EQ(chart.getDeserializedObjectIsCompatible(), isCompatible) << version;
        EXPECT_EQ(chart.getChartProperty()->getTitleValue(), "read") << version;
    }
}
