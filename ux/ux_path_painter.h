#pragma once

#include "ux/ux_painter.h"

/**
 * The part that is the same in all back ends that keep transform and path themselves. Moving, turning and
 * scaling reach such a back end as one operation for the space and one for the path; fill, stroke and clip
 * are their Preserve forms followed by forgetPath.
 */
class UX_EXPORT UXPathPainter : public UXPainter {
public:
    // From UXPainter
    void translate(double dx, double dy) override;
    void rotate(double degrees) override;
    void scale(double sx, double sy) override;
    void translatePath(double dx, double dy) override;
    void rotatePath(double degrees) override;
    void scalePath(double sx, double sy) override;
    void fill() override;
    void stroke() override;
    void clip() override;

protected:
    /** Makes the present transform T into T.combined(change). Does nothing where the outcome is not finite or
     * not invertible. */
    virtual void transformSpace(const UXTransform& change) = 0;
    /** Applies change, in the present space, to the points that the path has so far. Does nothing where it is
     * not finite. */
    virtual void transformPath(const UXTransform& change) = 0;
    /** Makes the path empty. */
    virtual void forgetPath() = 0;
};
