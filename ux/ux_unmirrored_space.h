#pragma once

#include "ux/ux_export.h"

class UXPainter;

/** For signs that look the same whichever way lines run, as a tick: until the scope ends, left is left and
 * right is right around a middle, also where the painter mirrors. Texts and images are so without it. */
class UX_EXPORT UXUnmirroredSpace {
public:
    /** @param painter has its state saved, and restored at the end, where it mirrors
     *  @param middle what stays where it is, along x */
    UXUnmirroredSpace(UXPainter& painter, double middle);
    ~UXUnmirroredSpace();

    UXUnmirroredSpace(const UXUnmirroredSpace&) = delete;
    UXUnmirroredSpace& operator=(const UXUnmirroredSpace&) = delete;

private:
    UXPainter& m_painter;
    bool m_isMirrored = false;
};
