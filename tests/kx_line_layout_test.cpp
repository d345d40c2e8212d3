#include "kx_line_layout.h"

#include "kx_hard_lines.h"
#include "kx_value_pyramid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double null = std::numeric_limits<double>::quiet_NaN();

std::vector<KXValueInterval> findOneByOne(const std::vector<double>& values, std::size_t first,
                                          std::size_t end)
{
    std::vector<KXValueInterval> found;
    for (std::size_t i = first; i < end; ++i) {
        if (std::isnan(values[i]))
            continue;
        if (found.empty() || found.back().end != i)
            found.push_back({i, i, i, i});
        KXValueInterval& last = found.back();
        last.end = i + 1;
        last.least = values[i] < values[last.least] ? i : last.least;
        last.greatest = values[i] > values[last.greatest] ? i : last.greatest;
    }
    return found;
}

} // namespace

TEST(KXValuePyramid, FindsWhatALookAtEachValueFinds)
{
    std::mt19937 random(1);
    for (int i = 0; i < 300; ++i) {
        const std::vector<double> values = kxMakeHardValues(random, random() % 3000);
        const KXValuePyramid pyramid(values);
        EXPECT_LE(pyramid.obtainMemory() * 5, values.size() * sizeof(double)) << "a fifth at most";
        const std::size_t first = random() % (values.size() + 1);
        const std::size_t end = first + random() % (values.size() - first + 1);
        std::vector<KXValueInterval> found;
        pyramid.findIntervals(values, first, end, found);
        EXPECT_EQ(found, findOneByOne(values, first, end)) << i;
    }
}

TEST(KXLineCurve, SmoothOnesStayBetweenTheirPointsAndStepsAreSquare)
{
    std::mt19937 random(2);
    for (int i = 0; i < 200; ++i) {
        std::vector<KXLineVertex> run;
        for (double across = 0; run.size() < 2 + random() % 20;)
            run.push_back({run.size(), across += double(random() % 30), double(random() % 7) * 50, false});
        std::vector<UXDoublePoint> points;
        kxAppendCurve(run, KXLineCurve::Smooth, 2, points);
        std::size_t next = 0;
        for (const UXDoublePoint& point : points) {
            if (point == UXDoublePoint(run[next].across, run[next].along)) {
                next += next + 1 < run.size() ? 1 : 0;
                continue;
            }
            const auto [low, high] = std::minmax(run[next - 1].along, run[next].along);
            EXPECT_GE(point.y, low - 1e-9) << i;
            EXPECT_LE(point.y, high + 1e-9) << i;
        }
        EXPECT_EQ(next + 1, run.size()) << "through each of them";
    }
    using Points = std::vector<UXDoublePoint>;
    const KXLineVertex run[] = {{0, 0, 5, true}, {1, 10, 8, false}};
    const std::pair<KXLineCurve, Points> steps[] = {
        {KXLineCurve::StepBefore, {{0, 5}, {0, 8}, {10, 8}}},
        {KXLineCurve::StepMiddle, {{0, 5}, {5, 5}, {5, 8}, {10, 8}}},
        {KXLineCurve::StepAfter, {{0, 5}, {10, 5}, {10, 8}}},
    };
    for (const auto& [curve, expected] : steps) {
        Points points;
        kxAppendCurve(run, curve, 2, points);
        EXPECT_EQ(points, expected) << int(curve);
    }
}

/** Where many runs share a column, the picture has to show the gaps between them. */
TEST(KXLineLayout, PointsBetweenNullsAreNotJoinedAlongAColumn)
{
    std::vector<double> values(4000, null);
    for (std::size_t i = 0; i < values.size(); i += 2)
        values[i] = i % 4 ? 0 : 900;
    const KXLineLayout layout = kxLayOutLine(values, kxMakeLineFrame(200, values.size()), {});
    for (const UXDoublePoint& point : layout.shapes[0].line.points)
        EXPECT_TRUE(point.y == 300 || point.y == 30 || std::isnan(point.y)) << point.y;
    for (const KXLineVertex& vertex : layout.shapes[0].line.vertices)
        EXPECT_TRUE(vertex.startsRun);
    EXPECT_LE(layout.shapes[0].line.vertices.size(), 200 * 4);
}

/** A line goes on to what is beyond the edges of the plot. */
TEST(KXLineLayout, NeighboursOfWhatIsInSightArePartOfIt)
{
    const std::vector<double> values{1, null, 3, 4, 5, null, null, 8};
    KXAxisChartStacks source;
    source.series = {{0, values}};
    source.first = 3;
    source.end = 4;
    for (const bool connects : {false, true}) {
        KXLineEdges edges;
        edges.take(source, KXLineNullHandling::Gap);
        const KXLineLayout layout = kxLayoutLines(edges, kxMakeLineFrame(100, 2),
                                                  {.connectsOverNulls = connects});
        std::vector<std::uint64_t> categories;
        for (const KXLineVertex& vertex : layout.shapes[0].line.vertices)
            categories.push_back(vertex.category);
        EXPECT_EQ(categories, connects ? (std::vector<std::uint64_t>{0, 2, 3, 4, 7})
                                       : (std::vector<std::uint64_t>{2, 3, 4}));
    }
}

TEST(KXLineLayout, PlacesThatGoBackAreJoinedByTheirNumbers)
{
    const std::vector<double> values{1, 2, 3, 4}, numbers{1, 1, 3, 5};
    const std::vector<std::uint64_t> order{1, 3, 2, 0};
    KXAxisChartStacks source;
    source.series = {{0, values}};
    source.categoryNumbers = numbers;
    source.categories = order;
    source.end = 4;
    KXLineEdges edges;
    edges.take(source, KXLineNullHandling::Gap);
    std::vector<std::uint64_t> categories;
    const KXLineLayout layout = kxLayoutLines(edges, kxMakeLineFrame(100, 6), {});
    for (const KXLineVertex& vertex : layout.shapes[0].line.vertices)
        categories.push_back(vertex.category);
    EXPECT_EQ(categories, (std::vector<std::uint64_t>{1, 3, 2, 0}));
}

/** Crowded places beside far ones make a line dense, and leave it as smooth as it is elsewhere. */
TEST(KXLineLayout, WhatLeadsFromOneFarColumnToTheNextIsBentAsByAllPlaces)
{
    for (const bool hasGap : {false, true}) {
        std::mt19937 random(5);
        std::vector<double> values, numbers;
        for (double number = 0; number < 190;
             number += number < 1 || (number > 90 && number < 91) ? 0.001 : 7) {
            numbers.push_back(number);
            values.push_back(static_cast<double>(random() % 800));
        }
        if (hasGap)
            values[values.size() - 4] = null;
        KXAxisChartStacks source;
        source.series = {{0, values}};
        source.categoryNumbers = numbers;
        source.end = values.size();
        KXAxisChartPlotFrame frame = kxMakeLineFrame(200, 200);
        frame.categories = {0, 0, 1};
        std::vector<KXLineVertex> all;
        std::vector<UXDoublePoint> expected, found;
        const auto trace = [&] {
            kxAppendCurve(all, KXLineCurve::Smooth, 2, expected);
            all.clear();
        };
        for (std::size_t i = 0; i < values.size(); ++i)
            if (!std::isnan(values[i]))
                all.push_back({i, numbers[i], frame.values.obtainPosition(values[i]), false});
            else
                trace();
        trace();
        KXLineEdges edges;
        edges.take(source, KXLineNullHandling::Gap);
        const KXLineLayout layout = kxLayoutLines(edges, frame, {.curve = KXLineCurve::Smooth});
        EXPECT_TRUE(layout.isDense);
        const auto isFar = [](const UXDoublePoint& point) {
            return std::isfinite(point.y) && (point.x > 92 || (point.x > 2 && point.x < 90));
        };
        std::erase_if(expected, [&](const UXDoublePoint& point) { return !isFar(point); });
        std::ranges::copy_if(layout.shapes[0].line.points, std::back_inserter(found), isFar);
        EXPECT_GT(found.size(), 60U);
        EXPECT_EQ(found, expected) << hasGap;
    }
}
