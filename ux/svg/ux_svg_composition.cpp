#include "ux/svg/ux_svg_composition.h"

#include "ux/svg/ux_svg_document.h"

namespace {

/** How much of one picture stays, by the other's alpha. */
enum class Share { None, Whole, Inside, Outside };

/** The operators of T. Porter and T. Duff, "Compositing Digital Images", 1984: the sum of a share of each
 * picture. */
struct Operator {
    Share upper, lower;
};

Operator obtainOperator(UXCompositionMode mode)
{
    switch (mode) {
    case UXCompositionMode::Clear:
        return {Share::None, Share::None};
    case UXCompositionMode::Source:
        return {Share::Whole, Share::None};
    case UXCompositionMode::In:
        return {Share::Inside, Share::None};
    case UXCompositionMode::Out:
        return {Share::Outside, Share::None};
    case UXCompositionMode::Atop:
        return {Share::Inside, Share::Outside};
    case UXCompositionMode::Destination:
        return {Share::None, Share::Whole};
    case UXCompositionMode::DestinationOver:
        return {Share::Outside, Share::Whole};
    case UXCompositionMode::DestinationIn:
        return {Share::None, Share::Inside};
    case UXCompositionMode::DestinationOut:
        return {Share::None, Share::Outside};
    case UXCompositionMode::DestinationAtop:
        return {Share::Outside, Share::Inside};
    case UXCompositionMode::Xor:
        return {Share::Outside, Share::Outside};
    default:
        return {Share::Whole,
                Share::Whole}; // Over and the blends, which the style of the upper one brings about
    }
}

std::string use(const std::string& name, const std::string& attributes)
{
    return "<use href=\"#" + name + '"' + attributes + "/>";
}

/** @return other with its alpha turned over, so that it lets through where there is nothing */
std::string turnOver(UXSvgDocument& document, const std::string& other, const std::string& region)
{
    const std::string filter = document.define(
        "filter", " filterUnits=\"userSpaceOnUse\"" + region,
        "<feComponentTransfer><feFuncA type=\"linear\" slope=\"-1\" intercept=\"1\"/></feComponentTransfer>");
    return "<g filter=\"url(#" + filter + ")\">" + other + "</g>";
}

/** @return the share of the picture called own that the picture called other leaves, nothing for none */
std::string obtainPart(UXSvgDocument& document, const std::string& own, const std::string& other, Share share,
                       const std::string& region, const std::string& style)
{
    if (share == Share::None)
        return "";
    if (share == Share::Whole)
        return use(own, style);
    const std::string whole = use(other, "");
    const std::string mask = uxDefineSvgMask(
        document, share == Share::Inside ? whole : turnOver(document, whole, region), region);
    return "<g" + style + " mask=\"url(#" + mask + ")\">" + use(own, "") + "</g>";
}

} // namespace

bool uxDrawsOnSvgGround(UXCompositionMode mode)
{
    switch (mode) {
    case UXCompositionMode::Clear:
    case UXCompositionMode::Out:
    case UXCompositionMode::Destination:
    case UXCompositionMode::DestinationOver:
    case UXCompositionMode::DestinationIn:
    case UXCompositionMode::DestinationOut:
    case UXCompositionMode::DestinationAtop:
    case UXCompositionMode::Xor:
        return false;
    default:
        return true;
    }
}

std::string uxFormatSvgBlend(UXCompositionMode mode)
{
    const auto style = [](const char* blend) {
        return std::string(" style=\"mix-blend-mode:") + blend + '"';
    };
    switch (mode) {
    case UXCompositionMode::Add:
        return style("plus-lighter");
    case UXCompositionMode::Multiply:
        return style("multiply");
    case UXCompositionMode::Screen:
        return style("screen");
    case UXCompositionMode::Overlay:
        return style("overlay");
    case UXCompositionMode::Darken:
        return style("darken");
    case UXCompositionMode::Lighten:
        return style("lighten");
    default:
        return "";
    }
}

std::string uxDefineSvgMask(UXSvgDocument& document, const std::string& content, const std::string& region)
{
    return document.define("mask", " maskUnits=\"userSpaceOnUse\"" + region + " style=\"mask-type:alpha\"",
                           content);
}

std::string uxComposeSvg(UXSvgDocument& document, const std::string& upper, const std::string& lower,
                         const std::string& region, UXCompositionMode mode)
{
    const std::string upperName = document.define("g", "", upper),
                      lowerName = document.define("g", "", lower);
    const Operator shares = obtainOperator(mode);
    // The shares are added up; where each is masked by the other, painting over would darken the edges.
    const bool isSum = shares.upper != Share::Whole && shares.upper != Share::None &&
                       shares.lower != Share::None;
    const std::string style = uxFormatSvgBlend(isSum ? UXCompositionMode::Add : mode);
    return "<g style=\"isolation:isolate\">" +
           obtainPart(document, lowerName, upperName, shares.lower, region, "") +
           obtainPart(document, upperName, lowerName, shares.upper, region, style) + "</g>";
}
