#pragma once

#include <string>

struct ChartSample;

/** What a sample looks like, in a form that can be kept and compared. */
struct ChartBaseline {
    std::string drawing;  // what the chart draws at 480 x 320, a step a line; the same on every machine
    std::string tree;     // what it says there to those who do not see it, a node a line; the same
    std::string pictures; // the hashes of the gallery's pictures; the same where uxCairoObtainVersions() is

    /** Draws a sample. Throws HostError for a sample that cannot be read. Afterwards texts are measured by
     * the painting back end. */
    static ChartBaseline draw(const ChartSample& sample);
    /** @return the hashes alone */
    static std::string drawPictures(const ChartSample& sample);
    /** @return drawing and tree, without pictures; afterwards texts are measured without fonts */
    static ChartBaseline drawSteps(const ChartSample& sample);

    /** @return what was kept of the sample; all empty where nothing was */
    static ChartBaseline read(const ChartSample& sample);
    /** Keeps it beside the sample, in the folder baselines. */
    void write(const ChartSample& sample) const;

    /** @return the versions that the pictures' hashes in the folder of samples were made with, empty without
     *  any */
    static std::string readVersions(const std::string& folder);
    /** Keeps this machine's versions. */
    static void writeVersions(const std::string& folder);
};
