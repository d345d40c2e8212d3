#include "ux/cairo/ux_cairo_install.h"
#include "ux/ux_layout_helper.h"
#include "ux/ux_text_property.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

// Measuring a label's text for the first time, and finding it among what was measured.

namespace {

/** @return texts of equal length, none like one before */
std::string makeNewText()
{
    static unsigned number = 0;
    char text[40];
    std::snprintf(text, sizeof text, "Revenue %010u", number++);
    return text;
}

UXTextProperty makeProperty()
{
    UXTextProperty property;
    property.font.familyName = "DejaVu Sans";
    property.font.size = 12;
    return property;
}

void measureNewText(benchmark::State& state)
{
    uxCairoInstall();
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const UXTextProperty property = makeProperty();
    for (auto _ : state)
        benchmark::DoNotOptimize(helper->getTextSize(makeNewText(), property));
}
BENCHMARK(measureNewText);

void measureKnownText(benchmark::State& state)
{
    uxCairoInstall();
    const std::unique_ptr<UXLayoutHelper> helper(uxCreateLayoutHelper());
    const UXTextProperty property = makeProperty();
    const std::string text = makeNewText();
    for (auto _ : state)
        benchmark::DoNotOptimize(helper->getTextSize(text, property));
}
BENCHMARK(measureKnownText);

} // namespace
