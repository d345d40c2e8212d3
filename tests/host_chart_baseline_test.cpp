#include "chart_baseline.h"
#include "chart_sample.h"
#include "host_drawing_difference.h"
#include "ux/cairo/ux_cairo_versions.h"

#include <gtest/gtest.h>

namespace {

const std::string folder = KX_SOURCE_DIR "/samples";

constexpr const char* advice = "\nLook at out/gallery, then: ./run gallery --accept";

} // namespace

TEST(HostBaseline, SamplesDrawAndSayWhatWasAccepted)
{
    for (const ChartSample& sample : readChartSamples(folder)) {
        const ChartBaseline kept = ChartBaseline::read(sample), now = ChartBaseline::drawSteps(sample);
        EXPECT_EQ(findDifference(kept.drawing, now.drawing), "") << sample.name << advice;
        EXPECT_EQ(findDifference(kept.tree, now.tree), "") << sample.name << advice;
    }
}

TEST(HostBaseline, PicturesAreThoseThatWereAccepted)
{
#ifndef NDEBUG
    GTEST_SKIP() << "left to the optimised build: these are many pixels";
#endif
    if (ChartBaseline::readVersions(folder) != uxCairoObtainVersions() + '\n')
        GTEST_SKIP() << "this machine has " << uxCairoObtainVersions();
    for (const ChartSample& sample : readChartSamples(folder))
        EXPECT_EQ(ChartBaseline::read(sample).pictures, ChartBaseline::drawPictures(sample))
            << sample.name << advice;
}
