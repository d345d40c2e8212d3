#pragma once

#include "ux/ux_painter.h"

/**
 * What a back end that keeps the space and the path itself need not write again: each change of the space,
 * and each change of the path, comes to it as one map, and using a path up is using it and then forgetting
 * it.
 */
class UX_EXPORT UXPathPainter : public UXPainter {
public:
    // From UXPainter
    void translate(double dx, double dy) final;
    void rotate(double degrees) final;
    void scale(double sx, double sy) final;
    void translatePath(double dx, double dy) final;
    void rotatePath(double degrees) final;
    void scalePath(double sx, double sy) final;
    void fill() final;
    void stroke() final;
    void clip() final;

protected:
    /** Applies change to what comes later, before the transform so far. One that cannot be undone, or is not
     * finite, is the back end's to refuse. */
    virtual void transformSpace(const UXTransform& change) = 0;
    /** Applies change, in the present space, to the points that the path has so far. */
    virtual void transformPath(const UXTransform& change) = 0;
    virtual void forgetPath() = 0;
};
