#include "kx_json_object_factory.h"
#include "ux/ux_json_object.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <memory>
#include <string>

// The document was saved on Linux; every system has to save the same bytes.
TEST(KXSavedDocument, IsTheSameOnEverySystem)
{
    std::ifstream file(KX_SOURCE_DIR "/tests/documents/gauge_saved_on_linux.json", std::ios::binary);
    const std::string saved{std::istreambuf_iterator<char>(file), {}};
    KXJsonObjectFactory factory;
    const std::unique_ptr<UXJsonObject> chart(factory.create("KXGaugeChart"));
    EXPECT_TRUE(chart->deserialize(saved, &factory));
    EXPECT_EQ(chart->serialize(), saved);
}
