#include "ux/ux_image.h"
#include "ux/ux_image_helper.h"
#include "ux/ux_image_resource_provider.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <memory>

namespace {

/** Answers an image as wide as its file is long. */
class LengthHelper : public UXImageHelper {
public:
    UXImage* imageFromBuffer(const unsigned char*, std::uint64_t length) override
    {
        return new UXImage(static_cast<int>(length), 1, std::vector<std::uint32_t>(length));
    }
};

class OneResource : public UXImageResourceProvider {
public:
    bool obtainImageResource(const std::string& name, std::vector<unsigned char>& bytes) override
    {
        bytes = name == "logo" ? std::vector<unsigned char>{1, 2, 3} : std::vector<unsigned char>{};
        return name == "logo" || name == "empty";
    }
};

} // namespace

TEST(UXImage, HasPixelsOnlyWhereTheirNumberIsRight)
{
    EXPECT_EQ(UXImage(2, 1, {1, 2}).getSize(), UXSize(2, 1));
    EXPECT_EQ(UXImage(2, 1, {1, 2}).getPixels()[1], 2U);
    for (const UXImage& image :
         {UXImage(2, 2, {1, 2}), UXImage(-1, -2, {1, 2}), UXImage(0, 0, {}), UXImage()}) {
        EXPECT_EQ(image.getSize(), UXSize());
        EXPECT_EQ(image.getPixels(), nullptr);
    }
    const UXImage original(1, 1, {7});
    EXPECT_EQ(UXImage(original).getPixels(), original.getPixels());
}

TEST(UXImageHelper, FindsTheBytesAndLeavesDecodingToTheBackEnd)
{
    const std::string path = testing::TempDir() + "ux_image_test_\xC3\xA9.bin";
    std::ofstream(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary)
        << "12345";
    LengthHelper helper;
    OneResource provider;
    const auto widthOf = [](UXImage* made) {
        const std::unique_ptr<UXImage> image(made);
        return image ? image->getSize().width : -1;
    };
    EXPECT_EQ(widthOf(helper.imageFromFile(path)), 5);
    EXPECT_EQ(widthOf(helper.imageFromFile(path + ".missing")), -1);
    EXPECT_EQ(widthOf(helper.imageFromFile(testing::TempDir())), -1);
    EXPECT_EQ(widthOf(helper.imageFromFile(std::string("\xff\0", 2))), -1);
    EXPECT_EQ(widthOf(helper.imageFromResource(&provider, "logo")), 3);
    EXPECT_EQ(widthOf(helper.imageFromResource(&provider, "empty")), -1);
    EXPECT_EQ(widthOf(helper.imageFromResource(&provider, "other")), -1);
    EXPECT_EQ(widthOf(helper.imageFromResource(nullptr, "logo")), -1);

    unsigned char* bytes = nullptr;
    EXPECT_EQ(helper.loadImageBufferFromFile(path, bytes), 5U);
    EXPECT_EQ(std::string(bytes, bytes + 5), "12345");
    helper.freeImageBuffer(bytes);
    EXPECT_EQ(helper.loadImageBufferFromFile("", bytes), 0U);
    EXPECT_EQ(bytes, nullptr);
    helper.freeImageBuffer(bytes);
    std::filesystem::remove(std::filesystem::path(std::u8string(path.begin(), path.end())));
}

TEST(UXImageHelper, ComesFromTheFactoryInUse)
{
    const unsigned char byte = 0;
    const auto decodes = [&byte] {
        const std::unique_ptr<UXImageHelper> helper(uxCreateImageHelper());
        const std::unique_ptr<UXImage> image(helper->imageFromBuffer(&byte, 1));
        return image != nullptr;
    };
    EXPECT_FALSE(decodes());
    uxSetImageHelperFactory([] { return new LengthHelper; });
    EXPECT_TRUE(decodes());
    uxSetImageHelperFactory([]() -> UXImageHelper* { return nullptr; });
    EXPECT_FALSE(decodes());
    uxSetImageHelperFactory({});
    EXPECT_FALSE(decodes());
}
