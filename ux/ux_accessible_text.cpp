#include "ux/ux_accessible_text.h"

#include "ux/ux_accessible_node.h"
#include "ux/ux_rect_functions.h"

#include <algorithm>
#include <cstddef>

namespace {

constexpr std::size_t indent = 2;

const char* obtainName(UXAccessibleAction action)
{
    switch (action) {
    case UXAccessibleAction::Focus:
        return "focus";
    case UXAccessibleAction::Press:
        return "press";
    case UXAccessibleAction::Increase:
        return "increase";
    case UXAccessibleAction::Decrease:
        return "decrease";
    }
    return "";
}

/** @return text in quotes, on one line */
std::string quote(const std::string& text)
{
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted += c == '\n' || c == '\r' ? ' ' : c;
    }
    return quoted + '"';
}

std::string listStates(const UXAccessibleInfo& info)
{
    std::string states;
    const auto add = [&](bool holds, const char* state) {
        if (holds)
            states.append(states.empty() ? "" : " ").append(state);
    };
    add(info.isFocused, "focused");
    add(info.isSelected, "selected");
    add(info.isDisabled, "disabled");
    if (info.checked) {
        add(*info.checked == UXAccessibleToggle::On, "checked");
        add(*info.checked == UXAccessibleToggle::Off, "unchecked");
        add(*info.checked == UXAccessibleToggle::Mixed, "mixed");
    }
    if (info.expanded)
        add(true, *info.expanded ? "expanded" : "collapsed");
    return states;
}

void writeNode(UXAccessibleNode& node, std::uint64_t greatestChildCount, int depth, int greatestDepth,
               std::string& text)
{
    const std::string margin(indent * static_cast<std::size_t>(depth), ' ');
    text.append(margin).append(uxWriteAccessibleInfo(node.obtainInfo())).append("\n");
    if (depth >= greatestDepth)
        return;
    const std::uint64_t count = node.obtainChildCount(), written = std::min(count, greatestChildCount);
    for (std::uint64_t i = 0; i < written; ++i)
        if (const std::unique_ptr<UXAccessibleNode> child = node.createChild(i))
            writeNode(*child, greatestChildCount, depth + 1, greatestDepth, text);
    if (written < count)
        text.append(margin)
            .append(indent, ' ')
            .append("and ")
            .append(std::to_string(count - written))
            .append(" more\n");
}

} // namespace

std::string uxWriteAccessibleInfo(const UXAccessibleInfo& info)
{
    std::string line = uxObtainRoleName(info.role);
    if (!info.name.empty())
        line.append(" ").append(quote(info.name));
    if (!info.value.empty())
        line.append(" = ").append(quote(info.value));
    if (!info.description.empty())
        line.append(" : ").append(quote(info.description));
    if (const std::string states = listStates(info); !states.empty())
        line.append(" [").append(states).append("]");
    if (!info.actions.empty()) {
        line += " (";
        for (std::size_t i = 0; i < info.actions.size(); ++i)
            line.append(i > 0 ? ", " : "").append(obtainName(info.actions[i]));
        line += ")";
    }
    if (uxIsEmptyRect(info.rect))
        return line;
    const UXRect& rect = info.rect;
    line.append(" at ").append(std::to_string(rect.x)).append(",").append(std::to_string(rect.y));
    line.append(" ").append(std::to_string(rect.width)).append("x").append(std::to_string(rect.height));
    return line;
}

std::string uxWriteAccessibleTree(UXAccessibleNode& node, std::uint64_t greatestChildCount, int greatestDepth)
{
    std::string text;
    writeNode(node, greatestChildCount, 0, greatestDepth, text);
    return text;
}
