#include "ux/ux_accessible_node.h"

UXAccessibleNode::~UXAccessibleNode() = default;

std::uint64_t UXAccessibleNode::obtainChildCount() { return 0; }

std::unique_ptr<UXAccessibleNode> UXAccessibleNode::createChild(std::uint64_t) { return nullptr; }

bool UXAccessibleNode::perform(UXAccessibleAction) { return false; }
