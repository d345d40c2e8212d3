#include "kx_label_placer.h"

#include "ux/ux_color_contrast.h"
#include "ux_fixed_measurer.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace {

constexpr UXDoubleRect area(0, 0, 400, 200);
constexpr double gap = 3;

KXLabelRequest makeWish(const std::string& text, std::vector<KXLabelCandidate> candidates)
{
    KXLabelRequest request;
    request.text = text;
    request.candidates = std::move(candidates);
    return request;
}

/** @return each placed text with its place: "one@10,20 " */
std::string tell(const std::vector<KXPlacedLabel>& labels)
{
    std::ostringstream text;
    for (const KXPlacedLabel& label : labels)
        text << label.text << "@" << label.rect.x << "," << label.rect.y << " ";
    return text.str();
}

} // namespace

TEST(KXLabelPlacer, GivesEachItsBestFreePlace)
{
    const UXFixedMeasurer measurer;
    const UXDoubleSize size = KXLabelPlacer(area, gap).measure("one", UXTextProperty());
    const auto at = [&](double x, double y) {
        return KXLabelCandidate{{x, y, size.width, size.height}, std::nullopt};
    };
    const double beside = 10 + size.width;
    struct Case {
        const char* name;
        std::vector<KXLabelRequest> requests;
        std::string expected;
    };
    KXLabelRequest first = makeWish("two", {at(10, 10)}), own = makeWish("own", {at(300, 100)});
    first.rank = -1;
    own.mark = 7;
    const Case cases[] = {
        {"the earlier one has the choice",
         {makeWish("one", {at(10, 10)}), makeWish("two", {at(10, 10)})},
         "one@10,10 "},
        {"the second choice",
         {makeWish("one", {at(10, 10)}), makeWish("two", {at(10, 10), at(10, 60)})},
         "one@10,10 two@10,60 "},
        {"ranks come first", {makeWish("one", {at(10, 10), at(10, 60)}), first}, "two@10,10 one@10,60 "},
        {"a gap in one line",
         {makeWish("one", {at(10, 10)}), makeWish("two", {at(beside + gap - 1, 10)})},
         "one@10,10 "},
        {"is enough",
         {makeWish("one", {at(10, 10)}), makeWish("two", {at(beside + gap, 10)})},
         "one@10,10 two@" + std::to_string(static_cast<int>(beside + gap)) + ",10 "},
        {"lines may touch",
         {makeWish("one", {at(10, 10)}), makeWish("two", {at(10, 10 + size.height)})},
         "one@10,10 two@10," + std::to_string(static_cast<int>(10 + size.height)) + " "},
        {"on a strange mark", {makeWish("one", {at(300, 100)})}, ""},
        {"on its own", {own}, "own@300,100 "},
        {"beside the area", {makeWish("one", {at(-1, 10), at(10, 199)})}, ""},
        {"no text", {makeWish("", {at(10, 10)})}, ""},
        {"too low a place", {makeWish("one", {{{10, 10, 100, size.height - 1}, std::nullopt}})}, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXLabelPlacer placer(area, gap);
        placer.addObstacle({290, 90, 60, 60}, 7);
        EXPECT_EQ(tell(placer.place(c.requests)), c.expected);
    }
}

TEST(KXLabelPlacer, ShortensAndColors)
{
    const UXFixedMeasurer measurer;
    KXLabelPlacer placer(area, gap);
    const UXColor dark(20, 20, 60);
    KXLabelRequest request = makeWish("a long name", {{{10, 10, 50, 40}, dark}});
    EXPECT_TRUE(placer.place({&request, 1}).empty());
    request.mayShorten = true;
    const std::vector<KXPlacedLabel> placed = placer.place({&request, 1});
    ASSERT_EQ(placed.size(), 1);
    EXPECT_NE(placed[0].text.find("…"), std::string::npos) << placed[0].text;
    EXPECT_LE(placer.measure(placed[0].text, request.property).width, 50);
    EXPECT_GE(uxObtainContrast(placed[0].property.textColor, dark), 4.5);

    request.candidates = {{{200, 10, 8, 40}, dark}};
    EXPECT_TRUE(placer.place({&request, 1}).empty()) << "an ellipsis alone says nothing";
}

/** The cells are only a way to compare less. */
TEST(KXCollisionGrid, AnswersAsAllPairsWould)
{
    std::mt19937 random(3);
    const auto makeRect = [&] {
        const auto number = [&](int most) {
            return static_cast<double>(random() % static_cast<unsigned>(most));
        };
        return UXDoubleRect(number(500) - 50, number(300) - 50, number(90), number(30));
    };
    KXCollisionGrid grid(area);
    std::vector<UXDoubleRect> taken;
    for (std::size_t i = 0; i < 80; ++i) {
        taken.push_back(makeRect());
        grid.add(taken.back(), static_cast<double>(i % 2) * gap, i);
        for (int round = 0; round < 50; ++round) {
            const UXDoubleRect rect = makeRect();
            bool isFree = true;
            for (std::size_t other = 0; other + 1 < taken.size(); ++other)
                isFree = isFree && !kxAreTooNear(taken[other], rect, static_cast<double>(other % 2) * gap);
            EXPECT_EQ(grid.isFree(rect, i), isFree);
        }
    }
}
