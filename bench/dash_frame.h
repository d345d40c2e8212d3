#pragma once

#include "frame.h"

#include <functional>
#include <memory>
#include <vector>

/** Twenty charts of one process, each on an image of its own: the picture that the comparison of chart
 * libraries calls "dash". Where a kind of chart is missing, bars of a thousand categories or a gauge stand
 * for it. */
class DashFrame : public Frame {
public:
    /** @param groups three series of twelve values each, one after the other
     *  @param values, line a thousand values each */
    DashFrame(const std::vector<double>& groups, const std::vector<double>& values,
              const std::vector<double>& line);

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
