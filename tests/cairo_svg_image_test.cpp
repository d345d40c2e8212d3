#include "ux/cairo/ux_cairo_image_helper.h"
#include "ux/ux_image.h"
#include "ux/ux_painter.h"
#include "ux/ux_svg_paint_config.h"

#include <gtest/gtest.h>

#include <memory>
#include <string_view>

namespace {

std::vector<unsigned char> decodeBase64(std::string_view text)
{
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::vector<unsigned char> bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char c : text) {
        const std::size_t digit = digits.find(c);
        if (digit == std::string_view::npos)
            break;
        bits = bits << 6 | static_cast<unsigned>(digit);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes.push_back(static_cast<unsigned char>(bits >> count));
        }
    }
    return bytes;
}

} // namespace

TEST(UXSvgPainter, ImagesStandInThePageAsPngFilesOnce)
{
    // Wide enough for more than one block of stored bytes, and for each remainder of the base 64.
    for (const int width : {1, 2, 3, 300}) {
        SCOPED_TRACE(width);
        std::vector<std::uint32_t> pixels;
        for (int i = 0; i < width * width; ++i) {
            const std::uint32_t alpha = static_cast<std::uint32_t>(i * 37) & 0xFFU;
            pixels.push_back(alpha << 24 | alpha / 2 << 16 | alpha << 8);
        }
        const UXImage image(width, width, pixels);
        UXSvgPaintConfig config({400, 400});
        UXPainter* painter = uxCreatePainter(&config);
        painter->drawImage(&image, UXDoublePoint(10, 20), 1);
        painter->drawImage(&image, UXDoubleRect(0, 0, 2.0 * width, width), 0.5);
        uxDestroyPainter(painter);

        const std::string svg = config.getSvg();
        EXPECT_NE(svg.find("<g><use href=\"#d1\" transform=\"translate(10 20)\"/></g>\n"
                           "<g opacity=\"0.5\"><use href=\"#d1\" transform=\"matrix(2 0 0 1 0 0)\"/></g>"),
                  std::string::npos);
        const std::string_view opening = "data:image/png;base64,";
        const std::size_t start = svg.find(opening) + opening.size();
        EXPECT_EQ(svg.find(opening, start), std::string::npos);

        const std::vector<unsigned char> file = decodeBase64(std::string_view(svg).substr(start));
        const std::unique_ptr<UXImage> read(UXCairoImageHelper().imageFromBuffer(file.data(), file.size()));
        ASSERT_TRUE(read);
        ASSERT_EQ(read->getSize(), image.getSize());
        // Colours are multiplied by alpha anew, which may round to the neighbour.
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            for (const int shift : {0, 8, 16, 24}) {
                const int expected = static_cast<int>(pixels[i] >> shift & 0xFFU);
                ASSERT_NEAR(static_cast<int>(read->getPixels()[i] >> shift & 0xFFU), expected,
                            shift == 24 ? 0 : 1);
            }
        }
    }
}
