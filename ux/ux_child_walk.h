#pragma once

#include "ux/ux_export.h"

#include <cstddef>

class UXObject;

/**
 * Goes through the children of an object from back to front, while callbacks may add, move and destroy them,
 * or destroy the object itself: UXChildWalk walk(this); while (UXObject* child = walk.next())
 *         child->layout();
 * What goes does not hide its neighbour, what comes in front of the place is met too, and nothing is met
 * twice because something else has moved. Walks are automatic variables: the last one begun ends first.
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

    void _childCame(std::size_t index);
    void _childWent(std::size_t index);

    UXObject* m_parent;
    UXChildWalk* m_outer; // the one through the same children that was begun before
    std::size_t m_place = 0;
    std::size_t
        m_left; // how many can be met at most, so that a child that keeps moving does not hold up the walk
};
