#include "ux/svg/ux_svg_gradient.h"

#include "ux/svg/ux_svg_document.h"
#include "ux/svg/ux_svg_text.h"

#include <algorithm>
#include <cmath>

namespace {

std::string formatStop(const UXColor& color, double offset, double opacity)
{
    return "<stop offset=\"" + uxFormatSvgNumber(offset) + "\" stop-color=\"" + uxFormatSvgColor(color) +
           '"' + uxFormatSvgOpacity("stop-opacity", opacity) + "/>";
}

std::string obtainSpread(UXSourceOperator beyond)
{
    switch (beyond) {
    case UXSourceOperator::Repeat:
        return " spreadMethod=\"repeat\"";
    case UXSourceOperator::Reflect:
        return " spreadMethod=\"reflect\"";
    default:
        return "";
    }
}

} // namespace

void UXSvgGradient::addStop(const UXColor& color, double offset)
{
    if (std::isnan(offset) || std::isnan(color.alpha))
        return;
    const double least = stops.empty() ? 0 : stops.back().offset;
    stops.push_back({color, std::clamp(offset, least, 1.0)});
}

std::string uxFormatSvgColor(const UXColor& color)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text = "#";
    for (const int part : {color.red, color.green, color.blue}) {
        const int byte = std::clamp(part, 0, 255);
        text.append({digits[byte / 16], digits[byte % 16]});
    }
    return text;
}

double uxObtainSvgOpacity(double alpha) { return alpha > 0 ? std::min(alpha, 1.0) : 0; }

std::string uxFormatSvgOpacity(const std::string& name, double opacity)
{
    return opacity >= 1 ? "" : ' ' + name + "=\"" + uxFormatSvgNumber(opacity) + '"';
}

std::string uxDefineSvgGradient(UXSvgDocument& document, const UXSvgGradient& gradient,
                                const UXTransform& toUser)
{
    // Beyond its ends a gradient goes on in the colour of the last stop, so one that ends there gets a clear
    // one.
    const bool endsThere = gradient.beyond == UXSourceOperator::None && !gradient.stops.empty();
    std::string stops = endsThere ? formatStop(gradient.stops.front().color, 0, 0) : "";
    for (const UXSvgGradient::Stop& stop : gradient.stops)
        stops.append(formatStop(stop.color, stop.offset, uxObtainSvgOpacity(stop.color.alpha)));
    if (endsThere)
        stops.append(formatStop(gradient.stops.back().color, 1, 0));

    const std::string ends = " x1=\"" + uxFormatSvgNumber(gradient.start.x) + "\" y1=\"" +
                             uxFormatSvgNumber(gradient.start.y) + "\" x2=\"" +
                             uxFormatSvgNumber(gradient.end.x) + "\" y2=\"" +
                             uxFormatSvgNumber(gradient.end.y) + '"';
    const std::string transform = toUser == UXTransform{}
                                      ? ""
                                      : " gradientTransform=\"" + uxFormatSvgTransform(toUser) + '"';
    return document.define(
        "linearGradient",
        " gradientUnits=\"userSpaceOnUse\"" + ends + obtainSpread(gradient.beyond) + transform, stops);
}
