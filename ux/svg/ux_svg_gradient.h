#pragma once

#include "ux/ux_color.h"
#include "ux/ux_double_point.h"
#include "ux/ux_paint_styles.h"
#include "ux/ux_transform.h"

#include <string>
#include <vector>

class UXSvgDocument;

/** Colours that pass into one another along a line. */
struct UXSvgGradient {
    /** Where the line has a colour of its own. */
    struct Stop {
        UXColor color;
        double offset; /**< 0 to 1, no smaller than that of the stop before */
    };

    UXDoublePoint start, end;
    UXSourceOperator beyond = UXSourceOperator::Pad;
    std::vector<Stop> stops;

    /** An offset or alpha that is not a number adds nothing. */
    void addStop(const UXColor& color, double offset);
};

/** @return each part clamped, as "#rrggbb" */
[[nodiscard]] std::string uxFormatSvgColor(const UXColor& color);

/** @return the alpha clamped to 0 to 1, 0 for NaN */
[[nodiscard]] double uxObtainSvgOpacity(double alpha);

/** @return the attribute with its blank in front, nothing where all is opaque */
[[nodiscard]] std::string uxFormatSvgOpacity(const std::string& name, double opacity);

/** @return the name of the gradient, whose space is mapped to that of its user by toUser */
[[nodiscard]] std::string uxDefineSvgGradient(UXSvgDocument& document, const UXSvgGradient& gradient,
                                              const UXTransform& toUser);
