#include "chart_baseline.h"
#include "chart_sample.h"
#include "ux/cairo/ux_cairo_versions.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const std::string folder = KX_SOURCE_DIR "/samples";

/** @return where two drawings part, empty where they do not */
std::string findDifference(const std::string& accepted, const std::string& drawn)
{
    std::istringstream before(accepted), now(drawn);
    std::string lineBefore, lineNow;
    for (int line = 1;; ++line) {
        const bool hadLine = bool(std::getline(before, lineBefore)),
                   hasLine = bool(std::getline(now, lineNow));
        if (!hadLine && !hasLine)
            return {};
        if (hadLine != hasLine || lineBefore != lineNow)
            return "step " + std::to_string(line) + ": " + (hasLine ? lineNow : "nothing") +
                   "\naccepted: " + (hadLine ? lineBefore : "nothing");
    }
}

constexpr const char* advice = "\nLook at out/gallery, then: ./run gallery --accept";

} // namespace

TEST(HostBaseline, SamplesDrawWhatWasAccepted)
{
    for (const ChartSample& sample : readChartSamples(folder))
        EXPECT_EQ(findDifference(ChartBaseline::read(sample).drawing, ChartBaseline::drawSteps(sample)), "")
            << sample.name << advice;
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
