#pragma once

/** What the pointer looks like over an object. Its number is what a control is told; a host may know more. */
enum class UXCursor : int {
    AsParent = -1, /**< as over what the object stands on; an arrow where nothing says more */
    Arrow = 0,
    PointingHand,
    Text,
    Move,
    ResizeHorizontally,
    ResizeVertically,
    NotAllowed,
    Wait
};
