#include "kx_chart_data_format.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <ctime>
#include <string>

// Each formatting stands next to what the C library does for the same value.

namespace {

constexpr double numbers[] = {1234567, 1234.5, -0.25, 98765432.125, 3, 1e21, -15300, 2.675};
const std::string dateTimes[] = {"2024-03-05 14:07:09", "1999-12-31 23:59:59", "2026-11-21 00:00:00",
                                 "2024-02-29 09:30:15"};

void formatNumber(benchmark::State& state)
{
    const KXChartDataFormat format;
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(format.formatNumber(numbers[i++ % std::size(numbers)]));
}
BENCHMARK(formatNumber);

void formatNumberWithEverything(benchmark::State& state)
{
    KXChartDataFormat format;
    format.setPrefix("$");
    format.setSuffix("K");
    format.setDivider(1000);
    format.setNegative(KXChartDataFormatNegative::RoundBrackets);
    format.setThousandsSeparator(KXChartDataFormatThousandsSeparator::Dot);
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(format.formatNumber(numbers[i++ % std::size(numbers)]));
}
BENCHMARK(formatNumberWithEverything);

void snprintfNumber(benchmark::State& state)
{
    char text[400];
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%.2f", numbers[i++ % std::size(numbers)]));
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(snprintfNumber);

void formatDateTime(benchmark::State& state, const char* pattern)
{
    KXChartDataFormat format;
    if (*pattern) {
        format.setDateTimeMode(KXChartDataFormatDateTimeMode::Custom);
        format.setCustomDateTimeFormat(pattern);
    }
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(format.formatDateTime(
            dateTimes[i++ % std::size(dateTimes)], KXChartDataType::DateTime, KXChartAggregateType::Second));
}
BENCHMARK_CAPTURE(formatDateTime, preset, "");
BENCHMARK_CAPTURE(formatDateTime, named, "Wd, D MMMM YYYY hh:mm:SS p");

#if !defined(_WIN32)
void strptimeAndStrftime(benchmark::State& state, const char* pattern)
{
    char text[100];
    std::size_t i = 0;
    for (auto _ : state) {
        std::tm time{};
        benchmark::DoNotOptimize(
            strptime(dateTimes[i++ % std::size(dateTimes)].c_str(), "%Y-%m-%d %H:%M:%S", &time));
        benchmark::DoNotOptimize(std::strftime(text, sizeof text, pattern, &time));
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK_CAPTURE(strptimeAndStrftime, preset, "%Y-%m-%d %H:%M:%S");
BENCHMARK_CAPTURE(strptimeAndStrftime, named, "%a, %d %B %Y %I:%M:%S %p");
#endif

} // namespace
