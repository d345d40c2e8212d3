#pragma once

#include "ux/ux_point.h"

#include <cstdint>
#include <string>

class UXAccessibleNode;

/** What a page says to those who do not see it, for the parts of its document. */
struct UXSvgAccessible {
    std::string attributes; /**< of the page, each after a blank */
    std::string head;       /**< its title and description */
    std::string elements;   /**< the nodes below it, as groups without anything that is drawn */
};

/** @param node what the page shows
 *  @param origin where the node's diagram has its own on the page
 *  @param greatestChildCount so many children of a node are written */
[[nodiscard]] UXSvgAccessible uxMakeSvgAccessible(UXAccessibleNode& node, UXPoint origin,
                                                  std::uint64_t greatestChildCount);
