#pragma once

#include "kx_export.h"
#include "ux/ux_double_size.h"
#include "ux/ux_text_align.h"
#include "ux/ux_text_property.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

/** Where a line of a figure stands: below the line before it, or in one row with the value, at its left or
 * right edge. */
enum class KXFigureLinePlace { Below, LeftOfValue, RightOfValue };

/**
 * One of the lines of a figure: its caption, its value, what it is compared with. Figures stand side by side
 * in rooms of one size, so a line has one place and one font in all of them, and a row of figures reads as
 * one.
 */
struct KX_EXPORT KXFigureLine {
    std::vector<std::string> texts; /**< by figure; an empty one leaves its place free */
    UXTextProperty property;        /**< of the value the largest font; it becomes the one that fits */
    int rank = 0; /**< 0: the value, the one that shrinks. Of the others a higher one gives way first. */
    KXFigureLinePlace place = KXFigureLinePlace::Below; /**< one line at most stands beside the value */
    std::optional<UXTextAlign> align{};                 /**< none: as the figure */
    double greatestWidth = 0;                           /**< in logical units; 0: that of the room */
    bool isCaption = false; /**< its texts are the host's names, which are known of what is in sight only */

    // Made by kxStackFigure: a place in the room, without a height for a line that has given way
    double left = 0, top = 0, width = 0, height = 0;
};

/** @return the height of all lines, each in its largest font, in logical units; so the next one */
[[nodiscard]] KX_EXPORT double kxMeasureFigureHeight(std::span<const KXFigureLine> lines, double gap);
/** @return the height in which no line gives way, with a value that is a little larger than the others */
[[nodiscard]] KX_EXPORT double kxMeasureLeastFigureHeight(std::span<const KXFigureLine> lines, double gap);

/**
 * Places the lines from the top of their room on. Where it is low, lines give way until the value has a font
 * a little larger than theirs; then the value takes the largest font that fits in every figure.
 * @param room of one figure
 * @param gap between two lines, in logical units
 * @return the height that they take
 */
KX_EXPORT double kxStackFigure(std::span<KXFigureLine> lines, const UXDoubleSize& room, double gap);
