#include "kx_json_object_factory.h"
#include "ux/ux_json_object.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <tuple>

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
    const std::tuple<const char*, const char*> cases[] = {{"KXValueChart", "value_saved_on_linux.json"},
                                                          {"KXGaugeChart", "gauge_saved_on_linux.json"},
                                                          {"KXBarChart", "bars_saved_on_linux.json"}};
    for (const auto& [type, file] : cases) {
        SCOPED_TRACE(file);
        const std::string saved = readFile(std::filesystem::path(KX_SOURCE_DIR) / "tests/documents" / file);
        KXJsonObjectFactory factory;
        const std::unique_ptr<UXJsonObject> chart(factory.create(type));
        EXPECT_TRUE(chart->deserialize(saved, &factory));
        EXPECT_EQ(chart->serialize(), saved);
    }
}
