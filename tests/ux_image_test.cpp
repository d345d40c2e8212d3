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
