#pragma once

#include "ux/ux_double_rect.h"
#include "ux/ux_export.h"

/** What became of a text that was drawn. */
class UX_EXPORT UXDrawTextResult {
public:
    UXDrawTextResult() = default;
    UXDrawTextResult(const UXDrawTextResult&) = default;
    UXDrawTextResult& operator=(const UXDrawTextResult&) = default;
    virtual ~UXDrawTextResult();

    /** Forgets the text, as if nothing had been drawn. */
    virtual void reset();

    UXDoubleRect textRect; /**< what the lines cover, in the painter's space; empty where nothing was drawn */
    bool fits = true;      /**< whether the lines stay inside the rectangle that they were drawn in */
};
