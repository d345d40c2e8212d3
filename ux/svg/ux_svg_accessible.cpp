#include "ux/svg/ux_svg_accessible.h"

#include "ux/svg/ux_svg_text.h"
#include "ux/ux_accessible_node.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>

namespace {

constexpr int greatestDepth = 16;

std::string writeAttribute(const char* name, const std::string& value)
{
    return value.empty() ? std::string() : std::string(" ") + name + "=\"" + uxEscapeSvgText(value) + '"';
}

std::string writeAttributes(const UXAccessibleInfo& info)
{
    std::string written = writeAttribute("role", uxObtainRoleName(info.role));
    const std::string value = info.name.empty() || info.value.empty() ? info.name + info.value
                                                                      : info.name + ": " + info.value;
    written += writeAttribute("aria-label", value);
    written += writeAttribute("aria-description", info.description);
    if (info.checked)
        written += writeAttribute("aria-checked", *info.checked == UXAccessibleToggle::On    ? "true"
                                                  : *info.checked == UXAccessibleToggle::Off ? "false"
                                                                                             : "mixed");
    if (info.expanded)
        written += writeAttribute("aria-expanded", *info.expanded ? "true" : "false");
    return written;
}

void appendChildren(UXAccessibleNode& node, UXPoint origin, std::uint64_t greatestChildCount, int depth,
                    std::string& elements)
{
    const std::uint64_t count = std::min(node.obtainChildCount(), greatestChildCount);
    for (std::uint64_t i = 0; i < count && depth < greatestDepth; ++i) {
        const std::unique_ptr<UXAccessibleNode> child = node.createChild(i);
        if (!child)
            continue;
        const UXAccessibleInfo info = child->obtainInfo();
        elements.append("<g").append(writeAttributes(info)).append(">\n");
        // A place to point at, and nothing to be seen.
        if (const UXRect& rect = info.rect; !uxIsEmptyRect(rect))
            elements += "<rect x=\"" + uxFormatSvgNumber(double{1} * rect.x + origin.x) + "\" y=\"" +
                        uxFormatSvgNumber(double{1} * rect.y + origin.y) + "\" width=\"" +
                        uxFormatSvgNumber(rect.width) + "\" height=\"" + uxFormatSvgNumber(rect.height) +
                        "\" fill=\"none\"/>\n";
        appendChildren(*child, origin, greatestChildCount, depth + 1, elements);
        elements += "</g>\n";
    }
}

} // namespace

UXSvgAccessible uxMakeSvgAccessible(UXAccessibleNode& node, UXPoint origin, std::uint64_t greatestChildCount)
{
    const UXAccessibleInfo info = node.obtainInfo();
    UXSvgAccessible made;
    made.attributes = writeAttribute("role", uxObtainRoleName(info.role));
    if (!info.name.empty()) {
        made.attributes += " aria-labelledby=\"title\"";
        made.head += "<title id=\"title\">" + uxEscapeSvgText(info.name) + "</title>\n";
    }
    if (!info.description.empty()) {
        made.attributes += " aria-describedby=\"description\"";
        made.head += "<desc id=\"description\">" + uxEscapeSvgText(info.description) + "</desc>\n";
    }
    appendChildren(node, origin, greatestChildCount, 0, made.elements);
    return made;
}
