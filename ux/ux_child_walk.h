#pragma once

#include "ux/ux_export.h"

#include <cstddef>
#include <vector>

class UXObject;

/**
 * Goes through the children of an object from back to front, while callbacks may add, move, remove and
 * destroy them, or destroy the object itself:
 *     UXChildWalk walk(this);
 *     while (UXObject* child = walk.next())
 *         child->layout();
 * No child is met twice, wherever it is moved. One that is added to the part still ahead is met; one that is
 * added or moved to the part already passed is not. Walks are local variables, so that the one begun last
 * ends first.
 */
class UX_EXPORT UXChildWalk {
public:
    /** @param parent stays its owner's */
    explicit UXChildWalk(UXObject* parent);
    ~UXChildWalk();

    UXChildWalk(const UXChildWalk&) = delete;
    UXChildWalk& operator=(const UXChildWalk&) = delete;

    /** @return the next child; null at the end, and once the parent is gone */
    UXObject* next();

private:
    friend class UXObject;

    void _childAdded(std::size_t index);
    void _childRemoved(const UXObject* child, std::size_t index);
    void _childMoved(const UXObject* child, std::size_t from, std::size_t to);

    UXObject* m_parent;                      // null once it is gone
    UXChildWalk* m_outer;                    // the one through the same children that was begun before
    std::size_t m_place = 0;                 // of the next child
    std::vector<const UXObject*> m_metAhead; // moved ahead after they had been met
};
