#include "bar_board.h"
#include "kx_axis_chart_property.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/cairo/ux_cairo_install.h"

#include <benchmark/benchmark.h>
#include <cmath>

namespace {

constexpr int width = 1000, height = 600;

std::vector<double> makeValues(std::int64_t count)
{
    std::vector<double> values;
    for (std::int64_t i = 0; i < count; ++i)
        values.push_back(50 + 40 * std::sin(static_cast<double>(i) * 1.7));
    return values;
}

/** What lies under the pointer, all over the chart. */
void hitBar(benchmark::State& state)
{
    uxCairoInstall();
    BarBoard board(makeValues(state.range(0)), 1);
    board.layout(width, height);
    int x = 0;
    for (auto _ : state) {
        x = (x + 37) % width;
        benchmark::DoNotOptimize(board.getChart().getDataView().hitBar({x, height / 2}));
    }
}
BENCHMARK(hitBar)->Arg(1'000)->Arg(100'000);

/** A frame of a chart that scrolls, laid out anew. */
void scrolledFrame(benchmark::State& state)
{
    uxCairoInstall();
    BarBoard board(makeValues(state.range(0)), 1);
    board.getChart().getAxisChartProperty()->updateEnableScroll(true);
    UXCairoImagePaintConfig image(UXDoubleSize(width, height));
    board.layout(width, height);
    for (auto _ : state) {
        board.getChart().setRequireToVerifyLayout(true, true);
        board.layout(width, height);
        board.paint(image);
    }
}
BENCHMARK(scrolledFrame)->Arg(1'000)->Arg(1'000'000);

/** All data replaced, and painted. */
void replacedData(benchmark::State& state)
{
    uxCairoInstall();
    BarBoard board(makeValues(state.range(0)), 1);
    UXCairoImagePaintConfig image(UXDoubleSize(width, height));
    board.layout(width, height);
    for (auto _ : state) {
        board.update();
        board.paint(image);
    }
}
BENCHMARK(replacedData)->Arg(1'000)->Arg(100'000);

} // namespace
