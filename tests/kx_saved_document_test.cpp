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

/** @return what a chart of the type saves once it has read text */
std::string saveAgain(const std::string& type, const std::string& text, bool isComplete)
{
    KXJsonObjectFactory factory;
    const std::unique_ptr<UXJsonObject> chart(factory.create(type));
    const bool read = chart->deserialize(text, &factory);
    EXPECT_TRUE(read || !isComplete);
    return chart->serialize();
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
        EXPECT_EQ(saveAgain(type, saved, true), saved);
    }
}

TEST(KXSavedDocument, SamplesStayAsTheyAreOnceSaved)
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(KX_SOURCE_DIR "/samples")) {
        const std::string file = entry.path().filename().string();
        if (!file.ends_with(".chart.json"))
            continue;
        SCOPED_TRACE(file);
        const std::string text = readFile(entry.path()), key = "\"type\": \"";
        const std::size_t begin = text.find(key) + key.size();
        const std::string type = text.substr(begin, text.find('"', begin) - begin);
        const std::string saved = saveAgain(type, text, false);
        EXPECT_EQ(saveAgain(type, saved, true), saved);
        ++count;
    }
    EXPECT_GT(count, 30);
}
