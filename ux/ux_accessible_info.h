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
    UXAccessibleRole role = UXAccessibleRole::Group; /**< what it is */
    std::string name;                                /**< what it is called, in one line */
    std::string value;       /**< what it has, such as the text of a line or the range of an axis */
    std::string description; /**< what there is to say beyond that */
    /** What can be seen of it, in the space of its diagram; UXControl::diagramSpaceToControlSpace makes
     * pixels of it. Empty where it is out of sight. */
    UXRect rect;
    bool isFocusable = false;                     /**< keys can go there */
    bool isFocused = false;                       /**< keys go there */
    bool isSelectable = false;                    /**< it can be chosen */
    bool isSelected = false;                      /**< it is chosen */
    bool isDisabled = false;                      /**< it can be seen, and not be used */
    std::optional<UXAccessibleToggle> checked;    /**< none for what is not switched */
    std::optional<bool> expanded;                 /**< none for what does not open */
    std::vector<UXAccessibleAction> actions = {}; /**< what UXAccessibleNode::perform does */

    bool operator==(const UXAccessibleInfo&) const = default;
};
