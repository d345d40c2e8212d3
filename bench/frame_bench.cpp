#include "gauge_board.h"
#include "sample_value_chart.h"
#include "turns.h"
#include "ux/cairo/ux_cairo_image_paint_config.h"
#include "ux/ux_painter.h"
#include "ux/ux_recording_paint_config.h"

#include <benchmark/benchmark.h>

// What painting a chart costs beside the drawing itself: the frame against the replay of what it drew, into
// the same image with the same caches. They take turns, so that a busy machine slows both.

namespace {

void comparePainting(benchmark::State& state, UXDiagram& diagram)
{
    const UXRect area = diagram.getBoundingRect();
    UXCairoImagePaintConfig image{UXDoubleSize(area.width, area.height)};
    UXRecordingPaintConfig recorder;
    diagram.paint(&recorder, area);

    const auto paint = [&] { diagram.paint(&image, area); };
    const auto replay = [&] {
        UXPainter* painter = uxCreatePainter(&image);
        recorder.getRecording().replay(*painter);
        uxDestroyPainter(painter);
    };
    Turns turns(10);
    for (auto _ : state)
        turns.take(paint, replay);
    const double frame = turns.getFirst(), alone = turns.getSecond();
    state.counters["frame_us"] = frame;
    state.counters["replay_us"] = alone;
    state.counters["frame/replay"] = frame / alone;
}

void paintValueChart(benchmark::State& state)
{
    SampleValueChart sample;
    comparePainting(state, sample.getDiagram());
}
BENCHMARK(paintValueChart)->Iterations(1000);

void paintGaugeChart(benchmark::State& state)
{
    uxCairoInstall();
    GaugeBoard board;
    board.layout(1000, 600);
    comparePainting(state, board.getDiagram());
}
BENCHMARK(paintGaugeChart)->Iterations(100);

} // namespace
