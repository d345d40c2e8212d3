#include "sample_value_chart.h"

#include <benchmark/benchmark.h>

// Laying out a value chart: with nothing changed but its mark, with new data, and when it is asked without
// need.

namespace {

void layoutValueChart(benchmark::State& state)
{
    SampleValueChart sample;
    for (auto _ : state) {
        sample.getChart().setRequireToVerifyLayout(true);
        sample.getChart().layout();
    }
}
BENCHMARK(layoutValueChart);

void layoutReloadedValueChart(benchmark::State& state)
{
    SampleValueChart sample;
    std::uint64_t number = 1000000;
    for (auto _ : state) {
        sample.reload(std::to_string(number++));
        sample.getChart().layout();
    }
}
BENCHMARK(layoutReloadedValueChart);

void layoutUnmarkedValueChart(benchmark::State& state)
{
    SampleValueChart sample;
    for (auto _ : state)
        sample.getChart().layout();
}
BENCHMARK(layoutUnmarkedValueChart);

} // namespace
