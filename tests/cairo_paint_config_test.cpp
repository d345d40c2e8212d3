#include "cairo_test_canvas.h"
#include "ux/cairo/ux_cairo_image_helper.h"
#include "ux/cairo/ux_cairo_install.h"
#include "ux/cairo/ux_cairo_pdf_paint_config.h"
#include "ux/ux_image_helper.h"
#include "ux/ux_image_resource_provider.h"
#include "ux/ux_text_measurer.h"

#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <utility>

namespace fs = std::filesystem;

namespace {

/** A folder of its own for each test, removed with what is in it. */
class CairoPaintConfig : public testing::Test {
protected:
    void SetUp() override
    {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        m_folder = fs::temp_directory_path() /
                   ("ux_cairo_" + std::string(test->name()) + std::to_string(std::rand()));
        fs::create_directories(m_folder);
    }
    void TearDown() override { fs::remove_all(m_folder); }

    std::string pathOf(const std::string& name) const { return (m_folder / name).string(); }

    std::size_t countFiles() const
    {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(m_folder), fs::directory_iterator()));
    }

    fs::path m_folder;
};

std::string readFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void drawMarks(UXPainter& painter)
{
    painter.setColor({255, 0, 0});
    painter.addRectanglePath(1, 1, 4, 2);
    painter.fill();
    painter.setColor({0, 0, 255, 0.5});
    painter.addRectanglePath(6, 1, 4, 2);
    painter.fill();
}

} // namespace

TEST_F(CairoPaintConfig, IsValidForSizesThatCanBePainted)
{
    struct Case {
        const char* name;
        UXDoubleSize size;
        double scale;
        UXSize pixels;
    };
    const Case cases[] = {
        {"whole", {30, 20}, 1, {30, 20}},
        {"a part of a pixel counts as one", {30, 20}, 1.24, {38, 25}},
        {"a product that is whole", {10, 30}, 1.1, {11, 33}},
        {"empty", {0, 20}, 1, {}},
        {"negative", {30, -1}, 1, {}},
        {"not a number", {NAN, 20}, 1, {}},
        {"endless", {INFINITY, 20}, 1, {}},
        {"too wide", {40000, 1}, 1, {}},
        {"too many", {32000, 32000}, 1, {}},
        {"no scale", {30, 20}, 0, {}},
        {"scale not a number", {30, 20}, NAN, {}},
        {"negative scale", {30, 20}, -1, {}},
        {"endless scale", {30, 20}, INFINITY, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UXCairoImagePaintConfig config(c.size, c.scale);
        const bool isValid = c.pixels.width > 0;
        EXPECT_EQ(config.isPaintConfigValid(), isValid);
        EXPECT_EQ(config.getPixelSize(), c.pixels);
        EXPECT_EQ(config.obtainImage().getSize(), c.pixels);
        UXPainter* painter = uxCreatePainter(&config);
        EXPECT_EQ(painter ? painter->getDeviceScale() : 0, isValid ? c.scale : 0);
        uxDestroyPainter(painter);
        EXPECT_EQ(config.writePng(pathOf("out.png")), isValid);
    }
}

TEST_F(CairoPaintConfig, PngIsWrittenWholeOrNotAtAll)
{
    CairoTestCanvas canvas(12, 4);
    canvas.draw(drawMarks);
    const std::string path = pathOf("größe.png");
    ASSERT_TRUE(canvas.config().writePng(path));
    EXPECT_EQ(countFiles(), 1u);

    // What was written reads back pixel by pixel, also the translucent ones.
    uxCairoInstall();
    const std::unique_ptr<UXImageHelper> helper(uxCreateImageHelper());
    const std::unique_ptr<UXImage> read(helper->imageFromFile(path));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->getSize(), UXSize(12, 4));
    EXPECT_EQ(std::vector(read->getPixels(), read->getPixels() + 48), canvas.pixels());

    // A folder that is not there, a folder instead of a file, an empty name, a name that ends early.
    EXPECT_FALSE(canvas.config().writePng(pathOf("missing/out.png")));
    fs::create_directory(m_folder / "folder.png");
    EXPECT_FALSE(canvas.config().writePng(pathOf("folder.png")));
    EXPECT_FALSE(canvas.config().writePng(""));
    EXPECT_FALSE(canvas.config().writePng(std::string("a\0b.png", 7)));
    EXPECT_EQ(countFiles(), 2u);

    // A full disk keeps what was there and leaves nothing half done; a device is written to as it is.
    if (fs::exists("/dev/full")) {
        EXPECT_FALSE(canvas.config().writePng("/dev/full"));
        EXPECT_TRUE(canvas.config().writePng("/dev/null"));
        EXPECT_TRUE(fs::is_character_file("/dev/null"));
    }

    // A link stays a link, and its file is replaced.
    fs::create_symlink(path, m_folder / "link.png");
    canvas.drawWhiteGround();
    ASSERT_TRUE(canvas.config().writePng(pathOf("link.png")));
    EXPECT_TRUE(fs::is_symlink(m_folder / "link.png"));
    const std::unique_ptr<UXImage> white(helper->imageFromFile(path));
    ASSERT_TRUE(white);
    EXPECT_EQ(white->getPixels()[0], kWhite);
    uxSetImageHelperFactory({});
    uxSetTextMeasurer(nullptr);
}

TEST_F(CairoPaintConfig, PdfHasItsPagesAndEndsOnce)
{
    UXCairoPdfPaintConfig config({200, 100});
    ASSERT_TRUE(config.isPaintConfigValid());
    for (int page = 0; page < 2; ++page) {
        UXPainter* painter = uxCreatePainter(&config);
        ASSERT_NE(painter, nullptr);
        drawMarks(*painter);
        const UXImage image(1, 1, {kRed});
        painter->drawImage(&image, UXDoubleRect(20, 20, 10, 10), 0.5);
        painter->drawText("Page", {10, 50, 100, 20}, UXTextProperty{});
        uxDestroyPainter(painter);
        config.startNewPage();
    }
    ASSERT_TRUE(config.writePdf(pathOf("out.pdf")));
    const std::string bytes = readFile(pathOf("out.pdf"));
    EXPECT_EQ(bytes.substr(0, 5), "%PDF-");
    EXPECT_NE(bytes.find("%%EOF"), std::string::npos);
    EXPECT_NE(bytes.find("/Count 2"), std::string::npos);
    EXPECT_NE(bytes.find("/BaseFont"), std::string::npos);

    EXPECT_FALSE(config.isPaintConfigValid());
    EXPECT_EQ(uxCreatePainter(&config), nullptr);
    EXPECT_FALSE(config.writePdf(pathOf("again.pdf")));
    EXPECT_EQ(countFiles(), 1u);

    EXPECT_FALSE(UXCairoPdfPaintConfig({200, 100}).writePdf(pathOf("missing/out.pdf")));
    const UXDoubleSize refused[] = {{0, 10}, {10, -1}, {NAN, 10}, {INFINITY, 10}, {20000, 10}};
    for (const UXDoubleSize& size : refused) {
        UXCairoPdfPaintConfig empty(size);
        EXPECT_FALSE(empty.isPaintConfigValid());
        EXPECT_FALSE(empty.writePdf(pathOf("refused.pdf")));
    }
}

TEST_F(CairoPaintConfig, ImagesAreReadFromPngAlone)
{
    CairoTestCanvas canvas(6, 6);
    canvas.drawWhiteGround();
    ASSERT_TRUE(canvas.config().writePng(pathOf("image.png")));
    const std::string png = readFile(pathOf("image.png"));

    std::string huge = png;
    huge[16] = '\x7F';
    const std::pair<const char*, std::string> broken[] = {
        {"a size beyond all memory", huge},        {"cut short", png.substr(0, png.size() / 2)},
        {"another format", "GIF89a" + png},        {"empty", ""},
        {"the signature alone", png.substr(0, 8)}, {"header alone", png.substr(0, 33)}};
    UXCairoImageHelper helper;
    const auto read = [&helper](const std::string& bytes) {
        const auto* data = reinterpret_cast<const unsigned char*>(bytes.data());
        return std::unique_ptr<UXImage>(helper.imageFromBuffer(data, bytes.size()));
    };
    for (const auto& [name, bytes] : broken)
        EXPECT_EQ(read(bytes), nullptr) << name;
    ASSERT_TRUE(read(png));
    EXPECT_EQ(read(png)->getPixels()[0], kWhite);
    EXPECT_EQ(helper.imageFromBuffer(nullptr, 100), nullptr);
    EXPECT_EQ(helper.imageFromFile(pathOf("missing.png")), nullptr);

    struct Provider : UXImageResourceProvider {
        bool obtainImageResource(const std::string& name, std::vector<unsigned char>& bytes) override
        {
            bytes.assign(png.begin(), png.end());
            return name == "white";
        }
        std::string png;
    } provider;
    provider.png = png;
    const std::unique_ptr<UXImage> white(helper.imageFromResource(&provider, "white"));
    ASSERT_TRUE(white);
    EXPECT_EQ(white->getSize(), UXSize(6, 6));
    EXPECT_EQ(helper.imageFromResource(&provider, "black"), nullptr);
    EXPECT_EQ(helper.imageFromResource(nullptr, "white"), nullptr);
}
