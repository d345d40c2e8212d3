#include "diagnostic_text.h"

#include "kx_chart_diagnostic.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>

namespace {

const char* obtainName(KXChartDiagnosticKind kind)
{
    switch (kind) {
    case KXChartDiagnosticKind::ShortenedText:
        return "shortened";
    case KXChartDiagnosticKind::LeftOutText:
        return "left out";
    case KXChartDiagnosticKind::MergedMarks:
        return "merged";
    case KXChartDiagnosticKind::Others:
        return "gathered";
    case KXChartDiagnosticKind::ClippedValue:
        return "clipped";
    case KXChartDiagnosticKind::LeftOutValue:
        return "not shown";
    case KXChartDiagnosticKind::MissingGlyph:
        return "no glyph";
    case KXChartDiagnosticKind::UnknownKey:
        return "unknown key";
    }
    return "";
}

} // namespace

std::string writeDiagnostic(const KXChartDiagnostic& diagnostic)
{
    std::string line = obtainName(diagnostic.kind);
    if (!diagnostic.text.empty())
        line += " \"" + diagnostic.text + '"';
    if (diagnostic.count != 1)
        line += " x " + std::to_string(diagnostic.count);
    if (const UXRect& rect = diagnostic.place; !uxIsEmptyRect(rect))
        line += " at " + std::to_string(rect.x) + ',' + std::to_string(rect.y) + ' ' +
                std::to_string(rect.width) + 'x' + std::to_string(rect.height);
    if (!diagnostic.reason.empty())
        line += ": " + diagnostic.reason;
    std::ranges::replace_if(
        line, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return line;
}
