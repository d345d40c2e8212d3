#include "kx_chart_summary.h"

#include "kx_chart_description.h"
#include "kx_sentence.h"
#include "ux/ux_localize.h"

#include <cmath>

namespace {

using Axis = KXChartDescription::Axis;
using Series = KXChartDescription::Series;
using Value = KXChartDescription::Value;

/** From here on values are said to rise or to fall: their order explains half of what they do. */
const double leastCorrelation = std::sqrt(0.5);

void append(std::string& text, const std::string& sentence)
{
    text.append(text.empty() ? "" : " ").append(sentence);
}

std::string writeAxis(const Axis& axis)
{
    const std::string side = uxLocalizeString(axis.isHorizontal ? "Horizontal axis" : "Vertical axis");
    const std::string called = axis.name.empty() ? side : side + ", " + axis.name;
    if (axis.memberCount == 1)
        return kxWriteSentence("%1: %2.", {called, axis.first});
    if (axis.memberCount > 1)
        return kxWriteSentence("%1: %2 members, from %3 to %4.",
                               {called, std::to_string(axis.memberCount), axis.first, axis.last});
    return kxWriteSentence("%1: from %2 to %3.", {called, axis.first, axis.last});
}

/** @return "34 (May)", or the text alone where nothing has a name */
std::string writeValue(const Value& value)
{
    return value.name.empty() ? value.text : kxWriteSentence("%1 (%2)", {value.text, value.name});
}

std::string writeExtremes(const Series& series)
{
    const std::string name = series.name.empty() ? uxLocalizeString("Values") : series.name;
    if (series.count == 1 || series.least->number == series.greatest->number)
        return kxWriteSentence(series.count == 1 ? "%1: %2." : "%1: always %2.",
                               {name, series.count == 1 ? writeValue(*series.least) : series.least->text});
    return kxWriteSentence("%1: lowest %2, highest %3.",
                           {name, writeValue(*series.least), writeValue(*series.greatest)});
}

std::string writeTrend(const Series& series)
{
    const char* pattern = series.correlation >= leastCorrelation    ? "Rises from %1 to %2."
                          : series.correlation <= -leastCorrelation ? "Falls from %1 to %2."
                                                                    : "Goes up and down, from %1 to %2.";
    return kxWriteSentence(pattern, {writeValue(*series.first), writeValue(*series.last)});
}

} // namespace

std::string kxWriteSummary(const KXChartDescription& description)
{
    std::string text = description.title.empty()
                           ? kxWriteSentence("%1.", {description.kind})
                           : kxWriteSentence("%1: %2.", {description.kind, description.title});
    for (const Axis& axis : description.axes)
        append(text, writeAxis(axis));
    if (description.seriesCount > 1)
        append(text, kxWriteSentence("%1 series.", {std::to_string(description.seriesCount)}));
    for (const Series& series : description.series) {
        if (series.least && series.greatest)
            append(text, writeExtremes(series));
        const bool isFlat = series.least && series.greatest &&
                            series.least->number == series.greatest->number;
        if (description.isOrdered && series.count > 2 && !isFlat && series.first && series.last)
            append(text, writeTrend(series));
    }
    for (const std::string& value : description.values)
        append(text, kxWriteSentence("%1.", {value}));
    if (description.series.empty() && description.values.empty())
        append(text, kxWriteSentence("%1.", {uxLocalizeString("No data")}));
    return text;
}
