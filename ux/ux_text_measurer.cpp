#include "ux/ux_text_measurer.h"

#include "ux/ux_approximate_text_measurer.h"
#include "ux/ux_text_measure_cache.h"
#include "ux/ux_text_property.h"

#include <cmath>

namespace {

// Ten thousand labels of a large chart stay remembered from one frame to the next, with room for others.
constexpr std::size_t maximumCount = 32768;
constexpr std::size_t maximumBytes = std::size_t{16} << 20;

/** The measurer in use and what it answered. */
struct Measuring {
    UXApproximateTextMeasurer builtIn;
    UXTextMeasurer* measurer = &builtIn;
    UXTextMeasureCache cache{maximumCount, maximumBytes};
    unsigned changes = 0;
};

Measuring& measuringInUse()
{
    static Measuring measuring;
    return measuring;
}

double obtainLength(double measured) { return std::isfinite(measured) && measured > 0 ? measured : 0; }

} // namespace

void uxSetTextMeasurer(UXTextMeasurer* measurer)
{
    Measuring& measuring = measuringInUse();
    measuring.measurer = measurer ? measurer : &measuring.builtIn;
    measuring.cache.clear();
    ++measuring.changes;
}

UXDoubleSize uxMeasureText(const std::string& text, const UXFont& font, UXTextOption option, int lineMode,
                           double widthLimit)
{
    if (text.empty())
        return {};
    Measuring& measuring = measuringInUse();
    const bool isLimited = widthLimit >= 0 && std::isfinite(widthLimit);
    const UXTextMeasureRequest request{text, font, option, lineMode, isLimited ? widthLimit : -1.0};
    if (const auto known = measuring.cache.find(request))
        return *known;

    const unsigned changesBefore = measuring.changes;
    const UXDoubleSize measured = measuring.measurer->measureText(text, font, option, lineMode,
                                                                  request.widthLimit);
    const UXDoubleSize size{obtainLength(measured.width), obtainLength(measured.height)};
    // The answer of a measurer that was replaced meanwhile is not worth keeping.
    if (measuring.changes == changesBefore)
        measuring.cache.insert(request, size);
    return size;
}

UXDoubleSize uxMeasureText(const std::string& text, const UXTextProperty& property, double widthLimit)
{
    return uxMeasureText(text, property.font, property.option, property.lineMode, widthLimit);
}
