#include "dash_frame.h"

#include "bar_board.h"
#include "kx_line_chart.h"
#include "line_board.h"
#include "pie_board.h"
#include "scatter_board.h"

#include <cstddef>

namespace {

constexpr int columns = 5, rows = 4;
static_assert(columns * rows == DashFrame::chartCount);

} // namespace

DashFrame::DashFrame(const std::vector<double>& groups, const std::vector<double>& line,
                     const std::vector<double>& along, const std::vector<double>& up)
{
    const auto append = [](std::vector<double>& values, const std::vector<double>& all, std::size_t chart) {
        const auto first = all.begin() + static_cast<std::ptrdiff_t>(chart * pointCount);
        values.insert(values.end(), first, first + pointCount);
    };
    for (std::size_t i = 0; i < chartCount; ++i) {
        std::vector<double> values;
        if (i % 4 == 0) {
            m_frames.push_back(std::make_unique<BoardFrame<BarBoard>>(groups, std::size_t{3}));
        } else if (i % 4 == 1) {
            append(values, line, i);
            m_frames.push_back(
                std::make_unique<BoardFrame<LineBoard<KXLineChart>>>(values, std::size_t{1}, "Line"));
        } else if (i % 4 == 2) {
            append(values, along, i);
            append(values, up, i);
            m_frames.push_back(std::make_unique<BoardFrame<ScatterBoard>>(values));
        } else {
            m_frames.push_back(std::make_unique<BoardFrame<PieBoard>>());
        }
    }
}

void DashFrame::resize(const UXSize& size)
{
    m_size = size;
    for (const auto& frame : m_frames)
        frame->resize(size);
}

void DashFrame::paint()
{
    for (const auto& frame : m_frames)
        frame->paint();
}

void DashFrame::update()
{
    for (const auto& frame : m_frames)
        frame->update();
}

std::function<void()> DashFrame::makeReplay()
{
    std::vector<std::function<void()>> replays;
    for (const auto& frame : m_frames)
        replays.push_back(frame->makeReplay());
    return [replays] {
        for (const std::function<void()>& replay : replays)
            replay();
    };
}

UXImage DashFrame::obtainImage() const
{
    UXCairoImagePaintConfig all(UXDoubleSize(columns * m_size.width, rows * m_size.height));
    UXPainter* painter = uxCreatePainter(&all);
    for (std::size_t i = 0; i < m_frames.size(); ++i) {
        const int place = static_cast<int>(i);
        const UXImage image = m_frames[i]->obtainImage();
        painter->drawImage(&image,
                           UXDoublePoint(place % columns * m_size.width, place / columns * m_size.height), 1);
    }
    uxDestroyPainter(painter);
    return all.obtainImage();
}
