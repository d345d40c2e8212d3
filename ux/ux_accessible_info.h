#pragma once

#include "ux/ux_accessible_action.h"
#include "ux/ux_accessible_role.h"
#include "ux/ux_rect.h"

#include <optional>
#include <string>
#include <vector>

/** Whether something is switched on. */
enum class UXAccessibleToggle { Off, On, Mixed };

/** What a node of the accessible tree tells of itself. Texts are UTF-8, in the host's language. */
struct UXAccessibleInfo {
    UXAccessibleRole role = UXAccessibleRole::Group;
    std::string name;        /**< what it is called, in one line */
    std::string value;       /**< what it has, such as the text of a line or the range of an axis */
    std::string description; /**< what there is to say beyond that */
    /** What can be seen of it, in the space of its diagram; UXControl::diagramSpaceToControlSpace makes
     * pixels of it. Empty where it is out of sight. */
    UXRect rect;
    bool isFocusable = false;
    bool isFocused = false;
    bool isSelectable = false;
    bool isSelected = false;
    bool isDisabled = false;
    std::optional<UXAccessibleToggle> checked;    /**< none for what is not switched */
    std::optional<bool> expanded;                 /**< none for what does not open */
    std::vector<UXAccessibleAction> actions = {}; /**< what UXAccessibleNode::perform does */

    bool operator==(const UXAccessibleInfo&) const = default;
};
