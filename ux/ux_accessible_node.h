#pragma once

#include "ux/ux_accessible_action.h"
#include "ux/ux_accessible_info.h"
#include "ux/ux_export.h"

#include <cstdint>
#include <memory>

class UXObject;

/**
 * A place in what a view says to those who do not see it: an object, or something that an object draws
 * itself. Nodes are made when someone asks for them, and keep nothing but where to look: a million marks are
 * a number until one of them is asked for. Children are in the order in which one reads them.
 *
 * A node shows its part of the tree as that was when the node was first asked for children; who has been told
 * that they changed (UXControl::notifyAccessibleChange) makes nodes anew. One whose object is gone has no
 * children and says nothing. Answers may ask the host, which may destroy any object.
 */
class UX_EXPORT UXAccessibleNode {
public:
    virtual ~UXAccessibleNode();

    /** @return the object that the node is, or is drawn by; null once that is gone */
    virtual UXObject* getObject() const = 0;
    virtual UXAccessibleInfo obtainInfo() = 0;
    virtual std::uint64_t obtainChildCount();
    /** @return null past the end */
    virtual std::unique_ptr<UXAccessibleNode> createChild(std::uint64_t index);
    /** Does what a click or a key does there; the object may be gone afterwards.
     *  @return whether there was anything to do */
    virtual bool perform(UXAccessibleAction action);
};
