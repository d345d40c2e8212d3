#pragma once

#include "ux/ux_export.h"

#include <cstdint>
#include <string>

class UXAccessibleNode;
struct UXAccessibleInfo;

/** @return what a node tells of itself, in one line: role, "name", then value, states, actions and place */
[[nodiscard]] UX_EXPORT std::string uxWriteAccessibleInfo(const UXAccessibleInfo& info);

/** @return the tree below node as text, a node a line, each two blanks further in than its parent; for tests,
 *  and for whoever wants to read a view
 *  @param greatestChildCount so many children of a node are written, and how many more there are
 *  @param greatestDepth nodes below are left out */
[[nodiscard]] UX_EXPORT std::string uxWriteAccessibleTree(UXAccessibleNode& node,
                                                          std::uint64_t greatestChildCount = 8,
                                                          int greatestDepth = 16);
