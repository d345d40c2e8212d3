#pragma once

#include "frame.h"

#include <functional>
#include <memory>
#include <vector>

/** Twenty charts of one process, each on an image of its own, bars, a line, points and a pie in turns: the
 * picture that the comparison of chart libraries calls "dash". */
class DashFrame : public Frame {
public:
    static constexpr int chartCount = 20, pointCount = 1000;

    /** @param groups three series of twelve values each, one after the other
     *  @param line, along, up pointCount values for each of the charts: of lines, and of points in both
     *  directions */
    DashFrame(const std::vector<double>& groups, const std::vector<double>& line,
              const std::vector<double>& along, const std::vector<double>& up);

    // From Frame
    /** @param size of one chart */
    void resize(const UXSize& size) override;
    void paint() override;
    void update() override;
    std::function<void()> makeReplay() override;
    /** @return all charts in rows of five */
    UXImage obtainImage() const override;

private:
    std::vector<std::unique_ptr<Frame>> m_frames;
    UXSize m_size;
};
