#include "kx_axis_chart_pixel_columns.h"
#include "kx_bar_chart_data_view.h"
#include "kx_bar_labels.h"
#include "kx_bar_layout.h"
#include "kx_category_places.h"
#include "kx_dense_bars.h"
#include "kx_value_label_choice.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>
#include <set>
#include <tuple>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();
constexpr double greatest = (std::numeric_limits<double>::max)();
using Lists = std::vector<std::vector<double>>;

KXAxisChartStacks makeSource(const Lists& lists, KXAxisChartStacking form)
{
    KXAxisChartStacks source;
    source.form = form;
    for (const std::vector<double>& values : lists) {
        source.series.push_back({source.series.size(), values});
        source.end = std::max<std::uint64_t>(source.end, values.size());
    }
    return source;
}

/** Categories from x 0 on, values upwards from y 50, one a unit. */
KXBarPlane makePlane(double width, double spacing)
{
    KXBarPlane plane;
    plane.area = {0, 0, static_cast<int>(width), 100};
    plane.categories = {0, spacing / 2, spacing};
    plane.values = {0, 50, -1};
    plane.spacing = spacing;
    return plane;
}

} // namespace

TEST(KXAxisChartStacks, Pieces)
{
    const std::vector<double> two{greatest, greatest};
    struct Case {
        const char* name;
        KXAxisChartStacking form;
        std::vector<double> values;
        std::vector<std::pair<double, double>> expected;
        double total;
    };
    const Case cases[] = {
        {"side by side", KXAxisChartStacking::Plain, {3, null, -4}, {{0, 3}, {0, -4}}, -1},
        {"away from zero",
         KXAxisChartStacking::Stacked,
         {3, -4, 5, -1, 0},
         {{0, 3}, {0, -4}, {3, 8}, {-4, -5}, {8, 8}},
         3},
        {"beyond a double",
         KXAxisChartStacking::Stacked,
         two,
         {{0, greatest}, {greatest, greatest}},
         greatest},
        {"parts of the magnitudes",
         KXAxisChartStacking::Percentage,
         {1, -1, 2},
         {{0, 25}, {25, 50}, {50, 100}},
         2},
        {"parts beyond a double", KXAxisChartStacking::Percentage, two, {{0, 50}, {50, 100}}, greatest},
        {"parts of nothing", KXAxisChartStacking::Percentage, {0, 0}, {{0, 0}, {0, 0}}, 0},
        {"only nulls", KXAxisChartStacking::Percentage, {null}, {}, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Lists lists;
        for (const double value : c.values)
            lists.push_back({value});
        const KXAxisChartStacks source = makeSource(lists, c.form);
        std::vector<KXAxisChartStackSegment> pieces;
        source.obtainPieces(0, pieces);
        std::vector<std::pair<double, double>> ends;
        for (const KXAxisChartStackSegment& piece : pieces)
            ends.emplace_back(piece.from, piece.to);
        EXPECT_EQ(ends, c.expected);
        EXPECT_EQ(source.obtainTotal(0), c.total);
        source.obtainPieces(1, pieces);
        EXPECT_TRUE(pieces.empty()) << "past the data";
    }
}

TEST(KXBarLayout, Widths)
{
    const std::tuple<const char*, double, double, double, std::size_t, double, double, double> cases[] = {
        {"a share of the room", 50, 0.6, 1, 1, 30, 30, 30},
        {"no wider than the limit", 1000, 0.8, 1, 1, 64, 64, 64},
        {"limit in device pixels", 1000, 0.8, 1.5, 1, 96, 96, 96},
        {"two with a gap", 50, 0.8, 1, 2, 19, 21, 40},
        {"thin ones touch", 10, 0.7, 1, 3, 2, 2, 6},
        {"never below a pixel", 2, 0.6, 1, 1, 1, 1, 1},
        {"a finer device has room for no more", 2, 0.8, 2, 3, 0, 0, 0},
        {"too many for the pixels", 2, 0.8, 1, 3, 0, 0, 0},
        {"less than two pixels", 1.9, 0.8, 1, 1, 0, 0, 0},
        {"no room", 0, 0.8, 1, 1, 0, 0, 0},
    };
    for (const auto& [name, spacing, share, scale, count, width, pitch, total] : cases) {
        SCOPED_TRACE(name);
        KXBarPlane plane;
        plane.spacing = spacing;
        plane.share = share;
        plane.pixelScale = scale;
        const KXBarWidths widths = kxObtainBarWidths(plane, count);
        EXPECT_EQ(widths.width, width);
        EXPECT_EQ(widths.pitch, pitch);
        EXPECT_EQ(widths.total, total);
    }
}

TEST(KXBarLayout, PlacesBarsOnWholePixelsInBothOrientations)
{
    const Lists lists{{20, null, -70}, {-10, 30, 0}};
    for (const bool isVertical : {true, false}) {
        SCOPED_TRACE(isVertical);
        KXBarPlane plane = makePlane(30, 10);
        plane.share = 0.6;
        plane.isVertical = isVertical;
        if (!isVertical)
            plane.area = {0, 0, 100, 30};
        const KXBarLayout layout = kxLayoutBars(makeSource(lists, KXAxisChartStacking::Plain), plane);
        const auto rect = [&](double across, double along, double wide, double length) {
            return isVertical ? UXDoubleRect(across, along, wide, length)
                              : UXDoubleRect(along, across, length, wide);
        };
        std::vector<UXDoubleRect> rects;
        for (const KXBar& bar : layout.bars)
            rects.push_back(bar.rect);
        // The null leaves its place empty, what is beyond the area is cut, and a zero keeps a place to be
        // hit.
        EXPECT_EQ(rects,
                  (std::vector<UXDoubleRect>{rect(2, 30, 3, 20), rect(5, 50, 3, 10), rect(15, 20, 3, 30),
                                             rect(22, 50, 3, 50), rect(25, 50, 3, 0)}));
    }
    KXBarPlane beside = makePlane(30, 10);
    beside.values = {1000, 100, -1};
    EXPECT_TRUE(kxLayoutBars(makeSource({{3}}, KXAxisChartStacking::Plain), beside).bars.empty());
    EXPECT_TRUE(kxLayoutBars(makeSource({}, KXAxisChartStacking::Plain), makePlane(30, 10)).bars.empty());
}

/** Painted one by one, each on the columns that its snapped rectangle fills, bars show the same. */
TEST(KXDenseBars, ShowWhatAllBarsWouldShow)
{
    std::mt19937 random(20);
    for (int round = 0; round < 60; ++round) {
        SCOPED_TRACE(round);
        const int width = 40, count = 20 + static_cast<int>(random() % 400);
        std::vector<double> values;
        for (int i = 0; i < count; ++i)
            values.push_back(random() % 9 == 0 ? null : static_cast<double>(random() % 81) - 40);
        KXBarPlane plane = makePlane(width, static_cast<double>(width) / count);
        plane.pixelScale = 1 + static_cast<double>(random() % 3) / 2;
        const double scaled = plane.spacing * plane.pixelScale;
        if (scaled >= 2)
            continue;
        const KXBarLayout layout = kxLayoutBars(makeSource({values}, KXAxisChartStacking::Plain), plane);
        ASSERT_TRUE(layout.isDense);

        using Ends = std::map<int, std::pair<double, double>>;
        Ends expected, found; // by column: the lowest and the highest end
        for (int i = 0; i < count; ++i) {
            const double value = values[static_cast<std::size_t>(i)];
            int low = static_cast<int>(std::floor(i * scaled + 0.5 + 1e-9));
            int high = static_cast<int>(std::floor((i + 1) * scaled + 0.5 + 1e-9));
            if (high <= low) {
                low = static_cast<int>(std::floor((i + 0.5) * scaled + 1e-9));
                high = low + 1;
            }
            for (int x = low; x < high && x < width * plane.pixelScale && (value > 0 || value < 0); ++x) {
                auto& [least, most] = expected[x];
                least = std::min(least, value);
                most = std::max(most, value);
            }
        }
        for (const KXBar& bar : layout.bars) {
            EXPECT_EQ(values[bar.mark.category], bar.value);
            EXPECT_EQ(bar.to, bar.value);
            EXPECT_EQ(bar.from, 0);
            for (int x = static_cast<int>(std::round(bar.rect.x * plane.pixelScale));
                 x < std::round((bar.rect.x + bar.rect.width) * plane.pixelScale); ++x) {
                auto& [least, most] = found[x];
                least = std::min(least, bar.to);
                most = std::max(most, bar.to);
            }
        }
        EXPECT_EQ(found, expected);
    }
}

TEST(KXDenseBars, SeriesStandSideBySide)
{
    struct Case {
        const char* name;
        std::size_t series, categories;
        double width, scale;
        bool hasGroups; // a category has its bars to itself
    };
    const Case cases[] = {
        {"a column each, in shared groups", 3, 1000, 100, 1, false},
        {"a column each, with a category each", 3, 30, 120, 1, true},
        {"wider than a column on a finer device", 3, 30, 120, 2, true},
        {"several to a column", 100, 10, 1000, 1, true},
        {"several to a column of a shared group", 100, 1000, 1000, 1, false},
        {"no room for one group", 5, 4, 3, 1, false},
        {"as many as a chart holds", 10'000, 5, 200, 2, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Lists lists(c.series, std::vector<double>(c.categories));
        std::mt19937 random(5);
        for (std::vector<double>& values : lists)
            for (double& value : values)
                value = static_cast<double>(random() % 90) - 45;
        KXBarPlane plane = makePlane(c.width, c.width / static_cast<double>(c.categories));
        plane.pixelScale = c.scale;
        const KXBarLayout layout = kxLayoutBars(makeSource(lists, KXAxisChartStacking::Plain), plane);
        ASSERT_TRUE(layout.isDense);
        EXPECT_LE(layout.bars.size(), 2 * static_cast<std::size_t>(c.width * c.scale))
            << "grows with the pixels";

        double reached = 0;
        std::uint64_t lastCategory = 0, lastSeries = 0;
        for (const KXBarSlot& slot : layout.slots) {
            EXPECT_GE(slot.start, reached - 1e-9);
            reached = slot.end;
            ASSERT_LE(slot.endBar - slot.firstBar, 2);
            for (std::size_t i = slot.firstBar; i < slot.endBar; ++i) {
                const KXBar& bar = layout.bars[i];
                EXPECT_EQ(lists[bar.mark.series][bar.mark.category], bar.value);
                EXPECT_EQ(bar.from, 0) << "bars do not stand on each other";
                if (i > slot.firstBar) {
                    EXPECT_LT(bar.value * layout.bars[i - 1].value, 0) << "one on each side of zero";
                }
            }
            if (!c.hasGroups)
                continue;
            const KXAxisChartMark mark = layout.bars[slot.firstBar].mark;
            EXPECT_GE(mark.category, lastCategory);
            if (mark.category == lastCategory) {
                EXPECT_GE(mark.series + c.series / 12, lastSeries)
                    << "in their order, but for shared columns";
            }
            EXPECT_GT(slot.end, static_cast<double>(mark.category) * plane.spacing) << "in its own room";
            EXPECT_LT(slot.start, static_cast<double>(mark.category + 1) * plane.spacing);
            lastCategory = mark.category;
            lastSeries = mark.series;
        }
        for (const KXBarSlot& slot : layout.slots)
            EXPECT_TRUE(c.hasGroups || c.series > 3 || slot.end - slot.start < 1.5) << "no stripes";
        for (std::uint64_t s = 0; s < c.series && c.series <= 3; ++s) {
            const double furthest = *std::ranges::max_element(lists[s]);
            EXPECT_TRUE(std::ranges::any_of(layout.bars, [&](const KXBar& bar) {
                return bar.mark.series == s && bar.value == furthest;
            })) << "every series keeps its extremes";
        }
    }
}

TEST(KXDenseBars, ShowTheFurthestStackOfAColumn)
{
    // Two columns of four categories each.
    const Lists lists{{1, 5, 2, -1, 1, 1, 1, 1}, {1, 4, 2, -6, null, 3, 2, 1}};
    for (const KXAxisChartStacking form : {KXAxisChartStacking::Stacked, KXAxisChartStacking::Percentage}) {
        KXBarPlane plane = makePlane(2, 0.25);
        plane.values.spacing = -0.4;
        const KXBarLayout layout = kxLayoutBars(makeSource(lists, form), plane);
        std::vector<std::uint64_t> shown;
        for (const KXBar& bar : layout.bars)
            shown.push_back(bar.mark.category);
        const bool isStacked = form == KXAxisChartStacking::Stacked;
        EXPECT_EQ(shown, isStacked ? (std::vector<std::uint64_t>{1, 1, 3, 3, 5, 5})
                                   : (std::vector<std::uint64_t>{1, 1, 5, 5}));
        ASSERT_EQ(layout.slots.size(), 2);
        EXPECT_EQ(layout.slots[0].category, 1);
        EXPECT_EQ(layout.bars[1].to, isStacked ? 9 : 100);
    }
}

TEST(KXAxisChartPixelColumns, RunsOfCategoriesThatShareColumns)
{
    struct Case {
        const char* name;
        std::vector<double> numbers;
        double spacing, scale;
        std::vector<KXAxisChartPixelRun> expected;
    };
    const Case cases[] = {
        {"four a column", {}, 0.25, 1, {{0, 4, 0, 1}, {4, 8, 1, 2}}},
        {"on finer pixels", {}, 0.25, 2, {{0, 2, 0, 1}, {2, 4, 1, 2}, {4, 6, 2, 3}, {6, 8, 3, 4}}},
        {"beside the area", {-9, 0, 0, 1, 99}, 1, 1, {{1, 3, 0, 1}, {3, 4, 1, 2}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        KXBarPlane plane = makePlane(2, c.spacing);
        plane.categories = {0, 0.5 * c.spacing, c.spacing};
        plane.pixelScale = c.scale;
        KXAxisChartStacks values;
        values.categoryNumbers = c.numbers;
        values.end = c.numbers.empty() ? 8 : c.numbers.size();
        const auto only = [](double centre) {
            const std::int64_t column = KXAxisChartPixelColumns::findColumn(centre);
            return std::pair(column, column + 1);
        };
        EXPECT_EQ(KXAxisChartPixelColumns(plane).findRuns(values, only), c.expected);
    }
}

TEST(KXBarChartDataView, Hits)
{
    KXBarChartDataView view;
    const Lists lists{{20, null, 1}, {-10, 30, 0}};
    const auto hit = [&view](int x, int y) {
        const KXBar* bar = view.hitBar({x, y});
        return bar ? std::optional(bar->mark) : std::nullopt;
    };
    using Mark = KXAxisChartMark;
    view.placeBars(makeSource(lists, KXAxisChartStacking::Plain), makePlane(90, 30));
    EXPECT_EQ(hit(10, 40), (Mark{0, 0}));
    EXPECT_EQ(hit(20, 55), (Mark{1, 0}));
    EXPECT_EQ(hit(10, 20), std::nullopt) << "beyond its end";
    EXPECT_EQ(hit(38, 40), std::nullopt) << "a null";
    EXPECT_EQ(hit(68, 47), (Mark{0, 2})) << "a short bar, a little beside it";
    EXPECT_EQ(hit(80, 50), (Mark{1, 2})) << "a zero";
    EXPECT_EQ(hit(-5, 40), std::nullopt);

    std::vector<double> many(100'000, 1.0);
    many[50'050] = 40;
    view.placeBars(makeSource({many}, KXAxisChartStacking::Plain), makePlane(1000, 0.01));
    EXPECT_EQ(hit(500, 20), (Mark{0, 50'050}));
    EXPECT_EQ(view.findSlot({500, 0})->category, 50'050);
    EXPECT_EQ(view.getBars().size(), 1000);
    view.reload();
    EXPECT_EQ(hit(500, 20), std::nullopt);
}

TEST(KXBarLabelChoice, Options)
{
    const std::vector<double> values{null, 2, 5, 5, -3, null, 4, 1};
    const KXSeriesFacts facts = kxObtainSeriesFacts(values, {});
    using Option = KXAxisChartValueOption;
    const std::pair<Option, std::set<std::uint64_t>> cases[] = {
        {Option::All, {1, 2, 3, 4, 6, 7}},
        {Option::LineEnds, {1, 7}},
        {Option::MinOnly, {4}},
        {Option::MaxOnly, {2}},
        {Option::MinMax, {2, 4}},
        {Option::PositiveOnly, {1, 2, 3, 6, 7}},
        {Option::NegativeOnly, {4}},
        {Option::TurningPoint, {2}},
    };
    for (const auto& [option, expected] : cases) {
        std::set<std::uint64_t> labelled;
        for (std::uint64_t i = 0; i < 10; ++i)
            if (kxIsValueLabelled(option, facts, values, {}, i))
                labelled.insert(i);
        EXPECT_EQ(labelled, expected) << static_cast<int>(option);
    }
}
