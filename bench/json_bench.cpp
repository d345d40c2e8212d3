#include "sample_value_chart.h"

#include <benchmark/benchmark.h>

// Saving a chart and loading it.

namespace {

void serializeValueChart(benchmark::State& state)
{
    SampleValueChart sample;
    for (auto _ : state)
        benchmark::DoNotOptimize(sample.getChart().serialize());
}
BENCHMARK(serializeValueChart);

void deserializeValueChart(benchmark::State& state)
{
    SampleValueChart sample;
    const std::string text = sample.getChart().serialize();
    for (auto _ : state)
        if (!sample.getChart().deserialize(text))
            state.SkipWithError("a chart does not load what it saved");
}
BENCHMARK(deserializeValueChart);

} // namespace
