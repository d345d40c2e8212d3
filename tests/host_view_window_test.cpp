#include "host_view_model.h"
#include "host_x_display.h"

#include <cstdio>
#include <gtest/gtest.h>

namespace {

using Pixels = std::vector<std::uint32_t>;

/** kx_view on a display of its own, beside the model of what it has to show. */
class HostViewWindow : public testing::Test {
protected:
    static constexpr UXSize size{700, 300};

    /** Opens the window at the display's top left corner, and waits until it shows. */
    void open(double scale = 1)
    {
        std::vector<std::string> command = {
            KX_VIEW_PROGRAM,       "--log-paints", "--log-actions", "--reduce-motion", "--scale",
            std::to_string(scale), "--size",       "700x300",       "--dump",          "/dev/null"};
        command.insert(command.end(), ViewModel::charts.begin(), ViewModel::charts.end());
        view = std::make_unique<ChildProcess>(
            command, std::vector<std::string>{display.getVariable(), "SDL_VIDEODRIVER=x11",
                                              "SDL_FRAMEBUFFER_ACCELERATION=0"});
        ASSERT_FALSE(view->readTo("paint").empty());
        window = display.act({"search", "--onlyvisible", "--class", "kx_view"});
        display.act({"windowmove", window, "0", "0"});
        act({"mousemove", "999", "699"});
    }

    /** Does something with the mouse or the keys, and waits until the window has answered all of it. */
    void act(std::vector<std::string> command)
    {
        command.insert(command.end(), {"key", "F12"});
        display.act(command);
        told = view->readTo("dumped");
        ASSERT_TRUE(!told.empty() && told.back().starts_with("dumped"));
        told.pop_back();
    }
    void moveTo(const UXControlPoint& point)
    {
        act({"mousemove", std::to_string(point.x), std::to_string(point.y)});
    }

    bool hasTold(const std::string& line) const { return std::ranges::count(told, line) == 1; }
    Pixels look(const UXSize& area = size) const { return display.look(area); }

    /** @return whether something differs, and nothing outside of the areas that the window painted last */
    bool differsWherePainted(const Pixels& before, const Pixels& after) const
    {
        std::vector<UXRect> areas;
        for (const std::string& line : told) {
            UXRect area;
            if (std::sscanf(line.c_str(), "paint %d,%d %dx%d", &area.x, &area.y, &area.width, &area.height) ==
                4)
                areas.push_back(area);
        }
        for (std::size_t i = 0; i < before.size(); ++i) {
            const UXPoint pixel(static_cast<int>(i % size.width), static_cast<int>(i / size.width));
            const bool isPainted = std::ranges::any_of(
                areas, [&](const UXRect& area) { return uxPointInRect(pixel, area); });
            if (before[i] != after[i] && !isPainted)
                return false;
        }
        return before != after;
    }

    XDisplay display;
    std::unique_ptr<ChildProcess> view;
    std::string window;
    std::vector<std::string> told; // what the window printed about the last act
};

/** Beside all charts. */
const UXControlPoint corner(2, 2);

Pixels withoutAlpha(Pixels pixels)
{
    for (std::uint32_t& pixel : pixels)
        pixel &= 0xffffff;
    return pixels;
}

} // namespace

#define SKIP_WITHOUT_DISPLAY()         \
    if (!display.getProblem().empty()) \
    GTEST_SKIP() << "no " << display.getProblem()

TEST_F(HostViewWindow, ShowsWhatTheModelSays)
{
    SKIP_WITHOUT_DISPLAY();
    for (const double scale : {1.0, 1.25}) {
        SCOPED_TRACE(scale);
        open(scale);
        const UXSize pixels(static_cast<int>(700 * scale), static_cast<int>(300 * scale));
        ViewModel model(pixels, scale);
        EXPECT_TRUE(look(pixels) == withoutAlpha(model.paint()));
        display.act({"key", "ctrl+q"});
        EXPECT_TRUE(view->hasEnded());
        EXPECT_EQ(view->getExitCode(), 0);
    }
}

TEST_F(HostViewWindow, AnswersAPersonAtTheMouse)
{
    SKIP_WITHOUT_DISPLAY();
    open();
    ViewModel model(size, 1);
    const UXControlPoint value = model.obtainMiddle(0, ValueLabel);
    const Pixels first = look();

    // The menu opens at the pointer, in the place of the hint, and does what its first entry says.
    moveTo(value);
    const Pixels hint = look();
    EXPECT_TRUE(differsWherePainted(first, hint));
    act({"key", "Escape"});
    EXPECT_TRUE(differsWherePainted(hint, look()));
    moveTo(corner);
    EXPECT_TRUE(look() == first);
    moveTo(value);
    act({"click", "3"});
    EXPECT_TRUE(differsWherePainted(hint, look()));
    act({"mousemove_relative", "20", "15"});
    act({"click", "1"});
    EXPECT_TRUE(hasTold("copy 143093"));
    moveTo(corner);
    EXPECT_TRUE(look() == first);

    moveTo(value);
    act({"click", "1"});
    EXPECT_TRUE(hasTold("click Nonfarm jobs: 143093"));

    // Sizes and zooms come back to the same picture.
    act({"keydown", "ctrl", "click", "4", "click", "4", "keyup", "ctrl"});
    const Pixels zoomed = look();
    EXPECT_FALSE(zoomed == first);
    act({"click", "5", "click", "5"});
    EXPECT_FALSE(look() == zoomed);
    act({"click", "4", "click", "4"});
    EXPECT_TRUE(look() == zoomed);
    act({"key", "ctrl+0"});
    moveTo(corner);
    EXPECT_TRUE(look() == first);
    for (const char* width : {"431", "700"}) {
        display.act({"windowsize", window, width, "300"});
        view->readTo(std::string("paint 0,0 ") + width);
    }
    act({});
    EXPECT_TRUE(look() == first);
}

TEST_F(HostViewWindow, AnswersAPersonAtTheKeyboard)
{
    SKIP_WITHOUT_DISPLAY();
    open();
    const Pixels first = look();
    act({"key", "Tab"});
    EXPECT_TRUE(differsWherePainted(first, look()));
    act({"key", "Return"});
    EXPECT_TRUE(hasTold("click Nonfarm jobs: 143093"));
    const Pixels ring = look();
    act({"key", "shift+F10"});
    EXPECT_TRUE(differsWherePainted(ring, look()));
    act({"key", "Down", "Return"});
    EXPECT_TRUE(hasTold("copy Nonfarm jobs: 143093"));
    EXPECT_TRUE(look() == ring);
}
